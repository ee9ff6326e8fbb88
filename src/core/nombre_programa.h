#pragma once

/// The application's name: in the titles of windows and boxes, and in what is printed to a file.
inline constexpr const char* nombreDelPrograma = "Altoverde";
