#pragma once

#include "src/host/agentiscreen.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"
#include "src/host/eventsource.h"
#include "src/host/hypermedia.h"
#include "src/host/navigator.h"

#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

namespace tarvello::agenti {

// The module object of "Anagrafica agenti": the host creates one per window, fills the
// contract and calls ShowForm, which opens the agents screen. A program that opens the
// module to pick an agent sets IsCalled with CodiceAgente (or IDAGENTE and CalledById) and
// gets the chosen agent back through DataTransfer.
//
// Apart from ShowForm and TransferData every member only stores and returns its value. No
// member lets a run-time error out: a value that cannot be stored leaves the old one, a
// step of ShowForm that fails is skipped.
//
// The object hears the host navigator's events (every open module does, so each handler
// first asks whether this module is the active one) and those of the multimedia archive it
// opens for the agent on view.
class CLSMG_AGENTI final : public host::Cinterface,
                           public host::NavigatorEvents,
                           public host::HyperMediaEvents {
public:
    explicit CLSMG_AGENTI(AgentiScreenFactory screens);
    ~CLSMG_AGENTI() override;
    CLSMG_AGENTI(const CLSMG_AGENTI&) = delete;
    CLSMG_AGENTI& operator=(const CLSMG_AGENTI&) = delete;

    void setClsGlobal(host::GlobalContext* context) override { m_clsGlobal = context; }
    host::GlobalContext* ClsGlobal() const override { return m_clsGlobal; }
    void setActiveFrame(QObject* frame) override { m_activeFrame = frame; }
    QObject* ActiveFrame() const override { return m_activeFrame; }
    void setActiveNavigator(host::Navigator* navigator) override;
    host::Navigator* ActiveNavigator() const override { return m_activeNavigator; }
    void setActiveDll(host::Cinterface* module) override { m_activeDll = module; }
    host::Cinterface* ActiveDll() const override { return m_activeDll; }
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
    // Kept as a 16-bit value: a value out of its range leaves the old one.
    void setWindowState(qint32 value) override;
    qint32 WindowState() const override { return m_windowState; }
    void setWindowModal(bool value) override { m_windowModal = value; }
    bool WindowModal() const override { return m_windowModal; }
    // Kept as a 16-bit value: a value out of its range leaves the old one.
    void setProgramMode(qint32 value) override;
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
    db::Value ShowForm() override;
    // The screen is closed by the user or by the host closing its window, never from here.
    db::Value CloseForm() override { return {}; }
    void setConnection(db::Connection* connection) override { m_connection = connection; }
    db::Connection* Connection() const override { return m_connection; }
    // The module has no window object of the host framework.
    QObject* Cwindow() const override { return nullptr; }
    db::Value TransferData(const db::Value& Calling_parameters) override;
    // Top and Left take any value that converts to a 32-bit integer ("120" included).
    db::Value Top() const override { return m_top; }
    void setTop(const db::Value& value) override;
    db::Value Left() const override { return m_left; }
    void setLeft(const db::Value& value) override;
    void setClsVoceMenu(host::MenuEntry* entry) override { m_clsVoceMenu = entry; }
    host::MenuEntry* ClsVoceMenu() const override { return m_clsVoceMenu; }
    void setIsActive(bool value) override { m_isActive = value; }
    bool IsActive() const override { return m_isActive; }
    void setIsCalled(bool value) override { m_isCalled = value; }
    bool IsCalled() const override { return m_isCalled; }
    void setFiltro(const db::Value& value) override { m_filtro = value; }
    db::Value Filtro() const override { return m_filtro; }

    void setCodiceAgente(const db::Value& value) { m_codiceAgente = value; }
    db::Value CodiceAgente() const { return m_codiceAgente; }
    void setIDAGENTE(const db::Value& value) { m_idAgente = value; }
    db::Value IDAGENTE() const { return m_idAgente; }
    void setCalledById(bool value) { m_calledById = value; }
    bool CalledById() const { return m_calledById; }

    // The event DataTransfer(Data), raised by TransferData for the program that opened the
    // module.
    host::EventSource<host::DataTransferEvents>& dataTransfer() { return m_dataTransfer; }

    // The screen the last ShowForm created; none before the first.
    AgentiScreen* screen() const { return m_screen; }

    // The host navigator's events.
    void BeforeExportToOffice(host::ExportToOffice& Pcls_ExpToOffice) override;
    void BeforeChangeDitta(bool& Cancel) override;
    void ChangeDitta(qint32 company) override;
    void InitializeLayoutObjectModel(host::LayoutObjectModel& ClsLayout) override;
    void InitializeScriptObjectModel(host::ScriptObjectModel& ClsScript) override;
    // The record moves of the toolbar walk the agents tree; 25 links the agent on view to
    // the multimedia archive. The cancel flag tells the toolbar the move was done here.
    void ButtonPressed(bool& cancel, qint32 ButtonPress) override;

    // The multimedia archive created a media record for the agent on view.
    void AfterMediaCreate(const db::Value& CodiceMedia) override;
    // The archive, from the first multimedia request on; none before.
    host::HyperMedia* CHyperMedia() const { return m_hyperMedia.get(); }

private:
    // IsActive as the host sees it, through ActiveDll: false once the screen has let go.
    bool attivo() const;
    AgentiScreen& schermata() const;
    // Registers the screen with a layout or script model, keeping the object the model hands
    // back in its place.
    void registraSchermata(const std::function<void(QObject*&)>& registra);
    void CollegaMultimedia();
    AgentiScreenFactory m_screenFactory;
    // Every screen this object has opened; a second ShowForm leaves the first screen open.
    std::vector<std::unique_ptr<AgentiScreen>> m_screens; // Owned.
    AgentiScreen* m_screen = nullptr;                     // Not owned: one of m_screens.
    host::MenuEntry* m_clsVoceMenu = nullptr;             // Not owned.
    qint32 m_top = 0;
    bool m_isActive = false;
    qint32 m_left = 0;
    db::Connection* m_connection = nullptr; // Not owned.
    bool m_canInsert = false;
    bool m_canDelete = false;
    bool m_canUpdate = false;
    bool m_canQbe = false;
    short m_windowState = 0;
    bool m_windowModal = false;
    short m_programMode = 0;
    db::Value m_menuModulo;
    db::Value m_menuPadre;
    db::Value m_menuProg;
    db::Value m_caption;
    qint32 m_hwndParent = 0;
    host::GlobalContext* m_clsGlobal = nullptr; // Not owned.
    host::Cinterface* m_activeDll = nullptr;    // Not owned: this object until the screen goes.
    QPointer<QObject> m_statusBar;              // Not owned.
    QPointer<QObject> m_activeFrame;            // Not owned.
    bool m_isCalled = false;
    db::Value m_filtro;
    db::Value m_codiceAgente;
    db::Value m_idAgente;
    bool m_calledById = false;
    host::Navigator* m_activeNavigator = nullptr; // Not owned.
    host::EventSource<host::DataTransferEvents> m_dataTransfer;
    std::unique_ptr<host::HyperMedia> m_hyperMedia; // Owned.
    // The screen as the layout and script models know it; they may hand back another.
    QPointer<QObject> m_oggettoSchermata; // Not owned.
};

} // namespace tarvello::agenti
