#pragma once

#include "falla.h"
#include "ui/doors/mensajes.h"

#include <QByteArray>
#include <QStringList>
#include <optional>
#include <span>
#include <vector>

class Jugada;

/// Acceptance scripts: UTF-8, one line an action, "#" comments, texts with blanks in double quotes.
namespace guion
{
struct Palabra
{
    QString texto;
    bool citada = false; ///< it stands in quotes
    [[nodiscard]] int numero() const { return texto.toInt(); }
};
/// The words after a verb. Their kinds are what the verb asks for.
using Argumentos = std::vector<Palabra>;
[[nodiscard]] QStringList textos(const Argumentos& a, std::size_t desde);

/// A word with which a line can begin.
struct Verbo
{
    const char* nombre;
    /// Kinds of its arguments: c control or window, t text, n number from 1, f number from 0, s yes or no, k key, x
    /// text or key, e kind of box, d date, h hour. After a kind "?" says that it may be missing, "+" that there may be
    /// more,
    /// "*" both. What stands in brackets can come several times, and each time is a step of its own.
    const char* argumentos;
    /// Plays it. Throws Falla when a person could not do it or what it says does not hold.
    void (*jugar)(const Jugada&, const Argumentos&);
};
/// The verbs that act, after which a line can say what comes of it; those that act on grids; and the others.
[[nodiscard]] std::span<const Verbo> verbosQueActuan();
[[nodiscard]] std::span<const Verbo> verbosDeGrilla();
[[nodiscard]] std::span<const Verbo> verbosQuePreparan();
[[nodiscard]] std::span<const Verbo> verbosQueMiran();

struct CajaEsperada
{
    std::optional<Caja> clase;
    QString texto;
};

/// A line that does several things of a kind is as many steps; only the first has its text and its answers to file
/// dialogs, only the last what else comes of it.
struct Paso
{
    int linea = 0; ///< of the script, from 1
    QString texto; ///< the line as it stands there, without the blanks around it
    const Verbo* verbo = nullptr;
    bool actua = false;
    Argumentos argumentos;
    // What the line says of what comes of its action.
    std::vector<CajaEsperada> cajas;
    QStringList respuestas;
    QStringList archivos;
    QString foco;
};

/// The whole script, so that nothing is played of one that cannot be read. Throws Falla with the line.
[[nodiscard]] std::vector<Paso> leer(const QByteArray& utf8);

/// A text as it stands between quotes in a script or in the transcript, on one line.
[[nodiscard]] QString entreComillas(const QString& texto);
/// "Si", "Sí" or "No", whatever the case; nothing for another text.
[[nodiscard]] std::optional<bool> leerSiNo(const QString& texto);
/// "informacion", "exclamacion", "critico", "pregunta" or "simple".
[[nodiscard]] QString nombreDe(Caja clase);
} // namespace guion
