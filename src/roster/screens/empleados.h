#pragma once

#include "core/clave_ddjj.h"
#include "roster/empleado.h"
#include "roster/guardar_empleado.h"
#include "roster/screens/ultimos_valores.h"
#include "ui/shell/pantalla.h"

#include <array>
#include <functional>
#include <memory>

class CampoMascara;
class QAbstractButton;
class QLineEdit;
namespace Ui
{
class Empleados;
}

/// The roster of one declaration, which the public variables name: browses its employees, enters, changes and deletes
/// them, each with his dependants.
class Empleados : public Pantalla
{
    Q_OBJECT
public:
    explicit Empleados(QWidget* padre = nullptr);
    ~Empleados() override;

    void cargar() override;
    void activar() override;
    [[nodiscard]] bool dejaLoTipeado() override;
    [[nodiscard]] QString empresaEnCurso() const override;
    [[nodiscard]] QString lugarEnCurso() const override;

protected:
    bool eventFilter(QObject* objeto, QEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void armarCampos();
    void armarEventos();
    void vestir();
    void cargarCatalogos();
    [[nodiscard]] bool enEdicion() const;
    /// The button that a key stands for; none for another key.
    [[nodiscard]] QAbstractButton* flechaDe(const QKeyEvent& tecla) const;

    void CargarEmpleado(AccionEmpleado Accion);
    void mostrar(const Empleado& empleado);
    void mostrarSucursal(const std::optional<QString>& texto);
    void mostrarFamilia(const std::vector<FilaFamiliar>& familia);
    void HabilitarEdicion(bool Estado);
    void LimpiarEmpleado();
    void contarLugar();

    void agregar();
    void modificar();
    void eliminar();
    void aceptar();
    void cancelar();
    void buscar();
    void cmdSucursal_Click();

    [[nodiscard]] bool CuilExistente();
    [[nodiscard]] bool GrabarEmpleado();
    [[nodiscard]] bool guardar();
    /// What another desk has deleted meanwhile is told: the screen is emptied for an employee, and closes with its
    /// declaration.
    void siSigueAhi(const std::function<void()>& escribir);
    [[nodiscard]] EntradaEmpleado entrada() const;
    [[nodiscard]] std::vector<FilaFamiliar> familia() const;
    void completarCeros(const std::optional<FaltaEnEmpleado>& falta);
    void avisarFalta(const FaltaEnEmpleado& falta);
    [[nodiscard]] QWidget* campoDe(CampoEmpleado campo) const;

    void CalcularAportes();
    void mostrarAportes(const Aportes& aportes);
    void mostrarTotal(const QString& importe);
    bool MaskCuil_Validate();
    void txtAyN_LostFocus();
    bool txtImporte_Validate(QLineEdit* campo);
    void chkAfiliado_Click(bool afiliado);
    void cmbEstadoCivil_LostFocus();
    void seguirDeFamiliares();
    void recordarValores();
    /// The field at work takes what it held in the employee who was saved last.
    void repetirCampo();

    std::unique_ptr<Ui::Empleados> ui;
    std::array<CampoMascara*, 3> MaskCuil{};
    std::array<QLineEdit*, 3> txtAyN{};
    std::array<CampoMascara*, 3> MaskFecha{};
    std::array<QLineEdit*, 6> txtImporte{}; ///< the first is none

    ClaveDDJJ m_clave;
    std::optional<EmpleadoLeido> m_leido; ///< the record on the screen, as it was read or saved last
    QString TituloForm;
    qint64 SucursalActual = 0; ///< ID of the branch shown, 0 for none
    LugarEnNomina m_lugar;     ///< of the employee shown; no total while one is entered, or none is shown
    UltimosValores m_ultimos;  ///< of the employee saved last since the screen was opened
    qint64 m_ultimaSucursal = 0;
};
