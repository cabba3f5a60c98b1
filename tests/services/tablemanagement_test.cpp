#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/db/demodata.h"
#include "platform/services/divisionaldatamanagement.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/management/managementcatalogue.h"
#include "platform/services/management/managementpresenter.h"
#include "platform/services/management/tablemanagement.h"
#include "platform/services/scriptedprompts.h"
#include "src/host/errorlog.h"
#include "support/plainmodule.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

// Shows a management's window by working in it at once; the window then closes.
class WorkingPresenter final : public ManagementPresenter {
public:
    std::function<void(TableManagement&)> work;

    void present(TableManagement& management, host::Cinterface&) override
    {
        work(management);
        if (management.form().isLoaded())
            management.form().unload();
    }
};

// The host on the demo data, its managements shown by working in them.
class TableManagementTest : public ::testing::Test {
protected:
    TableManagementTest()
    {
        db::createSchema(database.connection());
        db::populateDemoData(database.connection());
        context.setNavigator(&navigator);
        context.managements().setPresenter(&presenter);
    }

    QString cell(const TableManagement& management, int row, const char* column) const
    {
        return management.grid().cellText(
            row, management.grid().columnIndex(QString::fromLatin1(column)));
    }
    qint64 count(const QString& sql)
    {
        return database.connection().run(sql).rows.first().first().toInt64();
    }

    test::TestDatabase database{test::databaseTargets().front()};
    ScriptedPrompts prompts;
    HostContext context{
        prompts, database.connectionString(),
        host::Company{db::DemoCompanies::divisional, QStringLiteral("DITTA"), true}};
    HostNavigator navigator{context};
    WorkingPresenter presenter;
};

// Narrowing the rows while a row holds unsaved changes would hide them: the person is asked,
// and Cancel keeps both the changes and the rows as they were.
TEST_F(TableManagementTest, SortsByAColumnAndAsksBeforeNarrowingOverUnsavedChanges)
{
    const auto routes = context.managements().open(managements::routes(), {});
    routes->sortBy(QStringLiteral("MG1H_DESCRIZIONE"));
    EXPECT_EQ(cell(*routes, 0, "MG1H_GIRO"), QStringLiteral("G04")) << "giovedì comes first";
    routes->sortBy(QStringLiteral("MG1H_DESCRIZIONE"));
    EXPECT_EQ(cell(*routes, 0, "MG1H_GIRO"), QStringLiteral("G05")) << "then venerdì";

    auto* description = routes->form().find<controls::Field>(u"TXT_MG1H_DESCRIZIONE");
    auto* search = routes->form().find<controls::Field>(TableManagement::SearchBox);
    description->setFocus();
    description->typeText(QStringLiteral("Cambiata"));
    prompts.queue(PromptAnswer::button(host::Cancel));
    search->typeText(QStringLiteral("G01"));
    EXPECT_EQ(routes->grid().rowCount(), 6);
    EXPECT_EQ(search->text(), QString());
    EXPECT_EQ(description->text(), QStringLiteral("Cambiata"));

    prompts.queue(PromptAnswer::button(host::No));
    search->typeText(QStringLiteral("G01"));
    EXPECT_EQ(routes->grid().rowCount(), 1);
    EXPECT_EQ(count(QStringLiteral("SELECT COUNT(*) FROM MG1H_GIRI WHERE MG1H_DESCRIZIONE = "
                                   "'Cambiata'")),
              0);
}

// The agent's entity is written with its first divisional row, in one transaction: a row the
// database refuses leaves no entity behind.
TEST_F(TableManagementTest, AnEntityIsNotLeftBehindByAFirstRowTheDatabaseRefuses)
{
    database.connection().run(
        QStringLiteral("CREATE TRIGGER NESSUNA_DIVISIONE BEFORE INSERT ON CO1G_DETTAGENTE "
                       "BEGIN SELECT RAISE(ABORT, 'divisione rifiutata'); END"));
    const QString entities = QStringLiteral(
        "SELECT COUNT(*) FROM CO1C_ENTITADIV INNER JOIN MG17_AGENTI ON MG17_IDAGENTE = "
        "CO1C_IDAGENTE_MG17 WHERE MG17_AGENTE = 'A002'");
    test::PlainModule opener;
    DivisionalDataManagement management(context.managements());
    management.initialise(&opener, nullptr, host::DivisionalData::AgentEntity,
                          QStringLiteral("A002"));
    bool saved = true;
    presenter.work = [&](TableManagement& rows) {
        EXPECT_EQ(rows.grid().rowCount(), 0);
        rows.form().find<controls::Field>(u"TXT_CO1G_DIVISIONE")->typeText(QStringLiteral("ALI"));
        saved = rows.recordFrame()->save();
        // Leaving drops the row the database refused.
        prompts.queue(PromptAnswer::button(host::No));
        rows.close();
    };
    prompts.queue(PromptAnswer::window());
    management.run();
    EXPECT_FALSE(saved);
    EXPECT_EQ(count(entities), 0);

    database.connection().run(QStringLiteral("DROP TRIGGER NESSUNA_DIVISIONE"));
    presenter.work = [&](TableManagement& rows) {
        rows.form().find<controls::Field>(u"TXT_CO1G_DIVISIONE")->typeText(QStringLiteral("ALI"));
        saved = rows.recordFrame()->save();
    };
    prompts.queue(PromptAnswer::window());
    management.run();
    EXPECT_TRUE(saved);
    EXPECT_EQ(count(entities), 1);
}

} // namespace
