// Work that is given up at any point leaves the database and the files as they were.
#include "apoyo/archivos_de_prueba.h"
#include "declarations/ciclo_ddjj.h"
#include "declarations/copia_ddjj.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/archivo_uno.h"
#include "exchange/importacion.h"
#include "fallos/base_grande.h"
#include "maintenance/depuracion.h"
#include "maintenance/respaldo.h"
#include "roster/sueldos.h"
#include "ui/shell/trabajo_largo.h"

#include <QDir>
#include <QScopeGuard>
#include <gtest/gtest.h>

namespace
{
const ClaveDDJJ llena{dePrueba::cuit, dePrueba::periodo, 0};
const ClaveDDJJ vacia{dePrueba::cuit, dePrueba::periodo, 1};
const char* const archivoAnterior = "30-12345678-1 2009-05 00.txt";

struct Oficina
{
    BaseDePrueba base;
    Conexion& c = base.conexion();

    Oficina()
    {
        llenarBase(4000);
        QDir(base.ruta({})).mkpath("Copias/1");
        escribirArchivo(base.ruta("Copias/1/DBBrivo.mdb"), leerArchivo(base.rutaBase()));
        poner("DDJJ", {{"Secuencia", 1}});
        base.escribir(archivoAnterior, "de antes");
        base.escribir("nomina.txt", nominaDe(600));
    }
    [[nodiscard]] std::string estado() const
    {
        return contenidoDe() + archivosDe(base.ruta({})) + base.leer(archivoAnterior).toStdString();
    }
    void grabarSueldos(const Aviso& aviso)
    {
        std::vector<FilaSueldo> filas = cargarSueldos(c, llena);
        for (FilaSueldo& fila : filas)
        {
            fila.sueldo = Moneda::deTexto("2000");
        }
        (void)actualizarSueldos(c, llena, filas, {}, aviso);
    }
};

using Regla = std::function<void(Oficina&, const Aviso&)>;
const std::tuple<const char*, bool, Regla> reglas[] = {
    {"import", true,
     [](auto& o, auto& a)
     { (void)importarNomina(o.c, vacia, o.base.ruta("nomina.txt"), FormatoDeNomina::AfipSijp, a); }},
    {"declaration file", true,
     [nombre = QString()](auto& o, auto& a) mutable { GrabarArchivoDDJJ(o.c, llena, nombre, a); }},
    {"copy", true, [](auto& o, auto& a) { copiarNomina(o.c, vacia, llena, a); }},
    {"deletion", true, [](auto& o, auto& a) { eliminarDeclaracion(o.c, llena, a); }},
    {"purge", true, [](auto& o, auto& a) { depurarHasta(o.c, llena.cuit, llena.periodo, {llena.periodo}, a); }},
    {"wages", true, [](auto& o, auto& a) { o.grabarSueldos(a); }},
    {"backup", false, [](auto& o, auto& a) { (void)resguardar(o.base.rutaBase(), o.base.ruta("Copias/a.mdb"), a); }},
    {"restore", false,
     [](auto& o, auto& a)
     { restaurar(o.base.ruta("Copias/1/DBBrivo.mdb"), o.base.rutaBase(), o.base.ruta("DBBrivo_Bak.mdb"), a); }},
};
} // namespace

TEST(Cancelar, LoAbandonadoQuedaComoEstaba)
{
    for (const auto& [nombre, conLaBaseAbierta, regla] : reglas)
    {
        Oficina oficina;
        const std::string antes = oficina.estado();
        bool sigue = true;
        for (int llamada = 1; sigue && !testing::Test::HasFailure(); llamada *= 2)
        {
            conLaBaseAbierta ? void() : Rutinas::CerrarBase();
            int faltan = llamada;
            const auto avisar = [&](qint64, qint64) { --faltan == 0 ? throw TrabajoCancelado() : void(); };
            const QString falla = fallaDe([&, &haz = regla] { haz(oficina, avisar); });
            sigue = !falla.isEmpty();
            EXPECT_TRUE(!sigue || falla.endsWith(TrabajoCancelado().descripcion())) << nombre << falla.toStdString();
            conLaBaseAbierta ? void() : Rutinas::AbrirBase();
            EXPECT_EQ(sigue, antes == oficina.estado()) << nombre << ' ' << llamada;
            EXPECT_FALSE(oficina.c.enTransaccion() || ArchivoUno::abierto()) << nombre;
            EXPECT_TRUE(sigue || llamada > 2) << nombre << " cannot be given up";
        }
    }
}
