#include "companies/screens/buscar_rubro.h"

#include "companies/busqueda_rubro.h"
#include "core/rutinas.h"
#include "ui_buscar_rubro.h"

BuscarRubro::BuscarRubro(QWidget* padre)
    : Buscador(QStringLiteral("BuscarRubro"), padre)
    , ui(std::make_unique<Ui::BuscarRubro>())
{
    ui->setupUi(this);
    armar(ui->vsGrilla,
          {
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Rubro"), .ancho = 100},
              {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Denominación"), .ancho = -1},
          },
          &Grilla::clic);
    buscarCon(ui->txtCodigo, ui->txtNombre);
}

BuscarRubro::~BuscarRubro() = default;

void BuscarRubro::cargar()
{
    Rutinas::TextoDevuelto.clear();
}

void BuscarRubro::Buscar()
{
    ui->vsGrilla->cargar(buscarRubros(Rutinas::Conexion, ui->txtCodigo->text(), ui->txtNombre->text()),
                         [](const RubroHallado& hallado) {
                             return FilaDeGrilla{hallado.codigo, hallado.nombre};
                         });
}

void BuscarRubro::elegir(int fila)
{
    Rutinas::TextoDevuelto = ui->vsGrilla->texto(1, fila);
}
