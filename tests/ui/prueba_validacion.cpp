#include "ui/shell/validacion.h"

#include "mesa.h"

namespace
{
const QString mal = "mal dato";

/// Two children side by side, with the cursor in the field `a` of the first one.
struct DosHijas
{
    explicit DosHijas(const QString& escrito)
    {
        mesa.area->tileSubWindows();
        asentar();
        pulsar(*una.a);
        escribir(escrito);
        una.chequeos = otra.chequeos = 0; // what opening the second child asked the first one
    }
    /// The words of jugar(), and clicks: "@b" on this control and those below; "@rueda" turns the wheel over list and
    /// pages.
    void hacer(const QString& gestos)
    {
        QTabBar* paginas = una.paginas->tabBar();
        QMenuBar* menu = mesa.ventana.menuBar();
        const std::map<QString, std::function<void()>> otros = {
            {"@otra", [&] { pulsar(*otra.b); }},
            {"@doble", [&] { pulsarDosVeces(*una.accion); }},
            {"@tilde", [&] { pulsar(*una.tilde, QPoint(8, una.tilde->height() / 2)); }},
            {"@pagina0", [&] { pulsar(*paginas, paginas->tabRect(0).center()); }},
            {"@pagina1", [&] { pulsar(*paginas, paginas->tabRect(1).center()); }},
            {"@fila1", [&] { pulsar(*una.grilla->viewport(), una.grilla->visualRect(fila1).center()); }},
            {"@menu", [&] { pulsar(*menu, menu->actionGeometry(mesa.menu->menuAction()).center()); }},
            {"@rueda", [&] { (girar(*una.lista), girar(*paginas)); }},
        };
        for (const QString& gesto : gestos.split(u' ', Qt::SkipEmptyParts))
        {
            const auto otro = otros.find(gesto);
            otro != otros.end()      ? otro->second()
            : gesto.startsWith(u'@') ? pulsar(*una.findChild<QWidget*>(gesto.mid(1)))
                                     : jugar(gesto);
        }
        EXPECT_TRUE(QTest::qWaitFor([this] { return !una.accion->isDown(); }, 60'000)); // Alt+G clicks after a moment
    }
    /// Where the focus is, and all that a gesture has done.
    [[nodiscard]] QString estado() const
    {
        const QWidget* foco = mesa.ventana.focusWidget();
        QString texto = foco == otra.b ? "otra" : foco != nullptr ? foco->objectName() : "";
        const std::pair<const char*, int> hechos[] = {{" acciones ", una.acciones},
                                                      {" ordenes ", mesa.ordenes},
                                                      {" tilde ", una.tilde->isChecked()},
                                                      {" pagina ", una.paginas->currentIndex()},
                                                      {" fila ", una.grilla->currentRow()},
                                                      {" opcion ", una.lista->currentIndex()},
                                                      {" abierta ", una.lista->view()->isVisible()}};
        for (const auto& [que, cuanto] : hechos)
        {
            texto += cuanto == 0 ? QString() : que + QString::number(cuanto);
        }
        return texto;
    }
    Mesa mesa;
    P otra = mesa.abrir("Otra");
    P una = mesa.abrir("Una");
    const QModelIndex fila1 = una.grilla->model()->index(1, 0);

private:
    static void girar(QWidget& destino)
    {
        const QPoint lugar = destino.mapTo(destino.window(), destino.rect().center());
        QWheelEvent rueda(lugar, destino.window()->mapToGlobal(lugar), {}, QPoint(0, -120), Qt::NoButton, {},
                          Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&rueda); // only what comes from outside moves the focus
        QCoreApplication::sendEvent(destino.window()->windowHandle(), &rueda);
        asentar();
    }
};

TEST(Validacion, CadaFormaDeDejarUnCampoLoChequeaUnaVez)
{
    for (const QString caso :
         {"@b|b", "@fecha|fecha", "@accion|accion acciones 1", "@doble|accion acciones 2", "@tilde|tilde tilde 1",
          "@pagina1|a pagina 1", "@lista|lista abierta 1", "@fila1| fila 1", "@otra|otra", "Tab|b", "Shift+Backtab|",
          "Return|b", "Alt+G|a acciones 1", "Alt+B|b", "Ctrl+M|a ordenes 1"})
    {
        SCOPED_TRACE(caso.toStdString());
        const QString gesto = caso.section(u'|', 0, 0);
        {
            DosHijas d(mal);
            int cajas = 0;
            conLaCaja([&](QMessageBox&) { (++cajas, jugar("Return")); });
            d.una.alRechazar = [] { MsgBox("El valor no sirve."); };
            d.hacer(gesto);
            EXPECT_EQ(d.una.chequeos, 1);
            EXPECT_EQ(cajas, 1);
            EXPECT_EQ(d.estado(), "a");
            EXPECT_EQ(d.una.a->selectedText(), mal);
            EXPECT_EQ(d.otra.chequeos, 0);
        }
        DosHijas d("bien");
        d.hacer(gesto);
        EXPECT_EQ(d.una.chequeos, 1);
        EXPECT_EQ(d.estado(), caso.section(u'|', 1));
    }
}

TEST(Validacion, LoQueNoDejaElCampoNoLoChequea)
{
    using D = DosHijas&;
    const auto marco = [](D d) { return d.mesa.area->activeSubWindow(); };
    const auto cerrarMaximizada = [&](D d)
    {
        marco(d)->showMaximized();
        asentar();
        QWidget* controles = d.mesa.ventana.menuBar()->cornerWidget(Qt::TopRightCorner);
        pulsar(*controles, {controles->width() - 6, controles->height() / 2});
    };
    const auto enPausa = [](D d)
    {
        const Validacion::Pausa pausa;
        d.una.b->setFocus();
        d.una.a->setFocus();
    };
    const std::tuple<const char*, std::function<void(D)>, bool> casos[] = {
        {"otro programa", [](D d) { d.mesa.irseYVolver(); }, true},
        {"una caja", [](D d) { d.mesa.conCaja(); }, true},
        {"su marco", [&](D d) { pulsar(*marco(d), QPoint(60, 8)); }, true},
        {"su fondo", [](D d) { pulsar(d.una, QPoint(3, 3)); }, true},
        {"botón apagado", [](D d) { (d.una.accion->setEnabled(false), d.hacer("@accion")); }, true},
        {"en pausa", enPausa, true},
        {"@a", {}, true},
        {"@pagina0", {}, true}, // the one that shows
        {"@menu M", {}, true},
        {"Alt+P M", {}, true},
        {"Esc", {}, true},
        {"@rueda", {}, true},
        {"Alt", [](D) { (tecla(Qt::Key_Alt), tecla(Qt::Key_Alt)); }, true},
        {"cierre del marco", [&](D d) { marco(d)->close(); }, false},
        {"cierre de la maximizada", cerrarMaximizada, false},
        {"cierre por código", [](D d) { d.una.cerrar(); }, false},
        {"apagado", [](D d) { d.una.a->setEnabled(false); }, false},
        {"oculto", [](D d) { d.una.a->hide(); }, false},
    };
    for (const auto& [nombre, haz, sigue] : casos)
    {
        DosHijas d(mal);
        int rechazos = 0;
        d.una.alRechazar = [&] { ++rechazos; };
        const QPointer<QWidget> campo = d.una.a;
        haz ? haz(d) : d.hacer(nombre);
        asentar();
        EXPECT_EQ(rechazos, 0) << nombre;
        EXPECT_TRUE(!sigue || d.una.lista->currentIndex() + d.una.paginas->currentIndex() == 0) << nombre;
        EXPECT_EQ(!campo.isNull() && d.mesa.ventana.focusWidget() == campo, sigue) << nombre;
    }
}

TEST(Validacion, LaPantallaQueAbreElMenuNoDejaElCampoPeroVolverAOtroLugarSi)
{
    DosHijas d(mal);
    QObject::connect(d.mesa.orden, &QAction::triggered, &d.una, [&] { d.mesa.abrir("Otra"); });
    d.hacer("@menu M");
    EXPECT_TRUE(d.otra.a->hasFocus());
    EXPECT_EQ(d.una.chequeos, 0);
    d.hacer("@accion");
    EXPECT_EQ(d.una.chequeos, 1);
    EXPECT_EQ(d.estado(), "a ordenes 1");
    d.hacer("'bien @accion"); // replaces the selected text
    EXPECT_EQ(d.una.chequeos, 2);
    EXPECT_EQ(d.estado(), "accion acciones 1 ordenes 1");
}

TEST(Validacion, ElProgramaQueLlevaElFocoAOtroMalDaUnaSolaCaja)
{
    DosHijas d(mal);
    d.una.b->setText(mal);
    d.una.b->setFocus();
    asentar();
    EXPECT_EQ(d.una.chequeos, 1);
    EXPECT_TRUE(d.una.a->hasFocus());
}

TEST(Validacion, ElLugarAlQueMueveElChequeoVale)
{
    for (const char* salida : {"Tab", "Return", "@accion", ""})
    {
        DosHijas d({});
        int veces = 0;
        const auto mover = [&]
        {
            ++veces;
            d.una.paginas->setCurrentIndex(0);
            d.una.grilla->setFocus();
            return true;
        };
        d.una.alDejar(d.una.lista, mover);
        d.una.paginas->setCurrentIndex(1);
        d.hacer("@lista Down Return");
        EXPECT_EQ(veces, 0) << "its own list leaves no field";
        *salida != '\0' ? d.hacer(salida) : d.una.b->setFocus();
        asentar();
        EXPECT_EQ(veces, 1);
        EXPECT_TRUE(d.una.grilla->hasFocus());
        EXPECT_EQ(d.estado(), " opcion 1");
    }
}

TEST(Validacion, EnterRecorreLosCamposYAprietaElBotonUnaVez)
{
    DosHijas d({});
    for (const char* sigue : {"b", "fecha", "lista", "tilde", "accion"})
    {
        d.hacer("Return");
        EXPECT_EQ(d.estado(), sigue);
    }
    QKeyEvent sigueApretada(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
    QCoreApplication::sendEvent(d.mesa.ventana.windowHandle(), &sigueApretada);
    EXPECT_EQ(d.una.acciones, 0) << "a key held down presses nothing";
    d.hacer("Num+Enter");
    EXPECT_EQ(d.una.acciones, 1);
    d.una.grilla->setFocus();
    d.hacer("Return");
    EXPECT_TRUE(d.una.grilla->hasFocus()); // the grid decides itself
    QDialog dialogo(&d.mesa.ventana);      // one of the system keeps its own Enter
    auto* aceptar = new QPushButton("Aceptar", &dialogo);
    auto* campo = new QLineEdit(&dialogo);
    QObject::connect(aceptar, &QPushButton::clicked, &dialogo, &QDialog::accept);
    activar(dialogo);
    campo->setFocus();
    jugar("Return");
    EXPECT_EQ(dialogo.result(), QDialog::Accepted);
}

TEST(Validacion, RigeEnLaPantallaModalYDentroDeUnChequeo)
{
    Mesa mesa;
    P una = mesa.abrir("Una");
    int hechos = 0;
    const auto dentro = [](P modal)
    {
        pulsar(*modal.a);
        escribir(mal);
        pulsar(*modal.accion);
        EXPECT_EQ(modal.chequeos, 1);
        EXPECT_TRUE(modal.a->hasFocus());
        modal.grilla->setFocus();
        jugar("Return"); // a dialog of the toolkit would press a button
        EXPECT_EQ(modal.acciones, 0);
        jugar("Esc");
    };
    una.alRechazar = [&] { hechos += mesa.enModal(dentro); };
    pulsar(*una.a);
    jugar("'mal Tab");
    EXPECT_EQ(hechos, 1);
    EXPECT_EQ(una.chequeos, 1);
    EXPECT_EQ(mesa.ventana.focusWidget(), una.a);
}
} // namespace
