#include "comprobaciones.h"

#include "base.h"
#include "controles.h"
#include "entrada.h"
#include "falla.h"
#include "platform/screens/grilla.h"
#include "platform/screens/navegacion.h"
#include "platform/screens/pantalla.h"

#include <QtWidgets>

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

/// What each of several controls is, told by the last word.
void cadaUno(const guion::Argumentos& a, QWidget* (*buscar)(const QString&), bool (*es)(const QWidget*))
{
    const std::size_t ultimo = a.cantidad() - 1;
    for (std::size_t i = 0; i < ultimo; ++i)
    {
        if (es(buscar(a.texto(i))) != a.siNo(ultimo))
        {
            throw Falla(QStringLiteral("«%1»: se esperaba %2").arg(a.texto(i), siNo(a.siNo(ultimo))));
        }
    }
}

bool estaMarcado(const QWidget* control)
{
    if (const auto* boton = qobject_cast<const QAbstractButton*>(control))
    {
        return boton->isChecked();
    }
    if (const auto* marco = qobject_cast<const QGroupBox*>(control))
    {
        return marco->isChecked();
    }
    throw Falla(QStringLiteral("«%1» no se marca").arg(control->objectName()));
}

/// As the screen shows it; a tick is "si" or "no".
QString celdaDe(const Grilla& grilla, int fila, int columna)
{
    if (fila == 0)
    {
        return grilla.model()->headerData(columna - 1, Qt::Horizontal).toString();
    }
    const QVariant marca = grilla.model()->index(fila - 1, columna - 1).data(Qt::CheckStateRole);
    return marca.isValid() ? siNo(marca.toInt() == Qt::Checked) : grilla.texto(columna, fila);
}

/// The cells that are not hidden, joined by "|".
QString filaDe(const Grilla& grilla, int fila)
{
    QStringList celdas;
    for (int columna = 1; columna <= grilla.columnas(); ++columna)
    {
        if (!grilla.isColumnHidden(columna - 1))
        {
            celdas += celdaDe(grilla, fila, columna);
        }
    }
    return celdas.join(u'|');
}

/// `a` after its first word is the number of things in `hay`, or each of them.
void todasIguales(const QStringList& hay, const guion::Argumentos& a)
{
    bool esNumero = !a.palabra(1).entreComillas && a.cantidad() == 2;
    const int cuantas = esNumero ? a.texto(1).toInt(&esNumero) : 0;
    if (esNumero)
    {
        iguales(QString::number(hay.size()), QString::number(cuantas));
        return;
    }
    iguales(hay.join(u'\n'), a.textos(1).join(u'\n'));
}
} // namespace

namespace comprobaciones
{
void texto(Jugada&, const Argumentos& a)
{
    const QWidget* control = controles::buscarVisible(a.texto(0));
    if (!controles::muestra(control, a.texto(1)))
    {
        iguales(controles::textoDe(control), a.texto(1));
    }
}

void activo(Jugada&, const Argumentos& a)
{
    cadaUno(a, controles::buscar, [](const QWidget* control) { return control->isEnabled(); });
}

void visible(Jugada&, const Argumentos& a)
{
    cadaUno(a, controles::buscar, [](const QWidget* control) { return control->isVisible(); });
}

void marca(Jugada&, const Argumentos& a)
{
    cadaUno(a, controles::buscarVisible, estaMarcado);
}

void exigirFoco(const QString& control)
{
    if (!entrada::tieneFoco(controles::buscar(control)))
    {
        const QWidget* foco = QApplication::focusWidget();
        throw Falla(QStringLiteral("el foco está en «%1», y se esperaba en «%2»")
                        .arg(foco == nullptr ? QStringLiteral("ninguno") : foco->objectName(), control));
    }
}

void foco(Jugada&, const Argumentos& a)
{
    exigirFoco(a.texto(0));
}

void lista(Jugada&, const Argumentos& a)
{
    const auto* lista = qobject_cast<const QComboBox*>(controles::buscarVisible(a.texto(0)));
    if (lista == nullptr)
    {
        throw Falla(QStringLiteral("«%1» no es una lista").arg(a.texto(0)));
    }
    todasIguales(controles::entradasDe(*lista), a);
}

void celda(Jugada&, const Argumentos& a)
{
    const Grilla* grilla = controles::buscarGrilla(a.texto(0), false);
    if (a.numero(1) > grilla->filas() || a.numero(2) > grilla->columnas())
    {
        throw Falla(
            QStringLiteral("la grilla tiene %1 filas y %2 columnas").arg(grilla->filas()).arg(grilla->columnas()));
    }
    iguales(celdaDe(*grilla, a.numero(1), a.numero(2)), a.texto(3));
}

void fila(Jugada&, const Argumentos& a)
{
    const Grilla* grilla = controles::buscarGrilla(a.texto(0), false);
    if (a.numero(1) > grilla->filas())
    {
        throw Falla(QStringLiteral("la grilla tiene %1 filas").arg(grilla->filas()));
    }
    iguales(filaDe(*grilla, a.numero(1)), a.textos(2).join(u'|'));
}

void filas(Jugada&, const Argumentos& a)
{
    const Grilla* grilla = controles::buscarGrilla(a.texto(0), false);
    QStringList todas;
    for (int fila = 1; fila <= grilla->filas(); ++fila)
    {
        todas += filaDe(*grilla, fila);
    }
    todasIguales(todas, a);
}

void amarillas(Jugada&, const Argumentos& a)
{
    const Grilla* grilla = controles::buscarGrilla(a.texto(0), false);
    QStringList hay;
    for (int fila = 1; fila <= grilla->filas(); ++fila)
    {
        if (grilla->colorDeFila(fila) == Grilla::amarillo)
        {
            hay += QString::number(fila);
        }
    }
    iguales(hay.join(u' '), a.textos(1).join(u' '));
}

/// The last of the boxes; those before it count as told, too.
const DatosDeCaja& ultimaCaja(Contexto& contexto)
{
    if (contexto.cajas.empty())
    {
        throw Falla(QStringLiteral("no hubo ninguna caja"));
    }
    contexto.nombradas = true;
    return contexto.cajas.back();
}

void mensaje(Jugada& jugada, const Argumentos& a)
{
    iguales(ultimaCaja(jugada.contexto()).texto, a.texto(0));
}

void caja(Jugada& jugada, const Argumentos& a)
{
    const DatosDeCaja& caja = ultimaCaja(jugada.contexto());
    iguales(guion::nombreDe(caja.clase), a.texto(0));
    iguales(caja.titulo, a.texto(1));
    iguales(caja.texto, a.texto(2));
}

void exigirCajas(const std::vector<DatosDeCaja>& cajas, const std::vector<guion::CajaEsperada>& esperadas)
{
    auto esperada = esperadas.begin();
    for (const DatosDeCaja& caja : cajas)
    {
        const bool es = esperada != esperadas.end() && esperada->texto == caja.texto &&
                        esperada->clase.value_or(caja.clase) == caja.clase;
        if (!es && caja.clase != Caja::Pregunta)
        {
            throw Falla(QStringLiteral("vino la caja %1 %2, que la línea no dice")
                            .arg(guion::nombreDe(caja.clase), guion::entreComillas(caja.texto)));
        }
        esperada += es ? 1 : 0;
    }
    if (esperada != esperadas.end())
    {
        throw Falla(QStringLiteral("no vino la caja %1").arg(guion::entreComillas(esperada->texto)));
    }
}

void titulo(Jugada&, const Argumentos& a)
{
    const QWidget* ventana = controles::ventanaActual();
    const auto* pantalla = ventana->windowTitle().isEmpty() ? ventana->findChild<const Pantalla*>() : nullptr;
    iguales(pantalla != nullptr ? pantalla->windowTitle() : ventana->windowTitle(), a.texto(0));
}

void estado(Jugada&, const Argumentos& a)
{
    const QMainWindow* principal = controles::ventanaPrincipal();
    const auto* barra = principal != nullptr ? principal->findChild<const QStatusBar*>() : nullptr;
    if (barra == nullptr)
    {
        throw Falla(QStringLiteral("no hay barra de estado"));
    }
    QStringList partes = {barra->currentMessage()};
    for (const QLabel* parte : barra->findChildren<const QLabel*>())
    {
        partes += parte->text();
    }
    if (!partes.contains(a.texto(0)))
    {
        iguales(partes.join(QStringLiteral(" / ")), a.texto(0));
    }
}

void ventana(Jugada&, const Argumentos& a)
{
    const std::size_t ultimo = a.cantidad() - 1;
    for (std::size_t i = 0; i < ultimo; ++i)
    {
        if (ventanaAbierta(a.texto(i)) != a.siNo(ultimo))
        {
            throw Falla(QStringLiteral("la ventana «%1» %2 abierta")
                            .arg(a.texto(i), a.siNo(ultimo) ? QStringLiteral("no está") : QStringLiteral("está")));
        }
    }
}

void archivo(Jugada& jugada, const Argumentos& a)
{
    const QByteArray hay = contenidoDe(jugada.contexto().ruta(a.texto(0)));
    const QByteArray esperado = contenidoDe(QDir(jugada.contexto().carpetaDelGuion).absoluteFilePath(a.texto(1)));
    if (hay != esperado)
    {
        throw Falla(diferencia(hay, esperado));
    }
}

void sinArchivo(Jugada& jugada, const Argumentos& a)
{
    if (QFileInfo::exists(jugada.contexto().ruta(a.texto(0))))
    {
        throw Falla(QStringLiteral("existe %1").arg(a.texto(0)));
    }
}

void base(Jugada& jugada, const Argumentos& a)
{
    iguales(consultarBase(jugada.contexto().base(), a.texto(0)), a.textos(1).join(u';'));
}
} // namespace comprobaciones
