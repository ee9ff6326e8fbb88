#include "core/rutinas.h"
#include "core/screens/mdi_menu_ppal.h"
#include "platform/screens/error_fatal.h"
#include "platform/screens/estilo.h"
#include "registro.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication aplicacion(argc, argv);
    Estilo::aplicar(aplicacion);
    registrarPantallas();

    std::unique_ptr<MDIMenuPpal> menu;
    protegido(
        [&]
        {
            Rutinas::Main(
                [&]
                {
                    menu = std::make_unique<MDIMenuPpal>();
                    menu->show();
                });
        });
    return menu ? QApplication::exec() : 0;
}
