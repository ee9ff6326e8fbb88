// Sending a declaration from its screen to two real servers, well and ill.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/entrada.h"
#include "apoyo/servidor_ftp_de_prueba.h"
#include "core/rutinas.h"
#include "datos_ddjj.h"
#include "declarations/screens/ddjj.h"
#include "mesa_ddjj.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/servidor_ftp.h"
#include "platform/screens/dialogos.h"
#include "platform/screens/trabajo_largo.h"

#include <QDirIterator>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QTimer>
#include <cstdio>
#include <gtest/gtest.h>

namespace
{
using namespace std::chrono_literals;

const QString archivo = QStringLiteral("30-12345678-1 2009-05 00.txt");
const QString preguntaDelMando = QStringLiteral("Debe enviar la Declaración Jurada seleccionada?");
const QString preguntaDeLaBoleta = QStringLiteral("Debe enviar la Declaración Jurada correspondiente?");
const QString gracias = QStringLiteral("LE DDJJ HA SIDO ENVIADA CON EXITO.  MUCHAS GRACIAS.");
const QString nominado = QStringLiteral("QUINTANA ZULEMA");
const QString clave = QStringLiteral("KT-marcados");

/// The declarations screen on a declaration with its roster; what the user sees while it sends is noted down.
class Envio
{
public:
    explicit Envio(const QString& servidor, TransporteFtp::Limites limites = {60s, 60s})
    {
        reemplazarServidorFtp(servidor);
        reemplazarLimitesFtp(limites);
        TrabajoLargo::fijarDemora(0);
        agregarEmpresa(mesa.conexion(), cuitUno, QStringLiteral("Del Norte"));
        agregarDeclaracion(mesa.conexion(), {cuitUno, QDate(2009, 5, 1), 0});
        constexpr int empleados = 30; // more than fits a full disk
        for (int i = 10; i < 10 + empleados; ++i)
        {
            agregar(mesa.conexion(),
                    EmpleadoDePrueba{.cuit = cuitUno, .cuil = QStringLiteral("20-123456%1-0").arg(i), .ayn = nominado});
        }
        mesa.abrir();
        mesa.pulsarFila(1);
        mesa.pagina(1);
        QObject::connect(&reloj, &QTimer::timeout, [this] { mirar(); });
        reloj.start();
    }
    ~Envio()
    {
        reemplazarServidorFtp({});
        reemplazarLimitesFtp();
        TrabajoLargo::fijarDemora(500);
    }
    Envio(const Envio&) = delete;
    Envio& operator=(const Envio&) = delete;

    /// With the box that comes at the end, if one does.
    void enviarConElMando(const QString& caja = {})
    {
        mesa.cajas.esperaPregunta(preguntaDelMando, true);
        if (!caja.isEmpty())
        {
            mesa.cajas.esperaQueDiga(Caja::Informacion, caja);
        }
        mesa.pulsar("cmdBoletas(3)");
        EXPECT_FALSE(TrabajoLargo::enCurso());
        EXPECT_FALSE(Puntero::estaOcupado());
        EXPECT_EQ(nullptr, QApplication::overrideCursor());
    }
    [[nodiscard]] bool quedaElArchivo() const { return QFile::exists(mesa.base.ruta(archivo)); }
    /// What stands in the place of "Cantidad Empleados", with "@" for the server.
    [[nodiscard]] std::string rotulo() const
    {
        return mesa.texto("Label4").replace(ServidorFtp(), QStringLiteral("@")).toStdString();
    }

    MesaDDJJ mesa;
    QTimer reloj;
    int vueltas = 0;       ///< rounds of the program's loop while it sent
    bool avance = false;   ///< the progress was to be seen
    bool llamando = false; ///< and the text that tells whom it calls
    std::function<void()> mientras;

private:
    void mirar()
    {
        if (!TrabajoLargo::enCurso())
        {
            return;
        }
        ++vueltas;
        const auto* cuadro = mesa.menu->findChild<QFrame*>(QStringLiteral("avance"));
        avance = avance || (cuadro != nullptr && cuadro->isVisible());
        llamando = llamando || rotulo() == "...Intentando conectar a: @";
        if (mientras)
        {
            mientras();
        }
    }
};

enum class Llega
{
    Nada,
    Parte, ///< what had come when it went wrong, perhaps all
    Entero,
};

struct Caso
{
    const char* como;
    bool conecta;
    Llega llega;
};

void PrintTo(const Caso& caso, std::ostream* salida)
{
    *salida << caso.como;
}

const Caso casos[] = {
    {"si", true, Llega::Entero},       {"sin_carpeta", true, Llega::Entero}, {"no_sube", true, Llega::Nada},
    {"lleno", true, Llega::Parte},     {"corta", true, Llega::Parte},        {"rechaza", false, Llega::Nada},
    {"cerrado", false, Llega::Nada},   {"calla-saludo", false, Llega::Nada}, {"calla-CWD", true, Llega::Nada},
    {"calla-fin", true, Llega::Parte},
};

class EnvioDDJJ : public testing::TestWithParam<std::tuple<const char*, Caso>>
{
};

/// Files below that hold the text, in any of the forms in which a text is kept.
QStringList archivosCon(const QString& carpeta, const QString& texto)
{
    QStringList hallados;
    const QByteArray utf16(reinterpret_cast<const char*>(texto.utf16()), texto.size() * 2);
    QDirIterator vuelta(carpeta, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (vuelta.hasNext())
    {
        const QString ruta = vuelta.next();
        const QByteArray bytes = leerArchivo(ruta);
        if (bytes.contains(texto.toUtf8()) || bytes.contains(utf16) || bytes.contains(texto.toUtf8().toBase64()))
        {
            hallados += QFileInfo(ruta).fileName();
        }
    }
    hallados.sort();
    return hallados;
}
} // namespace

TEST_P(EnvioDDJJ, CajaRotuloYArchivo)
{
    const auto& [programa, caso] = GetParam();
    const QString como = QString::fromLatin1(caso.como);
    const bool calla = como.startsWith(QStringLiteral("calla"));
    ServidorFtpDePrueba servidor(QLatin1String(programa) + QLatin1Char(':') + como);
    Envio envio(servidor.direccion(), calla ? TransporteFtp::Limites{400ms, 400ms} : TransporteFtp::Limites{60s, 60s});
    EXPECT_EQ("Cantidad Empleados", envio.rotulo());
    envio.enviarConElMando(caso.conecta ? gracias : QString());
    EXPECT_EQ(0U, envio.mesa.cajas.pendientes());
    EXPECT_EQ(caso.conecta ? "Desconectado de: @" : "Error. Compruebe los datos del servidor Ftp sin son correctos",
              envio.rotulo());
    EXPECT_EQ(!caso.conecta, envio.quedaElArchivo()) << "it stays only when nobody was reached";
    EXPECT_LT(calla ? 1 : 0, envio.vueltas) << "the screen stood still";
    EXPECT_TRUE(envio.avance);
    EXPECT_TRUE(envio.llamando);

    servidor.terminar();
    const QStringList archivos = servidor.archivos();
    if (caso.llega == Llega::Entero)
    {
        ASSERT_EQ(1, archivos.size());
        EXPECT_EQ((como == QStringLiteral("si") ? QStringLiteral("DDJJ/") : QString()) + archivo, archivos.first());
        EXPECT_TRUE(servidor.leer(archivos.first()).contains(nominado.toLatin1()));
    }
    else if (caso.llega == Llega::Nada)
    {
        EXPECT_EQ(QStringList(), archivos);
    }
    else if (como == QStringLiteral("lleno"))
    {
        EXPECT_EQ(2048, servidor.leer(archivos.value(0)).size()) << "the disk was to be full before the end";
    }
    RecordProperty("rotulo", envio.rotulo());
    RecordProperty("cajas", envio.mesa.cajas.textos().mid(1).join(u'|').toStdString());
    RecordProperty("local", envio.quedaElArchivo() ? "queda" : "borrado");
    RecordProperty("servidor", archivos.join(u'|').toStdString());
}

INSTANTIATE_TEST_SUITE_P(Servidores, EnvioDDJJ,
                         testing::Combine(testing::Values("pyftpdlib", "vsftpd"), testing::ValuesIn(casos)),
                         [](const auto& caso) { return nombreDeCaso(caso); });

/// The answer decides nothing but the closing message.
TEST(EnvioTrasBoleta, LaRespuestaSoloCallaElFinal)
{
    for (const char* como : {"vsftpd:si", "pyftpdlib:no_sube"})
    {
        ServidorFtpDePrueba servidor(QString::fromLatin1(como));
        Envio envio(servidor.direccion());
        for (const bool respuesta : {false, true})
        {
            Rutinas::BoletaEmitida = true;
            envio.mesa.cajas.esperaPregunta(preguntaDeLaBoleta, respuesta);
            if (respuesta)
            {
                envio.mesa.cajas.espera(Caja::Informacion, gracias);
            }
            MesaDDJJ::pantalla()->activar();
            EXPECT_EQ(0U, envio.mesa.cajas.pendientes());
            EXPECT_FALSE(Rutinas::BoletaEmitida);
            EXPECT_FALSE(envio.quedaElArchivo());
            EXPECT_EQ("Desconectado de: @", envio.rotulo());
        }
        MesaDDJJ::pantalla()->activar(); // once per slip
        EXPECT_EQ(3U, envio.mesa.cajas.vistas().size());
        EXPECT_EQ(QString::fromLatin1(como).endsWith(QStringLiteral(":si")) ? 1 : 0, servidor.archivos().size());
    }
}

TEST(EnvioDeNuevo, UnaFallaNoEstorbaAlSiguiente)
{
    ServidorFtpDePrueba malo(QStringLiteral("vsftpd:calla-saludo"));
    ServidorFtpDePrueba bueno(QStringLiteral("vsftpd:si"));
    Envio envio(malo.direccion(), {400ms, 400ms});
    envio.enviarConElMando();
    EXPECT_TRUE(envio.quedaElArchivo());
    reemplazarServidorFtp(bueno.direccion());
    reemplazarLimitesFtp({60s, 60s});
    const QByteArray escrito = envio.mesa.leerArchivo(archivo);
    envio.enviarConElMando(gracias);
    EXPECT_FALSE(envio.quedaElArchivo());
    EXPECT_EQ(escrito, bueno.leer(QStringLiteral("DDJJ/") + archivo)) << "CR LF, and nothing else changed";
}

TEST(EnvioInterrumpido, SinArchivoQueBorrarSeDiceElError)
{
    ServidorFtpDePrueba servidor(QStringLiteral("pyftpdlib:si"));
    Envio envio(servidor.direccion());
    envio.mientras = [&] { QFile::remove(envio.mesa.base.ruta(archivo)); };
    envio.enviarConElMando(QStringLiteral("Error: 53 - "));
    ASSERT_EQ(2U, envio.mesa.cajas.vistas().size());
    EXPECT_EQ(QStringLiteral("Error de Apertura"), envio.mesa.cajas.vistas()[1].titulo);
    EXPECT_EQ("Error al subir el fichero:" + archivo.toStdString(), envio.rotulo());
    EXPECT_EQ(QStringList(), servidor.archivos());
}

TEST(EnvioPorCorreo, EntregaElArchivoYLoConserva)
{
    Envio envio(QStringLiteral("127.0.0.1:1"));
    envio.mesa.conexion().ejecutar("UPDATE Parametros SET EMail = 'ddjj@example.org'");
    std::vector<MensajeDeCorreo> enviados;
    reemplazarCorreo([&](const MensajeDeCorreo& mensaje) { enviados.push_back(mensaje); });
    envio.mesa.cajas.espera(Caja::Simple, QStringLiteral("El Correo correspondiente ha sido enviado correctamente."));
    MesaDDJJ::pantalla()->EnviarDDJJPorCorreo();
    ASSERT_EQ(1U, enviados.size());
    EXPECT_EQ(QStringLiteral("ddjj@example.org"), enviados[0].destinatario);
    EXPECT_EQ(archivo + QStringLiteral(" - Envio DD.JJ."), enviados[0].asunto);
    EXPECT_EQ(QString(), enviados[0].texto);
    EXPECT_EQ(envio.mesa.base.ruta(archivo), enviados[0].adjunto);
    EXPECT_TRUE(envio.quedaElArchivo());

    reemplazarCorreo([](const MensajeDeCorreo&) { throw ErrorDeEjecucion(429, QStringLiteral("sin correo")); });
    envio.mesa.cajas.espera(Caja::Simple, QStringLiteral("sin correo - (429)"));
    MesaDDJJ::pantalla()->EnviarDDJJPorCorreo();
    reemplazarCorreo({});
    EXPECT_EQ(0U, envio.mesa.cajas.pendientes());
}

/// Neither the password nor the roster stands in any file but the database and, where nobody was reached, the
/// declaration's own; nothing is told on the outputs.
TEST(EnvioCallado, NadaQuedaEscritoEnOtraParte)
{
    for (const char* como : {"vsftpd:si", "pyftpdlib:lleno", "vsftpd:corta", "vsftpd:rechaza"})
    {
        SCOPED_TRACE(como);
        ServidorFtpDePrueba servidor(QString::fromLatin1(como));
        const QTemporaryDir casa; // home and folder of temporary files at once; the program's lies in it as well
        const QByteArray antesTmp = qgetenv("TMPDIR");
        const QByteArray antesCasa = qgetenv("HOME");
        qputenv("TMPDIR", casa.path().toUtf8());
        qputenv("HOME", casa.path().toUtf8());
        {
            const bool llega = !QString::fromLatin1(como).endsWith(QStringLiteral("rechaza"));
            Envio envio(servidor.direccion());
            ASSERT_TRUE(envio.mesa.base.rutaBase().startsWith(casa.path()));
            testing::internal::CaptureStdout();
            testing::internal::CaptureStderr();
            envio.enviarConElMando(llega ? gracias : QString());
            const std::string dicho = testing::internal::GetCapturedStdout() + testing::internal::GetCapturedStderr();
            EXPECT_EQ(std::string::npos, dicho.find(clave.toStdString())) << dicho;
            EXPECT_EQ(std::string::npos, dicho.find(nominado.toStdString())) << dicho;
            EXPECT_EQ(QStringList(), archivosCon(casa.path(), clave));
            EXPECT_EQ(llega ? QStringList{QStringLiteral("DBBrivo.mdb")}
                            : (QStringList{archivo, QStringLiteral("DBBrivo.mdb")}),
                      archivosCon(casa.path(), nominado));
        }
        antesTmp.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", antesTmp);
        antesCasa.isNull() ? qunsetenv("HOME") : qputenv("HOME", antesCasa);
    }
}
