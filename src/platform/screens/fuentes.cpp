#include "platform/screens/fuentes.h"

#include <QFontDatabase>
#include <algorithm>

namespace Fuentes
{
class Agregada
{
public:
    explicit Agregada(int numero)
        : m_numero(numero)
    {
    }
    ~Agregada() { QFontDatabase::removeApplicationFont(m_numero); }
    Agregada(const Agregada&) = delete;
    Agregada& operator=(const Agregada&) = delete;

private:
    int m_numero;
};

namespace
{
std::vector<std::weak_ptr<Agregada>>& registro()
{
    static std::vector<std::weak_ptr<Agregada>> agregadas;
    return agregadas;
}
} // namespace

bool hay(const QString& nombre)
{
    const QStringList familias = QFontDatabase::families();
    return std::any_of(familias.cbegin(), familias.cend(),
                       [&](const QString& familia) { return familia.compare(nombre, Qt::CaseInsensitive) == 0; });
}

std::shared_ptr<Agregada> agregar(const QString& ruta)
{
    const int numero = QFontDatabase::addApplicationFont(ruta);
    if (numero < 0)
    {
        return nullptr;
    }
    auto agregada = std::make_shared<Agregada>(numero);
    registro().push_back(agregada);
    return agregada;
}

std::vector<std::shared_ptr<Agregada>> enUso()
{
    std::erase_if(registro(), [](const auto& agregada) { return agregada.expired(); });
    std::vector<std::shared_ptr<Agregada>> vivas;
    for (const auto& agregada : registro())
    {
        if (auto viva = agregada.lock())
        {
            vivas.push_back(std::move(viva));
        }
    }
    return vivas;
}
} // namespace Fuentes
