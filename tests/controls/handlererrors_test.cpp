#include "platform/controls/button.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/handlererrors.h"
#include "platform/controls/navigatorbar.h"
#include "platform/db/runtimeerror.h"

#include <gtest/gtest.h>

namespace tarvello::controls {
namespace {

// The host's side: every report, and the answer the person gives.
struct RecordedErrors final : HandlerErrors {
    QStringList reports;
    bool abandon = true;

    bool handlerFailed(const QString& procedure, const db::RuntimeError& error) override
    {
        reports << QStringLiteral("%1: %2").arg(procedure).arg(error.number());
        return abandon;
    }
};

[[noreturn]] void typeMismatch()
{
    throw db::RuntimeError(db::RuntimeError::TypeMismatch, QStringLiteral("Type mismatch"));
}

class HandlerErrorsTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        form.load();
        QObject::connect(numero, &Control::validate, [](CancelArgs&) { typeMismatch(); });
    }

    Form form{QStringLiteral("FRM")};
    Field* numero = form.add<Field>(QStringLiteral("TXT_NUMSOCI"), Field::Kind::Numeric);
    Field* nome = form.add<Field>(QStringLiteral("TXT_NOME"));
    Button* pulsante = form.add<Button>(QStringLiteral("CMD_OK"));
    NavigatorBar* navigatore = form.add<NavigatorBar>(QStringLiteral("INTERNAV"));
    RecordedErrors errors;
};

// A run-time error in a validation used to leave the form through the focus move and, in the
// shell, through the event loop, which closed the program with every unsaved change.
TEST_F(HandlerErrorsTest, AnErrorThatEscapesAHandlerIsReportedAndTheFormGoesOn)
{
    form.setHandlerErrors(&errors);
    ASSERT_TRUE(nome->setFocus());
    nome->typeText(QStringLiteral("ROSSI"));
    ASSERT_TRUE(numero->setFocus());
    numero->typeText(QStringLiteral("-"));

    EXPECT_FALSE(form.focus().leave()) << "abandoned, the focus stays where the error was";
    EXPECT_EQ(form.activeControl(), numero);
    EXPECT_EQ(numero->text(), QStringLiteral("-"));
    EXPECT_EQ(nome->text(), QStringLiteral("ROSSI"));

    errors.abandon = false;
    EXPECT_TRUE(nome->setFocus()) << "the person chose to go on";

    QObject::connect(nome, &Control::lostFocus, [] { typeMismatch(); });
    QObject::connect(pulsante, &Button::clicked, [] { typeMismatch(); });
    QObject::connect(navigatore, &Navigator::beforeButton,
                     [](NavigatorButtonArgs&) { typeMismatch(); });
    bool pressed = false;
    QObject::connect(navigatore, &Navigator::buttonClicked, [&] { pressed = true; });
    errors.abandon = true;
    EXPECT_TRUE(pulsante->setFocus()) << "a failed lost focus cannot undo the move";
    EXPECT_TRUE(pulsante->click());
    EXPECT_FALSE(navigatore->press(NavigatorKey::Next));
    EXPECT_FALSE(pressed) << "an abandoned before-event stops the button";

    EXPECT_EQ(errors.reports, QStringList({"TXT_NUMSOCI_Validate: 13", "TXT_NUMSOCI_Validate: 13",
                                           "TXT_NOME_LostFocus: 13", "CMD_OK_Click: 13",
                                           "INTERNAV_BeforeButtonClick: 13"}));
}

// Without a host the error goes on to the caller, and the focus manager is not left stuck
// in the middle of the move it was making.
TEST_F(HandlerErrorsTest, WithoutAHostTheErrorGoesToTheCallerAndLaterMovesStillWork)
{
    ASSERT_TRUE(numero->setFocus());
    EXPECT_THROW(nome->setFocus(), db::RuntimeError);
    EXPECT_EQ(form.activeControl(), numero);

    QObject::disconnect(numero, &Control::validate, nullptr, nullptr);
    EXPECT_TRUE(nome->setFocus());
    EXPECT_EQ(form.activeControl(), nome);
}

} // namespace
} // namespace tarvello::controls
