#include "medida.h"

#include <QApplication>
#include <QStringList>

/// medidas [--veces N] [part of a line's name]
int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    const QApplication aplicacion(argc, argv);
    int veces = 7;
    QString filtro;
    const QStringList argumentos = QApplication::arguments();
    for (qsizetype i = 1; i < argumentos.size(); ++i)
    {
        if (argumentos[i] == QStringLiteral("--veces") && i + 1 < argumentos.size())
        {
            veces = std::max(1, argumentos[++i].toInt());
        }
        else
        {
            filtro = argumentos[i];
        }
    }
    return medida::medirTodo(filtro.toStdString(), veces) ? 0 : 1;
}
