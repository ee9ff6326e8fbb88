#include "core/screens/arranque.h"
#include "platform/screens/estilo.h"
#include "registro.h"

#include <QApplication>

int main(int argc, char** argv)
{
    QApplication aplicacion(argc, argv);
    Estilo::aplicar(aplicacion);
    registrarPantallas();
    const auto menu = arrancar();
    return menu ? QApplication::exec() : 0;
}
