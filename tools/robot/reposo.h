#pragma once

#include <QObject>

/// Tells when the program has nothing left to do: counts the events of the whole application. A timer of the program
/// counts only when it waits for nothing, so that a blinking cursor does not keep the program busy.
class Reposo : public QObject
{
    Q_OBJECT
public:
    /// Events sent to `propio` are not the program's.
    explicit Reposo(const QObject* propio);

    /// Asked once a beat: true when this beat and the one before saw no event. Two, because an exec() that has been
    /// told to return has done so by then, and what was to be deleted later is gone.
    [[nodiscard]] bool alcanzado();
    void empezarDeNuevo() { m_quietos = 0; }

    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    const QObject* m_propio;
    qint64 m_eventos = 0;
    qint64 m_vistos = 0;
    int m_quietos = 0;
};
