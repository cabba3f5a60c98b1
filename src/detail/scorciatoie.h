#pragma once

#include <QString>

namespace tarvello::controls {
struct KeyArgs;
class Navigator;
} // namespace tarvello::controls

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::agenti {

// Tab or Enter with no Shift, Ctrl or Alt held: the keys that leave the last field of a page.
bool tastoDiUscita(const controls::KeyArgs& args);

// Swallows the key, lets the pending user-interface events run (so the field has taken the
// value just typed) and presses a navigator's button.
void premiDopoEventi(controls::KeyArgs& args, controls::Navigator& navigatore,
                     const QString& pulsante);

// The exit key on the last field of a detail row: an existing row is confirmed, a new one is
// followed by another new row; in search entry the key acts as usual.
void scorciatoiaRiga(const frame::GestAnagrafica& gestione, controls::Navigator& navigatore,
                     controls::KeyArgs& args);

// The key just typed into a new row: a key another row of the detail already has brings that
// row up instead.
void controllaChiaveNuovaRiga(frame::GestAnagrafica& gestione);

} // namespace tarvello::agenti
