#include "platform/screens/iconos.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace
{
constexpr const char* acentoDelDibujo = "#1f5f8b"; // as the drawings have it
constexpr QColor grisApagado{0x96, 0xa1, 0xaa};
constexpr QColor blancoElegido{0xff, 0xff, 0xff};

/// Draws at the size asked for, so that lines stay sharp on every screen.
class MotorDeTrazos : public QIconEngine
{
public:
    MotorDeTrazos(QString nombre, QByteArray dibujo, QColor trazo, QColor acento)
        : m_nombre(std::move(nombre))
        , m_dibujo(std::move(dibujo))
        , m_trazo(trazo)
        , m_acento(acento)
    {
    }

    void paint(QPainter* pintor, const QRect& zona, QIcon::Mode modo, QIcon::State) override
    {
        const int lado = std::min(zona.width(), zona.height());
        QRectF cuadro(0, 0, lado, lado);
        cuadro.moveCenter(QRectF(zona).center());
        QSvgRenderer dibujo(coloreado(modo));
        dibujo.render(pintor, cuadro);
    }

    QPixmap pixmap(const QSize& tamano, QIcon::Mode modo, QIcon::State estado) override
    {
        return scaledPixmap(tamano, modo, estado, 1.0);
    }

    QPixmap scaledPixmap(const QSize& tamano, QIcon::Mode modo, QIcon::State estado, qreal) override
    {
        const QString clave = QStringLiteral("trazos/%1/%2/%3/%4/%5x%6")
                                  .arg(m_nombre, m_trazo.name(), m_acento.name())
                                  .arg(int(modo))
                                  .arg(tamano.width())
                                  .arg(tamano.height());
        QPixmap imagen;
        if (!QPixmapCache::find(clave, &imagen))
        {
            imagen = QPixmap(tamano);
            imagen.fill(Qt::transparent);
            QPainter pintor(&imagen);
            paint(&pintor, QRect({}, tamano), modo, estado);
            pintor.end();
            QPixmapCache::insert(clave, imagen);
        }
        return imagen;
    }

    QIconEngine* clone() const override { return new MotorDeTrazos(*this); }
    QString key() const override { return QStringLiteral("trazos"); }
    bool isNull() override { return m_dibujo.isEmpty(); }

private:
    [[nodiscard]] QByteArray coloreado(QIcon::Mode modo) const
    {
        const QColor trazo = modo == QIcon::Disabled ? grisApagado : modo == QIcon::Selected ? blancoElegido : m_trazo;
        const QColor acento = modo == QIcon::Disabled   ? grisApagado
                              : modo == QIcon::Selected ? blancoElegido
                                                        : m_acento;
        QByteArray texto = m_dibujo;
        texto.replace(acentoDelDibujo, acento.name().toLatin1());
        texto.replace("currentColor", trazo.name().toLatin1());
        return texto;
    }

    QString m_nombre;
    QByteArray m_dibujo;
    QColor m_trazo;
    QColor m_acento;
};
} // namespace

QIcon iconoDeTrazos(const QString& nombre, QColor trazo, QColor acento)
{
    QFile archivo(QStringLiteral(":/iconos/%1.svg").arg(nombre));
    if (!archivo.open(QIODevice::ReadOnly))
    {
        return {};
    }
    return QIcon(new MotorDeTrazos(nombre, archivo.readAll(), trazo, acento));
}
