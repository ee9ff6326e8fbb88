// What stands on the screen Empresas: its fields and grids, filled, emptied and read.
#include "companies/catalogos.h"
#include "companies/screens/empresas.h"
#include "core/rutinas.h"
#include "platform/screens/estilo.h"
#include "platform/screens/mensajes.h"
#include "platform/screens/navegacion.h"
#include "ui_empresas.h"

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

constexpr qint64 maximoNumero = 99999;
constexpr qint64 maximoDocumento = 99999999;

QVariant celda(const std::optional<qint64>& numero)
{
    return numero ? QVariant(*numero) : QVariant();
}

std::optional<qint64> numeroDeCelda(const Grilla& grilla, int columna, int fila)
{
    return grilla.celdaVacia(columna, fila) ? std::nullopt : std::optional(grilla.entero(columna, fila));
}

void pintarPaso(Grilla& grilla, int fila, int nuevaFila)
{
    if (nuevaFila != -1)
    {
        grilla.pintarFila(fila, Grilla::blanco);
        grilla.pintarFila(nuevaFila, Grilla::amarillo);
    }
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
    const std::pair<QPushButton*, const char*> abm[] = {
        {ui->CmdABM_0, "nueva"}, {ui->CmdABM_1, "modificar"}, {ui->CmdABM_2, "eliminar"}, {ui->CmdABM_3, "buscar"}};
    for (int i = 0; const auto& [boton, icono] : abm)
    {
        Estilo::boton(boton, QLatin1String(icono));
        conectar(boton, &QPushButton::clicked, [this, i] { CmdABM_Click(i); });
        ++i;
    }
    Estilo::boton(ui->CmdActualiza, QStringLiteral("grabar"), true);
    Estilo::boton(ui->CmdCancela, QStringLiteral("cancelar"));
    Estilo::boton(ui->cmdSalir, QStringLiteral("salir"));
    Estilo::boton(ui->cmdRubro, QStringLiteral("rubro"));
    conectar(ui->CmdActualiza, &QPushButton::clicked, &Empresas::CmdActualiza_Click);
    conectar(ui->CmdCancela, &QPushButton::clicked, &Empresas::CmdCancela_Click);
    conectar(ui->cmdSalir, &QPushButton::clicked, &Empresas::cmdSalir_Click);
    conectar(ui->cmdRubro, &QPushButton::clicked, &Empresas::cmdRubro_Click);
    // Enter walks from the code to the contact; the search is reached by its mnemonic or a click.
    ui->cmdRubro->setFocusPolicy(Qt::ClickFocus);
}

void Empresas::prepararCampos()
{
    soloDigitos(ui->txtNumero);
    soloDigitos(ui->txtCodRubro);
    Estilo::soloMuestra(ui->txtNomRubro);
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
        {.clase = C::Entero, .titulo = QStringLiteral("Número"), .ancho = 70, .maximo = maximoNumero},
        {.clase = C::Texto, .titulo = QStringLiteral("Localidad"), .ancho = 220},
        {.clase = C::Texto, .titulo = QStringLiteral("Cód.Pos."), .ancho = 80},
        {.clase = C::Texto, .titulo = QStringLiteral("Teléfono"), .ancho = 140},
    });
    ui->vsResponsables->setColumnas({
        {.clase = C::Texto, .titulo = QStringLiteral("Apellido y Nombre"), .ancho = 260},
        {.clase = C::Lista, .titulo = QStringLiteral("Tipo"), .ancho = 80},
        {.clase = C::Entero, .titulo = QStringLiteral("Documento"), .ancho = 100, .maximo = maximoDocumento},
        {.clase = C::Texto, .titulo = QStringLiteral("Domicilio"), .ancho = -1},
        {.clase = C::Texto, .titulo = QStringLiteral("Localidad"), .ancho = 220},
    });
    for (Grilla* grilla : {ui->vsSucursales, ui->vsResponsables})
    {
        grilla->setEditable(true); // they lie in fraDatos
    }
    ponerTeclasDeFila(*ui->vsSucursales, SucursalCodigo);
    ponerTeclasDeFila(*ui->vsResponsables, ResponsableAyN);
    conectar(ui->vsSucursales, &Grilla::dejarCelda, &Empresas::vsSucursales_LeaveCell);
    conectar(ui->vsResponsables, &Grilla::dejarCelda, &Empresas::vsResponsables_LeaveCell);
}

void Empresas::vsSucursales_LeaveCell(int, int fila, int, int nuevaFila)
{
    pintarPaso(*ui->vsSucursales, fila, nuevaFila);
}

void Empresas::vsResponsables_LeaveCell(int, int fila, int, int nuevaFila)
{
    pintarPaso(*ui->vsResponsables, fila, nuevaFila);
}

QString Empresas::empresaEnCurso() const
{
    return ui->txtRazon->text();
}

void Empresas::LimpiarEmpresa()
{
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
    const auto empresa = cargarEmpresa(Rutinas::Conexion, ui->MaskCuit->text());
    if (!empresa)
    {
        MsgBox(QStringLiteral("La Empresa %1 ya no se encuentra en la Base de Empresas.").arg(ui->MaskCuit->text()),
               Caja::Exclamacion);
        LimpiarEmpresa();
        return;
    }
    llenarCampos(*empresa);
    ui->cmbProvincia->setCurrentIndex(ui->cmbProvincia->findText(empresa->nombreProvincia));
    ui->txtNomRubro->clear();
    BuscarNombreRubro();
    mostrarGrillas();
    Q_EMIT Navegacion::instancia().cambioDePantalla();
}

void Empresas::llenarCampos(const Empresa& empresa)
{
    const std::pair<QLineEdit*, const QString&> campos[] = {
        {ui->txtRazon, empresa.razon},
        {ui->txtFantasia, empresa.fantasia},
        {ui->txtCalle, empresa.calle},
        {ui->txtNumero, empresa.numero},
        {ui->txtNroLocal, empresa.nroLocal},
        {ui->txtPiso, empresa.piso},
        {ui->txtDepto, empresa.depto},
        {ui->txtCodPos, empresa.codPos},
        {ui->txtLocalidad, empresa.localidad},
        {ui->txtTelefono, empresa.telefono},
        {ui->txtFax, empresa.fax},
        {ui->txtCodRubro, empresa.rubro},
        {ui->txtContacto, empresa.contacto},
        {ui->txtWeb, empresa.web},
        {ui->txtEMail, empresa.email},
        {ui->txtEstudio, empresa.estudio},
        {ui->txtEst_Domicilio, empresa.estDomicilio},
        {ui->txtEst_CodPos, empresa.estCodPos},
        {ui->txtEst_Localidad, empresa.estLocalidad},
        {ui->txtEst_Telefono, empresa.estTelefono},
        {ui->txtEst_Email, empresa.estEmail},
    };
    for (const auto& [campo, texto] : campos)
    {
        campo->setText(texto);
        campo->setCursorPosition(0);
    }
}

void Empresas::mostrarGrillas()
{
    std::vector<std::vector<QVariant>> filas;
    for (const FilaSucursal& fila : cargarSucursales(Rutinas::Conexion, ui->MaskCuit->text()))
    {
        filas.push_back(
            {fila.id, fila.sucursal, fila.domicilio, celda(fila.numero), fila.localidad, fila.codPos, fila.telefono});
    }
    ui->vsSucursales->cargar(std::exchange(filas, {}));
    for (const FilaResponsable& fila : cargarResponsables(Rutinas::Conexion, ui->MaskCuit->text()))
    {
        filas.push_back({fila.ayn, fila.tipoDoc, celda(fila.nroDoc), fila.domicilio, fila.localidad});
    }
    ui->vsResponsables->cargar(std::move(filas));
    ui->vsSucursales->pintarTodo(Grilla::blanco);
    ui->vsResponsables->pintarTodo(Grilla::blanco);
}

Empresa Empresas::empresaTipeada() const
{
    const int provincia = ui->cmbProvincia->currentIndex();
    return {.cuit = ui->MaskCuit->text(),
            .razon = ui->txtRazon->text(),
            .fantasia = ui->txtFantasia->text(),
            .calle = ui->txtCalle->text(),
            .numero = ui->txtNumero->text(),
            .nroLocal = ui->txtNroLocal->text(),
            .piso = ui->txtPiso->text(),
            .depto = ui->txtDepto->text(),
            .codPos = ui->txtCodPos->text(),
            .localidad = ui->txtLocalidad->text(),
            .provincia = provincia == -1 ? 0 : CodigosProvincia.at(static_cast<std::size_t>(provincia)),
            .nombreProvincia = ui->cmbProvincia->currentText(),
            .telefono = ui->txtTelefono->text(),
            .fax = ui->txtFax->text(),
            .rubro = ui->txtCodRubro->text(),
            .contacto = ui->txtContacto->text(),
            .web = ui->txtWeb->text(),
            .email = ui->txtEMail->text(),
            .estudio = ui->txtEstudio->text(),
            .estDomicilio = ui->txtEst_Domicilio->text(),
            .estCodPos = ui->txtEst_CodPos->text(),
            .estLocalidad = ui->txtEst_Localidad->text(),
            .estTelefono = ui->txtEst_Telefono->text(),
            .estEmail = ui->txtEst_Email->text()};
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
