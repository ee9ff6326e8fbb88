#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

/// Measures side by side: each line of the table is one piece of work done twice, by a reference (mostly bare SQLite
/// through its C interface) and by the program. A file of this folder registers its lines by namespace-scope objects:
///
///     const medida::Registro importar{"importación, B.R.I.V.O.", "SQLite en C", [] { return std::make_unique<X>(); }};
namespace medida
{
/// The piece of work of one line. Only referencia() and programa() are timed; they run by turns, several times.
class Caso
{
public:
    Caso() = default;
    virtual ~Caso() = default;
    Caso(const Caso&) = delete;
    Caso& operator=(const Caso&) = delete;

    /// Put things where each run finds them: fresh files, open connections.
    virtual void antesDeReferencia() {}
    virtual void antesDePrograma() {}
    virtual void referencia() = 0;
    virtual void programa() = 0;
    /// After all runs: throws std::exception when the two did not come to the same.
    virtual void comprobar() {}
};

struct Linea
{
    std::string nombre;
    std::string contra; ///< what the reference is
    std::function<std::unique_ptr<Caso>()> hacer;
    double limite = 1.2; ///< ratio past which the line is marked
};

class Registro
{
public:
    Registro(std::string nombre, std::string contra, std::function<std::unique_ptr<Caso>()> hacer, double limite = 1.2);
};

/// Runs the lines whose names contain `filtro` and prints the table: best times of all runs, their ratio by the clock
/// and by processor time, and how far memory rose above its start in the first run. False when both ratios are past the
/// line's limit or a check failed.
[[nodiscard]] bool medirTodo(const std::string& filtro, int veces);
} // namespace medida
