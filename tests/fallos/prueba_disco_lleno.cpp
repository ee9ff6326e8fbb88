// A disk that fills up in the middle of a backup, a restore, a compaction, an import, a save and the writing of a text
// file: each ends in the error told, the database is as it was, nothing half made is left, and the same goes well once
// there is room. A disk of a few MiB is mounted for this process alone; where that is not allowed, no file grows past a
// limit, which fails at the same writes with another number of the system.
#ifndef _WIN32
#include "apoyo/archivos_de_prueba.h"
#include "exchange/archivo_ddjj.h"
#include "exchange/archivo_uno.h"
#include "exchange/importacion.h"
#include "fallos/base_grande.h"
#include "maintenance/respaldo.h"
#include "platform/data/archivos.h"

#include <QDir>
#include <QFile>
#include <QStorageInfo>
#include <csignal>
#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>

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
        ::getrlimit(RLIMIT_FSIZE, &m_limite);
        std::signal(SIGXFSZ, SIG_IGN);
        qputenv("TMPDIR", lugar());
    }
    ~DiscoChico()
    {
        vaciar();
        m_temporal.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_temporal);
        ::umount2(lugar().constData(), MNT_DETACH);
    }
    DiscoChico(const DiscoChico&) = delete;
    DiscoChico& operator=(const DiscoChico&) = delete;

    /// Leaves about `libres` bytes; with no disk of its own no file grows past `tope`.
    void llenar(qint64 libres, qint64 tope)
    {
        vaciar();
        if (m_montado)
        {
            const qint64 sobran = QStorageInfo(m_lugar.path()).bytesAvailable() - libres;
            escribirArchivo(relleno(), QByteArray(sobran, 'x'));
            return;
        }
        const rlimit nuevo{static_cast<rlim_t>(tope), m_limite.rlim_max};
        ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &nuevo));
    }
    void vaciar()
    {
        ::setrlimit(RLIMIT_FSIZE, &m_limite);
        QFile::remove(relleno());
    }
    /// What the database says of a write that found no room.
    [[nodiscard]] QString textoDeLaBase() const
    {
        return m_montado ? QStringLiteral("El disco está lleno")
                         : QStringLiteral("Error al leer o escribir la base de datos en el disco");
    }

private:
    [[nodiscard]] QByteArray lugar() const { return QFile::encodeName(m_lugar.path()); }
    [[nodiscard]] QString relleno() const { return m_lugar.filePath(QStringLiteral("relleno")); }
    QTemporaryDir m_lugar;
    QByteArray m_temporal = qgetenv("TMPDIR");
    bool m_montado = false;
    rlimit m_limite{};
};

/// What failed tells; "" when it went well. A failed import leaves its file open, as told.
QString fallaDe(const std::function<void()>& haz)
{
    try
    {
        haz();
        return {};
    }
    catch (const ErrorDeEjecucion& error)
    {
        ArchivoUno::cerrar();
        return error.descripcion();
    }
}

class DiscoLleno : public testing::Test
{
protected:
    DiscoLleno()
    {
        QDir(en(QString())).mkpath(QStringLiteral("Copias"));
        QDir(en(QString())).mkpath(QStringLiteral("otra"));
        constexpr int empleados = 6'000;
        llenarBase(empleados);
        largo = QFileInfo(base.rutaBase()).size();
        EXPECT_TRUE(QFile::copy(base.rutaBase(), en(QStringLiteral("otra/DBBrivo.mdb"))));
    }
    [[nodiscard]] QString en(const QString& nombre) const { return base.ruta(nombre); }
    /// Every file but the lock, which stays open.
    [[nodiscard]] QStringList archivos() const
    {
        QStringList todos = QDir(en(QString())).entryList(QDir::Files | QDir::Hidden);
        todos += QDir(en(QStringLiteral("Copias/1"))).entryList(QDir::Files | QDir::Hidden);
        todos.removeAll(QStringLiteral("DBBrivo.ldb"));
        return todos;
    }
    /// `haz` fails with `texto` as often as there is a number of free bytes, then it goes well. What a failed one may
    /// leave is `queda`.
    void probar(const char* que, const std::function<void()>& haz, const QString& texto,
                const std::vector<qint64>& libres, qint64 tope, const QString& queda = {})
    {
        SCOPED_TRACE(que);
        const std::string contenido = contenidoDe();
        const QStringList antes = archivos();
        for (const qint64 bytes : libres)
        {
            disco.llenar(bytes, tope);
            EXPECT_TRUE(fallaDe(haz).startsWith(texto)) << bytes << ' ' << fallaDe(haz).toStdString();
            Rutinas::AbrirBase();
            QStringList ahora = archivos();
            ahora.removeAll(queda);
            EXPECT_EQ(antes, ahora);
            EXPECT_EQ(contenido, contenidoDe());
        }
        disco.vaciar();
        EXPECT_EQ("", fallaDe(haz).toStdString());
        Rutinas::AbrirBase();
    }

    QTemporaryDir fuera; ///< on a disk with room
    DiscoChico disco;
    BaseDePrueba base;
    const ClaveDDJJ clave{dePrueba::cuit, dePrueba::periodo, 0};
    const QString deArchivo = QStringLiteral("El disco está lleno: ");
    qint64 largo = 0;
};

TEST_F(DiscoLleno, AlCopiarLaBase)
{
    const auto cerrada = [](const std::function<void()>& haz)
    {
        return [haz]
        {
            Rutinas::CerrarBase();
            haz();
        };
    };
    probar("backup", cerrada([this] { resguardar(base.rutaBase(), prepararCopia(en(QStringLiteral("Copias/1")))); }),
           deArchivo, {largo / 2, 0}, largo / 2);
    // No room for the safety copy; then room for it, and none for the database.
    probar("restore",
           cerrada(
               [this] {
                   restaurar(en(QStringLiteral("otra/DBBrivo.mdb")), base.rutaBase(),
                             en(QStringLiteral("DBBrivo_Bak.mdb")));
               }),
           deArchivo, {largo / 2, largo * 3 / 2}, largo / 2, QStringLiteral("DBBrivo_Bak.mdb"));
    probar("compaction", cerrada([] { Rutinas::CompactarBase(); }), disco.textoDeLaBase(), {largo / 2, 0}, largo / 2);
}

TEST_F(DiscoLleno, AlImportarYAlGuardar)
{
    QByteArray lineas;
    constexpr int cantidad = 5'000;
    for (int i = 0; i < cantidad; ++i)
    {
        lineas += "27" + QByteArray::number(i).rightJustified(9, '0') + "Importado                     T02" +
                  QByteArray(13, ' ') + "001" + QByteArray(9, ' ') + "       1000       1000\r\n";
    }
    const QString nomina = fuera.filePath(QStringLiteral("nomina.txt"));
    escribirArchivo(nomina, lineas);
    probar(
        "save", [&] { EXPECT_TRUE(guardarEmpleado(base.conexion(), clave, entrada(dePrueba::cuil, 1000, true))); },
        disco.textoDeLaBase(), {0}, 0);
    probar(
        "import", [&] { (void)importarNomina(base.conexion(), clave, nomina, FormatoDeNomina::AfipSijp); },
        disco.textoDeLaBase(), {largo / 4, 16 * 1024, 0}, largo + 4096);
    EXPECT_EQ(cuantos("DDJJ_Empleados"), 6'000 + 1 + cantidad);
}

TEST_F(DiscoLleno, AlEscribirUnArchivoDeTexto)
{
    const DatosArchivoDDJJ datos{clave.cuit, clave.periodo, QStringLiteral("2009"), QStringLiteral("5"),
                                 QStringLiteral("0")};
    QString nombre;
    // Half of the file, none of it, and all but the end of its last block.
    const auto grabar = [&] { GrabarArchivoDDJJ(base.conexion(), datos, nombre); };
    ASSERT_EQ("", fallaDe(grabar).toStdString());
    const QString escrito = rutaArchivoDDJJ(nombre);
    const qint64 bytes = QFileInfo(escrito).size();
    const QString destino = en(QStringLiteral("otro.txt"));
    for (const qint64 libres : {bytes / 2, qint64{0}, bytes - 100})
    {
        QFile::remove(escrito);
        disco.llenar(libres, libres);
        EXPECT_TRUE(fallaDe(grabar).startsWith(deArchivo)) << libres;
        QFile::remove(escrito);
    }
    disco.vaciar();
    ASSERT_EQ("", fallaDe(grabar).toStdString());
    // Saved as another file, on the disk with no room: the file that was there stays.
    const QString grande = fuera.filePath(QStringLiteral("grande.txt"));
    ASSERT_TRUE(QFile::rename(escrito, grande));
    escribirArchivo(destino, "el que estaba");
    disco.llenar(bytes / 2, bytes / 2);
    EXPECT_TRUE(fallaDe([&] { Archivos::copiar(grande, destino); }).startsWith(deArchivo));
    EXPECT_EQ("el que estaba", leerArchivo(destino));
}
} // namespace
#endif
