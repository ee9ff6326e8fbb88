#include "apoyo/hojas.h"

#include <QProcess>
#include <QXmlStreamReader>
#include <algorithm>
#include <gtest/gtest.h>
#include <tuple>

QString hojas::correr(const QString& programa, const QStringList& argumentos)
{
    QProcess proceso;
    proceso.start(programa, argumentos);
    const bool termino = proceso.waitForFinished(120'000);
    EXPECT_TRUE(termino && proceso.exitStatus() == QProcess::NormalExit && proceso.exitCode() == 0)
        << programa.toStdString() << ' ' << argumentos.join(QLatin1Char(' ')).left(200).toStdString() << ": "
        << proceso.errorString().toStdString() << proceso.readAllStandardError().toStdString();
    return QString::fromUtf8(proceso.readAllStandardOutput());
}

QStringList hojas::textos(const QString& pdf)
{
    QStringList paginas = correr("pdftotext", {"-layout", pdf, "-"}).split(QLatin1Char('\f'), Qt::SkipEmptyParts);
    std::transform(paginas.begin(), paginas.end(), paginas.begin(), [](const QString& p) { return p.simplified(); });
    return paginas;
}

std::vector<hojas::Palabra> hojas::palabras(const QString& pdf)
{
    QString todo = correr("pdftotext", {"-bbox", pdf, "-"});
    std::vector<Palabra> lista;
    int hoja = -1;
    for (QXmlStreamReader xml(todo.mid(todo.indexOf(QLatin1String("<doc>")))); !xml.atEnd();)
    {
        xml.readNextStartElement();
        hoja += xml.isStartElement() && xml.name() == QLatin1String("page") ? 1 : 0;
        if (xml.isStartElement() && xml.name() == QLatin1String("word"))
        {
            const auto en = [&xml](const char* cual) { return xml.attributes().value(QLatin1String(cual)).toDouble(); };
            lista.push_back({hoja, en("xMin"), en("yMin"), en("xMax"), en("yMax"), {}});
            lista.back().texto = xml.readElementText();
        }
    }
    std::stable_sort(lista.begin(), lista.end(),
                     [](const Palabra& a, const Palabra& b)
                     { return std::tie(a.hoja, a.arriba, a.izquierda) < std::tie(b.hoja, b.arriba, b.izquierda); });
    return lista;
}
