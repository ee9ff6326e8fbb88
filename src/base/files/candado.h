#pragma once

#include <QString>
#include <memory>

/// The lock between running copies of the program on one database, a small file beside it ("DBBrivo.ldb"). The system
/// releases it when a process dies.
class Candado
{
public:
    enum class Modo
    {
        Compartido, ///< held by each open connection
        Exclusivo,  ///< held while the database file is rewritten or copied whole
    };
    /// Takes the lock at once or throws ErrorDeEjecucion 70; 75 or 76 when the file cannot be made. Within one process
    /// shared Candados on a file go together, an exclusive one goes with no other.
    Candado(const QString& ruta, Modo modo);

private:
    struct Cerradura;
    std::shared_ptr<Cerradura> m_cerradura;
};
