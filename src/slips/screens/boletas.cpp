#include "slips/screens/boletas.h"

#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "base/reloj.h"
#include "core/lista_empresas.h"
#include "core/rutinas.h"
#include "core/screens/validar.h"
#include "core/vigencia.h"
#include "slips/datos_boleta.h"
#include "slips/emision.h"
#include "slips/importes_boleta.h"
#include "slips/pagos.h"
#include "slips/screens/campos_de_boleta.h"
#include "slips/screens/campos_de_importe.h"
#include "slips/screens/lista_de_pagos.h"
#include "ui/doors/mensajes.h"
#include "ui/report/fuentes.h"
#include "ui/report/informe.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/trabajo_largo.h"
#include "ui_boletas.h"

using Rutinas::CuitActual;
using Rutinas::ModoAbrir;

namespace
{
constexpr QLatin1String fuenteDeBarras("PF Interleaved 2 of 5");

/// Is a screen font of this name installed? Shows the busy pointer meanwhile.
bool IsFont(const QString& nombre)
{
    Puntero::ocupado();
    const bool hay = Fuentes::hay(nombre);
    Puntero::normal();
    return hay;
}

TipoBoleta tipoEnCurso()
{
    return ModoAbrir <= 2 ? static_cast<TipoBoleta>(ModoAbrir) : TipoBoleta::Aportes;
}
} // namespace

Boletas::Boletas(QWidget* padre)
    : Pantalla(QStringLiteral("Boletas"), padre)
    , ui(std::make_unique<Ui::Boletas>())
{
    ui->setupUi(this);
    CamposDeBoleta::disponer(*ui);
    m_importes = std::make_unique<CamposDeImporte>(*ui, [this] { return tipoDelTotal(); });
    m_pagos = std::make_unique<ListaDePagos>(
        ui->vsActas, [this] { return listarPagosDeActas(Rutinas::Conexion, ui->txtCuit->text(), fondo()); });
    conectar(ui->cmbConcepto, &QComboBox::activated, &Boletas::cmbConcepto_Click);
    conectar(ui->cmdBuscar, &QPushButton::clicked, &Boletas::cmdBuscar_Click);
    conectar(ui->cmdEliminar, &QPushButton::clicked, &Boletas::cmdEliminar_Click);
    conectar(ui->cmdBoletas, &QPushButton::clicked, &Boletas::cmdBoletas_Click);
    conectar(ui->vsActas, &Grilla::elegida, &Boletas::cargarFila);
    alDejar(ui->MaskFecha, &Boletas::MaskFecha_Validate);
    alDejar(ui->txtInteres_0, [this] { return m_importes->dejarInteres(TipoBoleta::Aportes); });
    alDejar(ui->txtInteres_1, [this] { return m_importes->dejarInteres(TipoBoleta::Interes); });
    alDejar(ui->txtInteres_2, [this] { return m_importes->dejarInteres(TipoBoleta::Acta); });
    alDejar(ui->txtImporte, [this] { return m_importes->dejarActa(); });
}

Boletas::~Boletas() = default;

/// Each activation repeats the entries of the list, always by twos.
int Boletas::fondo() const
{
    const int posicion = ui->cmbConcepto->currentIndex();
    return posicion < 0 ? -1 : posicion % 2;
}

std::optional<TipoBoleta> Boletas::tipoDelTotal() const
{
    const bool aportes = ui->cmbConcepto->currentIndex() == 0;
    const TipoBoleta delMes = aportes ? TipoBoleta::Aportes : TipoBoleta::Interes;
    return ModoAbrir > 2 ? std::nullopt : std::optional(ModoAbrir == 2 ? TipoBoleta::Acta : delMes);
}

void Boletas::cargar()
{
    CamposDeBoleta::ajustarMedidas(*ui);
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

void Boletas::activar()
{
    try
    {
        preparar();
    }
    catch (const YaNoEsta&)
    {
        cerrar();
        throw;
    }
    catch (...)
    {
        // It would show one declaration and be issued for another; an act is of the company that it shows.
        if (ModoAbrir != 2 || ui->fraPeriodo_2->isHidden())
        {
            cerrar();
        }
        throw;
    }
}

void Boletas::preparar()
{
    m_importes->empezar();
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
        QWidget* fecha = ui->MaskFecha;
        (ui->fraTipo->isEnabled() ? ui->cmbConcepto : fecha)->setFocus();
    }
}

void Boletas::prepararDeclaracion()
{
    // Each activation adds the entries once more.
    ui->cmbConcepto->addItems({QStringLiteral("APORTES DEL PERIODO"), QStringLiteral("INTERESES DEL PERIODO")});
    CargarEmpresa(CuitActual);
    const int anio = Rutinas::PeriodoActual.year();
    const int mes = Rutinas::PeriodoActual.month();
    const int secuencia = Rutinas::SecuenciaActual;
    const std::pair<QLineEdit*, int> campos[] = {
        {ui->txtAnio_0, anio}, {ui->txtAnio_1, anio},           {ui->txtMes_0, mes},
        {ui->txtMes_1, mes},   {ui->txtSecuencia_0, secuencia}, {ui->txtSecuencia_1, secuencia}};
    for (const auto& [campo, numero] : campos)
    {
        campo->setText(QString::number(numero));
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
    const EmpresaDeBoleta empresa = empresaDeBoleta(Rutinas::Conexion, cuit);
    ui->txtCuit->setText(cuit);
    for (const auto& [campo, texto] :
         {std::pair(ui->txtRazon, empresa.razon), std::pair(ui->txtDomicilio, empresa.domicilio)})
    {
        campo->setText(texto);
        campo->setCursorPosition(0);
        campo->setToolTip(texto);
    }
    if (ModoAbrir == 2)
    {
        m_pagos->cargar();
    }
}

void Boletas::CalcularAportes()
{
    if (ModoAbrir != 0)
    {
        return;
    }
    const AportesDeBoleta aportes = calcularAportesDeBoleta(Rutinas::Conexion, Rutinas::declaracionActual());
    if (aportes.menorQueOriginal)
    {
        MsgBox(
            QStringLiteral(
                "Verifique los datos ingresados en la Rectificativa.  Los mismos no pueden ser menores al Original."),
            Caja::Informacion);
        ui->cmdBoletas->setEnabled(false);
    }
    m_importes->mostrarAportes(aportes);
}

void Boletas::cmbConcepto_Click()
{
    ui->fraPeriodo_2->setTitle(ui->cmbConcepto->currentText());
    m_pagos->cargar();
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
    if (!m_pagos->hayElegido() || !Preguntar(QStringLiteral("Esta seguro de desea ELIMINAR el Pago seleccionado?")))
    {
        return;
    }
    m_pagos->eliminarElegido();
    MsgBox(QStringLiteral("El Pago ha sido Eliminado."), Caja::Exclamacion);
    m_pagos->cargar();
}

void Boletas::cargarFila(int fila)
{
    const PagoGuardado pago = m_pagos->elegir(fila);
    ui->txtActa->setText(QString::number(pago.nroActa));
    ui->txtCuota->setText(QString::number(pago.cuota));
    m_importes->mostrarPago(tipoEnCurso(), pago);
}

bool Boletas::MaskFecha_Validate()
{
    return ui->MaskFecha->vacio() || Rutinas::ValidarFecha(*ui->MaskFecha);
}

void Boletas::cmdBoletas_Click()
{
    if (ui->txtCuit->text().isEmpty())
    {
        MsgBox(QStringLiteral("Debe seleccionar la Empresa correspondiente."), Caja::Informacion);
        ui->cmdBuscar->setFocus();
        return;
    }
    if (!Preguntar(QStringLiteral("Desea Generar la Boleta Correspondiente?")) || !revisarFecha() ||
        !m_importes->revisarInteres(tipoEnCurso()))
    {
        return;
    }
    if (m_importes->total() == Moneda())
    {
        MsgBox(QStringLiteral("Debe ingresar el Importe a Abonar."), Caja::Informacion);
        return;
    }
    if (ModoAbrir == 2 && !revisarActa())
    {
        return;
    }
    remediando([this] { emitir(boleta()); }, [this] { cerrar(); });
    if (ModoAbrir == 2)
    {
        m_pagos->cargar();
    }
    if (ModoAbrir == 0)
    {
        Rutinas::BoletaEmitida = true;
    }
}

bool Boletas::revisarFecha()
{
    if (!ui->MaskFecha->vacio())
    {
        return true;
    }
    MsgBox(QStringLiteral("Debe informar la fecha correspondiente al Pago."), Caja::Informacion);
    ui->MaskFecha->setFecha(Reloj::Hoy());
    ui->MaskFecha->setFocus();
    return false;
}

bool Boletas::revisarActa()
{
    if (ui->cmbConcepto->currentIndex() == -1)
    {
        MsgBox(QStringLiteral("Debe seleccionar el Tipo de Acta: 'C.O.L.U.' ó 'Seguro de Sepelio'."),
               Caja::Informacion);
        ui->cmbConcepto->setFocus();
        return false;
    }
    for (const auto& [campo, que] : {std::pair(ui->txtActa, "Acta"), std::pair(ui->txtCuota, "Cuota")})
    {
        if (campo->text().toInt() == 0)
        {
            campo->clear();
            MsgBox(QStringLiteral("Debe informar el Nro. de %1 correspondiente.").arg(QLatin1String(que)),
                   Caja::Informacion);
            campo->setFocus();
            return false;
        }
    }
    return true;
}

Boleta Boletas::boleta() const
{
    Boleta b;
    b.tipo = tipoEnCurso();
    b.cuit = ui->txtCuit->text();
    b.declaracion = {b.cuit, Rutinas::PeriodoActual, Rutinas::SecuenciaActual};
    const std::optional<QDate> fecha = LeerFecha(ui->MaskFecha->text());
    if (!fecha)
    {
        throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::NoCoincidenTipos, ui->MaskFecha->text());
    }
    b.fecha = *fecha;
    b.nroActa = ui->txtActa->text().toInt();
    b.cuota = ui->txtCuota->text().toInt();
    b.cuenta = fondo();
    b.cantidadEmpleados = Rutinas::CantidadEmpleados;
    b.cantidadAfiliados = Rutinas::CantidadAfiliados;
    m_importes->completar(b);
    return b;
}

void Boletas::emitir(const Boleta& boleta)
{
    const TextosDeBoleta textos{.empresa = ui->txtRazon->text(),
                                .domicilio = ui->txtDomicilio->text(),
                                .concepto = ui->cmbConcepto->currentText(),
                                .dias = m_importes->dias(boleta.tipo),
                                .nroActa = ui->txtActa->text(),
                                .cuota = ui->txtCuota->text(),
                                .hayFuente = IsFont(fuenteDeBarras)};
    Informe informe;
    informe.ArchivoInforme = Rutinas::RutaApp + QStringLiteral("RptBoleta%1.rpt").arg(static_cast<int>(boleta.tipo));
    informe.ArchivoDatos = Rutinas::rutaBase();
    informe.NombreDeArchivo = nombreDeBoleta(boleta);
    informe.Formulas = emitirBoleta(Rutinas::Conexion, boleta, textos);
    if (informe.PrintReport() != 0)
    {
        MsgBox(informe.LastErrorString());
    }
}
