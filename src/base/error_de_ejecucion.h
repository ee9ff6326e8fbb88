#pragma once

#include <QByteArray>
#include <QString>
#include <exception>
#include <utility>

/// Anything that fails at run time: a number that screens can test and a description for the user, in Spanish.
/// File failures keep the numbers below; a database failure carries SQLite's extended result code.
class ErrorDeEjecucion : public std::exception
{
public:
    enum Numero : int
    {
        LlamadaNoValida = 5,
        Desbordamiento = 6,
        SinMemoria = 7,
        DivisionPorCero = 11,
        NoCoincidenTipos = 13,
        LineaDemasiadoLarga = 14,
        ErrorInterno = 51,
        ArchivoNoEncontrado = 53,
        ArchivoYaAbierto = 55,
        ErrorDeDispositivo = 57,
        DiscoLleno = 61,
        EnUso = 70,
        SinAcceso = 75,
        RutaNoEncontrada = 76,
        ObjetoNoEstablecido = 91,
        UsoDeNull = 94,
        SinRegistro = 3021,
        ColumnaDesconocida = 3265,
    };
    /// Those of SQLite's codes that are asked for outside the database layer.
    enum CodigoDeBase : int
    {
        SentenciaRechazada = 1, ///< it makes no sense as the tables are
        BaseOcupada = 5,        ///< in the low byte: another copy of the program writes
        NoEsBase = 26,
    };

    ErrorDeEjecucion(int numero, QString descripcion);
    /// One of the numbers above with its standard description.
    explicit ErrorDeEjecucion(Numero numero);
    /// The same with `detalle` after ": ".
    [[nodiscard]] static ErrorDeEjecucion conDetalle(Numero numero, const QString& detalle);

    [[nodiscard]] int numero() const { return m_numero; }
    [[nodiscard]] const QString& descripcion() const { return m_descripcion; }
    [[nodiscard]] const char* what() const noexcept override { return m_texto.constData(); }

private:
    int m_numero;
    QString m_descripcion;
    QByteArray m_texto;
};

/// A failure that ends nothing: what was being done is given up, nothing of it stays written, and the program goes on.
/// Its description is a whole sentence for the user, told in one box as it stands.
class ErrorParaAvisar : public ErrorDeEjecucion
{
public:
    ErrorParaAvisar(int numero, QString descripcion)
        : ErrorDeEjecucion(numero, std::move(descripcion))
    {
    }
};
