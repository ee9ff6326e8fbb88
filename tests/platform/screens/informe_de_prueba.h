#pragma once

#include "platform/screens/informe_paginas.h"

#include <QTemporaryDir>
#include <vector>

/// Layouts written by a test, and what comes out of the PDF.
class InformeDePrueba
{
public:
    struct Palabra
    {
        int hoja; ///< from 0
        double izquierda;
        double arriba;
        double derecha;
        double abajo;
        QString texto;
    };

    /// Writes a layout with this body (and head, past its title) and gives its path.
    [[nodiscard]] QString escribir(const QString& cuerpo, const QString& cabeza = {}) const;
    [[nodiscard]] QString ruta(const QString& nombre) const { return m_carpeta.filePath(nombre); }
    [[nodiscard]] PaginasDeInforme paginas(const QString& cuerpo, DatosDeInforme datos = {},
                                           const QString& cabeza = {}) const;
    /// Text of each page of the PDF, blanks run together.
    [[nodiscard]] QStringList textos(PaginasDeInforme paginas) const;
    /// Its words where they stand, in points, from top to bottom.
    [[nodiscard]] std::vector<Palabra> palabras(PaginasDeInforme paginas) const;
    /// Saves it as PDF and gives its path.
    [[nodiscard]] QString pdf(PaginasDeInforme paginas) const;

private:
    QTemporaryDir m_carpeta;
};

/// Rows of text columns.
[[nodiscard]] FilasDeInforme filasDeTexto(std::vector<std::string> columnas,
                                          std::vector<std::vector<std::string>> filas);
