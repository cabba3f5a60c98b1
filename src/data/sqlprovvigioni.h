#pragma once

#include <QString>
#include <QtGlobal>

// The statements of the commission page, in T-SQL.
namespace tarvello::agenti::sql {

// The description of a sales table of commissions on discounts; the code is quoted here.
QString descrizioneTabProvvSconti(qint32 ditta, const QString& codice);
// The company's sales tables of commissions on discounts: code and description.
QString elencoTabProvvSconti(qint32 ditta);
QString codicePriorita(qint64 id);
// The code is quoted here.
QString idPriorita(const QString& codice);

} // namespace tarvello::agenti::sql
