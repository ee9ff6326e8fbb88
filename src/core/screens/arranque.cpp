#include "core/screens/arranque.h"

#include "base/error_de_ejecucion.h"
#include "core/rutinas.h"
#include "ui/shell/error_fatal.h"

std::unique_ptr<MDIMenuPpal> arrancar()
{
    std::unique_ptr<MDIMenuPpal> menu;
    protegido(
        [&]
        {
            try
            {
                Rutinas::Main(
                    [&]
                    {
                        menu = std::make_unique<MDIMenuPpal>();
                        menu->show();
                    });
            }
            catch (const ErrorParaAvisar& error)
            {
                throw ErrorDeEjecucion(error); // here there is nothing to go on with
            }
        });
    return menu;
}
