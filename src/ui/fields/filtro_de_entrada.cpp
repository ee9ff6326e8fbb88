#include "ui/fields/filtro_de_entrada.h"

#include "ui/doors/anuncio.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <algorithm>

FiltroDeEntrada::FiltroDeEntrada(QLineEdit* campo, std::function<QChar(QChar)> alTeclear,
                                 std::function<void(QLineEdit*, const QString&)> alPegar)
    : QObject(campo)
    , m_campo(campo)
    , m_alTeclear(std::move(alTeclear))
    , m_alPegar(std::move(alPegar))
{
    campo->setAcceptDrops(false);
    campo->installEventFilter(this);
    // An editable list takes the keys itself and hands them to its field past any filter.
    if (auto* lista = qobject_cast<QComboBox*>(campo->parentWidget()); lista != nullptr && lista->lineEdit() == campo)
    {
        lista->installEventFilter(this);
    }
}

bool FiltroDeEntrada::eventFilter(QObject* objeto, QEvent* evento)
{
    switch (evento->type())
    {
    case QEvent::KeyPress:
        return !m_campo->isReadOnly() && filtrarTecla(*static_cast<QKeyEvent*>(evento));
    case QEvent::InputMethod:
        return filtrarMetodo(*static_cast<QInputMethodEvent*>(evento));
    case QEvent::MouseButtonRelease: // pastes the selection of another program
        return static_cast<QMouseEvent*>(evento)->button() == Qt::MiddleButton;
    case QEvent::ContextMenu:
        if (objeto == m_campo)
        {
            mostrarMenu(static_cast<QContextMenuEvent*>(evento)->globalPos());
            return true;
        }
        return false;
    default:
        return false;
    }
}

bool FiltroDeEntrada::filtrarTecla(const QKeyEvent& evento)
{
    if (evento.matches(QKeySequence::Paste))
    {
        pegar();
        return true;
    }
    const QString texto = evento.text();
    const bool orden = (evento.modifiers() & Qt::ControlModifier) != 0 && (evento.modifiers() & Qt::AltModifier) == 0;
    if (texto.isEmpty() || !texto.at(0).isPrint() || orden)
    {
        return false;
    }
    const QChar admitido = texto.size() == 1 ? m_alTeclear(texto.at(0)) : QChar();
    if (admitido == texto.at(0))
    {
        return false;
    }
    if (!admitido.isNull())
    {
        m_campo->insert(admitido);
    }
    else if (m_campo->inputMask().isEmpty() || texto.at(0).isLetter()) // a mask has its separators already
    {
        anunciar(QStringLiteral("Aquí no entra «%1»").arg(texto));
    }
    return true;
}

bool FiltroDeEntrada::filtrarMetodo(const QInputMethodEvent& evento)
{
    const QString& texto = evento.commitString();
    return std::any_of(texto.begin(), texto.end(), [this](QChar letra) { return m_alTeclear(letra) != letra; });
}

void FiltroDeEntrada::pegar()
{
    m_alPegar(m_campo, QApplication::clipboard()->text());
}

void FiltroDeEntrada::mostrarMenu(QPoint global)
{
    // The field's own menu would paste past the filter.
    const bool edita = !m_campo->isReadOnly();
    const bool hayMarcado = m_campo->hasSelectedText();
    QMenu menu(m_campo);
    const auto agregar = [&](const QString& nombre, bool vale, auto hace)
    { menu.addAction(nombre, m_campo, hace)->setEnabled(vale); };
    agregar(QStringLiteral("&Deshacer"), edita && m_campo->isUndoAvailable(), &QLineEdit::undo);
    menu.addSeparator();
    agregar(QStringLiteral("Cor&tar"), edita && hayMarcado, &QLineEdit::cut);
    agregar(QStringLiteral("&Copiar"), hayMarcado, &QLineEdit::copy);
    agregar(QStringLiteral("&Pegar"), edita && !QApplication::clipboard()->text().isEmpty(), [this] { pegar(); });
    menu.addSeparator();
    agregar(QStringLiteral("&Seleccionar todo"), !m_campo->displayText().isEmpty(), &QLineEdit::selectAll);
    menu.exec(global);
}
