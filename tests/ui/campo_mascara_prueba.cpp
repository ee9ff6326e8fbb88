#include "ui/fields/campo_mascara.h"

#include "apoyo/entrada.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Entrada;

namespace
{
/// A window with one field of each kind that filters its keys.
struct Campos : testing::Test
{
    Campos()
    {
        auto* disposicion = new QHBoxLayout(&ventana);
        for (QWidget* campo : std::initializer_list<QWidget*>{&primero, &cuit, &fecha, &digitos, &importe, &horas})
        {
            disposicion->addWidget(campo);
        }
        fecha.setClase(CampoMascara::Fecha);
        soloDigitos(&digitos);
        soloImporte(&importe);
        horas.setEditable(true);
        soloDigitos(horas.lineEdit());
        activar(ventana);
    }

    static void pegar(const char* texto)
    {
        QApplication::clipboard()->setText(texto);
        tecla(Qt::Key_V, Qt::ControlModifier);
    }

    QWidget ventana;
    QLineEdit primero;
    CampoMascara cuit;
    CampoMascara fecha;
    QLineEdit digitos;
    QLineEdit importe;
    QComboBox horas;
};
} // namespace

TEST_F(Campos, LaMascaraPorProgramaYPegada)
{
    enum Como
    {
        Puesto,
        Pegado, ///< a whole value replaces what is there, wherever the cursor is
        Ambos,
    };
    const std::tuple<CampoMascara*, Como, const char*, const char*> casos[] = {
        {&cuit, Ambos, "20-12345678-6", "20-12345678-6"},
        {&cuit, Ambos, "20123456786", "20-12345678-6"},
        {&cuit, Pegado, "CUIT: 20 12345678 6\n", "20-12345678-6"},
        {&cuit, Puesto, "2_-12______-6", "2_-12______-6"},
        {&cuit, Puesto, "20-abc", "20-________-_"},
        {&cuit, Puesto, "", "__-________-_"},
        {&fecha, Ambos, "25/12/1970", "25/12/1970"},
        {&fecha, Ambos, "25121970", "25/12/1970"},
        {&fecha, Ambos, "25-12-1970", "25/12/1970"},
        {&fecha, Ambos, "25/12/70", "25/12/70__"},
        {&fecha, Puesto, "_5/12/____", "_5/12/____"},
        {&fecha, Pegado, "251270", "25/12/70__"},
        {&fecha, Pegado, "1/2/1970", "01/02/1970"},
        {&fecha, Pegado, "5.3.04", "05/03/04__"},
    };
    for (const auto& [campo, como, entra, queda] : casos)
    {
        if (como != Pegado)
        {
            campo->setText(entra);
            EXPECT_EQ(queda, campo->text()) << entra;
        }
        if (como != Puesto)
        {
            campo->setFocus();
            campo->setText("11111111111");
            campo->setCursorPosition(4);
            pegar(entra);
            EXPECT_EQ(queda, campo->text()) << entra;
        }
    }
    fecha.setFecha(QDate(2024, 2, 29));
    EXPECT_EQ("29022024", fecha.soloDigitos());
    fecha.setFecha({});
    EXPECT_TRUE(fecha.vacio());
    fecha.setFocus();
    pegar("navidad");
    EXPECT_EQ(CampoMascara::fechaVacia, fecha.text());
}

TEST_F(Campos, LasTeclasDeLaMascara)
{
    primero.setFocus();
    tecla(Qt::Key_Tab);
    escribir("a20b-1234/5678x6");
    escribir("9"); // full
    EXPECT_EQ("20-12345678-6", cuit.text());
    primero.setFocus();
    tecla(Qt::Key_Tab);
    EXPECT_EQ(cuit.text(), cuit.selectedText());
    primero.setFocus();
    pulsar(cuit);
    EXPECT_EQ(cuit.text(), cuit.selectedText());
    escribir("3");
    EXPECT_EQ("3_-________-_", cuit.text());
    pulsar(cuit, {cuit.width() - 8, cuit.height() / 2}); // a second click places the cursor, not among the blanks
    escribir("0");
    EXPECT_EQ("30-________-_", cuit.text());
    tecla(Qt::Key_Home);
    tecla(Qt::Key_End); // goes where the next digit is due
    escribir("7");
    EXPECT_EQ("30-7_______-_", cuit.text());
    tecla(Qt::Key_Backspace);
    EXPECT_EQ("30-________-_", cuit.text());
}

TEST_F(Campos, SinFocoLaFechaSeVeConGuiones)
{
    primero.setFocus();
    asentar();
    fecha.setText("25/12/1970");
    QLineEdit comun("25-12-1970", &ventana); // what a field without a mask looks like
    comun.setGeometry(fecha.geometry());
    fecha.setFechaConGuiones(true);
    EXPECT_EQ(comun.grab().toImage(), fecha.grab().toImage());
    EXPECT_EQ("25/12/1970", fecha.text());
    fecha.limpiar();
    const QImage vacia = fecha.grab().toImage();
    fecha.setFechaConGuiones(false);
    EXPECT_EQ(vacia, fecha.grab().toImage()); // an empty date keeps its mask
}

TEST_F(Campos, LosFiltrosDeTecladoYDePegado)
{
    const std::tuple<QLineEdit*, const char*, const char*, const char*> casos[] = {
        {&digitos, "1a2.3-4", "", "1234"},      {&digitos, "", "DNI 12.345 678", "12345678"},
        {&importe, "a1.2b", "", "1,2"},         {&importe, "", "$ 1.234,50", "1.234,50"},
        {horas.lineEdit(), "1h5x0", "", "150"}, {horas.lineEdit(), "", "200 hs", "200"},
    };
    for (const auto& [campo, teclas, pegado, queda] : casos)
    {
        (campo == horas.lineEdit() ? static_cast<QWidget*>(&horas) : campo)->setFocus();
        campo->clear();
        escribir(teclas);
        pegar(pegado);
        EXPECT_EQ(queda, campo->text()) << teclas << pegado;
    }
    digitos.clear();
    digitos.setFocus();
    for (const char* compuesto : {"á", "7"})
    {
        QInputMethodEvent metodo;
        metodo.setCommitString(compuesto);
        QCoreApplication::sendEvent(&digitos, &metodo);
    }
    EXPECT_EQ("7", digitos.text());
    QApplication::clipboard()->setText("1.2.3");
    QTimer::singleShot(0, &digitos,
                       []
                       {
                           QWidget* menu = QApplication::activePopupWidget();
                           ASSERT_NE(nullptr, menu);
                           tecla(Qt::Key_P); // Pegar
                           menu->close();
                       });
    QContextMenuEvent derecho(QContextMenuEvent::Mouse, {4, 4}, digitos.mapToGlobal(QPoint(4, 4)));
    QCoreApplication::sendEvent(&digitos, &derecho);
    EXPECT_EQ("7123", digitos.text());
    activar(ventana);
    digitos.setReadOnly(true);
    pegar("22");
    EXPECT_EQ("7123", digitos.text());
}
