#pragma once

#include "base/aviso.h"
#include "base/error_de_ejecucion.h"
#include "base/numbers/moneda.h"

#include <QByteArray>
#include <QDate>
#include <QString>
#include <QStringList>
#include <QTime>
#include <chrono>
#include <concepts>
#include <functional>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

class Candado;
class Sentencia;

namespace detalle
{
struct Preparada;
struct Columnas;
} // namespace detalle

/// One value for a "?" of a statement. Text is bound without a copy: what it refers to must outlive the call.
class Valor
{
public:
    enum class Clase
    {
        Nulo,
        Entero,
        Texto,
    };
    Valor(std::nullptr_t) {}
    Valor(std::nullopt_t) {}
    Valor(bool si)
        : m_clase(Clase::Entero)
        , m_entero(si ? 1 : 0)
    {
    }
    /// Any other whole number; one past 64 bits with sign does not arise in this program.
    template <std::integral T>
    Valor(T n)
        : m_clase(Clase::Entero)
        , m_entero(static_cast<qint64>(n))
    {
    }
    Valor(Moneda m)
        : m_clase(Clase::Entero)
        , m_entero(m.diezMilesimos())
    {
    }
    Valor(const QString& texto);
    Valor(std::string_view utf8)
        : m_clase(Clase::Texto)
        , m_vista(utf8)
    {
    }
    Valor(const char* utf8)
        : Valor(std::string_view(utf8))
    {
    }
    /// Stored YYYY-MM-DD; an invalid date is Null.
    Valor(QDate fecha);
    /// Stored HH:MM:SS; an invalid time is Null.
    Valor(QTime hora);
    template <class T>
    Valor(const std::optional<T>& quiza)
        : Valor(quiza ? Valor(*quiza) : Valor(nullptr))
    {
    }

    [[nodiscard]] Clase clase() const { return m_clase; }
    [[nodiscard]] qint64 entero() const { return m_entero; }
    [[nodiscard]] std::string_view texto() const
    {
        return m_propio.isNull() ? m_vista
                                 : std::string_view(m_propio.constData(), static_cast<std::size_t>(m_propio.size()));
    }

private:
    Clase m_clase = Clase::Nulo;
    qint64 m_entero = 0;
    std::string_view m_vista;
    QByteArray m_propio;
};

/// One row, good during the call of its visitor only. Columns are found without regard to case, once a statement; an
/// unknown name throws ErrorDeEjecucion 3265.
class Fila
{
public:
    [[nodiscard]] bool esNulo(const char* columna) const;
    /// Throws ErrorDeEjecucion 94 for a Null and 13 for what is no whole number.
    [[nodiscard]] qint64 entero(const char* columna) const;
    [[nodiscard]] std::optional<qint64> enteroONulo(const char* columna) const;
    /// Text of the column; a Null gives an empty text, a number its digits.
    [[nodiscard]] QString texto(const char* columna) const;
    [[nodiscard]] std::optional<QString> textoONulo(const char* columna) const;
    /// The same as UTF-8, without a copy; throws 13 for a number.
    [[nodiscard]] std::string_view utf8(const char* columna) const;
    /// An invalid date for a Null. Throws 13 when the column holds no date.
    [[nodiscard]] QDate fecha(const char* columna) const;
    [[nodiscard]] QTime hora(const char* columna) const;
    /// Throws 94 for a Null.
    [[nodiscard]] Moneda moneda(const char* columna) const;
    /// A Null reads as false.
    [[nodiscard]] bool si(const char* columna) const;
    [[nodiscard]] int columnas() const;
    /// Name of column `numero`, from 0, as the statement gives it.
    [[nodiscard]] const char* nombre(int numero) const;

private:
    friend class Sentencia;
    struct Celda
    {
        Valor::Clase clase = Valor::Clase::Nulo;
        qint64 entero = 0;
        std::string_view texto;
    };
    [[nodiscard]] Celda celda(const char* columna) const;
    const detalle::Columnas* m_columnas = nullptr;
    detalle::Preparada* m_preparada = nullptr;
};

/// A prepared statement of a Conexion, cheap to copy; for loops that must not look it up by its text each time.
/// Not to be used after its Conexion is closed.
class Sentencia
{
public:
    /// Runs it; gives the number of rows changed.
    template <class... A>
    int ejecutar(const A&... valores)
    {
        const Valor lista[] = {Valor(valores)..., Valor(nullptr)};
        return ejecutarCon(lista, sizeof...(A));
    }
    /// Is there a row?
    template <class... A>
    [[nodiscard]] bool hay(const A&... valores)
    {
        const Valor lista[] = {Valor(valores)..., Valor(nullptr)};
        return recorrerCon(lista, sizeof...(A), [](const Fila&) { return false; });
    }
    /// Calls visitante(const Fila&) for each row; a visitor that returns false stops. True when there was a row.
    template <class V, class... A>
    bool recorrer(V&& visitante, const A&... valores)
    {
        const Valor lista[] = {Valor(valores)..., Valor(nullptr)};
        return recorrerCon(lista, sizeof...(A),
                           [&](const Fila& fila)
                           {
                               if constexpr (std::is_same_v<std::invoke_result_t<V&, const Fila&>, bool>)
                               {
                                   return visitante(fila);
                               }
                               else
                               {
                                   visitante(fila);
                                   return true;
                               }
                           });
    }
    /// What `leer`(const Fila&) makes of the first row; nothing when there is none.
    template <class L, class... A>
    [[nodiscard]] auto una(L&& leer, const A&... valores) -> std::optional<std::invoke_result_t<L&, const Fila&>>
    {
        std::optional<std::invoke_result_t<L&, const Fila&>> hallada;
        recorrer(
            [&](const Fila& fila)
            {
                hallada.emplace(leer(fila));
                return false;
            },
            valores...);
        return hallada;
    }
    /// What `leer`(const Fila&) makes of the first row; throws ErrorDeEjecucion 3021 when there is none.
    template <class L, class... A>
    [[nodiscard]] auto primera(L&& leer, const A&... valores)
    {
        auto hallada = una(leer, valores...);
        if (!hallada)
        {
            throw ErrorDeEjecucion(ErrorDeEjecucion::SinRegistro);
        }
        return *std::move(hallada);
    }
    /// What `leer`(const Fila&) makes of each row, in the order of the query.
    template <class L, class... A>
    [[nodiscard]] auto lista(L&& leer, const A&... valores) -> std::vector<std::invoke_result_t<L&, const Fila&>>
    {
        std::vector<std::invoke_result_t<L&, const Fila&>> todas;
        recorrer([&](const Fila& fila) { todas.push_back(leer(fila)); }, valores...);
        return todas;
    }
    /// The forms for a list of values made at run time.
    template <class L>
    [[nodiscard]] auto listaCon(const std::vector<Valor>& valores, L&& leer)
    {
        std::vector<std::invoke_result_t<L&, const Fila&>> todas;
        recorrerCon(valores.data(), valores.size(),
                    [&](const Fila& fila)
                    {
                        todas.push_back(leer(fila));
                        return true;
                    });
        return todas;
    }
    int ejecutarCon(const Valor* valores, std::size_t cantidad);
    bool recorrerCon(const Valor* valores, std::size_t cantidad, const std::function<bool(const Fila&)>& visitante);

private:
    friend class Conexion;
    explicit Sentencia(std::shared_ptr<detalle::Preparada> preparada)
        : m_preparada(std::move(preparada))
    {
    }
    std::shared_ptr<detalle::Preparada> m_preparada;
};

/// The database file. Statements are prepared once and kept by their text; values are bound to their "?".
/// Every failure is an ErrorDeEjecucion with SQLite's extended code; a closed Conexion fails with 91.
class Conexion
{
public:
    enum class Modo
    {
        LecturaEscritura,
        SoloLectura, ///< for the report engine: takes no lock of its own
    };
    Conexion();
    ~Conexion();
    Conexion(Conexion&&) noexcept;
    Conexion& operator=(Conexion&&) noexcept;

    /// Opens an existing file; never creates one. Takes the shared lock of running copies ("X.ldb" beside "X.mdb"),
    /// waits for other copies' writes as alEsperar() tells, and reads the file once, so that what is no database fails
    /// here.
    void abrir(const QString& ruta, Modo modo = Modo::LecturaEscritura);
    /// Closing twice is harmless.
    void cerrar();
    [[nodiscard]] bool abierta() const;

    [[nodiscard]] Sentencia preparar(std::string_view sql);
    template <class... A>
    int ejecutar(std::string_view sql, const A&... valores)
    {
        return preparar(sql).ejecutar(valores...);
    }
    template <class V, class... A>
    bool recorrer(std::string_view sql, V&& visitante, const A&... valores)
    {
        return preparar(sql).recorrer(std::forward<V>(visitante), valores...);
    }
    /// What `leer`(const Fila&) makes of the first row; nothing when there is none.
    template <class L, class... A>
    [[nodiscard]] auto una(std::string_view sql, L&& leer, const A&... valores)
    {
        return preparar(sql).una(leer, valores...);
    }
    /// What `leer`(const Fila&) makes of the first row; throws ErrorDeEjecucion 3021 when there is none.
    template <class L, class... A>
    [[nodiscard]] auto primera(std::string_view sql, L&& leer, const A&... valores)
    {
        return preparar(sql).primera(leer, valores...);
    }
    /// What `leer`(const Fila&) makes of each row, in the order of the query.
    template <class L, class... A>
    [[nodiscard]] auto lista(std::string_view sql, L&& leer, const A&... valores)
    {
        return preparar(sql).lista(leer, valores...);
    }
    template <class... A>
    [[nodiscard]] bool hay(std::string_view sql, const A&... valores)
    {
        return preparar(sql).hay(valores...);
    }
    [[nodiscard]] qint64 ultimoNumero() const; ///< automatic number of the last insert
    [[nodiscard]] bool enTransaccion() const;

    /// What the program does while a connection waits for another copy to let the file go, which it does for up to
    /// 10 s before it fails with an ErrorParaAvisar: called with true again and again during the wait, and once with
    /// false at its end. It uses no connection and throws nothing.
    static void alEsperar(std::function<void(bool espera)> aviso);
    /// While it lives all waits together last at most this long.
    class EsperaCorta
    {
    public:
        explicit EsperaCorta(std::chrono::milliseconds limite);
        ~EsperaCorta();
        EsperaCorta(const EsperaCorta&) = delete;
        EsperaCorta& operator=(const EsperaCorta&) = delete;
    };

    /// Rewrites the closed database compactly under the name `temporal` in its folder, checks the result and puts it in
    /// its place; a failure leaves the old one. `aviso` is told the bytes written, and an exception of it stops the
    /// work. Throws 70 when another copy of the program has it open, 75 when it may not be replaced.
    static void compactar(const QString& ruta, const QString& temporal, const Aviso& aviso = {});
    /// Throws unless the file opens as a database and passes its integrity check. `aviso` as in compactar().
    static void comprobar(const QString& ruta, const Aviso& aviso = {});
    /// Makes the closed file the whole database again: undoes what a process that died in a transaction left half done,
    /// and takes in what a write-ahead log holds. A damaged one stays as it is.
    static void recuperar(const QString& ruta);
    /// Creates an empty database file of this program; only the seed and tests do.
    static void crear(const QString& ruta);

private:
    friend class Transaccion;
    friend class Latido;
    struct Interno;
    Interno& interno() const;
    std::unique_ptr<Interno> m_interno;
};

/// BEGIN IMMEDIATE ... COMMIT; rolls back when it goes out of scope unconfirmed.
class Transaccion
{
public:
    explicit Transaccion(Conexion& conexion);
    ~Transaccion();
    Transaccion(const Transaccion&) = delete;
    Transaccion& operator=(const Transaccion&) = delete;
    void confirmar();

private:
    Conexion& m_conexion;
    bool m_abierta = true;
};

/// Columns and rules used by the schema, so that tests and tools can compare as the database does:
/// negative, 0 or positive; case ignored, accents after the bare letter, ñ between n and o.
[[nodiscard]] int compararEspanol(std::string_view a, std::string_view b);
