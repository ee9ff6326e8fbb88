#pragma once

#include <QString>

class QWidget;

/// Counts a box or system dialog as open while it lives, for hayCajaAbierta(), and shows the ordinary pointer over it.
class CajaAbierta
{
public:
    CajaAbierta();
    ~CajaAbierta();
    CajaAbierta(const CajaAbierta&) = delete;
    CajaAbierta& operator=(const CajaAbierta&) = delete;

private:
    bool m_puntero;
};

/// The window that a box or dialog belongs to: the active one, else the main window, else none.
[[nodiscard]] QWidget* ventanaParaCaja();

/// Names the main window for it.
void fijarVentanaParaCajas(QWidget* principal);
