// The doors to the system's dialogs and programs.
#include "ui/doors/dialogos.h"

#include "apoyo/archivos_de_prueba.h"
#include "apoyo/cajas_de_prueba.h"
#include "apoyo/datos.h"

#include <QtWidgets>
#include <gtest/gtest.h>

namespace
{
/// Types a name into the next real file dialog and accepts it; an empty name cancels.
void conElDialogo(const QString& nombre)
{
    const auto contestar = [nombre]
    {
        auto* dialogo = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (dialogo == nullptr || !dialogo->isVisible())
        {
            conElDialogo(nombre);
            return;
        }
        EXPECT_EQ(dialogo->labelText(QFileDialog::Accept), "Guardar");
        dialogo->findChild<QLineEdit*>("fileNameEdit")->setText(nombre);
        nombre.isEmpty() ? dialogo->reject() : static_cast<QDialog*>(dialogo)->accept();
    };
    QTimer::singleShot(0, qApp, contestar);
}
} // namespace

TEST(Dialogos, ElNombreElegidoRecibeSuExtensionYSobreOtroArchivoSePregunta)
{
    const QTemporaryDir carpeta;
    const QString hay = carpeta.filePath("hay.txt");
    escribirArchivo(hay, "x");
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    const QString inicial = QDir::toNativeSeparators(carpeta.filePath("como.estaba"));
    for (const auto& [nombre, vuelve] :
         {std::pair("hay.txt", "hay.txt"), {"nuevo", "nuevo.txt"}, {"nuevo.dat", "nuevo.dat"}, {"", "como.estaba"}})
    {
        conElDialogo(nombre);
        EXPECT_EQ(QDir::toNativeSeparators(carpeta.filePath(vuelve)),
                  DialogoArchivo({"Guardar", inicial, "*", "txt", false}));
    }
    escribirArchivo(carpeta.filePath("vieja.xls"), "x");
    for (const auto& [nombre, vuelve] : {std::pair("a", "a.xlsx"), {"a.CSV", "a.CSV"}, {"vieja.xls", "vieja.xls.xlsx"}})
    {
        conElDialogo(nombre);
        EXPECT_EQ(QDir::toNativeSeparators(carpeta.filePath(vuelve)),
                  DialogoArchivo({"Guardar", inicial, "Excel (*.xlsx);;Texto (*.csv)", "xlsx", false}));
    }
    CajasDePrueba cajas;
    const QString pregunta = "El archivo 'hay.txt' ya existe. ¿Desea reemplazarlo?";
    cajas.espera(Caja::Pregunta, pregunta, false)
        .espera(Caja::Pregunta, pregunta, true)
        .esperaQueDiga(Caja::Exclamacion, "' es una carpeta.");
    EXPECT_FALSE(ConfirmarDestino(hay));
    EXPECT_TRUE(ConfirmarDestino(hay));
    EXPECT_FALSE(ConfirmarDestino(carpeta.path()));
    EXPECT_TRUE(ConfirmarDestino(hay, hay)) << "its copy fails by itself";
    EXPECT_TRUE(ConfirmarDestino(carpeta.filePath("nuevo.txt")));
}

#ifndef Q_OS_WIN
TEST(Correo, EntregaAlProgramaDelSistemaLoQueDiceElMensaje)
{
    const QTemporaryDir carpeta;
    const QString programa = carpeta.filePath("xdg-email");
    escribirArchivo(programa, "#!/bin/sh\nprintf '%s|' \"$@\" >> \"$0.anotado\"\nexit $SALIDA\n");
    QFile::setPermissions(programa, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QByteArray camino = qgetenv("PATH");
    qputenv("PATH", carpeta.path().toUtf8() + ":" + camino);
    MensajeDeCorreo mensaje{"--help ddjj@example.org", "DDJJ 1", "Va.", programa};
    EXPECT_EQ(0, numeroDe([&] { Correo(mensaje); }));
    qputenv("SALIDA", "4");
    EXPECT_EQ(429, numeroDe([&] { Correo(mensaje); }));
    mensaje.adjunto += ".falta";
    EXPECT_EQ(53, numeroDe([&] { Correo(mensaje); }));
    qputenv("PATH", camino);
    EXPECT_TRUE(leerArchivo(programa + ".anotado")
                    .startsWith("--utf8|--subject|DDJJ 1|--body|Va.|--attach|" + programa.toUtf8() +
                                "|mailto:--help%20ddjj@example.org|"));
}
#endif

TEST(Enlace, SoloLosEsquemasConocidos)
{
    EXPECT_FALSE(AbrirEnlace("javascript:alert(1)") || AbrirEnlace("ssh://x") || AbrirEnlace(""));
}
