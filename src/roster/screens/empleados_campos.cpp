// The fields of an employee while he is entered: their checks, the contributions, and the save.
#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "companies/screens/preguntar_cambios.h"
#include "core/rutinas.h"
#include "core/screens/validar.h"
#include "roster/screens/empleados.h"
#include "ui/doors/anuncio.h"
#include "ui/doors/mensajes.h"
#include "ui/shell/campos.h"
#include "ui_empleados.h"

#include <QApplication>

using campos::ponerEntero;

namespace
{
constexpr int comienzoDelDocumento = 3; ///< of the eight digits of a masked CUIL
constexpr int largoDelDocumento = 8;

std::optional<int> codigo(const QComboBox& lista)
{
    return lista.currentIndex() < 0 ? std::nullopt : std::optional(lista.currentData().toInt());
}

QDate fecha(const CampoMascara& campo)
{
    return LeerFecha(campo.text()).value_or(QDate());
}

void ceroSiVacio(QLineEdit* campo)
{
    if (campo->text().isEmpty())
    {
        ponerEntero(campo, QStringLiteral("0"));
    }
}
} // namespace

bool Empleados::MaskCuil_Validate()
{
    MaskCuil[1]->setText(MaskCuil[0]->text());
    MaskCuil[2]->setText(MaskCuil[0]->text());
    const CampoMascara& campo = *MaskCuil[0];
    if (campo.vacio())
    {
        return true;
    }
    if (!Rutinas::VerificarCuit(campo.text()))
    {
        MsgBox(QStringLiteral("Verifique el Nro. de Cuil ingresado, el mismo es incorrecto."), Caja::Informacion);
        return false;
    }
    if (CuilExistente())
    {
        return false;
    }
    ponerEntero(ui->txtDocumento, campo.text().mid(comienzoDelDocumento, largoDelDocumento));
    return true;
}

bool Empleados::CuilExistente()
{
    const bool existe = cuilExistente(Rutinas::Conexion, m_clave, MaskCuil[0]->text());
    if (existe)
    {
        MsgBox(QStringLiteral("El Presente C.U.I.L. ya se encuentra ingresado en la Actual Declaración Jurada."),
               Caja::Critico, QStringLiteral("CUIL ya existente"));
    }
    return existe;
}

void Empleados::txtAyN_LostFocus()
{
    ponerEntero(txtAyN[1], txtAyN[0]->text());
    ponerEntero(txtAyN[2], txtAyN[0]->text());
}

bool Empleados::txtImporte_Validate(QLineEdit* campo)
{
    const bool vale = campo->text().isEmpty() || Rutinas::VerificarNumero(campo->text());
    if (vale && !campo->text().isEmpty())
    {
        ponerEntero(campo, sinMiles(Moneda::deTexto(campo->text())));
    }
    CalcularAportes();
    return vale;
}

void Empleados::chkAfiliado_Click(bool afiliado)
{
    // Membership is one fact in two boxes.
    ui->chkAfiliado_1->setChecked(afiliado);
    ui->chkAfiliado_2->setChecked(afiliado);
    CalcularAportes();
}

void Empleados::cmbEstadoCivil_LostFocus()
{
    ui->SSTab1->setCurrentIndex(1);
    ui->vsFamiliares->setFocus();
}

void Empleados::seguirDeFamiliares()
{
    ui->SSTab1->setCurrentIndex(2);
    MaskFecha[1]->setFocus(Qt::TabFocusReason);
}

void Empleados::recordarValores()
{
    m_ultimos.recordar({txtAyN[0],         ui->cmbDocumento, ui->txtDocumento, ui->cmbSexo,        MaskFecha[0],
                        ui->txtCalle,      ui->txtNumero,    ui->txtPiso,      ui->txtDepto,       ui->txtLocalidad,
                        ui->txtCodPos,     ui->cmbProvincia, ui->txtTelefono,  ui->cmbEstadoCivil, MaskFecha[1],
                        ui->cmbCategoria,  ui->cmbQHoras,    MaskFecha[2],     txtImporte[1],      txtImporte[2],
                        ui->chkAfiliado_1, ui->chkAfiliado_2});
    m_ultimaSucursal = SucursalActual;
}

void Empleados::repetirCampo()
{
    QWidget* campo = QApplication::focusWidget();
    if (campo == ui->cmdSucursal && m_ultimaSucursal != 0)
    {
        const auto texto = textoSucursal(Rutinas::Conexion, m_ultimaSucursal, ui->txtCuit->text());
        SucursalActual = texto ? m_ultimaSucursal : 0; // deleted since
        mostrarSucursal(texto);
    }
    else if (!m_ultimos.repetir(campo))
    {
        anunciar(QStringLiteral("No hay dato anterior para repetir en este campo"));
    }
}

void Empleados::CalcularAportes()
{
    if (!ui->FraEmpleado_1->isEnabled())
    {
        return;
    }
    if (ui->cmbQHoras->currentText().isEmpty())
    {
        ui->cmbQHoras->setCurrentText(QStringLiteral("200"));
    }
    EntradaEmpleado datos;
    datos.qHoras = ui->cmbQHoras->currentText();
    datos.haberes = txtImporte[1]->text();
    datos.acuerdo = txtImporte[2]->text();
    datos.afiliado = ui->chkAfiliado_1->isChecked();
    try
    {
        mostrarAportes(aportesDe(datos));
    }
    catch (const ErrorDeEjecucion&)
    {
        // Hours of 0 or an amount that is no number: the amounts stay as they were, and "Aceptar" tells.
    }
}

void Empleados::mostrarTotal(const QString& importe)
{
    ui->lblRemTotal->setText(importe);
    ui->lblRemTotal->setAccessibleName(QStringLiteral("Remuneración Total: ") + importe); // heard in the text's place
}

void Empleados::mostrarAportes(const Aportes& aportes)
{
    mostrarTotal(sinMiles(aportes.total));
    ponerEntero(txtImporte[3], sinMiles(aportes.art100));
    ponerEntero(txtImporte[4], sinMiles(aportes.art101A));
    ponerEntero(txtImporte[5], sinMiles(aportes.art101B));
}

bool Empleados::GrabarEmpleado()
{
    if (MaskCuil[0]->isEnabled() && CuilExistente())
    {
        return false;
    }
    const auto falta = revisarEmpleado(Rutinas::Conexion, ui->txtCuit->text(), entrada());
    completarCeros(falta);
    if (falta)
    {
        avisarFalta(*falta);
        return false;
    }
    bool guardado = false;
    try
    {
        siSigueAhi([&] { guardado = guardar(); });
    }
    catch (const ErrorParaAvisar& error)
    {
        MsgBox(error.descripcion(), Caja::Exclamacion);
    }
    catch (const ErrorDeEjecucion& error)
    {
        MsgBox(QStringLiteral("%1 %2").arg(QString::number(error.numero()), error.descripcion()));
    }
    return guardado;
}

bool Empleados::guardar()
{
    CalcularAportes();
    std::optional<EmpleadoGuardado> guardado;
    const auto grabar = [&](bool reemplaza)
    {
        EntradaEmpleado datos = entrada();
        if (!reemplaza)
        {
            datos.leido = m_leido;
        }
        guardado = guardarEmpleado(Rutinas::Conexion, m_clave, datos);
    };
    if (!guardarPreguntando(grabar))
    {
        return false;
    }
    if (!guardado)
    {
        MsgBox(QStringLiteral("Los datos de los Familiares están incompletos.  Por favor, verifique los mismos."),
               Caja::Exclamacion);
        ui->SSTab1->setCurrentIndex(1);
        return false;
    }
    mostrarAportes(guardado->aportes);
    m_leido = std::move(guardado->leido);
    return true;
}

/// Empty numbers become 0 on the screen too, each once the checks before it have passed.
void Empleados::completarCeros(const std::optional<FaltaEnEmpleado>& falta)
{
    const bool hastaJornada = !falta || falta->pagina == 2;
    const bool hastaSucursal = !falta || falta->campo == CampoEmpleado::Sucursal;
    if (hastaJornada)
    {
        ceroSiVacio(ui->txtNumero);
    }
    if (hastaSucursal)
    {
        ceroSiVacio(txtImporte[1]);
        ceroSiVacio(txtImporte[2]);
    }
}

void Empleados::avisarFalta(const FaltaEnEmpleado& falta)
{
    ui->SSTab1->setCurrentIndex(falta.pagina);
    if (falta.campo == CampoEmpleado::Sucursal)
    {
        MsgBox(falta.texto, Caja::Exclamacion);
    }
    else
    {
        MsgBox(falta.texto, Caja::Informacion, QStringLiteral("Datos Incompletos"));
    }
    if (falta.campo == CampoEmpleado::QHoras)
    {
        ui->cmbQHoras->setCurrentText(QStringLiteral("200"));
    }
    campoDe(falta.campo)->setFocus();
}

QWidget* Empleados::campoDe(CampoEmpleado campo) const
{
    switch (campo)
    {
    case CampoEmpleado::Cuil:
        return MaskCuil[0];
    case CampoEmpleado::AyN:
        return txtAyN[0];
    case CampoEmpleado::TipoDoc:
        return ui->cmbDocumento;
    case CampoEmpleado::Documento:
        return ui->txtDocumento;
    case CampoEmpleado::QHoras:
        return ui->cmbQHoras;
    case CampoEmpleado::Sucursal:
        break;
    }
    return ui->cmdSucursal;
}

EntradaEmpleado Empleados::entrada() const
{
    EntradaEmpleado e;
    e.nuevo = MaskCuil[0]->isEnabled();
    e.cuil = MaskCuil[0]->text();
    e.ayn = txtAyN[0]->text();
    e.tipoDoc = codigo(*ui->cmbDocumento);
    e.documento = ui->txtDocumento->text();
    e.sexo = ui->cmbSexo->currentIndex() < 0 ? std::nullopt : std::optional(ui->cmbSexo->currentIndex());
    e.nacio = fecha(*MaskFecha[0]);
    e.calle = ui->txtCalle->text();
    e.numero = ui->txtNumero->text();
    e.piso = ui->txtPiso->text();
    e.depto = ui->txtDepto->text();
    e.localidad = ui->txtLocalidad->text();
    e.codPos = ui->txtCodPos->text();
    e.provincia = codigo(*ui->cmbProvincia);
    e.telefono = ui->txtTelefono->text();
    e.estCivil = codigo(*ui->cmbEstadoCivil);
    e.ingreso = fecha(*MaskFecha[1]);
    e.categoria = codigo(*ui->cmbCategoria);
    e.qHoras = ui->cmbQHoras->currentText();
    e.egreso = fecha(*MaskFecha[2]);
    e.sucursal = SucursalActual;
    e.haberes = txtImporte[1]->text();
    e.acuerdo = txtImporte[2]->text();
    e.afiliado = ui->chkAfiliado_1->isChecked();
    e.familia = familia();
    return e;
}

std::vector<FilaFamiliar> Empleados::familia() const
{
    using Col = GrillaFamiliar;
    const GrillaFamiliar& grilla = *ui->vsFamiliares;
    std::vector<FilaFamiliar> filas;
    for (int fila = 1; fila <= grilla.filas(); ++fila)
    {
        filas.push_back({grilla.texto(Col::Familiar, fila), grilla.texto(Col::Tipo, fila),
                         grilla.celdaVacia(Col::Documento, fila) ? std::nullopt
                                                                 : std::optional(grilla.entero(Col::Documento, fila)),
                         grilla.texto(Col::AyN, fila), grilla.texto(Col::Sexo, fila), grilla.fecha(Col::Nacio, fila)});
    }
    return filas;
}
