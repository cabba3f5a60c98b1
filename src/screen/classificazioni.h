#pragma once

#include "platform/db/value.h"

#include <QList>
#include <QString>
#include <QtGlobal>

namespace tarvello::controls {
class Field;
struct DecodeArgs;
struct LookupArgs;
} // namespace tarvello::controls

namespace tarvello::agenti {

class FRMMG_AGENTI;

// The nine classification codes of the agent (territory, category and three groupings):
// their lists and decodings through the host's lookup definitions, within the codes of their
// parent levels, and the host's classification-tables management opened from each of them.
class Classificazioni {
public:
    // The host program that manages the classification tables of agents.
    static constexpr int GestioneTabelle = 2847;

    // A parent level: the named parameter of the lookup definition and the field holding it.
    struct Genitore {
        QString parametro;
        QString campo;
    };
    // A code field, with the table its management key opens: branch `ramo` of group `gruppo`
    // (0 territory, 1 categories, 2 groupings).
    struct Campo {
        QString nome;
        QString definizione;
        QList<Genitore> genitori;
        QString descrizione;
        int gruppo = 0;
        int ramo = 0;
    };

    explicit Classificazioni(FRMMG_AGENTI& schermata);
    Classificazioni(const Classificazioni&) = delete;
    Classificazioni& operator=(const Classificazioni&) = delete;

    static const QList<Campo>& campi();

    // Connects the handlers of the nine fields; the screen does it as it creates them.
    void collega();

    qint32 RamoAreeZone() const { return m_rami[0]; }
    qint32 RamoCategorie() const { return m_rami[1]; }
    qint32 RamoRaggruppamenti() const { return m_rami[2]; }

    void InvocaGestioneAreeZone();
    void InvocaGestioneCategorie();
    void InvocaGestioneRaggruppamenti();

private:
    void decodifica(const Campo& campo, controls::DecodeArgs& args) const;
    void avviaLista(const Campo& campo, controls::Field& campoLista,
                    controls::LookupArgs& args) const;
    void tastoGestione(const Campo& campo, const QString& chiave);
    // Opens the management on the branch of the group's selector and writes back the codes
    // chosen; reported under `procedura`, or with errors ignored when it is empty.
    void invocaGestione(int gruppo, const QString& procedura);
    QString testo(const QString& campo) const;

    FRMMG_AGENTI& m_schermata; // Not owned: the screen owns this.
    qint32 m_rami[3] = {0, 0, 0};
};

} // namespace tarvello::agenti
