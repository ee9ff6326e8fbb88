#include "apoyo/hijo.h"

#include <QCoreApplication>
#include <cstdio>
#include <gtest/gtest.h>
#include <iostream>

namespace
{
constexpr const char* variable = "ALTOVERDE_RUTA_DEL_HIJO";
const QByteArray marca = "### ";
} // namespace

Hijo::Hijo(const QString& prueba, const QString& ruta)
{
    QProcessEnvironment entorno = QProcessEnvironment::systemEnvironment();
    entorno.insert(QString::fromLatin1(variable), ruta);
    m_proceso.setProcessEnvironment(entorno);
    m_proceso.setProcessChannelMode(QProcess::MergedChannels);
    m_proceso.start(QCoreApplication::applicationFilePath(),
                    {"--gtest_also_run_disabled_tests", "--gtest_filter=" + prueba});
    QByteArray todo;
    while (m_dicho.isEmpty() && (m_proceso.canReadLine() || m_proceso.waitForReadyRead(-1)))
    {
        const QByteArray linea = m_proceso.canReadLine() ? m_proceso.readLine() : QByteArray();
        todo += linea;
        m_dicho = linea.startsWith(marca) ? QString::fromUtf8(linea.sliced(marca.size()).trimmed()) : QString();
    }
    EXPECT_FALSE(m_dicho.isEmpty()) << "the child ended early:\n" << todo.constData();
}

bool Hijo::seguir()
{
    m_proceso.write("\n");
    m_proceso.closeWriteChannel();
    m_proceso.waitForFinished(-1);
    const bool paso = m_proceso.exitStatus() == QProcess::NormalExit && m_proceso.exitCode() == 0;
    EXPECT_TRUE(paso) << m_proceso.readAll().constData();
    return paso;
}

void Hijo::matar()
{
    m_proceso.kill();
    m_proceso.waitForFinished(-1);
}

QString hijo::ruta()
{
    return qEnvironmentVariable(variable);
}

void hijo::listo(const QString& dicho)
{
    std::cout << marca.constData() << dicho.toStdString() << std::endl;
}

void hijo::listoYEsperar(const QString& dicho)
{
    listo(dicho);
    std::string linea;
    std::getline(std::cin, linea);
}
