#include "companies/screens/empresas.h"

#include "base/error_de_ejecucion.h"
#include "companies/catalogos.h"
#include "companies/screens/preguntar_cambios.h"
#include "core/lista_empresas.h"
#include "core/rutinas.h"
#include "ui/doors/mensajes.h"
#include "ui/shell/navegacion.h"
#include "ui_empresas.h"

Empresas::Empresas(QWidget* padre)
    : Pantalla(QStringLiteral("Empresas"), padre)
    , ui(std::make_unique<Ui::Empresas>())
{
    ui->setupUi(this);
    prepararCampos();
    prepararGrillas();
    prepararBotones();
}

Empresas::~Empresas() = default;

void Empresas::cargar()
{
    TituloBase = windowTitle();
    for (const EntradaDeCatalogo& provincia : leerCatalogo(Rutinas::Conexion, Catalogo::Provincias))
    {
        ui->cmbProvincia->addItem(provincia.nombre, provincia.codigo);
    }
    ui->cmbProvincia->setCurrentIndex(-1);
    ui->vsResponsables->setOpciones(2, nombresDe(leerCatalogo(Rutinas::Conexion, Catalogo::Documentos)));
    ActivarDatos(false);
    if (const auto cuit = cuitDeUnicaEmpresa(Rutinas::Conexion))
    {
        ui->MaskCuit->setText(*cuit);
        MostrarEmpresa();
    }
}

void Empresas::ActivarDatos(bool estado)
{
    const std::initializer_list<QWidget*> deEdicion{ui->fraDatos, ui->CmdCancela, ui->CmdActualiza};
    const std::initializer_list<QWidget*> deConsulta{ui->CmdABM_0, ui->CmdABM_1, ui->CmdABM_2, ui->CmdABM_3,
                                                     ui->cmdSalir};
    const auto habilitar = [](std::initializer_list<QWidget*> controles, bool si)
    {
        for (QWidget* control : controles)
        {
            control->setEnabled(si);
        }
    };
    // What has the focus goes grey last, when there is somewhere else to go: nothing is left by the user.
    const Validacion::Pausa pausa;
    // A company on view has a CUIT that the test of a new one refuses: Tab goes past it, a click goes there.
    ui->MaskCuit->setFocusPolicy(estado ? Qt::StrongFocus : Qt::ClickFocus);
    habilitar(estado ? deEdicion : deConsulta, true);
    habilitar(estado ? deConsulta : deEdicion, false);
}

void Empresas::mostrarTitulo(const QString& cola)
{
    setWindowTitle(TituloBase + cola);
}

void Empresas::alta()
{
    ActivarDatos(true);
    LimpiarEmpresa();
    for (Grilla* grilla : {ui->vsSucursales, ui->vsResponsables})
    {
        grilla->setFilas(1);
        grilla->setFilaActual(1);
        grilla->setCambiada(false);
    }
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
    for (Grilla* grilla : {ui->vsSucursales, ui->vsResponsables})
    {
        grilla->setFilas(grilla->filas() + 1);
        grilla->setFilaActual(grilla->filas());
        grilla->setCambiada(false);
    }
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
    switch (impedimento)
    {
    case ImpedimentoDeBaja::Declaraciones:
        MsgBox(QStringLiteral("La Empresa seleccionada no se puede Eliminar por tener DD.JJ. Presentadas."),
               Caja::Critico);
        break;
    case ImpedimentoDeBaja::Pagos:
        MsgBox(QStringLiteral("La Empresa seleccionada no se puede Eliminar por tener Pagos Realizados."),
               Caja::Critico);
        break;
    case ImpedimentoDeBaja::Ninguno:
        MsgBox(QStringLiteral("LA EMPRESA HA SIDO ELIMINADA."), Caja::Informacion);
        LimpiarEmpresa();
        break;
    }
}

void Empresas::buscar()
{
    // A dialog closed without a choice leaves the company that was current before.
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarEmpresa"));
    if (!Rutinas::CuitActual.isEmpty())
    {
        ui->MaskCuit->setText(Rutinas::CuitActual);
        MostrarEmpresa();
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
    switch (examen.estado)
    {
    case ExamenDeCuit::Incorrecto:
        MsgBox(QStringLiteral("Verifique el Nro. de Cuit ingresado, el mismo es incorrecto."), Caja::Informacion);
        return false;
    case ExamenDeCuit::Existente:
        MsgBox(QStringLiteral("Verifique los datos de la Empresa.  El Nro. de CUIT ya se encuentra en la Base de "
                              "Empresas: '") +
                   examen.razon + QStringLiteral("'."),
               Caja::Critico);
        return false;
    case ExamenDeCuit::Bueno:
        break;
    }
    return true;
}

void Empresas::CmdActualiza_Click()
{
    if (!ui->vsSucursales->confirmarEdicion() || !ui->vsResponsables->confirmarEdicion())
    {
        return;
    }
    EntradaEmpresa entrada = entradaTipeada();
    if (revisarFaltas(entrada) && Preguntar(QStringLiteral("Esta seguro de desea Grabar los Datos ingresados?")))
    {
        grabar(entrada);
    }
}

bool Empresas::revisarFaltas(EntradaEmpresa& entrada)
{
    const auto falta = revisarEmpresa(entrada.empresa, ui->cmbProvincia->currentIndex() != -1);
    ui->txtNumero->setText(entrada.empresa.numero);
    if (falta)
    {
        MsgBox(falta->texto, Caja::Informacion);
        campo(falta->campo)->setFocus();
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
        quitarEliminadas();
        return;
    }
    catch (const YaNoEsta& falta)
    {
        MsgBox(falta.descripcion(), Caja::Exclamacion);
        LimpiarEmpresa();
    }
    catch (const ErrorDeEjecucion& error)
    {
        MsgBox(QString::number(error.numero()) + QLatin1Char(' ') + error.descripcion());
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
        entrada.leida = reemplaza ? std::nullopt : m_leida;
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
    m_leida = entrada.leida;
    if (entrada.sucursales)
    {
        ponerNumeros(*entrada.sucursales);
    }
    return true;
}
