#include "core/ultima_copia.h"

#include "base/db/conexion.h"

UltimaCopia leerUltimaCopia(Conexion& conexion)
{
    return conexion.primera(
        "SELECT * FROM Parametros",
        [](const Fila& fila) {
            return UltimaCopia{fila.texto("Bak_Carpeta"), fila.fecha("Bak_Fecha"), fila.hora("Bak_Hora")};
        });
}

AvisoDeCopia avisoDeCopia(const UltimaCopia& ultima, QDate hoy)
{
    constexpr qint64 alDia = 30; // days
    if (ultima.carpeta.isEmpty() || !ultima.fecha.isValid())
    {
        return {QStringLiteral("Sin copias"), true};
    }
    const QString texto = QStringLiteral("Última copia: ") + ultima.fecha.toString(u"dd/MM/yy");
    const qint64 dias = ultima.fecha.daysTo(hoy);
    return dias > alDia ? AvisoDeCopia{texto + QStringLiteral(" (hace %1 días)").arg(dias), true}
                        : AvisoDeCopia{texto, false};
}
