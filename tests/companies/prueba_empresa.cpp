#include "apoyo/base_de_prueba.h"
#include "companies/catalogos.h"
#include "companies/guardar_empresa.h"
#include "core/lista_empresas.h"
#include "datos_empresa.h"
#include "platform/data/error_de_ejecucion.h"

#include <gtest/gtest.h>

namespace
{
struct PruebaEmpresa : testing::Test
{
    BaseDePrueba base;
    Conexion& conexion = base.conexion();

    [[nodiscard]] std::optional<QString> guardar(const Empresa& empresa, bool nueva)
    {
        return guardarEmpresa(conexion, {nueva, empresa, {}, {}});
    }
};

int numeroDeError(const std::function<void()>& accion)
{
    try
    {
        accion();
    }
    catch (const ErrorDeEjecucion& error)
    {
        return error.numero();
    }
    return 0;
}
} // namespace

TEST_F(PruebaEmpresa, CadaCampoVaYVuelve)
{
    EXPECT_EQ(guardar(empresaCompleta(), true), std::nullopt);
    EXPECT_EQ(cargarEmpresa(conexion, cuitUno), empresaCompleta());

    Empresa cambiada = empresaCompleta(cuitUno, QStringLiteral("Otra"));
    for (QString* texto :
         {&cambiada.fantasia, &cambiada.calle, &cambiada.nroLocal, &cambiada.piso, &cambiada.depto, &cambiada.codPos,
          &cambiada.localidad, &cambiada.telefono, &cambiada.fax, &cambiada.rubro, &cambiada.contacto, &cambiada.web,
          &cambiada.email, &cambiada.estudio, &cambiada.estDomicilio, &cambiada.estCodPos, &cambiada.estLocalidad,
          &cambiada.estTelefono, &cambiada.estEmail})
    {
        *texto = QStringLiteral("c") + *texto;
    }
    cambiada.numero = QStringLiteral("0");
    const EntradaDeCatalogo otra = leerCatalogo(conexion, Catalogo::Provincias).back();
    ASSERT_NE(otra.codigo, empresaCompleta().provincia);
    cambiada.provincia = otra.codigo;
    cambiada.nombreProvincia = otra.nombre;
    sembrarEmpresa(conexion, cuitDos);
    EXPECT_EQ(guardar(cambiada, false), std::nullopt);
    EXPECT_EQ(cargarEmpresa(conexion, cuitUno), cambiada);
    EXPECT_EQ(cargarEmpresa(conexion, cuitDos), empresaCompleta(cuitDos)); // nobody else's row
}

TEST_F(PruebaEmpresa, SinProvinciaEsUnErrorYSinEmpresaNo)
{
    sembrarEmpresa(conexion);
    conexion.ejecutar("UPDATE Empresas SET Provincia = 77");
    EXPECT_EQ(numeroDeError([&] { (void)cargarEmpresa(conexion, cuitUno); }), ErrorDeEjecucion::SinRegistro);
    EXPECT_EQ(cargarEmpresa(conexion, cuitDos), std::nullopt);
}

TEST_F(PruebaEmpresa, LoQueFallaDejaTodoComoEstaba)
{
    sembrarEmpresa(conexion);
    Empresa sinNumero = empresaCompleta(cuitDos);
    sinNumero.numero = QStringLiteral("12a");
    EXPECT_EQ(numeroDeError([&] { (void)guardar(sinNumero, true); }), ErrorDeEjecucion::NoCoincidenTipos);
    EXPECT_NE(numeroDeError([&] { (void)guardar(empresaCompleta(cuitUno, QStringLiteral("Copia")), true); }), 0);
    EXPECT_EQ(razonesDeEmpresas(conexion), QStringList{QStringLiteral("Panadería D'Angelo")});
    EXPECT_FALSE(conexion.enTransaccion());
}

TEST_F(PruebaEmpresa, LaEliminadaEnElOtroPuestoSeAvisaYNadaSeEscribe)
{
    EntradaEmpresa entrada{false, empresaCompleta(), {}, {}};
    entrada.sucursales.emplace(
        {FilaSucursal{0, QStringLiteral("1"), QStringLiteral("Calle"), 1, QStringLiteral("Berisso"), {}, {}}});
    const auto rechazo = guardarEmpresa(conexion, entrada);
    ASSERT_TRUE(rechazo);
    EXPECT_TRUE(rechazo->contains(cuitUno)) << rechazo->toStdString();
    EXPECT_EQ(contar(conexion, "FROM Empresas"), 0);
    EXPECT_EQ(contar(conexion, "FROM Empresas_Sucursales"), 0);
}

TEST_F(PruebaEmpresa, LosChequeosEnSuOrden)
{
    Empresa empresa;
    const auto falta = [&](bool hayProvincia = true) { return revisarEmpresa(empresa, hayProvincia); };
    const auto espera = [](CampoEmpresa campo, const char* texto) {
        return std::optional(FaltaEnEmpresa{campo, QString::fromUtf8(texto)});
    };

    empresa.cuit = QStringLiteral("__-________-_");
    EXPECT_EQ(falta(), espera(CampoEmpresa::Cuit, "Debe ingresar el Nro. de C.U.I.T. de la Empresa."));
    empresa.cuit = QStringLiteral("2_-________-_"); // no second test of the CUIT here
    EXPECT_EQ(falta(), espera(CampoEmpresa::Razon, "Debe ingresar la Razón Social de la Empresa."));
    empresa.razon = QStringLiteral(" ");
    EXPECT_EQ(falta(), espera(CampoEmpresa::Calle, "Debe informar la Calle correspondiente."));
    EXPECT_EQ(empresa.numero, QString());
    empresa.calle = QStringLiteral("7");
    EXPECT_EQ(falta(), espera(CampoEmpresa::CodPos, "Debe informar el Código Postal correspondiente."));
    EXPECT_EQ(empresa.numero, QStringLiteral("0"));
    empresa.codPos = QStringLiteral("1900");
    EXPECT_EQ(falta(), espera(CampoEmpresa::Localidad, "Debe informar la Localidad correspondiente."));
    empresa.localidad = QStringLiteral("Berisso");
    EXPECT_EQ(falta(false), espera(CampoEmpresa::Provincia, "Debe ingresar la Provincia correspondiente."));
    EXPECT_EQ(falta(), espera(CampoEmpresa::Rubro, "Debe informar el RUBRO correspondiente."));
    empresa.rubro = QStringLiteral("no existe"); // nor of the trade
    EXPECT_EQ(falta(), std::nullopt);
}

TEST_F(PruebaEmpresa, CuitNuevo)
{
    sembrarEmpresa(conexion);
    const std::pair<const char*, ExamenDeCuit::Estado> casos[] = {
        {"20-12345678-6", ExamenDeCuit::Existente},  {"30-50001091-2", ExamenDeCuit::Bueno},
        {"30-50001091-3", ExamenDeCuit::Incorrecto}, {"30-5000109_-2", ExamenDeCuit::Incorrecto},
        {"02-12345678-6", ExamenDeCuit::Incorrecto}, {"3_-________-_", ExamenDeCuit::Incorrecto},
    };
    for (const auto& [cuit, estado] : casos)
    {
        EXPECT_EQ(examinarCuitNuevo(conexion, QString::fromLatin1(cuit)).estado, estado) << cuit;
    }
    EXPECT_EQ(examinarCuitNuevo(conexion, cuitUno).razon, QStringLiteral("Panadería D'Angelo"));
}

TEST_F(PruebaEmpresa, LaBajaTomaLasTresTablasDeEsaEmpresaSola)
{
    for (const QString& cuit : {cuitUno, cuitDos})
    {
        sembrarEmpresa(conexion, cuit, QStringLiteral("Empresa ") + cuit);
        sembrarSucursal(conexion, cuit, QStringLiteral("1"), QStringLiteral("Berisso"));
        conexion.ejecutar("INSERT INTO Empresas_Responsables (CUIT, AyN) VALUES (?, 'Alguien')", cuit);
    }
    EXPECT_EQ(eliminarEmpresa(conexion, cuitUno), ImpedimentoDeBaja::Ninguno);
    for (const char* tabla : {"FROM Empresas", "FROM Empresas_Sucursales", "FROM Empresas_Responsables"})
    {
        EXPECT_EQ(contar(conexion, tabla), 1) << tabla;
    }
    EXPECT_EQ(cuitDeUnicaEmpresa(conexion), cuitDos);
}

TEST_F(PruebaEmpresa, ImpidenLaBajaDeclaracionesYDespuesPagos)
{
    sembrarEmpresa(conexion);
    conexion.ejecutar("INSERT INTO PAGOS (Cuit) VALUES (?)", cuitUno);
    EXPECT_EQ(impedimentoDeBaja(conexion, cuitUno), ImpedimentoDeBaja::Pagos);
    conexion.ejecutar("INSERT INTO DDJJ (Cuit, Periodo) VALUES (?, '2024-05-01')", cuitUno);
    EXPECT_EQ(impedimentoDeBaja(conexion, cuitUno), ImpedimentoDeBaja::Declaraciones);
    EXPECT_EQ(eliminarEmpresa(conexion, cuitUno), ImpedimentoDeBaja::Declaraciones);
    EXPECT_EQ(contar(conexion, "FROM Empresas"), 1);
    EXPECT_EQ(impedimentoDeBaja(conexion, cuitDos), ImpedimentoDeBaja::Ninguno);
}

TEST_F(PruebaEmpresa, LaBajaQueFallaEnElMedioNoBorraNada)
{
    sembrarEmpresa(conexion);
    sembrarSucursal(conexion, cuitUno, QStringLiteral("1"), QStringLiteral("Berisso"));
    conexion.ejecutar("CREATE TRIGGER traba BEFORE DELETE ON Empresas_Sucursales BEGIN SELECT RAISE(ABORT, 'no'); END");
    EXPECT_NE(numeroDeError([&] { (void)eliminarEmpresa(conexion, cuitUno); }), 0);
    EXPECT_TRUE(cargarEmpresa(conexion, cuitUno));
}

TEST_F(PruebaEmpresa, CatalogosPorNombre)
{
    const auto provincias = leerCatalogo(conexion, Catalogo::Provincias);
    ASSERT_GT(provincias.size(), 20U);
    EXPECT_EQ(provincias.front().nombre, QStringLiteral("Buenos Aires"));
    for (const Catalogo catalogo :
         {Catalogo::Provincias, Catalogo::Documentos, Catalogo::Categorias, Catalogo::Familiar, Catalogo::EstadoCivil})
    {
        const auto entradas = leerCatalogo(conexion, catalogo);
        ASSERT_FALSE(entradas.empty());
        for (std::size_t i = 1; i < entradas.size(); ++i)
        {
            EXPECT_LE(compararEspanol(entradas[i - 1].nombre.toStdString(), entradas[i].nombre.toStdString()), 0);
        }
        EXPECT_EQ(codigoDe(conexion, catalogo, entradas.back().nombre), entradas.back().codigo);
    }
    EXPECT_EQ(codigoDe(conexion, Catalogo::Documentos, QStringLiteral("ninguno")), std::nullopt);
    EXPECT_EQ(nombreDeRubro(conexion, QStringLiteral("")), std::nullopt);
}
