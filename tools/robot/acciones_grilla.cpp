#include "acciones.h"
#include "controles.h"
#include "entrada.h"
#include "guion.h"
#include "jugada.h"
#include "ui/grid/grilla.h"

#include <QtWidgets>

namespace guion
{
namespace
{
void clic(const Jugada& jugada, QWidget* control, QPoint lugar, bool doble)
{
    doble ? entrada::dobleClic(control, lugar, [jugada] { return !jugada.interrumpida(); })
          : entrada::clic(control, lugar);
}

bool esTilde(const QModelIndex& celda)
{
    return celda.data(Qt::CheckStateRole).isValid();
}

/// The first column shown that a click on the row does not change.
int columnaParaPulsar(const Grilla& grilla, int fila)
{
    for (int columna = 1; columna <= grilla.columnas(); ++columna)
    {
        if (grilla.seVe(columna) && !esTilde(grilla.indice(columna, fila)))
        {
            return columna;
        }
    }
    throw Falla("la grilla no muestra ninguna columna");
}

QPoint lugarDe(const Grilla& grilla, const QModelIndex& celda)
{
    return (grilla.visualRect(celda) & grilla.viewport()->rect()).center();
}

Grilla* grillaConFila(const QString& nombre, int fila)
{
    Grilla* grilla = controles::buscarGrilla(nombre, true);
    return fila <= grilla->filas() ? grilla : throw Falla("la grilla tiene %1 filas", grilla->filas());
}

void doble(const Jugada& jugada, const Argumentos& a)
{
    pulsarFila(jugada, a[0].texto, a[1].numero(), true);
}

void marcar(const Jugada& jugada, Grilla* grilla, const QPersistentModelIndex& celda, const QString& texto)
{
    const std::optional<bool> si = leerSiNo(texto);
    const auto falta = [&] { return (celda.data(Qt::CheckStateRole).toInt() == Qt::Checked) != *si; };
    if (!si)
    {
        throw Falla("la celda se marca con si o no");
    }
    if (falta())
    {
        entrada::clic(grilla->viewport(), lugarDe(*grilla, celda));
    }
    if (falta())
    {
        jugada.siNoInterrumpida("la celda no se marca");
    }
}

void editar(const Grilla* grilla, const QString& texto)
{
    if (grilla == nullptr || !grilla->editando())
    {
        throw Falla("la celda dejó de editarse");
    }
    const QList<QComboBox*> listas = grilla->viewport()->findChildren<QComboBox*>();
    const auto lista = std::ranges::find_if(listas, &QComboBox::isVisible);
    if (lista == listas.end())
    {
        reemplazarTexto(texto);
    }
    else
    {
        if (!(*lista)->view()->isVisible())
        {
            entrada::tecla(Qt::Key_F4);
        }
        elegirAbierta(*lista, texto);
    }
    if (grilla->editando())
    {
        entrada::tecla(Qt::Key_Return);
    }
}

void celda(const Jugada& jugada, const Argumentos& a)
{
    Grilla* grilla = grillaConFila(a[0].texto, a[1].numero());
    const int columna = a[2].numero();
    if (!grilla->seVe(columna))
    {
        throw Falla("la grilla no muestra la columna %1", columna);
    }
    const QModelIndex celda = grilla->indice(columna, a[1].numero());
    grilla->scrollTo(celda);
    if (esTilde(celda))
    {
        marcar(jugada, grilla, celda, a[3].texto);
        return;
    }
    clic(jugada, grilla->viewport(), lugarDe(*grilla, celda), true);
    if (!grilla->editando())
    {
        jugada.siNoInterrumpida("la celda no se edita");
        return;
    }
    jugada.luego([grilla = QPointer(grilla), texto = a[3].texto] { editar(grilla, texto); });
}
} // namespace

std::span<const Verbo> verbosDeGrilla()
{
    static constexpr Verbo todos[] = {{"doble", "cf", doble}, {"celda", "cn(nt)", celda}};
    return todos;
}

void pulsarFila(const Jugada& jugada, const QString& nombre, int fila, bool dosVeces)
{
    Grilla* grilla = grillaConFila(nombre, fila);
    const int columna = columnaParaPulsar(*grilla, fila);
    if (fila == 0)
    {
        const QHeaderView* titulos = grilla->horizontalHeader();
        const int seccion = qMax(0, grilla->indice(columna, 1).column());
        const int x = titulos->sectionViewportPosition(seccion) + titulos->sectionSize(seccion) / 2;
        clic(jugada, titulos->viewport(), QPoint(x, titulos->viewport()->height() / 2), dosVeces);
        return;
    }
    const QModelIndex lugar = grilla->indice(columna, fila);
    grilla->scrollTo(lugar);
    clic(jugada, grilla->viewport(), lugarDe(*grilla, lugar), dosVeces);
}
} // namespace guion
