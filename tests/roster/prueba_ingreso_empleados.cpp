// Entering an employee: by keys alone, fields that refuse, the contributions that follow the amounts.
#include "mesa_empleados.h"
#include "roster/screens/empleados.h"
#include "roster/screens/grilla_familiar.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <gtest/gtest.h>

namespace
{
const QString cuilMalo = QStringLiteral("Verifique el Nro. de Cuil ingresado, el mismo es incorrecto.");
const QString cuilRepetido =
    QStringLiteral("El Presente C.U.I.L. ya se encuentra ingresado en la Actual Declaración Jurada.");
const QString fechaMala = QStringLiteral("La Fecha ingresada es incorrecta");
const QString numeroMalo = QStringLiteral("Verifique el Número ingresado.  El mismo es incorrecta");
const QString preguntaCancelar = QStringLiteral("Esta seguro de desea Cancelar los Datos Ingresados?");

class IngresoEmpleados : public testing::Test
{
protected:
    void abrirNuevo(int pagina = 0)
    {
        mesa.abrir();
        mesa.pulsar("cmdEmpleado(0)");
        if (pagina != 0)
        {
            mesa.irAPagina(pagina);
        }
    }
    QStringList aportes() { return mesa.textos({"lblRemTotal", "txtImporte(3)", "txtImporte(4)", "txtImporte(5)"}); }
    void ponerHoras(const char* horas)
    {
        mesa.escribir("cmbQHoras", QString::fromLatin1(horas));
        mesa.teclear(QStringLiteral("\n"));
    }

    MesaEmpleados mesa;
};

TEST_F(IngresoEmpleados, EnterRecorreTodosLosCamposEnSuOrden)
{
    abrirNuevo();
    const QStringList orden = {"MaskCuil_0",    "txtAyN_0",     "cmbDocumento", "txtDocumento",  "cmbSexo",
                               "MaskFecha_0",   "txtCalle",     "txtNumero",    "txtPiso",       "txtDepto",
                               "txtLocalidad",  "txtCodPos",    "cmbProvincia", "txtTelefono",   "cmbEstadoCivil",
                               "vsFamiliares",  "MaskFecha_1",  "cmbCategoria", "cmbQHoras",     "MaskFecha_2",
                               "cmdSucursal",   "txtImporte_1", "txtImporte_2", "cmdEmpleado_3", "cmdEmpleado_4",
                               "chkAfiliado_1", "chkAfiliado_2"};
    for (qsizetype i = 0; i < orden.size(); ++i)
    {
        EXPECT_EQ(orden[i], mesa.foco());
        const bool boton = orden[i].startsWith(QLatin1String("cmd")); // Enter presses it
        mesa.tecla(boton ? Qt::Key_Tab : Qt::Key_Return);
    }
    EXPECT_EQ(2, mesa.pagina());
}

/// What a clerk types for one employee: the fields of the first page after the CUIL, his family, and the third page.
struct Ficha
{
    const char* primera;
    const char* familia;
    const char* tercera;
};

TEST_F(IngresoEmpleados, DiezEmpleadosSinTocarElRaton)
{
    const qint64 sucursal = agregar(mesa.conexion(), SucursalDePrueba());
    mesa.fugaces.registrar(QStringLiteral("BuscarSucursal"),
                           [&] { Rutinas::SucursalElegida = static_cast<qint32>(sucursal); });
    // "d" finds DNI, "m" Masculino, "b" Buenos Aires, "s" Soltero/a; the document number is proposed by the CUIL.
    const Ficha fichas[] = {
        {"Perez Juan\nd\n\nm\n150370\nSan Martin\n45\n\n\nAvellaneda\n1870\nb\n4201\ns\n", "\n",
         "010201\nm\n\n\n\n\t1000\n\n"},
        {"O'Higgins \"Ana\"\nd\n\nf\n010160\n\n\n\n\n\n\n\n\n\n",
         // a spouse and two children, each row added by Down
         "c\nd\n22333444\nD'Angelo Luis\nm\n060575\n\vh\nd\n45111222\nHigo\nf\n010105\n\vh\nd\n46111222\nHigo "
         "II\nm\n310107\n\n",
         "010201\nm\n150\n\n\n\t1000,5\n200.25\n"},
        {"%_%\nd\n\nm\n\n\n\n\n\n\n\n\n\n\n", "\n", "\n\n100\n\n\n\t\n\n"},
    };
    mesa.abrir();
    const int antes = mesa.teclas;
    int escritas = 0;
    for (int i = 0; i < 10; ++i)
    {
        const Ficha& ficha = fichas[i % 3];
        const QString cuil = cuilDe(30000000 + i);
        const QString digitos = QString(cuil).remove(QLatin1Char('-'));
        const QString guion = QStringLiteral("\n%1\n").arg(digitos) + QString::fromUtf8(ficha.primera) +
                              QString::fromUtf8(ficha.familia) + QString::fromUtf8(ficha.tercera) +
                              QStringLiteral("\n");
        for (const QString& tramo : guion.split(QLatin1Char('\v')))
        {
            if (!guion.startsWith(tramo))
            {
                mesa.tecla(Qt::Key_Down);
            }
            mesa.teclear(tramo);
        }
        escritas += static_cast<int>(guion.size());
        ASSERT_EQ(QString(), mesa.titulo()) << "not saved: " << guion.toStdString();
        ASSERT_EQ(QStringLiteral("cmdEmpleado_0"), mesa.foco());
        EXPECT_EQ(QString::number(30000000 + i), mesa.guardado("NroDoc", cuil));
    }
    EXPECT_EQ(10, mesa.contar("DDJJ_Empleados"));
    EXPECT_EQ(9, mesa.contar("Empleados_Familiares"));
    // Besides what is typed: "Agregar", one Enter a field, the branch picked and passed, "Aceptar". Nothing else.
    EXPECT_EQ(escritas, mesa.teclas - antes);
    const int sinFamilia = 1 + 15 + 1 + 8 + 1;
    EXPECT_EQ(sinFamilia, QString::fromUtf8(fichas[0].primera).count(QLatin1Char('\n')) + 2 + 1 +
                              QString::fromUtf8(fichas[0].tercera).count(QLatin1Char('\n')) + 1 + 1);

    const QString segunda = cuilDe(30000001);
    EXPECT_EQ(QStringLiteral("O'Higgins \"Ana\""), mesa.guardado("AyN", segunda));
    EXPECT_EQ(QStringLiteral("1960-01-01"), mesa.guardado("Nacio", segunda));
    EXPECT_EQ(QStringLiteral("12007500"), mesa.guardado("Sueldo", segunda));
    EXPECT_EQ(QString::number(sucursal), mesa.guardado("Sucursal", segunda));
    EXPECT_TRUE(mesa.conexion().hay("SELECT 1 FROM Empleados_Familiares WHERE CUIL = ? AND AyN = 'D''Angelo Luis' AND "
                                    "Familiar = 5 AND Sexo = 1 AND Nacio = '1975-05-06'",
                                    segunda))
        << mesa.familiares().join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(QStringLiteral("%_%"), mesa.guardado("AyN", cuilDe(30000002)));
}

struct CampoQueRechaza
{
    const char* campo;
    int pagina;
    const char* malo;
    QString mensaje;
    Caja clase;
};

void PrintTo(const CampoQueRechaza& caso, std::ostream* salida)
{
    *salida << caso.campo << " with " << caso.malo;
}

class CampoRechaza : public IngresoEmpleados, public testing::WithParamInterface<CampoQueRechaza>
{
};

TEST_P(CampoRechaza, RetieneElFocoLoDiceUnaVezYSeSueltaVacio)
{
    const CampoQueRechaza& caso = GetParam();
    EmpleadoDePrueba repetido;
    repetido.cuil = cuilDe(12345678);
    agregar(mesa.conexion(), repetido);
    abrirNuevo(caso.pagina);
    auto& campo = mesa.control<QLineEdit>(caso.campo);
    mesa.escribir(caso.campo, QString::fromLatin1(caso.malo));
    const QString escrito = campo.displayText();

    const std::function<void()> salidas[] = {
        [&] { mesa.tecla(Qt::Key_Return); },
        [&] { mesa.tecla(Qt::Key_Tab); },
        [&] { mesa.tecla(Qt::Key_Backtab, Qt::ShiftModifier); },
        [&] { mesa.pulsar("cmdEmpleado(4)"); },
        [&] { mesa.pulsar("cmdEmpleado(3)"); },
        [&] { mesa.irAPagina(caso.pagina == 0 ? 1 : 0); },
        [&] { mesa.pulsar(caso.pagina == 0 ? "txtCalle" : "cmbCategoria"); },
    };
    for (const auto& salir : salidas)
    {
        mesa.cajas.espera(caso.clase, caso.mensaje);
        salir();
        EXPECT_EQ(0U, mesa.cajas.pendientes());
        EXPECT_EQ(campo.objectName(), mesa.foco());
        EXPECT_EQ(escrito, campo.displayText());
        EXPECT_EQ(escrito, campo.selectedText());
        EXPECT_EQ(caso.pagina, mesa.pagina());
        EXPECT_EQ(QStringLiteral(" / INGRESO"), mesa.titulo());
        // A swallowed press must not spoil the next one.
        mesa.cajas.espera(caso.clase, caso.mensaje);
        mesa.tecla(Qt::Key_Tab);
    }

    mesa.tecla(Qt::Key_Delete); // the whole text is selected
    mesa.cajas.esperaPregunta(preguntaCancelar, true);
    mesa.tecla(Qt::Key_Tab);
    mesa.pulsar("cmdEmpleado(4)");
    EXPECT_FALSE(mesa.activo("FraEmpleado(0)"));
}

INSTANTIATE_TEST_SUITE_P(Todos, CampoRechaza,
                         testing::Values(CampoQueRechaza{"MaskCuil(0)", 0, "20123456789", cuilMalo, Caja::Informacion},
                                         CampoQueRechaza{"MaskCuil(0)", 0, "2012345", cuilMalo, Caja::Informacion},
                                         CampoQueRechaza{"MaskCuil(0)", 0, "00123456780", cuilMalo, Caja::Informacion},
                                         CampoQueRechaza{"MaskCuil(0)", 0, "20123456786", cuilRepetido, Caja::Critico},
                                         CampoQueRechaza{"MaskFecha(0)", 0, "31022005", fechaMala, Caja::Critico},
                                         CampoQueRechaza{"MaskFecha(0)", 0, "1302", fechaMala, Caja::Critico},
                                         CampoQueRechaza{"MaskFecha(1)", 2, "13132005", fechaMala, Caja::Critico},
                                         CampoQueRechaza{"MaskFecha(2)", 2, "00012005", fechaMala, Caja::Critico},
                                         CampoQueRechaza{"txtImporte(1)", 2, "1,2,3", numeroMalo, Caja::Simple},
                                         CampoQueRechaza{"txtImporte(2)", 2, ",", numeroMalo, Caja::Simple}));

TEST_F(IngresoEmpleados, ElCuilRepetidoLlevaSuTituloYSoloValeEnEstaDeclaracion)
{
    EmpleadoDePrueba empleado;
    empleado.cuil = cuilDe(12345678);
    agregar(mesa.conexion(), empleado);
    empleado.cuil = cuilDe(11111111);
    empleado.secuencia = 1;
    agregar(mesa.conexion(), empleado);
    abrirNuevo();
    mesa.cajas.espera(Caja::Critico, cuilRepetido);
    mesa.teclear(QStringLiteral("20123456786\n"));
    EXPECT_EQ(QStringLiteral("CUIL ya existente"), mesa.cajas.vistas().back().titulo);
    EXPECT_EQ(QString(), mesa.texto("txtDocumento"));

    mesa.pegar("MaskCuil(0)", cuilDe(11111111));
    mesa.teclear(QStringLiteral("\n"));
    EXPECT_EQ(QStringLiteral("txtAyN_0"), mesa.foco());
    EXPECT_EQ(QStringLiteral("11111111"), mesa.texto("txtDocumento"));
    EXPECT_EQ(cuilDe(11111111), mesa.texto("MaskCuil(2)"));
}

TEST_F(IngresoEmpleados, LoPegadoSeCortaEnSuLimite)
{
    abrirNuevo();
    const QString largo = QStringLiteral("0123456789").repeated(6);
    const std::pair<const char*, int> limites[] = {{"txtAyN(0)", 40},    {"txtDocumento", 8}, {"txtCalle", 40},
                                                   {"txtNumero", 5},     {"txtPiso", 3},      {"txtDepto", 3},
                                                   {"txtLocalidad", 30}, {"txtCodPos", 8},    {"txtTelefono", 20}};
    for (const auto& [campo, limite] : limites)
    {
        mesa.pegar(campo, largo);
        EXPECT_EQ(largo.left(limite), mesa.texto(campo)) << campo;
    }
    mesa.pegar("txtDocumento", QStringLiteral("12.345.678"));
    EXPECT_EQ(QStringLiteral("12345678"), mesa.texto("txtDocumento"));
    mesa.pulsar("txtAyN(0)");
    mesa.tecla(Qt::Key_Return);
    EXPECT_EQ(largo.left(40), mesa.texto("txtAyN(1)"));
    mesa.irAPagina(2);
    mesa.pegar("txtImporte(1)", QStringLiteral("1.234,5 pesos"));
    mesa.tecla(Qt::Key_Return);
    EXPECT_EQ(QStringLiteral("1234,50"), mesa.texto("txtImporte(1)"));
}

TEST_F(IngresoEmpleados, LosFiltrosDeTeclas)
{
    abrirNuevo();
    mesa.escribir("txtNumero", QStringLiteral("1a-2 3"));
    EXPECT_EQ(QStringLiteral("123"), mesa.texto("txtNumero"));
    mesa.escribir("txtDocumento", QStringLiteral("9x8"));
    EXPECT_EQ(QStringLiteral("98"), mesa.texto("txtDocumento"));
    mesa.irAPagina(2);
    mesa.escribir("cmbQHoras", QStringLiteral("1.7-3h"));
    EXPECT_EQ(QStringLiteral("173"), mesa.texto("cmbQHoras"));
    mesa.escribir("txtImporte(2)", QStringLiteral("-1e2.5"));
    EXPECT_EQ(QStringLiteral("12,5"), mesa.texto("txtImporte(2)"));
}

TEST_F(IngresoEmpleados, LasFechasCompletanElSiglo)
{
    abrirNuevo(2);
    mesa.escribir("MaskFecha(1)", QStringLiteral("010230"));
    mesa.teclear(QStringLiteral("\n"));
    EXPECT_EQ(QStringLiteral("01/02/1930"), mesa.texto("MaskFecha(1)"));
    mesa.escribir("MaskFecha(2)", QStringLiteral("010229"));
    mesa.teclear(QStringLiteral("\n"));
    EXPECT_EQ(QStringLiteral("01/02/2029"), mesa.texto("MaskFecha(2)"));
}

TEST_F(IngresoEmpleados, LosAportesSiguenALosImportesALasHorasYALaAfiliacion)
{
    abrirNuevo(2);
    mesa.escribir("txtImporte(1)", QStringLiteral("900"));
    mesa.teclear(QStringLiteral("\n100\n"));
    EXPECT_EQ(QStringLiteral("900,00"), mesa.texto("txtImporte(1)"));
    EXPECT_EQ((QStringList{"1000,00", "20,00", "10,00", "10,00"}), aportes());

    const std::pair<const char*, QStringList> tabla[] = {
        {"150", {"1000,00", "26,60", "13,30", "13,30"}},         {"129", {"1000,00", "31,00", "15,50", "15,50"}},
        {"128", {"1000,00", "20,00", "15,60", "15,60"}},         {"100", {"1000,00", "20,00", "20,00", "20,00"}},
        {"0", {"1000,00", "20,00", "20,00", "20,00"}}, // stays invalid
        {"99999999999", {"1000,00", "20,00", "20,00", "20,00"}}, {"", {"1000,00", "20,00", "10,00", "10,00"}}};
    for (const auto& [horas, esperados] : tabla)
    {
        ponerHoras(horas);
        EXPECT_EQ(esperados, aportes()) << horas;
        EXPECT_EQ(QString::fromLatin1(*horas != '\0' ? horas : "200"), mesa.texto("cmbQHoras"));
    }
    auto& lista = mesa.control<QComboBox>("cmbQHoras");
    lista.setFocus();
    mesa.tecla(Qt::Key_Down); // the next entry of the list
    EXPECT_EQ(QStringLiteral("150"), lista.currentText());
    EXPECT_EQ((QStringList{"1000,00", "26,60", "13,30", "13,30"}), aportes());

    const QStringList deNadie = {QStringLiteral("1000,00"), QStringLiteral("26,60"), QStringLiteral("0,00"),
                                 QStringLiteral("0,00")};
    mesa.pulsar("chkAfiliado(2)");
    EXPECT_FALSE(mesa.control<QCheckBox>("chkAfiliado(1)").isChecked());
    EXPECT_EQ(deNadie, aportes());
    mesa.pulsar("chkAfiliado(1)");
    EXPECT_TRUE(mesa.control<QCheckBox>("chkAfiliado(2)").isChecked());
    EXPECT_EQ((QStringList{"1000,00", "26,60", "13,30", "13,30"}), aportes());
    EXPECT_FALSE(mesa.activo("chkAfiliado(0)"));
    EXPECT_FALSE(mesa.activo("txtImporte(4)"));
}

TEST_F(IngresoEmpleados, UnImporteRechazadoNoTocaLosAportes)
{
    abrirNuevo(2);
    mesa.escribir("txtImporte(1)", QStringLiteral("1000"));
    mesa.teclear(QStringLiteral("\n"));
    mesa.cajas.espera(Caja::Simple, numeroMalo);
    mesa.escribir("txtImporte(2)", QStringLiteral("1,,"));
    mesa.teclear(QStringLiteral("\n"));
    EXPECT_EQ((QStringList{"1000,00", "20,00", "10,00", "10,00"}), aportes());
    mesa.tecla(Qt::Key_Delete);
    mesa.teclear(QStringLiteral("\n"));
    EXPECT_EQ(QStringLiteral("cmdEmpleado_3"), mesa.foco());
}

TEST_F(IngresoEmpleados, DejarElEstadoCivilLlevaALosFamiliaresTambienConElRaton)
{
    abrirNuevo();
    for (const char* destino : {"txtCalle", "cmdEmpleado(4)", "cmdEmpleado(3)"})
    {
        mesa.irAPagina(0);
        mesa.pulsar("cmbEstadoCivil");
        mesa.tecla(Qt::Key_Escape); // its list
        mesa.pulsar(destino);
        EXPECT_EQ(1, mesa.pagina()) << destino;
        EXPECT_EQ(QStringLiteral("vsFamiliares"), mesa.foco()) << destino;
        EXPECT_EQ(QStringLiteral(" / INGRESO"), mesa.titulo()) << destino;
    }
}

TEST_F(IngresoEmpleados, LaGrillaAgregaYQuitaRenglones)
{
    abrirNuevo(1);
    GrillaFamiliar& grilla = mesa.familia();
    grilla.setFocus();
    mesa.tecla(Qt::Key_Down);
    mesa.tecla(Qt::Key_Insert);
    EXPECT_EQ(1, grilla.filas()); // no relation yet
    mesa.teclear(QStringLiteral("m\n"));
    EXPECT_EQ(QStringLiteral("Madre"), grilla.texto(1, 1));
    EXPECT_EQ(2, grilla.columnaActual());
    mesa.tecla(Qt::Key_Insert);
    EXPECT_EQ(2, grilla.filas());
    EXPECT_EQ(2, grilla.filaActual());
    EXPECT_EQ(1, grilla.columnaActual());
    EXPECT_EQ(2, mesa.amarilla());
    mesa.teclear(QStringLiteral("p\n"));
    mesa.tecla(Qt::Key_Up);
    EXPECT_EQ(1, mesa.amarilla());

    mesa.tecla(Qt::Key_Delete);
    EXPECT_EQ((QStringList{QStringLiteral("Padre|||||")}), mesa.familiares());
    mesa.tecla(Qt::Key_Delete);
    EXPECT_EQ((QStringList{QStringLiteral("|||||")}), mesa.familiares());
}

TEST_F(IngresoEmpleados, LaGrillaRechazaLoQueNoCabe)
{
    abrirNuevo(1);
    GrillaFamiliar& grilla = mesa.familia();
    grilla.setFocus();
    grilla.setFilaActual(1, GrillaFamiliar::Documento);
    mesa.cajas.esperaQueDiga(Caja::Informacion, QStringLiteral("99.999.999"));
    mesa.teclear(QStringLiteral("100000000\n"));
    EXPECT_TRUE(grilla.editando());
    mesa.cajas.esperaQueDiga(Caja::Informacion, QStringLiteral("99.999.999"));
    mesa.pulsar("cmdEmpleado(4)"); // swallowed
    EXPECT_TRUE(grilla.editando());
    mesa.tecla(Qt::Key_Escape);
    EXPECT_TRUE(mesa.abierta());
    mesa.teclear(QStringLiteral("99999999\n"));
    mesa.teclear(QStringLiteral("x").repeated(45) + QStringLiteral("\nm\n"));
    EXPECT_EQ(40, grilla.texto(GrillaFamiliar::AyN, 1).size());
    mesa.cajas.esperaQueDiga(Caja::Informacion, QStringLiteral("no es válida"));
    mesa.teclear(QStringLiteral("310205\n"));
    mesa.tecla(Qt::Key_Escape);
    mesa.teclear(QStringLiteral("280229\n"));
    EXPECT_EQ(QDate(2029, 2, 28), grilla.fecha(GrillaFamiliar::Nacio, 1));
    mesa.teclear(QStringLiteral("280230\n"));
    EXPECT_EQ(QDate(1930, 2, 28), grilla.fecha(GrillaFamiliar::Nacio, 1));
}
} // namespace
