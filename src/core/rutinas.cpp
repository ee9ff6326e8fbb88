#include "core/rutinas.h"

#include "base/digitos.h"
#include "base/directorio_programa.h"
#include "base/error_de_ejecucion.h"
#include "base/files/archivos.h"
#include "configuracion.h"
#include "core/versiones.h"

#include <QDir>
#include <array>
#include <exception>
#include <optional>
#include <string>

namespace Rutinas
{
namespace
{
/// Runs one statement of the start-up; what fails there is passed over.
template <class Paso>
void sinFallar(Paso&& paso)
{
    try
    {
        paso();
    }
    catch (const std::exception&)
    {
        // The next start tries again.
    }
}

/// One upgrade step as one transaction: its version number and its statements stand together or not at all. A statement
/// that the database refuses, say for a column that is there already, ends the step and leaves what came before it; one
/// that could not be carried out (a full disk, another copy at work) undoes the step, and the next start tries again.
template <class Paso>
void enUnaTransaccion(Paso&& paso)
{
    sinFallar(
        [&]
        {
            Transaccion transaccion(Conexion);
            try
            {
                paso();
            }
            catch (const ErrorDeEjecucion& error)
            {
                if (error.numero() != ErrorDeEjecucion::SentenciaRechazada)
                {
                    throw;
                }
            }
            transaccion.confirmar();
        });
}

/// One of the agreement sums comes in: a column of amounts, 0 in every row.
void agregarSuma(QLatin1String version, const std::string& suma)
{
    Conexion.ejecutar("UPDATE Parametros SET Version = ?", version.data());
    Conexion.ejecutar("ALTER TABLE DDJJ_Empleados ADD COLUMN " + suma + " CURRENCY DEFAULT 0");
    Conexion.ejecutar("ALTER TABLE RptEmpleados ADD COLUMN " + suma + " CURRENCY DEFAULT 0");
    Conexion.ejecutar("UPDATE DDJJ_Empleados SET " + suma + " = 0");
    // Every start looks for nulls; this keeps the search from reading the roster.
    Conexion.ejecutar("CREATE INDEX IF NOT EXISTS IX_DDJJ_Empleados_" + suma + "Nulo ON DDJJ_Empleados (Cuit) WHERE " +
                      suma + " IS NULL");
}

void cerarNulos(const std::string& suma)
{
    const std::string nulos = " WHERE " + suma + " IS NULL";
    if (Conexion.hay("SELECT 1 FROM DDJJ_Empleados" + nulos)) // a search waits for no other copy that writes
    {
        Conexion.ejecutar("UPDATE DDJJ_Empleados SET " + suma + " = 0" + nulos);
    }
}
} // namespace

QString rutaBase()
{
    return RutaApp + QStringLiteral("DBBrivo.mdb");
}

void Main(const std::function<void()>& mostrarMenuPpal)
{
    RutaApp = DirectorioPrograma() + QDir::separator();
    AbrirBase();

    sinFallar([] { Archivos::crearCarpeta(RutaApp + QStringLiteral("Copias")); });
    SubirUnaVersion();
    mostrarMenuPpal();
}

void SubirUnaVersion()
{
    constexpr std::chrono::milliseconds espera{1000};
    const ::Conexion::EsperaCorta corta(espera);
    // One copy of the version, taken before any step. One that cannot be read counts as each of them, unless it is only
    // that another copy of the program holds the base.
    std::optional<QString> version;
    try
    {
        version = VersionDe(Conexion);
    }
    catch (const ErrorDeEjecucion& error)
    {
        if ((error.numero() & 0xFF) == ErrorDeEjecucion::BaseOcupada)
        {
            return;
        }
    }
    const auto desde = [&](QLatin1String cual, void (*paso)())
    {
        if (!version || *version == cual)
        {
            enUnaTransaccion(paso);
        }
    };
    desde(versiones::inicial, ActualizarA11);
    desde(versiones::conAcuerdo, ActualizarA12);
    desde(versiones::conAcuerdo2, ActualizarA20);
    sinFallar([] { cerarNulos("Acuerdo"); });
    sinFallar([] { cerarNulos("Acuerdo2"); });
}

void AbrirBase()
{
    Conexion = ::Conexion();
    Conexion.abrir(rutaBase());
}

void CerrarBase()
{
    Conexion.cerrar();
}

void ActualizarA11()
{
    agregarSuma(versiones::conAcuerdo, "Acuerdo");
}

void ActualizarA12()
{
    agregarSuma(versiones::conAcuerdo2, "Acuerdo2");
}

void ActualizarA20()
{
    Conexion.ejecutar("UPDATE Parametros SET Version = ?, EMail = ?", versiones::actual.data(),
                      configuracion::buzonDdjj);
}

quint8 CalcularDV(qint64 primerosDiez)
{
    static constexpr std::array<int, 10> pesosDesdeElFinal = {2, 3, 4, 5, 6, 7, 2, 3, 4, 5};
    int suma = 0;
    for (const int peso : pesosDesdeElFinal)
    {
        suma += static_cast<int>(primerosDiez % 10) * peso;
        primerosDiez /= 10;
    }
    const int resto = suma % 11;
    return static_cast<quint8>(resto == 0 ? 0 : resto == 1 ? 11 : 11 - resto);
}

bool VerificarCuit(qint64 numero)
{
    constexpr qint64 menorDeOnceDigitos = 10'000'000'000;
    constexpr qint64 mayorDeOnceDigitos = 99'999'999'999;
    if (numero < menorDeOnceDigitos || numero > mayorDeOnceDigitos)
    {
        return false;
    }
    return CalcularDV(numero / 10) == numero % 10;
}

bool VerificarCuit(const QString& conMascara)
{
    QString digitos = conMascara.mid(0, 2) + conMascara.mid(3, 8) + conMascara.mid(12);
    digitos.remove(QLatin1Char('_'));
    return digitos.size() == 11 && sonDigitos(digitos) && VerificarCuit(digitos.toLongLong());
}

QString VersionDe(::Conexion& conexion)
{
    return conexion.primera("SELECT * FROM Parametros", [](const Fila& fila) { return fila.texto("Version"); });
}

qint64 ObtenerIndice()
{
    const auto leer = [](const Fila& fila) { return fila.entero("Indice"); };
    const qint64 indice = Conexion.primera("SELECT Indice FROM Parametros", leer) + 1;
    Conexion.ejecutar("UPDATE Parametros SET Indice = ?", indice);
    return indice;
}

void LiberarIndice(qint64 indice)
{
    Conexion.ejecutar("DELETE FROM RptEmpleados WHERE Indice <= ?", indice);
    // Takes down what ObtenerIndice has just raised, so that the counter stays where it stood.
    Conexion.ejecutar("UPDATE Parametros SET Indice = Indice - 1 WHERE Indice = ?", ObtenerIndice());
}

void CompactarBase(const Aviso& aviso)
{
    ::Conexion::compactar(rutaBase(), QStringLiteral("DBBrivoTemporal.mdb"), aviso);
}
} // namespace Rutinas
