#include "base/directorio_programa.h"
#include "core/nombre_programa.h"
#include "core/screens/arranque.h"
#include "registro.h"
#include "ui/doors/contraste.h"
#include "ui/look/estilo.h"

#include <QApplication>
#include <cstdlib>

int main(int argc, char** argv)
{
    QApplication aplicacion(argc, argv);
    QApplication::setApplicationName(QString::fromLatin1(nombreDelPrograma));
    // A program that was installed for all users works on a folder of each one.
    reemplazarDirectorioPrograma(qEnvironmentVariable("ALTOVERDE_CARPETA"));
    Estilo::aplicar(aplicacion, altoContraste());
    registrarPantallas();
    const auto menu = arrancar();
    return menu ? QApplication::exec() : EXIT_FAILURE;
}
