#include "roster/screens/ficha_de_empleado.h"

#include "base/numbers/formato.h"
#include "companies/catalogos.h"
#include "core/rutinas.h"
#include "ui/doors/anuncio.h"
#include "ui/doors/mensajes.h"
#include "ui/look/estilo.h"
#include "ui/shell/campos.h"
#include "ui/shell/navegacion.h"
#include "ui_empleados.h"

using campos::ponerEntero;

namespace
{
void llenar(QComboBox* lista, Catalogo catalogo)
{
    for (const EntradaDeCatalogo& entrada : leerCatalogo(Rutinas::Conexion, catalogo))
    {
        lista->addItem(entrada.nombre, entrada.codigo);
    }
}

void elegir(QComboBox* lista, const std::optional<QString>& nombre)
{
    lista->setCurrentIndex(nombre ? lista->findText(*nombre) : -1);
}

std::optional<int> codigo(const QComboBox& lista)
{
    return lista.currentIndex() < 0 ? std::nullopt : std::optional(lista.currentData().toInt());
}

QDate fecha(const CampoMascara& campo)
{
    return LeerFecha(campo.text()).value_or(QDate());
}
} // namespace

FichaDeEmpleado::FichaDeEmpleado(const Ui::Empleados& controles)
    : ui(controles)
    , m_aportes(controles)
{
    for (CampoMascara* campo : {ui.MaskFecha_0, ui.MaskFecha_1, ui.MaskFecha_2})
    {
        campo->setClase(CampoMascara::Fecha);
        campo->setFechaConGuiones(true);
    }
    soloDigitos(ui.txtDocumento);
    soloDigitos(ui.txtNumero);
    ui.cmbSexo->addItem(QStringLiteral("Femenino"), 0);
    ui.cmbSexo->addItem(QStringLiteral("Masculino"), 1);
    Estilo::soloMuestra({ui.MaskCuil_1, ui.MaskCuil_2, ui.txtAyN_1, ui.txtAyN_2, ui.txtSucursal});
    Estilo::boton(ui.cmdSucursal, QStringLiteral("sucursal"));
    ui.txtSucursal->setFocusPolicy(Qt::NoFocus);
}

void FichaDeEmpleado::cargarCatalogos()
{
    llenar(ui.cmbProvincia, Catalogo::Provincias);
    llenar(ui.cmbDocumento, Catalogo::Documentos);
    llenar(ui.cmbCategoria, Catalogo::Categorias);
    llenar(ui.cmbEstadoCivil, Catalogo::EstadoCivil);
    ui.vsFamiliares->setCatalogos(nombresDe(leerCatalogo(Rutinas::Conexion, Catalogo::Familiar)),
                                  nombresDe(leerCatalogo(Rutinas::Conexion, Catalogo::Documentos)));
}

void FichaDeEmpleado::mostrar(const EmpleadoLeido& leido)
{
    const Empleado& empleado = leido.empleado;
    const auto sucursal = textoSucursal(Rutinas::Conexion, empleado.sucursal, ui.txtCuit->text());
    ponerCampos(empleado);
    m_aportes.mostrar(empleado);
    mostrarSucursal(empleado.sucursal, sucursal);
    ui.vsFamiliares->mostrar(leido.familia);
}

void FichaDeEmpleado::limpiar()
{
    ponerCampos({});
    ponerEntero(ui.txtDocumento, {});
    ponerEntero(ui.txtNumero, {});
    m_aportes.limpiar();
    mostrarSucursal(0, QString());
    ui.vsFamiliares->mostrar({});
}

void FichaDeEmpleado::ponerCampos(const Empleado& empleado)
{
    ui.MaskCuil_0->setText(empleado.cuil);
    ponerEntero(ui.txtAyN_0, empleado.ayn);
    copiarQuienEs();
    elegir(ui.cmbDocumento, empleado.documento);
    elegir(ui.cmbProvincia, empleado.provincia);
    elegir(ui.cmbEstadoCivil, empleado.estadoCivil);
    elegir(ui.cmbCategoria, empleado.categoria);
    ui.cmbSexo->setCurrentIndex(empleado.sexo.value_or(-1));
    ponerEntero(ui.txtDocumento, QString::number(empleado.nroDoc));
    ponerEntero(ui.txtCalle, empleado.calle);
    ponerEntero(ui.txtNumero, QString::number(empleado.numero));
    ponerEntero(ui.txtPiso, empleado.piso);
    ponerEntero(ui.txtDepto, empleado.depto);
    ponerEntero(ui.txtLocalidad, empleado.localidad);
    ponerEntero(ui.txtCodPos, empleado.codPos);
    ponerEntero(ui.txtTelefono, empleado.telefono);
    ui.MaskFecha_0->setFecha(empleado.nacio);
    ui.MaskFecha_1->setFecha(empleado.ingreso);
    ui.MaskFecha_2->setFecha(empleado.egreso);
}

void FichaDeEmpleado::editar(bool nuevo)
{
    ui.vsFamiliares->abrirFila();
    ui.MaskCuil_0->setEnabled(nuevo); // which tells the save, too
    nuevo ? ui.MaskCuil_0->setFocus() : ui.txtAyN_0->setFocus();
}

EntradaEmpleado FichaDeEmpleado::entrada() const
{
    EntradaEmpleado e;
    e.nuevo = ui.MaskCuil_0->isEnabled();
    e.cuil = ui.MaskCuil_0->text();
    e.ayn = ui.txtAyN_0->text();
    e.tipoDoc = codigo(*ui.cmbDocumento);
    e.documento = ui.txtDocumento->text();
    e.sexo = codigo(*ui.cmbSexo);
    e.nacio = fecha(*ui.MaskFecha_0);
    e.calle = ui.txtCalle->text();
    e.numero = ui.txtNumero->text();
    e.piso = ui.txtPiso->text();
    e.depto = ui.txtDepto->text();
    e.localidad = ui.txtLocalidad->text();
    e.codPos = ui.txtCodPos->text();
    e.provincia = codigo(*ui.cmbProvincia);
    e.telefono = ui.txtTelefono->text();
    e.estCivil = codigo(*ui.cmbEstadoCivil);
    e.ingreso = fecha(*ui.MaskFecha_1);
    e.categoria = codigo(*ui.cmbCategoria);
    e.egreso = fecha(*ui.MaskFecha_2);
    e.sucursal = m_sucursal;
    m_aportes.anotar(e);
    e.familia = ui.vsFamiliares->familia();
    return e;
}

void FichaDeEmpleado::copiarQuienEs()
{
    ui.MaskCuil_1->setText(ui.MaskCuil_0->text());
    ui.MaskCuil_2->setText(ui.MaskCuil_0->text());
    ponerEntero(ui.txtAyN_1, ui.txtAyN_0->text());
    ponerEntero(ui.txtAyN_2, ui.txtAyN_0->text());
}

void FichaDeEmpleado::ponerDocumento()
{
    ponerEntero(ui.txtDocumento, ui.MaskCuil_0->text().section(QLatin1Char('-'), 1, 1));
}

void FichaDeEmpleado::buscarSucursal()
{
    Rutinas::SucursalElegida = 0;
    Rutinas::CuitActual = ui.txtCuit->text();
    Rutinas::EmpresaActual = ui.txtRazonSocial->text();
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarSucursal"));
    if (const qint64 elegida = Rutinas::SucursalElegida; elegida != 0)
    {
        mostrarSucursal(elegida, textoSucursal(Rutinas::Conexion, elegida));
    }
}

void FichaDeEmpleado::mostrarSucursal(qint64 sucursal, const std::optional<QString>& texto)
{
    m_sucursal = sucursal;
    if (!texto)
    {
        MsgBox(QStringLiteral("ERROR - SUCURSAL INEXISTENTE!!!"), Caja::Exclamacion);
    }
    ponerEntero(ui.txtSucursal, texto.value_or(QString()));
}

void FichaDeEmpleado::completarCeros(const std::optional<FaltaEnEmpleado>& falta)
{
    const bool hastaSucursal = !falta || falta->campo == CampoEmpleado::Sucursal;
    const bool hastaJornada = hastaSucursal || falta->campo == CampoEmpleado::QHoras;
    for (QLineEdit* campo : {ui.txtNumero, ui.txtImporte_1, ui.txtImporte_2})
    {
        if ((campo == ui.txtNumero ? hastaJornada : hastaSucursal) && campo->text().isEmpty())
        {
            ponerEntero(campo, QStringLiteral("0"));
        }
    }
}

void FichaDeEmpleado::irA(CampoEmpleado campo)
{
    if (campo == CampoEmpleado::QHoras)
    {
        m_aportes.ponerJornadaCompleta();
    }
    QWidget* const campos[] = {ui.MaskCuil_0,   ui.txtAyN_0,  ui.cmbDocumento,
                               ui.txtDocumento, ui.cmbQHoras, ui.cmdSucursal}; // in the order of CampoEmpleado
    campos[static_cast<std::size_t>(campo)]->setFocus();
}

void FichaDeEmpleado::recordar()
{
    m_ultimos.recordar({ui.txtAyN_0,      ui.cmbDocumento, ui.txtDocumento, ui.cmbSexo,        ui.MaskFecha_0,
                        ui.txtCalle,      ui.txtNumero,    ui.txtPiso,      ui.txtDepto,       ui.txtLocalidad,
                        ui.txtCodPos,     ui.cmbProvincia, ui.txtTelefono,  ui.cmbEstadoCivil, ui.MaskFecha_1,
                        ui.cmbCategoria,  ui.cmbQHoras,    ui.MaskFecha_2,  ui.txtImporte_1,   ui.txtImporte_2,
                        ui.chkAfiliado_1, ui.chkAfiliado_2});
    m_ultimaSucursal = m_sucursal;
}

void FichaDeEmpleado::repetir(QWidget* campo)
{
    if (campo == ui.cmdSucursal && m_ultimaSucursal != 0)
    {
        const auto texto = textoSucursal(Rutinas::Conexion, m_ultimaSucursal, ui.txtCuit->text());
        mostrarSucursal(texto ? m_ultimaSucursal : 0, texto); // deleted since
    }
    else if (!m_ultimos.repetir(campo))
    {
        anunciar(QStringLiteral("No hay dato anterior para repetir en este campo"));
    }
}
