#include "declarations/screens/buscar_ddjj.h"

#include "core/nombre_ddjj.h"
#include "core/rutinas.h"
#include "declarations/copia_ddjj.h"
#include "exchange/informe_ddjj.h"
#include "ui/doors/mensajes.h"
#include "ui/grid/grilla.h"
#include "ui/look/estilo.h"
#include "ui_buscar_ddjj.h"

BuscarDDJJ::BuscarDDJJ(QWidget* padre)
    : Pantalla(QStringLiteral("BuscarDDJJ"), padre)
    , ui(std::make_unique<Ui::BuscarDDJJ>())
{
    ui->setupUi(this);
    ui->vsDDJJ->setColumnas({
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Periodo"), .ancho = -1},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Sec"), .ancho = 60, .derecha = true},
    });
    Estilo::soloMuestra(
        {ui->txtEmpresa, ui->txtCuit, ui->txtPeriodo_0, ui->txtSecuencia_0, ui->txtPeriodo_1, ui->txtSecuencia_1});
    Estilo::advertencia(ui->lblRecuerde);
    Estilo::boton(ui->cmdAceptar, QStringLiteral("aceptar"), true);
    Estilo::boton(ui->cmdCancelar, QStringLiteral("cancelar"));
    conectar(ui->vsDDJJ, &Grilla::elegida, &BuscarDDJJ::elegirFila);
    conectar(ui->cmdAceptar, &QPushButton::clicked, &BuscarDDJJ::cmdAceptar_Click);
    conectar(ui->cmdCancelar, &QPushButton::clicked, &BuscarDDJJ::cerrar);
}

BuscarDDJJ::~BuscarDDJJ() = default;

void BuscarDDJJ::cargar()
{
    ui->txtEmpresa->setText(Rutinas::EmpresaActual);
    ui->txtCuit->setText(Rutinas::CuitActual);
    ui->txtPeriodo_0->setText(Rutinas::PeriodoActual.toString(u"yyyy/MM"));
    ui->txtSecuencia_0->setText(QString::number(Rutinas::SecuenciaActual));
    llenarLista();
    mostrarAdvertencia();
}

QString BuscarDDJJ::empresaEnCurso() const
{
    return ui->txtEmpresa->text();
}

void BuscarDDJJ::llenarLista()
{
    m_fuentes = fuentesDeCopia(Rutinas::Conexion, Rutinas::declaracionActual());
    ui->vsDDJJ->cargar(m_fuentes,
                       [](const ClaveDDJJ& fuente) {
                           return FilaDeGrilla{fuente.periodo.toString(u"yyyy/MM"), qlonglong{fuente.secuencia}};
                       });
}

void BuscarDDJJ::mostrarAdvertencia()
{
    const bool hay = hayNomina(Rutinas::Conexion, Rutinas::declaracionActual());
    ui->lblRecuerde->setText(hay ? QStringLiteral("Recuerde que la Declaración Jurada del Periodo: ") +
                                       textoDe(Rutinas::declaracionActual()) +
                                       QStringLiteral("  tiene Empleados ingresados.  Los mismos serán eliminados con "
                                                      "la presente operación.")
                                 : QString());
}

void BuscarDDJJ::elegirFila(int fila)
{
    ui->vsDDJJ->pintarTodo(Grilla::blanco);
    ui->vsDDJJ->pintarFila(fila, Grilla::amarillo);
    m_fuente = m_fuentes.at(static_cast<std::size_t>(fila) - 1);
    ui->txtPeriodo_1->setText(m_fuente->periodo.toString(u"yyyy/MM"));
    ui->txtSecuencia_1->setText(QString::number(m_fuente->secuencia));
}

void BuscarDDJJ::cmdAceptar_Click()
{
    if (!m_fuente)
    {
        MsgBox(QStringLiteral("Debe seleccionar el Periodo correspondiente."), Caja::Informacion);
        return;
    }
    Rutinas::SecuenciaActual = comoByte(m_fuente->secuencia);
    Rutinas::PeriodoActual = m_fuente->periodo;
    cerrar();
}
