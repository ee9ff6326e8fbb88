#pragma once

#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/pantallas_fugaces.h"

#include <QStringList>
#include <memory>
#include <stdexcept>

class Empleados;
class GrillaFamiliar;
class VentanaModal;

/// A company with one declaration, whose roster is open on the screen, worked by clicks and keys.
class MesaEmpleados
{
public:
    MesaEmpleados();
    ~MesaEmpleados();
    MesaEmpleados(const MesaEmpleados&) = delete;
    MesaEmpleados& operator=(const MesaEmpleados&) = delete;

    BaseDePrueba base;
    CajasDePrueba cajas;
    int fines = 0;  ///< times that the process was to end
    int teclas = 0; ///< keys pressed so far

    [[nodiscard]] Conexion& conexion() const { return base.conexion(); }
    /// Opens the screen as the declaration screen does: what a test wants in the roster is put there before.
    void abrir();
    [[nodiscard]] bool abierta() const;
    [[nodiscard]] Empleados& pantalla() const;
    [[nodiscard]] QString titulo() const; ///< what follows the screen's own title
    [[nodiscard]] int pagina() const;
    void irAPagina(int numero) const;

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
    [[nodiscard]] QString texto(const char* nombre) const; ///< of a field, a list, a label or a button
    [[nodiscard]] QStringList textos(std::initializer_list<const char*> nombres) const;
    [[nodiscard]] bool activo(const char* nombre) const;
    [[nodiscard]] QString foco() const;
    [[nodiscard]] GrillaFamiliar& familia() const;
    [[nodiscard]] QStringList familiares() const; ///< a row each, its cells between "|"
    [[nodiscard]] int amarilla() const;           ///< the yellow row, 0 for none, -1 for several

    void pulsar(const char* nombre) const;
    /// Keys as a clerk gives them, to whatever has the focus. In `texto`, "\n" is Enter and "\t" is Tab.
    void tecla(Qt::Key una, Qt::KeyboardModifiers con = {});
    void teclear(const QString& texto);
    /// Replaces what a field holds, reached by a click.
    void escribir(const char* nombre, const QString& texto);
    void pegar(const char* nombre, const QString& texto);

    /// One value of a roster row, as text; empty for a Null.
    [[nodiscard]] QString guardado(const char* columna, const QString& cuil) const;
    [[nodiscard]] qint64 contar(const char* sql) const;
    PantallasFugaces fugaces;

private:
    [[nodiscard]] QWidget* buscar(const char* nombre) const;
    std::unique_ptr<VentanaModal> m_ventana;
};

/// A valid masked CUIL for a document number, with the prefix 20, or 27 where that has no check digit.
[[nodiscard]] QString cuilDe(int documento);
