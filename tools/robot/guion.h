#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <stdexcept>
#include <variant>
#include <vector>

/// Acceptance scripts: UTF-8, one action a line, "#" comments, texts with blanks in double quotes.
namespace guion
{
/// An entry of the menu bar, then of the menu it opens, and so on.
struct Menu
{
    QStringList entradas;
};
struct Pulsar
{
    QString control;
};
struct Escribir
{
    QString control;
    QString texto;
};
struct Tecla
{
    QString control;
    Qt::Key tecla = Qt::Key_unknown;
    Qt::KeyboardModifiers modificadores;
};
struct Elegir
{
    QString control;
    QString texto;
};
struct Pagina
{
    QString titulo;
};
/// Click on a row, counted from 1; 0 is the header.
struct Fila
{
    QString grilla;
    int fila = 0;
    bool doble = false;
};
/// Both counted from 1.
struct Celda
{
    QString grilla;
    int fila = 0;
    int columna = 0;
    QString texto;
};
struct Responder
{
    bool si = false;
};
/// Answer to the next file or folder dialog; an empty path cancels it.
struct Archivo
{
    QString ruta;
};
struct Ventana
{
    QString nombre;
};
struct Cerrar
{
};
struct Fecha
{
    QDateTime ahora;
};
struct Espera
{
    QString control;
    QString texto;
};
struct EsperaCelda
{
    QString grilla;
    int fila = 0;
    int columna = 0;
    QString texto;
};
struct EsperaFilas
{
    QString grilla;
    int filas = 0;
};
struct EsperaMensaje
{
    QString texto;
};
struct EsperaTitulo
{
    QString texto;
};
/// What a control is, yes or no.
struct EsperaEstado
{
    enum Cual
    {
        Activo,
        Visible,
        Marca,
    };
    Cual cual = Activo;
    QString control;
    bool si = false;
};
struct EsperaFoco
{
    QString control;
};
struct EsperaVentana
{
    QString nombre;
    bool si = false;
};
/// Byte by byte; the expected file's path is relative to the script.
struct EsperaArchivo
{
    QString ruta;
    QString esperado;
};
struct EsperaSinArchivo
{
    QString ruta;
};
/// Rows joined by ";", their values by "|".
struct EsperaBase
{
    QString sql;
    QString esperado;
};
struct Captura
{
    QString ruta;
    bool soloLaVentana = false;
};
struct Informe
{
    QString ruta;
};
struct Salir
{
};

using Accion =
    std::variant<Menu, Pulsar, Escribir, Tecla, Elegir, Pagina, Fila, Celda, Responder, Archivo, Ventana, Cerrar, Fecha,
                 Espera, EsperaCelda, EsperaFilas, EsperaMensaje, EsperaTitulo, EsperaEstado, EsperaFoco, EsperaVentana,
                 EsperaArchivo, EsperaSinArchivo, EsperaBase, Captura, Informe, Salir>;

struct Paso
{
    int linea = 0; ///< of the script, from 1
    QString texto; ///< the line as it stands there, without the blanks around it
    Accion accion;
};

/// A line that cannot be read.
class ErrorDeLectura : public std::runtime_error
{
public:
    ErrorDeLectura(int numeroDeLinea, const QString& queFalla);
    [[nodiscard]] int linea() const { return m_linea; }
    [[nodiscard]] const QString& motivo() const { return m_motivo; }

private:
    int m_linea;
    QString m_motivo;
};

/// The whole script, so that nothing is played of one that cannot be read. Throws ErrorDeLectura.
[[nodiscard]] std::vector<Paso> leer(const QByteArray& utf8);

/// The words of one line. In quotes \" is a quote, \\ a backslash and \n a line end; any other backslash stands for
/// itself. A "#" that begins a word outside quotes begins a comment. Throws ErrorDeLectura with `linea`.
[[nodiscard]] QStringList palabras(const QString& texto, int linea);

/// A text as it stands between quotes in a script or in the transcript, on one line.
[[nodiscard]] QString entreComillas(const QString& texto);

/// "Si", "Sí" or "No", whatever the case; nothing for another text.
[[nodiscard]] std::optional<bool> leerSiNo(const QString& texto);
} // namespace guion
