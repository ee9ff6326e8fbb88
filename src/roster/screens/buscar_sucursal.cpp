#include "roster/screens/buscar_sucursal.h"

#include "core/rutinas.h"
#include "roster/busqueda_sucursal.h"
#include "ui/look/estilo.h"
#include "ui_buscar_sucursal.h"

BuscarSucursal::BuscarSucursal(QWidget* padre)
    : Buscador(QStringLiteral("BuscarSucursal"), padre)
    , ui(std::make_unique<Ui::BuscarSucursal>())
{
    ui->setupUi(this);
    armar(ui->vsGrilla,
          {
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("ID"), .ancho = 60, .derecha = true},
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("SUC"), .ancho = 90},
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Domicilio"), .ancho = -1},
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Cod.Pos."), .ancho = 80},
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Localidad"), .ancho = 150},
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Teléfono"), .ancho = 120},
          },
          &Grilla::dobleClic);
    Estilo::soloMuestra({ui->txtEmpresa, ui->txtCuit});
}

BuscarSucursal::~BuscarSucursal() = default;

void BuscarSucursal::cargar()
{
    ui->txtEmpresa->setText(Rutinas::EmpresaActual);
    ui->txtCuit->setText(Rutinas::CuitActual);
    Buscar();
}

void BuscarSucursal::Buscar()
{
    ui->vsGrilla->cargar(listarSucursales(Rutinas::Conexion, Rutinas::CuitActual), [](const SucursalListada& s)
                         { return FilaDeGrilla{s.id, s.sucursal, s.domicilio, s.codPos, s.localidad, s.telefono}; });
}

void BuscarSucursal::elegir(int fila)
{
    Rutinas::SucursalElegida = static_cast<qint32>(ui->vsGrilla->entero(1, fila));
}
