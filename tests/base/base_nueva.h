#pragma once

#include "apoyo/datos.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

/// A new database in a folder of its own, open.
class BaseNueva : public testing::Test
{
protected:
    BaseNueva()
    {
        Conexion::crear(base);
        conexion.abrir(base);
    }
    [[nodiscard]] QString en(const char* nombre) const { return carpeta.filePath(nombre); }

    QTemporaryDir carpeta;
    const QString base = en("Bäse ñ.mdb");
    Conexion conexion;
};
