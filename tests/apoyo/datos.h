#pragma once

#include "base/db/insertar.h"
#include "base/error_de_ejecucion.h"
#include "core/rutinas.h"

#include <QDir>
#include <functional>
#include <string>
#include <vector>

/// Adds a row to `tabla` and gives its automatic number. What is put into a CURRENCY column as a text is an amount as
/// typed: "1000" or "12,50". The columns that are not named get what the table of default rows has for them
/// (datos.cpp): the company of the tests, its month, a complete employee, whose Sueldo is Imponible plus Acuerdo unless
/// told.
qint64 poner(Conexion& conexion, const char* tabla, const ValoresDeColumnas& valores = {});
inline qint64 poner(const char* tabla, const ValoresDeColumnas& valores = {})
{
    return poner(Rutinas::Conexion, tabla, valores);
}

/// A row as "a|b", each value as it is stored and a null as "Null". Throws when two columns share a name.
[[nodiscard]] std::string filaDe(const Fila& fila);
/// "a|b;c|d"
[[nodiscard]] std::string juntas(const std::vector<std::string>& textos);
/// What a query gives, its rows joined.
template <class... A>
[[nodiscard]] std::string filas(Conexion& conexion, std::string_view sql, const A&... valores)
{
    return juntas(conexion.lista(sql, filaDe, valores...));
}
template <class... A>
[[nodiscard]] std::string filas(std::string_view sql, const A&... valores)
{
    return filas(Rutinas::Conexion, sql, valores...);
}

/// How many rows: "DDJJ WHERE Secuencia = ?".
template <class... A>
[[nodiscard]] qint64 cuantos(Conexion& conexion, const std::string& desde, const A&... valores)
{
    const auto leer = [](const Fila& fila) { return fila.entero("N"); };
    return conexion.primera("SELECT count(*) AS N FROM " + desde, leer, valores...);
}
template <class... A>
[[nodiscard]] qint64 cuantos(const std::string& desde, const A&... valores)
{
    return cuantos(Rutinas::Conexion, desde, valores...);
}

/// What `accion` throws as "number description", its paths with "/" on every system, empty when it throws nothing.
template <class Accion>
[[nodiscard]] QString fallaDe(Accion accion)
{
    try
    {
        static_cast<void>(accion()); // with or without a result
        return {};
    }
    catch (const ErrorDeEjecucion& error)
    {
        return QString::number(error.numero()) + u' ' + QDir::fromNativeSeparators(error.descripcion());
    }
}
/// Its number alone, 0 when it throws none.
template <class Accion>
[[nodiscard]] int numeroDe(Accion accion)
{
    return fallaDe(accion).section(u' ', 0, 0).toInt();
}

/// What `regla` asks of the database outside its one transaction: each statement that ran outside any, and the BEGIN of
/// each transaction after the first, joined by ";". A rule that reads and writes must give "", or another desk can
/// write in between:
///     EXPECT_EQ("", fueraDeTransaccion([&] { copiarNomina(conexion, de, a); }));
/// Opens Rutinas::Conexion anew, so that statements prepared before it are not to be used after it.
[[nodiscard]] std::string fueraDeTransaccion(const std::function<void()>& regla);
