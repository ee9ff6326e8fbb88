#include "exchange/archivo_uno.h"

#include "base/error_de_ejecucion.h"

#include <variant>

namespace
{
using Archivo = std::variant<std::monostate, LectorDeLineas, EscritorDeLineas>;

Archivo& archivo()
{
    static Archivo uno;
    return uno;
}

template <class Modo, class... A>
Modo& abrir(const A&... ruta)
{
    if (ArchivoUno::abierto())
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::ArchivoYaAbierto);
    }
    Modo nuevo(ruta...); // one that cannot be opened leaves the number free
    return archivo().emplace<Modo>(std::move(nuevo));
}
} // namespace

LectorDeLineas& ArchivoUno::abrirParaLeer(const QString& ruta)
{
    return abrir<LectorDeLineas>(ruta);
}

void ArchivoUno::abrirParaEscribir(const QString& ruta, const QString& nombre)
{
    abrir<EscritorDeLineas>(ruta, nombre);
}

void ArchivoUno::imprimir(QByteArrayView linea)
{
    std::get<EscritorDeLineas>(archivo()).imprimir(linea);
}

void ArchivoUno::cerrar()
{
    Archivo cierra = std::exchange(archivo(), std::monostate());
    if (auto* escritor = std::get_if<EscritorDeLineas>(&cierra))
    {
        escritor->cerrar();
    }
}

bool ArchivoUno::abierto()
{
    return archivo().index() != 0;
}
