#include "platform/script/scenariowindow.h"

#include "platform/controls/connectionpool.h"
#include "platform/controls/datacontrol.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/handlererrors.h"
#include "platform/controls/navigator.h"
#include "platform/db/connection.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/frame/recordtree.h"
#include "platform/script/promptlookups.h"
#include "platform/script/scripterror.h"
#include "platform/services/moduleerrorreport.h"
#include "src/host/cinterface.h"

namespace tarvello::script {

QString kindName(const QMetaObject& kind)
{
    const QString name = QString::fromLatin1(kind.className());
    return name.mid(name.lastIndexOf(u':') + 1);
}

ScenarioWindow::ScenarioWindow(std::unique_ptr<host::CalledModule> module,
                               QString programmaticIdentifier)
    : m_module(std::move(module))
    , m_contract(&m_module->contract())
    , m_identifier(std::move(programmaticIdentifier))
{
    m_module->dataTransfer().subscribe(this);
}

ScenarioWindow::ScenarioWindow(host::Cinterface& module, controls::Form& form)
    : m_contract(&module)
    , m_form(&form)
{}

ScenarioWindow::~ScenarioWindow()
{
    if (m_module)
        m_module->dataTransfer().unsubscribe(this);
    if (m_form && m_form->lookupPresenter() == m_lookups.get())
        m_form->setLookupPresenter(nullptr);
    if (m_form && m_form->connectionSource() == m_connections.get())
        m_form->setConnectionSource(nullptr);
    if (m_form && m_form->handlerErrors() == m_errors.get())
        m_form->setHandlerErrors(nullptr);
}

controls::Form* ScenarioWindow::findForm() const
{
    return controls::formOf(module().ActiveFrame());
}

bool ScenarioWindow::adopt(services::UserPrompts& prompts)
{
    m_form = findForm();
    if (!m_form)
        return false;
    if (!m_form->lookupPresenter()) {
        m_lookups = std::make_unique<PromptLookups>(prompts);
        m_form->setLookupPresenter(m_lookups.get());
    }
    if (!m_form->connectionSource() && module().Connection()) {
        m_connections = std::make_unique<controls::ConnectionPool>();
        m_connections->add(*module().Connection());
        m_form->setConnectionSource(m_connections.get());
    }
    m_trees = frame::RecordTree::link(*m_form, module());
    if (!m_form->handlerErrors()) {
        m_errors = std::make_unique<services::ModuleErrorReport>(prompts, module(), m_identifier);
        m_form->setHandlerErrors(m_errors.get());
    }
    return true;
}

bool ScenarioWindow::isOpen() const
{
    return m_form && m_form->isLoaded();
}

controls::Form& ScenarioWindow::openForm() const
{
    if (!isOpen())
        throw ScriptFailure(QStringLiteral("the window is not open"));
    return *m_form;
}

controls::Control& ScenarioWindow::control(QStringView name) const
{
    const controls::Form& form = openForm();
    controls::Control* found = form.control(name);
    if (!found)
        throw ScriptFailure(
            QStringLiteral("the screen %1 has no control %2").arg(form.name(), name.toString()));
    return *found;
}

void ScenarioWindow::failNotA(const controls::Control& control, const QMetaObject& kind)
{
    throw ScriptFailure(QStringLiteral("%1 is a %2, not a %3")
                            .arg(control.name(), kindName(*control.metaObject()), kindName(kind)));
}

frame::GestAnagrafica& ScenarioWindow::frame(QStringView name) const
{
    const controls::Form& form = openForm();
    auto* found = form.findChild<frame::GestAnagrafica*>(name.toString());
    if (!found)
        throw ScriptFailure(QStringLiteral("the screen %1 has no record frame %2")
                                .arg(form.name(), name.toString()));
    return *found;
}

db::Connection& ScenarioWindow::connection() const
{
    openForm();
    db::Connection* own = module().Connection();
    if (!own)
        throw ScriptFailure(QStringLiteral("the module has published no Connection"));
    return *own;
}

} // namespace tarvello::script
