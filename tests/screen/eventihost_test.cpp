#include "schermatafixture.h"
#include "src/host/errorlog.h"
#include "src/host/modulecontract.h"
#include "src/host/stampaagenti.h"
#include "src/linked/stampa.h"

namespace tarvello::test {

namespace {

using services::HostNavigator;

class EventiHost : public SchermataTest {
protected:
    qint64 righe(const QString& sql) { return db().execute(sql)->recordCount(); }
};

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
