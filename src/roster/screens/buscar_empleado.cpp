#include "roster/screens/buscar_empleado.h"

#include "core/rutinas.h"
#include "roster/busqueda_empleado.h"
#include "ui/fields/tecla_soltada.h"
#include "ui_buscar_empleado.h"

BuscarEmpleado::BuscarEmpleado(QWidget* padre)
    : Pantalla(QStringLiteral("BuscarEmpleado"), padre)
    , ui(std::make_unique<Ui::BuscarEmpleado>())
{
    ui->setupUi(this);
    ui->vsGrilla->setColumnas({
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("C.U.I.L."), .ancho = 130},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Apellido y Nombre"), .ancho = -1},
        {.clase = ColumnaDeGrilla::Tilde, .titulo = QStringLiteral("Afiliado"), .ancho = 80},
    });
    ui->vsGrilla->setPintaActual(true);
    alDejar(ui->MaskCuil, &BuscarEmpleado::MaskCuil_Validate);
    conectar(new TeclaSoltada(ui->txtNombre), &TeclaSoltada::soltada, &BuscarEmpleado::CargarGrilla);
    for (QRadioButton* opcion : {ui->optAfiliado_0, ui->optAfiliado_1, ui->optAfiliado_2})
    {
        conectar(opcion, &QRadioButton::clicked, [this] { CargarGrilla(); });
    }
    conectar(ui->vsGrilla, &Grilla::dobleClic, &BuscarEmpleado::vsGrilla_DblClick);
    conectar(ui->vsGrilla, &Grilla::entrar, &BuscarEmpleado::vsGrilla_DblClick);
}

BuscarEmpleado::~BuscarEmpleado() = default;

void BuscarEmpleado::cargar()
{
    Rutinas::TextoDevuelto.clear();
    CargarGrilla();
}

void BuscarEmpleado::CargarGrilla()
{
    const FiltroAfiliado afiliado = ui->optAfiliado_1->isChecked()   ? FiltroAfiliado::Si
                                    : ui->optAfiliado_2->isChecked() ? FiltroAfiliado::No
                                                                     : FiltroAfiliado::Todos;
    std::vector<std::vector<QVariant>> filas;
    for (const EmpleadoHallado& hallado :
         buscarEmpleados(Rutinas::Conexion, {Rutinas::CuitActual, Rutinas::PeriodoActual, Rutinas::SecuenciaActual},
                         ui->MaskCuil->text(), ui->txtNombre->text(), afiliado))
    {
        filas.push_back({hallado.cuil, hallado.ayn, hallado.afiliado});
    }
    ui->vsGrilla->cargar(std::move(filas));
}

bool BuscarEmpleado::MaskCuil_Validate()
{
    CargarGrilla();
    return true;
}

void BuscarEmpleado::vsGrilla_DblClick(int, int fila)
{
    if (fila != 0)
    {
        Rutinas::CuilElegido = ui->vsGrilla->texto(1, fila);
        cerrar();
    }
}
