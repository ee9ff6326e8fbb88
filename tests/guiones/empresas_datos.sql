INSERT INTO Empresas (CUIT, Razon, Fantasia, Calle, Numero, NroLocal, Piso, Depto, CodPos, Localidad, Provincia,
                      Telefono, Fax, Rubro, Contacto, Web, Email)
VALUES ('30-70123456-8', 'Panadería D''Angelo', '', 'O''Higgins', 123, '', '', '', '1900', 'La Plata', 1, '', '',
        '012110', '', '', ''),
       ('20-23456789-7', 'Ñandú Hnos.', '', 'Calle 7', 0, '', '', '', '1923', 'Berisso', 1, '', '', '012121', '', '',
        ''),
       ('33-55555555-0', 'Abasto 100% Pan', '', 'Calle 9', 9, '', '', '', '1925', 'Ensenada', 1, '', '', '012200', '',
        '', '');
INSERT INTO Empresas_Sucursales (ID, CUIT, Sucursal, Domicilio, Numero, CodPos, Localidad, Telefono)
VALUES (1, '30-70123456-8', '1', 'Calle 60', 10, '1923', 'Berisso', '461-0000'),
       (2, '30-70123456-8', '2', 'O''Higgins', 20, '1925', 'Ensenada', ''),
       (3, '20-23456789-7', '1', 'Calle 7', 1, '1923', 'Berisso', '');
INSERT INTO Empresas_Responsables (CUIT, AyN, Domicilio, Localidad, TipoDoc, NroDoc)
VALUES ('30-70123456-8', 'Zárate, Ana', 'Calle 1', 'La Plata', 1, 11111111),
       ('30-70123456-8', 'Álvarez, Luis', 'Calle 2', 'La Plata', 1, 22222222);
INSERT INTO DDJJ (Cuit, Periodo, Secuencia, Fecha) VALUES ('30-70123456-8', '2024-05-01', 0, '2024-06-03');
INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, Sucursal)
VALUES ('30-70123456-8', '2024-05-01', 0, '20-12345678-6', 'Gómez, Luis', 2);
INSERT INTO PAGOS (Cuit, Tipo) VALUES ('30-70123456-8', 2), ('33-55555555-0', 2);
