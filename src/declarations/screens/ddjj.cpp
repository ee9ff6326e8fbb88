#include "declarations/screens/ddjj.h"

#include "base/numbers/formato.h"
#include "core/nombre_ddjj.h"
#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "core/vigencia.h"
#include "declarations/lista_ddjj.h"
#include "declarations/screens/envio_ddjj.h"
#include "exchange/informe_ddjj.h"
#include "ui/doors/mensajes.h"
#include "ui/fields/campo_mascara.h"
#include "ui/grid/grilla.h"
#include "ui/look/estilo.h"
#include "ui/shell/campos.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/validacion.h"
#include "ui_ddjj.h"

DDJJ::DDJJ(QWidget* padre)
    : Pantalla(QStringLiteral("DDJJ"), padre)
    , ui(std::make_unique<Ui::DDJJ>())
{
    ui->setupUi(this);
    txtCantidad = {ui->txtCantidad_0, ui->txtCantidad_1, ui->txtCantidad_2, ui->txtCantidad_3};
    txtImporte = {ui->txtImporte_0, ui->txtImporte_1, ui->txtImporte_2,
                  ui->txtImporte_3, ui->txtImporte_4, ui->txtImporte_5};
    ui->MaskCuit->setClase(CampoMascara::Cuit);
    ui->vsDDJJ->setColumnas({{ColumnaDeGrilla::Fija, QStringLiteral("Periodo"), -1, 0, {}, false},
                             {ColumnaDeGrilla::Fija, QStringLiteral("Sec"), 48, 0, {}, true}});
    soloDigitos(ui->txtAnio);
    soloDigitos(ui->txtMes);
    m_eleccion = new EleccionEmpresa(ui->MaskCuit, ui->cmbEmpresa,
                                     {[this] { LimpiarDatos(true); }, [this] { CargarDeclaraciones(); }}, this);
    vestir();
    conectarMandos();
}

DDJJ::~DDJJ() = default;

void DDJJ::vestir()
{
    // A page that goes while it holds the focus would pass it through the first field of the screen, which is left at
    // once and then checked.
    ui->SSTab1->tabBar()->setFocusPolicy(Qt::StrongFocus);
    Estilo::boton(ui->cmdNueva, QStringLiteral("nueva"), true);
    Estilo::boton(ui->cmdCopiar, QStringLiteral("copiar"));
    Estilo::boton(ui->cmdEliminar, QStringLiteral("eliminar"));
    Estilo::boton(ui->cmdGrabar, QStringLiteral("grabar"), true);
    Estilo::boton(ui->cmdCancelar, QStringLiteral("cancelar"));
    Estilo::boton(ui->cmdNomina, QStringLiteral("nomina"));
    Estilo::boton(ui->cmdSueldos, QStringLiteral("sueldos"));
    Estilo::boton(ui->cmdImportar, QStringLiteral("importar"));
    Estilo::boton(ui->cmdBoletas_0, QStringLiteral("boleta"));
    Estilo::boton(ui->cmdBoletas_1, QStringLiteral("interes"));
    Estilo::boton(ui->cmdBoletas_2, QStringLiteral("acta"));
    Estilo::boton(ui->cmdBoletas_3, QStringLiteral("enviar"));
    Estilo::boton(ui->cmdInformes_0, QStringLiteral("informe"));
    Estilo::boton(ui->cmdInformes_1, QStringLiteral("incompletos"));
    Estilo::boton(ui->cmdInformes_2, QStringLiteral("texto"));

    Estilo::soloMuestra({ui->txtSecuencia, ui->txtFecha});
    for (auto* campo : txtCantidad)
    {
        Estilo::soloMuestra({campo});
        Estilo::importe(campo);
    }
    for (auto* campo : txtImporte)
    {
        Estilo::soloMuestra({campo});
        Estilo::importe(campo);
    }
    QPalette tenue = ui->lineaAportes->palette();
    tenue.setColor(QPalette::WindowText, tenue.color(QPalette::Mid));
    ui->lineaAportes->setPalette(tenue);
    for (auto* etiqueta : {ui->lblIncompleto, ui->lblJornada})
    {
        Estilo::advertencia(etiqueta);
        // Their room stays, so that the totals do not jump while the list is walked through.
        QSizePolicy politica = etiqueta->sizePolicy();
        politica.setRetainSizeWhenHidden(true);
        etiqueta->setSizePolicy(politica);
        etiqueta->hide();
    }
}

void DDJJ::conectarMandos()
{
    conectar(ui->vsDDJJ, &Grilla::elegida, &DDJJ::seleccionar);
    conectar(ui->vsDDJJ, &Grilla::dobleClic,
             [this](int /*columna*/, int fila)
             {
                 if (fila != 0)
                 {
                     ui->cmdNomina->click(); // nothing where it is disabled
                 }
             });
    alDejar(ui->txtAnio, &DDJJ::txtAnio_LostFocus);
    conectarMando(ui->cmdNueva, &DDJJ::cmdNueva_Click);
    conectarMando(ui->cmdCopiar, &DDJJ::cmdCopiar_Click);
    conectarMando(ui->cmdEliminar, &DDJJ::cmdEliminar_Click);
    conectarMando(ui->cmdGrabar, &DDJJ::cmdGrabar_Click);
    conectarMando(ui->cmdCancelar, &DDJJ::cmdCancelar_Click);
    conectarMando(ui->cmdNomina, &DDJJ::cmdNomina_Click);
    conectarMando(ui->cmdSueldos, &DDJJ::cmdSueldos_Click);
    conectarMando(ui->cmdImportar, &DDJJ::cmdImportar_Click);
    conectarMando(ui->cmdBoletas_0, &DDJJ::cmdBoletas_Aportes_Click);
    conectarMando(ui->cmdBoletas_1, &DDJJ::cmdBoletas_Interes_Click);
    conectarMando(ui->cmdBoletas_2, &DDJJ::cmdBoletas_Actas_Click);
    conectarMando(ui->cmdBoletas_3, &DDJJ::cmdBoletas_Envio_Click);
    conectarMando(ui->cmdInformes_0, &DDJJ::cmdInformes_Declaracion_Click);
    conectarMando(ui->cmdInformes_1, &DDJJ::cmdInformes_Incompletos_Click);
    conectarMando(ui->cmdInformes_2, &DDJJ::cmdInformes_Texto_Click);
}

void DDJJ::conectarMando(QPushButton* boton, void (DDJJ::*haz)())
{
    conectar(boton, &QPushButton::clicked, [this, haz] { alDia([this, haz] { (this->*haz)(); }); });
}

void DDJJ::alDia(const std::function<void()>& haz)
{
    try
    {
        haz();
    }
    catch (const YaNoEsta&)
    {
        releer();
        throw; // told by who called
    }
}

void DDJJ::releer()
{
    Habilitar(true); // what was being entered was for a company that is gone
    habilitarPaginas(true);
    m_eleccion->releer();
}

void DDJJ::cargar()
{
    if (!m_eleccion->cargar())
    {
        cerrar();
        return;
    }
    Habilitar(true);
    mostrarPagina(ui->pagDDJJ);
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
    return m_eleccion->razon();
}

bool DDJJ::hayDeclaracion() const
{
    return m_seleccion.has_value();
}

bool DDJJ::exigirPeriodo()
{
    if (!hayDeclaracion())
    {
        MsgBox(QStringLiteral("Debe dar de Alta primero el Periodo Correspondiente."), Caja::Exclamacion);
    }
    return hayDeclaracion();
}

bool DDJJ::exigirNomina()
{
    if (hayNomina(Rutinas::Conexion, clave()))
    {
        return true;
    }
    MsgBox(QStringLiteral("Debe ingresar primero la Nómina de Empleados."), Caja::Exclamacion);
    mostrarPagina(ui->pagDDJJ); // where the button lies
    ui->cmdNomina->setFocus();
    return false;
}

ClaveDDJJ DDJJ::clave() const
{
    return m_seleccion.value();
}

void DDJJ::exigirVigencia() const
{
    if (m_eleccion->hayEmpresa())
    {
        exigirEmpresa(Rutinas::Conexion, m_eleccion->cuit());
    }
    if (hayDeclaracion())
    {
        exigirDeclaracion(Rutinas::Conexion, clave());
    }
}

void DDJJ::mostrarPagina(QWidget* pagina)
{
    const Validacion::Pausa pausa; // what holds the focus goes with its page
    ui->SSTab1->setCurrentWidget(pagina);
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
    QWidget* const alIngresar[] = {ui->fraDDJJ_1, ui->cmdGrabar, ui->cmdCancelar};
    for (auto* mando : alIngresar)
    {
        mando->setEnabled(!ControlStatus);
    }
}

void DDJJ::habilitarPaginas(bool si)
{
    ui->SSTab1->setTabEnabled(1, si);
    ui->SSTab1->setTabEnabled(2, si);
}

void DDJJ::LimpiarDatos(bool Todo)
{
    ui->fraPeriodo->setTitle(QStringLiteral("Periodo: "));
    ui->txtFecha->clear();
    ui->lblIncompleto->hide();
    ui->lblJornada->hide();
    for (auto* campo : txtCantidad)
    {
        campo->clear();
    }
    for (auto* campo : txtImporte)
    {
        campo->clear();
    }
    m_todos = {};
    m_afiliados = {};
    if (Todo)
    {
        m_seleccion.reset();
        ui->txtAnio->clear();
        ui->txtMes->clear();
        ui->txtSecuencia->clear();
        ui->vsDDJJ->pintarTodo(Grilla::blanco); // nothing is selected, so nothing is yellow
    }
}

void DDJJ::CargarDeclaraciones()
{
    m_declaraciones.clear();
    if (!ui->MaskCuit->vacio())
    {
        m_declaraciones = listarDeclaraciones(Rutinas::Conexion, m_eleccion->cuit());
    }
    ui->vsDDJJ->cargar(m_declaraciones,
                       [](const ClaveDDJJ& una) {
                           return FilaDeGrilla{una.periodo.toString(u"yyyy/MM"), QString::number(una.secuencia)};
                       });
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void DDJJ::seleccionar(int fila)
{
    ui->vsDDJJ->pintarTodo(Grilla::blanco);
    ui->vsDDJJ->pintarFila(fila, Grilla::amarillo);
    m_seleccion = m_declaraciones.at(static_cast<std::size_t>(fila) - 1);
    ui->txtAnio->setText(QString::number(m_seleccion->periodo.year()));
    ui->txtMes->setText(QString::number(m_seleccion->periodo.month()));
    mostrarSecuencia(m_seleccion->secuencia);
    alDia([this] { MostrarDDJJ(); });
}

void DDJJ::mostrarSecuencia(int secuencia)
{
    // Two characters do for 0 to 99. Past them the number is shown whole: cut, it would name another declaration.
    campos::ponerEntero(ui->txtSecuencia, QString::number(secuencia));
}

void DDJJ::MostrarDDJJ()
{
    LimpiarDatos(false);
    ui->fraPeriodo->setTitle(QStringLiteral("Periodo: ") + textoDe(clave()));
    const TotalesDDJJ totales = calcularTotales(Rutinas::Conexion, clave());
    ui->txtFecha->setText(totales.fecha.toString(u"dd/MM/yy"));
    if (!totales.sumas)
    {
        return; // no roster yet
    }
    mostrarSumas(*totales.sumas);
    ui->lblIncompleto->setText(
        QStringLiteral("Datos Incompletos en %1 Empleados - Ver Nomina de Personal").arg(totales.incompletos));
    ui->lblIncompleto->setVisible(totales.incompletos != 0);
    ui->lblJornada->setVisible(totales.jornadaReducida != 0);
}

void DDJJ::mostrarSumas(const SumasDDJJ& sumas)
{
    m_todos = sumas.todos;
    m_afiliados = sumas.afiliados;
    txtCantidad[0]->setText(QString::number(m_todos.empleados));
    txtCantidad[1]->setText(QString::number(m_afiliados.empleados));
    txtCantidad[2]->setText(QString::number(m_todos.familiares));
    txtCantidad[3]->setText(QString::number(m_afiliados.familiares));
    const Moneda importes[] = {m_todos.remuneracion, m_afiliados.remuneracion, sumas.art100, sumas.art101a,
                               sumas.art101b,        sumas.aDepositar()};
    for (std::size_t i = 0; i < txtImporte.size(); ++i)
    {
        txtImporte[i]->setText(conPesos(importes[i]));
    }
}

void DDJJ::txtAnio_LostFocus()
{
    if (ui->txtAnio->text().size() == 2)
    {
        ui->txtAnio->setText(QStringLiteral("20") + ui->txtAnio->text());
    }
}
