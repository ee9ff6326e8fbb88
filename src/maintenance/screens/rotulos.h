#pragma once

class QLabel;

/// The program's name as a heading.
void rotuloDePrograma(QLabel* etiqueta);
