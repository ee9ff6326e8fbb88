#include "csv.h"

#include "platform/data/error_de_ejecucion.h"

#include <QStringDecoder>

namespace
{
[[noreturn]] void fallar(int linea, const QString& que)
{
    throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos, QStringLiteral("línea %1: %2").arg(linea).arg(que));
}

class LectorCsv
{
public:
    explicit LectorCsv(QStringView texto)
        : m_texto(texto)
    {
    }

    std::vector<FilaCsv> leer()
    {
        std::vector<FilaCsv> filas;
        while (!alFinal())
        {
            FilaCsv fila = leerFila();
            const bool vacia = fila.campos.size() == 1 && !fila.campos.front();
            if (!vacia)
            {
                filas.push_back(std::move(fila));
            }
        }
        return filas;
    }

private:
    [[nodiscard]] bool alFinal() const { return m_posicion == m_texto.size(); }
    [[nodiscard]] QChar actual() const { return alFinal() ? QChar() : m_texto[m_posicion]; }
    [[nodiscard]] bool enFinDeLinea() const
    {
        return alFinal() || actual() == QLatin1Char('\n') || actual() == QLatin1Char('\r');
    }

    FilaCsv leerFila()
    {
        FilaCsv fila{m_linea, {}};
        fila.campos.push_back(leerCampo());
        while (actual() == QLatin1Char(','))
        {
            ++m_posicion;
            fila.campos.push_back(leerCampo());
        }
        if (!enFinDeLinea())
        {
            fallar(m_linea, QStringLiteral("texto después de las comillas de cierre"));
        }
        pasarFinDeLinea();
        return fila;
    }

    std::optional<QString> leerCampo() { return actual() == QLatin1Char('"') ? leerEntreComillas() : leerSuelto(); }

    std::optional<QString> leerSuelto()
    {
        const qsizetype desde = m_posicion;
        while (!enFinDeLinea() && actual() != QLatin1Char(','))
        {
            if (actual() == QLatin1Char('"'))
            {
                fallar(m_linea, QStringLiteral("comillas dentro de un campo sin comillas"));
            }
            ++m_posicion;
        }
        if (desde == m_posicion)
        {
            return std::nullopt;
        }
        return m_texto.mid(desde, m_posicion - desde).toString();
    }

    QString leerEntreComillas()
    {
        const int abre = m_linea;
        QString valor;
        for (++m_posicion;; ++m_posicion)
        {
            if (alFinal())
            {
                fallar(abre, QStringLiteral("comillas sin cerrar"));
            }
            if (actual() == QLatin1Char('"'))
            {
                ++m_posicion;
                if (actual() != QLatin1Char('"'))
                {
                    return valor;
                }
            }
            m_linea += actual() == QLatin1Char('\n') ? 1 : 0;
            valor += actual();
        }
    }

    void pasarFinDeLinea()
    {
        if (actual() == QLatin1Char('\r'))
        {
            ++m_posicion;
        }
        if (actual() == QLatin1Char('\n'))
        {
            ++m_posicion;
        }
        ++m_linea;
    }

    QStringView m_texto;
    qsizetype m_posicion = 0;
    int m_linea = 1;
};
} // namespace

QString deUtf8(const QByteArray& bytes)
{
    QStringDecoder decodificador(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString texto = decodificador(bytes);
    if (decodificador.hasError())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos, QStringLiteral("el texto no está en UTF-8"));
    }
    return texto;
}

std::vector<FilaCsv> leerCsv(const QByteArray& utf8)
{
    const QString texto = deUtf8(utf8);
    return LectorCsv(texto).leer();
}
