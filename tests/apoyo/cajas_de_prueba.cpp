#include "apoyo/cajas_de_prueba.h"

#include <gtest/gtest.h>

namespace
{
std::string nombrada(Caja clase, const QString& texto)
{
    static const char* const nombres[] = {"informacion", "exclamacion", "critico", "pregunta", "simple"};
    return std::string(nombres[static_cast<std::size_t>(clase)]) + " \"" + texto.toStdString() + '"';
}

} // namespace

CajasDePrueba::CajasDePrueba()
{
    reemplazarCajas([this](const DatosDeCaja& datos) { return atender(datos); });
    reemplazarDialogoArchivo([this](const PedidoDeArchivo& pedido) { return atenderDialogo(pedido); });
}

CajasDePrueba::~CajasDePrueba()
{
    reemplazarCajas({});
    reemplazarDialogoArchivo({});
    for (const Esperada& esperada : m_esperadas)
    {
        ADD_FAILURE() << "box that never came: " << nombrada(esperada.clase, esperada.texto);
    }
    EXPECT_EQ(m_archivos.size(), 0U) << "answers to dialogs are left over";
}

bool CajasDePrueba::atender(const DatosDeCaja& datos)
{
    if (m_esperadas.empty())
    {
        ADD_FAILURE() << "box that nobody expected: " << nombrada(datos.clase, datos.texto);
        return false;
    }
    const Esperada esperada = m_esperadas.front();
    m_esperadas.pop_front();
    const bool mismoTexto = esperada.entera ? datos.texto == esperada.texto : datos.texto.contains(esperada.texto);
    EXPECT_TRUE(datos.clase == esperada.clase && mismoTexto)
        << "another box than expected: " << nombrada(datos.clase, datos.texto) << " instead of "
        << nombrada(esperada.clase, esperada.texto);
    m_alVer(datos);
    return datos.clase != Caja::Pregunta || esperada.respuesta;
}

QString CajasDePrueba::atenderDialogo(const PedidoDeArchivo& pedido)
{
    if (m_archivos.empty())
    {
        ADD_FAILURE() << "dialog that nobody expected: " << qPrintable(pedido.titulo);
        return {};
    }
    QString respuesta = m_archivos.front();
    m_archivos.pop_front();
    return respuesta;
}
