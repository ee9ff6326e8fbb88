#include "base/net/transporte_ftp.h"

#include "base/files/archivos.h"

#include <QBuffer>
#include <QFile>
#include <QSaveFile>
#include <QUrl>
#include <cstring>
#include <curl/curl.h>
#include <utility>
#ifndef _WIN32
#include <netinet/in.h>
#include <sys/socket.h>
#endif

namespace
{
constexpr int esperaEnMilisegundos = 50; // between two calls of the notice

struct ListaDeCurl
{
    curl_slist* lista = nullptr;
    ListaDeCurl() = default;
    explicit ListaDeCurl(const QByteArray& orden)
        : lista(curl_slist_append(nullptr, orden.constData()))
    {
    }
    ~ListaDeCurl() { curl_slist_free_all(lista); }
    ListaDeCurl(const ListaDeCurl&) = delete;
    ListaDeCurl& operator=(const ListaDeCurl&) = delete;
};

/// A command line that ends inside a name would be two commands.
bool unaSolaLinea(const QString& texto)
{
    return !texto.contains(QLatin1Char('\r')) && !texto.contains(QLatin1Char('\n')) && !texto.contains(QChar(0));
}

size_t leerParaSubir(char* destino, size_t tamano, size_t cantidad, void* quien)
{
    const qint64 leidos =
        static_cast<QIODevice*>(quien)->read(destino, static_cast<qint64>(tamano) * static_cast<qint64>(cantidad));
    return leidos < 0 ? CURL_READFUNC_ABORT : static_cast<size_t>(leidos);
}

size_t escribirBajado(char* bytes, size_t tamano, size_t cantidad, void* quien)
{
    const std::size_t llegados = tamano * cantidad;
    const qint64 escritos = static_cast<QIODevice*>(quien)->write(bytes, static_cast<qint64>(llegados));
    return escritos < 0 ? 0 : static_cast<size_t>(escritos);
}

/// Once signed on, no second control connection is opened: the library would otherwise replace one that the server has
/// closed, and a file would land outside the directory that was chosen on the first one.
struct Puerta
{
    bool conectado = false;
    int puerto = 0;
};

long segundosHaciaArriba(std::chrono::milliseconds tiempo)
{
    return static_cast<long>(std::chrono::ceil<std::chrono::seconds>(tiempo).count());
}

int puertoDe(const sockaddr& direccion)
{
    if (direccion.sa_family == AF_INET)
    {
        sockaddr_in v4{};
        std::memcpy(&v4, &direccion, sizeof v4);
        return ntohs(v4.sin_port);
    }
    if (direccion.sa_family == AF_INET6)
    {
        sockaddr_in6 v6{};
        std::memcpy(&v6, &direccion, sizeof v6);
        return ntohs(v6.sin6_port);
    }
    return 0;
}

curl_socket_t abrirConexion(void* quien, curlsocktype, curl_sockaddr* direccion)
{
    auto* puerta = static_cast<Puerta*>(quien);
    const int puerto = puertoDe(direccion->addr);
    if (puerta->conectado && puerto == puerta->puerto)
    {
        return CURL_SOCKET_BAD;
    }
    if (!puerta->conectado)
    {
        puerta->puerto = puerto;
    }
    return socket(direccion->family, direccion->socktype, direccion->protocol);
}

/// The library would wait for the answer to its QUIT without any limit of ours. Nothing happens to CURL_SOCKET_BAD.
void noEsperarLaDespedida(curl_socket_t control)
{
#ifdef _WIN32
    // A wait may outlast the reading there. So this QUIT is ours: the library can send none then, and waits for none.
    constexpr char despedida[] = "QUIT\r\n";
    send(control, despedida, sizeof despedida - 1, 0);
    shutdown(control, SD_SEND);
#else
    shutdown(control, SHUT_RD);
#endif
}

struct Respuesta
{
    QByteArray texto;
    qint64 recibidos = 0;
};

size_t juntarRespuesta(char* bytes, size_t tamano, size_t cantidad, void* quien)
{
    constexpr qsizetype tope = 16384;
    auto* respuesta = static_cast<Respuesta*>(quien);
    const std::size_t llegados = tamano * cantidad;
    respuesta->recibidos += static_cast<qint64>(llegados);
    if (respuesta->texto.size() < tope)
    {
        respuesta->texto.append(bytes, static_cast<qsizetype>(llegados));
    }
    return llegados;
}

/// The library's own watch averages over some seconds, and so would end later than the limit says.
class Vigilancia
{
public:
    void empezar(std::chrono::milliseconds limite)
    {
        m_limite = limite;
        m_visto = -1;
    }
    /// True once nothing has moved for longer than the limit.
    bool estancado(qint64 movidos)
    {
        const auto ahora = std::chrono::steady_clock::now();
        if (std::exchange(m_visto, movidos) != movidos)
        {
            m_ultimo = ahora;
        }
        return ahora - m_ultimo > m_limite;
    }

private:
    std::chrono::milliseconds m_limite{};
    std::chrono::steady_clock::time_point m_ultimo;
    qint64 m_visto = -1;
};
} // namespace

struct TransporteFtp::Interno
{
    Limites limites;
    Aviso aviso;
    Cuenta cuenta;
    CURL* facil = nullptr;
    CURLM* varios = nullptr;
    Puerta puerta;
    curl_socket_t control = CURL_SOCKET_BAD; ///< of the connection that is kept
    Vigilancia vigilancia;
    int codigo = 0;
    QString error;
    Respuesta respuesta;
    CURLcode preparada = CURLE_OK;
    char detalle[CURL_ERROR_SIZE] = {};

    /// Sets an option of the next operation, which fails when one could not be set.
    template <class V>
    void poner(CURLoption opcion, V valor)
    {
        const CURLcode puesta = curl_easy_setopt(facil, opcion, valor);
        preparada = preparada == CURLE_OK ? puesta : preparada;
    }

    void fallar(int numero, const QString& texto)
    {
        codigo = numero;
        error = texto;
    }

    /// The options that every operation shares. Without NOCWD the library would go back to the first directory.
    void preparar(const QString& remoto = {})
    {
        curl_easy_reset(facil);
        respuesta = {};
        preparada = CURLE_OK;
        vigilancia.empezar(limites.sinAvance);
        detalle[0] = 0;
        const QByteArray direccion = "ftp://" + cuenta.servidor.toUtf8() + '/' + QUrl::toPercentEncoding(remoto);
        poner(CURLOPT_URL, direccion.constData());
        poner(CURLOPT_PROTOCOLS_STR, "ftp");
        poner(CURLOPT_DEFAULT_PROTOCOL, "ftp");
        poner(CURLOPT_USERNAME, cuenta.usuario.toUtf8().constData());
        poner(CURLOPT_PASSWORD, cuenta.clave.toUtf8().constData());
        poner(CURLOPT_FTP_FILEMETHOD, static_cast<long>(CURLFTPMETHOD_NOCWD));
        poner(CURLOPT_FTP_USE_EPSV, 0L);
        poner(CURLOPT_PROXY, "");
        poner(CURLOPT_OPENSOCKETFUNCTION, abrirConexion);
        poner(CURLOPT_OPENSOCKETDATA, &puerta);
        poner(CURLOPT_NOSIGNAL, 1L);
        poner(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(limites.conexion.count()));
        poner(CURLOPT_SERVER_RESPONSE_TIMEOUT, segundosHaciaArriba(limites.sinAvance));
        poner(CURLOPT_QUICK_EXIT, 1L); // a name that is still being looked up is not waited for
        poner(CURLOPT_NOPROGRESS, 0L);
        poner(CURLOPT_XFERINFOFUNCTION, avanzar);
        poner(CURLOPT_XFERINFODATA, this);
        poner(CURLOPT_ERRORBUFFER, detalle);
        poner(CURLOPT_HEADERFUNCTION, juntarRespuesta);
        poner(CURLOPT_HEADERDATA, &respuesta);
    }

    /// The library calls it in each of its rounds, and once a second while it waits by itself for a file's last answer.
    static int avanzar(void* quien, curl_off_t porBajar, curl_off_t bajados, curl_off_t porSubir, curl_off_t subidos)
    {
        auto* interno = static_cast<Interno*>(quien);
        if (interno->aviso)
        {
            interno->aviso(subidos + bajados, porSubir + porBajar);
        }
        return interno->vigilancia.estancado(subidos + bajados + interno->respuesta.recibidos) ? 1 : 0;
    }

    bool realizar()
    {
        const bool agregada = preparada == CURLE_OK && curl_multi_add_handle(varios, facil) == CURLM_OK;
        if (!agregada)
        {
            fallar(CURLE_FAILED_INIT, QString::fromUtf8(curl_easy_strerror(preparada)));
            return false;
        }
        int enCurso = 1;
        CURLMcode estado = CURLM_OK;
        while (enCurso > 0 && estado == CURLM_OK)
        {
            estado = curl_multi_perform(varios, &enCurso);
            if (enCurso > 0 && estado == CURLM_OK)
            {
                estado = curl_multi_poll(varios, nullptr, 0, esperaEnMilisegundos, nullptr);
            }
        }
        CURLcode resultado = CURLE_FAILED_INIT;
        int restantes = 0;
        while (const CURLMsg* mensaje = curl_multi_info_read(varios, &restantes))
        {
            if (mensaje->msg == CURLMSG_DONE)
            {
                resultado = mensaje->data.result;
            }
        }
        curl_easy_getinfo(facil, CURLINFO_ACTIVESOCKET, &control);
        curl_multi_remove_handle(varios, facil);
        if (resultado != CURLE_OK)
        {
            fallar(resultado, QString::fromUtf8(detalle[0] != 0 ? detalle : curl_easy_strerror(resultado)));
        }
        return resultado == CURLE_OK;
    }

    /// Sends one command and nothing else. The asterisk keeps the connection when the server refuses: the library would
    /// give it up, and what comes next would not be done any more.
    bool mandar(const QString& orden)
    {
        if (!puerta.conectado || !unaSolaLinea(orden))
        {
            fallar(CURLE_BAD_FUNCTION_ARGUMENT, QStringLiteral("sin conexión o nombre no válido"));
            return false;
        }
        preparar();
        const ListaDeCurl lista('*' + orden.toUtf8());
        poner(CURLOPT_NOBODY, 1L);
        poner(CURLOPT_QUOTE, lista.lista);
        if (!realizar())
        {
            return false;
        }
        constexpr long primeroDeLosRechazos = 400;
        long codigoDelServidor = 0;
        curl_easy_getinfo(facil, CURLINFO_RESPONSE_CODE, &codigoDelServidor);
        if (codigoDelServidor >= primeroDeLosRechazos)
        {
            fallar(CURLE_QUOTE_ERROR, QString::fromUtf8(respuesta.texto).trimmed());
        }
        return codigoDelServidor < primeroDeLosRechazos;
    }
};

TransporteFtp::TransporteFtp(Limites limites)
    : m_interno(std::make_unique<Interno>())
{
    static const bool iniciada = curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK;
    Q_UNUSED(iniciada);
    m_interno->limites = limites;
}

TransporteFtp::~TransporteFtp()
{
    cerrar();
}

void TransporteFtp::setAviso(Aviso aviso)
{
    m_interno->aviso = std::move(aviso);
}

void TransporteFtp::setLimites(Limites limites)
{
    m_interno->limites = limites;
}

bool TransporteFtp::iniciada() const
{
    return m_interno->facil != nullptr && m_interno->varios != nullptr;
}

bool TransporteFtp::conectar(const Cuenta& cuenta)
{
    cerrar();
    m_interno->cuenta = cuenta;
    m_interno->facil = curl_easy_init();
    m_interno->varios = curl_multi_init();
    if (!iniciada())
    {
        m_interno->fallar(CURLE_FAILED_INIT, QStringLiteral("no se pudo iniciar la conexión"));
        return false;
    }
    if (!unaSolaLinea(cuenta.servidor) || cuenta.servidor.contains(QLatin1Char('/')) ||
        cuenta.servidor.contains(QLatin1Char('@')))
    {
        m_interno->fallar(CURLE_URL_MALFORMAT, QStringLiteral("servidor no válido"));
        return false;
    }
    m_interno->preparar();
    m_interno->poner(CURLOPT_NOBODY, 1L);
    m_interno->puerta.conectado = m_interno->realizar();
    return m_interno->puerta.conectado;
}

bool TransporteFtp::cerrar()
{
    const bool habia = std::exchange(m_interno->puerta.conectado, false);
    // The connection lives in the multi handle: it says QUIT when that goes.
    noEsperarLaDespedida(std::exchange(m_interno->control, CURL_SOCKET_BAD));
    curl_easy_cleanup(std::exchange(m_interno->facil, nullptr));
    if (m_interno->varios != nullptr)
    {
        curl_multi_cleanup(std::exchange(m_interno->varios, nullptr));
    }
    return habia;
}

QString TransporteFtp::directorioActual()
{
    if (!m_interno->mandar(QStringLiteral("PWD")))
    {
        return {};
    }
    // 257 "/a ""quoted"" directory"
    const QString respuesta = QString::fromUtf8(m_interno->respuesta.texto);
    const qsizetype codigo = respuesta.lastIndexOf(QStringLiteral("257 "));
    const qsizetype desde = respuesta.indexOf(QLatin1Char('"'), qMax(qsizetype{0}, codigo)) + 1;
    const qsizetype hasta = respuesta.lastIndexOf(QLatin1Char('"'));
    if (codigo < 0 || desde <= 0 || hasta < desde)
    {
        return {};
    }
    return respuesta.mid(desde, hasta - desde).replace(QStringLiteral("\"\""), QStringLiteral("\""));
}

bool TransporteFtp::cambiarDirectorio(const QString& ruta)
{
    return m_interno->mandar(QStringLiteral("CWD ") + ruta);
}

bool TransporteFtp::subir(const QString& local, const QString& remoto, Tipo tipo)
{
    QFile archivo(local);
    if (!m_interno->puerta.conectado || !unaSolaLinea(remoto) || !archivo.open(QIODevice::ReadOnly))
    {
        m_interno->fallar(CURLE_READ_ERROR, archivo.errorString());
        return false;
    }
    QByteArray bytes = archivo.readAll();
    if (archivo.error() != QFileDevice::NoError)
    {
        m_interno->fallar(CURLE_READ_ERROR, archivo.errorString());
        return false;
    }
    const bool ascii = tipo == Tipo::Ascii;
    if (ascii)
    {
        // The library makes CR LF of every LF: by itself in ASCII on some systems, with CURLOPT_CRLF on all.
        bytes.replace("\r\n", "\n");
    }
    QBuffer lectura(&bytes);
    lectura.open(QIODevice::ReadOnly);
    m_interno->preparar(remoto);
    m_interno->poner(CURLOPT_UPLOAD, 1L);
    m_interno->poner(CURLOPT_TRANSFERTEXT, ascii ? 1L : 0L);
    m_interno->poner(CURLOPT_CRLF, ascii ? 1L : 0L);
    m_interno->poner(CURLOPT_READFUNCTION, leerParaSubir);
    m_interno->poner(CURLOPT_READDATA, static_cast<QIODevice*>(&lectura));
    return m_interno->realizar();
}

bool TransporteFtp::bajar(const QString& remoto, const QString& local, bool fallarSiExiste, Tipo tipo)
{
    if (!m_interno->puerta.conectado || !unaSolaLinea(remoto) || (fallarSiExiste && Archivos::existe(local)))
    {
        m_interno->fallar(CURLE_WRITE_ERROR, QStringLiteral("el archivo ya existe o no hay conexión"));
        return false;
    }
    QSaveFile archivo(local);
    if (!archivo.open(QIODevice::WriteOnly))
    {
        m_interno->fallar(CURLE_WRITE_ERROR, archivo.errorString());
        return false;
    }
    m_interno->preparar(remoto);
    m_interno->poner(CURLOPT_TRANSFERTEXT, tipo == Tipo::Ascii ? 1L : 0L);
    m_interno->poner(CURLOPT_WRITEFUNCTION, escribirBajado);
    m_interno->poner(CURLOPT_WRITEDATA, static_cast<QIODevice*>(&archivo));
    return m_interno->realizar() && archivo.commit();
}

bool TransporteFtp::borrar(const QString& remoto)
{
    return m_interno->mandar(QStringLiteral("DELE ") + remoto);
}

bool TransporteFtp::borrarDirectorio(const QString& remoto)
{
    return m_interno->mandar(QStringLiteral("RMD ") + remoto);
}

int TransporteFtp::ultimoCodigo() const
{
    return m_interno->codigo;
}

QString TransporteFtp::ultimoError() const
{
    return m_interno->error;
}
