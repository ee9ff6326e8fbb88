#pragma once

#include "companies/guardar_empresa.h"
#include "ui/shell/pantalla.h"

#include <memory>
#include <utility>
#include <vector>

class QLineEdit;

namespace Ui
{
class Empresas;
}

/// The employers: company, branches and responsible persons, in a viewing and an editing state, with one save for all.
class Empresas : public Pantalla
{
    Q_OBJECT
public:
    explicit Empresas(QWidget* padre = nullptr);
    ~Empresas() override;

    void cargar() override;
    [[nodiscard]] bool dejaLoTipeado() override;
    [[nodiscard]] QString empresaEnCurso() const override;

private:
    // Commands.
    void CmdActualiza_Click();
    void CmdCancela_Click();
    void cmdRubro_Click();
    // Leaving checks; false keeps the focus.
    bool MaskCuit_LostFocus();
    bool txtCodRubro_LostFocus();

    void MostrarEmpresa();
    void ActivarDatos(bool estado);
    void LimpiarEmpresa();
    bool BuscarNombreRubro();

    void prepararBotones();
    void prepararCampos();
    void prepararGrillas();
    void alta();
    void modificar();
    void eliminar();
    void buscar();
    void grabar(EntradaEmpresa& entrada);
    [[nodiscard]] bool guardar(EntradaEmpresa& entrada);
    void ponerNumeros(const std::vector<FilaSucursal>& sucursales);
    void quitarEliminadas();
    bool revisarFaltas(EntradaEmpresa& entrada);
    /// The fields that hold a text as it is stored.
    [[nodiscard]] std::vector<std::pair<QLineEdit*, QString Empresa::*>> camposDeTexto() const;
    void llenarCampos(const Empresa& empresa);
    void mostrarGrillas(const EmpresaLeida& leida);
    void mostrarTitulo(const QString& cola = {});
    [[nodiscard]] Empresa empresaTipeada() const;
    [[nodiscard]] EntradaEmpresa entradaTipeada() const;
    [[nodiscard]] std::vector<FilaSucursal> sucursalesTipeadas() const;
    [[nodiscard]] std::vector<FilaResponsable> responsablesTipeados() const;
    [[nodiscard]] QWidget* campo(CampoEmpresa cual) const;

    std::unique_ptr<Ui::Empresas> ui;
    QString TituloBase;
    std::optional<EmpresaLeida> m_leida; ///< the company on the screen, as it was read or saved last
};
