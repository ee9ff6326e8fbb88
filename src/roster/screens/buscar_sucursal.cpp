#include "roster/screens/buscar_sucursal.h"

#include "core/rutinas.h"
#include "roster/busqueda_sucursal.h"
#include "ui/look/estilo.h"
#include "ui_buscar_sucursal.h"

BuscarSucursal::BuscarSucursal(QWidget* padre)
    : Pantalla(QStringLiteral("BuscarSucursal"), padre)
    , ui(std::make_unique<Ui::BuscarSucursal>())
{
    ui->setupUi(this);
    ui->vsGrilla->setColumnas({
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("ID"), .ancho = 60, .derecha = true},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("SUC"), .ancho = 90},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Domicilio"), .ancho = -1},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Cod.Pos."), .ancho = 80},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Localidad"), .ancho = 150},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Teléfono"), .ancho = 120},
    });
    ui->vsGrilla->setPintaActual(true);
    for (QLineEdit* campo : {ui->txtEmpresa, ui->txtCuit})
    {
        Estilo::soloMuestra(campo);
    }
    conectar(ui->vsGrilla, &Grilla::dobleClic, &BuscarSucursal::vsGrilla_DblClick);
    conectar(ui->vsGrilla, &Grilla::entrar, &BuscarSucursal::vsGrilla_DblClick);
}

BuscarSucursal::~BuscarSucursal() = default;

void BuscarSucursal::cargar()
{
    ui->txtEmpresa->setText(Rutinas::EmpresaActual);
    ui->txtCuit->setText(Rutinas::CuitActual);
    CargarSucursales();
}

void BuscarSucursal::CargarSucursales()
{
    std::vector<std::vector<QVariant>> filas;
    for (const SucursalListada& s : listarSucursales(Rutinas::Conexion, Rutinas::CuitActual))
    {
        filas.push_back({s.id, s.sucursal, s.domicilio, s.codPos, s.localidad, s.telefono});
    }
    ui->vsGrilla->cargar(std::move(filas));
}

void BuscarSucursal::vsGrilla_DblClick(int, int fila)
{
    if (fila != 0)
    {
        Rutinas::SucursalElegida = static_cast<qint32>(ui->vsGrilla->entero(1, fila));
        cerrar();
    }
}
