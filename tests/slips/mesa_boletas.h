#pragma once

#include "apoyo/mesa.h"

#include <QStringList>

class Boletas;
class VistaDeInforme;

/// The desk with the slip screen ready to open; the layouts and the font lie beside the database. Today is 10/06/2009.
class MesaBoletas : public Mesa
{
public:
    MesaBoletas();
    ~MesaBoletas();

    /// As the declarations screen opens it: of kind 0, 1 or 2, for the month of the tests.
    static void abrir(int tipo, int secuencia = 0);
    /// As the menu opens it.
    static void abrirDelMenu();
    /// Opens another child, or brings it forward, and comes back.
    static void irYVolver();
    [[nodiscard]] static Boletas* pantalla();

    [[nodiscard]] static QStringList textos(std::initializer_list<const char*> nombres);
    [[nodiscard]] static QString marco(const char* nombre); ///< title of a frame
    [[nodiscard]] static bool visible(const char* nombre);
    /// Types and leaves the field by Tab.
    static void poner(const char* nombre, const char* texto);
    static void elegirFondo(int posicion); ///< by the keyboard
    /// Presses "Generar Boleta" and answers its question.
    void generar(bool si = true);
    [[nodiscard]] static QStringList actas() { return filas("vsActas"); }
    /// The yellow row of the list; 0 when there is none, -1 when there are several.
    [[nodiscard]] static int amarilla();

    [[nodiscard]] static QList<VistaDeInforme*> vistas();
    /// Closes every preview and comes back to the main window.
    void cerrarVistas() const;
    [[nodiscard]] qint64 pagos() const;
};
