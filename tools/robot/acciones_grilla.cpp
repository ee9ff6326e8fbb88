#include "acciones.h"
#include "controles.h"
#include "entrada.h"
#include "falla.h"
#include "platform/screens/grilla.h"

#include <QtWidgets>

namespace
{
void clic(const Jugada& jugada, QWidget* control, QPoint lugar, bool doble)
{
    if (doble)
    {
        entrada::dobleClic(control, lugar, [jugada] { return !jugada.interrumpida(); });
        return;
    }
    entrada::clic(control, lugar);
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

Grilla* grillaConFila(const QString& nombre, int fila)
{
    Grilla* grilla = controles::buscarGrilla(nombre, true);
    if (fila > grilla->filas())
    {
        throw Falla(QStringLiteral("la grilla tiene %1 filas").arg(grilla->filas()));
    }
    return grilla;
}

void pulsarFila(const Jugada& jugada, const guion::Argumentos& a, bool doble)
{
    const int fila = a.numero(1);
    Grilla* grilla = grillaConFila(a.texto(0), fila);
    const int columna = columnaParaPulsar(*grilla, fila);
    if (columna < 0)
    {
        throw Falla(QStringLiteral("la grilla no muestra ninguna columna"));
    }
    if (fila == 0)
    {
        const QHeaderView* titulos = grilla->horizontalHeader();
        const int x = titulos->sectionViewportPosition(columna) + titulos->sectionSize(columna) / 2;
        clic(jugada, titulos->viewport(), QPoint(x, titulos->viewport()->height() / 2), doble);
        return;
    }
    const QModelIndex celda = grilla->model()->index(fila - 1, columna);
    grilla->scrollTo(celda);
    clic(jugada, grilla->viewport(), lugarDe(*grilla, celda), doble);
}

void marcar(const Jugada& jugada, Grilla* grilla, const QModelIndex& celda, const QString& texto)
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
        jugada.siNoInterrumpida(QStringLiteral("la celda no se marca"));
    }
}

void editar(const Grilla* grilla, const QString& texto)
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
} // namespace

namespace acciones
{
void fila(Jugada& jugada, const Argumentos& a)
{
    pulsarFila(jugada, a, false);
}

void doble(Jugada& jugada, const Argumentos& a)
{
    pulsarFila(jugada, a, true);
}

void celda(Jugada& jugada, const Argumentos& a)
{
    Grilla* grilla = grillaConFila(a.texto(0), a.numero(1));
    const int columna = a.numero(2);
    if (columna > grilla->columnas() || grilla->isColumnHidden(columna - 1))
    {
        throw Falla(QStringLiteral("la grilla no muestra la columna %1").arg(columna));
    }
    const QModelIndex celda = grilla->model()->index(a.numero(1) - 1, columna - 1);
    grilla->scrollTo(celda);
    if (celda.data(Qt::CheckStateRole).isValid())
    {
        marcar(jugada, grilla, celda, a.texto(3));
        return;
    }
    clic(jugada, grilla->viewport(), lugarDe(*grilla, celda), true);
    if (!grilla->editando())
    {
        jugada.siNoInterrumpida(QStringLiteral("la celda no se edita"));
        return;
    }
    jugada.luego([grilla = QPointer(grilla), texto = a.texto(3)] { editar(grilla, texto); });
}
} // namespace acciones
