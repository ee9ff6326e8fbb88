#include "base/db/preparada.h"

namespace
{
bool soloBlancos(std::string_view texto)
{
    return texto.find_first_not_of(" \t\r\n;") == std::string_view::npos;
}

int enlazarUno(sqlite3_stmt* sentencia, int numero, const Valor& valor)
{
    switch (valor.clase())
    {
    case Valor::Clase::Nulo:
        return sqlite3_bind_null(sentencia, numero);
    case Valor::Clase::Entero:
        return sqlite3_bind_int64(sentencia, numero, valor.entero());
    case Valor::Clase::Texto:
        break;
    }
    const std::string_view texto = valor.texto();
    const char* inicio = texto.data() == nullptr ? "" : texto.data(); // a null address would bind a Null
    return sqlite3_bind_text64(sentencia, numero, inicio, texto.size(), SQLITE_STATIC, SQLITE_UTF8);
}
} // namespace

detalle::Columnas::Columnas(sqlite3_stmt* sentencia)
{
    const int cantidad = sqlite3_column_count(sentencia);
    for (int i = 0; i < cantidad; ++i)
    {
        columnas.emplace_back(sqlite3_column_name(sentencia, i));
    }
}

int detalle::Columnas::buscar(const char* nombre) const
{
    for (std::size_t i = 0; i < m_usadas.size(); ++i)
    {
        if (m_usadas[i].nombre == nombre)
        {
            m_proxima = i + 1;
            return m_usadas[i].numero;
        }
    }
    for (std::size_t i = 0; i < columnas.size(); ++i)
    {
        if (qstricmp(columnas[i].c_str(), nombre) == 0)
        {
            m_usadas.push_back({nombre, static_cast<int>(i)});
            return static_cast<int>(i);
        }
    }
    // A statement that asks for all columns of an older base.
    throw ErrorParaAvisar(ErrorDeEjecucion::ColumnaDesconocida, textoDeColumnaQueFalta(QString::fromUtf8(nombre)));
}

detalle::Preparada::Preparada(sqlite3* base, std::string_view texto)
    : sql(texto)
{
    const FinDeEspera fin;
    const char* resto = nullptr;
    const int codigo = sqlite3_prepare_v3(base, sql.c_str(), static_cast<int>(sql.size()) + 1,
                                          SQLITE_PREPARE_PERSISTENT, &sentencia, &resto);
    if (codigo != SQLITE_OK)
    {
        fallarBase(base);
    }
    if (sentencia == nullptr || !soloBlancos(resto))
    {
        cerrar();
        throw ErrorDeEjecucion(SQLITE_MISUSE, QStringLiteral("se espera una sola sentencia"));
    }
}

void detalle::Preparada::cerrar()
{
    sqlite3_finalize(sentencia);
    sentencia = nullptr;
}

void detalle::Preparada::enlazar(const Valor* valores, std::size_t cantidad)
{
    if (static_cast<int>(cantidad) != sqlite3_bind_parameter_count(sentencia))
    {
        throw ErrorDeEjecucion(SQLITE_RANGE, QStringLiteral("la cantidad de valores no es la de la sentencia"));
    }
    for (std::size_t i = 0; i < cantidad; ++i)
    {
        if (enlazarUno(sentencia, static_cast<int>(i) + 1, valores[i]) != SQLITE_OK)
        {
            fallarBase(sqlite3_db_handle(sentencia));
        }
    }
}

detalle::Base::Base(const std::string& ruta, int modo)
{
    sqlite3* abierta = nullptr;
    const int codigo = sqlite3_open_v2(ruta.c_str(), &abierta, modo | SQLITE_OPEN_NOMUTEX, nullptr);
    m_base.reset(abierta);
    if (codigo != SQLITE_OK)
    {
        fallarBase(abierta);
    }
}

std::string detalle::Base::ejecutar(std::string_view sql, std::initializer_list<Valor> valores)
{
    Preparada preparada(m_base.get(), sql);
    preparada.enlazar(valores.begin(), valores.size());
    std::string valor;
    if (preparada.paso())
    {
        const auto* texto = reinterpret_cast<const char*>(sqlite3_column_text(preparada.sentencia, 0));
        valor = texto == nullptr ? "" : texto;
        while (preparada.paso())
        {
        }
    }
    return valor;
}

detalle::Uso::Uso(Preparada& preparada, const Valor* valores, std::size_t cantidad)
    : m_preparada(preparada)
{
    if (preparada.sentencia == nullptr)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::ObjetoNoEstablecido);
    }
    if (preparada.enUso)
    {
        throw ErrorDeEjecucion(SQLITE_MISUSE, QStringLiteral("la sentencia se usa dentro de sí misma"));
    }
    preparada.enlazar(valores, cantidad);
    preparada.enUso = true;
}

bool detalle::Preparada::paso()
{
    if (sentencia == nullptr)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::ObjetoNoEstablecido); // a visitor closed the connection
    }
    const FinDeEspera fin;
    const int codigo = sqlite3_step(sentencia);
    if (codigo == SQLITE_ROW)
    {
        return true;
    }
    if (codigo != SQLITE_DONE)
    {
        fallarBase(sqlite3_db_handle(sentencia));
    }
    return false;
}

const detalle::Columnas& detalle::Preparada::columnas()
{
    const int preparaciones = sqlite3_stmt_status(sentencia, SQLITE_STMTSTATUS_REPREPARE, 0);
    if (!m_columnas || preparaciones != m_preparaciones)
    {
        m_columnas.emplace(sentencia);
        m_preparaciones = preparaciones;
    }
    return *m_columnas;
}

int Sentencia::ejecutarCon(const Valor* valores, std::size_t cantidad)
{
    const std::shared_ptr<detalle::Preparada> viva = m_preparada;
    detalle::Preparada& preparada = *viva;
    const detalle::Uso uso(preparada, valores, cantidad);
    while (preparada.paso())
    {
    }
    sqlite3* base = sqlite3_db_handle(preparada.sentencia);
    return sqlite3_stmt_readonly(preparada.sentencia) != 0 ? 0 : sqlite3_changes(base);
}

bool Sentencia::recorrerCon(const Valor* valores, std::size_t cantidad,
                            const std::function<bool(const Fila&)>& visitante)
{
    const std::shared_ptr<detalle::Preparada> viva = m_preparada;
    detalle::Preparada& preparada = *viva;
    const detalle::Uso uso(preparada, valores, cantidad);
    if (!preparada.paso())
    {
        return false;
    }
    Fila fila;
    fila.m_columnas = &preparada.columnas();
    fila.m_preparada = &preparada;
    while (visitante(fila) && preparada.paso())
    {
    }
    return true;
}
