#pragma once

#include "base/error_de_ejecucion.h"

#include <QStringList>
#include <compare>
#include <optional>
#include <vector>

/// One thing of a record that another window or another desk has stored differently since the screen read it.
struct Cambio
{
    QString campo;                ///< as the screen labels it
    std::optional<QString> antes; ///< as it was read; nothing for a row of a list that was added since
    std::optional<QString> ahora; ///< as it is stored; nothing for a row that was removed

    friend bool operator==(const Cambio&, const Cambio&) = default;
};
using Cambios = std::vector<Cambio>;

/// A field of a record as the screen shows it.
struct CampoMostrado
{
    QString campo;
    QString texto;
};
/// A row of a list: rows of one key are the same thing, changed. Lists whose rows have no identity leave it 0.
struct FilaMostrada
{
    qint64 clave = 0;
    QStringList celdas;

    friend std::weak_ordering
    operator<=>(const FilaMostrada&,
                const FilaMostrada&) = default; // NOLINT(modernize-use-nullptr): a 0 of its own
};

/// The fields that differ. Both lists hold the same fields in the same order.
[[nodiscard]] Cambios compararCampos(const std::vector<CampoMostrado>& antes, const std::vector<CampoMostrado>& ahora);
/// The rows that were added, removed or changed, whatever their order.
[[nodiscard]] Cambios compararFilas(const QString& campo, std::vector<FilaMostrada> antes,
                                    std::vector<FilaMostrada> ahora);

/// A save that would replace what another desk has stored meanwhile. Its description names the changes and asks whether
/// to replace them; nothing has been written.
class CambiadoPorOtro : public ErrorParaAvisar
{
public:
    explicit CambiadoPorOtro(Cambios cambios);
    [[nodiscard]] const Cambios& cambios() const { return m_cambios; }

private:
    Cambios m_cambios;
};

/// Throws CambiadoPorOtro unless there are none. A save asks inside its own transaction.
void exigirSinCambios(Cambios cambios);
