#include "ui/report/fuentes.h"

#include <QFontDatabase>
#include <algorithm>

namespace Fuentes
{
bool hay(const QString& nombre)
{
    const QStringList familias = QFontDatabase::families();
    return std::any_of(familias.cbegin(), familias.cend(),
                       [&](const QString& familia) { return familia.compare(nombre, Qt::CaseInsensitive) == 0; });
}

bool agregar(const QString& ruta)
{
    return QFontDatabase::addApplicationFont(ruta) >= 0;
}
} // namespace Fuentes
