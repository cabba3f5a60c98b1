#include "platform/controls/field.h"
#include "schermatafixture.h"
#include "src/host/errorlog.h"
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

class StampaAgenti : public EventiHost {
protected:
    void registraStampa(bool fallisce = false)
    {
        registraModulo(QStringLiteral("Brendolo.CLSMG_STAGENTI"), std::nullopt, fallisce);
    }
    void stampa()
    {
        agenti::InvocaStampa(schermata().ambiente(),
                             schermata().controllo<controls::Field>(u"TXT_AGENTE"));
    }
};

TEST_F(StampaAgenti, TheAgentOnViewIsPrintedWithThisModuleSetAside)
{
    inserisciAgente(QStringLiteral("A001"));
    apri();
    registraStampa();
    const qsizetype avvii = host->moduleStarts().size();

    stampa();

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
        stampa();
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

    stampa();

    ASSERT_FALSE(prompts.history().isEmpty());
    EXPECT_EQ(prompts.history().last().text,
              QStringLiteral("L'agente A001 non esiste nella ditta 1."));
    EXPECT_TRUE(modulo->IsActive());
}

} // namespace

} // namespace tarvello::test
