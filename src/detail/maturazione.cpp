#include "src/detail/maturazione.h"

#include "platform/controls/combobox.h"
#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/gridnavigator.h"
#include "platform/frame/gestanagrafica.h"
#include "src/detail/scorciatoie.h"
#include "src/screen/frmmg_agenti.h"

namespace tarvello::agenti {

void Maturazione::collega()
{
    QObject* contesto = &m_schermata;
    QObject::connect(&m_schermata.controllo<controls::ComboBox>(u"CBO_TIPOEFF"),
                     &controls::ComboBox::validate, contesto, [this](controls::CancelArgs&) {
                         controllaChiaveNuovaRiga(
                             *m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::Maturazione));
                     });
    QObject::connect(&m_schermata.controllo<controls::Field>(u"TXT_GGMAT"),
                     &controls::Field::keyDown, contesto, [this](controls::KeyArgs& args) {
                         scorciatoiaRiga(
                             *m_schermata.FME_GestAnagrafica(FRMMG_AGENTI::Maturazione),
                             m_schermata.controllo<controls::GridNavigator>(u"GRIDNAV_AGENTIMAT"),
                             args);
                     });
}

} // namespace tarvello::agenti
