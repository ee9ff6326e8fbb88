#include "apoyo/base_de_prueba.h"
#include "apoyo/rutas.h"

#include "apoyo/archivos_de_prueba.h"
#include "base/directorio_programa.h"

#include <QDir>
#include <QFile>
#include <gtest/gtest.h>
#include <tuple>

namespace
{
/// The program's variables; iniciales() has them as they are at its start.
auto publicas()
{
    using namespace Rutinas;
    return std::tie(Rutinas::Conexion, RutaApp, CuitActual, EmpresaActual, PeriodoActual, SecuenciaActual, CuilElegido,
                    SucursalElegida, ModoAbrir, TextoDevuelto, FormatoImportar, CantidadEmpleados, CantidadAfiliados,
                    BoletaEmitida);
}
template <class... Variables>
std::tuple<Variables...> iniciales(const std::tuple<Variables&...>&)
{
    return std::tuple<Variables...>();
}
} // namespace

struct BaseDePrueba::Publicas
{
    decltype(iniciales(publicas())) valores = iniciales(publicas());

    /// Changes the program's variables for these.
    void intercambiar()
    {
        std::apply([this](auto&... unas)
                   { std::apply([&](auto&... otras) { (std::swap(unas, otras), ...); }, valores); },
                   publicas());
    }
};

BaseDePrueba::BaseDePrueba()
    : m_anteriores(std::make_unique<Publicas>())
{
    if (!QFile::copy(rutas::baseSembrada(), rutaBase()))
    {
        throw std::runtime_error("no seed database at " + rutas::baseSembrada().toStdString());
    }
    QFile::setPermissions(rutaBase(), QFile::ReadOwner | QFile::WriteOwner);
    m_anteriores->intercambiar();
    reemplazarDirectorioPrograma(m_carpeta.path());
    Rutinas::RutaApp = DirectorioPrograma() + QDir::separator();
    Rutinas::Conexion.abrir(rutaBase());
    Rutinas::Conexion.ejecutar("PRAGMA synchronous=OFF"); // no test waits for the disk
}

BaseDePrueba::~BaseDePrueba()
{
    Rutinas::Conexion.cerrar();
    m_anteriores->intercambiar();
    reemplazarDirectorioPrograma({});
}

QString BaseDePrueba::ruta(const QString& nombre) const
{
    return QDir::toNativeSeparators(m_carpeta.filePath(nombre));
}

QByteArray BaseDePrueba::leer(const QString& nombre) const
{
    return leerArchivo(ruta(nombre));
}

QString BaseDePrueba::escribir(const QString& nombre, const QByteArray& contenido) const
{
    escribirArchivo(ruta(nombre), contenido);
    return ruta(nombre);
}
