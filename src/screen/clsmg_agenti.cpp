#include "src/screen/clsmg_agenti.h"

#include "platform/db/recordset.h"
#include "platform/db/runtimeerror.h"
#include "platform/frame/gestanagrafica.h"
#include "src/common/errorstyles.h"
#include "src/common/richiesto.h"
#include "src/host/errorlog.h"
#include "src/host/globalcontext.h"
#include "src/host/hostobjects.h"

namespace tarvello::agenti {

namespace {

const QString TitoloModulo = QStringLiteral("Anagrafica agenti");
const QString ColonnaMedia = QStringLiteral("MG17_IDMEDIA_CG99");
// The archive's own settings the module passes when it opens it for an agent.
constexpr int ModoArchivio = 1;
constexpr int OpzioneArchivio = 0;

// The value as the text a window title takes; Null and arrays have none.
QString titleText(const db::Value& value)
{
    if (value.isNull())
        throw db::RuntimeError(db::RuntimeError::InvalidUseOfNull,
                               QStringLiteral("Invalid use of Null"));
    return value.toString();
}

// The module object behind a contract reference, as this class.
CLSMG_AGENTI* asClass(host::Cinterface* module)
{
    if (!module)
        return nullptr;
    if (auto* object = dynamic_cast<CLSMG_AGENTI*>(module))
        return object;
    throw db::RuntimeError(db::RuntimeError::TypeMismatch, QStringLiteral("Type mismatch"));
}

} // namespace

CLSMG_AGENTI::CLSMG_AGENTI(AgentiScreenFactory screens)
    : m_screenFactory(std::move(screens))
{
    // The window position is a 32-bit number here, 0 until the host sets it.
    ModuleContract::setTop(0);
    ModuleContract::setLeft(0);
}

CLSMG_AGENTI::~CLSMG_AGENTI()
{
    // The navigator outlives its modules: the subscription must end with the object.
    setActiveNavigator(nullptr);
}

void CLSMG_AGENTI::setActiveNavigator(host::Navigator* navigator)
{
    if (ActiveNavigator())
        ActiveNavigator()->events().unsubscribe(this);
    ModuleContract::setActiveNavigator(navigator);
    if (navigator)
        navigator->events().subscribe(this);
}

void CLSMG_AGENTI::setWindowState(qint32 value)
{
    ignoreEachStep({[&] { ModuleContract::setWindowState(db::Value(value).toShort()); }});
}

void CLSMG_AGENTI::setProgramMode(qint32 value)
{
    ignoreEachStep({[&] { ModuleContract::setProgramMode(db::Value(value).toShort()); }});
}

void CLSMG_AGENTI::setTop(const db::Value& value)
{
    ignoreEachStep({[&] { ModuleContract::setTop(value.toInt()); }});
}

void CLSMG_AGENTI::setLeft(const db::Value& value)
{
    ignoreEachStep({[&] { ModuleContract::setLeft(value.toInt()); }});
}

db::Value CLSMG_AGENTI::ShowForm()
{
    const auto screen = [this]() -> AgentiScreen& { return richiesto(m_screen, "screen"); };
    ignoreEachStep({
        [&] {
            auto created = m_screenFactory();
            m_screen = &richiesto(created.get(), "FRMMG_AGENTI");
            m_screens.push_back(std::move(created));
        },
        [&] { screen().setActiveInterface(ActiveDll()); },
        [&] { screen().setActiveClass(asClass(ActiveDll())); },
        [&] { screen().setWindowState(WindowState()); },
        [&] { screen().setTitle(titleText(Caption())); },
        [&] { screen().show(WindowModal()); },
    });
    return {};
}

bool CLSMG_AGENTI::attivo() const
{
    return ActiveDll() && ActiveDll()->IsActive();
}

AgentiScreen& CLSMG_AGENTI::schermata() const
{
    return richiesto(m_screen, "screen");
}

void CLSMG_AGENTI::BeforeExportToOffice(host::ExportToOffice& Pcls_ExpToOffice)
{
    if (attivo())
        Pcls_ExpToOffice.setTitoloMaster(TitoloModulo);
}

// Before the first ShowForm there is no screen to ask or to tell.
void CLSMG_AGENTI::BeforeChangeDitta(bool& Cancel)
{
    if (m_screen)
        Cancel = !m_screen->ConfermaCambioDitta();
}

void CLSMG_AGENTI::ChangeDitta(qint32 /*company*/)
{
    if (m_screen)
        m_screen->CambiaDitta(richiesto(ClsGlobal(), "ClsGlobal").company().code);
}

void CLSMG_AGENTI::registraSchermata(const std::function<void(QObject*&)>& registra)
{
    QObject* schermata = m_screen->oggettoSchermata({});
    registra(schermata);
    m_oggettoSchermata = schermata;
}

void CLSMG_AGENTI::InitializeLayoutObjectModel(host::LayoutObjectModel& ClsLayout)
{
    if (!attivo() || !m_screen)
        return;
    registraSchermata(
        [&](QObject*& schermata) { ClsLayout.registerObject(schermata, TitoloModulo); });
    const std::pair<const char*, const char*> griglie[] = {
        {"GRID_AGENTISOCI", "Griglia agenti soci"},
        {"GRID_AGENTIMAT", "Griglia giorni di maturazione"},
    };
    for (const auto& [nome, titolo] : griglie) {
        QObject* griglia = m_screen->oggettoSchermata(QString::fromLatin1(nome));
        ClsLayout.registerObject(griglia, QString::fromUtf8(titolo));
    }
}

void CLSMG_AGENTI::InitializeScriptObjectModel(host::ScriptObjectModel& ClsScript)
{
    if (!attivo() || !m_screen)
        return;
    registraSchermata([&](QObject*& schermata) {
        const QString nome = schermata ? schermata->objectName() : QString();
        ClsScript.registerObject(nome, schermata, 0, TitoloModulo);
    });
    if (!ActiveFrame())
        return;
    // "Name" is the frame's late-bound property for scripts, not its object name, by which
    // the screen finds its frames.
    ActiveFrame()->setProperty("Name", QStringLiteral("DTS_Anagrafica_agenti"));
    const QString nomeGestione = ActiveFrame()->property("Name").toString();
    QObject* registrata = ActiveFrame();
    ClsScript.registerObject(nomeGestione, registrata, 3, nomeGestione);
}

void CLSMG_AGENTI::ButtonPressed(bool& cancel, qint32 ButtonPress)
{
    if (!attivo())
        return;
    const auto sposta = [&](void (AgentiScreen::*mossa)()) {
        ignoreEachStep({
            [&] { (schermata().*mossa)(); },
            [&] { cancel = true; },
        });
    };
    switch (ButtonPress) {
    case 11:
        sposta(&AgentiScreen::PrimoAgente);
        break;
    case 12:
        sposta(&AgentiScreen::PrecedenteRamoAgente);
        break;
    case 13:
        sposta(&AgentiScreen::PreviousAgente);
        break;
    case 15:
        sposta(&AgentiScreen::NextAgente);
        break;
    case 16:
        sposta(&AgentiScreen::ProssimoRamoAgente);
        break;
    case 17:
        sposta(&AgentiScreen::UltimoAgente);
        break;
    case 25:
        CollegaMultimedia();
        break;
    default:
        break;
    }
}

void CLSMG_AGENTI::CollegaMultimedia()
{
    // A frame that is missing, of another kind or without rows gives nothing to link.
    auto* gestione = qobject_cast<frame::GestAnagrafica*>(ActiveFrame());
    if (!gestione || !gestione->recordset())
        return;
    db::Value media;
    ignoreEachStep({
        [&] {
            if (gestione->status() != frame::FrameStatus::New)
                return Flow::Next;
            schermata().MessaggioUtente(
                QStringLiteral("Il collegamento ai dati multimediali è possibile solamente in "
                               "fase di variazione"),
                host::Information, QStringLiteral("Avviso Utente"));
            return Flow::Leave;
        },
        [&] {
            if (gestione->status() == frame::FrameStatus::Browse)
                gestione->save();
        },
        [&] {
            if (m_hyperMedia)
                return;
            m_hyperMedia = richiesto(ClsGlobal(), "ClsGlobal").objects().newHyperMedia();
            richiesto(m_hyperMedia.get(), "CHyperMedia").events().subscribe(this);
        },
        [&] { media = richiesto(gestione->recordset().get(), "Recordset").value(ColonnaMedia); },
        [&] {
            host::GlobalContext& globale = richiesto(ClsGlobal(), "ClsGlobal");
            const host::Environment ambiente = globale.environment();
            const qint32 finestra =
                richiesto(globale.parentWindowModule(), "parentWindowModule").hwndParent();
            richiesto(m_hyperMedia.get(), "CHyperMedia")
                .open(ambiente.user, ambiente.workstation, globale.connectionString(), media,
                      finestra, ModoArchivio, OpzioneArchivio);
        },
    });
}

void CLSMG_AGENTI::AfterMediaCreate(const db::Value& CodiceMedia)
{
    auto* gestione = qobject_cast<frame::GestAnagrafica*>(ActiveFrame());
    db::Recordset* righe = gestione ? gestione->recordset().get() : nullptr;
    if (!righe)
        return;
    ignoreEachStep({
        [&] { righe->setValue(ColonnaMedia, CodiceMedia); },
        [&] { righe->updateCurrent(); },
    });
}

void CLSMG_AGENTI::setCallingData(const db::ValueList& data)
{
    if (!data.isEmpty())
        m_codiceAgente = data.at(0);
    if (data.size() > 1)
        m_idAgente = data.at(1);
    if (data.size() > 2)
        ignoreEachStep({[&] { m_calledById = data.at(2).toBool(); }});
}

db::Value CLSMG_AGENTI::TransferData(const db::Value& Calling_parameters)
{
    ignoreEachStep({[&] {
        m_dataTransfer.raise(&host::DataTransferEvents::DataTransfer, Calling_parameters);
    }});
    return {};
}

} // namespace tarvello::agenti
