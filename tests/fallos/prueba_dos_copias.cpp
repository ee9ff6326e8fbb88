// Two copies of the program at work on one database, for a minute in all: half of it each on a company of its own, half
// both on the same one. Each is a process of its own that creates declarations, imports rosters, saves employees with
// their family, deletes employees and declarations, and deletes declarations that the other copy made. Each keeps
// account of what it was told is done; at the end the database holds exactly what the two accounts add up to.
//
// ALTOVERDE_SEGUNDOS sets another duration of the whole, ALTOVERDE_SEMILLA repeats a run's choices. Printed: what was
// done, and how often a copy was told that the database is busy, the one error that may come, with nothing of its
// action done.
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/hijo.h"
#include "declarations/ciclo_ddjj.h"
#include "exchange/importacion.h"
#include "fallos/base_grande.h"
#include "platform/data/archivos.h"
#include "platform/data/directorio_programa.h"
#include "platform/data/error_de_ejecucion.h"
#include "roster/empleado.h"
#include "roster/guardar_empleado.h"

#include <QDeadlineTimer>
#include <QDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <sqlite3.h>
#include <tuple>

namespace
{
using Clave = std::tuple<QString, QDate, int>;

const QString cuits[] = {QStringLiteral("30-12345678-1"), QStringLiteral("30-87654321-5")};
/// A declaration of each company that stands from the start and is never deleted, with one employee whom both copies
/// save.
const QDate periodoComun(2008, 1, 1);
/// From here on lie the declarations that a copy makes for the other one to delete, one a month.
const QDate periodoAjeno[] = {QDate(2020, 1, 1), QDate(5020, 1, 1)};

ClaveDDJJ claveDe(const Clave& clave)
{
    return {std::get<0>(clave), std::get<1>(clave), std::get<2>(clave)};
}

QString textoDe(const Clave& clave)
{
    return QStringLiteral("%1|%2|%3")
        .arg(std::get<0>(clave), std::get<1>(clave).toString(Qt::ISODate))
        .arg(std::get<2>(clave));
}

/// What a copy was told is in the database.
struct Cuenta
{
    std::map<Clave, std::map<QString, QString>> declaraciones; ///< employees by CUIL: name and wage
    std::map<QString, QString> familias;                       ///< name of the one dependant by CUIL
    std::set<QString> ajenasBorradas;                          ///< declarations of the other copy that it deleted
    std::map<QString, QString> comun;                          ///< wage that it last saved in the common declaration
    std::map<QString, int> hechas;                             ///< actions by name

    void guardar(const QString& ruta) const
    {
        QStringList lineas;
        for (const auto& [clave, empleados] : declaraciones)
        {
            lineas += QStringLiteral("D|") + textoDe(clave);
            for (const auto& [cuil, datos] : empleados)
            {
                lineas += QStringLiteral("E|") + textoDe(clave) + QLatin1Char('|') + cuil + QLatin1Char('|') + datos;
            }
        }
        for (const auto& [cuil, nombre] : familias)
        {
            lineas += QStringLiteral("F|") + cuil + QLatin1Char('|') + nombre;
        }
        for (const QString& clave : ajenasBorradas)
        {
            lineas += QStringLiteral("B|") + clave;
        }
        for (const auto& [cuit, sueldo] : comun)
        {
            lineas += QStringLiteral("C|") + cuit + QLatin1Char('|') + sueldo;
        }
        for (const auto& [accion, veces] : hechas)
        {
            lineas += QStringLiteral("#|%1|%2").arg(accion).arg(veces);
        }
        escribirArchivo(ruta, lineas.join(u'\n').toUtf8());
    }
};

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
    }

    void trabajar(int milisegundos)
    {
        const QDeadlineTimer fin(milisegundos);
        while (!fin.hasExpired())
        {
            try
            {
                unaAccion();
            }
            catch (const ErrorDeEjecucion& error)
            {
                Archivos::cerrarTodos(); // a failed import leaves its file open, as told
                ASSERT_EQ(SQLITE_BUSY, error.numero() & 0xFF) << error.what();
                ++m_cuenta.hechas[QStringLiteral("ocupada")];
            }
        }
    }
    [[nodiscard]] const Cuenta& cuenta() const { return m_cuenta; }

private:
    void unaAccion()
    {
        switch (alAzar(10))
        {
        case 0:
        case 1:
            crear();
            break;
        case 2:
        case 3:
            importar(unaPropia());
            break;
        case 4:
        case 5:
        case 6:
            guardar(unaPropia());
            break;
        case 7:
            guardarEnLaComun();
            break;
        case 8:
            alAzar(2) == 0 ? borrarUnEmpleado(unaPropia()) : borrar(unaPropia());
            break;
        default:
            alAzar(2) == 0 ? hacerUnaParaElOtro() : borrarUnaDelOtro();
            break;
        }
    }

    int alAzar(int n) { return std::uniform_int_distribution<int>(0, n - 1)(m_azar); }
    static Conexion& base() { return Rutinas::Conexion; }
    void anotar(const char* accion) { ++m_cuenta.hechas[QString::fromUtf8(accion)]; }
    /// Eleven digits that no other employee of the run has, and the same with its dashes.
    QString unCuil() { return QStringLiteral("%1%2").arg(20 + m_numero).arg(++m_ultimoCuil, 9, 10, QLatin1Char('0')); }
    static QString conGuiones(const QString& cuil)
    {
        return cuil.left(2) + QLatin1Char('-') + cuil.mid(2, 8) + QLatin1Char('-') + cuil.right(1);
    }

    Clave crearEn(QDate periodo)
    {
        const int secuencia = crearDeclaracion(base(), m_cuit, periodo, QDate(2009, 6, 3));
        const Clave clave{m_cuit, periodo, secuencia};
        EXPECT_FALSE(m_cuenta.declaraciones.contains(clave)) << "the same declaration was made twice";
        m_cuenta.declaraciones[clave] = {};
        return clave;
    }
    void crear()
    {
        m_propias.push_back(crearEn(QDate(2009, 1 + alAzar(12), 1)));
        anotar("creadas");
    }
    Clave unaPropia()
    {
        if (m_propias.empty())
        {
            crear();
        }
        return m_propias[static_cast<std::size_t>(alAzar(static_cast<int>(m_propias.size())))];
    }

    void importar(const Clave& clave)
    {
        std::map<QString, QString> nuevos;
        std::map<QString, QString> familiares;
        QByteArray lineas;
        const int cantidad = 5 + alAzar(60);
        for (int i = 0; i < cantidad; ++i)
        {
            const QString cuil = unCuil();
            const QString nombre = QStringLiteral("Importado ") + cuil;
            const int sueldo = 100 + alAzar(9000);
            lineas += (cuil + QLatin1Char('0') + nombre.leftJustified(40) + QStringLiteral("1123456781") +
                       QStringLiteral("25121970") + QString(111, QLatin1Char(' ')) + QStringLiteral("1S") +
                       QStringLiteral("%1%1").arg(sueldo, 9) + QStringLiteral("0101032005        ") +
                       QString(10, QLatin1Char(' ')) + QLatin1Char('8') + QStringLiteral("     0.00     0.00\r\n"))
                          .toLatin1();
            nuevos[conGuiones(cuil)] = nombre + QStringLiteral("|%1").arg(sueldo);
            if (i % 4 == 0)
            {
                lineas += (cuil + QLatin1Char('2') + QStringLiteral("Hijo de ").append(cuil).leftJustified(40) +
                           QStringLiteral("145678901029022004\r\n"))
                              .toLatin1();
                familiares[conGuiones(cuil)] = QStringLiteral("Hijo de ") + cuil;
            }
        }
        const QString ruta = Rutinas::RutaApp + QStringLiteral("nomina%1.txt").arg(m_numero);
        escribirArchivo(ruta, lineas);
        const ResultadoImportacion hecho = importarNomina(base(), claveDe(clave), ruta, FormatoDeNomina::Brivo);
        EXPECT_EQ(cantidad, hecho.titulares);
        m_cuenta.declaraciones[clave].merge(nuevos);
        m_cuenta.familias.merge(familiares);
        anotar("importaciones");
    }

    static EntradaEmpleado entrada(const QString& cuil, const QString& nombre, int sueldo, bool nuevo)
    {
        EntradaEmpleado e;
        e.nuevo = nuevo;
        e.cuil = cuil;
        e.ayn = nombre;
        e.tipoDoc = 1;
        e.documento = QStringLiteral("12345678");
        e.qHoras = QStringLiteral("200");
        e.haberes = QString::number(sueldo);
        return e;
    }
    void guardar(const Clave& clave)
    {
        auto& empleados = m_cuenta.declaraciones[clave];
        const bool nuevo = empleados.empty() || alAzar(2) == 0;
        QString cuil = conGuiones(unCuil());
        if (!nuevo)
        {
            cuil = std::next(empleados.begin(), alAzar(static_cast<int>(empleados.size())))->first;
        }
        const QString nombre = QStringLiteral("Guardado ") + cuil;
        const int sueldo = 100 + alAzar(9000);
        EntradaEmpleado e = entrada(cuil, nombre, sueldo, nuevo);
        const QString hijo = QStringLiteral("Familiar %1").arg(sueldo);
        const bool conFamilia = alAzar(2) == 0;
        if (conFamilia)
        {
            e.familia.push_back({m_relacion, m_documento, 45678901, hijo, QStringLiteral("Fem."), QDate(2004, 2, 29)});
        }
        ASSERT_TRUE(guardarEmpleado(base(), claveDe(clave), e));
        empleados[cuil] = nombre + QStringLiteral("|%1").arg(sueldo);
        m_cuenta.familias.erase(cuil);
        if (conFamilia)
        {
            m_cuenta.familias[cuil] = hijo;
        }
        anotar("guardados");
    }
    void guardarEnLaComun()
    {
        const QString sueldo = QString::number(2 * ++m_vueltas + m_numero);
        ASSERT_TRUE(guardarEmpleado(base(), {m_cuit, periodoComun, 0},
                                    entrada(dePrueba::cuil, QStringLiteral("De todos"), sueldo.toInt(), false)));
        m_cuenta.comun[m_cuit] = sueldo;
        anotar("guardados en la común");
    }

    void borrarUnEmpleado(const Clave& clave)
    {
        auto& empleados = m_cuenta.declaraciones[clave];
        if (!empleados.empty())
        {
            const QString cuil = empleados.begin()->first;
            eliminarEmpleado(base(), claveDe(clave), cuil);
            empleados.erase(cuil); // his dependants stay
            anotar("empleados borrados");
        }
    }
    void borrar(const Clave& clave)
    {
        eliminarDeclaracion(base(), claveDe(clave));
        m_cuenta.declaraciones.erase(clave);
        std::erase(m_propias, clave);
        anotar("borradas");
    }
    void hacerUnaParaElOtro()
    {
        importar(crearEn(periodoAjeno[m_numero].addMonths(m_ajenas++)));
        anotar("hechas para el otro");
    }
    void borrarUnaDelOtro()
    {
        const QDate desde = periodoAjeno[1 - m_numero];
        // Only one that the other has done with: its roster is in.
        const Recordset halladas = base().consultar("SELECT Periodo, Secuencia FROM DDJJ d WHERE Cuit = ? AND Periodo "
                                                    ">= ? AND Periodo < ? AND EXISTS (SELECT 1 "
                                                    "FROM DDJJ_Empleados e WHERE e.Cuit = d.Cuit AND e.Periodo = "
                                                    "d.Periodo AND e.Secuencia = d.Secuencia) LIMIT 1",
                                                    m_cuitAjeno, desde, desde.addYears(3000));
        if (!halladas.vacio())
        {
            const Clave clave{m_cuitAjeno, halladas.primera().fecha("Periodo"),
                              static_cast<int>(halladas.primera().entero("Secuencia"))};
            eliminarDeclaracion(base(), claveDe(clave));
            m_cuenta.ajenasBorradas.insert(textoDe(clave));
            anotar("borradas al otro");
        }
    }

    int m_numero;
    QString m_cuit;
    QString m_cuitAjeno;
    std::mt19937 m_azar;
    Cuenta m_cuenta;
    std::vector<Clave> m_propias;
    int m_ultimoCuil = 0;
    int m_vueltas = 0;
    int m_ajenas = 0;
    const QString m_relacion =
        base().consultar("SELECT Nombre FROM Familiar ORDER BY Codigo").primera().texto("Nombre");
    const QString m_documento =
        base().consultar("SELECT Nombre FROM Documentos WHERE Codigo = 1").primera().texto("Nombre");
};

/// The lines of `tipo` of an account, without their first letter.
QStringList lineasDe(const QByteArray& cuenta, char tipo)
{
    QStringList halladas;
    for (const QByteArray& linea : cuenta.split('\n'))
    {
        if (linea.startsWith(tipo))
        {
            halladas += QString::fromUtf8(linea.sliced(2));
        }
    }
    return halladas;
}

/// Some of the lines of `unas` that are not in `otras`.
std::string sinPar(const std::set<QString>& unas, const std::set<QString>& otras)
{
    QStringList solas;
    std::set_difference(unas.begin(), unas.end(), otras.begin(), otras.end(), std::back_inserter(solas));
    return solas.mid(0, 5).join(u'\n').toStdString();
}

class DosCopias : public testing::Test
{
protected:
    DosCopias()
    {
        for (const QString& cuit : cuits)
        {
            agregar(base.conexion(), EmpresaDePrueba{.cuit = cuit, .razon = cuit});
            agregar(base.conexion(), DeclaracionDePrueba{.cuit = cuit, .periodo = periodoComun});
            agregar(base.conexion(), EmpleadoDePrueba{.cuit = cuit, .periodo = periodoComun});
        }
        Rutinas::CerrarBase();
    }
    /// Both at once until they are done; gives their accounts.
    [[nodiscard]] std::vector<QByteArray> trabajar(const QString& una, const QString& otra, unsigned semilla) const
    {
        const int segundos =
            qEnvironmentVariableIsSet("ALTOVERDE_SEGUNDOS") ? qEnvironmentVariable("ALTOVERDE_SEGUNDOS").toInt() : 60;
        const auto pedido = [&](int numero)
        {
            return QStringList{base.ruta(QString()),
                               QString::number(numero),
                               numero == 0 ? una : otra,
                               numero == 0 ? otra : una,
                               QString::number(semilla + static_cast<unsigned>(numero)),
                               QString::number(segundos * 1000 / 2)}
                .join(u'\n');
        };
        Hijo primero(QStringLiteral("HijoDeDosCopias.DISABLED_Trabaja"), pedido(0));
        Hijo segundo(QStringLiteral("HijoDeDosCopias.DISABLED_Trabaja"), pedido(1));
        EXPECT_TRUE(primero.seguir());
        EXPECT_TRUE(segundo.seguir());
        return {base.leer(QStringLiteral("cuenta0")), base.leer(QStringLiteral("cuenta1"))};
    }
    void cotejar(const std::vector<QByteArray>& cuentas) const;
    [[nodiscard]] QStringList filas(const char* sql) const
    {
        QStringList todas;
        for (const Fila& fila : base.conexion().consultar(std::string_view(sql)))
        {
            todas += fila.texto("Linea");
        }
        return todas;
    }

    BaseDePrueba base;
};

/// The accounts together against the database.
void DosCopias::cotejar(const std::vector<QByteArray>& cuentas) const
{
    QStringList declaraciones;
    QStringList empleados;
    QStringList familiares;
    const QStringList borradas = lineasDe(cuentas[0], 'B') + lineasDe(cuentas[1], 'B');
    const auto sigue = [&](const QString& clave) { return !borradas.contains(clave); };
    for (const QByteArray& cuenta : cuentas)
    {
        for (const QString& clave : lineasDe(cuenta, 'D'))
        {
            declaraciones += sigue(clave) ? QStringList{clave} : QStringList();
        }
        for (const QString& linea : lineasDe(cuenta, 'E'))
        {
            empleados += sigue(linea.section(u'|', 0, 2)) ? QStringList{linea} : QStringList();
        }
        familiares += lineasDe(cuenta, 'F');
    }
    const auto iguales = [&](const char* que, const QStringList& cuentan, const char* sql)
    {
        const QStringList hay = filas(sql);
        EXPECT_EQ(cuentan.size(), hay.size()) << que;
        const std::set<QString> unas(cuentan.begin(), cuentan.end());
        const std::set<QString> otras(hay.begin(), hay.end());
        EXPECT_EQ("", sinPar(unas, otras)) << que << " that were lost";
        EXPECT_EQ("", sinPar(otras, unas)) << que << " that nobody wrote";
    };
    iguales("declarations", declaraciones,
            "SELECT Cuit || '|' || Periodo || '|' || Secuencia AS Linea FROM DDJJ WHERE Periodo > '2008-01-01'");
    iguales("employees", empleados,
            "SELECT Cuit || '|' || Periodo || '|' || Secuencia || '|' || Cuil || '|' || trim(AyN) || '|' || "
            "(Imponible / 10000) AS Linea FROM DDJJ_Empleados WHERE Periodo > '2008-01-01'");
    iguales("dependants", familiares, "SELECT CUIL || '|' || trim(AyN) AS Linea FROM Empleados_Familiares");
    // The common employee holds what one of the two saved last.
    const QStringList ultimos = lineasDe(cuentas[0], 'C') + lineasDe(cuentas[1], 'C');
    for (const QString& comun : filas("SELECT Cuit || '|' || (Imponible / 10000) AS Linea FROM DDJJ_Empleados "
                                      "WHERE Periodo = '2008-01-01'"))
    {
        const bool alguienGuardo = !ultimos.filter(comun.section(u'|', 0, 0)).isEmpty();
        EXPECT_TRUE(ultimos.contains(comun) || !alguienGuardo) << comun.toStdString();
    }
    EXPECT_EQ(QStringList{QStringLiteral("ok")}, filas("SELECT integrity_check AS Linea FROM pragma_integrity_check"));
    std::cout << "[ al final ] " << declaraciones.size() << " declarations, " << empleados.size() << " employees, "
              << familiares.size() << " dependants" << std::endl;
}
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
    puesto.cuenta().guardar(pedido[0] + QStringLiteral("/cuenta") + pedido[1]);
    Rutinas::CerrarBase();
}

TEST_F(DosCopias, NadaSePierde)
{
    struct Caso
    {
        const char* que;
        QString una;
        QString otra;
    };
    const unsigned semilla = qEnvironmentVariableIsSet("ALTOVERDE_SEMILLA")
                                 ? qEnvironmentVariable("ALTOVERDE_SEMILLA").toUInt()
                                 : std::random_device{}();
    const QByteArray vacia = leerArchivo(base.rutaBase());
    for (const Caso& caso : {Caso{"two companies", cuits[0], cuits[1]}, Caso{"the same company", cuits[0], cuits[0]}})
    {
        SCOPED_TRACE(testing::Message() << caso.que << ", seed " << std::to_string(semilla));
        Rutinas::CerrarBase();
        escribirArchivo(base.rutaBase(), vacia);
        const std::vector<QByteArray> cuentas = trabajar(caso.una, caso.otra, semilla);
        for (const QByteArray& cuenta : cuentas)
        {
            std::cout << "[ copia    ] " << caso.que << ", seed " << std::to_string(semilla) << ": "
                      << lineasDe(cuenta, '#').join(QStringLiteral(", ")).toStdString() << std::endl;
            EXPECT_GE(lineasDe(cuenta, '#').size(), 6) << "it did too little to prove anything";
        }
        Rutinas::AbrirBase();
        cotejar(cuentas);
    }
}
