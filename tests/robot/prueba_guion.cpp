#include "guion.h"

#include "teclas.h"

#include <gtest/gtest.h>

namespace
{
template <class Accion>
Accion unica(const char* texto)
{
    const auto pasos = guion::leer(texto);
    EXPECT_EQ(pasos.size(), 1U) << texto;
    EXPECT_TRUE(std::holds_alternative<Accion>(pasos.at(0).accion)) << texto;
    return std::get<Accion>(pasos.at(0).accion);
}

TEST(Guion, SeparaLasPalabras)
{
    struct Caso
    {
        const char* texto;
        QStringList palabras;
    };
    const Caso casos[] = {
        {"", {}},
        {"   # nada", {}},
        {"pulsar cmdNueva", {"pulsar", "cmdNueva"}},
        {"\tescribir  txtImporte(3)\t\"1,5\" ", {"escribir", "txtImporte(3)", "1,5"}},
        {"espera lbl \"\"", {"espera", "lbl", ""}},
        {R"(a "d\"b" "c:\\n" "c:\x" "uno\ndos")", {"a", "d\"b", "c:\\n", "c:\\x", "uno\ndos"}},
        {"a \"# dentro\" # fuera \"", {"a", "# dentro"}},
        {"pulsar cmd#1", {"pulsar", "cmd#1"}},
        {"escribir x \"ñandú Ωß\"", {"escribir", "x", "ñandú Ωß"}},
    };
    for (const Caso& caso : casos)
    {
        EXPECT_EQ(guion::palabras(QString::fromUtf8(caso.texto), 1), caso.palabras) << caso.texto;
    }
}

TEST(Guion, LoQueEscribeEntreComillasSeLeeIgual)
{
    for (const char* texto : {"", "simple", "con \"comillas\"", "c:\\nuevo\\", "dos\nlíneas", "\\n", "\\\""})
    {
        const QString original = QString::fromUtf8(texto);
        EXPECT_EQ(guion::palabras(guion::entreComillas(original), 1), QStringList{original}) << texto;
    }
}

TEST(Guion, LeeCadaAccionConSusTipos)
{
    EXPECT_EQ(unica<guion::Menu>("menu \"Procesos\" \"Pago de Actas\"").entradas,
              (QStringList{"Procesos", "Pago de Actas"}));
    const auto celda = unica<guion::Celda>("celda vsSucursales 2 3 \"D'Angelo\"");
    EXPECT_EQ(celda.fila, 2);
    EXPECT_EQ(celda.columna, 3);
    EXPECT_EQ(celda.texto, "D'Angelo");
    EXPECT_FALSE(unica<guion::Fila>("fila vsDDJJ 0").doble);
    EXPECT_TRUE(unica<guion::Fila>("doble vsDDJJ 4").doble);
    EXPECT_TRUE(unica<guion::Responder>("responder Sí").si);
    EXPECT_FALSE(unica<guion::Responder>("responder no").si);
    EXPECT_EQ(unica<guion::Fecha>("fecha 05/03/2007").ahora, QDateTime(QDate(2007, 3, 5), QTime(0, 0)));
    EXPECT_EQ(unica<guion::Fecha>("fecha 05/03/2007 09:30").ahora, QDateTime(QDate(2007, 3, 5), QTime(9, 30)));
    EXPECT_EQ(unica<guion::EsperaEstado>("espera_marca chk si").cual, guion::EsperaEstado::Marca);
    EXPECT_FALSE(unica<guion::EsperaEstado>("espera_visible lbl no").si);
    EXPECT_EQ(unica<guion::Archivo>("archivo \"\"").ruta, "");
    const auto tecla = unica<guion::Tecla>("tecla txt Ctrl+Shift+Tab");
    EXPECT_EQ(tecla.tecla, Qt::Key_Backtab);
    EXPECT_EQ(tecla.modificadores, Qt::ControlModifier | Qt::ShiftModifier);
}

TEST(Guion, GuardaLaLineaYSuTexto)
{
    const auto pasos = guion::leer("\xEF\xBB\xBF# cabecera\r\n\r\n  pulsar a  # aquí\r\nsalir");
    ASSERT_EQ(pasos.size(), 2U);
    EXPECT_EQ(pasos[0].linea, 3);
    EXPECT_EQ(pasos[0].texto, "pulsar a  # aquí");
    EXPECT_EQ(pasos[1].linea, 4);
}

TEST(Guion, RechazaConElNumeroDeLinea)
{
    const char* malos[] = {
        "bailar",
        "pulsar",
        "pulsar a b",
        "escribir a \"sin cierre",
        "escribir a \"x\"y",
        "fila g uno",
        "fila g -1",
        "celda g 0 1 x",
        "celda g 1 0 x",
        "responder quizás",
        "espera_activo a tal",
        "fecha 31/02/2007",
        "fecha 01/01/2007 25:00",
        "tecla a Enterr",
        "tecla a Hiper+A",
        "salir ya",
        "escribir a \"\xF1\"",
    };
    for (const char* malo : malos)
    {
        try
        {
            (void)guion::leer(QByteArray("# uno\n") + malo);
            ADD_FAILURE() << malo;
        }
        catch (const guion::ErrorDeLectura& error)
        {
            EXPECT_FALSE(error.motivo().isEmpty());
            EXPECT_TRUE(error.linea() == 2 || QByteArray(malo).contains('\xF1')) << malo;
        }
    }
}

TEST(Guion, ConoceLasTeclas)
{
    EXPECT_EQ(teclaDeNombre("Enter")->key(), Qt::Key_Return);
    EXPECT_EQ(teclaDeNombre("F12")->key(), Qt::Key_F12);
    EXPECT_EQ(teclaDeNombre("Alt+n")->key(), Qt::Key_N);
    EXPECT_EQ(teclaDeNombre("Alt+n")->keyboardModifiers(), Qt::AltModifier);
    EXPECT_FALSE(teclaDeNombre("").has_value());
    EXPECT_FALSE(teclaDeNombre("Ctrl+").has_value());
}
} // namespace
