#pragma once

#include "guion.h"

#include <QString>
#include <deque>
#include <functional>

/// What the lines of a script leave for later lines, and what boxes and dialogs leave for the script.
struct Contexto
{
    struct Respuesta
    {
        int linea = 0; ///< of the script that queued it
        bool si = false;
    };
    struct RutaPedida
    {
        int linea = 0;
        QString ruta;
    };
    QString carpeta;         ///< relative paths are relative to it
    QString carpetaDelGuion; ///< the expected files lie beside the script
    std::deque<Respuesta> respuestas;
    std::deque<RutaPedida> archivos;
    QString ultimaCaja;
    int cajas = 0;  ///< shown so far
    int lineas = 0; ///< of the script, begun so far
    /// The rest of the line at work, played once the program has come to rest.
    std::function<void()> luego;

    [[nodiscard]] QString ruta(const QString& delGuion) const;
};

/// Plays one line. Throws Falla when a person could not do it or what it says does not hold.
void jugar(const guion::Paso& paso, Contexto& contexto);
