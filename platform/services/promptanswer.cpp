#include "platform/services/promptanswer.h"

#include "platform/services/messageboxstyle.h"

namespace tarvello::services {

namespace {

QString quotedWord(const QString& text)
{
    QString escaped = text;
    escaped.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    return u'"' + escaped + u'"';
}

QString questionWord(qint64 answer)
{
    switch (static_cast<QuestionAnswer>(answer)) {
    case QuestionAnswer::Si:
        return QStringLiteral("si");
    case QuestionAnswer::No:
        return QStringLiteral("no");
    case QuestionAnswer::Sempre:
        return QStringLiteral("sempre");
    case QuestionAnswer::Mai:
        return QStringLiteral("mai");
    }
    return {};
}

} // namespace

PromptAnswer PromptAnswer::button(int standardAnswer)
{
    PromptAnswer a(Kind::Button);
    a.m_number = standardAnswer;
    return a;
}

PromptAnswer PromptAnswer::question(QuestionAnswer answer)
{
    PromptAnswer a(Kind::Question);
    a.m_number = static_cast<qint64>(answer);
    return a;
}

PromptAnswer PromptAnswer::pickRow(int row)
{
    PromptAnswer a(Kind::PickRow);
    a.m_number = row;
    return a;
}

PromptAnswer PromptAnswer::pickCode(const QString& code)
{
    PromptAnswer a(Kind::PickCode);
    a.m_text = code;
    return a;
}

PromptAnswer PromptAnswer::nothing()
{
    return PromptAnswer(Kind::Nothing);
}

PromptAnswer PromptAnswer::agent(const QString& code)
{
    PromptAnswer a(Kind::Agent);
    a.m_text = code;
    return a;
}

PromptAnswer PromptAnswer::registry(qint64 code)
{
    PromptAnswer a(Kind::Registry);
    a.m_number = code;
    return a;
}

PromptAnswer PromptAnswer::route(const QString& code)
{
    PromptAnswer a(Kind::Route);
    a.m_text = code;
    return a;
}

PromptAnswer PromptAnswer::customers(const QList<CustomerChoice>& customers)
{
    PromptAnswer a(Kind::Customers);
    a.m_customers = customers;
    return a;
}

PromptAnswer PromptAnswer::codes(const QStringList& codes)
{
    PromptAnswer a(Kind::Codes);
    a.m_codes = codes;
    return a;
}

PromptAnswer PromptAnswer::transfer(const db::Value& value)
{
    PromptAnswer a(Kind::Transfer);
    a.m_value = value;
    return a;
}

PromptAnswer PromptAnswer::file(const QString& path)
{
    PromptAnswer a(Kind::File);
    a.m_text = path;
    return a;
}

PromptAnswer PromptAnswer::window()
{
    return PromptAnswer(Kind::Window);
}

QString PromptAnswer::describe() const
{
    switch (m_kind) {
    case Kind::Button:
        return answerWord(int(m_number));
    case Kind::Question:
        return questionWord(m_number);
    case Kind::PickRow:
        return QStringLiteral("pick %1").arg(m_number);
    case Kind::PickCode:
        return QStringLiteral("pick ") + quotedWord(m_text);
    case Kind::Nothing:
        return QStringLiteral("none");
    case Kind::Agent:
        return QStringLiteral("agent ") + quotedWord(m_text);
    case Kind::Registry:
        return QStringLiteral("registry %1").arg(m_number);
    case Kind::Route:
        return QStringLiteral("route ") + quotedWord(m_text);
    case Kind::Customers: {
        QStringList words{QStringLiteral("customers")};
        for (const CustomerChoice& c : m_customers)
            words << c.customer << quotedWord(c.destination);
        return words.join(u' ');
    }
    case Kind::Codes: {
        QStringList words{QStringLiteral("codes")};
        for (const QString& code : m_codes)
            words << quotedWord(code);
        return words.join(u' ');
    }
    case Kind::Transfer:
        return QStringLiteral("transfer ") + m_value.debugText();
    case Kind::File:
        return QStringLiteral("file ") + quotedWord(m_text);
    case Kind::Window:
        return QStringLiteral("window");
    }
    return {};
}

} // namespace tarvello::services
