#pragma once

#include "ui/report/informe_paginas.h"
#include "ui/shell/trabajo_largo.h"

#include <QAbstractScrollArea>
#include <QMainWindow>

class QAction;
class QLabel;
class QPrinter;
struct PedidoDeGuardado;

/// The pages one below the other, painted as they come into view.
class HojasDeInforme : public QAbstractScrollArea
{
    Q_OBJECT
public:
    explicit HojasDeInforme(PaginasDeInforme paginas, QWidget* padre = nullptr);
    [[nodiscard]] PaginasDeInforme& paginas() { return m_paginas; }
    [[nodiscard]] int hojaActual() const; ///< from 0
    void irA(int hoja);
    [[nodiscard]] double zoom() const { return m_zoom; }
    void setZoom(double zoom); ///< 1 is the paper's own size; 0.25 to 4
    void ajustarAlAncho();
    void rehacer();

Q_SIGNALS:
    void cambio();

protected:
    void paintEvent(QPaintEvent* evento) override;
    void resizeEvent(QResizeEvent* evento) override;
    void wheelEvent(QWheelEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    [[nodiscard]] QSizeF tamanoDeHoja() const; ///< on the screen
    void ajustarBarras();
    PaginasDeInforme m_paginas;
    double m_zoom = 1;
    bool m_alAncho = true;
};

/// The preview of a report: a window of its own, modeless and maximised.
class VistaDeInforme : public QMainWindow
{
    Q_OBJECT
public:
    /// `nombre` is proposed for what is saved of it, without extension; empty: the report's title.
    explicit VistaDeInforme(PaginasDeInforme paginas, const QString& nombre = {}, QWidget* padre = nullptr);
    /// Saves all pages as PDF. Throws ErrorDeEjecucion, 75 or 76 when the file cannot be written; no part of it stays
    /// then.
    Q_INVOKABLE void guardarPdf(const QString& ruta);

protected:
    void closeEvent(QCloseEvent* evento) override; ///< refused while it works

private:
    void armarBarra();
    void imprimir();
    void configurarPagina();
    void pedirPdf();
    void exportar();
    void abrirLoGuardado();
    /// Asks where and has it written there; then the status bar tells where it lies.
    void guardar(const PedidoDeGuardado& pedido, const std::function<void(const QString&)>& escribir);
    /// Failures name `destino`. Only a file in the making can be given up: a printer puts out what it has got.
    void pintarEn(QPrinter& impresora, int desde, int hasta, const QString& destino,
                  TrabajoLargo::Cancelable cancelable);
    void actualizar();

    HojasDeInforme* m_hojas;
    QLabel* m_numero;
    QString m_nombre;
    QString m_guardado; ///< path of what was saved last
    QAction* m_abrir = nullptr;
    QAction* m_primera = nullptr;
    QAction* m_anterior = nullptr;
    QAction* m_siguiente = nullptr;
    QAction* m_ultima = nullptr;
};
