#pragma once

#include "core/clave_ddjj.h"

#include <vector>

class Conexion;

/// A declaration from which a roster can be copied.
struct FuenteDeCopia
{
    QDate periodo;
    int secuencia = 0;
};

/// The company's declarations with at least one employee, newest first, the target left out.
[[nodiscard]] std::vector<FuenteDeCopia> fuentesDeCopia(Conexion& conexion, const ClaveDDJJ& destino);

/// Replaces the target's roster by the source's, in one transaction. Wages and contributions pass as they are; the two
/// agreement sums fold into Acuerdo, and the count of dependants is lost.
void copiarNomina(Conexion& conexion, const ClaveDDJJ& destino, const FuenteDeCopia& fuente);
