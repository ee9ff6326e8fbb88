#include "exchange/screens/imprimir_informe.h"

#include "core/rutinas.h"
#include "exchange/informe_ddjj.h"
#include "platform/screens/informe.h"
#include "platform/screens/mensajes.h"

void ImprimirInforme(const ClaveDDJJ& clave, const QString& mes, const QString& anio, InformeDDJJ cual)
{
    if (!hayNomina(Rutinas::Conexion, clave))
    {
        MsgBox(QStringLiteral("Debe ingresar primero la Nómina de Empleados."), Caja::Exclamacion);
        return;
    }
    const Recordset empresa =
        Rutinas::Conexion.consultar("SELECT Empresas.*, Rubros.Nombre FROM Empresas INNER JOIN Rubros "
                                    "ON Empresas.Rubro = Rubros.Codigo WHERE Empresas.CUIT = ?",
                                    clave.cuit);
    const qint64 indice = Rutinas::ObtenerIndice();
    prepararInforme(Rutinas::Conexion, clave, indice, cual);

    Informe informe;
    informe.ArchivoInforme = Rutinas::RutaApp + archivoDeInforme(cual);
    informe.ArchivoDatos = Rutinas::rutaBase();
    informe.Formulas = valoresDeInforme(empresa.primera(), clave, indice, mes, anio, cual);
    if (informe.PrintReport() != 0)
    {
        MsgBox(informe.LastErrorString());
    }
    Rutinas::LiberarIndice(indice);
}
