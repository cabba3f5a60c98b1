#pragma once

#include <QPointer>
#include <array>

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::agenti {

namespace gestioni {
// The screen's record frames by number: the agents, then its four details.
enum Numero { Agenti = 1, Soci, Maturazione, TentataVendita, DettaglioGiri };
} // namespace gestioni

// The screen's places of its five record frames, in the order of their numbers: each empty
// until the load makes the frame and again once the unload lets it go.
using PostiGestioni = std::array<QPointer<frame::GestAnagrafica>, 5>;

} // namespace tarvello::agenti
