// What stands on the screen Empresas: its fields and grids, filled, emptied and read.
#include "companies/catalogos.h"
#include "companies/screens/empresas.h"
#include "core/rutinas.h"
#include "ui/doors/mensajes.h"
#include "ui/look/estilo.h"
#include "ui/shell/navegacion.h"
#include "ui_empresas.h"

#include <algorithm>

namespace
{
// Columns of the grids.
enum Sucursal
{
    SucursalId = 1,
    SucursalCodigo,
    SucursalDomicilio,
    SucursalNumero,
    SucursalLocalidad,
    SucursalCodPos,
    SucursalTelefono,
};
enum Responsable
{
    ResponsableAyN = 1,
    ResponsableTipo,
    ResponsableDocumento,
    ResponsableDomicilio,
    ResponsableLocalidad,
};

QVariant celda(const std::optional<qint64>& numero)
{
    return numero ? QVariant(*numero) : QVariant();
}

std::optional<qint64> numeroDeCelda(const Grilla& grilla, int columna, int fila)
{
    return grilla.celdaVacia(columna, fila) ? std::nullopt : std::optional(grilla.entero(columna, fila));
}

/// A row is added after the last one only when that one is in use, and any row may be deleted.
void ponerTeclasDeFila(Grilla& grilla, int columnaClave)
{
    grilla.setTeclasDeFila([&grilla, columnaClave] { return !grilla.celdaVacia(columnaClave, grilla.filas()); },
                           [](int) { return true; });
}
} // namespace

void Empresas::prepararBotones()
{
    Estilo::boton(ui->CmdABM_0, QStringLiteral("nueva"));
    Estilo::boton(ui->CmdABM_1, QStringLiteral("modificar"));
    Estilo::boton(ui->CmdABM_2, QStringLiteral("eliminar"));
    Estilo::boton(ui->CmdABM_3, QStringLiteral("buscar"));
    conectar(ui->CmdABM_0, &QPushButton::clicked, &Empresas::alta);
    conectar(ui->CmdABM_1, &QPushButton::clicked, &Empresas::modificar);
    conectar(ui->CmdABM_2, &QPushButton::clicked, &Empresas::eliminar);
    conectar(ui->CmdABM_3, &QPushButton::clicked, &Empresas::buscar);
    Estilo::boton(ui->CmdActualiza, QStringLiteral("grabar"), true);
    Estilo::boton(ui->CmdCancela, QStringLiteral("cancelar"));
    Estilo::boton(ui->cmdSalir, QStringLiteral("salir"));
    Estilo::boton(ui->cmdRubro, QStringLiteral("rubro"));
    conectar(ui->CmdActualiza, &QPushButton::clicked, &Empresas::CmdActualiza_Click);
    conectar(ui->CmdCancela, &QPushButton::clicked, &Empresas::CmdCancela_Click);
    conectar(ui->cmdSalir, &QPushButton::clicked, &Empresas::cerrar);
    conectar(ui->cmdRubro, &QPushButton::clicked, &Empresas::cmdRubro_Click);
    // Enter walks from the code to the contact; the search is reached by its mnemonic or a click.
    ui->cmdRubro->setFocusPolicy(Qt::ClickFocus);
}

void Empresas::prepararCampos()
{
    soloDigitos(ui->txtNumero);
    soloDigitos(ui->txtCodRubro);
    Estilo::soloMuestra({ui->txtNomRubro});
    alDejar(ui->MaskCuit, &Empresas::MaskCuit_LostFocus);
    alDejar(ui->txtCodRubro, &Empresas::txtCodRubro_LostFocus);
}

void Empresas::prepararGrillas()
{
    using C = ColumnaDeGrilla;
    ui->vsSucursales->setColumnas({
        {.clase = C::Fija, .ancho = 0},
        {.clase = C::Texto, .titulo = QStringLiteral("Suc."), .ancho = 110},
        {.clase = C::Texto, .titulo = QStringLiteral("Domicilio: Calle"), .ancho = -1},
        {.clase = C::Entero, .titulo = QStringLiteral("Número"), .ancho = 70},
        {.clase = C::Texto, .titulo = QStringLiteral("Localidad"), .ancho = 220},
        {.clase = C::Texto, .titulo = QStringLiteral("Cód.Pos."), .ancho = 80},
        {.clase = C::Texto, .titulo = QStringLiteral("Teléfono"), .ancho = 140},
    });
    ui->vsResponsables->setColumnas({
        {.clase = C::Texto, .titulo = QStringLiteral("Apellido y Nombre"), .ancho = 260},
        {.clase = C::Lista, .titulo = QStringLiteral("Tipo"), .ancho = 80},
        {.clase = C::Entero, .titulo = QStringLiteral("Documento"), .ancho = 100},
        {.clase = C::Texto, .titulo = QStringLiteral("Domicilio"), .ancho = -1},
        {.clase = C::Texto, .titulo = QStringLiteral("Localidad"), .ancho = 220},
    });
    for (Grilla* grilla : {ui->vsSucursales, ui->vsResponsables})
    {
        grilla->setEditable(true); // they lie in fraDatos
        grilla->setPintaActual(true);
    }
    ponerTeclasDeFila(*ui->vsSucursales, SucursalCodigo);
    ponerTeclasDeFila(*ui->vsResponsables, ResponsableAyN);
}

QString Empresas::empresaEnCurso() const
{
    return ui->txtRazon->text();
}

void Empresas::LimpiarEmpresa()
{
    m_leida.reset();
    ui->MaskCuit->limpiar();
    llenarCampos({});
    ui->txtNomRubro->clear();
    ui->cmbProvincia->setCurrentIndex(0);
    ui->vsSucursales->setFilas(0);
    ui->vsResponsables->setFilas(0);
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void Empresas::MostrarEmpresa()
{
    auto leida = leerEmpresa(Rutinas::Conexion, ui->MaskCuit->text());
    if (!leida)
    {
        MsgBox(QStringLiteral("La Empresa %1 ya no se encuentra en la Base de Empresas.").arg(ui->MaskCuit->text()),
               Caja::Exclamacion);
        LimpiarEmpresa();
        return;
    }
    m_leida = std::move(leida);
    llenarCampos(m_leida->empresa);
    ui->cmbProvincia->setCurrentIndex(ui->cmbProvincia->findText(m_leida->empresa.nombreProvincia));
    mostrarGrillas(*m_leida);
    ui->txtNomRubro->clear();
    BuscarNombreRubro();
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

std::vector<std::pair<QLineEdit*, QString Empresa::*>> Empresas::camposDeTexto() const
{
    return {
        {ui->txtRazon, &Empresa::razon},
        {ui->txtFantasia, &Empresa::fantasia},
        {ui->txtCalle, &Empresa::calle},
        {ui->txtNumero, &Empresa::numero},
        {ui->txtNroLocal, &Empresa::nroLocal},
        {ui->txtPiso, &Empresa::piso},
        {ui->txtDepto, &Empresa::depto},
        {ui->txtCodPos, &Empresa::codPos},
        {ui->txtLocalidad, &Empresa::localidad},
        {ui->txtTelefono, &Empresa::telefono},
        {ui->txtFax, &Empresa::fax},
        {ui->txtCodRubro, &Empresa::rubro},
        {ui->txtContacto, &Empresa::contacto},
        {ui->txtWeb, &Empresa::web},
        {ui->txtEMail, &Empresa::email},
        {ui->txtEstudio, &Empresa::estudio},
        {ui->txtEst_Domicilio, &Empresa::estDomicilio},
        {ui->txtEst_CodPos, &Empresa::estCodPos},
        {ui->txtEst_Localidad, &Empresa::estLocalidad},
        {ui->txtEst_Telefono, &Empresa::estTelefono},
        {ui->txtEst_Email, &Empresa::estEmail},
    };
}

void Empresas::llenarCampos(const Empresa& empresa)
{
    for (const auto& [campo, texto] : camposDeTexto())
    {
        campo->setText(empresa.*texto);
        campo->setCursorPosition(0);
    }
}

void Empresas::mostrarGrillas(const EmpresaLeida& leida)
{
    ui->vsSucursales->cargar(leida.sucursales,
                             [](const FilaSucursal& fila)
                             {
                                 return FilaDeGrilla{fila.id,        fila.sucursal, fila.domicilio, celda(fila.numero),
                                                     fila.localidad, fila.codPos,   fila.telefono};
                             });
    ui->vsResponsables->cargar(
        leida.responsables,
        [](const FilaResponsable& fila) {
            return FilaDeGrilla{fila.ayn, fila.tipoDoc, celda(fila.nroDoc), fila.domicilio, fila.localidad};
        });
}

void Empresas::ponerNumeros(const std::vector<FilaSucursal>& sucursales)
{
    for (int fila = 1; const FilaSucursal& sucursal : sucursales)
    {
        ui->vsSucursales->setValor(SucursalId, fila, sucursal.id);
        ++fila;
    }
}

/// The branches deleted meanwhile leave the grid; what else was typed stays.
void Empresas::quitarEliminadas()
{
    const std::vector<FilaSucursal> quedan = cargarSucursales(Rutinas::Conexion, ui->MaskCuit->text());
    const auto falta = [&](qint64 id)
    {
        return id != 0 && std::none_of(quedan.begin(), quedan.end(),
                                       [id](const FilaSucursal& sucursal) { return sucursal.id == id; });
    };
    if (m_leida)
    {
        std::erase_if(m_leida->sucursales, [&](const FilaSucursal& sucursal) { return falta(sucursal.id); });
    }
    for (int fila = ui->vsSucursales->filas(); fila > 0; --fila)
    {
        if (falta(ui->vsSucursales->entero(SucursalId, fila)))
        {
            ui->vsSucursales->borrarFila(fila);
        }
    }
}

Empresa Empresas::empresaTipeada() const
{
    Empresa empresa;
    empresa.cuit = ui->MaskCuit->text();
    empresa.provincia = ui->cmbProvincia->currentData().toLongLong();
    empresa.nombreProvincia = ui->cmbProvincia->currentText();
    for (const auto& [campo, texto] : camposDeTexto())
    {
        empresa.*texto = campo->text();
    }
    return empresa;
}

EntradaEmpresa Empresas::entradaTipeada() const
{
    EntradaEmpresa entrada{.nueva = ui->MaskCuit->isEnabled(), .empresa = empresaTipeada()};
    if (ui->vsSucursales->cambiada())
    {
        entrada.sucursales = sucursalesTipeadas();
    }
    if (ui->vsResponsables->cambiada())
    {
        entrada.responsables = responsablesTipeados();
    }
    return entrada;
}

std::vector<FilaSucursal> Empresas::sucursalesTipeadas() const
{
    const Grilla& grilla = *ui->vsSucursales;
    std::vector<FilaSucursal> filas;
    for (int fila = 1; fila <= grilla.filas(); ++fila)
    {
        filas.push_back({.id = grilla.entero(SucursalId, fila),
                         .sucursal = grilla.texto(SucursalCodigo, fila),
                         .domicilio = grilla.texto(SucursalDomicilio, fila),
                         .numero = numeroDeCelda(grilla, SucursalNumero, fila),
                         .localidad = grilla.texto(SucursalLocalidad, fila),
                         .codPos = grilla.texto(SucursalCodPos, fila),
                         .telefono = grilla.texto(SucursalTelefono, fila)});
    }
    return filas;
}

std::vector<FilaResponsable> Empresas::responsablesTipeados() const
{
    const Grilla& grilla = *ui->vsResponsables;
    std::vector<FilaResponsable> filas;
    for (int fila = 1; fila <= grilla.filas(); ++fila)
    {
        filas.push_back({.ayn = grilla.texto(ResponsableAyN, fila),
                         .tipoDoc = grilla.texto(ResponsableTipo, fila),
                         .nroDoc = numeroDeCelda(grilla, ResponsableDocumento, fila),
                         .domicilio = grilla.texto(ResponsableDomicilio, fila),
                         .localidad = grilla.texto(ResponsableLocalidad, fila)});
    }
    return filas;
}

QWidget* Empresas::campo(CampoEmpresa cual) const
{
    switch (cual)
    {
    case CampoEmpresa::Cuit:
        return ui->MaskCuit;
    case CampoEmpresa::Razon:
        return ui->txtRazon;
    case CampoEmpresa::Calle:
        return ui->txtCalle;
    case CampoEmpresa::CodPos:
        return ui->txtCodPos;
    case CampoEmpresa::Localidad:
        return ui->txtLocalidad;
    case CampoEmpresa::Provincia:
        return ui->cmbProvincia;
    case CampoEmpresa::Rubro:
        break;
    }
    return ui->cmdRubro;
}
