#pragma once

namespace tarvello::host {
class Cinterface;
}

namespace tarvello::services {

class TableManagement;

// Shows a management's window: a dialog in the shell, the scenario's commands in a run.
class ManagementPresenter {
public:
    virtual ~ManagementPresenter() = default;
    // Shows the window modally for the module it works for (whose ActiveFrame is the
    // management's record frame, the host's toolbar acting on it) and returns once the
    // management's form has unloaded.
    virtual void present(TableManagement& management, host::Cinterface& module) = 0;
};

} // namespace tarvello::services
