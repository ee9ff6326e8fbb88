#include "base/db/preparada.h"

#include <charconv>

namespace
{
constexpr QStringView formatoDeHora = u"HH:mm:ss";

[[noreturn]] void noCoincide(const char* columna)
{
    throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos, QString::fromUtf8(columna));
}

/// The whole of the text as a number; false when it is none.
template <class N>
bool leerEntero(std::string_view texto, N& numero)
{
    const auto fin = std::from_chars(texto.data(), texto.data() + texto.size(), numero);
    return fin.ec == std::errc() && fin.ptr == texto.data() + texto.size();
}

/// Writes `n`, not negative, over the `ancho` bytes from `desde` on: the toolkit's own text of a date costs a fifth of
/// what storing a row does.
void ponerDigitos(QByteArray& texto, qsizetype desde, qsizetype ancho, int n)
{
    for (qsizetype i = desde + ancho; i-- > desde; n /= 10)
    {
        texto[i] = static_cast<char>('0' + n % 10);
    }
}
} // namespace

Valor::Valor(const QString& texto)
    : m_clase(Clase::Texto)
    , m_propio(texto.toUtf8())
{
}

Valor::Valor(QDate fecha)
{
    if (!fecha.isValid())
    {
        return;
    }
    if (fecha.year() < 0 || fecha.year() > 9999)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos);
    }
    m_clase = Clase::Texto;
    m_propio = QByteArrayLiteral("0000-00-00");
    ponerDigitos(m_propio, 0, 4, fecha.year());
    ponerDigitos(m_propio, 5, 2, fecha.month());
    ponerDigitos(m_propio, 8, 2, fecha.day());
}

Valor::Valor(QTime hora)
{
    if (!hora.isValid())
    {
        return;
    }
    m_clase = Clase::Texto;
    m_propio = hora.toString(formatoDeHora).toLatin1();
}

Fila::Celda Fila::celda(const char* columna) const
{
    const int numero = m_columnas->numero(columna);
    sqlite3_stmt* sentencia = m_preparada->sentencia;
    switch (sqlite3_column_type(sentencia, numero))
    {
    case SQLITE_NULL:
        return {};
    case SQLITE_INTEGER:
        return {Valor::Clase::Entero, sqlite3_column_int64(sentencia, numero), {}};
    default:
        const auto* texto = reinterpret_cast<const char*>(sqlite3_column_text(sentencia, numero));
        const auto largo = static_cast<std::size_t>(sqlite3_column_bytes(sentencia, numero));
        return {Valor::Clase::Texto, 0, {texto == nullptr ? "" : texto, largo}};
    }
}

bool Fila::esNulo(const char* columna) const
{
    return sqlite3_column_type(m_preparada->sentencia, m_columnas->numero(columna)) == SQLITE_NULL;
}

std::optional<qint64> Fila::enteroONulo(const char* columna) const
{
    const Celda leida = celda(columna);
    if (leida.clase == Valor::Clase::Nulo)
    {
        return std::nullopt;
    }
    qint64 numero = leida.entero;
    if (leida.clase == Valor::Clase::Texto && !leerEntero(leida.texto, numero))
    {
        noCoincide(columna);
    }
    return numero;
}

qint64 Fila::entero(const char* columna) const
{
    const int cual = m_columnas->numero(columna);
    if (sqlite3_column_type(m_preparada->sentencia, cual) == SQLITE_INTEGER)
    {
        return sqlite3_column_int64(m_preparada->sentencia, cual);
    }
    const auto numero = enteroONulo(columna);
    if (!numero)
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::UsoDeNull, QString::fromUtf8(columna));
    }
    return *numero;
}

QString Fila::texto(const char* columna) const
{
    return textoONulo(columna).value_or(QStringLiteral(""));
}

std::optional<QString> Fila::textoONulo(const char* columna) const
{
    const Celda leida = celda(columna);
    switch (leida.clase)
    {
    case Valor::Clase::Nulo:
        return std::nullopt;
    case Valor::Clase::Entero:
        return QString::number(leida.entero);
    case Valor::Clase::Texto:
        break;
    }
    return QString::fromUtf8(leida.texto.data(), static_cast<qsizetype>(leida.texto.size()));
}

std::string_view Fila::utf8(const char* columna) const
{
    const Celda leida = celda(columna);
    if (leida.clase == Valor::Clase::Entero)
    {
        noCoincide(columna);
    }
    return leida.texto;
}

QDate Fila::fecha(const char* columna) const
{
    const Celda leida = celda(columna);
    if (leida.clase == Valor::Clase::Nulo)
    {
        return {};
    }
    const std::string_view texto = leida.texto;
    unsigned anio = 0;
    unsigned mes = 0;
    unsigned dia = 0;
    if (texto.size() != 10 || texto[4] != '-' || texto[7] != '-' || !leerEntero(texto.substr(0, 4), anio) ||
        !leerEntero(texto.substr(5, 2), mes) || !leerEntero(texto.substr(8, 2), dia))
    {
        noCoincide(columna);
    }
    const QDate fecha(static_cast<int>(anio), static_cast<int>(mes), static_cast<int>(dia));
    if (!fecha.isValid())
    {
        noCoincide(columna);
    }
    return fecha;
}

QTime Fila::hora(const char* columna) const
{
    const Celda leida = celda(columna);
    const QTime hora = QTime::fromString(
        QString::fromUtf8(leida.texto.data(), static_cast<qsizetype>(leida.texto.size())), formatoDeHora);
    if (leida.clase != Valor::Clase::Nulo && !hora.isValid())
    {
        noCoincide(columna);
    }
    return hora;
}

Moneda Fila::moneda(const char* columna) const
{
    return Moneda::deDiezMilesimos(entero(columna));
}

bool Fila::si(const char* columna) const
{
    return enteroONulo(columna).value_or(0) != 0;
}

int Fila::columnas() const
{
    return static_cast<int>(m_columnas->columnas.size());
}

const char* Fila::nombre(int numero) const
{
    return m_columnas->columnas.at(static_cast<std::size_t>(numero)).c_str();
}
