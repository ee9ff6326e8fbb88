#include "ui/doors/impresion.h"

#include "base/files/destino.h"
#include "ui/doors/caja_abierta.h"
#include "ui/doors/dialogos.h"
#include "ui/doors/mensajes.h"

#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

namespace
{
std::function<bool(int, PedidoDeImpresion&)> impresionReemplazada;
std::function<bool(QPageLayout&)> paginaReemplazada;
} // namespace

bool PedirImpresion(int hojas, PedidoDeImpresion& pedido)
{
    pedido = {1, hojas};
    if (impresionReemplazada)
    {
        const CajaAbierta abierta;
        return impresionReemplazada(hojas, pedido);
    }
    if (QPrinterInfo::availablePrinterNames().isEmpty())
    {
        MsgBox(QStringLiteral(
                   "No hay ninguna impresora instalada en este equipo.\n\nEl informe puede guardarse como PDF."),
               Caja::Informacion);
        return false;
    }
    const CajaAbierta abierta;
    QPrintDialog dialogo(&impresoraActual(), ventanaParaCaja());
    dialogo.setWindowTitle(QStringLiteral("Imprimir"));
    dialogo.setOption(QAbstractPrintDialog::PrintPageRange);
    dialogo.setMinMax(1, hojas);
    if (dialogo.exec() != QDialog::Accepted)
    {
        return false;
    }
    const QString archivo = impresoraActual().outputFileName(); // the dialog prints into files as well
    if (const Destino destino = archivo.isEmpty() ? Destino() : puedeEscribirse(archivo); !destino.rechazo.isEmpty())
    {
        MsgBox(destino.rechazo, Caja::Exclamacion);
        return false;
    }
    if (dialogo.printRange() == QAbstractPrintDialog::PageRange)
    {
        pedido = {qBound(1, dialogo.fromPage(), hojas), qBound(1, dialogo.toPage(), hojas)};
    }
    return pedido.desde <= pedido.hasta;
}

void reemplazarPedirImpresion(std::function<bool(int, PedidoDeImpresion&)> atiende)
{
    impresionReemplazada = std::move(atiende);
}

bool PedirPagina(QPageLayout& pagina)
{
    const CajaAbierta abierta;
    if (paginaReemplazada)
    {
        return paginaReemplazada(pagina);
    }
    QPrinter& impresora = impresoraActual();
    impresora.setFullPage(false); // as the last print may have left it
    impresora.setPageLayout(pagina);
    QPageSetupDialog dialogo(&impresora, ventanaParaCaja());
    dialogo.setWindowTitle(QStringLiteral("Configurar página"));
    if (dialogo.exec() != QDialog::Accepted)
    {
        return false;
    }
    pagina = impresora.pageLayout();
    return true;
}

void reemplazarPedirPagina(std::function<bool(QPageLayout&)> atiende)
{
    paginaReemplazada = std::move(atiende);
}
