// The roads of a declaration's text file that no script can play.
#include "apoyo/base_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"
#include "apoyo/servidor_ftp_de_prueba.h"
#include "declarations/screens/envio_ddjj.h"
#include "exchange/servidor_ftp.h"
#include "ui/doors/dialogos.h"

#include <QFile>
#include <gtest/gtest.h>

namespace
{
const QString archivo = "30-12345678-1 2009-05 00.txt";

struct EnvioDDJJ : ConBase
{
    CajasDePrueba cajas;

    EnvioDDJJ()
    {
        poner("Empresas");
        poner("DDJJ");
        poner("DDJJ_Empleados");
    }
    /// With its file gone by the time it is to be sent, perhaps.
    EnvioDeDDJJ envio(bool sinArchivo)
    {
        return EnvioDeDDJJ(ClaveDDJJ{dePrueba::cuit, dePrueba::periodo, 0},
                           [=, this](const QString&) { (void)(sinArchivo && QFile::remove(base.ruta(archivo))); });
    }
};
} // namespace

TEST_F(EnvioDDJJ, SubeComoTextoYSinArchivoQueBorrarSeDiceElError)
{
    ServidorFtpDePrueba servidor("si");
    reemplazarServidorFtp(servidor.direccion());
    cajas.esperaQueDiga(Caja::Informacion, "ENVIADA CON EXITO").esperaQueDiga(Caja::Informacion, "Error: 53 - ");
    envio(false).EnviarDDJJPorFtp(true);
    envio(true).EnviarDDJJPorFtp(true);
    reemplazarServidorFtp({});
    servidor.terminar();
    EXPECT_TRUE(servidor.ordenes().contains("CWD //DDJJ/|PASV|TYPE A|STOR")) << servidor.ordenes().toStdString();
}

TEST_F(EnvioDDJJ, PorCorreoEntregaElArchivoYLoConserva)
{
    base.conexion().ejecutar("UPDATE Parametros SET EMail = 'ddjj@example.org'");
    QStringList mensaje;
    reemplazarCorreo([&](const MensajeDeCorreo& m) { mensaje = {m.destinatario, m.asunto, m.adjunto}; });
    cajas.espera(Caja::Simple, "El Correo correspondiente ha sido enviado correctamente.");
    envio(false).EnviarDDJJPorCorreo();
    reemplazarCorreo({});
    EXPECT_EQ((QStringList{"ddjj@example.org", archivo + " - Envio DD.JJ.", base.ruta(archivo)}), mensaje);
    EXPECT_TRUE(QFile::exists(base.ruta(archivo)));
}
