#include "apoyo/datos.h"

#include <QStringList>
#include <sqlite3.h>
#include <stdexcept>
#include <unordered_map>

namespace
{
/// Their check digits agree.
const char* const cuit = "30-12345678-1";
const char* const cuil = "20-12345678-6";
const char* const periodo = "2009-05-01";

const std::vector<ValorDeFila>& filaPorDefecto(const std::string& tabla)
{
    static const std::unordered_map<std::string, std::vector<ValorDeFila>> todas = {
        {"Empresas",
         {{"CUIT", cuit},
          {"Razon", "Panadería Ñandú"},
          {"Calle", "San Martín"},
          {"Numero", 123},
          {"CodPos", "1870"},
          {"Localidad", "Avellaneda"},
          {"Provincia", 1}}},
        {"Empresas_Sucursales",
         {{"CUIT", cuit},
          {"Sucursal", "1"},
          {"Domicilio", "Belgrano"},
          {"Numero", 45},
          {"CodPos", "1870"},
          {"Localidad", "Avellaneda"}}},
        {"Empresas_Responsables", {{"CUIT", cuit}, {"AyN", "Zárate Ana"}, {"TipoDoc", 1}, {"NroDoc", 11111111}}},
        {"DDJJ", {{"Cuit", cuit}, {"Periodo", periodo}, {"Secuencia", 0}, {"Fecha", "2009-06-03"}}},
        {"DDJJ_Empleados",
         {{"Cuit", cuit},  {"Periodo", periodo}, {"Secuencia", 0},      {"Cuil", cuil},    {"AyN", "Pérez Juan"},
          {"TipoDoc", 1},  {"NroDoc", 12345678}, {"Sexo", 1},           {"Provincia", 1},  {"Nacio", "1970-03-15"},
          {"EstCivil", 1}, {"Afiliado", true},   {"Imponible", "1000"}, {"Categoria", 1},  {"Ingreso", "2001-02-01"},
          {"QHoras", 200}, {"ART100", "20"},     {"ART101A", "10"},     {"ART101B", "10"}, {"Acuerdo", "0"}}},
        {"Empleados_Familiares",
         {{"CUIL", cuil}, {"Familiar", 1}, {"AyN", "Pérez Luz"}, {"TipoDoc", 1}, {"NroDoc", 45111222}, {"Sexo", 0}}},
        {"PAGOS", {{"Cuit", cuit}, {"Tipo", 0}, {"Periodo", periodo}, {"Secuencia", 0}, {"Fecha", "2009-06-10"}}},
    };
    static const std::vector<ValorDeFila> ninguna;
    const auto hallada = todas.find(tabla);
    return hallada == todas.end() ? ninguna : hallada->second;
}

bool esColumna(const ValorDeFila& valor, const std::string& nombre)
{
    return qstricmp(valor.columna, nombre.c_str()) == 0;
}

const Valor* buscar(const std::vector<ValorDeFila>& valores, const std::string& columna)
{
    const auto hallado =
        std::find_if(valores.begin(), valores.end(), [&](const ValorDeFila& v) { return esColumna(v, columna); });
    return hallado == valores.end() ? nullptr : &hallado->valor;
}

Valor comoColumna(const Valor& valor, const QString& tipo)
{
    return tipo == QLatin1String("CURRENCY") && valor.clase() == Valor::Clase::Texto
               ? Valor(Moneda::deTexto(QString::fromUtf8(valor.texto())))
               : valor;
}

/// The statements that ran and whether outside a transaction; while a rule is looked at.
std::vector<std::string>* sentenciasFuera = nullptr;
int transacciones = 0;

int anotar(unsigned, void*, void* sentencia, void*)
{
    auto* una = static_cast<sqlite3_stmt*>(sentencia);
    const std::string sql = sqlite3_sql(una);
    if (sentenciasFuera == nullptr || sql.starts_with("PRAGMA"))
    {
        return 0;
    }
    const bool empieza = sql.starts_with("BEGIN");
    if (empieza ? ++transacciones > 1 : sqlite3_get_autocommit(sqlite3_db_handle(una)) != 0)
    {
        sentenciasFuera->push_back(sql);
    }
    return 0;
}

int seguir(sqlite3* base, char**, const sqlite3_api_routines*)
{
    return sqlite3_trace_v2(base, SQLITE_TRACE_STMT, anotar, nullptr);
}

void abrirDeNuevo()
{
    const QString ruta = Rutinas::Conexion.ruta();
    Rutinas::Conexion.cerrar();
    Rutinas::Conexion.abrir(ruta);
    Rutinas::Conexion.ejecutar("PRAGMA synchronous=OFF");
}
} // namespace

qint64 poner(Conexion& conexion, const char* tabla, const std::vector<ValorDeFila>& valores)
{
    std::vector<ValorDeFila> fila = valores;
    for (const ValorDeFila& otro : filaPorDefecto(tabla))
    {
        if (buscar(valores, otro.columna) == nullptr)
        {
            fila.push_back(otro);
        }
    }
    QStringList columnas;
    std::vector<Valor> puestos;
    for (const Fila& columna : conexion.consultar("SELECT name, type FROM pragma_table_info(?)", tabla))
    {
        const QString nombre = columna.texto("name");
        if (const Valor* valor = buscar(fila, nombre.toStdString()))
        {
            columnas += nombre;
            puestos.push_back(comoColumna(*valor, columna.texto("type")));
        }
    }
    if (puestos.size() != fila.size())
    {
        throw std::invalid_argument(std::string("a column that ") + tabla + " does not have");
    }
    const QString huecos = QStringList(columnas.size(), QStringLiteral("?")).join(u',');
    conexion
        .preparar(QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                      .arg(QString::fromLatin1(tabla), columnas.join(u','), huecos)
                      .toStdString())
        .ejecutarCon(puestos.data(), puestos.size());
    const qint64 numero = conexion.ultimoNumero();
    if (qstrcmp(tabla, "DDJJ_Empleados") == 0 && buscar(valores, "Sueldo") == nullptr)
    {
        conexion.ejecutar("UPDATE DDJJ_Empleados SET Sueldo = Imponible + Acuerdo "
                          "WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?",
                          *buscar(fila, "Cuit"), *buscar(fila, "Periodo"), *buscar(fila, "Secuencia"),
                          *buscar(fila, "Cuil"));
    }
    return numero;
}

std::string filasDe(const Recordset& filas)
{
    std::string todas;
    for (const Fila& fila : filas)
    {
        todas += todas.empty() ? "" : ";";
        for (int i = 0; i < fila.columnas(); ++i)
        {
            for (int j = 0; j < i; ++j)
            {
                if (qstricmp(fila.nombre(i), fila.nombre(j)) == 0)
                {
                    throw std::invalid_argument(std::string("two columns are called ") + fila.nombre(i));
                }
            }
            todas += i > 0 ? "|" : "";
            todas += fila.esNulo(fila.nombre(i)) ? "Null" : fila.texto(fila.nombre(i)).toStdString();
        }
    }
    return todas;
}

std::string fueraDeTransaccion(const std::function<void()>& regla)
{
    const auto mirar = reinterpret_cast<void (*)()>(seguir);
    std::vector<std::string> fuera;
    sqlite3_auto_extension(mirar);
    abrirDeNuevo();
    sqlite3_cancel_auto_extension(mirar);
    sentenciasFuera = &fuera;
    transacciones = 0;
    try
    {
        regla();
    }
    catch (const std::exception& error)
    {
        fuera.emplace_back(error.what());
    }
    sentenciasFuera = nullptr;
    std::string todas;
    for (const std::string& sentencia : fuera)
    {
        todas += (todas.empty() ? "" : ";") + sentencia;
    }
    return todas;
}
