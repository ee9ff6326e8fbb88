#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <functional>
#include <memory>
#include <vector>

class Pantalla;
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

    /// Shows a child window, or brings the one that is open forward. A screen not registered is told on the status bar
    /// of the main window and in the log of avisos().
    void mostrar(const QString& nombre);
    /// Shows a modal dialog and returns when it is closed.
    void mostrarModal(const QString& nombre);
    /// The open screen of this name, child or modal, or none.
    [[nodiscard]] Pantalla* abierta(const QString& nombre) const;
    /// The screen that the user works on: the topmost modal one, else the active child, else none.
    [[nodiscard]] Pantalla* actual() const;
    [[nodiscard]] std::vector<Pantalla*> hijas() const;
    /// Asks every child to close, in order of opening; false as soon as one refuses. Does not ask modal ones.
    [[nodiscard]] bool cerrarTodas();
    /// Text for the status bar.
    void avisar(const QString& texto);
    /// What avisar() was given, the last hundred texts.
    [[nodiscard]] const QStringList& avisos() const;
    /// What opens the help: told the page of the screen at work, an empty text when there is none.
    void fijarAyuda(std::function<void(const QString& pagina)> abrir);
    /// Opens the help as F1 does, on the page of the screen at work.
    void ayuda();
    void ayuda(const QString& pagina);
    /// The main window when there is one.
    [[nodiscard]] QMainWindow* ventana() const;

    bool eventFilter(QObject* objeto, QEvent* evento) override;

Q_SIGNALS:
    void aviso(const QString& texto);
    void cambioDePantalla();

private:
    struct Interno;
    Navegacion();
    ~Navegacion() override;
    /// A screen made and loaded; none when it is not registered or closed itself meanwhile.
    Pantalla* cargada(const QString& nombre);
    void agregarHija(Pantalla* pantalla);
    /// Runs activar() on the child that has become the active one.
    void revisarActiva();
    void pedirRevision();

    std::unique_ptr<Interno> m_interno;
};
