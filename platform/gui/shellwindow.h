#pragma once

#include <QHash>
#include <QList>
#include <QMainWindow>
#include <functional>
#include <memory>

class QAction;
class QComboBox;
class QLabel;
class QMdiArea;
class QMdiSubWindow;

namespace tarvello::controls {
class LookupPresenter;
}

namespace tarvello::gui {

class HostToolbar;
class ScreenWindow;
class ShellHost;

// The shell's main window: a menu of the modules it can open, the host's navigator toolbar
// (moves, new, save, undo, delete, search, multimedia, export) with its shortcuts, the same
// actions in the record menu "Agente" with the printout of the agent on view, a company
// switcher, and the modules' screens as MDI windows.
//
// A toolbar button reaches every module as ButtonPressed with the toolbar's button number;
// when none takes it over, the toolbar acts on the active module's record frame itself.
// The window the person works in is the one the navigator serves: its module is the host's
// active module (IsActive True, every other False).
class ShellWindow final : public QMainWindow {
    Q_OBJECT
public:
    // The widget tree of a form, laid out in the designer.
    using ScreenLayout = std::function<std::unique_ptr<QWidget>()>;

    struct ModuleEntry {
        QString caption;    // the menu item, and the screen's caption
        QString identifier; // the module's programmatic identifier
        // The module does its work within ShowForm and opens no screen (a printout).
        bool windowless = false;
    };

    // lookups: what opens the lookup lists of the screens' fields; not owned.
    ShellWindow(ShellHost& host, controls::LookupPresenter* lookups, QWidget* parent = nullptr);
    ~ShellWindow() override;

    void addModule(const ModuleEntry& entry);
    void addScreenLayout(const QString& formName, ScreenLayout layout);

    // Opens a module as its menu item does; nullptr (the person told why) when it failed.
    ScreenWindow* openModule(const ModuleEntry& entry);
    // Presses a toolbar button by number, as its button does.
    void pressButton(qint32 button);
    QAction* toolbarAction(qint32 button) const;
    QAction* exportAction() const { return m_export; }
    QAction* printRecordAction() const { return m_printRecord; }
    QMenu& recordMenu() const { return *m_recordMenu; }
    QComboBox& companySwitcher() const { return *m_companies; }
    QMdiArea& screens() const { return *m_screens; }
    ScreenWindow* activeScreen() const;

protected:
    // Every screen is closed first, and any may refuse (unsaved changes): then the shell stays.
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildToolbar();
    void fillCompanies();
    void switchCompany(int index);
    void screenActivated(QMdiSubWindow* window);
    void showFrameState();
    void exportActiveGrid();
    // The printout of the record on view: the module's own, through its screen's navigator.
    void printRecord();
    QObject* activeFrame() const;
    void showStatus();
    void complain(const QString& title, const QString& text);

    ShellHost& m_host;                      // Not owned.
    controls::LookupPresenter* m_lookups;   // Not owned.
    QMdiArea* m_screens;                    // Owned (central widget).
    QMenu* m_modulesMenu = nullptr;         // Owned by the menu bar.
    QMenu* m_recordMenu = nullptr;          // Owned by the menu bar.
    QComboBox* m_companies = nullptr;       // Owned by the toolbar.
    QLabel* m_statusText = nullptr;         // Owned by the status bar.
    std::unique_ptr<HostToolbar> m_toolbar; // Owned; its buttons are the tool bar's.
    QAction* m_export = nullptr;            // Owned by the toolbar.
    QAction* m_printRecord = nullptr;       // Owned by the record menu.
    QHash<QString, ScreenLayout> m_layouts;
    QMetaObject::Connection m_frameConnection;
    int m_companyIndex = -1;
};

} // namespace tarvello::gui
