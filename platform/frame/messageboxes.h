#pragma once

#include <QString>

namespace tarvello::frame {

// What a record frame needs of the host to speak to the person: a message box with a text,
// a standard style number and a title, answered with the standard answer. The host's user
// prompts provide it.
class MessageBoxes {
public:
    virtual ~MessageBoxes() = default;
    MessageBoxes() = default;
    MessageBoxes(const MessageBoxes&) = delete;
    MessageBoxes& operator=(const MessageBoxes&) = delete;

    virtual int messageBox(const QString& text, int style, const QString& title) = 0;
};

} // namespace tarvello::frame
