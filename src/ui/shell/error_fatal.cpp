#include "ui/shell/error_fatal.h"

#include "base/error_de_ejecucion.h"
#include "ui/doors/mensajes.h"
#include "ui/shell/trabajo_largo.h"

#include <cstdio>
#include <cstdlib>
#include <new>

namespace
{
constexpr int estadoDeError = 3;
constexpr int llamadaNoValida = 5;
constexpr int sinMemoria = 7;
constexpr int errorInterno = 51;

std::function<void(int)> finReemplazado;
bool informando = false;

/// While it lives, a second error is not reported: it is a consequence of the first.
struct Informe
{
    Informe() { informando = true; }
    ~Informe() { informando = false; }
    Informe(const Informe&) = delete;
    Informe& operator=(const Informe&) = delete;
};
} // namespace

void informarErrorFatal(const ErrorDeEjecucion& error)
{
    if (informando)
    {
        return;
    }
    const Informe informe;
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
        informarErrorFatal(ErrorDeEjecucion(sinMemoria, QStringLiteral("Memoria insuficiente")));
    }
    catch (const std::exception& error)
    {
        informarErrorFatal(ErrorDeEjecucion(llamadaNoValida, QString::fromUtf8(error.what())));
    }
    catch (...)
    {
        informarErrorFatal(ErrorDeEjecucion(errorInterno, QStringLiteral("Error interno")));
    }
}
