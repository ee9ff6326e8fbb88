#include "controles.h"

#include "falla.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

#include <QtWidgets>
#include <algorithm>
#include <optional>

namespace controles
{
namespace
{
/// One place where a control can be: a window, without the child windows that lie in it.
struct Ambito
{
    QWidget* ventana = nullptr;
    bool sinHijas = false;
};

bool enHija(const QWidget* control, const QWidget* hasta)
{
    for (; control != nullptr && control != hasta; control = control->parentWidget())
    {
        if (qobject_cast<const QMdiSubWindow*>(control) != nullptr)
        {
            return true;
        }
    }
    return false;
}

QWidgetList controlesDe(const Ambito& ambito)
{
    QWidgetList lista;
    for (QWidget* control : ambito.ventana->findChildren<QWidget*>())
    {
        const bool propio =
            !control->objectName().isEmpty() && !control->objectName().startsWith(QStringLiteral("qt_"));
        // A dialog is a child of the window over which it lies, and yet a place of its own.
        if (propio && control->window() == ambito.ventana->window() &&
            !(ambito.sinHijas && enHija(control, ambito.ventana)))
        {
            lista += control;
        }
    }
    return lista;
}

/// Windows of their own that are not the main window: the preview of a report, the help.
QWidgetList sueltas()
{
    QWidgetList lista;
    for (QWidget* ventana : QApplication::topLevelWidgets())
    {
        if (ventana->isVisible() && ventana != ventanaPrincipal() && ventana->windowType() == Qt::Window)
        {
            lista += ventana;
        }
    }
    return lista;
}

std::vector<Ambito> ambitos()
{
    if (QWidget* modal = QApplication::activeModalWidget())
    {
        return {{modal}};
    }
    std::vector<Ambito> lista;
    if (QWidget* hija = hijaActiva())
    {
        lista.push_back({hija});
    }
    if (QWidget* principal = ventanaPrincipal())
    {
        lista.push_back({principal, true});
    }
    for (QWidget* suelta : sueltas())
    {
        lista.push_back({suelta});
    }
    return lista;
}

QString nombreDeObjeto(const QString& nombre)
{
    static const QRegularExpression deArreglo(QStringLiteral("^(\\w+)\\((\\d+)\\)$"),
                                              QRegularExpression::UseUnicodePropertiesOption);
    const auto partes = deArreglo.match(nombre);
    return partes.hasMatch() ? partes.captured(1) + u'_' + partes.captured(2) : nombre;
}

QString nombreDeControl(const QString& deObjeto)
{
    static const QRegularExpression deArreglo(QStringLiteral("^(.+)_(\\d+)$"));
    const auto partes = deArreglo.match(deObjeto);
    return partes.hasMatch() ? QStringLiteral("%1(%2)").arg(partes.captured(1), partes.captured(2)) : deObjeto;
}

QWidget* elegido(const QWidgetList& lista, const QString& objeto)
{
    QWidget* mejor = nullptr;
    int nota = 0;
    for (QWidget* control : lista)
    {
        if (control->objectName().compare(objeto, Qt::CaseInsensitive) != 0)
        {
            continue;
        }
        const int suya = 1 + (control->objectName() == objeto ? 2 : 0) + (control->isVisible() ? 1 : 0);
        if (suya > nota)
        {
            nota = suya;
            mejor = control;
        }
    }
    return mejor;
}

/// Why the control is not where it was looked for.
QString dondeEsta(const QString& objeto)
{
    for (QWidget* ventana : QApplication::topLevelWidgets())
    {
        const QWidget* control = ventana->isVisible() ? elegido(ventana->findChildren<QWidget*>(), objeto) : nullptr;
        if (control == nullptr)
        {
            continue;
        }
        if (QWidget* modal = QApplication::activeModalWidget())
        {
            return QStringLiteral("está detrás de la ventana modal «%1»").arg(nombreDe(modal));
        }
        for (const QWidget* padre = control; padre != nullptr; padre = padre->parentWidget())
        {
            if (qobject_cast<const QMdiSubWindow*>(padre) != nullptr)
            {
                return QStringLiteral("está en otra ventana, «%1»").arg(nombreDe(padre));
            }
        }
    }
    return {};
}

QString porQueNoSeVe(const QWidget* control)
{
    for (const QWidget* parte = control; parte->parentWidget() != nullptr; parte = parte->parentWidget())
    {
        const auto* pila = qobject_cast<const QStackedWidget*>(parte->parentWidget());
        const auto* paginas = pila != nullptr ? qobject_cast<const QTabWidget*>(pila->parentWidget()) : nullptr;
        if (paginas != nullptr && paginas->currentWidget() != parte)
        {
            const int pagina = paginas->indexOf(const_cast<QWidget*>(parte));
            return QStringLiteral("está en otra página, «%1»").arg(sinMarca(paginas->tabText(pagina)));
        }
        if (parte != control && parte->isHidden() && !parte->isWindow())
        {
            return QStringLiteral("está oculto con «%1»").arg(nombreDeControl(parte->objectName()));
        }
    }
    return QStringLiteral("está oculto");
}

QString porQueNoActua(const QWidget* control)
{
    const QWidget* causa = control;
    while (causa->parentWidget() != nullptr && !causa->parentWidget()->isEnabled())
    {
        causa = causa->parentWidget();
    }
    return causa == control ? QStringLiteral("está deshabilitado")
                            : QStringLiteral("está deshabilitado con «%1»").arg(nombreDeControl(causa->objectName()));
}

[[noreturn]] void rechazar(const QString& nombre, const QString& motivo)
{
    throw Falla(QStringLiteral("«%1» %2").arg(nombre, motivo));
}

int distancia(const QString& a, const QString& b)
{
    std::vector<int> fila(static_cast<std::size_t>(b.size()) + 1);
    std::iota(fila.begin(), fila.end(), 0);
    for (qsizetype i = 0; i < a.size(); ++i)
    {
        int diagonal = fila.front()++;
        for (std::size_t j = 1; j < fila.size(); ++j)
        {
            const bool igual = a.at(i) == b.at(static_cast<qsizetype>(j) - 1);
            const int siguiente = std::min({fila[j] + 1, fila[j - 1] + 1, diagonal + (igual ? 0 : 1)});
            diagonal = std::exchange(fila[j], siguiente);
        }
    }
    return fila.back();
}

std::optional<QString> textoDeBoton(const QWidget* control)
{
    const auto* boton = qobject_cast<const QAbstractButton*>(control);
    return boton != nullptr ? std::optional(sinMarca(boton->text())) : std::nullopt;
}

QString textoDeRotulo(const QLabel& rotulo)
{
    const QString texto = rotulo.text();
    const bool rico =
        rotulo.textFormat() == Qt::RichText || (rotulo.textFormat() == Qt::AutoText && Qt::mightBeRichText(texto));
    return rico ? QTextDocumentFragment::fromHtml(texto).toPlainText()
                : (rotulo.buddy() != nullptr ? sinMarca(texto) : texto);
}
} // namespace

QMainWindow* ventanaPrincipal()
{
    return Navegacion::instancia().ventana();
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
    if (QWidget* modal = QApplication::activeModalWidget())
    {
        return modal;
    }
    QWidget* activa = QApplication::activeWindow();
    if (activa != nullptr && activa != ventanaPrincipal() && activa->isVisible())
    {
        return activa;
    }
    if (QWidget* hija = hijaActiva())
    {
        return hija;
    }
    if (QWidget* principal = ventanaPrincipal())
    {
        return principal;
    }
    throw Falla(QStringLiteral("no hay ninguna ventana"));
}

QString nombreDe(const QWidget* ventana)
{
    if (const auto* pantalla = qobject_cast<const Pantalla*>(ventana))
    {
        return pantalla->objectName();
    }
    if (const auto* pantalla = ventana->findChild<const Pantalla*>();
        pantalla != nullptr && ventana != ventanaPrincipal())
    {
        return pantalla->objectName();
    }
    return ventana->windowTitle().isEmpty() ? ventana->objectName() : ventana->windowTitle();
}

QWidget* buscar(const QString& nombre)
{
    const QString objeto = nombreDeObjeto(nombre);
    QStringList nombres;
    for (const Ambito& ambito : ambitos())
    {
        const QWidgetList lista = controlesDe(ambito);
        if (QWidget* control = elegido(lista, objeto))
        {
            return control;
        }
        for (const QWidget* control : lista)
        {
            nombres += nombreDeControl(control->objectName());
        }
    }
    if (const QString donde = dondeEsta(objeto); !donde.isEmpty())
    {
        rechazar(nombre, donde);
    }
    const QString cerca = parecidos(nombre, nombres);
    throw Falla(QStringLiteral("no hay control «%1» en «%2»").arg(nombre, nombreDe(ventanaActual())) +
                (cerca.isEmpty() ? QString() : QStringLiteral("; parecidos: ") + cerca));
}

QWidget* buscarVisible(const QString& nombre)
{
    QWidget* control = buscar(nombre);
    if (!control->isVisible())
    {
        rechazar(nombre, porQueNoSeVe(control));
    }
    return control;
}

QWidget* buscarUsable(const QString& nombre)
{
    QWidget* control = buscarVisible(nombre);
    if (!control->isEnabled())
    {
        rechazar(nombre, porQueNoActua(control));
    }
    return control;
}

Grilla* buscarGrilla(const QString& nombre, bool usable)
{
    auto* grilla = qobject_cast<Grilla*>(usable ? buscarUsable(nombre) : buscarVisible(nombre));
    if (grilla == nullptr)
    {
        rechazar(nombre, QStringLiteral("no es una grilla"));
    }
    return grilla;
}

QString textoDe(const QWidget* control)
{
    if (const auto* mascara = qobject_cast<const CampoMascara*>(control))
    {
        return mascara->text();
    }
    if (const auto* linea = qobject_cast<const QLineEdit*>(control))
    {
        return linea->text();
    }
    if (const auto* lista = qobject_cast<const QComboBox*>(control))
    {
        return lista->currentText();
    }
    if (const auto* rotulo = qobject_cast<const QLabel*>(control))
    {
        return textoDeRotulo(*rotulo);
    }
    if (const auto* marco = qobject_cast<const QGroupBox*>(control))
    {
        return sinMarca(marco->title());
    }
    if (const auto boton = textoDeBoton(control))
    {
        return *boton;
    }
    if (const auto* paginas = qobject_cast<const QTabWidget*>(control))
    {
        return sinMarca(paginas->tabText(paginas->currentIndex()));
    }
    if (const auto* vista = qobject_cast<const QAbstractItemView*>(control);
        vista != nullptr && qobject_cast<const Grilla*>(control) == nullptr)
    {
        return vista->currentIndex().data().toString();
    }
    // Text boxes, numbers and progress bars.
    for (const char* propiedad : {"plainText", "text", "value"})
    {
        if (const QVariant valor = control->property(propiedad); valor.isValid())
        {
            return valor.toString();
        }
    }
    rechazar(nombreDeControl(control->objectName()), QStringLiteral("no muestra un texto"));
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
    QString limpio;
    for (qsizetype i = 0; i < texto.size(); ++i)
    {
        if (texto.at(i) == u'&' && i + 1 < texto.size())
        {
            ++i;
        }
        limpio += texto.at(i);
    }
    return limpio;
}

QString parecidos(const QString& nombre, const QStringList& posibles)
{
    const QString bajo = nombre.toLower();
    std::vector<std::pair<int, QString>> cercanos;
    for (const QString& posible : posibles)
    {
        const QString otro = posible.toLower();
        const int lejos = otro.contains(bajo) || bajo.contains(otro) ? 1 : distancia(bajo, otro);
        if (lejos <= std::max<qsizetype>(2, nombre.size() / 2))
        {
            cercanos.emplace_back(lejos, posible);
        }
    }
    std::sort(cercanos.begin(), cercanos.end());
    QStringList lista;
    for (const auto& [lejos, posible] : cercanos)
    {
        if (!lista.contains(posible) && lista.size() < 5)
        {
            lista += posible;
        }
    }
    return lista.join(QStringLiteral(", "));
}
} // namespace controles
