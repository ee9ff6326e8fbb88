#include "declarations/screens/ddjj.h"

#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "core/vigencia.h"
#include "declarations/screens/declaracion_elegida.h"
#include "declarations/screens/envio_ddjj.h"
#include "declarations/screens/totales_en_pantalla.h"
#include "exchange/informe_ddjj.h"
#include "exchange/screens/importar_nomina.h"
#include "exchange/screens/imprimir_informe.h"
#include "ui/doors/anuncio.h"
#include "ui/doors/mensajes.h"
#include "ui/fields/campo_mascara.h"
#include "ui/grid/grilla.h"
#include "ui/look/estilo.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/validacion.h"
#include "ui_ddjj.h"

namespace
{
struct Mando
{
    QPushButton* boton;
    QString icono;
    std::function<bool()> exige; ///< what it needs; says so when that is wanting, and nothing is done
    std::function<void()> haz;
    bool principal = false;
};

// Kinds of slip, as the slip screen knows them.
constexpr quint8 aportes = 0;
constexpr quint8 interes = 1;
constexpr quint8 actas = 2;
} // namespace

DDJJ::DDJJ(QWidget* padre)
    : Pantalla(QStringLiteral("DDJJ"), padre)
    , ui(std::make_unique<Ui::DDJJ>())
{
    ui->setupUi(this);
    // A page that goes while it holds the focus would pass it through the first field of the screen, which is left at
    // once and then checked.
    ui->SSTab1->tabBar()->setFocusPolicy(Qt::StrongFocus);
    ui->MaskCuit->setClase(CampoMascara::Cuit);
    m_declaracion = std::make_unique<DeclaracionElegida>(*ui);
    m_totales = std::make_unique<TotalesEnPantalla>(*ui);
    m_empresa = new EleccionEmpresa(ui->MaskCuit, ui->cmbEmpresa,
                                    {[this] { LimpiarDatos(); }, [this] { CargarDeclaraciones(); }}, this);
    disponerMandos();
    conectar(ui->vsDDJJ, &Grilla::elegida,
             [this](int fila)
             {
                 m_declaracion->elegir(fila);
                 alDia([this] { MostrarDDJJ(); });
             });
    conectar(ui->vsDDJJ, &Grilla::dobleClic, // nothing where the button is disabled
             [this](int /*columna*/, int fila)
             {
                 if (fila != 0)
                 {
                     ui->cmdNomina->click();
                 }
             });
    alDejar(ui->txtAnio, [this] { m_declaracion->completarAnio(); });
}

DDJJ::~DDJJ() = default;

void DDJJ::disponerMandos()
{
    const auto nada = [] { return true; };
    const auto empresa = [this] { return m_empresa->exigirEmpresa(); };
    const auto alta = [this] { return m_empresa->exigirEmpresa() && m_declaracion->exigirAlta(); };
    const auto eleccion = [this] { return m_declaracion->exigirEleccion(); };
    const auto nomina = [this] { return m_declaracion->exigirEleccion() && exigirNomina(); };
    const auto cuit = [this] { return exigirCuit(); };
    const Mando mandos[] = {
        {ui->cmdNueva, QStringLiteral("nueva"), empresa, [this] { cmdNueva_Click(); }, true},
        {ui->cmdCopiar, QStringLiteral("copiar"), alta, [this] { cmdCopiar_Click(); }},
        {ui->cmdEliminar, QStringLiteral("eliminar"), empresa, [this] { cmdEliminar_Click(); }},
        {ui->cmdGrabar, QStringLiteral("grabar"), nada, [this] { cmdGrabar_Click(); }, true},
        {ui->cmdCancelar, QStringLiteral("cancelar"), nada, [this] { cmdCancelar_Click(); }},
        {ui->cmdNomina, QStringLiteral("nomina"), eleccion, [this] { abrirNomina(QStringLiteral("Empleados")); }},
        {ui->cmdSueldos, QStringLiteral("sueldos"), eleccion, [this] { abrirNomina(QStringLiteral("DDJJ_Sueldos")); }},
        {ui->cmdImportar, QStringLiteral("importar"), alta, [this] { cmdImportar_Click(); }},
        {ui->cmdBoletas_0, QStringLiteral("boleta"), nomina, [this] { abrirBoletas(aportes); }},
        {ui->cmdBoletas_1, QStringLiteral("interes"), eleccion, [this] { abrirBoletas(interes); }},
        {ui->cmdBoletas_2, QStringLiteral("acta"), cuit, [this] { abrirBoletas(actas); }},
        {ui->cmdBoletas_3, QStringLiteral("enviar"), nomina, [this] { cmdBoletas_Envio_Click(); }},
        {ui->cmdInformes_0, QStringLiteral("informe"), eleccion, [this] { imprimir(InformeDDJJ::Declaracion); }},
        {ui->cmdInformes_1, QStringLiteral("incompletos"), eleccion,
         [this] { imprimir(InformeDDJJ::DatosIncompletos); }},
        {ui->cmdInformes_2, QStringLiteral("texto"), eleccion, [this] { envio().GuardarArchivoComo(); }},
    };
    for (const Mando& mando : mandos)
    {
        Estilo::boton(mando.boton, mando.icono, mando.principal);
        conectar(mando.boton, &QPushButton::clicked,
                 [this, mando]
                 {
                     alDia(
                         [&]
                         {
                             if (mando.exige())
                             {
                                 mando.haz();
                             }
                         });
                 });
    }
}

void DDJJ::alDia(const std::function<void()>& haz)
{
    remediando(haz, [this] { releer(); });
}

void DDJJ::releer()
{
    Habilitar(true); // what was being entered was for a company that is gone
    m_empresa->releer();
}

void DDJJ::cargar()
{
    if (!m_empresa->cargar())
    {
        cerrar();
        return;
    }
    Habilitar(true);
}

void DDJJ::activar()
{
    if (!Rutinas::BoletaEmitida)
    {
        return;
    }
    Rutinas::BoletaEmitida = false;
    alDia(
        [this]
        {
            exigirVigencia();
            // The declaration goes out whatever the answer: it only decides whether the closing message is shown.
            envio().EnviarDDJJPorFtp(Preguntar(QStringLiteral("Debe enviar la Declaración Jurada correspondiente?")));
        });
}

bool DDJJ::descargar()
{
    return ui->cmdNueva->isEnabled() || Preguntar(QStringLiteral("Esta seguro de desea Salir del Actual Formulario?"));
}

QString DDJJ::empresaEnCurso() const
{
    return m_empresa->razon();
}

void DDJJ::exigirVigencia() const
{
    if (m_empresa->hayEmpresa())
    {
        exigirEmpresa(Rutinas::Conexion, m_empresa->cuit());
    }
    if (m_declaracion->hay())
    {
        exigirDeclaracion(Rutinas::Conexion, m_declaracion->clave());
    }
}

bool DDJJ::exigirNomina()
{
    exigirVigencia();
    if (avisarSiNoHayNomina(m_declaracion->clave()))
    {
        return true;
    }
    mostrarPaginaDDJJ(); // where the button lies
    ui->cmdNomina->setFocus();
    return false;
}

bool DDJJ::exigirCuit() const
{
    if (ui->MaskCuit->vacio())
    {
        anunciar(QStringLiteral("Elija una empresa"));
    }
    return !ui->MaskCuit->vacio();
}

void DDJJ::mostrarPaginaDDJJ()
{
    const Validacion::Pausa pausa; // what holds the focus goes with its page
    ui->SSTab1->setCurrentWidget(ui->pagDDJJ);
}

void DDJJ::Habilitar(bool ControlStatus)
{
    const Validacion::Pausa pausa; // what is disabled hands the focus on
    QWidget* const alRecorrer[] = {ui->fraEmpresa,   ui->fraDDJJ_0,   ui->cmdNueva,     ui->cmdEliminar,
                                   ui->cmdCopiar,    ui->cmdImportar, ui->cmdBoletas_0, ui->cmdBoletas_1,
                                   ui->cmdBoletas_2, ui->cmdNomina,   ui->cmdSueldos};
    for (auto* mando : alRecorrer)
    {
        mando->setEnabled(ControlStatus);
    }
    for (QWidget* mando : std::initializer_list<QWidget*>{ui->fraDDJJ_1, ui->cmdGrabar, ui->cmdCancelar})
    {
        mando->setEnabled(!ControlStatus);
    }
    if (!ControlStatus)
    {
        mostrarPaginaDDJJ(); // before the others are shut
    }
    ui->SSTab1->setTabEnabled(1, ControlStatus);
    ui->SSTab1->setTabEnabled(2, ControlStatus);
}

void DDJJ::LimpiarDatos()
{
    m_totales->limpiar();
    m_declaracion->soltar();
}

void DDJJ::CargarDeclaraciones()
{
    m_declaracion->listar(ui->MaskCuit->vacio() ? QString() : m_empresa->cuit());
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void DDJJ::MostrarDDJJ()
{
    try
    {
        m_totales->mostrar(m_declaracion->clave());
    }
    catch (...) // a slip without their sums would be issued for nobody
    {
        LimpiarDatos();
        throw;
    }
}

void DDJJ::cmdNueva_Click()
{
    LimpiarDatos();
    m_declaracion->proponer();
    Habilitar(false);
    ui->txtAnio->setFocus();
    ui->txtAnio->selectAll();
}

void DDJJ::cmdGrabar_Click()
{
    if (m_declaracion->crear(m_empresa->cuit()))
    {
        Habilitar(true);
        CargarDeclaraciones();
        ui->cmdNomina->setFocus(); // the roster comes next
    }
}

void DDJJ::cmdCancelar_Click()
{
    LimpiarDatos();
    Habilitar(true);
    ui->cmdNueva->setFocus();
}

void DDJJ::cmdEliminar_Click()
{
    if (m_declaracion->eliminar())
    {
        LimpiarDatos();
        CargarDeclaraciones();
    }
}

void DDJJ::publicar() const
{
    const ClaveDDJJ cual = m_declaracion->elegida().value_or(ClaveDDJJ{}); // an act needs no declaration
    Rutinas::CuitActual = m_empresa->cuit();
    Rutinas::PeriodoActual = cual.periodo;
    Rutinas::SecuenciaActual = comoByte(cual.secuencia);
}

bool DDJJ::mostrarModal(const QString& pantalla)
{
    exigirVigencia();
    const int antes = YaNoEsta::veces();
    Navegacion::instancia().mostrarModal(pantalla);
    const bool yaDicho = YaNoEsta::veces() != antes;
    try
    {
        exigirVigencia();
    }
    catch (const YaNoEsta&)
    {
        if (!yaDicho)
        {
            throw;
        }
        releer();
    }
    return m_declaracion->hay();
}

bool DDJJ::mostrarModalConDatos(const QString& pantalla)
{
    Rutinas::EmpresaActual = m_empresa->razon();
    publicar();
    return mostrarModal(pantalla);
}

void DDJJ::abrirNomina(const QString& pantalla)
{
    if (mostrarModalConDatos(pantalla))
    {
        MostrarDDJJ(); // the totals can have changed
    }
}

void DDJJ::cmdCopiar_Click()
{
    if (mostrarModalConDatos(QStringLiteral("BuscarDDJJ")) &&
        m_declaracion->copiarNominaDe(Rutinas::PeriodoActual, Rutinas::SecuenciaActual))
    {
        MostrarDDJJ();
    }
}

void DDJJ::cmdImportar_Click()
{
    Rutinas::TextoDevuelto.clear();
    if (mostrarModal(QStringLiteral("Importar")) && !Rutinas::TextoDevuelto.isEmpty() &&
        ImportarNomina(m_declaracion->clave()))
    {
        MostrarDDJJ();
    }
}

void DDJJ::abrirBoletas(quint8 tipo)
{
    exigirVigencia();
    publicar();
    Rutinas::ModoAbrir = tipo;
    Rutinas::CantidadEmpleados = m_totales->sumas().todos.empleados;
    Rutinas::CantidadAfiliados = m_totales->sumas().afiliados.empleados;
    if (tipo == aportes && Rutinas::SecuenciaActual != 0)
    {
        MsgBox(QStringLiteral("Recuerde que los importes reflejados en una Boleta Rectificativa (Secuencia 1, 2, 3) "
                              "surgen de la Diferencia con la Boleta de Pago Original del Periodo correspondiente "
                              "(Secuencia 0)."),
               Caja::Informacion);
    }
    Navegacion::instancia().mostrar(QStringLiteral("Boletas"));
}

void DDJJ::cmdBoletas_Envio_Click()
{
    if (Preguntar(QStringLiteral("Debe enviar la Declaración Jurada seleccionada?")))
    {
        envio().EnviarDDJJPorFtp(true);
    }
}

void DDJJ::imprimir(InformeDDJJ cual)
{
    exigirVigencia();
    ImprimirInforme(m_declaracion->clave(), ui->txtMes->text(), ui->txtAnio->text(), cual);
}

EnvioDeDDJJ DDJJ::envio()
{
    // The status texts overwrite the caption "Cantidad Empleados", which is not put back.
    return EnvioDeDDJJ(m_declaracion->elegida(), [this](const QString& texto) { ui->Label4->setText(texto); });
}
