#include "ui/grid/grilla_orden.h"

#include "base/db/conexion.h"
#include "ui/grid/grilla_celdas.h"

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

std::vector<int> ordenDeFilas(const Grilla& grilla, int columna, Qt::SortOrder sentido)
{
    std::vector<Orden> valores;
    valores.reserve(std::size_t(grilla.filas()));
    for (int fila = 1; fila <= grilla.filas(); ++fila)
    {
        valores.push_back(ordenDe(grilla.valor(columna, fila)));
    }
    std::vector<int> orden(valores.size());
    std::iota(orden.begin(), orden.end(), 0);
    std::stable_sort(orden.begin(), orden.end(),
                     [&](int a, int b)
                     {
                         const Orden& primera = valores[std::size_t(sentido == Qt::AscendingOrder ? a : b)];
                         return primera.antesDe(valores[std::size_t(sentido == Qt::AscendingOrder ? b : a)]);
                     });
    return orden;
}
