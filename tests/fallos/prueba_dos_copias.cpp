// Two copies of the program at work on one database: half of the time each on a company of its own, half both on the
// same one. Each is a process of its own that creates declarations, imports rosters, saves employees with their family,
// deletes employees and declarations, and deletes declarations that the other copy made. What it was told is done it
// does once more in a database that it has for itself; at the end the common one holds exactly what the two others
// hold together. The one error that may come is that the database is busy, with nothing of its action done.
// ALTOVERDE_SEGUNDOS sets the duration of the whole, ALTOVERDE_SEMILLA makes other choices.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/hijo.h"
#include "base/directorio_programa.h"
#include "declarations/ciclo_ddjj.h"
#include "exchange/archivo_uno.h"
#include "exchange/importacion.h"
#include "fallos/base_grande.h"
#include "roster/empleado.h"

#include <QDeadlineTimer>
#include <QDir>
#include <random>
#include <set>
#include <sqlite3.h>

namespace
{
const QString otroCuit = QStringLiteral("30-87654321-5");
/// A declaration of each company that stands from the start and is never deleted, with one employee whom both copies
/// save.
const QDate periodoComun(2008, 1, 1);
/// From here on lie the declarations that a copy makes for the other one to delete, one a month.
const QDate periodoAjeno[] = {QDate(2020, 1, 1), QDate(5020, 1, 1)};

/// One copy at work.
class Puesto
{
public:
    Puesto(int numero, QString cuit, QString cuitAjeno, unsigned semilla)
        : m_numero(numero)
        , m_cuit(std::move(cuit))
        , m_cuitAjeno(std::move(cuitAjeno))
        , m_azar(semilla)
    {
        m_propia.abrir(Rutinas::RutaApp + QStringLiteral("propia%1.mdb").arg(numero));
        m_propia.ejecutar("PRAGMA synchronous = OFF");
        m_propia.ejecutar("CREATE TABLE Borradas (Cuit TEXT, Periodo DATE, Secuencia INTEGER)");
    }

    /// At least until each kind of action went well that does not need the other copy.
    void trabajar(int milisegundos)
    {
        const QDeadlineTimer fin(milisegundos);
        while (!fin.hasExpired() || m_hechas.size() < 5)
        {
            const int cual = alAzar(7);
            try
            {
                unaAccion(cual);
                m_hechas.insert(cual == 6 ? 0 : cual);
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
        : cual == 1 ? importar(crear(periodoAjeno[m_numero].addMonths(m_ajenas++)))
        : cual == 2 ? guardar({m_cuit, periodoComun, 0})
        : cual == 3 ? guardar(unaPropia())
        : cual == 4 ? borrarEmpleado(unaPropia())
        : cual == 5 ? enLasDos([clave = unaPropia()](Conexion& base) { eliminarDeclaracion(base, clave); })
                    : borrarUnaDelOtro();
    }

    int alAzar(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_azar); }
    /// In the common database, and then in the own one.
    template <class Regla>
    void enLasDos(Regla regla)
    {
        regla(Rutinas::Conexion);
        regla(m_propia);
    }
    /// Eleven digits that no other employee of the run has, with dashes.
    QString unCuil() { return QStringLiteral("%1-%2-0").arg(20 + m_numero).arg(++m_ultimo, 8, 10, QLatin1Char('0')); }
    static ClaveDDJJ claveDe(const Fila& fila)
    {
        return {fila.texto("Cuit"), fila.fecha("Periodo"), static_cast<int>(fila.entero("Secuencia"))};
    }

    ClaveDDJJ crear(QDate periodo)
    {
        const QDate hoy(2009, 6, 3);
        const int secuencia = crearDeclaracion(Rutinas::Conexion, m_cuit, periodo, hoy);
        m_propia.ejecutar("INSERT INTO DDJJ VALUES (?, ?, ?, ?)", m_cuit, periodo, secuencia, hoy);
        return {m_cuit, periodo, secuencia};
    }
    ClaveDDJJ unaPropia()
    {
        const Recordset una =
            m_propia.consultar("SELECT * FROM DDJJ WHERE Periodo BETWEEN '2009-01-01' AND '2009-12-31' "
                               "ORDER BY Periodo, Secuencia LIMIT 1 OFFSET ?",
                               alAzar(20));
        return una.vacio() ? crear(QDate(2009, 1, 1)) : claveDe(una.primera());
    }
    void importar(const ClaveDDJJ& clave)
    {
        QByteArray lineas;
        for (int i = alAzar(60); i >= 0; --i)
        {
            const QString cuil = unCuil().remove(u'-');
            lineas += (cuil + u'0' + (QStringLiteral("Importado ") + cuil).leftJustified(40) + "112345678125121970" +
                       QString(111, u' ') + QStringLiteral("1S%1%1").arg(100 + alAzar(9000), 9) + "0101032005        " +
                       QString(10, u' ') + "8     0.00     0.00\r\n" + cuil + u'2' +
                       (QStringLiteral("Hijo de ") + cuil).leftJustified(40) + "145678901029022004\r\n")
                          .toLatin1();
        }
        const QString ruta = Rutinas::RutaApp + QStringLiteral("nomina%1.txt").arg(m_numero);
        escribirArchivo(ruta, lineas);
        enLasDos([&](Conexion& base) { (void)importarNomina(base, clave, ruta, FormatoDeNomina::Brivo); });
    }
    /// The common one, one who is there already, or a new one; with one dependant or none.
    void guardar(const ClaveDDJJ& clave)
    {
        const QString alguno = alAzar(2) == 0 || clave.periodo == periodoComun ? unEmpleado(clave) : QString();
        EntradaEmpleado e = entrada(alguno.isEmpty() ? unCuil() : alguno, 100 + alAzar(9000), alguno.isEmpty());
        if (clave.periodo != periodoComun && alAzar(2) == 0)
        {
            e.familia.push_back({m_relacion, QStringLiteral("DNI"), 45678901, QStringLiteral("Familiar de ") + e.cuil,
                                 QStringLiteral("Fem."), QDate(2004, 2, 29)});
        }
        enLasDos([&](Conexion& base) { EXPECT_TRUE(guardarEmpleado(base, clave, e)); });
    }
    QString unEmpleado(const ClaveDDJJ& clave)
    {
        const Recordset uno = m_propia.consultar(
            "SELECT Cuil FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? LIMIT 1", clave.cuit,
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
    /// Only one that the other has done with: its roster is in.
    void borrarUnaDelOtro()
    {
        const QDate desde = periodoAjeno[1 - m_numero];
        const Recordset una = Rutinas::Conexion.consultar(
            "SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo BETWEEN ? AND ? LIMIT 1", m_cuitAjeno, desde,
            desde.addYears(2999));
        if (!una.vacio())
        {
            const ClaveDDJJ clave = claveDe(una.primera());
            eliminarDeclaracion(Rutinas::Conexion, clave);
            m_propia.ejecutar("INSERT INTO Borradas VALUES (?, ?, ?)", clave.cuit, clave.periodo, clave.secuencia);
        }
    }

    int m_numero;
    QString m_cuit;
    QString m_cuitAjeno;
    std::mt19937 m_azar;
    Conexion m_propia;
    std::set<int> m_hechas;
    int m_ultimo = 0;
    int m_ajenas = 0;
    const QString m_relacion = Rutinas::Conexion.consultar("SELECT Nombre FROM Familiar").primera().texto("Nombre");
};

class DosCopias : public testing::TestWithParam<bool>
{
protected:
    DosCopias()
    {
        for (const QString& cuit : {dePrueba::cuit, otroCuit})
        {
            poner("Empresas", {{"CUIT", cuit}, {"Razon", cuit}});
            poner("DDJJ", {{"Cuit", cuit}, {"Periodo", periodoComun}});
            poner("DDJJ_Empleados", {{"Cuit", cuit}, {"Periodo", periodoComun}});
        }
        Rutinas::CerrarBase();
        for (const char* propia : {"propia0.mdb", "propia1.mdb"})
        {
            EXPECT_TRUE(QFile::copy(base.rutaBase(), base.ruta(QLatin1String(propia))));
        }
    }
    /// The common table holds the rows of the two others, without what was deleted by the copy that had not made it.
    static void comparar(const std::string& tabla, const std::string& donde, const std::string& siguen)
    {
        const std::string comun = "SELECT * FROM main." + tabla + donde;
        const std::string juntas =
            "SELECT * FROM (SELECT * FROM p0." + tabla + " UNION ALL SELECT * FROM p1." + tabla + ")" + donde + siguen;
        EXPECT_EQ("", filas(juntas + " EXCEPT " + comun + " LIMIT 3")) << tabla << ": lost";
        EXPECT_EQ("", filas(comun + " EXCEPT " + juntas + " LIMIT 3")) << tabla << ": nobody wrote it";
        EXPECT_EQ(cuantos("(" + juntas + ")"), cuantos("(" + comun + ")")) << tabla;
    }

    BaseDePrueba base;
};

TEST_P(DosCopias, NadaSePierde)
{
    const QStringList cuits = {dePrueba::cuit, GetParam() ? dePrueba::cuit : otroCuit};
    const auto copia = [&](int numero)
    {
        return QStringList{base.ruta(QString()),
                           QString::number(numero),
                           cuits[numero],
                           cuits[1 - numero],
                           QString::number(pedido("ALTOVERDE_SEMILLA", 1) + numero),
                           QString::number(pedido("ALTOVERDE_SEGUNDOS", 10) * 1000 / 2)}
            .join(u'\n');
    };
    {
        Hijo primera(QStringLiteral("HijoDeDosCopias.DISABLED_Trabaja"), copia(0));
        Hijo segunda(QStringLiteral("HijoDeDosCopias.DISABLED_Trabaja"), copia(1));
        EXPECT_TRUE(primera.seguir());
        EXPECT_TRUE(segunda.seguir());
    }
    Rutinas::AbrirBase();
    base.conexion().ejecutar("ATTACH ? AS p0", base.ruta(QStringLiteral("propia0.mdb")));
    base.conexion().ejecutar("ATTACH ? AS p1", base.ruta(QStringLiteral("propia1.mdb")));
    const std::string nuevas = " WHERE Periodo > '2008-01-01'";
    const std::string siguen = " AND (Cuit, Periodo, Secuencia) NOT IN (SELECT * FROM p0.Borradas UNION SELECT * FROM "
                               "p1.Borradas)";
    comparar("DDJJ", nuevas, siguen);
    comparar("DDJJ_Empleados", nuevas, siguen);
    comparar("Empleados_Familiares", "", "");
    EXPECT_EQ("", filas("SELECT * FROM main.DDJJ_Empleados WHERE Periodo = '2008-01-01' EXCEPT SELECT * FROM (SELECT * "
                        "FROM p0.DDJJ_Empleados UNION SELECT * FROM p1.DDJJ_Empleados)"))
        << "the common employee holds what one of the two saved last";
    EXPECT_EQ("ok", filas("PRAGMA integrity_check"));
}

INSTANTIATE_TEST_SUITE_P(De, DosCopias, testing::Bool(),
                         [](const auto& caso) { return caso.param ? "UnaEmpresa" : "DosEmpresas"; });
} // namespace

TEST(HijoDeDosCopias, DISABLED_Trabaja)
{
    const QStringList pedido = hijo::ruta().split(u'\n');
    reemplazarDirectorioPrograma(pedido[0]);
    Rutinas::RutaApp = DirectorioPrograma() + QDir::separator();
    Rutinas::AbrirBase();
    Puesto puesto(pedido[1].toInt(), pedido[2], pedido[3], pedido[4].toUInt());
    hijo::listo();
    puesto.trabajar(pedido[5].toInt());
    Rutinas::CerrarBase();
}
