#include "registro.h"

void registrarPantallas() {}
