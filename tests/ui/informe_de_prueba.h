#pragma once

#include "apoyo/archivos_de_prueba.h"
#include "apoyo/hojas.h"
#include "ui/report/informe_vista.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

/// Layouts written by a test, and what comes out of the PDF.
class InformeDePrueba
{
public:
    /// Writes a layout with this body (and head, past its title) and gives its path.
    [[nodiscard]] QString escribir(const QString& cuerpo, const QString& cabeza = {}) const
    {
        const QString todo = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<html><head><title>Prueba</title>" + cabeza +
                             "</head>\n<body>" + cuerpo + "</body></html>\n";
        escribirArchivo(ruta("prueba.rpt"), todo.toUtf8());
        return ruta("prueba.rpt");
    }
    [[nodiscard]] QString ruta(const char* nombre) const { return m_carpeta.filePath(nombre); }
    [[nodiscard]] PaginasDeInforme paginas(const QString& cuerpo, DatosDeInforme datos = {}, const QString& cabeza = {},
                                           const Aviso& aviso = {}) const
    {
        return {PlantillaDeInforme::leer(escribir(cuerpo, cabeza)), std::move(datos), aviso};
    }
    /// Saves it as PDF and gives its path.
    [[nodiscard]] QString pdf(PaginasDeInforme paginas) const
    {
        VistaDeInforme(std::move(paginas)).guardarPdf(ruta("prueba.pdf"));
        return ruta("prueba.pdf");
    }
    [[nodiscard]] QStringList textos(PaginasDeInforme paginas) const { return hojas::textos(pdf(std::move(paginas))); }
    /// Data with one row set, "Filas", of these columns; one whose name begins with "Es" is a condition.
    [[nodiscard]] static DatosDeInforme filas(std::vector<std::string> columnas,
                                              std::vector<std::vector<std::string>> filas)
    {
        DatosDeInforme datos;
        FilasDeInforme& conjunto = datos.conjuntos["Filas"];
        for (const std::string& columna : columnas)
        {
            conjunto.condicion.push_back(columna.starts_with("Es"));
        }
        conjunto.columnas = std::move(columnas);
        conjunto.filas = std::move(filas);
        return datos;
    }

private:
    QTemporaryDir m_carpeta;
};
