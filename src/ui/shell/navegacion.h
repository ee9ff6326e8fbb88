#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <memory>
#include <vector>

class Pantalla;
class VentanaHija;
class QMainWindow;
class QMdiArea;

/// Opens screens by name. A modeless screen is a child of the main window, one of each; a modal one stops all others.
class Navegacion : public QObject
{
    Q_OBJECT
public:
    static Navegacion& instancia();

    /// How a screen is made. The name is the screen's own: "DDJJ", "BuscarEmpresa".
    void registrar(const QString& nombre, std::function<Pantalla*()> fabrica);
    /// The main window and the area of its children; set once by the main window, cleared when it goes.
    void fijarVentana(QMainWindow* ventana, QMdiArea* area);

    /// Shows a child window, or brings the one that is open forward.
    void mostrar(const QString& nombre);
    /// Shows a modal dialog and returns when it is closed.
    void mostrarModal(const QString& nombre);
    /// The open screen of this name, child or modal, or none.
    [[nodiscard]] Pantalla* abierta(const QString& nombre) const;
    /// The screen that the user works on: the topmost modal one, else the active child, else none.
    [[nodiscard]] Pantalla* actual() const;
    [[nodiscard]] std::vector<Pantalla*> hijas() const;
    /// The company of the screen at work, else of the one that it lies over; empty when none works on one.
    [[nodiscard]] QString empresaEnCurso() const;
    /// Where the user stands in the screen at work; empty when there is nothing to tell.
    [[nodiscard]] QString lugarEnCurso() const;
    /// Asks every child whether it can be closed, in order of opening, and closes them only when none refuses. Does not
    /// ask modal ones.
    [[nodiscard]] bool cerrarTodas();
    /// What opens the help: told the page of the screen at work, an empty text when there is none.
    void fijarAyuda(std::function<void(const QString& pagina)> abrir);
    /// Opens the help as F1 does, on the page of the screen at work.
    void ayuda();
    void ayuda(const QString& pagina);
    /// The main window when there is one.
    [[nodiscard]] QMainWindow* ventana() const;

    bool eventFilter(QObject* objeto, QEvent* evento) override;

Q_SIGNALS:
    void cambioDePantalla();

private:
    struct Interno;
    Navegacion();
    ~Navegacion() override;
    /// A screen made and loaded; none when it closed itself meanwhile.
    Pantalla* cargada(const QString& nombre);
    void agregarHija(Pantalla* pantalla);
    void traerAlFrente(VentanaHija* hija);
    [[nodiscard]] Pantalla* hijaActiva() const;
    /// Runs activar() on the child that has become the active one.
    void revisarActiva();
    void darFocoALaActiva();
    void pedirRevision();
    void alTomarFoco(QWidget* control);

    std::unique_ptr<Interno> m_interno;
};
