#include "platform/script/scenario.h"

#include "platform/controls/datacontrol.h"
#include "platform/controls/form.h"
#include "platform/controls/grid.h"
#include "platform/controls/navigator.h"
#include "platform/db/demodata.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/script/agentsmodule.h"
#include "platform/script/scenariowindow.h"
#include "platform/script/scripterror.h"
#include "platform/script/scriptrunner.h"
#include "platform/services/hostcontext.h"
#include "platform/services/hostnavigator.h"
#include "platform/services/management/tablemanagement.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"
#include "src/host/menuentry.h"

#include <QEventLoop>
#include <QScopeGuard>
#include <QUuid>
#include <algorithm>

namespace tarvello::script {

// The host menu's entry for the agents module.
class ScenarioMenuEntry final : public host::MenuEntry {
public:
    QString key() const override { return QStringLiteral("Anagrafica agenti"); }
};

Scenario::Scenario(const ShellOptions& options, StepQueue& steps, Notes notes)
    : m_notes(std::move(notes))
    , m_steps(steps)
    , m_signals(std::make_unique<QObject>())
    , m_menuEntry(std::make_unique<ScenarioMenuEntry>())
{
    openDatabase(options);
    const host::Company company =
        companyFromDatabase(options.company.value_or(firstCompany()), std::nullopt);
    m_host =
        std::make_unique<services::HostContext>(m_prompts, m_database.connectionString(), company);
    m_toolbar = std::make_unique<services::HostNavigator>(*m_host);
    m_host->setNavigator(m_toolbar.get());
    m_host->managements().setPresenter(this);
    if (options.registerModules)
        options.registerModules(*m_host);
}

Scenario::~Scenario()
{
    // A screen going away with its module must not call back into a host being dismantled.
    m_signals.reset();
    m_host->managements().setPresenter(nullptr);
    while (!m_windows.empty()) {
        m_host->deregisterModule(&m_windows.back()->module());
        m_windows.pop_back();
    }
}

void Scenario::openDatabase(const ShellOptions& options)
{
    QString connectionString = options.connectionString;
    if (connectionString.isEmpty())
        connectionString = options.databasePath;
    // Every connection the module opens with this string reaches the same database, which
    // lives as long as one of them is open.
    if (connectionString.isEmpty())
        connectionString = QStringLiteral("file:/tarvello-scenario-%1?vfs=memdb")
                               .arg(QUuid::createUuid().toString(QUuid::WithoutBraces));
    m_database.open(connectionString);
    db::ensureSchema(m_database);
    if (options.demo && m_database.run(QStringLiteral("SELECT COUNT(*) FROM CG18_DITTE"))
                                .rows.first()
                                .first()
                                .toInt64() == 0)
        db::populateDemoData(m_database);
}

host::Company Scenario::companyFromDatabase(qint32 code, std::optional<bool> divisional)
{
    host::Company company;
    company.code = code;
    const db::ResultSet found = m_database.run(
        QStringLiteral("SELECT CG18_RAGSOC, CG18_FLGDATIDIV FROM CG18_DITTE WHERE CG18_DITTA = ?"),
        {code});
    if (!found.rows.isEmpty()) {
        const db::ValueList& row = found.rows.first();
        company.name = row.at(0).toString();
        company.divisionalData = !row.at(1).isBlank() && row.at(1).toInt() != 0;
    }
    if (divisional)
        company.divisionalData = *divisional;
    return company;
}

qint32 Scenario::firstCompany()
{
    const db::ResultSet found =
        m_database.run(QStringLiteral("SELECT MIN(CG18_DITTA) FROM CG18_DITTE"));
    const db::Value first = found.rows.isEmpty() ? db::Value() : found.rows.first().first();
    return first.isBlank() ? 1 : first.toInt();
}

void Scenario::setCompany(qint32 code, std::optional<bool> divisional)
{
    const host::Company company = companyFromDatabase(code, divisional);
    if (!anyWindowOpen()) {
        m_host->setCompany(company);
        return;
    }
    if (!m_toolbar->changeCompany(company))
        note(QStringLiteral("the change to company %1 was refused").arg(code));
}

void Scenario::open(const OpenRequest& request)
{
    const QString identifier = agentsModuleIdentifier();
    if (!m_host->modules().contains(identifier))
        throw ScriptFailure(QStringLiteral("the host has no module %1 to open").arg(identifier));
    std::unique_ptr<host::CalledModule> called = m_host->createModule(identifier);
    // The module is called on one agent: CodiceAgente, or IDAGENTE with CalledById.
    if (request.calledCode)
        called->setCallingData({*request.calledCode});
    else if (request.calledId)
        called->setCallingData({db::Value(), *request.calledId, true});
    auto created = std::make_unique<ScenarioWindow>(std::move(called), identifier);
    host::Cinterface& module = created->module();
    module.setClsGlobal(m_host.get());
    module.setActiveNavigator(m_toolbar.get());
    module.setClsVoceMenu(m_menuEntry.get());
    module.setCaption(request.caption.value_or(QStringLiteral("Anagrafica agenti")));
    module.setCanInsert(true);
    module.setCanUpdate(true);
    module.setCanDelete(true);
    module.setCanQbe(true);
    module.setWindowModal(request.modal);
    module.setProgramMode(request.programMode);
    if (request.modal) {
        module.setTop(0);
        module.setLeft(0);
    }
    module.setIsCalled(request.calledCode || request.calledId);
    for (const auto& other : m_windows) {
        if (other->isOpen())
            deactivate(*other);
    }
    ScenarioWindow& window = *created;
    m_windows.push_back(std::move(created));
    m_steps.runFirst([this, &window] { adopt(window); });
    ScenarioWindow* const outer = m_opening;
    m_opening = &window;
    const auto opened = qScopeGuard([this, outer] { m_opening = outer; });
    module.ShowForm();
}

bool Scenario::isSettling() const
{
    if (m_managementClosed)
        return true;
    if (!m_opening)
        return false;
    const controls::Form* form = m_opening->findForm();
    return form && !(form->isShown() && form->isModal());
}

void Scenario::adopt(ScenarioWindow& window)
{
    if (!window.adopt(m_prompts))
        throw ScriptFailure(QStringLiteral("the module showed no screen: its ActiveFrame is not "
                                           "a record frame on a form"));
    controls::Form* form = window.form();
    QObject::connect(form, &controls::Form::unloaded, m_signals.get(),
                     [this, &window] { windowClosed(window); });
    if (form->isLoaded())
        activate(window);
}

void Scenario::activate()
{
    ScenarioWindow& current = window();
    current.openForm();
    activate(current);
}

void Scenario::deactivate()
{
    ScenarioWindow& current = window();
    current.openForm();
    deactivate(current);
}

void Scenario::activate(ScenarioWindow& window)
{
    for (const auto& other : m_windows) {
        if (other.get() != &window && other->isOpen() && other->form()->isActive())
            deactivate(*other);
    }
    m_host->setActiveModule(&window.module());
    window.module().setIsActive(true);
    window.form()->activate();
    syncToolbar();
}

void Scenario::deactivate(ScenarioWindow& window)
{
    window.form()->deactivate();
    window.module().setIsActive(false);
    if (m_host->activeModule() == &window.module())
        m_host->setActiveModule(nullptr);
}

void Scenario::windowClosed(ScenarioWindow& window)
{
    window.module().setIsActive(false);
    if (m_host->activeModule() == &window.module())
        m_host->setActiveModule(nullptr);
}

void Scenario::close()
{
    controls::Form& form = window().openForm();
    if (!form.requestClose(controls::CloseMode::User))
        note(QStringLiteral("the window refused to close"));
}

bool Scenario::anyWindowOpen() const
{
    return std::any_of(m_windows.begin(), m_windows.end(),
                       [](const auto& window) { return window->isOpen(); });
}

void Scenario::present(services::TableManagement& management, host::Cinterface& module)
{
    controls::Form& form = management.form();
    form.show(true);
    m_managementWindows.push_back(std::make_unique<ScenarioWindow>(module, form));
    QEventLoop waiting;
    QObject::connect(&form, &controls::Form::unloaded, &waiting, [this, &waiting] {
        m_managementClosed = true;
        waiting.quit();
    });
    const auto closed = qScopeGuard([this] {
        m_managementWindows.pop_back();
        m_managementClosed = false;
    });
    m_steps.runFirst([] {});
    if (form.isLoaded())
        waiting.exec();
}

void Scenario::closeAll()
{
    for (auto window = m_managementWindows.rbegin(); window != m_managementWindows.rend();
         ++window) {
        if ((*window)->isOpen())
            (*window)->form()->unload();
    }
    for (auto window = m_windows.rbegin(); window != m_windows.rend(); ++window) {
        if (!(*window)->isOpen())
            continue;
        try {
            (*window)->form()->unload();
        } catch (const std::exception& error) {
            note(QStringLiteral("closing the window at the end of the run failed: %1")
                     .arg(QString::fromUtf8(error.what())));
        }
    }
}

ScenarioWindow& Scenario::window() const
{
    if (!m_managementWindows.empty())
        return *m_managementWindows.back();
    if (m_windows.empty())
        throw ScriptFailure(QStringLiteral("no window was opened"));
    return *m_windows.back();
}

QObject* Scenario::activeFrame() const
{
    const host::Cinterface* module = m_host->activeModule();
    return module ? module->ActiveFrame() : nullptr;
}

void Scenario::syncToolbar()
{
    m_toolbar->update();
}

void Scenario::pressToolbar(qint32 button)
{
    syncToolbar();
    switch (m_toolbar->press(button)) {
    case services::HostNavigator::Press::Disabled:
        note(QStringLiteral("the toolbar button %1 is disabled: nothing happens").arg(button));
        return;
    case services::HostNavigator::Press::Refused:
        note(QStringLiteral("the toolbar button %1 was refused: nothing happens").arg(button));
        return;
    case services::HostNavigator::Press::TakenOver:
        return;
    case services::HostNavigator::Press::Done:
        break;
    }
    syncToolbar();
}

void Scenario::noteDefaultedPrompts()
{
    const QList<services::PromptRecord>& shown = m_prompts.history();
    for (; m_promptsNoted < shown.size(); ++m_promptsNoted) {
        const services::PromptRecord& prompt = shown.at(m_promptsNoted);
        if (prompt.defaulted)
            note(QStringLiteral("the %1 \"%2\" took its default answer (%3): no answer was queued")
                     .arg(services::promptKindName(prompt.kind), prompt.text, prompt.answer()));
    }
}

} // namespace tarvello::script
