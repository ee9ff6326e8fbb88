#include "ui/report/informe.h"

#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "ui/report/informe_vista.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"

int Informe::PrintReport()
{
    return imprimir(nullptr);
}

int Informe::PrintReport(Conexion& datos)
{
    return imprimir(&datos);
}

int Informe::imprimir(Conexion* datos)
{
    m_error.clear();
    try
    {
        TrabajoLargo trabajo(QStringLiteral("Preparando el informe"),
                             datos != nullptr ? TrabajoLargo::Cancelable::Si : TrabajoLargo::Cancelable::No);
        PlantillaDeInforme plantilla = PlantillaDeInforme::leer(ArchivoInforme);
        Conexion propia;
        if (datos == nullptr && !plantilla.consultas.empty())
        {
            propia.abrir(ArchivoDatos, Conexion::Modo::SoloLectura);
        }
        DatosDeInforme filas =
            DatosDeInforme::leer(plantilla, datos == nullptr ? propia : *datos, Formulas, trabajo.aviso());
        PaginasDeInforme paginas(std::move(plantilla), std::move(filas), trabajo.aviso());
        auto* vista = new VistaDeInforme(std::move(paginas), NombreDeArchivo);
        vista->showMaximized();
    }
    catch (const ErrorDeEjecucion& error)
    {
        m_error = error.descripcion();
        return error.numero();
    }
    return 0;
}
