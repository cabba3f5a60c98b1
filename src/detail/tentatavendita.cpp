#include "src/detail/tentatavendita.h"

#include "platform/controls/checkbox.h"
#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/navigator.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqltentatavendita.h"
#include "src/detail/scorciatoie.h"
#include "src/host/cinterface.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/navigator.h"
#include "src/host/registermanagement.h"
#include "src/host/warehouseconnection.h"
#include "src/screen/ambienteagenti.h"

namespace tarvello::agenti {

TentataVendita::TentataVendita(const ControlliTentataVendita& controlli,
                               const AmbienteAgenti& ambiente)
    : m_controlli(controlli)
    , m_ambiente(ambiente)
{}

TentataVendita::~TentataVendita() = default;

void TentataVendita::collega()
{
    using controls::Field;
    QObject* contesto = &m_contesto;
    QObject::connect(&m_controlli.CHK_TVINDXH, &controls::CheckBox::keyDown, contesto,
                     [this](controls::KeyArgs& args) { CHK_TVINDXH_KeyDown(args); });

    Field& deposito = m_controlli.TXT_TVDEP;
    QObject::connect(&deposito, &Field::decodeRequested, contesto,
                     [this](controls::DecodeArgs& args) { TXT_TVDEP_Decode(args); });
    QObject::connect(&deposito, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) { TXT_TVDEP_StartLookup(args); });
    QObject::connect(&deposito, &Field::managementKeyPressed, contesto,
                     [this](const QString& chiave) { TXT_TVDEP_Gestione(chiave); });

    Field& sezionale = m_controlli.TXT_TVSEZ;
    QObject::connect(&sezionale, &Field::decodeRequested, contesto,
                     [this](controls::DecodeArgs& args) { TXT_TVSEZ_Decode(args); });
    QObject::connect(&sezionale, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) { TXT_TVSEZ_StartLookup(args); });
    QObject::connect(&sezionale, &Field::managementKeyPressed, contesto,
                     [this](const QString& chiave) { TXT_TVSEZ_Gestione(chiave); });
}

void TentataVendita::CHK_TVINDXH_KeyDown(controls::KeyArgs& args)
{
    if (tastoDiUscita(args))
        premiDopoEventi(args, m_controlli.INTERNAV, controls::NavigatorKey::Back);
}

void TentataVendita::decodifica(controls::DecodeArgs& args, const controls::Field& campo,
                                controls::DataControl& descrizione, const QString& colonna,
                                QString (*istruzione)(qint32, const QString&)) const
{
    const QString codice = RTrimN(campo.text()).toString();
    if (codice.isEmpty()) {
        descrizione.setValue(db::Value::null());
        return;
    }
    args.sql = istruzione(m_ambiente.Codice_Ditta(), codice);
    args.targets = {{&descrizione, colonna}};
    args.connectionString = m_ambiente.Gstr_Connect();
}

void TentataVendita::TXT_TVDEP_Decode(controls::DecodeArgs& args)
{
    decodifica(args, m_controlli.TXT_TVDEP, m_controlli.TXT_DESCDEP,
               QStringLiteral("MG58_DESCRDEP"), &sql::decodificaDeposito);
}

void TentataVendita::TXT_TVSEZ_Decode(controls::DecodeArgs& args)
{
    decodifica(args, m_controlli.TXT_TVSEZ, m_controlli.TXT_DESCSEZ, QStringLiteral("CG68_DESCSEZ"),
               &sql::decodificaSezionale);
}

void TentataVendita::TXT_TVDEP_StartLookup(controls::LookupArgs& args)
{
    reportModuleError(
        m_ambiente.errori(), QStringLiteral("FRMMG_AGENTI_TVDEP_StartLookup"),
        {
            [&] { args.cancel = false; },
            [&] { args.sql = sql::elencoDepositi(m_ambiente.Codice_Ditta()); },
            [&] {
                args.columns = {
                    QStringLiteral("Codice deposito"), QStringLiteral("Descrizione deposito"),
                    QStringLiteral("Indirizzo"),       QStringLiteral("CAP"),
                    QStringLiteral("Localita'"),       QStringLiteral("Provincia"),
                    QStringLiteral("Nr. telefono"),    QStringLiteral("Nr. fax")};
            },
            [&] { args.title = QStringLiteral("Elenco depositi"); },
            [&] { args.connectionString = m_ambiente.Gstr_Connect(); },
            [&] { m_controlli.TXT_TVDEP.setLookupId(QStringLiteral("Lkp_Depositi")); },
        });
}

void TentataVendita::TXT_TVSEZ_StartLookup(controls::LookupArgs& args)
{
    reportModuleError(
        m_ambiente.errori(), QStringLiteral("FRMMG_AGENTI_TVSEZ_StartLookup"),
        {
            [&] { args.cancel = false; },
            [&] { args.sql = sql::elencoSezionali(m_ambiente.Codice_Ditta()); },
            [&] {
                args.columns = {QStringLiteral("Codice"), QStringLiteral("Descrizione")};
            },
            [&] { args.title = QStringLiteral("Elenco Sezionali"); },
            [&] { args.connectionString = m_ambiente.Gstr_Connect(); },
            [&] { m_controlli.TXT_TVSEZ.setLookupId(QStringLiteral("Lkp_Sezionali")); },
        });
}

template <class Componente>
void TentataVendita::rientro(std::unique_ptr<Componente>& componente)
{
    ignoreEachStep({
        [&] { m_ambiente.modulo().setIsActive(true); },
        [&] { richiesto(componente.get(), "componente").setModule(nullptr); },
        [&] { componente.reset(); },
        [&] { m_ambiente.globale().setActiveModule(m_ambiente.ActiveInterface()); },
        [&] { m_ambiente.navigatore().update(); },
    });
}

void TentataVendita::TXT_TVDEP_Gestione(const QString& chiave)
{
    if (chiave != u"Kgestione")
        return;
    ignoreEachStep({
        [&] { m_connectMagazzino = m_ambiente.globale().objects().newWarehouseConnection(); },
        [&] {
            richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino")
                .setModule(m_ambiente.ActiveInterface());
        },
        [&] {
            richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino")
                .setField(&m_controlli.TXT_TVDEP);
        },
        [&] {
            const QRect posizione = m_ambiente.finestra().bounds();
            richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino")
                .setPosition(qint32(posizione.left()), qint32(posizione.top()));
        },
        [&] {
            richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino")
                .openDepots(RTrimN(m_controlli.TXT_TVDEP.text()).toString());
        },
    });
    rientro(m_connectMagazzino);
}

void TentataVendita::TXT_TVSEZ_Gestione(const QString& chiave)
{
    if (chiave != u"Kgestione")
        return;
    ignoreEachStep({
        [&] { m_sezionali = m_ambiente.globale().objects().newRegisterManagement(); },
        [&] {
            richiesto(m_sezionali.get(), "Gcls_Sezionali").setModule(m_ambiente.ActiveInterface());
        },
        [&] { richiesto(m_sezionali.get(), "Gcls_Sezionali").setField(&m_controlli.TXT_TVSEZ); },
        [&] { richiesto(m_sezionali.get(), "Gcls_Sezionali").registersManagement(); },
    });
    rientro(m_sezionali);
}

} // namespace tarvello::agenti
