// The search of people in the wage grid, by their CUIL or name.
#include "roster/screens/ddjj_sueldos.h"
#include "ui/doors/anuncio.h"
#include "ui/fields/busqueda_por_letras.h"
#include "ui/grid/grilla.h"
#include "ui_ddjj_sueldos.h"

#include <QShortcut>

void DDJJ_Sueldos::armarBusqueda()
{
    ui->lblBuscar->hide();
    ui->txtBuscar->hide();
    conectar(ui->txtBuscar, &QLineEdit::textEdited, [this] { buscarDesde(1); });
    conectar(ui->vsSueldos, &Grilla::teclaEnFija,
             [this](const QString& signo)
             {
                 irABuscar(false);
                 ui->txtBuscar->setText(signo);
                 buscarDesde(1);
             });
    // As shortcuts they come before what Enter and Escape are everywhere else.
    const auto alPulsar = [this](Qt::Key tecla, auto haz)
    {
        auto* atajo = new QShortcut(QKeySequence(tecla), ui->txtBuscar);
        atajo->setContext(Qt::WidgetShortcut);
        conectar(atajo, &QShortcut::activated, haz);
    };
    for (const Qt::Key tecla : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_F3})
    {
        alPulsar(tecla, [this] { buscarDesde(ui->vsSueldos->filaActual() + 1); });
    }
    alPulsar(Qt::Key_Escape, [this] { cerrarBusqueda(); });
}

void DDJJ_Sueldos::irABuscar(bool sigue)
{
    if (!ui->vsSueldos->confirmarEdicion())
    {
        return;
    }
    if (sigue && ui->txtBuscar->isVisible())
    {
        buscarDesde(ui->vsSueldos->filaActual() + 1);
        return;
    }
    m_filaAntes = ui->vsSueldos->filaActual();
    ui->lblBuscar->show();
    ui->txtBuscar->show();
    ui->txtBuscar->setFocus(Qt::OtherFocusReason);
    ui->txtBuscar->selectAll();
}

void DDJJ_Sueldos::cerrarBusqueda()
{
    ui->vsSueldos->setFocus(Qt::OtherFocusReason);
    ui->lblBuscar->hide();
    ui->txtBuscar->hide();
    ui->txtBuscar->clear();
}

void DDJJ_Sueldos::buscarDesde(int fila)
{
    const QString buscado = BusquedaPorLetras::llana(ui->txtBuscar->text().trimmed());
    const int filas = buscado.isEmpty() ? 0 : static_cast<int>(m_buscables.size());
    for (int i = 0; i < filas; ++i)
    {
        const int hallada = (fila - 1 + i) % filas;
        if (m_buscables[static_cast<std::size_t>(hallada)].contains(buscado))
        {
            ui->vsSueldos->setFilaActual(hallada + 1, columnaSueldo); // where its amount is typed
            return;
        }
    }
    if (!buscado.isEmpty())
    {
        ui->vsSueldos->setFilaActual(m_filaAntes, columnaSueldo); // not at whom its first letters found
        anunciar(QStringLiteral("Nadie tiene «%1» en su C.U.I.L. o en su nombre").arg(ui->txtBuscar->text()));
    }
}
