#pragma once

#include <QString>
#include <functional>
#include <memory>

/// Long work on the only thread: a busy pointer while it lives and, past half a second, its progress in a small window
/// of the program. Input is not taken meanwhile, and the program refuses to close.
class TrabajoLargo
{
public:
    explicit TrabajoLargo(const QString& titulo);
    ~TrabajoLargo();
    TrabajoLargo(const TrabajoLargo&) = delete;
    TrabajoLargo& operator=(const TrabajoLargo&) = delete;
    /// Cheap to call often. A total of 0 shows that the work goes on without telling how far it is.
    void avanzar(qint64 hecho, qint64 total);
    /// The same as a function, for the rules.
    [[nodiscard]] std::function<void(qint64 hecho, qint64 total)> aviso();
    [[nodiscard]] static bool enCurso();
    /// Milliseconds before the progress shows; 500 unless a test says otherwise.
    static void fijarDemora(int milisegundos);

private:
    struct Interno;
    std::unique_ptr<Interno> m_interno;
};

/// The mouse pointer as a screen leaves it: busy until set back, whatever happens in between.
namespace Puntero
{
void ocupado();
void normal();
[[nodiscard]] bool estaOcupado();
} // namespace Puntero
