#include "agentsshell.h"
#include "platform/controls/field.h"
#include "platform/controls/tabstrip.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/services/hostnavigator.h"
#include "src/host/errorlog.h"

#include <QAbstractItemView>
#include <QCalendarWidget>
#include <QComboBox>
#include <QtMath>

namespace tarvello::test {
namespace {

using Button = services::HostNavigator::Button;

// The contrast ratio of two colours as the accessibility guidelines define it (1 to 21).
double contrast(const QColor& a, const QColor& b)
{
    const auto luminance = [](const QColor& c) {
        const auto channel = [](double v) {
            return v <= 0.03928 ? v / 12.92 : qPow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * channel(c.redF()) + 0.7152 * channel(c.greenF()) +
               0.0722 * channel(c.blueF());
    };
    const double la = luminance(a);
    const double lb = luminance(b);
    return (qMax(la, lb) + 0.05) / (qMin(la, lb) + 0.05);
}

class StatesTest : public AgentsShellTest {
protected:
    void SetUp() override
    {
        AgentsShellTest::SetUp();
        window = &openAgents();
        form = window->form();
    }

    controls::Field& field(const char* name) const
    {
        return *form->find<controls::Field>(QString::fromLatin1(name));
    }
    void type(const char* name, const QString& text)
    {
        ASSERT_TRUE(field(name).setFocus());
        auto& edit = widget<QLineEdit>(*window, name);
        edit.selectAll();
        keyClicks(&edit, text);
        keyClick(&edit, Qt::Key_Tab);
    }

    gui::ScreenWindow* window = nullptr;
    controls::Form* form = nullptr;
};

// Required fields, their lists and the fields that cannot be typed into read clearly.
TEST_F(StatesTest, RequiredAndDisabledFieldsReadClearly)
{
    constexpr double readable = 4.5;
    auto& regime = widget<QComboBox>(*window, "CBO_REGPROV");
    ASSERT_TRUE(regime.property("tarvelloRequired").toBool());
    const QPalette list = regime.view()->palette();
    EXPECT_GE(contrast(list.color(QPalette::Highlight), list.color(QPalette::HighlightedText)),
              readable);
    EXPECT_GE(contrast(list.color(QPalette::Base), list.color(QPalette::Text)), readable);
    const QPalette commission = widget<QLineEdit>(*window, "TXT_PERPROV").palette();
    EXPECT_GE(contrast(commission.color(QPalette::Base), commission.color(QPalette::Text)),
              readable);
    const QPalette description = widget<QLineEdit>(*window, "TXT_DESCTIPOLOGIA").palette();
    EXPECT_GE(contrast(description.color(QPalette::Disabled, QPalette::Base),
                       description.color(QPalette::Disabled, QPalette::Text)),
              readable);
}

// A reference agent refused says why, and the mark goes with an undo; a tax code warned
// about is marked as well.
TEST_F(StatesTest, AFieldMarkedNotValidSaysWhyAndTheMarkGoesWithTheValue)
{
    type("TXT_AGERIFVIDEO1", QStringLiteral("A001"));
    auto& reference = widget<QLineEdit>(*window, "TXT_AGERIFVIDEO1");
    EXPECT_FALSE(field("TXT_AGERIFVIDEO1").isValid());
    EXPECT_TRUE(reference.toolTip().startsWith(QStringLiteral("Valore non valido: un agente non")))
        << reference.toolTip().toStdString();
    shell->pressButton(Button::Undo);
    EXPECT_TRUE(field("TXT_AGERIFVIDEO1").isValid());
    EXPECT_TRUE(field("TXT_AGERIF").isValid());
    EXPECT_FALSE(reference.property("tarvelloInvalid").toBool());
    EXPECT_FALSE(reference.toolTip().contains(QStringLiteral("non valido")));

    // A partner's tax code the checker refuses is kept, and marked all the same.
    form->find<controls::TabStrip>(u"TAB_AGENTI")->selectPage(1);
    type("TXT_CODFISOCIO", QStringLiteral("XYZ"));
    EXPECT_TRUE(widget<QLineEdit>(*window, "TXT_CODFISOCIO").property("tarvelloInvalid").toBool());
}

// Dates are typed short and shown whole, or picked from a calendar (F3).
TEST_F(StatesTest, DatesTakeShortFormsAndACalendar)
{
    frame::GestAnagrafica& agents =
        *screenOf(*window).FME_GestAnagrafica(agenti::FRMMG_AGENTI::Agenti);
    type("DAT_INRAPP", QStringLiteral("010325"));
    EXPECT_EQ(field("DAT_INRAPP").text(), QStringLiteral("01/03/2025"));
    EXPECT_EQ(agents.recordset()->value(u"MG17_DATAINRAPP").toDate(), QDate(2025, 3, 1));
    type("DAT_INMAN", QStringLiteral("1/3/25"));
    EXPECT_EQ(field("DAT_INMAN").text(), QStringLiteral("01/03/2025"));

    ASSERT_TRUE(field("DAT_FINEMAN").setFocus());
    auto& end = widget<QLineEdit>(*window, "DAT_FINEMAN");
    keyClick(&end, Qt::Key_F3);
    auto* calendar = end.findChild<QCalendarWidget*>(QStringLiteral("calendario"));
    ASSERT_NE(calendar, nullptr);
    ASSERT_TRUE(calendar->isVisible());
    Q_EMIT calendar->activated(QDate(2026, 12, 31));
    EXPECT_EQ(field("DAT_FINEMAN").text(), QStringLiteral("31/12/2026"));
}

} // namespace
} // namespace tarvello::test
