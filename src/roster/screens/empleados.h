#pragma once

#include "core/clave_ddjj.h"
#include "roster/guardar_empleado.h"
#include "ui/shell/pantalla.h"

#include <functional>
#include <memory>

class FichaDeEmpleado;
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
    void armarMandos();
    void armarCampos();
    [[nodiscard]] bool enEdicion() const;
    void HabilitarEdicion(bool Estado);
    void terminarEdicion();

    /// The employee that is found from this CUIL on.
    void CargarEmpleado(AccionEmpleado Accion, const QString& cuil);
    void LimpiarEmpleado();
    void contarLugar();

    void agregar();
    void modificar();
    void eliminar();
    void cancelar();
    void buscar();

    bool MaskCuil_Validate();
    [[nodiscard]] bool CuilExistente();
    void GrabarEmpleado();
    void guardar(EntradaEmpleado& entrada);
    /// What another desk has deleted meanwhile is told: the screen is emptied for an employee, and closes with its
    /// declaration.
    void siSigueAhi(const std::function<void()>& escribir);

    std::unique_ptr<Ui::Empleados> ui;
    std::unique_ptr<FichaDeEmpleado> m_ficha;

    ClaveDDJJ m_clave;
    std::optional<EmpleadoLeido> m_leido; ///< the record on the screen, as it was read or saved last
    QString TituloForm;
    LugarEnNomina m_lugar; ///< of the employee shown; no total while one is entered, or none is shown
};
