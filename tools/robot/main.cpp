#include "base.h"
#include "base/directorio_programa.h"
#include "core/nombre_programa.h"
#include "core/rutinas.h"
#include "core/screens/arranque.h"
#include "exchange/servidor_ftp.h"
#include "falla.h"
#include "guion.h"
#include "planes.h"
#include "registro.h"
#include "robot.h"
#include "ui/look/estilo.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cstdio>
#include <cstdlib>
#include <optional>

namespace
{
constexpr int noSeLee = 2;

[[noreturn]] void rechazar(const QString& motivo)
{
    std::fprintf(stderr, "robot: %s\n", motivo.toUtf8().constData());
    std::fflush(nullptr);
    std::_Exit(noSeLee);
}

/// The robot's own arguments; rejects what it does not know.
void leerArgumentos(QCommandLineParser& lector, const QStringList& argumentos)
{
    lector.addOptions({{"en", {}, "CARPETA"},
                       {"ftp", {}, "HOST:PUERTO"},
                       {"foto", {}, "RUTA.png"},
                       {"sql", {}, "ARCHIVO"},
                       {"tamano", {}, "ANCHOxALTO", "1280x800"},
                       {"pantalla", {}}});
    if (!lector.parse(argumentos) || lector.positionalArguments().size() != 1 || !lector.isSet("en"))
    {
        rechazar("uso: robot GUION --en CARPETA [--ftp HOST:PUERTO] [--pantalla] [--tamano ANCHOxALTO] "
                 "[--foto RUTA.png] [--sql ARCHIVO]...\n" +
                 lector.errorText());
    }
    if (!QFileInfo(lector.value("en")).isDir())
    {
        rechazar("no existe la carpeta " + lector.value("en"));
    }
}

QSize leerTamano(const QString& texto)
{
    const QSize tamano(texto.section(u'x', 0, 0).toInt(), texto.section(u'x', 1).toInt());
    if (tamano.width() < 320 || tamano.height() < 200)
    {
        rechazar(QString("«%1» no es un tamaño de pantalla").arg(texto));
    }
    return tamano;
}

/// What `leer` makes of the file's bytes.
template <class Leer>
auto leerArchivo(const QString& ruta, Leer leer)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
    {
        rechazar(ruta + ": " + archivo.errorString());
    }
    try
    {
        return leer(archivo.readAll());
    }
    catch (const Falla& falla)
    {
        rechazar(ruta + ": " + falla.motivo());
    }
}

/// The offscreen platform's own screen is smaller than any user's. The platform's list of arguments is parted by ":",
/// so that its file is named without a folder: the current one is that of the file while this lives.
class PantallaDeMemoria
{
public:
    explicit PantallaDeMemoria(QSize tamano)
    {
        QDir::setCurrent(QFileInfo(m_archivo.fileTemplate()).absolutePath());
        const QByteArray texto = QStringLiteral(R"({"screens": [{"name": "memoria", "x": 0, "y": 0, "width": %1, )"
                                                R"("height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                                     .arg(tamano.width())
                                     .arg(tamano.height())
                                     .toUtf8();
        if (!m_archivo.open() || m_archivo.write(texto) != texto.size() || !m_archivo.flush())
        {
            rechazar(m_archivo.errorString());
        }
        qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + QFileInfo(m_archivo).fileName().toUtf8());
    }
    ~PantallaDeMemoria() { QDir::setCurrent(m_antes); }
    PantallaDeMemoria(const PantallaDeMemoria&) = delete;
    PantallaDeMemoria& operator=(const PantallaDeMemoria&) = delete;

private:
    QString m_antes = QDir::currentPath();
    QTemporaryFile m_archivo;
};

/// What the platform without a display says of each thing it cannot do tells nothing about the script.
void callarPlataforma(QtMsgType, const QMessageLogContext&, const QString& mensaje)
{
    if (!mensaje.startsWith("This plugin does not support") && !mensaje.startsWith("QStandardPaths: XDG_RUNTIME_DIR"))
    {
        std::fprintf(stderr, "%s\n", mensaje.toUtf8().constData());
    }
}

void escribir(const QString& linea)
{
    std::printf("%s\n", linea.toUtf8().constData());
    std::fflush(stdout);
}

/// The program's own end: no destructor runs, and the database is closed like at the menu entry "Salir".
[[noreturn]] void terminar(int estado)
{
    try
    {
        Rutinas::CerrarBase();
        const QString lentas = consultasQueLeenTodo(Rutinas::rutaBase());
        if (!lentas.isEmpty() && estado == Robot::Bien)
        {
            escribir(lentas);
            estado = Robot::Mal;
        }
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "robot: %s\n", error.what());
    }
    std::fflush(nullptr);
    std::_Exit(estado);
}
} // namespace

/// robot GUION --en CARPETA: plays an acceptance script on the program's real screens. Exit status 0 when every line
/// held, 1 with the failing line named, 2 for a script or arguments that cannot be read, 3 when the program ended by
/// its own run-time report.
int main(int cantidad, char** valores)
{
    QStringList argumentos;
    for (int i = 0; i < cantidad; ++i)
    {
        argumentos += QString::fromLocal8Bit(valores[i]);
    }
    QCommandLineParser pedido;
    leerArgumentos(pedido, argumentos);
    const QFileInfo ruta(pedido.positionalArguments().constFirst());
    const QFileInfo carpeta(pedido.value("en"));
    std::vector<guion::Paso> pasos = leerArchivo(ruta.filePath(), guion::leer);
    for (const QString& sql : pedido.values("sql"))
    {
        leerArchivo(sql, [&](const QByteArray& sentencias)
                    { ejecutarEnBase(QDir(carpeta.filePath()).filePath("DBBrivo.mdb"), sentencias.toStdString()); });
    }
    qInstallMessageHandler(callarPlataforma);
    std::optional<PantallaDeMemoria> memoria;
    if (!pedido.isSet("pantalla"))
    {
        memoria.emplace(leerTamano(pedido.value("tamano")));
    }
    QApplication aplicacion(cantidad, valores);
    QApplication::setApplicationName(nombreDelPrograma);
    memoria.reset();
    QApplication::setCursorFlashTime(0); // the same picture whenever it is taken
    Estilo::aplicar(aplicacion);
    reemplazarDirectorioPrograma(QDir::toNativeSeparators(carpeta.absoluteFilePath()));
    reemplazarServidorFtp(pedido.value("ftp"));
    registrarPantallas();

    anotarConsultas();
    Robot robot(std::move(pasos), {carpeta.absoluteFilePath(), pedido.value("foto")}, escribir, terminar);
    robot.empezar();
    robot.vigilar(
        [](const QString& enQue)
        {
            escribir(QString("falla en %1: el programa no queda en reposo").arg(enQue));
            std::_Exit(Robot::Mal);
        });
    const auto menu = arrancar();
    if (menu == nullptr)
    {
        robot.programaTermino(Robot::Bien);
    }
    robot.programaListo();
    return QApplication::exec();
}
