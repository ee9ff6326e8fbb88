#include "apoyo/datos.h"

#include <set>
#include <sqlite3.h>
#include <stdexcept>
#include <unordered_map>

namespace
{
/// The rows where a test does not say otherwise, as they are stored; the check digits agree. Nothing behind "=" is a
/// null.
const std::unordered_map<std::string, const char*> porDefecto = {
    {"Empresas", "CUIT=30-12345678-1|Razon=Panadería Ñandú|Calle=San Martín|Numero=123|CodPos=1870|"
                 "Localidad=Avellaneda|Provincia=1"},
    {"Empresas_Sucursales", "CUIT=30-12345678-1|Sucursal=1|Domicilio=Belgrano|Numero=45|CodPos=1870|"
                            "Localidad=Avellaneda"},
    {"Empresas_Responsables", "CUIT=30-12345678-1|AyN=Zárate Ana|TipoDoc=1|NroDoc=11111111"},
    {"DDJJ", "Cuit=30-12345678-1|Periodo=2009-05-01|Secuencia=0|Fecha=2009-06-03"},
    {"DDJJ_Empleados", "Cuit=30-12345678-1|Periodo=2009-05-01|Secuencia=0|Cuil=20-12345678-6|AyN=Pérez Juan|TipoDoc=1|"
                       "NroDoc=12345678|Sexo=1|Provincia=1|Nacio=1970-03-15|EstCivil=1|Afiliado=1|Imponible=10000000|"
                       "Categoria=1|Ingreso=2001-02-01|QHoras=200|ART100=200000|ART101A=100000|ART101B=100000|"
                       "Acuerdo=0|Sueldo="},
    {"Empleados_Familiares", "CUIL=20-12345678-6|Familiar=1|AyN=Pérez Luz|TipoDoc=1|NroDoc=45111222|Sexo=0"},
    {"PAGOS", "Cuit=30-12345678-1|Tipo=0|Periodo=2009-05-01|Secuencia=0|Fecha=2009-06-10"},
};

/// The statements of a rule that ran outside its transaction, while it is looked at.
QStringList fuera;
int transacciones = 0;
bool mirando = false;

int anotar(unsigned, void*, void* sentencia, void*)
{
    auto* una = static_cast<sqlite3_stmt*>(sentencia);
    const QString sql = sqlite3_sql(una);
    const bool empieza = sql.startsWith("BEGIN");
    if (mirando && !sql.startsWith("PRAGMA") &&
        (empieza ? ++transacciones > 1 : sqlite3_get_autocommit(sqlite3_db_handle(una)) != 0))
    {
        fuera += sql;
    }
    return 0;
}

int seguir(sqlite3* base, char**, const sqlite3_api_routines*)
{
    return sqlite3_trace_v2(base, SQLITE_TRACE_STMT, anotar, nullptr);
}
} // namespace

qint64 poner(Conexion& conexion, const char* tabla, const ValoresDeColumnas& valores)
{
    ValoresDeColumnas fila;
    for (const auto& [columna, valor] : valores)
    {
        const bool importe = valor.clase() == Valor::Clase::Texto &&
                             conexion.hay("SELECT 1 FROM pragma_table_info(?) WHERE type = 'CURRENCY' AND name = ? "
                                          "COLLATE NOCASE",
                                          tabla, columna);
        fila.push_back({columna, importe ? Valor(Moneda::deTexto(QString::fromUtf8(valor.texto()))) : valor});
    }
    const auto hallada = porDefecto.find(tabla);
    QByteArrayList otros = QByteArray(hallada == porDefecto.end() ? "" : hallada->second).split('|');
    for (QByteArray& otro : otros)
    {
        const char* valor = otro.data() + otro.indexOf('=') + 1;
        otro.replace('=', '\0');
        if (!otro.isEmpty() &&
            std::ranges::none_of(valores, [&](const auto& v) { return qstricmp(v.columna, otro.constData()) == 0; }))
        {
            fila.push_back({otro.constData(), *valor == '\0' ? Valor(nullptr) : Valor(valor)});
        }
    }
    insertar(conexion, tabla, fila);
    const qint64 numero = conexion.ultimoNumero();
    conexion.ejecutar("UPDATE DDJJ_Empleados SET Sueldo = Imponible + Acuerdo WHERE Sueldo IS NULL");
    return numero;
}

std::string filaDe(const Fila& fila)
{
    std::string toda;
    std::set<QByteArray> nombres;
    for (int i = 0; i < fila.columnas(); ++i)
    {
        if (!nombres.insert(QByteArray(fila.nombre(i)).toLower()).second)
        {
            throw std::invalid_argument(std::string("two columns are called ") + fila.nombre(i));
        }
        toda += i > 0 ? "|" : "";
        toda += fila.esNulo(fila.nombre(i)) ? "Null" : fila.texto(fila.nombre(i)).toStdString();
    }
    return toda;
}

std::string juntas(const std::vector<std::string>& textos)
{
    std::string todos;
    for (const std::string& texto : textos)
    {
        todos += todos.empty() ? "" : ";";
        todos += texto;
    }
    return todos;
}

std::string fueraDeTransaccion(const std::function<void()>& regla)
{
    const auto mirar = reinterpret_cast<void (*)()>(seguir);
    sqlite3_auto_extension(mirar);
    Rutinas::AbrirBase();
    Rutinas::Conexion.ejecutar("PRAGMA synchronous=OFF");
    sqlite3_cancel_auto_extension(mirar);
    fuera.clear();
    transacciones = 0;
    mirando = true;
    const QString falla = fallaDe([&] { regla(); });
    mirando = false;
    return (falla.isEmpty() ? fuera : fuera << falla).join(u';').toStdString();
}
