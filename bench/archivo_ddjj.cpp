#include "exchange/archivo_ddjj.h"

#include "base/db/conexion.h"
#include "base/directorio_programa.h"
#include "base/files/sistema.h"
#include "base_desnuda.h"
#include "exchange/importacion.h"
#include "medida.h"
#include "nomina.h"

#include <QFile>
#include <array>
#include <cstdio>

namespace
{
constexpr int empleados = 20'000;
constexpr const char* cuit = "30-12345678-9";

// ---- the same file in bare SQLite and plain C stdio ----

/// A line in the making, in Windows-1252; the data hold nothing outside Latin 1.
class Buffer
{
public:
    void poner(char c) { m_bytes.at(m_largo++) = c; }
    void crudo(std::string_view texto)
    {
        for (const char c : texto)
        {
            poner(c);
        }
    }
    void texto(std::string_view utf8, std::size_t ancho)
    {
        std::size_t n = 0;
        for (std::size_t i = 0; i < utf8.size() && n < ancho; ++i, ++n)
        {
            const auto byte = static_cast<unsigned char>(utf8[i]);
            if (byte < 0x80)
            {
                poner(utf8[i]);
            }
            else
            {
                poner(static_cast<char>(((byte & 0x03U) << 6U) | (static_cast<unsigned char>(utf8[++i]) & 0x3FU)));
            }
        }
        for (; n < ancho; ++n)
        {
            poner(' ');
        }
    }
    void numero(std::int64_t valor, std::size_t ancho)
    {
        std::array<char, 20> digitos{};
        std::size_t n = 0;
        for (auto resto = static_cast<std::uint64_t>(valor < 0 ? -valor : valor); n == 0 || resto > 0; resto /= 10)
        {
            digitos.at(n++) = static_cast<char>('0' + resto % 10);
        }
        if (valor < 0)
        {
            poner('-');
        }
        for (std::size_t i = n; i < ancho; ++i)
        {
            poner('0');
        }
        while (n > 0)
        {
            poner(digitos.at(--n));
        }
    }
    void importe(std::int64_t diezMilesimos)
    {
        const std::int64_t centavos = (diezMilesimos + 50) / 100;
        numero(centavos / 100, 7);
        poner(',');
        numero(centavos % 100, 2);
    }
    void fecha(std::string_view guardada)
    {
        crudo(guardada.substr(5, 2));
        crudo(guardada.substr(8, 2));
        crudo(guardada.substr(0, 4));
    }
    void imprimir(std::FILE* archivo)
    {
        poner('\r');
        poner('\n');
        std::fwrite(m_bytes.data(), 1, m_largo, archivo);
        m_largo = 0;
    }

private:
    std::array<char, 1024> m_bytes{};
    std::size_t m_largo = 0;
};

void escribirEmpleado(const desnuda::Sentencia& fila, Buffer& buffer)
{
    const auto numero = [&](int columna, std::size_t ancho, const char* siNulo)
    {
        if (fila.esNulo(columna))
        {
            buffer.crudo(siNulo);
        }
        else
        {
            buffer.numero(fila.numero(columna), ancho);
        }
    };
    const auto importe = [&](int columna)
    {
        if (!fila.esNulo(columna))
        {
            buffer.importe(fila.numero(columna));
        }
    };
    const auto fecha = [&](int columna)
    {
        if (fila.esNulo(columna))
        {
            buffer.crudo("00000000");
        }
        else
        {
            buffer.fecha(fila.leer(columna));
        }
    };
    buffer.poner('3');
    buffer.crudo(fila.leer(3));
    buffer.texto(fila.leer(4), 40);
    numero(5, 1, "");
    numero(6, 8, "");
    numero(7, 1, " ");
    buffer.texto(fila.leer(8), 40);
    numero(9, 5, "");
    buffer.texto(fila.leer(10), 3);
    buffer.texto(fila.leer(11), 3);
    buffer.texto(fila.leer(12), 8);
    buffer.texto(fila.leer(13), 30);
    numero(14, 2, "  ");
    buffer.texto(fila.leer(15), 20);
    fecha(16);
    numero(17, 1, " ");
    buffer.poner(fila.numero(18) != 0 ? '1' : '0');
    importe(19);
    importe(20);
    numero(21, 2, "  ");
    fecha(22);
    fecha(23);
    numero(24, 8, "");
    numero(25, 1, "");
    importe(26);
    importe(27);
    importe(28);
    numero(31, 2, "");
    importe(29);
    buffer.crudo("0000000.00");
}

void escribirFamiliar(const desnuda::Sentencia& fila, Buffer& buffer)
{
    buffer.poner('4');
    buffer.crudo(fila.leer(0));
    buffer.numero(fila.numero(1), 2);
    buffer.texto(fila.leer(2), 30);
    buffer.numero(fila.numero(3), 1);
    buffer.numero(fila.numero(4), 8);
    buffer.numero(fila.numero(5), 1);
    buffer.fecha(fila.leer(6));
}

void escribirEmpresa(const desnuda::Sentencia& fila, Buffer& buffer)
{
    static constexpr std::array<std::size_t, 23> anchos = {0,  45, 40, 30, 5,  6,  3,  3, 8,  50, 2, 30,
                                                           30, 10, 50, 35, 35, 50, 50, 8, 30, 30, 35};
    buffer.poner('0');
    buffer.crudo(fila.leer(0));
    buffer.crudo("20090500");
    for (std::size_t i = 1; i < anchos.size(); ++i)
    {
        const int columna = static_cast<int>(i);
        if (i == 4 || i == 10)
        {
            buffer.numero(fila.numero(columna), anchos.at(i));
        }
        else
        {
            buffer.texto(fila.leer(columna), anchos.at(i));
        }
    }
}

void grabarDesnuda(desnuda::Base& base, const std::string& ruta)
{
    std::FILE* archivo = std::fopen(ruta.c_str(), "wb");
    desnuda::exigir(archivo != nullptr, nullptr);
    Buffer buffer;
    desnuda::Sentencia empresa(*base, "SELECT * FROM Empresas WHERE CUIT = ?");
    empresa.texto(1, cuit);
    desnuda::exigir(empresa.paso(), nullptr);
    escribirEmpresa(empresa, buffer);
    buffer.imprimir(archivo);
    desnuda::Sentencia sucursales(*base, "SELECT * FROM Empresas_Sucursales WHERE CUIT = ?");
    sucursales.texto(1, cuit);
    while (sucursales.paso())
    {
        buffer.poner('2');
        buffer.numero(sucursales.numero(0), 8);
        buffer.texto(sucursales.leer(2), 10);
        buffer.texto(sucursales.leer(3), 50);
        buffer.numero(sucursales.numero(4), 5);
        buffer.texto(sucursales.leer(5), 8);
        buffer.texto(sucursales.leer(6), 50);
        buffer.texto(sucursales.leer(7), 30);
        buffer.imprimir(archivo);
    }
    desnuda::Sentencia familia(*base, "SELECT * FROM Empleados_Familiares WHERE CUIL = ?");
    desnuda::Sentencia nomina(*base, "SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ?");
    nomina.texto(1, cuit);
    nomina.texto(2, "2009-05-01");
    nomina.entero(3, 0);
    while (nomina.paso())
    {
        escribirEmpleado(nomina, buffer);
        buffer.imprimir(archivo);
        familia.texto(1, nomina.leer(3));
        while (familia.paso())
        {
            escribirFamiliar(familia, buffer);
            buffer.imprimir(archivo);
        }
        familia.deNuevo();
    }
    desnuda::exigir(std::fclose(archivo) == 0, nullptr);
    // What is to be sent to the organisation lies on the disk when it is told as written.
    desnuda::exigir(sistema::asegurarArchivo(QString::fromStdString(ruta)) == 0, nullptr);
}

// ---- side by side ----

QByteArray leerTodo(const QString& ruta)
{
    QFile archivo(ruta);
    desnuda::exigir(archivo.open(QIODevice::ReadOnly), nullptr);
    return archivo.readAll();
}

class CasoArchivo : public medida::Caso
{
public:
    CasoArchivo()
    {
        m_taller.ponerBase("DBBrivo.mdb");
        nomina::escribirBrivo(m_taller.ruta("nomina.txt"), 2 * empleados);
        reemplazarDirectorioPrograma(m_taller.ruta("."));
        Conexion conexion;
        conexion.abrir(m_taller.ruta("DBBrivo.mdb"));
        const auto hecho = importarNomina(conexion, {QString::fromLatin1(cuit), QDate(2009, 5, 1), 0},
                                          m_taller.ruta("nomina.txt"), FormatoDeNomina::Brivo);
        desnuda::exigir(hecho == ResultadoImportacion{empleados, empleados}, nullptr);
    }
    ~CasoArchivo() override { reemplazarDirectorioPrograma({}); }

    void antesDeReferencia() override
    {
        m_conexion.cerrar();
        m_base = std::make_unique<desnuda::Base>(m_taller.ruta("DBBrivo.mdb").toStdString());
    }
    void referencia() override { grabarDesnuda(*m_base, m_taller.ruta("desnuda.txt").toStdString()); }

    void antesDePrograma() override
    {
        m_base.reset();
        m_conexion.abrir(m_taller.ruta("DBBrivo.mdb"));
    }
    void programa() override
    {
        GrabarArchivoDDJJ(m_conexion, {QString::fromLatin1(cuit), QDate(2009, 5, 1), 0}, m_nombre);
    }

    void comprobar() override
    {
        if (leerTodo(rutaArchivoDDJJ(m_nombre)) != leerTodo(m_taller.ruta("desnuda.txt")))
        {
            throw std::runtime_error("los dos archivos no son iguales");
        }
    }

private:
    Taller m_taller;
    QString m_nombre;
    std::unique_ptr<desnuda::Base> m_base;
    Conexion m_conexion;
};

const medida::Registro archivo{"archivo de 20.000 empleados con familia", "SQLite en C",
                               [] { return std::make_unique<CasoArchivo>(); }};
} // namespace
