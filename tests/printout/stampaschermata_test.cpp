#include "pdftext.h"
#include "platform/controls/field.h"
#include "platform/db/demodata.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/menuentry.h"
#include "src/linked/stampa.h"
#include "src/screen/clsmg_agenti.h"
#include "src/screen/frmmg_agenti.h"
#include "support/testdatabase.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace tarvello;

namespace {

class MenuAgenti final : public host::MenuEntry {
public:
    QString key() const override { return QStringLiteral("MNU_ANAGRAFICA_AGENTI"); }
};

// The agents screen opened by the host on a company with two agents, printing from the
// agent on view. With TARVELLO_PRINTOUT_DIR set the printouts stay there to be looked at.
class StampaDallaSchermata : public ::testing::Test {
protected:
    void SetUp() override
    {
        db::Connection& db = database.connection();
        db::createSchema(db);
        db.run(QStringLiteral("INSERT INTO CG18_DITTE (CG18_DITTA, CG18_RAGSOC) VALUES (1, ?)"),
               {QStringLiteral("Rossi Forniture")});
        db.run(QStringLiteral("INSERT INTO CG16_ANAGGEN (CG16_CODICE, CG16_RAGSOANAG) VALUES "
                              "(101, 'ROSSI MARIO'), (102, 'VERDI LUCA')"));
        db.run(QStringLiteral("INSERT INTO MG17_AGENTI (MG17_DITTA_CG18, MG17_AGENTE, "
                              "MG17_ANAGEN_CG16, MG17_INDTIPOAGE, MG17_PERPROV) VALUES "
                              "(1, 'A001', 101, 2, 3.5), (1, 'A002', 102, 0, 5.25)"));
        toolbar.setFrameStatus(0);
        context.setNavigator(&toolbar);
        module.setClsGlobal(&context);
        module.setActiveNavigator(&toolbar);
        module.setClsVoceMenu(&menu);
        module.setCaption(QStringLiteral("Anagrafica agenti"));
        context.setActiveModule(&module);
        module.setIsActive(true);
        module.ShowForm();
    }

    void TearDown() override
    {
        if (auto* screen = dynamic_cast<agenti::FRMMG_AGENTI*>(module.screen()))
            screen->unload();
    }

    agenti::FRMMG_AGENTI& schermata() const
    {
        return *dynamic_cast<agenti::FRMMG_AGENTI*>(module.screen());
    }

    QString outputPath(const QString& name) const
    {
        const QString kept = qEnvironmentVariable("TARVELLO_PRINTOUT_DIR");
        return kept.isEmpty() ? output.filePath(name) : QDir(kept).filePath(name);
    }

    test::TestDatabase database{test::DatabaseTarget{QStringLiteral("sqlite"), false}};
    services::ScriptedPrompts prompts;
    services::HostContext context{
        prompts, database.connectionString(), {1, QStringLiteral("Rossi Forniture")}};
    services::HostNavigator toolbar{context};
    MenuAgenti menu;
    QTemporaryDir output;
    agenti::CLSMG_AGENTI module{agenti::FRMMG_AGENTI::fabbrica()};
};

TEST_F(StampaDallaSchermata, TheAgentOnViewIsPrintedToThePdfChosen)
{
    ASSERT_EQ(schermata().controllo<controls::Field>(u"TXT_AGENTE").text(), QStringLiteral("A001"));
    const QString path = outputPath(QStringLiteral("stampa-agente-A001.pdf"));
    prompts.queue(services::PromptAnswer::file(path));

    agenti::InvocaStampa(schermata());

    QFile pdf(path);
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    EXPECT_TRUE(pdf.read(5) == "%PDF-");
    const QString text = test::pdfText(path);
    EXPECT_TRUE(text.contains(QStringLiteral("Agente A001")));
    EXPECT_TRUE(text.contains(QStringLiteral("ROSSI MARIO")));
    EXPECT_TRUE(text.contains(QStringLiteral("Capo area")));
    EXPECT_TRUE(text.contains(QStringLiteral("3,50")));
    EXPECT_FALSE(text.contains(QStringLiteral("VERDI LUCA")));

    // Back from the printout, the agents module is the active one again.
    EXPECT_TRUE(module.IsActive());
    EXPECT_EQ(context.activeModule(), &module);
    EXPECT_EQ(context.secondModule(), nullptr);
}

} // namespace
