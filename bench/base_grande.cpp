#include "base_grande.h"

#include <map>

namespace grande
{
std::string cuitNumero(int n)
{
    std::string digitos = std::to_string(n);
    return "30-" + std::string(8 - digitos.size(), '0') + digitos + "-1";
}

const Taller& base(int filas)
{
    static std::map<int, Taller> hechas;
    const auto [lugar, nueva] = hechas.try_emplace(filas);
    if (!nueva)
    {
        return lugar->second;
    }
    lugar->second.ponerBase("DBBrivo.mdb");
    desnuda::Base escrita(lugar->second.ruta("DBBrivo.mdb").toStdString());
    escrita.ejecutar("PRAGMA cache_size=-65536; BEGIN");
    desnuda::Sentencia ddjj(*escrita, "INSERT INTO DDJJ (Cuit, Periodo, Secuencia, Fecha) VALUES (?, ?, 0, ?)");
    desnuda::Sentencia fila(
        *escrita, "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, "
                  "Localidad, Nacio, EstCivil, Categoria, Ingreso, Afiliado, QHoras, Sueldo, Imponible, ART100, "
                  "ART101A, ART101B, Acuerdo, Familiares) VALUES (?, ?, 0, ?, 'Agüero Juan Carlos', 1, ?, ?, "
                  "'Ruta Nacional 7', 'San Rafael', '1970-01-01', 1, 1, '2001-02-03', ?, ?, ?, ?, ?, ?, ?, 1000, ?)");
    for (int empresa = 0; empresa < filas / porDeclaracion; ++empresa)
    {
        const std::string cuit = cuitNumero(empresa);
        ddjj.texto(1, cuit);
        ddjj.texto(2, periodo);
        ddjj.texto(3, periodo);
        ddjj.correr();
        for (int i = 0; i < porDeclaracion; ++i)
        {
            const std::string cuil = cuitNumero(i);
            const int sueldo = 9'000'000 + i * 3700;
            fila.texto(1, cuit);
            fila.texto(2, periodo);
            fila.texto(3, cuil);
            fila.entero(4, i % 50 == 0 ? 0 : 10'000'000 + i);
            fila.entero(5, i % 2);
            fila.entero(6, i % 4 == 0 ? 0 : 1);
            fila.entero(7, i % 8 == 0 ? 100 : 200);
            fila.entero(8, sueldo + 1000);
            fila.entero(9, sueldo);
            fila.entero(10, sueldo / 50);
            fila.entero(11, sueldo / 100);
            fila.entero(12, sueldo / 100);
            fila.entero(13, i % 5);
            fila.correr();
        }
    }
    escrita.ejecutar("COMMIT");
    return lugar->second;
}
} // namespace grande
