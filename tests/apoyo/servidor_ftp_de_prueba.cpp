#include "apoyo/servidor_ftp_de_prueba.h"
#include "apoyo/rutas.h"

#include <gtest/gtest.h>

ServidorFtpDePrueba::ServidorFtpDePrueba(const QString& como)
{
    m_proceso.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    m_proceso.start(rutas::programaPython(), {rutas::enFuentes("tests/guiones/con_ftp.py"), como, m_carpeta.path()});
    while (!m_proceso.canReadLine() && m_proceso.waitForReadyRead(-1))
    {
    }
    m_direccion = QString::fromUtf8(m_proceso.readLine()).trimmed();
    EXPECT_FALSE(m_direccion.isEmpty()) << "the server did not start; its complaint stands above";
}

void ServidorFtpDePrueba::terminar()
{
    if (m_proceso.state() != QProcess::NotRunning)
    {
        m_proceso.closeWriteChannel();
        m_proceso.waitForFinished(-1);
        EXPECT_EQ(0, m_proceso.exitCode());
    }
}

QByteArray ServidorFtpDePrueba::ordenes()
{
    m_ordenes += m_proceso.readAllStandardOutput();
    return QByteArray(m_ordenes).trimmed().replace('\n', '|');
}
