#include "base/db/preparada.h"

#include <QDeadlineTimer>

namespace
{
constexpr std::chrono::milliseconds esperaComun{10'000};
constexpr int primerasVueltas = 10;
constexpr qint64 pausaCorta = 2; // ms
constexpr qint64 pausaLarga = 25;

std::function<void(bool)> avisar;
QDeadlineTimer finDeLaEspera;                    ///< of the wait at work
QDeadlineTimer limite = QDeadlineTimer::Forever; ///< of all waits of an EsperaCorta
bool esperando = false;

int alEstarOcupada(void* /*sin uso*/, int vuelta)
{
    if (vuelta == 0)
    {
        finDeLaEspera = QDeadlineTimer(esperaComun);
    }
    const qint64 queda = limite.isForever() ? finDeLaEspera.remainingTime()
                                            : std::min(finDeLaEspera.remainingTime(), limite.remainingTime());
    if (queda <= 0)
    {
        return 0;
    }
    esperando = true;
    if (avisar)
    {
        avisar(true);
    }
    sqlite3_sleep(static_cast<int>(std::min(queda, vuelta < primerasVueltas ? pausaCorta : pausaLarga)));
    return 1;
}
} // namespace

void detalle::esperarAOtrasCopias(sqlite3* base)
{
    sqlite3_busy_handler(base, alEstarOcupada, nullptr);
}

detalle::FinDeEspera::~FinDeEspera()
{
    if (esperando)
    {
        esperando = false;
        if (avisar)
        {
            avisar(false);
        }
    }
}

void Conexion::alEsperar(std::function<void(bool)> aviso)
{
    avisar = std::move(aviso);
}

Conexion::EsperaCorta::EsperaCorta(std::chrono::milliseconds cuanto)
{
    limite = QDeadlineTimer(cuanto);
}

Conexion::EsperaCorta::~EsperaCorta()
{
    limite = QDeadlineTimer::Forever;
}
