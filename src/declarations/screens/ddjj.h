#pragma once

#include "ui/shell/pantalla.h"

#include <functional>
#include <memory>

class DeclaracionElegida;
class EleccionEmpresa;
class EnvioDeDDJJ;
class TotalesEnPantalla;
enum class InformeDDJJ;
namespace Ui
{
class DDJJ;
}

/// The centre of the program: a company, its declarations with the latest first, and everything that works on the one
/// selected. What another screen or another desk has deleted meanwhile is told in one box, with the lists read anew.
class DDJJ : public Pantalla
{
    Q_OBJECT
public:
    explicit DDJJ(QWidget* padre = nullptr);
    ~DDJJ() override;

    void cargar() override;
    void activar() override;
    [[nodiscard]] bool descargar() override;
    [[nodiscard]] QString empresaEnCurso() const override;

private:
    void disponerMandos();
    /// Runs `haz`; when it finds out that something is gone, the lists are read anew before that is told.
    void alDia(const std::function<void()>& haz);
    void releer();
    void Habilitar(bool ControlStatus);
    void mostrarPaginaDDJJ();
    void LimpiarDatos();
    void CargarDeclaraciones();
    void MostrarDDJJ();
    /// Throws YaNoEsta unless the company and the declaration that are chosen, if any, still stand in the database.
    void exigirVigencia() const;
    // Each says so when that is wanting.
    /// False, told and with the focus on cmdNomina, without a roster. Throws YaNoEsta when the declaration is gone.
    [[nodiscard]] bool exigirNomina();
    [[nodiscard]] bool exigirCuit() const;

    void cmdNueva_Click();
    void cmdGrabar_Click();
    void cmdCancelar_Click();
    void cmdEliminar_Click();
    void cmdCopiar_Click();
    void cmdImportar_Click();
    void cmdBoletas_Envio_Click();
    void abrirNomina(const QString& pantalla);
    void abrirBoletas(quint8 tipo);
    void imprimir(InformeDDJJ cual);
    /// Hands the company and its declaration, if one is chosen, to the screen that opens next.
    void publicar() const;
    /// Shows a dialog on the chosen declaration; false when that is gone afterwards.
    [[nodiscard]] bool mostrarModal(const QString& pantalla);
    /// The same with the company and the declaration handed to it.
    [[nodiscard]] bool mostrarModalConDatos(const QString& pantalla);
    [[nodiscard]] EnvioDeDDJJ envio();

    std::unique_ptr<Ui::DDJJ> ui;
    EleccionEmpresa* m_empresa = nullptr;
    std::unique_ptr<DeclaracionElegida> m_declaracion;
    std::unique_ptr<TotalesEnPantalla> m_totales;
};
