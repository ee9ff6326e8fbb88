#include "platform/screens/grilla_celdas.h"

#include "platform/data/error_de_ejecucion.h"
#include "platform/data/formato.h"

namespace
{
constexpr QStringView patronImporte = u"#,##0.00";

std::optional<Moneda> leerImporte(const QString& texto)
{
    try
    {
        return Moneda::deTexto(texto).redondeada(2);
    }
    catch (const ErrorDeEjecucion&)
    {
        return std::nullopt;
    }
}

bool soloCifras(QStringView texto)
{
    for (const QChar c : texto)
    {
        if (c < u'0' || c > u'9')
        {
            return false;
        }
    }
    return !texto.isEmpty();
}

/// Day, month and year between slashes; "_" is a place of the mask where nothing was typed.
std::optional<QDate> leerFechaDeCelda(QString texto)
{
    texto.remove(u'_').remove(u' ');
    const QStringList partes = texto.split(u'/');
    if (partes.size() != 3 || !soloCifras(partes[0]) || !soloCifras(partes[1]) || !soloCifras(partes[2]) ||
        partes[0].size() > 2 || partes[1].size() > 2)
    {
        return std::nullopt;
    }
    int anio = partes[2].toInt();
    if (partes[2].size() == 2)
    {
        anio = AnioCompleto(anio);
    }
    else if (partes[2].size() != 4)
    {
        return std::nullopt;
    }
    const QDate fecha(anio, partes[1].toInt(), partes[0].toInt());
    return fecha.isValid() ? std::optional(fecha) : std::nullopt;
}

QVariant aMoneda(const QVariant& valor)
{
    try
    {
        switch (valor.typeId())
        {
        case QMetaType::Int:
        case QMetaType::UInt:
        case QMetaType::LongLong:
            return QVariant::fromValue(Moneda::deEntero(valor.toLongLong()));
        case QMetaType::Double:
        case QMetaType::Float:
            return QVariant::fromValue(Moneda::deFlotante(valor.toDouble()));
        default:
            return valor.toString().isEmpty() ? QVariant() : QVariant::fromValue(Moneda::deTexto(valor.toString()));
        }
    }
    catch (const ErrorDeEjecucion&)
    {
        return {};
    }
}

QVariant aEntero(const QVariant& valor)
{
    bool bien = false;
    const qlonglong numero = valor.toLongLong(&bien);
    return bien ? QVariant(numero) : QVariant();
}

QVariant aFecha(const QVariant& valor)
{
    if (valor.typeId() != QMetaType::QString)
    {
        const QDate fecha = valor.toDate();
        return fecha.isValid() ? QVariant(fecha) : QVariant();
    }
    const auto fecha = leerFechaDeCelda(valor.toString());
    return fecha ? QVariant(*fecha) : QVariant();
}

LecturaDeCelda leerEntero(const ColumnaDeGrilla& columna, const QString& texto)
{
    bool bien = false;
    const qlonglong numero = texto.toLongLong(&bien);
    const bool signoSuelto = texto.startsWith(u'+');
    if (!bien && soloCifras(texto) && columna.maximo != 0)
    {
        return {{}, QStringLiteral("El valor máximo es %1.").arg(Formato(columna.maximo, u"#,##0"))};
    }
    if (!bien || signoSuelto)
    {
        return {{}, QStringLiteral("El valor ingresado no es un número entero.")};
    }
    if (numero < columna.minimo)
    {
        return {{}, QStringLiteral("El valor mínimo es %1.").arg(Formato(columna.minimo, u"#,##0"))};
    }
    if (columna.maximo != 0 && numero > columna.maximo)
    {
        return {{}, QStringLiteral("El valor máximo es %1.").arg(Formato(columna.maximo, u"#,##0"))};
    }
    return {numero, {}};
}

LecturaDeCelda leerDecimal(const ColumnaDeGrilla& columna, const QString& texto)
{
    const auto importe = leerImporte(texto);
    if (!importe)
    {
        return {{}, QStringLiteral("El valor ingresado no es un importe.")};
    }
    const Moneda minimo = Moneda::deEntero(columna.minimo);
    if (*importe < minimo)
    {
        return {{}, QStringLiteral("El valor mínimo es %1.").arg(Formato(minimo, patronImporte))};
    }
    const Moneda maximo = Moneda::deDiezMilesimos(columna.maximo * 10000 + 9900);
    if (columna.maximo != 0 && *importe > maximo)
    {
        return {{}, QStringLiteral("El valor máximo es %1.").arg(Formato(maximo, patronImporte))};
    }
    return {QVariant::fromValue(*importe), {}};
}

LecturaDeCelda leerFecha(const ColumnaDeGrilla& columna, const QString& texto)
{
    if (QString(texto).remove(u'_').remove(u'/').trimmed().isEmpty())
    {
        return {};
    }
    const auto fecha = leerFechaDeCelda(texto);
    if (!fecha)
    {
        return {{}, QStringLiteral("La fecha ingresada no es válida (DD/MM/AAAA).")};
    }
    if (*fecha < columna.desde || *fecha > columna.hasta)
    {
        return {{},
                QStringLiteral("La fecha debe estar entre %1 y %2.")
                    .arg(Formato(columna.desde, u"DD/MM/YYYY"), Formato(columna.hasta, u"DD/MM/YYYY"))};
    }
    return {*fecha, {}};
}
} // namespace

QVariant valorDeCelda(const ColumnaDeGrilla& columna, const QVariant& valor)
{
    if (!valor.isValid() || valor.isNull())
    {
        return {};
    }
    switch (columna.clase)
    {
    case ColumnaDeGrilla::Fija:
        return valor;
    case ColumnaDeGrilla::Texto:
    case ColumnaDeGrilla::Lista:
        return valor.typeId() == QMetaType::QString ? valor : QVariant(valor.toString());
    case ColumnaDeGrilla::Entero:
        return valor.typeId() == QMetaType::LongLong ? valor : aEntero(valor);
    case ColumnaDeGrilla::Decimal:
        return valor.metaType() == QMetaType::fromType<Moneda>() ? valor : aMoneda(valor);
    case ColumnaDeGrilla::Fecha:
        return aFecha(valor);
    case ColumnaDeGrilla::Tilde:
        return valor.toBool();
    }
    return {};
}

QString textoDeCelda(const ColumnaDeGrilla& columna, const QVariant& valor)
{
    if (!valor.isValid() || columna.clase == ColumnaDeGrilla::Tilde)
    {
        return {};
    }
    if (valor.typeId() == QMetaType::QString)
    {
        return valor.toString();
    }
    if (valor.metaType() == QMetaType::fromType<Moneda>())
    {
        return Formato(valor.value<Moneda>(), patronImporte);
    }
    if (valor.typeId() == QMetaType::QDate)
    {
        return Formato(valor.toDate(), u"DD/MM/YYYY");
    }
    return valor.toString();
}

QString textoParaEditar(const ColumnaDeGrilla& columna, const QVariant& valor)
{
    if (valor.metaType() == QMetaType::fromType<Moneda>())
    {
        return Formato(valor.value<Moneda>(), u"0.00");
    }
    return textoDeCelda(columna, valor);
}

QString admitidosEnCelda(const ColumnaDeGrilla& columna)
{
    const QString cifras = columna.minimo < 0 ? QStringLiteral("0123456789-") : QStringLiteral("0123456789");
    switch (columna.clase)
    {
    case ColumnaDeGrilla::Entero:
        return cifras;
    case ColumnaDeGrilla::Decimal:
        return cifras + QStringLiteral(",.");
    case ColumnaDeGrilla::Fecha:
        return QStringLiteral("0123456789/");
    default:
        return {};
    }
}

bool celdaVacia(const QVariant& valor)
{
    return !valor.isValid() || (valor.typeId() == QMetaType::QString && valor.toString().isEmpty()) ||
           (valor.typeId() == QMetaType::QDate && !valor.toDate().isValid());
}

LecturaDeCelda leerCelda(const ColumnaDeGrilla& columna, const QString& texto)
{
    const QString recortado = texto.trimmed();
    switch (columna.clase)
    {
    case ColumnaDeGrilla::Texto:
        return {columna.maximo > 0 ? texto.left(columna.maximo) : texto, {}};
    case ColumnaDeGrilla::Entero:
        return recortado.isEmpty() ? LecturaDeCelda() : leerEntero(columna, recortado);
    case ColumnaDeGrilla::Decimal:
        return recortado.isEmpty() ? LecturaDeCelda() : leerDecimal(columna, recortado);
    case ColumnaDeGrilla::Fecha:
        return leerFecha(columna, recortado);
    case ColumnaDeGrilla::Lista:
        if (!texto.isEmpty() && !columna.opciones.contains(texto))
        {
            return {{}, QStringLiteral("Debe elegir un valor de la lista.")};
        }
        return {texto.isEmpty() ? QVariant() : QVariant(texto), {}};
    case ColumnaDeGrilla::Fija:
    case ColumnaDeGrilla::Tilde:
        break;
    }
    return {{}, QStringLiteral("La celda no se puede modificar.")};
}
