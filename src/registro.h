#pragma once

/// Registers every screen of the program with Navegacion, under its own name.
void registrarPantallas();
