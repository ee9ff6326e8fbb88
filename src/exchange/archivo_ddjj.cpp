#include "exchange/archivo_ddjj.h"

#include "base/db/conexion.h"
#include "base/directorio_programa.h"
#include "base/error_de_ejecucion.h"
#include "base/files/archivos.h"
#include "base/numbers/formato.h"
#include "core/nombre_ddjj.h"
#include "exchange/archivo_uno.h"
#include "exchange/renglon.h"

#include <QDir>

namespace
{
/// Employees between two calls of the progress.
constexpr qint64 filasPorTramo = 256;

constexpr Campo camposEmpresa[] = {
    {Campo::Texto, "Razon", 45},     {Campo::Texto, "Fantasia", 40},      {Campo::Texto, "Calle", 30},
    {Campo::Numero, "Numero", 5},    {Campo::Texto, "NroLocal", 6},       {Campo::Texto, "Piso", 3},
    {Campo::Texto, "Depto", 3},      {Campo::Texto, "CodPos", 8},         {Campo::Texto, "Localidad", 50},
    {Campo::Numero, "Provincia", 2}, {Campo::Texto, "Telefono", 30},      {Campo::Texto, "Fax", 30},
    {Campo::Texto, "Rubro", 10},     {Campo::Texto, "Contacto", 50},      {Campo::Texto, "Web", 35},
    {Campo::Texto, "EMail", 35},     {Campo::Texto, "Estudio", 50},       {Campo::Texto, "Est_Domicilio", 50},
    {Campo::Texto, "Est_CodPos", 8}, {Campo::Texto, "Est_Localidad", 30}, {Campo::Texto, "Est_Telefono", 30},
    {Campo::Texto, "Est_Email", 35},
};

constexpr Campo camposResponsable[] = {
    {Campo::Texto, "AyN", 40},     {Campo::Texto, "Domicilio", 30}, {Campo::Texto, "Localidad", 15},
    {Campo::Numero, "TipoDoc", 1}, {Campo::Numero, "NroDoc", 8},
};

constexpr Campo camposSucursal[] = {
    {Campo::Numero, "ID", 8},       {Campo::Texto, "Sucursal", 10}, {Campo::Texto, "Domicilio", 50},
    {Campo::Numero, "Numero", 5},   {Campo::Texto, "CodPos", 8},    {Campo::Texto, "Localidad", 50},
    {Campo::Texto, "Telefono", 30},
};

// Where no text stands for a Null, the field is left out and the rest of the line moves left: the reader knows it so.
constexpr Campo camposEmpleado[] = {
    {Campo::Crudo, "Cuil"},
    {Campo::Texto, "AyN", 40},
    {Campo::Numero, "TipoDoc", 1},
    {Campo::Numero, "NroDoc", 8},
    {Campo::Numero, "Sexo", 1, " "},
    {Campo::Texto, "Calle", 40},
    {Campo::Numero, "Numero", 5},
    {Campo::Texto, "Piso", 3},
    {Campo::Texto, "Depto", 3},
    {Campo::Texto, "CodPos", 8},
    {Campo::Texto, "Localidad", 30},
    {Campo::Numero, "Provincia", 2, "  "},
    {Campo::Texto, "Telefono", 20},
    {Campo::Fecha, "Nacio", 8, "00000000"},
    {Campo::Numero, "EstCivil", 1, " "},
    {Campo::SiNo, "Afiliado", 1},
    {Campo::Importe, "Sueldo", 7},
    {Campo::Importe, "Imponible", 7},
    {Campo::Numero, "Categoria", 2, "  "},
    {Campo::Fecha, "Ingreso", 8, "00000000"},
    {Campo::Fecha, "Egreso", 8, "00000000"},
    {Campo::Numero, "Sucursal", 8},
    {Campo::Numero, "QHoras", 1},
    {Campo::Importe, "ART100", 7},
    {Campo::Importe, "ART101A", 7},
    {Campo::Importe, "ART101B", 7},
    {Campo::Numero, "Familiares", 2},
    {Campo::Importe, "Acuerdo", 7},
};
/// In the place of the second agreement sum, which does not go out. Always with a point.
constexpr std::string_view finDeEmpleado = "0000000.00";

constexpr Campo camposFamiliar[] = {
    {Campo::Crudo, "CUIL"},
    {Campo::Numero, "Familiar", 2},
    {Campo::Texto, "AyN", 30},
    {Campo::Numero, "TipoDoc", 1},
    {Campo::Numero, "NroDoc", 8},
    {Campo::Numero, "Sexo", 1},
    {Campo::Fecha, "Nacio", 8, "00000000"},
};

/// One line of a row.
void imprimir(Renglon& renglon, char tipo, const Fila& fila, std::span<const Campo> campos, std::string_view fin = {})
{
    renglon.empezar(tipo);
    renglon.agregar(fila, campos);
    renglon.agregar(fin);
    ArchivoUno::imprimir(renglon.bytes());
}

void escribirEmpresa(Conexion& conexion, const ClaveDDJJ& clave, Renglon& renglon)
{
    const auto escribir = [&](const Fila& empresa)
    {
        renglon.empezar('0');
        renglon.agregar(empresa.utf8("Cuit"));
        renglon.agregar((clave.periodo.toString(u"yyyyMM") + ceros(clave.secuencia, 2)).toStdString());
        renglon.agregar(empresa, camposEmpresa);
        return renglon.bytes(); // a view of it
    };
    ArchivoUno::imprimir(conexion.primera("SELECT * FROM Empresas WHERE CUIT = ?", escribir, clave.cuit));
}

void escribirEmpleados(Conexion& conexion, const ClaveDDJJ& clave, Renglon& renglon, const Aviso& aviso)
{
    Sentencia familiares = conexion.preparar("SELECT * FROM Empleados_Familiares WHERE CUIL = ?");
    qint64 escritos = 0;
    const auto escribirFamiliar = [&](const Fila& familiar) { imprimir(renglon, '4', familiar, camposFamiliar); };
    const auto escribirEmpleado = [&](const Fila& empleado)
    {
        imprimir(renglon, '3', empleado, camposEmpleado, finDeEmpleado);
        familiares.recorrer(escribirFamiliar, empleado.utf8("Cuil"));
        if (++escritos % filasPorTramo == 0)
        {
            aviso(escritos, 0);
        }
    };
    conexion.recorrer("SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?", escribirEmpleado,
                      clave.cuit, clave.periodo, clave.secuencia);
}

void escribirLineas(Conexion& conexion, const ClaveDDJJ& clave, const Aviso& aviso)
{
    Renglon renglon;
    escribirEmpresa(conexion, clave, renglon);
    conexion.recorrer(
        "SELECT * FROM Empresas_Responsables WHERE CUIT = ?",
        [&](const Fila& fila) { imprimir(renglon, '1', fila, camposResponsable); }, clave.cuit);
    conexion.recorrer(
        "SELECT * FROM Empresas_Sucursales WHERE CUIT = ?",
        [&](const Fila& fila) { imprimir(renglon, '2', fila, camposSucursal); }, clave.cuit);
    escribirEmpleados(conexion, clave, renglon, aviso);
    ArchivoUno::cerrar();
}

template <class T>
void trasUnaFalla(const T& haz)
{
    try
    {
        haz();
    }
    catch (const ErrorDeEjecucion&)
    {
        // The failure that brought us here is the one to tell.
    }
}

void escribirArchivo(Conexion& conexion, const ClaveDDJJ& clave, const QString& nombre, const Aviso& aviso)
{
    const QString ruta = rutaArchivoDDJJ(nombre);
    Archivos::Parte parte(ruta);
    ArchivoUno::abrirParaEscribir(parte.ruta(), ruta);
    bool abandonado = false; // what a failure has left written stays, what was given up does not
    const auto avisar = [&](qint64 hecho, qint64 total)
    {
        abandonado = true;
        aviso ? aviso(hecho, total) : void();
        abandonado = false;
    };
    try
    {
        escribirLineas(conexion, clave, avisar);
    }
    catch (...)
    {
        trasUnaFalla(ArchivoUno::cerrar);
        abandonado ? void() : trasUnaFalla([&] { parte.colocar(); });
        throw;
    }
    parte.colocar();
}
} // namespace

QString rutaArchivoDDJJ(const QString& nombreArchivo)
{
    return QDir::toNativeSeparators(QDir(DirectorioPrograma()).filePath(nombreArchivo));
}

void GrabarArchivoDDJJ(Conexion& conexion, const ClaveDDJJ& clave, QString& nombreArchivo, const Aviso& aviso)
{
    nombreArchivo = nombreDeDeclaracion(clave) + QStringLiteral(".txt");
    try
    {
        escribirArchivo(conexion, clave, nombreArchivo, aviso);
    }
    catch (...)
    {
        trasUnaFalla(ArchivoUno::cerrar);
        throw;
    }
}
