#include "core/screens/eleccion_empresa.h"

#include "core/lista_empresas.h"
#include "core/rutinas.h"
#include "ui/doors/mensajes.h"
#include "ui/fields/campo_mascara.h"
#include "ui/shell/error_fatal.h"
#include "ui/shell/navegacion.h"
#include "ui/shell/validacion.h"

#include <QComboBox>
#include <QShortcut>
#include <utility>

EleccionEmpresa::EleccionEmpresa(CampoMascara* maskCuit, QComboBox* cmbEmpresa, Enganches enganches, QObject* padre)
    : QObject(padre)
    , m_maskCuit(maskCuit)
    , m_cmbEmpresa(cmbEmpresa)
    , m_enganches(std::move(enganches))
{
    // Thousands of names are not measured at each filling.
    m_cmbEmpresa->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    m_cmbEmpresa->setMinimumContentsLength(32);
    Validacion::instancia().alDejar(m_maskCuit,
                                    [this]
                                    {
                                        bool puede = false; // a check that could not be made is not passed
                                        protegido([&] { puede = MaskCuit_Validate(); });
                                        return puede;
                                    });
    // Only what the user does: what the program sets in the list does not look its company up again.
    connect(m_cmbEmpresa, &QComboBox::activated, this,
            [this] { protegido([this] { oNinguna([this] { cmbEmpresa_Click(); }); }); });
    // Of the list, so that it is off with it, and on in all of its window. A shortcut leaves the field at work.
    auto* tecla = new QShortcut(QKeySequence(Qt::Key_F3), m_cmbEmpresa);
    tecla->setAutoRepeat(false);
    connect(tecla, &QShortcut::activated, this, [this] { protegido([this] { buscar(); }); });
}

bool EleccionEmpresa::cargar()
{
    llenarLista();
    m_cmbEmpresa->setCurrentIndex(-1);
    if (m_cmbEmpresa->count() == 0)
    {
        MsgBox(QStringLiteral("Debe Ingresar primero la Empresa correspondiente."), Caja::Exclamacion);
        return false;
    }
    if (m_cmbEmpresa->count() == 1)
    {
        m_cmbEmpresa->setCurrentIndex(0);
        cmbEmpresa_Click();
    }
    return true;
}

bool EleccionEmpresa::hayEmpresa() const
{
    return m_cmbEmpresa->currentIndex() != -1;
}

bool EleccionEmpresa::exigirEmpresa() const
{
    if (!hayEmpresa())
    {
        MsgBox(QStringLiteral("Debe seleccionar primero la Empresa correspondiente."), Caja::Informacion);
        m_cmbEmpresa->setFocus();
    }
    return hayEmpresa();
}

QString EleccionEmpresa::cuit() const
{
    return m_maskCuit->text();
}

QString EleccionEmpresa::razon() const
{
    return m_cmbEmpresa->currentText();
}

bool EleccionEmpresa::MaskCuit_Validate()
{
    m_enganches.alLimpiar();
    if (m_maskCuit->vacio())
    {
        m_cmbEmpresa->setCurrentIndex(-1);
        m_enganches.alElegir();
        return true;
    }
    const auto razon = razonDeCuit(Rutinas::Conexion, m_maskCuit->text());
    if (!razon)
    {
        MsgBox(QStringLiteral(
                   "Verifique los datos de la Empresa.  El Nro. de CUIT no se encuentra en la Base de Empresas."),
               Caja::Critico);
        return false;
    }
    mostrarRazon(*razon);
    m_enganches.alElegir();
    return true;
}

void EleccionEmpresa::cmbEmpresa_Click()
{
    if (!hayEmpresa()) // letters that found nothing brought the empty choice back
    {
        m_maskCuit->limpiar();
        m_enganches.alLimpiar();
        m_enganches.alElegir();
        return;
    }
    const auto cuit = cuitDeRazon(Rutinas::Conexion, razon());
    if (!cuit)
    {
        // Deleted or renamed at the other desk, or beside this screen, since the list was filled.
        MsgBox(QStringLiteral("La Empresa elegida ya no se encuentra en la Base de Empresas."), Caja::Critico);
        m_maskCuit->limpiar();
        releer();
        return;
    }
    m_maskCuit->setText(*cuit);
    m_enganches.alLimpiar();
    m_enganches.alElegir();
}

void EleccionEmpresa::buscar()
{
    // What the dialog answers by is the company of other windows, too.
    const QString deOtros = std::exchange(Rutinas::CuitActual, QString());
    Navegacion::instancia().mostrarModal(QStringLiteral("BuscarEmpresa"));
    const QString hallada = std::exchange(Rutinas::CuitActual, deOtros);
    if (hallada.isEmpty())
    {
        return;
    }
    bool esta = false;
    oNinguna(
        [&]
        {
            m_maskCuit->setText(hallada); // and not by its name, which two may share
            esta = MaskCuit_Validate();
        });
    const Validacion::Pausa pausa; // it was left when the key was pressed
    esta ? m_cmbEmpresa->setFocus() : m_maskCuit->setFocus();
}

void EleccionEmpresa::llenarLista()
{
    const QStringList razones = razonesDeEmpresas(Rutinas::Conexion);
    m_cmbEmpresa->clear();
    m_cmbEmpresa->addItems(razones);
}

void EleccionEmpresa::releer()
{
    oNinguna(
        [this]
        {
            llenarLista();
            m_enganches.alLimpiar();
            if (const auto razon = razonDeCuit(Rutinas::Conexion, m_maskCuit->text()))
            {
                mostrarRazon(*razon);
            }
            else
            {
                m_maskCuit->limpiar();
                m_cmbEmpresa->setCurrentIndex(-1);
            }
            m_enganches.alElegir();
        });
}

void EleccionEmpresa::oNinguna(const std::function<void()>& elegir)
{
    try
    {
        elegir();
    }
    catch (...)
    {
        m_maskCuit->limpiar();
        m_cmbEmpresa->setCurrentIndex(-1);
        m_enganches.alLimpiar();
        m_enganches.alElegir();
        throw;
    }
}

void EleccionEmpresa::mostrarRazon(const QString& razon)
{
    const auto buscar = [&] { return m_cmbEmpresa->findText(razon, Qt::MatchExactly | Qt::MatchCaseSensitive); };
    int posicion = buscar();
    if (posicion == -1)
    {
        // Entered since the list was filled.
        llenarLista();
        posicion = buscar();
    }
    m_cmbEmpresa->setCurrentIndex(posicion);
}
