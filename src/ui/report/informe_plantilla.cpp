#include "ui/report/informe_plantilla.h"

#include "base/db/conexion.h"
#include "base/db/latido.h"
#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"

#include <QFile>
#include <QFileInfo>
#include <QXmlStreamReader>
#include <algorithm>

namespace
{
/// Reads the layout element by element and takes the text of the parts from the file as it stands.
class Lector
{
public:
    explicit Lector(const QString& ruta)
    {
        m_plantilla.nombre = QFileInfo(ruta).fileName();
        QFile archivo(ruta);
        if (!archivo.open(QIODevice::ReadOnly))
        {
            throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::ArchivoNoEncontrado, m_plantilla.nombre);
        }
        m_texto = QString::fromUtf8(archivo.readAll());
        m_xml.addData(m_texto);
        m_plantilla.carpeta = QFileInfo(ruta).absolutePath();
        m_plantilla.pagina = QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait, QMarginsF(12, 12, 12, 12),
                                         QPageLayout::Millimeter);
    }

    PlantillaDeInforme leer()
    {
        while (!m_xml.atEnd())
        {
            if (m_xml.readNext() == QXmlStreamReader::StartElement)
            {
                elemento();
            }
        }
        if (m_xml.hasError())
        {
            fallar(m_xml.errorString());
        }
        if (m_plantilla.bandas.empty())
        {
            fallar(QStringLiteral("no tiene contenido"));
        }
        return std::move(m_plantilla);
    }

private:
    [[noreturn]] void fallar(const QString& causa) const
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos,
                               QStringLiteral("El informe %1 no es válido, línea %2: %3")
                                   .arg(m_plantilla.nombre)
                                   .arg(m_xml.lineNumber())
                                   .arg(causa));
    }

    QString atributo(const char* nombre) const { return m_xml.attributes().value(QLatin1String(nombre)).toString(); }

    QStringList lista(const char* nombre) const { return atributo(nombre).split(QLatin1Char(' '), Qt::SkipEmptyParts); }

    /// Goes to the end of the element and gives what stands between its tags.
    QString interior()
    {
        const qint64 desde = m_xml.characterOffset();
        qint64 hasta = desde;
        int tablas = 0; // in one another: each doubles the time that laying them out takes
        for (int nivel = 1; nivel > 0 && !m_xml.atEnd();)
        {
            hasta = m_xml.characterOffset();
            switch (m_xml.readNext())
            {
            case QXmlStreamReader::StartElement:
                ++nivel;
                tablas += m_xml.name() == QLatin1String("table") ? 1 : 0;
                if (constexpr int limite = 10; tablas > limite)
                {
                    fallar(QStringLiteral("hay más de %1 tablas una dentro de otra").arg(limite));
                }
                break;
            case QXmlStreamReader::EndElement:
                --nivel;
                tablas -= m_xml.name() == QLatin1String("table") ? 1 : 0;
                break;
            default:
                break;
            }
        }
        return m_texto.mid(desde, hasta - desde);
    }

    void elemento()
    {
        const QString nombre = m_xml.name().toString();
        if (nombre == QLatin1String("title"))
        {
            m_plantilla.titulo = m_xml.readElementText();
        }
        else if (nombre == QLatin1String("meta"))
        {
            meta();
        }
        else if (nombre == QLatin1String("script"))
        {
            consulta();
        }
        else if (nombre == QLatin1String("style"))
        {
            m_plantilla.estilo = interior();
        }
        else if (nombre == QLatin1String("header"))
        {
            m_plantilla.encabezado = interior().toStdString();
        }
        else if (nombre == QLatin1String("footer"))
        {
            m_plantilla.pie = interior().toStdString();
        }
        else if (nombre == QLatin1String("section"))
        {
            seccion();
        }
        else if (nombre == QLatin1String("table"))
        {
            tabla();
        }
    }

    void meta()
    {
        const QString contenido = atributo("content");
        if (atributo("name") == QLatin1String("papel") && contenido.contains(QLatin1String("apaisado")))
        {
            m_plantilla.pagina.setOrientation(QPageLayout::Landscape);
        }
        if (atributo("name") == QLatin1String("margenes"))
        {
            const QStringList mm = contenido.split(QLatin1Char(' '), Qt::SkipEmptyParts);
            if (mm.size() != 4)
            {
                fallar(QStringLiteral("los márgenes son cuatro"));
            }
            if (!m_plantilla.pagina.setMargins(
                    {mm[3].toDouble(), mm[0].toDouble(), mm[1].toDouble(), mm[2].toDouble()}))
            {
                fallar(QStringLiteral("los márgenes no entran en el papel"));
            }
        }
    }

    void consulta()
    {
        ConsultaDeInforme consulta{atributo("id"), {}, lista("importes"), lista("fechas"), lista("si")};
        consulta.sql = m_xml.readElementText().trimmed().toStdString();
        m_plantilla.consultas.push_back(std::move(consulta));
    }

    void seccion()
    {
        constexpr double puntosPorMilimetro = 72 / 25.4;
        BandaDeInforme banda;
        banda.filas = atributo("filas");
        const double milimetros = atributo("alto").toDouble();
        constexpr double mayorAlto = 1000;
        if (!(milimetros >= 0 && milimetros <= mayorAlto))
        {
            fallar(QStringLiteral("el alto de una sección no pasa de %1 mm").arg(mayorAlto));
        }
        banda.alto = milimetros * puntosPorMilimetro;
        banda.junto = lista("class").contains(QLatin1String("junto"));
        banda.html = interior().toStdString();
        m_plantilla.bandas.push_back(std::move(banda));
    }

    /// The row is what stands between <tbody> and </tbody>; what stands before is repeated on each page.
    void tabla()
    {
        BandaDeInforme banda;
        banda.tabla = true;
        banda.filas = atributo("filas");
        banda.junto = lista("class").contains(QLatin1String("junto"));
        QString atributos;
        for (const QXmlStreamAttribute& a : m_xml.attributes())
        {
            atributos += QStringLiteral(" %1=\"%2\"").arg(a.name(), a.value().toString().toHtmlEscaped());
        }
        const QString todo = interior();
        const qsizetype cuerpo = todo.indexOf(QLatin1String("<tbody>"));
        const qsizetype fin = todo.indexOf(QLatin1String("</tbody>"));
        if (cuerpo < 0 || fin < cuerpo)
        {
            fallar(QStringLiteral("la tabla %1 no tiene tbody").arg(banda.filas));
        }
        banda.apertura = (QStringLiteral("<table") + atributos + QLatin1Char('>') + todo.left(cuerpo)).toStdString();
        banda.html = todo.mid(cuerpo + 7, fin - cuerpo - 7).trimmed().toStdString();
        banda.cierre = "</table>";
        m_plantilla.bandas.push_back(std::move(banda));
    }

    QString m_texto;
    QXmlStreamReader m_xml;
    PlantillaDeInforme m_plantilla;
};

/// What a page can take: a longer word would keep the layout at work for minutes.
QString recortado(const QString& texto)
{
    constexpr qsizetype limite = 5000;
    return texto.size() <= limite ? texto : texto.left(limite) + QStringLiteral("...");
}

enum class Clase
{
    Texto,
    Importe,
    Fecha,
    Condicion,
};

std::string celda(const Fila& fila, const char* columna, Clase clase)
{
    if (fila.esNulo(columna))
    {
        return {};
    }
    switch (clase)
    {
    case Clase::Importe:
        return conMiles(fila.moneda(columna)).toStdString();
    case Clase::Fecha:
        return fila.fecha(columna).toString(u"dd/MM/yyyy").toStdString();
    case Clase::Condicion:
        return fila.entero(columna) != 0 ? "1" : std::string();
    case Clase::Texto:
        break;
    }
    return recortado(fila.texto(columna)).toStdString();
}

FilasDeInforme ejecutar(Conexion& base, const ConsultaDeInforme& consulta, std::optional<qint64> indice)
{
    FilasDeInforme salida;
    std::vector<Clase> clases;
    const auto leerFila = [&](const Fila& fila)
    {
        if (clases.empty())
        {
            for (int c = 0; c < fila.columnas(); ++c)
            {
                const QString nombre = QString::fromUtf8(fila.nombre(c));
                salida.columnas.push_back(nombre.toStdString());
                clases.push_back(consulta.importes.contains(nombre)      ? Clase::Importe
                                 : consulta.fechas.contains(nombre)      ? Clase::Fecha
                                 : consulta.condiciones.contains(nombre) ? Clase::Condicion
                                                                         : Clase::Texto);
                salida.condicion.push_back(clases.back() == Clase::Condicion);
            }
        }
        std::vector<std::string> valores;
        valores.reserve(clases.size());
        for (std::size_t c = 0; c < clases.size(); ++c)
        {
            valores.push_back(celda(fila, salida.columnas[c].c_str(), clases[c]));
        }
        salida.filas.push_back(std::move(valores));
    };
    if (consulta.sql.find(":Indice") == std::string::npos)
    {
        base.recorrer(consulta.sql, leerFila);
    }
    else
    {
        base.recorrer(consulta.sql, leerFila, indice);
    }
    return salida;
}

std::optional<qint64> indiceDe(const ValoresDeInforme& valores)
{
    for (const ValorDeInforme& valor : valores)
    {
        if (valor.nombre == QLatin1String("Indice") && std::holds_alternative<qint64>(valor.valor))
        {
            return std::get<qint64>(valor.valor);
        }
    }
    return std::nullopt;
}
} // namespace

PlantillaDeInforme PlantillaDeInforme::leer(const QString& ruta)
{
    return Lector(ruta).leer();
}

DatosDeInforme DatosDeInforme::leer(const PlantillaDeInforme& plantilla, Conexion& conexion, ValoresDeInforme valores,
                                    const Aviso& aviso)
{
    DatosDeInforme datos;
    datos.valores = std::move(valores);
    const std::optional<qint64> indice = indiceDe(datos.valores);
    for (const ConsultaDeInforme& consulta : plantilla.consultas)
    {
        conLatido(conexion, aviso,
                  [&] { datos.conjuntos.emplace(consulta.nombre, ejecutar(conexion, consulta, indice)); });
    }
    return datos;
}

kainjow::mustache::data DatosDeInforme::objeto() const
{
    using kainjow::mustache::data;
    data objeto{data::type::object};
    for (const ValorDeInforme& valor : valores)
    {
        const std::string nombre = valor.nombre.toStdString();
        const QString texto = textoDeValor(valor);
        const auto* numero = std::get_if<qint64>(&valor.valor);
        // Two brackets around nothing are nothing.
        const bool hay = std::any_of(texto.begin(), texto.end(), [](QChar c) { return c.isLetterOrNumber(); });
        objeto.set(nombre, data(texto.toStdString()));
        objeto.set("hay" + nombre, data(hay));
        objeto.set("no" + nombre, data(!hay));
        objeto.set("uno" + nombre, data(numero != nullptr && *numero == 1));
    }
    return objeto;
}

kainjow::mustache::data FilasDeInforme::objeto(std::size_t numero, kainjow::mustache::data base) const
{
    using kainjow::mustache::data;
    const std::vector<std::string>& fila = filas[numero];
    for (std::size_t c = 0; c < fila.size(); ++c)
    {
        base.set(columnas[c], condicion[c] ? data(!fila[c].empty()) : data(fila[c]));
    }
    return base;
}

QString textoDeValor(const ValorDeInforme& valor)
{
    struct Textos
    {
        QString operator()(const QString& texto) const { return recortado(texto); }
        QString operator()(qint64 numero) const { return QString::number(numero); }
        QString operator()(Moneda importe) const { return conMiles(importe); }
        QString operator()(QDate fecha) const { return fecha.toString(u"dd/MM/yyyy"); }
    };
    return std::visit(Textos(), valor.valor);
}

std::string PlantillaDeInforme::rellenar(const std::string& trozo, const kainjow::mustache::data& datos) const
{
    kainjow::mustache::mustache etiquetas(trozo);
    if (!etiquetas.is_valid())
    {
        fallar(QString::fromStdString(etiquetas.error_message()));
    }
    return etiquetas.render(datos);
}

void PlantillaDeInforme::fallar(const QString& causa) const
{
    throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos,
                           QStringLiteral("El informe %1 no es válido: %2").arg(nombre, causa));
}
