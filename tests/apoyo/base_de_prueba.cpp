#include "apoyo/base_de_prueba.h"
#include "apoyo/rutas.h"

#include "base/directorio_programa.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <tuple>

namespace
{
template <class... Variables>
void comoAlInicio(std::tuple<Variables&...> variables)
{
    variables = std::tuple<Variables...>();
}

/// The program's variables, as they are at its start.
void reponer()
{
    using namespace Rutinas;
    comoAlInicio(std::tie(Rutinas::Conexion, RutaApp, CuitActual, EmpresaActual, PeriodoActual, SecuenciaActual,
                          CuilElegido, SucursalElegida, ModoAbrir, TextoDevuelto, FormatoImportar, CantidadEmpleados,
                          CantidadAfiliados, BoletaEmitida));
}
} // namespace

BaseDePrueba::BaseDePrueba()
{
    if (!QFile::copy(rutas::baseSembrada(), rutaBase()))
    {
        throw std::runtime_error("no seed database at " + rutas::baseSembrada().toStdString());
    }
    QFile::setPermissions(rutaBase(), QFile::ReadOwner | QFile::WriteOwner);
    reponer();
    reemplazarDirectorioPrograma(m_carpeta.path());
    Rutinas::RutaApp = DirectorioPrograma() + QDir::separator();
    Rutinas::Conexion.abrir(rutaBase());
    Rutinas::Conexion.ejecutar("PRAGMA synchronous=OFF"); // no test waits for the disk
}

BaseDePrueba::~BaseDePrueba()
{
    reponer();
    reemplazarDirectorioPrograma({});
}

void BaseDePrueba::arrancar()
{
    Rutinas::CerrarBase();
    Rutinas::Main([] {});
}

QString BaseDePrueba::escribir(const QString& nombre, const QByteArray& contenido) const
{
    escribirArchivo(ruta(nombre), contenido);
    return ruta(nombre);
}
