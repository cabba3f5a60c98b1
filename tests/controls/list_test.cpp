#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/form.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/tabstrip.h"

#include <gtest/gtest.h>

namespace tarvello::controls {
namespace {

using db::Value;

class ComboBoxTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        form.load();
        list->addItem(QString(), -1);
        list->addItem(QStringLiteral("Articolo"), 1);
        list->addItem(QStringLiteral("Articolo/Deposito"), 2);
        QObject::connect(list, &ComboBox::valueSet, [this](const Value& code) { raised << code; });
    }

    Form form{QStringLiteral("FRM")};
    ComboBox* list = form.add<ComboBox>(QStringLiteral("CBO_INDTIPOLISFIX"));
    QList<Value> raised;
};

TEST_F(ComboBoxTest, ValueSetIsRaisedForEveryChangeByCodeOrByThePersonAndOnlyForAChange)
{
    list->setValue(2);
    list->setText(QStringLiteral("-1"));
    ASSERT_TRUE(list->choose(1));
    ASSERT_TRUE(list->chooseCode(2));
    EXPECT_EQ(raised, QList<Value>({Value(2), Value(-1), Value(1), Value(2)}));
    EXPECT_EQ(list->currentCaption(), QStringLiteral("Articolo/Deposito"));
    EXPECT_EQ(list->text(), QStringLiteral("2"));

    raised.clear();
    list->setText(QStringLiteral("1"));
    list->setValue(1);
    list->setText(QStringLiteral(" 1 "));
    list->choose(1);
    EXPECT_EQ(raised.size(), 1) << "the same value again raises nothing";

    list->setEnabled(false);
    EXPECT_FALSE(list->choose(2)) << "a disabled list takes no choice";
    list->setValue(2);
    EXPECT_EQ(raised, QList<Value>({Value(1), Value(2)})) << "but code still sets it";
}

TEST_F(ComboBoxTest, CodeNotInTheListIsKeptWithoutASelectedItem)
{
    list->setText(QStringLiteral("0"));

    ASSERT_EQ(raised.size(), 1);
    EXPECT_EQ(raised.first(), Value(0));
    EXPECT_EQ(list->value(), Value(0));
    EXPECT_EQ(list->text(), QStringLiteral("0"));
    EXPECT_EQ(list->currentIndex(), -1);
    EXPECT_TRUE(list->currentCaption().isEmpty());
    EXPECT_FALSE(list->chooseCode(17));
}

TEST_F(ComboBoxTest, ClearKeepsTheValueForTheRefilledList)
{
    list->setValue(2);
    list->clear();
    EXPECT_EQ(list->currentIndex(), -1);
    EXPECT_EQ(list->value(), Value(2));
    list->addItem(QString(), -1);
    list->addItem(QStringLiteral("Agente"), 2);
    EXPECT_EQ(list->currentCaption(), QStringLiteral("Agente"));
    EXPECT_EQ(raised.size(), 1);
}

TEST_F(ComboBoxTest, TextCodesMatchTheirItems)
{
    ComboBox* modes = form.add<ComboBox>(QStringLiteral("CBO_INDPREFSTDOC"));
    modes->addItem(QStringLiteral("Stampa"), QStringLiteral("S"));
    modes->addItem(QStringLiteral("Zero"), QStringLiteral("0"));
    modes->setText(QStringLiteral("0"));
    EXPECT_EQ(modes->value(), Value(QStringLiteral("0")));
    EXPECT_EQ(modes->currentCaption(), QStringLiteral("Zero"));
    modes->setValue(0);
    EXPECT_EQ(modes->value(), Value(QStringLiteral("0"))) << "the number names the same item";
}

TEST(CheckBoxTest, ValueIsZeroOrOneAndEveryChangeRaisesValueSet)
{
    Form form(QStringLiteral("FRM"));
    CheckBox* box = form.add<CheckBox>(QStringLiteral("CHK_PROVCLIE"));
    QList<int> raised;
    QObject::connect(box, &CheckBox::valueSet, [&raised](int state) { raised << state; });

    box->setValue(Value(-1));
    box->check(1);
    box->setValue(Value::null());
    box->check(0);

    EXPECT_EQ(raised, QList<int>({1, 0}));
    EXPECT_EQ(box->value(), Value(0));
}

TEST(TabStripTest, PageChangeCanBeRefusedAndAccessKeysFindPages)
{
    Form form(QStringLiteral("FRM"));
    TabStrip* tabs = form.add<TabStrip>(QStringLiteral("TAB_AGENTI"));
    for (const char* caption : {"Dati &generali", "Agenti &soci", "G&iri visite", "R&&D"})
        tabs->addPage(QString::fromLatin1(caption));
    QList<std::pair<int, int>> changes;
    QObject::connect(tabs, &TabStrip::currentPageChanged, [&changes](int page, int previous) {
        changes.append({page, previous});
    });
    bool refuse = false;
    QObject::connect(tabs, &TabStrip::beforePageChange,
                     [&refuse](TabChangeArgs& args) { args.cancel = refuse; });

    EXPECT_EQ(tabs->currentPage(), 0);
    EXPECT_TRUE(tabs->selectPage(2));
    refuse = true;
    EXPECT_FALSE(tabs->selectPage(1));
    EXPECT_FALSE(tabs->selectPage(7));

    EXPECT_EQ(tabs->currentPage(), 2);
    EXPECT_EQ(changes, (QList<std::pair<int, int>>{{2, 0}}));
    EXPECT_EQ(tabs->accessKey(2), QChar(u'i'));
    EXPECT_EQ(tabs->pageForAccessKey(QChar(u'S')), 1);
    EXPECT_TRUE(tabs->accessKey(3).isNull()) << "&& is a literal ampersand";
}

TEST(MenuButtonTest, OnlyVisibleEnabledItemsCanBeClicked)
{
    Form form(QStringLiteral("FRM"));
    MenuButton* menu = form.add<MenuButton>(QStringLiteral("CMD_GESTCOLL"));
    menu->addItem(QStringLiteral("key_anagrafica"), QStringLiteral("Varia dati anagrafici"));
    menu->addItem(QStringLiteral("Key_DatiDivisionali"), QStringLiteral("Dati divisionali"));
    QStringList clicked;
    QObject::connect(menu, &MenuButton::itemClicked,
                     [&clicked](const QString& k) { clicked << k; });

    menu->setItemEnabled(QStringLiteral("Key_DatiDivisionali"), false);
    EXPECT_FALSE(menu->clickItem(QStringLiteral("Key_DatiDivisionali")));
    EXPECT_TRUE(menu->clickItem(QStringLiteral("key_anagrafica")));
    menu->setEnabled(false);
    EXPECT_FALSE(menu->clickItem(QStringLiteral("key_anagrafica")));
    menu->clearItems();
    EXPECT_TRUE(menu->items().isEmpty());

    EXPECT_EQ(clicked, QStringList({"key_anagrafica"}));
}

} // namespace
} // namespace tarvello::controls
