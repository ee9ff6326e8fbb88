#pragma once

#include "slips/boleta.h"
#include "ui/shell/pantalla.h"

#include <memory>
#include <optional>

class CamposDeImporte;
class ListaDePagos;
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

private:
    void preparar();
    void prepararDeclaracion();
    [[nodiscard]] bool prepararActa();
    [[nodiscard]] bool elegirEmpresaDeActa();
    void mostrarMarco(int cual);
    void ponerFoco();
    void CargarEmpresa(const QString& cuit);
    void CalcularAportes();
    void cargarFila(int fila);

    void cmbConcepto_Click();
    void cmdBuscar_Click();
    void cmdEliminar_Click();
    void cmdBoletas_Click();
    bool MaskFecha_Validate();

    [[nodiscard]] bool revisarFecha();
    [[nodiscard]] bool revisarActa();
    [[nodiscard]] Boleta boleta() const;
    void emitir(const Boleta& boleta);
    /// The kind whose total follows what is typed; nothing when another screen has left its own number in ModoAbrir.
    [[nodiscard]] std::optional<TipoBoleta> tipoDelTotal() const;
    [[nodiscard]] int fondo() const; ///< chosen in the list: 0, 1, or -1 for none

    std::unique_ptr<Ui::Boletas> ui;
    std::unique_ptr<CamposDeImporte> m_importes;
    std::unique_ptr<ListaDePagos> m_pagos;
};
