// Two copies of the program at work on one company of one database. Each is a process of its own that creates
// declarations, imports rosters, saves employees with their family, and deletes employees and declarations. What it was
// told is done it does once more in a database that it has for itself; at the end the common one holds exactly what the
// two others hold together. The one error that may come is that the database is busy, with nothing of its action done.
// ALTOVERDE_SEGUNDOS sets the duration, ALTOVERDE_SEMILLA makes other choices.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/hijo.h"
#include "base/directorio_programa.h"
#include "declarations/ciclo_ddjj.h"
#include "exchange/archivo_uno.h"
#include "exchange/importacion.h"
#include "fallos/base_grande.h"
#include "roster/empleado.h"

#include <QDir>
#include <random>
#include <sqlite3.h>

namespace
{
/// A declaration that stands from the start and is never deleted, with one employee whom both copies save.
const ClaveDDJJ comun{dePrueba::cuit, QDate(2008, 1, 1), 0};
/// One copy at work.
class Puesto
{
public:
    Puesto(int numero, unsigned semilla)
        : m_numero(numero)
        , m_azar(semilla)
    {
        m_propia.abrir(Rutinas::RutaApp + QStringLiteral("propia%1.mdb").arg(numero));
        m_propia.ejecutar("PRAGMA synchronous = OFF");
    }

    void trabajar(int acciones)
    {
        for (; acciones > 0; --acciones)
        {
            try
            {
                unaAccion(alAzar(5));
            }
            catch (const ErrorDeEjecucion& error)
            {
                ArchivoUno::cerrar(); // a failed import leaves its file open, as told
                ASSERT_EQ(SQLITE_BUSY, error.numero() & 0xFF) << error.what();
            }
        }
    }

private:
    void unaAccion(int cual)
    {
        cual == 0   ? importar(crear(QDate(2009, 1 + alAzar(12), 1)))
        : cual == 1 ? guardar(comun)
        : cual == 2 ? guardar(unaPropia())
        : cual == 3 ? borrarEmpleado(unaPropia())
                    : enLasDos([clave = unaPropia()](Conexion& base) { eliminarDeclaracion(base, clave); });
    }

    int alAzar(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_azar); }
    /// In the common database, and then in the own one.
    template <class Regla>
    void enLasDos(Regla regla)
    {
        regla(Rutinas::Conexion);
        regla(m_propia);
    }
    /// Eleven digits that no other employee of the run has.
    QString unCuil() { return QStringLiteral("%1%2").arg(20 + m_numero).arg(++m_ultimo, 9, 10, QLatin1Char('0')); }

    ClaveDDJJ crear(QDate periodo)
    {
        const QDate hoy(2009, 6, 3);
        const int secuencia = crearDeclaracion(Rutinas::Conexion, comun.cuit, periodo, hoy);
        m_propia.ejecutar("INSERT INTO DDJJ VALUES (?, ?, ?, ?)", comun.cuit, periodo, secuencia, hoy);
        return {comun.cuit, periodo, secuencia};
    }
    ClaveDDJJ unaPropia()
    {
        const Recordset una = m_propia.consultar(
            "SELECT Periodo, Secuencia FROM DDJJ WHERE Periodo LIKE '2009%' LIMIT 1 OFFSET ?", alAzar(20));
        return una.vacio() ? crear(QDate(2009, 1, 1))
                           : ClaveDDJJ{comun.cuit, una.primera().fecha("Periodo"),
                                       static_cast<int>(una.primera().entero("Secuencia"))};
    }
    void importar(const ClaveDDJJ& clave)
    {
        QByteArray lineas;
        for (int i = alAzar(60); i >= 0; --i)
        {
            lineas += lineaDeNomina(unCuil().toLatin1(), 100 + alAzar(9000));
        }
        const QString ruta = Rutinas::RutaApp + QStringLiteral("nomina%1.txt").arg(m_numero);
        escribirArchivo(ruta, lineas);
        enLasDos([&](Conexion& base) { (void)importarNomina(base, clave, ruta, FormatoDeNomina::AfipSijp); });
    }
    /// The common one, one who is there already, or a new one; with one dependant or none.
    void guardar(const ClaveDDJJ& clave)
    {
        const bool esComun = clave.periodo == comun.periodo;
        const QString alguno = alAzar(2) == 0 || esComun ? unEmpleado(clave) : QString();
        EntradaEmpleado e = entrada(alguno.isEmpty() ? unCuil() : alguno, 100 + alAzar(9000), alguno.isEmpty());
        if (!esComun && alAzar(2) == 0)
        {
            e.familia.push_back({QStringLiteral("Hijo"), QStringLiteral("DNI"), 45678901, e.cuil,
                                 QStringLiteral("Fem."), QDate(2004, 2, 29)});
        }
        enLasDos([&](Conexion& base) { EXPECT_TRUE(guardarEmpleado(base, clave, e)); });
    }
    QString unEmpleado(const ClaveDDJJ& clave)
    {
        const Recordset uno = m_propia.consultar("SELECT Cuil FROM DDJJ_Empleados WHERE Periodo = ? AND Secuencia = ?",
                                                 clave.periodo, clave.secuencia);
        return uno.vacio() ? QString() : uno.primera().texto("Cuil");
    }
    void borrarEmpleado(const ClaveDDJJ& clave)
    {
        if (const QString cuil = unEmpleado(clave); !cuil.isEmpty())
        {
            enLasDos([&](Conexion& base) { eliminarEmpleado(base, clave, cuil); });
        }
    }
    int m_numero;
    std::mt19937 m_azar;
    Conexion m_propia;
    int m_ultimo = 0;
};

/// The common table holds the rows of the two others.
void comparar(const std::string& tabla, const std::string& donde)
{
    const std::string suya = "SELECT * FROM main." + tabla + donde;
    const std::string juntas =
        "SELECT * FROM (SELECT * FROM p0." + tabla + " UNION ALL SELECT * FROM p1." + tabla + ")" + donde;
    EXPECT_EQ("", filas(juntas + " EXCEPT " + suya + " LIMIT 3")) << tabla << ": lost";
    EXPECT_EQ("", filas(suya + " EXCEPT " + juntas + " LIMIT 3")) << tabla << ": nobody wrote it";
    EXPECT_EQ(cuantos("(" + juntas + ")"), cuantos("(" + suya + ")")) << tabla;
}
} // namespace

TEST(DosCopias, NadaSePierde)
{
    const BaseDePrueba base;
    poner("Empresas");
    poner("DDJJ", {{"Periodo", comun.periodo}});
    poner("DDJJ_Empleados", {{"Periodo", comun.periodo}});
    Rutinas::CerrarBase();
    const auto copia = [&](int numero)
    {
        EXPECT_TRUE(QFile::copy(base.rutaBase(), base.ruta(QStringLiteral("propia%1.mdb").arg(numero))));
        return QStringLiteral("%1|%2|%3|%4")
            .arg(base.ruta({}))
            .arg(numero)
            .arg(pedido("ALTOVERDE_SEMILLA", 1) + numero)
            .arg(pedido("ALTOVERDE_ACCIONES", 200));
    };
    {
        Hijo primera(QStringLiteral("DosCopias.DISABLED_Trabaja"), copia(0));
        Hijo segunda(QStringLiteral("DosCopias.DISABLED_Trabaja"), copia(1));
        EXPECT_TRUE(primera.seguir());
        EXPECT_TRUE(segunda.seguir());
    }
    Rutinas::AbrirBase();
    base.conexion().ejecutar("ATTACH ? AS p0", base.ruta(QStringLiteral("propia0.mdb")));
    base.conexion().ejecutar("ATTACH ? AS p1", base.ruta(QStringLiteral("propia1.mdb")));
    comparar("DDJJ", " WHERE Periodo > '2008-01-01'");
    comparar("DDJJ_Empleados", " WHERE Periodo > '2008-01-01'");
    comparar("Empleados_Familiares", "");
    EXPECT_EQ("", filas("SELECT * FROM main.DDJJ_Empleados WHERE Periodo = '2008-01-01' EXCEPT SELECT * FROM (SELECT * "
                        "FROM p0.DDJJ_Empleados UNION SELECT * FROM p1.DDJJ_Empleados)"))
        << "the common employee holds what one of the two saved last";
    EXPECT_EQ("ok", filas("PRAGMA integrity_check"));
}

TEST(DosCopias, DISABLED_Trabaja)
{
    const QStringList partes = hijo::ruta().split(u'|');
    reemplazarDirectorioPrograma(partes[0]);
    Rutinas::RutaApp = DirectorioPrograma() + QDir::separator();
    Rutinas::AbrirBase();
    Puesto puesto(partes[1].toInt(), partes[2].toUInt());
    hijo::listo();
    puesto.trabajar(partes[3].toInt());
    Rutinas::CerrarBase();
}
