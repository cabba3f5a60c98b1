#pragma once

#include "platform/db/providererror.h"
#include "platform/db/runtimeerror.h"

#include <QList>
#include <QString>

namespace tarvello::host {

class Cinterface;

// Standard answers of a message box.
enum StandardAnswer : int { Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

// Styles of a message box: one value of each group added together (its buttons, its icon,
// which button is the default, whether it holds every application). Zero is the first of a
// group: OK alone, no icon, the first button.
enum MessageStyle : int {
    OkCancel = 1,
    AbortRetryIgnore = 2,
    YesNoCancel = 3,
    YesNo = 4,
    RetryCancel = 5,
    Critical = 16,
    Question = 32,
    Exclamation = 48,
    Information = 64,
    DefaultButton2 = 256,
    DefaultButton3 = 512,
    SystemModal = 4096,
    ButtonsMask = 0xF,
    IconMask = 0xF0,
    DefaultButtonMask = 0xF00
};

// The host's error-log and message object (Gcls_Log): it shows errors and messages to the
// user and records them. A screen creates one, binds it to its module and ends it at unload.
class ErrorLog {
public:
    virtual ~ErrorLog() = default;

    virtual void bind(Cinterface* module) = 0;
    // The run-time error the next report is about.
    virtual void takeRuntimeError(const db::RuntimeError& error) = 0;
    // The database's own errors behind it.
    virtual void takeProviderErrors(const QList<db::ProviderError>& errors) = 0;

    // Reports the error and lets the user choose: Abort, Retry or Ignore.
    virtual int reportWithChoice(const QString& applicationText, const QString& screenTitle,
                                 const QString& procedure, int style, int& argument) = 0;
    // Reports an error of a module; result 1 tells the module to abandon what it was doing.
    virtual void reportModuleError(const QString& module, const QString& location,
                                   const QString& position, short& result) = 0;
    // A message box: the text, a standard style number, the title; returns the answer.
    virtual int message(const QString& text, int style, const QString& title) = 0;
    virtual void end() = 0;
};

} // namespace tarvello::host
