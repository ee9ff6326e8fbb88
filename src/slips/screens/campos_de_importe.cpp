#include "slips/screens/campos_de_importe.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "core/screens/validar.h"
#include "slips/pagos.h"
#include "ui/doors/mensajes.h"
#include "ui_boletas.h"

#include <QFocusEvent>
#include <algorithm>

namespace
{
// Characters.
constexpr int largoDeImporte = 10;
constexpr int sinLimite = 32767;

/// Shows an amount with its mask: longer than what may be typed.
void mostrar(QLineEdit* campo, const QString& texto)
{
    campo->setMaxLength(sinLimite);
    campo->setText(texto);
    campo->setCursorPosition(0);
}

/// An amount as it is typed: a decimal comma, no thousands.
QString paraEditar(Moneda importe)
{
    return importe.textoPlano().replace(QLatin1Char('.'), QLatin1Char(','));
}
} // namespace

CamposDeImporte::CamposDeImporte(const Ui::Boletas& ui, std::function<std::optional<TipoBoleta>()> tipoDelTotal)
    : m_renglones{{{ui.txtDias_0, ui.txtInteres_0, ui.txtTotal_0},
                   {ui.txtDias_1, ui.txtInteres_1, ui.txtTotal_1},
                   {ui.txtDias_2, ui.txtInteres_2, ui.txtTotal_2}}}
    , m_acta(ui.txtImporte)
    , m_camposDeAportes{ui.txtArt100, ui.txtArt101A, ui.txtArt101B}
    , m_tipoDelTotal(std::move(tipoDelTotal))
{
    for (const Renglon& renglon : m_renglones)
    {
        renglon.dias->installEventFilter(this);
        renglon.interes->installEventFilter(this);
    }
    m_acta->installEventFilter(this);
}

void CamposDeImporte::empezar()
{
    for (Renglon& renglon : m_renglones)
    {
        renglon.importe = {};
    }
    m_total = {};
}

void CamposDeImporte::mostrarAportes(const AportesDeBoleta& aportes)
{
    m_aportes = aportes;
    m_camposDeAportes[0]->setText(conMiles(aportes.art100));
    m_camposDeAportes[1]->setText(conMiles(aportes.art101A));
    m_camposDeAportes[2]->setText(conMiles(aportes.art101B));
    const Renglon& renglon = de(TipoBoleta::Aportes);
    m_total = aportes.subTotal() + renglon.importe;
    renglon.total->setText(conMiles(m_total));
}

void CamposDeImporte::mostrarPago(TipoBoleta tipo, const PagoGuardado& pago)
{
    de(tipo).dias->setText(pago.dias == 0 ? QString() : QString::number(pago.dias));
    mostrar(de(tipo).interes, pago.interes == Moneda() ? QString() : paraEditar(pago.interes));
    mostrar(m_acta, paraEditar(pago.importe - pago.interes));
    (void)dejarInteres(TipoBoleta::Acta); // the list of payments stands in the frame of the acts
    (void)dejarActa();
}

bool CamposDeImporte::dejarInteres(TipoBoleta tipo)
{
    return tomar(de(tipo).interes, de(tipo).importe, {});
}

bool CamposDeImporte::dejarActa()
{
    return tomar(m_acta, m_importeActa, conPesos({}));
}

bool CamposDeImporte::tomar(QLineEdit* campo, Moneda& importe, const QString& cero)
{
    QString texto = campo->text().isEmpty() ? QStringLiteral("0") : campo->text();
    if (texto.startsWith(QLatin1String("$ "))) // as the program masked it
    {
        texto = importeSinSigno(texto);
    }
    if (!Rutinas::VerificarNumero(texto))
    {
        return false;
    }
    const Moneda anterior = importe;
    try
    {
        importe = importeDeCampo(texto);
        calcularTotal();
    }
    catch (const ErrorDeEjecucion& error)
    {
        if (error.numero() != ErrorDeEjecucion::Desbordamiento)
        {
            throw;
        }
        importe = anterior;
        MsgBox(QStringLiteral("Verifique el Número ingresado.  El mismo es incorrecta"));
        return false;
    }
    mostrar(campo, importe == Moneda() ? cero : conPesos(importe));
    return true;
}

void CamposDeImporte::calcularTotal()
{
    const std::optional<TipoBoleta> tipo = m_tipoDelTotal();
    if (!tipo)
    {
        return;
    }
    Moneda total = de(*tipo).importe;
    if (tipo == TipoBoleta::Aportes)
    {
        total += m_aportes.subTotal();
    }
    else if (tipo == TipoBoleta::Acta)
    {
        total += m_importeActa;
    }
    m_total = total;
    de(*tipo).total->setText(conPesos(m_total));
}

bool CamposDeImporte::revisarInteres(TipoBoleta tipo)
{
    const Renglon& renglon = de(tipo);
    for (QLineEdit* campo : {renglon.dias, renglon.interes})
    {
        if (campo->text().isEmpty())
        {
            campo->setText(QStringLiteral("0"));
        }
    }
    const bool sinDias = renglon.dias->text().toInt() == 0;
    const bool sinInteres = importeParaEditar(renglon.interes->text()).isEmpty();
    if (sinDias == sinInteres)
    {
        return true;
    }
    MsgBox(sinDias ? QStringLiteral("Debe informar los Días de Interes correspondientes.")
                   : QStringLiteral("Debe informar el Monto de Interes correspondiente."),
           Caja::Informacion);
    QLineEdit* falta = sinDias ? renglon.dias : renglon.interes;
    falta->clear();
    falta->setFocus();
    return false;
}

QString CamposDeImporte::dias(TipoBoleta tipo) const
{
    return de(tipo).dias->text();
}

void CamposDeImporte::completar(Boleta& boleta) const
{
    boleta.art100 = m_aportes.art100;
    boleta.art101A = m_aportes.art101A;
    boleta.art101B = m_aportes.art101B;
    boleta.dias = dias(boleta.tipo).toInt();
    boleta.interes = de(boleta.tipo).importe;
    boleta.importeTotal = m_total;
    boleta.importeActa = m_importeActa;
}

bool CamposDeImporte::eventFilter(QObject* objeto, QEvent* evento)
{
    if (evento->type() == QEvent::FocusIn)
    {
        const auto motivo = static_cast<QFocusEvent*>(evento)->reason();
        if (motivo != Qt::ActiveWindowFocusReason && motivo != Qt::PopupFocusReason)
        {
            alEntrar(static_cast<QLineEdit*>(objeto));
        }
    }
    return false;
}

void CamposDeImporte::alEntrar(QLineEdit* campo) const
{
    const bool esDias = std::ranges::find(m_renglones, campo, &Renglon::dias) != m_renglones.end();
    if (!esDias)
    {
        campo->setText(importeParaEditar(campo->text()));
    }
    else if (campo->text().toInt() == 0)
    {
        campo->clear();
    }
    if (campo == m_acta || campo == de(TipoBoleta::Acta).interes)
    {
        campo->setMaxLength(largoDeImporte);
    }
}
