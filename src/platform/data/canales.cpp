#include "platform/data/archivos.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/data/errores_de_archivo.h"
#include "platform/data/sistema.h"
#include "platform/data/windows1252.h"

#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <cstring>
#include <map>
#include <vector>

namespace
{
constexpr std::size_t tamanoDelBloque = std::size_t{64} * 1024;
constexpr std::size_t lineaMasLarga = std::size_t{1024} * 1024;
constexpr char marcaDeFin = 0x1A; // with which programs of the DOS end a text file

[[noreturn]] void fallar(const QString& ruta)
{
    detalle::fallarArchivo(errno, ruta, detalle::Operacion::Canal);
}

/// A file being read, line by line through one buffer that grows only for a line longer than itself.
class Lectura
{
public:
    explicit Lectura(const QString& ruta)
        : m_ruta(ruta)
        , m_largo(QFileInfo(ruta).size())
    {
        if (QFileInfo(ruta).isDir())
        {
            throw ErrorDeEjecucion(ErrorDeEjecucion::SinAcceso, ruta);
        }
        m_archivo = sistema::abrir(ruta, "rb");
        if (!m_archivo)
        {
            fallar(ruta);
        }
        m_bloque.resize(tamanoDelBloque);
    }

    bool leerLinea(QByteArrayView& linea)
    {
        std::size_t fin = m_inicio;
        if (m_saltaLf && hayMas(fin) && m_bloque[fin] == '\n')
        {
            m_inicio = ++fin;
        }
        m_saltaLf = false;
        while (hayMas(fin) && !esFin(m_bloque[fin]))
        {
            ++fin;
        }
        if (fin == m_inicio && fin == m_lleno)
        {
            return false;
        }
        linea = QByteArrayView(m_bloque.data() + m_inicio, static_cast<qsizetype>(fin - m_inicio));
        m_saltaLf = fin < m_lleno && m_bloque[fin] == '\r';
        m_inicio = std::min(fin + 1, m_lleno);
        return true;
    }

    [[nodiscard]] qint64 posicion() const { return m_leido - static_cast<qint64>(m_lleno - m_inicio); }
    [[nodiscard]] qint64 largo() const { return m_largo; }

private:
    static bool esFin(char c) { return c == '\n' || c == '\r'; }

    /// Is there a byte at `i`? Reads on when the block ends there; what stands before m_inicio is given up, and `i`
    /// moves with the rest.
    bool hayMas(std::size_t& i)
    {
        if (i < m_lleno)
        {
            return true;
        }
        std::memmove(m_bloque.data(), m_bloque.data() + m_inicio, m_lleno - m_inicio);
        i -= m_inicio;
        m_lleno -= m_inicio;
        m_inicio = 0;
        if (m_lleno == m_bloque.size())
        {
            if (m_bloque.size() >= lineaMasLarga)
            {
                throw ErrorDeEjecucion(ErrorDeEjecucion::LineaDemasiadoLarga, m_ruta);
            }
            m_bloque.resize(m_bloque.size() * 2);
        }
        const std::size_t leidos = std::fread(m_bloque.data() + m_lleno, 1, m_bloque.size() - m_lleno, m_archivo.get());
        if (leidos == 0 && std::ferror(m_archivo.get()) != 0)
        {
            fallar(m_ruta);
        }
        m_lleno += leidos;
        m_leido += static_cast<qint64>(leidos);
        if (leidos == 0 && m_lleno > m_inicio && m_bloque[m_lleno - 1] == marcaDeFin)
        {
            i = --m_lleno;
        }
        return i < m_lleno;
    }

    QString m_ruta;
    sistema::Archivo m_archivo;
    std::vector<char> m_bloque;
    std::size_t m_inicio = 0; // what is not yet given out
    std::size_t m_lleno = 0;  // where the bytes read end
    qint64 m_leido = 0;
    qint64 m_largo = 0;
    bool m_saltaLf = false; // the last line ended at a CR, to which an LF may belong
};

/// A file being written, in blocks.
class Escritura
{
public:
    explicit Escritura(const QString& ruta)
        : m_ruta(ruta)
        , m_archivo(sistema::abrir(ruta, "wb"))
    {
        if (!m_archivo)
        {
            fallar(ruta);
        }
        m_pendiente.reserve(static_cast<qsizetype>(tamanoDelBloque));
    }

    void imprimir(QByteArrayView linea)
    {
        m_pendiente.append(linea);
        m_pendiente.append("\r\n");
        m_escrito += linea.size() + 2;
        if (m_pendiente.size() >= static_cast<qsizetype>(tamanoDelBloque))
        {
            volcar();
        }
    }

    void cerrar()
    {
        volcar();
        if (std::fclose(m_archivo.release()) != 0)
        {
            fallar(m_ruta);
        }
    }

    [[nodiscard]] qint64 posicion() const { return m_escrito; }

private:
    void volcar()
    {
        const auto cantidad = static_cast<std::size_t>(m_pendiente.size());
        const std::size_t escritos = std::fwrite(m_pendiente.constData(), 1, cantidad, m_archivo.get());
        const int error = errno;
        m_pendiente.resize(0); // what failed is told once, and not again when the channel is closed
        if (escritos != cantidad)
        {
            errno = error;
            fallar(m_ruta);
        }
    }

    QString m_ruta;
    sistema::Archivo m_archivo;
    QByteArray m_pendiente;
    qint64 m_escrito = 0;
};

struct Canal
{
    std::unique_ptr<Lectura> lectura;
    std::unique_ptr<Escritura> escritura;
};

std::map<int, Canal>& canales()
{
    static std::map<int, Canal> abiertos;
    return abiertos;
}

/// Throws unless the number may be opened.
void exigirLibre(int canal)
{
    if (canal < 1 || canal > 511)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NumeroDeArchivo, QString::number(canal));
    }
    if (Archivos::abierto(canal))
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::ArchivoYaAbierto);
    }
}

Canal& exigirAbierto(int canal)
{
    const auto lugar = canales().find(canal);
    if (lugar == canales().end())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::NumeroDeArchivo, QString::number(canal));
    }
    return lugar->second;
}

Escritura& exigirEscritura(int canal)
{
    const Canal& hallado = exigirAbierto(canal);
    if (!hallado.escritura)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::ModoDeArchivo, QString::number(canal));
    }
    return *hallado.escritura;
}
} // namespace

void Archivos::abrirParaLeer(int canal, const QString& ruta)
{
    exigirLibre(canal);
    canales()[canal] = {std::make_unique<Lectura>(ruta), nullptr};
}

void Archivos::abrirParaEscribir(int canal, const QString& ruta)
{
    exigirLibre(canal);
    canales()[canal] = {nullptr, std::make_unique<Escritura>(ruta)};
}

bool Archivos::leerLinea(int canal, QByteArrayView& linea)
{
    const Canal& hallado = exigirAbierto(canal);
    if (!hallado.lectura)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::ModoDeArchivo, QString::number(canal));
    }
    return hallado.lectura->leerLinea(linea);
}

qint64 Archivos::posicion(int canal)
{
    const Canal& hallado = exigirAbierto(canal);
    return hallado.lectura ? hallado.lectura->posicion() : hallado.escritura->posicion();
}

qint64 Archivos::largo(int canal)
{
    const Canal& hallado = exigirAbierto(canal);
    return hallado.lectura ? hallado.lectura->largo() : hallado.escritura->posicion();
}

void Archivos::imprimir(int canal, QStringView linea)
{
    exigirEscritura(canal).imprimir(aWindows1252(linea));
}

void Archivos::imprimir(int canal, QByteArrayView linea)
{
    exigirEscritura(canal).imprimir(linea);
}

void Archivos::cerrar(int canal)
{
    auto nodo = canales().extract(canal); // the number is free whatever the last write does
    if (nodo && nodo.mapped().escritura)
    {
        nodo.mapped().escritura->cerrar();
    }
}

void Archivos::cerrarTodos()
{
    while (!canales().empty())
    {
        cerrar(canales().begin()->first);
    }
}

bool Archivos::abierto(int canal)
{
    return canales().contains(canal);
}
