#include "nomina.h"

#include <array>
#include <cstdio>
#include <memory>
#include <stdexcept>

namespace
{
// In Windows-1252, as the files are: accents and ñ are one byte.
constexpr std::array apellidos = {"Ag\xFC"
                                  "ero",
                                  "Nu\xF1"
                                  "ez",
                                  "D'Angelo",
                                  "Quiroga",
                                  "P\xE1"
                                  "ez",
                                  "Villalba",
                                  "Sosa"};
constexpr std::array nombres = {"Juan Carlos",
                                "Mar\xED"
                                "a Luisa",
                                "Jos\xE9", "Ana",
                                "Ra\xFA"
                                "l Alberto"};

struct Cierra
{
    void operator()(std::FILE* archivo) const { std::fclose(archivo); }
};

std::unique_ptr<std::FILE, Cierra> crear(const QString& ruta)
{
    std::unique_ptr<std::FILE, Cierra> archivo(std::fopen(ruta.toStdString().c_str(), "wb"));
    if (!archivo)
    {
        throw std::runtime_error("fopen");
    }
    return archivo;
}

/// Pesos with cents, some of which fall on halves when a hundredth of them is taken.
int centavos(int i)
{
    return 90'000 + i * 37 % 110'000;
}

template <std::size_t N>
const char* uno(const std::array<const char*, N>& de, int i)
{
    return de.at(static_cast<std::size_t>(i) % N);
}
} // namespace

void nomina::escribirAfip(const QString& ruta, int lineas)
{
    const auto archivo = crear(ruta);
    for (int i = 0; i < lineas; ++i)
    {
        const std::string nombre = std::string(uno(apellidos, i)) + ' ' + uno(nombres, i);
        const int pago = centavos(i);
        std::fprintf(archivo.get(), "20%08d%d%-30.30s%c%02d%13s%03d%9s%8d.%02d%8d,%02d\r\n", 10'000'000 + i, i % 10,
                     nombre.c_str(), i % 3 == 0 ? 'T' : ' ', i % 2, "", i % 8 == 0 ? 1 : 14, "", pago / 100 + i % 200,
                     pago % 100, pago / 100, pago % 100);
    }
}

void nomina::escribirBrivo(const QString& ruta, int lineas)
{
    const auto archivo = crear(ruta);
    for (int i = 0; i < lineas / 2; ++i)
    {
        const std::string nombre = std::string(uno(apellidos, i)) + ' ' + uno(nombres, i);
        const int pago = centavos(i);
        std::fprintf(archivo.get(), "20%08d%d0%-40.40s1%08d%d%02d%02d%04d", 10'000'000 + i, i % 10, nombre.c_str(),
                     10'000'000 + i, i % 2, i % 28 + 1, i % 12 + 1, 1950 + i % 50);
        std::fprintf(archivo.get(), "%-40s%05d%-3s%-3s%-8s%-30s%02d%-20s%d%c", "Ruta Nacional 7", i % 9999, "1", "B",
                     "5600", "San Rafael", i % 24 + 1, "0260 442-1234", i % 5 + 1, i % 4 == 0 ? 'N' : 'S');
        std::fprintf(archivo.get(), "%06d.%02d%6d,%02d%02d%02d%02d%04d%8s%-10s%c%06d.%02d%9s\r\n", pago / 100,
                     pago % 100, pago / 100, pago % 100, i % 70 + 11, i % 28 + 1, i % 12 + 1, 1990 + i % 19, "",
                     i % 2 == 0 ? "BODEGA-001" : "OLIVAR-099", i % 8 == 0 ? '4' : '8', i % 300, i % 100, "0");
        std::fprintf(archivo.get(), "20%08d%d%d%-40.40s1%08d%d%02d%02d%04d\r\n", 10'000'000 + i, i % 10, i % 9 + 1,
                     nombre.c_str(), 50'000'000 + i, i % 2, i % 28 + 1, i % 12 + 1, 2000 + i % 9);
    }
}
