#include "ui/look/visor_ayuda.h"

#include "ui/look/estilo.h"

#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QRegularExpression>
#include <QScrollBar>
#include <QShortcut>
#include <QSplitter>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <utility>

namespace
{
/// Lower case and without accents, so that "numero" finds "número"; each character stays in its place.
QString plegado(const QString& texto)
{
    QString salida = texto.normalized(QString::NormalizationForm_C).toLower();
    for (QChar& c : salida)
    {
        if (c.decompositionTag() == QChar::Canonical)
        {
            c = c.decomposition().front();
        }
    }
    return salida;
}

QStringList palabras(const QString& texto)
{
    return plegado(texto).split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

QString leer(const QString& ruta)
{
    QFile archivo(ruta);
    return archivo.open(QIODevice::ReadOnly) ? QString::fromUtf8(archivo.readAll()) : QString();
}

/// The look of the pages, without its colours where they are the user's.
QString hojaDeEstilo(const QString& carpeta)
{
    static const QRegularExpression color(QStringLiteral("[a-z-]*color:[^;}]*;?"));
    QString hoja = leer(carpeta + QStringLiteral("/estilo.css"));
    if (Estilo::deAltoContraste())
    {
        hoja.remove(color);
    }
    return hoja;
}

constexpr int margen = 18;
constexpr int aireDeRetrato = 8;
constexpr QColor fondoDeMarca(255, 240, 150);

/// Pages show what lies in their folder and nothing else; a picture wider than the page is made to fit.
class HojaDeAyuda : public QTextBrowser
{
public:
    HojaDeAyuda(QString carpeta, std::function<void()> alCambiarAncho, QWidget* padre)
        : QTextBrowser(padre)
        , m_carpeta(std::move(carpeta))
        , m_alCambiarAncho(std::move(alCambiarAncho))
    {
    }

protected:
    void resizeEvent(QResizeEvent* evento) override
    {
        QTextBrowser::resizeEvent(evento);
        if (std::exchange(m_ancho, width()) != width()) // the bar that comes and goes is no change
        {
            m_alCambiarAncho();
        }
    }
    QVariant loadResource(int tipo, const QUrl& nombre) override
    {
        const QString archivo = nombre.path();
        if (tipo != QTextDocument::ImageResource || archivo.contains(QLatin1String("..")) || !nombre.scheme().isEmpty())
        {
            return {};
        }
        const QImage imagen(m_carpeta + QLatin1Char('/') + archivo);
        const int ancho = std::max(1, width() - 2 * (frameWidth() + margen) - verticalScrollBar()->sizeHint().width() -
                                          aireDeRetrato);
        return imagen.width() > ancho ? imagen.scaledToWidth(ancho, Qt::SmoothTransformation) : imagen;
    }

private:
    QString m_carpeta;
    std::function<void()> m_alCambiarAncho;
    int m_ancho = 0;
};
} // namespace

void VisorDeAyuda::abrir(const QString& carpeta, const QString& pagina)
{
    static QPointer<VisorDeAyuda> visor;
    if (visor.isNull())
    {
        visor = new VisorDeAyuda(carpeta);
        visor->setAttribute(Qt::WA_DeleteOnClose);
    }
    // Over a dialog it belongs to it: another window would get no click, nor be seen past, until the dialog closes.
    QWidget* dialogo = QApplication::activeModalWidget();
    if (dialogo != visor && visor->parentWidget() != dialogo)
    {
        visor->setParent(dialogo, Qt::Window);
    }
    visor->mostrar(pagina);
    visor->showMaximized();
    visor->m_hoja->setFocus();
    visor->raise();
    visor->activateWindow();
}

VisorDeAyuda::VisorDeAyuda(const QString& carpeta, QWidget* padre)
    : QMainWindow(padre, Qt::Window)
    , m_carpeta(carpeta)
    , m_busqueda(new QLineEdit(this))
    , m_sinResultado(new QLabel(this))
    , m_contenido(new QListWidget(this))
    , m_hoja(new HojaDeAyuda(
          carpeta, [this] { mostrarDeNuevo(); }, this))
{
    setObjectName(QStringLiteral("Ayuda"));
    setWindowTitle(QApplication::applicationName() + QStringLiteral(" - Ayuda"));
    leerContenido();
    armar();
    buscar(QString());
}

void VisorDeAyuda::leerContenido()
{
    for (const QString& linea : leer(m_carpeta + QStringLiteral("/contenido.txt")).split(QLatin1Char('\n')))
    {
        const qsizetype barra = linea.indexOf(QLatin1Char('|'));
        if (barra > 0)
        {
            const QString archivo = linea.left(barra).trimmed();
            const QString html = leer(m_carpeta + QLatin1Char('/') + archivo + QStringLiteral(".html"));
            m_paginas.push_back({archivo, linea.mid(barra + 1).trimmed(),
                                 plegado(QTextDocumentFragment::fromHtml(html).toPlainText())});
        }
    }
}

void VisorDeAyuda::armar()
{
    m_busqueda->setObjectName(QStringLiteral("txtBuscar"));
    m_busqueda->setPlaceholderText(QStringLiteral("Buscar en la ayuda"));
    m_busqueda->setAccessibleName(m_busqueda->placeholderText());
    m_busqueda->setClearButtonEnabled(true);
    m_contenido->setObjectName(QStringLiteral("lstContenido"));
    m_contenido->setSpacing(2);
    m_contenido->setAccessibleName(QStringLiteral("Contenido de la ayuda"));
    m_hoja->setObjectName(QStringLiteral("txtPagina"));
    m_hoja->setAccessibleName(QStringLiteral("Página de ayuda"));
    m_hoja->setOpenLinks(false);
    m_hoja->document()->setDocumentMargin(margen);
    m_hoja->document()->setDefaultStyleSheet(hojaDeEstilo(m_carpeta));
    m_sinResultado->setObjectName(QStringLiteral("lblSinResultado"));
    m_sinResultado->setWordWrap(true);

    auto* lado = new QWidget(this);
    auto* columna = new QVBoxLayout(lado);
    columna->addWidget(m_busqueda);
    columna->addWidget(m_sinResultado);
    columna->addWidget(m_contenido);
    auto* partes = new QSplitter(this);
    partes->setAccessibleName(QStringLiteral("Contenido y página"));
    partes->addWidget(lado);
    partes->addWidget(m_hoja);
    partes->setStretchFactor(1, 1);
    partes->setSizes({280, 740});
    setCentralWidget(partes);
    resize(1000, 700);

    connect(m_busqueda, &QLineEdit::textChanged, this, &VisorDeAyuda::buscar);
    connect(m_contenido, &QListWidget::currentItemChanged, this,
            [this](QListWidgetItem* elegida)
            {
                if (elegida != nullptr)
                {
                    mostrar(elegida->data(Qt::UserRole).toString());
                }
            });
    connect(m_hoja, &QTextBrowser::anchorClicked, this,
            [this](const QUrl& enlace)
            {
                m_anteriores << m_pagina;
                mostrar(enlace.path().remove(QStringLiteral(".html")));
            });
    for (const QKeySequence& tecla : {QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Backspace)})
    {
        auto* volverAtras = new QShortcut(tecla, m_hoja, nullptr, nullptr, Qt::WidgetShortcut);
        connect(volverAtras, &QShortcut::activated, this, &VisorDeAyuda::volver);
    }
    auto* cerrar = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(cerrar, &QShortcut::activated, this, &QWidget::close);
    auto* irABuscar = new QShortcut(QKeySequence::Find, this);
    connect(irABuscar, &QShortcut::activated, m_busqueda, qOverload<>(&QWidget::setFocus));
}

void VisorDeAyuda::buscar(const QString& texto)
{
    const QStringList buscadas = palabras(texto);
    const QSignalBlocker quieto(m_contenido);
    m_contenido->clear();
    for (const Pagina& pagina : m_paginas)
    {
        const QString donde = plegado(pagina.titulo) + QLatin1Char(' ') + pagina.texto;
        if (std::all_of(buscadas.cbegin(), buscadas.cend(), [&](const QString& p) { return donde.contains(p); }))
        {
            auto* entrada = new QListWidgetItem(pagina.titulo, m_contenido);
            entrada->setData(Qt::UserRole, pagina.archivo);
        }
    }
    m_sinResultado->setText(QStringLiteral("Ninguna página contiene «%1».").arg(texto.trimmed()));
    m_sinResultado->setVisible(m_contenido->count() == 0 && !buscadas.isEmpty());
    marcarEnContenido();
    resaltar();
}

void VisorDeAyuda::mostrar(const QString& pedida)
{
    const QString primera = m_paginas.empty() ? QStringLiteral("inicio") : m_paginas.front().archivo;
    const QString pagina = pedida.isEmpty() ? primera : pedida;
    const auto hallada =
        std::find_if(m_paginas.begin(), m_paginas.end(),
                     [&](const Pagina& p) { return p.archivo.compare(pagina, Qt::CaseInsensitive) == 0; });
    m_pagina = hallada == m_paginas.end() ? pagina : hallada->archivo;
    const QString html = hallada == m_paginas.end()
                             ? QString()
                             : leer(m_carpeta + QLatin1Char('/') + hallada->archivo + QStringLiteral(".html"));
    if (html.isEmpty())
    {
        m_hoja->setPlainText(QStringLiteral("No se encuentra la página de ayuda «%1».").arg(pagina));
    }
    else
    {
        m_hoja->setHtml(html);
    }
    marcarEnContenido();
    resaltar();
}

void VisorDeAyuda::volver()
{
    if (!m_anteriores.isEmpty())
    {
        mostrar(m_anteriores.takeLast());
    }
}

void VisorDeAyuda::marcarEnContenido()
{
    const QSignalBlocker quieto(m_contenido);
    m_contenido->setCurrentItem(nullptr);
    for (int i = 0; i < m_contenido->count(); ++i)
    {
        if (m_contenido->item(i)->data(Qt::UserRole).toString() == m_pagina)
        {
            m_contenido->setCurrentRow(i);
        }
    }
}

void VisorDeAyuda::mostrarDeNuevo()
{
    const int lugar = m_hoja->verticalScrollBar()->value();
    mostrar(m_pagina);
    m_hoja->verticalScrollBar()->setValue(lugar);
}

void VisorDeAyuda::resaltar()
{
    QList<QTextEdit::ExtraSelection> marcas;
    const QStringList buscadas = palabras(m_busqueda->text());
    for (QTextBlock parrafo = m_hoja->document()->begin(); parrafo.isValid(); parrafo = parrafo.next())
    {
        const QString texto = plegado(parrafo.text());
        for (const QString& palabra : buscadas)
        {
            for (qsizetype i = texto.indexOf(palabra); i != -1; i = texto.indexOf(palabra, i + palabra.size()))
            {
                QTextEdit::ExtraSelection marca;
                marca.cursor = QTextCursor(parrafo);
                marca.cursor.setPosition(parrafo.position() + static_cast<int>(i));
                marca.cursor.setPosition(parrafo.position() + static_cast<int>(i + palabra.size()),
                                         QTextCursor::KeepAnchor);
                if (Estilo::deAltoContraste())
                {
                    marca.format.setBackground(palette().highlight());
                    marca.format.setForeground(palette().highlightedText());
                }
                else
                {
                    marca.format.setBackground(fondoDeMarca);
                }
                marcas.push_back(marca);
            }
        }
    }
    m_hoja->setExtraSelections(marcas);
}
