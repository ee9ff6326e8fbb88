#pragma once

#include "base/files/sistema.h"

#include <QByteArrayView>
#include <QString>
#include <vector>

/// A text file being read line by line, through one buffer that grows only for a line longer than itself. Bytes are
/// given as they stand in the file. Failures are those of Archivos; 14 for a line of a mebibyte or more.
class LectorDeLineas
{
public:
    explicit LectorDeLineas(const QString& ruta);
    /// Next line without its end: CR LF, LF or CR. One 0x1A at the very end of the file is no part of it. The view is
    /// good until the next call. False at the end of the file.
    [[nodiscard]] bool leer(QByteArrayView& linea);
    /// Bytes in all, for the progress shown to the user.
    [[nodiscard]] qint64 largo() const { return m_largo; }

private:
    bool hayMas(std::size_t& i);

    QString m_ruta;
    sistema::Archivo m_archivo;
    std::vector<char> m_bloque;
    std::size_t m_inicio = 0; // what is not yet given out
    std::size_t m_lleno = 0;  // where the bytes read end
    qint64 m_largo = 0;
    bool m_saltaLf = false; // the last line ended at a CR, to which an LF may belong
};

/// A text file being written, in blocks; what stood in it is gone.
class EscritorDeLineas
{
public:
    /// Failures name `nombre` where there is one: the file as the user knows it.
    explicit EscritorDeLineas(const QString& ruta, const QString& nombre = {});
    /// Writes a line that is in the file's own encoding, and CR LF.
    void imprimir(QByteArrayView linea);
    /// Writes out what is pending and closes, also when that fails. Without it the last lines are lost.
    void cerrar();

private:
    void volcar();

    QString m_ruta;
    sistema::Archivo m_archivo;
    QByteArray m_pendiente;
};
