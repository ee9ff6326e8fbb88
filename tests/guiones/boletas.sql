INSERT INTO Empresas (CUIT, Razon, Calle, Numero, NroLocal, Piso, Depto, CodPos, Localidad, Provincia, Rubro, Estudio)
VALUES ('30-12345678-1', 'D''Angelo & Hijos', 'O''Higgins', 0, 'L-5', '2', 'B', '1870', 'Ñorquín', 1, '012110', 'Núñez'),
       ('30-87654321-5', 'Confitería', 'Mitre', 5, '', '', '', '1900', 'La Plata', 1, '012110', '');
INSERT INTO Empresas_Sucursales (ID, CUIT, Sucursal, Domicilio, Numero, CodPos, Localidad)
VALUES (1, '30-12345678-1', '1', 'Calle 1', 10, '1870', 'Ñorquín');
INSERT INTO DDJJ (Cuit, Periodo, Secuencia, Fecha)
VALUES ('30-12345678-1', '2009-04-01', 0, '2009-05-04'), ('30-12345678-1', '2009-05-01', 0, '2009-06-03'),
       ('30-12345678-1', '2009-05-01', 1, '2009-06-20'), ('30-12345678-1', '2009-05-01', 2, '2009-06-21'),
       ('30-12345678-1', '2009-05-01', 3, '2009-06-22');
-- The original; then one that is higher, one that is equal and one with the burial insurance lower.
INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Nacio, EstCivil, Categoria,
                            Ingreso, Sucursal, Afiliado, QHoras, Imponible, Acuerdo, ART100, ART101A, ART101B)
VALUES ('30-12345678-1', '2009-05-01', 0, '20-00000001-9', 'Ñáñez, Óscar <b>', 1, 1, 1, '1970-01-01', 1, 11,
        '2000-01-01', 1, 1, 200, 10000000, 500000, 210000, 105000, 105000),
       ('30-12345678-1', '2009-05-01', 0, '20-00000002-7', 'D''Angelo, Ana', 1, 2, 0, '1970-01-01', 1, 11,
        '2000-01-01', 0, 0, 200, 5000000, 0, 100000, 0, 0),
       ('30-12345678-1', '2009-05-01', 0, '20-00000003-5', 'Sosa & Cía', 0, 0, NULL, NULL, 0, 0, NULL, 0, 1, 200,
        2500050, 0, 50000, 25000, 25000),
       ('30-12345678-1', '2009-05-01', 1, '20-00000001-9', 'Ñáñez, Óscar', 1, 1, 1, '1970-01-01', 1, 11, '2000-01-01',
        1, 1, 200, 20000000, 0, 400000, 200000, 210000),
       ('30-12345678-1', '2009-05-01', 2, '20-00000001-9', 'Ñáñez, Óscar', 1, 1, 1, '1970-01-01', 1, 11, '2000-01-01',
        1, 1, 200, 18000000, 0, 360000, 130000, 130000),
       ('30-12345678-1', '2009-05-01', 3, '20-00000001-9', 'Ñáñez, Óscar', 1, 1, 1, '1970-01-01', 1, 11, '2000-01-01',
        1, 1, 200, 18000000, 0, 400000, 130000, 120000);
INSERT INTO PAGOS (Cuit, Tipo, Fecha, Dias, Interes, Importe, NroActa, Cuota, Cuenta)
VALUES ('30-12345678-1', 2, '2009-01-10', 0, 0, 10000000, 3, 1, 0),
       ('30-12345678-1', 2, '2009-02-10', 0, 0, 10000000, 3, 2, 0),
       ('30-12345678-1', 2, '2009-03-10', 15, 1002500, 11002500, 12, 1, 0),
       ('30-12345678-1', 2, '2009-03-10', 0, 0, 5000000, 7, 1, 1);
