#include "exchange/importacion.h"
#include "base/db/conexion.h"
#include "base/files/archivos.h"
#include "base_desnuda.h"
#include "medida.h"
#include "nomina.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace
{
constexpr int lineas = 20'000;
constexpr const char* cuit = "30-12345678-9";
constexpr const char* periodo = "2009-05-01";

// ---- the same work in bare SQLite and plain C stdio ----

using Trozo = std::string_view;

Trozo trozo(Trozo linea, std::size_t posicion, std::size_t ancho)
{
    return posicion > linea.size() ? Trozo() : linea.substr(posicion - 1, ancho);
}

/// Windows-1252 to UTF-8; the files hold nothing between 80 and 9F.
void utf8(Trozo bytes, std::string& destino)
{
    destino.clear();
    for (const char c : bytes)
    {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80)
        {
            destino += c;
        }
        else
        {
            destino += static_cast<char>(0xC0U | (byte >> 6U));
            destino += static_cast<char>(0x80U | (byte & 0x3FU));
        }
    }
}

int entero(Trozo texto)
{
    int valor = 0;
    const auto fin = std::from_chars(texto.data(), texto.data() + texto.size(), valor);
    if (fin.ec != std::errc() || fin.ptr != texto.data() + texto.size())
    {
        throw std::runtime_error("number");
    }
    return valor;
}

float importe(Trozo texto)
{
    std::array<char, 16> limpio{};
    std::size_t n = 0;
    for (const char c : texto)
    {
        if (c != ' ')
        {
            limpio.at(n++) = c == ',' ? '.' : c;
        }
    }
    float valor = 0;
    if (n == 0 || std::from_chars(limpio.data(), limpio.data() + n, valor).ptr != limpio.data() + n)
    {
        throw std::runtime_error("amount");
    }
    return valor;
}

/// YYYY-MM-DD into `destino`, or Null.
void enlazarFecha(desnuda::Sentencia& sentencia, int numero, Trozo ddmmaaaa, std::array<char, 10>& destino)
{
    if (ddmmaaaa == "        " || ddmmaaaa == "00000000")
    {
        sentencia.nulo(numero);
        return;
    }
    const int dia = entero(ddmmaaaa.substr(0, 2));
    const int mes = entero(ddmmaaaa.substr(2, 2));
    if (ddmmaaaa.size() != 8 || dia < 1 || dia > 31 || mes < 1 || mes > 12)
    {
        throw std::runtime_error("date");
    }
    std::memcpy(destino.data(), ddmmaaaa.data() + 4, 4);
    destino[4] = destino[7] = '-';
    std::memcpy(destino.data() + 5, ddmmaaaa.data() + 2, 2);
    std::memcpy(destino.data() + 8, ddmmaaaa.data(), 2);
    sentencia.texto(numero, {destino.data(), destino.size()});
}

float redondeado(float valor)
{
    return static_cast<float>(std::nearbyint(static_cast<double>(valor) * 100.0) / 100.0);
}

/// Seven digits count; the amounts of the files lie between 0 and 99,999.
std::int64_t diezMilesimos(float valor)
{
    double escala = 1e6;
    for (double desde = 10; static_cast<double>(valor) >= desde; desde *= 10)
    {
        escala /= 10;
    }
    return std::llrint(std::round(static_cast<double>(valor) * escala) * (1e4 / escala));
}

class Importador
{
public:
    explicit Importador(sqlite3* base)
        : m_empleado(base, "SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?")
        , m_afip(base, "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sueldo, "
                       "Imponible, Afiliado, QHoras, ART100, ART101A, ART101B, Familiares, Sexo, Provincia, Acuerdo, "
                       "Acuerdo2) VALUES (?, ?, ?, ?, ?, 1, ?, ?, ?, 1, ?, ?, ?, ?, ?, NULL, 1, ?, 0)")
        , m_brivo(base,
                  "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, "
                  "Numero, Piso, Depto, CodPos, Localidad, Provincia, Telefono, Nacio, EstCivil, Afiliado, "
                  "Sueldo, Imponible, Categoria, Ingreso, Egreso, Sucursal, QHoras, ART100, ART101A, ART101B, "
                  "Familiares, Acuerdo, Acuerdo2) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, "
                  "?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, ?, 0)")
        , m_sucursal(base, "SELECT ID FROM Empresas_Sucursales WHERE Cuit = ? AND Sucursal = ?")
        , m_familiar(base, "SELECT * FROM Empleados_Familiares WHERE CUIL = ? AND Familiar = ? AND AyN = ? AND "
                           "TipoDoc = ? AND NroDoc = ? AND Sexo = ? AND Nacio = ?")
        , m_insertarFamiliar(base, "INSERT INTO Empleados_Familiares (CUIL, Familiar, AyN, TipoDoc, NroDoc, Sexo, "
                                   "Nacio) VALUES (?, ?, ?, ?, ?, ?, ?)")
    {
        for (desnuda::Sentencia* sentencia : {&m_empleado, &m_afip, &m_brivo})
        {
            sentencia->texto(1, cuit);
            sentencia->texto(2, periodo);
            sentencia->entero(3, 0);
        }
        m_sucursal.texto(1, cuit);
    }

    void afip(Trozo linea)
    {
        tomarCuil(linea);
        const int documento = entero(trozo(linea, 3, 8));
        tomarNombre(trozo(linea, 12, 30), m_ayn);
        m_ayn.erase(m_ayn.find_last_not_of(' ') + 1);
        const float sueldo = importe(trozo(linea, 70, 11));
        const float imponible = importe(trozo(linea, 81, 11));
        if (esta())
        {
            return;
        }
        const int familia = (trozo(linea, 42, 1) == "T" ? 1 : 0) + entero(trozo(linea, 43, 2));
        const bool media = trozo(linea, 58, 3) == "001";
        const float acuerdo = std::max(sueldo - imponible, 0.0F);
        m_afip.texto(4, m_cuil);
        m_afip.texto(5, m_ayn);
        m_afip.entero(6, documento);
        m_afip.entero(7, diezMilesimos(sueldo));
        m_afip.entero(8, diezMilesimos(imponible));
        m_afip.entero(9, media ? 100 : 200);
        enlazarAportes(m_afip, 10, imponible + acuerdo, media, true);
        m_afip.entero(13, familia);
        m_afip.entero(14, diezMilesimos(acuerdo));
        m_afip.correr();
    }

    void brivo(Trozo linea)
    {
        tomarCuil(linea);
        const int familiar = entero(trozo(linea, 12, 1));
        tomarNombre(trozo(linea, 13, 40), m_ayn);
        const int tipo = entero(trozo(linea, 53, 1));
        const int documento = entero(trozo(linea, 54, 8));
        const int sexo = entero(trozo(linea, 62, 1));
        if (familiar == 0)
        {
            empleado(linea, tipo, documento, sexo);
        }
        else
        {
            pariente(linea, familiar, tipo, documento, sexo);
        }
    }

private:
    void tomarCuil(Trozo linea)
    {
        m_cuil.assign(trozo(linea, 1, 2))
            .append("-")
            .append(trozo(linea, 3, 8))
            .append("-")
            .append(trozo(linea, 11, 1));
    }

    static void tomarNombre(Trozo bytes, std::string& destino)
    {
        utf8(bytes, destino);
        std::replace(destino.begin(), destino.end(), '\'', ' ');
    }

    bool esta()
    {
        m_empleado.texto(4, m_cuil);
        const bool hay = m_empleado.paso();
        m_empleado.deNuevo();
        return hay;
    }

    static void enlazarAportes(desnuda::Sentencia& sentencia, int numero, float base, bool media, bool afiliado)
    {
        const float factor = media ? 2.0F : 1.0F;
        const float uno = afiliado ? redondeado(base * factor / 100.0F) : 0.0F;
        sentencia.entero(numero, diezMilesimos(redondeado(2.0F * base / 100.0F)));
        sentencia.entero(numero + 1, diezMilesimos(uno));
        sentencia.entero(numero + 2, diezMilesimos(uno));
    }

    std::int64_t sucursal(Trozo linea)
    {
        utf8(trozo(linea, 220, 10), m_codigo);
        m_sucursal.texto(2, m_codigo);
        const std::int64_t id = m_sucursal.paso() ? m_sucursal.numero(0) : 0;
        m_sucursal.deNuevo();
        return id;
    }

    void empleado(Trozo linea, int tipo, int documento, int sexo)
    {
        const int civil = entero(trozo(linea, 182, 1));
        const bool afiliado = trozo(linea, 183, 1) != "N";
        const float sueldo = importe(trozo(linea, 184, 9));
        const float imponible = importe(trozo(linea, 193, 9));
        const int categoria = entero(trozo(linea, 202, 2));
        const bool media = entero(trozo(linea, 230, 1)) != 8;
        const float acuerdo = importe(trozo(linea, 231, 9)) + importe(trozo(linea, 240, 9));
        if (esta())
        {
            return;
        }
        const std::int64_t id = sucursal(linea);
        desnuda::Sentencia& s = m_brivo;
        s.texto(4, m_cuil);
        s.texto(5, m_ayn);
        s.entero(6, tipo);
        s.entero(7, documento);
        s.entero(8, sexo);
        tomarNombre(trozo(linea, 71, 40), m_textos[0]);
        s.texto(9, m_textos[0]);
        s.entero(10, entero(trozo(linea, 111, 5)));
        static constexpr std::array<std::array<std::size_t, 2>, 5> lugares = {
            {{116, 3}, {119, 3}, {122, 8}, {130, 30}, {162, 20}}};
        for (std::size_t i = 0; i < lugares.size(); ++i)
        {
            utf8(trozo(linea, lugares.at(i)[0], lugares.at(i)[1]), m_textos.at(i + 1));
            s.texto(i < 4 ? static_cast<int>(11 + i) : 16, m_textos.at(i + 1));
        }
        s.entero(15, entero(trozo(linea, 160, 2)));
        enlazarFecha(s, 17, trozo(linea, 63, 8), m_fechas[0]);
        s.entero(18, civil);
        s.entero(19, afiliado ? 1 : 0);
        s.entero(20, diezMilesimos(sueldo));
        s.entero(21, diezMilesimos(imponible));
        s.entero(22, categoria);
        enlazarFecha(s, 23, trozo(linea, 204, 8), m_fechas[1]);
        enlazarFecha(s, 24, trozo(linea, 212, 8), m_fechas[2]);
        s.entero(25, id);
        s.entero(26, media ? 100 : 200);
        enlazarAportes(s, 27, imponible + acuerdo, media, afiliado);
        s.entero(30, diezMilesimos(acuerdo));
        s.correr();
    }

    void pariente(Trozo linea, int familiar, int tipo, int documento, int sexo)
    {
        if (!esta())
        {
            return;
        }
        const auto enlazar = [&](desnuda::Sentencia& s, const std::string& nombre)
        {
            s.texto(1, m_cuil);
            s.entero(2, familiar);
            s.texto(3, nombre);
            s.entero(4, tipo);
            s.entero(5, documento);
            s.entero(6, sexo);
            enlazarFecha(s, 7, trozo(linea, 63, 8), m_fechas[0]);
        };
        enlazar(m_familiar, m_ayn);
        const bool hay = m_familiar.paso();
        m_familiar.deNuevo();
        if (!hay)
        {
            tomarNombre(trozo(linea, 13, 30), m_textos[0]);
            enlazar(m_insertarFamiliar, m_textos[0]);
            m_insertarFamiliar.correr();
        }
    }

    desnuda::Sentencia m_empleado;
    desnuda::Sentencia m_afip;
    desnuda::Sentencia m_brivo;
    desnuda::Sentencia m_sucursal;
    desnuda::Sentencia m_familiar;
    desnuda::Sentencia m_insertarFamiliar;
    std::string m_cuil;
    std::string m_ayn;
    std::string m_codigo;
    std::array<std::string, 6> m_textos;
    std::array<std::array<char, 10>, 3> m_fechas{};
};

void importarDesnuda(desnuda::Base& base, const std::string& ruta, FormatoDeNomina formato)
{
    base.ejecutar("BEGIN IMMEDIATE");
    std::FILE* archivo = std::fopen(ruta.c_str(), "rb");
    desnuda::exigir(archivo != nullptr, nullptr);
    Importador importador(*base);
    std::array<char, 512> buffer{};
    while (std::fgets(buffer.data(), static_cast<int>(buffer.size()), archivo) != nullptr)
    {
        const Trozo linea(buffer.data(), std::strcspn(buffer.data(), "\r\n"));
        if (formato == FormatoDeNomina::AfipSijp)
        {
            importador.afip(linea);
        }
        else
        {
            importador.brivo(linea);
        }
    }
    std::fclose(archivo);
    base.ejecutar("COMMIT");
}

// ---- side by side ----

class CasoImportacion : public medida::Caso
{
public:
    explicit CasoImportacion(FormatoDeNomina formato)
        : m_formato(formato)
    {
        if (formato == FormatoDeNomina::AfipSijp)
        {
            nomina::escribirAfip(m_taller.ruta("nomina.txt"), lineas);
        }
        else
        {
            nomina::escribirBrivo(m_taller.ruta("nomina.txt"), lineas);
        }
    }

    void antesDeReferencia() override
    {
        m_base.reset();
        m_taller.ponerBase("Desnuda.mdb");
        m_base = std::make_unique<desnuda::Base>(m_taller.ruta("Desnuda.mdb").toStdString());
    }
    void referencia() override { importarDesnuda(*m_base, m_taller.ruta("nomina.txt").toStdString(), m_formato); }

    void antesDePrograma() override
    {
        m_conexion.cerrar();
        m_taller.ponerBase("DBBrivo.mdb");
        m_conexion.abrir(m_taller.ruta("DBBrivo.mdb"));
    }
    void programa() override
    {
        const ClaveDDJJ clave{QString::fromLatin1(cuit), QDate(2009, 5, 1), 0};
        m_importados = importarNomina(m_conexion, clave, m_taller.ruta("nomina.txt"), m_formato);
    }

    void comprobar() override
    {
        m_base.reset();
        m_conexion.cerrar();
        const int esperados = m_formato == FormatoDeNomina::AfipSijp ? lineas : lineas / 2;
        bool iguales = m_importados.titulares == esperados;
        for (const char* consulta :
             {"SELECT * FROM DDJJ_Empleados", "SELECT * FROM Empleados_Familiares ORDER BY rowid"})
        {
            iguales = iguales && desnuda::volcar(m_taller.ruta("DBBrivo.mdb").toStdString(), consulta) ==
                                     desnuda::volcar(m_taller.ruta("Desnuda.mdb").toStdString(), consulta);
        }
        if (!iguales)
        {
            throw std::runtime_error("las dos importaciones no dejan lo mismo");
        }
    }

private:
    Taller m_taller;
    FormatoDeNomina m_formato;
    ResultadoImportacion m_importados;
    std::unique_ptr<desnuda::Base> m_base;
    Conexion m_conexion;
};

const medida::Registro afip{"importación de 20.000 líneas, AFIP - SIJP", "SQLite en C",
                            [] { return std::make_unique<CasoImportacion>(FormatoDeNomina::AfipSijp); }};
const medida::Registro brivo{"importación de 20.000 líneas, B.R.I.V.O.", "SQLite en C",
                             [] { return std::make_unique<CasoImportacion>(FormatoDeNomina::Brivo); }};
} // namespace
