#pragma once

#include "base/aviso.h"
#include "base/error_de_ejecucion.h"

#include <QString>
#include <functional>
#include <memory>

/// The user gave a work up: what it had begun is undone by whom it passes.
class TrabajoCancelado : public ErrorParaAvisar
{
public:
    TrabajoCancelado();
    /// For a handler that tells failures by their number: a work given up is none of them and passes on, to be told in
    /// its own words. Called within the handler, with what it caught.
    static void pasar(const ErrorDeEjecucion& error);
};

/// How long the rest of a work takes, as the user is told: "faltan unos 20 s", "falta 1 min", "faltan 3 min". From the
/// milliseconds since it began and what is done of the total. Empty in the first two seconds, and where nothing is
/// done, nothing is left or the total is not known.
[[nodiscard]] QString tiempoRestante(qint64 transcurrido, qint64 hecho, qint64 total);

/// Long work on the only thread: a busy pointer while it lives and, past half a second, its progress
/// and the time that is left in a small window of the program. What the user types, clicks or closes meanwhile is
/// thrown away for good; only a box that the work itself shows is answered.
class TrabajoLargo
{
public:
    enum class Cancelable
    {
        No,
        Si, ///< the progress has a button for it, and Escape presses it: avanzar() then throws TrabajoCancelado
    };
    explicit TrabajoLargo(const QString& titulo, Cancelable cancelable = Cancelable::No);
    ~TrabajoLargo();
    TrabajoLargo(const TrabajoLargo&) = delete;
    TrabajoLargo& operator=(const TrabajoLargo&) = delete;
    /// Cheap to call often; runs the events that came meanwhile. A total of 0 shows that the work goes on without
    /// telling how far it is.
    void avanzar(qint64 hecho, qint64 total);
    /// The same as a function, for the rules.
    [[nodiscard]] Aviso aviso();
    [[nodiscard]] static bool enCurso();
    /// Milliseconds before the progress shows; 500 unless a test says otherwise.
    static void fijarDemora(int milisegundos);

private:
    struct Interno;
    std::unique_ptr<Interno> m_interno;
};

/// The mouse pointer as a screen leaves it: busy until set back, whatever happens in between.
namespace Puntero
{
void ocupado();
void normal();
[[nodiscard]] bool estaOcupado();
} // namespace Puntero
