#include "src/detail/tentatavendita.h"

#include "platform/controls/checkbox.h"
#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/navigatorbar.h"
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
#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

TentataVendita::TentataVendita(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

TentataVendita::~TentataVendita() = default;

controls::Field& TentataVendita::campo(QStringView nome) const
{
    return m_schermata.controllo<controls::Field>(nome);
}

void TentataVendita::collega()
{
    using controls::Field;
    QObject* contesto = &m_schermata;
    QObject::connect(&m_schermata.controllo<controls::CheckBox>(u"CHK_TVINDXH"),
                     &controls::CheckBox::keyDown, contesto,
                     [this](controls::KeyArgs& args) { CHK_TVINDXH_KeyDown(args); });

    Field& deposito = campo(u"TXT_TVDEP");
    QObject::connect(&deposito, &Field::decodeRequested, contesto,
                     [this](controls::DecodeArgs& args) { TXT_TVDEP_Decode(args); });
    QObject::connect(&deposito, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) { TXT_TVDEP_StartLookup(args); });
    QObject::connect(&deposito, &Field::managementKeyPressed, contesto,
                     [this](const QString& chiave) { TXT_TVDEP_Gestione(chiave); });

    Field& sezionale = campo(u"TXT_TVSEZ");
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
        premiDopoEventi(args, m_schermata.controllo<controls::NavigatorBar>(u"INTERNAV"),
                        controls::NavigatorKey::Back);
}

void TentataVendita::decodifica(controls::DecodeArgs& args, const QString& nome,
                                const QString& etichetta, const QString& colonna,
                                QString (*istruzione)(qint32, const QString&)) const
{
    auto& descrizione = m_schermata.controllo<controls::DataControl>(etichetta);
    const QString codice = RTrimN(campo(nome).text()).toString();
    if (codice.isEmpty()) {
        descrizione.setValue(db::Value::null());
        return;
    }
    args.sql = istruzione(m_schermata.Codice_Ditta(), codice);
    args.targets = {{&descrizione, colonna}};
    args.connectionString = m_schermata.Gstr_Connect();
}

void TentataVendita::TXT_TVDEP_Decode(controls::DecodeArgs& args)
{
    decodifica(args, QStringLiteral("TXT_TVDEP"), QStringLiteral("TXT_DESCDEP"),
               QStringLiteral("MG58_DESCRDEP"), &sql::decodificaDeposito);
}

void TentataVendita::TXT_TVSEZ_Decode(controls::DecodeArgs& args)
{
    decodifica(args, QStringLiteral("TXT_TVSEZ"), QStringLiteral("TXT_DESCSEZ"),
               QStringLiteral("CG68_DESCSEZ"), &sql::decodificaSezionale);
}

void TentataVendita::TXT_TVDEP_StartLookup(controls::LookupArgs& args)
{
    reportModuleError(
        m_schermata.errori(), QStringLiteral("FRMMG_AGENTI_TVDEP_StartLookup"),
        {
            [&] { args.cancel = false; },
            [&] { args.sql = sql::elencoDepositi(m_schermata.Codice_Ditta()); },
            [&] {
                args.columns = {
                    QStringLiteral("Codice deposito"), QStringLiteral("Descrizione deposito"),
                    QStringLiteral("Indirizzo"),       QStringLiteral("CAP"),
                    QStringLiteral("Localita'"),       QStringLiteral("Provincia"),
                    QStringLiteral("Nr. telefono"),    QStringLiteral("Nr. fax")};
            },
            [&] { args.title = QStringLiteral("Elenco depositi"); },
            [&] { args.connectionString = m_schermata.Gstr_Connect(); },
            [&] { campo(u"TXT_TVDEP").setLookupId(QStringLiteral("Lkp_Depositi")); },
        });
}

void TentataVendita::TXT_TVSEZ_StartLookup(controls::LookupArgs& args)
{
    reportModuleError(
        m_schermata.errori(), QStringLiteral("FRMMG_AGENTI_TVSEZ_StartLookup"),
        {
            [&] { args.cancel = false; },
            [&] { args.sql = sql::elencoSezionali(m_schermata.Codice_Ditta()); },
            [&] {
                args.columns = {QStringLiteral("Codice"), QStringLiteral("Descrizione")};
            },
            [&] { args.title = QStringLiteral("Elenco Sezionali"); },
            [&] { args.connectionString = m_schermata.Gstr_Connect(); },
            [&] { campo(u"TXT_TVSEZ").setLookupId(QStringLiteral("Lkp_Sezionali")); },
        });
}

template <class Componente>
void TentataVendita::rientro(std::unique_ptr<Componente>& componente)
{
    ignoreEachStep({
        [&] { m_schermata.modulo().setIsActive(true); },
        [&] { richiesto(componente.get(), "componente").setModule(nullptr); },
        [&] { componente.reset(); },
        [&] { m_schermata.globale().setActiveModule(m_schermata.ActiveInterface()); },
        [&] { m_schermata.navigatore().update(); },
    });
}

void TentataVendita::TXT_TVDEP_Gestione(const QString& chiave)
{
    if (chiave != u"Kgestione")
        return;
    ignoreEachStep({
        [&] { m_connectMagazzino = m_schermata.globale().objects().newWarehouseConnection(); },
        [&] {
            richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino")
                .setModule(m_schermata.ActiveInterface());
        },
        [&] {
            richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino")
                .setField(&campo(u"TXT_TVDEP"));
        },
        [&] {
            const QRect posizione = m_schermata.bounds();
            richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino")
                .setPosition(qint32(posizione.left()), qint32(posizione.top()));
        },
        [&] {
            richiesto(m_connectMagazzino.get(), "Gcls_ConnectMagazzino")
                .openDepots(RTrimN(campo(u"TXT_TVDEP").text()).toString());
        },
    });
    rientro(m_connectMagazzino);
}

void TentataVendita::TXT_TVSEZ_Gestione(const QString& chiave)
{
    if (chiave != u"Kgestione")
        return;
    ignoreEachStep({
        [&] { m_sezionali = m_schermata.globale().objects().newRegisterManagement(); },
        [&] {
            richiesto(m_sezionali.get(), "Gcls_Sezionali").setModule(m_schermata.ActiveInterface());
        },
        [&] { richiesto(m_sezionali.get(), "Gcls_Sezionali").setField(&campo(u"TXT_TVSEZ")); },
        [&] { richiesto(m_sezionali.get(), "Gcls_Sezionali").registersManagement(); },
    });
    rientro(m_sezionali);
}

} // namespace tarvello::agenti
