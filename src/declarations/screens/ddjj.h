#pragma once

#include "core/clave_ddjj.h"
#include "platform/screens/pantalla.h"

#include <array>
#include <memory>

class EleccionEmpresa;
class FTP_Class;
class QLineEdit;
struct SumasDDJJ;
namespace Ui
{
class DDJJ;
}

/// The centre of the program: a company, its declarations with the latest first, and everything that works on the one
/// selected. A declaration is selected when txtAnio is not empty.
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

    /// Does the declaration shown have a roster with nothing missing in it?
    [[nodiscard]] bool datosCompletos() const { return DatosCompletos; }

    /// Sends the declaration's file by mail and keeps it. No command of the screen reaches it.
    void EnviarDDJJPorCorreo();

private:
    // Frame of the screen: ddjj.cpp
    void vestir();
    void conectarMandos();
    void Habilitar(bool ControlStatus);
    void habilitarPaginas(bool si);
    void mostrarPagina(QWidget* pagina);
    void LimpiarDatos(bool Todo);
    void CargarDeclaraciones();
    void MostrarDDJJ();
    void mostrarSumas(const SumasDDJJ& sumas);
    void mostrarSecuencia(int secuencia);
    void elegirFila(int fila);
    void vsDDJJ_Click(int columna, int fila);
    void vsDDJJ_LeaveCell(int columna, int fila, int nuevaColumna, int nuevaFila);
    void txtAnio_LostFocus();

    // Life of a declaration: ddjj_ciclo.cpp
    void cmdNueva_Click();
    void cmdGrabar_Click();
    void cmdCancelar_Click();
    void cmdEliminar_Click();

    // What opens other screens: ddjj_mandos.cpp
    void cmdNomina_Click();
    void cmdSueldos_Click();
    void cmdCopiar_Click();
    void cmdBoletas_Click(int indice);
    void cmdInformes_Click(int indice);
    void abrirConNomina(const QString& pantalla);
    void publicarDeclaracion();

    // Reports and sending: ddjj_envio.cpp
    void ImprimirInforme(int indice);
    void EnviarDDJJPorFtp(bool Avisar);
    void ConectarServidorFtp();

    // Files: ddjj_archivos.cpp
    void cmdImportar_Click();
    [[nodiscard]] bool GrabarArchivoDDJJ();
    void GuardarArchivoComo();

    [[nodiscard]] bool hayDeclaracion() const; ///< one is selected
    [[nodiscard]] ClaveDDJJ clave() const;     ///< of the selected declaration
    // Each says so when it does not hold.
    [[nodiscard]] bool exigirEmpresa();
    [[nodiscard]] bool exigirPeriodo();
    [[nodiscard]] bool exigirNomina();

    std::unique_ptr<Ui::DDJJ> ui;
    EleccionEmpresa* m_eleccion = nullptr;
    std::array<QLineEdit*, 4> txtCantidad{};
    std::array<QLineEdit*, 6> txtImporte{};
    QDate PeriodoSel; ///< of the selected declaration
    bool DatosCompletos = false;
    QString ArchivoDDJJ; ///< name of the declaration's text file
    std::unique_ptr<FTP_Class> FtpDDJJ;
    bool FtpConectado = false; ///< the last attempt to connect succeeded
};
