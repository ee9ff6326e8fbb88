-- All that the company's heading shows, branches that sort in their own way, one of another company, and in each branch,
-- in none and in one that is gone two people whose amounts no other sum has. Then one who lacks each datum in turn.
UPDATE Empresas SET Telefono = '4222', Email = 'a@b', Est_Domicilio = 'Calle 7', Est_CodPos = '1900',
    Est_Localidad = 'La Plata', Est_Telefono = '422', Est_EMail = 'e@b' WHERE CUIT = '30-12345678-1';
INSERT INTO Empresas_Sucursales (ID, CUIT, Sucursal, Domicilio, Numero, CodPos, Localidad, Telefono)
VALUES (2, '30-12345678-1', '2', 'Alsina', 45, '1870', 'Avellaneda', '461'),
       (3, '30-12345678-1', '10', 'Belgrano', 0, '1900', 'La Plata', ''), (4, '30-12345678-1', 'a', 'Calle C', 3, '', 'Cuyo', ''),
       (5, '30-12345678-1', 'A', 'Calle B', 2, '', 'Brea', ''), (6, '30-12345678-1', 'A', 'Calle A', 1, '', 'Azul', ''),
       (7, '30-87654321-5', '9', 'Ajena', 9, '', 'Ajena', '');
INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Nacio, EstCivil, Categoria,
                            Ingreso, Egreso, Sucursal, Afiliado, QHoras, Imponible, Acuerdo, Acuerdo2, ART100, ART101A,
                            ART101B)
WITH n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 13)
SELECT '30-12345678-1', '2009-05-01', 0, printf('23-%08d-0', 99 - i), 'Gómez ' || char(65 + i), 1, 12345678, 1,
    '1970-03-15', 1, 11, '2001-02-01', CASE i WHEN 4 THEN '2009-05-15' END,
    CASE i % 7 WHEN 0 THEN 0 WHEN 1 THEN 999 ELSE i % 7 END, i % 2, 200 - i, (1 << i) * 100000000, (1 << i) * 10100,
    (1 << i) * 100, (1 << i) * 300, (1 << i) * 500, (1 << i) * 700 FROM n;
UPDATE DDJJ_Empleados SET TipoDoc = 0 WHERE AyN = 'Gómez A';
UPDATE DDJJ_Empleados SET TipoDoc = 99 WHERE AyN = 'Gómez B';
UPDATE DDJJ_Empleados SET NroDoc = 0 WHERE AyN = 'Gómez C';
UPDATE DDJJ_Empleados SET NroDoc = NULL WHERE AyN = 'Gómez D';
UPDATE DDJJ_Empleados SET Sexo = NULL WHERE AyN = 'Gómez E';
UPDATE DDJJ_Empleados SET Sexo = 0 WHERE AyN = 'Gómez F';
UPDATE DDJJ_Empleados SET Nacio = NULL WHERE AyN = 'Gómez G';
UPDATE DDJJ_Empleados SET EstCivil = 0 WHERE AyN = 'Gómez H';
UPDATE DDJJ_Empleados SET Ingreso = NULL WHERE AyN = 'Gómez I';
UPDATE DDJJ_Empleados SET Categoria = 0 WHERE AyN = 'Gómez J';
UPDATE DDJJ_Empleados SET Categoria = 9999 WHERE AyN = 'Gómez K';
