#pragma once

#include <QString>

class QLineEdit;

/// Shows a text whole, also where it is longer than what may be typed there: a value that another program or an older
/// version stored is not cut when the record is saved again.
void ponerEntero(QLineEdit* campo, const QString& texto);
