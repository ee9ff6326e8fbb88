#include "captura.h"

#include "controles.h"
#include "falla.h"

#include <QtWidgets>

namespace
{
constexpr int altoDelTitulo = 28;

/// From the bottom to the top: the main window, then what lies over it by how many windows it stands on.
QWidgetList ventanasEnOrden()
{
    QWidgetList lista = QApplication::topLevelWidgets();
    lista.removeIf(
        [](const QWidget* ventana)
        {
            const bool propia = ventana->windowType() == Qt::Window || ventana->windowType() == Qt::Dialog;
            return !ventana->isVisible() || !propia;
        });
    const auto altura = [](const QWidget* ventana)
    {
        int alto = 0;
        for (const QWidget* padre = ventana; padre->parentWidget() != nullptr; padre = padre->parentWidget()->window())
        {
            ++alto;
        }
        const bool arriba = ventana == QApplication::activeModalWidget();
        return std::tuple(ventana != controles::ventanaPrincipal(), arriba, ventana->isModal(), alto);
    };
    std::ranges::stable_sort(lista, {}, altura);
    return lista;
}

/// Without a display nothing draws the frame of a window.
QRect conMarco(const QWidget* ventana)
{
    return ventana->geometry().adjusted(0, -altoDelTitulo, 0, 0);
}

void pintar(QPainter& pintor, QWidget* ventana)
{
    constexpr int margen = 8;
    const QRect marco = conMarco(ventana);
    const QRect titulo(marco.topLeft(), QSize(marco.width(), altoDelTitulo));
    const bool activa = ventana == controles::ventanaActual()->window();
    pintor.fillRect(titulo, activa ? QColor(0x2f, 0x4a, 0x68) : QColor(0x8a, 0x97, 0xa6));
    pintor.setPen(Qt::white);
    const QRect dentro = titulo.adjusted(margen, 0, -margen, 0);
    pintor.drawText(dentro, Qt::AlignVCenter | Qt::AlignLeft,
                    pintor.fontMetrics().elidedText(ventana->windowTitle(), Qt::ElideRight, dentro.width()));
    pintor.drawPixmap(ventana->geometry().topLeft(), ventana->grab());
    pintor.setPen(QColor(0x2f, 0x4a, 0x68));
    pintor.drawRect(marco.adjusted(0, 0, -1, -1));
}

/// One picture of these windows, each over those before it.
QImage juntar(const QWidgetList& ventanas)
{
    QRect todo;
    for (const QWidget* ventana : ventanas)
    {
        todo = todo.united(conMarco(ventana));
    }
    QImage cuadro(todo.size(), QImage::Format_RGB32);
    cuadro.fill(Qt::white);
    QPainter pintor(&cuadro);
    pintor.translate(-todo.topLeft());
    for (QWidget* ventana : ventanas)
    {
        pintar(pintor, ventana);
    }
    return cuadro;
}
} // namespace

QImage retratar()
{
    return juntar(ventanasEnOrden());
}

QImage retratarVentana()
{
    QWidget* actual = controles::ventanaActual();
    QWidget* hija = controles::hijaDe(actual);
    return hija != nullptr ? hija->grab().toImage() : juntar({actual->window()});
}

void grabarImagen(const QImage& imagen, const QString& ruta)
{
    QDir().mkpath(QFileInfo(ruta).absolutePath());
    if (!imagen.save(ruta, "PNG"))
    {
        throw Falla("no se puede grabar %1", ruta);
    }
}
