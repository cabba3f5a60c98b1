#include "platform/services/hostnavigator.h"

#include "platform/controls/form.h"
#include "platform/controls/handlererrors.h"
#include "platform/services/hostcontext.h"
#include "src/host/cinterface.h"

namespace tarvello::services {

HostNavigator::HostNavigator(HostContext& context)
    : m_context(context)
{}

void HostNavigator::registerModule(host::Cinterface* module)
{
    if (module && !m_modules.contains(module))
        m_modules.append(module);
}

FrameActions* HostNavigator::activeFrame() const
{
    const host::Cinterface* module = m_context.activeModule();
    return module ? dynamic_cast<FrameActions*>(module->ActiveFrame()) : nullptr;
}

template <class... Params, class... Args>
bool HostNavigator::raiseToModules(const char* event,
                                   void (host::NavigatorEvents::*handler)(Params...),
                                   Args&&... args)
{
    bool abandoned = false;
    m_events.forEach([&](host::NavigatorEvents& module) {
        const auto* contract = dynamic_cast<const host::Cinterface*>(&module);
        controls::HandlerErrors* errors =
            contract ? controls::handlerErrorsOf(contract->ActiveFrame()) : nullptr;
        const controls::Raised raised =
            controls::raiseEvent(errors, QStringLiteral("ActiveNavigator_") + QLatin1String(event),
                                 [&] { (module.*handler)(args...); });
        abandoned = abandoned || raised == controls::Raised::Abandoned;
    });
    return abandoned;
}

void HostNavigator::update()
{
    if (const FrameActions* frame = activeFrame())
        setFrameStatus(frame->frameStatus());
    refresh();
}

bool HostNavigator::isEnabled(qint32 button) const
{
    switch (button) {
    case New:
    case Search:
        return m_shownStatus != 2;
    case Save:
        return m_shownStatus != 1;
    case Delete:
        return m_shownStatus == 0;
    default:
        return true;
    }
}

bool HostNavigator::focusLetsGo(qint32 button) const
{
    // Undo and delete drop what the field holds: they need not wait for it.
    if (button == Undo || button == Delete)
        return true;
    const host::Cinterface* module = m_context.activeModule();
    controls::Form* form = module ? controls::formOf(module->ActiveFrame()) : nullptr;
    return !form || form->focus().checkCurrent();
}

HostNavigator::Press HostNavigator::press(qint32 button)
{
    if (!isEnabled(button))
        return Press::Disabled;
    if (!focusLetsGo(button))
        return Press::Refused;
    bool cancel = false;
    if (raiseToModules("ButtonPressed", &host::NavigatorEvents::ButtonPressed, cancel, button))
        return Press::Refused;
    if (cancel)
        return Press::TakenOver;
    act(button);
    return Press::Done;
}

void HostNavigator::act(qint32 button)
{
    FrameActions* frame = activeFrame();
    if (!frame)
        return;
    using Move = FrameActions::Move;
    switch (button) {
    case New:
        frame->newRecord();
        break;
    case Save:
        frame->saveRecord();
        break;
    case Undo:
        frame->undoRecord();
        break;
    case Delete:
        frame->deleteRecord();
        break;
    case Search:
        frame->searchRecord();
        break;
    case First:
        frame->moveRecord(Move::First);
        break;
    case Previous:
        frame->moveRecord(Move::Previous);
        break;
    case Next:
        frame->moveRecord(Move::Next);
        break;
    case Last:
        frame->moveRecord(Move::Last);
        break;
    default:
        return;
    }
    update();
}

bool HostNavigator::changeCompany(const host::Company& company)
{
    bool cancel = false;
    if (raiseToModules("BeforeChangeDitta", &host::NavigatorEvents::BeforeChangeDitta, cancel) ||
        cancel)
        return false;
    m_context.setCompany(company);
    raiseToModules("ChangeDitta", &host::NavigatorEvents::ChangeDitta, company.code);
    return true;
}

QString HostNavigator::exportToOffice()
{
    OfficeExport exporter;
    m_events.raise(&host::NavigatorEvents::BeforeExportToOffice, exporter);
    return exporter.titoloMaster();
}

void HostNavigator::initializeLayoutObjectModel(ObjectModel& layout)
{
    m_events.raise(&host::NavigatorEvents::InitializeLayoutObjectModel, layout);
}

void HostNavigator::initializeScriptObjectModel(ObjectModel& script)
{
    m_events.raise(&host::NavigatorEvents::InitializeScriptObjectModel, script);
}

} // namespace tarvello::services
