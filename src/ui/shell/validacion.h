#pragma once

#include <QHash>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

class QKeyEvent;
class QMouseEvent;

/// Leaving checks of all fields and the rule that Enter acts as Tab: one filter over the whole application.
/// A field whose check refuses keeps the focus with its text selected, and the click or key that would have left it is
/// swallowed, buttons, tabs and grids included. A menu is no field: opening it, and what it does, checks nothing; nor
/// does a loss of the focus to another program or to a box of this one.
class Validacion : public QObject
{
    Q_OBJECT
public:
    /// The application's filter, made at the first call and owned by the application.
    static Validacion& instancia();

    /// `puedeDejar` is called when the user leaves `campo`, which may be any widget that takes the focus; false keeps
    /// him there. It may show a message box. A check that moves the focus itself (setFocus on another field) and
    /// returns true is obeyed: its move stands, and the click or key that left the field is swallowed. Several checks
    /// of one field run in the order in which they were bound, up to the first that refuses. A field that is hidden or
    /// disabled checks nothing.
    void alDejar(QWidget* campo, std::function<bool()> puedeDejar);
    /// A grid's editor: `guardar` stores its value after a check that passed on a click or a shortcut.
    void alDejarEditor(QWidget* editor, std::function<bool()> puedeDejar, std::function<void()> guardar);
    /// Runs the check of the field that holds the focus; true when it may be left. For a robot that moves the focus.
    bool intentarDejar();
    /// Another screen comes to the front by a command: the field at work is not left by it, and its check runs when the
    /// user comes back to another place of its screen.
    void posponer();
    /// Suspends all checks while it lives: for screens that are being closed or filled by code.
    class Pausa
    {
    public:
        Pausa();
        ~Pausa();
        Pausa(const Pausa&) = delete;
        Pausa& operator=(const Pausa&) = delete;
    };

    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    /// How a field is being left, and what came of it.
    enum class Gesto
    {
        Tecla,
        Otro
    };
    enum class Salida
    {
        Libre,
        Rechazada,
        YaMovida
    };
    struct Chequeo
    {
        std::vector<std::function<bool()>> puedeDejar;
        std::function<void()> guardar;
    };

    Validacion();
    Salida dejar(QWidget* campo, Gesto gesto);
    void volver(QWidget* campo);
    [[nodiscard]] bool ocupada(const QWidget* campo) const;
    Chequeo& chequeoDe(QWidget* campo);
    bool dejarPospuesto(QWidget* destino, QPoint lugar);
    bool alPulsar(QObject* ventana, QMouseEvent* evento);
    bool alSoltar(QObject* ventana);
    bool alTeclear(QObject* objeto, QKeyEvent* evento);
    bool alEntrar(QWidget* campo, bool repetida);
    bool alAtajo(QObject* destino);
    void alRecibirFoco(QWidget* campo);
    void alPerderFoco(QWidget* campo, Qt::FocusReason motivo);
    void chequearTarde(QWidget* campo);

    QHash<const QObject*, Chequeo> m_chequeos;
    std::vector<QPointer<QWidget>> m_enChequeo; ///< fields whose check is running, the innermost last
    QPointer<QWidget> m_paso;                   ///< passed its check just now; its loss of focus checks nothing
    QString m_pasoTexto;
    QPointer<QWidget> m_pospuesto;     ///< lost the focus to another screen, unchecked
    QPointer<QWidget> m_recienLlegado; ///< got the focus within the event at work
    bool m_volviendo = false;
    const QEvent* m_tabPropio = nullptr;
    QPointer<QObject> m_tragadoEn; ///< window whose press was swallowed; its release goes the same way
    quint64 m_tragadoA = 0;        ///< ms, time stamp of that press
};
