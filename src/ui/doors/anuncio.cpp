#include "ui/doors/anuncio.h"

#include <QApplication>

namespace
{
std::function<void(const QString&)> mostrarAnuncio;
} // namespace

void anunciar(const QString& texto)
{
    QApplication::beep();
    avisar(texto);
}

void avisar(const QString& texto)
{
    if (mostrarAnuncio)
    {
        mostrarAnuncio(texto);
    }
}

void reemplazarAnuncios(std::function<void(const QString&)> mostrar)
{
    mostrarAnuncio = std::move(mostrar);
}
