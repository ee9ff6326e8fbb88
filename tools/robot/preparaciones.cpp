#include "base.h"
#include "base/reloj.h"
#include "captura.h"
#include "guion.h"
#include "jugada.h"

#include <QDateTime>

namespace guion
{
std::span<const Verbo> verbosQuePreparan()
{
    static constexpr Verbo todos[] = {
        {"fecha", "dh?",
         [](const Jugada&, const Argumentos& a)
         {
             const QTime hora = a.size() > 1 ? QTime::fromString(a[1].texto, "HH:mm") : QTime(0, 0);
             QDateTime ahora(QDate::fromString(a[0].texto, "dd/MM/yyyy"), hora);
             Reloj::reemplazar([ahora] { return ahora; });
         }},
        {"sql", "t",
         [](const Jugada& j, const Argumentos& a)
         { ejecutarEnBase(j.contexto->ruta("DBBrivo.mdb"), a[0].texto.toStdString()); }},
        {"captura", "t",
         [](const Jugada& j, const Argumentos& a) { grabarImagen(retratar(), j.contexto->ruta(a[0].texto)); }},
        {"retrato", "t",
         [](const Jugada& j, const Argumentos& a) { grabarImagen(retratarVentana(), j.contexto->ruta(a[0].texto)); }},
    };
    return todos;
}
} // namespace guion
