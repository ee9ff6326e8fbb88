#include "declarations/screens/ddjj.h"

#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "declarations/lista_ddjj.h"
#include "declarations/totales_ddjj.h"
#include "exchange/screens/ftp_class.h"
#include "platform/data/formato.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/estilo.h"
#include "platform/screens/grilla.h"
#include "platform/screens/mensajes.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/validacion.h"
#include "ui_ddjj.h"

namespace
{
constexpr auto patronImporte = u"$ #,##0.00";
} // namespace

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

    Estilo::soloMuestra(ui->txtSecuencia);
    Estilo::soloMuestra(ui->txtFecha);
    for (auto* campo : txtCantidad)
    {
        Estilo::soloMuestra(campo);
        Estilo::importe(campo);
    }
    for (auto* campo : txtImporte)
    {
        Estilo::soloMuestra(campo);
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
    conectar(ui->vsDDJJ, &Grilla::clic, &DDJJ::vsDDJJ_Click);
    conectar(ui->vsDDJJ, &Grilla::dejarCelda, &DDJJ::vsDDJJ_LeaveCell);
    alDejar(ui->txtAnio,
            [this]
            {
                txtAnio_LostFocus();
                return true;
            });
    conectar(ui->cmdNueva, &QPushButton::clicked, [this] { cmdNueva_Click(); });
    conectar(ui->cmdCopiar, &QPushButton::clicked, [this] { cmdCopiar_Click(); });
    conectar(ui->cmdEliminar, &QPushButton::clicked, [this] { cmdEliminar_Click(); });
    conectar(ui->cmdGrabar, &QPushButton::clicked, [this] { cmdGrabar_Click(); });
    conectar(ui->cmdCancelar, &QPushButton::clicked, [this] { cmdCancelar_Click(); });
    conectar(ui->cmdNomina, &QPushButton::clicked, [this] { cmdNomina_Click(); });
    conectar(ui->cmdSueldos, &QPushButton::clicked, [this] { cmdSueldos_Click(); });
    conectar(ui->cmdImportar, &QPushButton::clicked, [this] { cmdImportar_Click(); });
    int indice = 0;
    for (auto* boton : {ui->cmdBoletas_0, ui->cmdBoletas_1, ui->cmdBoletas_2, ui->cmdBoletas_3})
    {
        conectar(boton, &QPushButton::clicked, [this, indice] { cmdBoletas_Click(indice); });
        ++indice;
    }
    indice = 0;
    for (auto* boton : {ui->cmdInformes_0, ui->cmdInformes_1, ui->cmdInformes_2})
    {
        conectar(boton, &QPushButton::clicked, [this, indice] { cmdInformes_Click(indice); });
        ++indice;
    }
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
    // The declaration goes out whatever the answer: it only decides whether the closing message is shown.
    EnviarDDJJPorFtp(Preguntar(QStringLiteral("Debe enviar la Declaración Jurada correspondiente?")));
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
    return !ui->txtAnio->text().isEmpty();
}

bool DDJJ::exigirEmpresa()
{
    if (m_eleccion->hayEmpresa())
    {
        return true;
    }
    MsgBox(QStringLiteral("Debe seleccionar primero la Empresa correspondiente."), Caja::Informacion);
    ui->cmbEmpresa->setFocus();
    return false;
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
    if (tieneNomina(Rutinas::Conexion, clave()))
    {
        return true;
    }
    MsgBox(QStringLiteral("Debe ingresar primero la Nómina de Empleados."), Caja::Exclamacion);
    return false;
}

ClaveDDJJ DDJJ::clave() const
{
    return {m_eleccion->cuit(), PeriodoSel, ui->txtSecuencia->text().toInt()};
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
    if (Todo)
    {
        ui->txtAnio->clear();
        ui->txtMes->clear();
        ui->txtSecuencia->clear();
        ui->vsDDJJ->pintarTodo(Grilla::blanco); // nothing is selected, so nothing is yellow
    }
}

void DDJJ::CargarDeclaraciones()
{
    std::vector<std::vector<QVariant>> filas;
    if (!ui->MaskCuit->vacio())
    {
        for (const ClaveDDJJ& una : listarDeclaraciones(Rutinas::Conexion, m_eleccion->cuit()))
        {
            filas.push_back({Formato(una.periodo, u"YYYY/MM"), QString::number(una.secuencia)});
        }
    }
    ui->vsDDJJ->cargar(std::move(filas));
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void DDJJ::vsDDJJ_Click(int /*columna*/, int fila)
{
    if (fila != 0)
    {
        elegirFila(fila);
    }
}

void DDJJ::vsDDJJ_LeaveCell(int /*columna*/, int fila, int /*nuevaColumna*/, int nuevaFila)
{
    if (fila != 0 && nuevaFila != -1)
    {
        elegirFila(nuevaFila);
    }
}

void DDJJ::elegirFila(int fila)
{
    const std::optional<QDate> periodo = LeerPeriodo(ui->vsDDJJ->texto(1, fila));
    if (!periodo)
    {
        return;
    }
    ui->vsDDJJ->pintarTodo(Grilla::blanco);
    ui->vsDDJJ->pintarFila(fila, Grilla::amarillo);
    PeriodoSel = *periodo;
    ui->txtAnio->setText(QString::number(PeriodoSel.year()));
    ui->txtMes->setText(QString::number(PeriodoSel.month()));
    mostrarSecuencia(ui->vsDDJJ->texto(2, fila).toInt());
    MostrarDDJJ();
}

void DDJJ::mostrarSecuencia(int secuencia)
{
    const QString texto = QString::number(secuencia);
    // Two characters do for 0 to 99. Past them the number is shown whole: cut, it would name another declaration.
    ui->txtSecuencia->setMaxLength(qMax(2, static_cast<int>(texto.size())));
    ui->txtSecuencia->setText(texto);
}

void DDJJ::MostrarDDJJ()
{
    DatosCompletos = false;
    LimpiarDatos(false);
    ui->fraPeriodo->setTitle(
        QStringLiteral("Periodo: %1/%2 - %3")
            .arg(ui->txtAnio->text(), Formato(ui->txtMes->text().toInt(), u"00"), ui->txtSecuencia->text()));
    const TotalesDDJJ totales = calcularTotales(Rutinas::Conexion, clave());
    ui->txtFecha->setText(Formato(totales.fecha, u"DD/MM/YY"));
    if (!totales.sumas)
    {
        return; // no roster yet
    }
    mostrarSumas(*totales.sumas);
    DatosCompletos = totales.incompletos == 0;
    if (!DatosCompletos)
    {
        ui->lblIncompleto->setText(
            QStringLiteral("Datos Incompletos en %1 Empleados - Ver Nomina de Personal").arg(totales.incompletos));
    }
    ui->lblIncompleto->setVisible(!DatosCompletos);
    ui->lblJornada->setVisible(totales.jornadaReducida != 0);
}

void DDJJ::mostrarSumas(const SumasDDJJ& sumas)
{
    txtCantidad[0]->setText(QString::number(sumas.todos.empleados));
    txtCantidad[1]->setText(QString::number(sumas.afiliados.empleados));
    txtCantidad[2]->setText(QString::number(sumas.todos.familiares));
    txtCantidad[3]->setText(QString::number(sumas.afiliados.familiares));
    const Moneda importes[] = {
        sumas.todos.remuneracion, sumas.afiliados.remuneracion, sumas.art100, sumas.art101a, sumas.art101b,
        sumas.aDepositar()};
    for (std::size_t i = 0; i < txtImporte.size(); ++i)
    {
        txtImporte[i]->setText(Formato(importes[i], patronImporte));
    }
}

void DDJJ::txtAnio_LostFocus()
{
    if (ui->txtAnio->text().size() == 2)
    {
        ui->txtAnio->setText(QStringLiteral("20") + ui->txtAnio->text());
    }
}
