#pragma once

#include "src/screen/controlliagenti.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QtGlobal>
#include <array>

namespace tarvello::controls {
struct DecodeArgs;
struct LookupArgs;
} // namespace tarvello::controls

namespace tarvello::frame {
class GestAnagrafica;
struct CancelArgs;
} // namespace tarvello::frame

namespace tarvello::agenti {

class AmbienteAgenti;

// The customer rows of the route on view: their customer and destination fields, the
// numbering kept when a row is deleted, the route detail's navigator, and the deletion of
// the route's whole detail.
class RigheGiro {
public:
    RigheGiro(const ControlliRigheGiro& controlli, const QPointer<frame::GestAnagrafica>& dettaglio,
              const AmbienteAgenti& ambiente);
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
    // The customer fields the customer decoding fills, in the order of its columns.
    std::array<controls::Field*, 7> campiCliente() const;

    const ControlliRigheGiro m_controlli;
    // Not owned: the screen's place of the route-detail frame.
    const QPointer<frame::GestAnagrafica>& m_dettaglio;
    const AmbienteAgenti& m_ambiente; // Not owned: the screen's.
    qint16 m_progressivoEliminato = 0;
    QString m_clienteAllIngresso;
    // The handlers' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
