#include "apoyo/base_de_prueba.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/importacion.h"
#include "platform/data/archivos.h"
#include "platform/data/error_de_ejecucion.h"

#include <QDir>
#include <QFile>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr FormatoDeNomina afip = FormatoDeNomina::AfipSijp;
constexpr FormatoDeNomina brivo = FormatoDeNomina::Brivo;

const ClaveDDJJ mayo{QStringLiteral("30-12345678-9"), QDate(2009, 5, 1), 0};

QByteArray latin1(const char* utf8)
{
    return QString::fromUtf8(utf8).toLatin1();
}

// Each field in its whole width.
const QByteArray empleadoBrivo = latin1("20123456786"                              // 1
                                        "0"                                        // 12
                                        "Núñez O'Brien, Juan                     " // 13
                                        "1"                                        // 53
                                        "12345678"                                 // 54
                                        "1"                                        // 62
                                        "25121970"                                 // 63
                                        "O'Higgins                               " // 71
                                        "00123"                                    // 111
                                        "1  "                                      // 116
                                        "A  "                                      // 119
                                        "5600    "                                 // 122
                                        "San Rafael                    "           // 130
                                        "07"                                       // 160
                                        "4421234             "                     // 162
                                        "2"                                        // 182
                                        "S"                                        // 183
                                        "001200.50"                                // 184
                                        "  1000,25"                                // 193
                                        "13"                                       // 202
                                        "01032005"                                 // 204
                                        "        "                                 // 212
                                        "BODEGA-001"                               // 220
                                        "8"                                        // 230
                                        "   150,00"                                // 231
                                        "    50.25");                              // 240

const QByteArray familiarBrivo = latin1("20123456786"                              // 1
                                        "2"                                        // 12
                                        "Núñez D'Angelo, María de los Milagros   " // 13
                                        "1"                                        // 53
                                        "45678901"                                 // 54
                                        "0"                                        // 62
                                        "29022004");                               // 63

const QByteArray empleadoAfip = latin1("20123456786"                    // 1
                                       " Núñez O'Brien, Juan          " // 12
                                       "T"                              // 42
                                       "02"                             // 43
                                       "             "                  // 45
                                       "001"                            // 58
                                       "         "                      // 61
                                       "    1200.00"                    // 70
                                       " 1 000,00  ");                  // 81

QByteArray con(QByteArray linea, int posicion, const char* texto)
{
    return linea.replace(posicion - 1, static_cast<qsizetype>(std::strlen(texto)), texto);
}

class Importacion : public testing::Test
{
protected:
    Importacion()
    {
        ejecutar("PRAGMA synchronous=OFF"); // hundreds of imports, none of which has to outlast the machine
        ejecutar("INSERT INTO Empresas (CUIT, Razon) VALUES ('30-12345678-9', 'Bodega')");
        ejecutar("INSERT INTO Empresas_Sucursales (CUIT, Sucursal) VALUES ('30-99999999-9', 'BODEGA-001'), "
                 "('30-12345678-9', 'FINCA'), ('30-12345678-9', 'BODEGA-001')");
    }

    void ejecutar(const char* sql) { base.conexion().ejecutar(std::string_view(sql)); }
    /// The rows of a query, their columns with "|" between them.
    [[nodiscard]] std::vector<std::string> filas(const char* sql) const
    {
        std::vector<std::string> todas;
        for (const Fila& fila : base.conexion().consultar(std::string_view(sql)))
        {
            std::string texto;
            for (int i = 0; i < fila.columnas(); ++i)
            {
                const char* columna = fila.nombre(i);
                texto += i > 0 ? "|" : "";
                texto += fila.esNulo(columna) ? "NULL" : fila.texto(columna).toStdString();
            }
            todas.push_back(texto);
        }
        return todas;
    }
    [[nodiscard]] qint64 cuantos(const char* tabla) const
    {
        return base.conexion().consultar(std::string("SELECT count(*) AS n FROM ") + tabla).primera().entero("n");
    }
    [[nodiscard]] ResultadoImportacion importar(const QByteArray& contenido, FormatoDeNomina formato)
    {
        return importarNomina(base.conexion(), mayo, base.escribir(QStringLiteral("nomina.txt"), contenido), formato);
    }
    /// "number - description" of the error; empty when there is none. Frees file number 1 for the next run.
    [[nodiscard]] std::string falla(const QByteArray& contenido, FormatoDeNomina formato)
    {
        try
        {
            (void)importar(contenido, formato);
            return {};
        }
        catch (const ErrorDeEjecucion& error)
        {
            EXPECT_TRUE(Archivos::abierto(1));
            Archivos::cerrar(1);
            EXPECT_FALSE(base.conexion().enTransaccion());
            return error.what();
        }
    }
    void vaciar()
    {
        ejecutar("DELETE FROM DDJJ_Empleados");
        ejecutar("DELETE FROM Empleados_Familiares");
    }

    BaseDePrueba base;
};

const char* const todosLosEmpleados = "SELECT * FROM DDJJ_Empleados";
const char* const todosLosFamiliares = "SELECT * FROM Empleados_Familiares ORDER BY rowid";
} // namespace

TEST_F(Importacion, BrivoCampoPorCampo)
{
    EXPECT_EQ((ResultadoImportacion{1, 1}), importar(empleadoBrivo + "\r\n" + familiarBrivo + "\r\n", brivo));
    EXPECT_THAT(
        filas(todosLosEmpleados),
        ElementsAre("30-12345678-9|2009-05-01|0|20-12345678-6|Núñez O Brien, Juan                     |1|12345678|1|"
                    "O Higgins                               |123|1  |A  |5600    |San Rafael                    |7|"
                    "4421234             |1970-12-25|2|1|12005000|10002500|13|2005-03-01|NULL|3|200|240100|120100|"
                    "120100|2002500|0|0"));
    EXPECT_THAT(filas(todosLosFamiliares),
                ElementsAre("20-12345678-6|2|Núñez D Angelo, María de los M|1|45678901|0|2004-02-29"));
    EXPECT_FALSE(Archivos::abierto(1));
}

TEST_F(Importacion, AfipCampoPorCampo)
{
    EXPECT_EQ((ResultadoImportacion{1, 0}), importar(empleadoAfip + "\r\n", afip));
    EXPECT_THAT(
        filas(todosLosEmpleados),
        ElementsAre("30-12345678-9|2009-05-01|0|20-12345678-6|Núñez O Brien, Juan|1|12345678|NULL|NULL|0|NULL|NULL|"
                    "NULL|NULL|1|NULL|NULL|0|1|12000000|10000000|0|NULL|NULL|0|100|240000|240000|240000|2000000|0|3"));
}

TEST_F(Importacion, AportesDeAfip)
{
    struct Caso
    {
        const char* sueldo;
        const char* imponible;
        const char* jornada;
        const char* familia;
        /// Sueldo, Imponible, Acuerdo in ten-thousandths; QHoras; ART100, ART101A, ART101B; Familiares
        const char* queda;
    };
    const Caso casos[] = {
        {"    1200.00", "    1000.00", "001", "T02", "12000000|10000000|2000000|100|240000|240000|240000|3"},
        {"    1200,00", "    1000,00", "014", " 02", "12000000|10000000|2000000|200|240000|120000|120000|2"},
        {"900        ", "1000       ", "   ", "t00", "9000000|10000000|0|200|200000|100000|100000|0"},
        // Halves go to the even digit, of what the single-precision number holds: 0.375, 0.125, and 5.015, which is
        // not quite that.
        {"37.5       ", "37.5       ", "014", "T99", "375000|375000|0|200|7500|3800|3800|100"},
        {"12.5       ", "12.5       ", "014", " 00", "125000|125000|0|200|2500|1200|1200|0"},
        {"250.75     ", "250.75     ", "001", " 00", "2507500|2507500|0|100|50100|50100|50100|0"},
        // Of 200.0999755859375, the single-precision difference, seven digits are left.
        {"1200.1     ", "1000       ", "01 ", " 00", "12001000|10000000|2001000|200|240000|120000|120000|0"},
        {"8765.43    ", "4321.09    ", "001", " 00", "87654300|43210900|44443400|100|1753100|1753100|1753100|0"},
        {"1234567.8  ", "1234567.8  ", "014", " 00", "12345680000|12345680000|0|200|246913600|123456800|123456800|0"},
        {"16777217.00", "16777217.00", "001", " 00",
         "167772200000|167772200000|0|100|3355443000|3355443000|3355443000|0"},
        {"12345678901", "12345678901", "014", " 00",
         "123456800000000|123456800000000|0|200|2469136000000|1234568000000|1234568000000|0"},
        {"0.00005    ", "   .5      ", "014", " 00", "0|5000|0|200|100|0|0|0"},
        {"        -50", "         10", "014", " 00", "-500000|100000|0|200|2000|1000|1000|0"},
    };
    for (const Caso& caso : casos)
    {
        const QByteArray linea =
            con(con(con(con(empleadoAfip, 70, caso.sueldo), 81, caso.imponible), 58, caso.jornada), 42, caso.familia);
        EXPECT_EQ((ResultadoImportacion{1, 0}), importar(linea, afip));
        EXPECT_THAT(filas("SELECT Sueldo, Imponible, Acuerdo, QHoras, ART100, ART101A, ART101B, Familiares FROM "
                          "DDJJ_Empleados"),
                    ElementsAre(caso.queda))
            << caso.sueldo << ' ' << caso.imponible;
        vaciar();
    }
}

TEST_F(Importacion, ReglasDeUnEmpleadoBrivo)
{
    struct Caso
    {
        int posicion;
        const char* texto;
        const char* consulta;
        const char* queda;
    };
    const char* const aportes = "SELECT Afiliado, QHoras, ART100, ART101A, ART101B, Acuerdo FROM DDJJ_Empleados";
    const char* const sucursal = "SELECT Sucursal FROM DDJJ_Empleados";
    const char* const lugar = "SELECT Numero, Provincia, Piso, Depto, CodPos, Localidad, Telefono FROM DDJJ_Empleados";
    const char* const fechas = "SELECT Nacio, Ingreso, Egreso FROM DDJJ_Empleados";
    const Caso casos[] = {
        {183, "N", aportes, "0|200|240100|0|0|2002500"},
        {183, "n", aportes, "1|200|240100|120100|120100|2002500"},
        {183, " ", aportes, "1|200|240100|120100|120100|2002500"},
        {230, "4", aportes, "1|100|240100|240100|240100|2002500"},
        {230, "0", aportes, "1|100|240100|240100|240100|2002500"},
        {231, " 0000.00       0,0", aportes, "1|200|200000|100000|100000|0"},
        // Another company's code does not count, and the import goes on.
        {220, "FINCA     ", sucursal, "2"}, // the blanks that fill the field are no part of a code
        {220, "OLIVAR-099", sucursal, "0"},
        {220, "          ", sucursal, "0"},
        {220, "BODEGA'001", sucursal, "0"},
        {111, "     ", lugar, "0|7|1  |A  |5600    |San Rafael                    |4421234             "},
        {111, "12 1B", lugar, "121|7|1  |A  |5600    |San Rafael                    |4421234             "},
        {111, "S/N 5", lugar, "0|7|1  |A  |5600    |San Rafael                    |4421234             "},
        {111, "   12", lugar, "12|7|1  |A  |5600    |San Rafael                    |4421234             "},
        {160, "  ", lugar, "123|NULL|1  |A  |5600    |San Rafael                    |4421234             "},
        {160, "24", lugar, "123|24|1  |A  |5600    |San Rafael                    |4421234             "},
        {116, "1'2' '5'00    L'Aquila                      07'", lugar,
         "123|7|1'2|' '|5'00    |L'Aquila                      |'421234             "},
        {63, "        ", fechas, "NULL|2005-03-01|NULL"},
        {63, "00000000", fechas, "NULL|2005-03-01|NULL"},
        {204, "2902200031122009", fechas, "1970-12-25|2000-02-29|2009-12-31"},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ((ResultadoImportacion{1, 0}), importar(con(empleadoBrivo, caso.posicion, caso.texto), brivo));
        EXPECT_THAT(filas(caso.consulta), ElementsAre(caso.queda)) << caso.posicion << " '" << caso.texto << "'";
        vaciar();
    }
    ejecutar("INSERT INTO Empresas_Sucursales (CUIT, Sucursal) VALUES ('30-12345678-9', 'OLIVAR  ')");
    (void)importar(con(empleadoBrivo, 220, "OLIVAR    "), brivo);
    EXPECT_THAT(filas(sucursal), ElementsAre("4"));
}

TEST_F(Importacion, QuienYaEstaQuedaComoEstaba)
{
    ejecutar("INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN) VALUES "
             "('30-12345678-9', '2009-05-01', 0, '20-12345678-6', 'Como estaba'), "
             "('30-12345678-9', '2009-05-01', 1, '20-22222222-2', 'Otra secuencia'), "
             "('30-12345678-9', '2009-06-01', 0, '20-33333333-3', 'Otro mes'), "
             "('30-99999999-9', '2009-05-01', 0, '20-44444444-4', 'Otra empresa')");
    const auto antes = filas(todosLosEmpleados);
    // What is read only for a new employee may be wrong.
    EXPECT_EQ((ResultadoImportacion{0, 0}), importar(con(empleadoAfip, 43, "XX"), afip));
    EXPECT_EQ((ResultadoImportacion{0, 0}),
              importar(con(con(con(empleadoBrivo, 63, "99999999"), 111, "S/N  "), 160, "XX"), brivo));
    EXPECT_EQ(antes, filas(todosLosEmpleados));
    // The family of an employee who was passed over is taken.
    EXPECT_EQ((ResultadoImportacion{0, 1}), importar(empleadoBrivo + "\n" + familiarBrivo, brivo));
    EXPECT_EQ(antes, filas(todosLosEmpleados));
    EXPECT_EQ(1, cuantos("Empleados_Familiares"));
    // The same people elsewhere do not count as here; twice in a file is once.
    EXPECT_EQ((ResultadoImportacion{3, 0}),
              importar(con(empleadoAfip, 1, "20222222222") + "\n" + con(empleadoAfip, 1, "20333333333") + "\n" +
                           con(con(empleadoAfip, 1, "20222222222"), 12, "La segunda") + "\n" +
                           con(empleadoAfip, 1, "20444444444"),
                       afip));
    EXPECT_THAT(filas("SELECT AyN FROM DDJJ_Empleados WHERE Secuencia = 0 AND Cuil = '20-22222222-2'"),
                ElementsAre("Núñez O Brien, Juan"));
}

TEST_F(Importacion, Familiares)
{
    // Before its employee, or without one, a family line is passed over whatever its date says.
    EXPECT_EQ((ResultadoImportacion{1, 0}), importar(con(familiarBrivo, 63, "99999999") + "\n" + empleadoBrivo + "\n" +
                                                         con(familiarBrivo, 1, "27999999994"),
                                                     brivo));
    EXPECT_EQ(0, cuantos("Empleados_Familiares"));

    // Stored with 30 characters and looked for with 40: found again only where somebody stored all 40.
    EXPECT_EQ((ResultadoImportacion{0, 2}), importar(familiarBrivo + "\n" + familiarBrivo, brivo));
    EXPECT_EQ((ResultadoImportacion{0, 1}), importar(familiarBrivo, brivo));
    ejecutar("UPDATE Empleados_Familiares SET AyN = 'Núñez D Angelo, María de los Milagros   ' WHERE rowid = 1");
    EXPECT_EQ((ResultadoImportacion{0, 0}), importar(familiarBrivo, brivo));
    for (const auto& [posicion, texto] : std::initializer_list<std::pair<int, const char*>>{
             {12, "3"}, {53, "2"}, {54, "45678902"}, {62, "1"}, {63, "01022004"}})
    {
        EXPECT_EQ((ResultadoImportacion{0, 1}), importar(con(familiarBrivo, posicion, texto), brivo)) << posicion;
    }

    // A date that is missing equals none.
    vaciar();
    const QByteArray sinFecha = con(con(familiarBrivo, 13, "Ana                                     "), 63, "00000000");
    EXPECT_EQ((ResultadoImportacion{1, 1}), importar(empleadoBrivo + "\n" + sinFecha, brivo));
    ejecutar("UPDATE Empleados_Familiares SET AyN = 'Ana                                     '");
    EXPECT_EQ((ResultadoImportacion{0, 1}), importar(sinFecha, brivo));
    EXPECT_THAT(filas("SELECT Nacio FROM Empleados_Familiares"), ElementsAre("NULL", "NULL"));
}

TEST_F(Importacion, CadaErrorDiceSuLineaYSuCampo)
{
    struct Caso
    {
        FormatoDeNomina formato;
        QByteArray linea;
        int posicion;
        const char* texto;
        const char* campo;
    };
    const Caso casos[] = {
        {afip, empleadoAfip, 3, "1234567X", "NroDoc"},
        {afip, empleadoAfip, 3, " 1234567", "NroDoc"},
        {afip, empleadoAfip, 43, "  ", "Familiares"},
        {afip, empleadoAfip, 43, "1X", "Familiares"},
        {afip, empleadoAfip, 43, "-1", "Familiares"},
        {afip, empleadoAfip, 70, "           ", "Sueldo"},
        {afip, empleadoAfip, 70, "1.234,56   ", "Sueldo"},
        {afip, empleadoAfip, 81, "mil pesos  ", "Imponible"},
        {afip, empleadoAfip, 81, "-          ", "Imponible"},
        {brivo, empleadoBrivo, 12, "T", "Familiar"},
        {brivo, empleadoBrivo, 12, " ", "Familiar"},
        {brivo, empleadoBrivo, 53, " ", "TipoDoc"},
        {brivo, empleadoBrivo, 54, "1234567 ", "NroDoc"},
        {brivo, empleadoBrivo, 54, "1234.567", "NroDoc"},
        {brivo, empleadoBrivo, 62, "M", "Sexo"},
        {brivo, empleadoBrivo, 182, "C", "EstCivil"},
        {brivo, empleadoBrivo, 184, "         ", "Sueldo"},
        {brivo, empleadoBrivo, 193, "1000,2,5 ", "Imponible"},
        {brivo, empleadoBrivo, 202, "1 ", "Categoria"},
        {brivo, empleadoBrivo, 202, "\xB9\xB2", "Categoria"},
        {brivo, empleadoBrivo, 230, " ", "QHoras"},
        {brivo, empleadoBrivo, 231, "         ", "Acuerdo"},
        {brivo, empleadoBrivo, 240, "O,00     ", "Acuerdo"},
        {brivo, empleadoBrivo, 160, "MZ", "Provincia"},
        {brivo, empleadoBrivo, 63, "31022009", "Nacio"},
        // Day first, always.
        {brivo, empleadoBrivo, 63, "12251970", "Nacio"},
        {brivo, empleadoBrivo, 63, "25120070", "Nacio"},
        {brivo, empleadoBrivo, 63, "2512 970", "Nacio"},
        {brivo, empleadoBrivo, 204, "29022009", "Ingreso"},
        {brivo, empleadoBrivo, 212, "00000001", "Egreso"},
        {brivo, familiarBrivo, 53, "X", "TipoDoc"},
        {brivo, familiarBrivo, 54, "       1", "NroDoc"},
        {brivo, familiarBrivo, 62, " ", "Sexo"},
        {brivo, familiarBrivo, 63, "30022004", "Nacio"},
    };
    for (const Caso& caso : casos)
    {
        const QByteArray buena = caso.formato == afip ? empleadoAfip : empleadoBrivo;
        // The first two lines go in, the third fails: none stays.
        const bool familiar = caso.linea == familiarBrivo;
        const QByteArray mala =
            con(familiar ? caso.linea : con(caso.linea, 1, "27333333331"), caso.posicion, caso.texto);
        const QByteArray contenido = con(buena, 1, "20222222222") + "\r\n" + buena + "\r\n" + mala + "\r\n";
        EXPECT_EQ("13 - No coinciden los tipos: línea 3, campo " + std::string(caso.campo),
                  falla(contenido, caso.formato))
            << caso.posicion << " '" << caso.texto << "'";
        ASSERT_EQ(0, cuantos("DDJJ_Empleados") + cuantos("Empleados_Familiares"));
    }
}

TEST_F(Importacion, UnaLineaCortadaEnCualquierLugar)
{
    struct Caso
    {
        FormatoDeNomina formato;
        QByteArray antes;
        QByteArray linea;
        qsizetype alcanza; ///< from this length on it is a line
    };
    for (const Caso& caso : {Caso{afip, "", empleadoAfip, 82}, Caso{brivo, "", empleadoBrivo, 244},
                             Caso{brivo, empleadoBrivo + "\n", familiarBrivo, 70}})
    {
        for (qsizetype largo = 0; largo <= caso.linea.size(); ++largo)
        {
            const std::string dice = falla(caso.antes + caso.linea.first(largo) + "\n", caso.formato);
            EXPECT_EQ(largo < caso.alcanza, dice.starts_with("13 - No coinciden los tipos: línea "))
                << largo << ' ' << dice;
            EXPECT_EQ(largo < caso.alcanza, cuantos("DDJJ_Empleados") == 0) << largo;
            vaciar();
        }
    }
}

TEST_F(Importacion, UnaLetraEnCualquierLugar)
{
    struct Caso
    {
        FormatoDeNomina formato;
        QByteArray linea;
        std::vector<std::pair<int, int>> numeros; ///< first and last position of the fields that hold digits
    };
    const Caso casos[] = {
        {afip, empleadoAfip, {{3, 10}, {43, 44}, {70, 91}}},
        {brivo, empleadoBrivo, {{12, 12}, {53, 70}, {160, 161}, {182, 182}, {184, 219}, {230, 248}}},
        {brivo, familiarBrivo, {{12, 12}, {53, 62}}}, // its employee is not there: the date is not looked at
    };
    for (const Caso& caso : casos)
    {
        for (int posicion = 1; posicion <= caso.linea.size(); ++posicion)
        {
            const bool debeFallar =
                std::any_of(caso.numeros.begin(), caso.numeros.end(),
                            [&](const auto& lugar) { return posicion >= lugar.first && posicion <= lugar.second; });
            EXPECT_EQ(debeFallar, !falla(con(caso.linea, posicion, "X"), caso.formato).empty()) << posicion;
            EXPECT_EQ(debeFallar || caso.linea == familiarBrivo, cuantos("DDJJ_Empleados") == 0) << posicion;
            vaciar();
        }
    }
}

TEST_F(Importacion, ArchivosQueNoSonUnaNomina)
{
    EXPECT_EQ((ResultadoImportacion{0, 0}), importar("", afip));
    EXPECT_EQ((ResultadoImportacion{0, 0}), importar("", brivo));
    // Any line end, and none at the last line; an empty line is a line without fields.
    for (const char* fin : {"\r\n", "\n", "\r"})
    {
        EXPECT_EQ((ResultadoImportacion{2, 0}),
                  importar(empleadoAfip + fin + con(empleadoAfip, 1, "20999999999"), afip));
        vaciar();
    }
    EXPECT_EQ("13 - No coinciden los tipos: línea 2, campo NroDoc", falla(empleadoAfip + "\n\n", afip));
    EXPECT_EQ("13 - No coinciden los tipos: línea 1, campo TipoDoc", falla("\xEF\xBB\xBF" + empleadoBrivo, brivo));

    std::mt19937 azar(20090501);
    QByteArray binario(100'000, '\0');
    for (const FormatoDeNomina formato : {afip, brivo})
    {
        EXPECT_NE("", falla(binario, formato));
        std::generate(binario.begin(), binario.end(), [&] { return static_cast<char>(azar()); });
        EXPECT_NE("", falla(binario, formato));
        // Bytes of every value where any text goes.
        QByteArray linea = formato == afip ? empleadoAfip : empleadoBrivo;
        for (int byte = 0; byte < 256; ++byte)
        {
            if (byte != '\r' && byte != '\n')
            {
                linea[20] = static_cast<char>(byte);
                EXPECT_EQ((ResultadoImportacion{1, 0}), importar(linea, formato)) << byte;
                vaciar();
            }
        }
    }
    EXPECT_EQ(0, cuantos("DDJJ_Empleados"));
}

TEST_F(Importacion, CaracteresDeWindows1252)
{
    (void)importar(con(empleadoAfip, 12, "\x80 \x93\xD1\x94 \x92 \x81'"), afip);
    EXPECT_THAT(filas("SELECT AyN FROM DDJJ_Empleados"), ElementsAre("€ “Ñ” ’ \xC2\x81 rien, Juan"));
}

TEST_F(Importacion, TrasUnaFallaElArchivoQuedaAbierto)
{
    const QString buena = base.escribir(QStringLiteral("buena.txt"), empleadoAfip);
    const QString mala = base.escribir(QStringLiteral("mala.txt"), empleadoAfip + "\nx");
    const auto numero = [&](const QString& ruta)
    {
        try
        {
            (void)importarNomina(base.conexion(), mayo, ruta, afip);
            return 0;
        }
        catch (const ErrorDeEjecucion& error)
        {
            return error.numero();
        }
    };
    // A file that does not open leaves nothing open.
    EXPECT_EQ(53, numero(base.ruta(QStringLiteral("no_esta.txt"))));
    EXPECT_EQ(76, numero(base.ruta(QStringLiteral("no/esta.txt"))));
    EXPECT_EQ(75, numero(base.ruta(QString())));
    EXPECT_FALSE(Archivos::abierto(1));

    EXPECT_EQ(13, numero(mala));
    EXPECT_EQ(55, numero(buena));
    EXPECT_EQ(55, numero(buena));
    EXPECT_EQ(0, cuantos("DDJJ_Empleados"));
    EXPECT_EQ(1, base.conexion().ejecutar("UPDATE Empresas SET Razon = 'Sin transacciones abiertas'"));
    // The declaration's text file goes over the same number: it fails once, and closes it.
    QString nombre;
    const DatosArchivoDDJJ datos{mayo.cuit, mayo.periodo, QStringLiteral("2009"), QStringLiteral("5"),
                                 QStringLiteral("0")};
    EXPECT_THROW(GrabarArchivoDDJJ(base.conexion(), datos, nombre), ErrorDeEjecucion);
    EXPECT_EQ(0, numero(buena));
    EXPECT_EQ(1, cuantos("DDJJ_Empleados"));
}

TEST_F(Importacion, UnErrorDeLaBaseDiceSuLinea)
{
    ejecutar("CREATE TRIGGER lleno BEFORE INSERT ON DDJJ_Empleados WHEN NEW.Cuil = '20-99999999-9' "
             "BEGIN SELECT RAISE(ABORT, 'no entra'); END");
    const std::string dice = falla(empleadoAfip + "\n" + con(empleadoAfip, 1, "20999999999"), afip);
    EXPECT_TRUE(dice.ends_with(": línea 2")) << dice;
    EXPECT_EQ(0, cuantos("DDJJ_Empleados"));
}

TEST_F(Importacion, DaCuentaDeSuAvance)
{
    QByteArray contenido;
    for (int i = 0; i < 600; ++i)
    {
        contenido += con(empleadoAfip, 3, QByteArray::number(10'000'000 + i).constData()) + "\r\n";
    }
    std::vector<std::pair<qint64, qint64>> avances;
    (void)importarNomina(base.conexion(), mayo, base.escribir(QStringLiteral("n.txt"), contenido), afip,
                         [&](qint64 hecho, qint64 total) { avances.emplace_back(hecho, total); });
    // 93 bytes a line, told every 256 lines; of the 256th only the CR has been seen for sure.
    ASSERT_EQ(2U, avances.size());
    EXPECT_EQ(600 * 93, avances[0].second);
    EXPECT_EQ(256, (avances[0].first + 1) / 93);
    EXPECT_EQ(512, (avances[1].first + 1) / 93);
    EXPECT_EQ(600, cuantos("DDJJ_Empleados"));
}

TEST(MensajeDeImportacion, SegunLoIngresado)
{
    const QString nada =
        QStringLiteral("No se ha actualizado ningún Registro.  Por favor, verifique los datos ingresados.");
    EXPECT_EQ(nada, mensajeDeImportacion({0, 0}, afip));
    EXPECT_EQ(nada, mensajeDeImportacion({0, 7}, brivo));
    EXPECT_EQ(QStringLiteral("Se han ingresado 12 Registros Titulares.  Por favor, complete los datos faltantes."),
              mensajeDeImportacion({12, 0}, afip));
    EXPECT_EQ(
        QStringLiteral("Se han ingresado 1 Registros Titulares y 0 Registros Familiares.  Por favor, verifique los "
                       "datos importados."),
        mensajeDeImportacion({1, 0}, brivo));
}
