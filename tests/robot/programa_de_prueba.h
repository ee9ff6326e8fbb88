#pragma once

#include "platform/screens/grilla.h"
#include "platform/screens/pantalla.h"

#include <QString>
#include <QStringList>
#include <QWidget>

/// A small program to play on: a main window with a menu, a child screen with one control of each kind, a modal one.
class ProgramaDePrueba
{
public:
    ProgramaDePrueba();
    ~ProgramaDePrueba();
    ProgramaDePrueba(const ProgramaDePrueba&) = delete;
    ProgramaDePrueba& operator=(const ProgramaDePrueba&) = delete;

private:
    QWidget* m_ventana;
};

/// How a script ended and what it told.
struct Funcion
{
    int estado = -1;
    QStringList transcripcion;
    /// The line that tells the failure; empty when there is none.
    [[nodiscard]] QString falla() const;
};

/// Plays a script on a fresh program, with `carpeta` as the program's folder and as the script's.
[[nodiscard]] Funcion jugarGuion(const QString& guion, const QString& carpeta = QStringLiteral("/carpeta"));
