#include "src/screen/provvigioni.h"

#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/keycodes.h"
#include "platform/controls/navigatorbar.h"
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
#include "src/screen/frmmg_agenti.h"
#include "src/screen/listecodificate.h"
#include "src/screen/rispostedecodificatore.h"

#include <QCoreApplication>
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
void senzaCodice(controls::DecodeArgs& args, controls::DataControl* descrizione)
{
    args.cancel = true;
    if (descrizione)
        descrizione->setValue(QString());
}

} // namespace

Provvigioni::Provvigioni(FRMMG_AGENTI& schermata)
    : m_schermata(schermata)
{}

Provvigioni::~Provvigioni() = default;

Field& Provvigioni::campo(QStringView nome) const
{
    return m_schermata.controllo<Field>(nome);
}

QString Provvigioni::testoLista(QStringView nome) const
{
    return m_schermata.controllo<ComboBox>(nome).text();
}

void Provvigioni::impostaLista(QStringView nome, const QString& testo) const
{
    m_schermata.controllo<ComboBox>(nome).setText(testo);
}

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
    QObject* contesto = &m_schermata;
    QObject::connect(&m_schermata.controllo<ComboBox>(u"CBO_REGPROV"), &ComboBox::valueSet,
                     contesto, [this](const db::Value& codice) { CBO_REGPROV_Click(codice); });
    auto& tipoListino = m_schermata.controllo<ComboBox>(u"CBO_INDTIPOLISFIX");
    QObject::connect(&tipoListino, &ComboBox::valueSet, contesto,
                     [this] { CBO_INDTIPOLISFIX_Click(); });
    QObject::connect(&tipoListino, &ComboBox::lostFocus, contesto,
                     [this] { CBO_INDTIPOLISFIX_LostFocus(); });
    QObject::connect(&m_schermata.controllo<ComboBox>(u"CBO_IDENTIFTAB"), &ComboBox::valueSet,
                     contesto, [this] { CBO_IDENTIFTAB_Click(); });
    QObject::connect(&m_schermata.controllo<ComboBox>(u"CBO_IDENTIFRIGA"), &ComboBox::valueSet,
                     contesto, [this] { CBO_IDENTIFRIGA_Click(); });
    QObject::connect(&m_schermata.controllo<controls::CheckBox>(u"CHK_FLGADEGUAMSCMAG"),
                     &controls::CheckBox::valueSet, contesto,
                     [this](int valore) { CHK_FLGADEGUAMSCMAG_Click(valore); });

    Field& tabProvv = campo(u"TXT_CODPROVSC");
    QObject::connect(&tabProvv, &Field::decodeRequested, contesto,
                     [this](controls::DecodeArgs& args) { TXT_CODPROVSC_Decodifica(args); });
    QObject::connect(&tabProvv, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) { TXT_CODPROVSC_StartLookup(args); });
    QObject::connect(&tabProvv, &Field::managementKeyPressed, contesto,
                     [this](const QString& chiave) {
                         if (chiave == u"Kgestione")
                             InvocaGestioneTabProvv();
                     });

    Field& listino = campo(u"TXT_NUMLISTFIX");
    QObject::connect(&listino, &Field::decodeRequested, contesto,
                     [this](controls::DecodeArgs& args) { TXT_NUMLISTFIX_Decodifica(args); });
    QObject::connect(&listino, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) { TXT_NUMLISTFIX_StartLookup(args); });

    Field& priorita = campo(u"TXT_TABPRIORITA");
    QObject::connect(&priorita, &Field::gotFocus, contesto, [this, &priorita] {
        ignoreEachStep({[&] { m_prioritaPrecedente = RTrimN(priorita.text()).toString(); }});
    });
    QObject::connect(&priorita, &Field::validate, contesto,
                     [this](controls::CancelArgs&) { TXT_TABPRIORITA_Validate(); });
    QObject::connect(&priorita, &Field::decodeRequested, contesto,
                     [this](controls::DecodeArgs& args) { TXT_TABPRIORITA_Decodifica(args); });
    QObject::connect(&priorita, &Field::lookupRequested, contesto,
                     [this](controls::LookupArgs& args) { TXT_TABPRIORITA_StartLookup(args); });

    QObject::connect(&campo(u"TXT_IMPMINFATT"), &Field::validate, contesto,
                     [this](controls::CancelArgs&) { TXT_IMPMINFATT_Validate(); });
    QObject::connect(&m_schermata.controllo<ComboBox>(u"CBO_INDPREFSTDOC"), &ComboBox::keyDown,
                     contesto, [this](controls::KeyArgs& args) { CBO_INDPREFSTDOC_KeyDown(args); });
}

void Provvigioni::CBO_REGPROV_Click(const db::Value& codice)
{
    const QString regime = testoLista(u"CBO_REGPROV");
    const bool listinoFisso = regime == u"5" || regime == u"7";
    if (listinoFisso) {
        impostaListinoFisso(true);
        impostaIdentificatori(false, false);
        impostaLista(u"CBO_INDTIPOLISFIX", QStringLiteral("0"));
    } else {
        if (regime != u"11" && regime != u"12") {
            Field& priorita = campo(u"TXT_TABPRIORITA");
            if (CDecN(codice) == db::Value(15)) {
                priorita.setEnabled(true);
            } else {
                priorita.setEnabled(false);
                priorita.setText(QString());
                // Written only when it differs: a row shown with 0 is not edited for nothing.
                const db::RecordsetPtr agenti =
                    m_schermata.Grst_GestAnagrafica(FRMMG_AGENTI::Agenti);
                if (agenti && !agenti->bof() && !agenti->eof() &&
                    !(agenti->value(u"MG17_ID_LP09") == db::Value(0)))
                    agenti->setValue(QStringLiteral("MG17_ID_LP09"), 0);
            }
        }
        impostaListinoFisso(false);
        impostaIdentificatori(regime == u"12", regime == u"11" || regime == u"12");
        impostaLista(u"CBO_INDTIPOLISFIX", QStringLiteral("-1"));
        campo(u"TXT_NUMLISTFIX").setText(QString());
    }
    // A list already on "-1" raises nothing when set to it again; its rule runs all the same,
    // so that a regime always finds the row and column lists built for its identifiers.
    const auto nessuno = [this](QStringView nome, void (Provvigioni::*regola)()) {
        if (testoLista(nome) == u"-1" && regola)
            (this->*regola)();
        else
            impostaLista(nome, QStringLiteral("-1"));
    };
    nessuno(u"CBO_IDENTIFTAB", &Provvigioni::CBO_IDENTIFTAB_Click);
    nessuno(u"CBO_IDENTIFRIGA", &Provvigioni::CBO_IDENTIFRIGA_Click);
    nessuno(u"CBO_IDENTIFCOL", nullptr);
}

void Provvigioni::impostaListinoFisso(bool usato)
{
    for (const char* nome : {"CBO_INDTIPOLISFIX", "TXT_NUMLISTFIX"}) {
        auto& controllo = m_schermata.controllo<controls::DataControl>(QString::fromLatin1(nome));
        controllo.setRequired(usato);
        controllo.setEnabled(usato);
    }
}

void Provvigioni::impostaIdentificatori(bool tabella, bool righe)
{
    m_schermata.controllo<ComboBox>(u"CBO_IDENTIFTAB").setEnabled(tabella);
    m_schermata.controllo<ComboBox>(u"CBO_IDENTIFRIGA").setEnabled(righe);
    m_schermata.controllo<ComboBox>(u"CBO_IDENTIFCOL").setEnabled(righe);
}

void Provvigioni::CBO_INDTIPOLISFIX_Click()
{
    const QString tipo = testoLista(u"CBO_INDTIPOLISFIX");
    const bool conNumero = tipo == u"1" || tipo == u"2";
    Field& numero = campo(u"TXT_NUMLISTFIX");
    numero.setRequired(conNumero);
    numero.setEnabled(conNumero);
}

void Provvigioni::CBO_INDTIPOLISFIX_LostFocus()
{
    const db::Value tipo = CDecN(testoLista(u"CBO_INDTIPOLISFIX"));
    if (!(tipo == db::Value(1)) && !(tipo == db::Value(2)))
        campo(u"TXT_NUMLISTFIX").setText(QString());
}

void Provvigioni::CBO_IDENTIFTAB_Click()
{
    const QString tabella = testoLista(u"CBO_IDENTIFTAB");
    ListeCodificate& liste = m_schermata.liste();
    if (entita(tabella))
        liste.disponibilitaRighe = tutteTranne({tabella});
    else if (tabella == u"-1")
        liste.disponibilitaRighe = tutteTranne({});
    liste.CaricaCombo_CBO_IDENTIFRIGA();
    liste.CaricaCombo_CBO_IDENTIFCOL();
}

void Provvigioni::CBO_IDENTIFRIGA_Click()
{
    const QString tabella = testoLista(u"CBO_IDENTIFTAB");
    const QString riga = testoLista(u"CBO_IDENTIFRIGA");
    ListeCodificate& liste = m_schermata.liste();
    const bool tabellaNota = entita(tabella) || tabella == u"-1";
    if (entita(riga) && tabellaNota && riga != tabella)
        liste.disponibilitaColonne = tutteTranne({tabella, riga});
    liste.CaricaCombo_CBO_IDENTIFCOL();
}

void Provvigioni::CHK_FLGADEGUAMSCMAG_Click(int valore)
{
    for (const char* nome :
         {"TXT_CODPROVSC", "CBO_INDCALCSCMAG", "CBO_INDBASEIMPSC", "CBO_INDBASEIMPMAG"})
        m_schermata.controllo<controls::Control>(QString::fromLatin1(nome)).setEnabled(valore == 1);
}

void Provvigioni::TXT_CODPROVSC_Decodifica(controls::DecodeArgs& args) const
{
    auto* descrizione = m_schermata.find<controls::DataControl>(u"TXT_DESPROVSC");
    const QString codice = RTrimN(campo(u"TXT_CODPROVSC").text()).toString();
    if (codice.isEmpty()) {
        senzaCodice(args, descrizione);
        return;
    }
    args.sql = sql::descrizioneTabProvvSconti(m_schermata.Codice_Ditta(), codice);
    args.targets = {{descrizione, QStringLiteral("PA10_DESCPROVSC")}};
    args.connectionString = m_schermata.Gstr_Connect();
}

void Provvigioni::TXT_CODPROVSC_StartLookup(controls::LookupArgs& args)
{
    reportModuleError(
        m_schermata.errori(), QStringLiteral("FRMMG_AGENTI_AGENTE_StartLookup"),
        {
            [&] { args.cancel = false; },
            [&] { args.sql = sql::elencoTabProvvSconti(m_schermata.Codice_Ditta()); },
            [&] {
                args.columns = {QStringLiteral("Codice tabella"), QStringLiteral("Descrizione")};
            },
            [&] { args.title = QStringLiteral("Elenco tabelle provvigioni/sconti"); },
            [&] { args.connectionString = m_schermata.Gstr_Connect(); },
            [&] { campo(u"TXT_CODPROVSC").setLookupId(QStringLiteral("Lkp_CodProvSconti")); },
        });
}

void Provvigioni::TXT_NUMLISTFIX_Decodifica(controls::DecodeArgs& args) const
{
    Field& listino = campo(u"TXT_NUMLISTFIX");
    auto* descrizione = m_schermata.find<controls::DataControl>(u"TXT_DESLISTFIX");
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
    host::LookupDecoder& d = decodificatoreRichiesto(m_schermata.decodificatoreListini());
    d.prepareDecoding(ElencoListini, CDecN(testo), QStringLiteral("TXT_DESLISTFIX"));
    rispostaDecodifica(m_schermata, d, args, m_schermata.Gstr_Connect());
}

void Provvigioni::TXT_NUMLISTFIX_StartLookup(controls::LookupArgs& args)
{
    host::LookupDecoder& d = decodificatoreRichiesto(m_schermata.decodificatoreListini());
    d.prepareLookup(ElencoListini, 0);
    rispostaLista(d, args, m_schermata.Gstr_Connect());
    campo(u"TXT_NUMLISTFIX").setLookupId(QStringLiteral("Lkp_NumListFix"));
}

void Provvigioni::TXT_TABPRIORITA_Validate()
{
    const QString codice = RTrimN(campo(u"TXT_TABPRIORITA").text()).toString();
    if (codice == m_prioritaPrecedente)
        return;
    frame::GestAnagrafica* agente = m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::Agenti);
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
    const QString codice = RTrimN(campo(u"TXT_TABPRIORITA").text()).toString();
    if (codice.isEmpty()) {
        senzaCodice(args, m_schermata.find<controls::DataControl>(u"TXT_TABPRIORITA_DESCR"));
        return;
    }
    host::LookupDecoder& d = decodificatoreRichiesto(m_schermata.decodificatorePriorita());
    d.prepareDecoding(ElencoPriorita, codice, QStringLiteral("TXT_TABPRIORITA_DESCR"));
    rispostaDecodifica(m_schermata, d, args, m_schermata.Gstr_Connect());
}

void Provvigioni::TXT_TABPRIORITA_StartLookup(controls::LookupArgs& args)
{
    host::LookupDecoder& d = decodificatoreRichiesto(m_schermata.decodificatorePriorita());
    d.prepareLookup(ElencoPriorita, 0);
    rispostaLista(d, args, m_schermata.Gstr_Connect());
    campo(u"TXT_TABPRIORITA").setLookupId(d.lookupId());
}

QString Provvigioni::Get_LP09_CODICE(qint16 id) const
{
    return passOn(QStringLiteral("Get_LP09_CODICE:"), [&] {
        const db::RecordsetPtr trovato =
            m_schermata.connessione().execute(sql::codicePriorita(CDecN(id).toInt64()));
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
            m_schermata.connessione().execute(sql::idPriorita(RTrimN(codice).toString()));
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
        Field& importo = campo(u"TXT_IMPMINFATT");
        if (CDecN(importo.text()).toDecimal() < db::Decimal(0))
            importo.setText(QStringLiteral("0"));
    }});
}

void Provvigioni::CBO_INDPREFSTDOC_KeyDown(controls::KeyArgs& args)
{
    if ((args.keyCode != controls::Key::Tab && args.keyCode != controls::Key::Enter) ||
        args.shift != 0)
        return;
    frame::GestAnagrafica& agente =
        richiesto(m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::Agenti), "FME_GestAnagrafica1");
    agente.setSecondChangeFlag(true);
    agente.refreshState();
    args.keyCode = 0;
    QCoreApplication::processEvents();
    m_schermata.controllo<controls::NavigatorBar>(u"INTERNAV").press(QStringLiteral("Avanti"));
}

void Provvigioni::InvocaGestioneTabProvv()
{
    host::Cinterface* contratto = nullptr;
    const Outcome esito = leaveSilently({
        [&] {
            m_tabProvv = m_schermata.globale().createModule(ModuloTabProvv);
            contratto = &richiesto(m_tabProvv.get(), "Pcls_TabProvv").contract();
        },
        [&] { m_schermata.modulo().setIsActive(false); },
        [&] { AffidaModulo(m_schermata.globale(), *contratto); },
        [&] {
            m_tabProvv->setCallingData({db::Value(), RTrimN(campo(u"TXT_CODPROVSC").text())});
        },
        [&] {
            m_schermata.globale().startModule(nullptr, ModuloTabProvv,
                                              host::startModuleArguments());
        },
        [&] {
            m_schermata.globale().setActiveModule(nullptr);
            contratto = nullptr;
            rilasciaTabProvv();
            m_schermata.modulo().setIsActive(true);
            m_schermata.globale().setActiveModule(m_schermata.ActiveInterface());
            m_schermata.navigatore().update();
        },
    });
    // Left halfway, the host would keep a component that is gone as its active module: the
    // screen takes the host back as the management's closing would have done.
    if (esito == Outcome::Abandoned && m_tabProvv) {
        rilasciaTabProvv();
        RiprendiHost(m_schermata);
    }
}

void Provvigioni::rilasciaTabProvv()
{
    if (!m_tabProvv)
        return;
    ignoreEachStep({[&] { m_schermata.globale().deregisterModule(&m_tabProvv->contract()); }});
    m_tabProvv.reset();
}

} // namespace tarvello::agenti
