#include "acciones.h"

#include "controles.h"
#include "entrada.h"
#include "guion.h"
#include "jugada.h"
#include "teclas.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/pantalla.h"
#include "ui/shell/validacion.h"

#include <QtWidgets>

namespace guion
{
namespace
{
QAction* entradaDe(const QList<QAction*>& entradas, const QString& titulo)
{
    QStringList nombres;
    for (QAction* entrada : entradas)
    {
        if (!entrada->isVisible() || entrada->isSeparator())
        {
            continue;
        }
        nombres += controles::sinMarca(entrada->text());
        if (nombres.last() == controles::sinMarca(titulo))
        {
            return entrada->isEnabled() ? entrada : throw Falla("la entrada «%1» está deshabilitada", titulo);
        }
    }
    throw Falla("no hay entrada «%1»; hay: %2", titulo, nombres.join(", "));
}

void seguirMenu(const Jugada& jugada, QMenu* menu, const QStringList& entradas)
{
    if (!menu->isVisible())
    {
        jugada.siNoInterrumpida("el menú no se abre");
        return;
    }
    jugada.luego(
        [jugada, menu, entradas]
        {
            QAction* entrada = entradaDe(menu->actions(), entradas.first());
            entrada::clic(menu, menu->actionGeometry(entrada).center());
            if (entradas.size() > 1 && entrada->menu() != nullptr)
            {
                seguirMenu(jugada, entrada->menu(), entradas.mid(1));
            }
        });
}

void recorrerMenu(const Jugada& jugada, const QStringList& entradas)
{
    controles::exigirDelante("el menú");
    const QMainWindow* principal = controles::ventanaPrincipal();
    QMenuBar* barra = principal != nullptr ? principal->menuBar() : throw Falla("no hay ventana principal");
    QAction* entrada = entradaDe(barra->actions(), entradas.first());
    QMenu* abierto = entrada->menu();
    if ((abierto == nullptr) != (entradas.size() == 1))
    {
        throw Falla(abierto == nullptr ? "«%1» no abre un menú" : "«%1» es un menú: falta su entrada",
                    entradas.first());
    }
    entrada::clic(barra, barra->actionGeometry(entrada).center());
    if (abierto != nullptr)
    {
        seguirMenu(jugada, abierto, entradas.mid(1));
    }
}

void menu(const Jugada& jugada, const Argumentos& a)
{
    recorrerMenu(jugada, textos(a, 0));
}

void salir(const Jugada& jugada, const Argumentos&)
{
    recorrerMenu(jugada, {"Salir"});
}

/// A control, or a row of a grid: "vsGrilla[2]".
void pulsar(const Jugada& jugada, const Argumentos& a)
{
    static const QRegularExpression deGrilla("^(.*)\\[(\\d+)\\]$");
    const QRegularExpressionMatch fila = deGrilla.match(a[0].texto);
    fila.hasMatch() ? pulsarFila(jugada, fila.captured(1), fila.captured(2).toInt(), false)
                    : entrada::clic(controles::buscarUsable(a[0].texto));
}

/// Brings the focus to a field by a click on `donde`; false when it was refused.
bool enfocar(const Jugada& jugada, QWidget* control, QWidget* donde)
{
    if (!entrada::tieneFoco(control))
    {
        entrada::clic(donde);
    }
    if (!entrada::tieneFoco(control))
    {
        jugada.siNoInterrumpida("«%1» no toma el foco", control->objectName());
        return false;
    }
    return true;
}

/// The field is ready to be written into; false when it refused the focus.
bool enfocarCampo(const Jugada& jugada, const QString& nombre)
{
    QWidget* control = controles::buscarUsable(nombre);
    const auto* lista = qobject_cast<const QComboBox*>(control);
    QWidget* campo = lista != nullptr ? lista->lineEdit() : control;
    if (qobject_cast<QLineEdit*>(campo) == nullptr)
    {
        throw Falla("en «%1» no se escribe", nombre);
    }
    return enfocar(jugada, control, campo);
}

/// The same for any control: one that is no field comes by Tab, for a click would press it or choose a row.
bool enfocarConTeclado(const Jugada& jugada, const QString& nombre)
{
    QWidget* control = controles::buscarUsable(nombre);
    if (entrada::tieneFoco(control) || qobject_cast<QLineEdit*>(control) != nullptr)
    {
        return enfocar(jugada, control, control);
    }
    if (!Validacion::instancia().intentarDejar())
    {
        return false;
    }
    control->setFocus(Qt::TabFocusReason);
    if (!entrada::tieneFoco(control))
    {
        jugada.siNoInterrumpida("«%1» no toma el foco", nombre);
        return false;
    }
    return true;
}

/// Keys and texts in quotes one after another, to whatever holds the focus by then. A box in between fails the line.
void teclearDesde(const Jugada& jugada, Argumentos golpes)
{
    if (golpes.empty())
    {
        return;
    }
    if (jugada.interrumpida())
    {
        throw Falla("antes de «%1» vino una caja", golpes.front().texto);
    }
    const Palabra golpe = golpes.front();
    golpes.erase(golpes.begin());
    if (golpe.citada)
    {
        entrada::escribir(golpe.texto);
    }
    else
    {
        const Teclas teclas = leerTeclas(golpe.texto).value();
        entrada::tecla(teclas.tecla.key(), teclas.tecla.keyboardModifiers());
        if (teclas.veces > 1)
        {
            const QString nombre = golpe.texto.section(u'*', 0, 0);
            golpes.insert(golpes.begin(), {QString("%1*%2").arg(nombre).arg(teclas.veces - 1)});
        }
    }
    if (!golpes.empty())
    {
        jugada.luego([jugada, golpes = std::move(golpes)] { teclearDesde(jugada, golpes); });
    }
}

Argumentos desde(const Argumentos& a, std::ptrdiff_t n)
{
    return {a.begin() + n, a.end()};
}

void escribir(const Jugada& jugada, const Argumentos& a)
{
    if (enfocarCampo(jugada, a[0].texto))
    {
        reemplazarTexto(a[1].texto);
        jugada.luego([jugada, teclas = desde(a, 2)] { teclearDesde(jugada, teclas); });
    }
}

void pegar(const Jugada& jugada, const Argumentos& a)
{
    if (enfocarCampo(jugada, a[0].texto))
    {
        QApplication::clipboard()->setText(a[1].texto);
        Argumentos teclas = desde(a, 2);
        teclas.insert(teclas.begin(), {{"Ctrl+A"}, {"Ctrl+V"}});
        teclearDesde(jugada, teclas);
    }
}

void tecla(const Jugada& jugada, const Argumentos& a)
{
    if (enfocarConTeclado(jugada, a[0].texto))
    {
        teclearDesde(jugada, desde(a, 1));
    }
}

void teclear(const Jugada& jugada, const Argumentos& a)
{
    teclearDesde(jugada, a);
}

void elegir(const Jugada& jugada, const Argumentos& a)
{
    auto* lista = qobject_cast<QComboBox*>(controles::buscarUsable(a[0].texto));
    if (lista == nullptr)
    {
        throw Falla("«%1» no es una lista", a[0].texto);
    }
    QStyleOptionComboBox opcion;
    opcion.initFrom(lista);
    opcion.editable = lista->isEditable();
    const QRect flecha = lista->style()->subControlRect(QStyle::CC_ComboBox, &opcion, QStyle::SC_ComboBoxArrow, lista);
    entrada::clic(lista, flecha.center());
    if (!lista->view()->isVisible())
    {
        jugada.siNoInterrumpida("la lista no se abre");
        return;
    }
    jugada.luego([lista = QPointer(lista), texto = a[1].texto] { elegirAbierta(lista, texto); });
}

void pagina(const Jugada&, const Argumentos& a)
{
    QStringList titulos;
    for (QTabBar* barra : controles::ventanaActual()->findChildren<QTabBar*>())
    {
        for (int i = 0; i < barra->count(); ++i)
        {
            titulos += controles::sinMarca(barra->tabText(i));
            if (barra->isVisible() && titulos.last() == controles::sinMarca(a[0].texto))
            {
                return barra->isEnabled() && barra->isTabEnabled(i)
                           ? entrada::clic(barra, barra->tabRect(i).center())
                           : throw Falla("la página «%1» está deshabilitada", a[0].texto);
            }
        }
    }
    throw Falla("no hay página «%1»; hay: %2", a[0].texto, titulos.join(", "));
}

void ventana(const Jugada&, const Argumentos& a)
{
    Pantalla* pantalla = Navegacion::instancia().abierta(a[0].texto);
    if (pantalla == nullptr)
    {
        throw Falla("la ventana «%1» no está abierta", a[0].texto);
    }
    if (QApplication::activeModalWidget() != pantalla->window())
    {
        controles::exigirDelante(a[0].texto);
    }
    pantalla->window()->activateWindow();
    QMdiSubWindow* hija = controles::hijaDe(pantalla);
    if (hija == nullptr || hija == controles::hijaActiva())
    {
        return;
    }
    const QPoint titulo(hija->width() / 2, hija->style()->pixelMetric(QStyle::PM_TitleBarHeight) / 2);
    if (hija->window()->childAt(hija->mapTo(hija->window(), titulo)) == hija)
    {
        entrada::clic(hija, titulo);
    }
    else if (Validacion::instancia().intentarDejar())
    {
        hija->mdiArea()->setActiveSubWindow(hija); // as Ctrl+Tab does for one that is covered
    }
}

void cerrar(const Jugada&, const Argumentos&)
{
    controles::ventanaActual()->close();
}

/// The preview is found by what it is called and what it can do, so that the robot does not depend on it.
void informe(const Jugada& jugada, const Argumentos& a)
{
    QWidget* vista = controles::suelta("Informe");
    const QString ruta = jugada.contexto->ruta(a[0].texto);
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    QFile::remove(ruta);
    if (vista == nullptr)
    {
        throw Falla("no hay ningún informe a la vista");
    }
    if (!QMetaObject::invokeMethod(vista, "guardarPdf", Qt::DirectConnection, Q_ARG(QString, ruta)) ||
        !QFileInfo::exists(ruta))
    {
        throw Falla("el informe no se guarda en %1", a[0].texto);
    }
    vista->close();
}
} // namespace

std::span<const Verbo> verbosQueActuan()
{
    static constexpr Verbo todos[] = {
        {"menu", "t+", menu},       {"salir", "", salir},
        {"pulsar", "(c)", pulsar},  {"escribir", "(ctk?)", escribir},
        {"pegar", "(ctk?)", pegar}, {"tecla", "ck+", tecla},
        {"teclear", "x+", teclear}, {"elegir", "(ct)", elegir},
        {"pagina", "t", pagina},    {"ventana", "c", ventana},
        {"cerrar", "", cerrar},     {"informe", "t", informe},
    };
    return todos;
}
} // namespace guion

void elegirAbierta(QComboBox* lista, const QString& texto)
{
    if (lista == nullptr || !lista->view()->isVisible())
    {
        throw Falla("la lista se cerró");
    }
    const int entrada = lista->findText(texto, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (entrada < 0)
    {
        throw Falla("la lista no tiene «%1»%2", texto, controles::parecidos(texto, controles::entradasDe(*lista)));
    }
    const QModelIndex celda = lista->model()->index(entrada, lista->modelColumn(), lista->rootModelIndex());
    lista->view()->setCurrentIndex(celda);
    lista->view()->scrollTo(celda);
    entrada::tecla(Qt::Key_Return);
}

void reemplazarTexto(const QString& texto)
{
    entrada::tecla(Qt::Key_A, Qt::ControlModifier);
    texto.isEmpty() ? entrada::tecla(Qt::Key_Delete) : entrada::escribir(texto);
}
