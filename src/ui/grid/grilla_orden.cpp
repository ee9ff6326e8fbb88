// The rows of a grid by the values of a column.
#include "base/db/conexion.h"
#include "ui/grid/grilla_modelo.h"

#include <QHeaderView>
#include <QScopedValueRollback>
#include <algorithm>
#include <cstdint>
#include <numeric>
#include <string>

namespace
{
/// What a cell is compared by: empty cells come before numbers, and those before texts.
struct Orden
{
    enum Clase
    {
        Vacia,
        Numero,
        Texto,
    };
    Clase clase = Vacia;
    std::int64_t numero = 0;
    std::string texto;

    [[nodiscard]] bool antesDe(const Orden& otra) const
    {
        if (clase != otra.clase)
        {
            return clase < otra.clase;
        }
        return clase == Texto ? compararEspanol(texto, otra.texto) < 0 : numero < otra.numero;
    }
};

Orden ordenDe(const QVariant& valor)
{
    if (celdaVacia(valor))
    {
        return {};
    }
    if (valor.typeId() == QMetaType::QString)
    {
        return {Orden::Texto, 0, valor.toString().toStdString()};
    }
    if (valor.metaType() == QMetaType::fromType<Moneda>())
    {
        return {Orden::Numero, valor.value<Moneda>().diezMilesimos(), {}};
    }
    return {Orden::Numero, valor.typeId() == QMetaType::QDate ? valor.toDate().toJulianDay() : valor.toLongLong(), {}};
}
} // namespace

void Grilla::setOrdenable()
{
    horizontalHeader()->setSortIndicatorShown(true);
    horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this, // the header has turned its own mark by then
            [this](int seccion) { ordenar(m_modelo->propia(seccion) + 1, horizontalHeader()->sortIndicatorOrder()); });
}

void Grilla::ordenar(int columna, Qt::SortOrder sentido)
{
    std::vector<Orden> valores;
    valores.reserve(std::size_t(filas()));
    for (int fila = 1; fila <= filas(); ++fila)
    {
        valores.push_back(ordenDe(valor(columna, fila)));
    }
    std::vector<int> orden(valores.size());
    std::iota(orden.begin(), orden.end(), 0);
    std::stable_sort(orden.begin(), orden.end(),
                     [&](int a, int b)
                     {
                         const Orden& primera = valores[std::size_t(sentido == Qt::AscendingOrder ? a : b)];
                         return primera.antesDe(valores[std::size_t(sentido == Qt::AscendingOrder ? b : a)]);
                     });
    const QScopedValueRollback callado(m_silencio, true);
    cancelarEdicion();
    m_pegadas.clear();
    const int columnaAntes = columnaActual();
    const auto actual = std::find(orden.begin(), orden.end(), filaActual() - 1);
    m_modelo->ordenar(orden);
    if (actual != orden.end())
    {
        setFilaActual(int(actual - orden.begin()) + 1, columnaAntes); // the same row, wherever it is now
    }
}
