#pragma once

#include <QProcess>
#include <QString>
#include <functional>

/// Another copy of the running test program, to see what two processes do to each other. Its part is a test of the
/// same program with a name that begins with DISABLED_, so that it runs only as a child; there it calls
/// hijo::listoYEsperar once it stands where the parent wants it.
class Hijo
{
public:
    /// Starts `prueba` ("Suite.DISABLED_Parte") on `ruta` and returns when the child is where it should be.
    Hijo(const QString& prueba, const QString& ruta);
    ~Hijo() { matar(); }

    /// What the child told with listoYEsperar; empty when it failed before.
    [[nodiscard]] const QString& dicho() const { return m_dicho; }
    /// Lets the child go on; true when its test passes.
    [[nodiscard]] bool seguir();
    /// Ends it at once, as a power cut would.
    void matar();

private:
    QProcess m_proceso;
    QString m_dicho;
};

namespace hijo
{
/// In the child: the path that the parent gave.
[[nodiscard]] QString ruta();
/// In the child: tells the parent and goes on.
void listo(const QString& dicho = "listo");
/// In the child: tells the parent and waits for its seguir().
void listoYEsperar(const QString& dicho = "listo");
} // namespace hijo
