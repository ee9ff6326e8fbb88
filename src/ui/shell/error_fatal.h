#pragma once

#include <functional>
#include <utility>

class ErrorDeEjecucion;

/// The run-time report: a critical box with number and description, once, then the end of the process (status 3).
void informarErrorFatal(const ErrorDeEjecucion& error);
/// Ends the process at once, with all windows; what the database has not committed is undone by its journal.
void terminarProceso(int estado);
/// Tests and the robot put their own end here; an empty function brings the real one back.
void reemplazarFinDelProceso(std::function<void(int estado)> fin);

/// Runs `cuerpo` so that no exception crosses Qt: an ErrorParaAvisar is told in one box and the program goes on, any
/// other is reported by informarErrorFatal.
void protegido(const std::function<void()>& cuerpo);
