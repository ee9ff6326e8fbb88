#include "comprobaciones.h"

#include "base.h"
#include "controles.h"
#include "entrada.h"
#include "falla.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

#include <QtWidgets>

namespace comprobaciones
{
namespace
{
void iguales(const QString& hay, const QString& esperado)
{
    if (hay != esperado)
    {
        throw Falla(
            QStringLiteral("se esperaba %1, y dice %2").arg(guion::entreComillas(esperado), guion::entreComillas(hay)));
    }
}

QString siNo(bool si)
{
    return si ? QStringLiteral("si") : QStringLiteral("no");
}

QByteArray contenidoDe(const QString& ruta)
{
    QFile archivo(ruta);
    if (!archivo.open(QIODevice::ReadOnly))
    {
        throw Falla(QStringLiteral("no se puede leer %1: %2").arg(ruta, archivo.errorString()));
    }
    return archivo.readAll();
}

/// Where two files begin to differ, told as a person looks for it.
QString diferencia(const QByteArray& hay, const QByteArray& esperado)
{
    const auto [a, b] = std::mismatch(hay.begin(), hay.end(), esperado.begin(), esperado.end());
    const qsizetype lugar = a - hay.begin();
    const qsizetype linea = hay.first(lugar).count('\n');
    const qsizetype desde = hay.first(lugar).lastIndexOf('\n') + 1;
    const auto renglon = [desde](const QByteArray& todo)
    {
        const qsizetype fin = todo.indexOf('\n', desde);
        return guion::entreComillas(QString::fromLatin1(todo.mid(desde, (fin < 0 ? todo.size() : fin) - desde)));
    };
    return QStringLiteral("difieren en el byte %1 (línea %2, posición %3): %4 y se esperaba %5 (largo %6 y %7)")
        .arg(lugar)
        .arg(linea + 1)
        .arg(lugar - desde + 1)
        .arg(renglon(hay), renglon(esperado))
        .arg(hay.size())
        .arg(esperado.size());
}

bool ventanaAbierta(const QString& nombre)
{
    if (Navegacion::instancia().abierta(nombre) != nullptr)
    {
        return true;
    }
    const QWidgetList todas = QApplication::topLevelWidgets();
    return std::any_of(todas.begin(), todas.end(),
                       [&](const QWidget* ventana) { return ventana->isVisible() && ventana->objectName() == nombre; });
}
} // namespace

void comprobar(const guion::Espera& paso)
{
    const QWidget* control = controles::buscarVisible(paso.control);
    if (!controles::muestra(control, paso.texto))
    {
        iguales(controles::textoDe(control), paso.texto);
    }
}

void comprobar(const guion::EsperaCelda& paso)
{
    const Grilla* grilla = controles::buscarGrilla(paso.grilla, false);
    if (paso.fila > grilla->filas() || paso.columna > grilla->columnas())
    {
        throw Falla(
            QStringLiteral("la grilla tiene %1 filas y %2 columnas").arg(grilla->filas()).arg(grilla->columnas()));
    }
    const QVariant marca =
        paso.fila > 0 ? grilla->model()->index(paso.fila - 1, paso.columna - 1).data(Qt::CheckStateRole) : QVariant();
    if (const auto esperada = guion::leerSiNo(paso.texto); marca.isValid() && esperada)
    {
        iguales(siNo(marca.toInt() == Qt::Checked), siNo(*esperada));
        return;
    }
    iguales(paso.fila > 0 ? grilla->texto(paso.columna, paso.fila)
                          : grilla->model()->headerData(paso.columna - 1, Qt::Horizontal).toString(),
            paso.texto);
}

void comprobar(const guion::EsperaFilas& paso)
{
    iguales(QString::number(controles::buscarGrilla(paso.grilla, false)->filas()), QString::number(paso.filas));
}

void comprobar(const guion::EsperaMensaje& paso, const Contexto& contexto)
{
    if (contexto.cajas == 0)
    {
        throw Falla(QStringLiteral("no hubo ninguna caja"));
    }
    iguales(contexto.ultimaCaja, paso.texto);
}

void comprobar(const guion::EsperaTitulo& paso)
{
    const QWidget* ventana = controles::ventanaActual();
    const auto* pantalla = ventana->windowTitle().isEmpty() ? ventana->findChild<const Pantalla*>() : nullptr;
    iguales(pantalla != nullptr ? pantalla->windowTitle() : ventana->windowTitle(), paso.texto);
}

void comprobar(const guion::EsperaEstado& paso)
{
    if (paso.cual == guion::EsperaEstado::Activo)
    {
        iguales(siNo(controles::buscar(paso.control)->isEnabled()), siNo(paso.si));
        return;
    }
    if (paso.cual == guion::EsperaEstado::Visible)
    {
        iguales(siNo(controles::buscar(paso.control)->isVisible()), siNo(paso.si));
        return;
    }
    const QWidget* control = controles::buscarVisible(paso.control);
    const auto* boton = qobject_cast<const QAbstractButton*>(control);
    const auto* marco = qobject_cast<const QGroupBox*>(control);
    if (boton == nullptr && marco == nullptr)
    {
        throw Falla(QStringLiteral("«%1» no se marca").arg(paso.control));
    }
    iguales(siNo(boton != nullptr ? boton->isChecked() : marco->isChecked()), siNo(paso.si));
}

void comprobar(const guion::EsperaFoco& paso)
{
    const QWidget* control = controles::buscar(paso.control);
    if (!entrada::tieneFoco(control))
    {
        const QWidget* foco = QApplication::focusWidget();
        throw Falla(QStringLiteral("el foco está en «%1»")
                        .arg(foco == nullptr ? QStringLiteral("ninguno") : foco->objectName()));
    }
}

void comprobar(const guion::EsperaVentana& paso)
{
    if (ventanaAbierta(paso.nombre) != paso.si)
    {
        throw Falla(QStringLiteral("la ventana «%1» %2 abierta")
                        .arg(paso.nombre, paso.si ? QStringLiteral("no está") : QStringLiteral("está")));
    }
}

void comprobar(const guion::EsperaArchivo& paso, const Contexto& contexto)
{
    const QByteArray hay = contenidoDe(contexto.ruta(paso.ruta));
    const QByteArray esperado = contenidoDe(QDir(contexto.carpetaDelGuion).absoluteFilePath(paso.esperado));
    if (hay != esperado)
    {
        throw Falla(diferencia(hay, esperado));
    }
}

void comprobar(const guion::EsperaSinArchivo& paso, const Contexto& contexto)
{
    if (QFileInfo::exists(contexto.ruta(paso.ruta)))
    {
        throw Falla(QStringLiteral("existe %1").arg(paso.ruta));
    }
}

void comprobar(const guion::EsperaBase& paso, const Contexto& contexto)
{
    iguales(consultarBase(contexto.ruta(QStringLiteral("DBBrivo.mdb")), paso.sql), paso.esperado);
}
} // namespace comprobaciones
