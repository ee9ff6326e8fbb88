#pragma once

#include "base/error_de_ejecucion.h"
#include "core/clave_ddjj.h"

class Conexion;

/// What another screen or another desk has deleted since this one last looked. A screen that catches it reads its list
/// anew; one that does not has it told by protegido().
class YaNoEsta : public ErrorParaAvisar
{
public:
    explicit YaNoEsta(const QString& descripcion)
        : ErrorParaAvisar(SinRegistro, descripcion)
    {
    }
    /// How often it was found out since the start that a declaration or a company is gone. A screen that opens another
    /// one compares, so as not to tell again what was told there.
    [[nodiscard]] static int veces() { return m_veces; }

private:
    friend void exigirDeclaracion(Conexion& conexion, const ClaveDDJJ& clave);
    friend void exigirEmpresa(Conexion& conexion, const QString& cuit);
    inline static int m_veces = 0;
};

/// Runs `trabajo`, and `remediar` when what it works on is gone, before that goes on to be told.
template <class Trabajo, class Remedio>
auto remediando(Trabajo trabajo, Remedio remediar)
{
    try
    {
        return trabajo();
    }
    catch (const YaNoEsta&)
    {
        remediar();
        throw;
    }
}

/// Throws YaNoEsta unless the declaration stands in DDJJ. A write asks inside its own transaction.
void exigirDeclaracion(Conexion& conexion, const ClaveDDJJ& clave);
/// Throws YaNoEsta unless a company has this CUIT (masked form). A write asks inside its own transaction.
void exigirEmpresa(Conexion& conexion, const QString& cuit);
