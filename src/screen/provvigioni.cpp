#include "src/screen/provvigioni.h"

#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/keycodes.h"
#include "platform/controls/navigator.h"
#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlprovvigioni.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"
#include "src/host/globalcontext.h"
#include "src/host/lookupdecoder.h"
#include "src/host/navigator.h"
#include "src/linked/modulochiamato.h"
#include "src/screen/ambienteagenti.h"
#include "src/screen/listecodificate.h"
#include "src/screen/rispostedecodificatore.h"

#include <QCoreApplication>
#include <initializer_list>
#include <limits>

namespace tarvello::agenti {

namespace {

using controls::ComboBox;
using controls::Field;

const QString ModuloTabProvv = QStringLiteral("Caspello.CLSPA_PROVVSCONTI");
const QString ElencoListini = QStringLiteral("LKP_LISTINI");
const QString ElencoPriorita = QStringLiteral("LKP_TABPRIORITA");

// The entities an identifier may name, by their codes "0", "1", "2".
DisponibilitaEntita tutteTranne(const QStringList& usate)
{
    return {!usate.contains(u"0"), !usate.contains(u"1"), !usate.contains(u"2")};
}

bool entita(const QString& codice)
{
    return codice == u"0" || codice == u"1" || codice == u"2";
}

// A decoding that does not run: an empty code has no description, and is no error.
void senzaCodice(controls::DecodeArgs& args, controls::DataControl& descrizione)
{
    args.cancel = true;
    descrizione.setValue(QString());
}

} // namespace

Provvigioni::Provvigioni(const ControlliProvvigioni& controlli,
                         const QPointer<frame::GestAnagrafica>& agente,
                         const std::unique_ptr<ListeCodificate>& liste,
                         const AmbienteAgenti& ambiente)
    : m_controlli(controlli)
    , m_agente(agente)
    , m_liste(liste)
    , m_ambiente(ambiente)
{}

Provvigioni::~Provvigioni() = default;

qint16 Provvigioni::idPriorita(const db::Value& valore)
{
    const db::Value numero = CDecN(valore);
    const qint64 id = numero.toInt64();
    if (id < std::numeric_limits<qint16>::min() || id > std::numeric_limits<qint16>::max())
        throw db::RuntimeError(db::RuntimeError::Overflow, QStringLiteral("Overflow"));
    return qint16(id);
}

void Provvigioni::collega()
{
    QObject* contesto = &m_contesto;
    QObject::connect(&m_controlli.CBO_REGPROV, &ComboBox::valueSet, contesto,
                     [this](const db::Value& codice) { CBO_REGPROV_Click(codice); });
    ComboBox& tipoListino = m_controlli.CBO_INDTIPOLISFIX;
    QObject::connect(&tipoListino, &ComboBox::valueSet, contesto,
                     [this] { CBO_INDTIPOLISFIX_Click(); });
    QObject::connect(&tipoListino, &ComboBox::lostFocus, contesto,
                     [this] { CBO_INDTIPOLISFIX_LostFocus(); });
    QObject::connect(&m_controlli.CBO_IDENTIFTAB, &ComboBox::valueSet, contesto,
                     [this] { CBO_IDENTIFTAB_Click(); });
    QObject::connect(&m_controlli.CBO_IDENTIFRIGA, &ComboBox::valueSet, contesto,
                     [this] { CBO_IDENTIFRIGA_Click(); });
    QObject::connect(&m_controlli.CHK_FLGADEGUAMSCMAG, &controls::CheckBox::valueSet, contesto,
                     [this](int valore) { CHK_FLGADEGUAMSCMAG_Click(valore); });

    Field& tabProvv = m_controlli.TXT_CODPROVSC;
    QObject::connect(&tabProvv, &Field::decodeRequested, contesto,
                     [this](controls::DecodeArgs& args) { TXT_CODPROVSC_Decodifica(args); });
    QObject::connect(&tabProvv, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) { TXT_CODPROVSC_StartLookup(args); });
    QObject::connect(&tabProvv, &Field::managementKeyPressed, contesto,
                     [this](const QString& chiave) {
                         if (chiave == u"Kgestione")
                             InvocaGestioneTabProvv();
                     });

    Field& listino = m_controlli.TXT_NUMLISTFIX;
    QObject::connect(&listino, &Field::decodeRequested, contesto,
                     [this](controls::DecodeArgs& args) { TXT_NUMLISTFIX_Decodifica(args); });
    QObject::connect(&listino, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) { TXT_NUMLISTFIX_StartLookup(args); });

    Field& priorita = m_controlli.TXT_TABPRIORITA;
    QObject::connect(&priorita, &Field::gotFocus, contesto, [this, &priorita] {
        ignoreEachStep({[&] { m_prioritaPrecedente = RTrimN(priorita.text()).toString(); }});
    });
    QObject::connect(&priorita, &Field::validate, contesto,
                     [this](controls::CancelArgs&) { TXT_TABPRIORITA_Validate(); });
    QObject::connect(&priorita, &Field::decodeRequested, contesto,
                     [this](controls::DecodeArgs& args) { TXT_TABPRIORITA_Decodifica(args); });
    QObject::connect(&priorita, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) { TXT_TABPRIORITA_StartLookup(args); });

    QObject::connect(&m_controlli.TXT_IMPMINFATT, &Field::validate, contesto,
                     [this](controls::CancelArgs&) { TXT_IMPMINFATT_Validate(); });
    QObject::connect(&m_controlli.CBO_INDPREFSTDOC, &ComboBox::keyDown, contesto,
                     [this](controls::KeyArgs& args) { CBO_INDPREFSTDOC_KeyDown(args); });
}

void Provvigioni::CBO_REGPROV_Click(const db::Value& codice)
{
    const QString regime = m_controlli.CBO_REGPROV.text();
    const bool listinoFisso = regime == u"5" || regime == u"7";
    if (listinoFisso) {
        impostaListinoFisso(true);
        impostaIdentificatori(false, false);
        m_controlli.CBO_INDTIPOLISFIX.setText(QStringLiteral("0"));
    } else {
        if (regime != u"11" && regime != u"12") {
            Field& priorita = m_controlli.TXT_TABPRIORITA;
            if (CDecN(codice) == db::Value(15)) {
                priorita.setEnabled(true);
            } else {
                priorita.setEnabled(false);
                priorita.setText(QString());
                // Written only when it differs: a row shown with 0 is not edited for nothing.
                const db::RecordsetPtr agenti = m_agente ? m_agente->recordset() : nullptr;
                if (agenti && !agenti->bof() && !agenti->eof() &&
                    !(agenti->value(u"MG17_ID_LP09") == db::Value(0)))
                    agenti->setValue(QStringLiteral("MG17_ID_LP09"), 0);
            }
        }
        impostaListinoFisso(false);
        impostaIdentificatori(regime == u"12", regime == u"11" || regime == u"12");
        m_controlli.CBO_INDTIPOLISFIX.setText(QStringLiteral("-1"));
        m_controlli.TXT_NUMLISTFIX.setText(QString());
    }
    // A list already on "-1" raises nothing when set to it again; its rule runs all the same,
    // so that a regime always finds the row and column lists built for its identifiers.
    const auto nessuno = [this](ComboBox& lista, void (Provvigioni::*regola)()) {
        if (lista.text() == u"-1" && regola)
            (this->*regola)();
        else
            lista.setText(QStringLiteral("-1"));
    };
    nessuno(m_controlli.CBO_IDENTIFTAB, &Provvigioni::CBO_IDENTIFTAB_Click);
    nessuno(m_controlli.CBO_IDENTIFRIGA, &Provvigioni::CBO_IDENTIFRIGA_Click);
    nessuno(m_controlli.CBO_IDENTIFCOL, nullptr);
}

void Provvigioni::impostaListinoFisso(bool usato)
{
    for (controls::DataControl* controllo : std::initializer_list<controls::DataControl*>{
             &m_controlli.CBO_INDTIPOLISFIX, &m_controlli.TXT_NUMLISTFIX}) {
        controllo->setRequired(usato);
        controllo->setEnabled(usato);
    }
}

void Provvigioni::impostaIdentificatori(bool tabella, bool righe)
{
    m_controlli.CBO_IDENTIFTAB.setEnabled(tabella);
    m_controlli.CBO_IDENTIFRIGA.setEnabled(righe);
    m_controlli.CBO_IDENTIFCOL.setEnabled(righe);
}

void Provvigioni::CBO_INDTIPOLISFIX_Click()
{
    const QString tipo = m_controlli.CBO_INDTIPOLISFIX.text();
    const bool conNumero = tipo == u"1" || tipo == u"2";
    Field& numero = m_controlli.TXT_NUMLISTFIX;
    numero.setRequired(conNumero);
    numero.setEnabled(conNumero);
}

void Provvigioni::CBO_INDTIPOLISFIX_LostFocus()
{
    const db::Value tipo = CDecN(m_controlli.CBO_INDTIPOLISFIX.text());
    if (!(tipo == db::Value(1)) && !(tipo == db::Value(2)))
        m_controlli.TXT_NUMLISTFIX.setText(QString());
}

void Provvigioni::CBO_IDENTIFTAB_Click()
{
    const QString tabella = m_controlli.CBO_IDENTIFTAB.text();
    ListeCodificate& liste = *m_liste;
    if (entita(tabella))
        liste.disponibilitaRighe = tutteTranne({tabella});
    else if (tabella == u"-1")
        liste.disponibilitaRighe = tutteTranne({});
    liste.CaricaCombo_CBO_IDENTIFRIGA();
    liste.CaricaCombo_CBO_IDENTIFCOL();
}

void Provvigioni::CBO_IDENTIFRIGA_Click()
{
    const QString tabella = m_controlli.CBO_IDENTIFTAB.text();
    const QString riga = m_controlli.CBO_IDENTIFRIGA.text();
    ListeCodificate& liste = *m_liste;
    const bool tabellaNota = entita(tabella) || tabella == u"-1";
    if (entita(riga) && tabellaNota && riga != tabella)
        liste.disponibilitaColonne = tutteTranne({tabella, riga});
    liste.CaricaCombo_CBO_IDENTIFCOL();
}

void Provvigioni::CHK_FLGADEGUAMSCMAG_Click(int valore)
{
    for (controls::Control* controllo : std::initializer_list<controls::Control*>{
             &m_controlli.TXT_CODPROVSC, &m_controlli.CBO_INDCALCSCMAG,
             &m_controlli.CBO_INDBASEIMPSC, &m_controlli.CBO_INDBASEIMPMAG})
        controllo->setEnabled(valore == 1);
}

void Provvigioni::TXT_CODPROVSC_Decodifica(controls::DecodeArgs& args) const
{
    controls::DataControl& descrizione = m_controlli.TXT_DESPROVSC;
    const QString codice = RTrimN(m_controlli.TXT_CODPROVSC.text()).toString();
    if (codice.isEmpty()) {
        senzaCodice(args, descrizione);
        return;
    }
    args.sql = sql::descrizioneTabProvvSconti(m_ambiente.Codice_Ditta(), codice);
    args.targets = {{&descrizione, QStringLiteral("PA10_DESCPROVSC")}};
    args.connectionString = m_ambiente.Gstr_Connect();
}

void Provvigioni::TXT_CODPROVSC_StartLookup(controls::LookupArgs& args)
{
    reportModuleError(
        m_ambiente.errori(), QStringLiteral("FRMMG_AGENTI_AGENTE_StartLookup"),
        {
            [&] { args.cancel = false; },
            [&] { args.sql = sql::elencoTabProvvSconti(m_ambiente.Codice_Ditta()); },
            [&] {
                args.columns = {QStringLiteral("Codice tabella"), QStringLiteral("Descrizione")};
            },
            [&] { args.title = QStringLiteral("Elenco tabelle provvigioni/sconti"); },
            [&] { args.connectionString = m_ambiente.Gstr_Connect(); },
            [&] { m_controlli.TXT_CODPROVSC.setLookupId(QStringLiteral("Lkp_CodProvSconti")); },
        });
}

void Provvigioni::TXT_NUMLISTFIX_Decodifica(controls::DecodeArgs& args) const
{
    Field& listino = m_controlli.TXT_NUMLISTFIX;
    controls::DataControl& descrizione = m_controlli.TXT_DESLISTFIX;
    const QString testo = RTrimN(listino.text()).toString().trimmed();
    if (testo.isEmpty()) {
        senzaCodice(args, descrizione);
        return;
    }
    // Only a number reaches the statement: anything else is a list no table has.
    if (!db::Decimal::parse(testo)) {
        senzaCodice(args, descrizione);
        listino.setValid(false);
        return;
    }
    host::LookupDecoder& d = decodificatoreRichiesto(m_ambiente.decodificatori().listini.get());
    d.prepareDecoding(ElencoListini, CDecN(testo), QStringLiteral("TXT_DESLISTFIX"));
    rispostaDecodifica(m_ambiente.finestra(), d, args, m_ambiente.Gstr_Connect());
}

void Provvigioni::TXT_NUMLISTFIX_StartLookup(controls::LookupArgs& args)
{
    host::LookupDecoder& d = decodificatoreRichiesto(m_ambiente.decodificatori().listini.get());
    d.prepareLookup(ElencoListini, 0);
    rispostaLista(d, args, m_ambiente.Gstr_Connect());
    m_controlli.TXT_NUMLISTFIX.setLookupId(QStringLiteral("Lkp_NumListFix"));
}

void Provvigioni::TXT_TABPRIORITA_Validate()
{
    const QString codice = RTrimN(m_controlli.TXT_TABPRIORITA.text()).toString();
    if (codice == m_prioritaPrecedente)
        return;
    frame::GestAnagrafica* agente = m_agente.data();
    if (!agente)
        return;
    {
        const frame::GestAnagrafica::BulkRewrite sospesa(*agente);
        ignoreEachStep({[&] {
            const db::RecordsetPtr agenti = agente->recordset();
            richiesto(agenti.get(), "Grst_GestAnagrafica1")
                .setValue(QStringLiteral("MG17_ID_LP09"), Get_MG17_ID_LP09(codice));
        }});
    }
    ignoreEachStep({
        [&] { agente->setSecondChangeFlag(true); },
        [&] { agente->refreshState(); },
    });
}

void Provvigioni::TXT_TABPRIORITA_Decodifica(controls::DecodeArgs& args) const
{
    const QString codice = RTrimN(m_controlli.TXT_TABPRIORITA.text()).toString();
    if (codice.isEmpty()) {
        senzaCodice(args, m_controlli.TXT_TABPRIORITA_DESCR);
        return;
    }
    host::LookupDecoder& d = decodificatoreRichiesto(m_ambiente.decodificatori().priorita.get());
    d.prepareDecoding(ElencoPriorita, codice, QStringLiteral("TXT_TABPRIORITA_DESCR"));
    rispostaDecodifica(m_ambiente.finestra(), d, args, m_ambiente.Gstr_Connect());
}

void Provvigioni::TXT_TABPRIORITA_StartLookup(controls::LookupArgs& args)
{
    host::LookupDecoder& d = decodificatoreRichiesto(m_ambiente.decodificatori().priorita.get());
    d.prepareLookup(ElencoPriorita, 0);
    rispostaLista(d, args, m_ambiente.Gstr_Connect());
    m_controlli.TXT_TABPRIORITA.setLookupId(d.lookupId());
}

QString Provvigioni::Get_LP09_CODICE(qint16 id) const
{
    return passOn(QStringLiteral("Get_LP09_CODICE:"), [&] {
        const db::RecordsetPtr trovato =
            m_ambiente.connessione().execute(sql::codicePriorita(CDecN(id).toInt64()));
        QString codice;
        if (!trovato->bof() && !trovato->eof())
            codice = RTrimN(trovato->value(u"LP09_CODICE")).toString();
        trovato->close();
        return codice;
    });
}

qint16 Provvigioni::Get_MG17_ID_LP09(const QString& codice) const
{
    return passOn(QStringLiteral("Get_MG17_ID_LP09:"), [&] {
        const db::RecordsetPtr trovato =
            m_ambiente.connessione().execute(sql::idPriorita(RTrimN(codice).toString()));
        qint16 id = 0;
        const bool riga = !trovato->bof() && !trovato->eof();
        const db::Value valore = riga ? trovato->value(u"LP09_ID") : db::Value();
        trovato->close();
        if (riga)
            id = idPriorita(valore);
        return id;
    });
}

void Provvigioni::TXT_IMPMINFATT_Validate()
{
    ignoreEachStep({[&] {
        Field& importo = m_controlli.TXT_IMPMINFATT;
        if (CDecN(importo.text()).toDecimal() < db::Decimal(0))
            importo.setText(QStringLiteral("0"));
    }});
}

void Provvigioni::CBO_INDPREFSTDOC_KeyDown(controls::KeyArgs& args)
{
    if ((args.keyCode != controls::Key::Tab && args.keyCode != controls::Key::Enter) ||
        args.shift != 0)
        return;
    frame::GestAnagrafica& agente = richiesto(m_agente.data(), "FME_GestAnagrafica1");
    agente.setSecondChangeFlag(true);
    agente.refreshState();
    args.keyCode = 0;
    QCoreApplication::processEvents();
    m_controlli.INTERNAV.press(QStringLiteral("Avanti"));
}

void Provvigioni::InvocaGestioneTabProvv()
{
    host::Cinterface* contratto = nullptr;
    const Outcome esito = leaveSilently({
        [&] {
            m_tabProvv = m_ambiente.globale().createModule(ModuloTabProvv);
            contratto = &richiesto(m_tabProvv.get(), "Pcls_TabProvv").contract();
        },
        [&] { m_ambiente.modulo().setIsActive(false); },
        [&] { AffidaModulo(m_ambiente.globale(), *contratto); },
        [&] {
            m_tabProvv->setCallingData({db::Value(), RTrimN(m_controlli.TXT_CODPROVSC.text())});
        },
        [&] {
            m_ambiente.globale().startModule(nullptr, ModuloTabProvv, host::startModuleArguments());
        },
        [&] {
            m_ambiente.globale().setActiveModule(nullptr);
            contratto = nullptr;
            rilasciaTabProvv();
            m_ambiente.modulo().setIsActive(true);
            m_ambiente.globale().setActiveModule(m_ambiente.ActiveInterface());
            m_ambiente.navigatore().update();
        },
    });
    // Left halfway, the host would keep a component that is gone as its active module: the
    // screen takes the host back as the management's closing would have done.
    if (esito == Outcome::Abandoned && m_tabProvv) {
        rilasciaTabProvv();
        RiprendiHost(m_ambiente);
    }
}

void Provvigioni::rilasciaTabProvv()
{
    if (!m_tabProvv)
        return;
    ignoreEachStep({[&] { m_ambiente.globale().deregisterModule(&m_tabProvv->contract()); }});
    m_tabProvv.reset();
}

} // namespace tarvello::agenti
