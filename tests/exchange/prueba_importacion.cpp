// The roster files: what each field becomes, and which file is refused whole.
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "base/error_de_ejecucion.h"
#include "core/vigencia.h"
#include "exchange/archivo_uno.h"
#include "exchange/importacion.h"

#include <cstring>
#include <gtest/gtest.h>

namespace
{
const ClaveDDJJ deMayo{"30-12345678-9", QDate(2009, 5, 1), 0};

const QByteArray brivo = QString::fromUtf8("201234567860Núñez O'Brien, Juan                     112345678125121970"
                                           "O'Higgins                               001231  A  5600    San Rafael  "
                                           "                  074421234             2S001200.50  1000,25130103200"
                                           "5        BODEGA-0018   150,00    50.25")
                             .toLatin1();
const QByteArray familiar =
    QString::fromUtf8("201234567862Núñez D'Angelo, María de los Milagros   145678901029022004").toLatin1();
const QByteArray afip = QString::fromUtf8("20123456786 Núñez O'Brien, Juan          T02             001         "
                                          "    1200.00 1 000,00  ")
                            .toLatin1();

/// The line with other text from a position on, counted from 1.
QByteArray con(QByteArray linea, int posicion, const char* texto)
{
    return linea.replace(posicion - 1, static_cast<qsizetype>(std::strlen(texto)), texto);
}

struct Importacion : ConBase
{
    Importacion()
    {
        ejecutar("PRAGMA synchronous=OFF"); // a hundred imports, none of which has to outlast the machine
        ejecutar("INSERT INTO Empresas_Sucursales (CUIT, Sucursal) VALUES ('30-99999999-9', 'BODEGA-001'), "
                 "('30-12345678-9', 'FINCA'), ('30-12345678-9', 'BODEGA-001'), ('30-12345678-9', 'OLIVAR  ')");
        poner("DDJJ", {{"Cuit", deMayo.cuit}});
    }

    void ejecutar(const std::string& sql) { base.conexion().ejecutar(sql); }
    /// How many employees and family members went in, "2+1"; or the error, after which nothing has changed.
    std::string importar(const QByteArray& contenido, FormatoDeNomina formato = FormatoDeNomina::Brivo)
    {
        const char* const todo = "SELECT count(*), sum(Imponible / 1000), (SELECT count(*) FROM "
                                 "Empleados_Familiares) FROM DDJJ_Empleados";
        const std::string antes = filas(todo);
        ResultadoImportacion hecho;
        const QString ruta = base.escribir("nomina.txt", contenido);
        const QString falla = fallaDe([&] { hecho = importarNomina(base.conexion(), deMayo, ruta, formato); });
        const bool enElArchivo = falla.contains("línea") || falla.contains("el archivo");
        EXPECT_EQ(enElArchivo, ArchivoUno::abierto()) << "an error in the file leaves it open";
        EXPECT_TRUE(falla.isEmpty() || (antes == filas(todo) && !base.conexion().enTransaccion()));
        ArchivoUno::cerrar();
        return falla.isEmpty() ? std::to_string(hecho.titulares) + '+' + std::to_string(hecho.familiares)
                               : falla.toStdString();
    }
    std::string importarAfip(const QByteArray& contenido) { return importar(contenido, FormatoDeNomina::AfipSijp); }
    void vaciar()
    {
        ejecutar("DELETE FROM DDJJ_Empleados");
        ejecutar("DELETE FROM Empleados_Familiares");
    }

    static constexpr const char* empleados = "SELECT * FROM DDJJ_Empleados";
};
} // namespace

TEST_F(Importacion, CampoPorCampo)
{
    EXPECT_EQ("1+1", importar(brivo + "\r\n" + familiar + "\r\n"));
    EXPECT_EQ("30-12345678-9|2009-05-01|0|20-12345678-6|Núñez O Brien, Juan                     |1|12345678|1|"
              "O Higgins                               |123|1  |A  |5600    |San Rafael                    |7|"
              "4421234             |1970-12-25|2|1|12005000|10002500|13|2005-03-01|Null|3|200|240100|120100|"
              "120100|2002500|0|0",
              filas(empleados));
    EXPECT_EQ("20-12345678-6|2|Núñez D Angelo, María de los M|1|45678901|0|2004-02-29",
              filas("SELECT * FROM Empleados_Familiares"));
    vaciar();
    EXPECT_EQ("1+0", importarAfip(afip + "\r\n"));
    EXPECT_EQ("30-12345678-9|2009-05-01|0|20-12345678-6|Núñez O Brien, Juan|1|12345678|Null|Null|0|Null|Null|"
              "Null|Null|1|Null|Null|0|1|12000000|10000000|0|Null|Null|0|100|240000|240000|240000|2000000|0|3",
              filas(empleados));
}

TEST_F(Importacion, ReglasYErroresDeCadaCampo)
{
    constexpr const char* montos = "Acuerdo, QHoras, ART100, ART101A, ART101B, Familiares";
    constexpr const char* aportes = "Afiliado, QHoras, ART100, ART101A, ART101B, Acuerdo";
    constexpr const char* lugar = "Numero, Provincia, Piso, Depto, CodPos, trim(Localidad)";
    constexpr const char* fechas = "Nacio, Ingreso, Egreso";
    constexpr const char* falla = "'went in'"; // then the field that fails stands last
    const std::string tipos = "13 No coinciden los tipos: línea 2, campo ";
    const std::tuple<const QByteArray&, int, const char*, const char*, std::string> casos[] = {
        {afip, 42, " 02             014             1200,00    1000,00", montos, "2000000|200|240000|120000|120000|2"},
        {afip, 42, "t00                          900        1000       ", montos, "0|200|200000|100000|100000|0"},
        // Halves go to the even digit, of what the single-precision number holds: 0.375, 0.125, and 5.015, which is
        // not quite that.
        {afip, 42, "T99             014         37.5       37.5       ", montos, "0|200|7500|3800|3800|100"},
        {afip, 42, " 00             014         12.5       12.5       ", montos, "0|200|2500|1200|1200|0"},
        {afip, 42, " 00             001         250.75     250.75     ", montos, "0|100|50100|50100|50100|0"},
        // Of 200.0999755859375, the single-precision difference, seven digits are left.
        {afip, 42, " 00             01          1200.1     1000       ", montos, "2001000|200|240000|120000|120000|0"},
        {afip, 70, "16777217.00         10", "Sueldo, Imponible", "167772200000|100000"},
        {afip, 70, "        -50         10", "Sueldo, Imponible, Acuerdo", "-500000|100000|0"},
        {afip, 1, "ABCDEFGHIJK", falla, "Cuil"},
        {afip, 43, "-1", falla, "Familiares"},
        {afip, 70, "           ", falla, "Sueldo"},
        {afip, 70, "1.234,56   ", falla, "Sueldo"},
        {afip, 81, "-          ", falla, "Imponible"},
        {brivo, 183, "N", aportes, "0|200|240100|0|0|2002500"},
        {brivo, 183, "n", aportes, "1|200|240100|120100|120100|2002500"},
        {brivo, 230, "4", aportes, "1|100|240100|240100|240100|2002500"},
        {brivo, 231, " 0000.00       0,0", aportes, "1|200|200000|100000|100000|0"},
        {brivo, 193, "  -100,00", aportes, "1|200|20100|10000|10000|2002500"},
        {brivo, 220, "FINCA     ", "Sucursal", "2"}, // the blanks that fill the field are no part of a code
        {brivo, 220, "OLIVAR    ", "Sucursal", "4"},
        {brivo, 220, "OLIVAR-099", "Sucursal", "0"},
        {brivo, 111, "     ", lugar, "0|7|1  |A  |5600    |San Rafael"},
        {brivo, 111, "12 1B", lugar, "121|7|1  |A  |5600    |San Rafael"},
        {brivo, 111, "S/N 5", lugar, "0|7|1  |A  |5600    |San Rafael"},
        {brivo, 160, "  ", lugar, "123|Null|1  |A  |5600    |San Rafael"},
        {brivo, 116, "1'2' '5'00    L'Aquila                      ", lugar, "123|7|1'2|' '|5'00    |L'Aquila"},
        {brivo, 63, "00000000", fechas, "Null|2005-03-01|Null"},
        {brivo, 204, "2902200031122009", fechas, "1970-12-25|2000-02-29|2009-12-31"},
        {brivo, 5, "\xB2", falla, "Cuil"},
        {brivo, 12, "T", falla, "Familiar"},
        {brivo, 53, " ", falla, "TipoDoc"},
        {brivo, 54, "1234567 ", falla, "NroDoc"},
        {brivo, 62, "M", falla, "Sexo"},
        {brivo, 63, "12251970", falla, "Nacio"}, // day first, always
        {brivo, 63, "25120070", falla, "Nacio"},
        {brivo, 160, "MZ", falla, "Provincia"},
        {brivo, 182, "C", falla, "EstCivil"},
        {brivo, 184, "         ", falla, "Sueldo"},
        {brivo, 193, "1000,2,5 ", falla, "Imponible"},
        {brivo, 202, "1 ", falla, "Categoria"},
        {brivo, 204, "29022009", falla, "Ingreso"},
        {brivo, 212, "00000001", falla, "Egreso"},
        {brivo, 230, " ", falla, "QHoras"},
        {brivo, 231, "         ", falla, "Acuerdo"},
        {familiar, 1, "2012345678 ", falla, "Cuil"},
        {familiar, 63, "30022004", falla, "Nacio"},
    };
    for (const auto& [linea, posicion, texto, columnas, queda] : casos)
    {
        const QByteArray antes = &linea == &familiar ? brivo : con(linea, 1, "20222222222");
        const std::string dice = importar(antes + "\r\n" + con(linea, posicion, texto) + "\r\n",
                                          &linea == &afip ? FormatoDeNomina::AfipSijp : FormatoDeNomina::Brivo);
        EXPECT_EQ(queda, dice.starts_with(tipos) ? dice.substr(tipos.size())
                                                 : filas(std::string("SELECT ") + columnas +
                                                         " FROM DDJJ_Empleados WHERE Cuil = '20-12345678-6'"))
            << texto << dice;
        vaciar();
    }
}

TEST_F(Importacion, QuienYaEstaQuedaComoEstaba)
{
    ejecutar("INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN) VALUES "
             "('30-12345678-9', '2009-05-01', 0, '20-12345678-6', 'Como estaba'), "
             "('30-12345678-9', '2009-05-01', 1, '20-22222222-2', 'Otra secuencia'), "
             "('30-12345678-9', '2009-06-01', 0, '20-33333333-3', 'Otro mes'), "
             "('30-99999999-9', '2009-05-01', 0, '20-44444444-4', 'Otra empresa')");
    const std::string antes = filas(empleados);
    // What is read only for a new employee may be wrong, and his family is taken.
    EXPECT_EQ("0+0", importarAfip(con(afip, 43, "XX")));
    EXPECT_EQ("0+1", importar(con(con(brivo, 63, "99999999"), 160, "XX") + "\n" + familiar));
    EXPECT_EQ(antes, filas(empleados));
    // The same people elsewhere do not count as here; twice in a file is once.
    EXPECT_EQ("3+0",
              importarAfip(con(afip, 1, "20222222222") + "\n" + con(afip, 1, "20333333333") + "\n" +
                           con(con(afip, 1, "20222222222"), 12, "La segunda") + "\n" + con(afip, 1, "20444444444")));
    EXPECT_EQ("Núñez O Brien, Juan",
              filas("SELECT AyN FROM DDJJ_Empleados WHERE Secuencia = 0 AND Cuil = '20-22222222-2'"));
}

TEST_F(Importacion, FamiliaresDosVeces)
{
    // Before its employee, or without one, a family line is passed over whatever its date says.
    EXPECT_EQ("1+0", importar(con(familiar, 63, "99999999") + "\n" + brivo + "\n" + con(familiar, 1, "27999999994")));
    // Stored with 30 characters and looked for with 40: found again only where somebody stored all 40.
    EXPECT_EQ("0+2", importar(familiar + "\n" + familiar));
    const std::string completar = "UPDATE Empleados_Familiares SET AyN = 'Núñez D Angelo, María de los Milagros   '";
    ejecutar(completar);
    EXPECT_EQ("0+0", importar(familiar));
    for (const auto& [posicion, texto] : std::initializer_list<std::pair<int, const char*>>{
             {12, "3"}, {53, "2"}, {54, "45678902"}, {62, "1"}, {63, "01022004"}, {63, "00000000"}})
    {
        EXPECT_EQ("0+1", importar(con(familiar, posicion, texto))) << posicion;
    }
    ejecutar(completar);
    EXPECT_EQ("0+1", importar(con(familiar, 63, "00000000"))) << "a date that is missing equals none";
}

TEST_F(Importacion, ArchivosDeCualquierForma)
{
    const QByteArray otro = con(afip, 1, "20999999999");
    const std::string sinCuil = "13 No coinciden los tipos: línea 2, campo Cuil";
    const std::pair<QByteArray, std::string> casos[] = {
        {"", "0+0"},
        {afip + "\n" + otro + "\n", "2+0"},
        {afip + "\r" + otro, "2+0"},
        {afip + "\r\n\x1A", "1+0"}, // as programs of the DOS end a text
        {afip + "\r\n\x1A\r\n", sinCuil},
        {afip + "\n\n" + otro, sinCuil}, // an empty line is a line without fields
        {afip + "\n" + otro.left(11), "13 No coinciden los tipos: línea 2, campo Sueldo"},
        {"\xEF\xBB\xBF" + afip, "13 No coinciden los tipos: línea 1, campo Cuil"},
        {(QByteArray(999'999, 'x') + "\n").repeated(68), "7 No hay memoria suficiente: el archivo tiene más de 64 MB"},
    };
    for (const auto& [contenido, esperado] : casos)
    {
        EXPECT_EQ(esperado, importarAfip(contenido)) << contenido.right(20).toStdString();
        vaciar();
    }
}

/// A roster whose totals could not be shown would lock its declaration: told at the line that goes too far.
TEST_F(Importacion, LoQueLosTotalesNoPodrianMostrar)
{
    // Two people, each of 1000 and 200 in amounts, three times 24 in contributions, and 3 relatives.
    const QByteArray dos = afip + "\n" + con(afip, 1, "20999999999");
    // With so many people there, and what one of them has.
    const auto habiendo = [&](int personas, const std::string& asignacion)
    {
        vaciar();
        base.conexion().ejecutar("WITH n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < ?) INSERT INTO "
                                 "DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil) SELECT ?, ?, 0, i FROM n",
                                 personas, deMayo.cuit, deMayo.periodo);
        ejecutar("UPDATE DDJJ_Empleados SET " + asignacion + " WHERE Cuil = '1'");
        return importarAfip(dos);
    };
    EXPECT_EQ("2+0", habiendo(32'765, "AyN = ''"));
    EXPECT_EQ("6 Desbordamiento: línea 2, campo Cuil", habiendo(32'766, "AyN = ''"));
    EXPECT_EQ("6 Desbordamiento", habiendo(32'768, "AyN = ''"));
    EXPECT_EQ("2+0", habiendo(1, "Familiares = 32761"));
    EXPECT_EQ("6 Desbordamiento: línea 2, campo Familiares", habiendo(1, "Familiares = 32762"));
    EXPECT_EQ("2+0", habiendo(1, "Imponible = 9223372036829335807"));
    for (const std::string columna :
         {"Imponible = -", "Imponible = ", "Acuerdo = ", "Acuerdo2 = ", "ART100 = ", "ART101A = ", "ART101B = "})
    {
        EXPECT_EQ("6 Desbordamiento: línea 2, campo Imponible", habiendo(1, columna + "9223372036829335808"))
            << columna;
    }
    ejecutar("UPDATE DDJJ_Empleados SET Acuerdo = 9223372036854775807, ART101B = 0");
    EXPECT_EQ("6 Desbordamiento: línea 1, campo Imponible", importar(brivo));
}

TEST_F(Importacion, LoQuePasaEnLaBase)
{
    ejecutar("CREATE TRIGGER lleno BEFORE INSERT ON DDJJ_Empleados WHEN NEW.Cuil = '20-99999999-9' "
             "BEGIN SELECT RAISE(ABORT, 'no entra'); END");
    EXPECT_TRUE(importarAfip(afip + "\n" + con(afip, 1, "20999999999")).ends_with(": línea 2"));
    const QString ruta = base.escribir("nomina.txt", brivo + "\n" + familiar);
    EXPECT_EQ("",
              fueraDeTransaccion([&] { (void)importarNomina(base.conexion(), deMayo, ruta, FormatoDeNomina::Brivo); }));
    // Deleted at the other desk, where another sequence of the month stays.
    ejecutar("UPDATE DDJJ SET Secuencia = 1");
    EXPECT_EQ("3021", importar(brivo).substr(0, 4));
    EXPECT_THROW((void)importarNomina(base.conexion(), deMayo, ruta, FormatoDeNomina::Brivo), YaNoEsta);
}

/// A file on a share that does not answer must not keep the other desks from writing.
TEST_F(Importacion, LeeElArchivoAntesDeTomarLaBase)
{
    Conexion otra;
    otra.abrir(base.rutaBase());
    otra.ejecutar("PRAGMA busy_timeout=0");
    std::vector<std::pair<qint64, bool>> avances; // how far it is, and whether the base is taken
    const auto anotar = [&](qint64 hecho, qint64 total)
    { avances.emplace_back(hecho * 600 / total, numeroDe([&] { const Transaccion suya(otra); }) != 0); };
    const QString ruta = base.escribir("n.txt", (afip + "\n").repeated(600));
    EXPECT_EQ(1, importarNomina(base.conexion(), deMayo, ruta, FormatoDeNomina::AfipSijp, anotar).titulares);
    EXPECT_EQ((std::vector<std::pair<qint64, bool>>{{0, false}, {0, false}, {256, true}, {512, true}}), avances);
}
