#include "src/screen/controlliagenti.h"

#include "platform/controls/button.h"
#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/grid.h"
#include "platform/controls/gridnavigator.h"
#include "platform/controls/navigator.h"
#include "src/screen/controlli.h"

namespace tarvello::agenti {

ControlliAgenti controlliAgenti(const controls::Form& schermata)
{
    using namespace controls;
    return {
        .soci =
            {
                .TXT_NUMSOCI = controlloDi<Field>(schermata, u"TXT_NUMSOCI"),
                .LBL_MANCANUMSOCI = controlloDi<Control>(schermata, u"LBL_MANCANUMSOCI"),
                .TXT_CODSOCIO = controlloDi<Field>(schermata, u"TXT_CODSOCIO"),
                .TXT_CODFISOCIO = controlloDi<Field>(schermata, u"TXT_CODFISOCIO"),
                .TXT_DATACESS = controlloDi<Field>(schermata, u"TXT_DATACESS"),
                .GRIDNAV_AGENTISOCI = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTISOCI"),
            },
        .maturazione =
            {
                .CBO_TIPOEFF = controlloDi<ComboBox>(schermata, u"CBO_TIPOEFF"),
                .TXT_GGMAT = controlloDi<Field>(schermata, u"TXT_GGMAT"),
                .GRIDNAV_AGENTIMAT = controlloDi<GridNavigator>(schermata, u"GRIDNAV_AGENTIMAT"),
            },
        .ordineGiro =
            {
                .CMD_UP = controlloDi<Button>(schermata, u"CMD_UP"),
                .CMD_DOWN = controlloDi<Button>(schermata, u"CMD_DOWN"),
                .GRD_DETTAGLIOGIRI = controlloDi<Grid>(schermata, u"GRD_DETTAGLIOGIRI"),
                .INTERNAV = controlloDi<Navigator>(schermata, u"INTERNAV"),
            },
        .tentataVendita =
            {
                .CHK_TVINDXH = controlloDi<CheckBox>(schermata, u"CHK_TVINDXH"),
                .TXT_TVDEP = controlloDi<Field>(schermata, u"TXT_TVDEP"),
                .TXT_DESCDEP = controlloDi<DataControl>(schermata, u"TXT_DESCDEP"),
                .TXT_TVSEZ = controlloDi<Field>(schermata, u"TXT_TVSEZ"),
                .TXT_DESCSEZ = controlloDi<DataControl>(schermata, u"TXT_DESCSEZ"),
                .INTERNAV = controlloDi<Navigator>(schermata, u"INTERNAV"),
            },
    };
}

} // namespace tarvello::agenti
