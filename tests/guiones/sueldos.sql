INSERT INTO Empresas (CUIT, Razon) VALUES ('30-12345678-1', 'D''Angelo Hermanos');
INSERT INTO DDJJ (Cuit, Periodo, Secuencia, Fecha) VALUES
  ('30-12345678-1', '2009-04-01', 0, '2009-05-04'),
  ('30-12345678-1', '2009-05-01', 0, '2009-06-03'),
  ('30-12345678-1', '2009-05-01', 1, '2009-06-20');
INSERT INTO Empresas_Sucursales (CUIT, Sucursal, Domicilio, Numero, Localidad) VALUES
  ('30-12345678-1', 'BODEGA-1', 'Ruta 50', 12, 'Maipú'), ('30-12345678-1', 'OLIVAR-2', 'Belgrano', 0, 'San Rafael');
INSERT INTO Categorias (Codigo, Nombre) VALUES (901, 'Encargado de prueba');
-- A member of the full day, one of three quarters with an older agreement sum, and one who is no member.
INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Nacio, EstCivil, Categoria,
  Ingreso, Egreso, Afiliado, QHoras, Sueldo, Imponible, Acuerdo, Acuerdo2, ART100, ART101A, ART101B, Familiares) VALUES
  ('30-12345678-1', '2009-05-01', 0, '20-00000001-1', 'Zapata Ana', 1, 1, 0, '1970-01-01', 1, 901, '2000-01-01', NULL,
   1, 200, 10000000, 10000000, 0, 0, 200000, 100000, 100000, 2),
  ('30-12345678-1', '2009-05-01', 0, '20-00000002-1', 'Núñez Óscar', 1, 2, 1, '1970-01-01', 1, 0, '2000-01-01',
   '2009-05-20', 1, 150, 6500000, 5000000, 1000000, 500000, 130000, 65000, 65000, 1),
  ('30-12345678-1', '2009-05-01', 0, '20-00000003-1', 'O''Higgins Raúl', 1, 3, 1, '1970-01-01', 1, 0, '2000-01-01', NULL,
   0, 200, 10000000, 10000000, 0, 0, 200000, 0, 0, 0),
  ('30-12345678-1', '2009-05-01', 1, '20-00000009-1', 'Sosa Raúl', 1, 9, 1, '1970-01-01', 1, 0, '2000-01-01', NULL,
   0, 200, 0, 0, 0, 0, 0, 0, 0, 0);
