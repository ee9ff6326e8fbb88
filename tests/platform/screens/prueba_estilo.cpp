#include "platform/screens/estilo.h"

#include <QAbstractButton>
#include <QApplication>
#include <QDialogButtonBox>
#include <QDir>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <cmath>
#include <gtest/gtest.h>

namespace
{
double luz(const QColor& color)
{
    const auto canal = [](double c) { return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4); };
    return 0.2126 * canal(color.redF()) + 0.7152 * canal(color.greenF()) + 0.0722 * canal(color.blueF());
}

double contraste(const QColor& a, const QColor& b)
{
    const double una = luz(a) + 0.05;
    const double otra = luz(b) + 0.05;
    return std::max(una, otra) / std::min(una, otra);
}

/// The look stays on for the tests that follow: they run under what the user sees.
class Aspecto : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        if (qApp->styleSheet().isEmpty())
        {
            Estilo::aplicar(*qApp);
        }
    }
};

TEST_F(Aspecto, ParesDeLaPaletaSeLeen)
{
    using P = QPalette;
    const std::pair<P::ColorRole, P::ColorRole> pares[] = {
        {P::WindowText, P::Window},
        {P::Text, P::Base},
        {P::Text, P::AlternateBase},
        {P::ButtonText, P::Button},
        {P::ToolTipText, P::ToolTipBase},
        {P::HighlightedText, P::Highlight},
        {P::Link, P::Window},
        {P::BrightText, P::Window},
        {P::PlaceholderText, P::Base},
    };
    const QPalette paleta = Estilo::paleta();
    for (const auto grupo : {P::Active, P::Inactive, P::Disabled})
    {
        for (const auto& [letra, fondo] : pares)
        {
            EXPECT_GE(contraste(paleta.color(grupo, letra), paleta.color(grupo, fondo)), 4.5)
                << "group " << grupo << " roles " << letra << " on " << fondo;
        }
    }
    EXPECT_GE(contraste(Qt::black, QColor(255, 255, 0)), 4.5);
    EXPECT_GE(contraste(paleta.color(P::Disabled, P::Text), QColor(0xf4, 0xf1, 0xb8)), 4.5) << "a yellow row, disabled";
}

TEST_F(Aspecto, ParesDeLaHojaSeLeen)
{
    // Rules that set no ground of their own stand on the window's.
    static const QRegularExpression regla(QStringLiteral("([^{}]+)\\{([^}]*)\\}"));
    static const QRegularExpression letra(QStringLiteral("(?<![-\\w])color: (#\\w{6})"));
    static const QRegularExpression fondo(QStringLiteral("(?<![-\\w])background: (#\\w{6})"));
    QString hoja = qApp->styleSheet();
    int medidas = 0;
    for (auto i = regla.globalMatch(hoja); i.hasNext();)
    {
        const auto hallada = i.next();
        const auto conLetra = letra.match(hallada.captured(2));
        if (!conLetra.hasMatch())
        {
            continue;
        }
        const auto conFondo = fondo.match(hallada.captured(2));
        const QColor suelo =
            conFondo.hasMatch() ? QColor(conFondo.captured(1)) : qApp->palette().color(QPalette::Window);
        EXPECT_GE(contraste(QColor(conLetra.captured(1)), suelo), 4.5) << hallada.captured(1).trimmed().toStdString();
        ++medidas;
    }
    EXPECT_GE(medidas, 12);
}

TEST_F(Aspecto, TodosLosIconosSeDibujan)
{
    const QString nombres = QStringLiteral(
        "nueva copiar eliminar grabar cancelar buscar modificar salir importar examinar nomina sueldos boleta interes "
        "acta "
        "enviar informe incompletos texto empresa declaracion impresora respaldo restaurar mantenimiento depurar ayuda "
        "acerca primero anterior siguiente ultimo aceptar sucursal rubro advertencia actualizar pdf zoom_mas "
        "zoom_menos "
        "pagina buscar_empleado agregar correo");
    const auto tinta = [](const QImage& imagen)
    {
        double suma = 0;
        int puntos = 0;
        for (int y = 0; y < imagen.height(); ++y)
        {
            for (int x = 0; x < imagen.width(); ++x)
            {
                const QColor c = imagen.pixelColor(x, y);
                if (c.alpha() > 200)
                {
                    suma += luz(c);
                    ++puntos;
                }
            }
        }
        return std::pair(puntos, puntos ? suma / puntos : 0.0);
    };
    for (const QString& nombre : nombres.split(u' '))
    {
        SCOPED_TRACE(nombre.toStdString());
        const QIcon icono = Estilo::icono(nombre);
        ASSERT_FALSE(icono.isNull());
        const auto [puntos, claridad] = tinta(icono.pixmap(QSize(48, 48)).toImage());
        const auto [puntosGris, claridadGris] = tinta(icono.pixmap(QSize(48, 48), QIcon::Disabled).toImage());
        EXPECT_GT(puntos, 60);
        EXPECT_NEAR(puntosGris, puntos, puntos / 4);
        EXPECT_LT(claridad, 0.15);
        EXPECT_GT(claridadGris, claridad + 0.2) << "visibly grey while disabled";
    }
    EXPECT_TRUE(Estilo::icono(QStringLiteral("no_hay")).isNull());
    EXPECT_FALSE(Estilo::iconoDelPrograma().pixmap(QSize(32, 32)).isNull());
    EXPECT_FALSE(QApplication::windowIcon().isNull());
}

TEST_F(Aspecto, TextosDeQtEnCastellano)
{
    QDialogButtonBox caja(QDialogButtonBox::Yes | QDialogButtonBox::Cancel | QDialogButtonBox::Save);
    EXPECT_EQ(caja.button(QDialogButtonBox::Yes)->text(), QStringLiteral("&Sí"));
    EXPECT_EQ(caja.button(QDialogButtonBox::Cancel)->text().remove(u'&'), QStringLiteral("Cancelar"));
    EXPECT_EQ(caja.button(QDialogButtonBox::Save)->text().remove(u'&'), QStringLiteral("Guardar"));
}

TEST_F(Aspecto, ElFondoLlenaSuZona)
{
    for (const QSize tamano : {QSize(1024, 600), QSize(1920, 400), QSize(300, 900)})
    {
        QImage imagen(tamano, QImage::Format_RGB32);
        imagen.fill(Qt::magenta);
        QPainter pintor(&imagen);
        Estilo::pintarFondo(pintor, imagen.rect());
        pintor.end();
        for (const QPoint punto : {QPoint(0, 0), QPoint(tamano.width() - 1, 0), QPoint(0, tamano.height() - 1),
                                   QPoint(tamano.width() - 1, tamano.height() - 1)})
        {
            EXPECT_GT(luz(imagen.pixelColor(punto)), 0.45) << "light, and painted to the edge";
        }
    }
}

TEST_F(Aspecto, CamposQueSoloMuestran)
{
    QWidget ventana;
    QLineEdit campo(&ventana);
    QLineEdit comun(&ventana);
    Estilo::soloMuestra(&campo);
    EXPECT_TRUE(campo.isReadOnly());
    EXPECT_FALSE(campo.focusPolicy() & Qt::TabFocus);
    campo.setGeometry(0, 0, 100, 30);
    comun.setGeometry(0, 40, 100, 30);
    const QImage imagen = ventana.grab().toImage();
    EXPECT_EQ(imagen.pixelColor(50, 55), QColor(Qt::white));
    EXPECT_NE(imagen.pixelColor(50, 15), QColor(Qt::white));

    QLabel aviso(QStringLiteral("Datos Incompletos"), &ventana);
    Estilo::advertencia(&aviso);
    aviso.adjustSize();
    const QImage rotulo = aviso.grab().toImage();
    bool rojo = false;
    for (int x = 0; x < aviso.fontMetrics().height(); ++x)
    {
        const QColor c = rotulo.pixelColor(x, rotulo.height() / 2 + 3);
        rojo = rojo || (c.red() > c.green() + 60);
    }
    EXPECT_TRUE(rojo) << "the icon stands before the text";
}
} // namespace
