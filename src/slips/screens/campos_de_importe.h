#pragma once

#include "slips/boleta.h"
#include "slips/importes_boleta.h"

#include <QObject>
#include <array>
#include <functional>
#include <optional>

class QLineEdit;
struct PagoGuardado;
namespace Ui
{
class Boletas;
}

/// The amounts of the slip on the screen and their fields, which live longer than this. Each kind of slip has days,
/// interest and a total of its own. An amount is masked while the user is elsewhere; the total follows each one.
class CamposDeImporte : public QObject
{
    Q_OBJECT
public:
    /// `tipoDelTotal`: the kind whose total follows what is typed; nothing for none.
    CamposDeImporte(const Ui::Boletas& ui, std::function<std::optional<TipoBoleta>()> tipoDelTotal);

    /// No interest and no total any more, whatever the fields still show; the amount of the act stays.
    void empezar();
    void mostrarAportes(const AportesDeBoleta& aportes);
    /// Puts days and interest into the fields of `tipo`, the rest into that of the act.
    void mostrarPago(TipoBoleta tipo, const PagoGuardado& pago);

    /// Leaving checks: take what was typed and mask it. A text that is no number, or with which an amount or its total
    /// is more than money holds, is told and changes nothing: false.
    bool dejarInteres(TipoBoleta tipo);
    bool dejarActa();
    /// Days and interest come together or not at all: false, told and with the focus on what is missing.
    [[nodiscard]] bool revisarInteres(TipoBoleta tipo);

    [[nodiscard]] QString dias(TipoBoleta tipo) const; ///< as they were typed
    [[nodiscard]] Moneda total() const { return m_total; }
    /// Gives a slip its days and amounts, by its kind.
    void completar(Boleta& boleta) const;

    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    struct Renglon
    {
        QLineEdit* dias;
        QLineEdit* interes;
        QLineEdit* total;
        Moneda importe = {}; ///< of the interest
    };
    [[nodiscard]] Renglon& de(TipoBoleta tipo) { return m_renglones[static_cast<std::size_t>(tipo)]; }
    [[nodiscard]] const Renglon& de(TipoBoleta tipo) const { return m_renglones[static_cast<std::size_t>(tipo)]; }
    void alEntrar(QLineEdit* campo) const;
    /// A zero is shown as `cero`.
    [[nodiscard]] bool tomar(QLineEdit* campo, Moneda& importe, const QString& cero);
    void calcularTotal();

    std::array<Renglon, 3> m_renglones; ///< by kind
    QLineEdit* m_acta;
    std::array<QLineEdit*, 3> m_camposDeAportes;
    std::function<std::optional<TipoBoleta>()> m_tipoDelTotal;
    AportesDeBoleta m_aportes;
    Moneda m_importeActa;
    Moneda m_total;
};
