#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace tarvello::controls {
class ComboBox;
class Form;
} // namespace tarvello::controls

namespace tarvello::host {
class HostObjects;
}

namespace tarvello::agenti {

// The payment-type names joined by "|", index 0 "Contanti" to index 16 "Solo descrittivo".
QString StringaTipiEffetti();
// The code a payment type is stored with: the index plus one, but 99 for the last one.
int codiceTipoEffetto(qsizetype indice);

// The entities an identifier list of a two- or three-level commission table may offer.
struct DisponibilitaEntita {
    bool agente = false;
    bool cliente = false;
    bool articolo = false;
};

// The seventeen drop-down lists of the agents screen, each filled by its own loader. The
// items are fixed, but for the document print modes, which come from the host, and for the
// row and column identifiers, which offer only the entities their availability allows.
class ListeCodificate {
public:
    ListeCodificate(controls::Form& form, host::HostObjects& oggetti);

    // Set by the commission settings before the row and column lists are reloaded; nothing
    // is available when the screen is created.
    DisponibilitaEntita disponibilitaRighe;
    DisponibilitaEntita disponibilitaColonne;

    void CaricaCombo_CBO_REGPROV();
    void CaricaCombo_CBO_INDTIPOLISFIX();
    void CaricaCombo_CBO_IDENTIFTAB();
    void CaricaCombo_CBO_IDENTIFRIGA();
    void CaricaCombo_CBO_IDENTIFCOL();
    void CaricaCombo_CBO_INDPRIORCLIART();
    void CaricaCombo_CBO_TIPOAGENTE();
    void CaricaCombo_CBO_INDCALCSCMAG();
    void CaricaCombo_CBO_INDBASEIMPSC();
    void CaricaCombo_CBO_INDBASEIMPMAG();
    void CaricaCombo_CBO_TIPOMAND();
    void CaricaCombo_CBO_TIPORAPP();
    void CaricaCombo_CBO_TIPOSOC();
    void CaricaCombo_CBO_INDPREFSTDOC();
    void CaricaCombo_CBO_INDSTDISTENAS();
    void CaricaCombo_CBO_INDTIPOLIQ();
    void CaricaCombo_CBO_TIPOEFF();

private:
    controls::ComboBox& lista(QStringView nome) const;
    void caricaIdentificatori(QStringView nome, const DisponibilitaEntita& disponibili);

    controls::Form& m_form;       // Not owned: the screen.
    host::HostObjects& m_oggetti; // Not owned: the host's.
};

} // namespace tarvello::agenti
