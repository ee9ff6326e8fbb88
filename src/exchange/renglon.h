#pragma once

#include <QByteArrayView>
#include <span>
#include <string>
#include <string_view>

class Fila;

/// One field of a fixed-position line and the column from which it comes.
struct Campo
{
    enum Clase
    {
        Texto,   ///< padded with blanks or cut to `ancho` characters; a Null is all blanks
        Crudo,   ///< text as the column has it
        Numero,  ///< whole number with at least `ancho` digits; 1 is the number as it stands
        Importe, ///< amount with at least `ancho` digits, a comma and two decimals, halves away from zero
        Fecha,   ///< MMDDYYYY
        SiNo,    ///< "1" for true, else "0"
    };
    Clase clase;
    const char* columna;
    std::size_t ancho = 0;
    std::string_view siNulo = {}; ///< what stands for a Null
};

/// A line of a fixed-position file, made field by field in a buffer that is kept from line to line.
class Renglon
{
public:
    /// A new line of this record type.
    void empezar(char tipo) { m_bytes.assign(1, tipo); }
    /// Throws ErrorDeEjecucion for a column that the row lacks or that does not hold what the field needs.
    void agregar(const Fila& fila, std::span<const Campo> campos);
    /// At most `maximo` characters of a text; what would break the line goes out as a blank.
    void agregar(std::string_view utf8, std::size_t maximo = std::string_view::npos);
    /// In Windows-1252, without a line end.
    [[nodiscard]] QByteArrayView bytes() const { return {m_bytes.data(), static_cast<qsizetype>(m_bytes.size())}; }

private:
    void agregar(const Fila& fila, const Campo& campo);
    void agregarTexto(std::string_view utf8, std::size_t ancho);
    void agregarNumero(bool negativo, quint64 magnitud, std::size_t ancho);
    void agregarImporte(qint64 diezMilesimos, std::size_t ancho);
    void agregarFecha(std::string_view guardada, const Campo& campo);

    std::string m_bytes;
};
