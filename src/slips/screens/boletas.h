#pragma once

#include "base/numbers/moneda.h"
#include "slips/boleta.h"
#include "slips/importes_boleta.h"
#include "ui/shell/pantalla.h"

#include <array>
#include <memory>

class QLineEdit;
namespace Ui
{
class Boletas;
}

/// Prepares one payment slip of one of three kinds, told by ModoAbrir, which it follows as long as it lives.
class Boletas : public Pantalla
{
    Q_OBJECT
public:
    explicit Boletas(QWidget* padre = nullptr);
    ~Boletas() override;

    void cargar() override;
    void activar() override;
    [[nodiscard]] QString empresaEnCurso() const override;

    static inline const QString fuenteDeBarras = QStringLiteral("PF Interleaved 2 of 5");
    /// Is a screen font of this name installed? Shows the busy pointer meanwhile.
    [[nodiscard]] static bool IsFont(const QString& nombre);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void armarEventos();
    void prepararDeclaracion();
    [[nodiscard]] bool prepararActa();
    [[nodiscard]] bool elegirEmpresaDeActa();
    void mostrarMarco(int tipo);
    void ponerFoco();
    void CargarEmpresa(const QString& cuit);
    void CalcularAportes();
    void CalcularTotal();
    void CargarActas();
    void cargarFila(int fila);
    /// Runs `cuerpo`, which works on payments of the list; when one is gone the list is read anew before it is told.
    template <class Cuerpo>
    void conLaLista(Cuerpo cuerpo);
    void preparar();

    void cmbConcepto_Click();
    void cmdBuscar_Click();
    void cmdEliminar_Click();
    void cmdBoletas_Click();
    /// Puts what a field comes to into `importe`, and the total after it; a text that is no number, or with which one
    /// of the two is more than money holds, is told and changes nothing.
    [[nodiscard]] bool tomarImporte(QLineEdit* campo, Moneda& importe);
    bool MaskFecha_Validate();
    bool txtInteres_Validate(int indice);
    bool txtImporte_Validate();
    void campoImporte_GotFocus(QLineEdit* campo);
    void txtDias_GotFocus(QLineEdit* campo);

    [[nodiscard]] bool revisarFecha();
    [[nodiscard]] bool revisarInteres();
    [[nodiscard]] bool revisarActa();
    [[nodiscard]] bool exigirNumero(QLineEdit* campo, const QString& texto);
    [[nodiscard]] Boleta boleta() const;
    void emitir(const Boleta& boleta);
    [[nodiscard]] int tipo() const;
    [[nodiscard]] int fondo() const; ///< chosen in the list: 0, 1, or -1 for none

    std::unique_ptr<Ui::Boletas> ui;
    std::array<QLineEdit*, 3> txtDias{};
    std::array<QLineEdit*, 3> txtInteres{};
    std::array<QLineEdit*, 3> txtTotal{};

    AportesDeBoleta m_aportes;
    std::array<Moneda, 3> InteresBoleta{};
    Moneda ImporteActa;
    Moneda ImporteTotal;
    qint32 PagoElegido = 0;
};
