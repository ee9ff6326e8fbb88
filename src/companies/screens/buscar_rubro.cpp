#include "companies/screens/buscar_rubro.h"

#include "companies/busqueda_rubro.h"
#include "core/rutinas.h"
#include "ui/fields/tecla_soltada.h"
#include "ui_buscar_rubro.h"

BuscarRubro::BuscarRubro(QWidget* padre)
    : Pantalla(QStringLiteral("BuscarRubro"), padre)
    , ui(std::make_unique<Ui::BuscarRubro>())
{
    ui->setupUi(this);
    ui->vsGrilla->setColumnas({
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Rubro"), .ancho = 100},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Denominación"), .ancho = -1},
    });
    ui->vsGrilla->setPintaActual(true);
    alDejar(ui->txtCodigo, &BuscarRubro::txtCodigo_Validate);
    conectar(new TeclaSoltada(ui->txtNombre), &TeclaSoltada::soltada, &BuscarRubro::txtNombre_KeyUp);
    conectar(ui->vsGrilla, &Grilla::clic, &BuscarRubro::vsGrilla_Click);
    conectar(ui->vsGrilla, &Grilla::entrar, &BuscarRubro::vsGrilla_Click);
}

BuscarRubro::~BuscarRubro() = default;

void BuscarRubro::cargar()
{
    Rutinas::TextoDevuelto.clear();
}

void BuscarRubro::Buscar()
{
    std::vector<std::vector<QVariant>> filas;
    for (const RubroHallado& hallado : buscarRubros(Rutinas::Conexion, ui->txtCodigo->text(), ui->txtNombre->text()))
    {
        filas.push_back({hallado.codigo, hallado.nombre});
    }
    ui->vsGrilla->cargar(std::move(filas));
}

bool BuscarRubro::txtCodigo_Validate()
{
    Buscar();
    return true;
}

void BuscarRubro::txtNombre_KeyUp()
{
    Buscar();
}

void BuscarRubro::vsGrilla_Click(int, int fila)
{
    if (fila != 0)
    {
        Rutinas::TextoDevuelto = ui->vsGrilla->texto(1, fila);
        cerrar();
    }
}
