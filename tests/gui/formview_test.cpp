#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/gui/formbinder.h"
#include "platform/gui/formview.h"
#include "widgettesting.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace tarvello::gui {
namespace {

using controls::Field;

// A form with a code that refuses "BAD" on validation, and a second field to move to.
class FormViewTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        code->setUpperCase(true);
        QObject::connect(code, &Field::validate, code, [this](controls::CancelArgs& args) {
            ++validations;
            args.cancel = code->text() == u"BAD";
        });
        for (const char* name : {"TXT_CODICE", "TXT_NOME"}) {
            auto* edit = new QLineEdit(&window);
            edit->setObjectName(QString::fromLatin1(name));
            layout->addWidget(edit);
        }
        auto* caption = new QLabel(QStringLiteral("Nome"), &window);
        caption->setObjectName(QStringLiteral("nameCaption"));
        layout->addWidget(caption);
        form.load();
        view = FormBinder::bind(form, window);
        ASSERT_TRUE(test::showActive(window));
    }

    QLineEdit& edit(const char* name)
    {
        return *window.findChild<QLineEdit*>(QString::fromLatin1(name));
    }

    controls::Form form{QStringLiteral("FRM_PROVA")};
    Field* code = form.add<Field>(QStringLiteral("TXT_CODICE"), Field::Kind::Code);
    Field* name = form.add<Field>(QStringLiteral("TXT_NOME"));
    QWidget window;
    QVBoxLayout* layout = new QVBoxLayout(&window);
    FormView* view = nullptr;
    int validations = 0;
};

// A validation that cancels keeps the focus: neither Tab nor a click elsewhere moves it.
TEST_F(FormViewTest, LeavingWithACancellingValidationKeepsTheFocus)
{
    edit("TXT_CODICE").setFocus();
    test::keyClicks(&edit("TXT_CODICE"), QStringLiteral("bad"));
    test::keyClick(&edit("TXT_CODICE"), Qt::Key_Tab);
    EXPECT_EQ(validations, 1);
    EXPECT_EQ(form.activeControl(), code);
    EXPECT_TRUE(edit("TXT_CODICE").hasFocus());

    // What a click on the other field does to the focus.
    edit("TXT_NOME").setFocus(Qt::MouseFocusReason);
    EXPECT_EQ(validations, 2);
    EXPECT_EQ(form.activeControl(), code);
    EXPECT_TRUE(edit("TXT_CODICE").hasFocus())
        << "the widget focus goes back where the model kept it";

    edit("TXT_CODICE").selectAll();
    test::keyClicks(&edit("TXT_CODICE"), QStringLiteral("A01"));
    test::keyClick(&edit("TXT_CODICE"), Qt::Key_Tab);
    EXPECT_EQ(form.activeControl(), name);
    EXPECT_TRUE(edit("TXT_NOME").hasFocus());
}

// A key a handler swallows never reaches the widget.
TEST_F(FormViewTest, SwallowedKeysDoNotReachTheWidget)
{
    QObject::connect(code, &Field::keyDown, code, [](controls::KeyArgs& args) {
        if (args.keyCode == 'X')
            args.keyCode = 0;
    });
    edit("TXT_CODICE").setFocus();
    test::keyClicks(&edit("TXT_CODICE"), QStringLiteral("axb"));
    EXPECT_EQ(code->text(), QStringLiteral("AB"));
}

TEST_F(FormViewTest, StateOfTheModelIsShown)
{
    code->setEnabled(false);
    EXPECT_FALSE(edit("TXT_CODICE").isEnabled());
    name->setVisible(false);
    EXPECT_TRUE(edit("TXT_NOME").isHidden());
    code->setRequired(true);
    EXPECT_TRUE(edit("TXT_CODICE").property("tarvelloRequired").toBool());
    code->setValid(false);
    EXPECT_TRUE(edit("TXT_CODICE").property("tarvelloInvalid").toBool());
    EXPECT_TRUE(edit("TXT_CODICE").toolTip().contains(QStringLiteral("non valido")));
    code->setValid(true);
    EXPECT_FALSE(edit("TXT_CODICE").property("tarvelloInvalid").toBool());
    EXPECT_FALSE(edit("TXT_CODICE").toolTip().contains(QStringLiteral("non valido")));
}

TEST(FormBinderTest, RefusesAWidgetNamedAfterNoControl)
{
    controls::Form form(QStringLiteral("FRM_PROVA"));
    form.add<Field>(QStringLiteral("TXT_CODICE"));
    QWidget root;
    (new QLineEdit(&root))->setObjectName(QStringLiteral("TXT_CODICE"));
    (new QLineEdit(&root))->setObjectName(QStringLiteral("TXT_SCONOSCIUTO"));
    try {
        FormBinder::bind(form, root);
        FAIL() << "an unknown control name must not bind";
    } catch (const BindingError& error) {
        EXPECT_TRUE(error.message().contains(QStringLiteral("TXT_SCONOSCIUTO"))) << error.what();
    }
    EXPECT_EQ(root.findChild<FormView*>(), nullptr) << "nothing is left bound";
}

TEST(FormBinderTest, RefusesAWidgetThatCannotShowItsControlAndIgnoresDesignerNames)
{
    controls::Form form(QStringLiteral("FRM_PROVA"));
    form.add<controls::ComboBox>(QStringLiteral("CBO_TIPO"));
    form.add<controls::CheckBox>(QStringLiteral("CHK_ATTIVO"));
    QWidget root;
    (new QLineEdit(&root))->setObjectName(QStringLiteral("CBO_TIPO"));
    (new QCheckBox(&root))->setObjectName(QStringLiteral("CHK_ATTIVO"));
    (new QLabel(&root))->setObjectName(QStringLiteral("label_2"));
    EXPECT_THROW(FormBinder::bind(form, root), BindingError);

    root.findChild<QLineEdit*>()->setObjectName(QStringLiteral("lineEdit"));
    (new QComboBox(&root))->setObjectName(QStringLiteral("CBO_TIPO"));
    EXPECT_NE(FormBinder::bind(form, root), nullptr);
}

TEST(ListViewsTest, ComboBoxAndCheckBoxFollowTheirModels)
{
    controls::Form form(QStringLiteral("FRM_PROVA"));
    auto* type = form.add<controls::ComboBox>(QStringLiteral("CBO_TIPO"));
    type->addItem(QStringLiteral("Agente"), 0);
    type->addItem(QStringLiteral("Capo zona"), 1);
    auto* active = form.add<controls::CheckBox>(QStringLiteral("CHK_ATTIVO"));
    active->setCaption(QStringLiteral("Attivo"));
    QWidget root;
    auto* combo = new QComboBox(&root);
    combo->setObjectName(QStringLiteral("CBO_TIPO"));
    auto* check = new QCheckBox(&root);
    check->setObjectName(QStringLiteral("CHK_ATTIVO"));
    form.load();
    FormBinder::bind(form, root);

    EXPECT_EQ(combo->count(), 2);
    EXPECT_EQ(combo->currentIndex(), -1) << "no value, no item";
    type->setValue(1);
    EXPECT_EQ(combo->currentIndex(), 1);
    Q_EMIT combo->activated(0);
    EXPECT_EQ(type->value(), db::Value(0));

    EXPECT_EQ(check->text(), QStringLiteral("Attivo"));
    check->click();
    EXPECT_EQ(active->checkState(), 1);
    active->setValue(0);
    EXPECT_FALSE(check->isChecked());
}

} // namespace
} // namespace tarvello::gui
