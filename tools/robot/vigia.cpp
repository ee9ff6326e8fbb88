#include "vigia.h"

#include <utility>

Vigia::Vigia(std::chrono::milliseconds limite, AlColgarse alColgarse)
    : m_limite(limite)
    , m_alColgarse(std::move(alColgarse))
    , m_hilo([this] { mirar(); })
{
}

Vigia::~Vigia()
{
    {
        const std::scoped_lock cerrado(m_cerrojo);
        m_fin = true;
    }
    m_aviso.notify_all();
    m_hilo.join();
}

void Vigia::vive()
{
    const std::scoped_lock cerrado(m_cerrojo);
    m_ultima = std::chrono::steady_clock::now();
}

void Vigia::empieza(std::string enQue)
{
    const std::scoped_lock cerrado(m_cerrojo);
    m_ultima = std::chrono::steady_clock::now();
    m_enQue = std::move(enQue);
}

void Vigia::mirar()
{
    std::unique_lock cerrado(m_cerrojo);
    while (!m_fin)
    {
        const auto vence = m_ultima + m_limite;
        if (std::chrono::steady_clock::now() >= vence)
        {
            const std::string enQue = m_enQue;
            cerrado.unlock();
            m_alColgarse(enQue);
            return;
        }
        m_aviso.wait_until(cerrado, vence);
    }
}
