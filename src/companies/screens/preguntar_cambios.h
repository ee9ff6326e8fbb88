#pragma once

#include <functional>

/// Runs guardar(false). When it finds that another desk has changed the record meanwhile, tells what and asks, No by
/// default; on Yes runs guardar(true), which replaces it. False on No: nothing was written.
bool guardarPreguntando(const std::function<void(bool reemplaza)>& guardar);
