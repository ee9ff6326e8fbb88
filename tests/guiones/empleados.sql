INSERT INTO Empresas (CUIT, Razon, Calle, Numero, CodPos, Localidad, Provincia, Telefono, Rubro) VALUES
    ('30-12345678-1', 'Bodega O''Higgins & Peña S.A.', 'Av. España', 1234, '5600', 'San Rafael', 13, '0260 442-1234',
    '011111');
INSERT INTO Empresas_Sucursales (CUIT, Sucursal, Domicilio, Numero, CodPos, Localidad, Telefono) VALUES
    ('30-12345678-1', 'BODEGA', 'Ruta 50', 50, '5570', 'San Martín', '4420000'),
    ('30-12345678-1', 'FINCA', 'Calle D''Angelo', 0, '5571', 'Junín', '4430000');
INSERT INTO DDJJ VALUES ('30-12345678-1', '2009-05-01', 0, '2009-06-03');
