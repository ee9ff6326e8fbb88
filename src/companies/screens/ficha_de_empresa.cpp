#include "companies/screens/ficha_de_empresa.h"

#include "companies/catalogos.h"
#include "core/rutinas.h"
#include "ui/fields/campo_mascara.h"
#include "ui/grid/grilla.h"
#include "ui/look/estilo.h"
#include "ui/shell/campos.h"
#include "ui_empresas.h"

#include <algorithm>

namespace
{
// Columns of the grids.
constexpr int sucursalId = 1;
constexpr int sucursalCodigo = 2;
constexpr int responsableAyN = 1;
constexpr int responsableTipo = 2;

QVariant celda(const std::optional<qint64>& numero)
{
    return numero ? QVariant(*numero) : QVariant();
}

std::optional<qint64> numeroDeCelda(const Grilla& grilla, int columna, int fila)
{
    return grilla.celdaVacia(columna, fila) ? std::nullopt : std::optional(grilla.entero(columna, fila));
}

// Rows of the grids, cell by cell: there and back.
FilaDeGrilla celdasDeSucursal(const FilaSucursal& s)
{
    return {s.id, s.sucursal, s.domicilio, celda(s.numero), s.localidad, s.codPos, s.telefono};
}

FilaSucursal sucursalDeFila(const Grilla& g, int fila)
{
    return {.id = g.entero(sucursalId, fila),
            .sucursal = g.texto(sucursalCodigo, fila),
            .domicilio = g.texto(3, fila),
            .numero = numeroDeCelda(g, 4, fila),
            .localidad = g.texto(5, fila),
            .codPos = g.texto(6, fila),
            .telefono = g.texto(7, fila)};
}

FilaDeGrilla celdasDeResponsable(const FilaResponsable& r)
{
    return {r.ayn, r.tipoDoc, celda(r.nroDoc), r.domicilio, r.localidad};
}

FilaResponsable responsableDeFila(const Grilla& g, int fila)
{
    return {.ayn = g.texto(responsableAyN, fila),
            .tipoDoc = g.texto(responsableTipo, fila),
            .nroDoc = numeroDeCelda(g, 3, fila),
            .domicilio = g.texto(4, fila),
            .localidad = g.texto(5, fila)};
}

/// All rows of a grid that was touched.
template <class F>
std::optional<std::vector<F>> filasTocadas(const Grilla& grilla, F (*leer)(const Grilla&, int))
{
    if (!grilla.cambiada())
    {
        return std::nullopt;
    }
    std::vector<F> filas;
    for (int fila = 1; fila <= grilla.filas(); ++fila)
    {
        filas.push_back(leer(grilla, fila));
    }
    return filas;
}

/// The rows can be edited; one is added after the last only when that one is in use, and any may be deleted.
void permitirEdicion(Grilla* grilla, int columnaClave)
{
    grilla->setEditable(true); // they lie in fraDatos
    grilla->setPintaActual(true);
    grilla->setTeclasDeFila([grilla, columnaClave] { return !grilla->celdaVacia(columnaClave, grilla->filas()); },
                            [](int) { return true; });
}
} // namespace

FichaDeEmpresa::FichaDeEmpresa(const Ui::Empresas& ui)
    : m_cuit(ui.MaskCuit)
    , m_provincia(ui.cmbProvincia)
    , m_nombreDeRubro(ui.txtNomRubro)
    , m_sucursales(ui.vsSucursales)
    , m_responsables(ui.vsResponsables)
    , m_textos{
          {ui.txtRazon, &Empresa::razon},
          {ui.txtFantasia, &Empresa::fantasia},
          {ui.txtCalle, &Empresa::calle},
          {ui.txtNumero, &Empresa::numero},
          {ui.txtNroLocal, &Empresa::nroLocal},
          {ui.txtPiso, &Empresa::piso},
          {ui.txtDepto, &Empresa::depto},
          {ui.txtCodPos, &Empresa::codPos},
          {ui.txtLocalidad, &Empresa::localidad},
          {ui.txtTelefono, &Empresa::telefono},
          {ui.txtFax, &Empresa::fax},
          {ui.txtCodRubro, &Empresa::rubro},
          {ui.txtContacto, &Empresa::contacto},
          {ui.txtWeb, &Empresa::web},
          {ui.txtEMail, &Empresa::email},
          {ui.txtEstudio, &Empresa::estudio},
          {ui.txtEst_Domicilio, &Empresa::estDomicilio},
          {ui.txtEst_CodPos, &Empresa::estCodPos},
          {ui.txtEst_Localidad, &Empresa::estLocalidad},
          {ui.txtEst_Telefono, &Empresa::estTelefono},
          {ui.txtEst_Email, &Empresa::estEmail},
      }
{
    soloDigitos(ui.txtNumero);
    soloDigitos(ui.txtCodRubro);
    Estilo::soloMuestra({m_nombreDeRubro});
    using C = ColumnaDeGrilla;
    m_sucursales->setColumnas({
        {.clase = C::Fija, .ancho = 0},
        {.clase = C::Texto, .titulo = QStringLiteral("Suc."), .ancho = 110},
        {.clase = C::Texto, .titulo = QStringLiteral("Domicilio: Calle"), .ancho = -1},
        {.clase = C::Entero, .titulo = QStringLiteral("Número"), .ancho = 70},
        {.clase = C::Texto, .titulo = QStringLiteral("Localidad"), .ancho = 220},
        {.clase = C::Texto, .titulo = QStringLiteral("Cód.Pos."), .ancho = 80},
        {.clase = C::Texto, .titulo = QStringLiteral("Teléfono"), .ancho = 140},
    });
    m_responsables->setColumnas({
        {.clase = C::Texto, .titulo = QStringLiteral("Apellido y Nombre"), .ancho = 260},
        {.clase = C::Lista, .titulo = QStringLiteral("Tipo"), .ancho = 80},
        {.clase = C::Entero, .titulo = QStringLiteral("Documento"), .ancho = 100},
        {.clase = C::Texto, .titulo = QStringLiteral("Domicilio"), .ancho = -1},
        {.clase = C::Texto, .titulo = QStringLiteral("Localidad"), .ancho = 220},
    });
    permitirEdicion(m_sucursales, sucursalCodigo);
    permitirEdicion(m_responsables, responsableAyN);
}

void FichaDeEmpresa::cargarListas()
{
    for (const EntradaDeCatalogo& provincia : leerCatalogo(Rutinas::Conexion, Catalogo::Provincias))
    {
        m_provincia->addItem(provincia.nombre, provincia.codigo);
    }
    m_provincia->setCurrentIndex(-1);
    m_responsables->setOpciones(responsableTipo, nombresDe(leerCatalogo(Rutinas::Conexion, Catalogo::Documentos)));
}

void FichaDeEmpresa::llenar(const Empresa& empresa)
{
    for (const auto& [campo, texto] : m_textos)
    {
        campos::ponerEntero(campo, empresa.*texto);
    }
    m_nombreDeRubro->clear();
}

void FichaDeEmpresa::mostrar(EmpresaLeida leida)
{
    llenar(leida.empresa);
    m_provincia->setCurrentIndex(m_provincia->findText(leida.empresa.nombreProvincia));
    m_sucursales->cargar(leida.sucursales, celdasDeSucursal);
    m_responsables->cargar(leida.responsables, celdasDeResponsable);
    m_leida = std::move(leida);
}

void FichaDeEmpresa::limpiar()
{
    m_leida.reset();
    m_cuit->limpiar();
    llenar({});
    m_provincia->setCurrentIndex(0);
    m_sucursales->setFilas(0);
    m_responsables->setFilas(0);
}

void FichaDeEmpresa::agregarFilas()
{
    for (Grilla* grilla : {m_sucursales, m_responsables})
    {
        grilla->setFilas(grilla->filas() + 1);
        grilla->setFilaActual(grilla->filas());
        grilla->setCambiada(false);
    }
}

bool FichaDeEmpresa::confirmarEdicion()
{
    return m_sucursales->confirmarEdicion() && m_responsables->confirmarEdicion();
}

EntradaEmpresa FichaDeEmpresa::entrada() const
{
    Empresa empresa;
    empresa.cuit = m_cuit->text();
    empresa.provincia = m_provincia->currentData().toLongLong();
    empresa.nombreProvincia = m_provincia->currentText();
    for (const auto& [campo, texto] : m_textos)
    {
        empresa.*texto = campo->text();
    }
    return {.nueva = m_cuit->isEnabled(),
            .empresa = std::move(empresa),
            .sucursales = filasTocadas(*m_sucursales, sucursalDeFila),
            .responsables = filasTocadas(*m_responsables, responsableDeFila),
            .leida = m_leida};
}

void FichaDeEmpresa::guardada(const EntradaEmpresa& entrada)
{
    m_leida = entrada.leida;
    for (int fila = 1; const FilaSucursal& sucursal : entrada.sucursales.value_or(std::vector<FilaSucursal>()))
    {
        m_sucursales->setValor(sucursalId, fila, sucursal.id);
        ++fila;
    }
}

void FichaDeEmpresa::quitarEliminadas()
{
    const std::vector<FilaSucursal> quedan = cargarSucursales(Rutinas::Conexion, m_cuit->text());
    const auto falta = [&](qint64 id)
    {
        return id != 0 && std::none_of(quedan.begin(), quedan.end(),
                                       [id](const FilaSucursal& sucursal) { return sucursal.id == id; });
    };
    if (m_leida)
    {
        std::erase_if(m_leida->sucursales, [&](const FilaSucursal& sucursal) { return falta(sucursal.id); });
    }
    for (int fila = m_sucursales->filas(); fila > 0; --fila)
    {
        if (falta(m_sucursales->entero(sucursalId, fila)))
        {
            m_sucursales->borrarFila(fila);
        }
    }
}
