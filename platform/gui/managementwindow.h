#pragma once

#include <QDialog>
#include <memory>

class QTableView;

namespace tarvello::services {
class HostNavigator;
class TableManagement;
class UserPrompts;
} // namespace tarvello::services

namespace tarvello::gui {

class HostToolbar;

// The window of one of the host's managements, laid out from its description: the host's
// toolbar (for a table), the search box, the grid of rows with sortable columns, the fields
// of the row shown, and the buttons to choose and to close. The widgets are bound to the
// management's form by name, so the person works on the same controls and record frame a
// scenario drives. A double click chooses the row clicked; a click on a tick ticks it; Esc
// and the window's close button ask the management to close, which may keep it open.
class ManagementWindow final : public QDialog {
    Q_OBJECT
public:
    ManagementWindow(services::TableManagement& management, services::HostNavigator& navigator,
                     services::UserPrompts& prompts, QWidget* parent = nullptr);
    ~ManagementWindow() override;

    QTableView& table() const { return *m_table; }

public Q_SLOTS:
    void reject() override;

private:
    QWidget* buildRecord();
    void showSort(const QString& column, bool ascending);

    services::TableManagement& m_management; // Not owned: outlives the window.
    QTableView* m_table;                     // Owned (child widget).
    std::unique_ptr<HostToolbar> m_toolbar;  // Owned; its buttons are the tool bar's.
};

} // namespace tarvello::gui
