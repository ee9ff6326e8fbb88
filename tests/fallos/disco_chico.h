#pragma once

#include <QString>
#include <QTemporaryDir>

#ifndef _WIN32
#include <sys/resource.h>
#endif

/// A disk of a few MiB that only this process sees, which is where temporary folders are made while it lives. Where the
/// process may not mount one, llenar() keeps every file from growing past a limit instead, which fails at the same
/// writes with another number of the system.
class DiscoChico
{
public:
    explicit DiscoChico(int mebibytes);
    ~DiscoChico();
    DiscoChico(const DiscoChico&) = delete;
    DiscoChico& operator=(const DiscoChico&) = delete;

    [[nodiscard]] bool montado() const { return m_montado; }
    /// Leaves about `libres` bytes. With no disk of its own: no file grows past `tope`.
    void llenar(qint64 libres, qint64 tope);
    void vaciar();
    /// What SQLite says of a write that found no room.
    [[nodiscard]] QString textoDeLaBase() const;

private:
    QTemporaryDir m_lugar;
    QByteArray m_temporalAnterior;
    bool m_montado = false;
#ifndef _WIN32
    rlimit m_limite{};
#endif
};
