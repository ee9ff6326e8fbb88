// The declaration's text file. Whole files, byte by byte, stand in the acceptance scripts; here each column by itself.
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "base/error_de_ejecucion.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/archivo_uno.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <map>

namespace
{
/// A kind of line: its columns, each with its width and what stands for a Null: where nothing is said, blanks in the
/// whole width; "-" is nothing, and the rest of the line moves left.
struct Registro
{
    QByteArray tabla;
    int antes; ///< width of what comes before the columns, which follow one after the other
    QByteArray columnas;
};

const Registro registros[] = {
    {"Empresas", 22,
     "Razon 45,Fantasia 40,Calle 30,Numero 5 -,NroLocal 6,Piso 3,Depto 3,CodPos 8,Localidad 50,Provincia 2 -,"
     "Telefono 30,Fax 30,Rubro 10,Contacto 50,Web 35,EMail 35,Estudio 50,Est_Domicilio 50,Est_CodPos 8,"
     "Est_Localidad 30,Est_Telefono 30,Est_Email 35"},
    {"Empresas_Responsables", 1, "AyN 40,Domicilio 30,Localidad 15,TipoDoc 1 -,NroDoc 8 -"},
    {"Empresas_Sucursales", 9, "Sucursal 10,Domicilio 50,Numero 5 -,CodPos 8,Localidad 50,Telefono 30"},
    {"DDJJ_Empleados", 14,
     "AyN 40,TipoDoc 1 -,NroDoc 8 -,Sexo 1,Calle 40,Numero 5 -,Piso 3,Depto 3,CodPos 8,Localidad 30,Provincia 2,"
     "Telefono 20,Nacio 8 00000000,EstCivil 1,Afiliado 1 0,Sueldo 10 -,Imponible 10 -,Categoria 2,Ingreso 8 00000000,"
     "Egreso 8 00000000,Sucursal 8 -,QHoras 3 -,ART100 10 -,ART101A 10 -,ART101B 10 -,Familiares 2 -,Acuerdo 10 -,"
     "Acuerdo2 10 0000000.00"},
    {"Empleados_Familiares", 14, "Familiar 2 -,AyN 30,TipoDoc 1 -,NroDoc 8 -,Sexo 1 -,Nacio 8 00000000"},
};

struct Lugar
{
    qsizetype linea;
    int desde, ancho;
};

struct ArchivoDdjj : ConBase
{
    ArchivoDdjj()
    {
        for (const char* sql :
             {"INSERT INTO Empresas VALUES ('30-12345678-9', 'Bodega Peña S.A.', 'La Peña', 'Av. España', 1234, '12', "
              "'2', 'B', '5600', 'San Rafael', 7, '442-1234', '442-1235', '011111', 'O''Higgins, José', "
              "'www.example.org', 'bodega@example.org', 'Estudio Quiroga', 'Mitre 20', '5601', 'Luján', '4224455', "
              "'estudio@example.org')",
              "INSERT INTO Empresas_Responsables VALUES ('30-12345678-9', 'D''Angelo, José', 'Las Heras 100', 'Maipú', "
              "1, 5123456), ('30-99999999-9', 'Otro', '', '', 1, 1)",
              "INSERT INTO Empresas_Sucursales VALUES (1, '30-12345678-9', 'BODEGA-001', 'Ruta 50', 50, "
              "'5570', 'San Martín', '4420000', 0), (2, '30-99999999-9', 'C', NULL, 0, NULL, NULL, NULL, 0)",
              "INSERT INTO Empleados_Familiares VALUES ('20-12345678-6', 2, 'Núñez, Lucía', 1, 45678901, 1, "
              "'2004-02-29'), ('20-99999999-9', 3, 'Otro', 1, 1, 1, '2006-01-31')"})
        {
            ejecutar(sql);
        }
        poner("DDJJ_Empleados", {{"Cuit", mayo.cuit}});
        ejecutar(
            "UPDATE DDJJ_Empleados SET Calle = 'San Martín', Numero = 123, Piso = '1', Depto = 'A', CodPos = '5600', "
            "Localidad = 'San Rafael', Telefono = '4421234', Egreso = '2009-12-31', Sucursal = 1, Familiares = 3, "
            "ART101A = 110000, ART101B = 120000, Acuerdo = 20000");
        como = grabar(mayo);
    }

    void ejecutar(const std::string& sql) { base.conexion().ejecutar(sql); }
    /// The file's lines, or the number of the error.
    QByteArrayList grabar(const ClaveDDJJ& clave)
    {
        const int error = numeroDe([&] { GrabarArchivoDDJJ(base.conexion(), clave, nombre); });
        EXPECT_FALSE(ArchivoUno::abierto());
        const QByteArray todo = error == 0 ? base.leer(nombre) : QByteArray::number(error) + "\r\n";
        EXPECT_TRUE(todo.endsWith("\r\n") && todo.count('\n') == todo.count("\r\n"));
        return todo.chopped(2).replace("\r\n", "\n").split('\n');
    }
    /// With "table.column" set to an SQL value, only `queda` in its place is another than in the file as it was.
    void comprobar(const QByteArray& columna, const QByteArray& valor, const Lugar& lugar, const QByteArray& queda)
    {
        const Transaccion vuelveAtras(base.conexion());
        ejecutar(("UPDATE " + QByteArray(columna).replace(".", " SET ") + " = " + valor).toStdString());
        QByteArrayList esperado = como;
        esperado[lugar.linea].replace(lugar.desde, lugar.ancho, queda);
        EXPECT_EQ(esperado.join('\n').toStdString(), grabar(mayo).join('\n').toStdString())
            << columna.toStdString() << " = " << valor.toStdString();
    }

    QString nombre;
    ClaveDDJJ mayo{"30-12345678-9", QDate(2009, 5, 1), 0};
    QByteArrayList como; ///< the file of what stands above
};
} // namespace

TEST_F(ArchivoDdjj, CadaColumnaEnSuLugar)
{
    ASSERT_EQ(5, como.size()) << "one record of each kind, and nobody else's";
    std::map<QByteArray, Lugar> lugares;
    for (const Registro& registro : registros)
    {
        Lugar lugar{&registro - registros, registro.antes, 0};
        for (const QByteArray& columna : registro.columnas.split(','))
        {
            const QByteArrayList partes = columna.split(' ');
            const QByteArray donde = registro.tabla + '.' + partes[0];
            lugar.ancho = partes[1].toInt();
            lugares[donde] = lugar;
            comprobar(donde, "NULL", lugar, partes.value(2, QByteArray(lugar.ancho, ' ')).replace("-", ""));
            lugar.desde += lugar.ancho;
        }
        EXPECT_EQ(lugar.desde, como[lugar.linea].size());
    }
    const std::tuple<const char*, const char*, QByteArray> casos[] = {
        // Cut or longer than its place.
        {"Empresas.Fantasia", "'Cooperativa Vitivinicola y Frutihorticola Ltda.'",
         "Cooperativa Vitivinicola y Frutihorticol"},
        {"Empresas.Numero", "123456", "123456"},
        {"Empresas_Sucursales.Sucursal", "char(9) || 'A' || char(13, 10)", " A        "}, // no line is broken
        {"Empresas.Numero", "-5", "-00005"},
        {"DDJJ_Empleados.QHoras", "96", "96"},
        {"DDJJ_Empleados.Nacio", "'1970-12-25'", "12251970"},
        {"Empleados_Familiares.Familiar", "9", "09"},
        // Halves of a cent go away from zero; the mark is a comma.
        {"DDJJ_Empleados.Sueldo", "50", "0000000,01"},
        {"DDJJ_Empleados.Sueldo", "49", "0000000,00"},
        {"DDJJ_Empleados.Sueldo", "-49", "0000000,00"},
        {"DDJJ_Empleados.Sueldo", "-15000", "-0000001,50"},
        {"DDJJ_Empleados.Sueldo", "99999999950", "10000000,00"},
        // Windows-1252: what it has above Latin 1, what it lacks, and a cut that counts characters and not bytes.
        {"DDJJ_Empleados.AyN", "'€ “Ñ” ’ Œ'", "\x80 \x93\xD1\x94 \x92 \x8C                               "},
        {"DDJJ_Empleados.Depto", "'Łπ😀x'", "???"},
        {"Empleados_Familiares.AyN", "'ñññññññññññññññññññññññññññññññññ'", QByteArray(30, '\xF1')},
    };
    for (const auto& [columna, valor, queda] : casos)
    {
        comprobar(columna, valor, lugares.at(columna), queda);
    }
}

TEST_F(ArchivoDdjj, NombreEncabezadoYFallas)
{
    const std::tuple<QDate, int, QString, const char*> casos[] = {
        {{2009, 5, 1}, 0, "30-12345678-9 2009-05 00.txt", "030-12345678-920090500Bodega"},
        {{2010, 12, 1}, 11, "30-12345678-9 2010-12 11.txt", "030-12345678-920101211Bodega"},
        {{2009, 1, 1}, 100, "30-12345678-9 2009-01 100.txt", "030-12345678-9200901100Bodega"},
    };
    for (const auto& [periodo, secuencia, suNombre, encabezado] : casos)
    {
        const QByteArrayList lineas = grabar({mayo.cuit, periodo, secuencia});
        EXPECT_EQ(suNombre, nombre);
        EXPECT_TRUE(lineas.first().startsWith(encabezado)) << lineas.first().toStdString();
    }
    ejecutar("INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, Nacio) VALUES "
             "('30-12345678-9', '2009-05-01', 0, '27-23456789-4', 'ayer')");
    EXPECT_EQ((QByteArrayList{"13"}), grabar(mayo));
    EXPECT_EQ(como.join("\r\n") + "\r\n", base.leer(nombre)) << "what was written stays";
    ejecutar("DELETE FROM DDJJ_Empleados");
    EXPECT_EQ(como.first(3), grabar(mayo)) << "what another file of the name held is lost";
    // Somebody left file number 1 open: this run fails and frees it, the next one goes.
    ArchivoUno::abrirParaLeer(base.escribir("otro.txt", "x"));
    EXPECT_EQ((QByteArrayList{"55"}), grabar(mayo));
    EXPECT_EQ(como.first(3), grabar(mayo));
    ASSERT_TRUE(QFile::remove(base.ruta(nombre)) && QDir().mkdir(base.ruta(nombre)));
    EXPECT_EQ((QByteArrayList{"75"}), grabar(mayo));
    mayo.cuit = "30-00000000-7";
    EXPECT_EQ((QByteArrayList{"3021"}), grabar(mayo));
    EXPECT_EQ(0, base.conexion().ejecutar("UPDATE DDJJ SET Fecha = NULL")); // and no read lock stays
}
