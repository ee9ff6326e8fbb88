#include "ui/look/estilo.h"

#include "ui/look/iconos.h"

#include <QAbstractButton>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPainter>
#include <QProxyStyle>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTabBar>
#include <QTranslator>
#include <algorithm>

// Outside every namespace, as Qt wants it: a static library's resources are linked in by this call.
static void traerRecursos()
{
    Q_INIT_RESOURCE(dibujos);
    Q_INIT_RESOURCE(estilo);
    Q_INIT_RESOURCE(traduccion);
}

namespace
{
constexpr QColor colorDeAcento{0x1f, 0x5f, 0x8b};
constexpr QColor pizarra{0x2f, 0x3e, 0x4a};
constexpr QColor rojoOscuro{0x9b, 0x1c, 0x1c};
constexpr QColor letra{0x1b, 0x24, 0x2c};
constexpr QColor letraApagada{0x5b, 0x65, 0x6e};
constexpr QColor fondoVentana{0xf3, 0xf5, 0xf7};
constexpr QColor fondoApagado{0xe2, 0xe6, 0xe9};

constexpr QColor ocre{0x8a, 0x5a, 0x00};

bool coloresDelUsuario = false; ///< of high contrast, in the place of the program's

/// A drawing of a button.
QIcon dibujo(const QString& nombre, QColor trazo, QColor detalle)
{
    if (coloresDelUsuario)
    {
        trazo = detalle = QApplication::palette().color(QPalette::ButtonText);
    }
    return iconoDeTrazos(nombre, trazo, detalle);
}

/// Fusion, with the program's own drawings in the message boxes.
class EstiloDelPrograma : public QProxyStyle
{
public:
    EstiloDelPrograma()
        : QProxyStyle(QStringLiteral("Fusion"))
    {
    }

    QIcon standardIcon(StandardPixmap cual, const QStyleOption* opcion, const QWidget* control) const override
    {
        switch (cual)
        {
        case SP_MessageBoxQuestion:
            return dibujo(QStringLiteral("ayuda"), colorDeAcento, colorDeAcento);
        case SP_MessageBoxInformation:
            return dibujo(QStringLiteral("acerca"), colorDeAcento, colorDeAcento);
        case SP_MessageBoxWarning:
            return dibujo(QStringLiteral("advertencia"), ocre, ocre);
        case SP_MessageBoxCritical:
            return dibujo(QStringLiteral("cancelar"), rojoOscuro, rojoOscuro);
        case SP_DialogYesButton:
        case SP_DialogOkButton:
            return dibujo(QStringLiteral("aceptar"), pizarra, colorDeAcento);
        case SP_DialogNoButton:
        case SP_DialogCancelButton:
            return dibujo(QStringLiteral("cancelar"), pizarra, colorDeAcento);
        default:
            return QProxyStyle::standardIcon(cual, opcion, control);
        }
    }

    void drawPrimitive(PrimitiveElement cual, const QStyleOption* opcion, QPainter* pintor,
                       const QWidget* control) const override
    {
        // A tab with the focus has a border; the rectangle of the style would go through its caption.
        if (cual != PE_FrameFocusRect || qobject_cast<const QTabBar*>(control) == nullptr)
        {
            QProxyStyle::drawPrimitive(cual, opcion, pintor, control);
        }
        const bool conMarco = cual == PE_FrameLineEdit || cual == PE_PanelButtonCommand || cual == PE_Frame;
        if (conMarco && coloresDelUsuario)
        {
            enmarcar(*opcion, *pintor);
        }
    }

    void drawComplexControl(ComplexControl cual, const QStyleOptionComplex* opcion, QPainter* pintor,
                            const QWidget* control) const override
    {
        QProxyStyle::drawComplexControl(cual, opcion, pintor, control);
        if (cual == CC_ComboBox && coloresDelUsuario)
        {
            enmarcar(*opcion, *pintor);
        }
    }

private:
    /// The frames of the style are a darker shade of the window's colour: on black nothing of them is seen.
    static void enmarcar(const QStyleOption& opcion, QPainter& pintor)
    {
        const bool conFoco = opcion.state.testFlag(State_HasFocus);
        const int grueso = conFoco ? 2 : 1;
        pintor.save();
        pintor.setBrush(Qt::NoBrush);
        for (int borde = 0; borde < grueso; ++borde)
        {
            pintor.setPen(opcion.palette.color(conFoco ? QPalette::Highlight : QPalette::WindowText));
            pintor.drawRect(opcion.rect.adjusted(borde, borde, -borde - 1, -borde - 1));
        }
        pintor.restore();
    }
};

void marcar(QWidget* control, const char* propiedad, bool si = true)
{
    control->setProperty(propiedad, si);
    control->style()->unpolish(control);
    control->style()->polish(control);
}

/// Keeps a warning's icon beside its label, wherever the label stands and whatever it says.
class IconoDeAdvertencia : public QObject
{
public:
    explicit IconoDeAdvertencia(QLabel* etiqueta)
        : QObject(etiqueta)
        , m_etiqueta(etiqueta)
        , m_icono(dibujo(QStringLiteral("advertencia"), rojoOscuro, rojoOscuro))
    {
        etiqueta->installEventFilter(this);
        etiqueta->setContentsMargins(lado() + 6, 0, 0, 0);
    }

    bool eventFilter(QObject* objeto, QEvent* evento) override
    {
        if (objeto == m_etiqueta && evento->type() == QEvent::Paint)
        {
            m_etiqueta->removeEventFilter(this);
            QCoreApplication::sendEvent(m_etiqueta, evento);
            m_etiqueta->installEventFilter(this);
            if (!m_etiqueta->text().isEmpty())
            {
                QPainter pintor(m_etiqueta);
                const QRect zona = m_etiqueta->rect();
                m_icono.paint(&pintor, QRect(0, (zona.height() - lado()) / 2, lado(), lado()));
            }
            return true;
        }
        return false;
    }

private:
    [[nodiscard]] int lado() const { return m_etiqueta->fontMetrics().height() + 2; }

    QLabel* m_etiqueta;
    QIcon m_icono;
};

/// An amount that is wider than its field is shown in smaller figures: one that is cut reads as another amount.
class CifraEntera : public QObject
{
public:
    explicit CifraEntera(QLineEdit* campo)
        : QObject(campo)
        , m_campo(campo)
        , m_letra(campo->font())
    {
        campo->installEventFilter(this);
        connect(campo, &QLineEdit::textChanged, this, &CifraEntera::ajustar);
    }

    bool eventFilter(QObject*, QEvent* evento) override
    {
        if (evento->type() == QEvent::Resize || evento->type() == QEvent::Show)
        {
            ajustar();
        }
        return false;
    }

private:
    void ajustar()
    {
        constexpr int margenDelTexto = 3; // the line edit's own, and the cursor
        QStyleOptionFrame opcion;
        opcion.initFrom(m_campo);
        const int hay = m_campo->style()->subElementRect(QStyle::SE_LineEditContents, &opcion, m_campo).width() -
                        2 * margenDelTexto;
        const int pide = QFontMetrics(m_letra).horizontalAdvance(m_campo->displayText());
        QFont figuras = m_letra;
        if (pide > hay && hay > 0)
        {
            figuras.setPixelSize(std::max(1, QFontInfo(m_letra).pixelSize() * hay / pide));
        }
        m_campo->setFont(figuras);
    }

    QLineEdit* m_campo;
    QFont m_letra;
};

void vestirBoton(QWidget* boton, const QString& icono, const char* marca)
{
    traerRecursos();
    auto* pulsable = qobject_cast<QAbstractButton*>(boton);
    if (pulsable == nullptr)
    {
        return;
    }
    const int lado = pulsable->fontMetrics().height() + 3;
    pulsable->setIconSize(QSize(lado, lado));
    pulsable->setIcon(marca != nullptr ? dibujo(icono, Qt::white, Qt::white) : Estilo::icono(icono));
    if (marca != nullptr)
    {
        marcar(pulsable, marca);
    }
}
} // namespace

QPalette Estilo::paleta()
{
    QPalette p;
    p.setColor(QPalette::Window, fondoVentana);
    p.setColor(QPalette::WindowText, letra);
    p.setColor(QPalette::Base, Qt::white);
    p.setColor(QPalette::AlternateBase, QColor(0xf7, 0xf9, 0xfa));
    p.setColor(QPalette::Text, letra);
    p.setColor(QPalette::Button, QColor(0xee, 0xf1, 0xf4));
    p.setColor(QPalette::ButtonText, letra);
    p.setColor(QPalette::BrightText, rojoOscuro);
    p.setColor(QPalette::Highlight, colorDeAcento);
    p.setColor(QPalette::HighlightedText, Qt::white);
    p.setColor(QPalette::Link, colorDeAcento);
    p.setColor(QPalette::LinkVisited, QColor(0x5a, 0x3f, 0x7d));
    p.setColor(QPalette::ToolTipBase, QColor(0xff, 0xfb, 0xe6));
    p.setColor(QPalette::ToolTipText, letra);
    p.setColor(QPalette::PlaceholderText, letraApagada);
    p.setColor(QPalette::Light, Qt::white);
    p.setColor(QPalette::Midlight, QColor(0xe9, 0xee, 0xf2));
    p.setColor(QPalette::Mid, QColor(0xb9, 0xc4, 0xcd));
    p.setColor(QPalette::Dark, QColor(0x87, 0x95, 0xa1));
    p.setColor(QPalette::Shadow, QColor(0x5b, 0x65, 0x6e));
    for (const auto papel : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    {
        p.setColor(QPalette::Disabled, papel, letraApagada);
    }
    p.setColor(QPalette::Disabled, QPalette::Base, fondoApagado);
    p.setColor(QPalette::Disabled, QPalette::Button, fondoApagado);
    p.setColor(QPalette::Disabled, QPalette::Highlight, QColor(0xc3, 0xca, 0xd0));
    p.setColor(QPalette::Disabled, QPalette::HighlightedText, letra);
    return p;
}

void Estilo::aplicar(QApplication& aplicacion, bool delUsuario)
{
    traerRecursos();
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
    auto* textos = new QTranslator(&aplicacion);
    if (textos->load(QStringLiteral(":/traduccion/qtbase_es.qm")))
    {
        QCoreApplication::installTranslator(textos);
    }
    coloresDelUsuario = delUsuario;
    QApplication::setStyle(new EstiloDelPrograma);
    QFile hoja(QStringLiteral(":/estilo/estilo.css"));
    if (!coloresDelUsuario && hoja.open(QIODevice::ReadOnly))
    {
        QApplication::setPalette(paleta());
    }
    aplicacion.setStyleSheet(QString::fromUtf8(hoja.isOpen() ? hoja.readAll() : QByteArray()));
    QApplication::setWindowIcon(iconoDelPrograma());
}

bool Estilo::deAltoContraste()
{
    return coloresDelUsuario;
}

QIcon Estilo::icono(const QString& nombre)
{
    traerRecursos();
    return dibujo(nombre, pizarra, colorDeAcento);
}

QIcon Estilo::iconoDelPrograma()
{
    traerRecursos();
    QIcon icono;
    for (const int lado : {16, 20, 24, 32, 40, 48, 64, 128, 256})
    {
        icono.addPixmap(QPixmap(QStringLiteral(":/imagenes/altoverde_%1.png").arg(lado)));
    }
    return icono;
}

void Estilo::boton(QWidget* boton, const QString& icono, bool principal)
{
    vestirBoton(boton, icono, principal ? "principal" : nullptr);
}

void Estilo::botonPeligroso(QWidget* boton, const QString& icono)
{
    vestirBoton(boton, icono, "peligro");
}

void Estilo::soloMuestra(std::initializer_list<QLineEdit*> campos)
{
    for (QLineEdit* campo : campos)
    {
        campo->setReadOnly(true);
        campo->setFocusPolicy(Qt::ClickFocus);
        marcar(campo, "soloMuestra");
    }
}

void Estilo::advertencia(QWidget* etiqueta)
{
    traerRecursos();
    marcar(etiqueta, "advertencia");
    if (auto* rotulo = qobject_cast<QLabel*>(etiqueta))
    {
        new IconoDeAdvertencia(rotulo);
    }
}

void Estilo::atencion(QWidget* etiqueta, bool pide)
{
    if (etiqueta->property("atencion").toBool() != pide)
    {
        marcar(etiqueta, "atencion", pide);
    }
}

void Estilo::importe(QWidget* campo)
{
    if (auto* linea = qobject_cast<QLineEdit*>(campo))
    {
        linea->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        new CifraEntera(linea);
    }
    else if (auto* rotulo = qobject_cast<QLabel*>(campo))
    {
        rotulo->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    }
}

void Estilo::pintarFondo(QPainter& pintor, const QRect& zona)
{
    traerRecursos();
    static QImage imagen; // scaled once a size
    const qreal densidad = pintor.device()->devicePixelRatioF();
    const QSize pixeles = (QSizeF(zona.size()) * densidad).toSize();
    if (imagen.size() != pixeles && !pixeles.isEmpty())
    {
        const QImage lleno = QImage(QStringLiteral(":/imagenes/fondo.png"))
                                 .convertToFormat(QImage::Format_RGB32)
                                 .scaled(pixeles, Qt::KeepAspectRatioByExpanding, Qt::SmoothTransformation);
        imagen = lleno.copy(QRect({(lleno.width() - pixeles.width()) / 2, lleno.height() - pixeles.height()}, pixeles));
    }
    pintor.drawImage(zona, imagen);
}
