#pragma once

#include "core/clave_ddjj.h"

#include <optional>
#include <vector>

namespace Ui
{
class DDJJ;
}

/// The declaration at work on the screen DDJJ: chosen in the list of its company's, or just created. It keeps that list
/// (vsDDJJ) and the three fields of month and sequence, into which the month of a new one is typed. What it refuses or
/// brings about it tells itself.
class DeclaracionElegida
{
public:
    explicit DeclaracionElegida(const Ui::DDJJ& pantalla);

    /// Fills the list with the declarations of a company; an empty CUIT has none. What is chosen stays so.
    void listar(const QString& cuit);
    void elegir(int fila);
    void soltar(); ///< nothing is chosen

    [[nodiscard]] bool hay() const { return m_elegida.has_value(); }
    [[nodiscard]] ClaveDDJJ clave() const { return m_elegida.value(); }
    [[nodiscard]] const std::optional<ClaveDDJJ>& elegida() const { return m_elegida; }
    // Each says so when nothing is chosen.
    [[nodiscard]] bool exigirAlta() const;     ///< in a box
    [[nodiscard]] bool exigirEleccion() const; ///< in the status bar

    void proponer();      ///< puts the month that follows the latest one of the list into the fields
    void completarAnio(); ///< "26" is 2026
    /// Stores a new declaration of the month typed, and that is the chosen one from then on. False, and back to its
    /// field, when the month cannot be. Throws YaNoEsta when the company is gone.
    [[nodiscard]] bool crear(const QString& cuit);
    /// Asks, puts the roster of that other declaration of the company into the chosen one and tells it. False when that
    /// was not to be, or when it is the chosen one itself: the dialog was cancelled. Throws YaNoEsta as copiarNomina()
    /// does.
    [[nodiscard]] bool copiarNominaDe(QDate periodo, int secuencia) const;
    /// Asks, deletes the chosen one and tells it; false when that was not to be. Throws YaNoEsta when it is gone.
    [[nodiscard]] bool eliminar() const;

private:
    void mostrarMes(QDate periodo);
    void mostrarSecuencia();

    const Ui::DDJJ& ui;
    std::vector<ClaveDDJJ> m_lista; ///< the rows of vsDDJJ, in their order
    std::optional<ClaveDDJJ> m_elegida;
};
