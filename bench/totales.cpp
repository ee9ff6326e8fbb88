#include "declarations/totales_ddjj.h"

#include "base/db/conexion.h"
#include "base_grande.h"
#include "medida.h"

namespace
{
constexpr int chica = 10'000;
constexpr int millon = 1'000'000;
constexpr int veces = 20; ///< a person who walks the list with the arrow keys

/// What the screen shows, as numbers in one order, to compare the two ways.
using Numeros = std::vector<std::int64_t>;

Numeros numeros(const TotalesDDJJ& t)
{
    const SumasDDJJ& s = t.sumas.value();
    return {s.todos.remuneracion.diezMilesimos(),
            s.todos.empleados,
            s.todos.familiares,
            s.art100.diezMilesimos(),
            t.incompletos,
            t.jornadaReducida};
}

/// The four statements prepared once in bare SQLite.
class Desnudos
{
public:
    explicit Desnudos(const Taller& taller)
        : m_base(taller.ruta("DBBrivo.mdb").toStdString())
    {
    }
    Numeros sumar(const std::string& cuit)
    {
        for (desnuda::Sentencia* una : {&m_ddjj, &m_sumas, &m_incompletos, &m_reducida})
        {
            una->deNuevo();
            una->texto(1, cuit);
            una->texto(2, grande::periodo);
        }
        desnuda::exigir(m_ddjj.paso(), nullptr);
        Numeros suma(6);
        while (m_sumas.paso())
        {
            suma[0] += m_sumas.numero(1) + m_sumas.numero(7) + m_sumas.numero(8);
            suma[1] += m_sumas.numero(3);
            suma[2] += m_sumas.numero(2);
            suma[3] += m_sumas.numero(4);
        }
        m_incompletos.paso();
        suma[4] = m_incompletos.numero(0);
        m_reducida.paso();
        suma[5] = m_reducida.numero(0);
        for (desnuda::Sentencia* una : {&m_ddjj, &m_sumas, &m_incompletos, &m_reducida})
        {
            una->deNuevo();
        }
        return suma;
    }

private:
    desnuda::Base m_base;
    desnuda::Sentencia m_ddjj{*m_base, "SELECT * FROM DDJJ WHERE Cuit = ? AND Periodo = ? AND Secuencia = 0"};
    desnuda::Sentencia m_sumas{
        *m_base, "SELECT Afiliado, Sum(Imponible), Sum(Familiares), Count(Cuil), Sum(ART100), Sum(ART101A), "
                 "Sum(ART101B), Sum(Acuerdo), Sum(Acuerdo2) FROM DDJJ_Empleados "
                 "WHERE Cuit = ? AND Periodo = ? AND Secuencia = 0 GROUP BY Afiliado"};
    desnuda::Sentencia m_incompletos{
        *m_base, "SELECT Count(Cuil) FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = 0 AND "
                 "(TipoDoc = 0 OR NroDoc = 0 OR Sexo IS NULL OR Nacio IS NULL OR EstCivil = 0 OR Categoria = 0 OR "
                 "Ingreso IS NULL)"};
    desnuda::Sentencia m_reducida{
        *m_base, "SELECT Count(Cuil) FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND QHoras <> 200"};
};

/// The program's totals of one declaration, each time of another company.
class DelPrograma
{
public:
    explicit DelPrograma(const Taller& taller) { m_conexion.abrir(taller.ruta("DBBrivo.mdb")); }
    Numeros sumar(const std::string& cuit)
    {
        return numeros(calcularTotales(m_conexion, {QString::fromStdString(cuit), QDate(2009, 5, 1), 0}));
    }

private:
    Conexion m_conexion;
};

template <class Quien>
Numeros recorrer(Quien& quien)
{
    Numeros todos;
    for (int i = 0; i < veces; ++i)
    {
        const Numeros suyos = quien.sumar(grande::cuitNumero(i));
        todos.insert(todos.end(), suyos.begin(), suyos.end());
    }
    return todos;
}

template <class Referencia>
class CasoTotales : public medida::Caso
{
public:
    CasoTotales(int filasDeReferencia, int filas)
        : m_referencia(grande::base(filasDeReferencia))
        , m_programa(grande::base(filas))
    {
    }
    void referencia() override { m_deReferencia = recorrer(m_referencia); }
    void programa() override { m_delPrograma = recorrer(m_programa); }
    void comprobar() override
    {
        if (m_deReferencia != m_delPrograma)
        {
            throw std::runtime_error("los totales no son iguales");
        }
    }

private:
    Referencia m_referencia;
    DelPrograma m_programa;
    Numeros m_deReferencia;
    Numeros m_delPrograma;
};

const medida::Registro enChica{"20 totales entre 10.000 filas", "SQLite en C",
                               [] { return std::make_unique<CasoTotales<Desnudos>>(chica, chica); }};
const medida::Registro enGrande{"20 totales entre 1.000.000 de filas", "SQLite en C",
                                [] { return std::make_unique<CasoTotales<Desnudos>>(millon, millon); }};
const medida::Registro crecer{"20 totales entre 1.000.000 de filas", "entre 10.000 filas",
                              [] { return std::make_unique<CasoTotales<DelPrograma>>(chica, millon); }};
} // namespace
