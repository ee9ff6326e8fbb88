#include "ui/grid/grilla_planilla.h"

#include "base/files/planilla_xlsx.h"
#include "base/numbers/formato.h"
#include "ui/doors/anuncio.h"
#include "ui/doors/guardado.h"
#include "ui/doors/mensajes.h"
#include "ui/grid/grilla_modelo.h"
#include "ui/grid/pegado.h"
#include "ui/shell/campos.h"
#include "ui/shell/error_fatal.h"
#include "ui/shell/trabajo_largo.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <numeric>

namespace
{
planilla::Celda celdaDe(const ColumnaDeGrilla& columna, const QVariant& valor)
{
    planilla::Celda celda{textoParaPlanilla(columna, valor)};
    if (valor.metaType() == QMetaType::fromType<Moneda>())
    {
        celda.valor = valor.value<Moneda>();
    }
    else if (valor.typeId() == QMetaType::QDate)
    {
        celda.valor = valor.toDate();
    }
    else if (valor.typeId() == QMetaType::LongLong)
    {
        celda.valor = valor.toLongLong();
    }
    return celda;
}

planilla::Tabla tablaDe(const Grilla& grilla, const std::vector<int>& cuales)
{
    planilla::Tabla filas(cuales.size() + 1);
    for (int columna = 1; columna <= grilla.columnas(); ++columna)
    {
        if (!grilla.seVe(columna))
        {
            continue;
        }
        filas[0].push_back({grilla.texto(columna, 0), {}, true});
        for (std::size_t i = 0; i < cuales.size(); ++i)
        {
            filas[i + 1].push_back(celdaDe(grilla.columna(columna), grilla.valor(columna, cuales[i])));
        }
    }
    return filas;
}

std::vector<int> todasLasFilas(const Grilla& grilla)
{
    std::vector<int> todas(std::size_t(grilla.filas()));
    std::iota(todas.begin(), todas.end(), 1);
    return todas;
}

QString cuantas(int filas)
{
    return filas == 1 ? QStringLiteral("1 fila") : QStringLiteral("%1 filas").arg(conMiles(qint64{filas}));
}

/// Of "Programa - Pantalla - Modo", "Pantalla - Modo".
QString finDelTitulo(const QWidget* control)
{
    const QString titulo = campos::ventanaDe(control)->windowTitle();
    const QString guion = QStringLiteral(" - ");
    return titulo.contains(guion) ? titulo.section(guion, 1) : titulo;
}
} // namespace

Grilla::Planilla::Planilla(Grilla* grilla)
    : m_grilla(grilla)
{
    agregarAccion(QStringLiteral("Copiar"), QKeySequence::Copy, &Planilla::copiar);
    agregarAccion(QStringLiteral("Exportar a planilla..."), QKeySequence::UnknownKey, &Planilla::exportar);
}

void Grilla::Planilla::agregarAccion(const QString& texto, QKeySequence::StandardKey tecla, void (Planilla::*accion)())
{
    auto* entrada = new QAction(texto, m_grilla);
    entrada->setShortcuts(tecla);
    entrada->setShortcutContext(Qt::WidgetShortcut); // in an editor the keys are the editor's own
    entrada->setShortcutVisibleInContextMenu(true);
    connect(entrada, &QAction::triggered, m_grilla,
            [this, accion] { protegido([this, accion] { (this->*accion)(); }); });
    m_grilla->addAction(entrada);
}

void Grilla::Planilla::setPegable(int columnaClave)
{
    m_columnaClave = columnaClave;
    agregarAccion(QStringLiteral("Pegar"), QKeySequence::Paste, &Planilla::pegar);
    agregarAccion(QStringLiteral("Deshacer pegado"), QKeySequence::Undo, &Planilla::deshacerPegado);
}

void Grilla::Planilla::tipeada(int columna, int fila)
{
    m_tipeadoDespues = true;
    soltar(columna, fila);
}

bool Grilla::Planilla::hayFilas() const
{
    if (m_grilla->filas() == 0)
    {
        anunciar(QStringLiteral("No hay filas"));
    }
    return m_grilla->filas() > 0;
}

void Grilla::Planilla::copiar()
{
    if (hayFilas())
    {
        std::vector<int> cuales = m_grilla->filasMarcadas();
        if (cuales.size() < 2) // the current one alone
        {
            cuales = todasLasFilas(*m_grilla);
        }
        QGuiApplication::clipboard()->setText(planilla::tabulado(planilla::textos(tablaDe(*m_grilla, cuales))));
        const int copiadas = int(cuales.size());
        const QString dicho = copiadas == 1 ? QStringLiteral("Se copió %1") : QStringLiteral("Se copiaron %1");
        avisar(dicho.arg(cuantas(copiadas)));
    }
}

void Grilla::Planilla::exportar()
{
    if (!hayFilas())
    {
        return;
    }
    const planilla::Tabla filas = tablaDe(*m_grilla, todasLasFilas(*m_grilla));
    const auto escribir = [&](const QString& archivo)
    {
        TrabajoLargo trabajo(QStringLiteral("Exportando"), TrabajoLargo::Cancelable::Si);
        planilla::escribir(archivo, filas, trabajo.aviso());
    };
    const QString ruta = GuardarEnArchivo(
        pedidoDePlanilla(QStringLiteral("Exportar a planilla"), nombre.isEmpty() ? finDelTitulo(m_grilla) : nombre),
        escribir);
    if (!ruta.isEmpty())
    {
        avisar(QStringLiteral("Exportación de %1 en %2").arg(cuantas(int(filas.size()) - 1), ruta));
    }
}

void Grilla::Planilla::poner(const std::vector<CeldaAPegar>& celdas)
{
    for (const CeldaAPegar& celda : celdas)
    {
        m_grilla->m_modelo->poner(celda.columna - 1, celda.fila - 1, celda.valor);
    }
    m_grilla->viewport()->update();
    const QPointer<Grilla> sigue = m_grilla;
    for (std::size_t i = 0; sigue && i < celdas.size(); ++i)
    {
        Q_EMIT sigue->celdaEditada(celdas[i].columna, celdas[i].fila);
    }
}

void Grilla::Planilla::pegar()
{
    if (!m_grilla->m_editable || !m_grilla->confirmarEdicion())
    {
        return;
    }
    DestinoDePegado destino{{}, m_columnaClave, {}, m_grilla->columnaActual(), m_grilla->filaActual()};
    for (int columna = 1; columna <= m_grilla->columnas(); ++columna)
    {
        destino.columnas.push_back(m_grilla->columna(columna));
    }
    for (int fila = 1; fila <= m_grilla->filas(); ++fila)
    {
        destino.claves += m_grilla->texto(m_columnaClave, fila);
    }
    const Pegado pegado = prepararPegado(QGuiApplication::clipboard()->text(), destino);
    if (!pegado.celdas.empty())
    {
        olvidarPegado();
        m_cambiadaAntes = std::exchange(m_grilla->m_cambiada, true);
        m_tipeadoDespues = false;
    }
    for (const CeldaAPegar& celda : pegado.celdas)
    {
        m_pegadas.insert({celda.columna, celda.fila}, m_grilla->valor(celda.columna, celda.fila));
    }
    poner(pegado.celdas);
    const bool bien = pegado.rechazados == 0 && !pegado.celdas.empty();
    MsgBox(textoDePegado(pegado), bien ? Caja::Informacion : Caja::Exclamacion);
}

void Grilla::Planilla::deshacerPegado()
{
    if (!m_grilla->confirmarEdicion())
    {
        return;
    }
    if (m_pegadas.isEmpty())
    {
        anunciar(QStringLiteral("No hay un pegado que deshacer"));
        return;
    }
    std::vector<CeldaAPegar> antes;
    const auto pegadas = std::exchange(m_pegadas, {});
    for (auto celda = pegadas.cbegin(); celda != pegadas.cend(); ++celda)
    {
        antes.push_back({celda.key().first, celda.key().second, celda.value()});
    }
    m_grilla->m_cambiada = m_cambiadaAntes || m_tipeadoDespues;
    poner(antes);
    avisar(QStringLiteral("Se deshizo el pegado de %1")
               .arg(antes.size() == 1 ? QStringLiteral("1 importe") : QStringLiteral("%1 importes").arg(antes.size())));
}
