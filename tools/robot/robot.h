#pragma once

#include "guion.h"
#include "jugada.h"
#include "reposo.h"
#include "ui/doors/mensajes.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <atomic>
#include <functional>
#include <vector>

class QMessageBox;

/// Plays a script on the program's real screens, in its own process and thread: one beat of a timer plays a line when
/// the program has come to rest, also inside the exec() of a dialog that an earlier line opened.
class Robot : public QObject
{
    Q_OBJECT
public:
    enum Estado
    {
        Bien = 0,
        Mal = 1,
        ErrorDelPrograma = 3, ///< the program ended by its own run-time report
    };
    struct Opciones
    {
        QString carpeta;
        QString foto; ///< picture of the screen when a line fails; empty for none
    };
    using Escribir = std::function<void(const QString& linea)>;
    using AlTerminar = std::function<void(int estado)>;

    /// `escribir` takes the transcript line by line. `alTerminar` is called once; it may end the process.
    Robot(std::vector<guion::Paso> pasos, Opciones opciones, Escribir escribir, AlTerminar alTerminar);
    ~Robot() override;

    /// Takes over the doors to the outside; from now on boxes are answered.
    void empezar();
    /// The main window is shown: the script may begin.
    void programaListo() { m_listo = true; }
    /// The program ended by itself with this status.
    void programaTermino(int estado);
    /// Calls `alColgarse` from a thread of its own, with the line at play, when the program has not come to rest for a
    /// minute, whether it runs in circles or stands still. The robot must live until the process ends.
    void vigilar(std::function<void(const QString& enQue)> alColgarse);

private:
    void tomarPuertas();
    static void soltarPuertas();
    QString atenderArchivo(const QString& titulo, bool debeExistir, const QString& extension);
    void latido();
    void seguir();
    /// At rest, but not where a line may begin.
    bool faltaAlgo();
    bool esperarVentanaActiva();
    [[nodiscard]] static bool hayBotonHundido();
    void ejecutar(std::size_t paso, const std::function<void()>& accion);
    void jugarPaso();
    void contestar(QMessageBox* caja);
    void fallar(std::size_t paso, const QString& motivo);
    bool terminaLinea();
    void comprobarDespues(const guion::Paso& paso);
    void terminar(int estado);
    [[nodiscard]] std::size_t enJuego() const { return m_siguiente - 1; }
    [[nodiscard]] QString nombreDelPaso(std::size_t paso) const;

    std::vector<guion::Paso> m_pasos;
    Opciones m_opciones;
    Escribir m_escribir;
    AlTerminar m_alTerminar;
    Contexto m_contexto;
    QTimer m_reloj;
    Reposo m_reposo;
    std::vector<int> m_niveles; ///< event loop levels at which the lines at work began
    std::atomic<std::size_t> m_siguiente = 0;
    std::atomic<int> m_segundosSinReposo = 0;
    const guion::Paso* m_actuo = nullptr; ///< the last line that acts
    QElapsedTimer m_desdeElReposo;        ///< since what the last line did has come to rest; invalid before
    bool m_activando = false;
    bool m_listo = false;
    bool m_terminado = false;
};
