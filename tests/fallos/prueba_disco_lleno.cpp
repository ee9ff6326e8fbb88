// A disk that fills up in the middle of a backup, a restore, a compaction, an import, a save and the writing of a text
// file: each ends in the error told, the database is as it was, nothing half made is left, and the same goes well once
// there is room. A disk of a few MiB is mounted for this process alone; where that is not allowed, no file grows past a
// limit, which fails at the same writes with another number of the system.
#ifndef _WIN32
#include "apoyo/archivos_de_prueba.h"
#include "apoyo/limite_de_archivos.h"
#include "base/files/archivos.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/archivo_uno.h"
#include "exchange/importacion.h"
#include "fallos/base_grande.h"
#include "maintenance/respaldo.h"

#include <QDir>
#include <QFile>
#include <QStorageInfo>
#include <optional>
#include <sched.h>
#include <sys/mount.h>

namespace
{
class DiscoChico
{
public:
    DiscoChico()
    {
        static const bool apartado =
            ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
        m_montado = apartado && ::mount("none", lugar().constData(), "tmpfs", 0, "size=16m") == 0;
        qputenv("TMPDIR", lugar());
    }
    ~DiscoChico()
    {
        m_temporal.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_temporal);
        ::umount2(lugar().constData(), MNT_DETACH);
    }
    DiscoChico(const DiscoChico&) = delete;
    DiscoChico& operator=(const DiscoChico&) = delete;

    /// Leaves about `libres` bytes; with no disk of its own no file grows past `tope`.
    void llenar(qint64 libres, qint64 tope)
    {
        vaciar();
        if (!m_montado)
        {
            m_limite.emplace(static_cast<rlim_t>(tope));
            return;
        }
        escribirArchivo(relleno(), QByteArray(QStorageInfo(m_lugar.path()).bytesAvailable() - libres, 'x'));
    }
    void vaciar()
    {
        m_limite.reset();
        QFile::remove(relleno());
    }
    /// What the database says of a write that found no room.
    [[nodiscard]] QString textoDeLaBase() const
    {
        return m_montado ? QStringLiteral("13 El disco está lleno")
                         : QStringLiteral("10 Error al leer o escribir la base de datos en el disco");
    }

private:
    [[nodiscard]] QByteArray lugar() const { return QFile::encodeName(m_lugar.path()); }
    [[nodiscard]] QString relleno() const { return m_lugar.filePath(QStringLiteral("relleno")); }
    QTemporaryDir m_lugar;
    QByteArray m_temporal = qgetenv("TMPDIR");
    bool m_montado = false;
    std::optional<LimiteDeArchivos> m_limite;
};

class DiscoLleno : public testing::Test
{
protected:
    [[nodiscard]] QString en(const char* nombre) const { return base.ruta(QString::fromLatin1(nombre)); }
    /// `haz` fails with `texto` wherever there is so little room, as free bytes and as how far a file grows; then it
    /// goes well. What a failed one may leave is `queda`.
    void probar(const char* que, const QString& texto, const std::vector<std::pair<qint64, qint64>>& lugares,
                const std::function<void()>& haz, const char* queda = "")
    {
        SCOPED_TRACE(que);
        const std::string contenido = contenidoDe();
        const std::string antes = archivosDe(en(""));
        for (const auto& [libres, tope] : lugares)
        {
            disco.llenar(libres, tope);
            const QString falla = fallaDe(haz);
            disco.vaciar();
            EXPECT_TRUE(falla.startsWith(texto)) << libres << ' ' << falla.toStdString();
            ArchivoUno::cerrar(); // a failed import leaves its file open, as told
            Rutinas::AbrirBase();
            QFile::remove(en(queda));
            EXPECT_EQ(antes, archivosDe(en("")));
            EXPECT_EQ(contenido, contenidoDe());
        }
        EXPECT_EQ("", fallaDe(haz).toStdString());
        Rutinas::AbrirBase();
    }

    QTemporaryDir fuera; ///< on a disk with room
    DiscoChico disco;
    BaseDePrueba base;
};

TEST_F(DiscoLleno, NadaQuedaAMedias)
{
    const QString lleno = QStringLiteral("61 El disco está lleno: ");
    const ClaveDDJJ clave{dePrueba::cuit, dePrueba::periodo, 0};
    llenarBase(6'000);
    QDir().mkpath(en("Copias"));
    QDir().mkpath(en("otra"));
    ASSERT_TRUE(QFile::copy(base.rutaBase(), en("otra/DBBrivo.mdb")));
    const qint64 largo = QFileInfo(base.rutaBase()).size();
    probar("backup", lleno, {{largo / 2, largo / 2}, {0, largo / 2}},
           [&]
           {
               Rutinas::CerrarBase();
               (void)resguardar(base.rutaBase(), prepararCopia(en("Copias/1")));
           });
    // No room for the safety copy; then room for it, and none for the database.
    probar(
        "restore", lleno, {{largo / 2, largo / 2}, {largo * 3 / 2, largo / 2}},
        [&]
        {
            Rutinas::CerrarBase();
            restaurar(en("otra/DBBrivo.mdb"), base.rutaBase(), en("DBBrivo_Bak.mdb"));
        },
        "DBBrivo_Bak.mdb");
    probar("compaction", disco.textoDeLaBase(), {{largo / 2, largo / 2}, {0, largo / 2}},
           []
           {
               Rutinas::CerrarBase();
               Rutinas::CompactarBase();
           });
    const EntradaEmpleado empleado = entrada(dePrueba::cuil, 1000, true);
    probar("save", disco.textoDeLaBase(), {{0, 0}},
           [&] { EXPECT_TRUE(guardarEmpleado(base.conexion(), clave, empleado)); });

    QByteArray lineas;
    for (int i = 0; i < 5'000; ++i)
    {
        lineas += "27" + QByteArray::number(i).rightJustified(9, '0') + "Importado                     T02" +
                  QByteArray(13, ' ') + "001" + QByteArray(9, ' ') + "       1000       1000\r\n";
    }
    const QString nomina = fuera.filePath(QStringLiteral("nomina.txt"));
    escribirArchivo(nomina, lineas);
    probar("import", disco.textoDeLaBase(), {{largo / 4, largo + 4096}, {16 * 1024, largo + 4096}, {0, largo + 4096}},
           [&] { (void)importarNomina(base.conexion(), clave, nomina, FormatoDeNomina::AfipSijp); });
    EXPECT_EQ(11'001, cuantos("DDJJ_Empleados"));

    const DatosArchivoDDJJ datos{clave.cuit, clave.periodo, QStringLiteral("2009"), QStringLiteral("5"),
                                 QStringLiteral("0")};
    QString nombre;
    const auto grabar = [&] { GrabarArchivoDDJJ(base.conexion(), datos, nombre); };
    ASSERT_EQ("", fallaDe(grabar).toStdString());
    const QString escrito = rutaArchivoDDJJ(nombre);
    const qint64 bytes = QFileInfo(escrito).size();
    QFile::remove(escrito);
    // Half of the file, none of it, and all but its last two pages.
    probar("text file", lleno, {{bytes / 2, bytes / 2}, {0, 0}, {bytes - 8192, bytes - 8192}}, grabar,
           nombre.toLatin1().constData());
    // Saved over another file: the one that was there stays.
    const QString grande = fuera.filePath(QStringLiteral("grande.txt"));
    ASSERT_TRUE(QFile::copy(escrito, grande));
    escribirArchivo(escrito, "el que estaba");
    disco.llenar(bytes / 2, bytes / 2);
    EXPECT_TRUE(fallaDe([&] { Archivos::copiar(grande, escrito); }).startsWith(lleno));
    EXPECT_EQ("el que estaba", leerArchivo(escrito));
}
} // namespace
#endif
