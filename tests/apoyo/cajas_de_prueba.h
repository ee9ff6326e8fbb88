#pragma once

#include "ui/doors/dialogos.h"
#include "ui/doors/mensajes.h"

#include <QString>
#include <deque>
#include <functional>

/// Answers the program's boxes and dialogs while it lives. Boxes are expected in their order; one that nobody expected,
/// or that differs, fails the test at once with its text, and an expected one that never came fails it at the end.
class CajasDePrueba
{
public:
    CajasDePrueba();
    ~CajasDePrueba();

    /// A box of this kind with exactly this text. `respuesta` counts for questions.
    CajasDePrueba& espera(Caja clase, const QString& texto, bool respuesta = true)
    {
        m_esperadas.push_back({clase, texto, true, respuesta});
        return *this;
    }
    /// A box whose text contains `parte`.
    CajasDePrueba& esperaQueDiga(Caja clase, const QString& parte, bool respuesta = true)
    {
        m_esperadas.push_back({clase, parte, false, respuesta});
        return *this;
    }
    /// The answer of the next file dialog; an empty text cancels it. A dialog with no answer queued fails the test.
    CajasDePrueba& archivo(const QString& ruta)
    {
        m_archivos.push_back(ruta);
        return *this;
    }
    /// Run with each expected box, before it is answered.
    void alVer(std::function<void(const DatosDeCaja&)> haz) { m_alVer = std::move(haz); }

    /// Boxes and dialogs expected that have not come yet.
    [[nodiscard]] std::size_t pendientes() const { return m_esperadas.size() + m_archivos.size(); }

private:
    struct Esperada
    {
        Caja clase;
        QString texto;
        bool entera;
        bool respuesta;
    };
    bool atender(const DatosDeCaja& datos);
    QString atenderDialogo(const PedidoDeArchivo& pedido);

    std::deque<Esperada> m_esperadas;
    std::deque<QString> m_archivos;
    std::function<void(const DatosDeCaja&)> m_alVer = [](const DatosDeCaja&) {};
};
