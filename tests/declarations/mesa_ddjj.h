#pragma once

#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/pantallas_fugaces.h"
#include "core/screens/mdi_menu_ppal.h"
#include "platform/screens/pantalla.h"

#include <QMdiSubWindow>
#include <functional>
#include <memory>
#include <stdexcept>

class DDJJ;
class Grilla;
class QLineEdit;

/// The main window over a database of its own, with the declarations screen ready to open, worked as by a person.
class MesaDDJJ
{
public:
    MesaDDJJ();
    ~MesaDDJJ();
    MesaDDJJ(const MesaDDJJ&) = delete;
    MesaDDJJ& operator=(const MesaDDJJ&) = delete;

    BaseDePrueba base;
    CajasDePrueba cajas;
    std::unique_ptr<MDIMenuPpal> menu;
    int fines = 0; ///< times that the process was to end

    [[nodiscard]] Conexion& conexion() const { return base.conexion(); }
    void abrir();
    [[nodiscard]] static DDJJ* pantalla();
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
    [[nodiscard]] QString texto(const char* nombre) const; ///< of a field, a label, a button or a frame
    [[nodiscard]] Grilla& lista() const;
    [[nodiscard]] QStringList filas() const; ///< "2007/05 1" for each row of the list
    /// The yellow row; 0 when there is none, -1 when there are several.
    [[nodiscard]] int amarilla() const;
    void pulsar(const char* nombre) const;
    void pulsarFila(int fila) const; ///< 0 is the header
    void pagina(int numero) const;
    void escribir(const char* nombre, const char* texto) const;
    void elegirEmpresa(const QString& razon) const;
    [[nodiscard]] QString foco() const;
    /// Names of the given controls that are enabled, in their order.
    [[nodiscard]] QStringList habilitados(std::initializer_list<const char*> nombres) const;
    [[nodiscard]] bool cerrar() const; ///< the close command of the screen; true when it is gone

    /// Writes a file into the program's directory and gives its path.
    [[nodiscard]] QString escribirArchivo(const QString& nombre, const QByteArray& contenido) const;
    [[nodiscard]] QByteArray leerArchivo(const QString& nombre) const;

    PantallasFugaces fugaces;

private:
    [[nodiscard]] static QWidget* buscar(const char* nombre);
};
