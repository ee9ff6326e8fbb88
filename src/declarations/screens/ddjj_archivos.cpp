#include "core/rutinas.h"
#include "declarations/screens/ddjj.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/importacion.h"
#include "platform/data/archivos.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/dialogos.h"
#include "platform/screens/mensajes.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/trabajo_largo.h"
#include "ui_ddjj.h"

void DDJJ::cmdImportar_Click()
{
    if (!exigirEmpresa() || !exigirPeriodo())
    {
        return;
    }
    Rutinas::TextoDevuelto.clear();
    Navegacion::instancia().mostrarModal(QStringLiteral("Importar"));
    if (Rutinas::TextoDevuelto.isEmpty())
    {
        return;
    }
    const auto formato = static_cast<FormatoDeNomina>(Rutinas::FormatoImportar);
    ResultadoImportacion resultado;
    // After a failure the pointer stays busy, as file number 1 stays open, until an import goes well.
    Puntero::ocupado();
    try
    {
        TrabajoLargo trabajo(QStringLiteral("Importando la Nómina de Personal"));
        resultado = importarNomina(Rutinas::Conexion, clave(), Rutinas::TextoDevuelto, formato, trabajo.aviso());
    }
    catch (const ErrorDeEjecucion& error)
    {
        MsgBox(QStringLiteral("%1 - %2").arg(error.numero()).arg(error.descripcion()));
        return;
    }
    Puntero::normal();
    MsgBox(mensajeDeImportacion(resultado, formato), Caja::Exclamacion);
    MostrarDDJJ();
}

bool DDJJ::GrabarArchivoDDJJ()
{
    try
    {
        TrabajoLargo trabajo(QStringLiteral("Grabando la Declaración Jurada"));
        ::GrabarArchivoDDJJ(
            Rutinas::Conexion,
            {clave().cuit, PeriodoSel, ui->txtAnio->text(), ui->txtMes->text(), ui->txtSecuencia->text()}, ArchivoDDJJ,
            trabajo.aviso());
    }
    catch (const ErrorDeEjecucion& error)
    {
        MsgBox(QStringLiteral("Error: %1 - %2").arg(error.numero()).arg(error.descripcion()), Caja::Informacion,
               QStringLiteral("Error de Apertura"));
        return false;
    }
    return true;
}

void DDJJ::GuardarArchivoComo()
{
    if (!GrabarArchivoDDJJ())
    {
        return;
    }
    try
    {
        // An open-file form, and a cancelled one gives the initial name back: the copy then goes to that bare name.
        const QString destino = DialogoArchivo(
            {QStringLiteral("Guardar como"), ArchivoDDJJ, QStringLiteral("*.txt"), QStringLiteral("txt"), false});
        Archivos::copiar(rutaArchivoDDJJ(ArchivoDDJJ), destino);
    }
    catch (const ErrorDeEjecucion& error)
    {
        MsgBox(QStringLiteral("%1 - (%2)").arg(error.descripcion(), QString::number(error.numero())));
        return;
    }
    MsgBox(QStringLiteral("El Archivo correspondiente ha sido grabado en la Ubicación especificada."),
           Caja::Informacion);
}
