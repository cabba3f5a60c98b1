#pragma once

#include "platform/services/promptanswer.h"

#include <QDialog>
#include <optional>

class QPushButton;

namespace tarvello::gui {

// The module's question dialog: the question in a bordered line across the dialog, and the
// four answers "&Si", "&No", "S&i, sempre", "N&o, sempre". A button closes it with its
// answer; closed any other way it has none.
class QuestionDialog final : public QDialog {
    Q_OBJECT
public:
    QuestionDialog(const QString& text, const QString& title, QWidget* parent = nullptr);

    std::optional<services::QuestionAnswer> answer() const { return m_answer; }
    QPushButton* button(services::QuestionAnswer answer) const;

private:
    std::optional<services::QuestionAnswer> m_answer;
    QList<std::pair<services::QuestionAnswer, QPushButton*>> m_buttons; // Owned (children).
};

} // namespace tarvello::gui
