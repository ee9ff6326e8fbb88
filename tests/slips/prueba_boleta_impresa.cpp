// What leaves the printer: the bars as a scanner reads them, and the words beside them.
#include "apoyo/rutas.h"
#include "boletas_de_prueba.h"
#include "platform/data/formato.h"
#include "platform/screens/fuentes.h"
#include "platform/screens/informe_vista.h"
#include "slips/datos_boleta.h"
#include "slips/numero_boleta.h"
#include "slips/pagos.h"

#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <algorithm>
#include <gtest/gtest.h>
#include <random>

using namespace dePrueba;

namespace
{
const QString instalacion = rutas::enInstalacion(QString());

QString correr(const QString& programa, const QStringList& argumentos)
{
    QProcess proceso;
    proceso.start(programa, argumentos);
    const bool termino = proceso.waitForFinished(120'000);
    EXPECT_TRUE(termino && proceso.exitStatus() == QProcess::NormalExit && proceso.exitCode() == 0)
        << programa.toStdString() << ' ' << argumentos.join(QLatin1Char(' ')).left(200).toStdString() << ": "
        << proceso.errorString().toStdString() << proceso.readAllStandardError().toStdString();
    return QString::fromUtf8(proceso.readAllStandardOutput());
}

QStringList escanear(const QStringList& imagenes)
{
    return correr(QStringLiteral("zbarimg"),
                  QStringList{QStringLiteral("--nodbus"), QStringLiteral("-q"), QStringLiteral("--raw"),
                              QStringLiteral("-Sdisable"), QStringLiteral("-Si25.enable")} +
                      imagenes)
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

struct BoletaImpresa : testing::Test
{
    BaseDePrueba base;
    QTemporaryDir carpeta;
    std::shared_ptr<Fuentes::Agregada> fuente = Fuentes::agregar(instalacion + QStringLiteral("PF_I2OF5.ttf"));
    TextosDeBoleta textos{
        QStringLiteral("Panadería y Confitería \"La Ñusta\" <S.R.L.> & D'An"),
        QStringLiteral("Avenida del Libertador General 12345 12 3 B - (B1870ABC) Ñorquín de la Costa"),
        QStringLiteral("PAGO DE ACTAS - SEGURO DE SEPELIO"),
        {},
        QStringLiteral("15"),
        QStringLiteral("123456"),
        QStringLiteral("3")};

    void SetUp() override
    {
        ASSERT_NE(fuente, nullptr);
        agregar(base.conexion(), EmpleadoDePrueba{.secuencia = 1});
    }
    [[nodiscard]] PaginasDeInforme paginas(const Boleta& boleta)
    {
        textos.numero = numeroBoleta(boleta);
        auto plantilla = PlantillaDeInforme::leer(instalacion +
                                                  QStringLiteral("RptBoleta%1.rpt").arg(static_cast<int>(boleta.tipo)));
        auto datos = DatosDeInforme::leer(plantilla, base.rutaBase(), valoresDeBoleta(base.conexion(), boleta, textos));
        return {std::move(plantilla), std::move(datos)};
    }
    [[nodiscard]] QString ruta(const QString& nombre) const { return carpeta.filePath(nombre); }
    /// The text of its page, blanks run together.
    [[nodiscard]] QString hoja(const Boleta& boleta)
    {
        return correr(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf(boleta), QStringLiteral("-")})
            .simplified();
    }
    [[nodiscard]] QString pdf(const Boleta& boleta)
    {
        const QString destino = ruta(QStringLiteral("boleta%1.pdf").arg(static_cast<int>(boleta.tipo)));
        VistaDeInforme(paginas(boleta)).guardarPdf(destino);
        return destino;
    }
};

/// A part of the page, in mm from its top, as a scanner sees it at this many dots per inch.
QImage trozo(const PaginasDeInforme& paginas, double desde, double hasta, double dpi)
{
    const double punto = dpi / 72;
    QImage imagen(qRound(210 / 25.4 * dpi), qRound((hasta - desde) / 25.4 * dpi), QImage::Format_Grayscale8);
    imagen.fill(Qt::white);
    QPainter pintor(&imagen);
    pintor.setRenderHint(QPainter::Antialiasing);
    pintor.translate(0, -desde / 25.4 * dpi);
    pintor.scale(punto, punto);
    paginas.pintar(pintor, 0);
    return imagen;
}

/// Made-up slips of all kinds whose values fit their places, always the same.
std::vector<Boleta> alAzar(int cuantas)
{
    std::mt19937 azar(20090610);
    const auto hasta = [&](int maximo) { return static_cast<int>(azar() % static_cast<unsigned>(maximo + 1)); };
    const auto importe = [&](int enteros)
    { return Moneda::deDiezMilesimos((qint64{hasta(enteros)} * 100 + hasta(99)) * 100); };
    std::vector<Boleta> boletas;
    for (int i = 0; i < cuantas; ++i)
    {
        Boleta boleta = i % 3 == 0 ? boletaDeAportes() : i % 3 == 1 ? boletaDeInteres() : boletaDeActa();
        boleta.cuit =
            QStringLiteral("%1-%2-%3").arg(20 + hasta(14)).arg(hasta(99999999), 8, 10, QLatin1Char('0')).arg(hasta(9));
        boleta.declaracion.periodo = QDate(2000 + hasta(99), 1 + hasta(11), 1);
        boleta.declaracion.secuencia = hasta(9);
        boleta.importeTotal = importe(999'999);
        boleta.art100 = importe(hasta(1) == 0 ? 99'999 : 9'000'000); // scaled for the number past 99.999,99
        boleta.art101A = importe(hasta(1) == 0 ? 99'999 : 9'000'000);
        boleta.dias = hasta(99);
        boleta.nroActa = hasta(999'999);
        boleta.cuota = hasta(99);
        boleta.cuenta = hasta(1);
        boleta.importeActa = importe(999'999);
        boleta.cantidadEmpleados = hasta(999);
        boleta.cantidadAfiliados = hasta(999);
        boletas.push_back(boleta);
    }
    return boletas;
}

/// The digits that the text of the font stands for.
QString digitosDe(const QString& barras)
{
    QString digitos;
    for (const QChar c : barras.mid(1, barras.size() - 2))
    {
        const int codigo = c.unicode();
        digitos += QStringLiteral("%1").arg(codigo < 192 ? codigo - 48 : codigo - 142, 2, 10, QLatin1Char('0'));
    }
    return digitos;
}

/// Wide ("1") and narrow elements of the only bars on a line of pixels; `ancho` pixels divide the two.
QString elementos(const QImage& imagen, int y, int ancho)
{
    QString leidos;
    int largo = 0;
    bool oscuro = false;
    for (int x = 0; x < imagen.width(); ++x)
    {
        const bool ahora = qGray(imagen.pixel(x, y)) < 128;
        if (ahora != oscuro)
        {
            leidos +=
                oscuro || !leidos.isEmpty() ? (largo > ancho ? QStringLiteral("1") : QStringLiteral("0")) : QString();
            largo = 0;
            oscuro = ahora;
        }
        ++largo;
    }
    return leidos;
}

QString elementosDeZint(const QString& digitos)
{
    const QString hexa = correr(QStringLiteral("zint"), {QStringLiteral("-b"), QStringLiteral("C25INTER"),
                                                         QStringLiteral("-d"), digitos, QStringLiteral("--dump")});
    QString bits;
    for (const QChar c : hexa)
    {
        const QString cifra(c);
        bool esHexa = false;
        const int valor = cifra.toInt(&esHexa, 16);
        bits += esHexa ? QStringLiteral("%1").arg(valor, 4, 2, QLatin1Char('0')) : QString();
    }
    while (bits.endsWith(QLatin1Char('0')))
    {
        bits.chop(1);
    }
    QString leidos;
    for (qsizetype i = 0; i < bits.size();)
    {
        qsizetype fin = i;
        while (fin < bits.size() && bits[fin] == bits[i])
        {
            ++fin;
        }
        leidos += fin - i > 1 ? QLatin1Char('1') : QLatin1Char('0');
        i = fin;
    }
    return leidos;
}
} // namespace

TEST_F(BoletaImpresa, TwoHundredSlipsAreReadAsTheirNumbers)
{
    QStringList numeros;
    QStringList imagenes;
    for (const Boleta& boleta : alAzar(210))
    {
        const QString numero = numeroBoleta(boleta);
        ASSERT_EQ(numero.size(), 50);
        EXPECT_EQ(digitosDe(StrToI2of5(numero, false)), numero);
        base.conexion().ejecutar("UPDATE DDJJ_Empleados SET Cuit = ?, Periodo = ?, Secuencia = ?", boleta.cuit,
                                 boleta.declaracion.periodo, boleta.declaracion.secuencia);
        const PaginasDeInforme hojas = paginas(boleta);
        ASSERT_EQ(hojas.cantidad(), 1);
        numeros.append(numero);
        imagenes.append(ruta(QStringLiteral("%1.pgm").arg(imagenes.size(), 4, 10, QLatin1Char('0'))));
        ASSERT_TRUE(trozo(hojas, 45, 98, 200).save(imagenes.back()));
    }
    EXPECT_EQ(escanear(imagenes), numeros);
}

TEST_F(BoletaImpresa, EachKindIsReadFromItsPdfAlsoAskewAndMadeSmaller)
{
    for (const Boleta& boleta : {boletaDeAportes(), boletaDeInteres(), boletaDeActa()})
    {
        const QString numero = numeroBoleta(boleta);
        const QString archivo = pdf(boleta);
        for (const int dpi : {150, 200, 300})
        {
            const QString hojaA = ruta(QStringLiteral("hoja%1").arg(dpi));
            (void)correr(QStringLiteral("pdftoppm"),
                         {QStringLiteral("-r"), QString::number(dpi), QStringLiteral("-gray"),
                          QStringLiteral("-singlefile"), archivo, hojaA});
            EXPECT_EQ(escanear({hojaA + QStringLiteral(".pgm")}), QStringList{numero}) << dpi;
        }
        const QString hoja = ruta(QStringLiteral("hoja300.pgm"));
        const QString torcida = ruta(QStringLiteral("torcida.png"));
        (void)correr(QStringLiteral("convert"), {hoja, QStringLiteral("-rotate"), QStringLiteral("1"), torcida});
        EXPECT_TRUE(escanear({torcida}).contains(numero));
        const QString chica = ruta(QStringLiteral("chica.png"));
        (void)correr(QStringLiteral("convert"), {hoja, QStringLiteral("-resize"), QStringLiteral("90%"), chica});
        EXPECT_EQ(escanear({chica}), QStringList{numero});
    }
}

TEST_F(BoletaImpresa, EveryPairIsDrawnWithTheBarsOfTheStandard)
{
    constexpr int dpi = 600;
    for (int primero = 0; primero < 100; primero += 25)
    {
        QString digitos;
        for (int par = primero; par < primero + 25; ++par)
        {
            digitos += QStringLiteral("%1").arg(par, 2, 10, QLatin1Char('0'));
        }
        QImage imagen(4000, 400, QImage::Format_Grayscale8);
        imagen.setDotsPerMeterX(qRound(dpi / 0.0254));
        imagen.setDotsPerMeterY(qRound(dpi / 0.0254));
        imagen.fill(Qt::white);
        QPainter pintor(&imagen);
        pintor.setFont(QFont(QStringLiteral("PF Interleaved 2 of 5"), 24));
        pintor.drawText(100, 380, StrToI2of5(digitos, false));
        pintor.end();
        EXPECT_EQ(elementos(imagen, 200, 14), elementosDeZint(digitos)) << digitos.toStdString();
    }
}

TEST_F(BoletaImpresa, TheBarsHaveTheirSizeAndQuietZones)
{
    constexpr double dpi = 600;
    constexpr double mm = 25.4 / dpi;
    const QImage imagen = trozo(paginas(boletaDeActa()), 6, 100, dpi).convertToFormat(QImage::Format_Grayscale8);
    const auto oscuro = [&](int x, int y) { return qGray(imagen.pixel(x, y)) < 128; };
    const auto vacia = [&](int y, int desde, int hasta)
    {
        for (int x = desde; x < hasta; ++x)
        {
            if (oscuro(x, y))
            {
                return false;
            }
        }
        return true;
    };
    // The start pattern is a line of 8 dots that no other part of the slip has: its bar is dark over 13 mm.
    int alto = 0;
    int abajo = 0;
    int izquierda = 0;
    for (int x = 0; x < imagen.width() && alto == 0; ++x)
    {
        int corrido = 0;
        for (int y = 0; y < imagen.height(); ++y)
        {
            corrido = oscuro(x, y) ? corrido + 1 : 0;
            if (corrido > alto && corrido * mm > 10)
            {
                alto = corrido;
                abajo = y;
                izquierda = x;
            }
        }
    }
    EXPECT_GE(alto * mm, 13);
    const int medio = abajo - alto / 2;
    int derecha = imagen.width() - 1;
    while (derecha > izquierda && !oscuro(derecha, medio))
    {
        --derecha;
    }
    int angosta = 0;
    while (oscuro(izquierda + angosta, medio))
    {
        ++angosta;
    }
    EXPECT_NEAR(angosta * mm, 0.339, mm);
    const int quieto = static_cast<int>(6.5 / mm);
    for (int y = abajo - alto + 1; y <= abajo; ++y)
    {
        ASSERT_TRUE(vacia(y, izquierda - quieto, izquierda) && vacia(y, derecha + 1, derecha + quieto)) << y;
    }
    // They stand where they stand on the other kinds.
    for (const Boleta& otra : {boletaDeAportes(), boletaDeInteres()})
    {
        const QImage suya = trozo(paginas(otra), 6, 100, dpi);
        for (const auto& [y, negra] :
             {std::pair(abajo - alto, false), {abajo - alto + 2, true}, {abajo - 1, true}, {abajo + 2, false}})
        {
            EXPECT_EQ(qGray(suya.pixel(izquierda + 2, y)) < 128, negra) << static_cast<int>(otra.tipo) << ' ' << y;
        }
    }
}

TEST_F(BoletaImpresa, ThePageSaysWhatTheRegisterHoldsAndTheNumberCarries)
{
    const struct
    {
        Boleta boleta;
        const char* tipoPago;
        QStringList renglones; // beside what all kinds say
    } casos[] = {
        {boletaDeAportes(),
         "APORTE MENSUAL",
         {QStringLiteral("2009/05 - 1"),
          QStringLiteral("Aporte Sindical 2% 1 empleado Remuneración $ 1.000,00 $ 20,01"),
          QStringLiteral("Turismo y Recreación 1% 1 afiliado Remuneración $ 1.000,00 $ 10,02"),
          QStringLiteral("Seguro Sepelio 1% 1 afiliado Remuneración $ 1.000,00 $ 10,03")}},
        {boletaDeInteres(), "INTERES APORTE", {QStringLiteral("2009/05 - 1")}},
        {boletaDeActa(),
         "PAGO DE ACTAS",
         {QStringLiteral("ACTA Nº 123456 - CUOTA Nº 3"),
          QStringLiteral("PAGO DE ACTAS - SEGURO DE SEPELIO $ 1.000,00")}},
    };
    for (const auto& caso : casos)
    {
        registrarPago(base.conexion(), caso.boleta);
        const Recordset filas =
            base.conexion().consultar("SELECT * FROM PAGOS WHERE Pago = ?", base.conexion().ultimoNumero());
        const Fila pago = filas.primera();
        const QString texto = hoja(caso.boleta);
        const QString numero = textos.numero;
        QStringList todos = caso.renglones;
        todos << QStringLiteral("BOLETA DE PAGO - ") + QString::fromLatin1(caso.tipoPago) << textos.empresa
              << pago.texto("Cuit") << numero
              << QStringLiteral("Otros conceptos INTERES %1 DIAS $ %2")
                     .arg(pago.texto("Dias"), Formato(pago.moneda("Interes"), u"#,##0.00"))
              << QStringLiteral("Total a Depositar $ ") + Formato(pago.moneda("Importe"), u"#,##0.00")
              << QStringLiteral("Fecha de pago ") + Formato(pago.fecha("Fecha"), u"DD/MM/YYYY")
              << QStringLiteral("Altoverde - Versión 2.0");
        for (const QString& renglon : todos)
        {
            EXPECT_EQ(texto.count(renglon), 3) << renglon.toStdString();
        }
        for (const char* talon : {"TALÓN PARA EL BANCO", "TALÓN PARA EL EMPLEADOR", "TALÓN PARA B.R.I.V.O."})
        {
            EXPECT_EQ(texto.count(QString::fromUtf8(talon)), 1) << talon;
        }
        EXPECT_EQ(texto.count(StrToI2of5(numero, false)), 2) << "bars for bank and union";
        static const QRegularExpression numeroEntero(QStringLiteral("(?<!\\d)\\d{50}(?!\\d)"));
        EXPECT_EQ(texto.count(numeroEntero), 3) << "nothing runs into the number";

        EXPECT_EQ(numero.mid(4, 8), Formato(pago.moneda("Importe"), u"000000.00").remove(QLatin1Char(',')));
        EXPECT_EQ(numero.mid(12, 11), pago.texto("Cuit").remove(QLatin1Char('-')));
        EXPECT_EQ(numero.mid(23, 1), pago.texto("Tipo"));
        if (caso.boleta.tipo == TipoBoleta::Acta)
        {
            EXPECT_EQ(numero.mid(24, 11), QStringLiteral("%1%2%3%4")
                                              .arg(pago.entero("NroActa"), 6, 10, QLatin1Char('0'))
                                              .arg(pago.entero("Cuota"), 2, 10, QLatin1Char('0'))
                                              .arg(pago.entero("Cuenta"))
                                              .arg(pago.entero("Dias"), 2, 10, QLatin1Char('0')));
        }
        else
        {
            EXPECT_EQ(numero.mid(24, 5), Formato(pago.fecha("Periodo"), u"YYMM") + pago.texto("Secuencia"));
        }
    }
}

TEST_F(BoletaImpresa, TheLongestSlipStaysOnOnePage)
{
    agregar(base.conexion(), EmpleadoDePrueba{.secuencia = 1,
                                              .cuil = QStringLiteral("20-00000009-0"),
                                              .imponible = pesos("99999999999,99")});
    textos.empresa = QString(45, QLatin1Char('W'));
    const struct
    {
        const char* importe;
        const char* impreso;
        int digitos; // of the number, widened by amounts past their places
    } casos[] = {
        {"9999999,99", "$ 9.999.999,99", 52},
        {"999999999,99", "$ 999.999.999,99", 56},
        {"9999999999,99", "$ 9.999.999.999,99", 58},
    };
    for (const auto& caso : casos)
    {
        for (Boleta boleta : {boletaDeAportes(), boletaDeInteres(), boletaDeActa()})
        {
            SCOPED_TRACE(testing::Message() << caso.importe << " of kind " << static_cast<int>(boleta.tipo));
            boleta.art100 = boleta.art101A = boleta.art101B = boleta.interes = boleta.importeTotal =
                boleta.importeActa = pesos(caso.importe);
            EXPECT_EQ(paginas(boleta).cantidad(), 1);
            const QString texto = hoja(boleta);
            const bool aportes = boleta.tipo == TipoBoleta::Aportes;
            const bool acta = boleta.tipo == TipoBoleta::Acta;
            EXPECT_EQ(texto.count(QString::fromLatin1(caso.impreso)), aportes ? 15 : acta ? 9 : 6);
            EXPECT_EQ(texto.count(QStringLiteral("Total a Depositar ") + QString::fromLatin1(caso.impreso)), 3);
            EXPECT_EQ(texto.count(QStringLiteral(" 2 empleados Remuneración $ 100.000.000.999,99")), aportes ? 3 : 0);
            EXPECT_EQ(texto.count(QStringLiteral(" 2 afiliados Remuneración $ 100.000.000.999,99")), aportes ? 6 : 0);
            EXPECT_EQ(texto.count(textos.numero + QStringLiteral(" Altoverde - Versión 2.0")), 3);
            EXPECT_TRUE(!acta || textos.numero.size() == caso.digitos);
        }
    }
}
