#include "platform/screens/mensajes.h"

#include "apoyo/cajas_de_prueba.h"
#include "apoyo/entrada.h"
#include "mesa.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/error_fatal.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>
#include <stdexcept>

using namespace Entrada;

TEST(Cajas, CadaClaseConSuIconoYSuTextoTalCual)
{
    const std::pair<Caja, QMessageBox::Icon> clases[] = {{Caja::Informacion, QMessageBox::Information},
                                                         {Caja::Exclamacion, QMessageBox::Warning},
                                                         {Caja::Critico, QMessageBox::Critical},
                                                         {Caja::Simple, QMessageBox::NoIcon}};
    const QString texto = QStringLiteral("<b>Pérez & hijos</b>\nsegunda");
    for (const auto& [clase, icono] : clases)
    {
        int vistas = 0;
        conLaCaja(
            [&, icono = icono](QMessageBox& caja)
            {
                ++vistas;
                EXPECT_EQ(caja.icon(), icono);
                EXPECT_EQ(caja.text(), texto);
                EXPECT_EQ(caja.textFormat(), Qt::PlainText);
                EXPECT_EQ(caja.windowTitle(), QStringLiteral("Altoverde"));
                EXPECT_TRUE(hayCajaAbierta());
                tecla(Qt::Key_Escape);
            });
        MsgBox(texto, clase); // there is no main window yet
        EXPECT_EQ(vistas, 1);
        EXPECT_FALSE(hayCajaAbierta());
    }
}

TEST(Cajas, LaPreguntaTieneElNoPorDefecto)
{
    const std::tuple<const char*, std::function<void(QMessageBox&)>, bool> casos[] = {
        {"Enter", [](QMessageBox&) { tecla(Qt::Key_Return); }, false},
        {"Escape", [](QMessageBox&) { tecla(Qt::Key_Escape); }, false},
        {"cerrar", [](QMessageBox& caja) { caja.close(); }, false},
        {"Alt+S", [](QMessageBox&) { tecla(Qt::Key_S, Qt::AltModifier); }, true},
        {"Alt+N", [](QMessageBox&) { tecla(Qt::Key_N, Qt::AltModifier); }, false},
        {"clic en Sí", [](QMessageBox& caja) { pulsar(*caja.button(QMessageBox::Yes)); }, true},
    };
    for (const auto& [nombre, hacer, respuesta] : casos)
    {
        QStringList observado;
        observarCajas([&](const DatosDeCaja& datos) { observado << datos.texto; },
                      [&](const DatosDeCaja&, bool con) { observado << (con ? QStringLiteral("Si") : QString()); });
        conLaCaja(
            [&, haz = hacer](QMessageBox& caja)
            {
                EXPECT_EQ(caja.button(QMessageBox::Yes)->text(), QStringLiteral("&Sí"));
                EXPECT_EQ(caja.button(QMessageBox::No)->text(), QStringLiteral("&No"));
                haz(caja);
            });
        EXPECT_EQ(Preguntar(QStringLiteral("¿Borra?"), QStringLiteral("Aviso")), respuesta) << nombre;
        EXPECT_EQ(observado, (QStringList{QStringLiteral("¿Borra?"), respuesta ? QStringLiteral("Si") : QString()}));
    }
    observarCajas({}, {});
}

TEST(Cajas, SonModalesALaVentanaDelPrograma)
{
    Mesa mesa;
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    conLaCaja(
        [&](QMessageBox& caja)
        {
            EXPECT_EQ(caja.parentWidget(), &mesa.ventana);
            pulsar(*una.accion);
            EXPECT_EQ(una.acciones, 0);
            tecla(Qt::Key_Return);
        });
    MsgBox(QStringLiteral("Listo"));
}

TEST(CajasDePrueba, FallanPorLaInesperadaLaDistintaYLaQueFalta)
{
    EXPECT_NONFATAL_FAILURE(
        {
            CajasDePrueba cajas;
            MsgBox(QStringLiteral("de más"), Caja::Critico);
        },
        "de más");
    EXPECT_NONFATAL_FAILURE(
        {
            CajasDePrueba cajas;
            cajas.espera(Caja::Critico, QStringLiteral("una"));
            MsgBox(QStringLiteral("una"), Caja::Informacion);
        },
        "instead of critico");
    EXPECT_NONFATAL_FAILURE(
        {
            CajasDePrueba cajas;
            cajas.esperaQueDiga(Caja::Critico, QStringLiteral("falta"));
        },
        "falta");
    EXPECT_NONFATAL_FAILURE(
        {
            CajasDePrueba cajas;
            cajas.archivo(QStringLiteral("x"));
        },
        "left over");
    EXPECT_NONFATAL_FAILURE(
        {
            CajasDePrueba cajas;
            EXPECT_EQ(DialogoArchivo({QStringLiteral("Abrir"), QStringLiteral("antes"), {}, {}, true}),
                      QStringLiteral("antes"));
        },
        "Abrir");
}

TEST(CajasDePrueba, ContestanEnOrdenYRecuerdan)
{
    CajasDePrueba cajas;
    cajas.esperaPregunta(QStringLiteral("¿Una?"), true)
        .esperaPregunta(QStringLiteral("¿Dos?"), false)
        .esperaQueDiga(Caja::Simple, QStringLiteral("err"));
    EXPECT_TRUE(Preguntar(QStringLiteral("¿Una?")));
    EXPECT_FALSE(Preguntar(QStringLiteral("¿Dos?")));
    EXPECT_EQ(cajas.pendientes(), 1U);
    MsgBox(QStringLiteral("un error"));
    EXPECT_EQ(cajas.textos().size(), 3);
    EXPECT_EQ(cajas.vistas().back().titulo, QStringLiteral("Altoverde"));
}

namespace
{
/// Runs the body protected, with the end of the process noted instead of done.
int estadoDe(const std::function<void()>& cuerpo)
{
    int estado = -1;
    reemplazarFinDelProceso([&](int con) { estado = con; });
    protegido(cuerpo);
    reemplazarFinDelProceso({});
    return estado;
}
} // namespace

TEST(ErrorFatal, SeInformaUnaVezConNumeroYDescripcion)
{
    const std::tuple<std::function<void()>, const char*, const char*> casos[] = {
        {[] { throw ErrorDeEjecucion(70, QStringLiteral("Permiso denegado")); }, "'70'", "Permiso denegado"},
        {[] { throw std::runtime_error("algo pasó"); }, "'5'", "algo pasó"},
        {[] { throw 7; }, "'51'", "Error interno"},
        {[] { throw std::bad_alloc(); }, "'7'", "Memoria"},
        {[] { throw ErrorDeEjecucion(1, QStringLiteral("primero")); }, "'1'", "primero"},
    };
    for (const auto& [cuerpo, numero, descripcion] : casos)
    {
        CajasDePrueba cajas;
        cajas.esperaQueDiga(Caja::Critico, QString::fromUtf8(numero));
        // While the box is up another handler fails too: a consequence, told nobody.
        cajas.alVer([](const DatosDeCaja&)
                    { protegido([] { throw ErrorDeEjecucion(2, QStringLiteral("segundo")); }); });
        EXPECT_EQ(estadoDe(cuerpo), 3);
        ASSERT_EQ(cajas.vistas().size(), 1U);
        EXPECT_TRUE(cajas.vistas().front().texto.contains(QString::fromUtf8(descripcion)));
    }
    EXPECT_EQ(estadoDe([] {}), -1);
}

TEST(ErrorFatal, LosManejadoresYChequeosDeUnaPantallaNoDejanPasarNada)
{
    Mesa mesa;
    PantallaDePrueba& una = mesa.abrir(QStringLiteral("Una"));
    una.conectar(una.cancelar, &QPushButton::clicked,
                 [] { throw ErrorDeEjecucion(ErrorDeEjecucion::NoCoincidenTipos); });
    una.alDejar(una.fecha, []() -> bool { throw std::logic_error("chequeo"); });
    CajasDePrueba cajas;
    cajas.esperaQueDiga(Caja::Critico, QStringLiteral("'13'")).esperaQueDiga(Caja::Critico, QStringLiteral("chequeo"));
    int finales = 0;
    reemplazarFinDelProceso([&](int) { ++finales; });
    pulsar(*una.cancelar);
    pulsar(*una.fecha);
    tecla(Qt::Key_Tab);
    reemplazarFinDelProceso({});
    EXPECT_EQ(finales, 2);
}

TEST(ErrorFatal, ElFinEsInmediato)
{
    // What is registered for an ordinary end does not run, and what was printed is there.
    EXPECT_EXIT(
        {
            std::atexit([] { std::fputs("tarde", stderr); });
            std::fputs("antes", stderr);
            terminarProceso(3);
        },
        testing::ExitedWithCode(3), "^antes$");
}
