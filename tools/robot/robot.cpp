#include "robot.h"

#include "captura.h"
#include "comprobaciones.h"
#include "controles.h"
#include "entrada.h"
#include "falla.h"
#include "platform/data/reloj.h"
#include "platform/screens/dialogos.h"
#include "platform/screens/error_fatal.h"
#include "platform/screens/trabajo_largo.h"
#include "verbos.h"

#include <QtWidgets>
#include <cstdio>
#include <cstdlib>

namespace
{
/// A window manager answers at once or not at all.
constexpr int esperaDeVentanaEnMs = 1000;
/// A button pressed by its letter clicks 100 ms later.
constexpr int esperaDeBotonEnMs = 1000;

QString lineaDeCaja(const DatosDeCaja& datos, const QString& respuesta)
{
    return QStringLiteral("caja %1 %2 %3 -> %4")
        .arg(guion::nombreDe(datos.clase), guion::entreComillas(datos.titulo), guion::entreComillas(datos.texto),
             respuesta);
}
} // namespace

Robot::Robot(std::vector<guion::Paso> pasos, Opciones opciones, Escribir escribir, AlTerminar alTerminar)
    : m_pasos(std::move(pasos))
    , m_opciones(std::move(opciones))
    , m_escribir(std::move(escribir))
    , m_alTerminar(std::move(alTerminar))
    , m_reposo(&m_reloj)
    , m_vigia(m_opciones.limite, [this](const std::string& enQue) { colgarse(enQue); })
{
    m_contexto.carpeta = m_opciones.carpeta;
    m_contexto.carpetaDelGuion = m_opciones.carpetaDelGuion;
    m_reloj.setSingleShot(true);
    m_reloj.setInterval(0);
    connect(&m_reloj, &QTimer::timeout, this, &Robot::latido);
}

Robot::~Robot()
{
    soltarPuertas();
}

void Robot::empezar()
{
    tomarPuertas();
    m_desdeLaUltima.start();
    m_vigia.empieza("arranque del programa");
    m_reloj.start();
}

void Robot::tomarPuertas()
{
    observarCajas(
        [this](const DatosDeCaja& datos)
        {
            m_cajas.push_back(datos);
            m_contexto.cajas.push_back(datos);
            m_contexto.cajas.back().texto.replace(m_contexto.carpeta, QStringLiteral("$CARPETA"));
            m_contexto.nombradas = false;
            ++m_contexto.cajasEnTotal;
        },
        [this](const DatosDeCaja& datos, bool respuesta) { cerrarCaja(datos, respuesta); });
    reemplazarDialogoArchivo([this](const PedidoDeArchivo& pedido)
                             { return atenderArchivo(pedido.titulo, pedido.debeExistir, pedido.extension); });
    reemplazarDialogoCarpeta([this](const QString& titulo, const QString&)
                             { return atenderArchivo(titulo, true, QString()); });
    reemplazarConfigurarImpresora([this] { m_escribir(QStringLiteral("impresora")); });
    reemplazarAbrirEnlace(
        [this](const QString& direccion)
        {
            m_escribir(QStringLiteral("enlace ") + guion::entreComillas(direccion));
            return true;
        });
    reemplazarCorreo(
        [this](const MensajeDeCorreo& mensaje)
        {
            m_escribir(QStringLiteral("correo %1 %2 %3")
                           .arg(guion::entreComillas(mensaje.destinatario), guion::entreComillas(mensaje.asunto),
                                guion::entreComillas(mensaje.adjunto)));
        });
    reemplazarFinDelProceso([this](int estado) { programaTermino(estado); });
}

void Robot::soltarPuertas()
{
    observarCajas({}, {});
    reemplazarDialogoArchivo({});
    reemplazarDialogoCarpeta({});
    reemplazarConfigurarImpresora({});
    reemplazarAbrirEnlace({});
    reemplazarCorreo({});
    reemplazarFinDelProceso({});
    Reloj::reemplazar({});
}

QString Robot::atenderArchivo(const QString& titulo, bool debeExistir, const QString& extension)
{
    if (m_contexto.archivos.empty())
    {
        fallar(m_siguiente - 1, QStringLiteral("se pide un archivo, «%1», y no hay respuesta").arg(titulo));
        return {};
    }
    const QString pedida = m_contexto.archivos.front().ruta;
    m_contexto.archivos.pop_front();
    QString ruta = pedida.isEmpty() ? QString() : m_contexto.ruta(pedida);
    if (!ruta.isEmpty() && !extension.isEmpty() && QFileInfo(ruta).suffix().isEmpty())
    {
        ruta += u'.' + extension;
    }
    m_escribir(QStringLiteral("dialogo %1 -> %2").arg(guion::entreComillas(titulo), guion::entreComillas(pedida)));
    if (!ruta.isEmpty() && debeExistir && !QFileInfo::exists(ruta))
    {
        fallar(m_siguiente - 1, QStringLiteral("el diálogo no acepta %1: no existe").arg(pedida));
        return {};
    }
    return ruta;
}

void Robot::latido()
{
    if (m_terminado)
    {
        return;
    }
    m_reloj.start(0); // first of all: what follows may stay in an exec()
    const bool hayCaja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr;
    const bool enPaso = !m_niveles.empty() && QThread::currentThread()->loopLevel() <= m_niveles.back();
    if (enPaso || (TrabajoLargo::enCurso() && !hayCaja))
    {
        // A line is at work, or the program is, and only looks at its events in between.
        m_reposo.empezarDeNuevo();
        if (TrabajoLargo::enCurso())
        {
            m_vigia.vive();
        }
        return;
    }
    if (m_reposo.alcanzado() && !esperarVentanaActiva() && !hayBotonHundido())
    {
        m_activando = false;
        m_reposo.empezarDeNuevo();
        m_desdeLaUltima.restart();
        m_vigia.vive();
        seguir();
    }
}

/// After a dialog closes, no window may be active where no window manager chooses one.
bool Robot::esperarVentanaActiva()
{
    if (QApplication::activePopupWidget() != nullptr || m_desdeLaUltima.elapsed() > esperaDeVentanaEnMs)
    {
        return false;
    }
    QWidget* querida = QApplication::activeModalWidget();
    if (querida == nullptr)
    {
        querida =
            QApplication::activeWindow() != nullptr ? QApplication::activeWindow() : controles::ventanaPrincipal();
    }
    if (querida == nullptr || querida->windowHandle() == nullptr ||
        (QApplication::activeWindow() == querida && QGuiApplication::focusWindow() == querida->windowHandle()))
    {
        return false;
    }
    if (!m_activando)
    {
        m_activando = true;
        querida->activateWindow();
    }
    m_reposo.empezarDeNuevo();
    return true;
}

bool Robot::hayBotonHundido() const
{
    if (QApplication::activePopupWidget() != nullptr || m_desdeLaUltima.elapsed() > esperaDeBotonEnMs)
    {
        return false;
    }
    const QWidgetList todos = QApplication::allWidgets();
    return std::any_of(todos.begin(), todos.end(),
                       [](const QWidget* control)
                       {
                           const auto* boton = qobject_cast<const QAbstractButton*>(control);
                           return boton != nullptr && boton->isDown() && boton->isVisible();
                       });
}

void Robot::seguir()
{
    if (auto* caja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
    {
        contestar(caja);
    }
    else if (m_contexto.luego)
    {
        ejecutar(m_siguiente - 1, std::exchange(m_contexto.luego, {}));
    }
    else if (m_listo && m_siguiente < m_pasos.size())
    {
        jugarPaso();
    }
    else if (m_listo)
    {
        terminarGuion();
    }
}

void Robot::jugarPaso()
{
    const guion::Paso& paso = m_pasos[m_siguiente];
    if (!terminaLinea(paso.verbo->actua))
    {
        return;
    }
    const std::size_t numero = m_siguiente++;
    m_vigia.empieza(nombreDelPaso(numero).toStdString());
    if (!paso.texto.isEmpty())
    {
        m_escribir(paso.texto);
    }
    if (paso.verbo->actua)
    {
        m_actuo = numero;
        m_mirada = false;
        m_contexto.cajas.clear();
    }
    for (const bool si : paso.despues.respuestas)
    {
        m_contexto.respuestas.push_back({paso.linea, si});
    }
    for (const QString& ruta : paso.despues.archivos)
    {
        m_contexto.archivos.push_back({paso.linea, ruta});
    }
    ++m_contexto.lineas;
    ejecutar(numero,
             [&]
             {
                 Jugada jugada(paso.linea, m_contexto);
                 paso.verbo->jugar(jugada, paso.argumentos);
             });
}

/// What came of the last line that acts is what it says, and no box came that no line tells of. Asked once that line is
/// over: before the next one and at the end. False when it fails the script.
bool Robot::terminaLinea(bool sigueUnaQueActua)
{
    if (!m_actuo)
    {
        return true;
    }
    if (!std::exchange(m_mirada, true))
    {
        ejecutar(*m_actuo, [this] { comprobarDespues(m_pasos[*m_actuo]); });
    }
    const auto callada = [this](const DatosDeCaja& caja)
    { return !m_contexto.nombradas && caja.clase != Caja::Pregunta; };
    const auto caja = std::ranges::find_if(m_contexto.cajas, callada);
    if (sigueUnaQueActua && caja != m_contexto.cajas.end())
    {
        fallar(*m_actuo, QStringLiteral("ninguna línea dice la caja %1").arg(guion::entreComillas(caja->texto)));
    }
    return !m_terminado;
}

void Robot::comprobarDespues(const guion::Paso& paso)
{
    const guion::Despues& despues = paso.despues;
    if (!despues.cajas.empty() || !despues.respuestas.empty())
    {
        comprobaciones::exigirCajas(m_contexto.cajas, despues.cajas);
        m_contexto.nombradas = true;
    }
    const auto deEsta = [&](const auto& cola) { return cola.linea == paso.linea; };
    if (!despues.respuestas.empty() && std::ranges::any_of(m_contexto.respuestas, deEsta))
    {
        throw Falla(QStringLiteral("no vino la pregunta"));
    }
    if (!despues.archivos.isEmpty() && std::ranges::any_of(m_contexto.archivos, deEsta))
    {
        throw Falla(QStringLiteral("no se pidió el archivo"));
    }
    if (!despues.foco.isEmpty())
    {
        comprobaciones::exigirFoco(despues.foco);
    }
}

void Robot::ejecutar(std::size_t paso, const std::function<void()>& accion)
{
    m_niveles.push_back(QThread::currentThread()->loopLevel());
    try
    {
        accion();
    }
    catch (const Falla& falla)
    {
        fallar(paso, falla.motivo());
    }
    catch (const std::exception& error) // of the program, called directly: its own handlers let none out
    {
        fallar(paso, QString::fromUtf8(error.what()));
    }
    m_niveles.pop_back();
}

void Robot::contestar(QMessageBox* caja)
{
    const std::size_t paso = m_siguiente - 1;
    if (caja->button(QMessageBox::Yes) == nullptr)
    {
        ejecutar(paso, [caja] { entrada::clic(caja->buttons().constFirst()); });
        return;
    }
    const bool esperada = !m_contexto.respuestas.empty();
    const bool si = esperada && m_contexto.respuestas.front().si;
    if (esperada)
    {
        m_contexto.respuestas.pop_front();
    }
    const QString texto = caja->text();
    ejecutar(paso, [caja, si] { entrada::clic(caja->button(si ? QMessageBox::Yes : QMessageBox::No)); });
    if (!esperada)
    {
        fallar(paso, QStringLiteral("la pregunta %1 no tiene respuesta").arg(guion::entreComillas(texto)));
    }
}

void Robot::cerrarCaja(const DatosDeCaja& datos, bool respuesta)
{
    if (!m_cajas.empty())
    {
        m_cajas.pop_back();
    }
    const QString siNo = respuesta ? QStringLiteral("Si") : QStringLiteral("No");
    m_escribir(lineaDeCaja(datos, datos.clase == Caja::Pregunta ? siNo : QStringLiteral("Aceptar")));
}

QString Robot::nombreDelPaso(std::size_t paso) const
{
    if (paso >= m_pasos.size())
    {
        return QStringLiteral("antes del guion");
    }
    return QStringLiteral("línea %1: %2").arg(m_pasos[paso].linea).arg(m_pasos[paso].texto);
}

void Robot::fallar(std::size_t paso, const QString& motivo)
{
    if (m_terminado)
    {
        return;
    }
    m_escribir(QStringLiteral("falla en %1: %2").arg(nombreDelPaso(paso), motivo));
    if (!m_opciones.foto.isEmpty())
    {
        try
        {
            grabarImagen(retratar(), m_opciones.foto);
        }
        catch (const Falla& falla)
        {
            m_escribir(falla.motivo());
        }
    }
    terminar(Mal);
}

/// Something queued that nobody asked for fails the script.
bool Robot::quedaAlgo()
{
    if (!m_contexto.respuestas.empty())
    {
        m_escribir(QStringLiteral("falla en línea %1: quedó sin usar la respuesta %2")
                       .arg(m_contexto.respuestas.front().linea)
                       .arg(m_contexto.respuestas.front().si ? QStringLiteral("Si") : QStringLiteral("No")));
        return true;
    }
    if (!m_contexto.archivos.empty())
    {
        m_escribir(QStringLiteral("falla en línea %1: quedó sin usar el archivo %2")
                       .arg(m_contexto.archivos.front().linea)
                       .arg(guion::entreComillas(m_contexto.archivos.front().ruta)));
        return true;
    }
    return false;
}

void Robot::terminarGuion()
{
    if (terminaLinea(true))
    {
        terminar(quedaAlgo() ? Mal : Bien);
    }
}

void Robot::programaTermino(int estado)
{
    if (m_terminado)
    {
        return;
    }
    if (estado == ErrorDelPrograma)
    {
        if (terminaLinea(false))
        {
            terminar(ErrorDelPrograma);
        }
        return;
    }
    if (m_siguiente < m_pasos.size())
    {
        m_escribir(QStringLiteral("falla en %1: el programa terminó antes").arg(nombreDelPaso(m_siguiente)));
        terminar(Mal);
        return;
    }
    terminarGuion();
}

void Robot::terminar(int estado)
{
    m_terminado = true;
    m_reloj.stop();
    m_alTerminar(estado);
}

/// Called from the watching thread: the program itself does not answer.
void Robot::colgarse(const std::string& enQue)
{
    std::printf("falla en %s: el programa no queda en reposo\n", enQue.c_str());
    std::fflush(stdout);
    std::_Exit(Mal);
}
