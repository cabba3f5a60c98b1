#pragma once

#include "platform/controls/control.h"
#include "platform/controls/form.h"

#include <QPointer>

namespace tarvello::agenti {

// Where the question dialog writes the person's answer: the part of the screen that asked.
class RiceventeRisposta {
public:
    virtual void setGIsInserisciClienteNelGiro(bool risposta) = 0;
    virtual void setGIsNonRichiederePiu(bool ricorda) = 0;

protected:
    ~RiceventeRisposta() = default;
};

// The question dialog of the agents screen: a message and four answers, "&Si", "&No",
// "S&i, sempre" and "N&o, sempre". A button writes the answer, then whether it is to be
// remembered, into the part that asked, and closes the dialog.
class FRMMG_MESSAGGIO final : public controls::Form {
    Q_OBJECT
public:
    // The client area the dialog was designed at, in twips.
    static constexpr int Larghezza = 8475;
    static constexpr int Altezza = 1575;

    explicit FRMMG_MESSAGGIO(QObject* parent = nullptr);

    void setMessaggio(const QString& testo);
    void setTitolo(const QString& titolo) { setCaption(titolo); }
    // Not owned; it must outlive the dialog's answer.
    void setCallingForm(RiceventeRisposta* chiamante) { m_chiamante = chiamante; }

private:
    void rispondi(bool risposta, bool ricorda);

    RiceventeRisposta* m_chiamante = nullptr; // Not owned.
};

} // namespace tarvello::agenti
