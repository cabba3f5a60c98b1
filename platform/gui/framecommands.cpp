#include "platform/gui/framecommands.h"

#include "platform/frame/gestanagrafica.h"
#include "platform/services/frameactions.h"
#include "platform/services/hostnavigator.h"

namespace tarvello::gui {

namespace {

// A record frame the toolbar does not already act on by itself.
frame::GestAnagrafica* recordFrame(QObject* object)
{
    auto* frame = qobject_cast<frame::GestAnagrafica*>(object);
    return frame && !dynamic_cast<services::FrameActions*>(object) ? frame : nullptr;
}

} // namespace

bool performFrameButton(QObject* activeFrame, qint32 button)
{
    frame::GestAnagrafica* frame = recordFrame(activeFrame);
    if (!frame)
        return false;
    using Button = services::HostNavigator::Button;
    switch (button) {
    case Button::New:
        return frame->addNew();
    case Button::Save:
        return frame->save();
    case Button::Undo:
        return frame->undo();
    case Button::Delete:
        return frame->deleteRecord();
    case Button::Search:
        return frame->searchCommand();
    case Button::First:
        return frame->moveFirst();
    case Button::Previous:
        return frame->movePrevious();
    case Button::Next:
        return frame->moveNext();
    case Button::Last:
        return frame->moveLast();
    default:
        return false;
    }
}

std::optional<short> frameStatus(QObject* activeFrame)
{
    if (const auto* actions = dynamic_cast<const services::FrameActions*>(activeFrame))
        return actions->frameStatus();
    if (const auto* frame = qobject_cast<const frame::GestAnagrafica*>(activeFrame))
        return short(frame->status());
    return std::nullopt;
}

} // namespace tarvello::gui
