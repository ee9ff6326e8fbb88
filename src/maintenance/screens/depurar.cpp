#include "maintenance/screens/depurar.h"

#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "core/vigencia.h"
#include "maintenance/depuracion.h"
#include "ui/doors/mensajes.h"
#include "ui/fields/campo_mascara.h"
#include "ui/grid/grilla.h"
#include "ui/look/estilo.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"
#include "ui_depurar.h"

Depurar::Depurar(QWidget* padre)
    : Pantalla(QStringLiteral("Depurar"), padre)
    , ui(std::make_unique<Ui::Depurar>())
{
    ui->setupUi(this);
    ui->MaskCuit->setClase(CampoMascara::Cuit);
    ui->vsDDJJ->setColumnas({{ColumnaDeGrilla::Fija, QStringLiteral("Periodo"), -1}});
    Estilo::advertencia(ui->Label3);
    Estilo::botonPeligroso(ui->cmdEliminar, QStringLiteral("depurar"));
    constexpr int renglones = 4; // their room stays, so that nothing jumps
    QSizePolicy politica = ui->lblAlcance->sizePolicy();
    politica.setRetainSizeWhenHidden(true);
    ui->lblAlcance->setSizePolicy(politica);
    ui->lblAlcance->hide();
    ui->lblAlcance->ensurePolished();
    ui->lblAlcance->setMinimumHeight(renglones * ui->lblAlcance->fontMetrics().lineSpacing());
    m_eleccion = new EleccionEmpresa(ui->MaskCuit, ui->cmbEmpresa, {.alElegir = [this] { CargarPeriodos(); }}, this);
    conectar(ui->vsDDJJ, &Grilla::elegida, &Depurar::elegirFila);
    conectar(ui->txtAnio, &QLineEdit::textEdited, &Depurar::mostrarAlcance);
    conectar(ui->cmdEliminar, &QPushButton::clicked, &Depurar::cmdEliminar_Click);
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
    m_periodos.clear();
    ui->vsDDJJ->setFilas(0); // also when what comes cannot be read
    if (!ui->MaskCuit->vacio())
    {
        m_periodos = periodosDeEmpresa(Rutinas::Conexion, m_eleccion->cuit());
    }
    ui->vsDDJJ->cargar(m_periodos, [](QDate periodo) { return FilaDeGrilla{periodo.toString(u"yyyy/MM")}; });
    mostrarAlcance();
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

/// The list runs from new to old: what is yellow, from the row to the last one, is what goes.
void Depurar::elegirFila(int fila)
{
    ui->vsDDJJ->pintarTodo(Grilla::blanco);
    for (int vieja = fila; vieja <= ui->vsDDJJ->filas(); ++vieja)
    {
        ui->vsDDJJ->pintarFila(vieja, Grilla::amarillo);
    }
    PeriodoHasta = m_periodos.at(static_cast<std::size_t>(fila) - 1);
    ui->txtAnio->setText(QString::number(PeriodoHasta.year()));
    ui->txtMes->setText(QString::number(PeriodoHasta.month()));
    mostrarAlcance();
}

/// What the button would delete now. The limit of one company is that of the next one, too, though none of its rows is
/// yellow.
void Depurar::mostrarAlcance()
{
    const bool elegido = m_eleccion->hayEmpresa() && !ui->txtAnio->text().isEmpty() && PeriodoHasta.isValid();
    ui->lblAlcance->setText(
        elegido ? textoDelAlcance(alcanceDeDepuracion(Rutinas::Conexion, m_eleccion->cuit(), PeriodoHasta),
                                  PeriodoHasta, m_eleccion->razon())
                : QString());
    ui->lblAlcance->setHidden(ui->lblAlcance->text().isEmpty());
}

void Depurar::cmdEliminar_Click()
{
    if (!m_eleccion->exigirEmpresa())
    {
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
    const auto depurar = [this]
    {
        TrabajoLargo trabajo(QStringLiteral("Eliminando las Declaraciones Juradas"), TrabajoLargo::Cancelable::Si);
        depurarHasta(Rutinas::Conexion, m_eleccion->cuit(), PeriodoHasta, m_periodos, trabajo.aviso());
    };
    const auto releer = [this]
    {
        m_eleccion->releer();
        limpiarEleccion();
    };
    remediando(depurar, releer);
    MsgBox(QStringLiteral("Las Declaraciones Juradas han sido Eliminadas."), Caja::Exclamacion);
    limpiarEleccion(); // before the list: a month must not stay chosen when that cannot be read
    CargarPeriodos();
}

void Depurar::limpiarEleccion()
{
    ui->txtAnio->clear();
    ui->txtMes->clear();
    mostrarAlcance();
}
