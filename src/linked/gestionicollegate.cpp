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
#include "src/screen/ambienteagenti.h"
#include "src/screen/codiciagente.h"
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

GestioniCollegate::GestioniCollegate(const ControlliCollegate& controlli,
                                     const QPointer<frame::GestAnagrafica>& agente,
                                     SchedaAgente& scheda, const AmbienteAgenti& ambiente)
    : m_controlli(controlli)
    , m_agente(agente)
    , m_scheda(scheda)
    , m_ambiente(ambiente)
{}

GestioniCollegate::~GestioniCollegate()
{
    rilasciaAnagrafiche();
}

void GestioniCollegate::collega()
{
    QObject::connect(&m_controlli.CMD_GESTCOLL, &controls::MenuButton::itemClicked, &m_contesto,
                     [this](const QString& chiave) { CMD_GESTCOLL_Click(chiave); });
}

void GestioniCollegate::CMD_GESTCOLL_Click(const QString& chiave)
{
    if (chiave == u"key_anagrafica") {
        ignoreEachStep({
            [&] { GestioneAnagraficheGenerali(m_scheda.valoreAgente(ColonnaAnagrafica)); },
            [&] {
                DecodificaCodice(m_ambiente.connessione(),
                                 CDecN(m_scheda.valoreAgente(ColonnaAnagrafica)),
                                 m_ambiente.finestra());
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
            m_anagrafiche = m_ambiente.globale().createModule(ModuloAnagrafiche);
            richiesto(m_anagrafiche.get(), "Pcls_Anagrafiche").dataTransfer().subscribe(this);
            contratto = &m_anagrafiche->contract();
        },
        [&] { m_ambiente.modulo().setIsActive(false); },
        [&] { AffidaModulo(m_ambiente.globale(), *contratto); },
        [&] { m_anagrafiche->setCallingData(datiAnagrafiche(codice)); },
        [&] {
            m_ambiente.globale().startModule(nullptr, ModuloAnagrafiche,
                                             host::startModuleArguments());
        },
        [&] {
            m_ambiente.modulo().setIsActive(true);
            contratto = nullptr;
            rilasciaAnagrafiche();
            m_ambiente.globale().setActiveModule(m_ambiente.ActiveInterface());
            m_ambiente.navigatore().update();
        },
    });
    // Left halfway, the component would stay the host's active module after it is gone: the
    // screen takes the host back as the management's closing would have done.
    if (esito == Outcome::Abandoned && m_anagrafiche) {
        rilasciaAnagrafiche();
        RiprendiHost(m_ambiente);
    }
}

void GestioniCollegate::rilasciaAnagrafiche()
{
    if (!m_anagrafiche)
        return;
    m_anagrafiche->dataTransfer().unsubscribe(this);
    // The host forgets the component wherever it holds it (active, second module) before it
    // goes.
    ignoreEachStep({[&] { m_ambiente.globale().deregisterModule(&m_anagrafiche->contract()); }});
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
                m_controlli.TXT_RAGSOANAG.setFocus();
                return Flow::Leave;
            }
            return Flow::Next;
        },
        [&] {
            agenti = m_ambiente.connessione().execute(
                sql::agenteDellAnagrafica(CDecN(m_ambiente.Codice_Ditta()), r));
        },
        [&] {
            if (richiesto(agenti.get(), "Lrst_Agenti").recordCount() < 1) {
                ignoreEachStep({
                    [&] { m_scheda.scriviAgente(ColonnaAnagrafica, r); },
                    [&] { DecodificaCodice(m_ambiente.connessione(), r, m_ambiente.finestra()); },
                    [&] { m_controlli.CBO_REGPROV.setFocus(); },
                });
                return;
            }
            ignoreEachStep({
                [&] {
                    const QString colonna = m_controlli.TXT_AGENTE.dataField();
                    m_scheda.scriviAgente(colonna, agenti->value(u"MG17_AGENTE"));
                },
                [&] { richiesto(m_agente.data(), "FME_GestAnagrafica1").search(true, true); },
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
        m_ambiente.errori(), QStringLiteral("Invoca_DatiDivisionali"),
        {
            [&] { globale = &m_ambiente.globale(); },
            [&] { m_datiDivisionali = globale->objects().newDivisionalData(); },
            [&] {
                richiesto(m_datiDivisionali.get(), "DatiDivisionali")
                    .initialise(m_ambiente.ActiveInterface(), nullptr,
                                host::DivisionalData::AgentEntity, m_controlli.TXT_AGENTE.text());
            },
            [&] { richiesto(m_datiDivisionali.get(), "DatiDivisionali").run(); },
            [&] { m_ambiente.modulo().setIsActive(true); },
            [&] { richiesto(m_datiDivisionali.get(), "DatiDivisionali").setModule(nullptr); },
            [&] { m_datiDivisionali.reset(); },
            [&] { globale->setActiveModule(m_ambiente.ActiveInterface()); },
        });
}

} // namespace tarvello::agenti
