#include "src/screen/frmmg_messaggio.h"

#include "platform/controls/button.h"
#include "platform/controls/label.h"
#include "src/screen/controlli.h"
#include "src/screen/layoutagenti.h"

namespace tarvello::agenti {

FRMMG_MESSAGGIO::FRMMG_MESSAGGIO(QObject* parent)
    : controls::Form(QStringLiteral("FRMMG_MESSAGGIO"), parent)
{
    creaControlliDomanda(*this);
    setBounds(QRect(0, 0, Larghezza, Altezza));
    const auto pulsante = [this](QStringView nome, bool risposta, bool ricorda) {
        connect(&controlloDi<controls::Button>(*this, nome), &controls::Button::clicked, this,
                [this, risposta, ricorda] { rispondi(risposta, ricorda); });
    };
    pulsante(u"CMD_SI", true, false);
    pulsante(u"CMD_NO", false, false);
    pulsante(u"CMD_SEMPRE", true, true);
    pulsante(u"CMD_MAI", false, true);
}

void FRMMG_MESSAGGIO::setMessaggio(const QString& testo)
{
    auto& messaggio = controlloDi<controls::Label>(*this, u"LBL_MESSAGGIO");
    messaggio.setCaption(testo);
    messaggio.setAutoSize(true);
}

void FRMMG_MESSAGGIO::rispondi(bool risposta, bool ricorda)
{
    if (m_chiamante) {
        m_chiamante->setGIsInserisciClienteNelGiro(risposta);
        m_chiamante->setGIsNonRichiederePiu(ricorda);
    }
    unload();
}

} // namespace tarvello::agenti
