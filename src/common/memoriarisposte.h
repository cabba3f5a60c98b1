#pragma once

#include <array>
#include <functional>

class QString;

namespace tarvello::agenti {

// The answers the person gave to the questions about a customer row, one entry per kind of
// question (1, 2, 3). An answer given "always" (Sempre) is reused without asking; any other
// is asked again the next time.
class MemoriaRisposte {
public:
    struct Voce {
        bool Risposta = true;
        bool Sempre = false;
    };
    // What the question dialog left: the answer, and whether it is to be remembered.
    struct Esito {
        bool risposta = false;
        bool ricorda = false;
    };
    // Asks the person the question with that text and returns what the dialog left.
    using Dialogo = std::function<Esito(const QString& testo)>;

    static constexpr short Voci = 3;

    MemoriaRisposte() { AzzeraRisposte(); }

    // Every entry back to not remembered, with the answer yes.
    void AzzeraRisposte();

    short DomandaCorrente = 0;
    // Entry 1..3; an entry outside that range is a fault of the caller.
    const Voce& voce(short numero) const;
    // The check behind the questions of that entry is skipped: yes was given "always".
    bool ricordatoSi(short numero) const;

    // Asks question DomandaCorrente through the dialog unless its entry is remembered, and
    // keeps the answer in the entry. A question number outside 1..3 asks nothing.
    void ShowFormMsgBox(const QString& testo, const Dialogo& dialogo);

private:
    static bool valida(short numero) { return numero >= 1 && numero <= Voci; }

    std::array<Voce, Voci> m_voci;
};

} // namespace tarvello::agenti
