#include "programa_de_prueba.h"

#include "guion.h"
#include "platform/data/error_de_ejecucion.h"
#include "platform/screens/campo_mascara.h"
#include "platform/screens/dialogos.h"
#include "platform/screens/mensajes.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/trabajo_largo.h"
#include "robot.h"

#include <QtWidgets>

namespace
{
/// Every handler leaves in lblEstado what it saw.
class Prueba : public Pantalla
{
public:
    Prueba()
        : Pantalla(QStringLiteral("Prueba"))
    {
        setWindowTitle(QStringLiteral("Pantalla de prueba"));
        auto* filas = new QGridLayout(this);
        m_estado = hacer<QLabel>("lblEstado");
        ponerCampos();
        ponerBotones();
        ponerPaginas();
        ponerGrilla();
        for (QWidget* control : findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly))
        {
            const int lugar = filas->count();
            filas->addWidget(control, lugar / 2, lugar % 2);
        }
        resize(640, 520);
    }

    bool descargar() override { return !m_preguntaAlCerrar || Preguntar(QStringLiteral("Cerrar?")); }

private:
    template <class Control, class... A>
    Control* hacer(const char* nombre, A&&... argumentos)
    {
        auto* control = new Control(std::forward<A>(argumentos)..., this);
        control->setObjectName(QString::fromLatin1(nombre));
        return control;
    }
    void estado(const QString& texto) { m_estado->setText(texto); }
    template <class Manejador>
    void boton(const char* nombre, const char* titulo, Manejador manejador)
    {
        conectar(hacer<QPushButton>(nombre, QString::fromUtf8(titulo)), &QPushButton::clicked, manejador);
    }

    void ponerCampos()
    {
        hacer<QLineEdit>("txtNombre");
        hacer<QLineEdit>("txtImporte_3");
        auto* cuit = hacer<CampoMascara>("MaskCuit");
        alDejar(cuit,
                [cuit]
                {
                    const bool bien = cuit->vacio() || cuit->soloDigitos().size() == 11;
                    if (!bien)
                    {
                        MsgBox(QStringLiteral("CUIT incompleto"), Caja::Informacion);
                    }
                    return bien;
                });
        auto* lista = hacer<QComboBox>("cmbLista");
        lista->addItems({"Uno", "Dos", "Tres"});
        conectar(lista, &QComboBox::activated, [this, lista] { estado("elige " + lista->currentText()); });
        auto* chequeada = hacer<QComboBox>("cmbChequeada");
        chequeada->addItems({"Uno", "Dos"});
        alDejar(chequeada,
                [this]
                {
                    estado("dejada");
                    return true;
                });
        hacer<QComboBox>("cmbEditable")->setEditable(true);
        auto* tilde = hacer<QCheckBox>("chkTilde", QStringLiteral("Una tilde de texto largo"));
        conectar(tilde, &QCheckBox::clicked, [this](bool si) { estado(si ? "marcada" : "libre"); });
        auto* marco = hacer<QGroupBox>("fraApagado");
        auto* dentro = new QLineEdit(marco);
        dentro->setObjectName("txtDentro");
        marco->setEnabled(false);
        marco->setMinimumHeight(30);
    }

    void ponerBotones()
    {
        boton("cmdPreguntar", "Preguntar",
              [this] { estado(Preguntar(QStringLiteral("Seguro?")) ? "dijo si" : "dijo no"); });
        boton("cmdAvisar", "Avisar", [] { MsgBox(QStringLiteral("Hola\n\"amigo\""), Caja::Exclamacion, "Aviso"); });
        boton("cmdModal", "Modal",
              [this]
              {
                  Navegacion::instancia().mostrarModal(QStringLiteral("Modal"));
                  estado("vuelve");
              });
        boton("cmdArchivo", "Archivo",
              [this] {
                  estado(QFileInfo(DialogoArchivo({"Elija", "", "*.txt", "txt", false})).fileName());
              });
        boton("cmdFalla", "Falla", [] { throw ErrorDeEjecucion(ErrorDeEjecucion::Desbordamiento); });
        boton("cmdGrabar", "&Grabar", [this] { estado("grabado"); });
        boton("cmdLargo", "Largo", [this] { trabajar(); });
        boton("cmdTrampa", "Trampa", [this] { m_preguntaAlCerrar = true; });
        boton("cmdApagado", "Apagado", [] {});
        boton("cmdOculto", "Oculto", [] {});
        findChild<QWidget*>("cmdApagado")->setEnabled(false);
        findChild<QWidget*>("cmdOculto")->hide();
    }

    void ponerPaginas()
    {
        auto* paginas = hacer<QTabWidget>("SSTab1");
        for (const char* titulo : {"&Primera", "Segunda", "Tercera"})
        {
            auto* pagina = new QWidget;
            auto* campo = new QLineEdit(pagina);
            campo->setObjectName(QStringLiteral("txt") + QString(titulo).remove('&'));
            auto* boton = new QPushButton(QStringLiteral("Hacer"), pagina);
            boton->setObjectName(QStringLiteral("cmd") + QString(titulo).remove('&'));
            boton->move(150, 0);
            paginas->addTab(pagina, titulo);
        }
        paginas->setTabEnabled(2, false);
        paginas->setMinimumHeight(70);
        alDejar(hacer<QLineEdit>("txtDespues"),
                [this]
                {
                    estado("dejada");
                    return true;
                });
    }

    void ponerGrilla()
    {
        auto* grilla = hacer<Grilla>("vsGrilla");
        grilla->setColumnas({{ColumnaDeGrilla::Entero, "Clave", 0},
                             {ColumnaDeGrilla::Texto, "Nombre"},
                             {ColumnaDeGrilla::Lista, "Clase", 80, 0, {"Alta", "Baja"}},
                             {ColumnaDeGrilla::Tilde, "Sí"},
                             {ColumnaDeGrilla::Fija, "Fijo", 40}});
        grilla->setFilas(200);
        grilla->setEditable(true);
        grilla->setMinimumHeight(120);
        conectar(grilla, &Grilla::clic, [this](int, int fila) { estado(QStringLiteral("fila %1").arg(fila)); });
        conectar(grilla, &Grilla::dobleClic, [this](int, int fila) { estado(QStringLiteral("doble %1").arg(fila)); });
        conectar(grilla->horizontalHeader(), &QHeaderView::sectionClicked, [this] { estado("encabezado"); });
    }

    /// Looks at its events all the time, as an upload does.
    void trabajar()
    {
        const TrabajoLargo trabajo(QStringLiteral("Trabajando"));
        estado("a medias");
        constexpr int vueltas = 300;
        for (int i = 0; i < vueltas; ++i)
        {
            QCoreApplication::processEvents();
        }
        estado("hecho");
    }

    QLabel* m_estado = nullptr;
    bool m_preguntaAlCerrar = false;
};

class Modal : public Pantalla
{
public:
    Modal()
        : Pantalla(QStringLiteral("Modal"))
    {
        setWindowTitle(QStringLiteral("Pantalla modal"));
        auto* filas = new QVBoxLayout(this);
        auto* campo = new QLineEdit(this);
        campo->setObjectName("txtModal");
        auto* salir = new QPushButton(QStringLiteral("Salir"), this);
        salir->setObjectName("cmdSalir");
        conectar(salir, &QPushButton::clicked, &Pantalla::cerrar);
        filas->addWidget(campo);
        filas->addWidget(salir);
    }
};

/// The preview of a report, as far as the robot knows it.
class Vista : public QWidget
{
    Q_OBJECT
public:
    using QWidget::QWidget;
    Q_INVOKABLE void guardarPdf(const QString& ruta)
    {
        QFile archivo(ruta);
        if (archivo.open(QIODevice::WriteOnly))
        {
            archivo.write("pdf");
        }
    }
};

QMainWindow* hacerVentana()
{
    auto* ventana = new QMainWindow;
    ventana->setWindowTitle(QStringLiteral("Principal"));
    auto* area = new QMdiArea(ventana);
    ventana->setCentralWidget(area);
    QMenu* menu = ventana->menuBar()->addMenu(QStringLiteral("&Procesos"));
    menu->addAction(QStringLiteral("&Prueba"), [] { Navegacion::instancia().mostrar("Prueba"); });
    menu->addAction(QStringLiteral("Apagada"))->setEnabled(false);
    QMenu* otros = menu->addMenu(QStringLiteral("Otros"));
    otros->addAction(QStringLiteral("Aviso"), [] { MsgBox("desde el menú"); });
    otros->addAction(QStringLiteral("Informe"),
                     []
                     {
                         auto* vista = new Vista;
                         vista->setObjectName("Informe");
                         vista->setAttribute(Qt::WA_DeleteOnClose);
                         vista->show();
                     });
    QObject::connect(ventana->menuBar()->addAction(QStringLiteral("&Salir")), &QAction::triggered, ventana,
                     [] { terminarProceso(0); });
    Navegacion::instancia().fijarVentana(ventana, area);
    Navegacion::instancia().registrar("Prueba", [] { return new Prueba; });
    Navegacion::instancia().registrar("Modal", [] { return new Modal; });
    ventana->resize(760, 740);
    ventana->show();
    return ventana;
}
} // namespace

ProgramaDePrueba::ProgramaDePrueba()
    : m_ventana(hacerVentana())
{
}

ProgramaDePrueba::~ProgramaDePrueba()
{
    Navegacion::instancia().fijarVentana(nullptr, nullptr);
    delete m_ventana;
}

QString Funcion::falla() const
{
    const QStringList fallas = transcripcion.filter(QRegularExpression("^falla "));
    return fallas.isEmpty() ? QString() : fallas.constFirst();
}

Funcion jugarGuion(const QString& texto, const QString& carpeta)
{
    Funcion funcion;
    const ProgramaDePrueba programa;
    QEventLoop vuelta;
    Robot robot(
        guion::leer(texto.toUtf8()), {carpeta, carpeta, QString()},
        [&](const QString& linea) { funcion.transcripcion += linea; },
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

#include "programa_de_prueba.moc"
