// The FTP client against a real server, well and ill.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/servidor_ftp_de_prueba.h"
#include "exchange/screens/ftp_class.h"
#include "exchange/servidor_ftp.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
using namespace std::chrono_literals;

const QString enviado = "30-12345678-1 2009-05 00.txt";
constexpr TransporteFtp::Limites paciencia{.conexion = 400ms, .sinAvance = 400ms}; // with a server that is silent
constexpr TransporteFtp::Limites sobrada{.conexion = 120s, .sinAvance = 120s};     // with one that is slow at worst

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

struct ClienteFtp
{
    explicit ClienteFtp(const QString& servidor, TransporteFtp::Limites limites = sobrada)
        : ftp(limites)
    {
        ftp.Inicializar([this](bool si) { ocupado += si ? 1 : -1; });
        ftp.setAviso([this](qint64 /*hecho*/, qint64 /*total*/) { ++avisos; });
        ftp.PassWord = "KT-marcados";
        ftp.Usuario = "administrador";
        ftp.Servidor = servidor;
        ftp.TipoTransferencia = 1;
    }
    bool conectar()
    {
        return ftp.ConectarFtp([this](const QString& texto) { estados += texto; });
    }
    /// All texts since the last time, with "@" for the server and "#" for the file's name.
    std::string dicho()
    {
        return std::exchange(estados, {}).join('|').replace(ftp.Servidor, "@").replace(enviado, "#").toStdString();
    }

    FTP_Class ftp;
    QStringList estados;
    int ocupado = 0, avisos = 0;
};
} // namespace

/// Each operation in its order, whatever happened to the one before: that is how a declaration is sent.
TEST(FtpClass, UnEnvioDiceYDejaLoQueCorresponde)
{
    const std::string si = "...Intentando conectar a: @|Conectado a: @|";
    const std::string no = "...Intentando conectar a: @|Error. Compruebe los datos del servidor Ftp sin son correctos";
    const std::string adios = "Desconectado de: @";
    const std::string sinDirectorio = si + "Error al cambiar de directorio|";
    const std::string sinSubir = "Error al subir el fichero:#|" + adios;
    // What is left: "#" is the file; "..." what had come of it when it went wrong, perhaps all.
    const std::tuple<QString, std::string, QString> casos[] = {
        {"si calla-QUIT", si + adios, "DDJJ/#"},
        {"rechaza cerrado calla-saludo calla-PASS", no, ""},
        {"sin_carpeta", sinDirectorio + adios, "#"},
        {"no_sube calla-PASV calla-STOR", si + sinSubir, ""},
        {"lleno corta traba calla-fin charla-fin", si + sinSubir, "..."},
        {"calla-CWD charla-CWD", sinDirectorio + sinSubir, ""}, // what comes of a reply without end is no progress
    };
    int avisos = 0;
    for (const auto& [comos, dice, deja] : casos)
    {
        for (const QString& como : comos.split(u' '))
        {
            SCOPED_TRACE(como.toStdString());
            const bool calla = como.startsWith("calla") || como.startsWith("charla-") || como == "traba";
            const bool callaAlEntrar = como == "calla-saludo" || como == "calla-PASS";
            ServidorFtpDePrueba servidor(como);
            const QTemporaryDir carpeta;
            // More than the system's own buffers take in, so that a server that does not read is felt.
            const QByteArray bytes = declaracion().repeated(como == "traba" ? 16 : 1);
            escribirArchivo(carpeta.filePath(enviado), bytes);

            // Short only where the server is silent: a machine that is busy is slow everywhere else.
            ClienteFtp cliente(servidor.direccion(), callaAlEntrar ? paciencia : sobrada);
            QElapsedTimer reloj;
            reloj.start();
            if (cliente.conectar())
            {
                cliente.ftp.setLimites(como.endsWith("-CWD") ? paciencia : sobrada);
                cliente.ftp.CambiarDirectorio("/DDJJ/");
                cliente.ftp.setLimites(calla && como != "calla-QUIT" ? paciencia : sobrada);
                cliente.ftp.SubirArchivo(carpeta.filePath(enviado), enviado);
                cliente.ftp.Desconectar();
            }
            EXPECT_FALSE(reloj.hasExpired(100'000)) << "nobody waits for the farewell, or listens to the end";
            EXPECT_EQ(dice, cliente.dicho());
            EXPECT_EQ(0, cliente.ocupado);
            avisos += calla ? cliente.avisos - 3 : 0;

            servidor.terminar();
            const QString queda = servidor.archivos();
            const QByteArray hay = queda.isEmpty() ? QByteArray() : servidor.leer(queda);
            const bool parte = deja == "..." && !queda.isEmpty();
            EXPECT_EQ(QString(deja).replace("...", parte ? "DDJJ/#" : "").toStdString(),
                      QString(queda).replace(enviado, "#").toStdString());
            EXPECT_TRUE(parte || queda.isEmpty() ? bytes.startsWith(hay) : bytes == hay) << "each line end once";
            if (como == "si")
            {
                EXPECT_EQ("USER administrador|PASS KT-marcados|PWD|CWD //DDJJ/|PASV|TYPE A|STOR " + enviado,
                          QString(servidor.ordenes()).remove("|QUIT"));
            }
        }
    }
    EXPECT_LT(0, avisos) << "the screen stood still meanwhile";
}

/// One connection over all operations, and names that an address or a command line would read in their own way.
TEST(FtpClass, TodasLasOperacionesEnUnaConexion)
{
    ServidorFtpDePrueba servidor("si");
    const QTemporaryDir carpeta;
    const QString raro = "a b%20 #;type=i?ñ.txt";
    const QString local = carpeta.filePath("local.txt");
    const QString bajado = carpeta.filePath("bajado.txt");
    escribirArchivo(local, "uno\r\ndos\r\n");
    ClienteFtp cliente(servidor.direccion());
    ASSERT_TRUE(cliente.conectar());
    EXPECT_EQ(QString("/").leftJustified(260, QChar(0)), cliente.ftp.GetDirectorioActual());
    cliente.ftp.CambiarDirectorio("DDJJ"); // "/" + "/" + "DDJJ"
    EXPECT_EQ(QString("/DDJJ").leftJustified(260, QChar(0)), cliente.ftp.GetDirectorioActual());
    cliente.ftp.SubirArchivo(local, raro);
    EXPECT_EQ("DDJJ/" + raro, servidor.archivos());

    EXPECT_TRUE(cliente.ftp.ObtenerArchivo(raro, bajado, true));
    EXPECT_EQ("uno\ndos\n", leerArchivo(bajado).replace("\r\n", "\n"));
    EXPECT_FALSE(cliente.ftp.ObtenerArchivo(raro, bajado, true)) << "true refuses to overwrite";
    EXPECT_FALSE(cliente.ftp.ObtenerArchivo("no hay.txt", bajado, false));
    EXPECT_FALSE(leerArchivo(bajado).isEmpty()) << "a failure leaves what there was";
    cliente.ftp.EliminarArchivo(raro);
    cliente.ftp.SubirArchivo(carpeta.filePath("no hay.txt"), "x.txt");
    cliente.ftp.SubirArchivo(local, "x.txt\r\nDELE y.txt");
    cliente.ftp.CambiarDirectorio("no hay");
    cliente.ftp.SubirArchivo(local, "no hay/x.txt");
    EXPECT_EQ("", servidor.archivos());
    // Nothing that was refused has ended the connection or left its directory.
    cliente.ftp.SubirArchivo(local, enviado);
    EXPECT_EQ("DDJJ/" + enviado, servidor.archivos());
    cliente.ftp.Desconectar();
    cliente.ftp.Desconectar(); // the control was released: not even the complaint is seen
    EXPECT_EQ("...Intentando conectar a: @|Conectado a: @|Archivo descargado correctamente:|"
              "Error al intentar descargar el fichero: a b%20 #;type=i?ñ.txt|"
              "Error al intentar descargar el fichero: no hay.txt|Error al subir el fichero:x.txt|"
              "Error al subir el fichero:x.txt\r\nDELE y.txt|Error al cambiar de directorio|Error al subir el "
              "fichero:no hay/x.txt|Desconectado de: @",
              cliente.dicho());
}

TEST(FtpClass, SinConexion)
{
    CajasDePrueba cajas;
    for (const auto falta : {&FTP_Class::Servidor, &FTP_Class::Usuario, &FTP_Class::PassWord})
    {
        ClienteFtp cliente("127.0.0.1:1");
        (cliente.ftp.*falta).clear();
        cajas.espera(Caja::Critico, "No se puede conectar. Verifique el Nombre de usuario,El nombre del Servidor y la "
                                    "contraseña que estén establecidas");
        EXPECT_FALSE(cliente.conectar());
        cliente.ftp.Desconectar(); // no control was stored
        EXPECT_TRUE(cliente.estados.isEmpty());
        EXPECT_EQ(0, cliente.avisos) << "no network call";
    }
    ClienteFtp cliente("127.0.0.1:1");
    EXPECT_FALSE(cliente.conectar());
    (void)cliente.dicho();
    cliente.ftp.Desconectar();
    cliente.ftp.Desconectar();
    EXPECT_EQ("Error al desconectar|Error al desconectar", cliente.dicho())
        << "the control stays: nothing else is done";
    cajas.esperaQueDiga(Caja::Critico, "Error 7: "); // the library's number for a port where nobody is
    cliente.ftp.MostrarRespuestaFtp();
    EXPECT_EQ(QDateTime(QDate(2009, 5, 1), QTime(13, 45, 59), Qt::UTC),
              FTP_Class::FechaDeArchivo(128'856'591'590'000'000));
    EXPECT_EQ(std::nullopt, FTP_Class::FechaDeArchivo(quint64{1} << 63U));
}
