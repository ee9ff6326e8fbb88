#include "registro.h"

#include <QApplication>

int main(int argc, char** argv)
{
    const QApplication aplicacion(argc, argv);
    registrarPantallas();
    return 0;
}
