#include "apoyo/cajas_de_prueba.h"

#include <gtest/gtest.h>

namespace
{
std::string nombrada(Caja clase, const QString& texto)
{
    static const char* const nombres[] = {"informacion", "exclamacion", "critico", "pregunta", "simple"};
    return std::string(nombres[static_cast<std::size_t>(clase)]) + " \"" + texto.toStdString() + '"';
}

QString sacar(std::deque<QString>& cola, const QString& titulo)
{
    if (cola.empty())
    {
        ADD_FAILURE() << "dialog that nobody expected: \"" << titulo.toStdString() << '"';
        return {};
    }
    const QString respuesta = cola.front();
    cola.pop_front();
    return respuesta;
}
} // namespace

CajasDePrueba::CajasDePrueba()
{
    reemplazarCajas([this](const DatosDeCaja& datos) { return atender(datos); });
    reemplazarDialogoArchivo([this](const PedidoDeArchivo& pedido) { return sacar(m_archivos, pedido.titulo); });
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

CajasDePrueba& CajasDePrueba::espera(Caja clase, const QString& texto, bool respuesta)
{
    m_esperadas.push_back({clase, texto, true, respuesta});
    return *this;
}

CajasDePrueba& CajasDePrueba::esperaQueDiga(Caja clase, const QString& parte, bool respuesta)
{
    m_esperadas.push_back({clase, parte, false, respuesta});
    return *this;
}

CajasDePrueba& CajasDePrueba::archivo(const QString& ruta)
{
    m_archivos.push_back(ruta);
    return *this;
}

std::size_t CajasDePrueba::pendientes() const
{
    return m_esperadas.size() + m_archivos.size();
}

bool CajasDePrueba::atender(const DatosDeCaja& datos)
{
    m_vistas.push_back(datos);
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
    if (m_alVer)
    {
        m_alVer(datos);
    }
    return datos.clase != Caja::Pregunta || esperada.respuesta;
}
