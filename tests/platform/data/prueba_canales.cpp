#include "apoyo/archivos_de_prueba.h"
#include "errores.h"
#include "limite_de_archivos.h"
#include "platform/data/archivos.h"

#include <QStringList>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
class Canales : public testing::Test
{
protected:
    ~Canales() override { Archivos::cerrarTodos(); }

    [[nodiscard]] QString en(const char* nombre) const { return carpeta.filePath(QString::fromLatin1(nombre)); }
    void escribir(const QByteArray& bytes) const { escribirArchivo(archivo, bytes); }
    [[nodiscard]] QByteArray leer() const { return leerArchivo(archivo); }
    /// The lines of the file as the program reads them.
    [[nodiscard]] QByteArrayList lineas() const
    {
        QByteArrayList todas;
        Archivos::abrirParaLeer(1, archivo);
        QByteArrayView linea;
        while (Archivos::leerLinea(1, linea))
        {
            todas += linea.toByteArray();
        }
        EXPECT_FALSE(Archivos::leerLinea(1, linea));
        EXPECT_EQ(Archivos::largo(1), Archivos::posicion(1));
        Archivos::cerrar(1);
        return todas;
    }

    QTemporaryDir carpeta;
    QString archivo = carpeta.filePath(QStringLiteral("texto.txt"));
};
} // namespace

TEST_F(Canales, FinesDeLinea)
{
    struct Caso
    {
        QByteArray bytes;
        QByteArrayList lineas;
    };
    const Caso casos[] = {
        {"", {}},
        {"a", {"a"}},
        {"a\r\nb\r\n", {"a", "b"}},
        {"a\nb\n", {"a", "b"}},
        {"a\rb\r", {"a", "b"}},
        {"a\r\n\nb\r\rc", {"a", "", "b", "", "c"}},
        {"\r\n", {""}},
        {"\n\r", {"", ""}},
        {"a\n\r\nb", {"a", "", "b"}},
        {"a\r\r\nb", {"a", "", "b"}},
        {QByteArray("a\0b\xD1\r\n", 6), {QByteArray("a\0b\xD1", 4)}},
        {"a\x1A", {"a"}},
        {"a\r\n\x1A", {"a"}},
        {"\x1A", {}},
        {"a\x1A\x1A", {"a\x1A"}},
        {"a\x1A\r\n", {"a\x1A"}},
    };
    for (const Caso& caso : casos)
    {
        SCOPED_TRACE(caso.bytes.toPercentEncoding().constData());
        escribir(caso.bytes);
        EXPECT_EQ(caso.lineas, lineas());
    }
}

TEST_F(Canales, LosFinesCaenEnCualquierLugarDelBloque)
{
    // The block has 64 KiB: the end of a line falls before, on and behind its edge, and lines are longer than it.
    for (const QByteArray& fin : {QByteArray("\r\n"), QByteArray("\r"), QByteArray("\n")})
    {
        for (const int largo : {65533, 65534, 65535, 65536, 65537, 131071, 131072, 200000, 1048575})
        {
            const QByteArray primera(largo, 'x');
            escribir(primera + fin + "segunda" + fin + fin + "cuarta");
            EXPECT_EQ((QByteArrayList{primera, "segunda", "", "cuarta"}), lineas()) << largo << fin.toHex().constData();
        }
    }
}

TEST_F(Canales, UnaLineaSinFinFallaEnLugarDeLlenarLaMemoria)
{
    escribir("corta\r\n" + QByteArray(5 * 1024 * 1024, 'x'));
    Archivos::abrirParaLeer(1, archivo);
    QByteArrayView linea;
    EXPECT_TRUE(Archivos::leerLinea(1, linea));
    EXPECT_EQ(14, numeroDe([&] { return Archivos::leerLinea(1, linea); }));
    EXPECT_LE(Archivos::posicion(1), 2 * 1024 * 1024);
    escribir(QByteArray(1048576, 'x'));
    Archivos::abrirParaLeer(2, archivo);
    EXPECT_EQ(14, numeroDe([&] { return Archivos::leerLinea(2, linea); }));
}

TEST_F(Canales, EscribeEnWindows1252ConCrLf)
{
    Archivos::abrirParaEscribir(1, archivo);
    Archivos::imprimir(1, QStringLiteral("Ñandú €日"));
    Archivos::imprimir(1, QByteArrayView("ya\xD1"));
    Archivos::imprimir(1, QStringView());
    EXPECT_EQ(8 + 2 + 3 + 2 + 2, Archivos::posicion(1));
    Archivos::cerrar(1);
    EXPECT_EQ("\xD1"
              "and\xFA \x80?\r\nya\xD1\r\n\r\n",
              leer());

    QByteArray mucho; // more than one block
    Archivos::abrirParaEscribir(1, archivo);
    for (int i = 0; i < 3000; ++i)
    {
        const QByteArray linea = QByteArray::number(i) + QByteArray(60, '.');
        Archivos::imprimir(1, QByteArrayView(linea));
        mucho += linea + "\r\n";
    }
    Archivos::cerrar(1);
    EXPECT_EQ(mucho, leer()) << "the old contents are gone";
}

TEST_F(Canales, ElNumeroQuedaAbiertoHastaQueSeCierra)
{
    escribir("a\r\n");
    Archivos::abrirParaLeer(1, archivo);
    EXPECT_TRUE(Archivos::abierto(1));
    EXPECT_EQ(55, numeroDe([&] { Archivos::abrirParaLeer(1, archivo); }));
    EXPECT_EQ(55, numeroDe([&] { Archivos::abrirParaEscribir(1, en("otro")); }));
    EXPECT_FALSE(Archivos::existe(en("otro")));
    QByteArrayView linea;
    EXPECT_TRUE(Archivos::leerLinea(1, linea)); // what is open stays as it was
    Archivos::abrirParaLeer(511, archivo);
    EXPECT_EQ(54, numeroDe([&] { Archivos::imprimir(1, QStringLiteral("x")); }));
    Archivos::cerrar(1);
    Archivos::cerrar(1);
    EXPECT_FALSE(Archivos::abierto(1));
    EXPECT_EQ(52, numeroDe([&] { return Archivos::leerLinea(1, linea); }));
    EXPECT_EQ(52, numeroDe([&] { Archivos::imprimir(1, QStringLiteral("x")); }));
    EXPECT_EQ(52, numeroDe([&] { return Archivos::posicion(1); }));
    EXPECT_EQ(52, numeroDe([&] { Archivos::abrirParaLeer(0, archivo); }));
    EXPECT_EQ(52, numeroDe([&] { Archivos::abrirParaLeer(512, archivo); }));
    Archivos::abrirParaEscribir(1, en("otro"));
    EXPECT_EQ(54, numeroDe([&] { return Archivos::leerLinea(1, linea); }));
    Archivos::cerrarTodos();
    EXPECT_FALSE(Archivos::abierto(1) || Archivos::abierto(511));
}

TEST_F(Canales, LoQueNoSePuedeAbrirDejaElNumeroLibre)
{
    escribir("");
    EXPECT_EQ(53, numeroDe([&] { Archivos::abrirParaLeer(1, en("falta")); }));
    EXPECT_EQ(76, numeroDe([&] { Archivos::abrirParaLeer(1, en("falta/falta")); }));
    EXPECT_EQ(76, numeroDe([&] { Archivos::abrirParaEscribir(1, en("falta/falta")); }));
    EXPECT_EQ(76, numeroDe([&] { Archivos::abrirParaEscribir(1, en("texto.txt/falta")); }));
    EXPECT_EQ(75, numeroDe([&] { Archivos::abrirParaLeer(1, carpeta.path()); }));
    EXPECT_EQ(75, numeroDe([&] { Archivos::abrirParaEscribir(1, carpeta.path()); }));
    EXPECT_FALSE(Archivos::abierto(1));
}

#ifndef _WIN32
TEST_F(Canales, DiscoLleno)
{
    const QString lleno = QStringLiteral("/dev/full");
    Archivos::abrirParaEscribir(1, lleno);
    Archivos::imprimir(1, QStringLiteral("poco"));
    EXPECT_EQ(61, numeroDe([] { Archivos::cerrar(1); }));
    EXPECT_FALSE(Archivos::abierto(1)) << "closed even though the last write failed";

    Archivos::abrirParaEscribir(1, lleno);
    const QByteArray mucho(100'000, 'x');
    EXPECT_EQ(61, numeroDe([&] { Archivos::imprimir(1, QByteArrayView(mucho)); }));
    EXPECT_TRUE(Archivos::abierto(1));
    EXPECT_EQ(0, numeroDe([] { Archivos::cerrar(1); })) << "told once";

    Archivos::abrirParaEscribir(1, lleno);
    Archivos::imprimir(1, QStringLiteral("poco"));
    EXPECT_EQ(61, numeroDe([] { Archivos::cerrarTodos(); }));
    EXPECT_FALSE(Archivos::abierto(1));

    // A disk with room for some of the last block takes that much, and only then tells.
    Archivos::abrirParaEscribir(1, archivo);
    Archivos::imprimir(1, QByteArrayView(mucho));
    Archivos::imprimir(1, QStringLiteral("la última línea"));
    const LimiteDeArchivos limite(100'007);
    EXPECT_EQ(61, numeroDe([] { Archivos::cerrar(1); }));
    EXPECT_EQ(100'007, leer().size());
}
#endif
