#include "programa_de_prueba.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace
{
const QString abrir = QStringLiteral("menu \"Procesos\" \"Prueba\"\n");

struct Caso
{
    const char* guion;
    const char* falla; ///< part of the failing line; empty for a script that holds
};

void probar(std::initializer_list<Caso> casos)
{
    for (const Caso& caso : casos)
    {
        const Funcion funcion = jugarGuion(abrir + QString::fromUtf8(caso.guion));
        const QByteArray falla = funcion.falla().toUtf8();
        EXPECT_EQ(funcion.estado, caso.falla[0] == 0 ? 0 : 1) << caso.guion << '\n' << falla.constData();
        EXPECT_TRUE(caso.falla[0] == 0 ? falla.isEmpty() : falla.contains(caso.falla)) << caso.guion << '\n'
                                                                                       << falla.constData();
    }
}

TEST(Robot, ActuaComoUnaPersona)
{
    probar({
        {"escribir txtNombre \"Ñandú 'O' Ωß\"\nespera txtNombre \"Ñandú 'O' Ωß\"\nespera_foco txtNombre", ""},
        {"escribir txtNombre \"uno\"\nescribir txtNombre \"\"\nespera txtNombre \"\"", ""},
        {"escribir txtImporte(3) \"1\"\nescribir txtImporte(3) \"2,5\"\nespera txtImporte(3) \"2,5\"", ""},
        {"escribir MaskCuit \"20-12345678-6\"\nespera MaskCuit \"20-12345678-6\"", ""},
        {"escribir cmbEditable \"150\"\nespera cmbEditable \"150\"", ""},
        {"elegir cmbLista \"Tres\"\nespera cmbLista \"Tres\"\nespera lblEstado \"elige Tres\"", ""},
        {"elegir cmbLista \"Uno\"\nespera lblEstado \"elige Uno\"", ""}, // also the one that stands there already
        {"elegir cmbChequeada \"Dos\"\nespera_foco cmbChequeada\nespera lblEstado \"\"\n" // its list is a part of it
         "pulsar txtNombre\nespera lblEstado \"dejada\"",
         ""},
        {"pulsar chkTilde\nespera_marca chkTilde si\nespera lblEstado \"marcada\"\npulsar chkTilde\n"
         "espera_marca chkTilde no",
         ""},
        {"tecla txtNombre Alt+G\nespera lblEstado \"grabado\"", ""},
        {"tecla cmdGrabar Space\nespera lblEstado \"grabado\"", ""},
        {"escribir txtNombre \"a\"\ntecla txtNombre Enter\nespera_foco txtImporte(3)", ""},
        {"pagina \"Segunda\"\nescribir txtSegunda \"x\"\nespera txtSegunda \"x\"\nespera SSTab1 \"Segunda\"", ""},
        // the focus that only runs through a field, from the page that goes to the one that comes, leaves nothing
        {"pulsar cmdPrimera\npagina \"Segunda\"\nespera lblEstado \"\"", ""},
        {"espera cmdGrabar \"&Grabar\"\nespera cmdGrabar \"Grabar\"", ""},
        {"espera_activo cmdApagado no\nespera_visible cmdOculto no\nespera_visible txtSegunda no", ""},
        {"espera_titulo \"Pantalla de prueba\"\nespera_ventana Prueba si\nespera_ventana Modal no", ""},
        {"cerrar\nespera_ventana Prueba no\nespera_titulo \"Principal\"", ""},
        {"pegar txtNombre \"uno\" Enter\nespera txtNombre \"uno\"\nespera_foco txtImporte(3)", ""},
        {"pegar txtNombre \"uno\"\npegar txtNombre \"dos\"\nespera txtNombre \"dos\"", ""},
        {"tecla txtNombre Tab\nteclear \"12\" Left Backspace \"3\" Backtab\nespera txtImporte(3) \"32\" txtNombre "
         "\"\"\n"
         "espera_foco txtNombre",
         ""},
        {"escribir txtNombre \"a\" Enter txtImporte(3) \"b\"\nespera txtNombre \"a\" txtImporte(3) \"b\"", ""},
        {"espera_lista cmbLista \"Uno\" \"Dos\" \"Tres\"\nespera_lista cmbLista 3", ""},
        {"espera_lista cmbLista \"Uno\" \"Dos\"", "se esperaba"},
    });
}

TEST(Robot, UnaLineaDiceLoQueViene)
{
    probar({
        {"pulsar cmdAvisar dice \"Hola\\n\\\"amigo\\\"\"", ""},
        {"pulsar cmdAvisar dice exclamacion \"Hola\\n\\\"amigo\\\"\"", ""},
        {"pulsar cmdAvisar\nespera_caja exclamacion \"Aviso\" \"Hola\\n\\\"amigo\\\"\"", ""},
        {"pulsar cmdAvisar dice critico \"Hola\\n\\\"amigo\\\"\"", "línea 2: pulsar cmdAvisar dice critico \"Hola"},
        {"pulsar cmdAvisar dice \"Chau\"\npulsar cmdGrabar", "vino la caja exclamacion \"Hola"},
        {"pulsar cmdGrabar dice \"Hola\"", "no vino la caja \"Hola\""},
        {"pulsar cmdAvisar", "ninguna línea dice la caja \"Hola"},
        {"pulsar cmdAvisar\nespera txtNombre \"\"\npulsar cmdGrabar", "línea 2: pulsar cmdAvisar: ninguna línea dice"},
        {"pulsar cmdPreguntar responde Si\nespera lblEstado \"dijo si\"", ""},
        {"pulsar cmdPreguntar responde No dice pregunta \"Seguro?\"\nespera lblEstado \"dijo no\"", ""},
        {"pulsar cmdPreguntar responde Si Si\nespera lblEstado \"dijo si\"",
         "línea 2: pulsar cmdPreguntar responde Si Si: "
         "no vino la pregunta"},
        {"pulsar cmdGrabar responde Si\npulsar cmdPreguntar", "no vino la pregunta"},
        {"pulsar cmdArchivo archivo \"x.txt\"\nespera lblEstado \"x.txt\"", ""},
        {"pulsar cmdGrabar archivo \"x.txt\"\nsalir", "no se pidió el archivo"},
        {"escribir MaskCuit \"20\" Tab dice \"CUIT incompleto\" foco MaskCuit\nescribir MaskCuit \"\" Enter foco "
         "cmbLista",
         ""},
        {"escribir MaskCuit \"20\" Tab dice \"CUIT incompleto\" foco txtNombre\nsalir", "el foco está en «MaskCuit»"},
        {"escribir MaskCuit \"20\" Enter*2\nsalir", "antes de «Enter*1» vino una caja"},
        {"tecla cmdModal Space foco txtModal\npulsar cmdSalir foco cmdModal", ""},
    });
}

TEST(Robot, GrillasPorFilaYCelda)
{
    probar({
        {"fila vsGrilla 1\nespera lblEstado \"fila 1\"", ""},
        {"fila vsGrilla 190\nespera lblEstado \"fila 190\"", ""}, // scrolled into view first
        {"doble vsGrilla 3\nespera lblEstado \"doble 3\"", ""},
        {"fila vsGrilla 0\nespera lblEstado \"encabezado\"", ""},
        {"celda vsGrilla 2 2 \"D'Angelo\"\nespera_celda vsGrilla 2 2 \"D'Angelo\"\n"
         "celda vsGrilla 2 2 \"\"\nespera_celda vsGrilla 2 2 \"\"",
         ""},
        {"celda vsGrilla 5 3 \"Baja\"\nespera_celda vsGrilla 5 3 \"Baja\"\n"
         "celda vsGrilla 5 3 \"Alta\"\nespera_celda vsGrilla 5 3 \"Alta\"",
         ""},
        {"celda vsGrilla 2 4 si\nespera_celda vsGrilla 2 4 si\ncelda vsGrilla 2 4 si\nespera_celda vsGrilla 2 4 si\n"
         "celda vsGrilla 2 4 no\nespera_celda vsGrilla 2 4 no",
         ""},
        {"espera_filas vsGrilla 200\nespera_celda vsGrilla 0 2 \"Nombre\" 3 \"Clase\"", ""},
        {"celda vsGrilla 1 2 \"x\" 4 si\nespera_celda vsGrilla 1 2 \"x\" 4 si\nespera_fila vsGrilla 1 \"x\" \"\" "
         "\"si\" \"\"\n"
         "espera_fila vsGrilla 1 \"x||si|\"",
         ""},
        {"espera_fila vsGrilla 1 \"||no\"", "y dice \"||no|\""},
        {"espera_amarillas vsGrilla", ""},
        {"espera_amarillas vsGrilla 2", "se esperaba \"2\", y dice \"\""},
        {"fila vsGrilla 201", "200 filas"},
        {"celda vsGrilla 1 1 \"7\"", "no muestra la columna 1"},
        {"celda vsGrilla 1 5 \"x\"", "no se edita"},
        {"celda vsGrilla 1 3 \"Bajo\"", "parecidos: Baja"},
        {"espera_celda vsGrilla 1 2 \"algo\"", "se esperaba \"algo\", y dice \"\""},
    });
}

TEST(Robot, LoQueUnaPersonaNoPuedeEsUnError)
{
    probar({
        {"pulsar cmdApagado", "línea 2: pulsar cmdApagado: «cmdApagado» está deshabilitado"},
        {"escribir txtDentro \"x\"", "deshabilitado con «fraApagado»"},
        {"pulsar cmdOculto", "está oculto"},
        {"escribir txtSegunda \"x\"", "está en otra página, «Segunda»"},
        {"espera txtSegunda \"\"", "está en otra página"},
        {"pagina \"Tercera\"", "está deshabilitada"},
        {"pagina \"Cuarta\"", "hay: Primera, Segunda, Tercera"},
        {"pulsar cmdGrabra", "no hay control «cmdGrabra»"},
        {"pulsar cmdGrabra", "parecidos: cmdGrabar"},
        {"escribir txtImporte(2) \"1\"", "txtImporte(3)"},
        {"escribir cmdGrabar \"x\"", "no se escribe"},
        {"elegir cmbLista \"Cuatro\"", "no tiene «Cuatro»"},
        {"elegir txtNombre \"x\"", "no es una lista"},
        {"menu \"Procesos\" \"Apagada\"", "está deshabilitada"},
        {"menu \"Procesos\" \"Otra\"", "hay: Prueba, Apagada, Otros"},
        {"menu \"Procesos\"", "falta su entrada"},
        {"ventana Modal", "no está abierta"},
        {"pulsar cmdModal\npulsar cmdGrabar", "detrás de la ventana modal «Modal»"},
        {"pulsar cmdModal\nmenu \"Salir\"", "detrás de la ventana modal «Modal»"},
        {"espera txtNombre \"x\"", "se esperaba \"x\", y dice \"\""},
        {"espera_mensaje \"nada\"", "no hubo ninguna caja"},
        {"informe salida.pdf", "no hay ningún informe"},
        {"pulsar cmdArchivo", "no hay respuesta"},
        {"salir\npulsar cmdGrabar", "línea 3: pulsar cmdGrabar: el programa terminó antes"},
        {"responder Si", "quedó sin usar la respuesta Si"},
        {"archivo \"x.txt\"", "quedó sin usar el archivo"},
        {"pulsar cmdPreguntar\nespera lblEstado \"dijo no\"", "la pregunta \"Seguro?\" no tiene respuesta"},
    });
}

TEST(Robot, SigueDentroDeUnaVentanaModal)
{
    probar({
        {"pulsar cmdModal\nespera_titulo \"Pantalla modal\"\nescribir txtModal \"x\"\nespera txtModal \"x\"\n"
         "pulsar cmdSalir\nespera lblEstado \"vuelve\"\npulsar cmdModal\ncerrar\nespera_ventana Modal no",
         ""},
        {"pulsar cmdTrampa\nresponder No\ncerrar\nespera_ventana Prueba si\nresponder Si\ncerrar\n"
         "espera_ventana Prueba no",
         ""},
        {"pulsar cmdLargo\nespera lblEstado \"hecho\"", ""},
    });
}

TEST(Robot, UnCampoQueNoSeDejaTragaElClic)
{
    const QString malo = abrir + "escribir MaskCuit \"20\"\n";
    for (const char* accion :
         {"pulsar cmdGrabar", "escribir txtNombre \"x\"", "elegir cmbLista \"Dos\"", "menu \"Procesos\" \"Prueba\"",
          "pagina \"Segunda\"", "fila vsGrilla 3", "tecla cmdGrabar Space", "celda vsGrilla 2 2 \"x\""})
    {
        const Funcion funcion =
            jugarGuion(malo + accion +
                       "\nespera_mensaje \"CUIT incompleto\"\nespera_foco MaskCuit\nespera lblEstado \"\"\n"
                       "espera txtNombre \"\"\nespera cmbLista \"Uno\"\nespera SSTab1 \"Primera\"");
        EXPECT_EQ(funcion.estado, 0) << accion << '\n' << qPrintable(funcion.falla());
        EXPECT_EQ(funcion.transcripcion.filter("CUIT incompleto\" -> Aceptar").size(), 1) << accion;
    }
}

TEST(Robot, LaTranscripcionDiceCadaLineaYCadaCaja)
{
    const Funcion funcion = jugarGuion(
        abrir + "# comentario\npulsar cmdAvisar\nespera_caja exclamacion \"Aviso\" "
                "\"Hola\\n\\\"amigo\\\"\"\nresponder Si\npulsar cmdPreguntar\n"
                "espera lblEstado \"dijo si\"\nmenu \"Procesos\" \"Otros\" \"Aviso\" dice \"desde el menú\"\n"
                "archivo \"uno.txt\"\npulsar cmdArchivo\nespera lblEstado \"uno.txt\"\n"
                "salir");
    EXPECT_EQ(funcion.estado, 0);
    EXPECT_EQ(funcion.transcripcion.join('\n').toStdString(),
              QStringLiteral("menu \"Procesos\" \"Prueba\"\n"
                             "pulsar cmdAvisar\n"
                             "caja exclamacion \"Aviso\" \"Hola\\n\\\"amigo\\\"\" -> Aceptar\n"
                             "espera_caja exclamacion \"Aviso\" \"Hola\\n\\\"amigo\\\"\"\n"
                             "responder Si\n"
                             "pulsar cmdPreguntar\n"
                             "caja pregunta \"Altoverde\" \"Seguro?\" -> Si\n"
                             "espera lblEstado \"dijo si\"\n"
                             "menu \"Procesos\" \"Otros\" \"Aviso\" dice \"desde el menú\"\n"
                             "caja simple \"Altoverde\" \"desde el menú\" -> Aceptar\n"
                             "archivo \"uno.txt\"\n"
                             "pulsar cmdArchivo\n"
                             "dialogo \"Elija\" -> \"uno.txt\"\n"
                             "espera lblEstado \"uno.txt\"\n"
                             "salir")
                  .toStdString());
}

TEST(Robot, ElFinPorErrorDelProgramaEsTres)
{
    const Funcion funcion = jugarGuion(abrir + "pulsar cmdFalla\npulsar cmdGrabar");
    EXPECT_EQ(funcion.estado, 3);
    EXPECT_TRUE(funcion.transcripcion.last().startsWith("caja critico")) << qPrintable(funcion.transcripcion.last());
}

TEST(Robot, CapturasInformesYArchivos)
{
    const QTemporaryDir carpeta;
    const auto escribirArchivo = [&](const QString& nombre, const QByteArray& texto)
    {
        QFile archivo(carpeta.filePath(nombre));
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly));
        archivo.write(texto);
    };
    escribirArchivo("uno.txt", "línea\nabc\n");
    escribirArchivo("igual.txt", "línea\nabc\n");
    escribirArchivo("otro.txt", "línea\nabx\n");
    const Funcion bien =
        jugarGuion(abrir + "pulsar cmdModal\ncaptura fotos/modal.png\nretrato fotos/sola.png\npulsar cmdSalir\n"
                           "menu \"Procesos\" \"Otros\" \"Informe\"\ninforme salida/i.pdf\n"
                           "espera_ventana Informe no\nespera_archivo uno.txt igual.txt\n"
                           "espera_sin_archivo dos.txt\npulsar cmdGrabar\nespera lblEstado grabado",
                   carpeta.path());
    EXPECT_EQ(bien.estado, 0) << qPrintable(bien.falla());
    EXPECT_GT(QImage(carpeta.filePath("fotos/modal.png")).width(), 700);
    const int sola = QImage(carpeta.filePath("fotos/sola.png")).width();
    EXPECT_TRUE(sola > 0 && sola < 700) << sola;
    EXPECT_TRUE(QFile::exists(carpeta.filePath("salida/i.pdf")));
    const Funcion mal = jugarGuion("espera_archivo uno.txt otro.txt", carpeta.path());
    EXPECT_EQ(mal.estado, 1);
    EXPECT_TRUE(mal.falla().contains("línea 2, posición 3")) << qPrintable(mal.falla());
}
} // namespace
