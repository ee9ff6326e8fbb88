#include "exchange/screens/imprimir_informe.h"

#include "core/nombre_ddjj.h"
#include "core/rutinas.h"
#include "exchange/informe_ddjj.h"
#include "ui/doors/mensajes.h"
#include "ui/report/informe.h"

bool avisarSiNoHayNomina(const ClaveDDJJ& clave)
{
    if (hayNomina(Rutinas::Conexion, clave))
    {
        return true;
    }
    MsgBox(QStringLiteral("Debe ingresar primero la Nómina de Empleados."), Caja::Exclamacion);
    return false;
}

void ImprimirInforme(const ClaveDDJJ& clave, const QString& mes, const QString& anio, InformeDDJJ cual)
{
    if (!avisarSiNoHayNomina(clave))
    {
        return;
    }
    // Prepared before an index is taken, so that a base without these tables takes none.
    Sentencia empresa = Rutinas::Conexion.preparar("SELECT Empresas.*, Rubros.Nombre FROM Empresas INNER JOIN Rubros "
                                                   "ON Empresas.Rubro = Rubros.Codigo WHERE Empresas.CUIT = ?");
    Informe informe;
    informe.ArchivoInforme = Rutinas::RutaApp + archivoDeInforme(cual);
    informe.NombreDeArchivo =
        nombreDeDeclaracion(clave) +
        (cual == InformeDDJJ::Declaracion ? QStringLiteral(" nomina") : QStringLiteral(" datos incompletos"));
    const qint64 indice = Rutinas::ObtenerIndice();
    informe.Formulas = empresa.primera(
        [&](const Fila& fila) { return valoresDeInforme(fila, clave, indice, mes, anio, cual); }, clave.cuit);
    // The rows are staged for this one reading, and only it sees them: nothing is left by whoever is killed meanwhile.
    Conexion datos;
    datos.abrir(Rutinas::rutaBase(), Conexion::Modo::SoloLectura);
    crearPreparacion(datos);
    prepararInforme(datos, clave, indice, cual);
    Rutinas::LiberarIndice(indice); // earlier versions of the program staged them in the file
    if (informe.PrintReport(datos) != 0)
    {
        MsgBox(informe.LastErrorString());
    }
}
