#pragma once

#include "core/screens/mdi_menu_ppal.h"

#include <memory>

/// Starts the program in an application that stands: opens the database, upgrades it and shows the main window. Gives
/// nothing when that failed; what is to be told has been told.
[[nodiscard]] std::unique_ptr<MDIMenuPpal> arrancar();
