#include "eventlog.h"
#include "platform/controls/button.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/keycodes.h"
#include "platform/controls/label.h"

#include <gtest/gtest.h>

namespace tarvello::controls {
namespace {

using test::EventLog;

class FocusTest : public ::testing::Test {
protected:
    void SetUp() override { form.load(); }

    Form form{QStringLiteral("FRM")};
    Field* a = form.add<Field>(QStringLiteral("A"));
    Label* caption = form.add<Label>(QStringLiteral("LBL"));
    Field* b = form.add<Field>(QStringLiteral("B"));
    Field* c = form.add<Field>(QStringLiteral("C"));
    EventLog log;
};

TEST_F(FocusTest, MovingRaisesValidateThenLostFocusThenGotFocus)
{
    ASSERT_TRUE(a->setFocus());
    log.watch(a);
    log.watch(b);
    QList<std::pair<QString, QString>> changes;
    QObject::connect(&form.focus(), &FocusManager::focusChanged, [&](Control* from, Control* to) {
        changes.append({from ? from->name() : QString(), to ? to->name() : QString()});
    });

    ASSERT_TRUE(b->setFocus());

    EXPECT_EQ(log.entries, QStringList({"A.validate", "A.lost", "B.got"}));
    EXPECT_EQ(form.activeControl(), b);
    ASSERT_EQ(changes.size(), 1);
    EXPECT_EQ(changes.first(), std::make_pair(QStringLiteral("A"), QStringLiteral("B")));
}

TEST_F(FocusTest, CancelledValidationKeepsFocusAndTypedText)
{
    ASSERT_TRUE(a->setFocus());
    a->typeText(QStringLiteral("abc"));
    log.watch(a, true);
    log.watch(b);

    EXPECT_FALSE(b->setFocus());
    EXPECT_FALSE(form.focus().leave());

    EXPECT_EQ(form.activeControl(), a);
    EXPECT_EQ(a->text(), QStringLiteral("abc"));
    EXPECT_EQ(log.entries, QStringList({"A.validate", "A.validate"}));
}

TEST_F(FocusTest, LeaveSkipsDisabledHiddenNonTabStopsAndLabelsAndWraps)
{
    Button* button = form.add<Button>(QStringLiteral("CMD"));
    b->setEnabled(false);
    c->setVisible(false);
    ASSERT_TRUE(a->setFocus());

    ASSERT_TRUE(form.focus().leave());
    EXPECT_EQ(form.activeControl(), button);
    ASSERT_TRUE(form.focus().leave());
    EXPECT_EQ(form.activeControl(), a) << "the tab order wraps around";
    ASSERT_TRUE(form.focus().leaveBackward());
    EXPECT_EQ(form.activeControl(), button);

    button->setTabStop(false);
    EXPECT_EQ(form.focus().nextTabStop(), a);
}

TEST_F(FocusTest, TabOrderFollowsTabIndexNotCreation)
{
    c->setTabIndex(-1);
    ASSERT_TRUE(a->setFocus());
    EXPECT_EQ(form.focus().nextTabStop(), b);
    form.focus().leave();
    form.focus().leave();
    EXPECT_EQ(form.activeControl(), c);
}

TEST_F(FocusTest, DisabledHiddenAndUnfocusableControlsRefuseTheFocus)
{
    ASSERT_TRUE(a->setFocus());
    b->setEnabled(false);
    c->setVisible(false);
    log.watch(a);

    EXPECT_FALSE(b->setFocus());
    EXPECT_FALSE(c->setFocus());
    EXPECT_FALSE(caption->setFocus());
    EXPECT_EQ(form.activeControl(), a);
    EXPECT_TRUE(log.entries.isEmpty()) << "a refused target raises nothing on the current control";
}

// A handler moving the focus from inside a focus event (the screen sends the focus to a
// field after a status change) must not interleave its events with the running move.
TEST_F(FocusTest, FocusRequestedByAHandlerRunsAfterTheCurrentMove)
{
    ASSERT_TRUE(a->setFocus());
    log.watch(a);
    log.watch(b);
    log.watch(c);
    QObject::connect(b, &Control::gotFocus, [this] { c->setFocus(); });

    EXPECT_FALSE(b->setFocus()) << "the focus did not stay where it was asked to go";

    EXPECT_EQ(log.entries,
              QStringList({"A.validate", "A.lost", "B.got", "B.validate", "B.lost", "C.got"}));
    EXPECT_EQ(form.activeControl(), c);
}

TEST_F(FocusTest, FocusRequestFromACancellingValidationIsDropped)
{
    ASSERT_TRUE(a->setFocus());
    QObject::connect(a, &Control::validate, [this](CancelArgs& args) {
        c->setFocus();
        args.cancel = true;
    });
    EXPECT_FALSE(b->setFocus());
    EXPECT_EQ(form.activeControl(), a);
}

TEST_F(FocusTest, TabAndEnterMoveOnUnlessSwallowedOrModified)
{
    ASSERT_TRUE(a->setFocus());
    EXPECT_EQ(a->pressKey(Key::Enter, KeyModifier::Shift), Key::Enter);
    EXPECT_EQ(form.activeControl(), a);

    a->pressKey(Key::Enter);
    EXPECT_EQ(form.activeControl(), b);
    b->pressKey(Key::Tab, KeyModifier::Shift);
    EXPECT_EQ(form.activeControl(), a);

    QObject::connect(a, &Control::keyDown, [](KeyArgs& args) {
        if (args.keyCode == Key::Tab && args.shift == 0)
            args.keyCode = Key::None;
    });
    EXPECT_EQ(a->pressKey(Key::Tab), Key::None);
    EXPECT_EQ(form.activeControl(), a) << "a swallowed key has no usual action";

    b->setFocus();
    b->setMultiLine(true);
    b->pressKey(Key::Enter);
    EXPECT_EQ(form.activeControl(), b) << "Enter in a multi-line field starts a new line";
}

TEST_F(FocusTest, ChangedCodeIsDecodedBeforeValidation)
{
    ASSERT_TRUE(a->setFocus());
    log.watch(a);
    QObject::connect(a, &Field::decodeRequested,
                     [this](DecodeArgs&) { log.entries << "A.decode"; });

    b->setFocus();
    a->setFocus();
    a->typeText(QStringLiteral("X"));
    b->setFocus();

    EXPECT_EQ(log.entries,
              QStringList({"A.validate", "A.lost", "A.got", "A.decode", "A.validate", "A.lost"}))
        << "only a changed text is decoded when the field is left";
}

TEST(FormTest, ControlsAreFoundByNameAndNamesAreUnique)
{
    Form form(QStringLiteral("FRM"));
    Field* field = form.add<Field>(QStringLiteral("TXT_AGENTE"), Field::Kind::Code);
    EXPECT_EQ(form.find<Field>(u"TXT_AGENTE"), field);
    EXPECT_EQ(form.find<Label>(u"TXT_AGENTE"), nullptr);
    EXPECT_EQ(form.control(u"TXT_NONE"), nullptr);
    EXPECT_THROW(form.add<Label>(QStringLiteral("TXT_AGENTE")), std::logic_error);
}

} // namespace
} // namespace tarvello::controls
