#pragma once

#include "base/files/lineas.h"

/// File number 1: the roster that is being imported, or the declaration that is being written. There is one, and after
/// an import that failed it stays open until somebody closes it: whoever opens it meanwhile fails with 55.
namespace ArchivoUno
{
LectorDeLineas& abrirParaLeer(const QString& ruta);
/// Failures name `nombre` where there is one.
void abrirParaEscribir(const QString& ruta, const QString& nombre = {});
/// Adds a line to the file that is being written.
void imprimir(QByteArrayView linea);
/// Writes out what is pending; the file is closed even when that fails. One that is not open is left alone.
void cerrar();
[[nodiscard]] bool abierto();
} // namespace ArchivoUno
