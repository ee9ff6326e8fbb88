#include "guion.h"

#include "teclas.h"

#include <QHash>
#include <QStringDecoder>
#include <functional>
#include <optional>

namespace guion
{
namespace
{
/// The words after an action's name, read one by one.
class Argumentos
{
public:
    Argumentos(QStringList lista, int linea)
        : m_lista(std::move(lista))
        , m_linea(linea)
    {
    }

    [[nodiscard]] QString texto(qsizetype n) const { return m_lista.at(n); }
    [[nodiscard]] QStringList todos() const { return m_lista; }
    [[nodiscard]] qsizetype cantidad() const { return m_lista.size(); }
    [[nodiscard]] int numero(qsizetype n, int minimo) const
    {
        bool bien = false;
        const int valor = m_lista.at(n).toInt(&bien);
        if (!bien || valor < minimo)
        {
            fallar(QStringLiteral("«%1» no es un número desde %2").arg(m_lista.at(n)).arg(minimo));
        }
        return valor;
    }
    [[nodiscard]] bool siNo(qsizetype n) const
    {
        const std::optional<bool> leido = leerSiNo(m_lista.at(n));
        if (!leido)
        {
            fallar(QStringLiteral("se espera si o no, y dice «%1»").arg(m_lista.at(n)));
        }
        return *leido;
    }
    [[noreturn]] void fallar(const QString& motivo) const { throw ErrorDeLectura(m_linea, motivo); }

private:
    QStringList m_lista;
    int m_linea;
};

struct Forma
{
    qsizetype minimo;
    qsizetype maximo;
    std::function<Accion(const Argumentos&)> hacer;
};

Tecla leerTecla(const Argumentos& a)
{
    const std::optional<QKeyCombination> leida = teclaDeNombre(a.texto(1));
    if (!leida)
    {
        a.fallar(QStringLiteral("no hay tecla «%1»").arg(a.texto(1)));
    }
    return {a.texto(0), leida->key(), leida->keyboardModifiers()};
}

Fecha leerFecha(const Argumentos& a)
{
    const QDate dia = QDate::fromString(a.texto(0), QStringLiteral("dd/MM/yyyy"));
    const QTime hora = a.cantidad() == 2 ? QTime::fromString(a.texto(1), QStringLiteral("HH:mm")) : QTime(0, 0);
    if (!dia.isValid() || !hora.isValid())
    {
        a.fallar(QStringLiteral("se espera DD/MM/AAAA [HH:MM]"));
    }
    return {QDateTime(dia, hora)};
}

Forma estado(EsperaEstado::Cual cual)
{
    return {2, 2, [cual](const Argumentos& a) { return EsperaEstado{cual, a.texto(0), a.siNo(1)}; }};
}

QHash<QString, Forma> acciones()
{
    const auto fila = [](bool doble) {
        return Forma{2, 2, [doble](const Argumentos& a) { return Fila{a.texto(0), a.numero(1, 0), doble}; }};
    };
    return {
        {"menu", {1, 9, [](const Argumentos& a) { return Menu{a.todos()}; }}},
        {"pulsar", {1, 1, [](const Argumentos& a) { return Pulsar{a.texto(0)}; }}},
        {"escribir",
         {2, 2,
          [](const Argumentos& a) {
              return Escribir{a.texto(0), a.texto(1)};
          }}},
        {"tecla", {2, 2, leerTecla}},
        {"elegir",
         {2, 2,
          [](const Argumentos& a) {
              return Elegir{a.texto(0), a.texto(1)};
          }}},
        {"pagina", {1, 1, [](const Argumentos& a) { return Pagina{a.texto(0)}; }}},
        {"fila", fila(false)},
        {"doble", fila(true)},
        {"celda",
         {4, 4,
          [](const Argumentos& a) {
              return Celda{a.texto(0), a.numero(1, 1), a.numero(2, 1), a.texto(3)};
          }}},
        {"responder", {1, 1, [](const Argumentos& a) { return Responder{a.siNo(0)}; }}},
        {"archivo", {1, 1, [](const Argumentos& a) { return Archivo{a.texto(0)}; }}},
        {"ventana", {1, 1, [](const Argumentos& a) { return Ventana{a.texto(0)}; }}},
        {"cerrar", {0, 0, [](const Argumentos&) { return Cerrar{}; }}},
        {"fecha", {1, 2, leerFecha}},
        {"espera",
         {2, 2,
          [](const Argumentos& a) {
              return Espera{a.texto(0), a.texto(1)};
          }}},
        {"espera_celda",
         {4, 4,
          [](const Argumentos& a) {
              return EsperaCelda{a.texto(0), a.numero(1, 0), a.numero(2, 1), a.texto(3)};
          }}},
        {"espera_filas",
         {2, 2,
          [](const Argumentos& a) {
              return EsperaFilas{a.texto(0), a.numero(1, 0)};
          }}},
        {"espera_mensaje", {1, 1, [](const Argumentos& a) { return EsperaMensaje{a.texto(0)}; }}},
        {"espera_titulo", {1, 1, [](const Argumentos& a) { return EsperaTitulo{a.texto(0)}; }}},
        {"espera_activo", estado(EsperaEstado::Activo)},
        {"espera_visible", estado(EsperaEstado::Visible)},
        {"espera_marca", estado(EsperaEstado::Marca)},
        {"espera_foco", {1, 1, [](const Argumentos& a) { return EsperaFoco{a.texto(0)}; }}},
        {"espera_ventana",
         {2, 2,
          [](const Argumentos& a) {
              return EsperaVentana{a.texto(0), a.siNo(1)};
          }}},
        {"espera_archivo",
         {2, 2,
          [](const Argumentos& a) {
              return EsperaArchivo{a.texto(0), a.texto(1)};
          }}},
        {"espera_sin_archivo", {1, 1, [](const Argumentos& a) { return EsperaSinArchivo{a.texto(0)}; }}},
        {"espera_base",
         {2, 2,
          [](const Argumentos& a) {
              return EsperaBase{a.texto(0), a.texto(1)};
          }}},
        {"captura", {1, 1, [](const Argumentos& a) { return Captura{a.texto(0)}; }}},
        {"retrato",
         {1, 1,
          [](const Argumentos& a) {
              return Captura{a.texto(0), true};
          }}},
        {"informe", {1, 1, [](const Argumentos& a) { return Informe{a.texto(0)}; }}},
        {"salir", {0, 0, [](const Argumentos&) { return Salir{}; }}},
    };
}

Accion leerAccion(QStringList lista, int linea)
{
    static const QHash<QString, Forma> conocidas = acciones();
    const QString nombre = lista.takeFirst();
    const auto forma = conocidas.constFind(nombre);
    if (forma == conocidas.constEnd())
    {
        throw ErrorDeLectura(linea, QStringLiteral("no hay acción «%1»").arg(nombre));
    }
    if (lista.size() < forma->minimo || lista.size() > forma->maximo)
    {
        const QString cuantos = forma->minimo == forma->maximo
                                    ? QString::number(forma->minimo)
                                    : QStringLiteral("de %1 a %2").arg(forma->minimo).arg(forma->maximo);
        throw ErrorDeLectura(linea,
                             QStringLiteral("%1 lleva %2 argumentos, y hay %3").arg(nombre, cuantos).arg(lista.size()));
    }
    return forma->hacer(Argumentos(std::move(lista), linea));
}

/// The text in quotes that begins at `lugar`, which is left after the closing quote.
QString leerComillas(const QString& texto, qsizetype& lugar, int linea)
{
    QString palabra;
    for (++lugar; lugar < texto.size(); ++lugar)
    {
        const QChar letra = texto.at(lugar);
        if (letra == u'"')
        {
            ++lugar;
            if (lugar < texto.size() && !texto.at(lugar).isSpace())
            {
                throw ErrorDeLectura(linea, QStringLiteral("después de las comillas falta un blanco"));
            }
            return palabra;
        }
        const QChar otra = letra == u'\\' && lugar + 1 < texto.size() ? texto.at(lugar + 1) : QChar();
        if (otra == u'"' || otra == u'\\' || otra == u'n')
        {
            palabra += otra == u'n' ? QChar(u'\n') : otra;
            ++lugar;
            continue;
        }
        palabra += letra;
    }
    throw ErrorDeLectura(linea, QStringLiteral("faltan las comillas que cierran"));
}
} // namespace

ErrorDeLectura::ErrorDeLectura(int numeroDeLinea, const QString& queFalla)
    : std::runtime_error(QStringLiteral("línea %1: %2").arg(numeroDeLinea).arg(queFalla).toStdString())
    , m_linea(numeroDeLinea)
    , m_motivo(queFalla)
{
}

QStringList palabras(const QString& texto, int linea)
{
    QStringList lista;
    qsizetype lugar = 0;
    while (lugar < texto.size())
    {
        const QChar letra = texto.at(lugar);
        if (letra.isSpace())
        {
            ++lugar;
        }
        else if (letra == u'#')
        {
            break;
        }
        else if (letra == u'"')
        {
            lista += leerComillas(texto, lugar, linea);
        }
        else
        {
            const qsizetype desde = lugar;
            while (lugar < texto.size() && !texto.at(lugar).isSpace())
            {
                ++lugar;
            }
            lista += texto.sliced(desde, lugar - desde);
        }
    }
    return lista;
}

std::vector<Paso> leer(const QByteArray& utf8)
{
    QStringDecoder decodificador(QStringDecoder::Utf8);
    const QString todo = decodificador(utf8);
    if (decodificador.hasError())
    {
        throw ErrorDeLectura(1, QStringLiteral("el guion no está en UTF-8"));
    }
    std::vector<Paso> pasos;
    int linea = 0;
    for (const QString& texto : todo.split(u'\n'))
    {
        ++linea;
        const QStringList lista = palabras(texto, linea);
        if (!lista.isEmpty())
        {
            pasos.push_back({linea, texto.trimmed(), leerAccion(lista, linea)});
        }
    }
    return pasos;
}

QString entreComillas(const QString& texto)
{
    QString dentro = texto;
    dentro.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    dentro.remove(u'\r').replace(u'\n', QStringLiteral("\\n"));
    return u'"' + dentro + u'"';
}

std::optional<bool> leerSiNo(const QString& texto)
{
    const QString bajo = texto.toLower();
    if (bajo == QStringLiteral("si") || bajo == QStringLiteral("sí"))
    {
        return true;
    }
    return bajo == QStringLiteral("no") ? std::optional<bool>(false) : std::nullopt;
}
} // namespace guion
