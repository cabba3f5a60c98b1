#pragma once

#include "platform/db/value.h"
#include "src/screen/controlliagenti.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QtGlobal>
#include <array>

namespace tarvello::controls {
class Field;
struct DecodeArgs;
struct LookupArgs;
} // namespace tarvello::controls

namespace tarvello::host {
class LookupDecoder;
}

namespace tarvello::agenti {

class AmbienteAgenti;

// The nine classification codes of the agent (territory, category and three groupings):
// their lists and decodings through the host's lookup definitions, within the codes of their
// parent levels, and the host's classification-tables management opened from each of them.
class Classificazioni {
public:
    // The host program that manages the classification tables of agents.
    static constexpr int GestioneTabelle = 2847;

    // The place of each code field among the nine, in the order of ControlliClassificazioni.
    enum Posto : int {
        MacroArea,
        Area,
        Zona,
        MacroCategoria,
        Categoria,
        SottoCategoria,
        Raggruppamento1,
        Raggruppamento2,
        Raggruppamento3,
    };

    // A parent level: the named parameter of the lookup definition and the field holding it.
    struct Genitore {
        QString parametro;
        Posto campo;
    };
    // A code field, with the table its management key opens: branch `ramo` of group `gruppo`
    // (0 territory, 1 categories, 2 groupings).
    struct Campo {
        Posto posto;
        QString definizione;
        QList<Genitore> genitori;
        QString descrizione;
        int gruppo = 0;
        int ramo = 0;
    };

    Classificazioni(const ControlliClassificazioni& controlli, const AmbienteAgenti& ambiente);
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
    host::LookupDecoder& decodificatore() const;
    controls::Field& campo(Posto posto) const { return *m_campi.at(posto); }
    QString testo(Posto posto) const;

    const std::array<controls::Field*, 9> m_campi;
    const AmbienteAgenti& m_ambiente; // Not owned: the screen's.
    qint32 m_rami[3] = {0, 0, 0};
    // The fields' connections end with this part.
    QObject m_contesto;
};

} // namespace tarvello::agenti
