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

void GrillaFamiliar::mostrar(const std::vector<FilaFamiliar>& familia)
{
    cargar(familia,
           [](const FilaFamiliar& uno)
           {
               return FilaDeGrilla{uno.familiar, uno.tipoDoc, uno.nroDoc ? QVariant(*uno.nroDoc) : QVariant(),
                                   uno.ayn,      uno.sexo,    uno.nacio};
           });
}

void GrillaFamiliar::abrirFila()
{
    setFilas(filas() + 1);
    setFilaActual(filas());
}

std::vector<FilaFamiliar> GrillaFamiliar::familia() const
{
    std::vector<FilaFamiliar> familia;
    for (int fila = 1; fila <= filas(); ++fila)
    {
        const auto documento = celdaVacia(Documento, fila) ? std::nullopt : std::optional(entero(Documento, fila));
        familia.push_back({texto(Familiar, fila), texto(Tipo, fila), documento, texto(AyN, fila), texto(Sexo, fila),
                           fecha(Nacio, fila)});
    }
    return familia;
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
    const int fila = filas();
    const bool enBlanco = celdaVacia(Familiar, fila) && celdaVacia(Documento, fila) && celdaVacia(AyN, fila) &&
                          celdaVacia(Nacio, fila); // nothing that would be stored
    if (campos::esEnter(*evento) && filaActual() == fila && enBlanco)
    {
        focusNextPrevChild(true);
        return;
    }
    Grilla::keyPressEvent(evento);
}
