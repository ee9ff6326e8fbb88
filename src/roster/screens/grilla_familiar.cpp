#include "roster/screens/grilla_familiar.h"

#include "ui/shell/campos.h"

#include <QKeyEvent>

namespace
{
constexpr int largoDelNombre = 40;
constexpr qint64 documentoMaximo = 99999999;
} // namespace

GrillaFamiliar::GrillaFamiliar(QWidget* padre)
    : Grilla(padre)
{
    const QStringList sexos{QStringLiteral("Fem."), QStringLiteral("Masc.")};
    setColumnas({{ColumnaDeGrilla::Lista, QStringLiteral("Familiar"), 168},
                 {ColumnaDeGrilla::Lista, QStringLiteral("Tipo"), 148},
                 {ColumnaDeGrilla::Entero, QStringLiteral("Documento"), 90, documentoMaximo},
                 {ColumnaDeGrilla::Texto, QStringLiteral("Apellido y Nombre"), -1, largoDelNombre},
                 {ColumnaDeGrilla::Lista, QStringLiteral("Sexo"), 68, 0, sexos},
                 {ColumnaDeGrilla::Fecha, QStringLiteral("Fecha Nac."), 90}});
    setEditable(true);
    setPintaActual(true);
    setTeclasDeFila([this] { return !celdaVacia(Familiar, filas()); }, [](int) { return true; });
}

void GrillaFamiliar::setCatalogos(const QStringList& familiares, const QStringList& documentos)
{
    setOpciones(Familiar, familiares);
    setOpciones(Tipo, documentos);
}

bool GrillaFamiliar::enBlanco(int fila) const
{
    return celdaVacia(Familiar, fila) && celdaVacia(Documento, fila) && celdaVacia(AyN, fila) &&
           celdaVacia(Nacio, fila);
}

bool GrillaFamiliar::focusNextPrevChild(bool siguiente)
{
    if (!siguiente)
    {
        return Grilla::focusNextPrevChild(false);
    }
    Q_EMIT seguir();
    return true;
}

void GrillaFamiliar::keyPressEvent(QKeyEvent* evento)
{
    if (campos::esEnter(*evento) && filaActual() == filas() && enBlanco(filas()))
    {
        focusNextPrevChild(true);
        return;
    }
    Grilla::keyPressEvent(evento);
}
