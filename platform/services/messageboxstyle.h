#pragma once

#include <QList>
#include <QString>

namespace tarvello::services {

// A standard message-box style number read apart: its buttons (as the standard answers they
// give, in button order), the answer of its default button and its icon.
struct MessageBoxStyle {
    enum class Icon { None, Critical, Question, Warning, Information };

    QList<int> buttons;
    int defaultAnswer = 1;
    Icon icon = Icon::None;

    static MessageBoxStyle fromNumber(int style);
    bool offers(int answer) const { return buttons.contains(answer); }
};

// The word a standard answer is written with in scenarios ("ok", "retry", "yes", ...).
QString answerWord(int standardAnswer);

} // namespace tarvello::services
