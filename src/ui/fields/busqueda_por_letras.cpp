#include "ui/fields/busqueda_por_letras.h"

#include "ui/doors/anuncio.h"

#include <QElapsedTimer>
#include <algorithm>

namespace
{
constexpr qint64 descanso = 1000; // ms; a slow hand is no new search

/// There is one keyboard.
struct
{
    const QObject* donde = nullptr; // compared only
    QString letras;
    int desde = -1;
    bool perdida = false; ///< a letter found nothing: those behind it are of the same word
    QElapsedTimer reloj;
} busqueda;
} // namespace

QString BusquedaPorLetras::llana(const QString& texto)
{
    QString letras = texto.normalized(QString::NormalizationForm_D);
    letras.removeIf([](QChar letra) { return letra.isMark(); });
    return letras.toCaseFolded();
}

bool BusquedaPorLetras::enCurso(const QObject* donde)
{
    return busqueda.donde == donde && busqueda.reloj.isValid() && !busqueda.reloj.hasExpired(descanso);
}

int BusquedaPorLetras::seguir(const QObject* donde, const QString& letra, int actual, int entradas,
                              const std::function<QString(int)>& texto)
{
    const auto hallar = [&](const QString& letras, int primera)
    {
        const QString comienzo = llana(letras);
        for (int i = 0; i < entradas; ++i)
        {
            const int entrada = (primera + i) % entradas;
            if (llana(texto(entrada)).startsWith(comienzo))
            {
                return entrada;
            }
        }
        return -1;
    };
    const bool nueva = !enCurso(donde);
    if (nueva)
    {
        busqueda = {donde, {}, actual, false, {}};
    }
    busqueda.reloj.start();
    busqueda.letras += letra;
    int hallada = busqueda.perdida ? -1 : hallar(busqueda.letras, nueva ? actual + 1 : std::max(actual, 0));
    const bool repetida = busqueda.letras.count(letra, Qt::CaseInsensitive) == busqueda.letras.size();
    if (hallada < 0 && repetida && !busqueda.perdida)
    {
        hallada = hallar(letra, actual + 1);
    }
    if (hallada < 0)
    {
        busqueda.perdida = true;
        anunciar(QStringLiteral("Nada empieza con «%1»").arg(busqueda.letras));
        return busqueda.desde;
    }
    return hallada;
}

void BusquedaPorLetras::terminar()
{
    busqueda.donde = nullptr;
}
