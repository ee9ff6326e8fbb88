#include "core/screens/base_cerrada.h"

#include "core/rutinas.h"
#include "ui/doors/mensajes.h"
#include "ui/shell/trabajo_largo.h"

#include <QDeadlineTimer>
#include <QThread>

namespace
{
constexpr unsigned long entreIntentos = 50; // ms
int paciencia = 60'000;                     // ms
std::function<void()> alVolver;

std::optional<ErrorDeEjecucion> fallaDe(const std::function<void()>& cuerpo)
{
    try
    {
        cuerpo();
        return std::nullopt;
    }
    catch (const ErrorDeEjecucion& error)
    {
        return error;
    }
    catch (const std::exception& error)
    {
        return ErrorDeEjecucion(ErrorDeEjecucion::LlamadaNoValida, QString::fromUtf8(error.what()));
    }
}

/// False when another desk still held the base alone at the end of the wait.
bool reabrirEsperando()
{
    TrabajoLargo espera(QStringLiteral("Esperando a que otro puesto deje de usar la base de datos"));
    for (const QDeadlineTimer fin(paciencia);;)
    {
        const auto falla = fallaDe(Rutinas::AbrirBase);
        if (!falla)
        {
            return true;
        }
        if (falla->numero() != ErrorDeEjecucion::EnUso && (falla->numero() & 0xFF) != ErrorDeEjecucion::BaseOcupada)
        {
            throw ErrorDeEjecucion(*falla);
        }
        if (fin.hasExpired())
        {
            return false;
        }
        espera.avanzar(0, 0);
        QThread::msleep(entreIntentos);
    }
}
} // namespace

void Rutinas::ReabrirBase()
{
    while (!reabrirEsperando())
    {
        MsgBox(QStringLiteral("Otro puesto está copiando, compactando o restaurando la base de datos.  Acepte para "
                              "volver a intentar abrirla."),
               Caja::Exclamacion);
    }
}

void Rutinas::ConLaBaseCerrada(const QString& titulo, const std::function<void(const Aviso&)>& trabajo,
                               const std::function<void(const std::optional<ErrorDeEjecucion>&)>& contar)
{
    CerrarBase();
    bool abandonado = false;
    const auto falla = fallaDe(
        [&]
        {
            try
            {
                TrabajoLargo avance(titulo, TrabajoLargo::Cancelable::Si);
                trabajo(avance.aviso());
            }
            catch (const TrabajoCancelado&)
            {
                abandonado = true;
            }
        });
    const auto fallaAlReabrir = fallaDe(ReabrirBase);
    abandonado ? void() : contar(falla);
    if (fallaAlReabrir)
    {
        throw ErrorDeEjecucion(*fallaAlReabrir);
    }
    if (alVolver)
    {
        alVolver();
    }
    if (abandonado)
    {
        throw TrabajoCancelado();
    }
}

void Rutinas::fijarTrasLaBaseCerrada(std::function<void()> avisar)
{
    alVolver = std::move(avisar);
}

void Rutinas::fijarPacienciaAlReabrir(int milisegundos)
{
    paciencia = milisegundos;
}
