#include "slips/screens/campos_de_boleta.h"

#include "slips/importes_boleta.h"
#include "ui/fields/filtro_de_entrada.h"
#include "ui/look/estilo.h"
#include "ui_boletas.h"

namespace
{
/// What this text takes in a field, with its frame.
int anchoDe(QLineEdit* campo, const QString& muestra)
{
    constexpr int marco = 28; // pixels
    campo->ensurePolished();
    return campo->fontMetrics().horizontalAdvance(muestra) + marco;
}
} // namespace

void CamposDeBoleta::ajustarAnchos(Ui::Boletas& ui)
{
    const int importe = anchoDe(ui.txtTotal_0, QStringLiteral("$ 9.999.999.999,99")); // the totals are bold
    for (QLineEdit* campo : {ui.txtArt100, ui.txtArt101A, ui.txtArt101B, ui.txtImporte, ui.txtInteres_0,
                             ui.txtInteres_1, ui.txtInteres_2, ui.txtTotal_0, ui.txtTotal_1, ui.txtTotal_2})
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
}

void CamposDeBoleta::disponer(Ui::Boletas& ui)
{
    ui.MaskFecha->setClase(CampoMascara::Fecha);
    ui.vsActas->setColumnas({{ColumnaDeGrilla::Fija, QStringLiteral("Fecha"), 90, 0, {}, false, true},
                             {ColumnaDeGrilla::Fija, QStringLiteral("Nº Acta"), 90, 0, {}, true},
                             {ColumnaDeGrilla::Fija, QStringLiteral("Cuota"), 70, 0, {}, true},
                             {ColumnaDeGrilla::Decimal, QStringLiteral("Importe"), -1},
                             {ColumnaDeGrilla::Fija, QString(), 0}});
    for (QLineEdit* campo : {ui.txtDias_0, ui.txtDias_1, ui.txtDias_2, ui.txtActa, ui.txtCuota})
    {
        soloDigitos(campo);
    }
    for (QLineEdit* campo : {ui.txtInteres_0, ui.txtInteres_1, ui.txtInteres_2, ui.txtImporte})
    {
        soloImporte(campo);
        Estilo::importe(campo);
    }
    for (QLineEdit* campo : {ui.txtArt100, ui.txtArt101A, ui.txtArt101B, ui.txtTotal_0, ui.txtTotal_1, ui.txtTotal_2})
    {
        Estilo::soloMuestra({campo});
        Estilo::importe(campo);
    }
    Estilo::soloMuestra({ui.txtCuit, ui.txtRazon, ui.txtDomicilio, ui.txtAnio_0, ui.txtMes_0, ui.txtSecuencia_0,
                         ui.txtAnio_1, ui.txtMes_1, ui.txtSecuencia_1});
    Estilo::boton(ui.cmdBoletas, QStringLiteral("boleta"), true);
    Estilo::boton(ui.cmdBuscar, QStringLiteral("buscar"));
    Estilo::boton(ui.cmdEliminar, QStringLiteral("eliminar"));
}

void CamposDeBoleta::mostrar(QLineEdit* campo, const QString& texto)
{
    campo->setMaxLength(sinLimite);
    campo->setText(texto);
    campo->setCursorPosition(0);
}

QString CamposDeBoleta::sinMascara(const QString& texto)
{
    return texto.startsWith(QLatin1String("$ ")) ? importeSinSigno(texto) : texto;
}

QString CamposDeBoleta::paraEditar(Moneda importe)
{
    return importe.textoPlano().replace(QLatin1Char('.'), QLatin1Char(','));
}
