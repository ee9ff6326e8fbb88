#include "ui/fields/campo_mascara.h"

#include "apoyo/entrada.h"

#include <QtWidgets>
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
        jugar("Ctrl+V");
    }
    /// What stays after it was set by program, and after it was pasted into a full field: there a whole value replaces
    /// what is there, wherever the cursor is.
    static QString puestoYPegado(CampoMascara& campo, const char* texto)
    {
        campo.setText(texto);
        const QString puesto = campo.text();
        campo.setFocus();
        campo.setText("11111111111");
        campo.setCursorPosition(4);
        pegar(texto);
        return puesto == campo.text() ? puesto : puesto + ' ' + campo.text();
    }
    /// What the field of the CUIT shows after these keys, with what is marked of it in brackets.
    QString cuitTras(const char* gestos)
    {
        jugar(gestos);
        return cuit.hasSelectedText() ? '[' + cuit.selectedText() + ']' : cuit.text();
    }
    /// What a field that was empty takes of these letters, and then of a text pasted.
    static QString filtrado(QWidget& campo, const char* teclas, const char* pegado)
    {
        campo.setFocus();
        jugar("Ctrl+A Del");
        escribir(teclas);
        pegar(pegado);
        return campo.property("text").toString() + campo.property("currentText").toString();
    }

    QWidget ventana;
    QLineEdit primero, digitos, importe;
    CampoMascara cuit, fecha;
    QComboBox horas;
};
} // namespace

TEST_F(Campos, LaMascaraPorProgramaYPegada)
{
    EXPECT_EQ("20-12345678-6", puestoYPegado(cuit, "20123456786"));
    EXPECT_EQ("20-12345678-6", puestoYPegado(cuit, "CUIT: 20 12345678 6\n"));
    EXPECT_EQ("2_-12______-6 11-12126111-1", puestoYPegado(cuit, "2_-12______-6"));
    EXPECT_EQ("20-________-_ 11-12011111-1", puestoYPegado(cuit, "20-abc"));
    EXPECT_EQ("__-________-_ 11-11111111-1", puestoYPegado(cuit, ""));
    EXPECT_EQ("25/12/1970", puestoYPegado(fecha, "25/12/1970"));
    EXPECT_EQ("25/12/1970", puestoYPegado(fecha, "25-12-1970"));
    EXPECT_EQ("25/12/70__", puestoYPegado(fecha, "25/12/70"));
    EXPECT_EQ("_5/12/____ 11/15/1211", puestoYPegado(fecha, "_5/12/____"));
    EXPECT_EQ("1_/2_/1970 01/02/1970", puestoYPegado(fecha, "1/2/1970"));
    EXPECT_EQ("__/__/____ 11/11/1111", puestoYPegado(fecha, "navidad"));
    fecha.setFecha(QDate(2024, 2, 29));
    EXPECT_EQ("29022024", fecha.soloDigitos());
    primero.setFocus();
    fecha.setMinimumWidth(200); // for the widest fonts
    asentar();
    QLineEdit comun("29-02-2024", &ventana); // what a field without a mask looks like
    comun.setGeometry(fecha.geometry());
    fecha.setFechaConGuiones(true);
    EXPECT_EQ(comun.grab().toImage(), fecha.grab().toImage());
    fecha.setFecha({});
    EXPECT_TRUE(fecha.vacio());
}

TEST_F(Campos, LasTeclasDeLaMascara)
{
    EXPECT_EQ("20-12345678-6", cuitTras("Tab 'a20b-1234/5678x69")); // full
    EXPECT_EQ("[20-12345678-6]", cuitTras("Backtab Tab"));
    primero.setFocus();
    pulsar(cuit);
    EXPECT_EQ("[20-12345678-6]", cuitTras(""));
    EXPECT_EQ("3_-________-_", cuitTras("'3"));
    pulsar(cuit, {cuit.width() - 8, cuit.height() / 2}); // a second click places the cursor, not among the blanks
    EXPECT_EQ("30-________-_", cuitTras("'0"));
    EXPECT_EQ("30-7_______-_", cuitTras("Home End '7")); // where the next digit is due
    EXPECT_EQ("30-________-_", cuitTras("Backspace"));
}

TEST_F(Campos, LosFiltrosDeTecladoYDePegado)
{
    EXPECT_EQ("1234", filtrado(digitos, "1a2.3-4", ""));
    EXPECT_EQ("12345678", filtrado(digitos, "", "DNI 12.345 678"));
    EXPECT_EQ("1,2", filtrado(importe, "a1.2b", ""));
    EXPECT_EQ("1.234,50", filtrado(importe, "", "$\u00A01.234,50\r\n"));
    for (const char* otro : {"-500,00", "(500,00)", "1500\t1600", "12/05/2009", "1 500", "$"})
    {
        EXPECT_EQ("7", filtrado(importe, "7", otro)) << otro;
    }
    EXPECT_EQ("150", filtrado(horas, "1h5x0", ""));
    EXPECT_EQ("200", filtrado(horas, "", "200 hs"));
    filtrado(digitos, "", "");
    for (const char* compuesto : {"á", "7"})
    {
        QInputMethodEvent metodo;
        metodo.setCommitString(compuesto);
        QCoreApplication::sendEvent(&digitos, &metodo);
    }
    EXPECT_EQ("7", digitos.text());
    QApplication::clipboard()->setText("1.2.3");
    QTimer::singleShot(0, &digitos, [] { jugar("P"); }); // "Pegar" of the menu below
    QContextMenuEvent derecho(QContextMenuEvent::Mouse, {4, 4}, digitos.mapToGlobal(QPoint(4, 4)));
    QCoreApplication::sendEvent(&digitos, &derecho);
    EXPECT_EQ("7123", digitos.text());
    activar(ventana);
    digitos.setReadOnly(true);
    pegar("22");
    EXPECT_EQ("7123", digitos.text());
}
