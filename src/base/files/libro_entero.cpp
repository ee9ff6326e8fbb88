#include "base/files/libro_entero.h"

#include <QByteArray>
#include <QFile>
#include <QRegularExpression>
#include <QtEndian>
#include <algorithm>
#include <boost/beast/zlib/error.hpp>
#include <boost/beast/zlib/inflate_stream.hpp>

namespace
{
namespace zlib = boost::beast::zlib;

constexpr qint64 bytesPorVez = 65'536;
constexpr qsizetype bytesDelPrincipio = 512; // the declaration and the name of the element behind it
constexpr qsizetype bytesDelFin = 64;

/// The first and the last bytes of a part, as they were before it was packed.
struct Extremos
{
    QByteArray principio;
    QByteArray fin;
};

bool terminaLoQueEmpieza(const Extremos& parte)
{
    static const QRegularExpression primero(QStringLiteral(R"(^<\?xml[^>]*\?>\s*<([^\s/>]+))"));
    const QRegularExpressionMatch elemento = primero.match(QString::fromUtf8(parte.principio));
    return elemento.hasMatch() && parte.fin.trimmed().endsWith("</" + elemento.captured(1).toUtf8() + '>');
}

/// Unpacks `largo` bytes from where the file stands; nothing in the end when they do not unpack.
Extremos extremosDe(QFile& libro, qint64 largo)
{
    Extremos parte;
    QByteArray entran;
    QByteArray salen(bytesPorVez, Qt::Uninitialized);
    zlib::inflate_stream desempaque;
    zlib::z_params lugares{};
    boost::system::error_code estado;
    while (!estado)
    {
        if (lugares.avail_in == 0)
        {
            entran = libro.read(std::min(bytesPorVez, largo));
            largo -= entran.size();
            lugares.next_in = entran.constData();
            lugares.avail_in = static_cast<std::size_t>(entran.size());
        }
        lugares.next_out = salen.data();
        lugares.avail_out = static_cast<std::size_t>(salen.size());
        desempaque.write(lugares, zlib::Flush::none, estado);
        const QByteArray nuevos = salen.left(salen.size() - static_cast<qsizetype>(lugares.avail_out));
        parte.principio += nuevos.left(bytesDelPrincipio - parte.principio.size());
        parte.fin = (parte.fin + nuevos).right(bytesDelFin);
    }
    return estado == zlib::error::end_of_stream ? parte : Extremos{};
}
} // namespace

bool planilla::estaEntero(const QString& libro)
{
    constexpr qsizetype largoDeCabecera = 30;
    constexpr qsizetype delLargo = 18, delNombre = 26, delAgregado = 28; // places in it
    QFile archivo(libro);
    if (!archivo.open(QIODevice::ReadOnly))
    {
        return false;
    }
    qint64 siguiente = 0;
    QByteArray cabecera = archivo.read(largoDeCabecera);
    while (cabecera.size() == largoDeCabecera && cabecera.startsWith("PK\3\4"))
    {
        const auto numero = [&]<class N>(N /*type*/, qsizetype lugar)
        { return qint64{qFromLittleEndian<N>(cabecera.constData() + lugar)}; };
        const qint64 largo = numero(quint32{}, delLargo);
        const qint64 datos =
            siguiente + largoDeCabecera + numero(quint16{}, delNombre) + numero(quint16{}, delAgregado);
        siguiente = datos + largo;
        if (!archivo.seek(datos) || !terminaLoQueEmpieza(extremosDe(archivo, largo)) || !archivo.seek(siguiente))
        {
            return false;
        }
        cabecera = archivo.read(largoDeCabecera);
    }
    return siguiente > 0;
}
