#include "ui/look/iconos.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <algorithm>

namespace
{
constexpr QColor grisApagado{0x96, 0xa1, 0xaa};

QString rutaDelDibujo(const QString& nombre)
{
    return QStringLiteral(":/iconos/%1.png").arg(nombre);
}

/// The red of a drawing tells how much of a pixel its lines cover, the blue how much its accents do.
QRgb colorear(QRgb cubierto, QColor trazo, QColor acento)
{
    const int lineas = qRed(cubierto);
    const int acentos = qBlue(cubierto);
    const auto mezcla = [lineas, acentos](int deTrazo, int deAcento)
    { return std::min(255, (lineas * deTrazo + acentos * deAcento + 127) / 255); };
    return qRgba(mezcla(trazo.red(), acento.red()), mezcla(trazo.green(), acento.green()),
                 mezcla(trazo.blue(), acento.blue()), mezcla(255, 255));
}

/// Scales a drawing down from one that is far larger to the very pixels asked for, so that lines stay sharp.
class MotorDeTrazos : public QIconEngine
{
public:
    MotorDeTrazos(QString nombre, QColor trazo, QColor acento)
        : m_nombre(std::move(nombre))
        , m_trazo(trazo)
        , m_acento(acento)
    {
    }

    void paint(QPainter* pintor, const QRect& zona, QIcon::Mode modo, QIcon::State) override
    {
        const int lado = std::min(zona.width(), zona.height());
        QRect cuadro(0, 0, lado, lado);
        cuadro.moveCenter(zona.center());
        pintor->drawPixmap(cuadro, dibujado(qRound(lado * pintor->device()->devicePixelRatioF()), modo));
    }

    QPixmap pixmap(const QSize& tamano, QIcon::Mode modo, QIcon::State estado) override
    {
        return scaledPixmap(tamano, modo, estado, 1.0);
    }

    QPixmap scaledPixmap(const QSize& tamano, QIcon::Mode modo, QIcon::State, qreal) override
    {
        return dibujado(std::min(tamano.width(), tamano.height()), modo);
    }

    QIconEngine* clone() const override { return new MotorDeTrazos(*this); }
    QString key() const override { return QStringLiteral("trazos"); }
    bool isNull() override { return false; }

private:
    [[nodiscard]] QPixmap dibujado(int lado, QIcon::Mode modo) const
    {
        const QColor unico =
            modo == QIcon::Disabled ? grisApagado : QGuiApplication::palette().color(QPalette::HighlightedText);
        const bool propios = modo != QIcon::Disabled && modo != QIcon::Selected;
        const QColor trazo = propios ? m_trazo : unico;
        const QColor acento = propios ? m_acento : unico;
        const QString clave = QStringLiteral("trazos/%1/%2/%3/%4").arg(m_nombre, trazo.name(), acento.name()).arg(lado);
        QPixmap imagen;
        if (!QPixmapCache::find(clave, &imagen))
        {
            QImage dibujo = QImage(rutaDelDibujo(m_nombre))
                                .convertToFormat(QImage::Format_ARGB32_Premultiplied)
                                .scaled(lado, lado, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            for (int y = 0; y < dibujo.height(); ++y)
            {
                auto* renglon = reinterpret_cast<QRgb*>(dibujo.scanLine(y));
                std::transform(renglon, renglon + dibujo.width(), renglon,
                               [trazo, acento](QRgb punto) { return colorear(punto, trazo, acento); });
            }
            imagen = QPixmap::fromImage(std::move(dibujo));
            QPixmapCache::insert(clave, imagen);
        }
        return imagen;
    }

    QString m_nombre;
    QColor m_trazo;
    QColor m_acento;
};
} // namespace

QIcon iconoDeTrazos(const QString& nombre, QColor trazo, QColor acento)
{
    return QFile::exists(rutaDelDibujo(nombre)) ? QIcon(new MotorDeTrazos(nombre, trazo, acento)) : QIcon();
}
