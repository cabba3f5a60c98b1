#include "src/common/memoriarisposte.h"

#include <QString>
#include <stdexcept>

namespace tarvello::agenti {

void MemoriaRisposte::AzzeraRisposte()
{
    m_voci.fill(Voce{});
}

const MemoriaRisposte::Voce& MemoriaRisposte::voce(short numero) const
{
    if (!valida(numero))
        throw std::out_of_range("answer memory entry out of range");
    return m_voci[numero - 1];
}

bool MemoriaRisposte::ricordatoSi(short numero) const
{
    const Voce& v = voce(numero);
    return v.Sempre && v.Risposta;
}

void MemoriaRisposte::ShowFormMsgBox(const QString& testo, const Dialogo& dialogo)
{
    const short q = DomandaCorrente;
    if (!valida(q) || m_voci[q - 1].Sempre)
        return;
    const Esito esito = dialogo(testo);
    Voce& v = m_voci[q - 1];
    v.Sempre = esito.ricorda;
    v.Risposta = esito.risposta;
}

} // namespace tarvello::agenti
