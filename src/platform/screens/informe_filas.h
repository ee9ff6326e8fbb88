#pragma once

#include "platform/screens/informe_documento.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

class QTextTable;

/// The heights of a table's rows, for rosters of thousands. Rows of the same tags are laid out once; of the others only
/// the lines of each cell are counted. A row with a word wider than its column is laid out by itself, also when it is
/// painted, so that it does not move the columns of its neighbours.
class AltosDeFilas
{
public:
    struct Alto
    {
        double puntos = 0;
        bool regular = true; ///< keeps to the columns: goes together with others
        bool junto = false;  ///< stays on the page of the row after it
    };

    /// `tabla` is the table with its head, up to its first row; `cierre` ends it.
    AltosDeFilas(std::string tabla, std::string cierre, DocumentoDeInforme::Hoja hoja);
    ~AltosDeFilas();
    AltosDeFilas(AltosDeFilas&&) noexcept;
    AltosDeFilas& operator=(AltosDeFilas&&) noexcept;

    /// Of a row of HTML.
    [[nodiscard]] Alto de(const std::string& fila);
    /// The table with these rows, and the height of its head in points.
    [[nodiscard]] std::unique_ptr<QTextDocument> documento(const std::string& filas) const;
    [[nodiscard]] double cabeza() const { return m_cabeza; }
    /// A row that does not keep to the columns, under a head without words, which that row cannot make higher.
    [[nodiscard]] std::unique_ptr<QTextDocument> suelta(const std::string& fila) const;
    [[nodiscard]] double cabezaDeSuelta() const { return m_cabezaDeSuelta; }

private:
    class Letra;
    struct Celda
    {
        double ancho = 0; ///< of its lines, in the layout's units
        std::vector<Letra*> letras;
        std::map<int, double> altos; ///< of the row, by the lines of this cell
    };
    struct Forma
    {
        double alto = 0; ///< with one line in each cell
        bool medible = false;
        std::vector<Celda> celdas;
    };
    /// A row taken apart.
    struct Partes
    {
        std::string etiquetas;
        std::vector<std::string> textos; ///< by cell
    };

    [[nodiscard]] static Partes desarmar(const std::string& fila);
    [[nodiscard]] Forma medir(const Partes& partes);
    [[nodiscard]] std::vector<Celda> celdasDe(const QTextDocument& documento);
    [[nodiscard]] Letra* letra(const QFont& cual);
    /// Lines that the text takes in its cell; 0 when only laying it out can tell.
    [[nodiscard]] static int lineas(const Celda& celda, const std::string& texto);
    [[nodiscard]] double altoCon(Forma& forma, const std::string& etiquetas, std::size_t celda, int lineas);

    std::string m_tabla;
    std::string m_cierre;
    std::string m_tablaMuda; ///< its head without words
    DocumentoDeInforme::Hoja m_hoja;
    double m_cabeza = 0;
    double m_cabezaDeSuelta = 0;
    std::map<std::string, Forma> m_formas; ///< by the row's tags
    std::map<QString, std::unique_ptr<Letra>> m_letras;
};
