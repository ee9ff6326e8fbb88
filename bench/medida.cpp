#include "medida.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <exception>
#include <fstream>
#include <string_view>
#include <vector>

namespace medida
{
namespace
{
std::vector<Linea>& lineas()
{
    static std::vector<Linea> registradas;
    return registradas;
}

/// A value of this process in KiB, or -1 where the system does not tell it.
long memoria(std::string_view cual)
{
    std::ifstream estado("/proc/self/status");
    for (std::string renglon; std::getline(estado, renglon);)
    {
        if (renglon.starts_with(cual))
        {
            return std::stol(renglon.substr(cual.size() + 1));
        }
    }
    return -1;
}

/// Makes the highest memory use start anew from the present one.
void olvidarPico()
{
    std::ofstream("/proc/self/clear_refs") << "5";
}

struct Medicion
{
    double milisegundos = -1; ///< best of all runs
    double procesador = 0;    ///< the same of processor time, which other work on the machine disturbs less
    long crecimiento = 0;     ///< KiB of the first run, above what stood before it
};

template <class Trabajo>
void medir(const Trabajo& trabajo, Medicion& medicion)
{
    const bool primera = medicion.milisegundos < 0;
    olvidarPico();
    const long antes = memoria("VmRSS");
    const auto desde = std::chrono::steady_clock::now();
    const std::clock_t procesadorDesde = std::clock();
    trabajo();
    const double procesador = 1000.0 * static_cast<double>(std::clock() - procesadorDesde) / CLOCKS_PER_SEC;
    const std::chrono::duration<double, std::milli> tardo = std::chrono::steady_clock::now() - desde;
    if (primera)
    {
        medicion.crecimiento = std::max(0L, memoria("VmHWM") - antes);
    }
    medicion.procesador = primera ? procesador : std::min(medicion.procesador, procesador);
    medicion.milisegundos = primera ? tardo.count() : std::min(medicion.milisegundos, tardo.count());
}

/// Pads by characters and not by bytes.
std::string columna(const std::string& texto, std::size_t ancho)
{
    const auto letras = static_cast<std::size_t>(std::count_if(
        texto.begin(), texto.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; }));
    return texto + std::string(letras < ancho ? ancho - letras : 1, ' ');
}

double razon(double programa, double referencia)
{
    return referencia > 0 ? programa / referencia : 1;
}

bool medirLinea(const Linea& linea, int veces)
{
    try
    {
        const std::unique_ptr<Caso> caso = linea.hacer();
        Medicion programa;
        Medicion referencia;
        // The program first: what its memory takes is not to be found ready by the reference's leavings.
        for (int i = 0; i < veces; ++i)
        {
            caso->antesDePrograma();
            medir([&] { caso->programa(); }, programa);
            caso->antesDeReferencia();
            medir([&] { caso->referencia(); }, referencia);
        }
        caso->comprobar();
        const double deReloj = razon(programa.milisegundos, referencia.milisegundos);
        const double deProcesador = razon(programa.procesador, referencia.procesador);
        const bool pasa = deReloj > linea.limite && deProcesador > linea.limite;
        std::printf("%s%s%10.2f%10.2f%8.2f%8.2f%11ld%11ld%s\n", columna(linea.nombre, 46).c_str(),
                    columna(linea.contra, 20).c_str(), referencia.milisegundos, programa.milisegundos, deReloj,
                    deProcesador, referencia.crecimiento, programa.crecimiento, pasa ? "  <-- pasa del límite" : "");
        std::fflush(stdout);
        return !pasa;
    }
    catch (const std::exception& error)
    {
        std::printf("%s%s\n", columna(linea.nombre, 46).c_str(), error.what());
        return false;
    }
}
} // namespace

Registro::Registro(std::string nombre, std::string contra, std::function<std::unique_ptr<Caso>()> hacer, double limite)
{
    lineas().push_back({std::move(nombre), std::move(contra), std::move(hacer), limite});
}

bool medirTodo(const std::string& filtro, int veces)
{
    std::sort(lineas().begin(), lineas().end(),
              [](const Linea& una, const Linea& otra) { return una.nombre < otra.nombre; });
    std::printf("%s%s%10s%10s%8s%8s%11s%11s\n", columna("trabajo", 46).c_str(), columna("referencia", 20).c_str(),
                "ref. ms", "prog. ms", "razon", "r. cpu", "ref. KiB", "prog. KiB");
    bool bien = true;
    for (const Linea& linea : lineas())
    {
        if (linea.nombre.find(filtro) != std::string::npos)
        {
            bien = medirLinea(linea, veces) && bien;
        }
    }
    return bien;
}
} // namespace medida
