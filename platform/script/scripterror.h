#pragma once

#include <QString>
#include <stdexcept>

namespace tarvello::script {

// What stops a scenario, with the message the runner prints under the line that caused it.
class ScriptError : public std::runtime_error {
public:
    explicit ScriptError(const QString& message)
        : std::runtime_error(message.toStdString())
        , m_message(message)
    {}
    const QString& message() const { return m_message; }

private:
    QString m_message;
};

// A line that cannot be understood: the run stops before anything was done (exit 2).
class SyntaxError : public ScriptError {
public:
    using ScriptError::ScriptError;
};

// A step that did not hold: a check that found something else, a control the screen does
// not have, a window that is not open (exit 1).
class ScriptFailure : public ScriptError {
public:
    using ScriptError::ScriptError;
};

} // namespace tarvello::script
