-- Tables of DBBrivo.mdb at version 2.0. The seed tool runs these statements once, on an empty file.
--
-- Kinds of columns: INTEGER whole number, TEXT, DATE as 'YYYY-MM-DD', TIME as 'HH:MM:SS', CURRENCY in whole
-- ten-thousandths, YESNO 0 or 1. Names, streets and towns are compared and ordered by the collation "espanol".
-- Everything but the keys may be null, because older files hold nulls in any column.

CREATE TABLE Parametros (
    Version     TEXT,
    Indice      INTEGER DEFAULT 0,
    EMail       TEXT,
    Bak_Carpeta TEXT,
    Bak_Fecha   DATE,
    Bak_Hora    TIME
);

CREATE TABLE Provincias (
    Codigo INTEGER NOT NULL PRIMARY KEY,
    Nombre TEXT COLLATE espanol
);

CREATE TABLE Documentos (
    Codigo INTEGER NOT NULL PRIMARY KEY,
    Nombre TEXT COLLATE espanol
);

CREATE TABLE Categorias (
    Codigo INTEGER NOT NULL PRIMARY KEY,
    Nombre TEXT COLLATE espanol
);

CREATE TABLE Familiar (
    Codigo INTEGER NOT NULL PRIMARY KEY,
    Nombre TEXT COLLATE espanol
);

CREATE TABLE EstadoCivil (
    Codigo INTEGER NOT NULL PRIMARY KEY,
    Nombre TEXT COLLATE espanol
);

CREATE TABLE Rubros (
    Codigo TEXT NOT NULL PRIMARY KEY,
    Nombre TEXT COLLATE espanol
);

CREATE TABLE Empresas (
    CUIT          TEXT NOT NULL PRIMARY KEY,
    Razon         TEXT COLLATE espanol,
    Fantasia      TEXT COLLATE espanol,
    Calle         TEXT COLLATE espanol,
    Numero        INTEGER DEFAULT 0,
    NroLocal      TEXT,
    Piso          TEXT,
    Depto         TEXT,
    CodPos        TEXT,
    Localidad     TEXT COLLATE espanol,
    Provincia     INTEGER DEFAULT 0,
    Telefono      TEXT,
    Fax           TEXT,
    Rubro         TEXT,
    Contacto      TEXT COLLATE espanol,
    Web           TEXT,
    Email         TEXT,
    Estudio       TEXT COLLATE espanol,
    Est_Domicilio TEXT COLLATE espanol,
    Est_CodPos    TEXT,
    Est_Localidad TEXT COLLATE espanol,
    Est_Telefono  TEXT,
    Est_EMail     TEXT
);
-- The lists of companies run by name, and a name chosen in a list is looked up again.
CREATE INDEX IX_Empresas_Razon ON Empresas (Razon);

CREATE TABLE Empresas_Sucursales (
    ID        INTEGER NOT NULL PRIMARY KEY AUTOINCREMENT,
    CUIT      TEXT,
    Sucursal  TEXT COLLATE espanol,
    Domicilio TEXT COLLATE espanol,
    Numero    INTEGER DEFAULT 0,
    CodPos    TEXT,
    Localidad TEXT COLLATE espanol,
    Telefono  TEXT,
    Marca     YESNO DEFAULT 0
);
-- By company alone, in the order in which they were entered; by company and code for the import's look-ups.
CREATE INDEX IX_Empresas_Sucursales_CUIT_Sucursal ON Empresas_Sucursales (CUIT, Sucursal);
CREATE INDEX IX_Empresas_Sucursales_CUIT ON Empresas_Sucursales (CUIT);

CREATE TABLE Empresas_Responsables (
    CUIT      TEXT,
    AyN       TEXT COLLATE espanol,
    Domicilio TEXT COLLATE espanol,
    Localidad TEXT COLLATE espanol,
    TipoDoc   INTEGER DEFAULT 0,
    NroDoc    INTEGER DEFAULT 0
);
CREATE INDEX IX_Empresas_Responsables_CUIT ON Empresas_Responsables (CUIT);

CREATE TABLE DDJJ (
    Cuit      TEXT NOT NULL,
    Periodo   DATE NOT NULL,
    Secuencia INTEGER NOT NULL DEFAULT 0,
    Fecha     DATE,
    PRIMARY KEY (Cuit, Periodo, Secuencia)
) WITHOUT ROWID;

-- Kept on its key, so that one declaration's roster lies together in the file.
CREATE TABLE DDJJ_Empleados (
    Cuit       TEXT NOT NULL,
    Periodo    DATE NOT NULL,
    Secuencia  INTEGER NOT NULL DEFAULT 0,
    Cuil       TEXT NOT NULL,
    AyN        TEXT COLLATE espanol,
    TipoDoc    INTEGER DEFAULT 0,
    NroDoc     INTEGER DEFAULT 0,
    Sexo       INTEGER,
    Calle      TEXT COLLATE espanol,
    Numero     INTEGER DEFAULT 0,
    Piso       TEXT,
    Depto      TEXT,
    CodPos     TEXT,
    Localidad  TEXT COLLATE espanol,
    Provincia  INTEGER DEFAULT 0,
    Telefono   TEXT,
    Nacio      DATE,
    EstCivil   INTEGER DEFAULT 0,
    Afiliado   YESNO DEFAULT 0,
    Sueldo     CURRENCY DEFAULT 0,
    Imponible  CURRENCY DEFAULT 0,
    Categoria  INTEGER DEFAULT 0,
    Ingreso    DATE,
    Egreso     DATE,
    Sucursal   INTEGER DEFAULT 0,
    QHoras     INTEGER DEFAULT 0,
    ART100     CURRENCY DEFAULT 0,
    ART101A    CURRENCY DEFAULT 0,
    ART101B    CURRENCY DEFAULT 0,
    Acuerdo    CURRENCY DEFAULT 0,
    Acuerdo2   CURRENCY DEFAULT 0,
    Familiares INTEGER DEFAULT 0,
    PRIMARY KEY (Cuit, Periodo, Secuencia, Cuil)
) WITHOUT ROWID;
-- Has a branch employees?
CREATE INDEX IX_DDJJ_Empleados_Cuit_Sucursal ON DDJJ_Empleados (Cuit, Sucursal);
-- Nearly always empty: every start of the program zeroes what they hold, without reading the rosters.
CREATE INDEX IX_DDJJ_Empleados_AcuerdoNulo ON DDJJ_Empleados (Cuit) WHERE Acuerdo IS NULL;
CREATE INDEX IX_DDJJ_Empleados_Acuerdo2Nulo ON DDJJ_Empleados (Cuit) WHERE Acuerdo2 IS NULL;

CREATE TABLE Empleados_Familiares (
    CUIL     TEXT,
    Familiar INTEGER DEFAULT 0,
    AyN      TEXT COLLATE espanol,
    TipoDoc  INTEGER DEFAULT 0,
    NroDoc   INTEGER DEFAULT 0,
    Sexo     INTEGER DEFAULT 0,
    Nacio    DATE
);
CREATE INDEX IX_Empleados_Familiares_CUIL ON Empleados_Familiares (CUIL);

CREATE TABLE PAGOS (
    Pago      INTEGER NOT NULL PRIMARY KEY AUTOINCREMENT,
    Cuit      TEXT,
    Tipo      INTEGER DEFAULT 0,
    Periodo   DATE,
    Secuencia INTEGER DEFAULT 0,
    Fecha     DATE,
    Art100    CURRENCY DEFAULT 0,
    Art101A   CURRENCY DEFAULT 0,
    Art101B   CURRENCY DEFAULT 0,
    Dias      INTEGER DEFAULT 0,
    Interes   CURRENCY DEFAULT 0,
    Importe   CURRENCY DEFAULT 0,
    NroActa   INTEGER DEFAULT 0,
    Cuota     INTEGER DEFAULT 0,
    Cuenta    INTEGER DEFAULT 0
);
CREATE INDEX IX_PAGOS_Cuit ON PAGOS (Cuit);

-- Rows of a report while it is made, told apart by Indice.
CREATE TABLE RptEmpleados (
    Indice       INTEGER DEFAULT 0,
    Tipo         INTEGER DEFAULT 0,
    Sucursal_Cod INTEGER DEFAULT 0,
    Sucursal     TEXT COLLATE espanol,
    AyN          TEXT COLLATE espanol,
    Cuil         TEXT,
    TipoDoc      TEXT COLLATE espanol,
    NroDoc       INTEGER DEFAULT 0,
    Sexo         INTEGER DEFAULT 0,
    Nacio        DATE,
    EstCivil     TEXT COLLATE espanol,
    Categoria    TEXT COLLATE espanol,
    Ingreso      DATE,
    Egreso       DATE,
    QHoras       INTEGER DEFAULT 0,
    Imponible    CURRENCY DEFAULT 0,
    Art100       CURRENCY DEFAULT 0,
    Art101A      CURRENCY DEFAULT 0,
    Art101B      CURRENCY DEFAULT 0,
    Acuerdo      CURRENCY DEFAULT 0,
    Acuerdo2     CURRENCY DEFAULT 0,
    Calle        TEXT COLLATE espanol,
    Numero       INTEGER DEFAULT 0,
    CodPos       TEXT,
    Localidad    TEXT COLLATE espanol,
    Telefono     TEXT
);
CREATE INDEX IX_RptEmpleados_Indice ON RptEmpleados (Indice);

-- The query planner's picture of a grown roster: a company of 10,000 rows, declarations of 100 people, branches of
-- 200 rows. Without it, the planner would look for a branch's employees by reading the company's whole history.
ANALYZE;
INSERT INTO sqlite_stat1 (tbl, idx, stat) VALUES
    ('DDJJ_Empleados', 'DDJJ_Empleados', '1000000 10000 100 100 1'),
    ('DDJJ_Empleados', 'IX_DDJJ_Empleados_Cuit_Sucursal', '1000000 10000 200 100 100 1');
