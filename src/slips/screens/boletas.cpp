#include "slips/screens/boletas.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "base/reloj.h"
#include "core/lista_empresas.h"
#include "core/rutinas.h"
#include "core/screens/validar.h"
#include "core/vigencia.h"
#include "slips/pagos.h"
#include "slips/screens/campos_de_boleta.h"
#include "ui/doors/mensajes.h"
#include "ui/look/estilo.h"
#include "ui/report/fuentes.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"
#include "ui_boletas.h"

#include <QFocusEvent>

using Rutinas::CuitActual;
using Rutinas::ModoAbrir;

namespace
{
constexpr int largoDeImporte = 10;
} // namespace

Boletas::Boletas(QWidget* padre)
    : Pantalla(QStringLiteral("Boletas"), padre)
    , ui(std::make_unique<Ui::Boletas>())
{
    ui->setupUi(this);
    txtDias = {ui->txtDias_0, ui->txtDias_1, ui->txtDias_2};
    txtInteres = {ui->txtInteres_0, ui->txtInteres_1, ui->txtInteres_2};
    txtTotal = {ui->txtTotal_0, ui->txtTotal_1, ui->txtTotal_2};
    CamposDeBoleta::disponer(*ui);
    armarEventos();
}

Boletas::~Boletas() = default;

void Boletas::armarEventos()
{
    conectar(ui->cmbConcepto, &QComboBox::activated, &Boletas::cmbConcepto_Click);
    conectar(ui->cmdBuscar, &QPushButton::clicked, &Boletas::cmdBuscar_Click);
    conectar(ui->cmdEliminar, &QPushButton::clicked, &Boletas::cmdEliminar_Click);
    conectar(ui->cmdBoletas, &QPushButton::clicked, &Boletas::cmdBoletas_Click);
    conectar(ui->vsActas, &Grilla::elegida, &Boletas::cargarFila);
    alDejar(ui->MaskFecha, &Boletas::MaskFecha_Validate);
    for (int indice = 0; indice < 3; ++indice)
    {
        const auto i = static_cast<std::size_t>(indice);
        txtDias[i]->installEventFilter(this);
        txtInteres[i]->installEventFilter(this);
        alDejar(txtInteres[i], [this, indice] { return txtInteres_Validate(indice); });
    }
    ui->txtImporte->installEventFilter(this);
    alDejar(ui->txtImporte, &Boletas::txtImporte_Validate);
}

/// Each activation repeats the entries of the list, always by twos.
int Boletas::fondo() const
{
    const int posicion = ui->cmbConcepto->currentIndex();
    return posicion < 0 ? -1 : posicion % 2;
}

int Boletas::tipo() const
{
    return ModoAbrir <= 2 ? ModoAbrir : 0;
}

void Boletas::cargar()
{
    CamposDeBoleta::ajustarAnchos(*ui);
    // One place and size for the three, also while none of them shows.
    QSize lugar;
    for (QGroupBox* marco : {ui->fraPeriodo_0, ui->fraPeriodo_1, ui->fraPeriodo_2})
    {
        lugar = lugar.expandedTo(marco->sizeHint());
        marco->hide();
    }
    ui->marcos->setMinimumSize(lugar);
    if (!IsFont(fuenteDeBarras))
    {
        // A font that cannot be added shows nothing: the slip then prints without its bars.
        Fuentes::agregar(Rutinas::RutaApp + QStringLiteral("PF_I2OF5.ttf"));
    }
}

QString Boletas::empresaEnCurso() const
{
    return ui->txtRazon->text();
}

bool Boletas::IsFont(const QString& nombre)
{
    Puntero::ocupado();
    const bool hay = Fuentes::hay(nombre);
    Puntero::normal();
    return hay;
}

void Boletas::activar()
{
    try
    {
        preparar();
    }
    catch (const YaNoEsta&) // a slip of what another desk has deleted is for nothing
    {
        cerrar();
        throw;
    }
}

void Boletas::preparar()
{
    InteresBoleta = {};
    ImporteTotal = Moneda();
    if (ModoAbrir == 0 || ModoAbrir == 1)
    {
        prepararDeclaracion();
    }
    if (ModoAbrir == 2 && !prepararActa())
    {
        cerrar();
        return;
    }
    ui->MaskFecha->setFecha(Reloj::Hoy());
    CalcularAportes();
    Q_EMIT Navegacion::instancia().cambioDePantalla();
    ponerFoco();
}

/// On the first field that the kind lets the user enter, unless he is in one.
void Boletas::ponerFoco()
{
    const QWidget* actual = focusWidget();
    if (actual == nullptr || !actual->isVisible() || !actual->isEnabled())
    {
        QWidget* primero = ui->MaskFecha;
        if (ui->fraTipo->isEnabled())
        {
            primero = ui->cmbConcepto;
        }
        primero->setFocus();
    }
}

void Boletas::prepararDeclaracion()
{
    // Each activation adds the entries once more.
    ui->cmbConcepto->addItems({QStringLiteral("APORTES DEL PERIODO"), QStringLiteral("INTERESES DEL PERIODO")});
    CargarEmpresa(CuitActual);
    const QString anio = QString::number(Rutinas::PeriodoActual.year());
    const QString mes = QString::number(Rutinas::PeriodoActual.month());
    const QString secuencia = QString::number(Rutinas::SecuenciaActual);
    for (auto [campoAnio, campoMes, campoSecuencia] : {std::tuple(ui->txtAnio_0, ui->txtMes_0, ui->txtSecuencia_0),
                                                       std::tuple(ui->txtAnio_1, ui->txtMes_1, ui->txtSecuencia_1)})
    {
        campoAnio->setText(anio);
        campoMes->setText(mes);
        campoSecuencia->setText(secuencia);
    }
    ui->cmbConcepto->setCurrentIndex(ModoAbrir);
    cmbConcepto_Click();
    ui->fraTipo->setEnabled(false);
    mostrarMarco(ModoAbrir);
}

bool Boletas::prepararActa()
{
    const int posicion = ui->cmbConcepto->currentIndex();
    ui->cmbConcepto->addItems(
        {QStringLiteral("PAGO DE ACTAS - C.O.L.U."), QStringLiteral("PAGO DE ACTAS - SEGURO DE SEPELIO")});
    ui->cmbConcepto->setCurrentIndex(posicion);
    if (CuitActual.isEmpty() && !elegirEmpresaDeActa())
    {
        return false;
    }
    CargarEmpresa(CuitActual);
    mostrarMarco(2);
    return true;
}

bool Boletas::elegirEmpresaDeActa()
{
    if (const auto unica = cuitDeUnicaEmpresa(Rutinas::Conexion))
    {
        CuitActual = *unica;
        return true;
    }
    if (!Rutinas::Conexion.hay("SELECT 1 FROM Empresas"))
    {
        MsgBox(QStringLiteral("DEBE INGRESAR PRIMERO LOS DATOS DE LA EMPRESA CORRESPONDIENTE."), Caja::Exclamacion);
        return false;
    }
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarEmpresa"));
    return !CuitActual.isEmpty();
}

void Boletas::mostrarMarco(int cual)
{
    ui->fraPeriodo_0->setVisible(cual == 0);
    ui->fraPeriodo_1->setVisible(cual == 1);
    ui->fraPeriodo_2->setVisible(cual == 2);
}

void Boletas::CargarEmpresa(const QString& cuit)
{
    if (!cuit.isEmpty())
    {
        exigirEmpresa(Rutinas::Conexion, cuit);
    }
    ui->txtCuit->setText(cuit);
    const auto [razon, domicilio] = Rutinas::Conexion.primera(
        "SELECT * FROM Empresas WHERE CUIT = ?",
        [](const Fila& fila) { return std::pair(fila.texto("Razon"), domicilioDeBoleta(fila)); }, cuit);
    ui->txtRazon->setText(razon);
    ui->txtDomicilio->setText(domicilio);
    for (QLineEdit* campo : {ui->txtRazon, ui->txtDomicilio})
    {
        campo->setCursorPosition(0);
        campo->setToolTip(campo->text());
    }
    if (ModoAbrir == 2)
    {
        CargarActas();
    }
}

void Boletas::CalcularAportes()
{
    if (ModoAbrir != 0)
    {
        return;
    }
    m_aportes = calcularAportesDeBoleta(Rutinas::Conexion, Rutinas::declaracionActual());
    if (m_aportes.menorQueOriginal)
    {
        MsgBox(
            QStringLiteral(
                "Verifique los datos ingresados en la Rectificativa.  Los mismos no pueden ser menores al Original."),
            Caja::Informacion);
        ui->cmdBoletas->setEnabled(false);
    }
    ui->txtArt100->setText(conMiles(m_aportes.art100));
    ui->txtArt101A->setText(conMiles(m_aportes.art101A));
    ui->txtArt101B->setText(conMiles(m_aportes.art101B));
    ImporteTotal = m_aportes.subTotal() + InteresBoleta[0];
    txtTotal[0]->setText(conMiles(ImporteTotal));
}

void Boletas::CalcularTotal()
{
    if (ModoAbrir == 0 || ModoAbrir == 1)
    {
        const bool aportes = ui->cmbConcepto->currentIndex() == 0;
        ImporteTotal = aportes ? m_aportes.subTotal() + InteresBoleta[0] : InteresBoleta[1];
        txtTotal[aportes ? 0 : 1]->setText(conPesos(ImporteTotal));
    }
    else if (ModoAbrir == 2)
    {
        ImporteTotal = ImporteActa + InteresBoleta[2];
        txtTotal[2]->setText(conPesos(ImporteTotal));
    }
}

void Boletas::CargarActas()
{
    if (ui->txtCuit->text().isEmpty())
    {
        ui->vsActas->setFilas(0);
    }
    else
    {
        ui->vsActas->cargar(
            listarPagosDeActas(Rutinas::Conexion, ui->txtCuit->text(), fondo()),
            [](const PagoDeActa& pago) {
                return FilaDeGrilla{pago.fecha, pago.nroActa, pago.cuota, QVariant::fromValue(pago.importe), pago.pago};
            });
    }
    PagoElegido = 0;
}

void Boletas::cmbConcepto_Click()
{
    ui->fraPeriodo_2->setTitle(ui->cmbConcepto->currentText());
    CargarActas();
}

void Boletas::cmdBuscar_Click()
{
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarEmpresa"));
    if (!CuitActual.isEmpty())
    {
        CargarEmpresa(CuitActual);
        Q_EMIT Navegacion::instancia().cambioDePantalla();
    }
}

void Boletas::cmdEliminar_Click()
{
    if (PagoElegido == 0 || !Preguntar(QStringLiteral("Esta seguro de desea ELIMINAR el Pago seleccionado?")))
    {
        return;
    }
    conLaLista([this] { eliminarPago(Rutinas::Conexion, PagoElegido); });
    MsgBox(QStringLiteral("El Pago ha sido Eliminado."), Caja::Exclamacion);
    CargarActas();
}

template <class Cuerpo>
void Boletas::conLaLista(Cuerpo cuerpo)
{
    try
    {
        cuerpo();
    }
    catch (const YaNoEsta&)
    {
        CargarActas();
        throw;
    }
}

bool Boletas::MaskFecha_Validate()
{
    return ui->MaskFecha->vacio() || Rutinas::ValidarFecha(*ui->MaskFecha);
}

bool Boletas::tomarImporte(QLineEdit* campo, Moneda& importe)
{
    const QString texto = campo->text().isEmpty() ? QStringLiteral("0") : CamposDeBoleta::sinMascara(campo->text());
    if (!Rutinas::VerificarNumero(texto))
    {
        return false;
    }
    const Moneda anterior = importe;
    try
    {
        importe = importeDeCampo(texto);
        CalcularTotal();
        return true;
    }
    catch (const ErrorDeEjecucion& error)
    {
        if (error.numero() != ErrorDeEjecucion::Desbordamiento)
        {
            throw;
        }
        importe = anterior;
        MsgBox(QStringLiteral("Verifique el Número ingresado.  El mismo es incorrecta"));
        return false;
    }
}

bool Boletas::txtInteres_Validate(int indice)
{
    const auto i = static_cast<std::size_t>(indice);
    if (!tomarImporte(txtInteres[i], InteresBoleta[i]))
    {
        return false;
    }
    CamposDeBoleta::mostrar(txtInteres[i], InteresBoleta[i] == Moneda() ? QString() : conPesos(InteresBoleta[i]));
    return true;
}

bool Boletas::txtImporte_Validate()
{
    if (!tomarImporte(ui->txtImporte, ImporteActa))
    {
        return false;
    }
    CamposDeBoleta::mostrar(ui->txtImporte, conPesos(ImporteActa));
    return true;
}

bool Boletas::eventFilter(QObject* objeto, QEvent* evento)
{
    if (evento->type() == QEvent::FocusIn)
    {
        const auto motivo = static_cast<QFocusEvent*>(evento)->reason();
        auto* campo = qobject_cast<QLineEdit*>(objeto);
        if (campo != nullptr && motivo != Qt::ActiveWindowFocusReason && motivo != Qt::PopupFocusReason)
        {
            const bool esDias = std::find(txtDias.begin(), txtDias.end(), campo) != txtDias.end();
            esDias ? txtDias_GotFocus(campo) : campoImporte_GotFocus(campo);
        }
    }
    return Pantalla::eventFilter(objeto, evento);
}

void Boletas::campoImporte_GotFocus(QLineEdit* campo)
{
    if (!campo->text().isEmpty())
    {
        campo->setText(importeParaEditar(campo->text()));
    }
    campo->setMaxLength(campo == ui->txtImporte || campo == txtInteres[2] ? largoDeImporte : CamposDeBoleta::sinLimite);
}

void Boletas::txtDias_GotFocus(QLineEdit* campo)
{
    if (!campo->text().isEmpty() && campo->text().toInt() == 0)
    {
        campo->clear();
    }
}

void Boletas::cargarFila(int fila)
{
    ui->vsActas->pintarTodo(Grilla::blanco);
    ui->vsActas->pintarFila(fila, Grilla::amarillo);
    PagoElegido = static_cast<qint32>(ui->vsActas->entero(5, fila));
    PagoGuardado pago;
    conLaLista([&] { pago = cargarPago(Rutinas::Conexion, PagoElegido); });
    const auto i = static_cast<std::size_t>(tipo());
    txtDias[i]->setText(pago.dias == 0 ? QString() : QString::number(pago.dias));
    CamposDeBoleta::mostrar(txtInteres[i],
                            pago.interes == Moneda() ? QString() : CamposDeBoleta::paraEditar(pago.interes));
    ui->txtActa->setText(QString::number(pago.nroActa));
    ui->txtCuota->setText(QString::number(pago.cuota));
    CamposDeBoleta::mostrar(ui->txtImporte, CamposDeBoleta::paraEditar(pago.importe - pago.interes));
    (void)txtInteres_Validate(2);
    (void)txtImporte_Validate();
}
