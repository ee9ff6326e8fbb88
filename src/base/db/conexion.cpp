#include "base/db/conexion.h"

#include "base/db/espanol.h"
#include "base/db/latido.h"
#include "base/db/preparada.h"
#include "base/files/archivos.h"
#include "base/files/archivos_de_base.h"
#include "base/files/candado.h"
#include "base/files/sistema.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <unordered_map>

namespace
{
constexpr int idDePrograma = 0x416C7456; // "AltV", in the file's head

std::string comoUtf8(const QString& ruta)
{
    return sistema::completa(Archivos::detrasDeEnlaces(ruta)).toStdString();
}

/// Reads the file's head and its tables, which rolls back what a killed process left half done.
void exigirPropia(detalle::Base& base, const QString& ruta)
{
    const std::string hallado = base.ejecutar("PRAGMA application_id");
    base.ejecutar("SELECT count(*) FROM sqlite_schema");
    if (hallado != std::to_string(idDePrograma))
    {
        throw ErrorDeEjecucion(SQLITE_NOTADB, QStringLiteral("El archivo no es una base de datos de este programa"));
    }
    if (base.ejecutar("PRAGMA journal_mode") == "wal")
    {
        return; // part of it lies in a file of its own
    }
    // SQLite itself sees that pages are missing, but not that the last one is short.
    const qint64 paginas = std::stoll(base.ejecutar("PRAGMA page_count"));
    if (QFileInfo(ruta).size() < paginas * std::stoll(base.ejecutar("PRAGMA page_size")))
    {
        detalle::fallarBase(SQLITE_CORRUPT);
    }
}

/// Opens an existing database of this program and reads it once.
std::unique_ptr<detalle::Base> abrirBase(const QString& ruta, int modo)
{
    if (!QFileInfo(ruta).isFile())
    {
        throw ErrorDeEjecucion(SQLITE_CANTOPEN,
                               QStringLiteral("No se encontró la base de datos: ") + QDir::toNativeSeparators(ruta));
    }
    auto base = std::make_unique<detalle::Base>(comoUtf8(ruta), modo);
    sqlite3* manija = base->getHandle();
    detalle::esperarAOtrasCopias(manija);
    sqlite3_extended_result_codes(manija, 1);
    if (sqlite3_db_config(manija, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr) != SQLITE_OK ||
        sqlite3_db_config(manija, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr) != SQLITE_OK)
    {
        detalle::fallarBase(manija);
    }
    detalle::registrarEspanol(manija);
    exigirPropia(*base, ruta);
    return base;
}

} // namespace

struct Conexion::Interno
{
    std::optional<Candado> candado;
    std::unique_ptr<detalle::Base> base;
    std::unordered_map<std::string_view, std::shared_ptr<detalle::Preparada>> preparadas; // keys lie in the values

    Interno() = default;
    Interno(const Interno&) = delete;
    Interno& operator=(const Interno&) = delete;
    ~Interno()
    {
        for (auto& [texto, preparada] : preparadas)
        {
            preparada->cerrar();
        }
    }

    std::shared_ptr<detalle::Preparada> preparar(std::string_view sql)
    {
        auto lugar = preparadas.find(sql);
        if (lugar == preparadas.end())
        {
            auto nueva = std::make_shared<detalle::Preparada>(base->getHandle(), sql);
            lugar = preparadas.emplace(nueva->sql, nueva).first;
        }
        return lugar->second;
    }
};

Latido::Latido(sqlite3* base, std::function<void()> aviso)
    : m_base(base)
    , m_aviso(std::move(aviso))
{
    constexpr int instrucciones = 20'000; // well under a hundredth of a second
    sqlite3_progress_handler(m_base, instrucciones, latir, this);
}

Latido::Latido(const Conexion& conexion, std::function<void()> aviso)
    : Latido(conexion.interno().base->getHandle(), std::move(aviso))
{
}

Latido::~Latido()
{
    sqlite3_progress_handler(m_base, 0, nullptr, nullptr);
}

int Latido::latir(void* este)
{
    auto* latido = static_cast<Latido*>(este);
    try
    {
        latido->m_aviso();
        return 0;
    }
    catch (...)
    {
        latido->m_motivo = std::current_exception();
        return 1;
    }
}

void Latido::relanzar() const
{
    if (m_motivo)
    {
        std::rethrow_exception(m_motivo);
    }
}

Conexion::Conexion() = default;
Conexion::~Conexion() = default;
Conexion::Conexion(Conexion&&) noexcept = default;
Conexion& Conexion::operator=(Conexion&&) noexcept = default;

void Conexion::abrir(const QString& ruta, Modo modo)
{
    cerrar();
    auto nuevo = std::make_unique<Interno>();
    if (modo == Modo::SoloLectura)
    {
        nuevo->base = abrirBase(ruta, SQLITE_OPEN_READONLY);
    }
    else
    {
        if (QFileInfo(ruta).isFile()) // no lock file beside nothing
        {
            nuevo->candado.emplace(archivoDeCandado(ruta), Candado::Modo::Compartido);
        }
        nuevo->base = abrirBase(ruta, SQLITE_OPEN_READWRITE);
        if (nuevo->base->ejecutar("PRAGMA journal_mode=DELETE") != "delete")
        {
            detalle::fallarBase(SQLITE_PROTOCOL);
        }
        nuevo->base->ejecutar("PRAGMA synchronous=FULL");
        // An import stays in memory until it is confirmed, so that other copies can read meanwhile.
        nuevo->base->ejecutar("PRAGMA cache_size=-32768");
    }
    m_interno = std::move(nuevo);
}

void Conexion::cerrar()
{
    m_interno.reset();
}

bool Conexion::abierta() const
{
    return m_interno != nullptr;
}

Conexion::Interno& Conexion::interno() const
{
    if (!m_interno)
    {
        throw ErrorDeEjecucion(ErrorDeEjecucion::ObjetoNoEstablecido);
    }
    return *m_interno;
}

Sentencia Conexion::preparar(std::string_view sql)
{
    return Sentencia(interno().preparar(sql));
}

qint64 Conexion::ultimoNumero() const
{
    return sqlite3_last_insert_rowid(interno().base->getHandle());
}

bool Conexion::enTransaccion() const
{
    return sqlite3_get_autocommit(interno().base->getHandle()) == 0;
}

void Conexion::compactar(const QString& ruta, const QString& temporal, const Aviso& aviso)
{
    const Candado solo(archivoDeCandado(ruta), Candado::Modo::Exclusivo);
    Archivos::Parte parte(ruta, temporal);
    const qint64 total = QFileInfo(ruta).size();
    {
        const auto base = abrirBase(ruta, SQLITE_OPEN_READWRITE);
        const std::string destino = comoUtf8(parte.ruta());
        const Latido latido(base->getHandle(), [&] { aviso ? aviso(QFileInfo(parte.ruta()).size(), total) : void(); });
        latido.durante([&] { base->ejecutar("VACUUM INTO ?", {Valor(std::string_view(destino))}); });
    }
    comprobar(parte.ruta(), aviso); // the old file is closed: an open one could not be replaced everywhere
    parte.colocar();
}

void Conexion::recuperar(const QString& ruta)
{
    if (!QFileInfo::exists(ruta))
    {
        return;
    }
    try
    {
        const auto base = abrirBase(ruta, SQLITE_OPEN_READWRITE); // opening reads, and reading undoes
        base->ejecutar("PRAGMA journal_mode=DELETE");
    }
    catch (const ErrorDeEjecucion& error)
    {
        const int codigo = error.numero() & 0xFF;
        if (codigo != SQLITE_NOTADB && codigo != SQLITE_CORRUPT)
        {
            throw;
        }
    }
}

void Conexion::comprobar(const QString& ruta, const Aviso& aviso)
{
    const auto base = abrirBase(ruta, SQLITE_OPEN_READONLY);
    const Latido latido(base->getHandle(), [&] { aviso ? aviso(0, 0) : void(); });
    const std::string hallado = latido.durante([&] { return base->ejecutar("PRAGMA integrity_check(1)"); });
    if (hallado != "ok")
    {
        throw ErrorDeEjecucion(SQLITE_CORRUPT, QStringLiteral("La base de datos está dañada (") +
                                                   detalle::razonDeRevision(QString::fromStdString(hallado)) +
                                                   QStringLiteral(")"));
    }
}

void Conexion::crear(const QString& ruta)
{
    if (QFileInfo::exists(ruta))
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::SinAcceso, QDir::toNativeSeparators(ruta));
    }
    detalle::Base(comoUtf8(ruta), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)
        .ejecutar("PRAGMA application_id=" + std::to_string(idDePrograma));
}

Transaccion::Transaccion(Conexion& conexion)
    : m_conexion(conexion)
{
    if (conexion.enTransaccion())
    {
        throw ErrorDeEjecucion(SQLITE_ERROR, QStringLiteral("Ya hay una transacción en curso"));
    }
    conexion.ejecutar("BEGIN IMMEDIATE");
}

Transaccion::~Transaccion()
{
    try
    {
        if (m_abierta && m_conexion.abierta() && m_conexion.enTransaccion()) // SQLite undoes some failures by itself
        {
            m_conexion.ejecutar("ROLLBACK");
        }
    }
    catch (...) // NOLINT(bugprone-empty-catch): nothing is left to undo, or the connection is gone
    {
    }
}

void Transaccion::confirmar()
{
    m_conexion.ejecutar("COMMIT");
    m_abierta = false;
}
