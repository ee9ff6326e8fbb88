#include "acciones.h"

#include "base.h"
#include "captura.h"
#include "controles.h"
#include "entrada.h"
#include "falla.h"
#include "platform/data/reloj.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"
#include "platform/screens/validacion.h"
#include "teclas.h"

#include <QtWidgets>

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
        if (controles::sinMarca(entrada->text()) != controles::sinMarca(titulo))
        {
            nombres += controles::sinMarca(entrada->text());
            continue;
        }
        if (!entrada->isEnabled())
        {
            throw Falla(QStringLiteral("la entrada «%1» está deshabilitada").arg(titulo));
        }
        return entrada;
    }
    throw Falla(QStringLiteral("no hay entrada «%1»; hay: %2").arg(titulo, nombres.join(QStringLiteral(", "))));
}

void abrirMenu(const Jugada& jugada, QMenu* menu, const QStringList& entradas)
{
    if (!menu->isVisible())
    {
        jugada.siNoInterrumpida(QStringLiteral("el menú no se abre"));
        return;
    }
    jugada.luego(
        [jugada, menu, entradas]
        {
            QAction* entrada = entradaDe(menu->actions(), entradas.first());
            entrada::clic(menu, menu->actionGeometry(entrada).center());
            if (entradas.size() > 1 && entrada->menu() != nullptr)
            {
                abrirMenu(jugada, entrada->menu(), entradas.mid(1));
            }
        });
}

void recorrerMenu(const Jugada& jugada, const QStringList& entradas)
{
    if (QWidget* modal = QApplication::activeModalWidget())
    {
        throw Falla(QStringLiteral("el menú está detrás de la ventana modal «%1»").arg(controles::nombreDe(modal)));
    }
    const QMainWindow* principal = controles::ventanaPrincipal();
    if (principal == nullptr)
    {
        throw Falla(QStringLiteral("no hay ventana principal"));
    }
    QMenuBar* barra = principal->menuBar();
    QAction* entrada = entradaDe(barra->actions(), entradas.first());
    QMenu* abierto = entrada->menu();
    if ((abierto == nullptr) != (entradas.size() == 1))
    {
        throw Falla(QStringLiteral("«%1» %2").arg(entradas.first(),
                                                  abierto == nullptr ? QStringLiteral("no abre un menú")
                                                                     : QStringLiteral("es un menú: falta su entrada")));
    }
    entrada::clic(barra, barra->actionGeometry(entrada).center());
    if (abierto != nullptr)
    {
        abrirMenu(jugada, abierto, entradas.mid(1));
    }
}

/// Brings the focus to a field by a click on `donde`; false when it was refused.
bool enfocar(const Jugada& jugada, QWidget* control, QWidget* donde)
{
    if (!entrada::tieneFoco(control))
    {
        entrada::clic(donde);
        if (!entrada::tieneFoco(control))
        {
            jugada.siNoInterrumpida(QStringLiteral("«%1» no toma el foco").arg(control->objectName()));
            return false;
        }
    }
    return true;
}

bool esDeTexto(const QWidget* control)
{
    return qobject_cast<const QLineEdit*>(control) != nullptr || qobject_cast<const QTextEdit*>(control) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(control) != nullptr;
}

/// The field is ready to be written into; false when it refused the focus.
bool enfocarCampo(const Jugada& jugada, const QString& nombre)
{
    QWidget* control = controles::buscarUsable(nombre);
    QWidget* campo = control;
    if (const auto* lista = qobject_cast<const QComboBox*>(control))
    {
        campo = lista->lineEdit();
    }
    if (!esDeTexto(campo) && qobject_cast<QAbstractSpinBox*>(campo) == nullptr)
    {
        throw Falla(QStringLiteral("en «%1» no se escribe").arg(nombre));
    }
    return enfocar(jugada, control, campo);
}

/// As enfocarCampo, for any control: one that is no field comes by Tab, for a click would press it or choose a row.
bool enfocarConTeclado(const Jugada& jugada, const QString& nombre)
{
    QWidget* control = controles::buscarUsable(nombre);
    if (!entrada::tieneFoco(control) && !esDeTexto(control))
    {
        if (!Validacion::instancia().intentarDejar())
        {
            return false;
        }
        control->setFocus(Qt::TabFocusReason);
        if (!entrada::tieneFoco(control))
        {
            jugada.siNoInterrumpida(QStringLiteral("«%1» no toma el foco").arg(nombre));
            return false;
        }
    }
    return enfocar(jugada, control, control);
}

/// Keys and texts one after another, to whatever holds the focus by then. A box in between fails the line.
void teclearDesde(const Jugada& jugada, std::vector<guion::Palabra> golpes)
{
    const guion::Palabra golpe = golpes.front();
    golpes.erase(golpes.begin());
    if (golpe.entreComillas)
    {
        entrada::escribir(golpe.texto);
    }
    else
    {
        const Teclas teclas = leerTeclas(golpe.texto).value();
        entrada::tecla(teclas.tecla.key(), teclas.tecla.keyboardModifiers());
        if (teclas.veces > 1)
        {
            const QString sola = golpe.texto.first(golpe.texto.lastIndexOf(u'*') + 1);
            golpes.insert(golpes.begin(), {sola + QString::number(teclas.veces - 1)});
        }
    }
    if (golpes.empty())
    {
        return;
    }
    jugada.luego(
        [jugada, golpes = std::move(golpes)]
        {
            if (jugada.interrumpida())
            {
                throw Falla(QStringLiteral("antes de «%1» vino una caja").arg(golpes.front().texto));
            }
            teclearDesde(jugada, golpes);
        });
}

std::vector<guion::Palabra> palabrasDesde(const guion::Argumentos& a, std::size_t desde)
{
    std::vector<guion::Palabra> lista;
    for (std::size_t i = desde; i < a.cantidad(); ++i)
    {
        lista.push_back(a.palabra(i));
    }
    return lista;
}

void elegirEnLista(const Jugada& jugada, QComboBox* lista, const QString& texto)
{
    const int entrada = entradaEn(*lista, texto);
    QStyleOptionComboBox opcion;
    opcion.initFrom(lista);
    opcion.editable = lista->isEditable();
    const QRect flecha = lista->style()->subControlRect(QStyle::CC_ComboBox, &opcion, QStyle::SC_ComboBoxArrow, lista);
    entrada::clic(lista, flecha.center());
    if (!lista->view()->isVisible())
    {
        jugada.siNoInterrumpida(QStringLiteral("la lista no se abre"));
        return;
    }
    jugada.luego([lista = QPointer(lista), entrada] { elegirAbierta(lista, entrada); });
}

void elegirEnVista(QAbstractItemView* vista, const QString& texto)
{
    const QModelIndexList halladas =
        vista->model()->match(vista->model()->index(0, 0, vista->rootIndex()), Qt::DisplayRole, texto, 1,
                              Qt::MatchExactly | Qt::MatchRecursive);
    if (halladas.isEmpty())
    {
        throw Falla(QStringLiteral("la lista no tiene «%1»").arg(texto));
    }
    vista->scrollTo(halladas.first());
    entrada::clic(vista->viewport(), vista->visualRect(halladas.first()).center());
}

/// A part of a child's title bar that nothing covers, clear of its buttons; nothing when there is none.
std::optional<QPoint> lugarDelTitulo(const QMdiSubWindow& hija)
{
    constexpr int botones = 100;
    constexpr int icono = 40;
    constexpr int alto = 8;
    constexpr int salto = 10;
    const QWidget* ventana = hija.window();
    for (int x = icono; x < hija.width() - botones; x += salto)
    {
        const QPoint enVentana = hija.mapTo(ventana, QPoint(x, alto));
        if (ventana->rect().contains(enVentana) && ventana->childAt(enVentana) == &hija)
        {
            return QPoint(x, alto);
        }
    }
    return std::nullopt;
}
} // namespace

void elegirAbierta(QComboBox* lista, int entrada)
{
    if (lista == nullptr || !lista->view()->isVisible())
    {
        throw Falla(QStringLiteral("la lista se cerró"));
    }
    const QModelIndex celda = lista->model()->index(entrada, lista->modelColumn(), lista->rootModelIndex());
    lista->view()->setCurrentIndex(celda);
    lista->view()->scrollTo(celda);
    entrada::tecla(Qt::Key_Return);
}

int entradaEn(const QComboBox& lista, const QString& texto)
{
    const int entrada = lista.findText(texto, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (entrada >= 0)
    {
        return entrada;
    }
    const QString cerca = controles::parecidos(texto, controles::entradasDe(lista));
    throw Falla(QStringLiteral("la lista no tiene «%1»; %2")
                    .arg(texto, cerca.isEmpty() ? QStringLiteral("tiene %1 entradas").arg(lista.count())
                                                : QStringLiteral("parecidas: ") + cerca));
}

void reemplazarTexto(const QString& texto)
{
    entrada::tecla(Qt::Key_A, Qt::ControlModifier);
    if (texto.isEmpty())
    {
        entrada::tecla(Qt::Key_Delete);
        return;
    }
    entrada::escribir(texto);
}

namespace acciones
{
void menu(Jugada& jugada, const Argumentos& a)
{
    recorrerMenu(jugada, a.textos(0));
}

void salir(Jugada& jugada, const Argumentos&)
{
    recorrerMenu(jugada, {QStringLiteral("Salir")});
}

void pulsar(Jugada&, const Argumentos& a)
{
    entrada::clic(controles::buscarUsable(a.texto(0)));
}

void escribir(Jugada& jugada, const Argumentos& a)
{
    if (enfocarCampo(jugada, a.texto(0)))
    {
        reemplazarTexto(a.texto(1));
        if (a.cantidad() > 2)
        {
            jugada.luego([jugada, teclas = palabrasDesde(a, 2)] { teclearDesde(jugada, teclas); });
        }
    }
}

void pegar(Jugada& jugada, const Argumentos& a)
{
    if (enfocarCampo(jugada, a.texto(0)))
    {
        QApplication::clipboard()->setText(a.texto(1));
        std::vector<guion::Palabra> teclas = {{QStringLiteral("Ctrl+A")}, {QStringLiteral("Ctrl+V")}};
        std::ranges::copy(palabrasDesde(a, 2), std::back_inserter(teclas));
        teclearDesde(jugada, teclas);
    }
}

void tecla(Jugada& jugada, const Argumentos& a)
{
    if (enfocarConTeclado(jugada, a.texto(0)))
    {
        teclearDesde(jugada, palabrasDesde(a, 1));
    }
}

void teclear(Jugada& jugada, const Argumentos& a)
{
    teclearDesde(jugada, palabrasDesde(a, 0));
}

void elegir(Jugada& jugada, const Argumentos& a)
{
    QWidget* control = controles::buscarUsable(a.texto(0));
    if (auto* lista = qobject_cast<QComboBox*>(control))
    {
        elegirEnLista(jugada, lista, a.texto(1));
    }
    else if (auto* vista = qobject_cast<QAbstractItemView*>(control);
             vista != nullptr && qobject_cast<Grilla*>(control) == nullptr)
    {
        elegirEnVista(vista, a.texto(1));
    }
    else
    {
        throw Falla(QStringLiteral("«%1» no es una lista").arg(a.texto(0)));
    }
}

void pagina(Jugada&, const Argumentos& a)
{
    QStringList titulos;
    for (QTabBar* barra : controles::ventanaActual()->findChildren<QTabBar*>())
    {
        for (int i = 0; i < barra->count(); ++i)
        {
            titulos += controles::sinMarca(barra->tabText(i));
            if (!barra->isVisible() || titulos.last() != controles::sinMarca(a.texto(0)))
            {
                continue;
            }
            if (!barra->isEnabled() || !barra->isTabEnabled(i))
            {
                throw Falla(QStringLiteral("la página «%1» está deshabilitada").arg(a.texto(0)));
            }
            entrada::clic(barra, barra->tabRect(i).center());
            return;
        }
    }
    throw Falla(QStringLiteral("no hay página «%1»; hay: %2").arg(a.texto(0), titulos.join(QStringLiteral(", "))));
}

void ventana(Jugada&, const Argumentos& a)
{
    Pantalla* pantalla = Navegacion::instancia().abierta(a.texto(0));
    if (pantalla == nullptr)
    {
        throw Falla(QStringLiteral("la ventana «%1» no está abierta").arg(a.texto(0)));
    }
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != pantalla->window())
    {
        throw Falla(
            QStringLiteral("«%1» está detrás de la ventana modal «%2»").arg(a.texto(0), controles::nombreDe(modal)));
    }
    pantalla->window()->activateWindow();
    QMdiSubWindow* hija = nullptr;
    for (QWidget* padre = pantalla; padre != nullptr && hija == nullptr; padre = padre->parentWidget())
    {
        hija = qobject_cast<QMdiSubWindow*>(padre);
    }
    if (hija == nullptr || hija == controles::hijaActiva())
    {
        return;
    }
    const auto titulo = hija->isMaximized() || hija->isMinimized() ? std::nullopt : lugarDelTitulo(*hija);
    if (titulo)
    {
        entrada::clic(hija, *titulo);
    }
    else if (Validacion::instancia().intentarDejar())
    {
        hija->mdiArea()->setActiveSubWindow(hija); // as Ctrl+Tab does for one that is covered
    }
}

void cerrar(Jugada&, const Argumentos&)
{
    controles::ventanaActual()->close();
}

/// The preview is found by what it is called and what it can do, so that the robot does not depend on it.
void informe(Jugada& jugada, const Argumentos& a)
{
    const QWidgetList todas = QApplication::topLevelWidgets();
    const auto vista = std::ranges::find_if(todas, [](const QWidget* w)
                                            { return w->isVisible() && w->objectName() == QStringLiteral("Informe"); });
    if (vista == todas.end())
    {
        throw Falla(QStringLiteral("no hay ningún informe a la vista"));
    }
    const QString ruta = jugada.contexto().ruta(a.texto(0));
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    QFile::remove(ruta);
    if (!QMetaObject::invokeMethod(*vista, "guardarPdf", Qt::DirectConnection, Q_ARG(QString, ruta)) ||
        !QFileInfo::exists(ruta))
    {
        throw Falla(QStringLiteral("el informe no se guarda en %1").arg(a.texto(0)));
    }
    (*vista)->close();
}

void responder(Jugada& jugada, const Argumentos& a)
{
    jugada.contexto().respuestas.push_back({jugada.linea(), a.siNo(0)});
}

void archivo(Jugada& jugada, const Argumentos& a)
{
    jugada.contexto().archivos.push_back({jugada.linea(), a.texto(0)});
}

void fecha(Jugada&, const Argumentos& a)
{
    const QTime hora = a.cantidad() > 1 ? QTime::fromString(a.texto(1), QStringLiteral("HH:mm")) : QTime(0, 0);
    const QDateTime ahora(QDate::fromString(a.texto(0), QStringLiteral("dd/MM/yyyy")), hora);
    Reloj::reemplazar([ahora] { return ahora; });
}

void sql(Jugada& jugada, const Argumentos& a)
{
    ejecutarEnBase(jugada.contexto().base(), a.texto(0).toStdString());
}

void captura(Jugada& jugada, const Argumentos& a)
{
    grabarImagen(retratar(), jugada.contexto().ruta(a.texto(0)));
}

void retrato(Jugada& jugada, const Argumentos& a)
{
    grabarImagen(retratarVentana(), jugada.contexto().ruta(a.texto(0)));
}
} // namespace acciones
