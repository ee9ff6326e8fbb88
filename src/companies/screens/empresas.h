#pragma once

#include "companies/guardar_empresa.h"
#include "platform/screens/pantalla.h"

#include <memory>
#include <vector>

namespace Ui
{
class Empresas;
}

/// The employers: company, branches and responsible persons, in a viewing and an editing state, with one save for all.
class Empresas : public Pantalla
{
    Q_OBJECT
public:
    explicit Empresas(QWidget* padre = nullptr);
    ~Empresas() override;

    void cargar() override;
    [[nodiscard]] QString empresaEnCurso() const override;

private:
    // Commands.
    void CmdABM_Click(int indice);
    void CmdActualiza_Click();
    void CmdCancela_Click();
    void cmdSalir_Click();
    void cmdRubro_Click();
    // Leaving checks; false keeps the focus.
    bool MaskCuit_LostFocus();
    bool txtCodRubro_LostFocus();
    // Grids.
    void vsSucursales_LeaveCell(int columna, int fila, int nuevaColumna, int nuevaFila);
    void vsResponsables_LeaveCell(int columna, int fila, int nuevaColumna, int nuevaFila);

    void MostrarEmpresa();
    void ActivarDatos(bool estado);
    void LimpiarEmpresa();
    bool BuscarNombreRubro();

    void prepararBotones();
    void prepararCampos();
    void prepararGrillas();
    void alta();
    void modificar();
    void eliminar();
    void buscar();
    void grabar(const EntradaEmpresa& entrada);
    bool revisarFaltas(EntradaEmpresa& entrada);
    void llenarCampos(const Empresa& empresa);
    void mostrarGrillas();
    void mostrarTitulo(const QString& cola = {});
    [[nodiscard]] Empresa empresaTipeada() const;
    [[nodiscard]] EntradaEmpresa entradaTipeada() const;
    [[nodiscard]] std::vector<FilaSucursal> sucursalesTipeadas() const;
    [[nodiscard]] std::vector<FilaResponsable> responsablesTipeados() const;
    [[nodiscard]] QWidget* campo(CampoEmpresa cual) const;

    std::unique_ptr<Ui::Empresas> ui;
    QString TituloBase;
    std::vector<qint64> CodigosProvincia; ///< by position in cmbProvincia
    std::vector<qint64> CodigosDocumento; ///< by position in the list of document types; the save looks them up by name
};
