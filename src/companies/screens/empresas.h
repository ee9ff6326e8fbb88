#pragma once

#include "companies/guardar_empresa.h"
#include "ui/shell/pantalla.h"

#include <memory>

class FichaDeEmpresa;
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
    [[nodiscard]] bool dejaLoTipeado() override;
    [[nodiscard]] QString empresaEnCurso() const override;

private:
    // Commands.
    void alta();
    void modificar();
    void eliminar();
    void buscar();
    void CmdActualiza_Click();
    void CmdCancela_Click();
    void cmdRubro_Click();
    // Leaving checks; false keeps the focus.
    bool MaskCuit_LostFocus();
    bool txtCodRubro_LostFocus();

    void prepararBotones();
    void MostrarEmpresa(const QString& cuit);
    void ActivarDatos(bool estado);
    void LimpiarEmpresa();
    bool BuscarNombreRubro();
    void mostrarTitulo(const QString& cola = {});
    bool revisarFaltas(Empresa& empresa);
    void grabar(EntradaEmpresa& entrada);
    [[nodiscard]] bool guardar(EntradaEmpresa& entrada);

    std::unique_ptr<Ui::Empresas> ui;
    std::unique_ptr<FichaDeEmpresa> m_ficha;
    QString TituloBase;
};
