#pragma once

#include <QString>
#include <functional>

/// A new file of the user's: where it goes, and what comes of it.
struct PedidoDeGuardado
{
    QString titulo;      ///< of the dialog
    QString nombre;      ///< proposed, without folder; what no file name may hold becomes "-"
    QString extension;   ///< proposed: "pdf"
    QString filtro = {}; ///< where there are several kinds, as PedidoDeArchivo has it
};
/// A table, as a sheet of Excel or as text: planilla::escribir takes the name for either.
[[nodiscard]] PedidoDeGuardado pedidoDePlanilla(const QString& titulo, const QString& nombre);
/// Asks where, in the folder of the last save of this run, and has `escribir` write it, which throws ErrorDeEjecucion;
/// a failure is told in a box, a TrabajoCancelado passes. Gives the file's path; empty when nothing was saved.
[[nodiscard]] QString GuardarEnArchivo(const PedidoDeGuardado& pedido,
                                       const std::function<void(const QString& ruta)>& escribir);
