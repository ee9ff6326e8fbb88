#pragma once

#include "roster/guardar_empleado.h"

class QLineEdit;
namespace Ui
{
class Empleados;
}

/// What the employee on the screen earns and contributes: wage, agreement, hours and membership as they are typed, and
/// the amounts that follow from them.
class AportesEnPantalla
{
public:
    /// Gives the fields what may be typed into them and their looks.
    explicit AportesEnPantalla(const Ui::Empleados& controles);

    void mostrar(const Empleado& empleado);
    /// A new employee starts as a member who works all hours.
    void limpiar();
    /// Puts down what is typed.
    void anotar(EntradaEmpleado& entrada) const;

    /// Leaving check of the wage and of the agreement: writes the amount in full and computes anew.
    [[nodiscard]] bool dejarImporte(QLineEdit* campo);
    /// Membership is one fact in two boxes.
    void afiliar(bool afiliado);
    void ponerJornadaCompleta();
    /// Computes the amounts while they are typed, empty hours being all hours. Hours of 0 or a text that is no number
    /// leave the amounts as they were.
    void calcular();

private:
    /// The total, then the contributions.
    void mostrarCalculados(const QString& total, const QString& art100, const QString& art101A, const QString& art101B);

    const Ui::Empleados& ui;
};
