#include "verbos.h"

#include "acciones.h"
#include "comprobaciones.h"

#include <algorithm>

namespace
{
constexpr Verbo verbos[] = {
    {"menu", "t+", acciones::menu},
    {"salir", "", acciones::salir},
    {"pulsar", "c", acciones::pulsar},
    {"escribir", "(ctk?)", acciones::escribir},
    {"pegar", "(ctk?)", acciones::pegar},
    {"tecla", "ck+", acciones::tecla},
    {"teclear", "x+", acciones::teclear},
    {"elegir", "(ct)", acciones::elegir},
    {"pagina", "t", acciones::pagina},
    {"fila", "cf", acciones::fila},
    {"doble", "cf", acciones::doble},
    {"celda", "cn(nt)", acciones::celda},
    {"ventana", "c", acciones::ventana},
    {"cerrar", "", acciones::cerrar},
    {"informe", "t", acciones::informe},
    {"responder", "s", acciones::responder, false},
    {"archivo", "t", acciones::archivo, false},
    {"fecha", "dh?", acciones::fecha, false},
    {"sql", "t", acciones::sql, false},
    {"captura", "t", acciones::captura, false},
    {"retrato", "t", acciones::retrato, false},
    {"espera", "(ct)", comprobaciones::texto, false},
    {"espera_activo", "(c+s)", comprobaciones::activo, false},
    {"espera_visible", "(c+s)", comprobaciones::visible, false},
    {"espera_marca", "(c+s)", comprobaciones::marca, false},
    {"espera_foco", "c", comprobaciones::foco, false},
    {"espera_lista", "ct+", comprobaciones::lista, false},
    {"espera_celda", "cf(nt)", comprobaciones::celda, false},
    {"espera_fila", "cnt+", comprobaciones::fila, false},
    {"espera_filas", "ct+", comprobaciones::filas, false},
    {"espera_amarillas", "cn*", comprobaciones::amarillas, false},
    {"espera_mensaje", "t", comprobaciones::mensaje, false},
    {"espera_caja", "ett", comprobaciones::caja, false},
    {"espera_titulo", "t", comprobaciones::titulo, false},
    {"espera_estado", "t", comprobaciones::estado, false},
    {"espera_ventana", "(c+s)", comprobaciones::ventana, false},
    {"espera_archivo", "tt", comprobaciones::archivo, false},
    {"espera_sin_archivo", "t", comprobaciones::sinArchivo, false},
    {"espera_base", "tt+", comprobaciones::base, false},
};
} // namespace

const Verbo* buscarVerbo(const QString& nombre)
{
    const auto* const hallado = std::ranges::find_if(verbos, [&](const Verbo& v) { return nombre == v.nombre; });
    return hallado == std::end(verbos) ? nullptr : hallado;
}
