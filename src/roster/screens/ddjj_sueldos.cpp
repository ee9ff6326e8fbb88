#include "roster/screens/ddjj_sueldos.h"

#include "base/error_de_ejecucion.h"
#include "companies/screens/preguntar_cambios.h"
#include "core/nombre_ddjj.h"
#include "core/rutinas.h"
#include "roster/guardar_empleado.h"
#include "ui/doors/anuncio.h"
#include "ui/doors/mensajes.h"
#include "ui/fields/busqueda_por_letras.h"
#include "ui/grid/grilla.h"
#include "ui/look/estilo.h"
#include "ui/shell/trabajo_largo.h"
#include "ui_ddjj_sueldos.h"

#include <QKeyEvent>
#include <QShortcut>
#include <utility>

namespace
{
constexpr qint64 importeMaximo = 9'999'999; // and 99 cents
} // namespace

DDJJ_Sueldos::DDJJ_Sueldos(QWidget* padre)
    : Pantalla(QStringLiteral("DDJJ_Sueldos"), padre)
    , ui(std::make_unique<Ui::DDJJ_Sueldos>())
{
    ui->setupUi(this);
    ui->vsSueldos->setColumnas({
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("C.U.I.L."), .ancho = 120},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Apellido y Nombre"), .ancho = -1},
        {.clase = ColumnaDeGrilla::Fija, .titulo = QStringLiteral("Categoría"), .ancho = 220},
        {.clase = ColumnaDeGrilla::Decimal, .titulo = QStringLiteral("Sueldo"), .ancho = 120, .maximo = importeMaximo},
        {.clase = ColumnaDeGrilla::Decimal, .titulo = QStringLiteral("Acuerdo"), .ancho = 120, .maximo = importeMaximo},
    });
    ui->vsSueldos->setEditable(true);
    ui->vsSueldos->setPintaActual(true);
    ui->vsSueldos->setPegable(1);
    conectar(ui->vsSueldos, &Grilla::celdaEditada, &DDJJ_Sueldos::vsSueldos_Editada);
    armarBusqueda();
    Estilo::soloMuestra({ui->txtCuit, ui->txtRazonSocial, ui->txtPeriodo, ui->txtSecuencia});
    Estilo::boton(ui->cmdGrabar, QStringLiteral("grabar"), true);
    Estilo::boton(ui->cmdCancelar, QStringLiteral("cancelar"));
    Estilo::boton(ui->cmdSalir, QStringLiteral("salir"));
    conectar(ui->cmdGrabar, &QPushButton::clicked, &DDJJ_Sueldos::cmdGrabar_Click);
    conectar(ui->cmdCancelar, &QPushButton::clicked, &DDJJ_Sueldos::cmdCancelar_Click);
    conectar(ui->cmdSalir, &QPushButton::clicked, &DDJJ_Sueldos::cmdSalir_Click);
}

DDJJ_Sueldos::~DDJJ_Sueldos() = default;

void DDJJ_Sueldos::cargar()
{
    m_clave = Rutinas::declaracionActual();
    exigirDeclaracion(Rutinas::Conexion, m_clave); // else the screen is not shown
    ui->txtCuit->setText(m_clave.cuit);
    ui->txtRazonSocial->setText(Rutinas::EmpresaActual);
    ui->txtPeriodo->setText(m_clave.periodo.toString(u"yyyy/MM"));
    ui->txtSecuencia->setText(QString::number(m_clave.secuencia));
    ui->vsSueldos->setNombreDePlanilla(nombreDeDeclaracion(m_clave) + QStringLiteral(" sueldos"));
    CargarSueldos();
}

void DDJJ_Sueldos::keyPressEvent(QKeyEvent* evento)
{
    if (evento->key() == Qt::Key_Escape && ui->vsSueldos->cambiada())
    {
        evento->accept();
        return;
    }
    const bool sigue = evento->key() == Qt::Key_F3;
    if (sigue || (evento->key() == Qt::Key_F && evento->modifiers() == Qt::ControlModifier))
    {
        protegido([this, sigue] { irABuscar(sigue); });
        return;
    }
    Pantalla::keyPressEvent(evento);
}

void DDJJ_Sueldos::CargarSueldos()
{
    m_leidas = cargarSueldos(Rutinas::Conexion, m_clave);
    ui->vsSueldos->cargar(m_leidas,
                          [](const FilaSueldo& fila)
                          {
                              return FilaDeGrilla{fila.cuil, fila.ayn, fila.categoria, QVariant::fromValue(fila.sueldo),
                                                  QVariant::fromValue(fila.acuerdo)};
                          });
    ui->vsSueldos->setCambiada(false);
    contar();
}

void DDJJ_Sueldos::contar()
{
    m_buscables.clear();
    for (const FilaSueldo& fila : m_leidas)
    {
        const QString cifras = QString(fila.cuil).remove(u'-');
        m_buscables.push_back(fila.cuil + QLatin1Char('\n') + cifras + QLatin1Char('\n') +
                              BusquedaPorLetras::llana(fila.ayn));
    }
    m_totales.contar(m_leidas, tipeadas());
    ui->lblTotales->setText(m_totales.texto());
}

void DDJJ_Sueldos::vsSueldos_Editada(int, int fila)
{
    m_totales.cambiar(static_cast<std::size_t>(fila - 1), ui->vsSueldos->importe(columnaSueldo, fila),
                      ui->vsSueldos->importe(columnaAcuerdo, fila));
    if (!std::exchange(m_porMostrar, true)) // a paste of thousands is shown once
    {
        QMetaObject::invokeMethod(
            this,
            [this]
            {
                m_porMostrar = false;
                ui->lblTotales->setText(m_totales.texto());
            },
            Qt::QueuedConnection);
    }
}

void DDJJ_Sueldos::cmdGrabar_Click()
{
    if (!Preguntar(QStringLiteral("Esta seguro de desea ACTUALIZAR los Sueldos de los Empleados?")))
    {
        return;
    }
    try
    {
        grabar();
    }
    catch (const EmpleadoEliminado& falta)
    {
        MsgBox(falta.descripcion(), Caja::Exclamacion);
        quitarEliminados();
    }
    catch (const YaNoEsta& falta)
    {
        MsgBox(falta.descripcion(), Caja::Exclamacion);
        cerrar();
    }
    catch (const ErrorDeEjecucion& error)
    {
        TrabajoCancelado::pasar(error);
        decirError(error);
    }
}

void DDJJ_Sueldos::grabar()
{
    if (!ui->vsSueldos->cambiada())
    {
        MsgBox(QStringLiteral("No se han actualizado los Datos por no modificarse ningún Registro."),
               Caja::Informacion);
        return;
    }
    std::vector<FilaSueldo> filas = tipeadas();
    int cantidad = 0;
    const auto actualizar = [&](bool reemplaza)
    {
        TrabajoLargo trabajo(QStringLiteral("Actualizando los sueldos"), TrabajoLargo::Cancelable::Si);
        cantidad = actualizarSueldos(Rutinas::Conexion, m_clave, filas,
                                     reemplaza ? std::vector<FilaSueldo>() : m_leidas, trabajo.aviso());
    };
    if (!guardarPreguntando(actualizar))
    {
        return;
    }
    m_leidas = std::move(filas);
    for (int fila = 1; fila <= ui->vsSueldos->filas(); ++fila)
    {
        // An amount goes to the database with seven significant digits, and an empty cell as 0.
        const FilaSueldo& guardada = m_leidas[static_cast<std::size_t>(fila - 1)];
        ui->vsSueldos->setValor(columnaSueldo, fila, QVariant::fromValue(guardada.sueldo));
        ui->vsSueldos->setValor(columnaAcuerdo, fila, QVariant::fromValue(guardada.acuerdo));
    }
    ui->vsSueldos->setCambiada(false);
    contar();
    MsgBox(cantidad > 0
               ? textoActualizaciones(cantidad)
               : QStringLiteral("Verifique las modificaciones realizadas.  No se ha Actualizado ningún Registro."),
           Caja::Informacion);
}

std::vector<FilaSueldo> DDJJ_Sueldos::tipeadas() const
{
    std::vector<FilaSueldo> filas = m_leidas;
    for (int fila = 1; fila <= ui->vsSueldos->filas(); ++fila)
    {
        FilaSueldo& tipeada = filas[static_cast<std::size_t>(fila - 1)];
        tipeada.sueldo = ui->vsSueldos->importe(columnaSueldo, fila);
        tipeada.acuerdo = ui->vsSueldos->importe(columnaAcuerdo, fila);
    }
    return filas;
}

/// The employees deleted meanwhile leave the grid; what was typed for the others stays.
void DDJJ_Sueldos::quitarEliminados()
{
    for (int fila = ui->vsSueldos->filas(); fila > 0; --fila)
    {
        const auto leida = m_leidas.begin() + (fila - 1);
        if (!cuilExistente(Rutinas::Conexion, m_clave, leida->cuil))
        {
            ui->vsSueldos->borrarFila(fila);
            m_leidas.erase(leida);
        }
    }
    contar();
}

void DDJJ_Sueldos::cmdCancelar_Click()
{
    if (ui->vsSueldos->cambiada() &&
        Preguntar(QStringLiteral("Esta seguro de desea CANCELAR las Modificaciones Realizadas?")))
    {
        CargarSueldos();
    }
}

bool DDJJ_Sueldos::dejaLoTipeado()
{
    return ui->vsSueldos->confirmarEdicion() &&
           (!ui->vsSueldos->cambiada() ||
            Preguntar(QStringLiteral("Esta seguro de desea SALIR sin Actualizar las Modificaciones Efectuadas?")));
}

void DDJJ_Sueldos::cmdSalir_Click()
{
    if (dejaLoTipeado())
    {
        cerrar();
    }
}

// ---- the search of people, by their CUIL or name

void DDJJ_Sueldos::armarBusqueda()
{
    ui->lblBuscar->hide();
    ui->txtBuscar->hide();
    conectar(ui->txtBuscar, &QLineEdit::textEdited, [this] { buscarDesde(1); });
    conectar(ui->vsSueldos, &Grilla::teclaEnFija,
             [this](const QString& signo)
             {
                 irABuscar(false);
                 ui->txtBuscar->setText(signo);
                 buscarDesde(1);
             });
    // As shortcuts they come before what Enter and Escape are everywhere else.
    const auto alPulsar = [this](Qt::Key tecla, auto haz)
    {
        auto* atajo = new QShortcut(QKeySequence(tecla), ui->txtBuscar);
        atajo->setContext(Qt::WidgetShortcut);
        conectar(atajo, &QShortcut::activated, haz);
    };
    for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F3})
    {
        alPulsar(tecla, [this] { buscarDesde(ui->vsSueldos->filaActual() + 1); });
    }
    alPulsar(Qt::Key_Escape, [this] { cerrarBusqueda(); });
}

void DDJJ_Sueldos::irABuscar(bool sigue)
{
    if (!ui->vsSueldos->confirmarEdicion())
    {
        return;
    }
    if (sigue && ui->txtBuscar->isVisible())
    {
        buscarDesde(ui->vsSueldos->filaActual() + 1);
        return;
    }
    m_filaAntes = ui->vsSueldos->filaActual();
    ui->lblBuscar->show();
    ui->txtBuscar->show();
    ui->txtBuscar->setFocus(Qt::OtherFocusReason);
    ui->txtBuscar->selectAll();
}

void DDJJ_Sueldos::cerrarBusqueda()
{
    ui->vsSueldos->setFocus(Qt::OtherFocusReason);
    ui->lblBuscar->hide();
    ui->txtBuscar->hide();
    ui->txtBuscar->clear();
}

void DDJJ_Sueldos::buscarDesde(int fila)
{
    const QString buscado = BusquedaPorLetras::llana(ui->txtBuscar->text().trimmed());
    const int filas = buscado.isEmpty() ? 0 : static_cast<int>(m_buscables.size());
    for (int i = 0; i < filas; ++i)
    {
        const int hallada = (fila - 1 + i) % filas;
        if (m_buscables[static_cast<std::size_t>(hallada)].contains(buscado))
        {
            ui->vsSueldos->setFilaActual(hallada + 1, columnaSueldo); // where its amount is typed
            return;
        }
    }
    if (!buscado.isEmpty())
    {
        ui->vsSueldos->setFilaActual(m_filaAntes, columnaSueldo); // not at whom its first letters found
        anunciar(QStringLiteral("Nadie tiene «%1» en su C.U.I.L. o en su nombre").arg(ui->txtBuscar->text()));
    }
}
