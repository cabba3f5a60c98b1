#include "src/detail/maturazione.h"

#include "platform/controls/combobox.h"
#include "platform/controls/eventargs.h"
#include "platform/controls/field.h"
#include "platform/controls/gridnavigator.h"
#include "platform/frame/gestanagrafica.h"
#include "src/detail/scorciatoie.h"

namespace tarvello::agenti {

void Maturazione::collega()
{
    QObject::connect(&m_controlli.CBO_TIPOEFF, &controls::ComboBox::validate, &m_contesto,
                     [this](controls::CancelArgs&) { controllaChiaveNuovaRiga(*m_gestione); });
    QObject::connect(&m_controlli.TXT_GGMAT, &controls::Field::keyDown, &m_contesto,
                     [this](controls::KeyArgs& args) {
                         scorciatoiaRiga(*m_gestione, m_controlli.GRIDNAV_AGENTIMAT, args);
                     });
}

} // namespace tarvello::agenti
