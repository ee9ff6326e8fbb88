// What leaves the printer: the bars as a scanner reads them, and the longest words beside them. The others are in
// scripts.
#include "apoyo/datos.h"
#include "apoyo/hojas.h"
#include "apoyo/rutas.h"
#include "boletas_de_prueba.h"
#include "slips/datos_boleta.h"
#include "slips/numero_boleta.h"
#include "ui/report/fuentes.h"
#include "ui/report/informe_vista.h"

#include <QPainter>
#include <gtest/gtest.h>
#include <set>

using namespace dePrueba;

namespace
{
struct BoletaImpresa : ConBase
{
    TextosDeBoleta textos{"Panadería y Confitería \"La Ñusta\" <S.R.L.> & D'An",
                          "Avenida del Libertador General 12345 12 3 B - (B1870ABC) Ñorquín de la Costa",
                          "PAGO DE ACTAS - SEGURO DE SEPELIO",
                          {},
                          "15",
                          "123456",
                          "3"};
    BoletaImpresa()
    {
        Fuentes::agregar(rutas::enInstalacion("PF_I2OF5.ttf"));
        poner("DDJJ_Empleados", {{"Secuencia", 1}});
    }
    [[nodiscard]] PaginasDeInforme paginas(const Boleta& boleta)
    {
        textos.numero = textos.numero.isEmpty() ? numeroBoleta(boleta) : textos.numero;
        auto plantilla = PlantillaDeInforme::leer(
            rutas::enInstalacion(QString("RptBoleta%1.rpt").arg(static_cast<int>(boleta.tipo))));
        auto datos = DatosDeInforme::leer(plantilla, base.conexion(), valoresDeBoleta(base.conexion(), boleta, textos));
        return {std::move(plantilla), std::move(datos)};
    }
    /// Its only page as a PDF.
    [[nodiscard]] QString pdf(const Boleta& boleta)
    {
        textos.numero.clear();
        VistaDeInforme(paginas(boleta)).guardarPdf(base.ruta("boleta.pdf"));
        EXPECT_EQ(hojas::textos(base.ruta("boleta.pdf")).size(), 1);
        return base.ruta("boleta.pdf");
    }
};

QStringList escanear(const QStringList& imagenes)
{
    const QStringList opciones{"--nodbus", "-q", "--raw", "-Sdisable", "-Si25.enable"};
    return hojas::correr("zbarimg", opciones + imagenes).split('\n', Qt::SkipEmptyParts);
}

/// A part of the page, in mm from its top, as a scanner sees it at this many dots per inch.
QImage trozo(const PaginasDeInforme& paginas, double desde, double hasta, double dpi)
{
    QImage imagen(qRound(210 / 25.4 * dpi), qRound((hasta - desde) / 25.4 * dpi), QImage::Format_Grayscale8);
    imagen.fill(Qt::white);
    QPainter pintor(&imagen);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.translate(0, -desde / 25.4 * dpi);
    pintor.scale(dpi / 72, dpi / 72);
    paginas.pintar(pintor, 0);
    return imagen;
}

} // namespace

TEST_F(BoletaImpresa, UnLectorLeeCadaParDeCifrasYTambienDelPapel)
{
    QStringList numeros;
    QStringList imagenes;
    for (int i = 0; i < 4; ++i)
    {
        textos.numero.clear();
        for (int par = 25 * i; par < 25 * i + 25; ++par)
        {
            textos.numero += QString("%1").arg(par, 2, 10, QChar('0'));
        }
        numeros.append(textos.numero);
        imagenes.append(base.ruta(QString("%1.pgm").arg(i)));
        ASSERT_TRUE(trozo(paginas(boletaDe(tipos[i % 3])), 45, 98, 200).save(imagenes.back()));
    }
    EXPECT_EQ(escanear(imagenes), numeros);
    const QString hoja = base.ruta("hoja");
    (void)hojas::correr("pdftoppm", {"-r", "150", "-gray", "-singlefile", pdf(boletaDe(TipoBoleta::Acta)), hoja});
    EXPECT_EQ(escanear({hoja + ".pgm"}), QStringList{textos.numero}) << "from paper";
}

TEST_F(BoletaImpresa, LasBarrasTienenSuTamanoYSuMargenEnLosTresTipos)
{
    constexpr double mm = 25.4 / 600;
    std::set<int> lugares;
    for (const TipoBoleta tipo : tipos)
    {
        const QImage imagen = trozo(paginas(boletaDe(tipo)), 6, 100, 600);
        const auto oscuro = [&](int x, int y) { return qGray(imagen.pixel(x, y)) < 128; };
        const int medio = qRound(72 / mm); // across the bars: "1" is dark
        QString linea;
        for (int x = 0; x < imagen.width(); ++x)
        {
            linea += oscuro(x, medio) ? QChar('1') : QChar('0');
        }
        const auto x = static_cast<int>(linea.indexOf(QChar('1')));
        int arriba = medio;
        int abajo = medio;
        for (; oscuro(x, arriba - 1); --arriba)
        {
        }
        for (; oscuro(x, abajo); ++abajo)
        {
        }
        lugares.insert(arriba);
        EXPECT_GE((abajo - arriba) * mm, 13);
        EXPECT_NEAR(static_cast<double>(linea.indexOf(QChar('0'), x) - x) * mm, 0.339, mm) << "a narrow bar";
        EXPECT_GT(x * mm, 6.5) << "nothing before the bars";
        EXPECT_GT(static_cast<double>(linea.size() - linea.lastIndexOf(QChar('1'))) * mm, 6.5);
        textos.numero.clear();
    }
    EXPECT_EQ(lugares.size(), 1U) << "they stand where they stand on the other kinds";
}

TEST_F(BoletaImpresa, LaMasLargaQuedaEnUnaHoja)
{
    poner("DDJJ_Empleados", {{"Secuencia", 1}, {"Cuil", "20-2"}, {"Imponible", "99999999999,99"}});
    textos.empresa = QString(45, QChar('W'));
    const std::tuple<TipoBoleta, int, int> casos[] = {
        {TipoBoleta::Aportes, 15, 9}, {TipoBoleta::Interes, 6, 0}, {TipoBoleta::Acta, 9, 0}};
    for (const auto& [tipo, importes, remuneraciones] : casos)
    {
        Boleta boleta = boletaDe(tipo);
        boleta.art100 = boleta.art101A = boleta.art101B = boleta.interes = boleta.importeTotal = boleta.importeActa =
            pesos("9999999999,99"); // past its places: the number grows
        const QString texto = hojas::textos(pdf(boleta))[0];
        EXPECT_EQ(texto.count("$ 9.999.999.999,99"), importes);
        EXPECT_EQ(texto.count(" Remuneración $ 100.000.000.999,99"), remuneraciones);
        EXPECT_EQ(texto.count(textos.numero + " Altoverde - Versión 2.0"), 3);
    }
}
