#pragma once

class QWidget;

/// Height in pixels of the letters that the forms are drawn for: 9 points at 96 dpi.
inline constexpr int letraDeFormularios = 12;

/// Gives the fields of a form, and the frames around them, the room for larger letters: the widths that the form fixes
/// grow with the letters in use, and never shrink. Once for each form, before any width in it is measured.
void ensancharCampos(QWidget& formulario);
