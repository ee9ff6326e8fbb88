#include "ui/doors/mensajes.h"

#include "base/error_de_ejecucion.h"
#include "ui/doors/caja_abierta.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPointer>

namespace
{
int abiertas = 0;
QPointer<QWidget> ventanaPrincipal;
AtiendeCajas otroMostrador;
std::function<void(const DatosDeCaja&)> mostrada;
std::function<void(const DatosDeCaja&, bool)> cerrada;

QMessageBox::Icon iconoDe(Caja clase)
{
    switch (clase)
    {
    case Caja::Informacion:
        return QMessageBox::Information;
    case Caja::Exclamacion:
        return QMessageBox::Warning;
    case Caja::Critico:
        return QMessageBox::Critical;
    case Caja::Pregunta:
        return QMessageBox::Question;
    case Caja::Simple:
        break;
    }
    return QMessageBox::NoIcon;
}

/// The picture tells the kind of box to the eye alone.
void nombrarDibujo(const QMessageBox& caja)
{
    if (auto* dibujo = caja.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label")))
    {
        const bool pregunta = caja.icon() == QMessageBox::Question;
        const bool informa = caja.icon() == QMessageBox::Information;
        dibujo->setAccessibleName(pregunta  ? QStringLiteral("Pregunta")
                                  : informa ? QStringLiteral("Información")
                                            : QStringLiteral("Atención"));
    }
}

bool mostrarCaja(const DatosDeCaja& datos)
{
    QMessageBox caja(iconoDe(datos.clase), datos.titulo, QString(), QMessageBox::NoButton, ventanaParaCaja());
    caja.setTextFormat(Qt::PlainText); // texts of users and files come in
    caja.setText(datos.texto);
    nombrarDibujo(caja);
    if (datos.clase == Caja::Pregunta)
    {
        caja.setStandardButtons(QMessageBox::Yes | QMessageBox::No);
        caja.button(QMessageBox::Yes)->setText(QStringLiteral("&Sí"));
        caja.button(QMessageBox::No)->setText(QStringLiteral("&No"));
        caja.setDefaultButton(QMessageBox::No);
        caja.setEscapeButton(QMessageBox::No);
        return caja.exec() == QMessageBox::Yes;
    }
    caja.setStandardButtons(QMessageBox::Ok);
    caja.button(QMessageBox::Ok)->setText(QStringLiteral("Aceptar"));
    caja.exec();
    return true;
}

bool atender(const DatosDeCaja& datos)
{
    const CajaAbierta abierta;
    if (otroMostrador)
    {
        const AtiendeCajas atiende = otroMostrador; // it may replace itself while it runs
        return atiende(datos);
    }
    if (mostrada)
    {
        mostrada(datos);
    }
    const bool respuesta = mostrarCaja(datos);
    if (cerrada)
    {
        cerrada(datos, respuesta);
    }
    return respuesta;
}

DatosDeCaja datosDe(Caja clase, const QString& texto, const QString& titulo)
{
    return {clase, texto, titulo.isEmpty() ? QApplication::applicationName() : titulo};
}
} // namespace

CajaAbierta::CajaAbierta()
    : m_puntero(QApplication::overrideCursor() != nullptr)
{
    ++abiertas;
    if (m_puntero)
    {
        QApplication::setOverrideCursor(Qt::ArrowCursor);
    }
}

CajaAbierta::~CajaAbierta()
{
    if (m_puntero)
    {
        QApplication::restoreOverrideCursor();
    }
    --abiertas;
}

QWidget* ventanaParaCaja()
{
    // When a dialog has closed no window is active until the system says so: what comes belongs where it came from.
    static QPointer<QWidget> ultima;
    QWidget* modal = QApplication::activeModalWidget();
    if (QWidget* activa = modal != nullptr ? modal : QApplication::activeWindow())
    {
        ultima = activa;
    }
    return !ultima.isNull() && ultima->isVisible() ? ultima : ventanaPrincipal;
}

void fijarVentanaParaCajas(QWidget* principal)
{
    ventanaPrincipal = principal;
}

void MsgBox(const QString& texto, Caja clase, const QString& titulo)
{
    atender(datosDe(clase, texto, titulo));
}

void decirError(const ErrorDeEjecucion& error)
{
    MsgBox(QStringLiteral("%1 %2").arg(QString::number(error.numero()), error.descripcion()));
}

void decirErrorDeArchivo(const ErrorDeEjecucion& error)
{
    MsgBox(QStringLiteral("%1 - (%2)").arg(error.descripcion(), QString::number(error.numero())));
}

bool Preguntar(const QString& texto, const QString& titulo)
{
    return atender(datosDe(Caja::Pregunta, texto, titulo));
}

void reemplazarCajas(AtiendeCajas atiende)
{
    otroMostrador = std::move(atiende);
}

void observarCajas(std::function<void(const DatosDeCaja&)> alMostrar,
                   std::function<void(const DatosDeCaja&, bool)> alCerrar)
{
    mostrada = std::move(alMostrar);
    cerrada = std::move(alCerrar);
}

bool hayCajaAbierta()
{
    return abiertas > 0;
}
