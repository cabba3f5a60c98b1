#include "agentsshell.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/frame/gestanagrafica.h"

#include <QApplication>
#include <QComboBox>
#include <QWheelEvent>

namespace tarvello::test {
namespace {

// A turn of the mouse wheel over the middle of a widget.
void turnWheel(QWidget& widget)
{
    const QPointF at = widget.rect().center();
    QWheelEvent wheel(at, widget.mapToGlobal(at), QPoint(), QPoint(0, -120), Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &wheel);
}

// The keyboard is where the screen says it is, and the keys a clerk uses do what they show.
TEST_F(AgentsShellTest, TheKeyboardFollowsTheScreenAndItsKeys)
{
    gui::ScreenWindow& window = openAgents();
    controls::Form& form = *window.form();
    ASSERT_NE(form.activeControl(), nullptr);
    EXPECT_EQ(QApplication::focusWidget(), window.formView()->focusWidgetOf(form.activeControl()))
        << "at opening the keyboard is on the control the screen put the focus on";

    // Tab into a number selects it: what is typed replaces the value.
    auto& commission = widget<QLineEdit>(window, "TXT_PERPROV");
    ASSERT_EQ(commission.text(), QStringLiteral("5,5"));
    for (int tab = 0; tab < 8 && !commission.hasFocus(); ++tab)
        keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(commission.hasFocus());
    EXPECT_EQ(commission.selectedText(), QStringLiteral("5,5"));
    keyClicks(&commission, QStringLiteral("7"));
    EXPECT_EQ(form.find<controls::Field>(u"TXT_PERPROV")->text(), QStringLiteral("7"));

    // The company list never keeps the keyboard, nor takes the wheel.
    QComboBox& companies = shell->companySwitcher();
    EXPECT_EQ(companies.focusPolicy(), Qt::NoFocus);
    turnWheel(companies);
    EXPECT_EQ(host->context().company().code, db::DemoCompanies::divisional);
    EXPECT_TRUE(commission.hasFocus());

    // The wheel over a list that is not being worked on changes nothing.
    auto& mandate = widget<QComboBox>(window, "CBO_TIPOMAND");
    const int shown = mandate.currentIndex();
    const db::Value value = form.find<controls::ComboBox>(u"CBO_TIPOMAND")->value();
    turnWheel(mandate);
    EXPECT_EQ(mandate.currentIndex(), shown);
    EXPECT_EQ(form.find<controls::ComboBox>(u"CBO_TIPOMAND")->value(), value);

    // F3 opens a field's list, F4 its management; both are told in the tool tip.
    auto& typology = widget<QLineEdit>(window, "TXT_TIPOLOGIAAGENTE");
    EXPECT_TRUE(typology.toolTip().contains(QStringLiteral("F3: elenco")));
    EXPECT_TRUE(typology.toolTip().contains(QStringLiteral("F4: gestione")));
    ASSERT_TRUE(form.find<controls::Field>(u"TXT_TIPOLOGIAAGENTE")->setFocus());
    const qsizetype before = prompts.history().size();
    keyClick(&typology, Qt::Key_F3);
    keyClick(&typology, Qt::Key_F4);
    ASSERT_EQ(prompts.history().size(), before + 2);
    EXPECT_EQ(prompts.history().at(before).kind, services::PromptKind::LookupList);
    EXPECT_EQ(prompts.history().at(before + 1).kind, services::PromptKind::Management);
}

} // namespace
} // namespace tarvello::test
