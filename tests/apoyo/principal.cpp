#include "core/nombre_programa.h"

#include <QApplication>
#include <QLocale>
#include <QtGlobal>
#include <algorithm>
#include <clocale>
#include <cstdio>
#include <gmock/gmock.h>
#include <locale>

namespace
{
/// Nothing may depend on the machine's locale: the tests run under one with comma decimals and grouped thousands.
struct ComasYPuntos : std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

void ponerLocaleDeTrampa()
{
    const std::initializer_list<const char*> nombres = {"es_AR.UTF-8", "es_ES.UTF-8", "de_DE.UTF-8"};
    static_cast<void>(std::ranges::any_of(nombres, [](auto* uno) { return std::setlocale(LC_ALL, uno) != nullptr; }));
    std::locale::global(std::locale(std::locale(), new ComasYPuntos));
    QLocale::setDefault(QLocale(QLocale::Spanish, QLocale::Argentina));
}
} // namespace

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    testing::InitGoogleMock(&argc, argv);
    QApplication aplicacion(argc, argv);
    QApplication::setApplicationName(nombreDelPrograma);
    ponerLocaleDeTrampa();
    return RUN_ALL_TESTS();
}
