#include "ui/grid/grilla_celdas.h"

#include "base/digitos.h"
#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"

namespace
{

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

/// Day, month and year between slashes; "_" is a place of the mask where nothing was typed.
std::optional<QDate> leerFechaDeCelda(QString texto)
{
    texto.remove(u'_').remove(u' ');
    const QStringList partes = texto.split(u'/');
    if (partes.size() != 3 || !sonDigitos(partes[0]) || !sonDigitos(partes[1]) || !sonDigitos(partes[2]) ||
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

LecturaDeCelda leerEntero(const ColumnaDeGrilla& columna, const QString& texto)
{
    bool bien = false;
    const qlonglong numero = texto.toLongLong(&bien);
    if (!sonDigitos(texto) || (!bien && columna.maximo == 0))
    {
        return {{}, QStringLiteral("El valor ingresado no es un número entero.")};
    }
    if (columna.maximo != 0 && (!bien || numero > columna.maximo))
    {
        return {{}, QStringLiteral("El valor máximo es %1.").arg(conMiles(columna.maximo))};
    }
    return {numero, {}};
}

LecturaDeCelda leerDecimal(const ColumnaDeGrilla& columna, const QString& texto)
{
    const auto importe = leerImporte(texto);
    if (!importe || *importe < Moneda())
    {
        return {{}, QStringLiteral("El valor ingresado no es un importe.")};
    }
    const Moneda maximo = Moneda::deDiezMilesimos(columna.maximo * 10000 + 9900);
    if (columna.maximo != 0 && *importe > maximo)
    {
        return {{}, QStringLiteral("El valor máximo es %1.").arg(conMiles(maximo))};
    }
    return {QVariant::fromValue(*importe), {}};
}

LecturaDeCelda leerFecha(const QString& texto)
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
    if (fecha->year() < 1900 || fecha->year() > 2100)
    {
        return {{}, QStringLiteral("La fecha debe estar entre 01/01/1900 y 31/12/2100.")};
    }
    return {*fecha, {}};
}
} // namespace

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
        return conMiles(valor.value<Moneda>());
    }
    if (valor.typeId() == QMetaType::QDate)
    {
        return valor.toDate().toString(columna.anioCorto ? u"dd/MM/yy" : u"dd/MM/yyyy");
    }
    return valor.toString();
}

QString textoParaEditar(const ColumnaDeGrilla& columna, const QVariant& valor)
{
    if (valor.metaType() == QMetaType::fromType<Moneda>())
    {
        return sinMiles(valor.value<Moneda>());
    }
    return textoDeCelda(columna, valor);
}

QString textoParaPlanilla(const ColumnaDeGrilla& columna, const QVariant& valor)
{
    if (columna.clase == ColumnaDeGrilla::Tilde)
    {
        return valor.toBool() ? QStringLiteral("Sí") : QStringLiteral("No");
    }
    if (valor.typeId() == QMetaType::QDate)
    {
        return valor.toDate().toString(u"dd/MM/yyyy");
    }
    return textoParaEditar(columna, valor);
}

QString admitidosEnCelda(const ColumnaDeGrilla& columna)
{
    QString cifras = QStringLiteral("0123456789");
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

bool admiteEnCelda(const ColumnaDeGrilla& columna, QChar letra)
{
    const QString admitidos = admitidosEnCelda(columna);
    return admitidos.isEmpty() || admitidos.contains(letra);
}

QString noEntraEnCelda(const ColumnaDeGrilla& columna, const QString& signo)
{
    return QStringLiteral("En la columna «%1» no entra «%2»").arg(columna.titulo, signo);
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
        return leerFecha(recortado);
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
