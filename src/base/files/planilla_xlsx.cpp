#include "base/files/planilla_xlsx.h"

#include "base/error_de_ejecucion.h"
#include "base/files/archivos.h"
#include "base/files/libro_entero.h"
#include "base/numbers/formato.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <algorithm>
#include <array>
#include <clocale>
#include <cstdio>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>
#include <xlsxwriter.h>

namespace
{
constexpr std::size_t filasDeHoja = 1'048'576;
constexpr std::size_t filasEntreAvisos = 64;
constexpr qsizetype caracteresDeCelda = 32'767;
constexpr qsizetype columnaMasAncha = 60;                    // characters
constexpr qint64 primeroQueNoCabe = 1'000'000'000'000'000LL; // a sheet keeps fifteen digits of a number

// What a cell is as the number that a sheet keeps; nothing where it is a text.

std::optional<double> comoNumero(std::monostate)
{
    return std::nullopt;
}

std::optional<double> comoNumero(qint64 valor)
{
    return qAbs(valor) < primeroQueNoCabe ? std::optional(static_cast<double>(valor)) : std::nullopt;
}

/// A sheet has no other numbers than doubles, so this is where an amount becomes one, and nothing is computed with it:
/// the cents are a whole number that a double holds exactly, and their hundredth part is the double nearest to the
/// amount, which every reader shows with the same two decimals.
std::optional<double> comoNumero(Moneda valor)
{
    const std::optional<double> centavos = comoNumero(qint64{valor.enCentavos().diezMilesimos() / 100});
    return centavos ? std::optional(*centavos / 100.0) : std::nullopt;
}

/// The days by which sheets count dates. Before March 1900 programs count them differently.
std::optional<double> comoNumero(QDate valor)
{
    const bool cabe = valor >= QDate(1900, 3, 1) && valor.year() <= 9999;
    return cabe ? comoNumero(qint64{QDate(1899, 12, 30).daysTo(valor)}) : std::nullopt;
}

QByteArray textoDeHoja(QString texto)
{
    texto.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    const auto desconocido = [](QChar c) { return (c < u' ' && c != u'\n') || c == u'\xFFFE' || c == u'\xFFFF'; };
    std::replace_if(texto.begin(), texto.end(), desconocido, QLatin1Char(' '));
    if (texto.contains(QStringLiteral("_x"))) // "_x0041_" would be read as "A"
    {
        static const QRegularExpression escape(QStringLiteral("_(?=x[0-9A-Fa-f]{4}_)"));
        texto.replace(escape, QStringLiteral("_x005F_"));
    }
    texto.truncate(caracteresDeCelda);
    if (!texto.isEmpty() && texto.back().isHighSurrogate())
    {
        texto.chop(1);
    }
    return texto.toUtf8();
}

/// The characters that a cell needs; none where it may reach over the cells behind it.
qsizetype anchoDe(const planilla::Celda& celda)
{
    if (celda.columnas > 1)
    {
        return 0;
    }
    const auto* importe = std::get_if<Moneda>(&celda.valor);
    return importe == nullptr ? celda.texto.size() : conMiles(*importe).size();
}

/// The library writes decimals with the mark of the C library's locale, and a sheet knows the dot alone.
class ConPunto
{
public:
    ConPunto()
        : m_antes(std::setlocale(LC_NUMERIC, nullptr))
    {
        std::setlocale(LC_NUMERIC, "C");
    }
    ~ConPunto() { std::setlocale(LC_NUMERIC, m_antes.c_str()); }
    ConPunto(const ConPunto&) = delete;
    ConPunto& operator=(const ConPunto&) = delete;

private:
    std::string m_antes;
};

/// A workbook of one sheet. Its rows go to a file in `carpeta` as they come, so memory does not grow with them.
class Libro
{
public:
    explicit Libro(const QString& carpeta)
        : m_carpeta(carpeta)
    {
        QByteArray lugar = QFile::encodeName(carpeta);
        lxw_workbook_options opciones = {};
        opciones.constant_memory = 1;
        opciones.tmpdir = lugar.data();
        m_libro = workbook_new_opt(QFile::encodeName(archivo()).constData(), &opciones);
        m_hoja = m_libro == nullptr ? nullptr : workbook_add_worksheet(m_libro, "Planilla");
        if (m_hoja == nullptr)
        {
            lxw_workbook_free(m_libro);
            exigirHoja(LXW_ERROR_CREATING_TMPFILE);
        }
        m_formatos = {formato("@"), formato("0"), formato("#,##0.00"), formato("dd/mm/yyyy")};
        m_titulo = formato("@");
        format_set_bold(m_titulo);
        // A CUIT is no number that was typed badly.
        worksheet_ignore_errors(m_hoja, LXW_IGNORE_NUMBER_STORED_AS_TEXT, "A1:XFD1048576");
    }
    ~Libro()
    {
        if (m_libro != nullptr) // given up: the library frees its memory and leaves the file of the rows open
        {
            static_cast<void>(std::fclose(m_hoja->file));
            lxw_workbook_free(m_libro);
        }
    }
    Libro(const Libro&) = delete;
    Libro& operator=(const Libro&) = delete;

    [[nodiscard]] QString archivo() const { return QDir(m_carpeta).filePath(QStringLiteral("planilla.xlsx")); }
    void fijarPrimeraFila() { worksheet_freeze_panes(m_hoja, 1, 0); }
    /// Rows from 0 on, each once and in their order.
    void escribir(std::size_t fila, const std::vector<planilla::Celda>& celdas);
    void cerrar();

private:
    /// Throws for what the library has refused. A disk that is full is the one failure left when all could be opened.
    void exigirHoja(lxw_error error) const;
    lxw_format* formato(const char* numeros)
    {
        lxw_format* nuevo = workbook_add_format(m_libro);
        format_set_num_format(nuevo, numeros);
        return nuevo;
    }

    QString m_carpeta;
    lxw_workbook* m_libro = nullptr;
    lxw_worksheet* m_hoja = nullptr;
    std::array<lxw_format*, std::variant_size_v<decltype(planilla::Celda::valor)>> m_formatos = {};
    lxw_format* m_titulo = nullptr;
    std::vector<qsizetype> m_anchos;
};

void Libro::exigirHoja(lxw_error error) const
{
    switch (error)
    {
    case LXW_NO_ERROR:
        return;
    case LXW_ERROR_MEMORY_MALLOC_FAILED:
        throw ErrorDeEjecucion(ErrorDeEjecucion::SinMemoria);
    case LXW_ERROR_CREATING_XLSX_FILE:
    case LXW_ERROR_CREATING_TMPFILE:
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::SinAcceso, QDir::toNativeSeparators(m_carpeta));
    default:
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::DiscoLleno, QDir::toNativeSeparators(m_carpeta));
    }
}

void Libro::escribir(std::size_t fila, const std::vector<planilla::Celda>& celdas)
{
    const auto numeroDeFila = static_cast<lxw_row_t>(fila);
    std::size_t columna = 0;
    for (const planilla::Celda& celda : celdas)
    {
        if (columna >= m_anchos.size())
        {
            m_anchos.resize(columna + 1);
        }
        m_anchos[columna] = std::max(m_anchos[columna], anchoDe(celda));
        const auto lugar = static_cast<lxw_col_t>(columna);
        const std::optional<double> numero = std::visit([](auto valor) { return comoNumero(valor); }, celda.valor);
        lxw_format* como = celda.titulo ? m_titulo : m_formatos[numero ? celda.valor.index() : 0];
        if (numero)
        {
            exigirHoja(worksheet_write_number(m_hoja, numeroDeFila, lugar, *numero, como));
        }
        else if (!celda.texto.isEmpty())
        {
            const QByteArray texto = textoDeHoja(celda.texto);
            exigirHoja(worksheet_write_string(m_hoja, numeroDeFila, lugar, texto.constData(), como));
        }
        columna += static_cast<std::size_t>(celda.columnas);
    }
}

void Libro::cerrar()
{
    for (std::size_t columna = 0; columna < m_anchos.size(); ++columna)
    {
        const auto lugar = static_cast<lxw_col_t>(columna);
        const auto ancho = static_cast<double>(std::min(m_anchos[columna], columnaMasAncha) + 2);
        exigirHoja(worksheet_set_column(m_hoja, lugar, lugar, ancho, nullptr));
    }
    // The library looks neither whether its rows could be written nor whether the parts that it packs are whole.
    const bool escritas = std::fflush(m_hoja->file) == 0 && std::ferror(m_hoja->file) == 0;
    exigirHoja(escritas ? LXW_NO_ERROR : LXW_ERROR_ZIP_FILE_OPERATION);
    exigirHoja(workbook_close(std::exchange(m_libro, nullptr)));
    exigirHoja(planilla::estaEntero(archivo()) ? LXW_NO_ERROR : LXW_ERROR_ZIP_FILE_OPERATION);
}
} // namespace

void planilla::escribirXlsx(const QString& ruta, const Tabla& tabla, const Aviso& aviso)
{
    if (tabla.size() > filasDeHoja)
    {
        throw ErrorParaAvisar(ErrorDeEjecucion::Desbordamiento,
                              QStringLiteral("Una planilla de Excel no admite más de %1 filas.  Guárdela como texto, "
                                             "con un nombre que termine en \".csv\".")
                                  .arg(conMiles(static_cast<qint64>(filasDeHoja))));
    }
    Archivos::Parte parte(ruta);
    // The library opens its files by names of bytes, which on Windows do not lead everywhere.
    const QTemporaryDir carpeta;
    if (!carpeta.isValid())
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::SinAcceso, QDir::toNativeSeparators(QDir::tempPath()));
    }
    const ConPunto punto;
    Libro libro(carpeta.path());
    if (!tabla.empty() && !tabla.front().empty() && tabla.front().front().titulo)
    {
        libro.fijarPrimeraFila();
    }
    for (std::size_t fila = 0; fila < tabla.size(); ++fila)
    {
        libro.escribir(fila, tabla[fila]);
        if (aviso && (fila + 1) % filasEntreAvisos == 0)
        {
            aviso(static_cast<qint64>(fila) + 1, static_cast<qint64>(tabla.size()));
        }
    }
    libro.cerrar();
    parte.copiar(libro.archivo());
    parte.colocar();
}

void planilla::escribir(const QString& ruta, const Tabla& tabla, const Aviso& aviso)
{
    if (ruta.endsWith(QStringLiteral(".xlsx"), Qt::CaseInsensitive))
    {
        escribirXlsx(ruta, tabla, aviso);
        return;
    }
    escribirCsv(ruta, textos(tabla));
}
