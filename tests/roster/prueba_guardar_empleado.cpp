#include "apoyo/base_de_prueba.h"
#include "platform/data/error_de_ejecucion.h"
#include "roster/guardar_empleado.h"

#include <QStringList>
#include <gtest/gtest.h>

namespace
{
const ClaveDDJJ clave{dePrueba::cuit, dePrueba::periodo, 0};
const QString conComillas = QStringLiteral("O'Higgins \"Pato\" 50% _ñandú_");
const FilaFamiliar hijo{QStringLiteral("Hijo"),       QStringLiteral("DNI"),   12345678,
                        QStringLiteral("Pérez Luis"), QStringLiteral("Masc."), QDate(2005, 1, 31)};

EntradaEmpleado completa()
{
    EntradaEmpleado e;
    e.nuevo = true;
    e.cuil = dePrueba::cuil;
    e.ayn = QStringLiteral("Pérez Juan");
    e.tipoDoc = 1;
    e.documento = QStringLiteral("12345678");
    e.qHoras = QStringLiteral("200");
    e.haberes = QStringLiteral("1000,00");
    e.acuerdo = QStringLiteral("0");
    e.afiliado = true;
    return e;
}

/// Every cell of the roster and of the family lists.
QStringList todo(Conexion& conexion)
{
    QStringList celdas;
    for (const char* tabla : {"DDJJ_Empleados", "Empleados_Familiares"})
    {
        conexion.recorrer(std::string("SELECT * FROM ") + tabla,
                          [&](const Fila& fila)
                          {
                              for (int i = 0; i < fila.columnas(); ++i)
                              {
                                  const char* nombre = fila.nombre(i);
                                  celdas += QString::fromLatin1(nombre) + QLatin1Char('=') +
                                            (fila.esNulo(nombre) ? QStringLiteral("null") : fila.texto(nombre));
                              }
                          });
    }
    return celdas;
}

class GuardarEmpleado : public testing::Test
{
protected:
    GuardarEmpleado() { agregar(conexion, EmpresaDePrueba()); }

    /// The error number of a save; 0 when it went through, -1 for an incomplete family.
    int guardar(const EntradaEmpleado& entrada)
    {
        try
        {
            return guardarEmpleado(conexion, clave, entrada) ? 0 : -1;
        }
        catch (const ErrorDeEjecucion& error)
        {
            return error.numero();
        }
    }
    QString celda(const char* columna, int secuencia = 0)
    {
        const Recordset filas = conexion.consultar("SELECT * FROM DDJJ_Empleados WHERE Secuencia = ?", secuencia);
        const Fila fila = filas.primera();
        return fila.esNulo(columna) ? QStringLiteral("null") : fila.texto(columna);
    }
    /// Columns of the one row as "Nombre=valor", for the names of `esperado`.
    QStringList celdas(const QStringList& esperado)
    {
        QStringList leidas;
        for (const QString& una : esperado)
        {
            const QString nombre = una.section(QLatin1Char('='), 0, 0);
            leidas += nombre + QLatin1Char('=') + celda(nombre.toLatin1().constData());
        }
        return leidas;
    }

    BaseDePrueba base;
    Conexion& conexion = base.conexion();
};

TEST_F(GuardarEmpleado, RevisaEnOrdenYDiceDondeYQue)
{
    using Campo = CampoEmpleado;
    const QString jornada = QStringLiteral("Debe informar la Cantidad de Horas Mensuales de la Jornada Laboral que "
                                           "realiza el Empleado.");
    agregar(conexion, SucursalDePrueba());
    EntradaEmpleado e;
    e.cuil = QStringLiteral("__-________-_");
    const auto falta = [&] { return revisarEmpleado(conexion, dePrueba::cuit, e); };

    // Each thing mended brings the next check to light.
    EXPECT_EQ((FaltaEnEmpleado{Campo::Cuil, 0, QStringLiteral("Debe informar el Nro. de Cuil del Empleado.")}),
              falta());
    e.cuil = dePrueba::cuil;
    EXPECT_EQ((FaltaEnEmpleado{Campo::AyN, 0, QStringLiteral("Debe informar el Apellido y Nombre del Empleado.")}),
              falta());
    e.ayn = QStringLiteral(" ");
    EXPECT_EQ((FaltaEnEmpleado{Campo::TipoDoc, 0, QStringLiteral("Debe informar el Tipo de Documento del Empleado.")}),
              falta());
    e.tipoDoc = 0;
    EXPECT_EQ(
        (FaltaEnEmpleado{Campo::Documento, 0, QStringLiteral("Debe informar el Número de Documento del Empleado.")}),
        falta());
    e.documento = QStringLiteral("0");
    for (const char* horas : {"", "0", "99", "201", "00000", "4294967496", "99999999999999999999"})
    {
        e.qHoras = QString::fromLatin1(horas);
        EXPECT_EQ((FaltaEnEmpleado{Campo::QHoras, 2, jornada}), falta()) << horas;
    }
    for (const char* horas : {"100", "128", "173", "200", "0150"})
    {
        e.qHoras = QString::fromLatin1(horas);
        EXPECT_EQ((FaltaEnEmpleado{Campo::Sucursal, 2,
                                   QStringLiteral("Debe seleccionar la Sucursal correspondiente donde trabaja el "
                                                  "Empleado.")}),
                  falta())
            << horas;
    }
    e.sucursal = 1;
    EXPECT_EQ(std::nullopt, falta());
    e.sucursal = 0;
    EXPECT_EQ(std::nullopt, revisarEmpleado(conexion, QStringLiteral("30-99999999-5"), e)); // a company without any
}

TEST_F(GuardarEmpleado, UnoNuevoConTodoLoSuyo)
{
    EntradaEmpleado e = completa();
    e.ayn = conComillas;
    e.calle = conComillas;
    e.localidad = conComillas;
    e.sexo = 0;
    e.nacio = QDate(1925, 12, 31);
    e.numero = QStringLiteral("99999");
    e.piso = QStringLiteral("PB");
    e.depto = QStringLiteral("'");
    e.codPos = QStringLiteral("B1870ABC");
    e.provincia = 1;
    e.telefono = QStringLiteral("(011) 4201-5555");
    e.estCivil = 2;
    e.ingreso = QDate(2001, 2, 3);
    e.categoria = 22;
    e.qHoras = QStringLiteral("150");
    e.egreso = QDate(2000, 1, 1); // before the entry: no date is compared with another
    e.sucursal = 77;
    e.haberes = QStringLiteral("900,00");
    e.acuerdo = QStringLiteral("100,00");
    e.familia = {{}, hijo};
    ASSERT_EQ(0, guardar(e));

    const QStringList esperado = {
        QStringLiteral("Cuit=30-12345678-1"),
        QStringLiteral("Periodo=2009-05-01"),
        QStringLiteral("Secuencia=0"),
        QStringLiteral("Cuil=20-12345678-6"),
        QStringLiteral("AyN=") + conComillas,
        QStringLiteral("TipoDoc=1"),
        QStringLiteral("NroDoc=12345678"),
        QStringLiteral("Sexo=0"),
        QStringLiteral("Calle=") + conComillas,
        QStringLiteral("Numero=99999"),
        QStringLiteral("Piso=PB"),
        QStringLiteral("Depto='"),
        QStringLiteral("CodPos=B1870ABC"),
        QStringLiteral("Localidad=") + conComillas,
        QStringLiteral("Provincia=1"),
        QStringLiteral("Telefono=(011) 4201-5555"),
        QStringLiteral("Nacio=1925-12-31"),
        QStringLiteral("EstCivil=2"),
        QStringLiteral("Afiliado=1"),
        QStringLiteral("Sueldo=10000000"),
        QStringLiteral("Imponible=9000000"),
        QStringLiteral("Categoria=22"),
        QStringLiteral("Ingreso=2001-02-03"),
        QStringLiteral("Egreso=2000-01-01"),
        QStringLiteral("Sucursal=77"),
        QStringLiteral("QHoras=150"),
        QStringLiteral("ART100=266000"),
        QStringLiteral("ART101A=133000"),
        QStringLiteral("ART101B=133000"),
        QStringLiteral("Acuerdo=1000000"),
        QStringLiteral("Acuerdo2=0"),
        QStringLiteral("Familiares=0"),
    };
    EXPECT_EQ(esperado, celdas(esperado));
    EXPECT_TRUE(conexion.hay("SELECT 1 FROM Empleados_Familiares WHERE CUIL = ? AND AyN = ?", e.cuil, hijo.ayn));
}

TEST_F(GuardarEmpleado, LoQueNoSeInformaQuedaNulo)
{
    ASSERT_EQ(0, guardar(completa()));
    const QStringList esperado = {QStringLiteral("Sexo=null"),      QStringLiteral("Nacio=null"),
                                  QStringLiteral("Numero=0"),       QStringLiteral("Calle="),
                                  QStringLiteral("Provincia=null"), QStringLiteral("EstCivil=null"),
                                  QStringLiteral("Categoria=null"), QStringLiteral("Ingreso=null"),
                                  QStringLiteral("Egreso=null"),    QStringLiteral("Sucursal=0")};
    EXPECT_EQ(esperado, celdas(esperado));
}

TEST_F(GuardarEmpleado, ElTotalPierdeLosCentavosQueElImponibleConserva)
{
    struct
    {
        const char* haberes;
        const char* acuerdo;
        qint64 sueldo;
        qint64 imponible;
    } const casos[] = {{"1234567,89", "0", 12345680000, 12345678900},
                       {"123456,78", "0", 1234568000, 1234567800}, // seven digits, of which one is a decimal
                       {"12345,67", "0,01", 123456800, 123456700},
                       {"12345678,99", "", 123456800000, 123456789900}, // "1,234568E+07"
                       {"0,1", "0,2", 3000, 1000}};
    for (const auto& caso : casos)
    {
        conexion.ejecutar("DELETE FROM DDJJ_Empleados");
        EntradaEmpleado e = completa();
        e.haberes = QString::fromLatin1(caso.haberes);
        e.acuerdo = QString::fromLatin1(caso.acuerdo);
        ASSERT_EQ(0, guardar(e)) << caso.haberes;
        EXPECT_EQ(QString::number(caso.sueldo), celda("Sueldo")) << caso.haberes;
        EXPECT_EQ(QString::number(caso.imponible), celda("Imponible")) << caso.haberes;
    }
}

TEST_F(GuardarEmpleado, UnCambioRecalculaJuntaLosAcuerdosYDejaElConteoDeFamiliares)
{
    EmpleadoDePrueba anterior;
    anterior.acuerdo = Moneda::deEntero(40);
    anterior.acuerdo2 = Moneda::deEntero(60);
    anterior.familiares = 3;
    anterior.qHoras = 150;
    agregar(conexion, anterior);
    anterior.secuencia = 1;
    agregar(conexion, anterior); // the same person in another declaration

    EntradaEmpleado e = completa();
    e.nuevo = false;
    e.haberes = QStringLiteral("900,00");
    e.acuerdo = QStringLiteral("100,00");
    e.afiliado = false;
    e.qHoras = QStringLiteral("128");
    const auto aportes = guardarEmpleado(conexion, clave, e);

    ASSERT_TRUE(aportes);
    EXPECT_EQ((Aportes{1000, 20, 0, 0}), *aportes);
    const QStringList esperado = {QStringLiteral("Imponible=9000000"), QStringLiteral("Acuerdo=1000000"),
                                  QStringLiteral("Acuerdo2=0"),        QStringLiteral("Sueldo=10000000"),
                                  QStringLiteral("QHoras=128"),        QStringLiteral("Familiares=3"),
                                  QStringLiteral("ART100=200000"),     QStringLiteral("ART101A=0")};
    EXPECT_EQ(esperado, celdas(esperado));
    EXPECT_EQ(QStringLiteral("600000"), celda("Acuerdo2", 1));
}

TEST_F(GuardarEmpleado, ElMismoCuilCabeEnOtraDeclaracionPeroNoDosVecesEnUna)
{
    ASSERT_EQ(0, guardar(completa()));
    EXPECT_TRUE(cuilExistente(conexion, clave, dePrueba::cuil));
    for (const ClaveDDJJ& otra :
         {ClaveDDJJ{dePrueba::cuit, dePrueba::periodo, 1}, ClaveDDJJ{dePrueba::cuit, dePrueba::periodo.addMonths(1), 0},
          ClaveDDJJ{QStringLiteral("30-99999999-5"), dePrueba::periodo, 0}})
    {
        EXPECT_FALSE(cuilExistente(conexion, otra, dePrueba::cuil));
        EXPECT_TRUE(guardarEmpleado(conexion, otra, completa()));
    }
    const QStringList antes = todo(conexion);
    EXPECT_NE(0, guardar(completa()));
    EXPECT_EQ(antes, todo(conexion));
}

TEST_F(GuardarEmpleado, LoQueFallaNoDejaNadaEscrito)
{
    agregar(conexion, EmpleadoDePrueba());
    conexion.ejecutar("INSERT INTO Empleados_Familiares VALUES (?, 1, 'Gómez Ana', 1, 1, 0, '1975-05-06')",
                      dePrueba::cuil);
    const QStringList antes = todo(conexion);
    struct
    {
        const char* que;
        int error;
        std::function<void(EntradaEmpleado&)> cambio;
    } const casos[] = {
        {"an incomplete family row after a good one", -1,
         [](auto& e)
         {
             e.familia = {hijo, hijo};
             e.familia[1].sexo.clear();
         }},
        {"a relation that is no longer in its catalogue", 3021,
         [](auto& e)
         {
             e.familia = {hijo, hijo};
             e.familia[1].familiar = QStringLiteral("Vecino");
         }},
        {"a family row without its number", 13,
         [](auto& e)
         {
             e.familia = {hijo};
             e.familia[0].nroDoc.reset();
         }},
        {"an amount that is no number", 13, [](auto& e) { e.haberes = QStringLiteral("1,2,3"); }},
        {"an amount past all bounds", 6, [](auto& e) { e.haberes = QStringLiteral("999999999999999999"); }},
        {"hours of 0", 11, [](auto& e) { e.qHoras = QStringLiteral("0"); }},
        {"hours past all bounds", 6, [](auto& e) { e.qHoras = QStringLiteral("4294967496"); }},
        {"a document that is no number", 13, [](auto& e) { e.documento = QStringLiteral("x"); }},
        {"an employee that another desk deleted", 3021, [](auto& e) { e.cuil = QStringLiteral("20-11111111-2"); }},
    };
    for (const auto& caso : casos)
    {
        EntradaEmpleado e = completa();
        e.nuevo = false;
        e.ayn = QStringLiteral("cambiado");
        caso.cambio(e);
        EXPECT_EQ(caso.error, guardar(e)) << caso.que;
        EXPECT_EQ(antes, todo(conexion)) << caso.que;
        EXPECT_FALSE(conexion.enTransaccion()) << caso.que;
    }
}

TEST_F(GuardarEmpleado, OtroPuestoQueEscribeNoRompeElGuardado)
{
    agregar(conexion, EmpleadoDePrueba());
    Conexion otra;
    otra.abrir(base.rutaBase());
    otra.ejecutar("UPDATE DDJJ_Empleados SET AyN = 'desde el otro puesto', Familiares = 5");
    EntradaEmpleado e = completa();
    e.nuevo = false;
    EXPECT_EQ(0, guardar(e)); // the last one to save wins
    EXPECT_EQ(QStringLiteral("Pérez Juan"), celda("AyN"));
    EXPECT_EQ(QStringLiteral("5"), celda("Familiares"));

    otra.ejecutar("DELETE FROM DDJJ_Empleados");
    EXPECT_EQ(3021, guardar(e));
    EXPECT_FALSE(conexion.hay("SELECT 1 FROM DDJJ_Empleados"));
}
} // namespace
