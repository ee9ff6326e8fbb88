#include "ui/shell/trabajo_largo.h"

#include "mesa.h"

namespace
{
struct Trabajo : testing::Test
{
    Trabajo() { TrabajoLargo::fijarDemora(0); }
    ~Trabajo() override { TrabajoLargo::fijarDemora(500); }

    template <class Control>
    [[nodiscard]] Control* hallar(const char* nombre = "")
    {
        return mesa.ventana.findChild<Control*>(*nombre == '\0' ? QString() : nombre);
    }
    void clic(const QWidget& control)
    {
        QTest::mouseClick(mesa.ventana.windowHandle(), Qt::LeftButton, {},
                          control.mapTo(&mesa.ventana, control.rect().center()));
    }
    void tecla(Qt::Key cual) { QTest::keyClick(mesa.ventana.windowHandle(), cual); }
    /// Works until `haz`, which the window system's turn brings, has been done.
    static void mientrasTanto(TrabajoLargo::Cancelable cancelable, const std::function<void()>& haz)
    {
        TrabajoLargo trabajo("Enviando", cancelable);
        bool hecho = false;
        QTimer::singleShot(0, qApp, [&] { (haz(), hecho = true); });
        while (!hecho)
        {
            trabajo.avanzar(1, 2);
        }
    }

    Mesa mesa;
    P una = mesa.abrir("Una");
};
} // namespace

TEST_F(Trabajo, MuestraElAvanceYDejaTodoComoEstaba)
{
    una.b->setFocus();
    const std::tuple<qint64, qint64, int> casos[] = {{250, 1000, 250}, {7, 0, -1}, {INT64_MAX, INT64_MAX, 1000}};
    for (const auto& [hecho, total, milesimos] : casos)
    {
        TrabajoLargo trabajo("Importando <empleados>");
        EXPECT_TRUE(TrabajoLargo::enCurso());
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        TrabajoLargo::fijarDemora(1000000);
        trabajo.avanzar(hecho, total);
        EXPECT_EQ(hallar<QProgressBar>(), nullptr) << "a short one shows nothing";
        TrabajoLargo::fijarDemora(0);
        trabajo.aviso()(hecho, total);
        const auto* barra = hallar<QProgressBar>();
        ASSERT_TRUE(barra != nullptr && barra->isVisible());
        EXPECT_EQ(barra->maximum(), total == 0 ? 0 : 1000) << "how far is not known";
        EXPECT_TRUE(total == 0 || barra->value() == milesimos);
        EXPECT_EQ(hallar<QWidget>("cmdCancelarTrabajo"), nullptr);
    }
    EXPECT_FALSE(TrabajoLargo::enCurso());
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(hallar<QProgressBar>(), nullptr);
    EXPECT_TRUE(una.b->hasFocus());
    EXPECT_EQ(una.activaciones, 1);
}

TEST_F(Trabajo, DiceCuantoFalta)
{
    const std::tuple<qint64, qint64, qint64, const char*> casos[] = {
        {1999, 50, 100, ""},
        {2000, 50, 100, "faltan unos 5 s"},
        {10'000, 1, 3, "faltan unos 20 s"},
        {10'001, 1, 3, "faltan unos 25 s"},
        {55'000, 1, 2, "faltan unos 55 s"},
        {55'001, 1, 2, "falta 1 min"},
        {91'000, 1, 2, "faltan 2 min"},
        {60'000, 1, 100'000, ""},
        {5000, 0, 100, ""},
        {5000, 7, 0, ""},
        {5000, INT64_MAX / 2, INT64_MAX, "faltan unos 5 s"}};
    for (const auto& [transcurrido, hecho, total, texto] : casos)
    {
        EXPECT_EQ(tiempoRestante(transcurrido, hecho, total), texto) << transcurrido << ' ' << hecho;
    }
    TrabajoLargo trabajo("Importando");
    QTest::qSleep(2100);
    trabajo.avanzar(999, 1000);
    EXPECT_EQ(hallar<QLabel>("lblResto")->text(), "faltan unos 5 s");
}

TEST_F(Trabajo, LoQueSeTecleaSePulsaOSeCierraMientrasTantoSePierde)
{
    QWidget suelta; // a window that asks nobody whether it may close
    suelta.show();
    mesa.ventana.activateWindow();
    una.hija().move(0, 0); // from under the progress
    const auto molestar = [&]
    {
        EXPECT_EQ(mesa.ventana.childAt(una.accion->mapTo(&mesa.ventana, una.accion->rect().center())), una.accion);
        tecla(Qt::Key_X);
        clic(*una.accion);
        una.accion->setFocus();
        tecla(Qt::Key_Space);
        EXPECT_FALSE(suelta.windowHandle()->close());
    };
    for (const auto cancelable : {TrabajoLargo::Cancelable::No, TrabajoLargo::Cancelable::Si})
    {
        una.a->setFocus();
        mientrasTanto(cancelable, molestar);
        asentar();
        EXPECT_EQ(una.acciones, 0);
        EXPECT_EQ(una.a->text(), QString());
        EXPECT_TRUE(suelta.isVisible());
    }
    pulsar(*una.accion);
    EXPECT_EQ(una.acciones, 1);
}

TEST_F(Trabajo, SuBotonOEscapeLoCancela)
{
    const QShortcut suyo(QKeySequence(Qt::Key_Escape), &mesa.ventana); // of a window that closes by it
    const std::function<void()> gestos[] = {[this] { clic(*hallar<QPushButton>("cmdCancelarTrabajo")); },
                                            [this] { tecla(Qt::Key_Escape); }};
    for (const auto& cancelar : gestos)
    {
        una.b->setFocus();
        EXPECT_THROW(mientrasTanto(TrabajoLargo::Cancelable::Si, cancelar), TrabajoCancelado);
        EXPECT_FALSE(TrabajoLargo::enCurso());
        EXPECT_TRUE(una.b->hasFocus());
        pulsar(*una.accion);
    }
    EXPECT_EQ(una.acciones, 2) << "nothing is thrown away afterwards";
}

TEST_F(Trabajo, UnaCajaDelTrabajoSeContestaConElPunteroNormal)
{
    TrabajoLargo trabajo("Copiando");
    trabajo.avanzar(1, 2);
    Puntero::ocupado();
    const auto contestar = [](QMessageBox&)
    {
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
        jugar("Alt+S");
    };
    conLaCaja(contestar);
    EXPECT_TRUE(Preguntar("¿Sigue?"));
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    Puntero::normal();
    EXPECT_FALSE(Puntero::estaOcupado());
}
