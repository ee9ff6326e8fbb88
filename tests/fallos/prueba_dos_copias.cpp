// Two copies of the program at work on one database: half of the time each on a company of its own, half both on the
// same one. Each is a process of its own that creates declarations, imports rosters, saves employees with their family,
// deletes employees and declarations, and deletes declarations that the other copy made. Each keeps account, in a
// database of its own, of what it was told is done; at the end the common one holds exactly what the two accounts add
// up to. The one error that may come is that the database is busy, with nothing of its action done.
// ALTOVERDE_SEGUNDOS sets the duration of the whole, ALTOVERDE_SEMILLA makes other choices.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/hijo.h"
#include "declarations/ciclo_ddjj.h"
#include "exchange/archivo_uno.h"
#include "exchange/importacion.h"
#include "fallos/base_grande.h"
#include "platform/data/directorio_programa.h"
#include "roster/empleado.h"

#include <QDeadlineTimer>
#include <QDir>
#include <iostream>
#include <random>
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
        const QString ruta = Rutinas::RutaApp + QStringLiteral("cuenta%1.mdb").arg(numero);
        Conexion::crear(ruta);
        m_cuenta.abrir(ruta);
        for (const char* sql :
             {"PRAGMA synchronous = OFF", "PRAGMA journal_mode = MEMORY",
              "CREATE TABLE D (Cuit TEXT, Periodo DATE, Secuencia INTEGER)",
              "CREATE TABLE E (Cuit TEXT, Periodo DATE, Secuencia INTEGER, Cuil TEXT, AyN TEXT, Sueldo INTEGER)",
              "CREATE TABLE F (Cuil TEXT, AyN TEXT)", "CREATE TABLE B (Cuit TEXT, Periodo DATE, Secuencia INTEGER)",
              "CREATE TABLE C (Cuit TEXT, Sueldo INTEGER)", "CREATE TABLE Hechas (Accion TEXT)"})
        {
            m_cuenta.ejecutar(sql);
        }
    }

    void trabajar(int milisegundos)
    {
        const QDeadlineTimer fin(milisegundos);
        while (!fin.hasExpired() || !hizoDeTodo())
        {
            try
            {
                unaAccion();
            }
            catch (const ErrorDeEjecucion& error)
            {
                ArchivoUno::cerrar(); // a failed import leaves its file open, as told
                ASSERT_EQ(SQLITE_BUSY, error.numero() & 0xFF) << error.what();
                anotar("busy");
            }
        }
    }

private:
    [[nodiscard]] bool hizoDeTodo()
    {
        constexpr int clases = 6; // all that do not need the other copy
        return cuantos(m_cuenta,
                       "(SELECT DISTINCT Accion FROM Hechas WHERE Accion NOT IN ('busy', 'the other''s deleted'))") >=
               clases;
    }
    void unaAccion()
    {
        switch (alAzar(10))
        {
        case 0:
            return (void)crear(QDate(2009, 1 + alAzar(12), 1));
        case 1:
            return importar(crear(periodoAjeno[m_numero].addMonths(m_ajenas++)));
        case 2:
            return borrarUnaDelOtro();
        case 3:
            return guardarEnLaComun();
        case 4:
            return borrarUnEmpleado();
        case 5:
            return alAzar(3) == 0 ? borrar(unaPropia()) : guardar(unaPropia());
        case 6:
        case 7:
            return importar(unaPropia());
        default:
            return guardar(unaPropia());
        }
    }

    int alAzar(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_azar); }
    static Conexion& base() { return Rutinas::Conexion; }
    void anotar(const char* accion) { m_cuenta.ejecutar("INSERT INTO Hechas VALUES (?)", accion); }
    /// Eleven digits that no other employee of the run has, with dashes.
    QString unCuil() { return QStringLiteral("%1-%2-0").arg(20 + m_numero).arg(++m_ultimo, 8, 10, QLatin1Char('0')); }
    static ClaveDDJJ claveDe(const Fila& fila)
    {
        return {fila.texto("Cuit"), fila.fecha("Periodo"), static_cast<int>(fila.entero("Secuencia"))};
    }

    ClaveDDJJ crear(QDate periodo)
    {
        const int secuencia = crearDeclaracion(base(), m_cuit, periodo, QDate(2009, 6, 3));
        EXPECT_FALSE(m_cuenta.hay("SELECT 1 FROM D WHERE Periodo = ? AND Secuencia = ?", periodo, secuencia))
            << "the same declaration was made twice";
        m_cuenta.ejecutar("INSERT INTO D VALUES (?, ?, ?)", m_cuit, periodo, secuencia);
        anotar("created");
        return {m_cuit, periodo, secuencia};
    }
    ClaveDDJJ unaPropia()
    {
        const Recordset una = m_cuenta.consultar(
            "SELECT * FROM D WHERE Periodo < '2010-01-01' ORDER BY Periodo LIMIT 1 OFFSET ?", alAzar(20));
        return una.vacio() ? crear(QDate(2009, 1, 1)) : claveDe(una.primera());
    }

    void anotarEmpleado(const ClaveDDJJ& d, const QString& cuil, const QString& ayn, int sueldo)
    {
        m_cuenta.ejecutar("DELETE FROM E WHERE Cuil = ?", cuil);
        m_cuenta.ejecutar("INSERT INTO E VALUES (?, ?, ?, ?, ?, ?)", d.cuit, d.periodo, d.secuencia, cuil, ayn, sueldo);
    }
    void importar(const ClaveDDJJ& clave)
    {
        QByteArray lineas;
        std::vector<std::tuple<QString, QString, int>> nuevos;
        const int cantidad = 5 + alAzar(60);
        for (int i = 0; i < cantidad; ++i)
        {
            const QString cuil = unCuil();
            const int sueldo = 100 + alAzar(9000);
            const QString digitos = QString(cuil).remove(u'-');
            lineas += (digitos + u'0' + (QStringLiteral("Importado ") + cuil).leftJustified(40) + "112345678125121970" +
                       QString(111, u' ') + QStringLiteral("1S%1%1").arg(sueldo, 9) + "0101032005        " +
                       QString(10, u' ') + "8     0.00     0.00\r\n" + digitos + u'2' +
                       (QStringLiteral("Hijo de ") + cuil).leftJustified(40) + "145678901029022004\r\n")
                          .toLatin1();
            nuevos.emplace_back(cuil, QStringLiteral("Importado ") + cuil, sueldo);
        }
        const QString ruta = Rutinas::RutaApp + QStringLiteral("nomina%1.txt").arg(m_numero);
        escribirArchivo(ruta, lineas);
        (void)importarNomina(base(), clave, ruta, FormatoDeNomina::Brivo);
        for (const auto& [cuil, ayn, sueldo] : nuevos)
        {
            anotarEmpleado(clave, cuil, ayn, sueldo);
            m_cuenta.ejecutar("INSERT INTO F VALUES (?, 'Hijo de ' || ?)", cuil, cuil);
        }
        anotar("imported");
    }

    /// A new employee, or one that is there already, who gets one dependant or none.
    void guardar(const ClaveDDJJ& clave)
    {
        const Recordset uno = m_cuenta.consultar("SELECT Cuil FROM E WHERE Periodo = ? AND Secuencia = ? LIMIT 1",
                                                 clave.periodo, clave.secuencia);
        const bool nuevo = uno.vacio() || alAzar(2) == 0;
        const int sueldo = 100 + alAzar(9000);
        EntradaEmpleado e = entrada(nuevo ? unCuil() : uno.primera().texto("Cuil"), sueldo, nuevo);
        if (alAzar(2) == 0)
        {
            e.familia.push_back({m_relacion, QStringLiteral("DNI"), 45678901, QStringLiteral("Familiar %1").arg(sueldo),
                                 QStringLiteral("Fem."), QDate(2004, 2, 29)});
        }
        ASSERT_TRUE(guardarEmpleado(base(), clave, e));
        anotarEmpleado(clave, e.cuil, e.ayn, sueldo);
        m_cuenta.ejecutar("DELETE FROM F WHERE Cuil = ?", e.cuil);
        for (const auto& familiar : e.familia)
        {
            m_cuenta.ejecutar("INSERT INTO F VALUES (?, ?)", e.cuil, familiar.ayn);
        }
        anotar("saved");
    }
    void guardarEnLaComun()
    {
        const int sueldo = 2 * ++m_vueltas + m_numero;
        ASSERT_TRUE(guardarEmpleado(base(), {m_cuit, periodoComun, 0}, entrada(dePrueba::cuil, sueldo, false)));
        m_cuenta.ejecutar("DELETE FROM C");
        m_cuenta.ejecutar("INSERT INTO C VALUES (?, ?)", m_cuit, sueldo);
        anotar("saved in common");
    }

    void borrarUnEmpleado()
    {
        const Recordset uno = m_cuenta.consultar("SELECT * FROM E WHERE Periodo < '2010-01-01' LIMIT 1");
        if (!uno.vacio())
        {
            const QString cuil = uno.primera().texto("Cuil");
            eliminarEmpleado(base(), claveDe(uno.primera()), cuil);
            m_cuenta.ejecutar("DELETE FROM E WHERE Cuil = ?", cuil); // his dependants stay
            anotar("employee deleted");
        }
    }
    void borrar(const ClaveDDJJ& clave)
    {
        eliminarDeclaracion(base(), clave);
        for (const char* sql :
             {"DELETE FROM D WHERE Periodo = ? AND Secuencia = ?", "DELETE FROM E WHERE Periodo = ? AND Secuencia = ?"})
        {
            m_cuenta.ejecutar(sql, clave.periodo, clave.secuencia);
        }
        anotar("deleted");
    }
    /// Only one that the other has done with: its roster is in.
    void borrarUnaDelOtro()
    {
        const QDate desde = periodoAjeno[1 - m_numero];
        const Recordset una =
            base().consultar("SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo >= ? AND Periodo < ? LIMIT 1",
                             m_cuitAjeno, desde, desde.addYears(3000));
        if (!una.vacio())
        {
            const ClaveDDJJ clave = claveDe(una.primera());
            eliminarDeclaracion(base(), clave);
            m_cuenta.ejecutar("INSERT INTO B VALUES (?, ?, ?)", clave.cuit, clave.periodo, clave.secuencia);
            anotar("the other's deleted");
        }
    }

    int m_numero;
    QString m_cuit;
    QString m_cuitAjeno;
    std::mt19937 m_azar;
    Conexion m_cuenta;
    int m_ultimo = 0;
    int m_vueltas = 0;
    int m_ajenas = 0;
    const QString m_relacion = base().consultar("SELECT Nombre FROM Familiar").primera().texto("Nombre");
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
    }
    /// Nothing that `cuentan` says is missing in `hay`, and nothing more is there.
    static void iguales(const std::string& hay, const std::string& cuentan)
    {
        EXPECT_EQ("", filas(cuentan + " EXCEPT " + hay + " LIMIT 5")) << "that were lost";
        EXPECT_EQ("", filas(hay + " EXCEPT " + cuentan + " LIMIT 5")) << "that nobody wrote";
        EXPECT_EQ(filas("SELECT count(*) AS N FROM (" + hay + ")"),
                  filas("SELECT count(*) AS N FROM (" + cuentan + ")"));
    }

    BaseDePrueba base;
};

TEST_P(DosCopias, NadaSePierde)
{
    constexpr int porOmision = 10;
    const int milisegundos = pedido("ALTOVERDE_SEGUNDOS", porOmision) * 1000 / 2;
    const QStringList cuitsDe = {dePrueba::cuit, GetParam() ? dePrueba::cuit : otroCuit};
    const auto copia = [&](int numero)
    {
        return QStringList{base.ruta(QString()),
                           QString::number(numero),
                           cuitsDe[numero],
                           cuitsDe[1 - numero],
                           QString::number(pedido("ALTOVERDE_SEMILLA", 1) + numero),
                           QString::number(milisegundos)}
            .join(u'\n');
    };
    {
        Hijo primera(QStringLiteral("HijoDeDosCopias.DISABLED_Trabaja"), copia(0));
        Hijo segunda(QStringLiteral("HijoDeDosCopias.DISABLED_Trabaja"), copia(1));
        EXPECT_TRUE(primera.seguir());
        EXPECT_TRUE(segunda.seguir());
    }
    Rutinas::AbrirBase();
    for (const QString& numero : {QStringLiteral("0"), QStringLiteral("1")})
    {
        base.conexion().ejecutar(("ATTACH ? AS c" + numero).toStdString(),
                                 base.ruta(QStringLiteral("cuenta%1.mdb").arg(numero)));
        const std::string hechas = QStringLiteral("c%1.Hechas").arg(numero).toStdString();
        std::cout << "[ copia    ] " << filas("SELECT Accion, count(*) AS N FROM " + hechas + " GROUP BY Accion")
                  << std::endl;
    }
    const auto juntas = [](const std::string& tabla)
    { return std::string("(SELECT * FROM c0.") + tabla + " UNION ALL SELECT * FROM c1." + tabla + ")"; };
    const std::string siguen = " WHERE (Cuit, Periodo, Secuencia) NOT IN " + juntas("B");
    const std::string nuevas = " WHERE Periodo > '2008-01-01'";
    iguales("SELECT Cuit, Periodo, Secuencia FROM DDJJ" + nuevas, "SELECT * FROM " + juntas("D") + siguen);
    iguales("SELECT Cuit, Periodo, Secuencia, Cuil, trim(AyN) AS AyN, Imponible / 10000 AS Sueldo FROM DDJJ_Empleados" +
                nuevas,
            "SELECT * FROM " + juntas("E") + siguen);
    iguales("SELECT CUIL, trim(AyN) AS AyN FROM Empleados_Familiares", "SELECT * FROM " + juntas("F"));
    // The common employee holds what one of the two saved last.
    EXPECT_EQ(
        "",
        filas("SELECT Cuit, Imponible FROM DDJJ_Empleados WHERE Periodo = '2008-01-01' AND Cuit IN (SELECT Cuit FROM " +
              juntas("C") + ") AND (Cuit, Imponible / 10000) NOT IN " + juntas("C")));
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
