// What holds for every field: letters in lists and grids, and texts that do not fit.
#include "apoyo/entrada.h"
#include "ui/doors/anuncio.h"
#include "ui/fields/reglas_de_campos.h"
#include "ui/grid/grilla.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHBoxLayout>
#include <QLineEdit>
#include <functional>
#include <gtest/gtest.h>

namespace
{
struct ReglasComunes : testing::Test
{
    ReglasComunes()
    {
        ReglasDeCampos::aplicar();
        reemplazarAnuncios([this](const QString& dicho) { anuncios += dicho; });
        auto* fila = new QHBoxLayout(&ventana);
        for (QWidget* control : std::initializer_list<QWidget*>{texto, lista, grilla})
        {
            fila->addWidget(control);
        }
        grilla->setColumnas({{.titulo = QStringLiteral("Provincia")}});
        grilla->cargar(std::vector<QString>(provincias.begin(), provincias.end()),
                       [](const QString& nombre) { return FilaDeGrilla{nombre}; });
        lista->addItems(provincias);
        Entrada::activar(ventana);
    }
    ~ReglasComunes() override { reemplazarAnuncios({}); }

    /// The letters of one search follow each other within a second: where the machine stalls, they are typed anew.
    static void deCorrido(const std::function<void()>& teclear)
    {
        constexpr int veces = 20;
        QElapsedTimer reloj;
        for (int vez = 0; vez == 0 || (vez < veces && reloj.elapsed() > 900); ++vez)
        {
            reloj.start();
            teclear();
        }
    }

    const QStringList provincias{"Catamarca", "Corrientes", "Córdoba", "San Juan", "San Luis", "Santa Fe"};
    QWidget ventana;
    QLineEdit* texto = new QLineEdit;
    QComboBox* lista = new QComboBox;
    Grilla* grilla = new Grilla;
    QStringList anuncios;
};

TEST_F(ReglasComunes, LasLetrasHallanSinAcentosYLaQueNoHallaDejaComoEstaba)
{
    const std::tuple<const char*, const char*, int> casos[] = {
        {"'cordoba", "Córdoba", 0}, {"'CORR", "Corrientes", 0}, {"'cordx", "Santa Fe", 1},
        {"'cordxs", "Santa Fe", 2}, {"'ccc", "Córdoba", 0},     {"'cord Esc 's", "San Juan", 0},
        {"'x", "Santa Fe", 1},
    };
    for (const auto& [tecleado, elegido, cuantos] : casos)
    {
        for (const bool enGrilla : {false, true})
        {
            deCorrido(
                [&, teclas = QString(tecleado)]
                {
                    anuncios.clear();
                    texto->setFocus();
                    lista->setCurrentText("Santa Fe");
                    grilla->setFilaActual(6);
                    enGrilla ? grilla->setFocus() : lista->setFocus();
                    Entrada::jugar(teclas);
                });
            EXPECT_EQ(enGrilla ? grilla->texto(1, grilla->filaActual()) : lista->currentText(), elegido) << tecleado;
            EXPECT_EQ(anuncios.size(), cuantos) << tecleado;
        }
    }
    deCorrido(
        [this]
        {
            lista->hidePopup();
            texto->setFocus();
            lista->setFocus();
            Entrada::escribir("san "); // a blank opens the list only where no search is under way
            Entrada::tecla(Qt::Key_Shift);
            Entrada::escribir("L");
        });
    EXPECT_EQ(lista->currentText(), "San Luis");
    deCorrido(
        [this]
        {
            lista->setCurrentText("San Luis");
            Entrada::jugar("Alt+Down 'cor Return"); // in the open list
        });
    EXPECT_EQ(lista->currentText(), "Corrientes");
}

TEST_F(ReglasComunes, ElTextoQueNoEntraSeDice)
{
    texto->setMaxLength(3);
    texto->setFocus();
    Entrada::escribir("abc");
    EXPECT_TRUE(anuncios.isEmpty());
    Entrada::escribir("d");
    EXPECT_EQ(anuncios.join('|'), "No entra más texto: 3/3");
}

TEST_F(ReglasComunes, LoPegadoQuedaEnUnRenglon)
{
    QStringList editados;
    QObject::connect(texto, &QLineEdit::textEdited, &ventana, [&](const QString& nuevo) { editados += nuevo; });
    texto->setText("ANA");
    texto->setCursorPosition(0);
    texto->setFocus();
    QApplication::clipboard()->setText("GOMEZ\tLUIS\n");
    Entrada::jugar("Ctrl+V");
    EXPECT_EQ(texto->text(), "GOMEZ LUIS ANA");
    QApplication::clipboard()->setText("DIAZ\r\n");
    Entrada::jugar("Ctrl+A Ctrl+V");
    EXPECT_EQ(texto->text(), "DIAZ");
    EXPECT_EQ(editados.join(u'|'), "GOMEZ LUIS ANA|DIAZ");
}
} // namespace
