#pragma once

#include "platform/services/management/managementdescription.h"
#include "platform/services/promptanswer.h"

#include <QList>
#include <functional>
#include <memory>

namespace tarvello::host {
class Cinterface;
}

namespace tarvello::services {

class HostContext;
class ManagementPresenter;
class TableManagement;
class UserPrompts;

// The host's own managements: how the person is asked to work in one, and where its
// window is shown.
class HostManagements {
public:
    HostManagements(UserPrompts& prompts, HostContext& context)
        : m_prompts(prompts)
        , m_context(context)
    {}
    HostManagements(const HostManagements&) = delete;
    HostManagements& operator=(const HostManagements&) = delete;

    UserPrompts& prompts() const { return m_prompts; }
    const HostContext& context() const { return m_context; }
    // Not owned; nullptr: no window can be shown.
    void setPresenter(ManagementPresenter* presenter) { m_presenter = presenter; }

    // A management as the person answers it: an answer of one of the kinds it hands back,
    // given at once (a scenario's), or its window, answered "window": the person works there
    // and `window` turns what was chosen into such an answer.
    PromptAnswer ask(const QString& name, const QString& details,
                     QList<PromptAnswer::Kind> handsBack,
                     const std::function<PromptAnswer()>& window) const;

    // A management on the host's database and current company (connection string and
    // company of the opening are filled when empty). Raises db::RuntimeError when its rows
    // cannot be read.
    std::unique_ptr<TableManagement> open(ManagementDescription description,
                                          ManagementOpening opening) const;
    // Shows the window as one of the host's own: while it is open it is the host's active
    // module, and the module that was active is not. Returns what was chosen there.
    QList<db::ValueList> run(TableManagement& management) const;
    // Opens a management, lets prepare add what is particular to it, and shows its window:
    // for the module given, or else as one of the host's own (run). A management that cannot
    // be opened is reported to the person and chooses nothing.
    QList<db::ValueList> runWindow(ManagementDescription description,
                                   const ManagementOpening& opening,
                                   const std::function<void(TableManagement&)>& prepare = {},
                                   host::Cinterface* module = nullptr) const;
    // Shows the window of a management run by a module of the host, which made itself the
    // host's active module.
    void show(TableManagement& management, host::Cinterface& module) const;
    // Tells the person that a management could not be opened.
    void reportOpeningFailure(const QString& title, const QString& reason) const;

private:
    UserPrompts& m_prompts;                     // Not owned.
    HostContext& m_context;                     // Not owned: owns this.
    ManagementPresenter* m_presenter = nullptr; // Not owned.
};

} // namespace tarvello::services
