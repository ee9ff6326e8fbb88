// What leaves the printer: the bars as a scanner reads them, and the words beside them.
#include "apoyo/datos.h"
#include "apoyo/hojas.h"
#include "apoyo/rutas.h"
#include "boletas_de_prueba.h"
#include "slips/datos_boleta.h"
#include "slips/numero_boleta.h"
#include "ui/report/fuentes.h"
#include "ui/report/informe_vista.h"

#include <QPainter>
#include <QRegularExpression>
#include <gtest/gtest.h>
#include <random>
#include <set>

using namespace dePrueba;

namespace
{
struct BoletaImpresa : testing::Test
{
    BaseDePrueba base;
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
        textos.numero = numeroBoleta(boleta);
        const QString archivo = QString("RptBoleta%1.rpt").arg(static_cast<int>(boleta.tipo));
        auto plantilla = PlantillaDeInforme::leer(rutas::enInstalacion(archivo));
        auto datos = DatosDeInforme::leer(plantilla, base.conexion(), valoresDeBoleta(base.conexion(), boleta, textos));
        return {std::move(plantilla), std::move(datos)};
    }
    [[nodiscard]] QString pdf(const Boleta& boleta)
    {
        VistaDeInforme(paginas(boleta)).guardarPdf(base.ruta("boleta.pdf"));
        return base.ruta("boleta.pdf");
    }
    /// The text of its only page.
    [[nodiscard]] QString hoja(const Boleta& boleta)
    {
        const QStringList hojas = hojas::textos(pdf(boleta));
        EXPECT_EQ(hojas.size(), 1);
        return hojas.value(0);
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

/// A made-up slip whose values fit their places.
Boleta alAzar(Boleta boleta, std::mt19937& azar)
{
    const auto hasta = [&](int maximo) { return static_cast<int>(azar() % static_cast<unsigned>(maximo + 1)); };
    const auto importe = [&](int centavos) { return Moneda::deDiezMilesimos(qint64{hasta(centavos)} * 100); };
    boleta.cuit = QString("30-%1-%2").arg(hasta(99999999), 8, 10, QChar('0')).arg(hasta(9));
    boleta.declaracion.periodo = QDate(2000 + hasta(99), 1 + hasta(11), 1);
    boleta.importeTotal = importe(99'999'999);
    boleta.art100 = importe(900'000'000); // scaled for the number past 99.999,99
    boleta.art101A = importe(9'999'999);
    boleta.dias = hasta(99);
    boleta.nroActa = hasta(999'999);
    boleta.importeActa = importe(99'999'999);
    boleta.cantidadEmpleados = hasta(999);
    return boleta;
}
} // namespace

TEST_F(BoletaImpresa, UnLectorLeeElNumeroDeCadaUna)
{
    QStringList numeros;
    QStringList imagenes;
    const Boleta tipos[] = {boletaDeAportes(), boletaDeInteres(), boletaDeActa()};
    std::mt19937 azar(20090610);
    for (int i = 0; i < 36; ++i)
    {
        const Boleta boleta = alAzar(tipos[i % 3], azar);
        base.conexion().ejecutar("UPDATE DDJJ_Empleados SET Cuit = ?, Periodo = ?", boleta.cuit,
                                 boleta.declaracion.periodo);
        numeros.append(numeroBoleta(boleta));
        imagenes.append(base.ruta(QString("%1.pgm").arg(imagenes.size(), 4, 10, QChar('0'))));
        ASSERT_TRUE(trozo(paginas(boleta), 45, 98, 200).save(imagenes.back()));
    }
    EXPECT_EQ(escanear(imagenes), numeros);

    const QString hoja = base.ruta("hoja");
    (void)hojas::correr("pdftoppm", {"-r", "150", "-gray", "-singlefile", pdf(boletaDeActa()), hoja});
    EXPECT_EQ(escanear({hoja + ".pgm"}), QStringList{numeroBoleta(boletaDeActa())}) << "from paper";
}

TEST_F(BoletaImpresa, LasBarrasTienenSuTamanoYSuMargenEnLosTresTipos)
{
    constexpr double mm = 25.4 / 600;
    std::set<int> lugares;
    for (const Boleta& boleta : {boletaDeActa(), boletaDeAportes(), boletaDeInteres()})
    {
        const QImage imagen = trozo(paginas(boleta), 6, 100, 600);
        const auto oscuro = [&](int x, int y) { return qGray(imagen.pixel(x, y)) < 128; };
        // The first bar is the only thing on the left of the slip that is dark over more than 10 mm.
        int alto = 0;
        int x = 0;
        int abajo = 0;
        for (; x < imagen.width() && alto * mm < 10; ++x)
        {
            alto = 0;
            for (int y = 0, corrido = 0; y < imagen.height(); ++y)
            {
                corrido = oscuro(x, y) ? corrido + 1 : 0;
                abajo = corrido > alto ? y : abajo;
                alto = std::max(alto, corrido);
            }
        }
        lugares.insert(abajo - alto);
        EXPECT_GE(alto * mm, 13);
        QString linea; // across the middle of the bars: "1" is dark
        for (int columna = 0; columna < imagen.width(); ++columna)
        {
            linea += oscuro(columna, abajo - alto / 2) ? QChar('1') : QChar('0');
        }
        EXPECT_NEAR(static_cast<double>(linea.indexOf(QChar('0'), x) - x + 1) * mm, 0.339, mm) << "a narrow bar";
        const qsizetype derecha = linea.lastIndexOf(QChar('1'));
        EXPECT_EQ(linea.indexOf(QChar('1')), x - 1) << "nothing before the bars";
        EXPECT_GT(x * mm, 6.5);
        EXPECT_GT(static_cast<double>(linea.size() - derecha) * mm, 6.5);
    }
    EXPECT_EQ(lugares.size(), 1U) << "they stand where they stand on the other kinds";
}

TEST_F(BoletaImpresa, LaHojaDiceLoQueSePagaEnSusTresTalones)
{
    const std::pair<Boleta, QStringList> casos[] = {
        {boletaDeAportes(),
         {"BOLETA DE PAGO - APORTE MENSUAL", "2009/05 - 1", "Otros conceptos INTERES 15 DIAS $ 1,50",
          "Aporte Sindical 2% 1 empleado Remuneración $ 1.000,00 $ 20,01",
          "Turismo y Recreación 1% 1 afiliado Remuneración $ 1.000,00 $ 10,02",
          "Seguro Sepelio 1% 1 afiliado Remuneración $ 1.000,00 $ 10,03", "Total a Depositar $ 41,56"}},
        {boletaDeInteres(),
         {"BOLETA DE PAGO - INTERES APORTE", "2009/05 - 1", "INTERES 15 DIAS $ 1.234,50", "Depositar $ 1.234,50"}},
        {boletaDeActa(),
         {"BOLETA DE PAGO - PAGO DE ACTAS", "ACTA Nº 123456 - CUOTA Nº 3", "INTERES 15 DIAS $ 100,25",
          "PAGO DE ACTAS - SEGURO DE SEPELIO $ 1.000,00", "Total a Depositar $ 1.100,25"}},
    };
    for (const auto& [boleta, renglones] : casos)
    {
        const QString texto = hoja(boleta);
        for (const QString& renglon : renglones + QStringList{textos.empresa, boleta.cuit, textos.numero,
                                                              "Fecha de pago 10/06/2009", "Altoverde - Versión 2.0"})
        {
            EXPECT_EQ(texto.count(renglon), 3) << renglon.toStdString();
        }
        for (const char* talon : {"TALÓN PARA EL BANCO", "TALÓN PARA EL EMPLEADOR", "TALÓN PARA B.R.I.V.O."})
        {
            EXPECT_EQ(texto.count(talon), 1) << talon;
        }
        EXPECT_EQ(texto.count(StrToI2of5(textos.numero, false)), 2) << "bars for bank and union";
        static const QRegularExpression numeroEntero("(?<!\\d)\\d{50}(?!\\d)");
        EXPECT_EQ(texto.count(numeroEntero), 3) << "nothing runs into the number";

        textos.hayFuente = false;
        const QString sinFuente = hoja(boleta);
        EXPECT_EQ(sinFuente.count(StrToI2of5(textos.numero, false)), 0);
        EXPECT_EQ(sinFuente.count("falta el archivo PF_I2OF5.ttf"), 2);
        textos.hayFuente = true;
    }
}

TEST_F(BoletaImpresa, LaMasLargaQuedaEnUnaHoja)
{
    poner("DDJJ_Empleados", {{"Secuencia", 1}, {"Cuil", "20-2"}, {"Imponible", "99999999999,99"}});
    textos.empresa = QString(45, QChar('W'));
    for (Boleta boleta : {boletaDeAportes(), boletaDeInteres(), boletaDeActa()})
    {
        SCOPED_TRACE(static_cast<int>(boleta.tipo));
        boleta.art100 = boleta.art101A = boleta.art101B = boleta.interes = boleta.importeTotal = boleta.importeActa =
            pesos("9999999999,99"); // past its places: the number grows
        const QString texto = hoja(boleta);
        const bool aportes = boleta.tipo == TipoBoleta::Aportes;
        const int importes = aportes ? 15 : boleta.tipo == TipoBoleta::Acta ? 9 : 6;
        EXPECT_EQ(texto.count("$ 9.999.999.999,99"), importes);
        EXPECT_EQ(texto.count(" Remuneración $ 100.000.000.999,99"), aportes ? 9 : 0);
        EXPECT_EQ(texto.count(textos.numero + " Altoverde - Versión 2.0"), 3);
    }
}
