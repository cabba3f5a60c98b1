#include "platform/controls/field.h"
#include "schermatafixture.h"
#include "src/host/errorlog.h"
#include "src/host/modulecontract.h"
#include "src/host/stampaagenti.h"
#include "src/linked/stampa.h"

namespace tarvello::test {

namespace {

using agenti::FRMMG_AGENTI;
using services::HostNavigator;

const QString CollegamentoSoloInVariazione = QStringLiteral(
    "Il collegamento ai dati multimediali è possibile solamente in fase di variazione");

// What the agent frame shows after a company change to company 2 with this code on view.
QString agenteInDittaDue(const QString& codiceSql)
{
    return QStringLiteral(" SELECT  *  FROM  MG17_AGENTI WHERE  MG17_DITTA_CG18 = 2 AND "
                          "MG17_AGENTE = ") +
           codiceSql;
}

class EventiHost : public SchermataTest {
protected:
    frame::GestAnagrafica& agenti() const { return gestione(FRMMG_AGENTI::Agenti); }
    db::Recordset& righeAgenti() const
    {
        return *schermata().Grst_GestAnagrafica(FRMMG_AGENTI::Agenti);
    }
    QString agenteMostrato() const { return controllo<controls::Field>(u"TXT_AGENTE").text(); }
    bool cambiaDitta(qint32 ditta)
    {
        return toolbar->changeCompany({ditta, QStringLiteral("Ditta %1").arg(ditta), false});
    }
    qint64 righe(const QString& sql) { return db().execute(sql)->recordCount(); }
    // How many times the person was asked for a file.
    qsizetype sceltaFile() const
    {
        return std::count_if(prompts.history().begin(), prompts.history().end(),
                             [](const services::PromptRecord& record) {
                                 return record.kind == services::PromptKind::FileChoice;
                             });
    }
    db::Value mediaDi(const QString& codice)
    {
        return db()
            .run(QStringLiteral("SELECT MG17_IDMEDIA_CG99 FROM MG17_AGENTI WHERE "
                                "MG17_DITTA_CG18 = 1 AND MG17_AGENTE = ?"),
                 {codice})
            .rows.first()
            .first();
    }
};

TEST_F(EventiHost, InACompanyWithoutTheCodeOnViewTheAgentRecordsetIsEmpty)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    ASSERT_EQ(agenteMostrato(), QStringLiteral("A001"));
    const db::RecordsetPtr prima = schermata().Grst_GestAnagrafica(FRMMG_AGENTI::Agenti);

    EXPECT_TRUE(cambiaDitta(dittaSemplice));

    const QString atteso = agenteInDittaDue(QStringLiteral("'A001'"));
    EXPECT_EQ(schermata().Codice_Ditta(), dittaSemplice);
    EXPECT_EQ(schermata().Gstr_GestAnagrafica(FRMMG_AGENTI::Agenti), atteso);
    EXPECT_TRUE(istruzioni().contains(atteso));
    // The recordset is reopened in place: the frame still works on it.
    EXPECT_EQ(schermata().Grst_GestAnagrafica(FRMMG_AGENTI::Agenti), prima);
    EXPECT_EQ(agenti().recordset(), prima);
    EXPECT_TRUE(prima->isOpen());
    EXPECT_EQ(prima->source(), atteso);
    EXPECT_EQ(righeAgenti().recordCount(), 0);
    EXPECT_TRUE(agenti().isAttached());
    EXPECT_EQ(agenti().status(), frame::FrameStatus::New);
}

TEST_F(EventiHost, TheSameCodeIsShownInTheNewCompanyEvenWithAQuote)
{
    inserisciAgente(QStringLiteral("D'ANGELO"));
    inserisciAgente(QStringLiteral("B002"), dittaSemplice);
    const qint64 nellaSeconda = inserisciAgente(QStringLiteral("D'ANGELO"), dittaSemplice);
    apri();
    ASSERT_EQ(agenteMostrato(), QStringLiteral("D'ANGELO"));

    EXPECT_TRUE(cambiaDitta(dittaSemplice));

    EXPECT_TRUE(istruzioni().contains(agenteInDittaDue(QStringLiteral("'D''ANGELO'"))));
    ASSERT_EQ(righeAgenti().recordCount(), 1);
    EXPECT_EQ(righeAgenti().value(u"MG17_IDAGENTE"), db::Value(nellaSeconda));
    EXPECT_EQ(agenti().status(), frame::FrameStatus::Browse);
    EXPECT_EQ(agenteMostrato(), QStringLiteral("D'ANGELO"));
}

TEST_F(EventiHost, MultimediaOnANewAgentOnlyTellsThePerson)
{
    apri();
    ASSERT_EQ(agenti().status(), frame::FrameStatus::New);

    EXPECT_EQ(toolbar->press(HostNavigator::Multimedia), HostNavigator::Press::Done);

    ASSERT_EQ(prompts.history().size(), 1);
    const services::PromptRecord& avviso = prompts.history().first();
    EXPECT_EQ(avviso.kind, services::PromptKind::MessageBox);
    EXPECT_EQ(avviso.text, CollegamentoSoloInVariazione);
    EXPECT_EQ(avviso.title, QStringLiteral("Avviso Utente"));
    EXPECT_EQ(avviso.style, 64);
    EXPECT_EQ(modulo->CHyperMedia(), nullptr);
    EXPECT_EQ(righe(QStringLiteral("SELECT * FROM CG99_MULTIMEDIA")), 0);
}

TEST_F(EventiHost, MultimediaOnAnAgentAttachesTheFileChosenAndKeepsItsId)
{
    inserisciAgente(QStringLiteral("A001"));
    inserisciAgente(QStringLiteral("A002"));
    apri();
    ASSERT_EQ(agenteMostrato(), QStringLiteral("A001"));
    prompts.queue(services::PromptAnswer::file(QStringLiteral("/archivio/contratto A001.pdf")));

    EXPECT_EQ(toolbar->press(HostNavigator::Multimedia), HostNavigator::Press::Done);

    const db::ResultSet creati =
        db().run(QStringLiteral("SELECT CG99_IDMEDIA, CG99_NOMEFILE FROM CG99_MULTIMEDIA"));
    ASSERT_EQ(creati.rows.size(), 1);
    EXPECT_EQ(creati.rows.first().at(1), db::Value("contratto A001.pdf"));
    const db::Value id = creati.rows.first().at(0);
    EXPECT_EQ(mediaDi(QStringLiteral("A001")), id);
    EXPECT_TRUE(mediaDi(QStringLiteral("A002")).isNull());
    EXPECT_EQ(righeAgenti().value(u"MG17_IDMEDIA_CG99"), id);
    EXPECT_EQ(agenti().status(), frame::FrameStatus::Browse);

    // Linked once, the archive opens on the record: no file is asked for, none is added.
    toolbar->press(HostNavigator::Multimedia);
    EXPECT_EQ(sceltaFile(), 1);
    EXPECT_EQ(righe(QStringLiteral("SELECT * FROM CG99_MULTIMEDIA")), 1);
}

TEST_F(EventiHost, MultimediaWhileAnotherModuleIsActiveDoesNothing)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    modulo->setIsActive(false);
    prompts.queue(services::PromptAnswer::file(QStringLiteral("/archivio/foto.jpg")));
    toolbar->press(HostNavigator::Multimedia);
    EXPECT_EQ(modulo->CHyperMedia(), nullptr);
    EXPECT_EQ(righe(QStringLiteral("SELECT * FROM CG99_MULTIMEDIA")), 0);
}

// A printout module that notes what the host and the screen had set when it was run.
class StampaDiProva final : public host::ModuleContract, public host::AgentsPrintout {
public:
    struct Visto {
        db::Value codice;
        bool schermataAttiva = true;
        bool attiva = false;
        bool chiamata = false;
        bool eLaAttiva = false;
    };

    StampaDiProva(host::Cinterface& agenti, std::optional<Visto>& visto, bool fallisce)
        : m_agenti(agenti)
        , m_visto(visto)
        , m_fallisce(fallisce)
    {}

    void setCodiceAgente(const db::Value& code) override { m_codice = code; }
    db::Value CodiceAgente() const override { return m_codice; }
    host::Cinterface& contract() override { return *this; }
    void setCallingData(const db::ValueList&) override {}
    host::EventSource<host::DataTransferEvents>& dataTransfer() override { return m_eventi; }
    db::Value TransferData(const db::Value&) override { return {}; }
    db::Value ShowForm() override
    {
        m_visto = Visto{m_codice, m_agenti.IsActive(), IsActive(), IsCalled(),
                        ClsGlobal() && ClsGlobal()->activeModule() == this};
        if (m_fallisce)
            throw db::RuntimeError(5, QStringLiteral("Invalid procedure call"),
                                   QStringLiteral("CLSMG_STAGENTI"));
        return {};
    }

private:
    host::Cinterface& m_agenti;
    std::optional<Visto>& m_visto;
    bool m_fallisce;
    db::Value m_codice;
    host::EventSource<host::DataTransferEvents> m_eventi;
};

class StampaAgenti : public EventiHost {
protected:
    void registraStampa(bool fallisce = false)
    {
        host->modules().add(QStringLiteral("Brendolo.CLSMG_STAGENTI"), [this, fallisce] {
            return std::make_unique<StampaDiProva>(*modulo, visto, fallisce);
        });
    }
    std::optional<StampaDiProva::Visto> visto;
};

TEST_F(StampaAgenti, TheAgentOnViewIsPrintedWithThisModuleSetAside)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    registraStampa();
    const qsizetype avvii = host->moduleStarts().size();

    agenti::InvocaStampa(schermata());

    ASSERT_TRUE(visto.has_value());
    EXPECT_EQ(visto->codice, db::Value("A001"));
    EXPECT_FALSE(visto->schermataAttiva);
    EXPECT_TRUE(visto->attiva);
    EXPECT_TRUE(visto->chiamata);
    EXPECT_TRUE(visto->eLaAttiva);
    ASSERT_EQ(host->moduleStarts().size(), avvii + 1);
    const auto& avvio = host->moduleStarts().last();
    EXPECT_EQ(avvio.programmaticIdentifier, QStringLiteral("Brendolo.CLSMG_STAGENTI"));
    EXPECT_FALSE(avvio.byReference);
    EXPECT_EQ(avvio.arguments, db::ValueList({-1, 2, 0, 0, 0, 0, -1, -1}));

    EXPECT_TRUE(modulo->IsActive());
    EXPECT_EQ(host->activeModule(), modulo.get());
    EXPECT_EQ(host->secondModule(), nullptr);
}

TEST_F(StampaAgenti, AFailureGoesBackToTheCallerWithTheTrace)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    registraStampa(true);
    try {
        agenti::InvocaStampa(schermata());
        FAIL() << "the printout's error was swallowed";
    } catch (const db::RuntimeError& errore) {
        EXPECT_EQ(errore.number(), 5);
        EXPECT_EQ(errore.description(), QStringLiteral("Invalid procedure call"));
        EXPECT_EQ(errore.source(), QStringLiteral("InvocaStampa:\r\nCLSMG_STAGENTI"));
    }
    // Left where the error found it: the module is still set aside.
    EXPECT_FALSE(modulo->IsActive());
}

TEST_F(StampaAgenti, TheHostsPrintoutLooksForTheCodeOnViewInTheCurrentCompany)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    db().run(QStringLiteral("DELETE FROM MG17_AGENTI"));

    agenti::InvocaStampa(schermata());

    ASSERT_FALSE(prompts.history().isEmpty());
    EXPECT_EQ(prompts.history().last().text,
              QStringLiteral("L'agente A001 non esiste nella ditta 1."));
    EXPECT_TRUE(modulo->IsActive());
}

} // namespace

} // namespace tarvello::test
