#include "companies/screens/buscar_empresa.h"

#include "companies/busqueda_empresa.h"
#include "core/rutinas.h"
#include "ui_buscar_empresa.h"

BuscarEmpresa::BuscarEmpresa(QWidget* padre)
    : Buscador(QStringLiteral("BuscarEmpresa"), padre)
    , ui(std::make_unique<Ui::BuscarEmpresa>())
{
    ui->setupUi(this);
    armar(ui->vsGrilla,
          {
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("C.U.I.T."), .ancho = 130},
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Razón Social"), .ancho = -1},
          },
          &Grilla::clic);
    buscarCon(ui->MaskCuit, ui->txtNombre);
}

BuscarEmpresa::~BuscarEmpresa() = default;

void BuscarEmpresa::cargar()
{
    Buscar();
}

void BuscarEmpresa::Buscar()
{
    ui->vsGrilla->cargar(buscarEmpresas(Rutinas::Conexion, ui->MaskCuit->text(), ui->txtNombre->text()),
                         [](const EmpresaHallada& hallada) {
                             return FilaDeGrilla{hallada.cuit, hallada.razon};
                         });
}

void BuscarEmpresa::elegir(int fila)
{
    Rutinas::CuitActual = ui->vsGrilla->texto(1, fila);
}
