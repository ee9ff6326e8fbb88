INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Nacio, EstCivil, Provincia,
    Categoria, Ingreso, Afiliado, Sueldo, Imponible, Acuerdo, Acuerdo2, QHoras, ART100, ART101A, ART101B, Sucursal,
    Familiares) VALUES
    ('30-12345678-1', '2009-05-01', 0, '20-12345678-6', 'Pérez Juan', 1, 12345678, 1, '1970-03-15', 1, 13, 41,
    '2001-02-03', 1, 10000000, 10000000, 300000, 200000, 150, 150000, 75000, 75000, 1, 2),
    ('30-12345678-1', '2009-05-01', 0, '27-23456789-4', 'D''Angelo "Ana"', 99, 23456789, 0, NULL, 99, 99, 99, NULL, 0,
    8000000, 8000000, 0, 0, 200, 160000, 0, 0, 77, 0);
INSERT INTO Empleados_Familiares VALUES ('20-12345678-6', 1, 'O''Brien Luz', 1, 20123456, 0, '1925-12-31');
INSERT INTO Empleados_Familiares VALUES ('20-12345678-6', 99, 'Oculto', 1, 20123457, 0, '1999-12-31');
