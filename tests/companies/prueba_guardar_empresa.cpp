// The save of a company with its branches and responsible persons, and what another desk did meanwhile.
#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "cambios_en_texto.h"
#include "companies/guardar_empresa.h"

#include <gtest/gtest.h>

namespace
{
const QString cuitUno = dePrueba::cuit;
const QString cuitDos = "30-50001091-2";

FilaSucursal sucursal(qint64 id, const char* codigo, const char* domicilio = "Calle 1",
                      std::optional<qint64> numero = 5, const char* localidad = "Berisso")
{
    return {id, codigo, domicilio, numero, localidad, "1923", "461"};
}

FilaResponsable responsable(const char* ayn, const char* tipo = "DNI", std::optional<qint64> documento = 123456789)
{
    return {ayn, tipo, documento, "Calle 2", {}};
}

struct GuardarEmpresa : ConBase
{
    /// A company with a text of its own in every field, an apostrophe in several.
    GuardarEmpresa()
    {
        conexion.ejecutar("INSERT INTO Empresas VALUES ('30-12345678-1', 'Panadería', 'L''Horno', 'O''Higgins', 1234, "
                          "'L-5', '3', 'B', 'B1900', 'Berisso', 1, '461-0000', '461-0001', '522120', 'Ñandú D''Elía', "
                          "'www.example.org', 'a@example.org', 'Estudio O''Connor', 'Calle 7', '1900', 'La Plata', "
                          "'422-0000', 'e@example.org')");
        entrada.empresa = *cargarEmpresa(conexion, cuitUno);
        entrada.empresa.razon = "Cambiada";
    }

    /// What the screen holds; each save is of another name, so that its trace is seen.
    EntradaEmpresa entrada;

    [[nodiscard]] std::string todo() const
    {
        return filas("SELECT * FROM Empresas") + '#' + filas("SELECT * FROM Empresas_Sucursales ORDER BY ID") + '#' +
               filas("SELECT * FROM Empresas_Responsables ORDER BY rowid");
    }
    qint64 poneSucursal(const char* codigo, const QString& cuit = cuitUno) const
    {
        return poner("Empresas_Sucursales", {{"Sucursal", codigo}, {"CUIT", cuit}});
    }
    /// Nothing is written when something is asked.
    [[nodiscard]] std::string cambios()
    {
        const std::string antes = todo();
        std::string textos = cambiosAl([&] { return guardarEmpresa(conexion, entrada); });
        EXPECT_TRUE(textos == "stored" || antes == todo());
        return textos;
    }
};
} // namespace

TEST_F(GuardarEmpresa, SucursalesNuevasCambiadasYBarridas)
{
    const qint64 queda = poneSucursal("1");
    const qint64 sale = poneSucursal("2");
    const qint64 ajena = poneSucursal("2", cuitDos);
    poner("DDJJ_Empleados", {{"Sucursal", queda}});
    poner("DDJJ_Empleados",
          {{"Sucursal", sale}, {"Cuit", cuitDos}}); // the same number at another company holds nothing

    entrada.sucursales = {{sucursal(queda, "9", "D'Angelo", 0), {.id = sale}, sucursal(0, "10", "Mitre", 123456)}};
    EXPECT_EQ("", fueraDeTransaccion([&] { EXPECT_EQ(std::nullopt, guardarEmpresa(conexion, entrada)); }));
    const std::vector<FilaSucursal> guardadas{sucursal(ajena + 1, "10", "Mitre", 123456),
                                              sucursal(queda, "9", "D'Angelo", 0)}; // by code, which is a text
    EXPECT_EQ(guardadas, cargarSucursales(conexion, cuitUno));
    EXPECT_EQ("1|2", filas("SELECT count(*) AS N, Sucursal FROM Empresas_Sucursales WHERE CUIT = ?", cuitDos));
    EXPECT_EQ(0, cuantos("Empresas_Sucursales WHERE Marca <> 0"));
    EXPECT_EQ("Cambiada", cargarEmpresa(conexion, cuitUno)->razon);

    // The rows know their numbers: saved once more, nothing moves, though the new branch has an employee by now.
    EXPECT_EQ(ajena + 1, (*entrada.sucursales)[2].id);
    EXPECT_EQ(0, (*entrada.sucursales)[1].id);
    poner("DDJJ_Empleados", {{"Sucursal", ajena + 1}, {"Secuencia", 1}});
    const std::string antes = todo();
    EXPECT_EQ(std::nullopt, guardarEmpresa(conexion, entrada));
    EXPECT_EQ(antes, todo());
}

TEST_F(GuardarEmpresa, LoRechazadoDeshaceTodo)
{
    const qint64 usada = poneSucursal("7");
    const qint64 libre = poneSucursal("8");
    const qint64 tambien = poneSucursal("3");
    poner("DDJJ_Empleados", {{"Sucursal", usada}});
    poner("DDJJ_Empleados", {{"Sucursal", tambien}, {"Secuencia", 1}});
    poner("Empresas_Responsables");
    const std::string antes = todo();
    const auto rechazo = [&]
    {
        std::optional<QString> texto;
        const int error = numeroDe([&] { texto = guardarEmpresa(conexion, entrada); });
        EXPECT_EQ(antes, todo());
        return error != 0 ? QString::number(error) : texto.value_or("stored");
    };
    entrada.sucursales = {{sucursal(libre, "8"), sucursal(0, "20")}};
    EXPECT_EQ(
        "Error - No se puede Eliminar la Sucursal 7 - Belgrano 45 - Avellaneda.  Tiene Empleados asignados a dicha "
        "Sucursal.",
        rechazo()); // the first one only, by its ID
    for (const FilaSucursal& mala : {sucursal(0, ""), sucursal(0, "1", ""), sucursal(0, "1", "Calle", 1, ""),
                                     FilaSucursal{.numero = 0}, FilaSucursal{.telefono = "461"}})
    {
        entrada.sucursales = {{sucursal(0, "30"), mala}};
        EXPECT_EQ("Los datos de las Sucursales están incompletos.  Por favor, verifique los mismos (Nro. de Sucursal, "
                  "Domicilio y Localidad).",
                  rechazo());
    }
    entrada.sucursales = {{sucursal(0, "1", "Calle", std::nullopt)}};
    EXPECT_EQ("13", rechazo());
    entrada.sucursales = {{sucursal(usada, "7"), sucursal(libre, "8"), sucursal(tambien, "3"), sucursal(0, "9")}};
    for (const FilaResponsable& malo :
         {responsable(""), responsable("Uno", ""), responsable("Uno", "DNI", 0),
          responsable("Uno", "DNI", std::nullopt), FilaResponsable{.localidad = "Berisso"}})
    {
        entrada.responsables = {{responsable("Entra"), malo}};
        EXPECT_EQ("Los datos de los Responsables están incompletos.  Por favor, verifique los mismos.", rechazo());
    }
    EXPECT_EQ(0, (*entrada.sucursales)[3].id); // nothing of it stayed
    entrada.responsables = {{responsable("Uno", "Carnet")}};
    EXPECT_EQ("3021", rechazo());
    entrada = {.nueva = true, .empresa = entrada.empresa};
    EXPECT_EQ("1555", rechazo());
    entrada.empresa.cuit = cuitDos;
    entrada.empresa.numero = "12a";
    EXPECT_EQ("13", rechazo());
}

TEST_F(GuardarEmpresa, LosResponsablesSolosSeReemplazanYLoQueNoSeTocaNoSeEscribe)
{
    poneSucursal("1");
    conexion.ejecutar("UPDATE Empresas_Sucursales SET Marca = 1");
    poner("Empresas_Responsables", {{"AyN", "Ajeno"}, {"CUIT", cuitDos}});
    poner("Empresas_Responsables", {{"TipoDoc", 0}}); // in no catalogue: not shown
    EXPECT_EQ(0U, cargarResponsables(conexion, cuitUno).size());
    EXPECT_EQ(std::nullopt, guardarEmpresa(conexion, entrada));
    EXPECT_EQ(2, cuantos("Empresas_Responsables"));

    entrada.responsables = {{responsable("Zárate"), {.tipoDoc = "DNI", .nroDoc = 0}, responsable("Álvarez O'Connor")}};
    EXPECT_EQ(std::nullopt, guardarEmpresa(conexion, entrada));
    EXPECT_EQ((std::vector{responsable("Álvarez O'Connor"), responsable("Zárate")}),
              cargarResponsables(conexion, cuitUno));
    EXPECT_EQ(3, cuantos("Empresas_Responsables"));
    EXPECT_EQ(1, cuantos("Empresas_Sucursales WHERE Marca = 1"));
}

TEST_F(GuardarEmpresa, EnLoQueOtroPuestoEliminoNadaSeEscribe)
{
    entrada.sucursales = {{sucursal(poneSucursal("1"), "1"), sucursal(0, "2")}};
    entrada.responsables = {{responsable("Uno")}};
    entrada.leida = leerEmpresa(conexion, cuitUno);
    for (const char* borrado : {"Empresas_Sucursales", "Empresas"})
    {
        conexion.ejecutar(std::string("DELETE FROM ") + borrado);
        const std::string antes = todo();
        EXPECT_THROW((void)guardarEmpresa(conexion, entrada), YaNoEsta);
        EXPECT_EQ(antes, todo());
    }
    insertarEmpresa(conexion, entrada.empresa);
    (*entrada.sucursales)[0] = {.id = (*entrada.sucursales)[0].id}; // blanked out here too: no matter
    entrada.leida.reset();
    EXPECT_EQ(std::nullopt, guardarEmpresa(conexion, entrada));
}

TEST_F(GuardarEmpresa, LoQueOtroPuestoCambioSePreguntaAntesDeReemplazarlo)
{
    const qint64 una = poneSucursal("1");
    poner("Empresas_Responsables");
    entrada.leida = leerEmpresa(conexion, cuitUno);
    EXPECT_EQ("stored", cambios()); // and again, with what was stored then
    EXPECT_EQ("stored", cambios());
    conexion.ejecutar(
        "UPDATE Empresas SET Razon = 'a', Fantasia = 'b', Calle = 'c', Numero = 4, NroLocal = 'd', "
        "Piso = 'e', Depto = 'f', CodPos = 'g', Localidad = 'h', Provincia = 77, Telefono = 'i', Fax = 'j', "
        "Rubro = 'k', Contacto = 'l', Web = 'm', Email = 'n', Estudio = 'o', Est_Domicilio = 'p', "
        "Est_CodPos = 'q', Est_Localidad = 'r', Est_Telefono = 's', Est_EMail = 't'");
    EXPECT_EQ("Razón Social=Cambiada>a;Nombre Fantasía=L'Horno>b;Calle=O'Higgins>c;Nro.=1234>4;Local=L-5>d;Piso=3>e;"
              "Depto=B>f;Cód.Postal=B1900>g;Localidad=Berisso>h;Provincia=Buenos Aires>;Teléfono=461-0000>i;"
              "Fax=461-0001>j;Rubro=522120>k;Contacto=Ñandú D'Elía>l;Web=www.example.org>m;E-Mail=a@example.org>n;"
              "Contador/a=Estudio O'Connor>o;Domicilio del Estudio=Calle 7>p;Cód.Post. del Estudio=1900>q;"
              "Localidad del Estudio=La Plata>r;Tel. del Estudio=422-0000>s;E-Mail del Estudio=e@example.org>t",
              cambios());
    entrada.leida.reset();
    EXPECT_EQ("stored", cambios()); // asked for a second time, it is replaced
    EXPECT_EQ(entrada.empresa, cargarEmpresa(conexion, cuitUno));

    conexion.ejecutar("UPDATE Empresas_Sucursales SET Numero = 46");
    poneSucursal("9");
    poner("Empresas_Responsables", {{"AyN", "Nuevo"}});
    EXPECT_EQ("stored", cambios()); // lists that this save does not write
    const qint64 otra = poneSucursal("8");
    poner("Empresas_Responsables", {{"AyN", "Otro"}});
    entrada.leida = leerEmpresa(conexion, cuitUno);
    conexion.ejecutar("UPDATE Empresas_Sucursales SET Numero = 47 WHERE ID = ?", una);
    conexion.ejecutar("DELETE FROM Empresas_Sucursales WHERE ID = ?", otra);
    conexion.ejecutar("DELETE FROM Empresas_Responsables WHERE AyN = 'Otro'");
    poneSucursal("7");
    entrada.sucursales = {{sucursal(una, "1")}};
    entrada.responsables.emplace();
    EXPECT_EQ("Sucursales=1, Belgrano, 46, Avellaneda, 1870>1, Belgrano, 47, Avellaneda, 1870;"
              "Sucursales=8, Belgrano, 45, Avellaneda, 1870>-;Sucursales=->7, Belgrano, 45, Avellaneda, 1870;"
              "Responsables=Otro, DNI, 11111111>-",
              cambios());
}
