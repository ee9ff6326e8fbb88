#include "apoyo/base_de_prueba.h"
#include "exchange/archivo_ddjj.h"
#include "platform/data/archivos.h"
#include "platform/data/error_de_ejecucion.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstring>
#include <gtest/gtest.h>

namespace
{
const QString cuit = QStringLiteral("30-12345678-9");

/// Windows-1252 agrees with Latin 1 in all letters of Spanish.
QByteArray latin1(const char* utf8)
{
    return QString::fromUtf8(utf8).toLatin1();
}

// What is expected is written out, field by field in its whole width.
const QByteArray lineaEmpresa = latin1("0"
                                       "30-12345678-9"
                                       "2009"
                                       "05"
                                       "00"
                                       "Bodega Peña S.A.                             "
                                       "La Peña                                 "
                                       "Av. España                    "
                                       "01234"
                                       "12    "
                                       "2  "
                                       "B  "
                                       "5600    "
                                       "San Rafael                                        "
                                       "07"
                                       "0260 442-1234                 "
                                       "0260 442-1235                 "
                                       "011111    "
                                       "O'Higgins, José                                   "
                                       "www.example.org                    "
                                       "bodega@example.org                 "
                                       "Estudio Quiroga                                   "
                                       "Mitre 20                                          "
                                       "5601    "
                                       "Luján                         "
                                       "4224455                       "
                                       "estudio@example.org                ");

const QByteArray lineasResponsables = latin1("1"
                                             "D'Angelo, José                          "
                                             "Las Heras 100                 "
                                             "Maipú          "
                                             "1"
                                             "05123456"
                                             "\r\n"
                                             "1"
                                             "Acosta Rita                             "
                                             "Mitre 5                       "
                                             "San Rafael     "
                                             "2"
                                             "23456789"
                                             "\r\n");

const QByteArray lineasSucursales = latin1("2"
                                           "00000001"
                                           "BODEGA-001"
                                           "Ruta 50                                           "
                                           "00050"
                                           "5570    "
                                           "San Martín                                        "
                                           "4420000                       "
                                           "\r\n"
                                           "2"
                                           "00000002"
                                           "B         "
                                           "Callejón Funes                                    "
                                           "00000"
                                           "5600    "
                                           "Rama Caída                                        "
                                           "                              "
                                           "\r\n");

const QByteArray lineaEmpleado = latin1("3"
                                        "20-12345678-6"
                                        "Núñez, Juan Carlos                      "
                                        "1"
                                        "12345678"
                                        "1"
                                        "San Martín                              "
                                        "00123"
                                        "1  "
                                        "A  "
                                        "5600    "
                                        "San Rafael                    "
                                        "07"
                                        "4421234             "
                                        "12251970"
                                        "2"
                                        "1"
                                        "0001200,50"
                                        "0001000,25"
                                        "13"
                                        "03012005"
                                        "12312009"
                                        "00000002"
                                        "200"
                                        "0000024,01"
                                        "0000012,00"
                                        "0000012,01"
                                        "03"
                                        "0000200,25"
                                        "0000000.00");

const QByteArray lineaFamiliar = latin1("4"
                                        "20-12345678-6"
                                        "02"
                                        "Núñez, Lucía                  "
                                        "1"
                                        "45678901"
                                        "0"
                                        "02292004");

const QByteArray segundoFamiliar = latin1("4"
                                          "20-12345678-6"
                                          "03"
                                          "Núñez, Pedro                  "
                                          "1"
                                          "46000001"
                                          "1"
                                          "01312006");

// Of whom only the key and the name are known.
const QByteArray segundoEmpleado = latin1("3"
                                          "27-23456789-4"
                                          "Agüero                                  "
                                          "0"
                                          "00000000"
                                          " "
                                          "                                        "
                                          "00000"
                                          "   "
                                          "   "
                                          "        "
                                          "                              "
                                          "00"
                                          "                    "
                                          "00000000"
                                          "0"
                                          "0"
                                          "0000000,00"
                                          "0000000,00"
                                          "00"
                                          "00000000"
                                          "00000000"
                                          "00000000"
                                          "0"
                                          "0000000,00"
                                          "0000000,00"
                                          "0000000,00"
                                          "00"
                                          "0000000,00"
                                          "0000000.00");

class ArchivoDdjj : public testing::Test
{
protected:
    ArchivoDdjj()
    {
        ejecutar(
            "INSERT INTO Empresas VALUES ('30-12345678-9', 'Bodega Peña S.A.', 'La Peña', 'Av. España', 1234, '12', "
            "'2', 'B', '5600', 'San Rafael', 7, '0260 442-1234', '0260 442-1235', '011111', 'O''Higgins, José', "
            "'www.example.org', 'bodega@example.org', 'Estudio Quiroga', 'Mitre 20', '5601', 'Luján', '4224455', "
            "'estudio@example.org')");
        ejecutar(
            "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, Numero, "
            "Piso, Depto, CodPos, Localidad, Provincia, Telefono, Nacio, EstCivil, Afiliado, Sueldo, Imponible, "
            "Categoria, Ingreso, Egreso, Sucursal, QHoras, ART100, ART101A, ART101B, Acuerdo, Acuerdo2, Familiares) "
            "VALUES ('30-12345678-9', '2009-05-01', 0, '20-12345678-6', 'Núñez, Juan Carlos', 1, 12345678, 1, "
            "'San Martín', 123, '1', 'A', '5600', 'San Rafael', 7, '4421234', '1970-12-25', 2, 1, 12005000, "
            "10002500, 13, '2005-03-01', '2009-12-31', 2, 200, 240100, 120000, 120100, 2002500, 9990000, 3)");
        ejecutar("INSERT INTO Empleados_Familiares VALUES ('20-12345678-6', 2, 'Núñez, Lucía', 1, 45678901, 0, "
                 "'2004-02-29')");
    }

    void ejecutar(const char* sql) { base.conexion().ejecutar(std::string_view(sql)); }
    /// The file's bytes, as a text that shows where it differs.
    [[nodiscard]] std::string grabar(const DatosArchivoDDJJ& datos)
    {
        GrabarArchivoDDJJ(base.conexion(), datos, nombre);
        return base.leer(nombre).toStdString();
    }
    [[nodiscard]] std::string grabar() { return grabar(mayo); }
    /// Number of the error with which writing fails; 0 when it does not.
    [[nodiscard]] int falla(const DatosArchivoDDJJ& datos)
    {
        try
        {
            GrabarArchivoDDJJ(base.conexion(), datos, nombre);
            return 0;
        }
        catch (const ErrorDeEjecucion& error)
        {
            return error.numero();
        }
    }

    BaseDePrueba base;
    QString nombre;
    DatosArchivoDDJJ mayo{cuit, QDate(2009, 5, 1), QStringLiteral("2009"), QStringLiteral("5"), QStringLiteral("0")};
};

std::string lineas(std::initializer_list<QByteArray> todas)
{
    std::string texto;
    for (const QByteArray& linea : todas)
    {
        texto += linea.toStdString() + "\r\n";
    }
    return texto;
}
} // namespace

TEST_F(ArchivoDdjj, CadaPosicionDeCadaRegistro)
{
    ejecutar(
        "INSERT INTO Empresas_Responsables VALUES ('30-12345678-9', 'D''Angelo, José', 'Las Heras 100', 'Maipú', 1, "
        "5123456), ('30-12345678-9', 'Acosta Rita', 'Mitre 5', 'San Rafael', 2, 23456789), ('30-99999999-9', 'Otro', "
        "'', '', 1, 1)");
    ejecutar("INSERT INTO Empresas_Sucursales (CUIT, Sucursal, Domicilio, Numero, CodPos, Localidad, Telefono) VALUES "
             "('30-12345678-9', 'BODEGA-001', 'Ruta 50', 50, '5570', 'San Martín', '4420000'), ('30-12345678-9', 'B', "
             "'Callejón Funes', 0, '5600', 'Rama Caída', NULL), ('30-99999999-9', 'C', NULL, 0, NULL, NULL, NULL)");
    ejecutar(
        "INSERT INTO Empleados_Familiares VALUES ('20-12345678-6', 3, 'Núñez, Pedro', 1, 46000001, 1, '2006-01-31'), "
        "('20-99999999-9', 3, 'Otro', 1, 1, 1, '2006-01-31')");
    // An employee of whom only the key is known, and rows of other declarations.
    ejecutar("INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN) VALUES "
             "('30-12345678-9', '2009-05-01', 0, '27-23456789-4', 'Agüero'), "
             "('30-12345678-9', '2009-05-01', 1, '27-23456789-4', 'Agüero'), "
             "('30-12345678-9', '2009-06-01', 0, '27-23456789-4', 'Agüero'), "
             "('30-99999999-9', '2009-05-01', 0, '27-23456789-4', 'Agüero')");

    EXPECT_EQ((lineaEmpresa + "\r\n" + lineasResponsables + lineasSucursales).toStdString() +
                  lineas({lineaEmpleado, lineaFamiliar, segundoFamiliar, segundoEmpleado}),
              grabar());
    EXPECT_EQ(QStringLiteral("30-12345678-9 2009-05 00.txt"), nombre);
    // The lengths that the union's reader counts on.
    EXPECT_EQ(607, lineaEmpresa.size());
    EXPECT_EQ(2 * (95 + 2), lineasResponsables.size());
    EXPECT_EQ(2 * (162 + 2), lineasSucursales.size());
    EXPECT_EQ(286, lineaEmpleado.size());
    EXPECT_EQ(64, lineaFamiliar.size());
}

namespace
{
/// A column set to something else, and what then stands in the place of `ancho` characters from `posicion`, from 1.
struct Cambio
{
    const char* tabla;
    const char* columna;
    const char* valor; ///< as SQL
    int posicion;
    int ancho;
    QByteArray queda;
};

QByteArray conCambio(QByteArray linea, const Cambio& cambio)
{
    return linea.replace(cambio.posicion - 1, cambio.ancho, cambio.queda);
}

constexpr const char* empresas = "Empresas";
constexpr const char* empleados = "DDJJ_Empleados";
constexpr const char* familiares = "Empleados_Familiares";

// Nulls. Where nothing stands for it, the rest of the line moves left, and it does so in one record and not in the
// other.
const Cambio nulos[] = {{empresas, "Razon", "NULL", 23, 45, QByteArray(45, ' ')},
                        {empresas, "Numero", "NULL", 138, 5, ""},
                        {empresas, "Piso", "NULL", 149, 3, "   "},
                        {empresas, "Provincia", "NULL", 213, 2, ""},
                        {empresas, "Rubro", "NULL", 275, 10, "          "},
                        {empresas, "Est_Email", "NULL", 573, 35, QByteArray(35, ' ')},
                        {empleados, "AyN", "NULL", 15, 40, QByteArray(40, ' ')},
                        {empleados, "TipoDoc", "NULL", 55, 1, ""},
                        {empleados, "NroDoc", "NULL", 56, 8, ""},
                        {empleados, "Sexo", "NULL", 64, 1, " "},
                        {empleados, "Calle", "NULL", 65, 40, QByteArray(40, ' ')},
                        {empleados, "Numero", "NULL", 105, 5, ""},
                        {empleados, "Piso", "NULL", 110, 3, "   "},
                        {empleados, "Depto", "NULL", 113, 3, "   "},
                        {empleados, "CodPos", "NULL", 116, 8, "        "},
                        {empleados, "Localidad", "NULL", 124, 30, QByteArray(30, ' ')},
                        {empleados, "Provincia", "NULL", 154, 2, "  "},
                        {empleados, "Telefono", "NULL", 156, 20, QByteArray(20, ' ')},
                        {empleados, "Nacio", "NULL", 176, 8, "00000000"},
                        {empleados, "EstCivil", "NULL", 184, 1, " "},
                        {empleados, "Afiliado", "NULL", 185, 1, "0"},
                        {empleados, "Sueldo", "NULL", 186, 10, ""},
                        {empleados, "Imponible", "NULL", 196, 10, ""},
                        {empleados, "Categoria", "NULL", 206, 2, "  "},
                        {empleados, "Ingreso", "NULL", 208, 8, "00000000"},
                        {empleados, "Egreso", "NULL", 216, 8, "00000000"},
                        {empleados, "Sucursal", "NULL", 224, 8, ""},
                        {empleados, "QHoras", "NULL", 232, 3, ""},
                        {empleados, "ART100", "NULL", 235, 10, ""},
                        {empleados, "ART101A", "NULL", 245, 10, ""},
                        {empleados, "ART101B", "NULL", 255, 10, ""},
                        {empleados, "Familiares", "NULL", 265, 2, ""},
                        {empleados, "Acuerdo", "NULL", 267, 10, ""},
                        {empleados, "Acuerdo2", "NULL", 277, 10, "0000000.00"},
                        {familiares, "Familiar", "NULL", 15, 2, ""},
                        {familiares, "AyN", "NULL", 17, 30, QByteArray(30, ' ')},
                        {familiares, "TipoDoc", "NULL", 47, 1, ""},
                        {familiares, "NroDoc", "NULL", 48, 8, ""},
                        {familiares, "Sexo", "NULL", 56, 1, ""},
                        {familiares, "Nacio", "NULL", 57, 8, "00000000"}};

const Cambio valores[] = {
    // Cut or longer than its place.
    {empresas, "Razon", "'Cooperativa Vitivinicola y Frutihorticola del Valle Hermoso Ltda.'", 23, 45,
     "Cooperativa Vitivinicola y Frutihorticola del"},
    {empresas, "Numero", "123456", 138, 5, "123456"},
    {empresas, "Numero", "-5", 138, 5, "-00005"},
    {empleados, "Piso", "'PB 12'", 110, 3, "PB "},
    {empleados, "Numero", "0", 105, 5, "00000"},
    {empleados, "QHoras", "96", 232, 3, "96"},
    {empleados, "TipoDoc", "10", 55, 1, "10"},
    {empleados, "Afiliado", "0", 185, 1, "0"},
    {familiares, "Familiar", "9", 15, 2, "09"},
    // Halves of a cent go away from zero; the mark is a comma.
    {empleados, "Sueldo", "50", 186, 10, "0000000,01"},
    {empleados, "Sueldo", "49", 186, 10, "0000000,00"},
    {empleados, "Sueldo", "-49", 186, 10, "0000000,00"},
    {empleados, "Sueldo", "-15000", 186, 10, "-0000001,50"},
    {empleados, "Sueldo", "99999999950", 186, 10, "10000000,00"},
    {empleados, "Acuerdo", "1234567890000", 267, 10, "123456789,00"},
    // Windows-1252: what it has above Latin 1, what it lacks, and a cut that counts characters and not bytes.
    {empleados, "AyN", "'€ “Ñ” ’ Œ'", 15, 40, "\x80 \x93\xD1\x94 \x92 \x8C                               "},
    {empleados, "Depto", "'Łπ😀x'", 113, 3, "???"},
    {empleados, "Depto", "'ñóéx'", 113, 3, "\xF1\xF3\xE9"},
    {empleados, "Calle", "'O''Brien \"Sur\"'", 65, 40, "O'Brien \"Sur\"                           "},
    {familiares, "AyN", "'ñññññññññññññññññññññññññññññññññ'", 17, 30, QByteArray(30, '\xF1')}};
} // namespace

TEST_F(ArchivoDdjj, NulosYValoresDejanElRestoDeLaLineaComoEstaba)
{
    const auto comprobar = [&](const Cambio& cambio)
    {
        const Transaccion vuelveAtras(base.conexion());
        base.conexion().ejecutar(std::string("UPDATE ") + cambio.tabla + " SET " + cambio.columna + " = " +
                                 cambio.valor);
        const auto linea = [&](const char* tabla, const QByteArray& original)
        { return tabla == cambio.tabla ? conCambio(original, cambio) : original; };
        EXPECT_EQ(
            lineas({linea(empresas, lineaEmpresa), linea(empleados, lineaEmpleado), linea(familiares, lineaFamiliar)}),
            grabar())
            << cambio.tabla << '.' << cambio.columna << " = " << cambio.valor;
    };
    std::for_each(std::begin(nulos), std::end(nulos), comprobar);
    std::for_each(std::begin(valores), std::end(valores), comprobar);
}

TEST_F(ArchivoDdjj, NombreYEncabezado)
{
    struct Caso
    {
        const char* anio;
        const char* mes;
        const char* secuencia;
        const char* nombre;
        const char* encabezado;
    };
    for (const Caso& caso : {Caso{"2009", "5", "0", "30-12345678-9 2009-05 00.txt", "30-12345678-920090500Bodega"},
                             Caso{"2009", "05", "0", "30-12345678-9 2009-05 00.txt", "30-12345678-920090500Bodega"},
                             Caso{"2010", "12", "11", "30-12345678-9 2010-12 11.txt", "30-12345678-920101211Bodega"},
                             Caso{"09", "1", "100", "30-12345678-9 09-01 100.txt", "30-12345678-90901100Bodega"}})
    {
        const std::string texto = grabar({cuit, QDate(2009, 5, 1), QString::fromLatin1(caso.anio),
                                          QString::fromLatin1(caso.mes), QString::fromLatin1(caso.secuencia)});
        EXPECT_EQ(QString::fromLatin1(caso.nombre), nombre);
        EXPECT_EQ(caso.encabezado, texto.substr(1, std::strlen(caso.encabezado)));
        EXPECT_EQ(base.ruta(nombre), rutaArchivoDDJJ(nombre));
    }
}

TEST_F(ArchivoDdjj, SinNominaQuedaLaEmpresaYUnArchivoAnteriorSePierde)
{
    const std::string completo = grabar();
    ejecutar("DELETE FROM DDJJ_Empleados");
    EXPECT_EQ(lineas({lineaEmpresa}), grabar());
    EXPECT_NE(lineas({lineaEmpresa}), completo);
}

TEST_F(ArchivoDdjj, UnaFallaDejaLoEscritoYSueltaElCanal)
{
    // The second employee has no date of birth that could be one.
    ejecutar("INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, Nacio) VALUES "
             "('30-12345678-9', '2009-05-01', 0, '27-23456789-4', 'ayer')");
    EXPECT_EQ(13, falla(mayo));
    EXPECT_FALSE(Archivos::abierto(1));
    EXPECT_EQ(lineas({lineaEmpresa, lineaEmpleado, lineaFamiliar}), base.leer(nombre).toStdString());

    DatosArchivoDDJJ ajena = mayo;
    ajena.cuit = QStringLiteral("30-00000000-7");
    EXPECT_EQ(3021, falla(ajena));
    EXPECT_FALSE(Archivos::abierto(1));
    EXPECT_EQ(QStringLiteral("30-00000000-7 2009-05 00.txt"), nombre);
    EXPECT_EQ(QByteArray(), base.leer(nombre));

    DatosArchivoDDJJ sinElegir = mayo;
    sinElegir.secuencia.clear();
    EXPECT_EQ(13, falla(sinElegir));
    EXPECT_EQ(QStringLiteral("30-12345678-9 2009-05 .txt"), nombre);
    EXPECT_TRUE(base.leer(nombre).startsWith("030-12345678-9200905Bodega"));
    EXPECT_EQ(0, base.conexion().ejecutar("UPDATE DDJJ SET Fecha = NULL")); // and no read lock stays
}

TEST_F(ArchivoDdjj, NoSePuedeCrear)
{
    // Somebody left file number 1 open: this run fails and frees it, the next one goes.
    Archivos::abrirParaLeer(1, base.escribir(QStringLiteral("otro.txt"), "x"));
    EXPECT_EQ(55, falla(mayo));
    EXPECT_EQ(0, falla(mayo));

    ASSERT_TRUE(QFile::remove(base.ruta(nombre)));
    ASSERT_TRUE(QDir().mkdir(base.ruta(nombre)));
    EXPECT_EQ(75, falla(mayo));
    EXPECT_FALSE(Archivos::abierto(1));

    base.conexion().cerrar();
    mayo.secuencia = QStringLiteral("1");
    EXPECT_EQ(91, falla(mayo));
    EXPECT_FALSE(Archivos::abierto(1));
}

TEST_F(ArchivoDdjj, DaCuentaDeSuAvance)
{
    ejecutar("WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 700) INSERT INTO DDJJ_Empleados "
             "(Cuit, Periodo, Secuencia, Cuil) SELECT '30-12345678-9', '2009-05-01', 0, printf('23-%08d-1', i) FROM n");
    std::vector<qint64> avances;
    GrabarArchivoDDJJ(base.conexion(), mayo, nombre, [&](qint64 hecho, qint64) { avances.push_back(hecho); });
    EXPECT_EQ((std::vector<qint64>{256, 512}), avances);
    EXPECT_EQ(1 + 701 + 1, base.leer(nombre).count('\n'));
}
