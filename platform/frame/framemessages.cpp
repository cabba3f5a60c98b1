#include "platform/frame/framemessages.h"

#include "src/host/errorlog.h"

namespace tarvello::frame {

namespace {

constexpr int QuestionYesNoDefaultNo = host::YesNo | host::Question | host::DefaultButton2;
constexpr int QuestionYesNoCancel = host::YesNoCancel | host::Question;

const QString warningTitle = QStringLiteral("Attenzione");
const QString errorTitle = QStringLiteral("Errore");

} // namespace

QString FrameMessages::forWhat() const
{
    return m_description.isEmpty() ? QString() : QStringLiteral(" per ") + m_description;
}

void FrameMessages::warn(const QString& text) const
{
    m_prompts.messageBox(text, host::Exclamation, warningTitle);
}

bool FrameMessages::confirmDelete(const QString& record) const
{
    const QString what =
        record.isEmpty() ? QStringLiteral("dei dati visualizzati") : QStringLiteral("di ") + record;
    return m_prompts.messageBox(
               QStringLiteral("Confermi l'eliminazione %1%2?").arg(what, forWhat()),
               QuestionYesNoDefaultNo, QStringLiteral("Conferma eliminazione")) == Yes;
}

bool FrameMessages::confirmDeleteAll() const
{
    return m_prompts.messageBox(
               QStringLiteral("Confermi l'eliminazione di tutte le righe visualizzate%1?")
                   .arg(forWhat()),
               QuestionYesNoDefaultNo, QStringLiteral("Conferma eliminazione")) == Yes;
}

bool FrameMessages::confirmDropChanges() const
{
    return m_prompts.messageBox(
               QStringLiteral("Annullare le modifiche apportate ai dati%1?").arg(forWhat()),
               QuestionYesNoDefaultNo, QStringLiteral("Annulla modifiche")) == Yes;
}

int FrameMessages::askSaveChanges() const
{
    return m_prompts.messageBox(
        QStringLiteral("I dati%1 sono stati modificati.\r\nSalvare le modifiche?").arg(forWhat()),
        QuestionYesNoCancel, QStringLiteral("Salvataggio"));
}

void FrameMessages::requiredFieldEmpty(const QString& caption) const
{
    warn(QStringLiteral("Il campo \"%1\" è obbligatorio.").arg(caption));
}

void FrameMessages::fieldNotValid(const QString& caption) const
{
    warn(QStringLiteral("Il valore del campo \"%1\" non è valido.").arg(caption));
}

void FrameMessages::valueRefused(const QString& caption, const ColumnValue& refused) const
{
    using Refusal = ColumnValue::Refusal;
    switch (refused.refusal) {
    case Refusal::NotADate:
        warn(QStringLiteral("Il campo \"%1\" richiede una data (gg/mm/aaaa).").arg(caption));
        return;
    case Refusal::NotWhole:
        warn(QStringLiteral("Il campo \"%1\" richiede un numero intero.").arg(caption));
        return;
    case Refusal::TooManyDecimals:
        warn(QStringLiteral("Il campo \"%1\" ammette al massimo %2 decimali.")
                 .arg(caption, refused.limit));
        return;
    case Refusal::OutOfRange:
        warn(QStringLiteral("Il valore del campo \"%1\" è fuori dai limiti ammessi (%2).")
                 .arg(caption, refused.limit));
        return;
    case Refusal::TooLong:
        warn(QStringLiteral("Il campo \"%1\" ammette al massimo %2 caratteri.")
                 .arg(caption, refused.limit));
        return;
    case Refusal::NotANumber:
    case Refusal::None:
        break;
    }
    warn(QStringLiteral("Il campo \"%1\" richiede un valore numerico.").arg(caption));
}

void FrameMessages::keyNotFound() const
{
    m_prompts.messageBox(QStringLiteral("Nessun dato trovato con il codice indicato."),
                         host::Information, QStringLiteral("Ricerca"));
}

void FrameMessages::saveFailed(const QString& reason) const
{
    m_prompts.messageBox(
        QStringLiteral("Impossibile salvare i dati%1.\r\n%2").arg(forWhat(), reason),
        host::Critical, errorTitle);
}

void FrameMessages::changesNotSaved() const
{
    warn(QStringLiteral("Le modifiche ai dati%1 non sono state salvate: completare o annullare "
                        "la riga in inserimento e salvare di nuovo.")
             .arg(forWhat()));
}

void FrameMessages::valueTaken(const QString& caption, const QString& value) const
{
    saveFailed(QStringLiteral("Il valore \"%1\" del campo \"%2\" è già usato in un'altra riga, "
                              "forse salvata nel frattempo da un altro utente. I dati inseriti "
                              "restano a video: cambiare il valore e salvare di nuovo.")
                   .arg(value, caption));
}

QString FrameMessages::changedByOthers() const
{
    return QStringLiteral("I dati visualizzati sono stati modificati da un altro utente dopo la "
                          "lettura: nulla è stato eliminato. Rileggere i dati (ad esempio "
                          "chiudendo e riaprendo la finestra) e ripetere l'eliminazione.");
}

void FrameMessages::deleteFailed(const QString& reason) const
{
    m_prompts.messageBox(
        QStringLiteral("Impossibile eliminare i dati%1.\r\n%2").arg(forWhat(), reason),
        host::Critical, errorTitle);
}

void FrameMessages::handlerFailed(long number, const QString& description) const
{
    m_prompts.messageBox(
        QStringLiteral("Errore n. %1\r\nDescrizione: %2").arg(number).arg(description),
        host::Critical, errorTitle);
}

} // namespace tarvello::frame
