#include "base/reloj.h"
#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "declarations/ciclo_ddjj.h"
#include "declarations/screens/ddjj.h"
#include "ui/doors/mensajes.h"
#include "ui/shell/trabajo_largo.h"
#include "ui_ddjj.h"

void DDJJ::cmdNueva_Click()
{
    if (!m_eleccion->exigirEmpresa())
    {
        return;
    }
    LimpiarDatos(true);
    std::optional<QDate> ultimo;
    if (!m_declaraciones.empty())
    {
        ultimo = m_declaraciones.front().periodo;
    }
    if (const auto propuesto = proponerPeriodo(ultimo))
    {
        ui->txtAnio->setText(QString::number(propuesto->year()));
        ui->txtMes->setText(QString::number(propuesto->month()));
    }
    Habilitar(false);
    mostrarPagina(ui->pagDDJJ);
    habilitarPaginas(false);
    ui->txtAnio->setFocus();
    ui->txtAnio->selectAll();
}

void DDJJ::cmdGrabar_Click()
{
    if (const auto rechazo = comprobarPeriodo(ui->txtAnio->text(), ui->txtMes->text()))
    {
        MsgBox(rechazo->texto, rechazo->grave ? Caja::Exclamacion : Caja::Informacion);
        auto* const campo = rechazo->campo == CampoDePeriodo::Anio ? ui->txtAnio : ui->txtMes;
        campo->setFocus();
        campo->selectAll();
        return;
    }
    const QDate periodo(ui->txtAnio->text().toInt(), ui->txtMes->text().toInt(), 1);
    const QString cuit = m_eleccion->cuit();
    m_seleccion = {cuit, periodo, crearDeclaracion(Rutinas::Conexion, cuit, periodo, Reloj::Hoy())};
    mostrarSecuencia(m_seleccion->secuencia);
    Habilitar(true);
    habilitarPaginas(true);
    CargarDeclaraciones();
    ui->cmdNomina->setFocus(); // the roster comes next
}

void DDJJ::cmdCancelar_Click()
{
    LimpiarDatos(true);
    Habilitar(true);
    habilitarPaginas(true);
    ui->cmdNueva->setFocus();
}

void DDJJ::cmdEliminar_Click()
{
    if (!m_eleccion->exigirEmpresa())
    {
        return;
    }
    if (!hayDeclaracion())
    {
        MsgBox(
            QStringLiteral("Debe seleccionar primero la Declaración Jurada a Eliminar, haciendo un click en la misma."),
            Caja::Informacion);
        return;
    }
    if (!Preguntar(QStringLiteral("Esta seguro de desea ELIMINAR la Declaración Jurada Seleccionada?")) ||
        !Preguntar(QStringLiteral(
            "Se Eliminaran todos los datos relacionados con la Declaración Jurada Actual.  Es Correcto?")))
    {
        return;
    }
    {
        TrabajoLargo trabajo(QStringLiteral("Eliminando la Declaración Jurada"), TrabajoLargo::Cancelable::Si);
        eliminarDeclaracion(Rutinas::Conexion, clave(), trabajo.aviso());
    }
    MsgBox(QStringLiteral("La Declaración Jurada ha sido Eliminada."), Caja::Exclamacion);
    LimpiarDatos(true);
    CargarDeclaraciones();
}
