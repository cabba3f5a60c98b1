#pragma once

#include "platform/db/value.h"
#include "src/screen/controlliagenti.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QtGlobal>
#include <memory>

namespace tarvello::controls {
struct CancelArgs;
struct DecodeArgs;
struct KeyArgs;
struct LookupArgs;
} // namespace tarvello::controls

namespace tarvello::frame {
class GestAnagrafica;
}

namespace tarvello::host {
class CalledModule;
}

namespace tarvello::agenti {

class AmbienteAgenti;
class ListeCodificate;

// The commission page: which fields the commission regime enables, requires and resets, the
// entities the row and column identifiers of a composite table may take, the fixed price
// list, the priority table of parametric price lists (kept in the row by its id), the table
// of commissions on discounts and its management, and the minimum invoiceable amount.
class Provvigioni {
public:
    Provvigioni(const ControlliProvvigioni& controlli,
                const QPointer<frame::GestAnagrafica>& agente,
                const std::unique_ptr<ListeCodificate>& liste, const AmbienteAgenti& ambiente);
    ~Provvigioni();
    Provvigioni(const Provvigioni&) = delete;
    Provvigioni& operator=(const Provvigioni&) = delete;

    // Connects the handlers of the page; the screen does it as it creates its controls.
    void collega();

    // The code of a priority table from its id, and back; an unknown one gives "" and 0.
    QString Get_LP09_CODICE(qint16 id) const;
    qint16 Get_MG17_ID_LP09(const QString& codice) const;
    void InvocaGestioneTabProvv();

    const QString& PrioritaPrecedente() const { return m_prioritaPrecedente; }

    // A priority-table id as the screen carries it: a 16-bit integer (an overflow beyond).
    static qint16 idPriorita(const db::Value& valore);

private:
    void CBO_REGPROV_Click(const db::Value& codice);
    void CBO_INDTIPOLISFIX_Click();
    void CBO_INDTIPOLISFIX_LostFocus();
    void CBO_IDENTIFTAB_Click();
    void CBO_IDENTIFRIGA_Click();
    void CHK_FLGADEGUAMSCMAG_Click(int valore);
    void TXT_CODPROVSC_Decodifica(controls::DecodeArgs& args) const;
    void TXT_CODPROVSC_StartLookup(controls::LookupArgs& args);
    void TXT_NUMLISTFIX_Decodifica(controls::DecodeArgs& args) const;
    void TXT_NUMLISTFIX_StartLookup(controls::LookupArgs& args);
    void TXT_TABPRIORITA_Validate();
    void TXT_TABPRIORITA_Decodifica(controls::DecodeArgs& args) const;
    void TXT_TABPRIORITA_StartLookup(controls::LookupArgs& args);
    void TXT_IMPMINFATT_Validate();
    void CBO_INDPREFSTDOC_KeyDown(controls::KeyArgs& args);

    // The settings of the fixed price list's kind and number for a regime.
    void impostaListinoFisso(bool usato);
    void impostaIdentificatori(bool tabella, bool righe);
    void rilasciaTabProvv();

    const ControlliProvvigioni m_controlli;
    // Not owned: the screen's place of the agents frame.
    const QPointer<frame::GestAnagrafica>& m_agente;
    // Not owned: the screen's coded lists, made at load.
    const std::unique_ptr<ListeCodificate>& m_liste;
    const AmbienteAgenti& m_ambiente; // Not owned: the screen's.
    QString m_prioritaPrecedente;
    std::unique_ptr<host::CalledModule> m_tabProvv; // Pcls_TabProvv, while it runs.
    // The handlers' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
