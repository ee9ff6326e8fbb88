#include "ui/fields/campo_mascara.h"

#include "base/digitos.h"
#include "ui/doors/anuncio.h"
#include "ui/fields/filtro_de_entrada.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QRegularExpression>
#include <QStyleOptionFrame>
#include <algorithm>

namespace
{
QString digitosDe(const QString& texto)
{
    QString digitos;
    std::copy_if(texto.begin(), texto.end(), std::back_inserter(digitos), [](QChar c) { return esDigito(c); });
    return digitos;
}

/// The digits of a pasted date, day and month with two of them each: "1/2/1970" is 01021970.
QString digitosDeFecha(const QString& texto)
{
    QString barras = texto.trimmed();
    barras.replace(QLatin1Char('-'), QLatin1Char('/')).replace(QLatin1Char('.'), QLatin1Char('/'));
    QStringList partes = barras.split(QLatin1Char('/'));
    if (partes.size() == 3)
    {
        partes[0] = partes[0].rightJustified(2, QLatin1Char('0'));
        partes[1] = partes[1].rightJustified(2, QLatin1Char('0'));
    }
    return digitosDe(partes.join(QString()));
}

/// Digits and the separators of both masks, of whatever kind the source writes them.
QString limpio(const QString& texto, QChar separador)
{
    QString resultado;
    for (const QChar letra : texto.trimmed())
    {
        if (esDigito(letra) || letra == QLatin1Char('_'))
        {
            resultado += letra;
        }
        else if (letra == QLatin1Char('-') || letra == QLatin1Char('/') || letra == QLatin1Char('.'))
        {
            resultado += separador;
        }
    }
    return resultado;
}
} // namespace

CampoMascara::CampoMascara(QWidget* padre)
    : QLineEdit(padre)
{
    setClase(Cuit);
    setInputMethodHints(Qt::ImhDigitsOnly);
    new FiltroDeEntrada(
        this, [](QChar letra) { return esDigito(letra) ? letra : QChar(); },
        [this](QLineEdit*, const QString& texto) { pegar(texto); });
}

void CampoMascara::setClase(Clase clase)
{
    m_clase = clase;
    setInputMask(clase == Cuit ? QStringLiteral("00-00000000-0;_") : QStringLiteral("00/00/0000;_"));
}

QString CampoMascara::text() const
{
    return displayText();
}

void CampoMascara::setText(const QString& conMascara)
{
    QLineEdit::setText(limpio(conMascara, m_clase == Cuit ? QLatin1Char('-') : QLatin1Char('/')));
}

QString CampoMascara::soloDigitos() const
{
    return digitosDe(displayText());
}

bool CampoMascara::vacio() const
{
    return soloDigitos().isEmpty();
}

void CampoMascara::limpiar()
{
    clear();
    setCursorPosition(0);
}

void CampoMascara::setFecha(QDate fecha)
{
    setText(fecha.isValid() ? fecha.toString(QStringLiteral("dd/MM/yyyy")) : QString());
}

void CampoMascara::setFechaConGuiones(bool con)
{
    m_guiones = con;
    update();
}

/// A whole value replaces what stands in the field, wherever the cursor is; a part of one goes in at the cursor.
void CampoMascara::pegar(const QString& texto)
{
    if (isReadOnly())
    {
        return;
    }
    const QString digitos = m_clase == Fecha ? digitosDeFecha(texto) : digitosDe(texto);
    const bool entero = m_clase == Cuit ? digitos.size() == 11 : digitos.size() == 8 || digitos.size() == 6;
    if (entero)
    {
        clear();
        setCursorPosition(0);
    }
    insert(digitos);
}

int CampoMascara::finDeLoEscrito() const
{
    const QString visible = displayText();
    const auto ultimo = std::find_if(visible.rbegin(), visible.rend(), [](QChar c) { return esDigito(c); });
    int fin = static_cast<int>(visible.rend() - ultimo);
    if (fin > 0 && fin < visible.size() && visible.at(fin) != QLatin1Char('_'))
    {
        ++fin; // past the separator, where the next digit goes
    }
    return fin;
}

void CampoMascara::focusInEvent(QFocusEvent* evento)
{
    QLineEdit::focusInEvent(evento);
    update();
    switch (evento->reason())
    {
    case Qt::MouseFocusReason: // the press that follows would undo it
        m_focoDeRaton = true;
        break;
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
        break;
    default:
        selectAll();
    }
}

void CampoMascara::focusOutEvent(QFocusEvent* evento)
{
    QLineEdit::focusOutEvent(evento);
    update();
}

void CampoMascara::mousePressEvent(QMouseEvent* evento)
{
    QLineEdit::mousePressEvent(evento);
    if (!hasSelectedText() && cursorPosition() > finDeLoEscrito())
    {
        setCursorPosition(finDeLoEscrito());
    }
}

void CampoMascara::mouseReleaseEvent(QMouseEvent* evento)
{
    QLineEdit::mouseReleaseEvent(evento);
    if (m_focoDeRaton && !hasSelectedText())
    {
        selectAll();
    }
    m_focoDeRaton = false;
}

void CampoMascara::keyPressEvent(QKeyEvent* evento)
{
    if (evento->matches(QKeySequence::MoveToEndOfLine))
    {
        setCursorPosition(finDeLoEscrito());
        return;
    }
    QLineEdit::keyPressEvent(evento);
}

void CampoMascara::paintEvent(QPaintEvent* evento)
{
    if (!m_guiones || m_clase != Fecha || hasFocus() || soloDigitos().size() != 8)
    {
        QLineEdit::paintEvent(evento);
        return;
    }
    QPainter pintor(this);
    QStyleOptionFrame opcion;
    initStyleOption(&opcion);
    style()->drawPrimitive(QStyle::PE_PanelLineEdit, &opcion, &pintor, this);
    constexpr int margenDelTexto = 2; // as the line edit itself keeps
    const QRect lugar = style()
                            ->subElementRect(QStyle::SE_LineEditContents, &opcion, this)
                            .marginsRemoved(textMargins())
                            .adjusted(margenDelTexto, 0, -margenDelTexto, 0);
    style()->drawItemText(&pintor, lugar, static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())),
                          palette(), isEnabled(), displayText().replace(QLatin1Char('/'), QLatin1Char('-')),
                          QPalette::Text);
}

void soloDigitos(QLineEdit* campo)
{
    new FiltroDeEntrada(
        campo, [](QChar letra) { return esDigito(letra) ? letra : QChar(); },
        [](QLineEdit* destino, const QString& texto) { destino->insert(digitosDe(texto)); });
}

void soloImporte(QLineEdit* campo)
{
    const auto alTeclear = [](QChar letra)
    {
        if (letra == QLatin1Char('.') || letra == QLatin1Char(','))
        {
            return QChar(QLatin1Char(','));
        }
        return esDigito(letra) ? letra : QChar();
    };
    // Without its sign, or run together with its neighbour, it would be another amount.
    const auto alPegar = [](QLineEdit* destino, const QString& texto)
    {
        static const QRegularExpression unImporte(QStringLiteral("^\\s*\\$?\\s*([0-9.,]+)\\s*$"),
                                                  QRegularExpression::UseUnicodePropertiesOption);
        if (const auto hallado = unImporte.match(texto); hallado.hasMatch())
        {
            destino->insert(hallado.captured(1));
        }
        else
        {
            constexpr qsizetype aLaVista = 30;
            anunciar(QStringLiteral("Lo copiado no es un importe: «%1»").arg(texto.left(aLaVista).simplified()));
        }
    };
    new FiltroDeEntrada(campo, alTeclear, alPegar);
}
