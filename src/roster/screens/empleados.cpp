#include "roster/screens/empleados.h"

#include "base/numbers/formato.h"
#include "companies/catalogos.h"
#include "core/rutinas.h"
#include "core/screens/validar.h"
#include "ui/look/estilo.h"
#include "ui_empleados.h"

#include <QKeyEvent>

namespace
{
const QString jornadas[] = {QStringLiteral("200"), QStringLiteral("150"), QStringLiteral("100")};

void llenar(QComboBox* lista, Catalogo catalogo)
{
    for (const EntradaDeCatalogo& entrada : leerCatalogo(Rutinas::Conexion, catalogo))
    {
        lista->addItem(entrada.nombre, entrada.codigo);
    }
}

QStringList nombres(const QComboBox& lista)
{
    QStringList todos;
    for (int i = 0; i < lista.count(); ++i)
    {
        todos.append(lista.itemText(i));
    }
    return todos;
}
} // namespace

Empleados::Empleados(QWidget* padre)
    : Pantalla(QStringLiteral("Empleados"), padre)
    , ui(std::make_unique<Ui::Empleados>())
{
    ui->setupUi(this);
    MaskCuil = {ui->MaskCuil_0, ui->MaskCuil_1, ui->MaskCuil_2};
    txtAyN = {ui->txtAyN_0, ui->txtAyN_1, ui->txtAyN_2};
    MaskFecha = {ui->MaskFecha_0, ui->MaskFecha_1, ui->MaskFecha_2};
    txtImporte = {nullptr, ui->txtImporte_1, ui->txtImporte_2, ui->txtImporte_3, ui->txtImporte_4, ui->txtImporte_5};
    armarCampos();
    armarEventos();
    vestir();
}

Empleados::~Empleados() = default;

void Empleados::armarCampos()
{
    for (CampoMascara* campo : MaskCuil)
    {
        campo->setClase(CampoMascara::Cuit);
    }
    for (CampoMascara* campo : MaskFecha)
    {
        campo->setClase(CampoMascara::Fecha);
        campo->setFechaConGuiones(true);
    }
    soloDigitos(ui->txtDocumento);
    soloDigitos(ui->txtNumero);
    soloDigitos(ui->cmbQHoras->lineEdit());
    ui->cmbQHoras->lineEdit()->setAccessibleName(QStringLiteral("Jornada Mensual Laboral"));
    ui->cmbQHoras->setCompleter(nullptr); // "1" would become "150"
    soloImporte(txtImporte[1]);
    soloImporte(txtImporte[2]);
    ui->txtAyN_0->installEventFilter(this);
}

void Empleados::armarEventos()
{
    for (const auto& [flecha, accion] :
         {std::pair(ui->cmdFlecha_0, AccionEmpleado::Primero), std::pair(ui->cmdFlecha_1, AccionEmpleado::Anterior),
          std::pair(ui->cmdFlecha_2, AccionEmpleado::Siguiente), std::pair(ui->cmdFlecha_3, AccionEmpleado::Ultimo)})
    {
        conectar(flecha, &QPushButton::clicked, [this, accion = accion] { CargarEmpleado(accion); });
    }
    for (const auto& [boton, mando] :
         {std::pair(ui->cmdEmpleado_0, &Empleados::agregar), std::pair(ui->cmdEmpleado_1, &Empleados::modificar),
          std::pair(ui->cmdEmpleado_2, &Empleados::eliminar), std::pair(ui->cmdEmpleado_3, &Empleados::aceptar),
          std::pair(ui->cmdEmpleado_4, &Empleados::cancelar), std::pair(ui->cmdEmpleado_5, &Empleados::buscar)})
    {
        conectar(boton, &QPushButton::clicked, mando);
    }
    conectar(ui->cmdEmpleado_9, &QPushButton::clicked, &Empleados::cerrar);
    conectar(ui->cmdSucursal, &QPushButton::clicked, &Empleados::cmdSucursal_Click);
    alDejar(ui->MaskCuil_0, &Empleados::MaskCuil_Validate);
    alDejar(ui->txtAyN_0, &Empleados::txtAyN_LostFocus);
    for (CampoMascara* campo : MaskFecha)
    {
        alDejar(campo, [campo] { return campo->vacio() || Rutinas::ValidarFecha(*campo); });
    }
    alDejar(ui->cmbEstadoCivil, &Empleados::cmbEstadoCivil_LostFocus);
    conectar(ui->cmbQHoras, &QComboBox::activated, &Empleados::CalcularAportes);
    alDejar(ui->cmbQHoras, &Empleados::CalcularAportes);
    conectar(ui->chkAfiliado_1, &QCheckBox::toggled, &Empleados::chkAfiliado_Click);
    conectar(ui->chkAfiliado_2, &QCheckBox::toggled, &Empleados::chkAfiliado_Click);
    for (QLineEdit* campo : {txtImporte[1], txtImporte[2]})
    {
        alDejar(campo, [this, campo] { return txtImporte_Validate(campo); });
    }
    conectar(ui->vsFamiliares, &GrillaFamiliar::seguir, &Empleados::seguirDeFamiliares);
}

void Empleados::vestir()
{
    Estilo::boton(ui->cmdFlecha_0, QStringLiteral("primero"));
    Estilo::boton(ui->cmdFlecha_1, QStringLiteral("anterior"));
    Estilo::boton(ui->cmdFlecha_2, QStringLiteral("siguiente"));
    Estilo::boton(ui->cmdFlecha_3, QStringLiteral("ultimo"));
    Estilo::boton(ui->cmdEmpleado_0, QStringLiteral("agregar"), true);
    Estilo::boton(ui->cmdEmpleado_1, QStringLiteral("modificar"));
    Estilo::boton(ui->cmdEmpleado_2, QStringLiteral("eliminar"));
    Estilo::boton(ui->cmdEmpleado_3, QStringLiteral("aceptar"), true);
    Estilo::boton(ui->cmdEmpleado_4, QStringLiteral("cancelar"));
    Estilo::boton(ui->cmdEmpleado_5, QStringLiteral("buscar_empleado"));
    Estilo::boton(ui->cmdEmpleado_9, QStringLiteral("salir"));
    Estilo::boton(ui->cmdSucursal, QStringLiteral("sucursal"));
    Estilo::soloMuestra({ui->txtCuit, ui->txtRazonSocial, ui->txtPeriodo, ui->txtSecuencia, MaskCuil[1], MaskCuil[2],
                         txtAyN[1], txtAyN[2], ui->txtSucursal, txtImporte[3], txtImporte[4], txtImporte[5]});
    ui->txtSucursal->setFocusPolicy(Qt::NoFocus);
    for (std::size_t i = 1; i < txtImporte.size(); ++i)
    {
        Estilo::importe(txtImporte[i]);
    }
    Estilo::importe(ui->lblRemTotal);
}

void Empleados::cargar()
{
    TituloForm = windowTitle();
    m_clave = Rutinas::declaracionActual();
    exigirDeclaracion(Rutinas::Conexion, m_clave); // else the screen is not shown
    ui->txtCuit->setText(m_clave.cuit);
    ui->txtRazonSocial->setText(Rutinas::EmpresaActual);
    ui->txtRazonSocial->setCursorPosition(0);
    ui->txtPeriodo->setText(m_clave.periodo.toString(u"yyyy/MM"));
    ui->txtSecuencia->setText(QString::number(m_clave.secuencia));
    cargarCatalogos();
    HabilitarEdicion(false);
    CargarEmpleado(AccionEmpleado::Inicio);
    ui->SSTab1->setCurrentIndex(0);
}

void Empleados::activar()
{
    if (!enEdicion())
    {
        ui->cmdEmpleado_0->setFocus(); // where the entry of a roster begins
    }
}

QString Empleados::empresaEnCurso() const
{
    return ui->txtRazonSocial->text();
}

QString Empleados::lugarEnCurso() const
{
    return m_lugar.total == 0
               ? QString()
               : QStringLiteral("Empleado %1 de %2").arg(conMiles(m_lugar.lugar), conMiles(m_lugar.total));
}

void Empleados::cargarCatalogos()
{
    llenar(ui->cmbProvincia, Catalogo::Provincias);
    llenar(ui->cmbDocumento, Catalogo::Documentos);
    llenar(ui->cmbCategoria, Catalogo::Categorias);
    ui->vsFamiliares->setCatalogos(nombresDe(leerCatalogo(Rutinas::Conexion, Catalogo::Familiar)),
                                   nombres(*ui->cmbDocumento));
    llenar(ui->cmbEstadoCivil, Catalogo::EstadoCivil);
    ui->cmbSexo->addItems({QStringLiteral("Femenino"), QStringLiteral("Masculino")});
    for (const QString& horas : jornadas)
    {
        ui->cmbQHoras->addItem(horas);
    }
}

bool Empleados::enEdicion() const
{
    return ui->cmdEmpleado_3->isEnabledTo(this);
}

void Empleados::HabilitarEdicion(bool Estado)
{
    // Disabling the control at work moves the focus from field to field, which nobody has left.
    const Validacion::Pausa pausa;
    for (QWidget* mando : std::initializer_list<QWidget*>{ui->FraEmpleado_0, ui->FraEmpleado_1, ui->vsFamiliares,
                                                          ui->cmdEmpleado_3, ui->cmdEmpleado_4})
    {
        mando->setEnabled(Estado);
    }
    for (QWidget* mando : {ui->cmdFlecha_0, ui->cmdFlecha_1, ui->cmdFlecha_2, ui->cmdFlecha_3, ui->cmdEmpleado_0,
                           ui->cmdEmpleado_1, ui->cmdEmpleado_2, ui->cmdEmpleado_5, ui->cmdEmpleado_9})
    {
        mando->setEnabled(!Estado);
    }
    contarLugar();
}

bool Empleados::eventFilter(QObject* objeto, QEvent* evento)
{
    // "Modificar" leaves the page that is shown and puts the focus on the name: what is typed into it must be seen.
    if (objeto == ui->txtAyN_0 && evento->type() == QEvent::KeyPress && !ui->txtAyN_0->isVisible())
    {
        const auto& tecla = *static_cast<QKeyEvent*>(evento);
        const bool sigue = tecla.key() == Qt::Key_Tab || tecla.key() == Qt::Key_Backtab ||
                           tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter ||
                           (tecla.text().isEmpty() && tecla.key() != Qt::Key_F8);
        if (!sigue)
        {
            ui->SSTab1->setCurrentIndex(0);
        }
    }
    return Pantalla::eventFilter(objeto, evento);
}

void Empleados::keyPressEvent(QKeyEvent* evento)
{
    // Escape would close the dialog, and what was typed would be lost without a word.
    if (evento->key() == Qt::Key_Escape && enEdicion())
    {
        evento->accept();
        return;
    }
    if (evento->key() == Qt::Key_F8 && enEdicion())
    {
        protegido([this] { repetirCampo(); });
        return;
    }
    if (QAbstractButton* flecha = flechaDe(*evento); flecha != nullptr && flecha->isEnabled())
    {
        flecha->click();
        return;
    }
    Pantalla::keyPressEvent(evento);
}

// Only what the field at work has no use for comes here.
QAbstractButton* Empleados::flechaDe(const QKeyEvent& tecla) const
{
    const QKeyCombination teclas(tecla.modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(tecla.key()));
    const std::pair<QKeyCombination, QAbstractButton*> todas[] = {
        {Qt::CTRL | Qt::Key_Home, ui->cmdFlecha_0},
        {Qt::Key_PageUp, ui->cmdFlecha_1},
        {Qt::Key_PageDown, ui->cmdFlecha_2},
        {Qt::CTRL | Qt::Key_End, ui->cmdFlecha_3},
    };
    for (const auto& [cual, flecha] : todas)
    {
        if (cual == teclas)
        {
            return flecha;
        }
    }
    return nullptr;
}
