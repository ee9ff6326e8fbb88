#pragma once

#include "ui/shell/error_fatal.h"
#include "ui/shell/validacion.h"

#include <QWidget>
#include <type_traits>

/// Base of every screen. Navegacion shows it as a child window of the main window or as a modal dialog; the screen is
/// the same in both. Handlers are bound with conectar(), so that no exception crosses Qt.
class Pantalla : public QWidget
{
    Q_OBJECT
public:
    /// `nombre` is the screen's name for Navegacion, and its objectName.
    explicit Pantalla(const QString& nombre, QWidget* padre = nullptr);

    /// Form_Load: fills the screen before it is shown. A screen that calls cerrar() here is never shown.
    virtual void cargar() {}
    /// Form_Activate: the screen became the active one among the children, or was first shown. Not when the program as
    /// a whole comes back to the front, and not because a box, a file dialog, a modal dialog or a preview closed.
    virtual void activar() {}
    /// Form_Unload: false keeps the screen open. Asked by cerrar(), the close command and the main window's closing.
    [[nodiscard]] virtual bool descargar() { return true; }
    /// The user closes this window alone, by its cross or a key: false keeps it, with what was typed. Asked before
    /// descargar(), which is all that the closing of the whole program asks.
    [[nodiscard]] virtual bool dejaLoTipeado() { return true; }
    /// Unloads the screen: asks descargar() and closes its window.
    void cerrar();
    [[nodiscard]] bool cerrada() const { return m_cerrada; }
    /// The company that the screen works on, for the status bar; nothing when it works on none, or on that of the
    /// screen below it. A screen that changes it emits Navegacion::cambioDePantalla.
    [[nodiscard]] virtual QString empresaEnCurso() const { return {}; }
    /// Where the user stands in what the screen walks through ("Empleado 3 de 48"), for the status bar, told like the
    /// company. It is asked at every change of screen: the text is kept, not made there.
    [[nodiscard]] virtual QString lugarEnCurso() const { return {}; }

Q_SIGNALS:
    void pideCerrar();

protected:
    void closeEvent(QCloseEvent* evento) override;
    /// Binds a signal to a handler (member function or callable, with the signal's arguments or with none).
    template <class Emisor, class... A, class Base, class Manejador>
    void conectar(Emisor* emisor, void (Base::*senal)(A...), Manejador manejador)
    {
        QObject::connect(emisor, senal, this,
                         [this, manejador](A... valores)
                         {
                             protegido(
                                 [&]
                                 {
                                     if constexpr (std::is_member_function_pointer_v<Manejador>)
                                     {
                                         llamar(manejador, valores...);
                                     }
                                     else if constexpr (std::is_invocable_v<Manejador, A...>)
                                     {
                                         manejador(valores...);
                                     }
                                     else
                                     {
                                         manejador();
                                     }
                                 });
                         });
    }
    /// Leaving check of a field, a member function or callable: false keeps the user there, as what it throws does,
    /// which is reported. One that gives nothing lets him go.
    template <class Chequeo>
    void alDejar(QWidget* campo, Chequeo chequeo)
    {
        const auto chequear = [this, chequeo]
        {
            if constexpr (std::is_member_function_pointer_v<Chequeo>)
            {
                return (propio(chequeo)->*chequeo)();
            }
            else
            {
                return chequeo();
            }
        };
        Validacion::instancia().alDejar(campo,
                                        [chequear]
                                        {
                                            bool puede = false; // a check that could not be made is not passed
                                            protegido(
                                                [&]
                                                {
                                                    if constexpr (std::is_void_v<decltype(chequear())>)
                                                    {
                                                        chequear();
                                                        puede = true;
                                                    }
                                                    else
                                                    {
                                                        puede = chequear();
                                                    }
                                                });
                                            return puede;
                                        });
    }

private:
    friend class Navegacion;
    friend class VentanaModal;
    enum class Cierre
    {
        DeLaPantalla, ///< by the screen itself or with the program
        DeLaVentana,  ///< by the frame of its window
    };
    /// Asks what that closing asks unless the screen is unloaded.
    [[nodiscard]] bool puedeCerrarse(Cierre cierre = Cierre::DeLaPantalla);
    /// The same, and a screen that can be closed is unloaded from then on.
    bool pedirCierre(Cierre cierre);
    template <class R, class C, class... P>
    C* propio(R (C::*)(P...))
    {
        return static_cast<C*>(this);
    }
    template <class C, class R, class... P, class... A>
    void llamar(R (C::*metodo)(P...), A&... valores)
    {
        if constexpr (sizeof...(P) == 0)
        {
            (static_cast<C*>(this)->*metodo)();
        }
        else
        {
            (static_cast<C*>(this)->*metodo)(valores...);
        }
    }
    bool m_cerrada = false;
    bool m_preguntando = false;
};
