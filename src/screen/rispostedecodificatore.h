#pragma once

#include <QString>

namespace tarvello::controls {
class Field;
class Form;
struct DecodeArgs;
struct LookupArgs;
} // namespace tarvello::controls

namespace tarvello::host {
class LookupDecoder;
}

namespace tarvello::agenti {

// Hands a field what the host's lookup-and-decode object last prepared, with the
// connection string the statement runs on. The decoding's targets are the screen's controls
// the object names.
void rispostaDecodifica(const controls::Form& schermata, const host::LookupDecoder& decodificatore,
                        controls::DecodeArgs& args, const QString& connessione);
void rispostaLista(const host::LookupDecoder& decodificatore, controls::LookupArgs& args,
                   const QString& connessione);

// The lookup-and-decode object a procedure goes on to use.
host::LookupDecoder& decodificatoreRichiesto(host::LookupDecoder* decodificatore);

} // namespace tarvello::agenti
