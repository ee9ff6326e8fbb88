#pragma once

#include "base/aviso.h"
#include "base/numbers/valor_informe.h"

#include <QMarginsF>
#include <QPageLayout>
#include <QString>
#include <QStringList>
#include <kainjow/mustache.hpp>
#include <map>
#include <string>
#include <vector>

class Conexion;

/// A report layout: a well-formed HTML text with Mustache tags.
///
///   <html><head>
///     <title>Window title</title>
///     <meta name="papel" content="A4"/>               or "A4 apaisado"
///     <meta name="margenes" content="10 12 10 12"/>   mm: top, right, bottom, left
///     <script type="consulta" id="Empleados" importes="Imponible" fechas="Ingreso" si="EsTotal">SELECT ... =
///     :Indice</script> <style>...</style>
///   </head><body>
///     <header>...</header>                            drawn at the top of every page
///     <section>...</section>                          never cut; as many as wanted
///     <section filas="Talones" alto="95">...</section> one for each row of the set, at least 95 mm high
///     <table filas="Empleados"><thead>...</thead><tbody>one row of the set</tbody></table>
///     <footer>... {{Pagina}} / {{Paginas}}</footer>   drawn at the foot of every page
///   </body></html>
///
/// Tags are the report's named values; in a table's body and in a section with "filas", the columns of the row set (in
/// such a section, both). A row set can also be walked inside a section by {{#Name}}...{{/Name}}. {{#hayName}} and
/// {{#noName}} tell whether a value holds a letter or a digit, or a row set a row, and {{#unoName}} whether a number
/// is 1. Everything is escaped. A table's head stands again on each page, and no row is cut. A section, a row
/// (<tr class="junto">) or a table's last row (<table class="junto">) is kept on the page of what follows it, and
/// <tr class="unida"> on that of the row before. <tr class="grupo"> stands again where the rows after it go on over a
/// page, with {{#Continua}} true. No more than ten tables lie in one another, and a text prints its first 5,000
/// characters.
struct ConsultaDeInforme
{
    QString nombre;
    std::string sql; ///< with at most one parameter, :Indice
    QStringList importes;
    QStringList fechas;
    QStringList condiciones; ///< columns that are true unless 0 or Null
};

struct BandaDeInforme
{
    bool tabla = false;   ///< else a section
    QString filas;        ///< name of the row set; a section may have none
    std::string html;     ///< a section whole; the body of one row of a table
    std::string apertura; ///< a table's tag and head, before its first row
    std::string cierre;   ///< after its last row
    double alto = 0;      ///< of a section, at least; points
    bool junto = false;   ///< a section, or a table's last row, stays on the page of what follows it
};

struct PlantillaDeInforme
{
    QString nombre; ///< of its file
    QString titulo;
    QPageLayout pagina;
    QString estilo;
    QString carpeta; ///< where its pictures lie
    std::string encabezado;
    std::string pie;
    std::vector<ConsultaDeInforme> consultas;
    std::vector<BandaDeInforme> bandas;

    /// Throws ErrorDeEjecucion 53 when the file is missing and 13, naming file and line, when it does not parse.
    [[nodiscard]] static PlantillaDeInforme leer(const QString& ruta);
    /// Fills a piece of it. Throws ErrorDeEjecucion 13, naming the file, when its tags do not parse.
    [[nodiscard]] std::string rellenar(const std::string& trozo, const kainjow::mustache::data& datos) const;
    /// Throws ErrorDeEjecucion 13 for a fault that only shows when it is filled.
    [[noreturn]] void fallar(const QString& causa) const;
};

/// One row set as text to print.
struct FilasDeInforme
{
    std::vector<std::string> columnas;
    std::vector<bool> condicion; ///< by column
    std::vector<std::vector<std::string>> filas;

    /// `base` with the columns of row `numero`, from 0, as Mustache data.
    [[nodiscard]] kainjow::mustache::data objeto(std::size_t numero, kainjow::mustache::data base) const;
};

/// What fills a layout.
struct DatosDeInforme
{
    ValoresDeInforme valores;
    std::map<QString, FilasDeInforme> conjuntos;

    /// Runs the layout's queries, with the value "Indice" bound where one is asked. `aviso` is called often meanwhile,
    /// and what it throws ends the work. Without queries the connection may be closed.
    [[nodiscard]] static DatosDeInforme leer(const PlantillaDeInforme& plantilla, Conexion& conexion,
                                             ValoresDeInforme valores, const Aviso& aviso = {});
    /// The named values and row sets as a Mustache object.
    [[nodiscard]] kainjow::mustache::data objeto() const;
};

/// The text of a value: amounts "#,##0.00", dates "DD/MM/YYYY".
[[nodiscard]] QString textoDeValor(const ValorDeInforme& valor);
