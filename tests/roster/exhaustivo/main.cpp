// Holds the program's contribution rules against two independent computations for every wage from 0,00 to 99.999,99:
// the same rule in whole numbers, which must agree to the last bit, and plain decimal arithmetic, of which it tells how
// often and by how much it differs. Takes about a minute; not part of the test run.
#include "roster/aportes_exactos.h"

#include <cinttypes>
#include <cstdio>
#include <initializer_list>

int main()
{
    constexpr std::uint64_t mayorSueldo = 9999999;
    constexpr unsigned horas[] = {100, 128, 129, 150, 173, 200};
    const std::uint64_t malLeidos = exactos::malLeidos(mayorSueldo, 1);
    std::printf("wages read as another float: %" PRIu64 "\n", malLeidos);
    bool bien = malLeidos == 0;
    std::printf("%-9s %5s %10s %9s %8s %8s %6s %12s %12s\n", "rule", "hours", "wages", "mismatch", "ART100", "ART101",
                "max", "sum ART100", "sum ART101");
    for (const auto regla : {exactos::Regla::Pantalla, exactos::Regla::Lote})
    {
        for (const unsigned h : horas)
        {
            const exactos::Comparacion c = exactos::comparar(regla, h, mayorSueldo, 1);
            std::printf("%-9s %5u %10" PRIu64 " %9" PRIu64 " %8" PRIu64 " %8" PRIu64 " %6" PRIu64 " %12" PRId64
                        " %12" PRId64 "\n",
                        regla == exactos::Regla::Pantalla ? "screen" : "bulk", h, c.casos, c.contraBinario, c.art100,
                        c.art101, c.mayor, c.art100DeMas, c.art101DeMas);
            std::fflush(stdout);
            bien = bien && c.contraBinario == 0;
        }
    }
    return bien ? 0 : 1;
}
