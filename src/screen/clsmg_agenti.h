#pragma once

#include "src/host/agentiscreen.h"
#include "src/host/calledmodule.h"
#include "src/host/cinterface.h"
#include "src/host/eventsource.h"
#include "src/host/hypermedia.h"
#include "src/host/modulecontract.h"
#include "src/host/navigator.h"

#include <QPointer>
#include <functional>
#include <memory>
#include <vector>

namespace tarvello::agenti {

// The module object of "Anagrafica agenti": the host creates one per window, fills the
// contract and calls ShowForm, which opens the agents screen. A program that opens the
// module to pick an agent sets IsCalled with CodiceAgente (or IDAGENTE and CalledById), which
// a host without this class at hand hands over as the calling data, and gets the chosen agent
// back through DataTransfer.
//
// Apart from ShowForm and TransferData every member only stores and returns its value. No
// member lets a run-time error out: a value that cannot be stored leaves the old one, a
// step of ShowForm that fails is skipped.
//
// The object hears the host navigator's events (every open module does, so each handler
// first asks whether this module is the active one) and those of the multimedia archive it
// opens for the agent on view.
class CLSMG_AGENTI final : public host::ModuleContract,
                           public host::CalledModule,
                           public host::NavigatorEvents,
                           public host::HyperMediaEvents {
public:
    explicit CLSMG_AGENTI(AgentiScreenFactory screens);
    ~CLSMG_AGENTI() override;
    CLSMG_AGENTI(const CLSMG_AGENTI&) = delete;
    CLSMG_AGENTI& operator=(const CLSMG_AGENTI&) = delete;

    void setActiveNavigator(host::Navigator* navigator) override;
    // Kept as a 16-bit value: a value out of its range leaves the old one.
    void setWindowState(qint32 value) override;
    // Kept as a 16-bit value: a value out of its range leaves the old one.
    void setProgramMode(qint32 value) override;
    // Top and Left take any value that converts to a 32-bit integer ("120" included).
    void setTop(const db::Value& value) override;
    void setLeft(const db::Value& value) override;
    db::Value ShowForm() override;
    db::Value TransferData(const db::Value& Calling_parameters) override;

    void setCodiceAgente(const db::Value& value) { m_codiceAgente = value; }
    db::Value CodiceAgente() const { return m_codiceAgente; }
    void setIDAGENTE(const db::Value& value) { m_idAgente = value; }
    db::Value IDAGENTE() const { return m_idAgente; }
    void setCalledById(bool value) { m_calledById = value; }
    bool CalledById() const { return m_calledById; }

    host::Cinterface& contract() override { return *this; }
    // The calling data are CodiceAgente, IDAGENTE and CalledById, in this order; a member the
    // data do not reach keeps its value.
    void setCallingData(const db::ValueList& data) override;
    // The event DataTransfer(Data), raised by TransferData for the program that opened the
    // module.
    host::EventSource<host::DataTransferEvents>& dataTransfer() override { return m_dataTransfer; }

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
    db::Value m_codiceAgente;
    db::Value m_idAgente;
    bool m_calledById = false;
    host::EventSource<host::DataTransferEvents> m_dataTransfer;
    std::unique_ptr<host::HyperMedia> m_hyperMedia; // Owned.
    // The screen as the layout and script models know it; they may hand back another.
    QPointer<QObject> m_oggettoSchermata; // Not owned.
};

} // namespace tarvello::agenti
