// A disk that fills up in the middle of a backup, a restore, a compaction, an import, a save and the writing of a text
// file: each ends in the error told, the database is as it was, nothing half made is left, and the same goes well once
// there is room. What stands for the disk is a limit that no file grows past: it fails at the same writes.
#ifndef _WIN32
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/hojas.h"
#include "apoyo/limite_de_archivos.h"
#include "apoyo/rutas.h"
#include "base/files/planilla_xlsx.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/archivo_uno.h"
#include "exchange/importacion.h"
#include "fallos/base_grande.h"
#include "maintenance/respaldo.h"

#include <QDir>
#include <QFile>

namespace
{
/// What an action fails with when no file grows past `tope`.
template <class Accion>
QString fallaSinLugar(qint64 tope, Accion accion)
{
    const LimiteDeArchivos limite(static_cast<rlim_t>(tope));
    return fallaDe(accion);
}

class DiscoLleno : public ConBase
{
protected:
    [[nodiscard]] QString en(const char* nombre) const { return base.ruta(QString::fromLatin1(nombre)); }
    /// `haz` fails with `texto` at each limit; then it goes well. What a failed one may leave is `queda`.
    void probar(const char* que, const QString& texto, std::initializer_list<qint64> topes,
                const std::function<void()>& haz, const char* queda = "")
    {
        SCOPED_TRACE(que);
        const std::string contenido = contenidoDe();
        const std::string antes = archivosDe(en(""));
        for (const qint64 tope : topes)
        {
            const QString falla = fallaSinLugar(tope, haz);
            EXPECT_TRUE(falla.startsWith(texto)) << tope << ' ' << falla.toStdString();
            ArchivoUno::cerrar(); // a failed import leaves its file open, as told
            Rutinas::AbrirBase();
            QFile::remove(en(queda));
            EXPECT_EQ(antes, archivosDe(en("")));
            EXPECT_EQ(contenido, contenidoDe());
        }
        EXPECT_EQ("", fallaDe(haz).toStdString());
        Rutinas::AbrirBase();
    }

    QTemporaryDir fuera;
};

TEST_F(DiscoLleno, NadaQuedaAMedias)
{
    const QString lleno = QStringLiteral("61 El disco está lleno: ");
    const QString sinEscribir = QStringLiteral("778 Error al leer o escribir la base de datos en el disco");
    const ClaveDDJJ clave{dePrueba::cuit, dePrueba::periodo, 0};
    llenarBase(6'000);
    QDir().mkpath(en("Copias"));
    QDir().mkpath(en("otra"));
    ASSERT_TRUE(QFile::copy(base.rutaBase(), en("otra/DBBrivo.mdb")));
    const qint64 largo = QFileInfo(base.rutaBase()).size();
    base.conexion().ejecutar("DELETE FROM DDJJ_Empleados WHERE NroDoc % 2 = 0");
    Rutinas::CerrarBase();
    Rutinas::CompactarBase();
    Rutinas::AbrirBase();
    const qint64 corto = QFileInfo(base.rutaBase()).size();
    probar("backup", lleno, {corto / 2},
           [&]
           {
               Rutinas::CerrarBase();
               (void)resguardar(base.rutaBase(), prepararCopia(en("Copias/1")));
           });
    // No room for the safety copy; then room for it, and none for the database.
    probar(
        "restore", lleno, {corto / 2, (corto + largo) / 2},
        [&]
        {
            Rutinas::CerrarBase();
            restaurar(en("otra/DBBrivo.mdb"), base.rutaBase(), en("DBBrivo_Bak.mdb"));
        },
        "DBBrivo_Bak.mdb");
    probar("compaction", sinEscribir, {largo / 2},
           []
           {
               Rutinas::CerrarBase();
               Rutinas::CompactarBase();
           });
    const EntradaEmpleado empleado = entrada(dePrueba::cuil, 1000, true);
    probar("save", sinEscribir, {0}, [&] { EXPECT_TRUE(guardarEmpleado(base.conexion(), clave, empleado)); });

    const QString nomina = fuera.filePath(QStringLiteral("nomina.txt"));
    escribirArchivo(nomina, nominaDe(5'000));
    probar("import", sinEscribir, {largo + 4096, 16'384, 0},
           [&] { (void)importarNomina(base.conexion(), clave, nomina, FormatoDeNomina::AfipSijp); });
    EXPECT_EQ(11'001, cuantos("DDJJ_Empleados"));

    QString nombre;
    const auto grabar = [&] { GrabarArchivoDDJJ(base.conexion(), clave, nombre); };
    ASSERT_EQ("", fallaDe(grabar).toStdString());
    const QString escrito = rutaArchivoDDJJ(nombre);
    const qint64 bytes = QFileInfo(escrito).size();
    QFile::remove(escrito);
    // Half of the file, none of it, and all but its last two pages.
    probar("text file", lleno, {bytes / 2, 0, bytes - 8192}, grabar, nombre.toLatin1().constData());

    // A sheet saved over another file, which stays until there is room for the whole new one.
    const QString hoja = fuera.filePath(QStringLiteral("hoja.xlsx"));
    const planilla::Tabla personas(1'000, std::vector<planilla::Celda>{{QStringLiteral("Núñez")}});
    escribirArchivo(hoja, "la que estaba");
    QString falla;
    qint64 tope = 0;
    do
    {
        EXPECT_EQ("la que estaba", leerArchivo(hoja)) << tope;
        falla = fallaSinLugar(tope += 512, [&] { planilla::escribirXlsx(hoja, personas); });
        EXPECT_TRUE(falla.isEmpty() || falla.startsWith(lleno)) << tope << ' ' << falla.toStdString();
    } while (!falla.isEmpty() && !HasFailure());
    const QString leer = QStringLiteral(
        "import sys, zipfile; print(zipfile.ZipFile(sys.argv[1]).read('xl/worksheets/sheet1.xml')[-12:].decode())");
    EXPECT_EQ("</worksheet>\n", hojas::correr(rutas::programaPython(), {QStringLiteral("-c"), leer, hoja}));
}
} // namespace
#endif
