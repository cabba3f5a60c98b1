#include "platform/services/messageboxstyle.h"

#include "src/host/errorlog.h"

namespace tarvello::services {

MessageBoxStyle MessageBoxStyle::fromNumber(int style)
{
    using namespace host;
    MessageBoxStyle result;
    switch (style & ButtonsMask) {
    case OkCancel:
        result.buttons = {Ok, Cancel};
        break;
    case AbortRetryIgnore:
        result.buttons = {Abort, Retry, Ignore};
        break;
    case YesNoCancel:
        result.buttons = {Yes, No, Cancel};
        break;
    case YesNo:
        result.buttons = {Yes, No};
        break;
    case RetryCancel:
        result.buttons = {Retry, Cancel};
        break;
    default:
        result.buttons = {Ok};
        break;
    }
    // A default button the box does not have falls back to the first, as message boxes do.
    const int defaultIndex = (style & DefaultButtonMask) / DefaultButton2;
    result.defaultAnswer =
        result.buttons.value(defaultIndex < result.buttons.size() ? defaultIndex : 0);
    switch (style & IconMask) {
    case Critical:
        result.icon = Icon::Critical;
        break;
    case Question:
        result.icon = Icon::Question;
        break;
    case Exclamation:
        result.icon = Icon::Warning;
        break;
    case Information:
        result.icon = Icon::Information;
        break;
    default:
        break;
    }
    return result;
}

QString answerWord(int standardAnswer)
{
    switch (standardAnswer) {
    case host::Ok:
        return QStringLiteral("ok");
    case host::Cancel:
        return QStringLiteral("cancel");
    case host::Abort:
        return QStringLiteral("abort");
    case host::Retry:
        return QStringLiteral("retry");
    case host::Ignore:
        return QStringLiteral("ignore");
    case host::Yes:
        return QStringLiteral("yes");
    case host::No:
        return QStringLiteral("no");
    default:
        return QString::number(standardAnswer);
    }
}

} // namespace tarvello::services
