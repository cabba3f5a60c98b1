#include "src/screen/codiciagente.h"

#include "platform/controls/field.h"
#include "platform/db/connection.h"
#include "platform/db/recordset.h"
#include "platform/db/runtimeerror.h"
#include "src/common/errorstyles.h"
#include "src/common/valuehelpers.h"
#include "src/data/sqlagenti.h"
#include "src/screen/controlli.h"

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

QString NonnoAgente(db::Connection& connessione, qint32 ditta, const QString& id)
{
    return passOn(QStringLiteral("NonnoAgente:"), [&] {
        const db::RecordsetPtr trovato = connessione.execute(sql::riferimentoAgente(ditta, id));
        if (trovato->recordCount() < 1)
            return QString();
        return RTrimN(trovato->value(u"MG17_IDAGERIF_MG17")).toString();
    });
}

std::optional<qint64> NumeroIntero(const db::Value& valore)
{
    if (valore.isBlank())
        return 0;
    if (!valore.looksNumeric())
        return std::nullopt;
    try {
        const db::Value numero = CDecN(valore);
        const qint64 intero = numero.toInt64();
        if (!(db::Value(intero) == numero))
            return std::nullopt;
        return intero;
    } catch (const db::RuntimeError&) {
        return std::nullopt;
    }
}

namespace {

qint64 codiceNumerico(const db::Value& codice)
{
    const std::optional<qint64> numero = NumeroIntero(codice);
    if (!numero)
        throw db::RuntimeError(
            db::RuntimeError::TypeMismatch,
            QStringLiteral("Type mismatch: \"%1\" is not a code").arg(codice.toString()));
    return *numero;
}

} // namespace

void DecodificaCodice(db::Connection& connessione, const db::Value& codice,
                      const controls::Form& form)
{
    const db::RecordsetPtr trovato =
        connessione.execute(sql::ragioneSocialeAnagrafica(codiceNumerico(codice)));
    if (trovato->recordCount() < 1)
        return;
    controlloDi<controls::Field>(form, u"TXT_RAGSOANAG")
        .setText(RTrimN(trovato->value(u"CG16_RAGSOANAG")).toString());
}

db::Value CodiceFornitore(db::Connection& connessione, const ErrorReporter& errori, qint32 ditta,
                          const db::Value& codice)
{
    db::Value fornitore;
    const std::optional<qint64> anagrafica = NumeroIntero(codice);
    if (!anagrafica)
        return fornitore;
    db::RecordsetPtr trovato;
    reportWithChoice(
        errori, QStringLiteral("CodiceFornitore"),
        {
            [&] { trovato = connessione.execute(sql::fornitoreAnagrafica(ditta, *anagrafica)); },
            [&] {
                if (trovato && trovato->recordCount() > 0)
                    fornitore = trovato->value(u"CG44_CLIFOR");
            },
        });
    return fornitore;
}

} // namespace tarvello::agenti
