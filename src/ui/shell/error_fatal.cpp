#include "ui/shell/error_fatal.h"

#include "base/error_de_ejecucion.h"
#include "ui/doors/mensajes.h"
#include "ui/shell/trabajo_largo.h"

#include <QScopedValueRollback>
#include <cstdio>
#include <cstdlib>
#include <new>

namespace
{
constexpr int estadoDeError = 3;

std::function<void(int)> finReemplazado;
bool informando = false; ///< a second error is not reported: it is a consequence of the first
} // namespace

void informarErrorFatal(const ErrorDeEjecucion& error)
{
    if (informando)
    {
        return;
    }
    const QScopedValueRollback informe(informando, true);
    try
    {
        MsgBox(QStringLiteral("Se ha producido el error '%1' en tiempo de ejecución:\n\n%2")
                   .arg(QString::number(error.numero()), error.descripcion()),
               Caja::Critico);
    }
    catch (...)
    {
        std::fprintf(stderr, "%s\n", error.what());
    }
    terminarProceso(estadoDeError);
}

void terminarProceso(int estado)
{
    if (finReemplazado)
    {
        finReemplazado(estado);
        return;
    }
    // No destructor of a static object runs: one of them could wait for a window or a file that no longer answers.
    std::fflush(nullptr);
    std::_Exit(estado);
}

void reemplazarFinDelProceso(std::function<void(int estado)> fin)
{
    finReemplazado = std::move(fin);
}

void protegido(const std::function<void()>& cuerpo)
{
    try
    {
        cuerpo();
    }
    catch (const ErrorParaAvisar& error)
    {
        Puntero::normal(); // what was being done is given up
        MsgBox(error.descripcion(), Caja::Exclamacion);
    }
    catch (const ErrorDeEjecucion& error)
    {
        informarErrorFatal(error);
    }
    catch (const std::bad_alloc&)
    {
        informarErrorFatal(ErrorDeEjecucion(ErrorDeEjecucion::SinMemoria, QStringLiteral("Memoria insuficiente")));
    }
    catch (const std::exception& error)
    {
        informarErrorFatal(ErrorDeEjecucion(ErrorDeEjecucion::LlamadaNoValida, QString::fromUtf8(error.what())));
    }
    catch (...)
    {
        informarErrorFatal(ErrorDeEjecucion(ErrorDeEjecucion::ErrorInterno));
    }
}
