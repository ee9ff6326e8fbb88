#include "core/screens/arranque.h"

#include "core/rutinas.h"
#include "platform/screens/error_fatal.h"

std::unique_ptr<MDIMenuPpal> arrancar()
{
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
    return menu;
}
