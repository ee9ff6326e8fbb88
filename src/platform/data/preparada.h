#pragma once

#include "platform/data/conexion.h"
#include "platform/data/error_de_ejecucion.h"

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
    struct Columna
    {
        std::string nombre;
        std::string tipo;
    };
    std::vector<Columna> columnas;

    explicit Columnas(sqlite3_stmt* sentencia);
    [[nodiscard]] int numero(const char* nombre) const
    {
        if (m_proxima < m_usadas.size())
        {
            const Usada& usada = m_usadas[m_proxima];
            if (usada.direccion == nombre && std::strcmp(usada.texto.c_str(), nombre) == 0)
            {
                m_proxima = m_proxima + 1 < m_usadas.size() ? m_proxima + 1 : 0;
                return usada.numero;
            }
        }
        return buscarUsada(nombre);
    }

private:
    /// A name that was asked for once. The address finds it again without a search; the text is compared all the same,
    /// for an address can come back with another text.
    struct Usada
    {
        const char* direccion;
        std::string texto;
        int numero;
    };
    [[nodiscard]] int buscarUsada(const char* nombre) const;
    [[nodiscard]] int buscar(const char* nombre) const;
    mutable std::vector<Usada> m_usadas;
    mutable std::size_t m_proxima = 0; // rows are read in the same order one after the other
};

/// A statement of a connection and its columns. While it is being stepped another caller of the same text gets a
/// further instance.
struct Preparada
{
    Preparada(sqlite3* base, std::string_view sql);
    ~Preparada() { cerrar(); }
    Preparada(const Preparada&) = delete;
    Preparada& operator=(const Preparada&) = delete;

    /// Finalizes it and its further instances; a use after that throws 91.
    void cerrar();
    [[nodiscard]] Preparada& libre();
    void enlazar(const Valor* valores, std::size_t cantidad);
    /// True for a row, false at the end.
    [[nodiscard]] bool paso();
    /// The columns as they are now: a change of the schema can change those of "*".
    [[nodiscard]] const std::shared_ptr<const Columnas>& columnas();

    std::string sql;
    sqlite3_stmt* sentencia = nullptr;
    bool enUso = false;

private:
    std::shared_ptr<const Columnas> m_columnas;
    int m_preparaciones = 0;
    std::unique_ptr<Preparada> m_otra;
};

/// Marks an instance as being stepped; at the end it is reset, so that no read lock stays.
class Uso
{
public:
    explicit Uso(Preparada& preparada)
        : m_preparada(preparada)
    {
        m_preparada.enUso = true;
    }
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
