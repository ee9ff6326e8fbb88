#pragma once

#include "platform/screens/mensajes.h"

#include <QString>
#include <deque>
#include <functional>
#include <vector>

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
    std::vector<DatosDeCaja> cajas; ///< shown since the last line that acts began
    bool nombradas = false;         ///< a line has told what those boxes say
    int cajasEnTotal = 0;
    int lineas = 0; ///< of the script, begun so far
    /// The rest of the line at work, played once the program has come to rest.
    std::function<void()> luego;

    [[nodiscard]] QString ruta(const QString& delGuion) const;
    [[nodiscard]] QString base() const { return ruta(QStringLiteral("DBBrivo.mdb")); }
};

/// One line at play. A line whose click was refused by a leaving check, which told so in a box, is done: what the
/// refusal left is for the next lines to look at.
class Jugada
{
public:
    Jugada(int linea, Contexto& contexto)
        : m_contexto(&contexto)
        , m_linea(linea)
        , m_cajas(contexto.cajasEnTotal)
        , m_lineas(contexto.lineas)
    {
    }
    [[nodiscard]] Contexto& contexto() const { return *m_contexto; }
    [[nodiscard]] int linea() const { return m_linea; }
    /// True when since the beginning of this line a box was shown, or other lines were played in a dialog.
    [[nodiscard]] bool interrumpida() const
    {
        return m_contexto->cajasEnTotal != m_cajas || m_contexto->lineas != m_lineas;
    }
    /// Throws Falla with the reason unless the line was interrupted.
    void siNoInterrumpida(const QString& motivo) const;
    /// The rest of this line, to be played once the program has come to rest.
    void luego(std::function<void()> resto) const { m_contexto->luego = std::move(resto); }

private:
    Contexto* m_contexto;
    int m_linea;
    int m_cajas;
    int m_lineas;
};
