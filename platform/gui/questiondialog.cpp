#include "platform/gui/questiondialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvello::gui {

QuestionDialog::QuestionDialog(const QString& text, const QString& title, QWidget* parent)
    : QDialog(parent)
{
    using services::QuestionAnswer;
    setWindowTitle(title);
    auto* message = new QLabel(text, this);
    message->setFrameShape(QFrame::Box);
    message->setWordWrap(true);
    message->setMargin(6);
    message->setTextInteractionFlags(Qt::TextSelectableByMouse);

    auto* row = new QHBoxLayout;
    row->addStretch();
    const std::pair<QuestionAnswer, QString> answers[] = {
        {QuestionAnswer::Si, QStringLiteral("&Si")},
        {QuestionAnswer::No, QStringLiteral("&No")},
        {QuestionAnswer::Sempre, QStringLiteral("S&i, sempre")},
        {QuestionAnswer::Mai, QStringLiteral("N&o, sempre")},
    };
    for (const auto& [answer, caption] : answers) {
        auto* button = new QPushButton(caption, this);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, answer = answer] {
            m_answer = answer;
            accept();
        });
        row->addWidget(button);
        m_buttons.append({answer, button});
    }
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(message);
    layout->addLayout(row);
    setMinimumWidth(565);
}

QPushButton* QuestionDialog::button(services::QuestionAnswer answer) const
{
    for (const auto& [shown, button] : m_buttons) {
        if (shown == answer)
            return button;
    }
    return nullptr;
}

} // namespace tarvello::gui
