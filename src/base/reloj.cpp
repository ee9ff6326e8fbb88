#include "base/reloj.h"

namespace
{
std::function<QDateTime()>& reemplazo()
{
    static std::function<QDateTime()> funcion;
    return funcion;
}
} // namespace

QDateTime Reloj::Ahora()
{
    return reemplazo() ? reemplazo()() : QDateTime::currentDateTime();
}

void Reloj::reemplazar(std::function<QDateTime()> reloj)
{
    reemplazo() = std::move(reloj);
}
