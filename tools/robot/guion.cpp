#include "guion.h"

#include "teclas.h"
#include "verbos.h"

#include <QStringDecoder>

namespace guion
{
namespace
{
constexpr Caja todasLasClases[] = {Caja::Informacion, Caja::Exclamacion, Caja::Critico, Caja::Pregunta, Caja::Simple};

std::optional<Caja> claseDe(const Palabra& palabra)
{
    const auto* const hallada =
        std::ranges::find_if(todasLasClases, [&](Caja c) { return nombreDe(c) == palabra.texto; });
    return palabra.entreComillas || hallada == std::end(todasLasClases) ? std::nullopt : std::optional(*hallada);
}

/// Why a word is not of this kind; empty when it is.
QString porQueNo(char clase, const Palabra& palabra)
{
    const QString& texto = palabra.texto;
    bool bien = true;
    switch (clase)
    {
    case 'f':
    case 'n':
        return texto.toInt(&bien) < (clase == 'n' ? 1 : 0) || !bien
                   ? QStringLiteral("«%1» no es un número desde %2").arg(texto, clase == 'n' ? u'1' : u'0')
                   : QString();
    case 's':
        return leerSiNo(texto) ? QString() : QStringLiteral("se espera si o no, y dice «%1»").arg(texto);
    case 'x': // a text, or a key by its name
        if (palabra.entreComillas)
        {
            return {};
        }
        [[fallthrough]];
    case 'k':
        return !palabra.entreComillas && leerTeclas(texto) ? QString() : QStringLiteral("no hay tecla «%1»").arg(texto);
    case 'e':
        return claseDe(palabra) ? QString() : QStringLiteral("no hay cajas «%1»").arg(texto);
    case 'd':
        bien = QDate::fromString(texto, QStringLiteral("dd/MM/yyyy")).isValid();
        return bien ? QString() : QStringLiteral("«%1» no es una fecha DD/MM/AAAA").arg(texto);
    case 'h':
        bien = QTime::fromString(texto, QStringLiteral("HH:mm")).isValid();
        return bien ? QString() : QStringLiteral("«%1» no es una hora HH:MM").arg(texto);
    case 'c':
        return leerSiNo(texto) ? QStringLiteral("falta el nombre, y dice «%1»").arg(texto) : QString();
    case '!':
        return QStringLiteral("sobra «%1»").arg(texto);
    default:
        return {};
    }
}

/// Reads the words of one line from left to right.
class Lector
{
public:
    Lector(std::vector<Palabra> palabras, int linea)
        : m_palabras(std::move(palabras))
        , m_linea(linea)
    {
    }
    std::vector<Paso> leer(const QString& texto);

private:
    [[nodiscard]] bool quedan() const { return m_lugar < m_hasta; }
    [[nodiscard]] const Palabra& sacar() { return m_palabras[m_lugar++]; }
    [[noreturn]] void fallar(const QString& motivo) const { throw ErrorDeLectura(m_linea, motivo); }
    void exigir(char clase);
    void tomar(std::string_view clases, std::vector<Palabra>& tomadas);
    bool sigue();
    Despues despues();

    std::vector<Palabra> m_palabras;
    std::size_t m_lugar = 0;
    std::size_t m_hasta = 0; ///< where the words of the verb end
    int m_linea;
};

void Lector::exigir(char clase)
{
    const QString motivo = quedan() ? porQueNo(clase, m_palabras[m_lugar])
                                    : QStringLiteral("faltan argumentos de %1").arg(m_palabras.front().texto);
    if (!motivo.isEmpty())
    {
        fallar(motivo);
    }
}

/// Words of these kinds, each letter with "?", "*" or "+" after it.
void Lector::tomar(std::string_view clases, std::vector<Palabra>& tomadas)
{
    while (!clases.empty())
    {
        const char clase = clases.front();
        clases.remove_prefix(1);
        const char cuantas = clases.empty() ? ' ' : clases.front();
        const bool puedeFaltar = cuantas == '?' || cuantas == '*';
        const bool varias = cuantas == '+' || cuantas == '*';
        if (puedeFaltar || varias)
        {
            clases.remove_prefix(1);
        }
        if (!puedeFaltar)
        {
            exigir(clase);
            tomadas.push_back(sacar());
        }
        for (bool otra = puedeFaltar || varias; otra && quedan() && porQueNo(clase, m_palabras[m_lugar]).isEmpty();
             otra = varias)
        {
            tomadas.push_back(sacar());
        }
    }
}

bool esSufijo(const Palabra& palabra)
{
    static const QStringList todos = {"dice", "responde", "archivo", "foco"};
    return !palabra.entreComillas && todos.contains(palabra.texto);
}

/// The next word if it goes on with what the word before it began.
bool Lector::sigue()
{
    return quedan() && !esSufijo(m_palabras[m_lugar]);
}

Despues Lector::despues()
{
    Despues todo;
    while (quedan())
    {
        const QString cual = sacar().texto;
        do
        {
            if (cual == QStringLiteral("dice"))
            {
                const std::optional<Caja> clase = quedan() ? claseDe(m_palabras[m_lugar]) : std::nullopt;
                m_lugar += clase ? 1U : 0U;
                exigir('t');
                todo.cajas.push_back({clase, sacar().texto});
            }
            else if (cual == QStringLiteral("responde"))
            {
                exigir('s');
                todo.respuestas.push_back(*leerSiNo(sacar().texto));
            }
            else if (cual == QStringLiteral("archivo"))
            {
                exigir('t');
                todo.archivos += sacar().texto;
            }
            else
            {
                exigir(todo.foco.isEmpty() ? 'c' : '!');
                todo.foco = sacar().texto;
            }
        } while (sigue());
    }
    return todo;
}

std::vector<Paso> Lector::leer(const QString& texto)
{
    const QString& nombre = m_palabras.front().texto;
    const Verbo* verbo = buscarVerbo(nombre);
    if (verbo == nullptr)
    {
        fallar(QStringLiteral("no hay acción «%1»").arg(nombre));
    }
    m_lugar = 1;
    m_hasta =
        static_cast<std::size_t>(std::find_if(m_palabras.begin() + 1, m_palabras.end(), esSufijo) - m_palabras.begin());
    const std::string_view clases = verbo->argumentos;
    const std::size_t grupo = clases.find('(');
    std::vector<Palabra> fijas;
    tomar(clases.substr(0, grupo), fijas);
    std::vector<Paso> pasos;
    do
    {
        std::vector<Palabra> palabras = fijas;
        if (grupo != std::string_view::npos)
        {
            tomar(clases.substr(grupo + 1, clases.size() - grupo - 2), palabras);
        }
        pasos.push_back({m_linea, pasos.empty() ? texto : QString(), verbo, Argumentos(std::move(palabras)), {}});
    } while (quedan() && grupo != std::string_view::npos);
    if (quedan())
    {
        fallar(QStringLiteral("%1 no lleva «%2»").arg(nombre, m_palabras[m_lugar].texto));
    }
    m_hasta = m_palabras.size();
    if (quedan() && !verbo->actua)
    {
        fallar(QStringLiteral("%1 no hace nada: no lleva «%2»").arg(nombre, m_palabras[m_lugar].texto));
    }
    pasos.back().despues = despues();
    return pasos;
}

/// The text in quotes that begins at `lugar`, which is left after the closing quote. In it \" is a quote, \\ a
/// backslash and \n a line end; any other backslash stands for itself.
QString leerComillas(const QString& texto, qsizetype& lugar, int linea)
{
    QString palabra;
    for (++lugar; lugar < texto.size(); ++lugar)
    {
        const QChar letra = texto.at(lugar);
        if (letra == u'"')
        {
            ++lugar;
            if (lugar < texto.size() && !texto.at(lugar).isSpace())
            {
                throw ErrorDeLectura(linea, QStringLiteral("después de las comillas falta un blanco"));
            }
            return palabra;
        }
        const QChar otra = letra == u'\\' && lugar + 1 < texto.size() ? texto.at(lugar + 1) : QChar();
        if (otra == u'"' || otra == u'\\' || otra == u'n')
        {
            palabra += otra == u'n' ? QChar(u'\n') : otra;
            ++lugar;
            continue;
        }
        palabra += letra;
    }
    throw ErrorDeLectura(linea, QStringLiteral("faltan las comillas que cierran"));
}

/// A "#" that begins a word outside quotes begins a comment.
std::vector<Palabra> palabrasDe(const QString& texto, int linea)
{
    std::vector<Palabra> lista;
    qsizetype lugar = 0;
    while (lugar < texto.size() && texto.at(lugar) != u'#')
    {
        if (texto.at(lugar).isSpace())
        {
            ++lugar;
            continue;
        }
        if (texto.at(lugar) == u'"')
        {
            lista.push_back({leerComillas(texto, lugar, linea), true});
            continue;
        }
        const qsizetype desde = lugar;
        while (lugar < texto.size() && !texto.at(lugar).isSpace())
        {
            ++lugar;
        }
        lista.push_back({texto.sliced(desde, lugar - desde)});
    }
    return lista;
}
} // namespace

QStringList Argumentos::textos(std::size_t desde) const
{
    QStringList lista;
    for (std::size_t i = desde; i < m_palabras.size(); ++i)
    {
        lista += m_palabras[i].texto;
    }
    return lista;
}

bool Argumentos::siNo(std::size_t n) const
{
    return leerSiNo(texto(n)).value();
}

ErrorDeLectura::ErrorDeLectura(int numeroDeLinea, const QString& queFalla)
    : std::runtime_error(QStringLiteral("línea %1: %2").arg(numeroDeLinea).arg(queFalla).toStdString())
    , m_linea(numeroDeLinea)
    , m_motivo(queFalla)
{
}

std::vector<Paso> leer(const QByteArray& utf8)
{
    QStringDecoder decodificador(QStringDecoder::Utf8);
    const QString todo = decodificador(utf8);
    if (decodificador.hasError())
    {
        throw ErrorDeLectura(1, QStringLiteral("el guion no está en UTF-8"));
    }
    std::vector<Paso> pasos;
    int linea = 0;
    for (const QString& texto : todo.split(u'\n'))
    {
        ++linea;
        if (std::vector<Palabra> palabras = palabrasDe(texto, linea); !palabras.empty())
        {
            std::ranges::move(Lector(std::move(palabras), linea).leer(texto.trimmed()), std::back_inserter(pasos));
        }
    }
    return pasos;
}

QString entreComillas(const QString& texto)
{
    QString dentro = texto;
    dentro.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    dentro.remove(u'\r').replace(u'\n', QStringLiteral("\\n"));
    return u'"' + dentro + u'"';
}

std::optional<bool> leerSiNo(const QString& texto)
{
    const QString bajo = texto.toLower();
    if (bajo == QStringLiteral("si") || bajo == QStringLiteral("sí"))
    {
        return true;
    }
    return bajo == QStringLiteral("no") ? std::optional<bool>(false) : std::nullopt;
}

QString nombreDe(Caja clase)
{
    switch (clase)
    {
    case Caja::Informacion:
        return QStringLiteral("informacion");
    case Caja::Exclamacion:
        return QStringLiteral("exclamacion");
    case Caja::Critico:
        return QStringLiteral("critico");
    case Caja::Pregunta:
        return QStringLiteral("pregunta");
    case Caja::Simple:
        break;
    }
    return QStringLiteral("simple");
}
} // namespace guion
