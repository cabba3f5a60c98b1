#pragma once

#include <QString>
#include <QtGlobal>

namespace tarvello::controls {
struct DecodeArgs;
struct LookupArgs;
} // namespace tarvello::controls

namespace tarvello::frame {
struct CancelArgs;
}

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The customer rows of the route on view: their customer and destination fields, the
// numbering kept when a row is deleted, the route detail's navigator, and the deletion of
// the route's whole detail.
class RigheGiro {
public:
    explicit RigheGiro(FRMMG_AGENTI& schermata);
    RigheGiro(const RigheGiro&) = delete;
    RigheGiro& operator=(const RigheGiro&) = delete;

    void collega();

    qint16 ProgressivoEliminato() const { return m_progressivoEliminato; }

    void FME_GestAnagrafica5_BeforeDelete(frame::CancelArgs& args);
    void FME_GestAnagrafica5_AfterDelete(int fenm_operationresult);
    void GRIDNAV_GIRI_AfterButtonClick(bool success, const QString& pulsante);
    void CMD_AZZERRAGIRO_ButtonClick();

private:
    void TXT_CLIENTE_GotFocus();
    void TXT_CLIENTE_LostFocus();
    void TXT_CLIENTE_Decode(controls::DecodeArgs& args);
    void TXT_CLIENTE_Lookup(controls::LookupArgs& args);
    void TXT_MG1I_CODDEST_MG22_Decode(controls::DecodeArgs& args);
    void TXT_MG1I_CODDEST_MG22_Lookup(controls::LookupArgs& args);
    void collegaGriglia(bool collegata);

    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
    qint16 m_progressivoEliminato = 0;
    QString m_clienteAllIngresso;
};

} // namespace tarvello::agenti
