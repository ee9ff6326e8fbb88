#include "base/files/lineas.h"

#include "base/error_de_ejecucion.h"
#include "base/files/errores_de_archivo.h"

#include <QFileInfo>
#include <algorithm>
#include <cerrno>
#include <cstring>

namespace
{
constexpr std::size_t tamanoDelBloque = std::size_t{64} * 1024;
constexpr std::size_t lineaMasLarga = std::size_t{1024} * 1024;
constexpr char marcaDeFin = 0x1A; // with which programs of the DOS end a text file

[[noreturn]] void fallar(const QString& ruta, int error = errno)
{
    detalle::fallarArchivo(error, ruta, detalle::Operacion::Canal);
}

/// Failures name `nombre`.
sistema::Archivo abrir(const QString& ruta, const char* modo, const QString& nombre)
{
    if (QFileInfo(ruta).isDir())
    {
        fallar(nombre, EISDIR);
    }
    sistema::Archivo archivo = sistema::abrir(ruta, modo);
    if (!archivo)
    {
        fallar(nombre);
    }
    return archivo;
}

bool esFin(char c)
{
    return c == '\n' || c == '\r';
}
} // namespace

LectorDeLineas::LectorDeLineas(const QString& ruta)
    : m_ruta(ruta)
    , m_archivo(abrir(ruta, "rb", m_ruta))
    , m_bloque(tamanoDelBloque)
    , m_largo(QFileInfo(ruta).size())
{
}

bool LectorDeLineas::leer(QByteArrayView& linea)
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

/// Is there a byte at `i`? Reads on when the block ends there; what stands before m_inicio is given up, and `i` moves
/// with the rest.
bool LectorDeLineas::hayMas(std::size_t& i)
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
            throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::LineaDemasiadoLarga, m_ruta);
        }
        m_bloque.resize(m_bloque.size() * 2);
    }
    const std::size_t leidos = std::fread(m_bloque.data() + m_lleno, 1, m_bloque.size() - m_lleno, m_archivo.get());
    if (leidos == 0 && std::ferror(m_archivo.get()) != 0)
    {
        fallar(m_ruta);
    }
    if (leidos == 0 && m_lleno > m_inicio && m_bloque[m_lleno - 1] == marcaDeFin)
    {
        i = --m_lleno;
    }
    m_lleno += leidos;
    return i < m_lleno;
}

EscritorDeLineas::EscritorDeLineas(const QString& ruta, const QString& nombre)
    : m_ruta(nombre.isEmpty() ? ruta : nombre)
    , m_archivo(abrir(ruta, "wb", m_ruta))
{
    m_pendiente.reserve(static_cast<qsizetype>(tamanoDelBloque));
}

void EscritorDeLineas::imprimir(QByteArrayView linea)
{
    m_pendiente.append(linea);
    m_pendiente.append("\r\n");
    if (m_pendiente.size() >= static_cast<qsizetype>(tamanoDelBloque))
    {
        volcar();
    }
}

void EscritorDeLineas::cerrar()
{
    volcar();
    if (std::fclose(m_archivo.release()) != 0)
    {
        fallar(m_ruta);
    }
}

void EscritorDeLineas::volcar()
{
    const auto cantidad = static_cast<std::size_t>(m_pendiente.size());
    const std::size_t escritos = std::fwrite(m_pendiente.constData(), 1, cantidad, m_archivo.get());
    const int error = errno;
    m_pendiente.resize(0); // what failed is told once, and not again when the file is closed
    if (escritos != cantidad)
    {
        fallar(m_ruta, error);
    }
}
