#include "apoyo/cajas_de_prueba.h"

#include <gtest/gtest.h>

const char* nombreDe(Caja clase)
{
    switch (clase)
    {
    case Caja::Informacion:
        return "informacion";
    case Caja::Exclamacion:
        return "exclamacion";
    case Caja::Critico:
        return "critico";
    case Caja::Pregunta:
        return "pregunta";
    case Caja::Simple:
        break;
    }
    return "simple";
}

CajasDePrueba::CajasDePrueba()
{
    reemplazarCajas([this](const DatosDeCaja& datos) { return atender(datos); });
    reemplazarDialogoArchivo(
        [this](const PedidoDeArchivo& pedido)
        {
            m_archivosPedidos.push_back(pedido);
            return sacar(m_archivos, "file", pedido.titulo);
        });
}

CajasDePrueba::~CajasDePrueba()
{
    reemplazarCajas({});
    reemplazarDialogoArchivo({});
    for (const Esperada& esperada : m_esperadas)
    {
        ADD_FAILURE() << "box that never came: " << nombreDe(esperada.datos.clase) << " \""
                      << esperada.datos.texto.toStdString() << '"';
    }
    EXPECT_EQ(0U, m_archivos.size()) << "answers of file dialogs left over";
}

CajasDePrueba& CajasDePrueba::espera(Caja clase, const QString& texto, bool respuesta)
{
    m_esperadas.push_back({{clase, texto, {}}, true, respuesta});
    return *this;
}

CajasDePrueba& CajasDePrueba::esperaQueDiga(Caja clase, const QString& parte, bool respuesta)
{
    m_esperadas.push_back({{clase, parte, {}}, false, respuesta});
    return *this;
}

CajasDePrueba& CajasDePrueba::esperaPregunta(const QString& texto, bool respuesta)
{
    return espera(Caja::Pregunta, texto, respuesta);
}

CajasDePrueba& CajasDePrueba::archivo(const QString& ruta)
{
    m_archivos.push_back(ruta);
    return *this;
}

QStringList CajasDePrueba::textos() const
{
    QStringList lista;
    for (const DatosDeCaja& datos : m_vistas)
    {
        lista.append(datos.texto);
    }
    return lista;
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
        ADD_FAILURE() << "box that nobody expected: " << nombreDe(datos.clase) << " \"" << datos.texto.toStdString()
                      << '"';
        return false;
    }
    const Esperada esperada = m_esperadas.front();
    m_esperadas.pop_front();
    const bool mismoTexto =
        esperada.entera ? datos.texto == esperada.datos.texto : datos.texto.contains(esperada.datos.texto);
    if (datos.clase != esperada.datos.clase || !mismoTexto)
    {
        ADD_FAILURE() << "another box than expected: " << nombreDe(datos.clase) << " \"" << datos.texto.toStdString()
                      << "\" instead of " << nombreDe(esperada.datos.clase) << " \""
                      << esperada.datos.texto.toStdString() << '"';
    }
    if (m_alVer)
    {
        m_alVer(datos);
    }
    return datos.clase != Caja::Pregunta || esperada.respuesta;
}

QString CajasDePrueba::sacar(std::deque<QString>& cola, const char* que, const QString& titulo)
{
    if (cola.empty())
    {
        ADD_FAILURE() << que << " dialog that nobody expected: \"" << titulo.toStdString() << '"';
        return {};
    }
    QString respuesta = cola.front();
    cola.pop_front();
    return respuesta;
}
