#include "declarations/screens/mes_de_empresas_pantalla.h"

#include "base/reloj.h"
#include "core/nombre_ddjj.h"
#include "core/rutinas.h"
#include "core/screens/eleccion_empresa.h"
#include "core/vigencia.h"
#include "declarations/ciclo_ddjj.h"
#include "declarations/mes_de_empresas.h"
#include "ui/doors/anuncio.h"
#include "ui/doors/mensajes.h"
#include "ui/fields/campo_mascara.h"
#include "ui/grid/grilla.h"
#include "ui/look/estilo.h"
#include "ui/shell/navegacion.h"
#include "ui_mes_de_empresas_pantalla.h"

#include <QKeyEvent>
#include <QShortcut>

namespace
{
const QColor faltante(255, 236, 214); // beside its "No"

FilaDeGrilla celdas(const MesDeEmpresa& empresa)
{
    const bool declarada = empresa.secuencia.has_value();
    return {empresa.cuit,
            empresa.razon,
            empresa.ultima ? textoDe(*empresa.ultima) : QStringLiteral("Ninguna"),
            declarada ? QStringLiteral("Sí") : QStringLiteral("No"),
            declarada ? QVariant(qlonglong{empresa.personas}) : QVariant(),
            declarada ? QVariant::fromValue(empresa.aDepositar) : QVariant(),
            textoDeBoletas(empresa)};
}
} // namespace

MesDeEmpresas::MesDeEmpresas(QWidget* padre)
    : Pantalla(QStringLiteral("MesDeEmpresas"), padre)
    , ui(std::make_unique<Ui::MesDeEmpresas>())
{
    ui->setupUi(this);
    ui->vsEmpresas->setOrdenable(); // before its columns are measured
    ui->vsEmpresas->setColumnas({
        {.titulo = QStringLiteral("C.U.I.T."), .ancho = 116},
        {.titulo = QStringLiteral("Razón Social"), .ancho = -1},
        {.titulo = QStringLiteral("Última DD.JJ."), .ancho = 100},
        {.titulo = QStringLiteral("Del mes"), .ancho = 66},
        {.titulo = QStringLiteral("Empleados"), .ancho = 84, .derecha = true},
        {.titulo = QStringLiteral("A depositar"), .ancho = 130, .derecha = true},
        {.titulo = QStringLiteral("Boletas"), .ancho = 190},
    });
    ui->vsEmpresas->setPintaActual(true);
    ui->vsEmpresas->setTextoVacio(QStringLiteral("No hay empresas cargadas"));
    soloDigitos(ui->txtAnio);
    soloDigitos(ui->txtMes);
    Estilo::boton(ui->cmdAnterior, QStringLiteral("anterior"));
    Estilo::boton(ui->cmdSiguiente, QStringLiteral("siguiente"));
    Estilo::boton(ui->cmdDeclaraciones, QStringLiteral("declaracion"), true);
    Estilo::boton(ui->cmdSalir, QStringLiteral("salir"));
    alDejar(ui->txtAnio, [this] { return tomarPeriodo(true); });
    alDejar(ui->txtMes, [this] { return tomarPeriodo(false); });
    conectar(ui->cmdAnterior, &QPushButton::clicked, [this] { mover(-1); });
    conectar(ui->cmdSiguiente, &QPushButton::clicked, [this] { mover(1); });
    for (const auto& [tecla, meses] : {std::pair(Qt::Key_PageUp, -1), std::pair(Qt::Key_PageDown, 1)})
    {
        auto* atajo = new QShortcut(QKeySequence(Qt::CTRL | tecla), this);
        atajo->setContext(Qt::WidgetWithChildrenShortcut);
        conectar(atajo, &QShortcut::activated, [this, paso = meses] { mover(paso); });
    }
    conectar(ui->vsEmpresas, &Grilla::dobleClic,
             [this](int /*columna*/, int fila) { fila > 0 ? irADeclaraciones(fila) : void(); });
    conectar(ui->vsEmpresas, &Grilla::entrar, [this](int /*columna*/, int fila) { irADeclaraciones(fila); });
    conectar(ui->cmdDeclaraciones, &QPushButton::clicked, [this] { irADeclaraciones(ui->vsEmpresas->filaActual()); });
    conectar(ui->cmdSalir, &QPushButton::clicked, &MesDeEmpresas::cerrar);
}

MesDeEmpresas::~MesDeEmpresas() = default;

void MesDeEmpresas::cargar()
{
    const QDate hoy = Reloj::Hoy();
    m_periodo = ultimoMesDeclarado(Rutinas::Conexion).value_or(QDate(hoy.year(), hoy.month(), 1));
    mostrarPeriodo();
}

void MesDeEmpresas::activar()
{
    CargarEmpresas(m_periodo);
}

void MesDeEmpresas::mostrarPeriodo()
{
    ui->txtAnio->setText(QString::number(m_periodo.year()));
    ui->txtMes->setText(QString::number(m_periodo.month()));
}

void MesDeEmpresas::CargarEmpresas(QDate periodo)
{
    const int actual = ui->vsEmpresas->filaActual();
    const QString cuit = actual > 0 ? ui->vsEmpresas->texto(1, actual) : QString();
    const std::vector<MesDeEmpresa> empresas = mesDeEmpresas(Rutinas::Conexion, periodo);
    m_periodo = periodo; // not before its rows are there
    ui->vsEmpresas->cargar(empresas, celdas);
    int fila = 0;
    for (const MesDeEmpresa& empresa : empresas)
    {
        ++fila;
        ui->vsEmpresas->pintarFila(fila, empresa.secuencia ? Grilla::blanco : faltante);
        if (empresa.cuit == cuit)
        {
            ui->vsEmpresas->setFilaActual(fila);
        }
    }
    ui->vsEmpresas->setNombreDePlanilla(QStringLiteral("El mes de las empresas ") + m_periodo.toString(u"yyyy-MM"));
    ui->lblResumen->setText(resumenDelMes(empresas));
}

bool MesDeEmpresas::tomarPeriodo(bool elAnio)
{
    if (ui->txtAnio->text().isEmpty() || ui->txtMes->text().isEmpty())
    {
        mostrarPeriodo();
        return true;
    }
    if (ui->txtAnio->text().size() == 2)
    {
        ui->txtAnio->setText(QStringLiteral("20") + ui->txtAnio->text());
    }
    const auto rechazo = comprobarPeriodo(ui->txtAnio->text(), ui->txtMes->text());
    if (rechazo && elAnio == (rechazo->campo == CampoDePeriodo::Anio))
    {
        MsgBox(rechazo->texto, rechazo->grave ? Caja::Exclamacion : Caja::Informacion);
        return false;
    }
    const QDate tipeado(ui->txtAnio->text().toInt(), ui->txtMes->text().toInt(), 1);
    if (!rechazo && tipeado != m_periodo)
    {
        CargarEmpresas(tipeado);
    }
    return true;
}

void MesDeEmpresas::mover(int meses)
{
    const QDate otro = m_periodo.addMonths(meses);
    if (comprobarPeriodo(QString::number(otro.year()), QString::number(otro.month())))
    {
        anunciar(QStringLiteral("No hay declaraciones de ese mes"));
        return;
    }
    CargarEmpresas(otro);
    mostrarPeriodo();
}

void MesDeEmpresas::keyPressEvent(QKeyEvent* evento)
{
    if (evento->key() == Qt::Key_PageUp || evento->key() == Qt::Key_PageDown)
    {
        if (Validacion::instancia().intentarDejar()) // a month that was typed counts
        {
            protegido([&] { mover(evento->key() == Qt::Key_PageUp ? -1 : 1); });
        }
        return;
    }
    Pantalla::keyPressEvent(evento);
}

void MesDeEmpresas::irADeclaraciones(int fila)
{
    if (fila < 1)
    {
        anunciar(QStringLiteral("Elija una empresa de la lista"));
        return;
    }
    const QString cuit = ui->vsEmpresas->texto(1, fila);
    const QString razon = ui->vsEmpresas->texto(2, fila);
    remediando([&] { exigirEmpresa(Rutinas::Conexion, cuit); }, [this] { CargarEmpresas(m_periodo); });
    Navegacion::instancia().mostrar(QStringLiteral("DDJJ"));
    const Pantalla* ddjj = Navegacion::instancia().abierta(QStringLiteral("DDJJ"));
    auto* campo = ddjj != nullptr ? ddjj->findChild<CampoMascara*>(QStringLiteral("MaskCuit")) : nullptr;
    auto* eleccion = ddjj != nullptr ? ddjj->findChild<EleccionEmpresa*>() : nullptr;
    if (campo == nullptr || eleccion == nullptr)
    {
        return;
    }
    if (eleccion->cuit() == cuit && eleccion->razon() == razon)
    {
        return; // it keeps the declaration that is selected
    }
    if (!campo->isEnabled()) // a new declaration is being entered for another company
    {
        anunciar(QStringLiteral("Grabe o cancele antes el periodo que está ingresando"));
        return;
    }
    campo->setText(cuit);
    eleccion->releer();
    ddjj->findChild<Grilla*>(QStringLiteral("vsDDJJ"))->setFocus();
}
