#include "platform/services/namedparameters.h"

#include "platform/db/runtimeerror.h"

namespace tarvello::services {

namespace {

bool isNameCharacter(QChar c)
{
    return c.isLetterOrNumber() || c == u'_';
}

} // namespace

QString parameterLiteral(const QString& name, ParameterKind kind, const db::Value& value)
{
    if (kind == ParameterKind::Text)
        return db::quoted(value.toString());
    if (!value.looksNumeric() || value.kind() == db::Value::Kind::Boolean)
        throw db::RuntimeError(
            db::RuntimeError::TypeMismatch,
            QStringLiteral("Type mismatch: the parameter @%1 is not a number: %2")
                .arg(name, value.debugText()));
    return value.toDecimal().toString();
}

QString bindNamedParameters(const QString& sql,
                            const std::function<QString(const QString& name)>& literalOf)
{
    QString result;
    result.reserve(sql.size());
    qsizetype copied = 0; // what comes before it is in the result already
    bool inText = false;
    for (qsizetype i = 0; i < sql.size(); ++i) {
        const QChar c = sql.at(i);
        if (c == u'\'')
            inText = !inText;
        if (inText || c != u'@' || i + 1 >= sql.size() || !isNameCharacter(sql.at(i + 1)))
            continue;
        qsizetype end = i + 1;
        while (end < sql.size() && isNameCharacter(sql.at(end)))
            ++end;
        result += QStringView(sql).sliced(copied, i - copied);
        result += literalOf(sql.mid(i + 1, end - i - 1));
        copied = end;
        i = end - 1;
    }
    result += QStringView(sql).sliced(copied);
    return result;
}

} // namespace tarvello::services
