#pragma once

#include <QString>
#include <functional>

/// The door to what needs no answer: a sound, and a text where the main window shows one.
void anunciar(const QString& texto);
/// The same without the sound: what was done as the user asked.
void avisar(const QString& texto);
/// Where the texts are shown; an empty function: nowhere.
void reemplazarAnuncios(std::function<void(const QString& texto)> mostrar);
