#include "exchange/importacion.h"

#include "base/db/conexion.h"
#include "base/error_de_ejecucion.h"
#include "base/numbers/formato.h"
#include "core/vigencia.h"
#include "exchange/archivo_uno.h"
#include "exchange/linea_de_nomina.h"
#include "exchange/sumas_de_nomina.h"

#include <QScopeGuard>
#include <unordered_map>

namespace
{
/// Lines between two calls of the progress.
constexpr int lineasPorTramo = 256;
constexpr int jornadaCompleta = 200;
constexpr int jornadaReducida = 100;

/// Many times what the people that a declaration has room for take, with their families.
constexpr std::size_t archivoMasLargo = std::size_t{64} * 1024 * 1024;

/// Contributions of a line, in single precision from step to step, so that they agree cent by cent with those of
/// other copies of the file.
struct AportesDeLinea
{
    Moneda art100;
    Moneda art101; ///< each of the two
};

AportesDeLinea calcular(float imponible, float acuerdo, int horas, bool afiliado)
{
    const float base = imponible + acuerdo;
    const float factor = horas == jornadaCompleta ? 1.0F : 2.0F;
    AportesDeLinea aportes;
    aportes.art100 = Moneda::deSimple(Redondear2(2.0F * base / 100.0F));
    if (afiliado)
    {
        aportes.art101 = Moneda::deSimple(Redondear2(base * factor / 100.0F));
    }
    return aportes;
}

std::optional<std::string_view> comoTexto(const std::optional<FechaDeNomina>& fecha)
{
    return fecha ? std::optional(std::string_view(fecha->data(), fecha->size())) : std::nullopt;
}

void recortar(std::string& texto)
{
    texto.erase(texto.find_last_not_of(' ') + 1);
    texto.erase(0, std::min(texto.find_first_not_of(' '), texto.size()));
}

/// One run: its statements, its buffers and its counts.
class Importacion
{
public:
    Importacion(Conexion& conexion, const ClaveDDJJ& clave);
    void tomarAfip(const LineaDeNomina& linea);
    void tomarBrivo(const LineaDeNomina& linea);
    [[nodiscard]] ResultadoImportacion resultado() const { return m_resultado; }

private:
    [[nodiscard]] bool yaEsta();
    void tomarEmpleado(const LineaDeNomina& linea, int tipoDoc, int nroDoc, int sexo);
    void tomarFamiliar(const LineaDeNomina& linea, int familiar, int tipoDoc, int nroDoc, int sexo);
    /// ID of the branch with the code of the line, blanks included; 0 when the company has none such.
    [[nodiscard]] qint64 sucursal(const LineaDeNomina& linea);

    Valor m_cuit;
    Valor m_periodo;
    Valor m_secuencia;
    Sentencia m_buscarEmpleado;
    Sentencia m_insertarAfip;
    Sentencia m_insertarBrivo;
    Sentencia m_buscarSucursal;
    Sentencia m_buscarFamiliar;
    Sentencia m_insertarFamiliar;
    std::string m_cuil;
    std::string m_ayn;
    std::string m_aynGuardado;
    std::string m_calle;
    std::string m_piso;
    std::string m_depto;
    std::string m_codPos;
    std::string m_localidad;
    std::string m_telefono;
    std::string m_codigo;
    std::unordered_map<std::string, qint64> m_sucursales; ///< what a code was found to be
    SumasDeNomina m_sumas;
    ResultadoImportacion m_resultado;
};

Importacion::Importacion(Conexion& conexion, const ClaveDDJJ& clave)
    : m_cuit(clave.cuit)
    , m_periodo(clave.periodo)
    , m_secuencia(clave.secuencia)
    , m_buscarEmpleado(conexion.preparar(
          "SELECT * FROM DDJJ_Empleados WHERE Cuit = ? AND Periodo = ? AND Secuencia = ? AND Cuil = ?"))
    , m_insertarAfip(conexion.preparar(
          "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sueldo, Imponible, "
          "Afiliado, QHoras, ART100, ART101A, ART101B, Familiares, Sexo, Provincia, Acuerdo, Acuerdo2) "
          "VALUES (?, ?, ?, ?, ?, 1, ?, ?, ?, 1, ?, ?, ?, ?, ?, NULL, 1, ?, 0)"))
    , m_insertarBrivo(conexion.preparar(
          "INSERT INTO DDJJ_Empleados (Cuit, Periodo, Secuencia, Cuil, AyN, TipoDoc, NroDoc, Sexo, Calle, Numero, "
          "Piso, Depto, CodPos, Localidad, Provincia, Telefono, Nacio, EstCivil, Afiliado, Sueldo, Imponible, "
          "Categoria, Ingreso, Egreso, Sucursal, QHoras, ART100, ART101A, ART101B, Familiares, Acuerdo, Acuerdo2) "
          "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, 0, ?, 0)"))
    // The field is ten characters wide and a code mostly shorter: blanks at the end are no part of it.
    , m_buscarSucursal(conexion.preparar("SELECT ID FROM Empresas_Sucursales WHERE Cuit = ? AND "
                                         "rtrim(Sucursal) = rtrim(?) COLLATE espanol"))
    // The forty characters read never equal the thirty stored, blanks included, and a Null date never equals another:
    // a new run inserts the same person again. Known and kept.
    , m_buscarFamiliar(conexion.preparar("SELECT * FROM Empleados_Familiares WHERE CUIL = ? AND Familiar = ? "
                                         "AND AyN = ? AND TipoDoc = ? AND NroDoc = ? AND Sexo = ? AND Nacio = ?"))
    , m_insertarFamiliar(
          conexion.preparar("INSERT INTO Empleados_Familiares (CUIL, Familiar, AyN, TipoDoc, NroDoc, Sexo, Nacio) "
                            "VALUES (?, ?, ?, ?, ?, ?, ?)"))
    , m_sumas(conexion, clave)
{
}

bool Importacion::yaEsta()
{
    return m_buscarEmpleado.hay(m_cuit, m_periodo, m_secuencia, m_cuil);
}

void Importacion::tomarAfip(const LineaDeNomina& linea)
{
    linea.cuil(m_cuil);
    const int nroDoc = linea.entero(3, 8, "NroDoc");
    linea.textoSinApostrofos(12, 30, m_ayn);
    recortar(m_ayn);
    const float sueldo = linea.importe(70, 11, "Sueldo");
    const float imponible = linea.importe(81, 11, "Imponible");
    if (yaEsta())
    {
        return;
    }
    const int familiares = (linea.trozo(42, 1) == "T" ? 1 : 0) + linea.entero(43, 2, "Familiares");
    const int horas = linea.trozo(58, 3) == "001" ? jornadaReducida : jornadaCompleta;
    const float acuerdo = std::max(sueldo - imponible, 0.0F);
    const AportesDeLinea aportes = calcular(imponible, acuerdo, horas, true);
    const Moneda imponibleExacto = Moneda::deSimple(imponible);
    const Moneda acuerdoExacto = Moneda::deSimple(acuerdo);
    m_sumas.agregar(familiares, {imponibleExacto, acuerdoExacto, aportes.art100, aportes.art101, aportes.art101});
    ++m_resultado.titulares;
    m_insertarAfip.ejecutar(m_cuit, m_periodo, m_secuencia, m_cuil, m_ayn, nroDoc, Moneda::deSimple(sueldo),
                            imponibleExacto, horas, aportes.art100, aportes.art101, aportes.art101, familiares,
                            acuerdoExacto);
}

void Importacion::tomarBrivo(const LineaDeNomina& linea)
{
    linea.cuil(m_cuil);
    const int familiar = linea.entero(12, 1, "Familiar");
    linea.textoSinApostrofos(13, 40, m_ayn);
    const int tipoDoc = linea.entero(53, 1, "TipoDoc");
    const int nroDoc = linea.entero(54, 8, "NroDoc");
    const int sexo = linea.entero(62, 1, "Sexo");
    if (familiar != 0)
    {
        tomarFamiliar(linea, familiar, tipoDoc, nroDoc, sexo);
    }
    else
    {
        tomarEmpleado(linea, tipoDoc, nroDoc, sexo);
    }
}

void Importacion::tomarEmpleado(const LineaDeNomina& linea, int tipoDoc, int nroDoc, int sexo)
{
    const int estCivil = linea.entero(182, 1, "EstCivil");
    const bool afiliado = linea.trozo(183, 1) != "N";
    const float sueldo = linea.importe(184, 9, "Sueldo");
    const float imponible = linea.importe(193, 9, "Imponible");
    const int categoria = linea.entero(202, 2, "Categoria");
    const int horas = linea.entero(230, 1, "QHoras") == 8 ? jornadaCompleta : jornadaReducida;
    const float acuerdo = linea.importe(231, 9, "Acuerdo") + linea.importe(240, 9, "Acuerdo");
    if (yaEsta())
    {
        return;
    }
    const AportesDeLinea aportes = calcular(imponible, acuerdo, horas, afiliado);
    const qint64 idSucursal = sucursal(linea);
    linea.textoSinApostrofos(71, 40, m_calle);
    const int numero = linea.valor(111, 5);
    linea.texto(116, 3, m_piso);
    linea.texto(119, 3, m_depto);
    linea.texto(122, 8, m_codPos);
    linea.texto(130, 30, m_localidad);
    const std::optional<int> provincia = linea.enteroOBlanco(160, 2, "Provincia");
    linea.texto(162, 20, m_telefono);
    const Moneda imponibleExacto = Moneda::deSimple(imponible);
    const Moneda acuerdoExacto = Moneda::deSimple(acuerdo);
    m_sumas.agregar(0, {imponibleExacto, acuerdoExacto, aportes.art100, aportes.art101, aportes.art101});
    const auto nacio = linea.fecha(63, "Nacio");
    const auto ingreso = linea.fecha(204, "Ingreso");
    const auto egreso = linea.fecha(212, "Egreso");
    ++m_resultado.titulares;
    m_insertarBrivo.ejecutar(m_cuit, m_periodo, m_secuencia, m_cuil, m_ayn, tipoDoc, nroDoc, sexo, m_calle, numero,
                             m_piso, m_depto, m_codPos, m_localidad, provincia, m_telefono, comoTexto(nacio), estCivil,
                             afiliado, Moneda::deSimple(sueldo), imponibleExacto, categoria, comoTexto(ingreso),
                             comoTexto(egreso), idSucursal, horas, aportes.art100, aportes.art101, aportes.art101,
                             acuerdoExacto);
}

void Importacion::tomarFamiliar(const LineaDeNomina& linea, int familiar, int tipoDoc, int nroDoc, int sexo)
{
    if (!yaEsta())
    {
        return;
    }
    const auto fecha = linea.fecha(63, "Nacio");
    const auto nacio = comoTexto(fecha);
    if (m_buscarFamiliar.hay(m_cuil, familiar, m_ayn, tipoDoc, nroDoc, sexo, nacio))
    {
        return;
    }
    linea.textoSinApostrofos(13, 30, m_aynGuardado);
    m_insertarFamiliar.ejecutar(m_cuil, familiar, m_aynGuardado, tipoDoc, nroDoc, sexo, nacio);
    ++m_resultado.familiares;
}

qint64 Importacion::sucursal(const LineaDeNomina& linea)
{
    linea.texto(220, 10, m_codigo);
    if (m_codigo.empty())
    {
        return 0;
    }
    const auto [sucursal, nueva] = m_sucursales.try_emplace(m_codigo, 0);
    if (nueva)
    {
        const auto id = [](const Fila& fila) { return fila.entero("ID"); };
        sucursal->second = m_buscarSucursal.una(id, m_cuit, m_codigo).value_or(0);
    }
    return sucursal->second;
}

void tomarLinea(Importacion& importacion, const LineaDeNomina& linea, FormatoDeNomina formato, int numero)
{
    try
    {
        if (formato == FormatoDeNomina::AfipSijp)
        {
            importacion.tomarAfip(linea);
        }
        else
        {
            importacion.tomarBrivo(linea);
        }
    }
    catch (const FallaDeCampo& falla)
    {
        throw ErrorDeEjecucion::conDetalle(
            falla.numero, QStringLiteral("línea %1, campo %2").arg(numero).arg(QLatin1String(falla.campo)));
    }
    catch (const ErrorDeEjecucion& error)
    {
        throw ErrorDeEjecucion(error.numero(),
                               QStringLiteral("%1: línea %2").arg(error.descripcion(), QString::number(numero)));
    }
}

/// All lines of the file, each with one "\n" at its end: a file on a slow share must not keep the database locked.
std::string leerLineas(LectorDeLineas& archivo, const Aviso& aviso)
{
    std::string lineas;
    QByteArrayView linea;
    for (int numero = 1; archivo.leer(linea); ++numero)
    {
        if (lineas.size() + static_cast<std::size_t>(linea.size()) > archivoMasLargo)
        {
            throw ErrorDeEjecucion::conDetalle(ErrorDeEjecucion::SinMemoria,
                                               QStringLiteral("el archivo tiene más de 64 MB"));
        }
        lineas.append(linea.data(), static_cast<std::size_t>(linea.size())) += '\n';
        if (numero % lineasPorTramo == 0)
        {
            aviso(0, archivo.largo());
        }
    }
    return lineas;
}
} // namespace

ResultadoImportacion importarNomina(Conexion& conexion, const ClaveDDJJ& clave, const QString& ruta,
                                    FormatoDeNomina formato, const Aviso& aviso)
{
    const Aviso avisar = [&](qint64 hecho, qint64 total)
    {
        auto abandono = qScopeGuard([] { ArchivoUno::cerrar(); });
        aviso ? aviso(hecho, total) : void();
        abandono.dismiss();
    };
    const std::string lineas = leerLineas(ArchivoUno::abrirParaLeer(ruta), avisar);
    auto cierre = qScopeGuard([] { ArchivoUno::cerrar(); });
    Transaccion transaccion(conexion);
    exigirDeclaracion(conexion, clave);
    Importacion importacion(conexion, clave);
    cierre.dismiss(); // an error in a line leaves the file open
    std::size_t desde = 0;
    for (int numero = 1; desde < lineas.size(); ++numero)
    {
        const std::size_t fin = lineas.find('\n', desde);
        const QByteArrayView linea(lineas.data() + desde, static_cast<qsizetype>(fin - desde));
        tomarLinea(importacion, LineaDeNomina(linea), formato, numero);
        desde = fin + 1;
        if (numero % lineasPorTramo == 0)
        {
            avisar(static_cast<qint64>(desde), static_cast<qint64>(lineas.size()));
        }
    }
    ArchivoUno::cerrar();
    transaccion.confirmar();
    return importacion.resultado();
}

QString mensajeDeImportacion(const ResultadoImportacion& resultado, FormatoDeNomina formato)
{
    if (resultado.titulares == 0)
    {
        return QStringLiteral("No se ha actualizado ningún Registro.  Por favor, verifique los datos ingresados.");
    }
    if (formato == FormatoDeNomina::AfipSijp)
    {
        return QStringLiteral("Se han ingresado %1 Registros Titulares.  Por favor, complete los datos faltantes.")
            .arg(resultado.titulares);
    }
    return QStringLiteral(
               "Se han ingresado %1 Registros Titulares y %2 Registros Familiares.  Por favor, verifique los "
               "datos importados.")
        .arg(resultado.titulares)
        .arg(resultado.familiares);
}
