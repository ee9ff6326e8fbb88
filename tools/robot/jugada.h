#pragma once

#include "falla.h"
#include "ui/doors/mensajes.h"

#include <QDir>
#include <QStringList>
#include <functional>
#include <vector>

/// What the lines of a script leave for later lines, and what boxes and dialogs leave for the script.
struct Contexto
{
    QString carpeta;                ///< relative paths are relative to it
    QStringList respuestas;         ///< of the line that acts, not asked for yet
    QStringList archivos;           ///< the same
    std::vector<DatosDeCaja> cajas; ///< shown since the last line that acts began
    int cajasEnTotal = 0;
    int lineas = 0; ///< of the script, begun so far
    /// The rest of the line at work, played once the program has come to rest.
    std::function<void()> luego;

    [[nodiscard]] QString ruta(const QString& delGuion) const
    {
        return QDir::toNativeSeparators(QDir::cleanPath(QDir(carpeta).absoluteFilePath(delGuion)));
    }
};

/// One line at play. A line whose click was refused by a leaving check, which told so in a box, is done: what the
/// refusal left is for the next lines to look at.
class Jugada
{
public:
    explicit Jugada(Contexto& deTodas)
        : contexto(&deTodas)
        , m_cajas(deTodas.cajasEnTotal)
        , m_lineas(deTodas.lineas)
    {
    }
    /// True when since the beginning of this line a box was shown, or other lines were played in a dialog.
    [[nodiscard]] bool interrumpida() const
    {
        return contexto->cajasEnTotal != m_cajas || contexto->lineas != m_lineas;
    }
    /// Throws Falla with the reason unless the line was interrupted.
    template <class... Valores>
    void siNoInterrumpida(const char* motivo, const Valores&... valores) const
    {
        if (!interrumpida())
        {
            throw Falla(motivo, valores...);
        }
    }
    /// The rest of this line, to be played once the program has come to rest.
    void luego(std::function<void()> resto) const { contexto->luego = std::move(resto); }

    Contexto* contexto;

private:
    int m_cajas;
    int m_lineas;
};
