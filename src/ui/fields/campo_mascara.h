#pragma once

#include <QDate>
#include <QLineEdit>

/// Masked entry of a CUIT/CUIL ("##-########-#") or of a date ("##/##/####"): digits only, "_" where nothing is typed.
/// text() is the masked text, the untouched mask included. Pasting works with and without separators.
class CampoMascara : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(Clase clase READ clase WRITE setClase)
public:
    enum Clase
    {
        Cuit,
        Fecha
    };
    Q_ENUM(Clase)
    explicit CampoMascara(QWidget* padre = nullptr);

    [[nodiscard]] Clase clase() const { return m_clase; }
    void setClase(Clase clase);

    /// With its mask: "20-12345678-6", "__/__/____". While a date field with fechaConGuiones does not hold the focus it
    /// *shows* dashes, but this text keeps the slashes.
    [[nodiscard]] QString text() const;
    /// With or without the separators; what is no digit is passed over.
    void setText(const QString& conMascara);
    [[nodiscard]] QString soloDigitos() const;
    [[nodiscard]] bool vacio() const; ///< untouched
    void limpiar();
    void setFecha(QDate fecha); ///< an invalid date empties the field
    /// Shows "dd-mm-yyyy" while the field does not hold the focus.
    void setFechaConGuiones(bool con);

protected:
    void focusInEvent(QFocusEvent* evento) override;
    void focusOutEvent(QFocusEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;
    void mouseReleaseEvent(QMouseEvent* evento) override;
    void paintEvent(QPaintEvent* evento) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    void pegar(const QString& texto);
    [[nodiscard]] int finDeLoEscrito() const;

    Clase m_clase = Cuit;
    bool m_guiones = false;
    bool m_focoDeRaton = false;
};

/// Key filters of the text fields and of the field of an editable list; what the program sets is not touched.
/// Only "0" to "9" pass, pasted ones too.
void soloDigitos(QLineEdit* campo);
/// Digits and "," pass, and "." becomes "," at the key. A pasted text keeps its dots, which group thousands there.
void soloImporte(QLineEdit* campo);
