#include "controles.h"

#include "falla.h"
#include "ui/fields/campo_mascara.h"
#include "ui/grid/grilla.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/pantalla.h"

#include <QtWidgets>
#include <algorithm>

namespace controles
{
namespace
{
/// The controls with a name of their own in a window. A dialog is a child of the window over which it lies, and so is a
/// child window of the main window: their controls are not its own.
QWidgetList controlesDe(const QWidget* ventana)
{
    QWidgetList lista = ventana->findChildren<QWidget*>(QRegularExpression("^(?!qt_)."));
    lista.removeIf([&](const QWidget* control)
                   { return control->window() != ventana->window() || hijaDe(control) != hijaDe(ventana); });
    return lista;
}

/// Where a control can be, the nearest place first.
QWidgetList ambitos()
{
    if (QWidget* modal = QApplication::activeModalWidget())
    {
        return {modal};
    }
    QWidgetList lista = {hijaActiva(), ventanaPrincipal()};
    for (QWidget* ventana : QApplication::topLevelWidgets())
    {
        if (ventana->isVisible() && ventana->windowType() == Qt::Window)
        {
            lista += ventana;
        }
    }
    lista.removeAll(nullptr);
    return lista;
}

/// `txtImporte(3)` is the object txtImporte_3.
QString nombreDeObjeto(QString nombre)
{
    return nombre.replace(QRegularExpression("\\((\\d+)\\)$"), "_\\1");
}

QString nombreDeControl(QString objeto)
{
    return objeto.replace(QRegularExpression("_(\\d+)$"), "(\\1)");
}

/// Of several controls that the name may mean, the one written so, and the one that is shown.
QWidget* elegido(const QWidgetList& lista, const QString& objeto)
{
    const auto nota = [&](const QWidget* control)
    {
        return control->objectName().compare(objeto, Qt::CaseInsensitive) != 0
                   ? 0
                   : 1 + (control->objectName() == objeto ? 2 : 0) + (control->isVisible() ? 1 : 0);
    };
    const auto mejor = std::ranges::max_element(lista, {}, nota);
    return mejor == lista.end() || nota(*mejor) == 0 ? nullptr : *mejor;
}

/// Throws why the control is not where it was looked for, if there is one.
void explicarDondeEsta(const QString& nombre)
{
    for (const QWidget* ventana : QApplication::topLevelWidgets())
    {
        const QWidget* control =
            ventana->isVisible() ? elegido(ventana->findChildren<QWidget*>(), nombreDeObjeto(nombre)) : nullptr;
        if (control != nullptr)
        {
            exigirDelante(nombre);
            throw Falla("«%1» está en otra ventana, «%2»", nombre,
                        nombreDe(hijaDe(control) != nullptr ? hijaDe(control) : ventana));
        }
    }
}

QString porQueNoSeVe(const QWidget* control)
{
    for (const QWidget* parte = control; parte->parentWidget() != nullptr; parte = parte->parentWidget())
    {
        const auto* paginas = qobject_cast<const QTabWidget*>(parte->parentWidget()->parentWidget());
        const int pagina = paginas != nullptr ? paginas->indexOf(const_cast<QWidget*>(parte)) : -1;
        if (pagina >= 0 && pagina != paginas->currentIndex())
        {
            return QString("está en otra página, «%1»").arg(sinMarca(paginas->tabText(pagina)));
        }
        if (parte != control && parte->isHidden() && !parte->isWindow())
        {
            return QString("está oculto con «%1»").arg(nombreDeControl(parte->objectName()));
        }
    }
    return "está oculto";
}

QString porQueNoActua(const QWidget* control)
{
    const QWidget* causa = control;
    while (causa->parentWidget() != nullptr && !causa->parentWidget()->isEnabled())
    {
        causa = causa->parentWidget();
    }
    return causa == control ? QString("está deshabilitado")
                            : QString("está deshabilitado con «%1»").arg(nombreDeControl(causa->objectName()));
}

QString textoDeRotulo(const QLabel& rotulo)
{
    const bool rico = rotulo.textFormat() == Qt::RichText ||
                      (rotulo.textFormat() == Qt::AutoText && Qt::mightBeRichText(rotulo.text()));
    return rico ? QTextDocumentFragment::fromHtml(rotulo.text()).toPlainText()
                : (rotulo.buddy() != nullptr ? sinMarca(rotulo.text()) : rotulo.text());
}
} // namespace

QMainWindow* ventanaPrincipal()
{
    return Navegacion::instancia().ventana();
}

QMdiSubWindow* hijaDe(const QWidget* control)
{
    while (control != nullptr && qobject_cast<const QMdiSubWindow*>(control) == nullptr)
    {
        control = control->parentWidget();
    }
    return const_cast<QMdiSubWindow*>(static_cast<const QMdiSubWindow*>(control));
}

QMdiSubWindow* hijaActiva()
{
    const QMainWindow* principal = ventanaPrincipal();
    const auto* area = principal != nullptr ? principal->findChild<QMdiArea*>() : nullptr;
    // Current and not active: it stays so while the whole program is in the background.
    QMdiSubWindow* hija = area != nullptr ? area->currentSubWindow() : nullptr;
    return hija != nullptr && hija->isVisible() ? hija : nullptr;
}

QWidget* ventanaActual()
{
    QWidget* activa = QApplication::activeModalWidget();
    if (activa == nullptr)
    {
        activa = QApplication::activeWindow();
        activa = activa == ventanaPrincipal() || (activa != nullptr && !activa->isVisible()) ? nullptr : activa;
    }
    for (QWidget* ventana : {activa, static_cast<QWidget*>(hijaActiva()), static_cast<QWidget*>(ventanaPrincipal())})
    {
        if (ventana != nullptr)
        {
            return ventana;
        }
    }
    throw Falla("no hay ninguna ventana");
}

QString nombreDe(const QWidget* ventana)
{
    const auto* pantalla = qobject_cast<const Pantalla*>(ventana);
    if (pantalla == nullptr && ventana != ventanaPrincipal())
    {
        pantalla = ventana->findChild<const Pantalla*>();
    }
    return pantalla != nullptr                ? pantalla->objectName()
           : ventana->windowTitle().isEmpty() ? ventana->objectName()
                                              : ventana->windowTitle();
}

QWidget* suelta(const QString& nombre)
{
    const QWidgetList todas = QApplication::topLevelWidgets();
    const auto hallada = std::ranges::find_if(todas, [&](const QWidget* ventana)
                                              { return ventana->isVisible() && ventana->objectName() == nombre; });
    return hallada == todas.end() ? nullptr : *hallada;
}

void exigirDelante(const QString& que)
{
    if (const QWidget* modal = QApplication::activeModalWidget())
    {
        throw Falla("«%1» está detrás de la ventana modal «%2»", que, nombreDe(modal));
    }
}

QWidget* buscar(const QString& nombre)
{
    QStringList nombres;
    for (const QWidget* ambito : ambitos())
    {
        const QWidgetList lista = controlesDe(ambito);
        if (QWidget* control = elegido(lista, nombreDeObjeto(nombre)))
        {
            return control;
        }
        std::ranges::transform(lista, std::back_inserter(nombres),
                               [](const QWidget* control) { return nombreDeControl(control->objectName()); });
    }
    explicarDondeEsta(nombre);
    throw Falla("no hay control «%1» en «%2»%3", nombre, nombreDe(ventanaActual()), parecidos(nombre, nombres));
}

QWidget* buscarVisible(const QString& nombre)
{
    QWidget* control = buscar(nombre);
    if (!control->isVisible())
    {
        throw Falla("«%1» %2", nombre, porQueNoSeVe(control));
    }
    return control;
}

QWidget* buscarUsable(const QString& nombre)
{
    QWidget* control = buscarVisible(nombre);
    if (!control->isEnabled())
    {
        throw Falla("«%1» %2", nombre, porQueNoActua(control));
    }
    return control;
}

Grilla* buscarGrilla(const QString& nombre, bool usable)
{
    auto* grilla = qobject_cast<Grilla*>(usable ? buscarUsable(nombre) : buscarVisible(nombre));
    if (grilla == nullptr)
    {
        throw Falla("«%1» no es una grilla", nombre);
    }
    return grilla;
}

QString textoDe(const QWidget* control)
{
    if (const auto* mascara = qobject_cast<const CampoMascara*>(control))
    {
        return mascara->text();
    }
    if (const auto* rotulo = qobject_cast<const QLabel*>(control))
    {
        return textoDeRotulo(*rotulo);
    }
    if (const auto* paginas = qobject_cast<const QTabWidget*>(control))
    {
        return sinMarca(paginas->tabText(paginas->currentIndex()));
    }
    const bool conMarca =
        qobject_cast<const QAbstractButton*>(control) != nullptr || qobject_cast<const QGroupBox*>(control) != nullptr;
    for (const char* propiedad : {"currentText", "text", "title", "plainText", "value"})
    {
        if (const QVariant valor = control->property(propiedad); valor.isValid())
        {
            return conMarca ? sinMarca(valor.toString()) : valor.toString();
        }
    }
    throw Falla("«%1» no muestra un texto", nombreDeControl(control->objectName()));
}

bool muestra(const QWidget* control, const QString& esperado)
{
    const QString texto = textoDe(control);
    if (texto == esperado || (esperado.contains(u'&') && texto == sinMarca(esperado)))
    {
        return true;
    }
    const auto* fecha = qobject_cast<const CampoMascara*>(control);
    return fecha != nullptr && fecha->clase() == CampoMascara::Fecha && !fecha->hasFocus() &&
           QString(texto).replace(u'/', u'-') == esperado;
}

QStringList entradasDe(const QComboBox& lista)
{
    QStringList todas;
    for (int i = 0; i < lista.count(); ++i)
    {
        todas += lista.itemText(i);
    }
    return todas;
}

QString sinMarca(const QString& texto)
{
    return QString(texto).replace(QRegularExpression("&(.)"), "\\1");
}

QString parecidos(const QString& nombre, const QStringList& posibles)
{
    // A slip of the finger leaves the first half or the second one.
    const qsizetype mitad = std::max<qsizetype>(3, nombre.size() / 2);
    QStringList cercanos =
        posibles.filter(QRegularExpression("^" + QRegularExpression::escape(nombre.left(mitad)) + "|" +
                                               QRegularExpression::escape(nombre.right(mitad)) + "$",
                                           QRegularExpression::CaseInsensitiveOption));
    cercanos.removeDuplicates();
    constexpr int bastantes = 5;
    return cercanos.isEmpty() ? QString() : "; parecidos: " + cercanos.mid(0, bastantes).join(", ");
}
} // namespace controles
