#pragma once

#include "platform/db/value.h"

#include <QList>
#include <QString>
#include <QStringList>

namespace tarvello::services {

// The four answers of the module's question dialog: "&Si", "&No", "S&i, sempre", "N&o, sempre".
enum class QuestionAnswer { Si, No, Sempre, Mai };

// A customer chosen in the host's customer list, with its destination (empty for none).
struct CustomerChoice {
    QString customer;
    QString destination;
    friend bool operator==(const CustomerChoice&, const CustomerChoice&) = default;
};

// What a person answers to something the host asks: a button, a row of a list, an agent or
// registry entry, or what a management hands back.
class PromptAnswer {
public:
    enum class Kind {
        Button,    // a standard answer: ok, cancel, abort, retry, ignore, yes, no
        Question,  // an answer of the question dialog
        PickRow,   // the n-th row of a list, from 1
        PickCode,  // the row of a list whose first column is the code
        Nothing,   // closed without a choice
        Agent,     // an agent code, from the general-registry search
        Registry,  // a registry code, from the general-registry search
        Route,     // a route code handed back by the routes management
        Customers, // customers with destinations handed back by the customer list
        Codes,     // an array of codes handed back by a management (element 0 first)
        Transfer,  // a value a management hands back through its data transfer
        File,      // the path of a file chosen to read or to write
        Window,    // the person works in the management's window
    };

    static PromptAnswer button(int standardAnswer);
    static PromptAnswer question(QuestionAnswer answer);
    static PromptAnswer pickRow(int row);
    static PromptAnswer pickCode(const QString& code);
    static PromptAnswer nothing();
    static PromptAnswer agent(const QString& code);
    static PromptAnswer registry(qint64 code);
    static PromptAnswer route(const QString& code);
    static PromptAnswer customers(const QList<CustomerChoice>& customers);
    static PromptAnswer codes(const QStringList& codes);
    static PromptAnswer transfer(const db::Value& value);
    static PromptAnswer file(const QString& path);
    static PromptAnswer window();

    Kind kind() const { return m_kind; }
    // The standard answer, the question answer, the row, or the registry code.
    qint64 number() const { return m_number; }
    // The code picked, the agent, the route or the file.
    const QString& text() const { return m_text; }
    const QList<CustomerChoice>& customerList() const { return m_customers; }
    const QStringList& codeList() const { return m_codes; }
    const db::Value& value() const { return m_value; }

    // The answer as a scenario writes it: yes, pick 3, agent "A001", codes "A" "B", ...
    QString describe() const;

    friend bool operator==(const PromptAnswer&, const PromptAnswer&) = default;

private:
    explicit PromptAnswer(Kind kind)
        : m_kind(kind)
    {}

    Kind m_kind;
    qint64 m_number = 0;
    QString m_text;
    QList<CustomerChoice> m_customers;
    QStringList m_codes;
    db::Value m_value;
};

} // namespace tarvello::services
