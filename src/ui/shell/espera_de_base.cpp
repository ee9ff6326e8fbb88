#include "ui/shell/espera_de_base.h"

#include "base/db/conexion.h"
#include "ui/shell/trabajo_largo.h"

EsperaDeBase::EsperaDeBase()
{
    Conexion::alEsperar(
        [this](bool espera)
        {
            if (!espera)
            {
                m_trabajo.reset();
                return;
            }
            if (!m_trabajo)
            {
                m_trabajo =
                    std::make_unique<TrabajoLargo>(QStringLiteral("Esperando a otro puesto, que está grabando"));
            }
            m_trabajo->avanzar(0, 0);
        });
}

EsperaDeBase::~EsperaDeBase()
{
    Conexion::alEsperar({});
}
