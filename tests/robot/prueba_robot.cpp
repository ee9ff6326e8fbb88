// The scripts in tests/guiones show that each verb does what it says. Here: that a line fails when it must, or all of
// them would prove nothing.
#include "robot.h"

#include "apoyo/base_de_prueba.h"
#include "apoyo/datos.h"
#include "core/screens/mdi_menu_ppal.h"
#include "registro.h"

#include <QApplication>
#include <QEventLoop>
#include <gtest/gtest.h>

namespace
{
struct Funcion
{
    int estado = -1;
    QString falla; ///< the line of the transcript that tells of it
};

/// Plays a script on the real program, whose database holds one company with a branch.
Funcion jugar(const QString& guion)
{
    const BaseDePrueba base;
    poner("Empresas", {{"Rubro", "012110"}});
    poner("Empresas_Sucursales");
    MDIMenuPpal menu;
    menu.resize(1024, 740);
    menu.show();
    Funcion funcion;
    QEventLoop vuelta;
    Robot robot(
        guion::leer(guion.toUtf8()), {base.ruta({}), {}},
        [&](const QString& linea) { funcion.falla = linea.startsWith("falla ") ? linea : funcion.falla; },
        [&](int estado)
        {
            funcion.estado = estado;
            while (QWidget* modal = QApplication::activeModalWidget())
            {
                modal->close();
            }
            vuelta.quit();
        });
    robot.empezar();
    robot.programaListo();
    vuelta.exec();
    return funcion;
}

TEST(Robot, UnaLineaQueNoValeFalla)
{
    registrarPantallas();
    const QString alta = "pulsar CmdABM(0)\n";
    const QString incompleta = "pulsar CmdABM(0)\npulsar CmdActualiza";
    const std::pair<QString, const char*> casos[] = {
        // What a person cannot do.
        {"pulsar CmdActualiza", "línea 2: pulsar CmdActualiza: «CmdActualiza» está deshabilitado"},
        {"pulsar CmdActualisa", "no hay control «CmdActualisa» en «Empresas»; parecidos: CmdActualiza"},
        {"menu \"Archivo\" \"Empresa\"", "no hay entrada «Empresa»; hay: Empresas"},
        {"ventana DDJJ", "la ventana «DDJJ» no está abierta"},
        {"menu \"Procesos\" \"Declaraciones Juradas\"\npulsar CmdABM(0)", "está en otra ventana, «Empresas»"},
        {"menu \"Procesos\" \"Declaraciones Juradas\"\npulsar cmdBoletas(0)", "está en otra página, «Generar Pago»"},
        {alta + "pulsar cmdRubro\npulsar CmdCancela", "está detrás de la ventana modal «BuscarRubro»"},
        {"escribir cmdSalir \"x\"", "no se escribe"},
        {alta + "elegir cmbProvincia \"Buenos Ayres\"", "la lista no tiene «Buenos Ayres»; parecidos: Buenos Aires"},
        {alta + "celda vsResponsables 1 2 \"DNX\"", "la lista no tiene «DNX»"},
        {alta + "celda vsSucursales 1 1 \"7\"", "la grilla no muestra la columna 1"},
        {"celda vsSucursales 1 3 \"x\"", "está deshabilitado con «fraDatos»"},
        {alta + "pulsar vsSucursales[9]", "la grilla tiene 1 filas"},
        {"pagina \"Nada\"", "no hay página «Nada»"},
        {"informe x.pdf", "no hay ningún informe"},
        {alta + "escribir MaskCuit \"20\" Enter*2", "antes de «Enter*1» vino una caja"},
        // What is not so.
        {"espera txtRazon \"x\"", "se esperaba \"x\", y dice \"Panadería Ñandú\""},
        {"espera_activo cmdSalir CmdActualiza si", "«CmdActualiza» activo: no"},
        {"espera_visible txtRazon no", "«txtRazon» visible: si"},
        {"espera_marca txtRazon si", "no se marca"},
        {"espera_titulo \"x\"", "se esperaba \"x\""},
        {"espera_estado \"x\"", "se esperaba \"x\""},
        {"espera_ventana Empresas si DDJJ si", "la ventana «DDJJ» abierta: no"},
        {"espera_lista cmbProvincia 23", "se esperaba \"23\", y dice \"24\""},
        {"espera_celda vsSucursales 1 3 \"x\"", "se esperaba \"x\", y dice \"Belgrano\""},
        {"espera_fila vsSucursales 1 \"1|Belgrano\"", "se esperaba \"1|Belgrano\", y dice \"1|Belgrano|45|"},
        {"espera_filas vsSucursales 2", "se esperaba \"2\", y dice \"1\""},
        {"espera_amarillas vsSucursales 2", "se esperaba \"2\""},
        {"espera_base \"SELECT CUIT FROM Empresas\" \"x\"", "se esperaba \"x\", y dice \"30-12345678-1\""},
        {"espera_base \"SELECT x\" \"\"", "la consulta falla"},
        {"sql \"UPDATE x\"", "la base no admite las sentencias"},
        {"espera_sin_archivo DBBrivo.mdb", "existe DBBrivo.mdb"},
        // What comes of a line, and what is left over.
        {incompleta, "línea 3: pulsar CmdActualiza: vino la caja informacion \"Debe ingresar el Nro."},
        {incompleta + " dice \"x\"", "vino la caja informacion \"Debe ingresar"},
        {incompleta + " dice critico \"Debe ingresar el Nro. de C.U.I.T. de la Empresa.\"", "vino la caja informacion"},
        {"pulsar CmdABM(0) dice \"x\"\nsalir", "línea 2: pulsar CmdABM(0) dice \"x\": no vino la caja \"x\""},
        {alta + "pulsar CmdCancela",
         "la pregunta \"Esta seguro de desea Cancelar los Datos ingresados?\" no tiene respuesta"},
        {"pulsar CmdABM(0) responde Si", "no vino la pregunta"},
        {"pulsar CmdABM(0) archivo \"x\"", "no se pidió el archivo"},
        {"pulsar CmdABM(0) foco txtRazon", "el foco está en «MaskCuit», y se esperaba en «txtRazon»"},
        {"salir\npulsar cmdSalir", "línea 3: pulsar cmdSalir: el programa terminó antes"},
    };
    for (const auto& [lineas, falla] : casos)
    {
        const Funcion funcion = jugar("menu \"Archivo\" \"Empresas\"\n" + lineas);
        EXPECT_EQ(funcion.estado, Robot::Mal) << lineas.toStdString();
        EXPECT_TRUE(funcion.falla.contains(falla)) << lineas.toStdString() << '\n' << funcion.falla.toStdString();
    }
    EXPECT_EQ(jugar("menu \"Archivo\" \"Empresas\"\nespera txtRazon \"Panadería Ñandú\"").estado, Robot::Bien);
}

TEST(Robot, UnGuionQueNoSeLeeNoSeJuega)
{
    const QByteArray malas = R"(bailar|pulsar|escribir a|escribir a "sin cierre|escribir a "x"y|doble g uno|)"
                             R"(doble g -1|celda g 0 1 x|celda g 1 0 x|celda g 1 1 x 2|espera_activo a tal|)"
                             R"(espera_activo si|fecha 31/02/2007|fecha 01/01/2007 25:00|tecla a Enterr|)"
                             R"(tecla a Hiper+A|tecla a Enter*0|tecla a "Enter"|salir ya|pulsar a dice|)"
                             R"(pulsar a responde tal|pulsar a dice critico|espera a "1" foco a|pulsar a foco b c)";
    for (const QByteArray& mala : malas.split('|'))
    {
        try
        {
            (void)guion::leer("# uno\n" + mala);
            ADD_FAILURE() << mala.constData();
        }
        catch (const Falla& falla)
        {
            EXPECT_TRUE(falla.motivo().startsWith("línea 2: ")) << mala.constData() << falla.what();
        }
    }
    EXPECT_THROW((void)guion::leer("escribir a \"\xF1\""), Falla);
    const auto pasos = guion::leer(R"(escribir x "d\"b c:\\n c:\x uno\ndos" Enter y "# no" # sí "nada)");
    ASSERT_EQ(pasos.size(), 2U);
    EXPECT_EQ(pasos[0].argumentos[1].texto, "d\"b c:\\n c:\\x uno\ndos");
    EXPECT_EQ(pasos[1].argumentos[1].texto, "# no");
}
} // namespace
