#pragma once

#include "base/aviso.h"
#include "base/error_de_ejecucion.h"

#include <exception>
#include <functional>

class Conexion;
struct sqlite3;

/// While it lives, `aviso` is called every few milliseconds that a statement of the connection is at work. No exception
/// crosses SQLite: what `aviso` throws stops the statement, which fails as interrupted.
class Latido
{
public:
    Latido(sqlite3* base, std::function<void()> aviso);
    Latido(const Conexion& conexion, std::function<void()> aviso);
    ~Latido();
    Latido(const Latido&) = delete;
    Latido& operator=(const Latido&) = delete;
    /// What `trabajo` gives. The failure of a statement that was stopped is what stopped it.
    template <class T>
    auto durante(const T& trabajo) const -> decltype(trabajo())
    {
        try
        {
            return trabajo();
        }
        catch (const ErrorDeEjecucion&)
        {
            relanzar();
            throw;
        }
    }

private:
    /// Throws what stopped a statement; does nothing when none was stopped.
    void relanzar() const;
    static int latir(void* este);
    sqlite3* m_base;
    std::function<void()> m_aviso;
    std::exception_ptr m_motivo;
};

/// Runs statements of `conexion` of which nobody knows how long they take: `aviso`, where there is one, is told so
/// again and again, and what it throws stops them.
template <class T>
void conLatido(const Conexion& conexion, const Aviso& aviso, const T& trabajo)
{
    const Latido latido(conexion, [&] { aviso ? aviso(0, 0) : void(); });
    latido.durante(trabajo);
}
