#pragma once

#include <QObject>
#include <QString>
#include <functional>

class CampoMascara;
class QComboBox;

/// The choice of a company on a screen: the masked field MaskCuit and the list cmbEmpresa, each following the other by
/// an exact match. It binds to two fields of the screen and lives as long as they do:
///
///     m_eleccion = new EleccionEmpresa(ui->MaskCuit, ui->cmbEmpresa,
///                                      {[this] { LimpiarDatos(); }, [this] { CargarDeclaraciones(); }}, this);
///
/// and in the screen's cargar(): `if (!m_eleccion->cargar()) { cerrar(); return; }`
///
/// F3 opens the search of companies while the list is enabled, and what is found there is chosen.
class EleccionEmpresa : public QObject
{
    Q_OBJECT
public:
    struct Enganches
    {
        /// What was shown of the company before is to be cleared. Called when MaskCuit is left, before anything is
        /// looked up and also when the CUIT is refused, and after a choice in the list.
        std::function<void()> alLimpiar = [] {};
        /// Both fields tell the company chosen, or both are empty (MaskCuit untouched, nothing chosen in the list):
        /// show its data, or none. Called after alLimpiar. With none it reads nothing from the database.
        std::function<void()> alElegir;
    };
    EleccionEmpresa(CampoMascara* maskCuit, QComboBox* cmbEmpresa, Enganches enganches, QObject* padre);

    /// Fills the list, ordered by Razon. The only company of the file is chosen at once, as by a click; otherwise
    /// nothing is. Without any company it says so (exclamation box) and gives false.
    bool cargar();
    /// Fills the list anew, for what another screen or another desk has done to the companies: the one chosen stays
    /// chosen, or nothing is when it is gone. Calls both hooks. Throws what a
    /// reading or a hook throws, with nothing chosen then.
    void releer();

    [[nodiscard]] bool hayEmpresa() const; ///< something is chosen in the list
    /// The same; when nothing is, says so and goes to the list.
    [[nodiscard]] bool exigirEmpresa() const;
    [[nodiscard]] QString cuit() const;  ///< text of MaskCuit
    [[nodiscard]] QString razon() const; ///< text of cmbEmpresa

private:
    bool MaskCuit_Validate();
    void cmbEmpresa_Click();
    void buscar();
    void llenarLista();
    /// What could not be read leaves no company chosen: under the name of one the data of another would be worked on.
    void oNinguna(const std::function<void()>& elegir);
    void mostrarRazon(const QString& razon);

    CampoMascara* m_maskCuit;
    QComboBox* m_cmbEmpresa;
    Enganches m_enganches;
};
