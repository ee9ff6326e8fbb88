#include "platform/screens/visor_ayuda.h"

#include <QFile>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QShortcut>
#include <QSplitter>
#include <QTextBrowser>
#include <QTextDocumentFragment>
#include <QVBoxLayout>
#include <algorithm>

namespace
{
/// Lower case and without accents, so that "numero" finds "número".
QString plegado(const QString& texto)
{
    QString salida;
    for (const QChar c : texto.normalized(QString::NormalizationForm_D).toLower())
    {
        if (c.category() != QChar::Mark_NonSpacing)
        {
            salida += c;
        }
    }
    return salida;
}

QString leer(const QString& ruta)
{
    QFile archivo(ruta);
    return archivo.open(QIODevice::ReadOnly) ? QString::fromUtf8(archivo.readAll()) : QString();
}

/// Pages show what lies in their folder and nothing else.
class HojaDeAyuda : public QTextBrowser
{
public:
    HojaDeAyuda(QString carpeta, QWidget* padre)
        : QTextBrowser(padre)
        , m_carpeta(std::move(carpeta))
    {
    }

protected:
    QVariant loadResource(int tipo, const QUrl& nombre) override
    {
        const QString archivo = nombre.path();
        if (tipo != QTextDocument::ImageResource || archivo.contains(QLatin1String("..")) || !nombre.scheme().isEmpty())
        {
            return {};
        }
        return QImage(m_carpeta + QLatin1Char('/') + archivo);
    }

private:
    QString m_carpeta;
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
    visor->mostrar(pagina);
    visor->showMaximized();
    visor->raise();
    visor->activateWindow();
}

VisorDeAyuda::VisorDeAyuda(const QString& carpeta, QWidget* padre)
    : QMainWindow(padre, Qt::Window)
    , m_carpeta(carpeta)
    , m_busqueda(new QLineEdit(this))
    , m_contenido(new QListWidget(this))
    , m_hoja(new HojaDeAyuda(carpeta, this))
{
    setObjectName(QStringLiteral("Ayuda"));
    setWindowTitle(QStringLiteral("Altoverde - Ayuda"));
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
    m_contenido->setAccessibleName(QStringLiteral("Contenido de la ayuda"));
    m_hoja->setObjectName(QStringLiteral("txtPagina"));
    m_hoja->setAccessibleName(QStringLiteral("Página de ayuda"));
    m_hoja->setOpenLinks(false);

    auto* lado = new QWidget(this);
    auto* columna = new QVBoxLayout(lado);
    columna->addWidget(m_busqueda);
    columna->addWidget(m_contenido);
    auto* partes = new QSplitter(this);
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
            [this](const QUrl& enlace) { mostrar(enlace.path().remove(QStringLiteral(".html"))); });
    auto* cerrar = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    connect(cerrar, &QShortcut::activated, this, &QWidget::close);
    auto* irABuscar = new QShortcut(QKeySequence::Find, this);
    connect(irABuscar, &QShortcut::activated, m_busqueda, qOverload<>(&QWidget::setFocus));
}

void VisorDeAyuda::buscar(const QString& texto)
{
    const QStringList palabras = plegado(texto).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    const QSignalBlocker quieto(m_contenido);
    m_contenido->clear();
    for (const Pagina& pagina : m_paginas)
    {
        const QString donde = plegado(pagina.titulo) + QLatin1Char(' ') + pagina.texto;
        if (std::all_of(palabras.cbegin(), palabras.cend(), [&](const QString& p) { return donde.contains(p); }))
        {
            auto* entrada = new QListWidgetItem(pagina.titulo, m_contenido);
            entrada->setData(Qt::UserRole, pagina.archivo);
        }
    }
    resaltar();
}

void VisorDeAyuda::mostrar(const QString& pedida)
{
    const QString pagina = pedida.isEmpty() && !m_paginas.empty() ? m_paginas.front().archivo : pedida;
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
    const QSignalBlocker quieto(m_contenido);
    for (int i = 0; i < m_contenido->count(); ++i)
    {
        if (m_contenido->item(i)->data(Qt::UserRole).toString() == m_pagina)
        {
            m_contenido->setCurrentRow(i);
        }
    }
    resaltar();
}

void VisorDeAyuda::resaltar()
{
    QList<QTextEdit::ExtraSelection> marcas;
    const QString texto = m_busqueda->text().trimmed();
    for (QTextCursor lugar = m_hoja->document()->find(texto); !texto.isEmpty() && !lugar.isNull();
         lugar = m_hoja->document()->find(texto, lugar))
    {
        QTextEdit::ExtraSelection marca;
        marca.cursor = lugar;
        marca.format.setBackground(QColor(255, 240, 150));
        marcas.push_back(marca);
    }
    m_hoja->setExtraSelections(marcas);
}
