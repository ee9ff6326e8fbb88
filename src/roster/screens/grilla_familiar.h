#pragma once

#include "roster/familiares.h"
#include "ui/grid/grilla.h"

/// The grid of an employee's dependants: relation, document type and number, name, sex and birth date. Down and Insert
/// on its last row add one once that row has its relation, Delete removes the current one. Tab, and Enter on an empty
/// last row, lead out of it forwards, where the screen goes on.
class GrillaFamiliar : public Grilla
{
    Q_OBJECT
public:
    explicit GrillaFamiliar(QWidget* padre = nullptr);

    /// The entries of the two lists that come from the database.
    void setCatalogos(const QStringList& familiares, const QStringList& documentos);
    void mostrar(const std::vector<FilaFamiliar>& familia);
    /// An empty row at the end, the current one from now on.
    void abrirFila();
    /// As it stands there, rows of which nothing is typed included.
    [[nodiscard]] std::vector<FilaFamiliar> familia() const;

Q_SIGNALS:
    /// The user goes on past the last cell.
    void seguir();

protected:
    bool focusNextPrevChild(bool siguiente) override;
    void keyPressEvent(QKeyEvent* evento) override;

private:
    enum Columna
    {
        Familiar = 1,
        Tipo,
        Documento,
        AyN,
        Sexo,
        Nacio,
    };
};
