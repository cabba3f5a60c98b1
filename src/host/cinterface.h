#pragma once

#include "platform/db/value.h"

#include <QtGlobal>

class QObject;

namespace tarvello::db {
class Connection;
}

namespace tarvello::host {

class GlobalContext;
class MenuEntry;
class Navigator;

// The contract every module of the host implements. The host creates a module, fills these
// properties, calls ShowForm and releases the module after its screen has closed; a module
// starting another module drives it through the same contract (IsCalled, IsActive).
//
// Members are listed in the contract's slot order. Object references are never owned by the
// module that holds them.
class Cinterface {
public:
    virtual ~Cinterface() = default;

    virtual void setClsGlobal(GlobalContext* context) = 0;
    virtual GlobalContext* ClsGlobal() const = 0;
    virtual void setActiveFrame(QObject* frame) = 0;
    virtual QObject* ActiveFrame() const = 0;
    virtual void setActiveNavigator(Navigator* navigator) = 0;
    virtual Navigator* ActiveNavigator() const = 0;
    virtual void setActiveDll(Cinterface* module) = 0;
    virtual Cinterface* ActiveDll() const = 0;
    virtual void setStatusBar(QObject* statusBar) = 0;
    virtual QObject* StatusBar() const = 0;
    virtual void setCanInsert(bool value) = 0;
    virtual bool CanInsert() const = 0;
    virtual void setCanDelete(bool value) = 0;
    virtual bool CanDelete() const = 0;
    virtual void setCanUpdate(bool value) = 0;
    virtual bool CanUpdate() const = 0;
    virtual void setCanQbe(bool value) = 0;
    virtual bool CanQbe() const = 0;
    virtual void setWindowState(qint32 value) = 0;
    virtual qint32 WindowState() const = 0;
    virtual void setWindowModal(bool value) = 0;
    virtual bool WindowModal() const = 0;
    virtual void setProgramMode(qint32 value) = 0;
    virtual qint32 ProgramMode() const = 0;
    virtual void setMenuModulo(const db::Value& value) = 0;
    virtual db::Value MenuModulo() const = 0;
    virtual void setMenuPadre(const db::Value& value) = 0;
    virtual db::Value MenuPadre() const = 0;
    virtual void setMenuProg(const db::Value& value) = 0;
    virtual db::Value MenuProg() const = 0;
    virtual void setCaption(const db::Value& value) = 0;
    virtual db::Value Caption() const = 0;
    virtual void setHwndParent(qint32 value) = 0;
    virtual qint32 hwndParent() const = 0;
    // Shows the module's screen; with WindowModal it returns once the screen has closed.
    virtual db::Value ShowForm() = 0;
    virtual db::Value CloseForm() = 0;
    virtual void setConnection(db::Connection* connection) = 0;
    virtual db::Connection* Connection() const = 0;
    virtual QObject* Cwindow() const = 0;
    // Hands data back to the program that opened the module.
    virtual db::Value TransferData(const db::Value& Calling_parameters) = 0;
    virtual db::Value Top() const = 0;
    virtual void setTop(const db::Value& value) = 0;
    virtual db::Value Left() const = 0;
    virtual void setLeft(const db::Value& value) = 0;
    virtual void setClsVoceMenu(MenuEntry* entry) = 0;
    virtual MenuEntry* ClsVoceMenu() const = 0;
    virtual void setIsActive(bool value) = 0;
    virtual bool IsActive() const = 0;
    virtual void setIsCalled(bool value) = 0;
    virtual bool IsCalled() const = 0;
    virtual void setFiltro(const db::Value& value) = 0;
    virtual db::Value Filtro() const = 0;
};

} // namespace tarvello::host
