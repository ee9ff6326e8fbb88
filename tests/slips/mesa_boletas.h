#pragma once

#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "core/screens/mdi_menu_ppal.h"

#include <QStringList>
#include <functional>
#include <memory>
#include <stdexcept>

class Boletas;
class Grilla;
class VistaDeInforme;

/// The main window over a database of its own, with the slip screen ready to open, worked as by a person. The layouts
/// and the font lie beside the database. Today is 10/06/2009.
class MesaBoletas
{
public:
    MesaBoletas();
    ~MesaBoletas();
    MesaBoletas(const MesaBoletas&) = delete;
    MesaBoletas& operator=(const MesaBoletas&) = delete;

    BaseDePrueba base;
    CajasDePrueba cajas;
    std::unique_ptr<MDIMenuPpal> menu;
    int fines = 0; ///< times that the process was to end

    [[nodiscard]] Conexion& conexion() const { return base.conexion(); }
    /// As the declarations screen opens it: of kind 0, 1 or 2, for the month of the tests.
    void abrir(int tipo, int secuencia = 0) const;
    /// As the menu opens it.
    void abrirDelMenu() const;
    /// Opens another child, or brings it forward, and comes back.
    void irYVolver() const;
    [[nodiscard]] static Boletas* pantalla();
    [[nodiscard]] bool cerrar() const;

    /// A control by its name in the system: "txtImporte(3)".
    template <class Control>
    [[nodiscard]] Control& control(const char* nombre) const
    {
        auto* hallado = qobject_cast<Control*>(buscar(nombre));
        if (hallado == nullptr)
        {
            throw std::runtime_error(std::string("no such control: ") + nombre);
        }
        return *hallado;
    }
    [[nodiscard]] QString texto(const char* nombre) const;
    [[nodiscard]] QStringList textos(std::initializer_list<const char*> nombres) const;
    [[nodiscard]] bool activo(const char* nombre) const;
    [[nodiscard]] bool visible(const char* nombre) const;
    [[nodiscard]] QString foco() const;
    void pulsar(const char* nombre) const;
    void escribir(const char* nombre, const char* texto) const;
    /// Types and leaves the field by Tab.
    void poner(const char* nombre, const char* texto) const;
    void elegirFondo(int posicion) const; ///< by the keyboard
    /// Presses "Generar Boleta" and answers its question.
    void generar(bool si = true);

    [[nodiscard]] Grilla& lista() const;
    [[nodiscard]] QStringList filas() const; ///< shown cells joined by "|"
    void pulsarFila(int fila) const;         ///< 0 is the header
    /// The yellow row; 0 when there is none, -1 when there are several.
    [[nodiscard]] int amarilla() const;

    /// Runs `haz` in the search dialog that `abre` opens; it must have closed the dialog.
    void enDialogo(const std::function<void()>& abre, const std::function<void()>& haz) const;
    static void cerrarDialogo();

    [[nodiscard]] static QList<VistaDeInforme*> vistas();
    /// Closes every preview and comes back to the main window.
    void cerrarVistas() const;
    [[nodiscard]] qint64 pagos() const;

private:
    [[nodiscard]] static QWidget* buscar(const char* nombre);
};
