#include "guion.h"
#include "teclas.h"

#include <gtest/gtest.h>

namespace
{
/// The steps of a line, each as "verb|argument|argument"; what it says of what comes of it stands in the last one.
std::string leida(const char* linea)
{
    QStringList pasos;
    for (const guion::Paso& paso : guion::leer(linea))
    {
        QStringList partes = QStringList{paso.verbo->nombre} + guion::textos(paso.argumentos, 0);
        for (const guion::CajaEsperada& caja : paso.cajas)
        {
            partes += "dice:" + (caja.clase ? guion::nombreDe(*caja.clase) + ":" : QString()) + caja.texto;
        }
        partes += paso.respuestas.isEmpty() ? QStringList() : QStringList{"responde:" + paso.respuestas.join(',')};
        partes += paso.archivos.isEmpty() ? QStringList() : QStringList{"archivo:" + paso.archivos.join(',')};
        partes += paso.foco.isEmpty() ? QStringList() : QStringList{"foco:" + paso.foco};
        pasos += partes.join('|');
    }
    return pasos.join(" / ").toStdString();
}

TEST(Guion, LeeCadaForma)
{
    const std::pair<const char*, const char*> casos[] = {
        {"", ""},
        {"   # nada", ""},
        {"\xEF\xBB\xBFsalir\r\n", "salir"},
        {"\tescribir  txtImporte(3)\t\"1,5\" ", "escribir|txtImporte(3)|1,5"},
        {"pulsar cmd#1 # fuera \"", "pulsar|cmd#1"},
        {R"(menu "d\"b" "c:\\n" "c:\x" "uno\ndos" "# ñ Ω")", "menu|d\"b|c:\\n|c:\\x|uno\ndos|# ñ Ω"},
        {"espera a \"1\" b \"\"", "espera|a|1 / espera|b|"},
        {"espera_activo aa bb si cc no", "espera_activo|aa|bb|si / espera_activo|cc|no"},
        {"escribir aa \"1\" Enter bb \"Tab\"", "escribir|aa|1|Enter / escribir|bb|Tab"},
        {"celda g 1 2 \"x\" 3 \"y\"", "celda|g|1|2|x / celda|g|1|3|y"},
        {"tecla a Down*2 Ctrl+Shift+Tab", "tecla|a|Down*2|Ctrl+Shift+Tab"},
        {"teclear \"Enter\" Enter", "teclear|Enter|Enter"},
        {"fecha 05/03/2007 09:30", "fecha|05/03/2007|09:30"},
        {"espera_amarillas g", "espera_amarillas|g"},
        {"menu a b responde Sí no dice \"x\" critico \"y\" foco z",
         "menu|a|b|dice:x|dice:critico:y|responde:Sí,no|foco:z"},
        {"pulsar a archivo \"\" dice \"critico\"", "pulsar|a|dice:critico|archivo:"},
        {"menu \"dice\" \"foco\"", "menu|dice|foco"},
    };
    for (const auto& [linea, esperada] : casos)
    {
        EXPECT_EQ(leida(linea), esperada) << linea;
    }
}

TEST(Guion, LoQueEscribeEntreComillasSeLeeIgual)
{
    for (const char* texto : {"", "simple", "con \"comillas\"", "c:\\nuevo\\", "dos\nlíneas", "\\n", "\\\""})
    {
        EXPECT_EQ(leida(("menu " + guion::entreComillas(texto)).toUtf8()), std::string("menu|") + texto);
    }
}

TEST(Guion, RechazaConElNumeroDeLinea)
{
    for (const char* malo : {"bailar",
                             "pulsar",
                             "pulsar a b",
                             "escribir a",
                             "escribir a \"sin cierre",
                             "escribir a \"x\"y",
                             "fila g uno",
                             "fila g -1",
                             "celda g 0 1 x",
                             "celda g 1 0 x",
                             "celda g 1 1 x 2",
                             "responder quizás",
                             "espera_activo a tal",
                             "espera_activo si",
                             "fecha 31/02/2007",
                             "fecha 01/01/2007 25:00",
                             "tecla a Enterr",
                             "tecla a Hiper+A",
                             "tecla a Enter*0",
                             "tecla a \"Enter\"",
                             "salir ya",
                             "pulsar a dice",
                             "pulsar a responde tal",
                             "pulsar a dice critico",
                             "espera_caja otra \"\" \"\"",
                             "espera a \"1\" foco a",
                             "pulsar a foco b c"})
    {
        try
        {
            ADD_FAILURE() << leida((std::string("# uno\n") + malo).c_str());
        }
        catch (const Falla& falla)
        {
            EXPECT_TRUE(falla.motivo().startsWith("línea 2: ")) << malo << falla.what();
        }
    }
    EXPECT_THROW((void)guion::leer("escribir a \"\xF1\""), Falla);
}

TEST(Guion, ConoceLasTeclas)
{
    EXPECT_EQ(leerTeclas("Enter*3")->tecla.key(), Qt::Key_Return);
    EXPECT_EQ(leerTeclas("Enter*3")->veces, 3);
    EXPECT_EQ(leerTeclas("F12")->tecla.key(), Qt::Key_F12);
    EXPECT_EQ(leerTeclas("Alt+n")->tecla, QKeyCombination(Qt::AltModifier, Qt::Key_N));
    EXPECT_EQ(leerTeclas("Shift+Tab")->tecla.key(), Qt::Key_Backtab);
    for (const char* nombre : {"PageUp", "PageDown", "Insert", "Delete", "Escape", "Backspace", "Space", "Home"})
    {
        EXPECT_TRUE(leerTeclas(nombre).has_value()) << nombre;
    }
    EXPECT_FALSE(leerTeclas("").has_value());
    EXPECT_FALSE(leerTeclas("Ctrl+").has_value());
}
} // namespace
