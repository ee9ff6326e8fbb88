#include "base/db/conexion.h"
#include "base_desnuda.h"
#include "exchange/informe_ddjj.h"
#include "medida.h"
#include "ui/report/informe_paginas.h"

#include <QImage>
#include <QPainter>
#include <QTextDocument>

namespace
{
constexpr int muchos = 20'000;
constexpr int algunos = 2'000;
constexpr qint64 indice = 7;
const ClaveDDJJ clave{QStringLiteral("30-12345678-9"), QDate(2009, 5, 1), 0};

/// A roster of this many: every tenth name long, every fifth with a datum missing.
void llenar(const QString& ruta, int empleados)
{
    desnuda::Base base(ruta.toStdString());
    base.ejecutar("BEGIN");
    desnuda::Sentencia fila(
        *base,
        "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Nacio, EstCivil, "
        "Categoria, Ingreso, Afiliado, QHoras, Imponible, ART100, ART101A, ART101B, Acuerdo, Sucursal) VALUES "
        "('30-12345678-9', '2009-05-01', 0, ?, ?, 1, ?, 1, '1970-01-01', 1, ?, '2001-02-03', 1, 200, ?, ?, ?, ?, "
        "1000, ?)");
    for (int i = 0; i < empleados; ++i)
    {
        const std::string digitos = std::to_string(10'000'000 + i);
        const std::string cuil = "20-" + digitos + "-1";
        const std::string nombre = i % 10 == 0 ? "Fernández de la Reguera Vizcaíno, María de los"
                                               : "Ñúñez " + std::to_string(i * 7919 % empleados);
        const int sueldo = 90'000'000 + i * 3700;
        fila.texto(1, cuil);
        fila.texto(2, nombre);
        fila.entero(3, i % 5 == 0 ? 0 : i + 1);
        fila.entero(4, 11 + i % 12);
        fila.entero(5, sueldo);
        fila.entero(6, sueldo / 50);
        fila.entero(7, sueldo / 100);
        fila.entero(8, sueldo / 100);
        fila.entero(9, i % 3 == 0 ? 1 : 0);
        fila.correr();
    }
    base.ejecutar("COMMIT");
}

/// Staging a report and taking its rows away again, by bare SQLite and by the program.
class Preparacion : public medida::Caso
{
public:
    explicit Preparacion(InformeDDJJ cual)
        : m_cual(cual)
    {
        for (const char* nombre : {"uno.mdb", "otro.mdb"})
        {
            m_taller.ponerBase(nombre);
            llenar(m_taller.ruta(nombre), muchos);
        }
        m_desnuda = std::make_unique<desnuda::Base>(m_taller.ruta("uno.mdb").toStdString());
        m_programa.abrir(m_taller.ruta("otro.mdb"));
    }
    void antesDeReferencia() override { m_desnuda->ejecutar("DELETE FROM RptEmpleados"); }
    void antesDePrograma() override { m_programa.ejecutar("DELETE FROM RptEmpleados"); }
    void referencia() override
    {
        m_desnuda->ejecutar("BEGIN IMMEDIATE");
        m_cual == InformeDDJJ::Declaracion ? declaracion() : incompletos();
        m_desnuda->ejecutar("COMMIT");
    }
    void programa() override { prepararInforme(m_programa, clave, indice, m_cual); }
    void comprobar() override
    {
        const char* todo =
            "SELECT Indice, Tipo, Sucursal, AyN, Cuil, TipoDoc, NroDoc, Sexo, Nacio, EstCivil, Categoria, "
            "Ingreso, Imponible, Calle FROM RptEmpleados ORDER BY rowid";
        const std::string uno = desnuda::volcar(m_taller.ruta("uno.mdb").toStdString(), todo);
        if (uno.empty() || uno != desnuda::volcar(m_taller.ruta("otro.mdb").toStdString(), todo))
        {
            throw std::runtime_error("the staged rows differ");
        }
    }

private:
    void declaracion()
    {
        m_desnuda->ejecutar(
            "INSERT INTO RptEmpleados (Indice, Tipo, Sucursal_Cod, AyN, Cuil, Ingreso, Categoria, QHoras, Imponible, "
            "Art100, "
            "Art101A, Art101B, Egreso, Acuerdo, Acuerdo2) SELECT 7, 0, Sucursal, AyN, Cuil, Ingreso, "
            "Categorias.Nombre, "
            "QHoras, Imponible, ART100, ART101A, ART101B, Egreso, Acuerdo, Acuerdo2 FROM DDJJ_Empleados LEFT JOIN "
            "Categorias "
            "ON Categoria = Codigo WHERE Cuit = '30-12345678-9' AND Periodo = '2009-05-01' AND Secuencia = 0");
        m_desnuda->ejecutar("UPDATE RptEmpleados SET Sucursal = S.Sucursal FROM Empresas_Sucursales AS S "
                            "WHERE Sucursal_Cod = S.ID AND Indice = 7");
        m_desnuda->ejecutar(
            "INSERT INTO RptEmpleados (Indice, Tipo, Sucursal, Calle, Numero, CodPos, Localidad, Telefono) "
            "SELECT 7, 1, Sucursal, Domicilio, Numero, CodPos, Localidad, Telefono FROM Empresas_Sucursales "
            "WHERE Cuit = '30-12345678-9' ORDER BY Localidad, Domicilio, Numero");
    }
    void incompletos()
    {
        desnuda::Sentencia leer(
            **m_desnuda,
            "SELECT AyN, Cuil, Documentos.Nombre, NroDoc, Sexo, Nacio, EstadoCivil.Nombre, Categorias.Nombre, Ingreso "
            "FROM "
            "DDJJ_Empleados LEFT JOIN Categorias ON Categoria = Categorias.Codigo LEFT JOIN Documentos ON TipoDoc = "
            "Documentos.Codigo LEFT JOIN EstadoCivil ON EstCivil = EstadoCivil.Codigo WHERE Cuit = '30-12345678-9' AND "
            "Periodo = '2009-05-01' AND Secuencia = 0 ORDER BY Cuil");
        desnuda::Sentencia poner(**m_desnuda,
                                 "INSERT INTO RptEmpleados (Indice, AyN, Cuil, TipoDoc, NroDoc, Sexo, Nacio, EstCivil, "
                                 "Categoria, Ingreso, Tipo) VALUES (7, ?, ?, ?, ?, ?, ?, ?, ?, ?, NULL)");
        while (leer.paso())
        {
            bool falta = !leer.esNulo(3) && leer.numero(3) == 0;
            for (const int columna : {2, 4, 5, 6, 7, 8})
            {
                falta = falta || leer.esNulo(columna);
            }
            if (!falta)
            {
                continue;
            }
            for (int columna = 0; columna < 9; ++columna)
            {
                if (leer.esNulo(columna))
                {
                    poner.nulo(columna + 1);
                }
                else if (columna == 3 || columna == 4)
                {
                    poner.entero(columna + 1, leer.numero(columna));
                }
                else
                {
                    poner.texto(columna + 1, leer.leer(columna));
                }
            }
            poner.correr();
        }
    }

    InformeDDJJ m_cual;
    Taller m_taller;
    std::unique_ptr<desnuda::Base> m_desnuda;
    Conexion m_programa;
};

/// From the staged rows to the first page on view.
class VistaPrevia : public medida::Caso
{
public:
    explicit VistaPrevia(int empleados)
        : m_empleados(empleados)
    {
        for (const auto& [nombre, cuantos] : {std::pair("base.mdb", empleados), {"menor.mdb", algunos}})
        {
            m_taller.ponerBase(nombre);
            llenar(m_taller.ruta(nombre), cuantos);
            Conexion conexion;
            conexion.abrir(m_taller.ruta(nombre));
            prepararInforme(conexion, clave, indice, InformeDDJJ::Declaracion);
        }
    }
    /// For few rows Qt's own document with the same table; for many, ten times the few.
    void referencia() override
    {
        if (m_empleados == algunos)
        {
            documentoDeQt();
            return;
        }
        for (int vez = 0; vez < m_empleados / algunos; ++vez)
        {
            (void)mostrar("menor.mdb");
        }
    }
    void programa() override { m_hojas = mostrar("base.mdb"); }
    void comprobar() override
    {
        if (m_hojas < m_empleados / 50)
        {
            throw std::runtime_error("too few pages");
        }
    }

private:
    [[nodiscard]] int mostrar(const char* base) const
    {
        auto plantilla = PlantillaDeInforme::leer(QStringLiteral(INFORMES "RptDDJJ.rpt"));
        Conexion conexion;
        conexion.abrir(m_taller.ruta(base), Conexion::Modo::SoloLectura);
        auto datos = DatosDeInforme::leer(plantilla, conexion, {{QStringLiteral("Indice"), indice}});
        const PaginasDeInforme paginas(std::move(plantilla), std::move(datos));
        QImage hoja(1200, 850, QImage::Format_RGB32);
        QPainter pintor(&hoja);
        paginas.pintar(pintor, 0);
        return paginas.cantidad();
    }
    void documentoDeQt() const
    {
        QString html = QStringLiteral("<table width=\"100%\">");
        desnuda::Base base(m_taller.ruta("base.mdb").toStdString());
        desnuda::Sentencia filas(*base,
                                 "SELECT Cuil, AyN, Ingreso, Egreso, Categoria, QHoras, Imponible, Acuerdo, Art100, "
                                 "Art101A, Art101B FROM RptEmpleados WHERE Tipo = 0 ORDER BY Sucursal, AyN");
        while (filas.paso())
        {
            html += QStringLiteral("<tr>");
            for (int columna = 0; columna < 11; ++columna)
            {
                const std::string_view texto = filas.leer(columna);
                html += QStringLiteral("<td>%1</td>")
                            .arg(QString::fromUtf8(texto.data(), static_cast<qsizetype>(texto.size())));
            }
            html += QStringLiteral("</tr>");
        }
        QTextDocument documento;
        documento.setHtml(html);
        documento.setPageSize({785, 540});
        (void)documento.pageCount();
    }

    int m_empleados;
    int m_hojas = 0;
    Taller m_taller;
};

const medida::Registro declaracion("preparación de la DD.JJ., 20.000 empleados", "SQLite en C",
                                   [] { return std::make_unique<Preparacion>(InformeDDJJ::Declaracion); });
const medida::Registro incompletos("preparación de datos incompletos, 20.000 empleados", "SQLite en C",
                                   [] { return std::make_unique<Preparacion>(InformeDDJJ::DatosIncompletos); });
const medida::Registro pocos("vista previa de la DD.JJ., 2.000 empleados", "QTextDocument de Qt",
                             [] { return std::make_unique<VistaPrevia>(algunos); });
const medida::Registro todos("vista previa de la DD.JJ., 20.000 empleados", "diez de 2.000",
                             [] { return std::make_unique<VistaPrevia>(muchos); });
} // namespace
