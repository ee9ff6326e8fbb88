#pragma once

#include "core/clave_ddjj.h"

#include <QString>
#include <functional>
#include <optional>

class FTP_Class;

/// A declaration's text file and the roads by which it leaves the program. Each road writes the file anew and tells how
/// it went; a company or a declaration that is gone throws YaNoEsta, with no file written.
class EnvioDeDDJJ
{
public:
    /// `clave` is nothing when no declaration is selected. `estado` shows what the upload is doing.
    explicit EnvioDeDDJJ(std::optional<ClaveDDJJ> clave, std::function<void(const QString&)> estado = {});

    /// Asks where to and copies the file there.
    void GuardarArchivoComo();
    /// Sends the file to the union's server and deletes it, whether it arrived or not; it stays when nobody answers.
    /// `Avisar`: with the closing message.
    void EnviarDDJJPorFtp(bool Avisar);
    /// Sends the file by mail and keeps it. No command of the program reaches it.
    void EnviarDDJJPorCorreo();

private:
    [[nodiscard]] bool GrabarArchivoDDJJ();
    /// False when the server could not be reached.
    [[nodiscard]] bool subir();
    [[nodiscard]] bool ConectarServidorFtp(FTP_Class& ftp) const;

    std::optional<ClaveDDJJ> m_clave;
    std::function<void(const QString&)> m_estado;
    QString ArchivoDDJJ; ///< name of the text file
};
