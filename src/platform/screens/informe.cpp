#include "platform/screens/informe.h"

#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/informe_vista.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/trabajo_largo.h"

void Informe::reset()
{
    *this = Informe();
}

int Informe::PrintReport()
{
    m_error.clear();
    try
    {
        TrabajoLargo trabajo(QStringLiteral("Preparando el informe"));
        PlantillaDeInforme plantilla = PlantillaDeInforme::leer(ArchivoInforme);
        DatosDeInforme datos = DatosDeInforme::leer(plantilla, ArchivoDatos, Formulas);
        PaginasDeInforme paginas(std::move(plantilla), std::move(datos), trabajo.aviso());
        auto* vista = new VistaDeInforme(std::move(paginas));
        vista->showMaximized();
    }
    catch (const ErrorDeEjecucion& error)
    {
        m_error = error.descripcion();
        return error.numero();
    }
    return 0;
}
