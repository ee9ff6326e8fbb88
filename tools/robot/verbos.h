#pragma once

#include <QString>

class Jugada;
namespace guion
{
class Argumentos;
}

/// A word with which a line of a script can begin.
struct Verbo
{
    const char* nombre;
    /// Kinds of its arguments: c control or window, t text, n number from 1, f number from 0, s yes or no, k key, x
    /// text or key, e kind of box, d date, h hour. After a kind "?" says that it may be missing, "+" that there may be
    /// more,
    /// "*" both. What stands in brackets can come several times, and each time is a step of its own.
    const char* argumentos;
    /// Plays it. Throws Falla when a person could not do it or what it says does not hold.
    void (*jugar)(Jugada& jugada, const guion::Argumentos& argumentos);
    /// It does something at the screens, so that it may go on with "dice", "responde", "archivo" and "foco".
    bool actua = true;
};

/// Nothing for a word that is no verb.
[[nodiscard]] const Verbo* buscarVerbo(const QString& nombre);
