#include "src/linked/gestionicollegate.h"

#include "platform/controls/field.h"
#include "platform/controls/menubutton.h"
#include "platform/db/connection.h"
#include "platform/db/decimal.h"
#include "platform/db/recordset.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"
#include "src/host/cinterface.h"
#include "src/host/divisionaldata.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/navigator.h"
#include "src/linked/modulochiamato.h"
#include "src/screen/codiciagente.h"
#include "src/screen/frmmg_agenti.h"
#include "src/screen/schedaagente.h"

namespace tarvello::agenti {

namespace {

const QString ModuloAnagrafiche = QStringLiteral("Dorvanti.CLSCO_TABANAGGEN");
const QString ColonnaAnagrafica = QStringLiteral("MG17_ANAGEN_CG16");

// The registry code and the positioning flag the general-registry management opens with.
db::ValueList datiAnagrafiche(const std::optional<db::Value>& codice)
{
    if (!codice)
        return {0, false};
    return {CDecN(*codice).toInt(), true};
}

} // namespace

GestioniCollegate::GestioniCollegate(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

GestioniCollegate::~GestioniCollegate()
{
    rilasciaAnagrafiche();
}

void GestioniCollegate::collega()
{
    QObject::connect(&m_schermata.controllo<controls::MenuButton>(u"CMD_GESTCOLL"),
                     &controls::MenuButton::itemClicked, &m_schermata,
                     [this](const QString& chiave) { CMD_GESTCOLL_Click(chiave); });
}

void GestioniCollegate::CMD_GESTCOLL_Click(const QString& chiave)
{
    if (chiave == u"key_anagrafica") {
        SchedaAgente& scheda = m_schermata.scheda();
        ignoreEachStep({
            [&] { GestioneAnagraficheGenerali(scheda.valoreAgente(ColonnaAnagrafica)); },
            [&] {
                DecodificaCodice(m_schermata.connessione(),
                                 CDecN(scheda.valoreAgente(ColonnaAnagrafica)), m_schermata);
            },
        });
    } else if (chiave == u"Key_DatiDivisionali") {
        ignoreEachStep({[&] { Invoca_DatiDivisionali(); }});
    }
}

void GestioniCollegate::GestioneAnagraficheGenerali(const std::optional<db::Value>& codice)
{
    host::Cinterface* contratto = nullptr;
    const Outcome esito = leaveSilently({
        [&] {
            m_anagrafiche = m_schermata.globale().createModule(ModuloAnagrafiche);
            richiesto(m_anagrafiche.get(), "Pcls_Anagrafiche").dataTransfer().subscribe(this);
            contratto = &m_anagrafiche->contract();
        },
        [&] { m_schermata.modulo().setIsActive(false); },
        [&] { AffidaModulo(m_schermata.globale(), *contratto); },
        [&] { m_anagrafiche->setCallingData(datiAnagrafiche(codice)); },
        [&] {
            m_schermata.globale().startModule(nullptr, ModuloAnagrafiche,
                                              host::startModuleArguments());
        },
        [&] {
            m_schermata.modulo().setIsActive(true);
            contratto = nullptr;
            rilasciaAnagrafiche();
            m_schermata.globale().setActiveModule(m_schermata.ActiveInterface());
            m_schermata.navigatore().update();
        },
    });
    // Left halfway, the component would stay the host's active module after it is gone: the
    // screen takes the host back as the management's closing would have done.
    if (esito == Outcome::Abandoned && m_anagrafiche) {
        rilasciaAnagrafiche();
        RiprendiHost(m_schermata.ambiente());
    }
}

void GestioniCollegate::rilasciaAnagrafiche()
{
    if (!m_anagrafiche)
        return;
    m_anagrafiche->dataTransfer().unsubscribe(this);
    // The host forgets the component wherever it holds it (active, second module) before it
    // goes.
    ignoreEachStep({[&] { m_schermata.globale().deregisterModule(&m_anagrafiche->contract()); }});
    m_anagrafiche.reset();
}

void GestioniCollegate::Pcls_Anagrafiche_DataTransfer(const db::Value& Data)
{
    db::Value r = db::Decimal();
    db::RecordsetPtr agenti;
    ignoreEachStep({
        [&] { r = CDecN(Data.toArray().value(0)); },
        [&] {
            if (r.toDecimal() == db::Decimal()) {
                m_schermata.controllo<controls::Field>(u"TXT_RAGSOANAG").setFocus();
                return Flow::Leave;
            }
            return Flow::Next;
        },
        [&] {
            agenti = m_schermata.connessione().execute(
                sql::agenteDellAnagrafica(CDecN(m_schermata.Codice_Ditta()), r));
        },
        [&] {
            SchedaAgente& scheda = m_schermata.scheda();
            if (richiesto(agenti.get(), "Lrst_Agenti").recordCount() < 1) {
                ignoreEachStep({
                    [&] { scheda.scriviAgente(ColonnaAnagrafica, r); },
                    [&] { DecodificaCodice(m_schermata.connessione(), r, m_schermata); },
                    [&] { m_schermata.controllo<controls::Control>(u"CBO_REGPROV").setFocus(); },
                });
                return;
            }
            ignoreEachStep({
                [&] {
                    const QString colonna =
                        m_schermata.controllo<controls::Field>(u"TXT_AGENTE").dataField();
                    scheda.scriviAgente(colonna, agenti->value(u"MG17_AGENTE"));
                },
                [&] {
                    richiesto(m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::Agenti),
                              "FME_GestAnagrafica1")
                        .search(true, true);
                },
            });
        },
        [&] {
            if (agenti)
                agenti->close();
        },
    });
}

void GestioniCollegate::Invoca_DatiDivisionali()
{
    host::GlobalContext* globale = nullptr;
    reportWithChoice(
        m_schermata.errori(), QStringLiteral("Invoca_DatiDivisionali"),
        {
            [&] { globale = &m_schermata.globale(); },
            [&] { m_datiDivisionali = globale->objects().newDivisionalData(); },
            [&] {
                richiesto(m_datiDivisionali.get(), "DatiDivisionali")
                    .initialise(m_schermata.ActiveInterface(), nullptr,
                                host::DivisionalData::AgentEntity,
                                m_schermata.controllo<controls::Field>(u"TXT_AGENTE").text());
            },
            [&] { richiesto(m_datiDivisionali.get(), "DatiDivisionali").run(); },
            [&] { m_schermata.modulo().setIsActive(true); },
            [&] { richiesto(m_datiDivisionali.get(), "DatiDivisionali").setModule(nullptr); },
            [&] { m_datiDivisionali.reset(); },
            [&] { globale->setActiveModule(m_schermata.ActiveInterface()); },
        });
}

} // namespace tarvello::agenti
