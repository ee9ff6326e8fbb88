#pragma once

#include <QMainWindow>
#include <vector>

class QLabel;
class QLineEdit;
class QListWidget;
class QTextBrowser;

/// The program's help: pages beside the program, with their contents and a search. A window of its own, maximised,
/// one for the whole program. A page that is missing shows only a complaint.
///
/// The folder holds one HTML file a page, "estilo.css" for all of them, pictures, and "contenido.txt", a line a page:
/// file name without ending, "|", title.
class VisorDeAyuda : public QMainWindow
{
    Q_OBJECT
public:
    /// Opens the viewer, or brings it forward, on a page; an empty name means the first one.
    static void abrir(const QString& carpeta, const QString& pagina);

    explicit VisorDeAyuda(const QString& carpeta, QWidget* padre = nullptr);
    void mostrar(const QString& pagina);
    [[nodiscard]] QString paginaActual() const { return m_pagina; }

private:
    struct Pagina
    {
        QString archivo;
        QString titulo;
        QString texto; ///< plain and folded, for the search
    };
    void leerContenido();
    void armar();
    void buscar(const QString& texto);
    void mostrarDeNuevo();
    void volver();
    void marcarEnContenido();
    void resaltar();

    QString m_carpeta;
    QString m_pagina;
    QStringList m_anteriores; ///< pages left by a link
    std::vector<Pagina> m_paginas;
    QLineEdit* m_busqueda;
    QLabel* m_sinResultado;
    QListWidget* m_contenido;
    QTextBrowser* m_hoja;
};
