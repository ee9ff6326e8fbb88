#pragma once

#include "companies/guardar_empresa.h"

#include <optional>
#include <utility>
#include <vector>

class CampoMascara;
class Grilla;
class QComboBox;
class QLineEdit;
namespace Ui
{
class Empresas;
}

/// The company on the screen: its fields and the grids of its branches and responsible persons, which live longer than
/// this, and what was stored of it when it was read or saved last.
class FichaDeEmpresa
{
public:
    explicit FichaDeEmpresa(const Ui::Empresas& ui);

    /// Fills the lists that come from the database. No province is chosen then.
    void cargarListas();
    /// Shows all but the CUIT and the name of the trade.
    void mostrar(EmpresaLeida leida);
    void limpiar();
    /// Each grid gets one more empty row, the current one, and counts as untouched.
    void agregarFilas();
    /// Stores the cell being edited. False when it is refused, which has been told.
    [[nodiscard]] bool confirmarEdicion();

    /// A company as it was typed, with the lists that were touched; a new one when its CUIT can be typed.
    [[nodiscard]] EntradaEmpresa entrada() const;
    /// After a save: takes what is stored now, and the numbers of the branches just added.
    void guardada(const EntradaEmpresa& entrada);
    /// The branches deleted by another desk leave the grid; what else was typed stays.
    void quitarEliminadas();

private:
    void llenar(const Empresa& empresa);

    CampoMascara* m_cuit;
    QComboBox* m_provincia;
    QLineEdit* m_nombreDeRubro;
    Grilla* m_sucursales;
    Grilla* m_responsables;
    std::vector<std::pair<QLineEdit*, QString Empresa::*>> m_textos; ///< the fields that hold a text as it is stored
    std::optional<EmpresaLeida> m_leida;                             ///< nothing while no company is shown
};
