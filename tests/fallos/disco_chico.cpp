#include "fallos/disco_chico.h"

#include <QFile>
#include <QStorageInfo>
#include <csignal>
#include <gtest/gtest.h>

#ifdef __linux__
#include <sched.h>
#include <sys/mount.h>
#endif

namespace
{
const QString relleno = QStringLiteral("/relleno");

#ifdef __linux__
/// Mounts of this process are its own from here on.
bool apartarMontajes()
{
    static const bool apartados =
        ::unshare(CLONE_NEWNS) == 0 && ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    return apartados;
}
#endif
} // namespace

DiscoChico::DiscoChico(int mebibytes)
    : m_temporalAnterior(qgetenv("TMPDIR"))
{
#ifdef __linux__
    const QByteArray tamano = "size=" + QByteArray::number(mebibytes) + "m";
    m_montado = apartarMontajes() &&
                ::mount("none", QFile::encodeName(m_lugar.path()).constData(), "tmpfs", 0, tamano.constData()) == 0;
#endif
#ifndef _WIN32
    ::getrlimit(RLIMIT_FSIZE, &m_limite);
    std::signal(SIGXFSZ, SIG_IGN);
#endif
    qputenv("TMPDIR", QFile::encodeName(m_lugar.path()));
}

DiscoChico::~DiscoChico()
{
    vaciar();
    m_temporalAnterior.isNull() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", m_temporalAnterior);
#ifdef __linux__
    if (m_montado)
    {
        ::umount2(QFile::encodeName(m_lugar.path()).constData(), MNT_DETACH);
    }
#endif
}

void DiscoChico::llenar(qint64 libres, [[maybe_unused]] qint64 tope)
{
    vaciar();
    if (m_montado)
    {
        QFile archivo(m_lugar.path() + relleno);
        ASSERT_TRUE(archivo.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
        const qint64 sobran = QStorageInfo(m_lugar.path()).bytesAvailable() - libres;
        ASSERT_EQ(sobran, archivo.write(QByteArray(sobran, 'x')));
        return;
    }
#ifndef _WIN32
    const rlimit nuevo{static_cast<rlim_t>(tope), m_limite.rlim_max};
    ASSERT_EQ(0, ::setrlimit(RLIMIT_FSIZE, &nuevo));
#endif
}

void DiscoChico::vaciar()
{
    QFile::remove(m_lugar.path() + relleno);
#ifndef _WIN32
    ::setrlimit(RLIMIT_FSIZE, &m_limite);
#endif
}

QString DiscoChico::textoDeLaBase() const
{
    return m_montado ? QStringLiteral("El disco está lleno")
                     : QStringLiteral("Error al leer o escribir la base de datos en el disco");
}
