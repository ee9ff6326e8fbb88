#pragma once

#include "core/clave_ddjj.h"
#include "declarations/totales_ddjj.h"
#include "ui/shell/pantalla.h"

#include <array>
#include <memory>
#include <optional>
#include <vector>

class EleccionEmpresa;
class EnvioDeDDJJ;
class QLineEdit;
class QPushButton;
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
    // Frame of the screen: ddjj.cpp
    void vestir();
    void conectarMandos();
    void conectarMando(QPushButton* boton, void (DDJJ::*haz)());
    /// Runs `haz`; when it finds out that something is gone, the lists are read anew before that is told.
    void alDia(const std::function<void()>& haz);
    void releer();
    void Habilitar(bool ControlStatus);
    void habilitarPaginas(bool si);
    void mostrarPagina(QWidget* pagina);
    void LimpiarDatos(bool Todo);
    void CargarDeclaraciones();
    void MostrarDDJJ();
    void mostrarSumas(const SumasDDJJ& sumas);
    void mostrarSecuencia(int secuencia);
    void seleccionar(int fila);
    void txtAnio_LostFocus();

    // Commands: ddjj_mandos.cpp
    void cmdNueva_Click();
    void cmdGrabar_Click();
    void cmdCancelar_Click();
    void cmdEliminar_Click();
    void cmdNomina_Click();
    void cmdSueldos_Click();
    void cmdCopiar_Click();
    void cmdImportar_Click();
    void cmdBoletas_Aportes_Click();
    void cmdBoletas_Interes_Click();
    void cmdBoletas_Actas_Click();
    void cmdBoletas_Envio_Click();
    void cmdInformes_Declaracion_Click();
    void cmdInformes_Incompletos_Click();
    void cmdInformes_Texto_Click();
    [[nodiscard]] bool eligioDeclaracion() const;
    void abrirConNomina(const QString& pantalla);
    void mostrarModal(const QString& pantalla);
    void abrirBoletas(quint8 tipo);
    void imprimirInforme(InformeDDJJ cual);
    void publicarDeclaracion();
    [[nodiscard]] EnvioDeDDJJ envio();

    [[nodiscard]] bool hayDeclaracion() const; ///< one is selected
    [[nodiscard]] ClaveDDJJ clave() const;     ///< of the selected declaration
    /// Throws YaNoEsta unless the company and the declaration that are chosen, if any, still stand in the database.
    void exigirVigencia() const;
    // Each says so when it does not hold.
    [[nodiscard]] bool exigirPeriodo();
    [[nodiscard]] bool exigirNomina(); ///< and goes to cmdNomina

    std::unique_ptr<Ui::DDJJ> ui;
    EleccionEmpresa* m_eleccion = nullptr;
    std::array<QLineEdit*, 4> txtCantidad{};
    std::array<QLineEdit*, 6> txtImporte{};
    std::vector<ClaveDDJJ> m_declaraciones; ///< the rows of vsDDJJ, in their order
    std::optional<ClaveDDJJ> m_seleccion;   ///< the declaration at work
    SumaDePersonal m_todos;                 ///< of the declaration shown; zero without a roster
    SumaDePersonal m_afiliados;
};
