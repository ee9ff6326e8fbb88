#pragma once

#include "roster/guardar_empleado.h"
#include "roster/screens/aportes_en_pantalla.h"
#include "roster/screens/ultimos_valores.h"

class QWidget;

/// One employee with his dependants, in the fields of the screen: what is shown and what is typed of him.
class FichaDeEmpleado
{
public:
    /// Gives the fields what may be typed into them and their looks.
    explicit FichaDeEmpleado(const Ui::Empleados& controles);

    void cargarCatalogos();
    /// A branch that is none of his company's (any more) is told, and kept. A reading that fails changes nothing.
    void mostrar(const EmpleadoLeido& leido);
    void limpiar();
    /// From here on a new one is entered, or the one shown is changed; goes to the field where that begins.
    void editar(bool nuevo);
    /// As he is typed.
    [[nodiscard]] EntradaEmpleado entrada() const;

    /// CUIL and name stand on every page.
    void copiarQuienEs();
    /// The CUIL holds the number of his document.
    void ponerDocumento();
    /// Opens the search of branches and shows what is picked there.
    void buscarSucursal();
    /// Empty numbers become 0, each once the checks before it have passed.
    void completarCeros(const std::optional<FaltaEnEmpleado>& falta);
    /// To the field that was found wanting; hours that are refused become all hours.
    void irA(CampoEmpleado campo);

    /// Keeps what the fields hold, of an employee who was saved.
    void recordar();
    /// The field takes what was kept of it, or tells that there is nothing.
    void repetir(QWidget* campo);

    [[nodiscard]] AportesEnPantalla& aportes() { return m_aportes; }

private:
    void ponerCampos(const Empleado& empleado);
    /// Without a text there is no such branch.
    void mostrarSucursal(qint64 sucursal, const std::optional<QString>& texto);

    const Ui::Empleados& ui;
    AportesEnPantalla m_aportes;
    qint64 m_sucursal = 0;    ///< ID of the branch shown, 0 for none
    UltimosValores m_ultimos; ///< of the employee saved last since the screen was opened
    qint64 m_ultimaSucursal = 0;
};
