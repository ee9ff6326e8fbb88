// The FTP client against two real servers, well and ill.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/servidor_ftp_de_prueba.h"
#include "exchange/screens/ftp_class.h"
#include "exchange/servidor_ftp.h"
#include "platform/data/error_de_ejecucion.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
using namespace std::chrono_literals;

const QString nombre = QStringLiteral("30-12345678-1 2009-05 00.txt");
constexpr TransporteFtp::Limites paciencia{.conexion = 400ms, .sinAvance = 400ms}; // with a server that is silent
constexpr TransporteFtp::Limites sobrada{.conexion = 60s, .sinAvance = 60s};       // with one that is slow at worst

/// Longer than any buffer, and with line ends at every place of them.
QByteArray declaracion()
{
    QByteArray todo("un CR \r solo, un LF \n solo, \xD1\x1A\r\r\n\r\n");
    for (int i = 0; todo.size() < 200'000; ++i)
    {
        todo += QByteArray::number(i) + QByteArray(i % 97, 'x') + "\r\n";
    }
    return todo;
}

/// In ASCII every line end arrives as CR LF, once; pyftpdlib then keeps it as its system does.
QByteArray comoLlega(QByteArray bytes, const QString& servidor)
{
    bytes.replace("\r\n", "\n");
    return servidor == QStringLiteral("vsftpd") ? bytes.replace("\n", "\r\n") : bytes;
}

class ClienteFtp
{
public:
    explicit ClienteFtp(const QString& servidor, TransporteFtp::Limites limites = sobrada)
        : ftp(limites)
    {
        ftp.Inicializar([this](bool si) { ocupado += si ? 1 : -1; });
        ftp.setAviso([this](qint64 /*hecho*/, qint64 /*total*/) { ++avisos; });
        ftp.PassWord = QStringLiteral("KT-marcados");
        ftp.Usuario = QStringLiteral("administrador");
        ftp.Servidor = servidor;
        ftp.TipoTransferencia = 1;
    }
    bool conectar()
    {
        return ftp.ConectarFtp([this](const QString& texto) { estados += texto; });
    }
    /// All texts so far, with "@" for the server and "#" for the file's name.
    [[nodiscard]] std::string dicho() const
    {
        return estados.join(QLatin1Char('|'))
            .replace(ftp.Servidor, QStringLiteral("@"))
            .replace(nombre, QStringLiteral("#"))
            .toStdString();
    }

    FTP_Class ftp;
    QStringList estados;
    int ocupado = 0;
    int avisos = 0;
};

enum class Queda
{
    Nada,
    Parte, ///< what had come when it went wrong, perhaps all
    EnDDJJ,
    EnLaRaiz, ///< the change of directory failed
};

struct Caso
{
    const char* como;
    bool conecta;
    const char* despues; ///< texts after those of the connection
    Queda queda;
};

void PrintTo(const Caso& caso, std::ostream* salida)
{
    *salida << caso.como;
}

constexpr const char* adios = "Desconectado de: @";
constexpr const char* sinSubir = "Error al subir el fichero:#|Desconectado de: @";
constexpr const char* sinDirectorio = "Error al cambiar de directorio|Desconectado de: @";
constexpr const char* perdido = "Error al cambiar de directorio|Error al subir el fichero:#|Desconectado de: @";

const Caso casos[] = {
    {"si", true, adios, Queda::EnDDJJ},          {"rechaza", false, "", Queda::Nada},
    {"cerrado", false, "", Queda::Nada},         {"sin_carpeta", true, sinDirectorio, Queda::EnLaRaiz},
    {"no_sube", true, sinSubir, Queda::Nada},    {"lleno", true, sinSubir, Queda::Parte},
    {"corta", true, sinSubir, Queda::Parte},     {"calla-saludo", false, "", Queda::Nada},
    {"calla-PASS", false, "", Queda::Nada},      {"calla-CWD", true, perdido, Queda::Nada},
    {"calla-PASV", true, sinSubir, Queda::Nada}, {"calla-STOR", true, sinSubir, Queda::Parte},
    {"traba", true, sinSubir, Queda::Parte},     {"calla-fin", true, sinSubir, Queda::Parte},
    {"calla-QUIT", true, adios, Queda::EnDDJJ},
};

class UnEnvio : public testing::TestWithParam<std::tuple<const char*, Caso>>
{
};
} // namespace

/// Each operation in its order, whatever happened to the one before: that is how a declaration is sent.
TEST_P(UnEnvio, DiceYDejaLoQueCorresponde)
{
    const auto& [programa, caso] = GetParam();
    const QString como = QString::fromLatin1(caso.como);
    const bool calla = como.startsWith(QStringLiteral("calla")) || como == QStringLiteral("traba");
    ServidorFtpDePrueba servidor(QLatin1String(programa) + QLatin1Char(':') + como);
    const QTemporaryDir carpeta;
    const QString local = carpeta.filePath(nombre);
    // More than the system's own buffers take in, so that a server that does not read is felt.
    const QByteArray bytes = declaracion().repeated(como == QStringLiteral("traba") ? 50 : 1);
    escribirArchivo(local, bytes);

    ClienteFtp cliente(servidor.direccion(), calla ? paciencia : sobrada);
    EXPECT_EQ(caso.conecta, cliente.conectar());
    if (caso.conecta)
    {
        cliente.ftp.CambiarDirectorio(QStringLiteral("/DDJJ/"));
        cliente.ftp.SubirArchivo(local, nombre);
        cliente.ftp.Desconectar();
    }
    EXPECT_EQ("...Intentando conectar a: @|" +
                  (caso.conecta ? std::string("Conectado a: @|") + caso.despues
                                : std::string("Error. Compruebe los datos del servidor Ftp sin son correctos")),
              cliente.dicho());
    EXPECT_EQ(0, cliente.ocupado);
    EXPECT_LT(calla ? 3 : 0, cliente.avisos) << "the screen stood still meanwhile";
    EXPECT_EQ(bytes, leerArchivo(local));

    servidor.terminar();
    const QString remoto = (caso.queda == Queda::EnLaRaiz ? QString() : QStringLiteral("DDJJ/")) + nombre;
    const QByteArray esperado = comoLlega(bytes, QLatin1String(programa));
    const QStringList archivos = servidor.archivos();
    const QByteArray hay = archivos.isEmpty() ? QByteArray() : servidor.leer(archivos.first());
    RecordProperty("estados", cliente.dicho());
    RecordProperty("servidor", archivos.isEmpty() ? std::string("nada")
                               : hay == esperado  ? archivos.first().toStdString()
                                                  : archivos.first().toStdString() + " (parte)");
    switch (caso.queda)
    {
    case Queda::Nada:
        EXPECT_EQ(QStringList(), archivos);
        break;
    case Queda::Parte:
        EXPECT_TRUE(archivos.isEmpty() || archivos == QStringList(remoto)) << archivos.join(u'|').toStdString();
        EXPECT_TRUE(esperado.startsWith(hay));
        break;
    default:
        ASSERT_EQ(QStringList(remoto), archivos);
        EXPECT_EQ(esperado, hay);
    }
}

INSTANTIATE_TEST_SUITE_P(Servidores, UnEnvio,
                         testing::Combine(testing::Values("pyftpdlib", "vsftpd"), testing::ValuesIn(casos)),
                         [](const auto& caso) { return nombreDeCaso(caso); });

class Servidores : public testing::TestWithParam<const char*>
{
protected:
    [[nodiscard]] QString programa() const { return QLatin1String(GetParam()); }
    ServidorFtpDePrueba servidor{programa() + QStringLiteral(":si")};
    QTemporaryDir carpeta;
};
INSTANTIATE_TEST_SUITE_P(Dos, Servidores, testing::Values("pyftpdlib", "vsftpd"));

TEST_P(Servidores, ElMismoArchivoDosVecesQuedaComoElSegundo)
{
    const QString local = carpeta.filePath(nombre);
    for (const QByteArray& bytes : {declaracion(), QByteArray("la segunda, mas corta\r\n")})
    {
        escribirArchivo(local, bytes);
        ClienteFtp cliente(servidor.direccion());
        ASSERT_TRUE(cliente.conectar());
        cliente.ftp.CambiarDirectorio(QStringLiteral("/DDJJ/"));
        cliente.ftp.SubirArchivo(local, nombre);
        cliente.ftp.Desconectar();
        EXPECT_EQ("...Intentando conectar a: @|Conectado a: @|Desconectado de: @", cliente.dicho());
        EXPECT_EQ(comoLlega(bytes, programa()), servidor.leer(QStringLiteral("DDJJ/") + nombre));
    }
}

/// One connection over all operations, and names that an address or a command line would read in their own way.
TEST_P(Servidores, TodasLasOperacionesEnUnaConexion)
{
    const QString raro = QStringLiteral("a b%20 #;type=i?ñ.txt");
    const QString local = carpeta.filePath(QStringLiteral("local.txt"));
    const QString bajado = carpeta.filePath(QStringLiteral("bajado.txt"));
    const QByteArray bytes("uno\r\ndos\r\n");
    escribirArchivo(local, bytes);
    ClienteFtp cliente(servidor.direccion());
    ASSERT_TRUE(cliente.conectar());
    const QString raiz = cliente.ftp.GetDirectorioActual();
    EXPECT_EQ(260, raiz.size());
    EXPECT_EQ(QStringLiteral("/"), QString(raiz).remove(QChar(0)));
    cliente.ftp.CambiarDirectorio(QStringLiteral("DDJJ")); // "/" + "/" + "DDJJ"
    EXPECT_EQ(QStringLiteral("/DDJJ"), QString(cliente.ftp.GetDirectorioActual()).remove(QChar(0)));
    cliente.ftp.SubirArchivo(local, raro);
    EXPECT_EQ(QStringList(QStringLiteral("DDJJ/") + raro), servidor.archivos());
    cliente.estados.clear();

    EXPECT_TRUE(cliente.ftp.ObtenerArchivo(raro, bajado, true));
    EXPECT_EQ(bytes, leerArchivo(bajado).replace("\r\n", "\n").replace("\n", "\r\n"));
    EXPECT_FALSE(cliente.ftp.ObtenerArchivo(raro, bajado, true)) << "true refuses to overwrite";
    EXPECT_TRUE(cliente.ftp.ObtenerArchivo(raro, bajado, false));
    EXPECT_FALSE(cliente.ftp.ObtenerArchivo(QStringLiteral("no hay.txt"), bajado, false));
    EXPECT_FALSE(leerArchivo(bajado).isEmpty()) << "a failure leaves what there was";
    cliente.ftp.EliminarArchivo(raro);
    cliente.ftp.EliminarArchivo(raro);
    cliente.ftp.SubirArchivo(carpeta.filePath(QStringLiteral("no hay.txt")), QStringLiteral("x.txt"));
    cliente.ftp.SubirArchivo(local, QStringLiteral("x.txt\r\nDELE y.txt"));
    cliente.ftp.EliminarDirectorio(QStringLiteral("no hay"));
    cliente.ftp.CambiarDirectorio(QStringLiteral("no hay"));
    cliente.ftp.SubirArchivo(local, QStringLiteral("no hay/x.txt"));
    EXPECT_EQ(QStringList(), servidor.archivos());
    cliente.ftp.SubirArchivo(local, nombre); // nothing that was refused has ended the connection or left its directory
    EXPECT_EQ(QStringList(QStringLiteral("DDJJ/") + nombre), servidor.archivos());
    const QStringList esperado{QStringLiteral("Archivo descargado correctamente:"),
                               QStringLiteral("Error al intentar descargar el fichero: ") + raro,
                               QStringLiteral("Archivo descargado correctamente:"),
                               QStringLiteral("Error al intentar descargar el fichero: no hay.txt"),
                               QStringLiteral("Error. No se pudo eliminar el archivo: ") + raro,
                               QStringLiteral("Error al subir el fichero:x.txt"),
                               QStringLiteral("Error al subir el fichero:x.txt\r\nDELE y.txt"),
                               QStringLiteral("Error. No se pudo eliminar el Directorio: no hay"),
                               QStringLiteral("Error al cambiar de directorio"),
                               QStringLiteral("Error al subir el fichero:no hay/x.txt")};
    EXPECT_EQ(esperado.join(u'\n').toStdString(), cliente.estados.join(u'\n').toStdString());
    cliente.estados.clear();

    cliente.ftp.Desconectar();
    EXPECT_EQ(QStringList(QStringLiteral("Desconectado de: ") + servidor.direccion()), cliente.estados);
    cliente.ftp.Desconectar(); // the control was released: not even the complaint is seen
    EXPECT_EQ(1, cliente.estados.size());
}

TEST(FtpClass, SinConexion)
{
    struct
    {
        QString servidor = QStringLiteral("127.0.0.1:1");
        QString usuario = QStringLiteral("u");
        QString clave = QStringLiteral("c");
    } completo, sinServidor{.servidor = {}}, sinUsuario{.usuario = {}}, sinClave{.clave = {}};
    CajasDePrueba cajas;
    for (const auto& falta : {sinServidor, sinUsuario, sinClave})
    {
        ClienteFtp cliente(falta.servidor);
        cliente.ftp.Usuario = falta.usuario;
        cliente.ftp.PassWord = falta.clave;
        cajas.espera(Caja::Critico, QStringLiteral("No se puede conectar. Verifique el Nombre de usuario,El nombre del "
                                                   "Servidor y la contraseña que estén establecidas"));
        EXPECT_FALSE(cliente.conectar());
        EXPECT_EQ(QStringList(), cliente.estados);
        EXPECT_EQ(0, cliente.avisos) << "no network call";
        cliente.ftp.Desconectar(); // no control was stored
        EXPECT_EQ(QStringList(), cliente.estados);
    }
    ClienteFtp cliente(completo.servidor);
    EXPECT_FALSE(cliente.conectar());
    cliente.estados.clear();
    cliente.ftp.Desconectar();
    cliente.ftp.Desconectar();
    const QString queja = QStringLiteral("Error al desconectar");
    EXPECT_EQ((QStringList{queja, queja}), cliente.estados) << "the control stays: nothing else is done";
    cajas.esperaQueDiga(Caja::Critico, QStringLiteral("Error 7: ")); // the library's number for a port where nobody is
    cliente.ftp.MostrarRespuestaFtp();

    FTP_Class sinControl;
    sinControl.Servidor = completo.servidor;
    sinControl.Usuario = sinControl.PassWord = completo.usuario;
    try
    {
        ADD_FAILURE() << sinControl.ConectarFtp({});
    }
    catch (const ErrorDeEjecucion& error)
    {
        EXPECT_EQ(ErrorDeEjecucion::ObjetoNoEstablecido, error.numero());
    }
    sinControl.Inicializar([](bool) {});
    EXPECT_FALSE(sinControl.ConectarFtp({}));
    sinControl.Desconectar();
}

TEST(FtpClass, FechaDeArchivo)
{
    EXPECT_EQ(QDateTime(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC), FTP_Class::FechaDeArchivo(0));
    EXPECT_EQ(QDateTime(QDate(1970, 1, 1), QTime(0, 0), Qt::UTC), FTP_Class::FechaDeArchivo(116'444'736'000'000'000));
    EXPECT_EQ(QDateTime(QDate(2009, 5, 1), QTime(13, 45, 59), Qt::UTC),
              FTP_Class::FechaDeArchivo(128'856'591'590'000'000));
    EXPECT_EQ(std::nullopt, FTP_Class::FechaDeArchivo(quint64{1} << 63U));
}

/// What the users are promised, for the tests above run with limits of their own.
TEST(FtpClass, LimitesDelPrograma)
{
    EXPECT_EQ(20s, LimitesFtp().conexion);
    EXPECT_EQ(30s, LimitesFtp().sinAvance);
}
