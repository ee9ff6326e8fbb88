#pragma once

#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "core/screens/mdi_menu_ppal.h"

#include <functional>
#include <memory>

class Grilla;
class Pantalla;

/// The main window over a database of its own, with the screens of the companies ready to open, worked as by a person.
class MesaEmpresas
{
public:
    MesaEmpresas();
    ~MesaEmpresas();
    MesaEmpresas(const MesaEmpresas&) = delete;
    MesaEmpresas& operator=(const MesaEmpresas&) = delete;

    BaseDePrueba base;
    CajasDePrueba cajas;
    std::unique_ptr<MDIMenuPpal> menu;
    int fines = 0; ///< times that the process was to end

    [[nodiscard]] Conexion& conexion() const { return base.conexion(); }
    Pantalla* abrir(const char* nombre = "Empresas") const;
    /// The screen in use: the topmost dialog, else the active child.
    [[nodiscard]] static Pantalla* actual();
    [[nodiscard]] static QWidget& control(const char* nombre);
    [[nodiscard]] static Grilla& grilla(const char* nombre);
    [[nodiscard]] static QString texto(const char* nombre);
    [[nodiscard]] static bool activo(const char* nombre);
    [[nodiscard]] QString foco() const;
    [[nodiscard]] static QString titulo();

    void pulsar(const char* nombre) const;
    void escribir(const char* nombre, const char* texto) const;
    void pulsarCelda(const char* grilla, int columna, int fila) const;
    /// Types into a cell and leaves it by Enter.
    void celda(const char* grilla, int columna, int fila, const char* texto) const;
    [[nodiscard]] static QStringList filas(const char* grilla); ///< shown cells joined by "|"
    [[nodiscard]] static QList<int> amarillas(const char* grilla);
    /// Presses a button that opens a modal screen and runs `haz` in it; it must have closed the screen.
    void enDialogo(const char* boton, const std::function<void()>& haz) const;
};
