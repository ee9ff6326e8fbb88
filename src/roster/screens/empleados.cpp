#include "roster/screens/empleados.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "companies/screens/preguntar_cambios.h"
#include "core/rutinas.h"
#include "core/screens/validar.h"
#include "roster/screens/ficha_de_empleado.h"
#include "ui/doors/mensajes.h"
#include "ui/look/estilo.h"
#include "ui/shell/campos.h"
#include "ui/shell/navegacion.h"
#include "ui_empleados.h"

#include <QApplication>
#include <QKeyEvent>
#include <tuple>
#include <utility>

namespace
{
/// The buttons that move through the roster, and the keys that press them.
constexpr std::tuple<QPushButton * Ui::Empleados::*, QKeyCombination, AccionEmpleado, const char*> flechas[] = {
    {&Ui::Empleados::cmdFlecha_0, Qt::CTRL | Qt::Key_Home, AccionEmpleado::Primero, "primero"},
    {&Ui::Empleados::cmdFlecha_1, Qt::Key_PageUp, AccionEmpleado::Anterior, "anterior"},
    {&Ui::Empleados::cmdFlecha_2, Qt::Key_PageDown, AccionEmpleado::Siguiente, "siguiente"},
    {&Ui::Empleados::cmdFlecha_3, Qt::CTRL | Qt::Key_End, AccionEmpleado::Ultimo, "ultimo"},
};
} // namespace

Empleados::Empleados(QWidget* padre)
    : Pantalla(QStringLiteral("Empleados"), padre)
    , ui(std::make_unique<Ui::Empleados>())
{
    ui->setupUi(this);
    m_ficha = std::make_unique<FichaDeEmpleado>(*ui);
    armarMandos();
    armarCampos();
}

Empleados::~Empleados() = default;

void Empleados::armarMandos()
{
    for (const auto& [flecha, tecla, accion, icono] : flechas)
    {
        Estilo::boton((*ui).*flecha, QLatin1String(icono));
        conectar((*ui).*flecha, &QPushButton::clicked,
                 [this, accion = accion] { CargarEmpleado(accion, ui->MaskCuil_0->text()); });
    }
    const std::tuple<QPushButton*, const char*, void (Empleados::*)(), bool> mandos[] = {
        {ui->cmdEmpleado_0, "agregar", &Empleados::agregar, true},
        {ui->cmdEmpleado_1, "modificar", &Empleados::modificar, false},
        {ui->cmdEmpleado_2, "eliminar", &Empleados::eliminar, false},
        {ui->cmdEmpleado_3, "aceptar", &Empleados::GrabarEmpleado, true},
        {ui->cmdEmpleado_4, "cancelar", &Empleados::cancelar, false},
        {ui->cmdEmpleado_5, "buscar_empleado", &Empleados::buscar, false},
        {ui->cmdEmpleado_9, "salir", &Empleados::cerrar, false},
    };
    for (const auto& [boton, icono, orden, principal] : mandos)
    {
        Estilo::boton(boton, QLatin1String(icono), principal);
        conectar(boton, &QPushButton::clicked, orden);
    }
}

void Empleados::armarCampos()
{
    Estilo::soloMuestra({ui->txtCuit, ui->txtRazonSocial, ui->txtPeriodo, ui->txtSecuencia});
    alDejar(ui->MaskCuil_0, &Empleados::MaskCuil_Validate);
    alDejar(ui->txtAyN_0, [this] { m_ficha->copiarQuienEs(); });
    ui->txtAyN_0->installEventFilter(this);
    for (CampoMascara* campo : {ui->MaskFecha_0, ui->MaskFecha_1, ui->MaskFecha_2})
    {
        alDejar(campo, [campo] { return campo->vacio() || Rutinas::ValidarFecha(*campo); });
    }
    const auto seguirEn = [this](int pagina, QWidget* campo, Qt::FocusReason motivo)
    {
        ui->SSTab1->setCurrentIndex(pagina);
        campo->setFocus(motivo);
    };
    alDejar(ui->cmbEstadoCivil, [this, seguirEn] { seguirEn(1, ui->vsFamiliares, Qt::OtherFocusReason); });
    conectar(ui->vsFamiliares, &GrillaFamiliar::seguir,
             [this, seguirEn] { seguirEn(2, ui->MaskFecha_1, Qt::TabFocusReason); });
    conectar(ui->cmdSucursal, &QPushButton::clicked, [this] { m_ficha->buscarSucursal(); });

    AportesEnPantalla& aportes = m_ficha->aportes();
    conectar(ui->cmbQHoras, &QComboBox::activated, [&aportes] { aportes.calcular(); });
    alDejar(ui->cmbQHoras, [&aportes] { aportes.calcular(); });
    for (QLineEdit* campo : {ui->txtImporte_1, ui->txtImporte_2})
    {
        alDejar(campo, [&aportes, campo] { return aportes.dejarImporte(campo); });
    }
    for (QCheckBox* tilde : {ui->chkAfiliado_1, ui->chkAfiliado_2})
    {
        conectar(tilde, &QCheckBox::toggled, [&aportes](bool afiliado) { aportes.afiliar(afiliado); });
    }
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
    m_ficha->cargarCatalogos();
    HabilitarEdicion(false);
    CargarEmpleado(AccionEmpleado::Inicio, {});
    ui->SSTab1->setCurrentIndex(0);
}

void Empleados::activar()
{
    if (!enEdicion())
    {
        ui->cmdEmpleado_0->setFocus(); // where the entry of a roster begins
    }
}

bool Empleados::dejaLoTipeado()
{
    return !enEdicion() || Preguntar(QStringLiteral("Esta seguro de desea Cancelar los Datos Ingresados?"));
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

bool Empleados::eventFilter(QObject* objeto, QEvent* evento)
{
    // "Modificar" leaves the page that is shown and puts the focus on the name: what is typed into it must be seen.
    if (objeto == ui->txtAyN_0 && evento->type() == QEvent::KeyPress && !ui->txtAyN_0->isVisible())
    {
        const auto& tecla = *static_cast<QKeyEvent*>(evento);
        const bool sigue = campos::esTab(tecla) || tecla.key() == Qt::Key_Return || tecla.key() == Qt::Key_Enter ||
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
        protegido([this] { m_ficha->repetir(QApplication::focusWidget()); });
        return;
    }
    // Only what the field at work has no use for comes here.
    const QKeyCombination tecla(evento->modifiers() & ~Qt::KeypadModifier, static_cast<Qt::Key>(evento->key()));
    for (const auto& [flecha, suTecla, accion, icono] : flechas)
    {
        if (suTecla == tecla && ((*ui).*flecha)->isEnabled())
        {
            ((*ui).*flecha)->click();
            return;
        }
    }
    Pantalla::keyPressEvent(evento);
}

// ---- looking at an employee, or typing one in

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

void Empleados::terminarEdicion()
{
    HabilitarEdicion(false);
    ui->cmdEmpleado_0->setFocus();
}

void Empleados::CargarEmpleado(AccionEmpleado Accion, const QString& cuil)
{
    // All that is shown is read first: a reading that fails leaves the record that was on the screen.
    auto leido = leerEmpleado(Rutinas::Conexion, m_clave, cuil, Accion);
    if (leido)
    {
        m_ficha->mostrar(*leido);
        m_leido = std::move(leido);
        contarLugar();
    }
    else if (Accion == AccionEmpleado::Anterior || Accion == AccionEmpleado::Siguiente)
    {
        MsgBox(QStringLiteral("Se encuentra posicionado en el %1 Registro.")
                   .arg(Accion == AccionEmpleado::Anterior ? QStringLiteral("Primer") : QStringLiteral("Ultimo")),
               Caja::Informacion);
    }
    else
    {
        LimpiarEmpleado();
    }
}

void Empleados::LimpiarEmpleado()
{
    m_leido.reset();
    m_ficha->limpiar();
    contarLugar();
}

void Empleados::contarLugar()
{
    m_lugar = {};
    if (m_leido && !enEdicion())
    {
        try
        {
            m_lugar = lugarEnNomina(Rutinas::Conexion, m_clave, ui->MaskCuil_0->text());
        }
        catch (const ErrorDeEjecucion&)
        {
            // A count is no reason to stop what was being done, as a save that has gone well: nothing is told.
        }
    }
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void Empleados::agregar()
{
    HabilitarEdicion(true);
    LimpiarEmpleado();
    setWindowTitle(TituloForm + QStringLiteral(" / INGRESO"));
    ui->SSTab1->setCurrentIndex(0);
    m_ficha->editar(true);
}

void Empleados::modificar()
{
    if (ui->MaskCuil_0->vacio())
    {
        return;
    }
    HabilitarEdicion(true);
    setWindowTitle(TituloForm + QStringLiteral(" / MODIFICACION"));
    m_ficha->editar(false);
}

void Empleados::eliminar()
{
    if (ui->MaskCuil_0->vacio() || !Preguntar(QStringLiteral("Esta seguro de desea ELIMINAR este EMPLEADO?")))
    {
        return;
    }
    siSigueAhi(
        [this]
        {
            eliminarEmpleado(Rutinas::Conexion, m_clave, ui->MaskCuil_0->text());
            MsgBox(QStringLiteral("EL EMPLEADO HA SIDO ELIMINADO DE LA ACTUAL DECLARACION JURADA."), Caja::Informacion);
            LimpiarEmpleado();
        });
}

void Empleados::cancelar()
{
    if (dejaLoTipeado())
    {
        LimpiarEmpleado();
        terminarEdicion();
    }
}

void Empleados::buscar()
{
    Rutinas::CuilElegido.clear();
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarEmpleado"));
    if (!Rutinas::CuilElegido.isEmpty())
    {
        CargarEmpleado(AccionEmpleado::Buscado, Rutinas::CuilElegido);
    }
}

// ---- the checks and the save

bool Empleados::MaskCuil_Validate()
{
    m_ficha->copiarQuienEs();
    if (ui->MaskCuil_0->vacio())
    {
        return true;
    }
    if (!Rutinas::VerificarCuit(ui->MaskCuil_0->text()))
    {
        MsgBox(QStringLiteral("Verifique el Nro. de Cuil ingresado, el mismo es incorrecto."), Caja::Informacion);
        return false;
    }
    if (CuilExistente())
    {
        return false;
    }
    m_ficha->ponerDocumento();
    return true;
}

bool Empleados::CuilExistente()
{
    const bool existe = cuilExistente(Rutinas::Conexion, m_clave, ui->MaskCuil_0->text());
    if (existe)
    {
        MsgBox(QStringLiteral("El Presente C.U.I.L. ya se encuentra ingresado en la Actual Declaración Jurada."),
               Caja::Critico, QStringLiteral("CUIL ya existente"));
    }
    return existe;
}

void Empleados::GrabarEmpleado()
{
    EntradaEmpleado entrada = m_ficha->entrada();
    if (entrada.nuevo && CuilExistente())
    {
        return;
    }
    const auto falta = revisarEmpleado(Rutinas::Conexion, m_clave.cuit, entrada);
    m_ficha->completarCeros(falta);
    if (falta)
    {
        const bool esSucursal = falta->campo == CampoEmpleado::Sucursal;
        ui->SSTab1->setCurrentIndex(falta->pagina);
        MsgBox(falta->texto, esSucursal ? Caja::Exclamacion : Caja::Informacion,
               esSucursal ? QString() : QStringLiteral("Datos Incompletos"));
        m_ficha->irA(falta->campo);
        return;
    }
    try
    {
        siSigueAhi([&] { guardar(entrada); });
    }
    catch (const ErrorParaAvisar& error)
    {
        MsgBox(error.descripcion(), Caja::Exclamacion);
    }
    catch (const ErrorDeEjecucion& error)
    {
        decirError(error);
    }
}

void Empleados::guardar(EntradaEmpleado& entrada)
{
    m_ficha->aportes().calcular();
    std::optional<EmpleadoLeido> guardado;
    const auto grabar = [&](bool reemplaza)
    {
        entrada.leido = reemplaza ? std::nullopt : m_leido;
        guardado = guardarEmpleado(Rutinas::Conexion, m_clave, entrada);
    };
    if (!guardarPreguntando(grabar))
    {
        return;
    }
    if (!guardado)
    {
        MsgBox(QStringLiteral("Los datos de los Familiares están incompletos.  Por favor, verifique los mismos."),
               Caja::Exclamacion);
        ui->SSTab1->setCurrentIndex(1);
        return;
    }
    m_leido = std::move(guardado);
    m_ficha->recordar();
    setWindowTitle(TituloForm);
    terminarEdicion();
}

void Empleados::siSigueAhi(const std::function<void()>& escribir)
{
    try
    {
        escribir();
    }
    catch (const EmpleadoEliminado& falta)
    {
        MsgBox(falta.descripcion(), Caja::Exclamacion);
        LimpiarEmpleado();
        setWindowTitle(TituloForm);
        terminarEdicion();
    }
    catch (const YaNoEsta& falta)
    {
        MsgBox(falta.descripcion(), Caja::Exclamacion);
        cerrar();
    }
}
