#include "ui/doors/dialogos.h"

#include "base/files/destino.h"
#include "base/files/sistema.h"
#include "ui/doors/caja_abierta.h"
#include "ui/doors/mensajes.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QRegularExpression>
#include <QUrl>
#include <algorithm>

namespace
{
std::function<QString(const PedidoDeArchivo&)> archivoReemplazado;
std::function<void()> impresoraReemplazada;
std::function<bool(const QString&)> enlaceReemplazado;

/// "csv" of "Texto (*.csv)".
QString extensionDe(const QString& tipo)
{
    static const QRegularExpression extension(QStringLiteral("\\*\\.(\\w+)"));
    return extension.match(tipo).captured(1);
}

bool esDeAlguno(const QString& ruta, const QStringList& tipos)
{
    const QString extension = QFileInfo(ruta).suffix();
    return std::any_of(tipos.begin(), tipos.end(),
                       [&](const QString& tipo)
                       { return extensionDe(tipo).compare(extension, Qt::CaseInsensitive) == 0; });
}

/// The name on view follows the kind that is chosen.
void seguirTipo(QFileDialog& dialogo)
{
    const auto alElegir = [&dialogo](const QString& tipo)
    {
        dialogo.setDefaultSuffix(extensionDe(tipo));
        const QString elegido = dialogo.selectedFiles().value(0);
        if (esDeAlguno(elegido, dialogo.nameFilters()))
        {
            const QFileInfo archivo(elegido);
            const QString nombre = archivo.completeBaseName() + QLatin1Char('.') + extensionDe(tipo);
            dialogo.selectFile(archivo.dir().filePath(nombre));
        }
    };
    QObject::connect(&dialogo, &QFileDialog::filterSelected, &dialogo, alElegir);
}

QString elegirArchivo(const PedidoDeArchivo& pedido)
{
    QFileDialog dialogo(ventanaParaCaja(), pedido.titulo);
    dialogo.setAcceptMode(QFileDialog::AcceptOpen);
    dialogo.setFileMode(pedido.debeExistir ? QFileDialog::ExistingFile : QFileDialog::AnyFile);
    if (!pedido.debeExistir)
    {
        dialogo.setLabelText(QFileDialog::Accept, QStringLiteral("Guardar"));
    }
    dialogo.setNameFilter(pedido.filtro.isEmpty() ? QStringLiteral("*") : pedido.filtro);
    dialogo.setDefaultSuffix(pedido.extension);
    if (dialogo.nameFilters().size() > 1)
    {
        seguirTipo(dialogo);
    }
    const QString ofrecido = pedido.nombreInicial.isEmpty() ? pedido.propuesta : pedido.nombreInicial;
    if (!ofrecido.isEmpty())
    {
        const QFileInfo inicial(QDir::fromNativeSeparators(ofrecido));
        dialogo.setDirectory(inicial.absolutePath());
        dialogo.selectFile(inicial.fileName());
    }
    if (dialogo.exec() != QDialog::Accepted || dialogo.selectedFiles().isEmpty())
    {
        return {};
    }
    const QString elegido = dialogo.selectedFiles().constFirst();
    const QStringList tipos = dialogo.nameFilters();
    // With several kinds the extension tells which one it is: without one of theirs the chosen kind's is added.
    return tipos.size() < 2 || esDeAlguno(elegido, tipos)
               ? elegido
               : elegido + QLatin1Char('.') + extensionDe(dialogo.selectedNameFilter());
}

void elegirImpresora()
{
    if (QPrinterInfo::availablePrinterNames().isEmpty())
    {
        MsgBox(
            QStringLiteral("No hay ninguna impresora instalada en este equipo.\n\nInstale una desde la configuración "
                           "del sistema. Mientras tanto, los informes pueden guardarse como PDF."),
            Caja::Informacion);
        return;
    }
    const CajaAbierta abierta;
    QPrintDialog dialogo(&impresoraActual(), ventanaParaCaja());
    dialogo.setWindowTitle(QStringLiteral("Configurar Impresora"));
    dialogo.setOptions(QAbstractPrintDialog::PrintShowPageSize | QAbstractPrintDialog::PrintCollateCopies);
    const QList<QDialogButtonBox*> botones = dialogo.findChildren<QDialogButtonBox*>();
    for (const QDialogButtonBox* caja : botones) // the dialog sets up: it prints nothing
    {
        if (QPushButton* aceptar = caja->button(QDialogButtonBox::Ok))
        {
            aceptar->setText(QStringLiteral("Aceptar"));
        }
        if (QPushButton* cancelar = caja->button(QDialogButtonBox::Cancel))
        {
            cancelar->setText(QStringLiteral("Cancelar"));
        }
    }
    dialogo.exec();
}

/// Owned by the application, so that the printer goes before the print system does.
class Tenedor : public QObject
{
public:
    Tenedor()
        : QObject(qApp)
        , impresora(QPrinter::HighResolution)
    {
    }
    QPrinter impresora;
};
} // namespace

QString DialogoArchivo(const PedidoDeArchivo& pedido)
{
    QString ruta;
    {
        const CajaAbierta abierta;
        ruta = archivoReemplazado ? archivoReemplazado(pedido) : elegirArchivo(pedido);
    }
    if (ruta.isEmpty())
    {
        return pedido.nombreInicial;
    }
    if (!pedido.extension.isEmpty() && QFileInfo(ruta).suffix().isEmpty() && !QFileInfo::exists(ruta))
    {
        ruta += QLatin1Char('.') + pedido.extension;
    }
    return QDir::toNativeSeparators(ruta);
}

void reemplazarDialogoArchivo(std::function<QString(const PedidoDeArchivo&)> atiende)
{
    archivoReemplazado = std::move(atiende);
}

bool ConfirmarDestino(const QString& ruta, const QString& origen)
{
    const Destino destino = puedeEscribirse(ruta);
    if (!destino.rechazo.isEmpty())
    {
        MsgBox(destino.rechazo, Caja::Exclamacion);
        return false;
    }
    return !destino.existe || sistema::mismoArchivo(ruta, origen) ||
           Preguntar(QStringLiteral("El archivo '%1' ya existe. ¿Desea reemplazarlo?").arg(QFileInfo(ruta).fileName()));
}

void ConfigurarImpresora()
{
    if (impresoraReemplazada)
    {
        const CajaAbierta abierta;
        impresoraReemplazada();
        return;
    }
    elegirImpresora();
}

void reemplazarConfigurarImpresora(std::function<void()> atiende)
{
    impresoraReemplazada = std::move(atiende);
}

QPrinter& impresoraActual()
{
    static QPointer<Tenedor> tenedor;
    if (tenedor.isNull())
    {
        tenedor = new Tenedor;
    }
    return tenedor->impresora;
}

bool AbrirEnlace(const QString& direccion)
{
    if (enlaceReemplazado)
    {
        return enlaceReemplazado(direccion);
    }
    const QUrl enlace = QFileInfo::exists(direccion) ? QUrl::fromLocalFile(direccion) : QUrl::fromUserInput(direccion);
    static const QStringList admitidos = {QStringLiteral("http"), QStringLiteral("https"), QStringLiteral("ftp"),
                                          QStringLiteral("mailto"), QStringLiteral("file")};
    return enlace.isValid() && admitidos.contains(enlace.scheme()) && QDesktopServices::openUrl(enlace);
}

void reemplazarAbrirEnlace(std::function<bool(const QString&)> atiende)
{
    enlaceReemplazado = std::move(atiende);
}
