// The screen of the companies: states, checks, commands and what they store.
#include "apoyo/entrada.h"
#include "companies/empresa.h"
#include "core/lista_empresas.h"
#include "core/rutinas.h"
#include "datos_empresa.h"
#include "mesa_empresas.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/pantalla.h"

#include <QComboBox>
#include <QDialog>
#include <gtest/gtest.h>

namespace
{
const QString tituloBase = QStringLiteral("B.R.I.V.O - Zona Sauce - Administración de Empresas");
const QString preguntaGrabar = QStringLiteral("Esta seguro de desea Grabar los Datos ingresados?");
const QString preguntaCancelar = QStringLiteral("Esta seguro de desea Cancelar los Datos ingresados?");
const QString preguntaEliminar = QStringLiteral("Esta seguro de desea ELIMINAR esta EMPRESA?");
const QString vacio = QStringLiteral("__-________-_");

constexpr std::initializer_list<const char*> deEdicion{"fraDatos", "CmdActualiza", "CmdCancela"};
constexpr std::initializer_list<const char*> deConsulta{"CmdABM_0", "CmdABM_1", "CmdABM_2", "CmdABM_3", "cmdSalir"};

struct PantallaEmpresas : testing::Test
{
    MesaEmpresas mesa;
    CajasDePrueba& cajas = mesa.cajas;
    Conexion& conexion = mesa.conexion();

    PantallaEmpresas()
    {
        conexion.ejecutar("DELETE FROM Rubros");
        conexion.ejecutar("INSERT INTO Rubros (Codigo, Nombre) VALUES ('522120', 'Panaderías'), ('5', 'Otros')");
    }
    void esperaEstado(bool editando, const char* cola) const
    {
        for (const char* nombre : deEdicion)
        {
            EXPECT_EQ(mesa.activo(nombre), editando) << nombre;
        }
        for (const char* nombre : deConsulta)
        {
            EXPECT_NE(mesa.activo(nombre), editando) << nombre;
        }
        EXPECT_EQ(mesa.titulo(), tituloBase + QString::fromLatin1(cola));
    }
    void abrirYModificar() const
    {
        mesa.abrir();
        mesa.pulsar("CmdABM_1");
    }
    /// Types the required fields of a new company, by the keyboard alone, and stops in the last field of the walk.
    void tipearNueva(const char* cuit) const
    {
        mesa.escribir("MaskCuit", cuit);
        Entrada::tecla(Qt::Key_Return);
        for (const char* dato : {"Panaderia D'Angelo", "", "O'Higgins", "12", "", "", "", "1900", "Berisso"})
        {
            Entrada::escribir(QString::fromLatin1(dato));
            Entrada::tecla(Qt::Key_Return);
        }
        ASSERT_EQ(mesa.foco(), QStringLiteral("cmbProvincia"));
        for (int i = 0; i < 3; ++i)
        {
            Entrada::tecla(Qt::Key_Return);
        }
        ASSERT_EQ(mesa.foco(), QStringLiteral("txtCodRubro"));
        Entrada::escribir(QStringLiteral("a522120"));
        Entrada::tecla(Qt::Key_Return);
        ASSERT_EQ(mesa.foco(), QStringLiteral("txtContacto"));
    }
};
} // namespace

TEST_F(PantallaEmpresas, AbreVaciaSinEmpresasYConVarias)
{
    for (const bool varias : {false, true})
    {
        if (varias)
        {
            sembrarEmpresa(conexion, cuitUno);
            sembrarEmpresa(conexion, cuitDos);
        }
        Pantalla* pantalla = mesa.abrir();
        esperaEstado(false, "");
        EXPECT_EQ(mesa.texto("MaskCuit"), vacio);
        EXPECT_EQ(mesa.texto("txtRazon"), QString());
        EXPECT_TRUE(mesa.activo("MaskCuit"));
        EXPECT_EQ(mesa.foco(), QStringLiteral("CmdABM_0"));
        cajas.espera(Caja::Informacion, QStringLiteral("Debe indicar la Empresa a Modificar."));
        mesa.pulsar("CmdABM_1");
        cajas.espera(Caja::Informacion,
                     QStringLiteral("Debe indicar la Empresa a Eliminar.  Haga un click en el mismo."));
        mesa.pulsar("CmdABM_2");
        esperaEstado(false, "");
        mesa.pulsar("cmdSalir");
        EXPECT_NE(mesa.actual(), pantalla);
    }
}

TEST_F(PantallaEmpresas, AbreConLaUnicaEmpresa)
{
    sembrarEmpresa(conexion);
    sembrarSucursal(conexion, cuitUno, QStringLiteral("2"), QStringLiteral("Berisso"));
    conexion.ejecutar("INSERT INTO Empresas_Responsables (CUIT, AyN, TipoDoc, NroDoc, Domicilio, Localidad) "
                      "VALUES (?, 'Alguien', 1, 12345678, 'Calle 7', 'La Plata')",
                      cuitUno);
    mesa.abrir();
    const std::pair<const char*, QString> campos[] = {{"MaskCuit", cuitUno},
                                                      {"txtRazon", QStringLiteral("Panadería D'Angelo")},
                                                      {"txtFantasia", QStringLiteral("L'Horno")},
                                                      {"txtCalle", QStringLiteral("O'Higgins")},
                                                      {"txtNumero", QStringLiteral("1234")},
                                                      {"txtNroLocal", QStringLiteral("L-5")},
                                                      {"txtPiso", QStringLiteral("3")},
                                                      {"txtDepto", QStringLiteral("B")},
                                                      {"txtCodPos", QStringLiteral("B1900")},
                                                      {"txtLocalidad", QStringLiteral("Berisso")},
                                                      {"cmbProvincia", QStringLiteral("Buenos Aires")},
                                                      {"txtTelefono", QStringLiteral("0221-461-0000")},
                                                      {"txtFax", QStringLiteral("0221-461-0001")},
                                                      {"txtCodRubro", QStringLiteral("522120")},
                                                      {"txtNomRubro", QStringLiteral("Panaderías")},
                                                      {"txtContacto", QStringLiteral("Ñandú D'Elía")},
                                                      {"txtWeb", QStringLiteral("www.example.org")},
                                                      {"txtEMail", QStringLiteral("a@example.org")},
                                                      {"txtEstudio", QStringLiteral("Estudio O'Connor")},
                                                      {"txtEst_Domicilio", QStringLiteral("Calle 7")},
                                                      {"txtEst_CodPos", QStringLiteral("1900")},
                                                      {"txtEst_Localidad", QStringLiteral("La Plata")},
                                                      {"txtEst_Telefono", QStringLiteral("0221-422-0000")},
                                                      {"txtEst_Email", QStringLiteral("e@example.org")}};
    for (const auto& [nombre, texto] : campos)
    {
        EXPECT_EQ(mesa.texto(nombre), texto) << nombre;
    }
    EXPECT_EQ(mesa.filas("vsSucursales"), QStringList{QStringLiteral("2|Calle 60|10|Berisso|1900|")});
    EXPECT_EQ(mesa.filas("vsResponsables"), QStringList{QStringLiteral("Alguien|DNI|12345678|Calle 7|La Plata")});
    esperaEstado(false, "");

    // All of it goes back as it came.
    mesa.pulsar("CmdABM_1");
    cajas.esperaPregunta(preguntaGrabar, true);
    mesa.pulsar("CmdActualiza");
    EXPECT_EQ(cargarEmpresa(conexion, cuitUno), empresaCompleta());
}

TEST_F(PantallaEmpresas, ProvinciaInexistenteEsUnErrorFatal)
{
    sembrarEmpresa(conexion);
    conexion.ejecutar("UPDATE Empresas SET Provincia = 77");
    cajas.esperaQueDiga(Caja::Critico, QStringLiteral("3021"));
    mesa.abrir();
    EXPECT_EQ(mesa.fines, 1);
}

TEST_F(PantallaEmpresas, AltaConElTeclado)
{
    mesa.abrir();
    mesa.pulsar("CmdABM_0");
    esperaEstado(true, " / INGRESO");
    EXPECT_EQ(mesa.foco(), QStringLiteral("MaskCuit"));
    EXPECT_EQ(mesa.filas("vsSucursales").size(), 1);
    EXPECT_EQ(mesa.filas("vsResponsables").size(), 1);
    tipearNueva("30500010912");
    EXPECT_EQ(mesa.texto("txtNomRubro"), QStringLiteral("Panaderías"));

    cajas.esperaPregunta(preguntaGrabar, false);
    mesa.pulsar("CmdActualiza");
    esperaEstado(true, " / INGRESO");
    EXPECT_EQ(contar(conexion, "FROM Empresas"), 0);

    cajas.esperaPregunta(preguntaGrabar, true);
    mesa.pulsar("CmdActualiza");
    esperaEstado(false, "");
    EXPECT_EQ(mesa.foco(), QStringLiteral("CmdABM_0"));
    EXPECT_EQ(mesa.texto("txtRazon"), QStringLiteral("Panaderia D'Angelo"));
    const auto guardada = cargarEmpresa(conexion, cuitDos);
    ASSERT_TRUE(guardada);
    EXPECT_EQ(guardada->calle, QStringLiteral("O'Higgins"));
    EXPECT_EQ(guardada->numero, QStringLiteral("12"));
    EXPECT_EQ(guardada->provincia, 1);
    EXPECT_EQ(guardada->rubro, QStringLiteral("522120"));
}

TEST_F(PantallaEmpresas, LoQueFaltaSeAvisaEnSuOrden)
{
    mesa.abrir();
    mesa.pulsar("CmdABM_0");
    const struct
    {
        const char* texto;
        const char* foco;
        const char* dato;
    } casos[] = {
        {"Debe ingresar el Nro. de C.U.I.T. de la Empresa.", "MaskCuit", "30500010912"},
        {"Debe ingresar la Razón Social de la Empresa.", "txtRazon", "x"},
        {"Debe informar la Calle correspondiente.", "txtCalle", "x"},
        {"Debe informar el Código Postal correspondiente.", "txtCodPos", "x"},
        {"Debe informar la Localidad correspondiente.", "txtLocalidad", "x"},
        {"Debe informar el RUBRO correspondiente.", "cmdRubro", nullptr},
    };
    for (const auto& caso : casos)
    {
        cajas.espera(Caja::Informacion, QString::fromUtf8(caso.texto));
        mesa.pulsar("CmdActualiza");
        EXPECT_EQ(mesa.foco(), QString::fromLatin1(caso.foco));
        if (caso.dato != nullptr)
        {
            mesa.escribir(caso.foco, caso.dato);
        }
    }
    EXPECT_EQ(mesa.texto("txtNumero"), QStringLiteral("0"));
    dynamic_cast<QComboBox&>(mesa.control("cmbProvincia")).setCurrentIndex(-1);
    cajas.espera(Caja::Informacion, QStringLiteral("Debe ingresar la Provincia correspondiente."));
    mesa.pulsar("CmdActualiza");
    EXPECT_EQ(mesa.foco(), QStringLiteral("cmbProvincia"));
    esperaEstado(true, " / INGRESO");
    EXPECT_EQ(contar(conexion, "FROM Empresas"), 0);
}

TEST_F(PantallaEmpresas, ElCuitNuevoSePruebaAlDejarlo)
{
    sembrarEmpresa(conexion);
    mesa.abrir();
    mesa.pulsar("CmdABM_0");
    Entrada::tecla(Qt::Key_Tab); // empty: no test
    EXPECT_EQ(mesa.foco(), QStringLiteral("txtRazon"));
    const std::pair<const char*, bool> casos[] = {
        {"30500010913", false}, {"3050001", false}, {"02123456786", false}, {"20123456786", true}};
    for (const auto& [cuit, existe] : casos)
    {
        mesa.escribir("MaskCuit", cuit);
        for (const bool porBoton : {true, false})
        {
            if (existe)
            {
                cajas.espera(Caja::Critico,
                             QStringLiteral("Verifique los datos de la Empresa.  El Nro. de CUIT ya se encuentra en "
                                            "la Base de Empresas: 'Panadería D'Angelo'."));
            }
            else
            {
                cajas.espera(Caja::Informacion,
                             QStringLiteral("Verifique el Nro. de Cuit ingresado, el mismo es incorrecto."));
            }
            if (porBoton)
            {
                mesa.pulsar("CmdCancela"); // swallowed: no question
            }
            else
            {
                Entrada::tecla(Qt::Key_Return);
            }
            EXPECT_EQ(mesa.foco(), QStringLiteral("MaskCuit")) << cuit;
            EXPECT_EQ(dynamic_cast<QLineEdit&>(mesa.control("MaskCuit")).selectionLength(), 13);
        }
    }
    mesa.escribir("MaskCuit", "30500010912");
    Entrada::tecla(Qt::Key_Return);
    EXPECT_EQ(mesa.foco(), QStringLiteral("txtRazon"));
}

TEST_F(PantallaEmpresas, EnConsultaElCuitSeTipeaPeroNoCargaNada)
{
    sembrarEmpresa(conexion);
    mesa.abrir();
    for (int i = 0; i < 4; ++i)
    {
        Entrada::tecla(Qt::Key_Tab); // walks past the CUIT, which a new company's test would refuse
    }
    EXPECT_EQ(mesa.foco(), QStringLiteral("cmdSalir"));
    mesa.pulsar("MaskCuit");
    cajas.esperaQueDiga(Caja::Critico, QStringLiteral("ya se encuentra"));
    mesa.pulsar("CmdABM_1");
    esperaEstado(false, "");

    mesa.escribir("MaskCuit", "30500010912");
    mesa.pulsar("CmdABM_1");
    esperaEstado(true, " / MODIFICACION");
    EXPECT_EQ(mesa.texto("txtRazon"), QStringLiteral("Panadería D'Angelo"));
    cajas.esperaPregunta(preguntaGrabar, true).esperaQueDiga(Caja::Exclamacion, cuitDos);
    mesa.pulsar("CmdActualiza");
    EXPECT_EQ(contar(conexion, "FROM Empresas"), 1);
}

TEST_F(PantallaEmpresas, ModificarGrabaYQuedaEnPantalla)
{
    sembrarEmpresa(conexion);
    sembrarSucursal(conexion, cuitUno, QStringLiteral("1"), QStringLiteral("Berisso"));
    conexion.ejecutar("UPDATE Empresas_Sucursales SET Marca = 1");
    mesa.abrir();
    for (int vez = 1; vez <= 3; ++vez)
    {
        mesa.pulsar("CmdABM_1");
        esperaEstado(true, " / MODIFICACION");
        EXPECT_FALSE(mesa.activo("MaskCuit"));
        EXPECT_EQ(mesa.foco(), QStringLiteral("txtRazon"));
        EXPECT_EQ(mesa.filas("vsSucursales").size(), 1 + vez); // one more empty row each time
        EXPECT_EQ(mesa.filas("vsResponsables").size(), vez);
        mesa.escribir("txtNumero", "9x8");
        cajas.esperaPregunta(preguntaGrabar, true);
        mesa.pulsar("CmdActualiza");
        esperaEstado(false, "");
        EXPECT_FALSE(mesa.activo("MaskCuit"));
        EXPECT_EQ(cargarEmpresa(conexion, cuitUno)->numero, QStringLiteral("98"));
    }
    EXPECT_EQ(contar(conexion, "FROM Empresas_Sucursales WHERE Marca = 1"), 1); // an untouched grid is not written
}

TEST_F(PantallaEmpresas, CancelarVaciaLaPantalla)
{
    sembrarEmpresa(conexion);
    abrirYModificar();
    cajas.esperaPregunta(preguntaCancelar, false);
    mesa.pulsar("CmdCancela");
    esperaEstado(true, " / MODIFICACION");
    EXPECT_EQ(mesa.texto("MaskCuit"), cuitUno);
    cajas.esperaPregunta(preguntaCancelar, true);
    mesa.pulsar("CmdCancela");
    esperaEstado(false, "");
    EXPECT_EQ(mesa.texto("MaskCuit"), vacio);
    EXPECT_EQ(mesa.texto("txtRazon"), QString());
    EXPECT_EQ(mesa.texto("txtNomRubro"), QString());
    EXPECT_EQ(mesa.filas("vsSucursales"), QStringList());
    EXPECT_EQ(dynamic_cast<QComboBox&>(mesa.control("cmbProvincia")).currentIndex(), 0);
}

TEST_F(PantallaEmpresas, EmpresaEliminadaEnElOtroPuesto)
{
    sembrarEmpresa(conexion);
    abrirYModificar();
    (void)eliminarEmpresa(conexion, cuitUno);
    cajas.esperaPregunta(preguntaGrabar, true).esperaQueDiga(Caja::Exclamacion, QStringLiteral("No se ha grabado"));
    mesa.pulsar("CmdActualiza");
    esperaEstado(true, " / MODIFICACION");
    EXPECT_EQ(contar(conexion, "FROM Empresas"), 0);
}

TEST_F(PantallaEmpresas, Eliminar)
{
    sembrarEmpresa(conexion);
    conexion.ejecutar("INSERT INTO DDJJ (Cuit, Periodo) VALUES (?, '2024-05-01')", cuitUno);
    conexion.ejecutar("INSERT INTO PAGOS (Cuit) VALUES (?)", cuitUno);
    mesa.abrir();
    cajas.espera(Caja::Critico,
                 QStringLiteral("La Empresa seleccionada no se puede Eliminar por tener DD.JJ. Presentadas."));
    mesa.pulsar("CmdABM_2");
    conexion.ejecutar("DELETE FROM DDJJ");
    cajas.espera(Caja::Critico,
                 QStringLiteral("La Empresa seleccionada no se puede Eliminar por tener Pagos Realizados."));
    mesa.pulsar("CmdABM_2");
    conexion.ejecutar("DELETE FROM PAGOS");
    cajas.esperaPregunta(preguntaEliminar, false);
    mesa.pulsar("CmdABM_2");
    EXPECT_EQ(contar(conexion, "FROM Empresas"), 1);
    EXPECT_EQ(mesa.texto("MaskCuit"), cuitUno);

    // A declaration entered at the other desk while the question stands.
    cajas.esperaPregunta(preguntaEliminar, true)
        .espera(Caja::Critico,
                QStringLiteral("La Empresa seleccionada no se puede Eliminar por tener DD.JJ. Presentadas."));
    cajas.alVer(
        [this](const DatosDeCaja& caja)
        {
            if (caja.clase == Caja::Pregunta)
            {
                conexion.ejecutar("INSERT INTO DDJJ (Cuit, Periodo) VALUES (?, '2024-05-01')", cuitUno);
            }
        });
    mesa.pulsar("CmdABM_2");
    EXPECT_EQ(contar(conexion, "FROM Empresas"), 1);
    cajas.alVer({});
    conexion.ejecutar("DELETE FROM DDJJ");

    cajas.esperaPregunta(preguntaEliminar, true)
        .espera(Caja::Informacion, QStringLiteral("LA EMPRESA HA SIDO ELIMINADA."));
    mesa.pulsar("CmdABM_2");
    EXPECT_EQ(contar(conexion, "FROM Empresas"), 0);
    EXPECT_EQ(mesa.texto("MaskCuit"), vacio);
    EXPECT_EQ(mesa.texto("txtRazon"), QString());
    esperaEstado(false, "");
}

TEST_F(PantallaEmpresas, BuscarTraeLaElegidaOLaQueEstabaEnCurso)
{
    sembrarEmpresa(conexion, cuitUno, QStringLiteral("Uno"));
    sembrarEmpresa(conexion, cuitDos, QStringLiteral("Dos"));
    const auto cerrarDialogo = [] { qobject_cast<QDialog*>(MesaEmpresas::actual()->window())->reject(); };
    mesa.abrir();
    mesa.enDialogo("CmdABM_3", cerrarDialogo);
    EXPECT_EQ(mesa.texto("MaskCuit"), vacio);
    mesa.enDialogo("CmdABM_3", [this] { mesa.pulsarCelda("vsGrilla", 2, 1); });
    EXPECT_EQ(mesa.texto("MaskCuit"), cuitDos);
    EXPECT_EQ(mesa.texto("txtRazon"), QStringLiteral("Dos"));

    Rutinas::CuitActual = cuitUno; // another screen's company
    mesa.enDialogo("CmdABM_3", cerrarDialogo);
    EXPECT_EQ(mesa.texto("txtRazon"), QStringLiteral("Uno"));

    (void)eliminarEmpresa(conexion, cuitUno);
    cajas.esperaQueDiga(Caja::Exclamacion, QStringLiteral("ya no se encuentra"));
    mesa.enDialogo("CmdABM_3", cerrarDialogo);
    EXPECT_EQ(mesa.texto("MaskCuit"), vacio);
    EXPECT_EQ(mesa.fines, 0);
}

TEST_F(PantallaEmpresas, Rubro)
{
    sembrarEmpresa(conexion);
    abrirYModificar();
    const auto esperaInexistente = [this]
    { cajas.espera(Caja::Exclamacion, QStringLiteral("Verifique el Código ingresado.  El mismo es inexistente.")); };
    mesa.escribir("txtCodRubro", "77x'7");
    EXPECT_EQ(mesa.texto("txtCodRubro"), QStringLiteral("777"));
    esperaInexistente();
    Entrada::tecla(Qt::Key_Tab);
    EXPECT_EQ(mesa.foco(), QStringLiteral("txtCodRubro"));
    esperaInexistente();
    mesa.pulsar("CmdActualiza");
    EXPECT_EQ(mesa.texto("txtNomRubro"), QStringLiteral("Panaderías"));
    mesa.escribir("txtCodRubro", "");
    Entrada::tecla(Qt::Key_Tab);
    EXPECT_EQ(mesa.texto("txtNomRubro"), QString());

    Rutinas::TextoDevuelto = QStringLiteral("5");
    mesa.enDialogo("cmdRubro", [] { qobject_cast<QDialog*>(MesaEmpresas::actual()->window())->reject(); });
    EXPECT_EQ(mesa.texto("txtCodRubro"), QString()); // closed without a choice, whatever stood there before
    mesa.enDialogo("cmdRubro",
                   [this]
                   {
                       mesa.escribir("txtCodigo", "52");
                       Entrada::tecla(Qt::Key_Return);
                       mesa.pulsarCelda("vsGrilla", 1, 1);
                   });
    EXPECT_EQ(mesa.texto("txtCodRubro"), QStringLiteral("522120"));
    EXPECT_EQ(mesa.texto("txtNomRubro"), QStringLiteral("Panaderías"));
    EXPECT_EQ(mesa.foco(), QStringLiteral("txtContacto"));
}

TEST_F(PantallaEmpresas, LaDeRubroInexistenteSeMuestraIgual)
{
    sembrarEmpresa(conexion);
    sembrarSucursal(conexion, cuitUno, QStringLiteral("1"), QStringLiteral("Berisso"));
    conexion.ejecutar("UPDATE Empresas SET Rubro = '9'");
    cajas.espera(Caja::Exclamacion, QStringLiteral("Verifique el Código ingresado.  El mismo es inexistente."));
    mesa.abrir();
    EXPECT_EQ(mesa.texto("txtCodRubro"), QStringLiteral("9"));
    EXPECT_EQ(mesa.texto("txtNomRubro"), QString());
    EXPECT_EQ(mesa.filas("vsSucursales").size(), 1);
}
