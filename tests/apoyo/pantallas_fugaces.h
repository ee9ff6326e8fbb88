#pragma once

#include <QString>
#include <QStringList>
#include <functional>

/// Stands in for screens that a command opens: each does its work when it is opened and closes at once. What was
/// registered is gone again at the end, for it mostly refers to the test's own variables.
class PantallasFugaces
{
public:
    PantallasFugaces() = default;
    ~PantallasFugaces();
    PantallasFugaces(const PantallasFugaces&) = delete;
    PantallasFugaces& operator=(const PantallasFugaces&) = delete;

    void registrar(const QString& nombre, std::function<void()> haz);

private:
    QStringList m_nombres;
};
