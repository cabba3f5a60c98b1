#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/keycodes.h"
#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"
#include "src/detail/dettagliagente.h"
#include "src/detail/sociagente.h"
#include "src/host/errorlog.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"
#include "src/host/messagecatalogue.h"
#include "src/host/registrysearch.h"
#include "src/linked/gestionicollegate.h"
#include "src/screen/ambienteagenti.h"
#include "src/screen/codiciagente.h"
#include "src/screen/schedaagente.h"
#include "src/tree/alberoagenti.h"

#include <memory>

namespace tarvello::agenti {

namespace {

using controls::Field;
using frame::FrameStatus;

constexpr int DomandaNuovaAnagrafica = 39135;
constexpr short Si = 6;
constexpr short No = 7;

} // namespace

void SchedaAgente::collegaDecodifiche()
{
    QObject* contesto = &m_contesto;
    Field& agente = m_campi.TXT_AGENTE;
    QObject::connect(&agente, &Field::validate, contesto,
                     [this](controls::CancelArgs&) { TXT_AGENTE_Validate(); });

    Field& ragioneSociale = m_campi.TXT_RAGSOANAG;
    QObject::connect(&ragioneSociale, &Field::gotFocus, contesto,
                     [this] { m_invioSuRagSoc = false; });
    QObject::connect(&ragioneSociale, &Field::keyDown, contesto,
                     [this](controls::KeyArgs& args) { TXT_RAGSOANAG_KeyDown(args); });
    QObject::connect(&ragioneSociale, &Field::validate, contesto,
                     [this](controls::CancelArgs& args) { TXT_RAGSOANAG_Validate(args); });
    QObject::connect(&ragioneSociale, &Field::lostFocus, contesto,
                     [this] { TXT_RAGSOANAG_LostFocus(); });
    QObject::connect(&ragioneSociale, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) {
                         // The general-registry search takes the place of the field's list.
                         args.cancel = true;
                         RicercaAnagrafiche();
                     });
    QObject::connect(&ragioneSociale, &Field::managementKeyPressed, contesto,
                     [this](const QString& chiave) { TXT_RAGSOANAG_Gestione(chiave); });

    controls::ComboBox& tipo = m_campi.CBO_TIPOAGENTE;
    QObject::connect(&tipo, &controls::ComboBox::valueSet, contesto,
                     [this](const db::Value& valore) { CBO_TIPOAGENTE_Click(valore); });
    QObject::connect(&tipo, &controls::ComboBox::gotFocus, contesto, [this, &tipo] {
        m_tipoAgentePrecedente = short(NumeroIntero(tipo.value()).value_or(0));
    });
    QObject::connect(&tipo, &controls::ComboBox::lostFocus, contesto,
                     [this] { CBO_TIPOAGENTE_LostFocus(); });

    QObject::connect(&m_campi.TXT_CAPOZONA, &Field::validate, contesto,
                     [this](controls::CancelArgs& args) { TXT_CAPOZONA_Validate(args); });
    QObject::connect(&m_campi.TXT_AGERIFVIDEO1, &Field::validate, contesto,
                     [this](controls::CancelArgs&) { TXT_AGERIFVIDEO1_Validate(); });
    QObject::connect(&m_campi.TXT_AGERIF, &Field::validate, contesto,
                     [this](controls::CancelArgs&) { TXT_AGERIF_Validate(); });

    collegaListe();
}

void SchedaAgente::TXT_AGENTE_Validate()
{
    frame::GestAnagrafica& agente = gestione(gestioni::Agenti);
    const QString codice = m_campi.TXT_AGENTE.text();
    if (agente.status() == FrameStatus::New) {
        agente.search(true, true);
        if (agente.status() == FrameStatus::New) {
            const bool conCodice = !RTrimN(codice).toString().isEmpty();
            if (conCodice)
                m_parti.dettagli.RefreshChild();
            for (const int numero :
                 {gestioni::Soci, gestioni::Maturazione, gestioni::TentataVendita})
                gestione(numero).setLocked(!conCodice);
            m_record.GRIDNAV_AGENTISOCI.setEnabled(conCodice);
            m_record.GRIDNAV_AGENTIMAT.setEnabled(conCodice);
        }
    }
    if (agente.status() == FrameStatus::Browse)
        m_parti.albero.posizionaSuAgente(codice);
    m_parti.dettagli.soci().AggiornaNumeroSoci();
}

void SchedaAgente::TXT_RAGSOANAG_KeyDown(const controls::KeyArgs& args)
{
    if (args.keyCode == controls::Key::Enter && args.shift == 0)
        m_invioSuRagSoc = true;
}

void SchedaAgente::TXT_RAGSOANAG_Validate(controls::CancelArgs& args)
{
    if (gestione(gestioni::Agenti).status() != FrameStatus::New)
        return;
    const bool codiceDigitato = !RTrimN(m_campi.TXT_AGENTE.text()).toString().isEmpty();
    const bool codiceNellaRiga =
        !RTrimN(valoreAgente(QStringLiteral("MG17_AGENTE"))).toString().isEmpty();
    if (codiceDigitato && codiceNellaRiga)
        m_parti.dettagli.RefreshChild();
    else
        args.cancel = true;
}

void SchedaAgente::TXT_RAGSOANAG_LostFocus()
{
    if (!m_invioSuRagSoc)
        return;
    m_ricercaDaInvio = 1;
    m_campi.TXT_RAGSOANAG.openLookup();
    m_ricercaDaInvio = 0;
    if (m_rispostaNuovaAnagrafica == Si)
        m_parti.collegate->GestioneAnagraficheGenerali();
    else
        m_campi.TXT_RAGSOANAG.setFocus();
}

void SchedaAgente::TXT_RAGSOANAG_Gestione(const QString& chiave)
{
    if (chiave == u"Kgestione") {
        m_parti.collegate->GestioneAnagraficheGenerali();
        return;
    }
    if (chiave != u"Kpers1")
        return;
    m_modoRicercaAnagrafiche = 1;
    m_campi.TXT_RAGSOANAG.openLookup();
    m_modoRicercaAnagrafiche = 0;
}

void SchedaAgente::RicercaAnagrafiche()
{
    using host::GeneralRegistrySearch;
    m_rispostaNuovaAnagrafica = No;
    std::unique_ptr<GeneralRegistrySearch> ricerca;
    const int tipo = m_modoRicercaAnagrafiche == 1 ? GeneralRegistrySearch::AllEntries
                                                   : GeneralRegistrySearch::AgentsAndFreeEntries;
    frame::GestAnagrafica* agente = FME_GestAnagrafica(gestioni::Agenti);
    ignoreEachStep({
        [&] { ricerca = m_ambiente.globale().objects().newRegistrySearch(); },
        [&] { ricerca->setContext(&m_ambiente.globale()); },
        [&] { ricerca->setConnection(m_ambiente.Gcon_Connect(), m_ambiente.Gstr_Connect()); },
        [&] { ricerca->setCompany(m_ambiente.Codice_Ditta()); },
        [&] {
            ricerca->setTitle(tipo == GeneralRegistrySearch::AllEntries
                                  ? QStringLiteral("Elenco anagrafiche generali")
                                  : QStringLiteral("Agenti e anagrafiche non assegnate"));
        },
        [&] { ricerca->setKind(tipo); },
        [&] { ricerca->setStartText(RTrimN(m_campi.TXT_RAGSOANAG.text()).toString()); },
        [&] { ricerca->run(); },
        [&] {
            if (tipo != GeneralRegistrySearch::AgentsAndFreeEntries)
                return Flow::Next;
            const QString codice = RTrimN(ricerca->selectedAgent()).toString();
            if (codice.isEmpty())
                return Flow::Next;
            scriviAgente(QStringLiteral("MG17_AGENTE"), codice);
            agente->search(true, true);
            return Flow::Leave;
        },
        [&] {
            const db::Value anagrafica = RTrimN(ricerca->selectedRegistryCode());
            if (!anagrafica.toString().isEmpty()) {
                scriviAgente(QStringLiteral("MG17_ANAGEN_CG16"), CDecN(anagrafica));
                DecodificaCodice(m_ambiente.connessione(), anagrafica, m_ambiente.finestra());
                m_campi.TXT_RAGSOANAG.setValid(true);
                if (tipo == GeneralRegistrySearch::AgentsAndFreeEntries)
                    m_record.CBO_REGPROV.refresh();
                else
                    m_campi.TXT_AGENTE.setFocus();
                return Flow::Leave;
            }
            if (m_ricercaDaInvio == 0)
                messaggio(QStringLiteral("Nessuna anagrafica selezionata !!!"), host::Information,
                          QStringLiteral("Ricerca anagrafiche"));
            else
                m_rispostaNuovaAnagrafica = short(
                    messaggio(m_ambiente.globale().messages().message(DomandaNuovaAnagrafica, {}),
                              host::YesNo | host::Information | host::DefaultButton2, QString()));
            return Flow::Next;
        },
    });
}

void SchedaAgente::CBO_TIPOAGENTE_Click(const db::Value& tipo)
{
    // Agents and zone managers have a picture each; every other type is an area manager.
    qint64 figura = NumeroIntero(tipo).value_or(2);
    if (figura != 0 && figura != 1)
        figura = 2;
    const std::array<controls::Control*, 3> figure{
        &m_campi.PIC_INDTIPOAGENTE0, &m_campi.PIC_INDTIPOAGENTE1, &m_campi.PIC_INDTIPOAGENTE2};
    for (qint64 numero = 0; numero < 3; ++numero)
        figure.at(numero)->setVisible(numero == figura);
}

void SchedaAgente::CBO_TIPOAGENTE_LostFocus()
{
    const controls::ComboBox& lista = m_campi.CBO_TIPOAGENTE;
    const QString tipo = lista.text();
    if (tipo == u"1") {
        m_campi.TXT_CAPOZONA.setText(QString());
    } else if (tipo != u"0") {
        m_campi.TXT_CAPOAREA.setText(QString());
        m_campi.TXT_CAPOZONA.setText(QString());
    }
    CBO_TIPOAGENTE_Click(lista.value());
    const short nuovo = short(NumeroIntero(lista.value()).value_or(0));
    if (nuovo != m_tipoAgentePrecedente) {
        AggiornaCapiAreaZona();
        m_tipoAgentePrecedente = nuovo;
    }
}

void SchedaAgente::AggiornaCapiAreaZona()
{
    const QString tipo = m_campi.CBO_TIPOAGENTE.text();
    const QString riferimento = m_campi.TXT_AGERIF.text();
    const qint64 r = NumeroIntero(riferimento).value_or(0);
    Field& capoArea = m_campi.TXT_CAPOAREA;
    Field& capoZona = m_campi.TXT_CAPOZONA;
    if (tipo == u"0") {
        capoZona.setText(r != 0 ? riferimento : QString());
        const QString nonno =
            NonnoAgente(m_ambiente.connessione(), m_ambiente.Codice_Ditta(), QString::number(r));
        capoArea.setText(NumeroIntero(nonno).value_or(0) != 0 ? nonno : QString());
    } else if (tipo == u"1") {
        capoArea.setText(r != 0 ? riferimento : QString());
    } else {
        return;
    }
    capoArea.decode();
    capoZona.decode();
}

void SchedaAgente::TXT_CAPOZONA_Validate(controls::CancelArgs& args)
{
    const QString zona = RTrimN(m_campi.TXT_CAPOZONA.text()).toString().trimmed();
    const QString area = RTrimN(m_campi.TXT_CAPOAREA.text()).toString().trimmed();
    if (zona.isEmpty() || area.isEmpty() || zona != area)
        return;
    args.cancel = true;
    messaggio(QStringLiteral("Stesso Capo area !!"), host::Exclamation,
              QStringLiteral("Attenzione"));
}

void SchedaAgente::TXT_AGERIFVIDEO1_Validate()
{
    const QString codice = NvlN(m_campi.TXT_AGERIFVIDEO1.text(), QString()).toString();
    Field& riferimento = m_campi.TXT_AGERIF;
    if (!codice.isEmpty()) {
        const qint32 id =
            IdAgenteDaCodice(m_ambiente.connessione(), m_ambiente.Codice_Ditta(), codice);
        if (id == 0)
            return;
        if (NumeroIntero(riferimento.text()) == std::optional<qint64>(id))
            return;
        riferimento.setText(QString::number(id));
        scriviAgente(QStringLiteral("MG17_IDAGERIF_MG17"), id);
    } else {
        riferimento.setText(QString());
        scriviAgente(QStringLiteral("MG17_IDAGERIF_MG17"), db::Value::null());
    }
    TXT_AGERIF_Validate();
    frame::GestAnagrafica& agente = gestione(gestioni::Agenti);
    agente.notifyChange(true);
    agente.refreshState();
}

void SchedaAgente::segnaRiferimento(bool valido, const QString& motivo)
{
    m_campi.TXT_AGERIF.setValid(valido, motivo);
    m_campi.TXT_AGERIFVIDEO1.setValid(valido, motivo);
}

void SchedaAgente::TXT_AGERIF_Validate()
{
    m_agenteRifVariato = false;
    const QString codice = RTrimN(m_campi.TXT_AGERIFVIDEO1.text()).toString().trimmed();
    if (!codice.isEmpty() && codice == RTrimN(m_campi.TXT_AGENTE.text()).toString().trimmed()) {
        segnaRiferimento(false,
                         QStringLiteral("un agente non può essere il riferimento di se stesso"));
        return;
    }
    Field& riferimento = m_campi.TXT_AGERIF;
    const std::optional<qint64> id = NumeroIntero(riferimento.text());
    if (!id) {
        segnaRiferimento(
            false, QStringLiteral("l'identificativo dell'agente di riferimento non è un numero"));
        return;
    }
    if (gestione(gestioni::Agenti).status() == FrameStatus::Browse) {
        const db::RecordsetPtr agenti = gestione(gestioni::Agenti).recordset();
        const std::optional<qint64> letto =
            agenti && !agenti->bof() && !agenti->eof()
                ? NumeroIntero(agenti->originalValue(u"MG17_IDAGERIF_MG17"))
                : std::optional<qint64>(0);
        // Back to the reference stored: whatever an earlier refusal marked is right again.
        if (letto == id) {
            segnaRiferimento(true);
            return;
        }
        if (VerificaRiferimentoCircolare()) {
            segnaRiferimento(
                false,
                QStringLiteral("l'agente di riferimento dipende da questo agente: la gerarchia "
                               "diventerebbe circolare"));
            return;
        }
    }
    m_campi.TXT_AGERIFVIDEO1.setText(
        *id == 0 ? QString() : CodiceAgenteDaId(m_ambiente.connessione(), qint32(*id)));
    segnaRiferimento(true);
    AggiornaCapiAreaZona();
    m_agenteRifVariato = true;
}

bool SchedaAgente::VerificaRiferimentoCircolare()
{
    bool trovato = false;
    qint32 se = 0;
    qint64 r = 0;
    QSet<qint32> visti;
    ignoreEachStep({
        [&] {
            se = IdAgenteDaCodice(m_ambiente.connessione(), m_ambiente.Codice_Ditta(),
                                  RTrimN(NvlN(m_campi.TXT_AGENTE.text(), QString())).toString());
        },
        [&] { r = NumeroIntero(m_campi.TXT_AGERIF.text()).value_or(0); },
        [&] {
            if (se == r)
                trovato = true;
            return se == r || r == 0 ? Flow::Leave : Flow::Next;
        },
        [&] { trovato = BooRicercaAvanti(qint32(r), se, visti); },
        [&] {
            if (!trovato) {
                visti.clear();
                trovato = BooRicercaIndietro(qint32(r), se, visti);
            }
        },
    });
    return trovato;
}

bool SchedaAgente::BooRicercaAvanti(qint32 id, qint32 se, QSet<qint32>& visti)
{
    bool trovato = false;
    reportWithChoice(m_ambiente.errori(), QStringLiteral("BooRicercaAvanti"), {[&] {
                         // A hierarchy that already goes round a circle elsewhere is walked once.
                         if (visti.contains(id))
                             return;
                         visti.insert(id);
                         const db::RecordsetPtr passo =
                             m_ambiente.connessione().execute(sql::riferimentoInAlbero(id));
                         if (passo->recordCount() < 1)
                             return;
                         const qint32 padre = passo->value(u"MG17_IDAGERIF_MG17").toInt();
                         if (padre == 0)
                             return;
                         trovato = padre == se || BooRicercaAvanti(padre, se, visti);
                     }});
    return trovato;
}

bool SchedaAgente::BooRicercaIndietro(qint32 id, qint32 se, QSet<qint32>& visti)
{
    bool trovato = false;
    reportWithChoice(m_ambiente.errori(), QStringLiteral("BooRicercaIndietro"), {[&] {
                         if (visti.contains(id))
                             return;
                         visti.insert(id);
                         const db::RecordsetPtr passo =
                             m_ambiente.connessione().execute(sql::dipendenteInAlbero(id));
                         if (passo->recordCount() < 1)
                             return;
                         const qint32 figlio = passo->value(u"MG17_IDAGENTE").toInt();
                         if (figlio == 0)
                             return;
                         trovato = figlio == se || BooRicercaIndietro(figlio, se, visti);
                     }});
    return trovato;
}

} // namespace tarvello::agenti
