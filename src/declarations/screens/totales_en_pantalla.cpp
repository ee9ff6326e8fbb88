#include "declarations/screens/totales_en_pantalla.h"

#include "base/numbers/formato.h"
#include "core/nombre_ddjj.h"
#include "core/rutinas.h"
#include "ui/look/estilo.h"
#include "ui_ddjj.h"

TotalesEnPantalla::TotalesEnPantalla(const Ui::DDJJ& pantalla)
    : ui(pantalla)
    , m_numeros{ui.txtCantidad_0, ui.txtCantidad_1, ui.txtCantidad_2, ui.txtCantidad_3, ui.txtImporte_0,
                ui.txtImporte_1,  ui.txtImporte_2,  ui.txtImporte_3,  ui.txtImporte_4,  ui.txtImporte_5}
{
    Estilo::soloMuestra({ui.txtFecha});
    for (auto* campo : m_numeros)
    {
        Estilo::soloMuestra({campo});
        Estilo::importe(campo);
    }
    QPalette tenue = ui.lineaAportes->palette();
    tenue.setColor(QPalette::WindowText, tenue.color(QPalette::Mid));
    ui.lineaAportes->setPalette(tenue);
    for (auto* etiqueta : {ui.lblIncompleto, ui.lblJornada})
    {
        Estilo::advertencia(etiqueta);
        // Their room stays, so that the totals do not jump while the list is walked through.
        QSizePolicy politica = etiqueta->sizePolicy();
        politica.setRetainSizeWhenHidden(true);
        etiqueta->setSizePolicy(politica);
        etiqueta->hide();
    }
}

void TotalesEnPantalla::limpiar()
{
    ui.fraPeriodo->setTitle(QStringLiteral("Periodo: "));
    ui.txtFecha->clear();
    ui.lblIncompleto->hide();
    ui.lblJornada->hide();
    for (auto* campo : m_numeros)
    {
        campo->clear();
    }
    m_sumas = {};
}

void TotalesEnPantalla::mostrar(const ClaveDDJJ& clave)
{
    limpiar();
    ui.fraPeriodo->setTitle(ui.fraPeriodo->title() + textoDe(clave));
    const TotalesDDJJ totales = calcularTotales(Rutinas::Conexion, clave);
    ui.txtFecha->setText(totales.fecha.toString(u"dd/MM/yy"));
    if (!totales.sumas)
    {
        return; // no roster yet
    }
    m_sumas = *totales.sumas;
    ui.txtCantidad_0->setText(QString::number(m_sumas.todos.empleados));
    ui.txtCantidad_1->setText(QString::number(m_sumas.afiliados.empleados));
    ui.txtCantidad_2->setText(QString::number(m_sumas.todos.familiares));
    ui.txtCantidad_3->setText(QString::number(m_sumas.afiliados.familiares));
    ui.txtImporte_0->setText(conPesos(m_sumas.todos.remuneracion));
    ui.txtImporte_1->setText(conPesos(m_sumas.afiliados.remuneracion));
    ui.txtImporte_2->setText(conPesos(m_sumas.art100));
    ui.txtImporte_3->setText(conPesos(m_sumas.art101a));
    ui.txtImporte_4->setText(conPesos(m_sumas.art101b));
    ui.txtImporte_5->setText(conPesos(m_sumas.aDepositar()));
    ui.lblIncompleto->setText(
        QStringLiteral("Datos Incompletos en %1 Empleados - Ver Nomina de Personal").arg(totales.incompletos));
    ui.lblIncompleto->setVisible(totales.incompletos != 0);
    ui.lblJornada->setVisible(totales.jornadaReducida != 0);
}
