#include "slips/numero_boleta.h"

#include "base/digitos.h"
#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"

namespace
{
constexpr int largoSinVerificador = 49;
constexpr Moneda topeDeCincoEnteros = Moneda::deDiezMilesimos(999'999'900); // 99.999,99

QString centavos(Moneda importe, int ancho)
{
    return ceros(importe.enCentavos().diezMilesimos() / 100, ancho);
}

Moneda centesimaParte(Moneda importe)
{
    return Moneda::deDiezMilesimos(importe.diezMilesimos() / 100).redondeada(2);
}

/// The amounts as their fields show them, with two decimals, scaled for their seven digits.
QString aportesEnNumero(const Boleta& boleta)
{
    Moneda a = boleta.art100.enCentavos();
    Moneda b = boleta.art101A.enCentavos();
    if (a > topeDeCincoEnteros)
    {
        a = centesimaParte(a);
    }
    if (b > topeDeCincoEnteros)
    {
        b = centesimaParte(a);
    }
    return centavos(a, 7) + centavos(b, 7);
}

QString periodoEnNumero(const ClaveDDJJ& declaracion)
{
    return QString::number(declaracion.periodo.year()).mid(2, 2) + ceros(declaracion.periodo.month(), 2) +
           ceros(declaracion.secuencia, 1);
}

int digito(const QString& texto, int posicion)
{
    const int valor = posicion <= texto.size() ? texto[posicion - 1].digitValue() : -1;
    if (valor < 0)
    {
        throw ErrorParaAvisar(ErrorDeEjecucion::NoCoincidenTipos,
                              QStringLiteral("No se puede generar la Boleta: un importe es negativo.  Verifique la "
                                             "Nómina de Empleados.  No se ha grabado ningún dato."));
    }
    return valor;
}

/// A character's value; what is no digit counts 0.
int valorDe(QChar c)
{
    return esDigito(c) ? c.digitValue() : 0;
}

int verificadorDesdeElFinal(const QString& texto)
{
    int suma = 0;
    int peso = 3;
    for (auto c = texto.crbegin(); c != texto.crend(); ++c)
    {
        suma += valorDe(*c) * peso;
        peso = 4 - peso;
    }
    return (10 - suma % 10) % 10;
}
} // namespace

QString numeroBoleta(const Boleta& boleta)
{
    QString numero = QStringLiteral("1265") + centavos(boleta.importeTotal, 8);
    numero += QString(boleta.cuit).remove(QLatin1Char('-'));
    numero += QString::number(static_cast<int>(boleta.tipo));
    switch (boleta.tipo)
    {
    case TipoBoleta::Aportes:
        numero += periodoEnNumero(boleta.declaracion) + aportesEnNumero(boleta) + ceros(boleta.cantidadEmpleados, 3) +
                  ceros(boleta.cantidadAfiliados, 3);
        break;
    case TipoBoleta::Interes:
        numero += periodoEnNumero(boleta.declaracion) + ceros(boleta.dias, 2) + QString(18, QLatin1Char('0'));
        break;
    case TipoBoleta::Acta:
        numero += ceros(boleta.nroActa, 6) + ceros(boleta.cuota, 2) + QString::number(boleta.cuenta) +
                  ceros(boleta.dias, 2) + centavos(boleta.importeActa, 8) + QString(6, QLatin1Char('0'));
        break;
    }
    return numero + QString::number(digitoVerificador(numero));
}

int digitoVerificador(const QString& numero)
{
    int suma = 0;
    for (int posicion = 1; posicion <= largoSinVerificador; ++posicion)
    {
        suma += digito(numero, posicion) * (posicion % 2 == 1 ? 3 : 1);
    }
    return (10 - suma % 10) % 10;
}

QString StrToI2of5(const QString& tcString, bool parPoneDV)
{
    QString digitos = tcString;
    while (digitos.startsWith(QLatin1Char(' ')))
    {
        digitos.remove(0, 1);
    }
    while (digitos.endsWith(QLatin1Char(' ')))
    {
        digitos.chop(1);
    }
    if (parPoneDV)
    {
        digitos += QString::number(verificadorDesdeElFinal(digitos));
    }
    QString barras = QStringLiteral("(");
    for (qsizetype i = 0; i < digitos.size(); i += 2)
    {
        int par = valorDe(digitos[i]);
        if (i + 1 < digitos.size())
        {
            par = par * 10 + valorDe(digitos[i + 1]);
        }
        // Codes 192 to 241 are the same characters in Windows-1252 and in Unicode.
        barras += QChar(par < 50 ? par + 48 : par + 142);
    }
    return barras + QLatin1Char(')');
}
