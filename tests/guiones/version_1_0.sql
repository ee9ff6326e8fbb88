-- The database as it was at version 1.0, with a mailbox of its own and an employee of that time.
DROP INDEX IX_DDJJ_Empleados_Acuerdo2Nulo;
DROP INDEX IX_DDJJ_Empleados_AcuerdoNulo;
ALTER TABLE DDJJ_Empleados DROP COLUMN Acuerdo2;
ALTER TABLE DDJJ_Empleados DROP COLUMN Acuerdo;
ALTER TABLE RptEmpleados DROP COLUMN Acuerdo2;
ALTER TABLE RptEmpleados DROP COLUMN Acuerdo;
UPDATE Parametros SET Version = '1.0', EMail = 'anterior@example.org';
INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, Sueldo, Imponible)
VALUES ('30-12345678-1', '2009-05-01', 0, '20-12345678-6', 12345600, 12345600);
