#pragma once

#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "core/screens/mdi_menu_ppal.h"

#include <functional>
#include <memory>

class Grilla;
class Pantalla;

/// The main window over a database of its own, its screens worked as by a person. Who uses it registers the screens.
class Mesa
{
public:
    Mesa();
    ~Mesa();
    Mesa(const Mesa&) = delete;
    Mesa& operator=(const Mesa&) = delete;

    BaseDePrueba base;
    CajasDePrueba cajas;
    std::unique_ptr<MDIMenuPpal> menu;
    int fines = 0; ///< times that the process was to end

    [[nodiscard]] Conexion& conexion() const { return base.conexion(); }
    static Pantalla* abrir(const char* nombre);
    /// Opens a modal screen and runs `haz` in it; returns when the screen is closed.
    static void abrirModal(const char* nombre, const std::function<void()>& haz);
    /// The screen in use: the topmost dialog, else the active child.
    [[nodiscard]] static Pantalla* actual();
    [[nodiscard]] static QWidget& control(const char* nombre);
    [[nodiscard]] static Grilla& grilla(const char* nombre);
    [[nodiscard]] static QString texto(const char* nombre);
    [[nodiscard]] static bool activo(const char* nombre);
    [[nodiscard]] static QString foco();
    [[nodiscard]] static QString titulo();

    static void pulsar(const char* nombre);
    static void escribir(const char* nombre, const char* texto);
    /// Row 0 is the header.
    static void pulsarCelda(const char* grilla, int columna, int fila);
    static void pulsarDosVeces(const char* grilla, int columna, int fila);
    /// Types into a cell and leaves it by Enter.
    static void celda(const char* grilla, int columna, int fila, const char* texto);
    [[nodiscard]] static QStringList filas(const char* grilla); ///< shown cells joined by "|"
    [[nodiscard]] static QList<int> amarillas(const char* grilla);
    /// Presses a button that opens a modal screen and runs `haz` in it; returns when the screen is closed.
    static void enDialogo(const char* boton, const std::function<void()>& haz);
    static void enDialogo(const std::function<void()>& abre, const std::function<void()>& haz);
    /// The close command of the screen in use.
    static void cerrar();
};
