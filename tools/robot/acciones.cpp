#include "acciones.h"

#include "captura.h"
#include "comprobaciones.h"
#include "controles.h"
#include "entrada.h"
#include "falla.h"
#include "platform/data/reloj.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"
#include "platform/screens/validacion.h"

#include <QtTest>
#include <QtWidgets>

namespace
{
/// Plays the lines that act. A line whose click was refused by a leaving check, which told so in a box, is done: what
/// the refusal left is for the next lines to look at.
class Jugador
{
public:
    Jugador(int linea, Contexto& contexto)
        : m_contexto(contexto)
        , m_linea(linea)
        , m_cajas(contexto.cajas)
        , m_lineas(contexto.lineas)
    {
    }

    void operator()(const guion::Menu& paso) { menu(paso.entradas); }
    void operator()(const guion::Salir&) { menu({QStringLiteral("Salir")}); }
    void operator()(const guion::Pulsar& paso) { entrada::clic(controles::buscarUsable(paso.control)); }
    void operator()(const guion::Escribir& paso);
    void operator()(const guion::Tecla& paso);
    void operator()(const guion::Elegir& paso);
    void operator()(const guion::Pagina& paso);
    void operator()(const guion::Fila& paso);
    void operator()(const guion::Celda& paso);
    void operator()(const guion::Responder& paso) { m_contexto.respuestas.push_back({m_linea, paso.si}); }
    void operator()(const guion::Archivo& paso) { m_contexto.archivos.push_back({m_linea, paso.ruta}); }
    void operator()(const guion::Ventana& paso);
    void operator()(const guion::Cerrar&);
    void operator()(const guion::Fecha& paso)
    {
        Reloj::reemplazar([ahora = paso.ahora] { return ahora; });
    }
    void operator()(const guion::Captura& paso)
    {
        grabarImagen(paso.soloLaVentana ? retratarVentana() : retratar(), m_contexto.ruta(paso.ruta));
    }
    void operator()(const guion::Informe& paso);

    template <class Comprobacion>
    void operator()(const Comprobacion& paso)
    {
        if constexpr (requires { comprobaciones::comprobar(paso); })
        {
            comprobaciones::comprobar(paso);
        }
        else
        {
            comprobaciones::comprobar(paso, m_contexto);
        }
    }

private:
    /// True when since the beginning of this line a box was shown, or other lines were played in a dialog.
    [[nodiscard]] bool interrumpida() const { return m_contexto.cajas != m_cajas || m_contexto.lineas != m_lineas; }
    void siNoInterrumpida(const QString& motivo) const
    {
        if (!interrumpida())
        {
            throw Falla(motivo);
        }
    }
    void luego(std::function<void()> resto) { m_contexto.luego = std::move(resto); }

    void pulsar(QWidget* control, QPoint lugar, bool doble)
    {
        if (doble)
        {
            entrada::dobleClic(control, lugar, [this] { return !interrumpida(); });
            return;
        }
        entrada::clic(control, lugar);
    }
    void menu(const QStringList& entradas);
    void abrirMenu(QMenu* menu, const QStringList& entradas);
    bool enfocar(QWidget* control, QWidget* donde);
    void elegirEnLista(QComboBox* lista, const QString& texto);
    static void elegirAbierta(QComboBox* lista, int entrada);
    void elegirEnVista(QAbstractItemView* vista, const QString& texto);
    void marcar(Grilla* grilla, const QModelIndex& celda, const QString& texto);
    void editar(Grilla* grilla, const QString& texto);

    Contexto& m_contexto;
    int m_linea;
    int m_cajas;
    int m_lineas;
};

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

void Jugador::menu(const QStringList& entradas)
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
    const QAction* entrada = entradaDe(barra->actions(), entradas.first());
    QMenu* abierto = entrada->menu();
    if ((abierto == nullptr) != (entradas.size() == 1))
    {
        throw Falla(QStringLiteral("«%1» %2").arg(entradas.first(),
                                                  abierto == nullptr ? QStringLiteral("no abre un menú")
                                                                     : QStringLiteral("es un menú: falta su entrada")));
    }
    entrada::clic(barra, barra->actionGeometry(const_cast<QAction*>(entrada)).center());
    if (abierto != nullptr)
    {
        abrirMenu(abierto, entradas.mid(1));
    }
}

void Jugador::abrirMenu(QMenu* menu, const QStringList& entradas)
{
    if (!menu->isVisible())
    {
        siNoInterrumpida(QStringLiteral("el menú no se abre"));
        return;
    }
    luego(
        [yo = *this, menu, entradas]() mutable
        {
            QAction* entrada = entradaDe(menu->actions(), entradas.first());
            entrada::clic(menu, menu->actionGeometry(entrada).center());
            if (entradas.size() > 1 && entrada->menu() != nullptr)
            {
                yo.abrirMenu(entrada->menu(), entradas.mid(1));
            }
        });
}

/// Brings the focus to a field by a click on `donde`; false when it was refused.
bool Jugador::enfocar(QWidget* control, QWidget* donde)
{
    if (!entrada::tieneFoco(control))
    {
        entrada::clic(donde);
        if (!entrada::tieneFoco(control))
        {
            siNoInterrumpida(QStringLiteral("«%1» no toma el foco").arg(control->objectName()));
            return false;
        }
    }
    return true;
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

void Jugador::operator()(const guion::Escribir& paso)
{
    QWidget* control = controles::buscarUsable(paso.control);
    QWidget* campo = control;
    if (const auto* lista = qobject_cast<const QComboBox*>(control))
    {
        campo = lista->lineEdit();
    }
    const bool deTexto = qobject_cast<QLineEdit*>(campo) != nullptr || qobject_cast<QTextEdit*>(campo) != nullptr ||
                         qobject_cast<QPlainTextEdit*>(campo) != nullptr ||
                         qobject_cast<QAbstractSpinBox*>(campo) != nullptr;
    if (!deTexto)
    {
        throw Falla(QStringLiteral("en «%1» no se escribe").arg(paso.control));
    }
    if (enfocar(control, campo))
    {
        reemplazarTexto(paso.texto);
    }
}

void Jugador::operator()(const guion::Tecla& paso)
{
    QWidget* control = controles::buscarUsable(paso.control);
    const bool deTexto = qobject_cast<QLineEdit*>(control) != nullptr || qobject_cast<QTextEdit*>(control) != nullptr ||
                         qobject_cast<QPlainTextEdit*>(control) != nullptr;
    if (!entrada::tieneFoco(control) && !deTexto)
    {
        // A click would press it or choose a row: the keyboard comes by Tab.
        if (!Validacion::instancia().intentarDejar())
        {
            return;
        }
        control->setFocus(Qt::TabFocusReason);
        if (!entrada::tieneFoco(control))
        {
            siNoInterrumpida(QStringLiteral("«%1» no toma el foco").arg(paso.control));
            return;
        }
    }
    if (enfocar(control, control))
    {
        entrada::tecla(paso.tecla, paso.modificadores);
    }
}

void Jugador::operator()(const guion::Elegir& paso)
{
    QWidget* control = controles::buscarUsable(paso.control);
    if (auto* lista = qobject_cast<QComboBox*>(control))
    {
        elegirEnLista(lista, paso.texto);
    }
    else if (auto* vista = qobject_cast<QAbstractItemView*>(control);
             vista != nullptr && qobject_cast<Grilla*>(control) == nullptr)
    {
        elegirEnVista(vista, paso.texto);
    }
    else
    {
        throw Falla(QStringLiteral("«%1» no es una lista").arg(paso.control));
    }
}

int entradaEn(const QComboBox& lista, const QString& texto)
{
    const int entrada = lista.findText(texto, Qt::MatchExactly | Qt::MatchCaseSensitive);
    if (entrada >= 0)
    {
        return entrada;
    }
    QStringList todas;
    for (int i = 0; i < lista.count(); ++i)
    {
        todas += lista.itemText(i);
    }
    const QString cerca = controles::parecidos(texto, todas);
    throw Falla(QStringLiteral("la lista no tiene «%1»; %2")
                    .arg(texto, cerca.isEmpty() ? QStringLiteral("tiene %1 entradas").arg(lista.count())
                                                : QStringLiteral("parecidas: ") + cerca));
}

void Jugador::elegirEnLista(QComboBox* lista, const QString& texto)
{
    const int entrada = entradaEn(*lista, texto);
    QStyleOptionComboBox opcion;
    opcion.initFrom(lista);
    opcion.editable = lista->isEditable();
    const QRect flecha = lista->style()->subControlRect(QStyle::CC_ComboBox, &opcion, QStyle::SC_ComboBoxArrow, lista);
    entrada::clic(lista, flecha.center());
    if (!lista->view()->isVisible())
    {
        siNoInterrumpida(QStringLiteral("la lista no se abre"));
        return;
    }
    luego([lista = QPointer(lista), entrada] { elegirAbierta(lista, entrada); });
}

/// The mouse would choose whatever lies under it if it let go too late; the keyboard does not.
void Jugador::elegirAbierta(QComboBox* lista, int entrada)
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

void Jugador::elegirEnVista(QAbstractItemView* vista, const QString& texto)
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

void Jugador::operator()(const guion::Pagina& paso)
{
    QStringList titulos;
    for (QTabBar* barra : controles::ventanaActual()->findChildren<QTabBar*>())
    {
        for (int i = 0; i < barra->count(); ++i)
        {
            titulos += controles::sinMarca(barra->tabText(i));
            if (!barra->isVisible() || titulos.last() != controles::sinMarca(paso.titulo))
            {
                continue;
            }
            if (!barra->isEnabled() || !barra->isTabEnabled(i))
            {
                throw Falla(QStringLiteral("la página «%1» está deshabilitada").arg(paso.titulo));
            }
            entrada::clic(barra, barra->tabRect(i).center());
            return;
        }
    }
    throw Falla(QStringLiteral("no hay página «%1»; hay: %2").arg(paso.titulo, titulos.join(QStringLiteral(", "))));
}

/// The first column that a click on the row does not change.
int columnaParaPulsar(const Grilla& grilla, int fila)
{
    int visible = -1;
    for (int columna = 0; columna < grilla.model()->columnCount(); ++columna)
    {
        if (grilla.isColumnHidden(columna))
        {
            continue;
        }
        const bool tilde =
            fila > 0 && grilla.model()->index(fila - 1, columna).flags().testFlag(Qt::ItemIsUserCheckable);
        if (!tilde)
        {
            return columna;
        }
        visible = visible < 0 ? columna : visible;
    }
    return visible;
}

QPoint lugarDe(const Grilla& grilla, const QModelIndex& celda)
{
    return (grilla.visualRect(celda) & grilla.viewport()->rect()).center();
}

void filaExiste(const Grilla& grilla, int fila)
{
    if (fila > grilla.filas())
    {
        throw Falla(QStringLiteral("la grilla tiene %1 filas").arg(grilla.filas()));
    }
}

void Jugador::operator()(const guion::Fila& paso)
{
    Grilla* grilla = controles::buscarGrilla(paso.grilla, true);
    filaExiste(*grilla, paso.fila);
    const int columna = columnaParaPulsar(*grilla, paso.fila);
    if (columna < 0)
    {
        throw Falla(QStringLiteral("la grilla no muestra ninguna columna"));
    }
    if (paso.fila == 0)
    {
        const QHeaderView* titulos = grilla->horizontalHeader();
        const int x = titulos->sectionViewportPosition(columna) + titulos->sectionSize(columna) / 2;
        pulsar(titulos->viewport(), QPoint(x, titulos->viewport()->height() / 2), paso.doble);
        return;
    }
    const QModelIndex celda = grilla->model()->index(paso.fila - 1, columna);
    grilla->scrollTo(celda);
    pulsar(grilla->viewport(), lugarDe(*grilla, celda), paso.doble);
}

void Jugador::operator()(const guion::Celda& paso)
{
    Grilla* grilla = controles::buscarGrilla(paso.grilla, true);
    filaExiste(*grilla, paso.fila);
    if (paso.columna > grilla->columnas() || grilla->isColumnHidden(paso.columna - 1))
    {
        throw Falla(QStringLiteral("la grilla no muestra la columna %1").arg(paso.columna));
    }
    const QModelIndex celda = grilla->model()->index(paso.fila - 1, paso.columna - 1);
    grilla->scrollTo(celda);
    if (celda.data(Qt::CheckStateRole).isValid())
    {
        marcar(grilla, celda, paso.texto);
        return;
    }
    pulsar(grilla->viewport(), lugarDe(*grilla, celda), true);
    if (!grilla->editando())
    {
        siNoInterrumpida(QStringLiteral("la celda no se edita"));
        return;
    }
    luego([yo = *this, grilla = QPointer(grilla), texto = paso.texto]() mutable { yo.editar(grilla, texto); });
}

void Jugador::marcar(Grilla* grilla, const QModelIndex& celda, const QString& texto)
{
    const std::optional<bool> si = guion::leerSiNo(texto);
    if (!si)
    {
        throw Falla(QStringLiteral("la celda se marca con si o no"));
    }
    const auto marcada = [celda = QPersistentModelIndex(celda)]
    { return celda.data(Qt::CheckStateRole).toInt() == Qt::Checked; };
    if (marcada() == *si)
    {
        return;
    }
    entrada::clic(grilla->viewport(), lugarDe(*grilla, celda));
    if (marcada() != *si)
    {
        siNoInterrumpida(QStringLiteral("la celda no se marca"));
    }
}

void Jugador::editar(Grilla* grilla, const QString& texto)
{
    if (grilla == nullptr || !grilla->editando())
    {
        throw Falla(QStringLiteral("la celda dejó de editarse"));
    }
    for (QComboBox* lista : grilla->viewport()->findChildren<QComboBox*>())
    {
        if (!lista->isVisible())
        {
            continue;
        }
        const int entrada = entradaEn(*lista, texto);
        if (!lista->view()->isVisible())
        {
            entrada::tecla(Qt::Key_F4);
        }
        elegirAbierta(lista, entrada);
        if (grilla->editando())
        {
            entrada::tecla(Qt::Key_Return);
        }
        return;
    }
    reemplazarTexto(texto);
    entrada::tecla(Qt::Key_Return);
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

void Jugador::operator()(const guion::Ventana& paso)
{
    Pantalla* pantalla = Navegacion::instancia().abierta(paso.nombre);
    if (pantalla == nullptr)
    {
        throw Falla(QStringLiteral("la ventana «%1» no está abierta").arg(paso.nombre));
    }
    const QWidget* modal = QApplication::activeModalWidget();
    if (modal != nullptr && modal != pantalla->window())
    {
        throw Falla(
            QStringLiteral("«%1» está detrás de la ventana modal «%2»").arg(paso.nombre, controles::nombreDe(modal)));
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

void Jugador::operator()(const guion::Cerrar&)
{
    controles::ventanaActual()->close();
}

/// The preview is found by what it is called and what it can do, so that the robot does not depend on it.
void Jugador::operator()(const guion::Informe& paso)
{
    QWidget* vista = nullptr;
    for (QWidget* ventana : QApplication::topLevelWidgets())
    {
        if (ventana->isVisible() && ventana->objectName() == QStringLiteral("Informe"))
        {
            vista = ventana;
        }
    }
    if (vista == nullptr)
    {
        throw Falla(QStringLiteral("no hay ningún informe a la vista"));
    }
    const QString ruta = m_contexto.ruta(paso.ruta);
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    QFile::remove(ruta);
    if (!QMetaObject::invokeMethod(vista, "guardarPdf", Qt::DirectConnection, Q_ARG(QString, ruta)) ||
        !QFileInfo::exists(ruta))
    {
        throw Falla(QStringLiteral("el informe no se guarda en %1").arg(paso.ruta));
    }
    vista->close();
}
} // namespace

QString Contexto::ruta(const QString& delGuion) const
{
    return QDir::toNativeSeparators(QDir::cleanPath(QDir(carpeta).absoluteFilePath(delGuion)));
}

void jugar(const guion::Paso& paso, Contexto& contexto)
{
    ++contexto.lineas;
    std::visit(Jugador(paso.linea, contexto), paso.accion);
}
