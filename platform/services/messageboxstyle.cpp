#include "platform/services/messageboxstyle.h"

#include "src/host/errorlog.h"

namespace tarvello::services {

MessageBoxStyle MessageBoxStyle::fromNumber(int style)
{
    using namespace host;
    MessageBoxStyle result;
    switch (style & 0xF) {
    case 1:
        result.buttons = {Ok, Cancel};
        break;
    case 2:
        result.buttons = {Abort, Retry, Ignore};
        break;
    case 3:
        result.buttons = {Yes, No, Cancel};
        break;
    case 4:
        result.buttons = {Yes, No};
        break;
    case 5:
        result.buttons = {Retry, Cancel};
        break;
    default:
        result.buttons = {Ok};
        break;
    }
    // A default button the box does not have falls back to the first, as message boxes do.
    const int defaultIndex = (style & 0xF00) >> 8;
    result.defaultAnswer =
        result.buttons.value(defaultIndex < result.buttons.size() ? defaultIndex : 0);
    switch (style & 0xF0) {
    case 16:
        result.icon = Icon::Critical;
        break;
    case 32:
        result.icon = Icon::Question;
        break;
    case 48:
        result.icon = Icon::Warning;
        break;
    case 64:
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
