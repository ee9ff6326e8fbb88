#pragma once

#include <QTemporaryDir>
#include <cstdint>
#include <sqlite3.h>
#include <stdexcept>
#include <string>
#include <string_view>

/// SQLite through its C interface, as short as it goes: what the program's own code is measured against.
namespace desnuda
{
inline void exigir(bool bien, sqlite3* base)
{
    if (!bien)
    {
        throw std::runtime_error(base == nullptr ? "SQLite" : sqlite3_errmsg(base));
    }
}

/// A statement prepared once. Values are bound by number from 1; texts must live until the next reset.
class Sentencia
{
public:
    Sentencia(sqlite3* base, const char* sql)
        : m_base(base)
    {
        exigir(sqlite3_prepare_v2(base, sql, -1, &m_sentencia, nullptr) == SQLITE_OK, base);
    }
    ~Sentencia() { sqlite3_finalize(m_sentencia); }
    Sentencia(const Sentencia&) = delete;
    Sentencia& operator=(const Sentencia&) = delete;

    [[nodiscard]] sqlite3_stmt* operator*() const { return m_sentencia; }
    void entero(int numero, std::int64_t valor) { sqlite3_bind_int64(m_sentencia, numero, valor); }
    void texto(int numero, std::string_view valor)
    {
        sqlite3_bind_text(m_sentencia, numero, valor.data(), static_cast<int>(valor.size()), SQLITE_STATIC);
    }
    void nulo(int numero) { sqlite3_bind_null(m_sentencia, numero); }
    /// True for a row.
    bool paso()
    {
        const int codigo = sqlite3_step(m_sentencia);
        exigir(codigo == SQLITE_ROW || codigo == SQLITE_DONE, m_base);
        return codigo == SQLITE_ROW;
    }
    void deNuevo() { sqlite3_reset(m_sentencia); }
    void correr()
    {
        paso();
        deNuevo();
    }
    [[nodiscard]] std::string_view leer(int columna) const
    {
        const auto* texto = reinterpret_cast<const char*>(sqlite3_column_text(m_sentencia, columna));
        return {texto == nullptr ? "" : texto, static_cast<std::size_t>(sqlite3_column_bytes(m_sentencia, columna))};
    }
    [[nodiscard]] std::int64_t numero(int columna) const { return sqlite3_column_int64(m_sentencia, columna); }
    [[nodiscard]] bool esNulo(int columna) const { return sqlite3_column_type(m_sentencia, columna) == SQLITE_NULL; }

private:
    sqlite3* m_base;
    sqlite3_stmt* m_sentencia = nullptr;
};

/// An open database with the program's collation and the program's way of writing to the disk.
class Base
{
public:
    explicit Base(const std::string& ruta);
    ~Base() { sqlite3_close(m_base); }
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;

    [[nodiscard]] sqlite3* operator*() const { return m_base; }
    void ejecutar(const char* sql)
    {
        exigir(sqlite3_exec(m_base, sql, nullptr, nullptr, nullptr) == SQLITE_OK, m_base);
    }

private:
    sqlite3* m_base = nullptr;
};

/// All rows of a query as one text, to compare what two runs left behind.
[[nodiscard]] std::string volcar(const std::string& ruta, const char* consulta);
} // namespace desnuda

/// A folder of its own in which the measures of one line run.
class Taller
{
public:
    [[nodiscard]] QString ruta(const char* nombre) const { return m_carpeta.filePath(QString::fromLatin1(nombre)); }
    /// The database as it is delivered, with one company (CUIT 30-12345678-9), one branch and one declaration, 2009/05.
    void ponerBase(const char* nombre) const;

private:
    QTemporaryDir m_carpeta;
};
