#pragma once

#include "platform/data/moneda.h"
#include "platform/screens/fuentes.h"
#include "platform/screens/pantalla.h"
#include "slips/boleta.h"
#include "slips/importes_boleta.h"

#include <array>
#include <memory>
#include <vector>

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
    [[nodiscard]] bool descargar() override;
    [[nodiscard]] QString empresaEnCurso() const override;

    /// Is a screen font of this name installed? Shows the busy pointer meanwhile.
    [[nodiscard]] static bool IsFont(const QString& nombre);

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    void armarCampos();
    void ajustarAnchos();
    void armarEventos();
    void prepararDeclaracion();
    [[nodiscard]] bool prepararActa();
    [[nodiscard]] bool elegirEmpresaDeActa();
    void mostrarMarco(int tipo);
    void ponerFoco();
    void CargarEmpresa();
    void CalcularAportes();
    void CalcularTotal();
    void CargarActas();
    void cargarFila(int fila);

    void cmbConcepto_Click();
    void cmdBuscar_Click();
    void cmdEliminar_Click();
    void cmdBoletas_Click();
    bool MaskFecha_Validate();
    bool txtInteres_Validate(int indice);
    bool txtImporte_Validate();
    void campoImporte_GotFocus(QLineEdit* campo);
    void txtDias_GotFocus(QLineEdit* campo);
    void vsActas_Click(int columna, int fila);
    void vsActas_LeaveCell(int columna, int fila, int nuevaColumna, int nuevaFila);

    [[nodiscard]] bool revisarFecha();
    [[nodiscard]] bool revisarInteres();
    [[nodiscard]] bool revisarActa();
    [[nodiscard]] bool exigirNumero(QLineEdit* campo, const QString& texto);
    [[nodiscard]] Boleta boleta() const;
    void imprimir(const Boleta& boleta);
    [[nodiscard]] int tipo() const;

    std::unique_ptr<Ui::Boletas> ui;
    std::array<QLineEdit*, 3> txtDias{};
    std::array<QLineEdit*, 3> txtInteres{};
    std::array<QLineEdit*, 3> txtTotal{};

    AportesDeBoleta m_aportes;
    std::array<Moneda, 3> InteresBoleta{};
    Moneda ImporteActa;
    Moneda ImporteTotal;
    qint32 PagoElegido = 0;
    bool FuenteInstalada = false;
    std::vector<std::shared_ptr<Fuentes::Agregada>> m_fuentes; ///< kept for its slips
};
