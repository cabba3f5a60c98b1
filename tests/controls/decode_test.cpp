#include "platform/controls/connectionpool.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/db/connection.h"
#include "support/testdatabase.h"

#include <gtest/gtest.h>

namespace tarvello::controls {
namespace {

using test::DatabaseTarget;
using test::TestDatabase;

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
        form.load();
        code->setUpperCase(true);
        QObject::connect(code, &Field::decodeRequested, [this](DecodeArgs& args) {
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
    Form form{QStringLiteral("FRM")};
    Field* code = form.add<Field>(QStringLiteral("TXT_MACROAREA"), Field::Kind::Code);
    Field* description = form.add<Field>(QStringLiteral("TXT_DESMACROAREA"));
    Label* note = form.add<Label>(QStringLiteral("LBL_NOTE"));
    QList<DecodeTarget> targets{{description, QStringLiteral("MGL1_DESCR")},
                                {note, QStringLiteral("MGL1_NOTE")}};
};

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
