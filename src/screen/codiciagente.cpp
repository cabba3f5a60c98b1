#include "src/screen/codiciagente.h"

#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"

namespace tarvello::agenti {

QString CodiceAgenteDaId(db::Connection& connessione, qint32 id)
{
    const db::RecordsetPtr trovato = connessione.execute(sql::codiceAgenteDaId(id));
    if (trovato->recordCount() < 1)
        return {};
    return RTrimN(trovato->value(u"MG17_AGENTE")).toString();
}

qint32 IdAgenteDaCodice(db::Connection& connessione, qint32 ditta, const QString& codice)
{
    const db::RecordsetPtr trovato = connessione.execute(sql::idAgenteDaCodice(ditta, codice));
    if (trovato->recordCount() < 1)
        return 0;
    const db::Value id = trovato->value(u"MG17_IDAGENTE");
    return id.isNull() ? 0 : id.toInt();
}

} // namespace tarvello::agenti
