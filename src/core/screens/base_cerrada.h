#pragma once

#include "base/aviso.h"
#include "base/error_de_ejecucion.h"

#include <QString>
#include <functional>
#include <optional>

namespace Rutinas
{
/// Work on the database file itself, which no connection may hold: closes the base, runs `trabajo` under a progress
/// window titled `titulo`, opens the base again and only then calls `contar` with what `trabajo` threw, if it did: a
/// box waits for the user, and while the base is closed another desk may do anything to it. When the base cannot be
/// opened again, `contar` is called all the same and that failure is thrown after it. The user can give the work up as
/// long as it tells how far it is: then TrabajoCancelado is thrown in the place of `contar`.
void ConLaBaseCerrada(const QString& titulo, const std::function<void(const Aviso&)>& trabajo,
                      const std::function<void(const std::optional<ErrorDeEjecucion>&)>& contar);

/// Told once such work is over and its outcome told: the base may be another one. An empty function: nobody is.
void fijarTrasLaBaseCerrada(std::function<void()> avisar);

/// Opens the base again. While another desk holds it alone (70), or writes, it waits for that work to end; after a
/// minute it tells the user and goes on waiting. Throws for any other failure.
void ReabrirBase();
/// How long ReabrirBase() waits before it tells; one minute unless a test says otherwise.
void fijarPacienciaAlReabrir(int milisegundos);
} // namespace Rutinas
