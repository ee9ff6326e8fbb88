#include "base/db/espanol.h"

#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "base/utf8.h"

#include <QChar>
#include <array>
#include <sqlite3.h>
#include <string>

namespace
{
/// Where a character sorts: first by `letra`, and between texts equal in that by `acento`.
struct Peso
{
    char32_t letra = 0;
    char32_t acento = 0;
};

constexpr unsigned char minusculaAscii(unsigned char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<unsigned char>(c + ('a' - 'A')) : c;
}

constexpr std::array<unsigned char, 128> hacerPlegadas()
{
    std::array<unsigned char, 128> tabla{};
    for (unsigned char c = 0; c < 128; ++c)
    {
        tabla[c] = minusculaAscii(c);
    }
    return tabla;
}
constexpr std::array<unsigned char, 128> plegadas = hacerPlegadas();

char32_t plegar(char32_t c)
{
    if (c < 0x80)
    {
        return plegadas[c];
    }
    return c < 0x110000U ? QChar::toCaseFolded(c) : c;
}

/// Letters take even places, so that ñ finds room after n.
Peso pesarSinTabla(char32_t c)
{
    c = plegar(c);
    if (c < 0x80 || c >= 0x110000U)
    {
        return {c * 2, 0};
    }
    if (c == U'ñ')
    {
        return {U'n' * 2 + 1, 0};
    }
    const QString partes = QChar::decomposition(c);
    if (partes.size() == 2 && partes[0].unicode() < 0x80 && QChar::decompositionTag(c) == QChar::Canonical)
    {
        return {char32_t{plegadas[partes[0].unicode()]} * 2, partes[1].unicode()};
    }
    return {c * 2, 0};
}

Peso pesar(char32_t c)
{
    static const std::array<Peso, 0x180> latinas = []
    {
        std::array<Peso, 0x180> tabla;
        for (char32_t letra = 0; letra < tabla.size(); ++letra)
        {
            tabla[letra] = pesarSinTabla(letra);
        }
        return tabla;
    }();
    return c < latinas.size() ? latinas[c] : pesarSinTabla(c);
}

/// The texts are equal, but for case, before `i` and `j`.
int compararDesde(std::string_view a, std::string_view b, std::size_t i, std::size_t j)
{
    int acentos = 0;
    while (i < a.size() && j < b.size())
    {
        const Peso izquierdo = pesar(tomarCaracter(a, i));
        const Peso derecho = pesar(tomarCaracter(b, j));
        if (izquierdo.letra != derecho.letra)
        {
            return izquierdo.letra < derecho.letra ? -1 : 1;
        }
        if (acentos == 0 && izquierdo.acento != derecho.acento)
        {
            acentos = izquierdo.acento < derecho.acento ? -1 : 1;
        }
    }
    if (i < a.size() || j < b.size())
    {
        return i < a.size() ? 1 : -1;
    }
    return acentos;
}

int compararParaSqlite(void* /*nada*/, int largoA, const void* a, int largoB, const void* b)
{
    return compararEspanol({static_cast<const char*>(a), static_cast<std::size_t>(largoA)},
                           {static_cast<const char*>(b), static_cast<std::size_t>(largoB)});
}

/// The text with its letters folded, so that what differs only in case is equal byte by byte.
std::string plegado(std::string_view texto)
{
    std::string todo;
    todo.reserve(texto.size());
    for (std::size_t i = 0; i < texto.size();)
    {
        const std::size_t antes = i;
        const char32_t c = tomarCaracter(texto, i);
        const char32_t llano = plegar(c);
        if (c < 0x80)
        {
            todo += static_cast<char>(llano);
        }
        else if (llano == c)
        {
            todo.append(texto, antes, i - antes);
        }
        else
        {
            todo += QString::fromUcs4(&llano, 1).toStdString();
        }
    }
    return todo;
}

std::string_view textoDe(sqlite3_value* valor)
{
    const auto* texto = sqlite3_value_text(valor);
    return {reinterpret_cast<const char*>(texto), static_cast<std::size_t>(sqlite3_value_bytes(valor))};
}

void likeEspanol(sqlite3_context* contexto, int cantidad, sqlite3_value** valores)
{
    for (int i = 0; i < cantidad; ++i)
    {
        if (sqlite3_value_type(valores[i]) == SQLITE_NULL)
        {
            return; // the result stays Null
        }
    }
    char32_t escape = 0;
    if (cantidad == 3)
    {
        const std::string_view texto = textoDe(valores[2]);
        std::size_t i = 0;
        escape = texto.empty() ? 0 : tomarCaracter(texto, i);
        if (i == 0 || i != texto.size())
        {
            sqlite3_result_error(contexto, "ESCAPE expression must be a single character", -1);
            return;
        }
    }
    const std::string patron = plegado(textoDe(valores[0]));
    const std::string texto = plegado(textoDe(valores[1]));
    sqlite3_result_int(contexto, sqlite3_strlike(patron.c_str(), texto.c_str(), plegar(escape)) == 0 ? 1 : 0);
}
} // namespace

int compararEspanol(std::string_view a, std::string_view b)
{
    const std::size_t comun = std::min(a.size(), b.size());
    for (std::size_t i = 0; i < comun; ++i)
    {
        const auto izquierdo = static_cast<unsigned char>(a[i]);
        const auto derecho = static_cast<unsigned char>(b[i]);
        if ((izquierdo | derecho) >= 0x80)
        {
            return compararDesde(a, b, i, i);
        }
        if (plegadas[izquierdo] != plegadas[derecho])
        {
            return plegadas[izquierdo] < plegadas[derecho] ? -1 : 1;
        }
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

void detalle::registrarEspanol(sqlite3* base)
{
    constexpr int modo = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const bool hecho =
        sqlite3_create_collation_v2(base, "espanol", SQLITE_UTF8, nullptr, compararParaSqlite, nullptr) == SQLITE_OK &&
        sqlite3_create_function_v2(base, "like", 2, modo, nullptr, likeEspanol, nullptr, nullptr, nullptr) ==
            SQLITE_OK &&
        sqlite3_create_function_v2(base, "like", 3, modo, nullptr, likeEspanol, nullptr, nullptr, nullptr) == SQLITE_OK;
    if (!hecho)
    {
        throw ErrorDeEjecucion(sqlite3_extended_errcode(base), QString::fromUtf8(sqlite3_errmsg(base)));
    }
}
