#pragma once

/// True when the user has asked his system for colours of high contrast: then they are his, and none the program's.
[[nodiscard]] bool altoContraste();
