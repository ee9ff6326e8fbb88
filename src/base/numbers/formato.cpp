#include "base/numbers/formato.h"

#include "base/numbers/numeros.h"

#include <cmath>

using detalle::magnitud;

namespace
{
QString enGrupos(quint64 numero)
{
    QString texto = QString::number(numero);
    for (qsizetype i = texto.size() - 3; i > 0; i -= 3)
    {
        texto.insert(i, u'.');
    }
    return texto;
}

QString mostrar(Moneda importe, bool miles, const char* prefijo = "")
{
    const qint64 centavos = importe.enCentavos().diezMilesimos() / 100;
    const quint64 pesos = magnitud(centavos) / 100;
    return QLatin1String(centavos < 0 ? "-" : "") + QLatin1String(prefijo) +
           (miles ? enGrupos(pesos) : QString::number(pesos)) + u',' +
           ceros(static_cast<qint64>(magnitud(centavos) % 100), 2);
}
} // namespace

QString conMiles(Moneda importe)
{
    return mostrar(importe, true);
}

QString conMiles(qint64 numero)
{
    return QLatin1String(numero < 0 ? "-" : "") + enGrupos(magnitud(numero));
}

QString conPesos(Moneda importe)
{
    return mostrar(importe, true, "$ ");
}

QString sinMiles(Moneda importe)
{
    return mostrar(importe, false);
}

QString sinMiles(float importe)
{
    return mostrar(Moneda::enCentavos(importe), false);
}

QString ceros(qint64 numero, int ancho)
{
    return QLatin1String(numero < 0 ? "-" : "") + QString::number(magnitud(numero)).rightJustified(ancho, u'0');
}

std::optional<float> LeerNumero(QStringView texto)
{
    const auto digitos = detalle::desarmar(texto);
    return digitos ? detalle::aFlotante(*digitos) : std::nullopt;
}

float Redondear2(float valor)
{
    // A float times 100 is exact in a double, so a half is seen as one; nearbyint takes it to the even digit.
    return static_cast<float>(std::nearbyint(static_cast<double>(valor) * 100.0) / 100.0);
}

std::optional<QDate> LeerFecha(const QString& texto)
{
    constexpr int anioMinimo = 100;
    const QDate fecha = QDate::fromString(texto.trimmed(), QStringLiteral("d/M/yyyy"));
    return fecha.isValid() && fecha.year() >= anioMinimo ? std::optional(fecha) : std::nullopt;
}

int AnioCompleto(int dosDigitos)
{
    return dosDigitos + (dosDigitos < 30 ? 2000 : 1900);
}
