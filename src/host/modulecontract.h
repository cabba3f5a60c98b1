#pragma once

#include "src/host/cinterface.h"
#include "src/host/globalcontext.h"

#include <QObject>
#include <QPointer>

namespace tarvello::host {

// The contract members that only store their values, shared by every module: a module says
// what its screen is (ShowForm) and what it hands back (TransferData), and overrides a member
// that does more. It forgets itself in the context that ran it when it goes.
class ModuleContract : public Cinterface {
public:
    ModuleContract() = default;
    ~ModuleContract() override
    {
        // The context may still hold this object as its active or second module.
        if (m_clsGlobal)
            m_clsGlobal->deregisterModule(this);
    }
    ModuleContract(const ModuleContract&) = delete;
    ModuleContract& operator=(const ModuleContract&) = delete;

    void setClsGlobal(GlobalContext* context) override { m_clsGlobal = context; }
    GlobalContext* ClsGlobal() const override { return m_clsGlobal; }
    void setActiveFrame(QObject* frame) override { m_activeFrame = frame; }
    QObject* ActiveFrame() const override { return m_activeFrame; }
    void setActiveNavigator(Navigator* navigator) override { m_navigator = navigator; }
    Navigator* ActiveNavigator() const override { return m_navigator; }
    void setActiveDll(Cinterface* module) override { m_activeDll = module; }
    Cinterface* ActiveDll() const override { return m_activeDll; }
    void setStatusBar(QObject* statusBar) override { m_statusBar = statusBar; }
    QObject* StatusBar() const override { return m_statusBar; }
    void setCanInsert(bool value) override { m_canInsert = value; }
    bool CanInsert() const override { return m_canInsert; }
    void setCanDelete(bool value) override { m_canDelete = value; }
    bool CanDelete() const override { return m_canDelete; }
    void setCanUpdate(bool value) override { m_canUpdate = value; }
    bool CanUpdate() const override { return m_canUpdate; }
    void setCanQbe(bool value) override { m_canQbe = value; }
    bool CanQbe() const override { return m_canQbe; }
    void setWindowState(qint32 value) override { m_windowState = value; }
    qint32 WindowState() const override { return m_windowState; }
    void setWindowModal(bool value) override { m_windowModal = value; }
    bool WindowModal() const override { return m_windowModal; }
    void setProgramMode(qint32 value) override { m_programMode = value; }
    qint32 ProgramMode() const override { return m_programMode; }
    void setMenuModulo(const db::Value& value) override { m_menuModulo = value; }
    db::Value MenuModulo() const override { return m_menuModulo; }
    void setMenuPadre(const db::Value& value) override { m_menuPadre = value; }
    db::Value MenuPadre() const override { return m_menuPadre; }
    void setMenuProg(const db::Value& value) override { m_menuProg = value; }
    db::Value MenuProg() const override { return m_menuProg; }
    void setCaption(const db::Value& value) override { m_caption = value; }
    db::Value Caption() const override { return m_caption; }
    void setHwndParent(qint32 value) override { m_hwndParent = value; }
    qint32 hwndParent() const override { return m_hwndParent; }
    db::Value CloseForm() override { return {}; }
    void setConnection(db::Connection* connection) override { m_connection = connection; }
    db::Connection* Connection() const override { return m_connection; }
    QObject* Cwindow() const override { return nullptr; }
    db::Value Top() const override { return m_top; }
    void setTop(const db::Value& value) override { m_top = value; }
    db::Value Left() const override { return m_left; }
    void setLeft(const db::Value& value) override { m_left = value; }
    void setClsVoceMenu(MenuEntry* entry) override { m_menuEntry = entry; }
    MenuEntry* ClsVoceMenu() const override { return m_menuEntry; }
    void setIsActive(bool value) override { m_isActive = value; }
    bool IsActive() const override { return m_isActive; }
    void setIsCalled(bool value) override { m_isCalled = value; }
    bool IsCalled() const override { return m_isCalled; }
    void setFiltro(const db::Value& value) override { m_filtro = value; }
    db::Value Filtro() const override { return m_filtro; }

private:
    GlobalContext* m_clsGlobal = nullptr; // Not owned.
    QPointer<QObject> m_activeFrame;      // Not owned.
    Navigator* m_navigator = nullptr;     // Not owned.
    Cinterface* m_activeDll = this;       // Not owned.
    QPointer<QObject> m_statusBar;        // Not owned.
    bool m_canInsert = false;
    bool m_canDelete = false;
    bool m_canUpdate = false;
    bool m_canQbe = false;
    qint32 m_windowState = 0;
    bool m_windowModal = false;
    qint32 m_programMode = 0;
    db::Value m_menuModulo;
    db::Value m_menuPadre;
    db::Value m_menuProg;
    db::Value m_caption;
    qint32 m_hwndParent = 0;
    db::Connection* m_connection = nullptr; // Not owned.
    db::Value m_top;
    db::Value m_left;
    MenuEntry* m_menuEntry = nullptr; // Not owned.
    bool m_isActive = false;
    bool m_isCalled = false;
    db::Value m_filtro;
};

} // namespace tarvello::host
