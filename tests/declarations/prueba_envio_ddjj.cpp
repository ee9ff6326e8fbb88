// The roads of a declaration's text file, with a real server where one is needed.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/servidor_ftp_de_prueba.h"
#include "declarations/screens/envio_ddjj.h"
#include "exchange/servidor_ftp.h"
#include "platform/screens/dialogos.h"
#include "platform/screens/trabajo_largo.h"

#include <QFile>
#include <gtest/gtest.h>

namespace
{
const QString archivo = QStringLiteral("30-12345678-1 2009-05 00.txt");
const QString gracias = QStringLiteral("LE DDJJ HA SIDO ENVIADA CON EXITO.  MUCHAS GRACIAS.");

struct EnvioDDJJ : testing::Test
{
    BaseDePrueba base;
    CajasDePrueba cajas;
    QStringList estados;
    std::function<void()> alConectar = [] {};

    EnvioDDJJ()
    {
        poner("Empresas");
        poner("DDJJ");
        poner("DDJJ_Empleados");
    }
    ~EnvioDDJJ() override { reemplazarServidorFtp({}); }
    EnvioDeDDJJ envio(std::optional<ClaveDDJJ> clave = ClaveDDJJ{dePrueba::cuit, dePrueba::periodo, 0})
    {
        return EnvioDeDDJJ(clave,
                           [this](const QString& texto)
                           {
                               estados += texto.section(QLatin1Char(':'), 0, 0);
                               alConectar();
                           });
    }
    [[nodiscard]] bool queda() const { return QFile::exists(base.ruta(archivo)); }
};
} // namespace

TEST_F(EnvioDDJJ, LlegaYLaRespuestaSoloCallaElFinal)
{
    ServidorFtpDePrueba servidor(QStringLiteral("pyftpdlib:si"));
    reemplazarServidorFtp(servidor.direccion());
    for (const bool avisar : {false, true})
    {
        if (avisar)
        {
            cajas.espera(Caja::Informacion, gracias);
        }
        envio().EnviarDDJJPorFtp(avisar);
        EXPECT_FALSE(queda());
        EXPECT_FALSE(Puntero::estaOcupado());
    }
    EXPECT_TRUE(servidor.leer(QStringLiteral("DDJJ/") + archivo).startsWith("030-12345678-120090500Panader"));
    EXPECT_EQ((QStringList{QStringLiteral("...Intentando conectar a"), QStringLiteral("Conectado a"),
                           QStringLiteral("Desconectado de")}),
              estados.mid(3));
}

TEST_F(EnvioDDJJ, SinServidorQuedaElArchivoYNadieLoDice)
{
    reemplazarServidorFtp(QStringLiteral("127.0.0.1:1"));
    envio().EnviarDDJJPorFtp(true);
    EXPECT_TRUE(queda());
    EXPECT_EQ(QStringLiteral("Error. Compruebe los datos del servidor Ftp sin son correctos"), estados.last());
}

TEST_F(EnvioDDJJ, SinArchivoQueBorrarSeDiceElError)
{
    ServidorFtpDePrueba servidor(QStringLiteral("pyftpdlib:si"));
    reemplazarServidorFtp(servidor.direccion());
    alConectar = [this] { QFile::remove(base.ruta(archivo)); };
    cajas.esperaQueDiga(Caja::Informacion, QStringLiteral("Error: 53 - "));
    envio().EnviarDDJJPorFtp(true);
    EXPECT_EQ(QStringLiteral("Error de Apertura"), cajas.vistas().back().titulo);
}

TEST_F(EnvioDDJJ, SinDeclaracionElegidaNoHayArchivo)
{
    cajas.esperaQueDiga(Caja::Informacion, QStringLiteral("Error: 13 - "));
    envio(std::nullopt).EnviarDDJJPorFtp(true);
    EXPECT_FALSE(queda());
}

TEST_F(EnvioDDJJ, PorCorreoEntregaElArchivoYLoConserva)
{
    base.conexion().ejecutar("UPDATE Parametros SET EMail = 'ddjj@example.org'");
    reemplazarCorreo(
        [this](const MensajeDeCorreo& mensaje)
        {
            EXPECT_EQ(QStringLiteral("ddjj@example.org"), mensaje.destinatario);
            EXPECT_EQ(archivo + QStringLiteral(" - Envio DD.JJ."), mensaje.asunto);
            EXPECT_EQ(base.ruta(archivo), mensaje.adjunto);
        });
    cajas.espera(Caja::Simple, QStringLiteral("El Correo correspondiente ha sido enviado correctamente."));
    envio().EnviarDDJJPorCorreo();
    EXPECT_TRUE(queda());
    reemplazarCorreo([](const MensajeDeCorreo&) { throw ErrorDeEjecucion(429, QStringLiteral("sin correo")); });
    cajas.espera(Caja::Simple, QStringLiteral("sin correo - (429)"));
    envio().EnviarDDJJPorCorreo();
    reemplazarCorreo({});
}
