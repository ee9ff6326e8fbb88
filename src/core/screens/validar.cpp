#include "core/screens/validar.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "base/numbers/moneda.h"
#include "ui/doors/mensajes.h"
#include "ui/fields/campo_mascara.h"

namespace
{
bool cabeEnUnImporte(const QString& texto)
{
    try
    {
        (void)Moneda::deTexto(texto);
        return true;
    }
    catch (const ErrorDeEjecucion&)
    {
        return false;
    }
}
} // namespace

namespace Rutinas
{
bool ValidarFecha(CampoMascara& campo)
{
    const QString digitos = campo.soloDigitos();
    if (digitos.size() == 6)
    {
        // Of the masked text, so that a day or month with a gap keeps it and is refused.
        campo.setText(campo.text().left(6) + QString::number(AnioCompleto(digitos.right(2).toInt())));
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
    if (LeerNumero(texto) && cabeEnUnImporte(texto))
    {
        return true;
    }
    MsgBox(QStringLiteral("Verifique el Número ingresado.  El mismo es incorrecta"));
    return false;
}
} // namespace Rutinas
