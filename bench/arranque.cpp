#include "core/screens/arranque.h"

#include "base/directorio_programa.h"
#include "base_grande.h"
#include "core/rutinas.h"
#include "medida.h"

#include <QApplication>

namespace
{
constexpr int millon = 1'000'000;

/// From the first step of the start to the main window painted: on the database as it is delivered, and on a full one.
class Arranque : public medida::Caso
{
public:
    void antesDeReferencia() override { dejar(grande::base(0)); }
    void antesDePrograma() override { dejar(grande::base(millon)); }
    void referencia() override { mostrar(); }
    void programa() override { mostrar(); }
    ~Arranque() override { cerrar(); }

private:
    void dejar(const Taller& taller)
    {
        cerrar();
        reemplazarDirectorioPrograma(taller.ruta(""));
    }
    void mostrar()
    {
        m_menu = arrancar();
        if (!m_menu)
        {
            throw std::runtime_error("el programa no arrancó");
        }
        m_menu->repaint();
        QApplication::processEvents();
    }
    void cerrar()
    {
        if (m_menu)
        {
            m_menu.reset();
            Rutinas::CerrarBase();
        }
    }

    std::unique_ptr<MDIMenuPpal> m_menu;
};

const medida::Registro enUnMillon{"arranque con 1.000.000 de filas", "con la base vacía",
                                  [] { return std::make_unique<Arranque>(); }};
} // namespace
