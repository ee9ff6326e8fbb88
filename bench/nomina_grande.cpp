#include "base/db/conexion.h"
#include "base_desnuda.h"
#include "declarations/copia_ddjj.h"
#include "medida.h"
#include "roster/busqueda_empleado.h"
#include "roster/sueldos.h"

#include <QFile>

namespace
{
constexpr int empleados = 20'000;
constexpr const char* cuit = "30-12345678-9";
constexpr const char* mayo = "2009-05-01";
const ClaveDDJJ original{QStringLiteral("30-12345678-9"), QDate(2009, 5, 1), 0};
const ClaveDDJJ rectificativa{QStringLiteral("30-12345678-9"), QDate(2009, 5, 1), 1};

std::string cuilNumero(int n)
{
    std::string digitos = std::to_string(n);
    return "20-" + std::string(8 - digitos.size(), '0') + digitos + "-1";
}

void llenar(const QString& ruta)
{
    desnuda::Base base(ruta.toStdString());
    base.ejecutar("BEGIN; INSERT INTO DDJJ VALUES ('30-12345678-9', '2009-05-01', 1, '2009-06-20')");
    desnuda::Sentencia fila(
        *base, "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, "
               "Localidad, Nacio, EstCivil, Categoria, Ingreso, Afiliado, QHoras, Sueldo, Imponible, ART100, ART101A, "
               "ART101B, Acuerdo, Acuerdo2) VALUES (?, ?, ?, ?, ?, 1, ?, 1, 'Ruta Nacional 7', 'San Rafael', "
               "'1970-01-01', 1, 11, '2001-02-03', 1, 200, 10000000, 10000000, 200000, 100000, 100000, 1000, 500)");
    for (int i = 0; i < empleados; ++i)
    {
        const std::string cuil = cuilNumero(i);
        const std::string nombre = (i % 3 == 0 ? "Ñúñez " : "Agüero ") + std::to_string(i * 7919 % empleados);
        for (const int secuencia : {0, 1})
        {
            fila.texto(1, cuit);
            fila.texto(2, mayo);
            fila.entero(3, secuencia);
            fila.texto(4, cuil);
            fila.texto(5, nombre);
            fila.entero(6, i);
            fila.correr();
        }
    }
    base.ejecutar("COMMIT");
}

/// Two databases, each with a declaration and its rectification of 20,000 people; every run finds them as they were.
class CasoNomina : public medida::Caso
{
public:
    CasoNomina()
    {
        m_taller.ponerBase("llena.mdb");
        llenar(m_taller.ruta("llena.mdb"));
    }
    void antesDeReferencia() override { m_desnuda = std::make_unique<desnuda::Base>(fresca("uno.mdb").toStdString()); }
    void antesDePrograma() override
    {
        m_conexion.cerrar();
        m_conexion.abrir(fresca("dos.mdb"));
    }
    void comprobar() override
    {
        m_conexion.cerrar();
        m_desnuda.reset();
        constexpr const char* todo = "SELECT * FROM DDJJ_Empleados";
        if (desnuda::volcar(m_taller.ruta("uno.mdb").toStdString(), todo) !=
            desnuda::volcar(m_taller.ruta("dos.mdb").toStdString(), todo))
        {
            throw std::runtime_error("las nóminas no son iguales");
        }
    }

protected:
    std::unique_ptr<desnuda::Base> m_desnuda;
    Conexion m_conexion;

private:
    [[nodiscard]] QString fresca(const char* nombre) const
    {
        QFile::remove(m_taller.ruta(nombre));
        desnuda::exigir(QFile::copy(m_taller.ruta("llena.mdb"), m_taller.ruta(nombre)), nullptr);
        return m_taller.ruta(nombre);
    }
    Taller m_taller;
};

class CasoCopia : public CasoNomina
{
public:
    void referencia() override
    {
        m_desnuda->ejecutar(
            "BEGIN IMMEDIATE;"
            "DELETE FROM DDJJ_Empleados WHERE Cuit = '30-12345678-9' AND Periodo = '2009-05-01' AND Secuencia = 1;"
            "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, Numero, "
            "Piso, Depto, CodPos, Localidad, Provincia, Telefono, Nacio, EstCivil, Afiliado, Sueldo, Imponible, "
            "Categoria, Ingreso, Egreso, Sucursal, QHoras, ART100, ART101A, ART101B, Acuerdo, Acuerdo2) "
            "SELECT Cuit, '2009-05-01', 1, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, Numero, Piso, Depto, CodPos, "
            "Localidad, Provincia, Telefono, Nacio, EstCivil, Afiliado, Sueldo, Imponible, Categoria, Ingreso, "
            "Egreso, Sucursal, QHoras, ART100, ART101A, ART101B, Acuerdo + Acuerdo2, 0 FROM DDJJ_Empleados "
            "WHERE Cuit = '30-12345678-9' AND Periodo = '2009-05-01' AND Secuencia = 0;"
            "COMMIT");
    }
    void programa() override { copiarNomina(m_conexion, rectificativa, original); }
};

class CasoSueldos : public CasoNomina
{
public:
    void referencia() override
    {
        m_desnuda->ejecutar("BEGIN IMMEDIATE");
        desnuda::Sentencia leer(**m_desnuda, "SELECT Imponible, Acuerdo, Acuerdo2, QHoras, Afiliado FROM "
                                             "DDJJ_Empleados WHERE CUIT = ? AND Periodo = ? AND Secuencia = ? AND "
                                             "Cuil = ?");
        desnuda::Sentencia escribir(**m_desnuda, "UPDATE DDJJ_Empleados SET Imponible = ?, ART100 = ?, ART101A = ?, "
                                                 "ART101B = ?, Acuerdo = ?, Acuerdo2 = 0 WHERE CUIT = ? AND "
                                                 "Periodo = ? AND Secuencia = ? AND Cuil = ?");
        for (int i = 0; i < empleados; ++i)
        {
            const std::string cuil = cuilNumero(i);
            leer.texto(1, cuit);
            leer.texto(2, mayo);
            leer.entero(3, 0);
            leer.texto(4, cuil);
            desnuda::exigir(leer.paso(), nullptr);
            const std::int64_t sueldo = nuevo(i).diezMilesimos();
            if (leer.numero(0) != sueldo)
            {
                escribir.entero(1, sueldo);
                escribir.entero(2, sueldo / 50);
                escribir.entero(3, sueldo / 100);
                escribir.entero(4, sueldo / 100);
                escribir.entero(5, 0);
                escribir.texto(6, cuit);
                escribir.texto(7, mayo);
                escribir.entero(8, 0);
                escribir.texto(9, cuil);
                escribir.correr();
            }
            leer.deNuevo();
        }
        m_desnuda->ejecutar("COMMIT");
    }
    void antesDePrograma() override
    {
        CasoNomina::antesDePrograma();
        m_filas = cargarSueldos(m_conexion, original);
        for (int i = 0; i < empleados; ++i)
        {
            FilaSueldo& fila = m_filas[static_cast<std::size_t>(i)];
            fila.sueldo = nuevo(i);
            fila.acuerdo = {};
        }
    }
    void programa() override
    {
        if (actualizarSueldos(m_conexion, original, m_filas, {}) != empleados)
        {
            throw std::runtime_error("no todas se escribieron");
        }
    }

private:
    static Moneda nuevo(int i) { return Moneda::deEntero(2000 + i % 500); }
    std::vector<FilaSueldo> m_filas;
};

class CasoBusqueda : public CasoNomina
{
public:
    explicit CasoBusqueda(bool porNombre)
        : m_porNombre(porNombre)
    {
    }
    void referencia() override
    {
        const std::string sql =
            std::string("SELECT Cuil, AyN, ART101A FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? "
                        "AND Secuencia = ?") +
            (m_porNombre ? " AND AyN LIKE '%ez 1%' ORDER BY Cuil" : " ORDER BY AyN");
        desnuda::Sentencia buscar(**m_desnuda, sql.c_str());
        buscar.texto(1, cuit);
        buscar.texto(2, mayo);
        buscar.entero(3, 0);
        m_desnudos.clear();
        while (buscar.paso())
        {
            const std::string_view cuil = buscar.leer(0);
            const std::string_view ayn = buscar.leer(1);
            m_desnudos.push_back({QString::fromUtf8(cuil.data(), static_cast<qsizetype>(cuil.size())),
                                  QString::fromUtf8(ayn.data(), static_cast<qsizetype>(ayn.size())),
                                  buscar.numero(2) != 0});
        }
    }
    void programa() override
    {
        m_hallados = buscarEmpleados(m_conexion, original, QStringLiteral("__-________-_"),
                                     m_porNombre ? QStringLiteral("ez 1") : QString(), FiltroAfiliado::Todos);
    }
    void comprobar() override
    {
        const auto iguales = [](const EmpleadoHallado& a, const EmpleadoHallado& b)
        { return a.cuil == b.cuil && a.ayn == b.ayn && a.afiliado == b.afiliado; };
        if (m_hallados.empty() ||
            !std::equal(m_hallados.begin(), m_hallados.end(), m_desnudos.begin(), m_desnudos.end(), iguales))
        {
            throw std::runtime_error("no hallaron lo mismo");
        }
    }

private:
    bool m_porNombre;
    std::vector<EmpleadoHallado> m_desnudos;
    std::vector<EmpleadoHallado> m_hallados;
};

const medida::Registro copia{"copia de una nómina de 20.000", "SQLite en C",
                             [] { return std::make_unique<CasoCopia>(); }};
const medida::Registro sueldos{"20.000 sueldos nuevos", "SQLite en C", [] { return std::make_unique<CasoSueldos>(); }};
const medida::Registro todos{"búsqueda entre 20.000, todos", "SQLite en C",
                             [] { return std::make_unique<CasoBusqueda>(false); }};
const medida::Registro porNombre{"búsqueda entre 20.000, por nombre", "SQLite en C",
                                 [] { return std::make_unique<CasoBusqueda>(true); }};
} // namespace
