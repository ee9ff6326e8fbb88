#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "declarations/copia_ddjj.h"
#include "declarations/lista_ddjj.h"
#include "declarations/screens/ddjj.h"
#include "declarations/screens/secuencia.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/mensajes.h"
#include "platform/screens/navegacion.h"
#include "ui_ddjj.h"

void DDJJ::publicarDeclaracion()
{
    Rutinas::CuitActual = m_eleccion->cuit();
    Rutinas::EmpresaActual = m_eleccion->razon();
    Rutinas::PeriodoActual = PeriodoSel;
    Rutinas::SecuenciaActual = comoByte(ui->txtSecuencia->text());
}

void DDJJ::abrirConNomina(const QString& pantalla)
{
    if (!hayDeclaracion())
    {
        return;
    }
    publicarDeclaracion();
    Navegacion::instancia().mostrarModal(pantalla);
    MostrarDDJJ(); // the totals can have changed
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
    if (!exigirEmpresa() || !exigirPeriodo())
    {
        return;
    }
    publicarDeclaracion();
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarDDJJ"));
    const FuenteDeCopia fuente{Rutinas::PeriodoActual, Rutinas::SecuenciaActual};
    if (fuente.periodo == PeriodoSel && fuente.secuencia == ui->txtSecuencia->text().toInt())
    {
        return; // the dialog was cancelled
    }
    if (!Preguntar(QStringLiteral("Esta seguro que desea copiar desde la DDJJ seleccionada?")))
    {
        return;
    }
    copiarNomina(Rutinas::Conexion, clave(), fuente);
    MsgBox(QStringLiteral("La Declaración Jurada se ha copiada con éxito."), Caja::Informacion);
    MostrarDDJJ();
}

void DDJJ::cmdBoletas_Click(int indice)
{
    constexpr int aportes = 0;
    constexpr int actas = 2;
    constexpr int envio = 3;
    if (ui->MaskCuit->vacio() || (!hayDeclaracion() && indice != actas))
    {
        return;
    }
    if ((indice == aportes || indice == envio) && !exigirNomina())
    {
        mostrarPagina(ui->pagDDJJ); // where the button lies
        ui->cmdNomina->setFocus();
        return;
    }
    if (indice == envio)
    {
        if (Preguntar(QStringLiteral("Debe enviar la Declaración Jurada seleccionada?")))
        {
            EnviarDDJJPorFtp(true);
        }
        return;
    }
    Rutinas::CuitActual = m_eleccion->cuit();
    Rutinas::PeriodoActual = PeriodoSel;
    Rutinas::SecuenciaActual = comoByte(ui->txtSecuencia->text());
    Rutinas::ModoAbrir = static_cast<quint8>(indice);
    Rutinas::CantidadEmpleados = txtCantidad[0]->text().toInt();
    Rutinas::CantidadAfiliados = txtCantidad[1]->text().toInt();
    if (indice == aportes && Rutinas::SecuenciaActual != 0)
    {
        MsgBox(QStringLiteral("Recuerde que los importes reflejados en una Boleta Rectificativa (Secuencia 1, 2, 3) "
                              "surgen de la Diferencia con la Boleta de Pago Original del Periodo correspondiente "
                              "(Secuencia 0)."),
               Caja::Informacion);
    }
    Navegacion::instancia().mostrar(QStringLiteral("Boletas"));
}

void DDJJ::cmdInformes_Click(int indice)
{
    if (!hayDeclaracion())
    {
        return;
    }
    if (indice == 2)
    {
        GuardarArchivoComo();
    }
    else
    {
        ImprimirInforme(indice);
    }
}
