#include "src/screen/pagineagenti.h"

#include "platform/controls/tabstrip.h"

namespace tarvello::agenti {

void PagineAgenti::SelezionaTab(short pagina)
{
    m_cambioTabDaCodice = true;
    m_schede.selectPage(pagina);
    m_cambioTabDaCodice = false;
}

} // namespace tarvello::agenti
