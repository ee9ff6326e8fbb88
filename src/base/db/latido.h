#pragma once

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
    /// Throws what stopped a statement; does nothing when none was stopped.
    void relanzar() const;

private:
    static int latir(void* este);
    sqlite3* m_base;
    std::function<void()> m_aviso;
    std::exception_ptr m_motivo;
};
