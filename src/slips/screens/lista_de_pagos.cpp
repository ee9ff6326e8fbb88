#include "slips/screens/lista_de_pagos.h"

#include "core/rutinas.h"
#include "core/vigencia.h"
#include "ui/grid/grilla.h"

ListaDePagos::ListaDePagos(Grilla* grilla, std::function<std::vector<PagoDeActa>()> leer)
    : m_grilla(grilla)
    , m_leer(std::move(leer))
{
    m_grilla->setColumnas({{ColumnaDeGrilla::Fija, QStringLiteral("Fecha"), 90, 0, {}, false, true},
                           {ColumnaDeGrilla::Fija, QStringLiteral("Nº Acta"), 90, 0, {}, true},
                           {ColumnaDeGrilla::Fija, QStringLiteral("Cuota"), 70, 0, {}, true},
                           {ColumnaDeGrilla::Decimal, QStringLiteral("Importe"), -1},
                           {ColumnaDeGrilla::Fija, QString(), 0}}); // the payment's own number
}

void ListaDePagos::cargar()
{
    m_elegido = 0;
    m_grilla->setFilas(0); // also when what comes cannot be read
    m_grilla->cargar(
        m_leer(),
        [](const PagoDeActa& pago) {
            return FilaDeGrilla{pago.fecha, pago.nroActa, pago.cuota, QVariant::fromValue(pago.importe), pago.pago};
        });
}

PagoGuardado ListaDePagos::elegir(int fila)
{
    const qint64 numero = m_grilla->entero(m_grilla->columnas(), fila);
    const PagoGuardado pago =
        remediando([numero] { return cargarPago(Rutinas::Conexion, numero); }, [this] { cargar(); });
    m_grilla->pintarTodo(Grilla::blanco);
    m_grilla->pintarFila(fila, Grilla::amarillo);
    m_elegido = numero;
    return pago;
}

void ListaDePagos::eliminarElegido()
{
    remediando([this] { eliminarPago(Rutinas::Conexion, m_elegido); }, [this] { cargar(); });
}
