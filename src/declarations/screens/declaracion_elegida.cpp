#include "declarations/screens/declaracion_elegida.h"

#include "base/reloj.h"
#include "core/rutinas.h"
#include "declarations/ciclo_ddjj.h"
#include "declarations/copia_ddjj.h"
#include "declarations/lista_ddjj.h"
#include "ui/doors/anuncio.h"
#include "ui/doors/mensajes.h"
#include "ui/fields/campo_mascara.h"
#include "ui/grid/grilla.h"
#include "ui/look/estilo.h"
#include "ui/shell/campos.h"
#include "ui/shell/trabajo_largo.h"
#include "ui_ddjj.h"

DeclaracionElegida::DeclaracionElegida(const Ui::DDJJ& pantalla)
    : ui(pantalla)
{
    ui.vsDDJJ->setColumnas({{ColumnaDeGrilla::Fija, QStringLiteral("Periodo"), -1, 0, {}, false},
                            {ColumnaDeGrilla::Fija, QStringLiteral("Sec"), 48, 0, {}, true}});
    soloDigitos(ui.txtAnio);
    soloDigitos(ui.txtMes);
    Estilo::soloMuestra({ui.txtSecuencia});
}

void DeclaracionElegida::listar(const QString& cuit)
{
    m_lista.clear();
    ui.vsDDJJ->setFilas(0); // also when what comes cannot be read
    if (!cuit.isEmpty())
    {
        m_lista = listarDeclaraciones(Rutinas::Conexion, cuit);
    }
    ui.vsDDJJ->cargar(m_lista,
                      [](const ClaveDDJJ& una) {
                          return FilaDeGrilla{una.periodo.toString(u"yyyy/MM"), QString::number(una.secuencia)};
                      });
}

void DeclaracionElegida::elegir(int fila)
{
    ui.vsDDJJ->pintarTodo(Grilla::blanco);
    ui.vsDDJJ->pintarFila(fila, Grilla::amarillo);
    m_elegida = m_lista.at(static_cast<std::size_t>(fila) - 1);
    mostrarMes(m_elegida->periodo);
    mostrarSecuencia();
}

void DeclaracionElegida::soltar()
{
    m_elegida.reset();
    ui.txtAnio->clear();
    ui.txtMes->clear();
    ui.txtSecuencia->clear();
    ui.vsDDJJ->pintarTodo(Grilla::blanco); // nothing is selected, so nothing is yellow
}

void DeclaracionElegida::mostrarMes(QDate periodo)
{
    ui.txtAnio->setText(QString::number(periodo.year()));
    ui.txtMes->setText(QString::number(periodo.month()));
}

void DeclaracionElegida::mostrarSecuencia()
{
    // Two characters do for 0 to 99. Past them the number is shown whole: cut, it would name another declaration.
    campos::ponerEntero(ui.txtSecuencia, QString::number(clave().secuencia));
}

bool DeclaracionElegida::exigirAlta() const
{
    if (!hay())
    {
        MsgBox(QStringLiteral("Debe dar de Alta primero el Periodo Correspondiente."), Caja::Exclamacion);
    }
    return hay();
}

bool DeclaracionElegida::exigirEleccion() const
{
    if (!hay())
    {
        anunciar(QStringLiteral("Elija una declaración de la lista"));
    }
    return hay();
}

void DeclaracionElegida::proponer()
{
    const std::optional<QDate> ultimo = m_lista.empty() ? std::nullopt : std::optional(m_lista.front().periodo);
    if (const auto propuesto = proponerPeriodo(ultimo))
    {
        mostrarMes(*propuesto);
    }
}

void DeclaracionElegida::completarAnio()
{
    if (const QString anio = ui.txtAnio->text(); anio.size() == 2)
    {
        ui.txtAnio->setText(QStringLiteral("20") + anio);
    }
}

bool DeclaracionElegida::crear(const QString& cuit)
{
    const QString anio = ui.txtAnio->text();
    const QString mes = ui.txtMes->text();
    if (const auto rechazo = comprobarPeriodo(anio, mes))
    {
        MsgBox(rechazo->texto, rechazo->grave ? Caja::Exclamacion : Caja::Informacion);
        auto* const campo = rechazo->campo == CampoDePeriodo::Anio ? ui.txtAnio : ui.txtMes;
        campo->setFocus();
        campo->selectAll();
        return false;
    }
    const QDate periodo(anio.toInt(), mes.toInt(), 1);
    m_elegida = {cuit, periodo, crearDeclaracion(Rutinas::Conexion, cuit, periodo, Reloj::Hoy())};
    mostrarSecuencia();
    return true;
}

bool DeclaracionElegida::copiarNominaDe(QDate periodo, int secuencia) const
{
    const ClaveDDJJ fuente{clave().cuit, periodo, secuencia};
    if (fuente == clave() || !Preguntar(QStringLiteral("Esta seguro que desea copiar desde la DDJJ seleccionada?")))
    {
        return false;
    }
    {
        TrabajoLargo trabajo(QStringLiteral("Copiando la Nómina de Personal"), TrabajoLargo::Cancelable::Si);
        copiarNomina(Rutinas::Conexion, clave(), fuente, trabajo.aviso());
    }
    MsgBox(QStringLiteral("La Declaración Jurada se ha copiada con éxito."), Caja::Informacion);
    return true;
}

bool DeclaracionElegida::eliminar() const
{
    if (!hay())
    {
        MsgBox(
            QStringLiteral("Debe seleccionar primero la Declaración Jurada a Eliminar, haciendo un click en la misma."),
            Caja::Informacion);
        return false;
    }
    if (!Preguntar(QStringLiteral("Esta seguro de desea ELIMINAR la Declaración Jurada Seleccionada?")) ||
        !Preguntar(QStringLiteral(
            "Se Eliminaran todos los datos relacionados con la Declaración Jurada Actual.  Es Correcto?")))
    {
        return false;
    }
    {
        TrabajoLargo trabajo(QStringLiteral("Eliminando la Declaración Jurada"), TrabajoLargo::Cancelable::Si);
        eliminarDeclaracion(Rutinas::Conexion, clave(), trabajo.aviso());
    }
    MsgBox(QStringLiteral("La Declaración Jurada ha sido Eliminada."), Caja::Exclamacion);
    return true;
}
