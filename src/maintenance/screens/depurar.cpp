#include "maintenance/screens/depurar.h"

#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "maintenance/depuracion.h"
#include "platform/data/formato.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/estilo.h"
#include "platform/screens/grilla.h"
#include "platform/screens/mensajes.h"
#include "platform/screens/navegacion.h"
#include "ui_depurar.h"

Depurar::Depurar(QWidget* padre)
    : Pantalla(QStringLiteral("Depurar"), padre)
    , ui(std::make_unique<Ui::Depurar>())
{
    ui->setupUi(this);
    ui->MaskCuit->setClase(CampoMascara::Cuit);
    ui->vsDDJJ->setColumnas({{ColumnaDeGrilla::Fija, QStringLiteral("Periodo"), -1}});
    Estilo::advertencia(ui->Label3);
    Estilo::boton(ui->cmdEliminar, QStringLiteral("depurar"), true);
    m_eleccion = new EleccionEmpresa(ui->MaskCuit, ui->cmbEmpresa, {{}, [this] { CargarPeriodos(); }}, this);
    conectar(ui->vsDDJJ, &Grilla::clic, &Depurar::vsDDJJ_Click);
    conectar(ui->vsDDJJ, &Grilla::dejarCelda, &Depurar::vsDDJJ_LeaveCell);
    conectar(ui->cmdEliminar, &QPushButton::clicked, [this] { cmdEliminar_Click(); });
}

Depurar::~Depurar() = default;

void Depurar::cargar()
{
    // With no company it says so and stays open, empty.
    (void)m_eleccion->cargar();
}

QString Depurar::empresaEnCurso() const
{
    return m_eleccion->razon();
}

void Depurar::CargarPeriodos()
{
    std::vector<std::vector<QVariant>> filas;
    if (!ui->MaskCuit->vacio())
    {
        for (const QDate periodo : periodosDeEmpresa(Rutinas::Conexion, m_eleccion->cuit()))
        {
            filas.push_back({Formato(periodo, u"YYYY/MM")});
        }
    }
    ui->vsDDJJ->cargar(std::move(filas));
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void Depurar::vsDDJJ_Click(int, int fila)
{
    if (fila != 0)
    {
        elegirFila(fila);
    }
}

void Depurar::vsDDJJ_LeaveCell(int, int fila, int, int nuevaFila)
{
    if (fila != 0 && nuevaFila != -1)
    {
        elegirFila(nuevaFila);
    }
}

/// The list runs from new to old: what is yellow, from the row to the last one, is what goes.
void Depurar::elegirFila(int fila)
{
    ui->vsDDJJ->pintarTodo(Grilla::blanco);
    for (int vieja = fila; vieja <= ui->vsDDJJ->filas(); ++vieja)
    {
        ui->vsDDJJ->pintarFila(vieja, Grilla::amarillo);
    }
    PeriodoHasta = LeerPeriodo(ui->vsDDJJ->texto(1, fila)).value_or(QDate());
    ui->txtAnio->setText(QString::number(PeriodoHasta.year()));
    ui->txtMes->setText(QString::number(PeriodoHasta.month()));
}

void Depurar::cmdEliminar_Click()
{
    if (!m_eleccion->hayEmpresa())
    {
        MsgBox(QStringLiteral("Debe seleccionar primero la Empresa correspondiente."), Caja::Informacion);
        ui->cmbEmpresa->setFocus();
        return;
    }
    if (ui->txtAnio->text().isEmpty())
    {
        MsgBox(
            QStringLiteral("Debe seleccionar primero la Declaración Jurada a Eliminar, haciendo un click en la misma."),
            Caja::Informacion);
        return;
    }
    if (!Preguntar(QStringLiteral("Esta seguro de desea ELIMINAR las Declaraciones Juradas Seleccionadas?")) ||
        !Preguntar(QStringLiteral(
            "Se Eliminaran todos los datos relacionados con las Declaraciones Juradas Anteriores.  Es Correcto?")))
    {
        return;
    }
    depurarHasta(Rutinas::Conexion, m_eleccion->cuit(), PeriodoHasta);
    MsgBox(QStringLiteral("Las Declaraciones Juradas han sido Eliminadas."), Caja::Exclamacion);
    CargarPeriodos();
    ui->txtAnio->clear();
    ui->txtMes->clear();
}
