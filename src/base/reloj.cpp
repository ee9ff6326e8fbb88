#include "base/reloj.h"

namespace
{
std::function<QDateTime()>& otroReloj()
{
    static std::function<QDateTime()> funcion;
    return funcion;
}
} // namespace

QDateTime Reloj::Ahora()
{
    return otroReloj() ? otroReloj()() : QDateTime::currentDateTime();
}

void Reloj::reemplazar(std::function<QDateTime()> reloj)
{
    otroReloj() = std::move(reloj);
}
