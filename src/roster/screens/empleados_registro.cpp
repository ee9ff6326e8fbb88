// The record on the screen: loading, showing, emptying, and the commands that move between records.
#include "roster/screens/empleados.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "core/rutinas.h"
#include "roster/familiares.h"
#include "ui/doors/mensajes.h"
#include "ui/shell/campos.h"
#include "ui/shell/navegacion.h"
#include "ui_empleados.h"

using campos::ponerEntero;

namespace
{
void elegir(QComboBox* lista, const std::optional<QString>& nombre)
{
    lista->setCurrentIndex(nombre ? lista->findText(*nombre) : -1);
}
} // namespace

void Empleados::CargarEmpleado(AccionEmpleado Accion)
{
    const auto empleado = cargarEmpleado(Rutinas::Conexion, m_clave, Accion, MaskCuil[0]->text());
    if (empleado)
    {
        mostrar(*empleado);
    }
    else if (Accion == AccionEmpleado::Anterior)
    {
        MsgBox(QStringLiteral("Se encuentra posicionado en el Primer Registro."), Caja::Informacion);
    }
    else if (Accion == AccionEmpleado::Siguiente)
    {
        MsgBox(QStringLiteral("Se encuentra posicionado en el Ultimo Registro."), Caja::Informacion);
    }
    else
    {
        LimpiarEmpleado();
    }
}

void Empleados::mostrar(const Empleado& empleado)
{
    // All that is shown is read first: a reading that fails leaves the record that was on the screen.
    m_leido = EmpleadoLeido{empleado, cargarFamiliares(Rutinas::Conexion, empleado.cuil)};
    for (std::size_t i = 0; i < MaskCuil.size(); ++i)
    {
        MaskCuil[i]->setText(empleado.cuil);
        ponerEntero(txtAyN[i], empleado.ayn);
    }
    elegir(ui->cmbDocumento, empleado.documento);
    elegir(ui->cmbProvincia, empleado.provincia);
    elegir(ui->cmbEstadoCivil, empleado.estadoCivil);
    elegir(ui->cmbCategoria, empleado.categoria);
    ponerEntero(ui->txtDocumento, QString::number(empleado.nroDoc));
    ponerEntero(ui->txtNumero, QString::number(empleado.numero));
    ui->cmbQHoras->setCurrentText(QString::number(empleado.qHoras));
    ui->cmbSexo->setCurrentIndex(empleado.sexo.value_or(-1));
    ponerEntero(ui->txtCalle, empleado.calle);
    ponerEntero(ui->txtPiso, empleado.piso);
    ponerEntero(ui->txtDepto, empleado.depto);
    ponerEntero(ui->txtLocalidad, empleado.localidad);
    ponerEntero(ui->txtCodPos, empleado.codPos);
    ponerEntero(ui->txtTelefono, empleado.telefono);
    MaskFecha[0]->setFecha(empleado.nacio);
    MaskFecha[1]->setFecha(empleado.ingreso);
    MaskFecha[2]->setFecha(empleado.egreso);
    ui->chkAfiliado_1->setChecked(empleado.afiliado);
    ui->chkAfiliado_2->setChecked(empleado.afiliado);
    SucursalActual = empleado.sucursal;
    mostrarTotal(sinMiles(empleado.imponible + empleado.acuerdo));
    ponerEntero(txtImporte[1], sinMiles(empleado.imponible));
    ponerEntero(txtImporte[2], sinMiles(empleado.acuerdo));
    ponerEntero(txtImporte[3], sinMiles(empleado.art100));
    ponerEntero(txtImporte[4], sinMiles(empleado.art101A));
    ponerEntero(txtImporte[5], sinMiles(empleado.art101B));
    mostrarSucursal(SucursalActual == 0 ? QString()
                                        : textoSucursal(Rutinas::Conexion, SucursalActual, ui->txtCuit->text()));
    mostrarFamilia(m_leido->familia);
    contarLugar();
}

void Empleados::contarLugar()
{
    m_lugar = {};
    if (m_leido && !enEdicion())
    {
        try
        {
            m_lugar = lugarEnNomina(Rutinas::Conexion, m_clave, MaskCuil[0]->text());
        }
        catch (const ErrorDeEjecucion&)
        {
            // A count is no reason to stop what was being done, as a save that has gone well: nothing is told.
        }
    }
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void Empleados::mostrarSucursal(const std::optional<QString>& texto)
{
    if (!texto)
    {
        MsgBox(QStringLiteral("ERROR - SUCURSAL INEXISTENTE!!!"), Caja::Exclamacion);
    }
    ui->txtSucursal->setText(texto.value_or(QString()));
    ui->txtSucursal->setCursorPosition(0);
}

void Empleados::mostrarFamilia(const std::vector<FilaFamiliar>& familia)
{
    ui->vsFamiliares->cargar(familia,
                             [](const FilaFamiliar& uno)
                             {
                                 return FilaDeGrilla{
                                     uno.familiar, uno.tipoDoc, uno.nroDoc ? QVariant(*uno.nroDoc) : QVariant(),
                                     uno.ayn,      uno.sexo,    uno.nacio};
                             });
}

void Empleados::LimpiarEmpleado()
{
    m_leido.reset();
    for (std::size_t i = 0; i < MaskCuil.size(); ++i)
    {
        MaskCuil[i]->limpiar();
        MaskFecha[i]->limpiar();
        ponerEntero(txtAyN[i], QString());
    }
    for (QComboBox* lista : {ui->cmbDocumento, ui->cmbSexo, ui->cmbProvincia, ui->cmbEstadoCivil, ui->cmbCategoria})
    {
        lista->setCurrentIndex(-1);
    }
    for (QLineEdit* campo : {ui->txtDocumento, ui->txtCalle, ui->txtNumero, ui->txtPiso, ui->txtDepto, ui->txtLocalidad,
                             ui->txtCodPos, ui->txtTelefono, ui->txtSucursal})
    {
        ponerEntero(campo, QString());
    }
    ui->cmbQHoras->setCurrentText(QStringLiteral("200"));
    SucursalActual = 0;
    ui->chkAfiliado_1->setChecked(true); // a new employee starts as a member
    ui->chkAfiliado_2->setChecked(true);
    mostrarTotal(QString());
    for (std::size_t i = 1; i < txtImporte.size(); ++i)
    {
        ponerEntero(txtImporte[i], QString());
    }
    ui->vsFamiliares->cargar({});
    contarLugar();
}

void Empleados::agregar()
{
    HabilitarEdicion(true);
    LimpiarEmpleado();
    setWindowTitle(TituloForm + QStringLiteral(" / INGRESO"));
    ui->vsFamiliares->setFilas(1);
    ui->vsFamiliares->setFilaActual(1);
    ui->SSTab1->setCurrentIndex(0);
    MaskCuil[0]->setEnabled(true);
    MaskCuil[0]->setFocus();
}

void Empleados::modificar()
{
    if (MaskCuil[0]->vacio())
    {
        return;
    }
    HabilitarEdicion(true);
    setWindowTitle(TituloForm + QStringLiteral(" / MODIFICACION"));
    MaskCuil[0]->setEnabled(false); // which tells the save that this is no new employee
    ui->vsFamiliares->setFilas(ui->vsFamiliares->filas() + 1);
    ui->vsFamiliares->setFilaActual(ui->vsFamiliares->filas());
    txtAyN[0]->setFocus();
}

void Empleados::eliminar()
{
    if (MaskCuil[0]->vacio() || !Preguntar(QStringLiteral("Esta seguro de desea ELIMINAR este EMPLEADO?")))
    {
        return;
    }
    siSigueAhi(
        [this]
        {
            eliminarEmpleado(Rutinas::Conexion, m_clave, MaskCuil[0]->text());
            MsgBox(QStringLiteral("EL EMPLEADO HA SIDO ELIMINADO DE LA ACTUAL DECLARACION JURADA."), Caja::Informacion);
            LimpiarEmpleado();
        });
}

void Empleados::siSigueAhi(const std::function<void()>& escribir)
{
    try
    {
        escribir();
    }
    catch (const EmpleadoEliminado& falta)
    {
        MsgBox(falta.descripcion(), Caja::Exclamacion);
        LimpiarEmpleado();
        HabilitarEdicion(false);
        setWindowTitle(TituloForm);
        ui->cmdEmpleado_0->setFocus();
    }
    catch (const YaNoEsta& falta)
    {
        MsgBox(falta.descripcion(), Caja::Exclamacion);
        cerrar();
    }
}

void Empleados::aceptar()
{
    if (GrabarEmpleado())
    {
        recordarValores();
        HabilitarEdicion(false);
        setWindowTitle(TituloForm);
        ui->cmdEmpleado_0->setFocus();
    }
}

bool Empleados::dejaLoTipeado()
{
    return !enEdicion() || Preguntar(QStringLiteral("Esta seguro de desea Cancelar los Datos Ingresados?"));
}

void Empleados::cancelar()
{
    if (dejaLoTipeado())
    {
        LimpiarEmpleado();
        HabilitarEdicion(false);
        ui->cmdEmpleado_0->setFocus();
    }
}

void Empleados::buscar()
{
    Rutinas::CuilElegido.clear();
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarEmpleado"));
    if (!Rutinas::CuilElegido.isEmpty())
    {
        MaskCuil[0]->setText(Rutinas::CuilElegido);
        CargarEmpleado(AccionEmpleado::Buscado);
    }
}

void Empleados::cmdSucursal_Click()
{
    Rutinas::SucursalElegida = 0;
    Rutinas::CuitActual = m_clave.cuit;
    Rutinas::EmpresaActual = ui->txtRazonSocial->text();
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarSucursal"));
    if (Rutinas::SucursalElegida != 0)
    {
        SucursalActual = Rutinas::SucursalElegida;
        mostrarSucursal(textoSucursal(Rutinas::Conexion, SucursalActual));
    }
}
