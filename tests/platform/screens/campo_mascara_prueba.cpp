#include "platform/screens/campo_mascara.h"

#include "apoyo/entrada.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QHBoxLayout>
#include <QInputMethodEvent>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <gtest/gtest.h>

using namespace Entrada;

namespace
{
/// A window with one field of each kind that filters its keys.
class Campos : public testing::Test
{
protected:
    Campos()
    {
        auto* disposicion = new QHBoxLayout(&ventana);
        for (QWidget* campo :
             {static_cast<QWidget*>(&primero), static_cast<QWidget*>(&cuit), static_cast<QWidget*>(&fecha),
              static_cast<QWidget*>(&digitos), static_cast<QWidget*>(&importe), static_cast<QWidget*>(&horas)})
        {
            disposicion->addWidget(campo);
        }
        fecha.setClase(CampoMascara::Fecha);
        soloDigitos(&digitos);
        digitos.setMaxLength(8);
        soloImporte(&importe);
        horas.setEditable(true);
        soloDigitos(horas.lineEdit());
        activar(ventana);
    }

    static void pegar(const QString& texto)
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

struct Entrado
{
    const char* entra;
    const char* queda;
};
} // namespace

TEST_F(Campos, MascaraVaciaYProgramada)
{
    EXPECT_EQ(cuit.text(), CampoMascara::cuitVacio);
    EXPECT_EQ(fecha.text(), CampoMascara::fechaVacia);
    EXPECT_TRUE(cuit.vacio());
    const Entrado cuits[] = {{"20-12345678-6", "20-12345678-6"}, {"20123456786", "20-12345678-6"},
                             {"__-________-_", "__-________-_"}, {"2_-12______-6", "2_-12______-6"},
                             {"20-abc", "20-________-_"},        {"", "__-________-_"}};
    for (const Entrado& caso : cuits)
    {
        cuit.setText(QString::fromLatin1(caso.entra));
        EXPECT_EQ(cuit.text().toStdString(), caso.queda) << caso.entra;
    }
    const Entrado fechas[] = {{"25/12/1970", "25/12/1970"},
                              {"25121970", "25/12/1970"},
                              {"25/12/70", "25/12/70__"},
                              {"_5/12/____", "_5/12/____"},
                              {"25-12-1970", "25/12/1970"}};
    for (const Entrado& caso : fechas)
    {
        fecha.setText(QString::fromLatin1(caso.entra));
        EXPECT_EQ(fecha.text().toStdString(), caso.queda) << caso.entra;
    }
    fecha.setFecha(QDate(2024, 2, 29));
    EXPECT_EQ(fecha.text(), QStringLiteral("29/02/2024"));
    EXPECT_EQ(fecha.soloDigitos(), QStringLiteral("29022024"));
    fecha.setFecha({});
    EXPECT_TRUE(fecha.vacio());
    fecha.setText(QStringLiteral("01/02/2003"));
    fecha.limpiar();
    EXPECT_EQ(fecha.text(), CampoMascara::fechaVacia);
}

TEST_F(Campos, SeEscribenSoloDigitosConODespuesDeBorrar)
{
    cuit.setFocus();
    escribir(QStringLiteral("a20b-1234/5678x6"));
    EXPECT_EQ(cuit.text(), QStringLiteral("20-12345678-6"));
    escribir(QStringLiteral("9"));
    EXPECT_EQ(cuit.text(), QStringLiteral("20-12345678-6")); // full
    for (int veces = 0; veces < 3; ++veces)
    {
        tecla(Qt::Key_Backspace);
    }
    EXPECT_EQ(cuit.text(), QStringLiteral("20-123456__-_"));
    escribir(QStringLiteral("996"));
    EXPECT_EQ(cuit.text(), QStringLiteral("20-12345699-6"));
    tecla(Qt::Key_Home);
    escribir(QStringLiteral("27"));
    EXPECT_EQ(cuit.text(), QStringLiteral("27-12345699-6"));
    tecla(Qt::Key_A, Qt::ControlModifier);
    tecla(Qt::Key_Delete);
    EXPECT_TRUE(cuit.vacio());
    escribir(QStringLiteral("30"));
    tecla(Qt::Key_Home);
    tecla(Qt::Key_End); // goes where the next digit is due, not past the blanks
    escribir(QStringLiteral("7"));
    EXPECT_EQ(cuit.text(), QStringLiteral("30-7_______-_"));
}

TEST_F(Campos, ElFocoMarcaTodo)
{
    cuit.setText(QStringLiteral("20-12345678-6"));
    primero.setFocus();
    tecla(Qt::Key_Tab);
    EXPECT_EQ(cuit.selectedText(), cuit.text());
    primero.setFocus();
    pulsar(cuit);
    EXPECT_EQ(cuit.selectedText(), cuit.text());
    escribir(QStringLiteral("3"));
    EXPECT_EQ(cuit.text(), QStringLiteral("3_-________-_"));
    pulsar(cuit, {cuit.width() - 8, cuit.height() / 2}); // a second click places the cursor, not among the blanks
    EXPECT_FALSE(cuit.hasSelectedText());
    escribir(QStringLiteral("0"));
    EXPECT_EQ(cuit.text(), QStringLiteral("30-________-_"));
}

TEST_F(Campos, SePegaConYSinSeparadores)
{
    const Entrado cuits[] = {{"20123456786", "20-12345678-6"},
                             {"20-12345678-6", "20-12345678-6"},
                             {" 20-12345678-6 ", "20-12345678-6"},
                             {"CUIT: 20 12345678 6\n", "20-12345678-6"}};
    cuit.setFocus();
    for (const Entrado& caso : cuits)
    {
        cuit.setText(QStringLiteral("27-99999999-9"));
        cuit.setCursorPosition(5); // a whole value replaces what is there, wherever the cursor is
        pegar(QString::fromLatin1(caso.entra));
        EXPECT_EQ(cuit.text().toStdString(), caso.queda) << caso.entra;
    }
    const Entrado fechas[] = {{"25/12/1970", "25/12/1970"}, {"25121970", "25/12/1970"}, {"251270", "25/12/70__"},
                              {"25/12/70", "25/12/70__"},   {"1/2/1970", "01/02/1970"}, {"25-12-1970", "25/12/1970"},
                              {"5.3.04", "05/03/04__"}};
    fecha.setFocus();
    for (const Entrado& caso : fechas)
    {
        fecha.setText(QStringLiteral("11/11/1911"));
        fecha.setCursorPosition(4);
        pegar(QString::fromLatin1(caso.entra));
        EXPECT_EQ(fecha.text().toStdString(), caso.queda) << caso.entra;
    }
    fecha.limpiar();
    pegar(QStringLiteral("navidad"));
    EXPECT_TRUE(fecha.vacio());
}

TEST_F(Campos, SinFocoLaFechaSeVeConGuiones)
{
    primero.setFocus();
    asentar();
    fecha.setText(QStringLiteral("25/12/1970"));
    QLineEdit comun(QStringLiteral("25-12-1970"), &ventana); // what a field without a mask looks like
    comun.setGeometry(fecha.geometry());
    fecha.setFechaConGuiones(true);
    EXPECT_EQ(fecha.grab().toImage(), comun.grab().toImage());
    EXPECT_EQ(fecha.text(), QStringLiteral("25/12/1970"));
    fecha.setEnabled(false);
    comun.setEnabled(false);
    EXPECT_EQ(fecha.grab().toImage(), comun.grab().toImage());
    fecha.limpiar();
    const QImage vacia = fecha.grab().toImage();
    fecha.setFechaConGuiones(false);
    EXPECT_EQ(vacia, fecha.grab().toImage()); // an empty date keeps its mask
}

TEST_F(Campos, FiltrosDeTexto)
{
    struct Caso
    {
        QLineEdit* campo;
        const char* teclas;
        const char* pegado;
        const char* queda;
    };
    const Caso casos[] = {
        {&digitos, "1a2.3-4", "", "1234"},      {&digitos, "", "12.345.678", "12345678"},
        {&digitos, "", "DNI 12 345", "12345"},  {&importe, "1.5", "", "1,5"},
        {&importe, "a1,2b", "", "1,2"},         {&importe, "", "$ 1.234,50", "1.234,50"},
        {horas.lineEdit(), "1h5x0", "", "150"}, {horas.lineEdit(), "", "200 hs", "200"},
    };
    for (const Caso& caso : casos)
    {
        QWidget* conFoco = caso.campo == horas.lineEdit() ? static_cast<QWidget*>(&horas) : caso.campo;
        conFoco->setFocus();
        caso.campo->clear();
        escribir(QString::fromLatin1(caso.teclas));
        if (*caso.pegado != '\0')
        {
            pegar(QString::fromLatin1(caso.pegado));
        }
        EXPECT_EQ(caso.campo->text().toStdString(), caso.queda) << caso.teclas << caso.pegado;
    }
    importe.setText(QStringLiteral("1.234,50")); // the program's own text stands
    EXPECT_EQ(importe.text(), QStringLiteral("1.234,50"));
    digitos.setReadOnly(true);
    digitos.setText(QStringLiteral("1"));
    digitos.setFocus();
    pegar(QStringLiteral("22"));
    EXPECT_EQ(digitos.text(), QStringLiteral("1"));
}

TEST_F(Campos, OtrosCaminosDelTextoSeFiltranTambien)
{
    digitos.setFocus();
    QInputMethodEvent letra;
    letra.setCommitString(QStringLiteral("á"));
    QCoreApplication::sendEvent(&digitos, &letra);
    EXPECT_EQ(digitos.text(), QString());
    QInputMethodEvent numero;
    numero.setCommitString(QStringLiteral("7"));
    QCoreApplication::sendEvent(&digitos, &numero);
    EXPECT_EQ(digitos.text(), QStringLiteral("7"));

    digitos.clear();
    QApplication::clipboard()->setText(QStringLiteral("1.2.3"));
    QTimer::singleShot(0, &digitos,
                       []
                       {
                           auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
                           ASSERT_NE(menu, nullptr);
                           tecla(Qt::Key_P); // Pegar
                           menu->close();
                       });
    QContextMenuEvent derecho(QContextMenuEvent::Mouse, QPoint(4, 4), digitos.mapToGlobal(QPoint(4, 4)));
    QCoreApplication::sendEvent(&digitos, &derecho);
    EXPECT_EQ(digitos.text(), QStringLiteral("123"));
}
