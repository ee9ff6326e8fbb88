#include "core/screens/buscador.h"

#include "ui/fields/tecla_soltada.h"

void Buscador::armar(Grilla* grilla, std::vector<ColumnaDeGrilla> columnas, void (Grilla::*gesto)(int, int))
{
    grilla->setOrdenable(); // before its columns are measured
    grilla->setColumnas(std::move(columnas));
    grilla->setPintaActual(true);
    // Not before something was looked for.
    connect(grilla->model(), &QAbstractItemModel::modelReset, grilla,
            [grilla] { grilla->setTextoVacio(QStringLiteral("Sin resultados")); });
    conectar(grilla, gesto, &Buscador::elegirYCerrar);
    conectar(grilla, &Grilla::entrar, &Buscador::elegirYCerrar);
}

void Buscador::buscarCon(QWidget* clave, QLineEdit* nombre)
{
    alDejar(clave, &Buscador::Buscar);
    conectar(new TeclaSoltada(nombre), &TeclaSoltada::soltada, &Buscador::Buscar);
}

void Buscador::elegirYCerrar(int, int fila)
{
    if (fila != 0)
    {
        elegir(fila);
        cerrar();
    }
}
