#include "companies/cambios.h"

#include <algorithm>
#include <iterator>

namespace
{
constexpr std::size_t cambiosEnLaCaja = 12;

QString renglon(const Cambio& cambio)
{
    if (!cambio.antes)
    {
        return QStringLiteral("%1: se agregó \"%2\".").arg(cambio.campo, *cambio.ahora);
    }
    if (!cambio.ahora)
    {
        return QStringLiteral("%1: se quitó \"%2\".").arg(cambio.campo, *cambio.antes);
    }
    return QStringLiteral("%1: decía \"%2\" y ahora dice \"%3\".").arg(cambio.campo, *cambio.antes, *cambio.ahora);
}

QString pregunta(const Cambios& cambios)
{
    QStringList renglones{
        QStringLiteral("Desde otra ventana u otro puesto se modificaron estos datos después de mostrarlos:"), {}};
    for (std::size_t i = 0; i < std::min(cambios.size(), cambiosEnLaCaja); ++i)
    {
        renglones.append(renglon(cambios[i]));
    }
    if (cambios.size() > cambiosEnLaCaja)
    {
        renglones.append(QStringLiteral("Y otros %1.").arg(cambios.size() - cambiosEnLaCaja));
    }
    renglones << QString() << QStringLiteral("¿Desea reemplazarlos por los de esta pantalla?");
    return renglones.join(u'\n');
}

QString texto(const FilaMostrada& fila)
{
    QStringList llenas = fila.celdas;
    llenas.removeAll(QString());
    return llenas.join(QStringLiteral(", "));
}

std::vector<FilaMostrada> diferencia(const std::vector<FilaMostrada>& unas, const std::vector<FilaMostrada>& otras)
{
    std::vector<FilaMostrada> solas;
    std::set_difference(unas.begin(), unas.end(), otras.begin(), otras.end(), std::back_inserter(solas));
    return solas;
}
} // namespace

Cambios compararCampos(const std::vector<CampoMostrado>& antes, const std::vector<CampoMostrado>& ahora)
{
    Cambios cambios;
    for (std::size_t i = 0; i < antes.size(); ++i)
    {
        if (antes[i].texto != ahora[i].texto)
        {
            cambios.push_back({antes[i].campo, antes[i].texto, ahora[i].texto});
        }
    }
    return cambios;
}

Cambios compararFilas(const QString& campo, std::vector<FilaMostrada> antes, std::vector<FilaMostrada> ahora)
{
    std::sort(antes.begin(), antes.end());
    std::sort(ahora.begin(), ahora.end());
    std::vector<FilaMostrada> nuevas = diferencia(ahora, antes);
    Cambios cambios;
    for (const FilaMostrada& ida : diferencia(antes, ahora))
    {
        const auto misma =
            std::find_if(nuevas.begin(), nuevas.end(), [&](const FilaMostrada& una) { return una.clave == ida.clave; });
        if (misma == nuevas.end())
        {
            cambios.push_back({campo, texto(ida), std::nullopt});
            continue;
        }
        cambios.push_back({campo, texto(ida), texto(*misma)});
        nuevas.erase(misma);
    }
    for (const FilaMostrada& nueva : nuevas)
    {
        cambios.push_back({campo, std::nullopt, texto(nueva)});
    }
    return cambios;
}

CambiadoPorOtro::CambiadoPorOtro(Cambios cambios)
    : ErrorParaAvisar(EnUso, pregunta(cambios))
    , m_cambios(std::move(cambios))
{
}

void exigirSinCambios(Cambios cambios)
{
    if (!cambios.empty())
    {
        throw CambiadoPorOtro(std::move(cambios));
    }
}
