#pragma once

#include "guion.h"
#include "jugada.h"
#include "platform/screens/mensajes.h"
#include "reposo.h"
#include "vigia.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>
#include <chrono>
#include <functional>
#include <vector>

class QMessageBox;
struct PedidoDeArchivo;

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
        QString carpetaDelGuion;
        QString foto; ///< picture of the screen when a line fails; empty for none
        std::chrono::milliseconds limite = std::chrono::seconds(60); ///< longest time without coming to rest
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

private:
    void tomarPuertas();
    void soltarPuertas();
    QString atenderArchivo(const QString& titulo, bool debeExistir, const QString& extension);
    void latido();
    void seguir();
    bool esperarVentanaActiva();
    bool hayBotonHundido() const;
    void ejecutar(std::size_t paso, const std::function<void()>& accion);
    void jugarPaso();
    void contestar(QMessageBox* caja);
    void cerrarCaja(const DatosDeCaja& datos, bool respuesta);
    void fallar(std::size_t paso, const QString& motivo);
    void terminarGuion();
    void terminar(int estado);
    bool quedaAlgo();
    bool terminaLinea(bool sigueUnaQueActua);
    void comprobarDespues(const guion::Paso& paso);
    [[nodiscard]] QString nombreDelPaso(std::size_t paso) const;
    void colgarse(const std::string& enQue);

    std::vector<guion::Paso> m_pasos;
    Opciones m_opciones;
    Escribir m_escribir;
    AlTerminar m_alTerminar;
    Contexto m_contexto;
    QTimer m_reloj;
    Reposo m_reposo;
    std::vector<int> m_niveles;       ///< event loop levels at which the lines at work began
    std::vector<DatosDeCaja> m_cajas; ///< the boxes on the screen, the top one last
    std::size_t m_siguiente = 0;
    std::optional<std::size_t> m_actuo; ///< the last line that acts
    bool m_mirada = false;              ///< what that line says of what comes of it was looked at
    QElapsedTimer m_desdeLaUltima;      ///< since the last line began
    bool m_activando = false;
    bool m_listo = false;
    bool m_terminado = false;
    Vigia m_vigia;
};
