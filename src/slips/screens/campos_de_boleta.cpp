#include "slips/screens/campos_de_boleta.h"

#include "ui/fields/campo_mascara.h"
#include "ui/look/estilo.h"
#include "ui_boletas.h"

#include <array>

namespace
{
std::array<QLineEdit*, 10> importes(const Ui::Boletas& ui)
{
    return {ui.txtArt100,    ui.txtArt101A,   ui.txtArt101B, ui.txtImporte, ui.txtInteres_0,
            ui.txtInteres_1, ui.txtInteres_2, ui.txtTotal_0, ui.txtTotal_1, ui.txtTotal_2};
}

/// What this text takes in a field, with its frame.
int anchoDe(QLineEdit* campo, const QString& muestra)
{
    constexpr int marco = 28; // pixels
    campo->ensurePolished();
    return campo->fontMetrics().horizontalAdvance(muestra) + marco;
}
} // namespace

void CamposDeBoleta::ajustarMedidas(const Ui::Boletas& ui)
{
    const int importe = anchoDe(ui.txtTotal_0, QStringLiteral("$ 9.999.999.999,99")); // the totals are bold
    for (QLineEdit* campo : importes(ui))
    {
        campo->setFixedWidth(importe);
    }
    for (QLineEdit* campo : {ui.txtAnio_0, ui.txtAnio_1, ui.txtActa})
    {
        campo->setFixedWidth(anchoDe(campo, QStringLiteral("999999")));
    }
    for (QLineEdit* campo : {ui.txtMes_0, ui.txtMes_1, ui.txtSecuencia_0, ui.txtSecuencia_1, ui.txtCuota, ui.txtDias_0,
                             ui.txtDias_1, ui.txtDias_2})
    {
        campo->setFixedWidth(anchoDe(campo, QStringLiteral("999")));
    }
    QSize lugar;
    for (QGroupBox* marco : {ui.fraPeriodo_0, ui.fraPeriodo_1, ui.fraPeriodo_2})
    {
        lugar = lugar.expandedTo(marco->sizeHint());
        marco->hide();
    }
    ui.marcos->setMinimumSize(lugar);
}

void CamposDeBoleta::disponer(const Ui::Boletas& ui)
{
    ui.MaskFecha->setClase(CampoMascara::Fecha);
    for (QLineEdit* campo : {ui.txtDias_0, ui.txtDias_1, ui.txtDias_2, ui.txtActa, ui.txtCuota})
    {
        soloDigitos(campo);
    }
    for (QLineEdit* campo : {ui.txtInteres_0, ui.txtInteres_1, ui.txtInteres_2, ui.txtImporte})
    {
        soloImporte(campo);
    }
    Estilo::soloMuestra({ui.txtCuit, ui.txtRazon, ui.txtDomicilio, ui.txtAnio_0, ui.txtMes_0, ui.txtSecuencia_0,
                         ui.txtAnio_1, ui.txtMes_1, ui.txtSecuencia_1, ui.txtArt100, ui.txtArt101A, ui.txtArt101B,
                         ui.txtTotal_0, ui.txtTotal_1, ui.txtTotal_2});
    for (QLineEdit* campo : importes(ui)) // last: a field restyled after it loses its smaller letters
    {
        Estilo::importe(campo);
    }
    Estilo::boton(ui.cmdBoletas, QStringLiteral("boleta"), true);
    Estilo::boton(ui.cmdBuscar, QStringLiteral("buscar"));
    Estilo::boton(ui.cmdEliminar, QStringLiteral("eliminar"));
}
