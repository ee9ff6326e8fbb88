#include "companies/screens/empresas.h"

#include "base/error_de_ejecucion.h"
#include "companies/catalogos.h"
#include "companies/screens/ficha_de_empresa.h"
#include "companies/screens/preguntar_cambios.h"
#include "core/lista_empresas.h"
#include "core/rutinas.h"
#include "ui/doors/mensajes.h"
#include "ui/look/estilo.h"
#include "ui/shell/navegacion.h"
#include "ui_empresas.h"

#include <array>

Empresas::Empresas(QWidget* padre)
    : Pantalla(QStringLiteral("Empresas"), padre)
    , ui(std::make_unique<Ui::Empresas>())
{
    ui->setupUi(this);
    m_ficha = std::make_unique<FichaDeEmpresa>(*ui);
    alDejar(ui->MaskCuit, &Empresas::MaskCuit_LostFocus);
    alDejar(ui->txtCodRubro, &Empresas::txtCodRubro_LostFocus);
    prepararBotones();
}

Empresas::~Empresas() = default;

void Empresas::prepararBotones()
{
    const struct
    {
        QPushButton* boton;
        const char* icono;
        void (Empresas::*accion)();
    } botones[] = {
        {ui->CmdABM_0, "nueva", &Empresas::alta},
        {ui->CmdABM_1, "modificar", &Empresas::modificar},
        {ui->CmdABM_2, "eliminar", &Empresas::eliminar},
        {ui->CmdABM_3, "buscar", &Empresas::buscar},
        {ui->CmdActualiza, "grabar", &Empresas::CmdActualiza_Click},
        {ui->CmdCancela, "cancelar", &Empresas::CmdCancela_Click},
        {ui->cmdSalir, "salir", &Empresas::cerrar},
        {ui->cmdRubro, "rubro", &Empresas::cmdRubro_Click},
    };
    for (const auto& [boton, icono, accion] : botones)
    {
        Estilo::boton(boton, QLatin1String(icono), boton == ui->CmdActualiza);
        conectar(boton, &QPushButton::clicked, accion);
    }
    // Enter walks from the code to the contact; the search is reached by its mnemonic or a click.
    ui->cmdRubro->setFocusPolicy(Qt::ClickFocus);
}

QString Empresas::empresaEnCurso() const
{
    return ui->txtRazon->text();
}

void Empresas::cargar()
{
    TituloBase = windowTitle();
    m_ficha->cargarListas();
    ActivarDatos(false);
    if (const auto cuit = cuitDeUnicaEmpresa(Rutinas::Conexion))
    {
        MostrarEmpresa(*cuit);
    }
}

void Empresas::ActivarDatos(bool estado)
{
    const std::initializer_list<QWidget*> deEdicion{ui->fraDatos, ui->CmdCancela, ui->CmdActualiza};
    const std::initializer_list<QWidget*> deConsulta{ui->CmdABM_0, ui->CmdABM_1, ui->CmdABM_2, ui->CmdABM_3,
                                                     ui->cmdSalir};
    // What has the focus goes grey last, when there is somewhere else to go: nothing is left by the user.
    const Validacion::Pausa pausa;
    // A company on view has a CUIT that the test of a new one refuses: Tab goes past it, a click goes there.
    ui->MaskCuit->setFocusPolicy(estado ? Qt::StrongFocus : Qt::ClickFocus);
    for (const bool si : {true, false})
    {
        for (QWidget* control : si == estado ? deEdicion : deConsulta)
        {
            control->setEnabled(si);
        }
    }
}

void Empresas::mostrarTitulo(const QString& cola)
{
    setWindowTitle(TituloBase + cola);
}

void Empresas::LimpiarEmpresa()
{
    m_ficha->limpiar();
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void Empresas::MostrarEmpresa(const QString& cuit)
{
    auto leida = leerEmpresa(Rutinas::Conexion, cuit); // a failure leaves the one that is shown
    if (!leida)
    {
        MsgBox(QStringLiteral("La Empresa %1 ya no se encuentra en la Base de Empresas.").arg(cuit), Caja::Exclamacion);
        LimpiarEmpresa();
        return;
    }
    ui->MaskCuit->setText(cuit);
    m_ficha->mostrar(std::move(*leida));
    BuscarNombreRubro();
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void Empresas::alta()
{
    ActivarDatos(true);
    LimpiarEmpresa();
    m_ficha->agregarFilas();
    mostrarTitulo(QStringLiteral(" / INGRESO"));
    ui->MaskCuit->setEnabled(true);
    ui->MaskCuit->setFocus();
}

void Empresas::modificar()
{
    if (ui->MaskCuit->vacio())
    {
        MsgBox(QStringLiteral("Debe indicar la Empresa a Modificar."), Caja::Informacion);
        return;
    }
    ActivarDatos(true);
    mostrarTitulo(QStringLiteral(" / MODIFICACION"));
    ui->MaskCuit->setEnabled(false);
    m_ficha->agregarFilas();
    ui->txtRazon->setFocus();
}

void Empresas::eliminar()
{
    if (ui->MaskCuit->vacio())
    {
        MsgBox(QStringLiteral("Debe indicar la Empresa a Eliminar.  Haga un click en el mismo."), Caja::Informacion);
        return;
    }
    const QString cuit = ui->MaskCuit->text();
    ImpedimentoDeBaja impedimento = impedimentoDeBaja(Rutinas::Conexion, cuit);
    if (impedimento == ImpedimentoDeBaja::Ninguno)
    {
        if (!Preguntar(QStringLiteral("Esta seguro de desea ELIMINAR esta EMPRESA?")))
        {
            return;
        }
        try
        {
            impedimento = eliminarEmpresa(Rutinas::Conexion, cuit);
        }
        catch (const YaNoEsta& falta)
        {
            MsgBox(falta.descripcion(), Caja::Exclamacion);
            LimpiarEmpresa();
            return;
        }
    }
    if (impedimento != ImpedimentoDeBaja::Ninguno)
    {
        MsgBox(QStringLiteral("La Empresa seleccionada no se puede Eliminar por tener %1.")
                   .arg(impedimento == ImpedimentoDeBaja::Pagos ? QStringLiteral("Pagos Realizados")
                                                                : QStringLiteral("DD.JJ. Presentadas")),
               Caja::Critico);
        return;
    }
    MsgBox(QStringLiteral("LA EMPRESA HA SIDO ELIMINADA."), Caja::Informacion);
    LimpiarEmpresa();
}

void Empresas::buscar()
{
    // A dialog closed without a choice leaves the company that was current before.
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarEmpresa"));
    if (!Rutinas::CuitActual.isEmpty())
    {
        MostrarEmpresa(Rutinas::CuitActual);
    }
}

bool Empresas::dejaLoTipeado()
{
    return !ui->CmdCancela->isEnabledTo(this) ||
           Preguntar(QStringLiteral("Esta seguro de desea Cancelar los Datos ingresados?"));
}

void Empresas::CmdCancela_Click()
{
    if (!dejaLoTipeado())
    {
        return;
    }
    mostrarTitulo();
    ActivarDatos(false);
    LimpiarEmpresa();
    ui->CmdABM_0->setFocus();
}

void Empresas::cmdRubro_Click()
{
    Rutinas::TextoDevuelto.clear();
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarRubro"));
    if (!Rutinas::TextoDevuelto.isEmpty())
    {
        ui->txtCodRubro->setText(Rutinas::TextoDevuelto);
        BuscarNombreRubro();
        ui->txtContacto->setFocus();
    }
}

bool Empresas::BuscarNombreRubro()
{
    const auto nombre = nombreDeRubro(Rutinas::Conexion, ui->txtCodRubro->text());
    if (!nombre)
    {
        MsgBox(QStringLiteral("Verifique el Código ingresado.  El mismo es inexistente."), Caja::Exclamacion);
        ui->txtCodRubro->setFocus();
        return false;
    }
    ui->txtNomRubro->setText(*nombre);
    return true;
}

bool Empresas::txtCodRubro_LostFocus()
{
    if (ui->txtCodRubro->text().isEmpty())
    {
        ui->txtNomRubro->clear();
        return true;
    }
    return BuscarNombreRubro();
}

bool Empresas::MaskCuit_LostFocus()
{
    if (!ui->MaskCuit->isEnabled() || ui->MaskCuit->vacio())
    {
        return true;
    }
    const ExamenDeCuit examen = examinarCuitNuevo(Rutinas::Conexion, ui->MaskCuit->text());
    if (examen.estado == ExamenDeCuit::Incorrecto)
    {
        MsgBox(QStringLiteral("Verifique el Nro. de Cuit ingresado, el mismo es incorrecto."), Caja::Informacion);
    }
    else if (examen.estado == ExamenDeCuit::Existente)
    {
        MsgBox(QStringLiteral("Verifique los datos de la Empresa.  El Nro. de CUIT ya se encuentra en la Base de "
                              "Empresas: '%1'.")
                   .arg(examen.razon),
               Caja::Critico);
    }
    return examen.estado == ExamenDeCuit::Bueno;
}

void Empresas::CmdActualiza_Click()
{
    if (!m_ficha->confirmarEdicion())
    {
        return;
    }
    EntradaEmpresa entrada = m_ficha->entrada();
    if (revisarFaltas(entrada.empresa) &&
        Preguntar(QStringLiteral("Esta seguro de desea Grabar los Datos ingresados?")))
    {
        grabar(entrada);
    }
}

bool Empresas::revisarFaltas(Empresa& empresa)
{
    const auto falta = revisarEmpresa(empresa, ui->cmbProvincia->currentIndex() != -1);
    ui->txtNumero->setText(empresa.numero);
    if (falta)
    {
        // By CampoEmpresa.
        const std::array<QWidget*, 7> campos{ui->MaskCuit,     ui->txtRazon,     ui->txtCalle, ui->txtCodPos,
                                             ui->txtLocalidad, ui->cmbProvincia, ui->cmdRubro};
        MsgBox(falta->texto, Caja::Informacion);
        campos.at(static_cast<std::size_t>(falta->campo))->setFocus();
    }
    return !falta;
}

void Empresas::grabar(EntradaEmpresa& entrada)
{
    try
    {
        if (!guardar(entrada))
        {
            return;
        }
    }
    catch (const SucursalEliminada& falta)
    {
        MsgBox(falta.descripcion(), Caja::Exclamacion);
        m_ficha->quitarEliminadas();
        return;
    }
    catch (const YaNoEsta& falta)
    {
        MsgBox(falta.descripcion(), Caja::Exclamacion);
        LimpiarEmpresa();
    }
    catch (const ErrorDeEjecucion& error)
    {
        decirError(error);
        return;
    }
    ActivarDatos(false);
    mostrarTitulo();
    ui->CmdABM_0->setFocus();
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

/// False when the save was refused, or given up because another desk has changed the company: the user has been told.
bool Empresas::guardar(EntradaEmpresa& entrada)
{
    std::optional<QString> rechazo;
    const auto intentar = [&](bool reemplaza)
    {
        if (reemplaza)
        {
            entrada.leida.reset();
        }
        rechazo = guardarEmpresa(Rutinas::Conexion, entrada);
    };
    if (!guardarPreguntando(intentar))
    {
        return false;
    }
    if (rechazo)
    {
        MsgBox(*rechazo, Caja::Exclamacion);
        return false;
    }
    m_ficha->guardada(entrada);
    return true;
}
