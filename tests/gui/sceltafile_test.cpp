#include "platform/gui/dialogprompts.h"
#include "widgettesting.h"

#include <QFileDialog>
#include <QLineEdit>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tarvello::gui {
namespace {

TEST(FileChoiceTest, APrintoutIsSavedWhereThePersonSaysAndCancellingChoosesNone)
{
    QTemporaryDir folder;
    const QString suggested = folder.filePath(QStringLiteral("agenti-ditta-1.pdf"));
    const QString chosen = folder.filePath(QStringLiteral("altrove.pdf"));
    DialogPrompts prompts;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    QStringList proposed;
    test::whenModalShown([&](QWidget& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        mode = files.acceptMode();
        proposed = files.selectedFiles();
        files.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(chosen);
        QMetaObject::invokeMethod(&files, "accept");
    });
    const std::optional<QString> answer =
        prompts.chooseFile(QStringLiteral("Stampa agenti"), services::FileUse::Save, suggested,
                           QStringLiteral("PDF (*.pdf)"));
    EXPECT_EQ(mode, QFileDialog::AcceptSave);
    EXPECT_EQ(proposed, QStringList{suggested});
    EXPECT_EQ(answer, chosen);
    ASSERT_EQ(prompts.history().size(), 1);
    EXPECT_EQ(prompts.history().first().kind, services::PromptKind::FileChoice);

    // A file to attach is opened; cancelling chooses none.
    test::whenModalShown([&](QWidget& dialog) {
        auto& files = dynamic_cast<QFileDialog&>(dialog);
        mode = files.acceptMode();
        files.reject();
    });
    EXPECT_FALSE(prompts
                     .chooseFile(QStringLiteral("Archivio multimediale"), services::FileUse::Open,
                                 QString(), QString())
                     .has_value());
    EXPECT_EQ(mode, QFileDialog::AcceptOpen);
}

} // namespace
} // namespace tarvello::gui
