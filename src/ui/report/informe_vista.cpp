#include "ui/report/informe_vista.h"

#include "base/error_de_ejecucion.h"
#include "base/files/archivos.h"
#include "base/files/planilla_xlsx.h"
#include "ui/doors/dialogos.h"
#include "ui/doors/guardado.h"
#include "ui/doors/impresion.h"
#include "ui/doors/mensajes.h"
#include "ui/look/estilo.h"
#include "ui/report/informe_tabla.h"
#include "ui/shell/error_fatal.h"
#include "ui/shell/navegacion.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPrinter>
#include <QScrollBar>
#include <QShortcut>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <cmath>

namespace
{
constexpr double separacion = 12; // pixels between two pages
constexpr double zoomMinimo = 0.25;
constexpr double zoomMaximo = 4;
constexpr double pasoDeZoom = 1.2;

/// The toolkit does not tell that the last bytes of a PDF found no room on the disk.
bool estaEntero(const QString& pdf)
{
    constexpr qint64 ultimos = 16;
    QFile archivo(pdf);
    return archivo.open(QIODevice::ReadOnly) && archivo.seek(std::max<qint64>(0, archivo.size() - ultimos)) &&
           archivo.readAll().contains("%%EOF");
}
} // namespace

HojasDeInforme::HojasDeInforme(PaginasDeInforme paginas, QWidget* padre)
    : QAbstractScrollArea(padre)
    , m_paginas(std::move(paginas))
{
    setAccessibleName(QStringLiteral("Páginas del informe"));
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    // Fitted to the width a page could need the bar just when the bar is there.
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    verticalScrollBar()->setSingleStep(40);
    horizontalScrollBar()->setSingleStep(40);
}

QSizeF HojasDeInforme::tamanoDeHoja() const
{
    const QSizeF puntos = m_paginas.pagina().fullRect(QPageLayout::Point).size();
    return puntos * (m_zoom * logicalDpiX() / 72.0);
}

void HojasDeInforme::ajustarBarras()
{
    const QSizeF hoja = tamanoDeHoja();
    const int alto = static_cast<int>(std::ceil((hoja.height() + separacion) * m_paginas.cantidad() + separacion));
    const int ancho = static_cast<int>(std::floor(hoja.width() + 2 * separacion));
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setRange(0, std::max(0, alto - viewport()->height()));
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0, std::max(0, ancho - viewport()->width()));
    viewport()->update();
    Q_EMIT cambio();
}

int HojasDeInforme::hojaActual() const
{
    const double medio = verticalScrollBar()->value() + viewport()->height() / 3.0;
    const int hoja = static_cast<int>(medio / (tamanoDeHoja().height() + separacion));
    return std::clamp(hoja, 0, std::max(0, m_paginas.cantidad() - 1));
}

void HojasDeInforme::irA(int hoja)
{
    const int destino = std::clamp(hoja, 0, std::max(0, m_paginas.cantidad() - 1));
    verticalScrollBar()->setValue(static_cast<int>(destino * (tamanoDeHoja().height() + separacion)));
}

void HojasDeInforme::setZoom(double zoom)
{
    const int hoja = hojaActual();
    m_alAncho = false;
    m_zoom = std::clamp(zoom, zoomMinimo, zoomMaximo);
    ajustarBarras();
    irA(hoja);
}

void HojasDeInforme::ajustarAlAncho()
{
    const int hoja = hojaActual();
    const double puntos = m_paginas.pagina().fullRect(QPageLayout::Point).width();
    m_alAncho = true;
    m_zoom = std::clamp((viewport()->width() - 2 * separacion) * 72.0 / (puntos * logicalDpiX()), zoomMinimo, 1.6);
    ajustarBarras();
    irA(hoja);
}

void HojasDeInforme::rehacer()
{
    ajustarBarras();
}

void HojasDeInforme::paintEvent(QPaintEvent*)
{
    QPainter pintor(viewport());
    pintor.fillRect(viewport()->rect(), palette().color(QPalette::Mid));
    pintor.setRenderHint(QPainter::TextAntialiasing);
    const QSizeF hoja = tamanoDeHoja();
    const double paso = hoja.height() + separacion;
    const int primera = static_cast<int>(verticalScrollBar()->value() / paso);
    for (int n = std::max(0, primera); n < m_paginas.cantidad(); ++n)
    {
        const double y = separacion + n * paso - verticalScrollBar()->value();
        if (y > viewport()->height())
        {
            break;
        }
        const double x =
            std::max(separacion, (viewport()->width() - hoja.width()) / 2) - horizontalScrollBar()->value();
        pintor.save();
        pintor.translate(x, y);
        pintor.fillRect(QRectF(QPointF(), hoja), Qt::white);
        pintor.setPen(palette().color(QPalette::Dark));
        pintor.drawRect(QRectF(QPointF(), hoja));
        pintor.scale(m_zoom * logicalDpiX() / 72.0, m_zoom * logicalDpiX() / 72.0);
        m_paginas.pintar(pintor, n);
        pintor.restore();
    }
}

void HojasDeInforme::resizeEvent(QResizeEvent* evento)
{
    QAbstractScrollArea::resizeEvent(evento);
    if (m_alAncho)
    {
        ajustarAlAncho();
    }
    else
    {
        ajustarBarras();
    }
}

void HojasDeInforme::wheelEvent(QWheelEvent* evento)
{
    if (evento->modifiers().testFlag(Qt::ControlModifier))
    {
        setZoom(evento->angleDelta().y() > 0 ? m_zoom * pasoDeZoom : m_zoom / pasoDeZoom);
        evento->accept();
        return;
    }
    QAbstractScrollArea::wheelEvent(evento);
}

void HojasDeInforme::keyPressEvent(QKeyEvent* evento)
{
    switch (evento->key())
    {
    case Qt::Key_PageDown:
        irA(hojaActual() + 1);
        break;
    case Qt::Key_PageUp:
        irA(hojaActual() - 1);
        break;
    case Qt::Key_Home:
        irA(0);
        break;
    case Qt::Key_End:
        irA(m_paginas.cantidad() - 1);
        break;
    default:
        QAbstractScrollArea::keyPressEvent(evento);
    }
}

void HojasDeInforme::scrollContentsBy(int, int)
{
    viewport()->update();
    Q_EMIT cambio();
}

VistaDeInforme::VistaDeInforme(PaginasDeInforme paginas, const QString& nombre, QWidget* padre)
    : QMainWindow(padre, Qt::Window)
    , m_hojas(new HojasDeInforme(std::move(paginas), this))
    , m_numero(new QLabel(this))
    , m_nombre(nombre.isEmpty() ? m_hojas->paginas().titulo() : nombre)
{
    setObjectName(QStringLiteral("Informe"));
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle(m_hojas->paginas().titulo());
    setCentralWidget(m_hojas);
    statusBar()->setSizeGripEnabled(false);
    armarBarra();
    connect(m_hojas, &HojasDeInforme::cambio, this, &VistaDeInforme::actualizar);
    const auto* ayuda = new QShortcut(QKeySequence(Qt::Key_F1), this);
    connect(ayuda, &QShortcut::activated, this, [this] { Navegacion::instancia().ayuda(objectName()); });
    resize(1000, 720);
    actualizar();
}

void VistaDeInforme::closeEvent(QCloseEvent* evento)
{
    TrabajoLargo::enCurso() ? evento->ignore() : QMainWindow::closeEvent(evento);
}

void VistaDeInforme::armarBarra()
{
    auto* barra = addToolBar(QStringLiteral("Informe"));
    barra->setObjectName(QStringLiteral("barraInforme"));
    barra->setMovable(false);
    barra->setToolButtonStyle(Qt::ToolButtonIconOnly);
    const auto agregar =
        [&](const char* nombre, const char* texto, const char* icono, const QKeySequence& tecla, auto accion)
    {
        QAction* entrada = barra->addAction(Estilo::icono(QLatin1String(icono)), QString::fromUtf8(texto));
        entrada->setObjectName(QLatin1String(nombre));
        entrada->setShortcut(tecla);
        entrada->setToolTip(entrada->text());
        connect(entrada, &QAction::triggered, this, [accion] { protegido(accion); });
        return entrada;
    };
    // Only what a clerk looks for first carries its caption, so that the bar fits a small screen.
    const auto conTexto = [&](QAction* entrada)
    {
        auto* boton = qobject_cast<QToolButton*>(barra->widgetForAction(entrada));
        boton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    };
    const auto mover = [this](int hojas) { m_hojas->irA(m_hojas->hojaActual() + hojas); };
    conTexto(agregar("cmdImprimir", "Imprimir", "impresora", QKeySequence::Print, [this] { imprimir(); }));
    conTexto(agregar("cmdPagina", "Configurar página", "pagina", {}, [this] { configurarPagina(); }));
    conTexto(agregar("cmdPdf", "Guardar PDF", "pdf", QKeySequence::Save, [this] { pedirPdf(); }));
    QAction* tabla = agregar("cmdExportar", "Exportar", "planilla", {}, [this] { exportar(); });
    tabla->setEnabled(tieneTabla(m_hojas->paginas().contenido()));
    tabla->setToolTip(QStringLiteral("Exportar la tabla para una planilla de cálculo"));
    conTexto(tabla);
    m_hojas->addAction(tabla);
    m_hojas->setContextMenuPolicy(Qt::ActionsContextMenu);
    m_abrir = agregar("cmdAbrir", "Abrir", "examinar", {}, [this] { abrirLoGuardado(); });
    m_abrir->setEnabled(false);
    m_abrir->setToolTip(QStringLiteral("Abrir lo que se guardó"));
    conTexto(m_abrir);
    barra->addSeparator();
    m_primera = agregar("cmdPrimera", "Primera página", "primero", {}, [this] { m_hojas->irA(0); });
    m_anterior = agregar("cmdAnterior", "Página anterior", "anterior", {}, [mover] { mover(-1); });
    barra->addWidget(m_numero);
    m_siguiente = agregar("cmdSiguiente", "Página siguiente", "siguiente", {}, [mover] { mover(1); });
    m_ultima = agregar("cmdUltima", "Última página", "ultimo", {},
                       [this] { m_hojas->irA(m_hojas->paginas().cantidad() - 1); });
    barra->addSeparator();
    agregar("cmdAcercar", "Acercar", "zoom_mas", QKeySequence::ZoomIn,
            [this] { m_hojas->setZoom(m_hojas->zoom() * pasoDeZoom); });
    agregar("cmdAlejar", "Alejar", "zoom_menos", QKeySequence::ZoomOut,
            [this] { m_hojas->setZoom(m_hojas->zoom() / pasoDeZoom); });
    agregar("cmdAncho", "Ancho", "ancho", {}, [this] { m_hojas->ajustarAlAncho(); });
    barra->addSeparator();
    conTexto(agregar("cmdCerrar", "Cerrar", "salir", QKeySequence(Qt::Key_Escape), [this] { close(); }));
}

void VistaDeInforme::actualizar()
{
    const int hoja = m_hojas->hojaActual();
    const int hojas = m_hojas->paginas().cantidad();
    m_numero->setText(QStringLiteral("  Página %1 de %2  ").arg(hoja + 1).arg(hojas));
    m_primera->setEnabled(hoja > 0);
    m_anterior->setEnabled(hoja > 0);
    m_siguiente->setEnabled(hoja + 1 < hojas);
    m_ultima->setEnabled(hoja + 1 < hojas);
}

void VistaDeInforme::pintarEn(QPrinter& impresora, int desde, int hasta, const QString& destino,
                              TrabajoLargo::Cancelable cancelable)
{
    // Only the paper is asked for. The report paints its own margins, and may have smaller ones than the printer.
    QPageLayout pagina = m_hojas->paginas().pagina();
    pagina.setUnits(QPageLayout::Point);
    const QSizeF papel = pagina.fullRect().size();
    const qreal ancho = std::min(papel.width(), papel.height()) / 4; // more than any printer leaves blank
    pagina.setMargins({ancho, ancho, ancho, ancho});
    if (!impresora.setPageLayout(pagina))
    {
        throw ErrorParaAvisar(ErrorDeEjecucion::NoCoincidenTipos,
                              QStringLiteral("La impresora no admite el papel del informe.  Elija otro con "
                                             "\"Configurar página\"."));
    }
    impresora.setFullPage(true);
    impresora.setPageMargins(QMarginsF()); // on Windows they move what is painted on the full page, too
    impresora.setDocName(windowTitle());
    const bool enPapel = cancelable == TrabajoLargo::Cancelable::No;
    TrabajoLargo trabajo(enPapel ? QStringLiteral("Imprimiendo") : QStringLiteral("Guardando el PDF"), cancelable);
    QPainter pintor;
    if (!pintor.begin(&impresora))
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::SinAcceso, destino);
    }
    for (int hoja = desde; hoja <= hasta; ++hoja)
    {
        if (hoja > desde && !impresora.newPage())
        {
            throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::DiscoLleno, destino);
        }
        pintor.save();
        pintor.scale(impresora.logicalDpiX() / 72.0, impresora.logicalDpiY() / 72.0);
        m_hojas->paginas().pintar(pintor, hoja);
        pintor.restore();
        trabajo.avanzar(hoja - desde + 1, hasta - desde + 1);
    }
    if (!pintor.end())
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::DiscoLleno, destino);
    }
}

void VistaDeInforme::guardarPdf(const QString& ruta)
{
    Archivos::Parte parte(ruta);
    QPrinter impresora(QPrinter::HighResolution);
    impresora.setOutputFormat(QPrinter::PdfFormat);
    impresora.setOutputFileName(parte.ruta());
    impresora.setFullPage(true);
    impresora.setCreator(QApplication::applicationName());
    pintarEn(impresora, 0, m_hojas->paginas().cantidad() - 1, ruta, TrabajoLargo::Cancelable::Si);
    if (!estaEntero(parte.ruta()))
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::DiscoLleno, ruta);
    }
    parte.colocar();
}

void VistaDeInforme::pedirPdf()
{
    guardar({QStringLiteral("Guardar PDF"), m_nombre, QStringLiteral("pdf")},
            [this](const QString& ruta) { guardarPdf(ruta); });
}

void VistaDeInforme::exportar()
{
    const auto escribir = [this](const QString& ruta)
    {
        const auto leer = [this]
        {
            TrabajoLargo trabajo(QStringLiteral("Preparando las filas"), TrabajoLargo::Cancelable::Si);
            return filasDeTablas(m_hojas->paginas().contenido(), trabajo.aviso());
        };
        const planilla::Tabla filas = leer();
        TrabajoLargo trabajo(QStringLiteral("Exportando"), TrabajoLargo::Cancelable::Si);
        planilla::escribir(ruta, filas, trabajo.aviso());
    };
    guardar(pedidoDePlanilla(QStringLiteral("Exportar"), m_nombre), escribir);
}

void VistaDeInforme::guardar(const PedidoDeGuardado& pedido, const std::function<void(const QString&)>& escribir)
{
    const QString ruta = GuardarEnArchivo(pedido, escribir);
    if (ruta.isEmpty())
    {
        return;
    }
    m_guardado = ruta;
    m_abrir->setEnabled(true);
    statusBar()->showMessage(QStringLiteral("Guardado en ") + QDir::toNativeSeparators(ruta));
}

void VistaDeInforme::abrirLoGuardado()
{
    if (!AbrirEnlace(m_guardado))
    {
        MsgBox(QStringLiteral("No se pudo abrir '%1'.").arg(QDir::toNativeSeparators(m_guardado)), Caja::Exclamacion);
    }
}

void VistaDeInforme::imprimir()
{
    PedidoDeImpresion pedido;
    if (!PedirImpresion(m_hojas->paginas().cantidad(), pedido))
    {
        return;
    }
    QPrinter& impresora = impresoraActual();
    try
    {
        pintarEn(impresora, pedido.desde - 1, pedido.hasta - 1, impresora.outputFileName(),
                 TrabajoLargo::Cancelable::No);
    }
    catch (const ErrorParaAvisar&)
    {
        throw;
    }
    catch (const ErrorDeEjecucion& error)
    {
        decirErrorDeArchivo(error);
    }
}

void VistaDeInforme::configurarPagina()
{
    QPageLayout pagina = m_hojas->paginas().pagina();
    if (PedirPagina(pagina))
    {
        try
        {
            TrabajoLargo trabajo(QStringLiteral("Preparando el informe"), TrabajoLargo::Cancelable::Si);
            m_hojas->paginas().setPagina(pagina, trabajo.aviso());
        }
        catch (const ErrorDeEjecucion& error)
        {
            MsgBox(error.descripcion());
        }
        m_hojas->rehacer();
    }
}
