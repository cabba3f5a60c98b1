#pragma once

#include "platform/controls/control.h"
#include "platform/db/value.h"
#include "src/host/calledmodule.h"

#include <QPointer>
#include <QStringView>
#include <memory>
#include <optional>
#include <vector>

namespace tarvello::controls {
class ConnectionPool;
class Form;
} // namespace tarvello::controls

namespace tarvello::db {
class Connection;
}

namespace tarvello::frame {
class GestAnagrafica;
class RecordTree;
} // namespace tarvello::frame

namespace tarvello::host {
class Cinterface;
}

namespace tarvello::services {
class ModuleErrorReport;
class UserPrompts;
} // namespace tarvello::services

namespace tarvello::script {

class PromptLookups;

// A module the scenario's host opened, and its screen once shown.
//
// The host knows a module's screen by the record frame the module publishes as its
// ActiveFrame at load: the frame sits on the screen's form (it is a descendant of the form
// object), and so does every other record frame of the screen, found by its object name.
// The host gives the form what the screen did not set up itself: the lookup lists (through
// the prompts), the connections its fields decode on (the module's own Connection), the
// report of the run-time errors its handlers let escape (through the prompts too) and trees
// that stay with the record on view.
class ScenarioWindow final : public host::DataTransferEvents {
public:
    ScenarioWindow(std::unique_ptr<host::CalledModule> module, QString programmaticIdentifier);
    // The window of one of the host's managements, shown for a module; neither is owned.
    ScenarioWindow(host::Cinterface& module, controls::Form& form);
    ~ScenarioWindow();
    ScenarioWindow(const ScenarioWindow&) = delete;
    ScenarioWindow& operator=(const ScenarioWindow&) = delete;

    host::Cinterface& module() const { return *m_contract; }

    // The form the module's ActiveFrame sits on; nullptr when it has none.
    controls::Form* findForm() const;
    // Takes the screen the module showed as this window; false when it showed none.
    bool adopt(services::UserPrompts& prompts);
    // The screen; nullptr before it was adopted or once its form was destroyed.
    controls::Form* form() const { return m_form; }
    bool isOpen() const;

    // The open form; raises ScriptFailure when the window is not open.
    controls::Form& openForm() const;
    // A control of the open form by name; raises ScriptFailure when there is none.
    controls::Control& control(QStringView name) const;
    // A control of a kind (Field, ComboBox, ...); raises ScriptFailure naming what it is.
    template <class T>
    T& control(QStringView name) const
    {
        controls::Control& found = control(name);
        if (T* typed = qobject_cast<T*>(&found))
            return *typed;
        failNotA(found, T::staticMetaObject);
    }
    // A record frame of the screen by name (FME_GestAnagrafica1, ...).
    frame::GestAnagrafica& frame(QStringView name) const;
    // The module's own connection, with the statements it sent.
    db::Connection& connection() const;

    // The statements of the module's connection up to this one are behind `expect sql`.
    qsizetype statementsMatched() const { return m_statementsMatched; }
    void setStatementsMatched(qsizetype count) { m_statementsMatched = count; }

    // The last value the module handed back through DataTransfer.
    const std::optional<db::Value>& lastTransfer() const { return m_transfer; }
    void DataTransfer(const db::Value& Data) override { m_transfer = Data; }

private:
    [[noreturn]] static void failNotA(const controls::Control& control, const QMetaObject& kind);

    std::unique_ptr<host::CalledModule> m_module;            // Owned; none for a management.
    host::Cinterface* m_contract;                            // Not owned: m_module's, or given.
    QPointer<controls::Form> m_form;                         // Not owned: the screen's.
    std::unique_ptr<PromptLookups> m_lookups;                // Owned.
    std::unique_ptr<controls::ConnectionPool> m_connections; // Owned.
    std::vector<std::unique_ptr<frame::RecordTree>> m_trees;
    std::unique_ptr<services::ModuleErrorReport> m_errors; // Owned.
    QString m_identifier;
    qsizetype m_statementsMatched = 0;
    std::optional<db::Value> m_transfer;
};

// A kind of control as a person would name it: "Field", "ComboBox", "TreeGrid".
QString kindName(const QMetaObject& kind);

} // namespace tarvello::script
