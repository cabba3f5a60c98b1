#include "platform/services/hostmessages.h"

#include "platform/db/runtimeerror.h"

namespace tarvello::services {

namespace {

// Puts each parameter in its place in one pass, so a parameter holding "%2" stays as it is.
QString placeParameters(const QString& text, const db::ValueList& parameters)
{
    QString result;
    result.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c == u'%' && i + 1 < text.size() && text.at(i + 1).isDigit() &&
            text.at(i + 1) != u'0') {
            const int index = text.at(i + 1).digitValue() - 1;
            if (index < parameters.size())
                result += parameters.at(index).toString();
            ++i;
            continue;
        }
        result += c;
    }
    return result;
}

} // namespace

HostMessages::HostMessages()
    : m_messages{
          {39135, QStringLiteral("Non è stata selezionata nessuna anagrafica generale. "
                                 "Si desidera inserire una nuova anagrafica generale?")},
          {42157, QStringLiteral("L'agente è presente nei documenti di altre gestioni "
                                 "e non può essere eliminato.")},
          // customer code, customer, route code, route, agent code, agent
          {71472, QStringLiteral("Il cliente %1 - %2 è già presente nel giro %3 - %4 "
                                 "dell'agente %5 - %6. Inserirlo comunque?")},
          // destination, customer code, customer, route code, route, agent code, agent
          {71473, QStringLiteral("Il cliente %2 - %3 con la destinazione %1 è già presente "
                                 "nel giro %4 - %5 dell'agente %6 - %7. Inserirlo comunque?")},
          // destination, customer code, customer
          {71474, QStringLiteral("Il cliente %2 - %3 con la destinazione %1 è già presente "
                                 "in un altro giro dell'agente. Inserirlo comunque?")},
          // customer code, customer
          {71475, QStringLiteral("Il cliente %1 - %2 è già presente in un altro giro "
                                 "dell'agente. Inserirlo comunque?")},
          // customer code, customer
          {71476, QStringLiteral("L'agente non è tra gli agenti del cliente %1 - %2. "
                                 "Inserirlo comunque nel giro?")},
      }
{}

QString HostMessages::message(int number, const db::ValueList& parameters) const
{
    const auto found = m_messages.constFind(number);
    if (found == m_messages.constEnd())
        throw db::RuntimeError(db::RuntimeError::InvalidProcedureCall,
                               QStringLiteral("Messaggio %1 non presente nel catalogo dei "
                                              "messaggi")
                                   .arg(number));
    return placeParameters(*found, parameters);
}

} // namespace tarvello::services
