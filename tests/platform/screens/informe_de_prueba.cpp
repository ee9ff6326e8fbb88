#include "informe_de_prueba.h"

#include "platform/screens/informe_vista.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <algorithm>
#include <gtest/gtest.h>
#include <tuple>

namespace
{
QString pdftotext(const QStringList& argumentos)
{
    QProcess proceso;
    proceso.start(QStringLiteral("pdftotext"), argumentos);
    EXPECT_TRUE(proceso.waitForFinished() && proceso.exitCode() == 0)
        << proceso.readAllStandardError().toStdString() << proceso.errorString().toStdString();
    return QString::fromUtf8(proceso.readAllStandardOutput());
}

QString sinEntidades(QString texto)
{
    texto.replace(QLatin1String("&lt;"), QLatin1String("<")).replace(QLatin1String("&gt;"), QLatin1String(">"));
    return texto.replace(QLatin1String("&quot;"), QLatin1String("\""))
        .replace(QLatin1String("&amp;"), QLatin1String("&"));
}
} // namespace

QString InformeDePrueba::escribir(const QString& cuerpo, const QString& cabeza) const
{
    QFile archivo(ruta(QStringLiteral("prueba.rpt")));
    EXPECT_TRUE(archivo.open(QIODevice::WriteOnly));
    archivo.write(("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<html><head><title>Prueba</title>" + cabeza +
                   "</head>\n<body>" + cuerpo + "</body></html>\n")
                      .toUtf8());
    return archivo.fileName();
}

PaginasDeInforme InformeDePrueba::paginas(const QString& cuerpo, DatosDeInforme datos, const QString& cabeza) const
{
    return {PlantillaDeInforme::leer(escribir(cuerpo, cabeza)), std::move(datos)};
}

QString InformeDePrueba::pdf(PaginasDeInforme paginas) const
{
    VistaDeInforme(std::move(paginas)).guardarPdf(ruta(QStringLiteral("prueba.pdf")));
    return ruta(QStringLiteral("prueba.pdf"));
}

QStringList InformeDePrueba::textos(PaginasDeInforme paginas) const
{
    QStringList hojas = pdftotext({QStringLiteral("-layout"), pdf(std::move(paginas)), QStringLiteral("-")})
                            .split(QLatin1Char('\f'), Qt::SkipEmptyParts);
    for (QString& hoja : hojas)
    {
        hoja = hoja.simplified();
    }
    return hojas;
}

std::vector<InformeDePrueba::Palabra> InformeDePrueba::palabras(PaginasDeInforme paginas) const
{
    const QString todo = pdftotext({QStringLiteral("-bbox"), pdf(std::move(paginas)), QStringLiteral("-")});
    static const QRegularExpression marca(QStringLiteral(
        "<page |<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">([^<]*)</word>"));
    std::vector<Palabra> lista;
    int hoja = -1;
    for (auto i = marca.globalMatch(todo); i.hasNext();)
    {
        const QRegularExpressionMatch hallada = i.next();
        if (hallada.captured(5).isNull())
        {
            ++hoja;
            continue;
        }
        lista.push_back({hoja, hallada.captured(1).toDouble(), hallada.captured(2).toDouble(),
                         hallada.captured(3).toDouble(), hallada.captured(4).toDouble(),
                         sinEntidades(hallada.captured(5))});
    }
    std::sort(lista.begin(), lista.end(),
              [](const Palabra& a, const Palabra& b)
              { return std::tie(a.hoja, a.arriba, a.izquierda) < std::tie(b.hoja, b.arriba, b.izquierda); });
    return lista;
}

FilasDeInforme filasDeTexto(std::vector<std::string> columnas, std::vector<std::vector<std::string>> filas)
{
    FilasDeInforme conjunto;
    conjunto.condicion.assign(columnas.size(), false);
    conjunto.columnas = std::move(columnas);
    conjunto.filas = std::move(filas);
    return conjunto;
}
