#include "exchange/screens/importar_nomina.h"

#include "core/rutinas.h"
#include "core/vigencia.h"
#include "exchange/importacion.h"
#include "ui/doors/mensajes.h"
#include "ui/shell/trabajo_largo.h"

bool ImportarNomina(const ClaveDDJJ& clave)
{
    const auto formato = static_cast<FormatoDeNomina>(Rutinas::FormatoImportar);
    ResultadoImportacion resultado;
    // After a failure the pointer stays busy, as file number 1 stays open, until an import goes well.
    Puntero::ocupado();
    try
    {
        TrabajoLargo trabajo(QStringLiteral("Importando la Nómina de Personal"), TrabajoLargo::Cancelable::Si);
        resultado = importarNomina(Rutinas::Conexion, clave, Rutinas::TextoDevuelto, formato, trabajo.aviso());
    }
    catch (const YaNoEsta&)
    {
        Puntero::normal();
        throw;
    }
    catch (const ErrorDeEjecucion& error)
    {
        TrabajoCancelado::pasar(error);
        MsgBox(QStringLiteral("%1 - %2").arg(error.numero()).arg(error.descripcion()));
        return false;
    }
    Puntero::normal();
    MsgBox(mensajeDeImportacion(resultado, formato), Caja::Exclamacion);
    return true;
}
