#include "apoyo/pantallas_fugaces.h"

#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

namespace
{
class PantallaFugaz : public Pantalla
{
public:
    PantallaFugaz(const QString& nombre, std::function<void()> haz)
        : Pantalla(nombre)
        , m_haz(std::move(haz))
    {
    }
    void cargar() override
    {
        m_haz();
        cerrar();
    }

private:
    std::function<void()> m_haz;
};
} // namespace

PantallasFugaces::~PantallasFugaces()
{
    for (const QString& nombre : m_nombres)
    {
        Navegacion::instancia().registrar(nombre, [] { return nullptr; });
    }
}

void PantallasFugaces::registrar(const QString& nombre, std::function<void()> haz)
{
    m_nombres.append(nombre);
    Navegacion::instancia().registrar(nombre,
                                      [nombre, haz = std::move(haz)] { return new PantallaFugaz(nombre, haz); });
}
