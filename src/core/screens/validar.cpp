#include "core/screens/validar.h"

#include "platform/data/formato.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/mensajes.h"

namespace Rutinas
{
bool ValidarFecha(CampoMascara& campo)
{
    const QString digitos = campo.soloDigitos();
    if (digitos.size() == 6)
    {
        const int anio = AnioCompleto(digitos.right(2).toInt());
        campo.setText(
            QStringLiteral("%1/%2/%3").arg(digitos.left(2), digitos.mid(2, 2)).arg(anio, 4, 10, QLatin1Char('0')));
    }
    if (!LeerFecha(campo.text()))
    {
        MsgBox(QStringLiteral("La Fecha ingresada es incorrecta"), Caja::Critico);
        return false;
    }
    return true;
}

bool VerificarNumero(const QString& texto)
{
    if (LeerNumero(texto))
    {
        return true;
    }
    MsgBox(QStringLiteral("Verifique el Número ingresado.  El mismo es incorrecta"));
    return false;
}
} // namespace Rutinas
