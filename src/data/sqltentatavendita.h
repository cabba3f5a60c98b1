#pragma once

#include <QString>
#include <QtGlobal>

// The statements behind the van-sales depot and document-register fields.

namespace tarvello::agenti::sql {

// The description of one depot (its code as typed, right-trimmed), and the company's depots
// in code order.
QString decodificaDeposito(qint32 ditta, const QString& codice);
QString elencoDepositi(qint32 ditta);
// One document register (every column; the description is CG68_DESCSEZ), and the company's
// registers in the order the database keeps them.
QString decodificaSezionale(qint32 ditta, const QString& codice);
QString elencoSezionali(qint32 ditta);

} // namespace tarvello::agenti::sql
