#include "comprobaciones.h"

#include "alcance.h"
#include "base.h"
#include "controles.h"
#include "entrada.h"
#include "jugada.h"
#include "ui/grid/grilla.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/pantalla.h"

#include <QtWidgets>

namespace guion
{
namespace
{
void iguales(const QString& hay, const QString& esperado)
{
    if (hay != esperado)
    {
        throw Falla("se esperaba %1, y dice %2", entreComillas(esperado), entreComillas(hay));
    }
}

QString siNo(bool si)
{
    return si ? "si" : "no";
}

void texto(const Jugada&, const Argumentos& a)
{
    const QWidget* control = controles::buscarVisible(a[0].texto);
    if (!controles::muestra(control, a[1].texto))
    {
        iguales(controles::textoDe(control), a[1].texto);
    }
}

/// What each of several names is, told by the last word.
void cadaUno(const Argumentos& a, const char* motivo, const std::function<bool(const QString&)>& es)
{
    const QString esperado = siNo(*leerSiNo(a.back().texto));
    for (std::size_t i = 0; i + 1 < a.size(); ++i)
    {
        const QString hay = siNo(es(a[i].texto));
        if (hay != esperado)
        {
            throw Falla(motivo, a[i].texto, hay);
        }
    }
}

void activo(const Jugada&, const Argumentos& a)
{
    cadaUno(a, "«%1» activo: %2", [](const QString& nombre) { return controles::buscar(nombre)->isEnabled(); });
}

void visible(const Jugada&, const Argumentos& a)
{
    cadaUno(a, "«%1» visible: %2", [](const QString& nombre) { return controles::buscar(nombre)->isVisible(); });
}

void marca(const Jugada&, const Argumentos& a)
{
    cadaUno(a, "«%1» marcado: %2",
            [](const QString& nombre)
            {
                const QVariant marcado = controles::buscarVisible(nombre)->property("checked");
                return marcado.isValid() ? marcado.toBool() : throw Falla("«%1» no se marca", nombre);
            });
}

void esperaVentana(const Jugada&, const Argumentos& a)
{
    cadaUno(a, "la ventana «%1» abierta: %2",
            [](const QString& nombre)
            { return Navegacion::instancia().abierta(nombre) != nullptr || controles::suelta(nombre) != nullptr; });
}

/// As the screen shows it; a tick is "si" or "no".
QString celdaDe(const Grilla& grilla, int fila, int columna)
{
    const QVariant marca = fila > 0 ? grilla.indice(columna, fila).data(Qt::CheckStateRole) : QVariant();
    return marca.isValid() ? siNo(marca.toInt() == Qt::Checked) : grilla.texto(columna, fila);
}

/// The cells that are not hidden, joined by "|".
QString filaDe(const Grilla& grilla, int fila)
{
    QStringList celdas;
    for (int columna = 1; columna <= grilla.columnas(); ++columna)
    {
        celdas += grilla.seVe(columna) ? QStringList{celdaDe(grilla, fila, columna)} : QStringList();
    }
    return celdas.join(u'|');
}

const Grilla* grillaCon(const Argumentos& a, int fila, int columna = 1)
{
    const Grilla* grilla = controles::buscarGrilla(a[0].texto);
    return fila <= grilla->filas() && columna <= grilla->columnas()
               ? grilla
               : throw Falla("la grilla tiene %1 filas y %2 columnas", grilla->filas(), grilla->columnas());
}

void esperaCelda(const Jugada&, const Argumentos& a)
{
    const Grilla* grilla = grillaCon(a, a[1].numero(), a[2].numero());
    iguales(celdaDe(*grilla, a[1].numero(), a[2].numero()), a[3].texto);
}

void esperaFila(const Jugada&, const Argumentos& a)
{
    iguales(filaDe(*grillaCon(a, a[1].numero()), a[1].numero()), textos(a, 2).join(u'|'));
}

/// The words after the first one are these texts, or their number.
void todasIguales(const QStringList& hay, const Argumentos& a)
{
    bool esNumero = a.size() == 2 && !a[1].citada;
    const int cuantas = esNumero ? a[1].texto.toInt(&esNumero) : 0;
    esNumero ? iguales(QString::number(hay.size()), QString::number(cuantas))
             : iguales(hay.join(u'\n'), textos(a, 1).join(u'\n'));
}

void lista(const Jugada&, const Argumentos& a)
{
    const auto* lista = qobject_cast<const QComboBox*>(controles::buscarVisible(a[0].texto));
    todasIguales(lista != nullptr ? controles::entradasDe(*lista) : throw Falla("«%1» no es una lista", a[0].texto), a);
}

void filas(const Jugada&, const Argumentos& a)
{
    const Grilla* grilla = grillaCon(a, 0);
    QStringList todas;
    for (int fila = 1; fila <= grilla->filas(); ++fila)
    {
        todas += filaDe(*grilla, fila);
    }
    todasIguales(todas, a);
}

void amarillas(const Jugada&, const Argumentos& a)
{
    const Grilla* grilla = grillaCon(a, 0);
    QStringList hay;
    for (int fila = 1; fila <= grilla->filas(); ++fila)
    {
        hay += grilla->colorDeFila(fila) == Grilla::amarillo ? QStringList{QString::number(fila)} : QStringList();
    }
    iguales(hay.join(u' '), textos(a, 1).join(u' '));
}

void titulo(const Jugada&, const Argumentos& a)
{
    const QWidget* ventana = controles::ventanaActual();
    const auto* pantalla = ventana->windowTitle().isEmpty() ? ventana->findChild<const Pantalla*>() : nullptr;
    iguales(pantalla != nullptr ? pantalla->windowTitle() : ventana->windowTitle(), a[0].texto);
}

void estado(const Jugada&, const Argumentos& a)
{
    const auto* barra = controles::ventanaPrincipal()->findChild<const QStatusBar*>();
    QStringList partes = {barra->currentMessage()};
    for (const QLabel* parte : barra->findChildren<const QLabel*>())
    {
        partes += parte->text();
    }
    if (!partes.contains(a[0].texto))
    {
        iguales(partes.join(" / "), a[0].texto);
    }
}

void sinArchivo(const Jugada& jugada, const Argumentos& a)
{
    if (QFileInfo::exists(jugada.contexto->ruta(a[0].texto)))
    {
        throw Falla("existe %1", a[0].texto);
    }
}

void base(const Jugada& jugada, const Argumentos& a)
{
    iguales(consultarBase(jugada.contexto->ruta("DBBrivo.mdb"), a[0].texto), textos(a, 1).join(u';'));
}

void alcance(const Jugada&, const Argumentos&)
{
    exigirAlcance();
}
} // namespace

std::span<const Verbo> verbosQueMiran()
{
    static constexpr Verbo todos[] = {
        {"espera", "(ct)", texto},
        {"espera_activo", "(c+s)", activo},
        {"espera_visible", "(c+s)", visible},
        {"espera_marca", "(c+s)", marca},
        {"espera_lista", "ct+", lista},
        {"espera_celda", "cf(nt)", esperaCelda},
        {"espera_fila", "cnt+", esperaFila},
        {"espera_filas", "ct+", filas},
        {"espera_amarillas", "cn*", amarillas},
        {"espera_titulo", "t", titulo},
        {"espera_estado", "t", estado},
        {"espera_ventana", "(c+s)", esperaVentana},
        {"espera_sin_archivo", "t", sinArchivo},
        {"espera_base", "tt+", base},
        {"espera_alcance", "", alcance},
    };
    return todos;
}
} // namespace guion

void exigirFoco(const QString& control)
{
    if (!entrada::tieneFoco(controles::buscar(control)))
    {
        const QWidget* foco = QApplication::focusWidget();
        throw Falla("el foco está en «%1», y se esperaba en «%2»", foco == nullptr ? "ninguno" : foco->objectName(),
                    control);
    }
}

/// A text that ends in "..." tells how the other one begins.
static bool coincide(const QString& texto, const QString& esperado)
{
    return esperado.endsWith("...") ? texto.startsWith(esperado.chopped(3)) : texto == esperado;
}

void exigirCajas(const std::vector<DatosDeCaja>& cajas, const std::vector<guion::CajaEsperada>& esperadas)
{
    auto esperada = esperadas.begin();
    for (const DatosDeCaja& caja : cajas)
    {
        const bool es = esperada != esperadas.end() && coincide(caja.texto, esperada->texto) &&
                        esperada->clase.value_or(caja.clase) == caja.clase;
        if (!es && caja.clase != Caja::Pregunta)
        {
            throw Falla("vino la caja %1 %2, que la línea no dice", guion::nombreDe(caja.clase),
                        guion::entreComillas(caja.texto));
        }
        esperada += es ? 1 : 0;
    }
    if (esperada != esperadas.end())
    {
        throw Falla("no vino la caja %1", guion::entreComillas(esperada->texto));
    }
}
