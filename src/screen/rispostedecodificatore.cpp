#include "src/screen/rispostedecodificatore.h"

#include "platform/controls/datacontrol.h"
#include "platform/controls/eventargs.h"
#include "platform/controls/form.h"
#include "src/common/richiesto.h"
#include "src/host/lookupdecoder.h"

namespace tarvello::agenti {

void rispostaDecodifica(const controls::Form& schermata, const host::LookupDecoder& decodificatore,
                        controls::DecodeArgs& args, const QString& connessione)
{
    args.targets.clear();
    for (const host::DecodeTarget& destinazione : decodificatore.targets())
        args.targets.append(
            {schermata.find<controls::DataControl>(destinazione.control), destinazione.column});
    args.sql = decodificatore.query();
    args.connectionString = connessione;
}

void rispostaLista(const host::LookupDecoder& decodificatore, controls::LookupArgs& args,
                   const QString& connessione)
{
    args.sql = decodificatore.query();
    args.columns = decodificatore.columns();
    args.title = decodificatore.title();
    args.connectionString = connessione;
}

host::LookupDecoder& decodificatoreRichiesto(host::LookupDecoder* decodificatore)
{
    return richiesto(decodificatore, "LookupDecoder");
}

} // namespace tarvello::agenti
