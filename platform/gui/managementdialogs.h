#pragma once

#include "platform/services/management/managementpresenter.h"

#include <QPointer>
#include <QWidget>

namespace tarvello::services {
class HostNavigator;
class UserPrompts;
} // namespace tarvello::services

namespace tarvello::gui {

// Shows the host's managements as modal windows of the shell.
class ManagementDialogs final : public services::ManagementPresenter {
public:
    ManagementDialogs(services::HostNavigator& navigator, services::UserPrompts& prompts,
                      QWidget* parent = nullptr)
        : m_navigator(navigator)
        , m_prompts(prompts)
        , m_parent(parent)
    {}

    void setParent(QWidget* parent) { m_parent = parent; }
    void present(services::TableManagement& management, host::Cinterface& module) override;

private:
    services::HostNavigator& m_navigator; // Not owned.
    services::UserPrompts& m_prompts;     // Not owned.
    QPointer<QWidget> m_parent;           // Not owned.
};

} // namespace tarvello::gui
