#pragma once

#include "platform/screens/mensajes.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <optional>
#include <stdexcept>
#include <vector>

struct Verbo;

/// Acceptance scripts: UTF-8, one line an action, "#" comments, texts with blanks in double quotes.
namespace guion
{
struct Palabra
{
    QString texto;
    bool entreComillas = false;
};

/// The words after a verb, whose kinds leer() has looked at.
class Argumentos
{
public:
    Argumentos() = default;
    explicit Argumentos(std::vector<Palabra> palabras)
        : m_palabras(std::move(palabras))
    {
    }
    [[nodiscard]] std::size_t cantidad() const { return m_palabras.size(); }
    [[nodiscard]] const Palabra& palabra(std::size_t n) const { return m_palabras.at(n); }
    [[nodiscard]] const QString& texto(std::size_t n) const { return m_palabras.at(n).texto; }
    [[nodiscard]] QStringList textos(std::size_t desde) const;
    [[nodiscard]] int numero(std::size_t n) const { return texto(n).toInt(); }
    [[nodiscard]] bool siNo(std::size_t n) const;

private:
    std::vector<Palabra> m_palabras;
};

struct CajaEsperada
{
    std::optional<Caja> clase;
    QString texto;
};

/// What a line says of what comes of its action.
struct Despues
{
    std::vector<CajaEsperada> cajas;
    std::vector<bool> respuestas;
    QStringList archivos;
    QString foco;
};

/// A line that does several things of a kind is as many steps; only the first has its text.
struct Paso
{
    int linea = 0; ///< of the script, from 1
    QString texto; ///< the line as it stands there, without the blanks around it
    const Verbo* verbo = nullptr;
    Argumentos argumentos;
    Despues despues;
};

/// A line that cannot be read.
class ErrorDeLectura : public std::runtime_error
{
public:
    ErrorDeLectura(int numeroDeLinea, const QString& queFalla);
    [[nodiscard]] int linea() const { return m_linea; }
    [[nodiscard]] const QString& motivo() const { return m_motivo; }

private:
    int m_linea;
    QString m_motivo;
};

/// The whole script, so that nothing is played of one that cannot be read. Throws ErrorDeLectura.
[[nodiscard]] std::vector<Paso> leer(const QByteArray& utf8);

/// A text as it stands between quotes in a script or in the transcript, on one line.
[[nodiscard]] QString entreComillas(const QString& texto);

/// "Si", "Sí" or "No", whatever the case; nothing for another text.
[[nodiscard]] std::optional<bool> leerSiNo(const QString& texto);

/// "informacion", "exclamacion", "critico", "pregunta" or "simple".
[[nodiscard]] QString nombreDe(Caja clase);
} // namespace guion
