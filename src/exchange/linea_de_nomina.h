#pragma once

#include "base/error_de_ejecucion.h"

#include <QByteArrayView>
#include <array>
#include <optional>
#include <string>
#include <string_view>

/// Thrown for a field that does not hold what it must; the import adds the line's number.
struct FallaDeCampo
{
    ErrorDeEjecucion::Numero numero;
    const char* campo;
};

/// A date as the database has it: YYYY-MM-DD.
using FechaDeNomina = std::array<char, 10>;

/// A line of a roster file: fixed positions counted from 1, one byte a character. What lies past the line's end reads
/// as empty. Good as long as the bytes.
class LineaDeNomina
{
public:
    explicit LineaDeNomina(QByteArrayView bytes)
        : m_bytes(bytes.data(), static_cast<std::size_t>(bytes.size()))
    {
    }

    [[nodiscard]] std::string_view trozo(std::size_t posicion, std::size_t ancho) const;
    /// The field as UTF-8, its blanks included.
    void texto(std::size_t posicion, std::size_t ancho, std::string& destino) const;
    /// The same with every apostrophe made a blank, which is part of the format for names and streets.
    void textoSinApostrofos(std::size_t posicion, std::size_t ancho, std::string& destino) const;
    /// Whole number: digits and nothing else, blanks neither. Throws FallaDeCampo 13.
    [[nodiscard]] int entero(std::size_t posicion, std::size_t ancho, const char* campo) const;
    /// The same where blanks may stand around the digits; all blanks over the whole width are no number.
    [[nodiscard]] std::optional<int> enteroOBlanco(std::size_t posicion, std::size_t ancho, const char* campo) const;
    /// The number with which a text begins, its blanks left out; 0 when it begins with none ("S/N").
    [[nodiscard]] int valor(std::size_t posicion, std::size_t ancho) const;
    /// Amount of at most 16 characters with "." or "," as its decimal mark, its blanks left out. Throws
    /// FallaDeCampo 13.
    [[nodiscard]] float importe(std::size_t posicion, std::size_t ancho, const char* campo) const;
    /// DDMMYYYY; eight blanks or zeros are no date. Throws FallaDeCampo 13 for anything that is none.
    [[nodiscard]] std::optional<FechaDeNomina> fecha(std::size_t posicion, const char* campo) const;
    /// CUIL of the first 11 characters, with its dashes. Throws FallaDeCampo 13 unless all are digits.
    void cuil(std::string& destino) const;

private:
    std::string_view m_bytes;
};
