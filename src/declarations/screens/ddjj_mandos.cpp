// What the buttons of the declarations' screen do.
#include "base/reloj.h"
#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "core/vigencia.h"
#include "declarations/ciclo_ddjj.h"
#include "declarations/copia_ddjj.h"
#include "declarations/screens/ddjj.h"
#include "declarations/screens/envio_ddjj.h"
#include "exchange/importacion.h"
#include "exchange/informe_ddjj.h"
#include "exchange/screens/imprimir_informe.h"
#include "ui/doors/anuncio.h"
#include "ui/doors/mensajes.h"
#include "ui/fields/campo_mascara.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"
#include "ui_ddjj.h"

namespace
{
// Kinds of slip, as the slip screen knows them.
constexpr quint8 aportes = 0;
constexpr quint8 interes = 1;
constexpr quint8 actas = 2;
} // namespace

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

void DDJJ::publicarDeclaracion()
{
    Rutinas::CuitActual = m_eleccion->cuit();
    Rutinas::EmpresaActual = m_eleccion->razon();
    Rutinas::PeriodoActual = clave().periodo;
    Rutinas::SecuenciaActual = comoByte(clave().secuencia);
}

/// Shows a dialog on the selected declaration, which can be gone when it closes.
void DDJJ::mostrarModal(const QString& pantalla)
{
    exigirVigencia();
    const int antes = YaNoEsta::veces();
    Navegacion::instancia().mostrarModal(pantalla);
    const bool yaDicho = YaNoEsta::veces() != antes;
    try
    {
        exigirVigencia();
    }
    catch (const YaNoEsta&)
    {
        if (!yaDicho)
        {
            throw;
        }
        releer();
    }
}

/// A command on the selected declaration does nothing without one, and says so.
bool DDJJ::eligioDeclaracion() const
{
    if (!hayDeclaracion())
    {
        anunciar(QStringLiteral("Elija una declaración de la lista"));
    }
    return hayDeclaracion();
}

void DDJJ::abrirConNomina(const QString& pantalla)
{
    if (!eligioDeclaracion())
    {
        return;
    }
    publicarDeclaracion();
    mostrarModal(pantalla);
    if (hayDeclaracion())
    {
        MostrarDDJJ(); // the totals can have changed
    }
}

void DDJJ::cmdNomina_Click()
{
    abrirConNomina(QStringLiteral("Empleados"));
}

void DDJJ::cmdSueldos_Click()
{
    abrirConNomina(QStringLiteral("DDJJ_Sueldos"));
}

void DDJJ::cmdCopiar_Click()
{
    if (!m_eleccion->exigirEmpresa() || !exigirPeriodo())
    {
        return;
    }
    publicarDeclaracion();
    mostrarModal(QStringLiteral("BuscarDDJJ"));
    if (!hayDeclaracion())
    {
        return;
    }
    const ClaveDDJJ fuente{clave().cuit, Rutinas::PeriodoActual, Rutinas::SecuenciaActual};
    if (fuente == clave())
    {
        return; // the dialog was cancelled
    }
    if (!Preguntar(QStringLiteral("Esta seguro que desea copiar desde la DDJJ seleccionada?")))
    {
        return;
    }
    {
        TrabajoLargo trabajo(QStringLiteral("Copiando la Nómina de Personal"), TrabajoLargo::Cancelable::Si);
        copiarNomina(Rutinas::Conexion, clave(), fuente, trabajo.aviso());
    }
    MsgBox(QStringLiteral("La Declaración Jurada se ha copiada con éxito."), Caja::Informacion);
    MostrarDDJJ();
}

void DDJJ::cmdImportar_Click()
{
    if (!m_eleccion->exigirEmpresa() || !exigirPeriodo())
    {
        return;
    }
    Rutinas::TextoDevuelto.clear();
    mostrarModal(QStringLiteral("Importar"));
    if (Rutinas::TextoDevuelto.isEmpty() || !hayDeclaracion())
    {
        return;
    }
    const auto formato = static_cast<FormatoDeNomina>(Rutinas::FormatoImportar);
    ResultadoImportacion resultado;
    // After a failure the pointer stays busy, as file number 1 stays open, until an import goes well.
    Puntero::ocupado();
    try
    {
        TrabajoLargo trabajo(QStringLiteral("Importando la Nómina de Personal"), TrabajoLargo::Cancelable::Si);
        resultado = importarNomina(Rutinas::Conexion, clave(), Rutinas::TextoDevuelto, formato, trabajo.aviso());
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
        return;
    }
    Puntero::normal();
    MsgBox(mensajeDeImportacion(resultado, formato), Caja::Exclamacion);
    MostrarDDJJ();
}

void DDJJ::abrirBoletas(quint8 tipo)
{
    Rutinas::CuitActual = m_eleccion->cuit();
    const ClaveDDJJ cual = m_seleccion.value_or(ClaveDDJJ{}); // an act needs no declaration
    Rutinas::PeriodoActual = cual.periodo;
    Rutinas::SecuenciaActual = comoByte(cual.secuencia);
    Rutinas::ModoAbrir = tipo;
    Rutinas::CantidadEmpleados = m_todos.empleados;
    Rutinas::CantidadAfiliados = m_afiliados.empleados;
    if (tipo == aportes && Rutinas::SecuenciaActual != 0)
    {
        MsgBox(QStringLiteral("Recuerde que los importes reflejados en una Boleta Rectificativa (Secuencia 1, 2, 3) "
                              "surgen de la Diferencia con la Boleta de Pago Original del Periodo correspondiente "
                              "(Secuencia 0)."),
               Caja::Informacion);
    }
    Navegacion::instancia().mostrar(QStringLiteral("Boletas"));
}

void DDJJ::cmdBoletas_Aportes_Click()
{
    if (!eligioDeclaracion())
    {
        return;
    }
    exigirVigencia();
    if (exigirNomina())
    {
        abrirBoletas(aportes);
    }
}

void DDJJ::cmdBoletas_Interes_Click()
{
    if (eligioDeclaracion())
    {
        exigirVigencia();
        abrirBoletas(interes);
    }
}

void DDJJ::cmdBoletas_Actas_Click()
{
    if (!ui->MaskCuit->vacio())
    {
        exigirVigencia();
        abrirBoletas(actas);
    }
    else
    {
        anunciar(QStringLiteral("Elija una empresa"));
    }
}

void DDJJ::cmdBoletas_Envio_Click()
{
    if (!eligioDeclaracion())
    {
        return;
    }
    exigirVigencia();
    if (exigirNomina() && Preguntar(QStringLiteral("Debe enviar la Declaración Jurada seleccionada?")))
    {
        envio().EnviarDDJJPorFtp(true);
    }
}

void DDJJ::imprimirInforme(InformeDDJJ cual)
{
    if (eligioDeclaracion())
    {
        exigirVigencia();
        ImprimirInforme(clave(), ui->txtMes->text(), ui->txtAnio->text(), cual);
    }
}

void DDJJ::cmdInformes_Declaracion_Click()
{
    imprimirInforme(InformeDDJJ::Declaracion);
}

void DDJJ::cmdInformes_Incompletos_Click()
{
    imprimirInforme(InformeDDJJ::DatosIncompletos);
}

void DDJJ::cmdInformes_Texto_Click()
{
    if (eligioDeclaracion())
    {
        envio().GuardarArchivoComo();
    }
}

EnvioDeDDJJ DDJJ::envio()
{
    // The status texts overwrite the caption "Cantidad Empleados", which is not put back.
    return EnvioDeDDJJ(m_seleccion, [this](const QString& texto) { ui->Label4->setText(texto); });
}
