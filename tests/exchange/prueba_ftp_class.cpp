// The FTP client against real servers, well and ill.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/servidor_ftp_de_prueba.h"
#include "base/error_de_ejecucion.h"
#include "exchange/screens/ftp_class.h"
#include "exchange/servidor_ftp.h"

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
using namespace std::chrono_literals;

const QString nombre = QStringLiteral("30-12345678-1 2009-05 00.txt");
constexpr TransporteFtp::Limites paciencia{.conexion = 400ms, .sinAvance = 400ms}; // with a server that is silent
constexpr TransporteFtp::Limites sobrada{.conexion = 60s, .sinAvance = 60s};       // with one that is slow at worst

/// Longer than any buffer, and a CR LF over the end of each block of a KiB, before it, and after it.
QByteArray declaracion()
{
    QByteArray todo("\xD1\x1A y un CR \r solo\r\n");
    for (int corrimiento = 0; corrimiento < 3; ++corrimiento)
    {
        todo = todo.leftJustified((todo.size() / 1024 + 1) * 1024 + corrimiento, 'y');
        todo += (QByteArray(1022, 'x') + "\r\n").repeated(200);
    }
    return todo;
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

struct Caso
{
    const char* servidor;
    bool conecta;
    const char* despues; ///< texts after those of the connection
    const char* queda;   ///< "#" is the file; "..." what had come of it when it went wrong, perhaps all
};

constexpr const char* adios = "Desconectado de: @";
constexpr const char* sinSubir = "Error al subir el fichero:#|Desconectado de: @";
constexpr const char* sinDirectorio = "Error al cambiar de directorio|Desconectado de: @";
constexpr const char* perdido = "Error al cambiar de directorio|Error al subir el fichero:#|Desconectado de: @";

const Caso casos[] = {
    {"pyftpdlib:si", true, adios, "DDJJ/#"},
    {"vsftpd:si", true, adios, "DDJJ/#"},
    {"pyftpdlib:rechaza", false, "", ""},
    {"pyftpdlib:cerrado", false, "", ""},
    {"pyftpdlib:sin_carpeta", true, sinDirectorio, "#"},
    {"pyftpdlib:no_sube", true, sinSubir, ""},
    {"pyftpdlib:lleno", true, sinSubir, "..."},
    {"vsftpd:lleno", true, sinSubir, "..."},
    {"pyftpdlib:corta", true, sinSubir, "..."},
    {"pyftpdlib:calla-saludo", false, "", ""},
    {"pyftpdlib:calla-PASS", false, "", ""},
    {"pyftpdlib:calla-CWD", true, perdido, ""},
    {"pyftpdlib:calla-PASV", true, sinSubir, ""},
    {"pyftpdlib:calla-STOR", true, sinSubir, "..."},
    {"pyftpdlib:traba", true, sinSubir, "..."},
    {"pyftpdlib:calla-fin", true, sinSubir, "..."},
    {"pyftpdlib:calla-QUIT", true, adios, "DDJJ/#"},
};
} // namespace

/// Each operation in its order, whatever happened to the one before: that is how a declaration is sent.
TEST(FtpClass, UnEnvioDiceYDejaLoQueCorresponde)
{
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.servidor);
        const QString como = QString::fromLatin1(caso.servidor).section(QLatin1Char(':'), 1);
        const bool calla = como.startsWith(QStringLiteral("calla")) || como == QStringLiteral("traba");
        ServidorFtpDePrueba servidor(QString::fromLatin1(caso.servidor));
        const QTemporaryDir carpeta;
        const QString local = carpeta.filePath(nombre);
        // More than the system's own buffers take in, so that a server that does not read is felt.
        const QByteArray bytes = declaracion().repeated(como == QStringLiteral("traba") ? 16 : 1);
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

        servidor.terminar();
        const QStringList archivos = servidor.archivos();
        const std::string queda = archivos.join(u'|').replace(nombre, QStringLiteral("#")).toStdString();
        const QByteArray hay = archivos.isEmpty() ? QByteArray() : servidor.leer(archivos.first());
        const bool parte = caso.queda == std::string("...");
        EXPECT_EQ(parte && !queda.empty() ? "DDJJ/#" : parte ? "" : caso.queda, queda);
        EXPECT_TRUE((parte || archivos.isEmpty()) ? bytes.startsWith(hay) : bytes == hay) << "each line end once";
        if (QLatin1String(caso.servidor) == QLatin1String("pyftpdlib:si"))
        {
            EXPECT_TRUE(servidor.ordenes().startsWith(
                "USER administrador|PASS KT-marcados|PWD|CWD //DDJJ/|PASV|TYPE A|STOR " + nombre.toUtf8()))
                << servidor.ordenes().toStdString();
        }
    }
}

/// One connection over all operations, and names that an address or a command line would read in their own way.
TEST(FtpClass, TodasLasOperacionesEnUnaConexion)
{
    for (const char* programa : {"pyftpdlib:si", "vsftpd:si"})
    {
        SCOPED_TRACE(programa);
        ServidorFtpDePrueba servidor(QString::fromLatin1(programa));
        const QTemporaryDir carpeta;
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
        EXPECT_EQ("uno\ndos\n", leerArchivo(bajado).replace("\r\n", "\n"));
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
        // Nothing that was refused has ended the connection or left its directory.
        cliente.ftp.SubirArchivo(local, nombre);
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
}

TEST(FtpClass, SinConexion)
{
    CajasDePrueba cajas;
    for (const auto falta : {&FTP_Class::Servidor, &FTP_Class::Usuario, &FTP_Class::PassWord})
    {
        ClienteFtp cliente(QStringLiteral("127.0.0.1:1"));
        (cliente.ftp.*falta).clear();
        cajas.espera(Caja::Critico, QStringLiteral("No se puede conectar. Verifique el Nombre de usuario,El nombre del "
                                                   "Servidor y la contraseña que estén establecidas"));
        EXPECT_FALSE(cliente.conectar());
        cliente.ftp.Desconectar(); // no control was stored
        EXPECT_EQ(QStringList(), cliente.estados);
        EXPECT_EQ(0, cliente.avisos) << "no network call";
    }
    ClienteFtp cliente(QStringLiteral("127.0.0.1:1"));
    EXPECT_FALSE(cliente.conectar());
    cliente.estados.clear();
    cliente.ftp.Desconectar();
    cliente.ftp.Desconectar();
    const QString queja = QStringLiteral("Error al desconectar");
    EXPECT_EQ((QStringList{queja, queja}), cliente.estados) << "the control stays: nothing else is done";
    cajas.esperaQueDiga(Caja::Critico, QStringLiteral("Error 7: ")); // the library's number for a port where nobody is
    cliente.ftp.MostrarRespuestaFtp();
    cliente.ftp.Inicializar({});
    EXPECT_THROW((void)cliente.conectar(), ErrorDeEjecucion);
}

TEST(FtpClass, FechaDeArchivo)
{
    EXPECT_EQ(QDateTime(QDate(1601, 1, 1), QTime(0, 0), Qt::UTC), FTP_Class::FechaDeArchivo(0));
    EXPECT_EQ(QDateTime(QDate(2009, 5, 1), QTime(13, 45, 59), Qt::UTC),
              FTP_Class::FechaDeArchivo(128'856'591'590'000'000));
    EXPECT_EQ(std::nullopt, FTP_Class::FechaDeArchivo(quint64{1} << 63U));
}
