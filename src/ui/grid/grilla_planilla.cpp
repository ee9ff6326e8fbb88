// What goes from a grid to a spreadsheet and comes from there, and the menu that offers it.
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
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <algorithm>
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

void Grilla::setCambiada(bool cambiada)
{
    m_cambiada = cambiada;
    if (!cambiada)
    {
        m_pegadas.clear(); // what it would bring back is no longer what is stored
    }
}

void Grilla::tipeada(int columna, int fila)
{
    m_cambiada = true;
    m_tipeadoDespues = true;
    m_pegadas.remove({columna, fila});
}

void Grilla::agregarAccion(const QString& texto, QKeySequence::StandardKey tecla, void (Grilla::*accion)())
{
    auto* entrada = new QAction(texto, this);
    entrada->setShortcuts(tecla);
    entrada->setShortcutContext(Qt::WidgetShortcut); // in an editor the keys are the editor's own
    entrada->setShortcutVisibleInContextMenu(true);
    connect(entrada, &QAction::triggered, this, [this, accion] { protegido([this, accion] { (this->*accion)(); }); });
    addAction(entrada);
}

void Grilla::setPegable(int columnaClave)
{
    m_columnaClave = columnaClave;
    agregarAccion(QStringLiteral("Pegar"), QKeySequence::Paste, &Grilla::pegar);
    agregarAccion(QStringLiteral("Deshacer pegado"), QKeySequence::Undo, &Grilla::deshacerPegado);
}

void Grilla::contextMenuEvent(QContextMenuEvent* evento)
{
    evento->accept();
    if (evento->reason() == QContextMenuEvent::Keyboard)
    {
        abrirMenuConTeclado();
        return;
    }
    if (!confirmarEdicion())
    {
        return;
    }
    const QModelIndex celda = indexAt(viewport()->mapFromGlobal(evento->globalPos()));
    if (m_columnaClave != 0 && celda.isValid()) // what is pasted goes where the menu was asked for
    {
        conSalto([this, celda] { setCurrentIndex(celda); });
    }
    abrirMenu(evento->globalPos());
}

void Grilla::abrirMenuConTeclado()
{
    const QRect celda = visualRect(currentIndex()).intersected(viewport()->rect());
    abrirMenu(viewport()->mapToGlobal(celda.isValid() ? celda.bottomLeft() : QPoint()));
}

void Grilla::abrirMenu(QPoint lugar)
{
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addActions(actions());
    menu->popup(lugar);
}

bool Grilla::hayQueLlevar() const
{
    if (filas() == 0)
    {
        anunciar(QStringLiteral("No hay filas"));
    }
    return filas() > 0;
}

QItemSelectionModel::SelectionFlags Grilla::selectionCommand(const QModelIndex& celda, const QEvent* evento) const
{
    // What the program moves to is marked alone, whatever keys are held down meanwhile.
    return evento != nullptr ? QTableView::selectionCommand(celda, evento)
                             : QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows;
}

void Grilla::selectionChanged(const QItemSelection& marcadas, const QItemSelection& anteriores)
{
    QTableView::selectionChanged(marcadas, anteriores);
    const QItemSelection todas = selectionModel()->selection();
    const bool varias = std::any_of(todas.cbegin(), todas.cend(),
                                    [&](const QItemSelectionRange& tramo)
                                    { return tramo.top() != todas.front().top() || tramo.height() > 1; });
    if (varias || m_variasMarcadas)
    {
        viewport()->update(); // the current row shows its mark only beside others
    }
    m_variasMarcadas = varias;
}

std::vector<int> Grilla::filasMarcadas() const
{
    std::vector<int> filas;
    const QItemSelection marcadas = selectionModel()->selection();
    for (const QItemSelectionRange& tramo : marcadas)
    {
        for (int fila = tramo.top(); fila <= tramo.bottom(); ++fila)
        {
            filas.push_back(fila + 1);
        }
    }
    std::sort(filas.begin(), filas.end());
    filas.erase(std::unique(filas.begin(), filas.end()), filas.end());
    return filas;
}

void Grilla::copiar()
{
    if (hayQueLlevar())
    {
        std::vector<int> cuales = filasMarcadas();
        if (cuales.size() < 2) // the current one alone
        {
            cuales = todasLasFilas(*this);
        }
        QGuiApplication::clipboard()->setText(planilla::tabulado(planilla::textos(tablaDe(*this, cuales))));
        const int copiadas = int(cuales.size());
        const QString dicho = copiadas == 1 ? QStringLiteral("Se copió %1") : QStringLiteral("Se copiaron %1");
        avisar(dicho.arg(cuantas(copiadas)));
    }
}

void Grilla::exportar()
{
    if (!hayQueLlevar())
    {
        return;
    }
    const QString nombre = m_nombreDePlanilla.isEmpty() ? finDelTitulo(this) : m_nombreDePlanilla;
    const planilla::Tabla filas = tablaDe(*this, todasLasFilas(*this));
    const auto escribir = [&](const QString& archivo)
    {
        TrabajoLargo trabajo(QStringLiteral("Exportando"), TrabajoLargo::Cancelable::Si);
        planilla::escribir(archivo, filas, trabajo.aviso());
    };
    const QString ruta = GuardarEnArchivo(pedidoDePlanilla(QStringLiteral("Exportar a planilla"), nombre), escribir);
    if (!ruta.isEmpty())
    {
        avisar(QStringLiteral("Exportación de %1 en %2").arg(cuantas(int(filas.size()) - 1), ruta));
    }
}

void Grilla::pegar()
{
    if (!m_editable || !confirmarEdicion())
    {
        return;
    }
    DestinoDePegado destino{{}, m_columnaClave, {}, columnaActual(), filaActual()};
    for (int columna = 1; columna <= columnas(); ++columna)
    {
        destino.columnas.push_back(this->columna(columna));
    }
    for (int fila = 1; fila <= filas(); ++fila)
    {
        destino.claves += texto(m_columnaClave, fila);
    }
    const Pegado pegado = prepararPegado(QGuiApplication::clipboard()->text(), destino);
    if (!pegado.celdas.empty())
    {
        m_pegadas.clear();
        m_cambiadaAntes = m_cambiada;
        m_tipeadoDespues = false;
        m_cambiada = true;
    }
    for (const CeldaAPegar& celda : pegado.celdas)
    {
        m_pegadas.insert({celda.columna, celda.fila}, valor(celda.columna, celda.fila));
        m_modelo->poner(celda.columna - 1, celda.fila - 1, celda.valor);
    }
    viewport()->update();
    const QPointer<Grilla> yo = this;
    for (std::size_t i = 0; yo && i < pegado.celdas.size(); ++i)
    {
        Q_EMIT celdaEditada(pegado.celdas[i].columna, pegado.celdas[i].fila);
    }
    const bool bien = pegado.rechazados == 0 && !pegado.celdas.empty();
    MsgBox(textoDePegado(pegado), bien ? Caja::Informacion : Caja::Exclamacion);
}

void Grilla::deshacerPegado()
{
    if (!confirmarEdicion())
    {
        return;
    }
    if (m_pegadas.isEmpty())
    {
        anunciar(QStringLiteral("No hay un pegado que deshacer"));
        return;
    }
    const auto pegadas = std::exchange(m_pegadas, {});
    for (auto celda = pegadas.cbegin(); celda != pegadas.cend(); ++celda)
    {
        m_modelo->poner(celda.key().first - 1, celda.key().second - 1, celda.value());
    }
    m_cambiada = m_cambiadaAntes || m_tipeadoDespues;
    viewport()->update();
    const QPointer<Grilla> yo = this;
    for (auto celda = pegadas.cbegin(); yo && celda != pegadas.cend(); ++celda)
    {
        Q_EMIT celdaEditada(celda.key().first, celda.key().second);
    }
    avisar(QStringLiteral("Se deshizo el pegado de %1")
               .arg(pegadas.size() == 1 ? QStringLiteral("1 importe")
                                        : QStringLiteral("%1 importes").arg(pegadas.size())));
}
