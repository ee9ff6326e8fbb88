#include "ui/doors/mensajes.h"

#include "base/error_de_ejecucion.h"
#include "mesa.h"
#include "ui/doors/caja_abierta.h"
#include "ui/shell/error_fatal.h"

#include <locale>
#include <stdexcept>

namespace
{
TEST(Cajas, ElTextoTalCualSobreLaVentanaDelProgramaYElNoPorDefecto)
{
    const QString texto = "<b>Pérez & hijos</b>\nsegunda";
    Mesa mesa;
    P una = mesa.abrir("Una");
    const auto mirar = [&](QMessageBox& caja)
    {
        EXPECT_EQ(caja.icon(), QMessageBox::Warning);
        EXPECT_EQ(caja.text(), texto);
        EXPECT_EQ(caja.textFormat(), Qt::PlainText);
        EXPECT_EQ(caja.windowTitle(), "Altoverde");
        EXPECT_EQ(caja.parentWidget(), &mesa.ventana);
        EXPECT_EQ(caja.findChild<QLabel*>("qt_msgboxex_icon_label")->accessibleName(), "Atención");
        EXPECT_TRUE(hayCajaAbierta());
        pulsar(*una.accion); // blocked
        jugar("Esc");
    };
    conLaCaja(mirar);
    MsgBox(texto, Caja::Exclamacion);
    EXPECT_EQ(una.acciones, 0);
    EXPECT_FALSE(hayCajaAbierta());
    for (const auto& [gesto, respuesta] :
         {std::pair("Return", false), {"Esc", false}, {"Alt+S", true}, {"Alt+N", false}})
    {
        conLaCaja([gesto = gesto](QMessageBox&) { jugar(gesto); });
        EXPECT_EQ(Preguntar("¿Borra?"), respuesta) << gesto;
    }
    QWidget vista; // what comes after its box, before the window system has made it active again, is still its own
    activar(vista);
    conLaCaja([](QMessageBox&) { jugar("Return"); });
    MsgBox("Listo", Caja::Informacion);
    EXPECT_EQ(ventanaParaCaja(), &vista);
    vista.hide();
    EXPECT_EQ(ventanaParaCaja(), &mesa.ventana);
}

TEST(ErrorFatal, SeInformaUnaVezConNumeroYDescripcionYElDeAvisoNoTerminaNada)
{
    const std::tuple<void (*)(), QString, QString, int> casos[] = {
        {[] { throw ErrorDeEjecucion(70, "en uso"); }, "70", "en uso", 3},
        {[] { throw std::runtime_error("algo pasó"); }, "5", "algo pasó", 3},
        {[] { throw 7; }, "51", "Error interno", 3},
        {[] { throw ErrorParaAvisar(5, "Otro puesto."); }, "", "Otro puesto.", -1},
    };
    for (const auto& [cuerpo, numero, dice, fin] : casos)
    {
        CajasDePrueba cajas;
        const QString fatal = "Se ha producido el error '%1' en tiempo de ejecución:\n\n%2";
        numero.isEmpty() ? cajas.espera(Caja::Exclamacion, dice) : cajas.espera(Caja::Critico, fatal.arg(numero, dice));
        if (fin == 3) // while the box is up another handler fails too: a consequence, told nobody
        {
            cajas.alVer([](const DatosDeCaja&) { protegido([] { throw ErrorDeEjecucion(2, {}); }); });
        }
        int estado = -1;
        reemplazarFinDelProceso([&](int con) { estado = con; });
        protegido(cuerpo);
        EXPECT_EQ(estado, fin) << qPrintable(dice);
    }
    reemplazarFinDelProceso({});
}

TEST(ErrorFatal, LosManejadoresYChequeosDeUnaPantallaNoDejanPasarNada)
{
    Mesa mesa;
    P una = mesa.abrir("Una");
    una.conectar(una.tilde, &QCheckBox::clicked, [] { throw ErrorDeEjecucion(13, {}); });
    una.alDejar(una.fecha, []() -> bool { throw std::logic_error("chequeo"); });
    CajasDePrueba cajas;
    cajas.esperaQueDiga(Caja::Critico, "'13'").esperaQueDiga(Caja::Critico, "chequeo");
    int finales = 0;
    reemplazarFinDelProceso([&](int) { ++finales; });
    pulsar(*una.tilde, {8, una.tilde->height() / 2});
    pulsar(*una.fecha);
    jugar("Tab");
    reemplazarFinDelProceso({});
    EXPECT_EQ(finales, 2);
}

TEST(ErrorFatal, ElFinEsInmediato)
{
    // What is registered for an ordinary end does not run, and what was printed is there.
    const auto terminar = []
    {
        std::atexit([] { std::fputs("tarde", stderr); });
        std::fputs("antes", stderr);
        terminarProceso(3);
    };
    // Where it cannot fork, the library hands numbers to the dying process as texts, which it reads without signs.
    const std::locale deLaPrueba = std::locale::global(std::locale::classic());
    EXPECT_EXIT(terminar(), testing::ExitedWithCode(3), "^antes$");
    std::locale::global(deLaPrueba);
}
} // namespace
