#pragma once

#include <QObject>

class QKeyEvent;

/// What holds for every field of the program, in one filter over the whole application. The wheel changes no list, page
/// or number: it scrolls what lies behind it. Letters find entries as BusquedaPorLetras tells. A text that does not fit
/// is told; every one stays on one line.
class ReglasDeCampos : public QObject
{
    Q_OBJECT
public:
    /// Made at the first call and owned by the application.
    static void aplicar();

    bool eventFilter(QObject* objeto, QEvent* evento) override;

private:
    explicit ReglasDeCampos(QObject* padre);
    void alVestir(QObject* objeto);
    void alRechazarTexto();
    static bool alTeclear(QObject* objeto, const QKeyEvent& evento);
};
