#pragma once

#include <QString>
#include <stdexcept>
#include <utility>

/// A line of the script that does not hold: why, for the user of the script.
class Falla : public std::runtime_error
{
public:
    explicit Falla(QString queFalla)
        : std::runtime_error(queFalla.toStdString())
        , m_motivo(std::move(queFalla))
    {
    }
    [[nodiscard]] const QString& motivo() const { return m_motivo; }

private:
    QString m_motivo;
};
