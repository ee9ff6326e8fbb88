#include "roster/totales_de_sueldos.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"

void TotalesDeSueldos::contar(const std::vector<FilaSueldo>& leidas, const std::vector<FilaSueldo>& ahora)
{
    *this = {};
    m_filas.reserve(leidas.size());
    for (std::size_t i = 0; i < leidas.size(); ++i)
    {
        m_filas.push_back({{}, {}, leidas[i].sueldo, leidas[i].acuerdo});
        m_modificadas += m_filas.back().modificada() ? 1 : 0;
        cambiar(i, ahora.at(i).sueldo, ahora.at(i).acuerdo);
    }
}

void TotalesDeSueldos::cambiar(std::size_t fila, Moneda sueldo, Moneda acuerdo)
{
    Fila& una = m_filas.at(fila);
    m_modificadas -= una.modificada() ? 1 : 0;
    try
    {
        m_sueldo += sueldo - una.sueldo;
        m_acuerdo += acuerdo - una.acuerdo;
    }
    catch (const ErrorDeEjecucion&)
    {
        m_desborda = true;
    }
    una.sueldo = sueldo;
    una.acuerdo = acuerdo;
    m_modificadas += una.modificada() ? 1 : 0;
}

QString TotalesDeSueldos::texto() const
{
    const auto personas = static_cast<qint64>(m_filas.size());
    const QString sumas =
        m_desborda ? QString()
                   : QStringLiteral(" - Sueldo %1 - Acuerdo %2").arg(conPesos(m_sueldo), conPesos(m_acuerdo));
    return QStringLiteral("%1 %2%3 - %4 %5")
        .arg(conMiles(personas), personas == 1 ? QStringLiteral("persona") : QStringLiteral("personas"), sumas,
             conMiles(m_modificadas),
             m_modificadas == 1 ? QStringLiteral("modificada") : QStringLiteral("modificadas"));
}
