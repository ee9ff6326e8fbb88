// The declaration's text file. Whole files, byte by byte, stand in the acceptance scripts; here each column by itself.
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "base/error_de_ejecucion.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/archivo_uno.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace
{
/// A column in its place, and what stands for a Null.
struct Columna
{
    const char* nombre;
    int ancho;
    const char* nulo;
};
constexpr const char* blancos = nullptr; // in the whole width
constexpr const char* nada = "";         // and the rest of the line moves left: in one record and not in the other
constexpr const char* ceros = "00000000";

struct Registro
{
    const char* tabla;
    int antes; ///< width of what comes before the columns, which follow one after the other
    std::vector<Columna> columnas;
};

const Registro registros[] = {
    {"Empresas", 22, {{"Razon", 45, blancos},     {"Fantasia", 40, blancos},      {"Calle", 30, blancos},
                      {"Numero", 5, nada},        {"NroLocal", 6, blancos},       {"Piso", 3, blancos},
                      {"Depto", 3, blancos},      {"CodPos", 8, blancos},         {"Localidad", 50, blancos},
                      {"Provincia", 2, nada},     {"Telefono", 30, blancos},      {"Fax", 30, blancos},
                      {"Rubro", 10, blancos},     {"Contacto", 50, blancos},      {"Web", 35, blancos},
                      {"EMail", 35, blancos},     {"Estudio", 50, blancos},       {"Est_Domicilio", 50, blancos},
                      {"Est_CodPos", 8, blancos}, {"Est_Localidad", 30, blancos}, {"Est_Telefono", 30, blancos},
                      {"Est_Email", 35, blancos}}},
    {"Empresas_Responsables",
     1,
     {{"AyN", 40, blancos},
      {"Domicilio", 30, blancos},
      {"Localidad", 15, blancos},
      {"TipoDoc", 1, nada},
      {"NroDoc", 8, nada}}},
    {"Empresas_Sucursales",
     9,
     {{"Sucursal", 10, blancos},
      {"Domicilio", 50, blancos},
      {"Numero", 5, nada},
      {"CodPos", 8, blancos},
      {"Localidad", 50, blancos},
      {"Telefono", 30, blancos}}},
    {"DDJJ_Empleados",
     14,
     {{"AyN", 40, blancos},    {"TipoDoc", 1, nada},       {"NroDoc", 8, nada},       {"Sexo", 1, blancos},
      {"Calle", 40, blancos},  {"Numero", 5, nada},        {"Piso", 3, blancos},      {"Depto", 3, blancos},
      {"CodPos", 8, blancos},  {"Localidad", 30, blancos}, {"Provincia", 2, blancos}, {"Telefono", 20, blancos},
      {"Nacio", 8, ceros},     {"EstCivil", 1, blancos},   {"Afiliado", 1, "0"},      {"Sueldo", 10, nada},
      {"Imponible", 10, nada}, {"Categoria", 2, blancos},  {"Ingreso", 8, ceros},     {"Egreso", 8, ceros},
      {"Sucursal", 8, nada},   {"QHoras", 3, nada},        {"ART100", 10, nada},      {"ART101A", 10, nada},
      {"ART101B", 10, nada},   {"Familiares", 2, nada},    {"Acuerdo", 10, nada},     {"Acuerdo2", 10, "0000000.00"}}},
    {"Empleados_Familiares",
     14,
     {{"Familiar", 2, nada},
      {"AyN", 30, blancos},
      {"TipoDoc", 1, nada},
      {"NroDoc", 8, nada},
      {"Sexo", 1, nada},
      {"Nacio", 8, ceros}}},
};

class ArchivoDdjj : public testing::Test
{
protected:
    ArchivoDdjj()
    {
        ejecutar("INSERT INTO Empresas VALUES ('30-12345678-9', 'Bodega Peña S.A.', 'La Peña', 'Av. España', 1234, "
                 "'12', '2', 'B', '5600', 'San Rafael', 7, '442-1234', '442-1235', '011111', 'O''Higgins, José', "
                 "'www.example.org', 'bodega@example.org', 'Estudio Quiroga', 'Mitre 20', '5601', 'Luján', '4224455', "
                 "'estudio@example.org')");
        ejecutar("INSERT INTO Empresas_Responsables VALUES ('30-12345678-9', 'D''Angelo, José', 'Las Heras 100', "
                 "'Maipú', 1, 5123456), ('30-99999999-9', 'Otro', '', '', 1, 1)");
        ejecutar("INSERT INTO Empresas_Sucursales (ID, Cuit, Sucursal, Domicilio, Numero, CodPos, Localidad, Telefono) "
                 "VALUES (1, '30-12345678-9', 'BODEGA-001', 'Ruta 50', 50, '5570', "
                 "'San Martín', '4420000'), (2, '30-99999999-9', 'C', NULL, 0, NULL, NULL, NULL)");
        poner("DDJJ_Empleados", {{"Cuit", mayo.cuit},
                                 {"Calle", "San Martín"},
                                 {"Numero", 123},
                                 {"Piso", "1"},
                                 {"Depto", "A"},
                                 {"CodPos", "5600"},
                                 {"Localidad", "San Rafael"},
                                 {"Telefono", "4421234"},
                                 {"Egreso", QDate(2009, 12, 31)},
                                 {"Sucursal", 1},
                                 {"Familiares", 3},
                                 {"ART101A", "11"},
                                 {"ART101B", "12"},
                                 {"Acuerdo", "2"}});
        ejecutar("INSERT INTO Empleados_Familiares VALUES ('20-12345678-6', 2, 'Núñez, Lucía', 1, 45678901, 1, "
                 "'2004-02-29'), ('20-99999999-9', 3, 'Otro', 1, 1, 1, '2006-01-31')");
        como = grabar(mayo);
    }

    void ejecutar(const std::string& sql) { base.conexion().ejecutar(sql); }
    /// The file's lines, or the number of the error.
    QByteArrayList grabar(const DatosArchivoDDJJ& datos)
    {
        try
        {
            GrabarArchivoDDJJ(base.conexion(), datos, nombre);
            const QByteArray todo = base.leer(nombre);
            EXPECT_TRUE(todo.endsWith("\r\n"));
            EXPECT_EQ(todo.count('\n'), todo.count("\r\n"));
            return todo.chopped(2).replace("\r\n", "\n").split('\n');
        }
        catch (const ErrorDeEjecucion& error)
        {
            EXPECT_FALSE(ArchivoUno::abierto());
            return {QByteArray::number(error.numero())};
        }
    }
    /// With the column set to an SQL value, only `queda` in its place is another than in the file as it was.
    void comprobar(const char* tabla, const char* nombreDeColumna, const char* valor, const QByteArray& queda)
    {
        const Transaccion vuelveAtras(base.conexion());
        ejecutar(std::string("UPDATE ") + tabla + " SET " + nombreDeColumna + " = " + valor);
        QByteArrayList esperado = como;
        qsizetype linea = 0;
        while (std::strcmp(registros[linea].tabla, tabla) != 0)
        {
            ++linea;
        }
        int desde = registros[linea].antes;
        for (const Columna& columna : registros[linea].columnas)
        {
            if (std::strcmp(columna.nombre, nombreDeColumna) == 0)
            {
                esperado[linea].replace(desde, columna.ancho, queda);
            }
            desde += columna.ancho;
        }
        EXPECT_EQ(desde, como[linea].size());
        const QByteArrayList hay = grabar(mayo);
        EXPECT_EQ(esperado.join('\n').toStdString(), hay.join('\n').toStdString()) << tabla << '.' << nombreDeColumna;
    }

    BaseDePrueba base;
    QString nombre;
    DatosArchivoDDJJ mayo{QStringLiteral("30-12345678-9"), QDate(2009, 5, 1), QStringLiteral("2009"),
                          QStringLiteral("5"), QStringLiteral("0")};
    QByteArrayList como; ///< the file of what stands above
};
} // namespace

TEST_F(ArchivoDdjj, NulosDejanElRestoDeLaLineaComoEstaba)
{
    ASSERT_EQ(5, como.size()) << "one record of each kind, and nobody else's";
    for (const Registro& registro : registros)
    {
        for (const Columna& columna : registro.columnas)
        {
            comprobar(registro.tabla, columna.nombre, "NULL",
                      columna.nulo == nullptr ? QByteArray(columna.ancho, ' ') : QByteArray(columna.nulo));
        }
    }
}

TEST_F(ArchivoDdjj, ValoresEnSuLugar)
{
    struct Caso
    {
        const char* tabla;
        const char* columna;
        const char* valor; ///< as SQL
        QByteArray queda;
    };
    constexpr const char* empresas = "Empresas";
    constexpr const char* empleados = "DDJJ_Empleados";
    constexpr const char* familiares = "Empleados_Familiares";
    const Caso casos[] = {
        // Cut or longer than its place.
        {empresas, "Fantasia", "'Cooperativa Vitivinicola y Frutihorticola Ltda.'",
         "Cooperativa Vitivinicola y Frutihorticol"},
        {empresas, "Numero", "123456", "123456"},
        {empresas, "Numero", "-5", "-00005"},
        {empleados, "QHoras", "96", "96"},
        {empleados, "TipoDoc", "10", "10"},
        {empleados, "Afiliado", "0", "0"},
        {empleados, "Nacio", "'1970-12-25'", "12251970"},
        {familiares, "Familiar", "9", "09"},
        // Halves of a cent go away from zero; the mark is a comma.
        {empleados, "Sueldo", "50", "0000000,01"},
        {empleados, "Sueldo", "49", "0000000,00"},
        {empleados, "Sueldo", "-49", "0000000,00"},
        {empleados, "Sueldo", "-15000", "-0000001,50"},
        {empleados, "Sueldo", "99999999950", "10000000,00"},
        // Windows-1252: what it has above Latin 1, what it lacks, and a cut that counts characters and not bytes.
        {empleados, "AyN", "'€ “Ñ” ’ Œ'", "\x80 \x93\xD1\x94 \x92 \x8C                               "},
        {empleados, "Depto", "'Łπ😀x'", "???"},
        {familiares, "AyN", "'ñññññññññññññññññññññññññññññññññ'", QByteArray(30, '\xF1')},
    };
    for (const Caso& caso : casos)
    {
        comprobar(caso.tabla, caso.columna, caso.valor, caso.queda);
    }
}

TEST_F(ArchivoDdjj, NombreEncabezadoYFallas)
{
    struct Caso
    {
        const char* anio;
        const char* mes;
        const char* secuencia;
        const char* nombre;
        const char* encabezado; ///< or the number of the error
    };
    for (const Caso& caso : {Caso{"2009", "05", "0", "30-12345678-9 2009-05 00.txt", "030-12345678-920090500Bodega"},
                             Caso{"2010", "12", "11", "30-12345678-9 2010-12 11.txt", "030-12345678-920101211Bodega"},
                             Caso{"09", "1", "100", "30-12345678-9 09-01 100.txt", "030-12345678-90901100Bodega"},
                             Caso{"2009", "5", "", "30-12345678-9 2009-05 .txt", "13"}})
    {
        const QByteArrayList lineas = grabar({mayo.cuit, mayo.periodo, QString::fromLatin1(caso.anio),
                                              QString::fromLatin1(caso.mes), QString::fromLatin1(caso.secuencia)});
        EXPECT_EQ(QString::fromLatin1(caso.nombre), nombre);
        EXPECT_TRUE(lineas.first().startsWith(caso.encabezado)) << lineas.first().toStdString();
    }
    ejecutar("INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, Nacio) VALUES "
             "('30-12345678-9', '2009-05-01', 0, '27-23456789-4', 'ayer')");
    EXPECT_EQ((QByteArrayList{"13"}), grabar(mayo));
    EXPECT_EQ(como.join("\r\n") + "\r\n", base.leer(nombre)) << "what was written stays";
    ejecutar("DELETE FROM DDJJ_Empleados");
    EXPECT_EQ(como.first(3), grabar(mayo)) << "what another file of the name held is lost";
    // Somebody left file number 1 open: this run fails and frees it, the next one goes.
    ArchivoUno::abrirParaLeer(base.escribir(QStringLiteral("otro.txt"), "x"));
    EXPECT_EQ((QByteArrayList{"55"}), grabar(mayo));
    EXPECT_EQ(como.first(3), grabar(mayo));
    ASSERT_TRUE(QFile::remove(base.ruta(nombre)));
    ASSERT_TRUE(QDir().mkdir(base.ruta(nombre)));
    EXPECT_EQ((QByteArrayList{"75"}), grabar(mayo));
    mayo.cuit = QStringLiteral("30-00000000-7");
    EXPECT_EQ((QByteArrayList{"3021"}), grabar(mayo));
    EXPECT_EQ(0, base.conexion().ejecutar("UPDATE DDJJ SET Fecha = NULL")); // and no read lock stays
}

TEST_F(ArchivoDdjj, DaCuentaDeSuAvance)
{
    ejecutar("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 700) INSERT INTO DDJJ_Empleados "
             "(Cuit, Periodo, Secuencia, Cuil) SELECT '30-12345678-9', '2009-05-01', 0, printf('23-%08d-1', i) FROM n");
    std::vector<qint64> avances;
    GrabarArchivoDDJJ(base.conexion(), mayo, nombre, [&](qint64 hecho, qint64) { avances.push_back(hecho); });
    EXPECT_EQ((std::vector<qint64>{256, 512}), avances);
    EXPECT_EQ(como.size() + 700, base.leer(nombre).count('\n'));
}
