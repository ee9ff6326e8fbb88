#include "ui/grid/pegado.h"

#include "base/digitos.h"
#include "base/files/planilla.h"
#include "ui/fields/busqueda_por_letras.h"
#include "ui/grid/importe_pegado.h"

#include <algorithm>

namespace
{
constexpr qsizetype textoMaximo = 4'000'000; // characters; 20,000 rows of the whole grid are below two millions
constexpr qsizetype rechazosDichos = 10;
constexpr qsizetype titulosALaVista = 60;

/// Digits alone of a C.U.I.L. with or without its hyphens; empty when it is none.
QString claveDe(const QString& texto)
{
    QString cifras = texto.trimmed();
    if (cifras.size() == 13 && cifras[2] == u'-' && cifras[11] == u'-')
    {
        cifras.remove(11, 1).remove(2, 1);
    }
    return cifras.size() == 11 && sonDigitos(cifras) ? cifras : QString();
}

bool sinNada(const QStringList& fila)
{
    return std::all_of(fila.cbegin(), fila.cend(), [](const QString& celda) { return celda.trimmed().isEmpty(); });
}

/// Words without a digit, of which there is one at least.
bool soloPalabras(const QStringList& celdas)
{
    const auto palabra = [](const QString& celda)
    {
        const QString texto = celda.trimmed();
        return texto.isEmpty() || (texto.front().isLetter() &&
                                   std::none_of(texto.cbegin(), texto.cend(), [](QChar c) { return c.isDigit(); }));
    };
    return !sinNada(celdas) && std::all_of(celdas.cbegin(), celdas.cend(), palabra);
}

class Preparacion
{
public:
    Preparacion(planilla::Filas filas, const DestinoDePegado& destino)
        : m_filas(std::move(filas))
        , m_destino(destino)
    {
        for (int i = 1; i <= int(destino.columnas.size()); ++i)
        {
            if (columna(i).ancho != 0 && columna(i).clase == ColumnaDeGrilla::Decimal)
            {
                m_deImportes.push_back(i);
            }
        }
    }

    Pegado hacer()
    {
        tomarLaPropia();
        for (QStringList& fila : m_filas)
        {
            while (!fila.isEmpty() && fila.last().trimmed().isEmpty()) // an empty column copied along
            {
                fila.removeLast();
            }
            m_ancho = std::max(m_ancho, fila.size());
            m_conClave = m_conClave || (!fila.isEmpty() && !claveDe(fila.first()).isEmpty());
        }
        tomarEncabezado();
        elegirColumnas();
        if (m_pegado.error.isEmpty())
        {
            mirarMarcas();
            if (hayColumnaSinImportes())
            {
                m_pegado.error =
                    QStringLiteral("En lo copiado hay una columna que no se lee como importes.  Copie sólo "
                                   "los importes, con el C.U.I.L. delante o sin él.");
                return std::move(m_pegado);
            }
            m_conClave ? porClave() : porOrden();
            if (m_pegado.celdas.empty() && m_pegado.rechazados == 0)
            {
                m_pegado.error = QStringLiteral("Lo copiado no tiene importes.");
            }
        }
        return std::move(m_pegado);
    }

private:
    [[nodiscard]] const ColumnaDeGrilla& columna(int numero) const
    {
        return m_destino.columnas[std::size_t(numero) - 1];
    }
    [[nodiscard]] qsizetype primera() const { return m_conClave ? 1 : 0; } ///< the first cell of a row with an amount
    [[nodiscard]] bool esDeImportes(int numero) const
    {
        return std::find(m_deImportes.begin(), m_deImportes.end(), numero) != m_deImportes.end();
    }

    /// Of a copy of the grid, all columns under its own headings, only the C.U.I.L. and the amounts count.
    void tomarLaPropia()
    {
        QStringList titulos;
        QList<qsizetype> quedan;
        for (int i = 1; i <= int(m_destino.columnas.size()); ++i)
        {
            if (columna(i).ancho != 0)
            {
                if (i == m_destino.columnaClave || esDeImportes(i))
                {
                    quedan += titulos.size();
                }
                titulos += columna(i).titulo;
            }
        }
        if (m_filas.empty() || m_filas.front() != titulos)
        {
            return;
        }
        for (QStringList& fila : m_filas)
        {
            QStringList corta;
            for (const qsizetype i : quedan)
            {
                corta += fila.value(i);
            }
            fila = corta;
        }
    }

    void tomarEncabezado()
    {
        if (m_filas.empty())
        {
            return;
        }
        const QStringList& fila = m_filas.front();
        const QStringList importes = fila.mid(primera());
        const bool palabras = soloPalabras(importes) || (m_conClave && sinNada(importes));
        if (!palabras || sinNada(fila) || (m_conClave && !claveDe(fila.first()).isEmpty()))
        {
            return;
        }
        m_encabezado = importes;
        m_pegado.encabezado = fila.join(u' ').simplified();
        m_desde = 1;
    }

    /// The columns that the headings name: as many as there are amounts, no two the same. Else none.
    [[nodiscard]] std::vector<int> nombradas() const
    {
        std::vector<int> columnas;
        for (const QString& titulo : m_encabezado)
        {
            const QString llano = BusquedaPorLetras::llana(titulo.trimmed());
            const auto hallada =
                std::find_if(m_deImportes.begin(), m_deImportes.end(),
                             [&](int i) { return BusquedaPorLetras::llana(columna(i).titulo) == llano; });
            if (hallada == m_deImportes.end() ||
                std::find(columnas.begin(), columnas.end(), *hallada) != columnas.end())
            {
                return {};
            }
            columnas.push_back(*hallada);
        }
        return columnas.size() == std::size_t(m_ancho - primera()) ? columnas : std::vector<int>();
    }

    /// A heading that is a column's beside one that is none: by their order the amounts would go elsewhere.
    [[nodiscard]] bool nombraSoloAlguna() const
    {
        const auto esTitulo = [this](const QString& titulo)
        {
            const QString llano = BusquedaPorLetras::llana(titulo.trimmed());
            return std::any_of(m_deImportes.begin(), m_deImportes.end(),
                               [&](int i) { return BusquedaPorLetras::llana(columna(i).titulo) == llano; });
        };
        return nombradas().empty() && std::any_of(m_encabezado.cbegin(), m_encabezado.cend(), esTitulo);
    }

    /// Names, or keys that cannot be read: what stands beside them belongs to another column or to somebody else.
    [[nodiscard]] bool hayColumnaSinImportes() const
    {
        if (m_columnas.size() < 2)
        {
            return false; // each of them is told
        }
        for (std::size_t i = 0; i < m_columnas.size(); ++i)
        {
            const auto celda = [&](const QStringList& fila) { return fila.value(primera() + qsizetype(i)).trimmed(); };
            const auto llena = [&](const QStringList& fila) { return !celda(fila).isEmpty(); };
            const auto seLee = [&](const QStringList& fila)
            { return llena(fila) && m_marca.leer(columna(m_columnas[i]), celda(fila)).error.isEmpty(); };
            const auto desde = m_filas.begin() + std::ptrdiff_t(m_desde);
            if (std::any_of(desde, m_filas.end(), llena) && std::none_of(desde, m_filas.end(), seLee))
            {
                return true;
            }
        }
        return false;
    }

    void elegirColumnas()
    {
        const qsizetype importes = m_ancho - primera();
        const std::vector<int> dichas = nombradas();
        if (importes < 1)
        {
            m_pegado.error = QStringLiteral("Lo copiado no tiene importes.");
        }
        else if (importes > qsizetype(m_deImportes.size()))
        {
            m_pegado.error = QStringLiteral("Lo copiado tiene %1 columnas.  Se pega una columna de importes, o las de "
                                            "todos los importes, con el C.U.I.L. delante o sin él.")
                                 .arg(m_ancho);
        }
        else if (!m_conClave && (m_destino.filaActual < 1 || (importes == 1 && !esDeImportes(m_destino.columnaActual))))
        {
            m_pegado.error = QStringLiteral("Elija la celda en que va el primer importe.");
        }
        else if (!m_conClave && dichas.empty() && !m_encabezado.isEmpty())
        {
            m_pegado.error = QStringLiteral("La primera fila, «%1», no es de importes ni nombra las columnas de la "
                                            "grilla.  No se sabe en qué fila va el primer importe: cópielos sin ella.")
                                 .arg(m_pegado.encabezado.left(titulosALaVista));
        }
        else if (!dichas.empty() && !m_conClave && importes == 1 && dichas.front() != m_destino.columnaActual)
        {
            m_pegado.error = QStringLiteral("El encabezado dice «%1», y la celda elegida es de «%2».")
                                 .arg(columna(dichas.front()).titulo, columna(m_destino.columnaActual).titulo);
        }
        else if (!dichas.empty())
        {
            m_columnas = dichas;
            m_pegado.encabezado.clear(); // taken at its word
        }
        else if (nombraSoloAlguna())
        {
            m_pegado.error =
                QStringLiteral("El encabezado «%1» no nombra todas las columnas de importes.  Copie sólo el "
                               "C.U.I.L. y los importes.")
                    .arg(m_pegado.encabezado.left(titulosALaVista));
        }
        else if (importes == qsizetype(m_deImportes.size()))
        {
            m_columnas = m_deImportes;
        }
        else if (importes == 1 && esDeImportes(m_destino.columnaActual))
        {
            m_columnas = {m_destino.columnaActual};
        }
        else
        {
            m_pegado.error = QStringLiteral("Elija una celda de la columna en que van los importes.");
        }
    }

    /// All amounts of a spreadsheet have the same decimal mark: those that tell it decide for the others.
    void mirarMarcas()
    {
        for (std::size_t i = m_desde; i < m_filas.size(); ++i)
        {
            for (const QString& celda : m_filas[i].mid(primera()))
            {
                m_marca.mirar(columna(m_columnas.front()), celda);
            }
        }
    }

    void porOrden()
    {
        for (std::size_t i = m_desde; i < m_filas.size(); ++i)
        {
            const qsizetype fila = m_destino.filaActual + qsizetype(i - m_desde);
            if (fila <= m_destino.claves.size())
            {
                ponerFila(m_filas[i], int(fila), m_destino.claves[fila - 1]);
            }
            else if (!sinNada(m_filas[i]))
            {
                rechazar(renglon(i), m_filas[i].first(), QStringLiteral("No hay más filas en la grilla."));
            }
        }
    }

    void porClave()
    {
        QHash<QString, int> filas; // 0: of two rows
        for (int i = 0; i < int(m_destino.claves.size()); ++i)
        {
            const QString clave = claveDe(m_destino.claves[i]);
            const bool otraVez = filas.contains(clave);
            filas[clave] = otraVez ? 0 : i + 1;
        }
        QHash<QString, int> veces;
        for (const QStringList& fila : m_filas)
        {
            ++veces[claveDe(fila.value(0))];
        }
        for (std::size_t i = m_desde; i < m_filas.size(); ++i)
        {
            const QStringList& fila = m_filas[i];
            const QString clave = claveDe(fila.value(0));
            const int destino = filas.value(clave, -1);
            if (sinNada(fila))
            {
                continue;
            }
            if (clave.isEmpty())
            {
                rechazar(renglon(i), fila.value(0), QStringLiteral("No es un C.U.I.L."));
            }
            else if (veces.value(clave) > 1 || destino == 0)
            {
                rechazar(renglon(i), fila.value(0), QStringLiteral("El C.U.I.L. está repetido."));
            }
            else if (destino < 0)
            {
                rechazar(renglon(i), fila.value(0), QStringLiteral("El C.U.I.L. no está en la grilla."));
            }
            else
            {
                ponerFila(fila.mid(1), destino, m_destino.claves[destino - 1]);
            }
        }
    }

    void ponerFila(const QStringList& importes, int fila, const QString& quien)
    {
        for (std::size_t i = 0; i < m_columnas.size(); ++i)
        {
            const QString importe = importes.value(qsizetype(i));
            if (importe.trimmed().isEmpty())
            {
                continue;
            }
            const LecturaDeCelda leida = m_marca.leer(columna(m_columnas[i]), importe);
            if (leida.error.isEmpty())
            {
                m_pegado.celdas.push_back({m_columnas[i], fila, leida.valor});
            }
            else
            {
                rechazar(quien, importe, leida.error);
            }
        }
    }

    [[nodiscard]] static QString renglon(std::size_t i) { return QStringLiteral("Renglón %1").arg(i + 1); }

    void rechazar(const QString& quien, const QString& texto, const QString& porque)
    {
        if (++m_pegado.rechazados <= rechazosDichos)
        {
            constexpr qsizetype aLaVista = 30;
            m_pegado.rechazos += QStringLiteral("%1: «%2».  %3").arg(quien, texto.left(aLaVista).simplified(), porque);
        }
    }

    planilla::Filas m_filas;
    const DestinoDePegado& m_destino;
    std::vector<int> m_deImportes;
    Pegado m_pegado;
    qsizetype m_ancho = 0;
    bool m_conClave = false;
    QStringList m_encabezado;
    std::size_t m_desde = 0;
    std::vector<int> m_columnas; ///< where the amounts of a row go
    MarcaDeDecimales m_marca;
};
} // namespace

Pegado prepararPegado(const QString& texto, const DestinoDePegado& destino)
{
    if (texto.size() > textoMaximo)
    {
        Pegado nada;
        nada.error = QStringLiteral("Lo copiado es demasiado grande para esta grilla.");
        return nada;
    }
    return Preparacion(planilla::leerTabulado(texto), destino).hacer();
}

QString textoDePegado(const Pegado& pegado)
{
    if (!pegado.error.isEmpty())
    {
        return pegado.error;
    }
    const std::size_t pegados = pegado.celdas.size();
    QString texto = pegados == 0   ? QStringLiteral("No se pegó ningún importe.")
                    : pegados == 1 ? QStringLiteral("Se pegó 1 importe.")
                                   : QStringLiteral("Se pegaron %1 importes.").arg(pegados);
    if (!pegado.encabezado.isEmpty())
    {
        texto += QStringLiteral("\nLa primera fila, «%1», se tomó como encabezado.")
                     .arg(pegado.encabezado.left(titulosALaVista));
    }
    if (pegado.rechazados > 0)
    {
        texto += (pegado.rechazados == 1 ? QStringLiteral("\n\nNo se tomó 1:\n")
                                         : QStringLiteral("\n\nNo se tomaron %1:\n").arg(pegado.rechazados)) +
                 pegado.rechazos.join(u'\n');
    }
    if (pegado.rechazados > pegado.rechazos.size())
    {
        texto += QStringLiteral("\n...");
    }
    return texto;
}
