#include "src/detail/scorciatoie.h"

#include "platform/controls/eventargs.h"
#include "platform/controls/keycodes.h"
#include "platform/controls/navigator.h"
#include "platform/frame/gestanagrafica.h"

#include <QCoreApplication>

namespace tarvello::agenti {

bool tastoDiUscita(const controls::KeyArgs& args)
{
    return (args.keyCode == controls::Key::Tab || args.keyCode == controls::Key::Enter) &&
           args.shift == 0;
}

void premiDopoEventi(controls::KeyArgs& args, controls::Navigator& navigatore,
                     const QString& pulsante)
{
    args.keyCode = controls::Key::None;
    QCoreApplication::processEvents();
    navigatore.pressFromCode(pulsante);
}

void scorciatoiaRiga(const frame::GestAnagrafica& gestione, controls::Navigator& navigatore,
                     controls::KeyArgs& args)
{
    if (!tastoDiUscita(args))
        return;
    if (gestione.status() == frame::FrameStatus::Browse)
        premiDopoEventi(args, navigatore, controls::NavigatorKey::Confirm);
    else if (gestione.status() == frame::FrameStatus::New)
        premiDopoEventi(args, navigatore, controls::NavigatorKey::New);
}

void controllaChiaveNuovaRiga(frame::GestAnagrafica& gestione)
{
    if (gestione.status() == frame::FrameStatus::New)
        gestione.search(true, true);
}

} // namespace tarvello::agenti
