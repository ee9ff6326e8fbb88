#include "roster/screens/buscar_empleado.h"

#include "core/rutinas.h"
#include "roster/busqueda_empleado.h"
#include "ui_buscar_empleado.h"

BuscarEmpleado::BuscarEmpleado(QWidget* padre)
    : Buscador(QStringLiteral("BuscarEmpleado"), padre)
    , ui(std::make_unique<Ui::BuscarEmpleado>())
{
    ui->setupUi(this);
    armar(ui->vsGrilla,
          {
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("C.U.I.L."), .ancho = 130},
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Apellido y Nombre"), .ancho = -1},
              {.clase = ColumnaDeGrilla::Tilde, .titulo = QStringLiteral("Afiliado"), .ancho = 80},
          },
          &Grilla::dobleClic);
    buscarCon(ui->MaskCuil, ui->txtNombre);
    for (QRadioButton* opcion : {ui->optAfiliado_0, ui->optAfiliado_1, ui->optAfiliado_2})
    {
        conectar(opcion, &QRadioButton::clicked, &BuscarEmpleado::Buscar);
    }
}

BuscarEmpleado::~BuscarEmpleado() = default;

void BuscarEmpleado::cargar()
{
    Rutinas::TextoDevuelto.clear();
    Buscar();
}

void BuscarEmpleado::Buscar()
{
    const FiltroAfiliado afiliado = ui->optAfiliado_1->isChecked()   ? FiltroAfiliado::Si
                                    : ui->optAfiliado_2->isChecked() ? FiltroAfiliado::No
                                                                     : FiltroAfiliado::Todos;
    ui->vsGrilla->cargar(buscarEmpleados(Rutinas::Conexion, Rutinas::declaracionActual(), ui->MaskCuil->text(),
                                         ui->txtNombre->text(), afiliado),
                         [](const EmpleadoHallado& hallado) {
                             return FilaDeGrilla{hallado.cuil, hallado.ayn, hallado.afiliado};
                         });
}

void BuscarEmpleado::elegir(int fila)
{
    Rutinas::CuilElegido = ui->vsGrilla->texto(1, fila);
}
