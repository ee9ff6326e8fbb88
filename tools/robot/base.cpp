#include "base.h"

#include "base/db/conexion.h"
#include "falla.h"

#include <QStringList>
#include <memory>
#include <sqlite3.h>
#include <string_view>

namespace
{
constexpr int ocupadaEnMs = 10'000;

int comparar(void*, int largoA, const void* a, int largoB, const void* b)
{
    return compararEspanol({static_cast<const char*>(a), static_cast<std::size_t>(largoA)},
                           {static_cast<const char*>(b), static_cast<std::size_t>(largoB)});
}

/// A connection of its own, which knows nothing of the program's.
class Base
{
public:
    /// `queja` is how a failure is told, with "%1" for SQLite's own words.
    Base(const QString& ruta, int modo, const char* queja)
        : m_queja(queja)
    {
        sqlite3* abierta = nullptr;
        const int codigo = sqlite3_open_v2(ruta.toUtf8().constData(), &abierta, modo, nullptr);
        m_base.reset(abierta);
        exigir(codigo);
        sqlite3_trace_v2(abierta, 0, nullptr, nullptr); // what the script asks is none of the program's
        sqlite3_busy_timeout(abierta, ocupadaEnMs);
        // Text columns are declared with the program's own order of names.
        exigir(sqlite3_create_collation(abierta, "espanol", SQLITE_UTF8, nullptr, comparar));
    }
    /// Runs the statements and gives the rows as texts, their values joined by "|".
    QStringList correr(const std::string& sql)
    {
        QStringList filas;
        exigir(sqlite3_exec(m_base.get(), sql.c_str(), agregar, &filas, nullptr));
        return filas;
    }

private:
    struct Cierra
    {
        void operator()(sqlite3* base) const { sqlite3_close(base); }
    };
    static int agregar(void* filas, int cantidad, char** valores, char** /*nombres*/)
    {
        QStringList fila;
        for (int i = 0; i < cantidad; ++i)
        {
            fila += valores[i] == nullptr ? QStringLiteral("Null") : QString::fromUtf8(valores[i]);
        }
        *static_cast<QStringList*>(filas) += fila.join(u'|');
        return 0;
    }
    void exigir(int codigo) const
    {
        if (codigo != SQLITE_OK)
        {
            throw Falla(m_queja, sqlite3_errmsg(m_base.get()));
        }
    }
    const char* m_queja;
    std::unique_ptr<sqlite3, Cierra> m_base;
};
} // namespace

QString consultarBase(const QString& ruta, const QString& sql)
{
    return Base(ruta, SQLITE_OPEN_READONLY, "la consulta falla: %1").correr(sql.toStdString()).join(u';');
}

void ejecutarEnBase(const QString& ruta, const std::string& sql)
{
    Base base(ruta, SQLITE_OPEN_READWRITE, "la base no admite las sentencias: %1");
    base.correr("BEGIN;" + sql + "\n;COMMIT"); // what fails is undone when it closes
}
