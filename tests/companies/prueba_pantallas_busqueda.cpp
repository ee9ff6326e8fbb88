// The search dialogs.
#include "apoyo/entrada.h"
#include "core/rutinas.h"
#include "datos_empresa.h"
#include "mesa_empresas.h"
#include "platform/screens/grilla.h"
#include "platform/screens/pantalla.h"

#include <QDialog>
#include <QHeaderView>
#include <gtest/gtest.h>

namespace
{
struct Dialogos : testing::Test
{
    MesaEmpresas mesa;
    Conexion& conexion = mesa.conexion();

    Dialogos() { conexion.ejecutar("INSERT OR IGNORE INTO Rubros (Codigo, Nombre) VALUES ('522120', 'Panaderías')"); }
    void modal(const char* boton, const std::function<void()>& haz)
    {
        mesa.abrir();
        mesa.enDialogo(boton, haz);
    }
    static void cerrarDialogo() { qobject_cast<QDialog*>(MesaEmpresas::actual()->window())->reject(); }
};
} // namespace

TEST_F(Dialogos, EmpresaPorNombreYPorCuit)
{
    sembrarEmpresa(conexion, cuitUno, QStringLiteral("Panaderia D'Angelo"));
    sembrarEmpresa(conexion, cuitDos, QStringLiteral("Confiteria"));
    sembrarEmpresa(conexion, cuitTres, QStringLiteral("Abasto de pan"));
    const QString uno = cuitUno + QStringLiteral("|Panaderia D'Angelo");
    const QString dos = cuitDos + QStringLiteral("|Confiteria");
    const QString tres = cuitTres + QStringLiteral("|Abasto de pan");
    Rutinas::CuitActual = QStringLiteral("antes");
    modal("CmdABM_3",
          [&]
          {
              EXPECT_EQ(mesa.titulo(), QStringLiteral("B.R.I.V.O. Zona Sauce - Busqueda de Empresas"));
              EXPECT_EQ(mesa.foco(), QStringLiteral("MaskCuit"));
              EXPECT_EQ(mesa.filas("vsGrilla"), (QStringList{tres, dos, uno}));
              Entrada::tecla(Qt::Key_Return);
              EXPECT_EQ(mesa.foco(), QStringLiteral("txtNombre"));
              Entrada::escribir(QStringLiteral("pan"));
              EXPECT_EQ(mesa.filas("vsGrilla"), (QStringList{uno, tres}));
              Entrada::escribir(QStringLiteral("z"));
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList());
              mesa.escribir("txtNombre", "D'A");
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList{uno});
              mesa.escribir("MaskCuit", "305");
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList{uno}); // only on leaving the field
              Entrada::tecla(Qt::Key_Tab);
              EXPECT_EQ(mesa.foco(), QStringLiteral("txtNombre"));
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList());
              mesa.escribir("MaskCuit", "20123456786");
              Entrada::tecla(Qt::Key_Tab);
              EXPECT_EQ(mesa.filas("vsGrilla"), QStringList{uno});
              Entrada::pulsar(*mesa.grilla("vsGrilla").horizontalHeader()->viewport());
              EXPECT_EQ(Rutinas::CuitActual, QStringLiteral("antes"));
              mesa.pulsarCelda("vsGrilla", 2, 1);
          });
    EXPECT_EQ(Rutinas::CuitActual, cuitUno);
}

TEST_F(Dialogos, EmpresaConElTecladoSolo)
{
    sembrarEmpresa(conexion, cuitUno, QStringLiteral("Uno"));
    sembrarEmpresa(conexion, cuitDos, QStringLiteral("Dos"));
    modal("CmdABM_3",
          [&]
          {
              Entrada::tecla(Qt::Key_Tab);
              Entrada::tecla(Qt::Key_Tab);
              EXPECT_EQ(mesa.foco(), QStringLiteral("vsGrilla"));
              Entrada::tecla(Qt::Key_Down);
              Entrada::tecla(Qt::Key_Down);
              Entrada::tecla(Qt::Key_Return);
          });
    EXPECT_EQ(Rutinas::CuitActual, cuitUno);
    EXPECT_EQ(mesa.texto("txtRazon"), QStringLiteral("Uno"));
}

TEST_F(Dialogos, RubrosAbreVaciaYBorraSuRespuesta)
{
    conexion.ejecutar("DELETE FROM Rubros");
    conexion.ejecutar("INSERT INTO Rubros (Codigo, Nombre) VALUES ('5', 'Panaderías'), ('511', 'Fábricas'), "
                      "('10', 'Otros')");
    Rutinas::TextoDevuelto = QStringLiteral("antes");
    mesa.abrir();
    mesa.pulsar("CmdABM_0");
    mesa.enDialogo("cmdRubro",
                   [&]
                   {
                       EXPECT_EQ(mesa.titulo(), QStringLiteral("B.R.I.V.O. Zona Sauce - Busqueda de Rubros"));
                       EXPECT_EQ(Rutinas::TextoDevuelto, QString());
                       EXPECT_EQ(mesa.filas("vsGrilla"), QStringList());
                       mesa.escribir("txtCodigo", "5");
                       EXPECT_EQ(mesa.filas("vsGrilla"), QStringList());
                       Entrada::tecla(Qt::Key_Return);
                       EXPECT_EQ(mesa.filas("vsGrilla"),
                                 (QStringList{QStringLiteral("5|Panaderías"), QStringLiteral("511|Fábricas")}));
                       Entrada::escribir(QStringLiteral("bric"));
                       EXPECT_EQ(mesa.filas("vsGrilla"), QStringList{QStringLiteral("511|Fábricas")});
                       mesa.pulsarCelda("vsGrilla", 2, 1);
                   });
    EXPECT_EQ(Rutinas::TextoDevuelto, QStringLiteral("511"));
    EXPECT_EQ(mesa.texto("txtNomRubro"), QStringLiteral("Fábricas"));
}
