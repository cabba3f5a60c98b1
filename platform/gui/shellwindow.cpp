#include "platform/gui/shellwindow.h"

#include "platform/controls/control.h"
#include "platform/controls/form.h"
#include "platform/controls/navigatorbar.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "platform/gui/formbinder.h"
#include "platform/gui/formview.h"
#include "platform/gui/gridexport.h"
#include "platform/gui/hosttoolbar.h"
#include "platform/gui/navigatoricons.h"
#include "platform/gui/recordcaption.h"
#include "platform/gui/screenwindow.h"
#include "platform/gui/shellhost.h"
#include "platform/gui/wheelguard.h"
#include "platform/gui/windowmemory.h"
#include "platform/services/moduleerrorreport.h"
#include "platform/services/userprompts.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QMdiArea>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>

namespace tarvello::gui {

ShellWindow::ShellWindow(ShellHost& host, controls::LookupPresenter* lookups, QWidget* parent)
    : QMainWindow(parent)
    , m_host(host)
    , m_lookups(lookups)
    , m_screens(new QMdiArea(this))
{
    setObjectName(QStringLiteral("shell"));
    setWindowTitle(tr("Tarvello"));
    m_screens->setViewMode(QMdiArea::SubWindowView);
    m_screens->setBackground(QColor(0x6b, 0x7b, 0x8c));
    setCentralWidget(m_screens);
    buildMenus();
    buildToolbar();
    m_statusText = new QLabel(this);
    statusBar()->addPermanentWidget(m_statusText);
    connect(m_screens, &QMdiArea::subWindowActivated, this, &ShellWindow::screenActivated);
    fillCompanies();
    showStatus();
    showFrameState();
    resize(1280, 800);
    restoreGeometry(WindowMemory(objectName()).windowGeometry());
}

ShellWindow::~ShellWindow()
{
    // The screens let their modules go while the host is still there: those open, and those
    // closed but not yet deleted.
    disconnect(m_frameConnection);
    for (ScreenWindow* window : m_screens->findChildren<ScreenWindow*>())
        delete window;
}

void ShellWindow::closeEvent(QCloseEvent* event)
{
    WindowMemory(objectName()).setWindowGeometry(saveGeometry());
    m_screens->closeAllSubWindows();
    const QList<QMdiSubWindow*> left = m_screens->subWindowList();
    if (std::any_of(left.begin(), left.end(), [](const QWidget* w) { return w->isVisible(); }))
        event->ignore();
    else
        event->accept();
}

void ShellWindow::buildMenus()
{
    QMenu* file = menuBar()->addMenu(tr("&File"));
    file->addAction(tr("&Esci"), QKeySequence::Quit, this, &QWidget::close);
    m_modulesMenu = menuBar()->addMenu(tr("&Gestioni"));
    m_recordMenu = menuBar()->addMenu(tr("&Agente"));
    QMenu* windows = menuBar()->addMenu(tr("F&inestre"));
    windows->addAction(tr("Affianca"), m_screens, &QMdiArea::tileSubWindows);
    windows->addAction(tr("Sovrapponi"), m_screens, &QMdiArea::cascadeSubWindows);
    windows->addAction(tr("Chiudi la finestra"), m_screens, &QMdiArea::closeActiveSubWindow);
}

void ShellWindow::buildToolbar()
{
    QToolBar* bar = addToolBar(tr("Navigatore"));
    bar->setObjectName(QStringLiteral("navigator"));
    bar->setMovable(false);
    bar->setIconSize(QSize(20, 20));
    m_toolbar = std::make_unique<HostToolbar>(*bar, m_host.navigator(), m_host.prompts(),
                                              HostToolbar::allButtons());
    // The record menu lists the toolbar's actions, with their shortcuts.
    for (const qint32 button : HostToolbar::allButtons()) {
        if (QAction* action = m_toolbar->action(button))
            m_recordMenu->addAction(action);
        else
            m_recordMenu->addSeparator();
    }
    m_export = bar->addAction(navigatorIcon(QStringLiteral("Esporta"), *style()), tr("Esporta"));
    m_export->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_E));
    m_export->setToolTip(
        tr("Esporta la griglia (%1)").arg(m_export->shortcut().toString(QKeySequence::NativeText)));
    connect(m_export, &QAction::triggered, this, &ShellWindow::exportActiveGrid);
    m_recordMenu->addAction(m_export);
    m_recordMenu->addSeparator();
    m_printRecord = m_recordMenu->addAction(tr("Stampa agente..."), QKeySequence::Print, this,
                                            &ShellWindow::printRecord);

    bar->addSeparator();
    bar->addWidget(new QLabel(tr(" Ditta: "), bar));
    m_companies = new QComboBox(bar);
    m_companies->setObjectName(QStringLiteral("companies"));
    m_companies->setMinimumContentsLength(24);
    // The list never holds the keyboard: what the person types next goes to the screen,
    // and the company changes only by a choice made in the open list.
    m_companies->setFocusPolicy(Qt::NoFocus);
    WheelGuard::protect(*m_companies);
    bar->addWidget(m_companies);
    connect(m_companies, &QComboBox::activated, this, &ShellWindow::switchCompany);
}

void ShellWindow::addModule(const ModuleEntry& entry)
{
    m_modulesMenu->addAction(entry.caption, this, [this, entry] { openModule(entry); });
}

void ShellWindow::addScreenLayout(const QString& formName, ScreenLayout layout)
{
    m_layouts.insert(formName, std::move(layout));
}

ScreenWindow* ShellWindow::openModule(const ModuleEntry& entry)
{
    host::CalledModule* module = nullptr;
    try {
        module = &m_host.openModule(entry.identifier, entry.caption, statusBar());
        if (entry.windowless) {
            m_host.releaseModule(*module);
            return nullptr;
        }
        controls::Form* form = ScreenWindow::formOf(*module);
        if (!form || !form->isLoaded())
            throw BindingError(
                tr("Il modulo %1 non ha aperto la sua maschera").arg(entry.identifier));
        const ScreenLayout layout = m_layouts.value(form->name());
        if (!layout)
            throw BindingError(tr("La maschera %1 non ha un disegno").arg(form->name()));
        std::unique_ptr<QWidget> content = layout();
        const QSize designed = content->size();
        auto* window =
            new ScreenWindow(*module, *form, content.get(), m_lookups,
                             std::make_unique<services::ModuleErrorReport>(
                                 m_host.prompts(), module->contract(), entry.identifier));
        content.release();
        connect(&window->caption(), &RecordCaption::statusMessage, statusBar(),
                [this](const QString& text) { statusBar()->showMessage(text); });
        connect(window, &QObject::destroyed, this, [this, module] {
            m_host.releaseModule(*module);
            showFrameState();
        });
        m_screens->addSubWindow(window);
        window->show();
        window->place(designed);
        m_screens->setActiveSubWindow(window);
        return window;
    } catch (const db::RuntimeError& error) {
        complain(entry.caption, error.description());
    } catch (const BindingError& error) {
        complain(entry.caption, error.message());
    }
    if (module)
        m_host.releaseModule(*module);
    return nullptr;
}

QAction* ShellWindow::toolbarAction(qint32 button) const
{
    return m_toolbar->action(button);
}

ScreenWindow* ShellWindow::activeScreen() const
{
    return qobject_cast<ScreenWindow*>(m_screens->activeSubWindow());
}

QObject* ShellWindow::activeFrame() const
{
    const ScreenWindow* screen = activeScreen();
    return screen ? screen->module().contract().ActiveFrame() : nullptr;
}

void ShellWindow::screenActivated(QMdiSubWindow* window)
{
    // Every module hears whether it is now the one the navigator works for.
    for (QMdiSubWindow* each : m_screens->subWindowList()) {
        auto* screen = qobject_cast<ScreenWindow*>(each);
        if (!screen || each == window)
            continue;
        screen->module().contract().setIsActive(false);
        if (controls::Form* form = screen->form())
            form->deactivate();
    }
    auto* screen = qobject_cast<ScreenWindow*>(window);
    m_host.context().setActiveModule(screen ? &screen->module().contract() : nullptr);
    if (screen) {
        screen->module().contract().setIsActive(true);
        if (controls::Form* form = screen->form())
            form->activate();
        screen->formView()->showFocus();
    }
    disconnect(m_frameConnection);
    if (auto* frame = qobject_cast<frame::GestAnagrafica*>(activeFrame()))
        m_frameConnection = connect(frame, &frame::GestAnagrafica::stateChanged, this,
                                    &ShellWindow::showFrameState);
    showFrameState();
}

void ShellWindow::showFrameState()
{
    m_toolbar->showFrameState(activeScreen() != nullptr);
    m_export->setEnabled(activeScreen() != nullptr);
    const auto* record = qobject_cast<const frame::GestAnagrafica*>(activeFrame());
    m_printRecord->setEnabled(record && record->status() == frame::FrameStatus::Browse);
}

void ShellWindow::pressButton(qint32 button)
{
    if (!activeScreen())
        return;
    m_toolbar->press(button);
    showFrameState();
}

void ShellWindow::fillCompanies()
{
    const qint32 current = m_host.context().company().code;
    m_companies->clear();
    for (const host::Company& company : m_host.companies()) {
        m_companies->addItem(QStringLiteral("%1 - %2").arg(company.code).arg(company.name),
                             company.code);
    }
    m_companyIndex = m_companies->findData(current);
    m_companies->setCurrentIndex(m_companyIndex);
}

void ShellWindow::switchCompany(int index)
{
    if (index == m_companyIndex)
        return;
    const host::Company company = m_host.company(m_companies->itemData(index).toInt());
    bool changed = false;
    try {
        changed = m_host.navigator().changeCompany(company);
    } catch (const db::RuntimeError& error) {
        complain(tr("Cambio ditta"), error.description());
    }
    if (!changed) {
        m_companies->setCurrentIndex(m_companyIndex);
        statusBar()->showMessage(tr("Cambio ditta non eseguito"), 5000);
        return;
    }
    m_companyIndex = index;
    showStatus();
    showFrameState();
    if (const ScreenWindow* screen = activeScreen())
        screen->formView()->showFocus();
}

void ShellWindow::printRecord()
{
    const ScreenWindow* screen = activeScreen();
    const controls::Form* form = screen ? screen->form() : nullptr;
    if (!form)
        return;
    // The screen's own printout, as its navigator's "Stampa" starts it.
    try {
        for (controls::Control* control : form->controls()) {
            if (auto* bar = qobject_cast<controls::NavigatorBar*>(control))
                bar->command(controls::NavigatorKey::Print);
        }
    } catch (const db::RuntimeError& error) {
        complain(tr("Stampa agente"), error.description());
    }
    showFrameState();
}

void ShellWindow::exportActiveGrid()
{
    const ScreenWindow* screen = activeScreen();
    const QAbstractItemView* grid = screen ? screen->gridOnView() : nullptr;
    if (!grid || !grid->model()) {
        complain(tr("Esporta"), tr("La finestra attiva non ha una griglia da esportare."));
        return;
    }
    QString title = m_host.navigator().exportToOffice();
    if (title.isEmpty())
        title = screen->form() ? screen->form()->caption() : screen->windowTitle();
    const QString path = QFileDialog::getSaveFileName(
        this, tr("Esporta"), title + QStringLiteral(".csv"), tr("Testo separato (*.csv)"));
    if (path.isEmpty())
        return;
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text) ||
        file.write(exportedRows(*grid->model(), title).toUtf8()) < 0) {
        complain(tr("Esporta"), file.errorString());
        return;
    }
    statusBar()->showMessage(tr("Esportata la griglia in %1").arg(path));
}

void ShellWindow::showStatus()
{
    const host::Company company = m_host.context().company();
    m_statusText->setText(tr("Ditta %1 %2  |  %3")
                              .arg(company.code)
                              .arg(company.name, m_host.database().driverName()));
}

void ShellWindow::complain(const QString& title, const QString& text)
{
    m_host.prompts().messageBox(text, 16, title);
}

} // namespace tarvello::gui
