#include "platform/data/formato.h"

namespace
{
/// Length of the run of one letter, in either case, that begins at `i`.
qsizetype corrida(QStringView patron, qsizetype i)
{
    const QChar letra = patron[i].toUpper();
    qsizetype n = i;
    while (n < patron.size() && patron[n].toUpper() == letra)
    {
        ++n;
    }
    return n - i;
}

/// Builds the text of a pattern: `parte` gives the number that a run of a letter stands for, written with as many
/// digits as the run has; what stands for nothing is a literal.
template <class P>
QString porPartes(QStringView patron, const P& parte)
{
    QString texto;
    for (qsizetype i = 0; i < patron.size();)
    {
        const qsizetype n = corrida(patron, i);
        const std::optional<int> numero = parte(patron[i].toUpper(), n);
        if (numero)
        {
            texto += QString::number(*numero).rightJustified(n, u'0');
        }
        else
        {
            texto += patron.sliced(i, n);
        }
        i += n;
    }
    return texto;
}

/// The number at the front of `texto`, of `minimo` to `maximo` digits.
std::optional<int> tomarEntero(QStringView& texto, int minimo, int maximo)
{
    int valor = 0;
    int n = 0;
    while (n < texto.size() && n <= maximo && texto[n] >= u'0' && texto[n] <= u'9')
    {
        valor = valor * 10 + (texto[n].unicode() - u'0');
        ++n;
    }
    if (n < minimo || n > maximo)
    {
        return std::nullopt;
    }
    texto = texto.sliced(n);
    return valor;
}

bool tomarBarra(QStringView& texto)
{
    const bool esta = texto.startsWith(u'/');
    texto = esta ? texto.sliced(1) : texto;
    return esta;
}

std::optional<QDate> fechaValida(int anio, int mes, int dia)
{
    const QDate fecha(anio, mes, dia);
    return fecha.isValid() && anio >= 100 ? std::optional(fecha) : std::nullopt;
}
} // namespace

QString Formato(QDate fecha, QStringView patron)
{
    if (!fecha.isValid())
    {
        return {};
    }
    return porPartes(patron,
                     [&](QChar letra, qsizetype n) -> std::optional<int>
                     {
                         if (letra == u'Y' && (n == 2 || n == 4))
                         {
                             return n == 2 ? fecha.year() % 100 : fecha.year();
                         }
                         if (n > 2 || (letra != u'D' && letra != u'M'))
                         {
                             return std::nullopt;
                         }
                         return letra == u'D' ? fecha.day() : fecha.month();
                     });
}

QString Formato(QTime hora, QStringView patron)
{
    if (!hora.isValid())
    {
        return {};
    }
    return porPartes(patron,
                     [&](QChar letra, qsizetype n) -> std::optional<int>
                     {
                         if (n > 2 || (letra != u'H' && letra != u'M' && letra != u'S'))
                         {
                             return std::nullopt;
                         }
                         return letra == u'H' ? hora.hour() : letra == u'M' ? hora.minute() : hora.second();
                     });
}

std::optional<QDate> LeerFecha(QStringView texto)
{
    texto = texto.trimmed();
    const auto dia = tomarEntero(texto, 1, 2);
    const bool primera = tomarBarra(texto);
    const auto mes = tomarEntero(texto, 1, 2);
    const bool segunda = tomarBarra(texto);
    const auto anio = tomarEntero(texto, 3, 4);
    if (!dia || !primera || !mes || !segunda || !anio || !texto.isEmpty())
    {
        return std::nullopt;
    }
    return fechaValida(*anio, *mes, *dia);
}

std::optional<QDate> LeerPeriodo(QStringView texto)
{
    texto = texto.trimmed();
    const auto anio = tomarEntero(texto, 4, 4);
    const bool barra = tomarBarra(texto);
    const auto mes = tomarEntero(texto, 1, 2);
    if (!anio || !barra || !mes || !texto.isEmpty())
    {
        return std::nullopt;
    }
    return fechaValida(*anio, *mes, 1);
}

int AnioCompleto(int dosDigitos)
{
    return dosDigitos + (dosDigitos < 30 ? 2000 : 1900);
}
