#include "platform/gui/dialogprompts.h"
#include "platform/gui/lookupdialog.h"
#include "platform/gui/printpreviewdialog.h"
#include "platform/services/agentsreport.h"
#include "src/host/errorlog.h"
#include "widgettesting.h"

#include <QDateTime>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QPageLayout>
#include <QPushButton>
#include <QTableView>
#include <algorithm>
#include <gtest/gtest.h>

namespace tarvello::gui {
namespace {

// Yes/No with the question icon and the second button (No) as the default.
constexpr int yesNoQuestionDefaultNo = 4 + 32 + 256;
constexpr int abortRetryIgnore = 2 + 16;

TEST(DialogPromptsTest, MessageBoxAndReportShowTheStyleAndReturnTheButtonClicked)
{
    DialogPrompts prompts;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    QList<QMessageBox::StandardButton> offered;
    test::whenModalShown([&](QWidget& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        icon = box.icon();
        defaultButton = box.standardButton(box.defaultButton());
        for (QAbstractButton* button : box.buttons())
            offered << box.standardButton(button);
        box.button(QMessageBox::Yes)->click();
    });
    const int answer = prompts.messageBox(QStringLiteral("Eliminare l'agente?"),
                                          yesNoQuestionDefaultNo, QStringLiteral("Conferma"));
    EXPECT_EQ(answer, host::Yes);
    EXPECT_EQ(icon, QMessageBox::Question);
    EXPECT_EQ(defaultButton, QMessageBox::No);
    EXPECT_EQ(offered.size(), 2);
    EXPECT_TRUE(offered.contains(QMessageBox::Yes) && offered.contains(QMessageBox::No));
    ASSERT_EQ(prompts.history().size(), 1);
    EXPECT_EQ(prompts.history().first().title, QStringLiteral("Conferma"));
    EXPECT_FALSE(prompts.history().first().defaulted);

    offered.clear();
    test::whenModalShown([&](QWidget& dialog) {
        auto& box = dynamic_cast<QMessageBox&>(dialog);
        for (QAbstractButton* button : box.buttons())
            offered << box.standardButton(button);
        box.button(QMessageBox::Retry)->click();
    });
    EXPECT_EQ(
        prompts.report(QStringLiteral("Errore 3021"), abortRetryIgnore, QStringLiteral("Errore")),
        host::Retry);
    std::sort(offered.begin(), offered.end());
    EXPECT_EQ(offered, (QList<QMessageBox::StandardButton>{QMessageBox::Abort, QMessageBox::Retry,
                                                           QMessageBox::Ignore}));
}

TEST(DialogPromptsTest, QuestionDialogHasItsFourAnswers)
{
    DialogPrompts prompts;
    QStringList captions;
    test::whenModalShown([&](QWidget& dialog) {
        for (const char* text : {"&Si", "&No", "S&i, sempre", "N&o, sempre"}) {
            if (test::buttonWithText(dialog, QString::fromUtf8(text)))
                captions << QString::fromUtf8(text);
        }
        test::buttonWithText(dialog, QStringLiteral("N&o, sempre"))->click();
    });
    const auto answer =
        prompts.question(QStringLiteral("Il cliente è già nel giro"), QStringLiteral("Giri"));
    EXPECT_EQ(captions.size(), 4);
    EXPECT_EQ(answer, services::QuestionAnswer::Mai);
}

const QList<QStringList> agentRows = {
    {QStringLiteral("A001"), QStringLiteral("Rossi Mario")},
    {QStringLiteral("A002"), QStringLiteral("Bianchi Anna")},
    {QStringLiteral("B001"), QStringLiteral("Rossetti Luca")},
};

// The search box narrows the rows as the person types; Enter picks among those shown.
TEST(LookupDialogTest, SearchBoxNarrowsTheRowsEnterPicksTheHighlightedOneEscapePicksNone)
{
    LookupDialog dialog(QStringLiteral("Agenti"),
                        {QStringLiteral("Codice"), QStringLiteral("Nome")}, agentRows);
    ASSERT_TRUE(test::showActive(dialog));
    EXPECT_EQ(dialog.shownRowCount(), 3);
    test::keyClicks(&dialog.searchBox(), QStringLiteral("ROSS"));
    EXPECT_EQ(dialog.shownRowCount(), 2) << "any column, ignoring case";
    test::keyClick(&dialog.searchBox(), Qt::Key_Down);
    test::keyClick(&dialog.searchBox(), Qt::Key_Return);
    ASSERT_TRUE(dialog.chosenRow().has_value());
    EXPECT_EQ(*dialog.chosenRow(), 2) << "the index among the rows given, not among those shown";
    EXPECT_EQ(dialog.result(), QDialog::Accepted);

    // Through the prompts, Escape closes it without a choice.
    DialogPrompts prompts;
    test::whenModalShown([](QWidget& shown) {
        auto* search = shown.findChild<QLineEdit*>();
        test::keyClicks(search, QStringLiteral("b0"));
        test::keyClick(search, Qt::Key_Return);
    });
    EXPECT_EQ(prompts.lookupList(QStringLiteral("Agenti"), {}, agentRows), 2);

    test::whenModalShown([](QWidget& shown) { test::keyClick(&shown, Qt::Key_Escape); });
    EXPECT_EQ(prompts.lookupList(QStringLiteral("Agenti"), {}, agentRows), std::nullopt);
    EXPECT_EQ(prompts.history().size(), 2);
}

QStringList buttonTexts(QWidget& dialog)
{
    QStringList texts;
    for (QAbstractButton* button : dialog.findChildren<QAbstractButton*>())
        texts << button->text();
    return texts;
}

// Qt's own texts reach the person in Italian: the buttons of the save question, the file
// dialog of an export, the menu of a text field.
TEST(ItalianTextsTest, StandardButtonsFileDialogsAndTextMenusAreItalian)
{
    DialogPrompts prompts;
    QStringList buttons;
    test::whenModalShown([&](QWidget& dialog) {
        buttons = buttonTexts(dialog);
        dynamic_cast<QMessageBox&>(dialog).button(QMessageBox::Cancel)->click();
    });
    constexpr int yesNoCancel = 3;
    prompts.messageBox(QStringLiteral("Salvare le modifiche?"), yesNoCancel,
                       QStringLiteral("Anagrafica agenti"));
    buttons.sort();
    EXPECT_EQ(buttons, (QStringList{QStringLiteral("&No"), QStringLiteral("&Sì"),
                                    QStringLiteral("Annulla")}));

    QFileDialog files(nullptr, QStringLiteral("Esporta"));
    files.setOption(QFileDialog::DontUseNativeDialog);
    QStringList labels;
    for (const QLabel* label : files.findChildren<QLabel*>())
        labels << label->text();
    EXPECT_TRUE(labels.contains(QStringLiteral("Cerca in:"))) << labels.join(u'|').toStdString();
    files.setAcceptMode(QFileDialog::AcceptSave);
    EXPECT_TRUE(buttonTexts(files).contains(QStringLiteral("&Salva")))
        << buttonTexts(files).join(u'|').toStdString();

    QLineEdit edit;
    const std::unique_ptr<QMenu> menu(edit.createStandardContextMenu());
    EXPECT_TRUE(menu->actions().first()->text().remove(u'&').startsWith(QStringLiteral("Annulla")))
        << menu->actions().first()->text().toStdString();
}

// A printout shows its pages before it is printed; closing the preview gives the printing up.
TEST(PrintPreviewTest, ThePagesAreShownAndClosingGivesThePrintingUp)
{
    services::AgentLine agent;
    agent.code = QStringLiteral("A001");
    agent.registryName = QStringLiteral("RICCI FRANCESCA");
    const services::AgentsReport report(
        {1, QStringLiteral("DITTA"), QStringLiteral("Agente A001"), QDateTime::currentDateTime()},
        {agent});
    DialogPrompts prompts;
    int pages = 0;
    test::whenModalShown([&pages](QWidget& dialog) {
        auto& preview = dynamic_cast<PrintPreviewDialog&>(dialog);
        pages = preview.pageCount();
        test::buttonWithText(preview, QStringLiteral("&Chiudi"))->click();
    });
    EXPECT_FALSE(prompts.previewPrintout(QStringLiteral("Stampa agenti"),
                                         services::AgentsReport::pageLayout(),
                                         [&report](QPrinter& printer) { report.print(printer); }));
    EXPECT_EQ(pages, 1);
}

} // namespace
} // namespace tarvello::gui
