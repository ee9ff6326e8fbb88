#include "roster/empleado.h"

#include "base/db/conexion.h"
#include "base_desnuda.h"
#include "medida.h"
#include "roster/familiares.h"

#include <array>
#include <map>
#include <utility>

namespace
{
constexpr int pasos = 19; ///< from the first of twenty employees to the last
constexpr int vueltas = 20;
constexpr const char* periodo = "2009-05-01";

std::string numerada(const char* prefijo, int n)
{
    std::string digitos = std::to_string(n);
    return prefijo + std::string(8 - digitos.size(), '0') + digitos + "-1";
}

/// So many companies, each with one declaration of so many employees; every employee has a child.
struct Tamano
{
    int empresas;
    int nomina;
    bool operator<(const Tamano& otro) const
    {
        return std::pair(empresas, nomina) < std::pair(otro.empresas, otro.nomina);
    }
    [[nodiscard]] std::string cuit() const { return numerada("30-", empresas / 2); }
};

const Taller& base(Tamano tamano)
{
    static std::map<Tamano, Taller> hechas;
    const auto [lugar, nueva] = hechas.try_emplace(tamano);
    if (!nueva)
    {
        return lugar->second;
    }
    lugar->second.ponerBase("DBBrivo.mdb");
    desnuda::Base escrita(lugar->second.ruta("DBBrivo.mdb").toStdString());
    escrita.ejecutar("PRAGMA cache_size=-65536; BEGIN");
    desnuda::Sentencia fila(
        *escrita, "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, "
                  "Numero, Localidad, CodPos, Provincia, Telefono, Nacio, EstCivil, Categoria, Ingreso, Afiliado, "
                  "QHoras, Sueldo, Imponible, ART100, ART101A, ART101B, Sucursal) VALUES (?, ?, 0, ?, "
                  "'Agüero Juan Carlos', 1, 12345678, 1, 'Ruta Nacional 7', 123, 'San Rafael', '5600', 7, "
                  "'0260 442-1234', '1970-01-01', 1, 11, '2001-02-03', 1, 200, 10000000, 10000000, 200000, 100000, "
                  "100000, 1)");
    for (int empresa = 0; empresa < tamano.empresas; ++empresa)
    {
        const std::string cuit = numerada("30-", empresa);
        for (int i = 0; i < tamano.nomina; ++i)
        {
            const std::string cuil = numerada("20-", i);
            fila.texto(1, cuit);
            fila.texto(2, periodo);
            fila.texto(3, cuil);
            fila.correr();
        }
    }
    desnuda::Sentencia hijo(*escrita, "INSERT INTO Empleados_Familiares VALUES (?, 2, 'Agüero Luis', 1, 45678901, 1, "
                                      "'2005-06-07')");
    for (int i = 0; i < tamano.nomina; ++i)
    {
        const std::string cuil = numerada("20-", i);
        hijo.texto(1, cuil);
        hijo.correr();
    }
    desnuda::Sentencia sucursal(*escrita, "UPDATE Empresas_Sucursales SET CUIT = ? WHERE ID = 1");
    const std::string cuit = tamano.cuit();
    sucursal.texto(1, cuit);
    sucursal.correr();
    escrita.ejecutar("COMMIT");
    return lugar->second;
}

/// What a walk found, to compare the two ways.
struct Hallado
{
    std::string ultimo;
    std::int64_t importes = 0;
    std::size_t letras = 0;
    friend bool operator==(const Hallado&, const Hallado&) = default;
};

/// The three statements of one step, prepared once in bare SQLite, every value read as the screen needs it.
class Desnudo
{
public:
    explicit Desnudo(Tamano tamano)
        : m_base(base(tamano).ruta("DBBrivo.mdb").toStdString())
        , m_cuit(tamano.cuit())
    {
    }
    Hallado recorrer()
    {
        Hallado suma;
        for (int i = 0; i < pasos; ++i)
        {
            m_siguiente.deNuevo();
            m_siguiente.texto(1, m_cuit);
            m_siguiente.texto(2, periodo);
            m_siguiente.texto(3, suma.ultimo);
            desnuda::exigir(m_siguiente.paso(), *m_base);
            suma.importes += m_siguiente.numero(20);
            suma.letras += leerTextos(m_siguiente, m_textos);
            std::string cuil(m_siguiente.leer(3));
            const std::int64_t sucursal = m_siguiente.numero(24);
            m_siguiente.deNuevo(); // a box can come before the rest is read: no lock is held over it
            suma.letras += leerSucursal(sucursal) + leerFamilia(cuil);
            suma.ultimo = std::move(cuil);
        }
        return suma;
    }

private:
    template <std::size_t N>
    static std::size_t leerTextos(const desnuda::Sentencia& fila, std::array<std::string, N>& textos)
    {
        constexpr int nombre = 4;
        for (std::size_t i = 0; i < N; ++i)
        {
            textos[i] = fila.leer(static_cast<int>(i));
        }
        return N > nombre ? textos[nombre].size() : 0;
    }
    std::size_t leerSucursal(std::int64_t id)
    {
        m_sucursal.entero(1, id);
        m_sucursal.texto(2, m_cuit);
        desnuda::exigir(m_sucursal.paso(), *m_base);
        const std::size_t letras = m_sucursal.leer(2).size();
        m_sucursal.deNuevo();
        return letras;
    }
    std::size_t leerFamilia(const std::string& cuil)
    {
        std::array<std::string, 6> textos;
        std::size_t letras = 0;
        m_familia.texto(1, cuil);
        while (m_familia.paso())
        {
            leerTextos(m_familia, textos);
            letras += textos[3].size();
        }
        m_familia.deNuevo();
        return letras;
    }

    desnuda::Base m_base;
    std::string m_cuit;
    std::array<std::string, 36> m_textos;
    desnuda::Sentencia m_siguiente{
        *m_base,
        "SELECT DDJJ_Empleados.*, Documentos.Nombre AS Nombre_DOC, Provincias.Nombre AS Nombre_PRO, EstadoCivil.Nombre "
        "AS Nombre_EST, Categorias.Nombre AS Nombre_CAT FROM DDJJ_Empleados LEFT JOIN Documentos ON "
        "DDJJ_Empleados.TipoDoc = Documentos.Codigo LEFT JOIN Provincias ON DDJJ_Empleados.Provincia = "
        "Provincias.Codigo LEFT JOIN EstadoCivil ON DDJJ_Empleados.EstCivil = EstadoCivil.Codigo LEFT JOIN Categorias "
        "ON DDJJ_Empleados.Categoria = Categorias.Codigo WHERE DDJJ_Empleados.Cuit = ? AND DDJJ_Empleados.Periodo = ? "
        "AND DDJJ_Empleados.Secuencia = 0 AND DDJJ_Empleados.Cuil > ? ORDER BY DDJJ_Empleados.Cuil"};
    desnuda::Sentencia m_sucursal{*m_base, "SELECT * FROM Empresas_Sucursales WHERE ID = ? AND Cuit = ?"};
    desnuda::Sentencia m_familia{
        *m_base, "SELECT Familiar.Nombre, Documentos.Nombre, NroDoc, AyN, Sexo, Nacio FROM Empleados_Familiares INNER "
                 "JOIN Familiar ON Empleados_Familiares.Familiar = Familiar.Codigo INNER JOIN Documentos ON "
                 "Documentos.Codigo = Empleados_Familiares.TipoDoc WHERE Empleados_Familiares.CUIL = ? ORDER BY "
                 "Familiar.Nombre, Empleados_Familiares.Nacio DESC"};
};

class DelPrograma
{
public:
    explicit DelPrograma(Tamano tamano)
        : m_clave{QString::fromStdString(tamano.cuit()), QDate(2009, 5, 1), 0}
    {
        m_conexion.abrir(base(tamano).ruta("DBBrivo.mdb"));
    }
    Hallado recorrer()
    {
        Hallado suma;
        QString cuil;
        for (int i = 0; i < pasos; ++i)
        {
            const Empleado empleado = cargarEmpleado(m_conexion, m_clave, AccionEmpleado::Siguiente, cuil).value();
            cuil = empleado.cuil;
            suma.importes += empleado.imponible.diezMilesimos();
            const QString sucursal = textoSucursal(m_conexion, empleado.sucursal, m_clave.cuit).value();
            suma.letras += static_cast<std::size_t>(empleado.ayn.toUtf8().size()) +
                           static_cast<std::size_t>(sucursal.section(QLatin1Char(' '), 0, 0).size());
            for (const FilaFamiliar& fila : cargarFamiliares(m_conexion, cuil))
            {
                suma.letras += static_cast<std::size_t>(fila.ayn.toUtf8().size());
            }
        }
        suma.ultimo = cuil.toStdString();
        return suma;
    }

private:
    Conexion m_conexion;
    ClaveDDJJ m_clave;
};

template <class Referencia>
class CasoSiguiente : public medida::Caso
{
public:
    CasoSiguiente(Tamano deReferencia, Tamano tamano)
        : m_referencia(deReferencia)
        , m_programa(tamano)
    {
    }
    void referencia() override { m_deReferencia = muchas(m_referencia); }
    void programa() override { m_delPrograma = muchas(m_programa); }
    void comprobar() override
    {
        if (m_deReferencia != m_delPrograma)
        {
            throw std::runtime_error("no se llegó al mismo empleado");
        }
    }

private:
    template <class Quien>
    static Hallado muchas(Quien& quien)
    {
        Hallado ultima;
        for (int i = 0; i < vueltas; ++i)
        {
            ultima = quien.recorrer();
        }
        return ultima;
    }
    Referencia m_referencia;
    DelPrograma m_programa;
    Hallado m_deReferencia;
    Hallado m_delPrograma;
};

constexpr Tamano chica{1, 20};
constexpr Tamano larga{1, 20'000};
constexpr Tamano millon{2'000, 500};

const medida::Registro enChica{"380 empleados siguientes, nómina de 20", "SQLite en C",
                               [] { return std::make_unique<CasoSiguiente<Desnudo>>(chica, chica); }};
const medida::Registro enLarga{"380 empleados siguientes, nómina de 20.000", "SQLite en C",
                               [] { return std::make_unique<CasoSiguiente<Desnudo>>(larga, larga); }};
const medida::Registro enMillon{"380 empleados siguientes, 1.000.000 de filas", "SQLite en C",
                                [] { return std::make_unique<CasoSiguiente<Desnudo>>(millon, millon); }};
const medida::Registro crecer{"380 empleados siguientes, 1.000.000 de filas", "nómina de 20",
                              [] { return std::make_unique<CasoSiguiente<DelPrograma>>(chica, millon); }};
} // namespace
