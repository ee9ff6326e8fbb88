#pragma once

#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"

#include <cstring>
#include <sqlite3.h>
#include <string>
#include <utility>

namespace detalle
{
/// Throws the failure that a connection reports, with SQLite's extended code and a description in Spanish; what a
/// statement names and the database has not is an ErrorParaAvisar, and so is that another copy of the program holds it,
/// which passes.
[[noreturn]] void fallarBase(sqlite3* base);
[[noreturn]] void fallarBase(int codigo, const QString& mensaje = {});
/// What the user reads of a column that an older base has not.
[[nodiscard]] QString textoDeColumnaQueFalta(const QString& columna);
/// What the integrity check has found, in Spanish and short.
[[nodiscard]] QString razonDeRevision(const QString& hallado);

/// Makes the connection wait while another copy of the program holds the file, as Conexion::alEsperar() tells.
void esperarAOtrasCopias(sqlite3* base);
/// At its end a wait that a call of SQLite made is over.
struct FinDeEspera
{
    FinDeEspera() = default;
    ~FinDeEspera();
    FinDeEspera(const FinDeEspera&) = delete;
    FinDeEspera& operator=(const FinDeEspera&) = delete;
};

/// Names of a statement's columns, and the way from a name as the program writes it to its number.
struct Columnas
{
    std::vector<std::string> columnas;

    explicit Columnas(sqlite3_stmt* sentencia);
    [[nodiscard]] int numero(const char* nombre) const
    {
        const std::size_t esta = m_proxima < m_usadas.size() ? m_proxima : 0; // a row begins where the last one did
        if (!m_usadas.empty() && std::strcmp(m_usadas[esta].nombre.c_str(), nombre) == 0)
        {
            m_proxima = esta + 1;
            return m_usadas[esta].numero;
        }
        return buscar(nombre);
    }

private:
    /// A name that was asked for, in the order of the first row: the next rows are read in the same one.
    struct Usada
    {
        std::string nombre;
        int numero;
    };
    [[nodiscard]] int buscar(const char* nombre) const;
    mutable std::vector<Usada> m_usadas;
    mutable std::size_t m_proxima = 0;
};

/// A statement of a connection and its columns.
struct Preparada
{
    Preparada(sqlite3* base, std::string_view sql);
    ~Preparada() { cerrar(); }
    Preparada(const Preparada&) = delete;
    Preparada& operator=(const Preparada&) = delete;

    /// Finalizes it; a use after that throws 91.
    void cerrar();
    void enlazar(const Valor* valores, std::size_t cantidad);
    /// True for a row, false at the end.
    [[nodiscard]] bool paso();
    /// The columns as they are now: a change of the schema can change those of "*".
    [[nodiscard]] const Columnas& columnas();

    std::string sql;
    sqlite3_stmt* sentencia = nullptr;
    bool enUso = false;

private:
    std::optional<Columnas> m_columnas;
    int m_preparaciones = 0;
};

/// An open file, closed at the end.
class Base
{
public:
    Base(const std::string& ruta, int modo);
    [[nodiscard]] sqlite3* getHandle() const { return m_base.get(); }
    /// Runs one statement and gives the first value of its first row as a text.
    std::string ejecutar(std::string_view sql, std::initializer_list<Valor> valores = {});

private:
    struct Cierra
    {
        void operator()(sqlite3* base) const { sqlite3_close(base); }
    };
    std::unique_ptr<sqlite3, Cierra> m_base;
};

/// A statement being stepped, which cannot be used anew meanwhile: that throws 21, and a closed one 91. At the end it
/// is reset, so that no read lock stays.
class Uso
{
public:
    Uso(Preparada& preparada, const Valor* valores, std::size_t cantidad);
    ~Uso()
    {
        m_preparada.enUso = false;
        sqlite3_reset(m_preparada.sentencia); // harmless when it was finalized meanwhile
    }
    Uso(const Uso&) = delete;
    Uso& operator=(const Uso&) = delete;

private:
    Preparada& m_preparada;
};
} // namespace detalle
