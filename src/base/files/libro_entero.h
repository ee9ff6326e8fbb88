#pragma once

#include <QString>

namespace planilla
{
/// Does each part of a workbook end in the element that it begins with? One that was cut while it was written does not.
/// For workbooks of this program: parts one behind the other, each deflated (PKWARE's APPNOTE 4.3.7). False as well
/// when the file cannot be read.
[[nodiscard]] bool estaEntero(const QString& libro);
} // namespace planilla
