// Issuing a slip: the second half of the screen Boletas.
#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "base/reloj.h"
#include "core/nombre_ddjj.h"
#include "core/rutinas.h"
#include "core/vigencia.h"
#include "slips/emision.h"
#include "slips/screens/boletas.h"
#include "ui/doors/mensajes.h"
#include "ui/report/informe.h"
#include "ui_boletas.h"

using Rutinas::ModoAbrir;

namespace
{
/// "30-71234567-1 2026-10 00 boleta", "30-71234567-1 acta 1234 cuota 2 boleta".
QString nombreDeArchivo(const Boleta& boleta)
{
    switch (boleta.tipo)
    {
    case TipoBoleta::Acta:
        return QStringLiteral("%1 acta %2 cuota %3 boleta")
            .arg(boleta.cuit, QString::number(boleta.nroActa), QString::number(boleta.cuota));
    case TipoBoleta::Interes:
        return nombreDeDeclaracion(boleta.declaracion) + QStringLiteral(" boleta de intereses");
    case TipoBoleta::Aportes:
        break;
    }
    return nombreDeDeclaracion(boleta.declaracion) + QStringLiteral(" boleta");
}
} // namespace

void Boletas::cmdBoletas_Click()
{
    if (ui->txtCuit->text().isEmpty())
    {
        MsgBox(QStringLiteral("Debe seleccionar la Empresa correspondiente."), Caja::Informacion);
        ui->cmdBuscar->setFocus();
        return;
    }
    if (!Preguntar(QStringLiteral("Desea Generar la Boleta Correspondiente?")) || !revisarFecha() || !revisarInteres())
    {
        return;
    }
    if (ImporteTotal == Moneda())
    {
        MsgBox(QStringLiteral("Debe ingresar el Importe a Abonar."), Caja::Informacion);
        return;
    }
    if (ModoAbrir == 2 && !revisarActa())
    {
        return;
    }
    try
    {
        emitir(boleta());
    }
    catch (const YaNoEsta&)
    {
        cerrar();
        throw;
    }
    if (ModoAbrir == 2)
    {
        CargarActas();
    }
    if (ModoAbrir == 0)
    {
        Rutinas::BoletaEmitida = true;
    }
}

bool Boletas::revisarFecha()
{
    if (!ui->MaskFecha->vacio())
    {
        return true;
    }
    MsgBox(QStringLiteral("Debe informar la fecha correspondiente al Pago."), Caja::Informacion);
    ui->MaskFecha->setFecha(Reloj::Hoy());
    ui->MaskFecha->setFocus();
    return false;
}

/// Days and interest come together or not at all.
bool Boletas::revisarInteres()
{
    const auto i = static_cast<std::size_t>(tipo());
    if (txtDias[i]->text().isEmpty())
    {
        txtDias[i]->setText(QStringLiteral("0"));
    }
    if (txtInteres[i]->text().isEmpty())
    {
        txtInteres[i]->setText(QStringLiteral("0"));
    }
    const bool sinDias = txtDias[i]->text().toInt() == 0;
    const bool sinInteres = importeParaEditar(txtInteres[i]->text()).isEmpty();
    if (sinDias == sinInteres)
    {
        return true;
    }
    MsgBox(sinDias ? QStringLiteral("Debe informar los Días de Interes correspondientes.")
                   : QStringLiteral("Debe informar el Monto de Interes correspondiente."),
           Caja::Informacion);
    QLineEdit* falta = sinDias ? txtDias[i] : txtInteres[i];
    falta->clear();
    falta->setFocus();
    return false;
}

bool Boletas::revisarActa()
{
    if (ui->cmbConcepto->currentIndex() == -1)
    {
        MsgBox(QStringLiteral("Debe seleccionar el Tipo de Acta: 'C.O.L.U.' ó 'Seguro de Sepelio'."),
               Caja::Informacion);
        ui->cmbConcepto->setFocus();
        return false;
    }
    return exigirNumero(ui->txtActa, QStringLiteral("Debe informar el Nro. de Acta correspondiente.")) &&
           exigirNumero(ui->txtCuota, QStringLiteral("Debe informar el Nro. de Cuota correspondiente."));
}

bool Boletas::exigirNumero(QLineEdit* campo, const QString& texto)
{
    if (campo->text().toInt() != 0)
    {
        return true;
    }
    campo->clear();
    MsgBox(texto, Caja::Informacion);
    campo->setFocus();
    return false;
}

Boleta Boletas::boleta() const
{
    const auto i = static_cast<std::size_t>(tipo());
    Boleta b;
    b.tipo = static_cast<TipoBoleta>(tipo());
    b.cuit = ui->txtCuit->text();
    b.declaracion = {b.cuit, Rutinas::PeriodoActual, Rutinas::SecuenciaActual};
    const std::optional<QDate> fecha = LeerFecha(ui->MaskFecha->text());
    if (!fecha)
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos, ui->MaskFecha->text());
    }
    b.fecha = *fecha;
    b.art100 = m_aportes.art100;
    b.art101A = m_aportes.art101A;
    b.art101B = m_aportes.art101B;
    b.dias = txtDias[i]->text().toInt();
    b.interes = InteresBoleta[i];
    b.importeTotal = ImporteTotal;
    b.nroActa = ui->txtActa->text().toInt();
    b.cuota = ui->txtCuota->text().toInt();
    b.cuenta = fondo();
    b.importeActa = ImporteActa;
    b.cantidadEmpleados = Rutinas::CantidadEmpleados;
    b.cantidadAfiliados = Rutinas::CantidadAfiliados;
    return b;
}

void Boletas::emitir(const Boleta& boleta)
{
    const TextosDeBoleta textos{ui->txtRazon->text(),
                                ui->txtDomicilio->text(),
                                ui->cmbConcepto->currentText(),
                                {},
                                txtDias[static_cast<std::size_t>(tipo())]->text(),
                                ui->txtActa->text(),
                                ui->txtCuota->text(),
                                IsFont(fuenteDeBarras)};
    Informe informe;
    informe.ArchivoInforme = Rutinas::RutaApp + QStringLiteral("RptBoleta%1.rpt").arg(tipo());
    informe.ArchivoDatos = Rutinas::rutaBase();
    informe.NombreDeArchivo = nombreDeArchivo(boleta);
    informe.Formulas = emitirBoleta(Rutinas::Conexion, boleta, textos);
    if (informe.PrintReport() != 0)
    {
        MsgBox(informe.LastErrorString());
    }
}
