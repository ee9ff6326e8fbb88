#pragma once

/// True when the user has asked his system for colours of high contrast: then they are his, and none the program's.
/// Asked of the system once, so the first call comes before the program sets a palette.
[[nodiscard]] bool altoContraste();
