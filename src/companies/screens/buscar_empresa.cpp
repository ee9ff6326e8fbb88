#include "companies/screens/buscar_empresa.h"

#include "companies/busqueda_empresa.h"
#include "core/rutinas.h"
#include "ui/fields/tecla_soltada.h"
#include "ui_buscar_empresa.h"

BuscarEmpresa::BuscarEmpresa(QWidget* padre)
    : Pantalla(QStringLiteral("BuscarEmpresa"), padre)
    , ui(std::make_unique<Ui::BuscarEmpresa>())
{
    ui->setupUi(this);
    ui->vsGrilla->setColumnas({
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("C.U.I.T."), .ancho = 130},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Razón Social"), .ancho = -1},
    });
    ui->vsGrilla->setPintaActual(true);
    alDejar(ui->MaskCuit, &BuscarEmpresa::MaskCuit_Validate);
    conectar(new TeclaSoltada(ui->txtNombre), &TeclaSoltada::soltada, &BuscarEmpresa::txtNombre_KeyUp);
    conectar(ui->vsGrilla, &Grilla::clic, &BuscarEmpresa::vsGrilla_Click);
    conectar(ui->vsGrilla, &Grilla::entrar, &BuscarEmpresa::vsGrilla_Click);
}

BuscarEmpresa::~BuscarEmpresa() = default;

void BuscarEmpresa::cargar()
{
    Buscar();
}

void BuscarEmpresa::Buscar()
{
    std::vector<std::vector<QVariant>> filas;
    for (const EmpresaHallada& hallada : buscarEmpresas(Rutinas::Conexion, ui->MaskCuit->text(), ui->txtNombre->text()))
    {
        filas.push_back({hallada.cuit, hallada.razon});
    }
    ui->vsGrilla->cargar(std::move(filas));
}

bool BuscarEmpresa::MaskCuit_Validate()
{
    Buscar();
    return true;
}

void BuscarEmpresa::txtNombre_KeyUp()
{
    Buscar();
}

void BuscarEmpresa::vsGrilla_Click(int, int fila)
{
    if (fila != 0)
    {
        Rutinas::CuitActual = ui->vsGrilla->texto(1, fila);
        cerrar();
    }
}
