#include "roster/screens/ultimos_valores.h"

#include "ui/fields/campo_mascara.h"
#include "ui/shell/campos.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>

namespace
{
void escribir(QLineEdit* linea, const QString& valor)
{
    // A stored text may be longer than what may be typed.
    linea->setMaxLength(qMax(linea->maxLength(), static_cast<int>(valor.size())));
    linea->selectAll();
    linea->insert(valor);
}

void elegir(QComboBox* lista, const QString& valor)
{
    const int entrada = lista->findText(valor, Qt::MatchExactly | Qt::MatchCaseSensitive);
    lista->setCurrentIndex(entrada);
    Q_EMIT lista->activated(entrada);
}
} // namespace

void UltimosValores::recordar(std::initializer_list<const QWidget*> cuales)
{
    for (const QWidget* campo : cuales)
    {
        const auto* mascara = qobject_cast<const CampoMascara*>(campo);
        m_valores[campo] = mascara != nullptr && mascara->vacio() ? QString() : campos::contenido(campo);
    }
}

bool UltimosValores::repetir(QWidget* campo) const
{
    const QString valor = m_valores.value(campo);
    if (valor.isEmpty())
    {
        return false;
    }
    if (auto* linea = qobject_cast<QLineEdit*>(campo))
    {
        escribir(linea, valor);
    }
    else if (auto* lista = qobject_cast<QComboBox*>(campo))
    {
        lista->isEditable() ? escribir(lista->lineEdit(), valor) : elegir(lista, valor);
    }
    else if (auto* tilde = qobject_cast<QAbstractButton*>(campo); tilde != nullptr && campos::contenido(tilde) != valor)
    {
        tilde->click();
    }
    return true;
}
