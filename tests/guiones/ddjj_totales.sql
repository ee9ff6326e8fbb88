INSERT INTO Empresas (CUIT, Razon) VALUES ('30-12345678-1', 'D''Angelo Hermanos');
INSERT INTO DDJJ (Cuit, Periodo, Secuencia, Fecha) VALUES
  ('30-12345678-1', '2009-04-01', 0, '2009-05-04'),
  ('30-12345678-1', '2009-05-01', 0, '2009-06-03'),
  ('30-12345678-1', '2009-05-01', 1, '2009-06-20');
-- A member with both agreement sums, one who is no member and works half the day, and one whose document is missing.
INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Nacio, EstCivil, Categoria,
  Ingreso, Afiliado, QHoras, Imponible, Acuerdo, Acuerdo2, ART100, ART101A, ART101B, Familiares) VALUES
  ('30-12345678-1', '2009-05-01', 0, '20-00000001-1', 'Agüero Ana', 1, 1, 0, '1970-01-01', 1, 1, '2000-01-01', 1, 200,
   10000000, 1000000, 500000, 230000, 115000, 115000, 2),
  ('30-12345678-1', '2009-05-01', 0, '20-00000002-1', 'Ñuñez Óscar', 1, 2, 1, '1970-01-01', 1, 1, '2000-01-01', 0, 100,
   5000000, 0, 0, 100000, 0, 0, 1),
  ('30-12345678-1', '2009-05-01', 1, '20-00000003-1', 'Sosa Raúl', 1, 0, 1, NULL, 1, 1, '2000-01-01', 0, 200,
   12500, 0, 0, 300, 0, 0, 0);
