#include "roster/screens/aportes_en_pantalla.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "core/screens/validar.h"
#include "ui/look/estilo.h"
#include "ui/shell/campos.h"
#include "ui_empleados.h"

using campos::ponerEntero;

namespace
{
const QString jornadaCompleta = QStringLiteral("200");
} // namespace

AportesEnPantalla::AportesEnPantalla(const Ui::Empleados& controles)
    : ui(controles)
{
    ui.cmbQHoras->addItems({jornadaCompleta, QStringLiteral("150"), QStringLiteral("100")});
    QLineEdit* horas = ui.cmbQHoras->lineEdit();
    soloDigitos(horas);
    horas->setAccessibleName(QStringLiteral("Jornada Mensual Laboral"));
    ui.cmbQHoras->setCompleter(nullptr); // "1" would become "150"
    soloImporte(ui.txtImporte_1);
    soloImporte(ui.txtImporte_2);
    Estilo::soloMuestra({ui.txtImporte_3, ui.txtImporte_4, ui.txtImporte_5});
    for (QWidget* campo : std::initializer_list<QWidget*>{ui.txtImporte_1, ui.txtImporte_2, ui.txtImporte_3,
                                                          ui.txtImporte_4, ui.txtImporte_5, ui.lblRemTotal})
    {
        Estilo::importe(campo);
    }
}

void AportesEnPantalla::mostrar(const Empleado& empleado)
{
    ui.cmbQHoras->setCurrentText(QString::number(empleado.qHoras));
    afiliar(empleado.afiliado);
    ponerEntero(ui.txtImporte_1, sinMiles(empleado.imponible));
    ponerEntero(ui.txtImporte_2, sinMiles(empleado.acuerdo));
    mostrarCalculados(sinMiles(empleado.imponible + empleado.acuerdo), sinMiles(empleado.art100),
                      sinMiles(empleado.art101A), sinMiles(empleado.art101B));
}

void AportesEnPantalla::limpiar()
{
    ponerJornadaCompleta();
    afiliar(true);
    ponerEntero(ui.txtImporte_1, {});
    ponerEntero(ui.txtImporte_2, {});
    mostrarCalculados({}, {}, {}, {});
}

void AportesEnPantalla::anotar(EntradaEmpleado& entrada) const
{
    entrada.qHoras = ui.cmbQHoras->currentText();
    entrada.haberes = ui.txtImporte_1->text();
    entrada.acuerdo = ui.txtImporte_2->text();
    entrada.afiliado = ui.chkAfiliado_1->isChecked();
}

bool AportesEnPantalla::dejarImporte(QLineEdit* campo)
{
    const QString texto = campo->text();
    const bool vale = texto.isEmpty() || Rutinas::VerificarNumero(texto);
    if (vale && !texto.isEmpty())
    {
        ponerEntero(campo, sinMiles(Moneda::deTexto(texto)));
    }
    calcular();
    return vale;
}

void AportesEnPantalla::afiliar(bool afiliado)
{
    ui.chkAfiliado_1->setChecked(afiliado);
    ui.chkAfiliado_2->setChecked(afiliado);
    calcular();
}

void AportesEnPantalla::ponerJornadaCompleta()
{
    ui.cmbQHoras->setCurrentText(jornadaCompleta);
}

void AportesEnPantalla::calcular()
{
    if (!ui.FraEmpleado_1->isEnabled())
    {
        return;
    }
    if (ui.cmbQHoras->currentText().isEmpty())
    {
        ponerJornadaCompleta();
    }
    EntradaEmpleado datos;
    anotar(datos);
    try
    {
        const Aportes aportes = aportesDe(datos);
        mostrarCalculados(sinMiles(aportes.total), sinMiles(aportes.art100), sinMiles(aportes.art101A),
                          sinMiles(aportes.art101B));
    }
    catch (const ErrorDeEjecucion&)
    {
        // Told by "Aceptar".
    }
}

void AportesEnPantalla::mostrarCalculados(const QString& total, const QString& art100, const QString& art101A,
                                          const QString& art101B)
{
    ui.lblRemTotal->setText(total);
    ui.lblRemTotal->setAccessibleName(QStringLiteral("Remuneración Total: ") + total); // heard in the text's place
    ponerEntero(ui.txtImporte_3, art100);
    ponerEntero(ui.txtImporte_4, art101A);
    ponerEntero(ui.txtImporte_5, art101B);
}
