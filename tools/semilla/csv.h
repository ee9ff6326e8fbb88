#pragma once

#include <QByteArray>
#include <QString>
#include <QStringView>
#include <optional>
#include <vector>

/// A line of a table: its values and where it begins in the text, from 1. An empty field without quotes has no value;
/// "" is an empty text.
struct FilaCsv
{
    int linea = 0;
    std::vector<std::optional<QString>> campos;
};

/// Reads comma-separated values: UTF-8, fields in double quotes where they hold commas, line ends or quotes (doubled).
/// Empty lines are left out. Throws ErrorDeEjecucion 13 with the line of the fault.
[[nodiscard]] std::vector<FilaCsv> leerCsv(const QByteArray& utf8);

/// Text of UTF-8 bytes, without a byte order mark. Throws ErrorDeEjecucion 13 when they are not UTF-8.
[[nodiscard]] QString deUtf8(const QByteArray& bytes);
