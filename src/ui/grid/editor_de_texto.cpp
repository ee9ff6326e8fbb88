#include "ui/grid/editor_de_texto.h"

#include "ui/doors/anuncio.h"

#include <QKeyEvent>
#include <QValidator>
#include <algorithm>

namespace
{
/// Lets only some characters in, whether typed or pasted: the others are dropped. Refused is a paste of several cells
/// or of less than nothing, which without the signs that tell so would read as another value.
class FiltroDeCelda : public QValidator
{
public:
    FiltroDeCelda(QString admitidos, QObject* padre)
        : QValidator(padre)
        , m_admitidos(std::move(admitidos))
    {
    }
    State validate(QString& texto, int& cursor) const override
    {
        const QString recortado = texto.trimmed();
        if (std::any_of(recortado.cbegin(), recortado.cend(),
                        [](QChar c) { return c < u' ' || c == u'-' || c == u'('; }))
        {
            return Invalid;
        }
        for (qsizetype i = texto.size(); i-- > 0;)
        {
            if (!m_admitidos.contains(texto[i]))
            {
                texto.remove(i, 1);
                cursor -= i < cursor ? 1 : 0;
            }
        }
        return Acceptable;
    }

private:
    QString m_admitidos;
};
} // namespace

bool escribe(const QKeyEvent& evento)
{
    const Qt::KeyboardModifiers mando = evento.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool altGr = mando == (Qt::ControlModifier | Qt::AltModifier); // as Windows tells it
    return (mando == Qt::NoModifier || altGr) && !evento.text().isEmpty() && evento.text().at(0).isPrint();
}

EditorDeTexto::EditorDeTexto(ColumnaDeGrilla columna, QWidget* padre)
    : QLineEdit(padre)
    , m_columna(std::move(columna))
{
    setFrame(false);
    // The toolkit takes a text of which its validator has dropped something for one that the program has set.
    connect(this, &QLineEdit::textEdited, this, [this] { setModified(true); });
    switch (m_columna.clase)
    {
    case ColumnaDeGrilla::Texto:
        if (m_columna.maximo > 0)
        {
            setMaxLength(int(m_columna.maximo));
        }
        break;
    case ColumnaDeGrilla::Entero:
    case ColumnaDeGrilla::Decimal:
        setValidator(new FiltroDeCelda(admitidosEnCelda(m_columna), this));
        setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        break;
    case ColumnaDeGrilla::Fecha:
        setInputMask(QStringLiteral("00/00/0000;_"));
        break;
    default:
        break;
    }
}

void EditorDeTexto::keyPressEvent(QKeyEvent* evento)
{
    const QString escrito = evento->text();
    if (m_columna.clase == ColumnaDeGrilla::Decimal && escrito == QLatin1String("."))
    {
        insert(QStringLiteral(","));
        setModified(true);
        return;
    }
    if (escribe(*evento) && !admiteEnCelda(m_columna, escrito.at(0)))
    {
        anunciar(noEntraEnCelda(m_columna, escrito));
        return;
    }
    QLineEdit::keyPressEvent(evento);
}
