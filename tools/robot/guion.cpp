#include "guion.h"

#include "teclas.h"

#include <QDate>
#include <QStringDecoder>
#include <QTime>
#include <algorithm>
#include <iterator>

namespace guion
{
namespace
{
/// In the order of Caja.
constexpr const char* nombresDeCajas[] = {"informacion", "exclamacion", "critico", "pregunta", "simple"};

std::optional<Caja> claseDe(const Palabra& palabra)
{
    const auto* const hallada =
        std::ranges::find_if(nombresDeCajas, [&](const char* nombre) { return palabra.texto == nombre; });
    return palabra.citada || hallada == std::end(nombresDeCajas)
               ? std::nullopt
               : std::optional(static_cast<Caja>(hallada - nombresDeCajas));
}

/// What a word of this kind is called; with the word, whether it is one.
std::pair<bool, const char*> mirar(char clase, const Palabra& palabra)
{
    const QString& texto = palabra.texto;
    switch (clase)
    {
    case 'n':
        return {texto.toInt() > 0, "un número desde 1"};
    case 'f':
        return {texto.toInt() > 0 || texto == "0", "un número desde 0"};
    case 's':
        return {leerSiNo(texto).has_value(), "si o no"};
    case 'k':
        return {!palabra.citada && leerTeclas(texto), "una tecla"};
    case 'x':
        return {palabra.citada || leerTeclas(texto), "una tecla o un texto entre comillas"};
    case 'e':
        return {claseDe(palabra).has_value(), "una clase de caja"};
    case 'd':
        return {QDate::fromString(texto, "dd/MM/yyyy").isValid(), "una fecha DD/MM/AAAA"};
    case 'h':
        return {QTime::fromString(texto, "HH:mm").isValid(), "una hora HH:MM"};
    case 'c':
        return {!leerSiNo(texto), "un nombre"};
    default:
        return {true, "un texto"};
    }
}

bool esSufijo(const Palabra& palabra)
{
    static const QStringList todos = {"dice", "responde", "archivo", "foco"};
    return !palabra.citada && todos.contains(palabra.texto);
}

std::pair<const Verbo*, bool> buscarVerbo(const QString& nombre)
{
    for (const auto& verbos : {verbosQueActuan(), verbosDeGrilla(), verbosQuePreparan(), verbosQueMiran()})
    {
        const auto hallado = std::ranges::find_if(verbos, [&](const Verbo& v) { return nombre == v.nombre; });
        if (hallado != verbos.end())
        {
            const bool actua = verbos.data() == verbosQueActuan().data() || verbos.data() == verbosDeGrilla().data();
            return {&*hallado, actua};
        }
    }
    throw Falla("no hay acción «%1»", nombre);
}

/// Reads the words of one line from left to right.
class Lector
{
public:
    explicit Lector(std::vector<Palabra> palabras)
        : m_palabras(std::move(palabras))
    {
    }
    std::vector<Paso> leer();

private:
    [[nodiscard]] bool quedan() const { return m_lugar < m_hasta; }
    [[nodiscard]] bool es(char clase) const { return quedan() && mirar(clase, m_palabras[m_lugar]).first; }
    Argumentos tomar(std::string_view clases);
    void tomarSufijo(Paso& paso);

    std::vector<Palabra> m_palabras;
    std::size_t m_lugar = 1;
    std::size_t m_hasta = 0; ///< where the words of the verb end
};

/// Words of these kinds, each letter with "?", "*" or "+" after it.
Argumentos Lector::tomar(std::string_view clases)
{
    Argumentos tomadas;
    while (!clases.empty())
    {
        const char clase = clases.front();
        clases.remove_prefix(1);
        const char cuantas = clases.empty() ? ' ' : clases.front();
        const bool puedeFaltar = cuantas == '?' || cuantas == '*';
        const bool varias = cuantas == '+' || cuantas == '*';
        clases.remove_prefix(puedeFaltar || varias ? 1 : 0);
        if (!puedeFaltar && !es(clase))
        {
            throw Falla("se espera %1, y %2", mirar(clase, {}).second,
                        quedan() ? QString("dice «%1»").arg(m_palabras[m_lugar].texto) : "no hay más");
        }
        do
        {
            if (es(clase))
            {
                tomadas.push_back(m_palabras[m_lugar++]);
            }
        } while (varias && es(clase));
    }
    return tomadas;
}

void Lector::tomarSufijo(Paso& paso)
{
    const QString cual = m_palabras[m_lugar++].texto;
    do
    {
        if (cual == "dice")
        {
            const Argumentos caja = tomar("e?t");
            paso.cajas.push_back({caja.size() > 1 ? claseDe(caja[0]) : std::nullopt, caja.back().texto});
        }
        else if (cual == "foco" && !paso.foco.isEmpty())
        {
            throw Falla("el foco está en un solo lugar");
        }
        else
        {
            const QString texto = tomar(cual == "responde" ? "s" : cual == "foco" ? "c" : "t")[0].texto;
            (cual == "foco"       ? paso.foco
             : cual == "responde" ? paso.respuestas.emplaceBack()
                                  : paso.archivos.emplaceBack()) = texto;
        }
    } while (quedan() && !esSufijo(m_palabras[m_lugar]));
}

std::vector<Paso> Lector::leer()
{
    const auto [verbo, actua] = buscarVerbo(m_palabras.front().texto);
    const auto fin = std::find_if(m_palabras.begin() + 1, m_palabras.end(), esSufijo);
    m_hasta = static_cast<std::size_t>(fin - m_palabras.begin());
    const std::string_view clases = verbo->argumentos;
    const std::size_t grupo = std::min(clases.find('('), clases.size());
    const Argumentos fijas = tomar(clases.substr(0, grupo));
    std::vector<Paso> pasos;
    do
    {
        Paso& paso = pasos.emplace_back();
        paso.verbo = verbo;
        paso.actua = actua;
        paso.argumentos = fijas;
        if (grupo < clases.size())
        {
            std::ranges::move(tomar(clases.substr(grupo + 1, clases.size() - grupo - 2)),
                              std::back_inserter(paso.argumentos));
        }
    } while (quedan() && grupo < clases.size());
    m_hasta = actua ? m_hasta : m_palabras.size();
    if (quedan())
    {
        throw Falla("sobra «%1»", m_palabras[m_lugar].texto);
    }
    m_hasta = m_palabras.size();
    while (quedan())
    {
        tomarSufijo(pasos.back());
    }
    pasos.front().archivos.swap(pasos.back().archivos); // a dialog may come at any of them
    return pasos;
}

/// The text in quotes that begins at `lugar`, which is left after the closing quote. In it \" is a quote, \\ a
/// backslash and \n a line end; any other backslash stands for itself.
QString leerComillas(const QString& texto, qsizetype& lugar)
{
    QString palabra;
    for (++lugar; lugar < texto.size() && texto.at(lugar) != u'"'; ++lugar)
    {
        const QChar otra = lugar + 1 < texto.size() ? texto.at(lugar + 1) : QChar();
        if (texto.at(lugar) == u'\\' && (otra == u'"' || otra == u'\\' || otra == u'n'))
        {
            palabra += otra == u'n' ? QChar(u'\n') : otra;
            ++lugar;
            continue;
        }
        palabra += texto.at(lugar);
    }
    if (lugar == texto.size())
    {
        throw Falla("faltan las comillas que cierran");
    }
    if (++lugar < texto.size() && !texto.at(lugar).isSpace())
    {
        throw Falla("después de las comillas falta un blanco");
    }
    return palabra;
}

/// A "#" that begins a word outside quotes begins a comment.
std::vector<Palabra> palabrasDe(const QString& texto)
{
    std::vector<Palabra> lista;
    qsizetype lugar = 0;
    while (lugar < texto.size() && texto.at(lugar) != u'#')
    {
        if (texto.at(lugar) == u'"')
        {
            lista.push_back({leerComillas(texto, lugar), true});
            continue;
        }
        const qsizetype desde = lugar;
        while (lugar < texto.size() && !texto.at(lugar).isSpace())
        {
            ++lugar;
        }
        if (lugar > desde)
        {
            lista.push_back({texto.sliced(desde, lugar - desde)});
        }
        else
        {
            ++lugar;
        }
    }
    return lista;
}
} // namespace

QStringList textos(const Argumentos& a, std::size_t desde)
{
    QStringList lista;
    std::for_each(a.begin() + static_cast<std::ptrdiff_t>(desde), a.end(),
                  [&](const Palabra& palabra) { lista += palabra.texto; });
    return lista;
}

std::vector<Paso> leer(const QByteArray& utf8)
{
    QStringDecoder decodificador(QStringDecoder::Utf8);
    const QStringList lineas = QString(decodificador(utf8)).split(u'\n');
    if (decodificador.hasError())
    {
        throw Falla("el guion no está en UTF-8");
    }
    std::vector<Paso> pasos;
    for (int i = 0; i < lineas.size(); ++i)
    {
        try
        {
            std::vector<Palabra> palabras = palabrasDe(lineas[i]);
            const std::size_t antes = pasos.size();
            if (!palabras.empty())
            {
                std::ranges::move(Lector(std::move(palabras)).leer(), std::back_inserter(pasos));
                pasos[antes].texto = lineas[i].trimmed();
            }
            std::for_each(pasos.begin() + static_cast<std::ptrdiff_t>(antes), pasos.end(),
                          [&](Paso& paso) { paso.linea = i + 1; });
        }
        catch (const Falla& falla)
        {
            throw Falla("línea %1: %2", i + 1, falla.motivo());
        }
    }
    return pasos;
}

QString entreComillas(const QString& texto)
{
    QString dentro = texto;
    dentro.replace("\\", "\\\\").replace("\"", "\\\"").remove(u'\r').replace("\n", "\\n");
    return u'"' + dentro + u'"';
}

std::optional<bool> leerSiNo(const QString& texto)
{
    const QString bajo = texto.toLower();
    return bajo == "no" ? std::optional(false) : bajo == "si" || bajo == "sí" ? std::optional(true) : std::nullopt;
}

QString nombreDe(Caja clase)
{
    return nombresDeCajas[static_cast<std::size_t>(clase)];
}
} // namespace guion
