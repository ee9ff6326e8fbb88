// Two copies of the program at work on one month of one company. Each is a process of its own that creates
// declarations, saves an employee with his family in each, and deletes some again; at the end all of it is there, once.
// The one error that may come is that the database is busy, with nothing of its action done: it is done again.
// ALTOVERDE_ACCIONES sets the duration.
#include "apoyo/hijo.h"
#include "base/directorio_programa.h"
#include "declarations/ciclo_ddjj.h"
#include "fallos/base_grande.h"

#include <QDir>
#include <sqlite3.h>

namespace
{
void insistir(const std::function<void()>& accion)
{
    int error = SQLITE_BUSY;
    while ((error & 0xFF) == SQLITE_BUSY)
    {
        error = numeroDe(accion);
    }
    ASSERT_EQ(0, error);
}
} // namespace

TEST(DosCopias, NadaSePierde)
{
    const BaseDePrueba base;
    poner("Empresas");
    Rutinas::CerrarBase();
    const int acciones = pedido("ALTOVERDE_ACCIONES", 200);
    const auto copia = [&](int numero) { return QString("%1|%2|%3").arg(base.ruta({})).arg(numero).arg(acciones); };
    {
        Hijo primera("DosCopias.DISABLED_Trabaja", copia(0));
        Hijo segunda("DosCopias.DISABLED_Trabaja", copia(1));
        EXPECT_TRUE(primera.seguir());
        EXPECT_TRUE(segunda.seguir());
    }
    Rutinas::AbrirBase();
    const int quedan = 2 * (acciones - acciones / 3);
    EXPECT_EQ(quedan, cuantos("DDJJ"));
    EXPECT_EQ(quedan, cuantos("DDJJ_Empleados"));
    EXPECT_EQ(quedan,
              cuantos("(SELECT DISTINCT Secuencia FROM DDJJ JOIN DDJJ_Empleados USING (Cuit, Periodo, Secuencia))"));
    EXPECT_EQ(2 * acciones, cuantos("Empleados_Familiares"));
    EXPECT_EQ("ok", filas("PRAGMA integrity_check"));
}

TEST(DosCopias, DISABLED_Trabaja)
{
    const QStringList partes = hijo::ruta().split('|');
    reemplazarDirectorioPrograma(partes[0]);
    Rutinas::RutaApp = DirectorioPrograma() + QDir::separator();
    insistir(Rutinas::AbrirBase);
    Conexion& base = Rutinas::Conexion;
    ClaveDDJJ clave{dePrueba::cuit, dePrueba::periodo, 0};
    hijo::listo();
    for (int vez = 1; vez <= partes[2].toInt(); ++vez)
    {
        insistir([&] { clave.secuencia = crearDeclaracion(base, clave.cuit, clave.periodo, clave.periodo); });
        EntradaEmpleado e = entrada(QString("2%1%2").arg(partes[1]).arg(vez, 9, 10, QChar('0')), 1000, true);
        e.familia.push_back({"Hijo", "DNI", 45678901, e.cuil, "Fem.", QDate(2004, 2, 29)});
        insistir([&] { EXPECT_TRUE(guardarEmpleado(base, clave, e)); });
        vez % 3 == 0 ? insistir([&] { eliminarDeclaracion(base, clave); }) : void();
    }
    Rutinas::CerrarBase();
}
