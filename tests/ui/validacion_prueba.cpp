#include "ui/shell/validacion.h"

#include "apoyo/cajas_de_prueba.h"
#include "mesa.h"
#include "ui/grid/grilla.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

using namespace Entrada;
using M = Mesa&;
using P = PantallaDePrueba&;

namespace
{
const QString mal = QStringLiteral("mal dato");

/// Two children side by side, with the cursor in a field of one of them.
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
    Mesa mesa;
    P otra = mesa.abrir(QStringLiteral("Otra"));
    P una = mesa.abrir(QStringLiteral("Una"));
};

void clicEnMenu(M m)
{
    pulsar(*m.ventana.menuBar(), m.ventana.menuBar()->actionGeometry(m.menu->menuAction()).center());
    EXPECT_TRUE(m.menu->isVisible());
}

void clicEnPagina(P p, int cual)
{
    pulsar(*p.paginas->tabBar(), p.paginas->tabBar()->tabRect(cual).center());
}

void clicEnFila(P p, int fila)
{
    pulsar(*p.grilla->viewport(), p.grilla->visualItemRect(p.grilla->item(fila, 0)).center());
}

void girar(QWidget& destino)
{
    const QPoint lugar = destino.mapTo(destino.window(), destino.rect().center());
    QWheelEvent rueda(lugar, destino.window()->mapToGlobal(lugar), {}, QPoint(0, -120), Qt::NoButton, {},
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(destino.window()->windowHandle(), &rueda);
    asentar();
}

void altG(P p)
{
    tecla(Qt::Key_G, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&p] { return !p.accion->isDown(); })); // it clicks after a moment
}

TEST(Validacion, CadaFormaDeDejarUnCampoLoChequeaUnaVez)
{
    /// One way of leaving the field `a`, and whether it arrived.
    const struct
    {
        const char* nombre;
        void (*hacer)(M, P);
        bool (*llego)(M, P);
    } gestos[] = {
        {"campo", [](M, P p) { pulsar(*p.b); }, [](M, P p) { return p.b->hasFocus(); }},
        {"máscara", [](M, P p) { pulsar(*p.fecha); }, [](M, P p) { return p.fecha->hasFocus(); }},
        {"botón", [](M, P p) { pulsar(*p.accion); }, [](M, P p) { return p.acciones == 1; }},
        {"doble clic", [](M, P p) { pulsarDosVeces(*p.accion); }, [](M, P p) { return p.acciones == 2; }},
        {"tilde",
         [](M, P p) {
             pulsar(*p.tilde, {8, p.tilde->height() / 2});
         },
         [](M, P p) { return p.tilde->isChecked(); }},
        {"página", [](M, P p) { clicEnPagina(p, 1); }, [](M, P p) { return p.paginas->currentIndex() == 1; }},
        {"lista", [](M, P p) { pulsar(*p.lista); }, [](M, P p) { return p.lista->view()->isVisible(); }},
        {"grilla", [](M, P p) { clicEnFila(p, 1); }, [](M, P p) { return p.grilla->currentRow() == 1; }},
        {"otra hija", [](M m, P) { pulsar(*m.pantalla(QStringLiteral("Otra"))->b); },
         [](M m, P) { return m.pantalla(QStringLiteral("Otra"))->b->hasFocus(); }},
        {"Tab", [](M, P) { tecla(Qt::Key_Tab); }, [](M, P p) { return p.b->hasFocus(); }},
        {"Mayúsculas+Tab", [](M, P) { tecla(Qt::Key_Backtab, Qt::ShiftModifier); },
         [](M, P p) { return !p.a->hasFocus() && !p.b->hasFocus(); }},
        {"Enter", [](M, P) { tecla(Qt::Key_Return); }, [](M, P p) { return p.b->hasFocus(); }},
        {"Intro", [](M, P) { tecla(Qt::Key_Enter, Qt::KeypadModifier); }, [](M, P p) { return p.b->hasFocus(); }},
        {"Alt+G", [](M, P p) { altG(p); }, [](M, P p) { return p.acciones == 1; }},
        {"Alt+B", [](M, P) { tecla(Qt::Key_B, Qt::AltModifier); }, [](M, P p) { return p.b->hasFocus(); }},
        {"Ctrl+M", [](M, P) { tecla(Qt::Key_M, Qt::ControlModifier); }, [](M m, P) { return m.ordenes == 1; }},
        {"rueda", [](M, P p) { girar(*p.lista); }, [](M, P p) { return p.lista->currentIndex() == 1; }},
    };
    for (const auto& [nombre, hacer, llego] : gestos)
    {
        SCOPED_TRACE(nombre);
        {
            DosHijas d(mal);
            int cajas = 0;
            const auto cerrarla = [&](QMessageBox&)
            {
                ++cajas;
                tecla(Qt::Key_Return);
            };
            conLaCaja(cerrarla);
            d.una.alRechazar = [] { MsgBox(QStringLiteral("El valor no sirve.")); };
            hacer(d.mesa, d.una);
            EXPECT_EQ(d.una.chequeos, 1);
            EXPECT_EQ(cajas, 1);
            EXPECT_FALSE(llego(d.mesa, d.una));
            EXPECT_EQ(d.mesa.ventana.focusWidget(), d.una.a);
            EXPECT_EQ(d.una.a->selectedText(), mal);
            EXPECT_EQ(d.otra.chequeos, 0);
        }
        DosHijas d(QStringLiteral("bien"));
        hacer(d.mesa, d.una);
        EXPECT_EQ(d.una.chequeos, 1);
        EXPECT_TRUE(llego(d.mesa, d.una));
    }
}

TEST(Validacion, LoQueNoDejaElCampoNoLoChequea)
{
    const auto marco = [](M m) { return m.area->activeSubWindow(); };
    const auto cerrarMaximizada = [&](M m)
    {
        marco(m)->showMaximized();
        asentar();
        QWidget* controles = m.ventana.menuBar()->cornerWidget(Qt::TopRightCorner);
        pulsar(*controles, {controles->width() - 6, controles->height() / 2});
    };
    const auto irseYVolver = [](M m)
    {
        QWidget otroPrograma;
        activar(otroPrograma);
        otroPrograma.hide();
        activar(m.ventana);
    };
    const auto conCaja = [](M m)
    {
        conLaCaja([](QMessageBox&) { tecla(Qt::Key_Return); });
        MsgBox(QStringLiteral("Aviso"));
        activar(m.ventana);
    };
    const auto enPausa = [](P p)
    {
        const Validacion::Pausa pausa;
        p.b->setFocus();
        p.a->setFocus();
        asentar();
    };
    const std::tuple<const char*, std::function<void(M, P)>, bool> casos[] = {
        {"otro programa", [&](M m, P) { irseYVolver(m); }, true},
        {"una caja", [&](M m, P) { conCaja(m); }, true},
        {"su marco",
         [&](M m, P) {
             pulsar(*marco(m), {60, 8});
         },
         true},
        {"su fondo",
         [](M, P p) {
             pulsar(p, {3, 3});
         },
         true},
        {"él mismo", [](M, P p) { pulsar(*p.a); }, true},
        {"botón apagado", [](M, P p) { (p.accion->setEnabled(false), pulsar(*p.accion)); }, true},
        {"la página a la vista", [](M, P p) { clicEnPagina(p, 0); }, true},
        {"menú por clic", [](M m, P) { (clicEnMenu(m), tecla(Qt::Key_M)); }, true},
        {"menú por letra", [](M, P) { (tecla(Qt::Key_P, Qt::AltModifier), tecla(Qt::Key_M)); }, true},
        {"Alt", [](M, P) { (tecla(Qt::Key_Alt), tecla(Qt::Key_Alt)); }, true},
        {"Escape", [](M, P) { tecla(Qt::Key_Escape); }, true},
        {"en pausa", [&](M, P p) { enPausa(p); }, true},
        {"cierre del marco", [&](M m, P) { (marco(m)->close(), asentar()); }, false},
        {"cierre de la maximizada", [&](M m, P) { cerrarMaximizada(m); }, false},
        {"cierre por código", [](M, P p) { (p.cerrar(), asentar()); }, false},
        {"apagado", [](M, P p) { (p.a->setEnabled(false), asentar()); }, false},
        {"oculto", [](M, P p) { (p.a->hide(), asentar()); }, false},
    };
    for (const auto& [nombre, hacer, sigue] : casos)
    {
        DosHijas d(mal);
        int rechazos = 0;
        d.una.alRechazar = [&] { ++rechazos; };
        const QPointer<QWidget> campo = d.una.a;
        hacer(d.mesa, d.una);
        EXPECT_EQ(rechazos, 0) << nombre;
        EXPECT_EQ(!campo.isNull() && d.mesa.ventana.focusWidget() == campo, sigue) << nombre;
    }
}

TEST(Validacion, LaPantallaQueAbreElMenuNoDejaElCampoPeroVolverAOtroLugarSi)
{
    DosHijas d(mal);
    QObject::connect(d.mesa.orden, &QAction::triggered, &d.una, [&] { d.mesa.abrir(QStringLiteral("Otra")); });
    clicEnMenu(d.mesa);
    tecla(Qt::Key_M);
    EXPECT_TRUE(d.otra.a->hasFocus());
    EXPECT_EQ(d.una.chequeos, 0);
    pulsar(*d.una.accion);
    EXPECT_EQ(d.una.acciones, 0);
    EXPECT_EQ(d.una.chequeos, 1);
    EXPECT_EQ(d.mesa.ventana.focusWidget(), d.una.a);
    escribir(QStringLiteral("bien")); // replaces the selected text
    pulsar(*d.una.accion);
    EXPECT_EQ(d.una.acciones, 1);
    EXPECT_EQ(d.una.chequeos, 2);
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
    void (*const salidas[])(P) = {[](P) { tecla(Qt::Key_Tab); }, [](P) { tecla(Qt::Key_Return); },
                                  [](P p) { pulsar(*p.accion); }, [](P p) { (p.b->setFocus(), asentar()); }};
    for (const auto& salir : salidas)
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
        pulsar(*d.una.lista);
        tecla(Qt::Key_Down);
        tecla(Qt::Key_Return);
        EXPECT_EQ(d.una.lista->currentIndex(), 1);
        EXPECT_EQ(veces, 0) << "its own list leaves no field";
        salir(d.una);
        EXPECT_EQ(veces, 1);
        EXPECT_TRUE(d.una.grilla->hasFocus());
        EXPECT_EQ(d.una.paginas->currentIndex(), 0);
        EXPECT_EQ(d.una.acciones, 0);
    }
}

TEST(Validacion, EnterRecorreLosCamposYAprietaElBotonUnaVez)
{
    DosHijas d({});
    P una = d.una;
    for (const QWidget* sigue : std::initializer_list<QWidget*>{una.b, una.fecha, una.lista, una.tilde, una.accion})
    {
        tecla(Qt::Key_Return);
        EXPECT_TRUE(sigue->hasFocus()) << sigue->metaObject()->className();
    }
    QKeyEvent sigueApretada(QEvent::KeyPress, Qt::Key_Return, {}, QStringLiteral("\r"), true);
    QCoreApplication::sendEvent(d.mesa.ventana.windowHandle(), &sigueApretada);
    EXPECT_EQ(una.acciones, 0) << "a key held down presses nothing";
    tecla(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_EQ(una.acciones, 1);
    una.grilla->setFocus();
    tecla(Qt::Key_Return);
    EXPECT_TRUE(una.grilla->hasFocus()); // the grid decides itself
}

TEST(Validacion, LosDialogosDelSistemaConservanSuEnter)
{
    Mesa mesa;
    QDialog dialogo(&mesa.ventana);
    auto* aceptar = new QPushButton(QStringLiteral("Aceptar"), &dialogo);
    auto* campo = new QLineEdit(&dialogo);
    QObject::connect(aceptar, &QPushButton::clicked, &dialogo, &QDialog::accept);
    activar(dialogo);
    campo->setFocus();
    tecla(Qt::Key_Return);
    EXPECT_EQ(dialogo.result(), QDialog::Accepted);
}

TEST(Validacion, RigeEnLaPantallaModalYDentroDeUnChequeo)
{
    Mesa mesa;
    P una = mesa.abrir(QStringLiteral("Una"));
    int hechos = 0;
    const auto dentro = [](P modal)
    {
        pulsar(*modal.a);
        escribir(mal);
        pulsar(*modal.accion);
        EXPECT_EQ(modal.chequeos, 1);
        EXPECT_TRUE(modal.a->hasFocus());
        modal.grilla->setFocus();
        tecla(Qt::Key_Return); // a dialog of the toolkit would press a button
        EXPECT_EQ(modal.acciones, 0);
        tecla(Qt::Key_Escape);
    };
    una.alRechazar = [&] { hechos += mesa.enModal(dentro); };
    pulsar(*una.a);
    escribir(mal);
    tecla(Qt::Key_Tab);
    EXPECT_EQ(hechos, 1);
    EXPECT_EQ(una.chequeos, 1);
    EXPECT_EQ(mesa.ventana.focusWidget(), una.a);
}

TEST(Validacion, ElEditorDeGrillaRechazadoSigueAbierto)
{
    Mesa mesa;
    P una = mesa.abrir(QStringLiteral("Una"));
    auto* grilla = new Grilla;
    grilla->setColumnas({{.clase = ColumnaDeGrilla::Entero, .titulo = QStringLiteral("Horas"), .maximo = 200}});
    grilla->setEditable(true);
    grilla->setFilas(2);
    una.layout()->addWidget(grilla);
    una.parentWidget()->adjustSize();
    asentar();
    grilla->setFocus();
    grilla->setFilaActual(1, 1);
    escribir(QStringLiteral("999"));
    const std::function<void()> salidas[] = {[&] { pulsar(*una.accion); }, [&] { pulsar(*una.b); },
                                             [] { tecla(Qt::Key_Return); }, [] { tecla(Qt::Key_Down); },
                                             [] { tecla(Qt::Key_M, Qt::ControlModifier); }};
    for (const auto& salir : salidas)
    {
        CajasDePrueba cajas;
        cajas.esperaQueDiga(Caja::Informacion, QString());
        salir();
        EXPECT_TRUE(grilla->editando());
    }
    EXPECT_EQ(una.acciones + mesa.ordenes, 0);
    escribir(QStringLiteral("150"));
    tecla(Qt::Key_M, Qt::ControlModifier); // a shortcut moves no focus: the value is stored all the same
    EXPECT_EQ(mesa.ordenes, 1);
    EXPECT_EQ(grilla->entero(1, 1), 150);
    EXPECT_FALSE(grilla->editando());
}
} // namespace
