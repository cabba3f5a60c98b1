#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/services/hostcontext.h"
#include "platform/services/scriptedprompts.h"
#include "platform/services/typologytable.h"

#include <gtest/gtest.h>

using namespace tarvello;
using namespace tarvello::services;

namespace {

// A typology field on a form, as the agents screen has one.
class TypologyTableTest : public ::testing::Test {
protected:
    TypologyTableTest()
    {
        field->setText(QStringLiteral("1"));
        QObject::connect(field, &controls::Field::decodeRequested,
                         [this](controls::DecodeArgs&) { ++decodings; });
    }

    ScriptedPrompts prompts;
    HostContext context{prompts, QString(), host::Company{1, QStringLiteral("DITTA"), false}};
    controls::Form form{QStringLiteral("FRMMG_AGENTI")};
    controls::Field* field = form.add<controls::Field>(QStringLiteral("TXT_TIPOLOGIAAGENTE"));
    TypologyTable table{context.managements()};
    int decodings = 0;
};

TEST_F(TypologyTableTest, TheTypologyChosenGoesIntoTheFieldAndIsDecoded)
{
    prompts.queue(PromptAnswer::codes({QStringLiteral("3"), QStringLiteral("9")}));
    table.show(context, *field, QStringLiteral("1"));
    ASSERT_EQ(prompts.history().size(), 1);
    EXPECT_EQ(prompts.history().first().text, QStringLiteral("Tipologie agenti"));
    EXPECT_EQ(field->text(), QStringLiteral("3"));
    EXPECT_EQ(decodings, 1);
}

TEST_F(TypologyTableTest, LeftWithoutAChoiceTheFieldKeepsItsTypology)
{
    table.show(context, *field, QStringLiteral("1"));
    EXPECT_EQ(field->text(), QStringLiteral("1"));
    EXPECT_EQ(decodings, 0);
}

} // namespace
