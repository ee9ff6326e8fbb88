#include "ui/doors/mensajes.h"

#include "apoyo/cajas_de_prueba.h"
#include "base/error_de_ejecucion.h"
#include "mesa.h"
#include "ui/shell/error_fatal.h"

#include <QMessageBox>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Entrada;

namespace
{
TEST(Cajas, ElTextoTalCualSobreLaVentanaDelPrograma)
{
    const QString texto = QStringLiteral("<b>Pérez & hijos</b>\nsegunda");
    Mesa mesa;
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    const auto mirar = [&](QMessageBox& caja)
    {
        EXPECT_EQ(caja.icon(), QMessageBox::Warning);
        EXPECT_EQ(caja.text(), texto);
        EXPECT_EQ(caja.textFormat(), Qt::PlainText);
        EXPECT_EQ(caja.windowTitle(), QStringLiteral("Altoverde"));
        EXPECT_EQ(caja.parentWidget(), &mesa.ventana);
        EXPECT_TRUE(hayCajaAbierta());
        pulsar(*una.accion); // blocked
        tecla(Qt::Key_Escape);
    };
    conLaCaja(mirar);
    MsgBox(texto, Caja::Exclamacion);
    EXPECT_EQ(una.acciones, 0);
    EXPECT_FALSE(hayCajaAbierta());
}

TEST(Cajas, LaPreguntaTieneElNoPorDefecto)
{
    const std::tuple<const char*, void (*)(QMessageBox&), bool> casos[] = {
        {"Enter", [](QMessageBox&) { tecla(Qt::Key_Return); }, false},
        {"Escape", [](QMessageBox&) { tecla(Qt::Key_Escape); }, false},
        {"cerrar", [](QMessageBox& caja) { caja.close(); }, false},
        {"Alt+S", [](QMessageBox&) { tecla(Qt::Key_S, Qt::AltModifier); }, true},
        {"Alt+N", [](QMessageBox&) { tecla(Qt::Key_N, Qt::AltModifier); }, false},
    };
    for (const auto& [nombre, hacer, respuesta] : casos)
    {
        conLaCaja(hacer);
        EXPECT_EQ(Preguntar(QStringLiteral("¿Borra?")), respuesta) << nombre;
    }
}

TEST(ErrorFatal, SeInformaUnaVezConNumeroYDescripcionYElDeAvisoNoTerminaNada)
{
    const std::tuple<void (*)(), Caja, const char*, int> casos[] = {
        {[] { throw ErrorDeEjecucion(70, QStringLiteral("en uso")); }, Caja::Critico,
         "Se ha producido el error '70' en tiempo de ejecución:\n\nen uso", 3},
        {[] { throw std::runtime_error("algo pasó"); }, Caja::Critico,
         "Se ha producido el error '5' en tiempo de ejecución:\n\nalgo pasó", 3},
        {[] { throw 7; }, Caja::Critico, "Se ha producido el error '51' en tiempo de ejecución:\n\nError interno", 3},
        {[] { throw ErrorParaAvisar(5, QStringLiteral("Otro puesto.")); }, Caja::Exclamacion, "Otro puesto.", -1},
    };
    for (const auto& [cuerpo, clase, texto, fin] : casos)
    {
        CajasDePrueba cajas;
        cajas.espera(clase, QString::fromUtf8(texto));
        if (clase == Caja::Critico) // while the box is up another handler fails too: a consequence, told nobody
        {
            cajas.alVer([](const DatosDeCaja&) { protegido([] { throw ErrorDeEjecucion(2, {}); }); });
        }
        int estado = -1;
        reemplazarFinDelProceso([&](int con) { estado = con; });
        protegido(cuerpo);
        EXPECT_EQ(estado, fin) << texto;
    }
    reemplazarFinDelProceso({});
}

TEST(ErrorFatal, LosManejadoresYChequeosDeUnaPantallaNoDejanPasarNada)
{
    Mesa mesa;
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    una.conectar(una.tilde, &QCheckBox::clicked, [] { throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos); });
    una.alDejar(una.fecha, []() -> bool { throw std::logic_error("chequeo"); });
    CajasDePrueba cajas;
    cajas.esperaQueDiga(Caja::Critico, QStringLiteral("'13'")).esperaQueDiga(Caja::Critico, QStringLiteral("chequeo"));
    int finales = 0;
    reemplazarFinDelProceso([&](int) { ++finales; });
    pulsar(*una.tilde, {8, una.tilde->height() / 2});
    pulsar(*una.fecha);
    tecla(Qt::Key_Tab);
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
    EXPECT_EXIT(terminar(), testing::ExitedWithCode(3), "^antes$");
}
} // namespace
