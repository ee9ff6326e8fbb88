#include "core/rutinas.h"
#include "core/screens/arranque.h"
#include "exchange/servidor_ftp.h"
#include "guion.h"
#include "platform/data/directorio_programa.h"
#include "platform/screens/estilo.h"
#include "registro.h"
#include "robot.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryFile>
#include <cstdio>
#include <cstdlib>
#include <memory>

namespace
{
constexpr int noSeLee = 2;

struct Pedido
{
    QString guion;
    QString carpeta;
    QString ftp;
    QString foto;
    QSize pantalla;
    bool conPantalla = false;
};

[[noreturn]] void rechazar(const QString& motivo)
{
    std::fprintf(stderr, "robot: %s\n", motivo.toUtf8().constData());
    std::fflush(nullptr);
    std::_Exit(noSeLee);
}

QSize leerTamano(const QString& texto)
{
    const QStringList partes = texto.split(u'x');
    const QSize tamano = partes.size() == 2 ? QSize(partes[0].toInt(), partes[1].toInt()) : QSize();
    if (tamano.width() < 320 || tamano.height() < 200)
    {
        rechazar(QStringLiteral("«%1» no es un tamaño de pantalla").arg(texto));
    }
    return tamano;
}

Pedido leerArgumentos(const QStringList& argumentos)
{
    QCommandLineParser lector;
    const QCommandLineOption en(QStringLiteral("en"), {}, QStringLiteral("CARPETA"));
    const QCommandLineOption ftp(QStringLiteral("ftp"), {}, QStringLiteral("HOST:PUERTO"));
    const QCommandLineOption foto(QStringLiteral("foto"), {}, QStringLiteral("RUTA.png"));
    const QCommandLineOption tamano(QStringLiteral("tamano"), {}, QStringLiteral("ANCHOxALTO"),
                                    QStringLiteral("1280x800"));
    const QCommandLineOption pantalla(QStringLiteral("pantalla"));
    lector.addOptions({en, ftp, foto, tamano, pantalla});
    const bool leido = lector.parse(argumentos);
    if (!leido || lector.positionalArguments().size() != 1 || !lector.isSet(en))
    {
        rechazar(QStringLiteral("uso: robot GUION --en CARPETA [--ftp HOST:PUERTO] [--pantalla] "
                                "[--tamano ANCHOxALTO] [--foto RUTA.png]%1")
                     .arg(leido ? QString() : u'\n' + lector.errorText()));
    }
    return {lector.positionalArguments().constFirst(), lector.value(en),      lector.value(ftp), lector.value(foto),
            leerTamano(lector.value(tamano)),          lector.isSet(pantalla)};
}

std::vector<guion::Paso> leerGuion(const QString& ruta)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
    {
        rechazar(QStringLiteral("%1: %2").arg(ruta, archivo.errorString()));
    }
    try
    {
        return guion::leer(archivo.readAll());
    }
    catch (const guion::ErrorDeLectura& error)
    {
        rechazar(QStringLiteral("%1:%2: %3").arg(ruta).arg(error.linea()).arg(error.motivo()));
    }
}

/// The offscreen platform's own screen is smaller than any user's.
void pedirPantallaDeMemoria(QSize tamano, QTemporaryFile& configuracion)
{
    QByteArray plataforma = "offscreen";
    const QByteArray texto = QStringLiteral(R"({"screens": [{"name": "memoria", "x": 0, "y": 0, "width": %1, )"
                                            R"("height": %2, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1}]})")
                                 .arg(tamano.width())
                                 .arg(tamano.height())
                                 .toUtf8();
    // The platform's own list of arguments is parted by ":", so that a path with one cannot be told.
    if (configuracion.open() && configuracion.write(texto) == texto.size() && configuracion.flush() &&
        !configuracion.fileName().contains(u':'))
    {
        plataforma += ":configfile=" + QFile::encodeName(configuracion.fileName());
    }
    qputenv("QT_QPA_PLATFORM", plataforma);
}

/// What the platform without a display says of each thing it cannot do tells nothing about the script.
void callarPlataforma(QtMsgType, const QMessageLogContext&, const QString& mensaje)
{
    if (!mensaje.startsWith(QStringLiteral("This plugin does not support")) &&
        !mensaje.startsWith(QStringLiteral("QStandardPaths: XDG_RUNTIME_DIR")))
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
    const Pedido pedido = leerArgumentos(argumentos);
    std::vector<guion::Paso> pasos = leerGuion(pedido.guion);
    const QFileInfo carpeta(pedido.carpeta);
    if (!carpeta.isDir())
    {
        rechazar(QStringLiteral("no existe la carpeta %1").arg(pedido.carpeta));
    }
    qInstallMessageHandler(callarPlataforma);
    auto configuracion = std::make_unique<QTemporaryFile>();
    if (!pedido.conPantalla)
    {
        pedirPantallaDeMemoria(pedido.pantalla, *configuracion);
    }
    QApplication aplicacion(cantidad, valores);
    configuracion.reset();
    QApplication::setCursorFlashTime(0); // the same picture whenever it is taken
    Estilo::aplicar(aplicacion);
    reemplazarDirectorioPrograma(QDir::toNativeSeparators(carpeta.absoluteFilePath()));
    reemplazarServidorFtp(pedido.ftp);
    registrarPantallas();

    Robot robot(std::move(pasos), {carpeta.absoluteFilePath(), QFileInfo(pedido.guion).absolutePath(), pedido.foto},
                escribir, terminar);
    robot.empezar();
    const auto menu = arrancar();
    if (menu == nullptr)
    {
        robot.programaTermino(Robot::Bien);
    }
    robot.programaListo();
    return QApplication::exec();
}
