INSERT INTO Empresas (CUIT, Razon, Fantasia, Calle, Numero, NroLocal, Depto, CodPos, Localidad, Provincia, Telefono,
    Rubro, Contacto, Email) VALUES
    ('30-12345678-1', 'Bodega O''Higgins & Peña S.A.', 'La Peña', 'Av. España', 1234, '12', 'B', '5600', 'San Rafael', 13,
    '0260 442-1234', '011111', 'José Núñez', 'bodega@example.org');
INSERT INTO Empresas_Responsables VALUES ('30-12345678-1', 'D''Angelo, José', 'Las Heras 100', 'Maipú', 1, 5123456);
INSERT INTO Empresas_Sucursales (CUIT, Sucursal, Domicilio, Numero, CodPos, Localidad, Telefono) VALUES
    ('30-12345678-1', 'BODEGA-001', 'Ruta 50', 50, '5570', 'San Martín', '4420000');
INSERT INTO DDJJ VALUES ('30-12345678-1', '2009-05-01', 0, '2009-06-03'), ('30-12345678-1', '2009-05-01', 1, '2009-07-03');
