#include "src/host/clsmg_agenti.h"

#include "platform/db/runtimeerror.h"
#include "src/common/errorstyles.h"

namespace tarvello::agenti {

namespace {

constexpr long ObjectVariableNotSet = 91;

// The value as the text a window title takes; Null and arrays have none.
QString titleText(const db::Value& value)
{
    if (value.isNull())
        throw db::RuntimeError(db::RuntimeError::InvalidUseOfNull,
                               QStringLiteral("Invalid use of Null"));
    return value.toString();
}

// The module object behind a contract reference, as this class.
CLSMG_AGENTI* asClass(host::Cinterface* module)
{
    if (!module)
        return nullptr;
    if (auto* object = dynamic_cast<CLSMG_AGENTI*>(module))
        return object;
    throw db::RuntimeError(db::RuntimeError::TypeMismatch, QStringLiteral("Type mismatch"));
}

} // namespace

CLSMG_AGENTI::CLSMG_AGENTI(AgentiScreenFactory screens)
    : m_screenFactory(std::move(screens))
    , m_activeDll(this)
{}

CLSMG_AGENTI::~CLSMG_AGENTI()
{
    // The navigator outlives its modules: the subscription must end with the object.
    setActiveNavigator(nullptr);
}

void CLSMG_AGENTI::setActiveNavigator(host::Navigator* navigator)
{
    if (m_activeNavigator)
        m_activeNavigator->events().unsubscribe(this);
    m_activeNavigator = navigator;
    if (m_activeNavigator)
        m_activeNavigator->events().subscribe(this);
}

void CLSMG_AGENTI::setWindowState(qint32 value)
{
    ignoreEachStep({[&] { m_windowState = db::Value(value).toShort(); }});
}

void CLSMG_AGENTI::setProgramMode(qint32 value)
{
    ignoreEachStep({[&] { m_programMode = db::Value(value).toShort(); }});
}

void CLSMG_AGENTI::setTop(const db::Value& value)
{
    ignoreEachStep({[&] { m_top = value.toInt(); }});
}

void CLSMG_AGENTI::setLeft(const db::Value& value)
{
    ignoreEachStep({[&] { m_left = value.toInt(); }});
}

db::Value CLSMG_AGENTI::ShowForm()
{
    const auto screen = [this]() -> AgentiScreen& {
        if (!m_screen)
            throw db::RuntimeError(ObjectVariableNotSet, QStringLiteral("Object variable not set"));
        return *m_screen;
    };
    ignoreEachStep({
        [&] {
            auto created = m_screenFactory();
            if (!created)
                throw db::RuntimeError(ObjectVariableNotSet,
                                       QStringLiteral("The screen could not be created"));
            m_screen = created.get();
            m_screens.push_back(std::move(created));
        },
        [&] { screen().setActiveInterface(m_activeDll); },
        [&] { screen().setActiveClass(asClass(m_activeDll)); },
        [&] { screen().setWindowState(m_windowState); },
        [&] { screen().setTitle(titleText(m_caption)); },
        [&] { screen().show(m_windowModal); },
    });
    return {};
}

db::Value CLSMG_AGENTI::TransferData(const db::Value& Calling_parameters)
{
    ignoreEachStep({[&] {
        m_dataTransfer.raise(&host::DataTransferEvents::DataTransfer, Calling_parameters);
    }});
    return {};
}

} // namespace tarvello::agenti
