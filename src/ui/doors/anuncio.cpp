#include "ui/doors/anuncio.h"

#include <QApplication>

namespace
{
std::function<void(const QString&)> mostrarAnuncio;
} // namespace

void anunciar(const QString& texto)
{
    QApplication::beep();
    if (mostrarAnuncio)
    {
        mostrarAnuncio(texto);
    }
}

void reemplazarAnuncios(std::function<void(const QString&)> mostrar)
{
    mostrarAnuncio = std::move(mostrar);
}
