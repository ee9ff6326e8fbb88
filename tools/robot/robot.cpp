#include "robot.h"

#include "base/reloj.h"
#include "captura.h"
#include "comprobaciones.h"
#include "controles.h"
#include "entrada.h"
#include "ui/doors/dialogos.h"
#include "ui/shell/error_fatal.h"
#include "ui/shell/trabajo_largo.h"

#include <QtWidgets>
#include <thread>

namespace
{
/// Of a program at rest. A window manager answers at once or not at all, a button pressed by its letter clicks 100 ms
/// later, and a busy machine does either late.
constexpr int esperaEnMs = 10'000;

using guion::entreComillas;
} // namespace

Robot::Robot(std::vector<guion::Paso> pasos, Opciones opciones, Escribir escribir, AlTerminar alTerminar)
    : m_pasos(std::move(pasos))
    , m_opciones(std::move(opciones))
    , m_escribir(std::move(escribir))
    , m_alTerminar(std::move(alTerminar))
    , m_reposo(&m_reloj)
{
    m_contexto.carpeta = m_opciones.carpeta;
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
    m_reloj.start();
}

void Robot::vigilar(std::function<void(const QString& enQue)> alColgarse)
{
    const auto mirar = [this, alColgarse = std::move(alColgarse)]
    {
        constexpr int limite = 60;
        while (++m_segundosSinReposo <= limite)
        {
            std::this_thread::sleep_for(std::chrono::seconds(1));
        }
        alColgarse(nombreDelPaso(enJuego()));
    };
    std::thread(mirar).detach();
}

void Robot::tomarPuertas()
{
    observarCajas(
        [this](const DatosDeCaja& datos)
        {
            m_contexto.cajas.push_back(datos);
            QString& texto = m_contexto.cajas.back().texto; // with "/" on every system, as the scripts have it
            texto = QDir::fromNativeSeparators(texto).replace(m_contexto.carpeta, "$CARPETA");
            ++m_contexto.cajasEnTotal;
        },
        [this](const DatosDeCaja& datos, bool respuesta)
        {
            m_escribir(QString("caja %1 %2 %3 -> %4")
                           .arg(guion::nombreDe(datos.clase), entreComillas(datos.titulo), entreComillas(datos.texto),
                                datos.clase != Caja::Pregunta ? "Aceptar"
                                : respuesta                   ? "Si"
                                                              : "No"));
        });
    reemplazarDialogoArchivo([this](const PedidoDeArchivo& pedido)
                             { return atenderArchivo(pedido.titulo, pedido.debeExistir, pedido.extension); });
    reemplazarConfigurarImpresora([this] { m_escribir("impresora"); });
    reemplazarAbrirEnlace(
        [this](const QString& direccion)
        {
            m_escribir("enlace " + entreComillas(direccion));
            return true;
        });
    reemplazarCorreo(
        [this](const MensajeDeCorreo& mensaje)
        {
            m_escribir(QString("correo %1 %2 %3")
                           .arg(entreComillas(mensaje.destinatario), entreComillas(mensaje.asunto),
                                entreComillas(mensaje.adjunto)));
        });
    reemplazarFinDelProceso([this](int estado) { programaTermino(estado); });
}

void Robot::soltarPuertas()
{
    observarCajas({}, {});
    reemplazarDialogoArchivo({});
    reemplazarConfigurarImpresora({});
    reemplazarAbrirEnlace({});
    reemplazarCorreo({});
    reemplazarFinDelProceso({});
    Reloj::reemplazar({});
}

QString Robot::atenderArchivo(const QString& titulo, bool debeExistir, const QString& extension)
{
    if (m_contexto.archivos.isEmpty())
    {
        fallar(enJuego(), QString("se pide un archivo, «%1», y no hay respuesta").arg(titulo));
        return {};
    }
    const QString pedida = m_contexto.archivos.takeFirst();
    m_escribir(QString("dialogo %1 -> %2").arg(entreComillas(titulo), entreComillas(pedida)));
    if (pedida.isEmpty())
    {
        return {};
    }
    QString ruta = m_contexto.ruta(pedida);
    if (!extension.isEmpty() && QFileInfo(ruta).suffix().isEmpty())
    {
        ruta += u'.' + extension;
    }
    if (debeExistir && !QFileInfo::exists(ruta))
    {
        fallar(enJuego(), QString("el diálogo no acepta %1: no existe").arg(pedida));
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
        m_segundosSinReposo = TrabajoLargo::enCurso() ? 0 : m_segundosSinReposo.load();
    }
    else if (m_reposo.alcanzado() && !faltaAlgo())
    {
        m_desdeElReposo.invalidate();
        m_activando = false;
        m_reposo.empezarDeNuevo();
        m_segundosSinReposo = 0;
        seguir();
    }
}

bool Robot::faltaAlgo()
{
    if (!m_desdeElReposo.isValid())
    {
        m_desdeElReposo.start();
    }
    return m_desdeElReposo.elapsed() <= esperaEnMs && QApplication::activePopupWidget() == nullptr &&
           (esperarVentanaActiva() || hayBotonHundido());
}

/// After a dialog closes, no window may be active where no window manager chooses one.
bool Robot::esperarVentanaActiva()
{
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
    if (!std::exchange(m_activando, true))
    {
        querida->activateWindow();
    }
    m_reposo.empezarDeNuevo();
    return true;
}

bool Robot::hayBotonHundido()
{
    const auto hundido = [](const QWidget* control)
    {
        const auto* boton = qobject_cast<const QAbstractButton*>(control);
        return boton != nullptr && boton->isDown() && boton->isVisible();
    };
    return std::ranges::any_of(QApplication::allWidgets(), hundido);
}

void Robot::seguir()
{
    if (auto* caja = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
    {
        contestar(caja);
    }
    else if (m_contexto.luego)
    {
        ejecutar(enJuego(), std::exchange(m_contexto.luego, {}));
    }
    else if (m_listo)
    {
        m_siguiente < m_pasos.size() ? jugarPaso() : programaTermino(Bien);
    }
}

void Robot::jugarPaso()
{
    const guion::Paso& paso = m_pasos[m_siguiente];
    if (!terminaLinea())
    {
        return;
    }
    ++m_siguiente;
    if (!paso.texto.isEmpty())
    {
        m_escribir(paso.texto);
    }
    if (paso.actua)
    {
        m_actuo = &paso;
        m_contexto.cajas.clear();
        m_contexto.respuestas = paso.respuestas;
        m_contexto.archivos += paso.archivos;
    }
    ++m_contexto.lineas;
    ejecutar(enJuego(), [&] { paso.verbo->jugar(Jugada(m_contexto), paso.argumentos); });
}

/// What came of the last line that acts is what it says, and no box came that it does not tell of. Asked when that line
/// is over, before each line that looks, and at the end. False when it fails the script.
bool Robot::terminaLinea()
{
    if (m_actuo != nullptr)
    {
        ejecutar(static_cast<std::size_t>(m_actuo - m_pasos.data()), [this] { comprobarDespues(*m_actuo); });
    }
    return !m_terminado;
}

void Robot::comprobarDespues(const guion::Paso& paso)
{
    exigirCajas(m_contexto.cajas, paso.cajas);
    const bool sigue = m_siguiente < m_pasos.size() && m_pasos[m_siguiente].linea == paso.linea;
    if (!m_contexto.respuestas.isEmpty() || (!sigue && !m_contexto.archivos.isEmpty()))
    {
        throw Falla(m_contexto.archivos.isEmpty() ? "no vino la pregunta" : "no se pidió el archivo");
    }
    if (!paso.foco.isEmpty())
    {
        exigirFoco(paso.foco);
    }
}

void Robot::ejecutar(std::size_t paso, const std::function<void()>& accion)
{
    m_niveles.push_back(QThread::currentThread()->loopLevel());
    try
    {
        accion();
    }
    catch (const std::exception& error) // a Falla, or of the program, called directly: its handlers let none out
    {
        fallar(paso, QString::fromUtf8(error.what()));
    }
    m_niveles.pop_back();
}

void Robot::contestar(QMessageBox* caja)
{
    QAbstractButton* boton = caja->buttons().constFirst();
    const bool esPregunta = caja->button(QMessageBox::Yes) != nullptr;
    const bool esperada = !m_contexto.respuestas.isEmpty();
    const QString texto = caja->text();
    if (esPregunta)
    {
        const bool si = esperada && *guion::leerSiNo(m_contexto.respuestas.takeFirst());
        boton = caja->button(si ? QMessageBox::Yes : QMessageBox::No);
    }
    ejecutar(enJuego(), [boton] { entrada::clic(boton); });
    if (esPregunta && !esperada)
    {
        fallar(enJuego(), QString("la pregunta %1 no tiene respuesta").arg(entreComillas(texto)));
    }
}

QString Robot::nombreDelPaso(std::size_t paso) const
{
    if (paso >= m_pasos.size())
    {
        return "antes del guion";
    }
    // A step that is not the first of its line has no text of its own.
    const auto primero = std::ranges::find_if(m_pasos, [&](const auto& p) { return p.linea == m_pasos[paso].linea; });
    return QString("línea %1: %2").arg(primero->linea).arg(primero->texto);
}

void Robot::fallar(std::size_t paso, const QString& motivo)
{
    if (m_terminado)
    {
        return;
    }
    m_escribir(QString("falla en %1: %2").arg(nombreDelPaso(paso), motivo));
    if (!m_opciones.foto.isEmpty())
    {
        retratar().save(m_opciones.foto, "PNG");
    }
    terminar(Mal);
}

void Robot::programaTermino(int estado)
{
    if (m_terminado)
    {
        return;
    }
    if (estado != ErrorDelPrograma && m_siguiente < m_pasos.size())
    {
        fallar(m_siguiente, "el programa terminó antes");
    }
    else if (terminaLinea())
    {
        terminar(estado == ErrorDelPrograma ? ErrorDelPrograma : Bien);
    }
}

void Robot::terminar(int estado)
{
    m_terminado = true;
    m_reloj.stop();
    m_alTerminar(estado);
}
