#pragma once

#include <QString>
#include <stdexcept>

/// A line of the script that does not hold, or cannot be read: why, for the user of the script.
class Falla : public std::runtime_error
{
public:
    /// The values stand for "%1", "%2" and so on.
    template <class... Valores>
    explicit Falla(QString texto, const Valores&... valores)
        : std::runtime_error(con(std::move(texto), valores...))
    {
    }
    [[nodiscard]] QString motivo() const { return QString::fromUtf8(what()); }

private:
    template <class... Valores>
    static std::string con(QString texto, const Valores&... valores)
    {
        ((texto = texto.arg(valores)), ...);
        return texto.toStdString();
    }
};
