#include "platform/controls/connectionpool.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/lookuppresenter.h"
#include "platform/db/connection.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>

namespace tarvello::controls {
namespace {

using test::DatabaseTarget;
using test::TestDatabase;

// Answers every lookup with a fixed row and remembers what it was asked.
class FixedChoice : public LookupPresenter {
public:
    std::optional<db::ValueList> choice;
    QList<LookupArgs> requests;

    std::optional<db::ValueList> chooseFromLookup(Field&, const LookupArgs& request) override
    {
        requests << request;
        return choice;
    }
};

class DecodeTest : public ::testing::TestWithParam<DatabaseTarget> {
protected:
    void SetUp() override
    {
        database.runScript(QStringLiteral(
            "CREATE TABLE MGL1_MACROAREE (MGL1_CODICE VARCHAR(3), MGL1_DESCR VARCHAR(30),"
            " MGL1_NOTE VARCHAR(30));\n"
            "INSERT INTO MGL1_MACROAREE VALUES ('NOR', 'Nord', 'Alta Italia');\n"
            "INSERT INTO MGL1_MACROAREE VALUES ('S''E', 'Sud-est', NULL);\n"));
        pool.add(database.connection());
        form.setConnectionSource(&pool);
        form.setLookupPresenter(&presenter);
        form.load();
        code->setUpperCase(true);
        QObject::connect(code, &Field::decodeRequested, [this](DecodeArgs& args) {
            ++requests;
            if (code->text().isEmpty())
                return;
            args.sql = QStringLiteral("SELECT MGL1_DESCR, MGL1_NOTE FROM MGL1_MACROAREE"
                                      " WHERE MGL1_CODICE = ") +
                       db::quoted(code->text());
            args.targets = targets;
            args.connectionString = database.connectionString();
        });
    }

    TestDatabase database{GetParam()};
    ConnectionPool pool;
    FixedChoice presenter;
    Form form{QStringLiteral("FRM")};
    Field* code = form.add<Field>(QStringLiteral("TXT_MACROAREA"), Field::Kind::Code);
    Field* description = form.add<Field>(QStringLiteral("TXT_DESMACROAREA"));
    Label* note = form.add<Label>(QStringLiteral("LBL_NOTE"));
    QList<DecodeTarget> targets{{description, QStringLiteral("MGL1_DESCR")},
                                {note, QStringLiteral("MGL1_NOTE")}};
    int requests = 0;
};

TEST_P(DecodeTest, LeavingWithAKnownCodeFillsTheTargetsAndMarksItValid)
{
    code->setValid(false);
    code->setFocus();
    code->typeText(QStringLiteral("nor"));
    ASSERT_TRUE(description->setFocus());

    EXPECT_EQ(requests, 1);
    EXPECT_TRUE(code->isValid()) << code->lastError().toStdString();
    EXPECT_EQ(description->text(), QStringLiteral("Nord"));
    EXPECT_EQ(note->caption(), QStringLiteral("Alta Italia"));
}

TEST_P(DecodeTest, UnknownCodeMarksTheFieldNotValidAndEmptiesTheTargets)
{
    code->setText(QStringLiteral("NOR"));
    ASSERT_EQ(code->decode(), Field::DecodeOutcome::Found);

    code->setText(QStringLiteral("XYZ"));
    EXPECT_EQ(code->decode(), Field::DecodeOutcome::NotFound);
    EXPECT_FALSE(code->isValid());
    EXPECT_TRUE(description->text().isEmpty());
    EXPECT_TRUE(note->caption().isEmpty());
}

TEST_P(DecodeTest, CodeWithAQuoteIsFoundAndANullColumnEmptiesItsTarget)
{
    note->setCaption(QStringLiteral("old"));
    code->setText(QStringLiteral("S'E"));
    EXPECT_EQ(code->decode(), Field::DecodeOutcome::Found);
    EXPECT_EQ(description->text(), QStringLiteral("Sud-est"));
    EXPECT_TRUE(note->caption().isEmpty());
}

TEST_P(DecodeTest, TargetsWithoutAColumnNameTakeTheColumnsInOrder)
{
    targets = {{note, {}}, {description, {}}};
    code->setText(QStringLiteral("NOR"));
    ASSERT_EQ(code->decode(), Field::DecodeOutcome::Found);
    EXPECT_EQ(note->caption(), QStringLiteral("Nord"));
    EXPECT_EQ(description->text(), QStringLiteral("Alta Italia"));
}

TEST_P(DecodeTest, EmptyCodeWithNoStatementLeavesTheTargetsAndIsValid)
{
    description->setText(QStringLiteral("kept"));
    code->setValid(false);
    code->setText(QStringLiteral("X"));
    code->setText(QString());
    EXPECT_EQ(code->decode(), Field::DecodeOutcome::NotRun);
    EXPECT_TRUE(code->isValid());
    EXPECT_EQ(description->text(), QStringLiteral("kept"));
}

TEST_P(DecodeTest, FailingStatementMarksTheFieldNotValidWithTheReason)
{
    targets = {{description, QStringLiteral("NO_SUCH_COLUMN")}};
    code->setText(QStringLiteral("NOR"));
    EXPECT_EQ(code->decode(), Field::DecodeOutcome::Failed);
    EXPECT_FALSE(code->isValid());
    EXPECT_TRUE(code->lastError().contains(QStringLiteral("NO_SUCH_COLUMN")));
}

TEST_P(DecodeTest, CancelledRequestChangesNothing)
{
    QObject::connect(code, &Field::decodeRequested, [](DecodeArgs& args) { args.cancel = true; });
    code->setValid(false);
    code->setText(QStringLiteral("NOR"));
    EXPECT_EQ(code->decode(), Field::DecodeOutcome::Cancelled);
    EXPECT_FALSE(code->isValid());
    EXPECT_TRUE(description->text().isEmpty());
}

TEST_P(DecodeTest, LookupChoiceBecomesTheTextAndIsDecoded)
{
    QObject::connect(code, &Field::lookupRequested, [this](LookupArgs& args) {
        args.sql = QStringLiteral("SELECT MGL1_CODICE, MGL1_DESCR FROM MGL1_MACROAREE");
        args.columns = {QStringLiteral("Codice"), QStringLiteral("Descrizione")};
        args.title = QStringLiteral("Elenco macroaree");
        args.connectionString = database.connectionString();
        code->setLookupId(QStringLiteral("Lkp_Macroaree"));
    });
    presenter.choice = db::ValueList{QStringLiteral("NOR  "), QStringLiteral("Nord")};

    ASSERT_TRUE(code->openLookup());

    ASSERT_EQ(presenter.requests.size(), 1);
    EXPECT_EQ(presenter.requests.first().title, QStringLiteral("Elenco macroaree"));
    EXPECT_EQ(code->lookupId(), QStringLiteral("Lkp_Macroaree"));
    EXPECT_EQ(code->text(), QStringLiteral("NOR"));
    EXPECT_EQ(description->text(), QStringLiteral("Nord"));
    EXPECT_FALSE(code->isDecodePending());

    presenter.choice.reset();
    EXPECT_FALSE(code->openLookup()) << "a list closed without a choice changes nothing";
    EXPECT_EQ(code->text(), QStringLiteral("NOR"));
}

TEST_P(DecodeTest, CancelledLookupOpensNoList)
{
    QObject::connect(code, &Field::lookupRequested, [](LookupArgs& args) {
        args.sql = QStringLiteral("SELECT 1");
        args.cancel = true;
    });
    EXPECT_FALSE(code->openLookup());
    EXPECT_TRUE(presenter.requests.isEmpty());
    EXPECT_FALSE(code->lastLookupRequest().has_value());
}

TEST_P(DecodeTest, PoolGivesTheKnownConnectionAndOpensOthersOnce)
{
    EXPECT_EQ(&pool.connectionFor(database.connectionString()), &database.connection());
    EXPECT_EQ(&pool.connectionFor(QString()), &database.connection());
    const QString other = QStringLiteral("Data Source=%1").arg(database.path());
    if (other == database.connectionString())
        return;
    db::Connection& opened = pool.connectionFor(other);
    EXPECT_NE(&opened, &database.connection());
    EXPECT_EQ(&pool.connectionFor(other), &opened);
    EXPECT_EQ(opened.query(QStringLiteral("SELECT COUNT(*) FROM MGL1_MACROAREE")).rows.size(), 1);
}

INSTANTIATE_TEST_SUITE_P(Engines, DecodeTest, ::testing::ValuesIn(test::databaseTargets()),
                         [](const auto& info) { return test::targetName(info.param); });

} // namespace
} // namespace tarvello::controls
