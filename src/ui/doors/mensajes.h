#pragma once

#include <QString>
#include <functional>

class ErrorDeEjecucion;

/// The one door to message boxes. Each kind has a fixed use: information (validation, success), exclamation
/// (incomplete data, refused steps), critical (refused delete, duplicates), question, plain (run-time errors).
enum class Caja
{
    Informacion,
    Exclamacion,
    Critico,
    Pregunta,
    Simple,
};

struct DatosDeCaja
{
    Caja clase = Caja::Simple;
    QString texto;
    QString titulo;
};

/// Shows a box with an OK button and waits for it. Without a title it has the application's name.
void MsgBox(const QString& texto, Caja clase = Caja::Simple, const QString& titulo = {});
/// A failure in a plain box: "13 No coinciden los tipos", as the saves tell it.
void decirError(const ErrorDeEjecucion& error);
/// "No coinciden los tipos - (13)", as work on files tells it.
void decirErrorDeArchivo(const ErrorDeEjecucion& error);
/// Asks with Yes and No, No as the default; true for Yes. Escape and the close command mean No.
[[nodiscard]] bool Preguntar(const QString& texto, const QString& titulo = {});

/// Told of every box and answering it (true: Yes or OK). An empty function brings the real boxes back.
using AtiendeCajas = std::function<bool(const DatosDeCaja&)>;
void reemplazarCajas(AtiendeCajas atiende);
/// Told of every box just before it is shown for real, and of its answer just after.
void observarCajas(std::function<void(const DatosDeCaja&)> alMostrar,
                   std::function<void(const DatosDeCaja&, bool)> alCerrar);
/// True while a box, a file dialog or the printer dialog of the program is open.
[[nodiscard]] bool hayCajaAbierta();
