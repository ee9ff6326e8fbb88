#include "ui/fields/reglas_de_campos.h"

#include "ui/doors/anuncio.h"
#include "ui/fields/busqueda_por_letras.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QTabBar>
#include <QValidator>
#include <algorithm>

namespace
{
/// Keeps a text on one line: the line end after a cell copied from a spreadsheet goes, and what stands for one within
/// the text is a blank. In a field neither is seen, and each would break a line of the files that are sent.
class UnRenglon : public QValidator
{
public:
    using QValidator::QValidator;
    State validate(QString& texto, int& /*cursor*/) const override
    {
        const auto rompe = [](QChar letra) {
            return letra < u' ' || letra == u'\x85' || letra == QChar::LineSeparator ||
                   letra == QChar::ParagraphSeparator;
        };
        while (!texto.isEmpty() && rompe(texto.back()))
        {
            texto.chop(1);
        }
        std::replace_if(texto.begin(), texto.end(), rompe, u' ');
        return Acceptable;
    }
};

/// The list whose entries a key chooses: it has the focus, or is open and its view has it.
QComboBox* listaDe(QObject* objeto)
{
    auto* lista = qobject_cast<QComboBox*>(objeto);
    const auto* vista = lista == nullptr ? qobject_cast<QAbstractItemView*>(objeto) : nullptr;
    if (vista != nullptr && vista->parentWidget() != nullptr)
    {
        lista = qobject_cast<QComboBox*>(vista->parentWidget()->parentWidget());
    }
    return lista != nullptr && !lista->isEditable() ? lista : nullptr;
}

/// Keys that go before a letter and are none: those held down with it, and a keyboard's accents.
bool precedeALetra(int tecla)
{
    constexpr int primeraMantenida = Qt::Key_Shift;
    constexpr int ultimaMantenida = Qt::Key_ScrollLock;
    constexpr int primerAcento = Qt::Key_Dead_Grave;
    constexpr int ultimoAcento = Qt::Key_Dead_Longsolidusoverlay;
    constexpr int altGr = Qt::Key_AltGr;
    constexpr int compone = Qt::Key_Multi_key;
    return (tecla >= primeraMantenida && tecla <= ultimaMantenida) ||
           (tecla >= primerAcento && tecla <= ultimoAcento) || tecla == altGr || tecla == compone;
}

void elegirEn(QComboBox* lista, int entrada)
{
    if (entrada == lista->currentIndex())
    {
        return;
    }
    lista->setCurrentIndex(entrada);
    const QPointer<QComboBox> viva = lista;
    Q_EMIT lista->activated(entrada); // as a choice by the arrows does
    if (viva)
    {
        Q_EMIT viva->textActivated(viva->currentText());
    }
}
} // namespace

ReglasDeCampos::ReglasDeCampos(QObject* padre)
    : QObject(padre)
{
}

void ReglasDeCampos::aplicar()
{
    static QPointer<ReglasDeCampos> unica;
    if (unica.isNull())
    {
        unica = new ReglasDeCampos(qApp);
        qApp->installEventFilter(unica);
    }
}

bool ReglasDeCampos::eventFilter(QObject* objeto, QEvent* evento)
{
    switch (evento->type())
    {
    case QEvent::Polish:
        alVestir(objeto);
        return false;
    case QEvent::Wheel:
        if (qobject_cast<QComboBox*>(objeto) != nullptr || qobject_cast<QAbstractSpinBox*>(objeto) != nullptr ||
            qobject_cast<QTabBar*>(objeto) != nullptr)
        {
            evento->ignore(); // what scrolls around it takes it
            return true;
        }
        return false;
    case QEvent::KeyPress:
        return alTeclear(objeto, *static_cast<QKeyEvent*>(evento));
    case QEvent::FocusIn:
        BusquedaPorLetras::terminar();
        return false;
    default:
        return false;
    }
}

void ReglasDeCampos::alVestir(QObject* objeto)
{
    if (auto* control = qobject_cast<QWidget*>(objeto); control != nullptr && control->focusPolicy() == Qt::WheelFocus)
    {
        control->setFocusPolicy(Qt::StrongFocus);
    }
    if (auto* linea = qobject_cast<QLineEdit*>(objeto))
    {
        connect(linea, &QLineEdit::inputRejected, this, &ReglasDeCampos::alRechazarTexto, Qt::UniqueConnection);
        if (linea->validator() == nullptr && linea->inputMask().isEmpty())
        {
            linea->setValidator(new UnRenglon(linea));
        }
    }
}

void ReglasDeCampos::alRechazarTexto()
{
    const auto* linea = qobject_cast<QLineEdit*>(sender());
    if (linea != nullptr && linea->inputMask().isEmpty() && linea->text().size() >= linea->maxLength())
    {
        anunciar(QStringLiteral("No entra más texto: %1/%1").arg(linea->maxLength()));
    }
}

bool ReglasDeCampos::alTeclear(QObject* objeto, const QKeyEvent& evento)
{
    const auto mandos = evento.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool letra = mandos == Qt::NoModifier && !evento.text().isEmpty() && evento.text().at(0).isPrint();
    QComboBox* lista = letra ? listaDe(objeto) : nullptr;
    if (!letra && !precedeALetra(evento.key()))
    {
        BusquedaPorLetras::terminar();
    }
    if (lista == nullptr || (evento.key() == Qt::Key_Space && !BusquedaPorLetras::enCurso(lista)))
    {
        return false;
    }
    const bool abierta = objeto != lista;
    const int actual = abierta ? lista->view()->currentIndex().row() : lista->currentIndex();
    const int entrada = BusquedaPorLetras::seguir(lista, evento.text(), actual, lista->count(),
                                                  [lista](int i) { return lista->itemText(i); });
    if (!abierta)
    {
        elegirEn(lista, entrada);
    }
    else
    {
        lista->view()->setCurrentIndex(lista->model()->index(entrada, lista->modelColumn(), lista->rootModelIndex()));
    }
    return true;
}
