#include "src/common/valuehelpers.h"

#include "platform/db/runtimeerror.h"

#include <QLocale>

namespace tarvello::agenti {

namespace {

db::Decimal decimalFromText(const QString& text)
{
    const QLocale locale;
    QString digits = text.trimmed();
    const QString point = locale.decimalPoint();
    if (digits.contains(point)) {
        const QString group = locale.groupSeparator();
        if (!group.isEmpty() && group != point)
            digits.remove(group);
        digits.replace(point, QStringLiteral("."));
    }
    if (const auto decimal = db::Decimal::parse(digits))
        return *decimal;
    throw db::RuntimeError(db::RuntimeError::TypeMismatch,
                           QStringLiteral("Type mismatch: \"%1\" is not a number").arg(text));
}

db::Value decimalOr(const db::Value& value, int blank)
{
    if (value.isBlank())
        return blank;
    if (value.kind() == db::Value::Kind::Text)
        return decimalFromText(value.toString());
    return value.toDecimal();
}

} // namespace

db::Value RTrimN(const db::Value& value)
{
    if (value.isBlank())
        return QString();
    QString text = value.toString();
    qsizetype end = text.size();
    while (end > 0 && text.at(end - 1) == u' ')
        --end;
    text.truncate(end);
    return text;
}

db::Value CDecN(const db::Value& value)
{
    return decimalOr(value, 0);
}

db::Value CNegUno(const db::Value& value)
{
    return decimalOr(value, -1);
}

db::Value NvlN(const db::Value& value, const db::Value& defaultValue)
{
    if (value.isEmpty() || value.isNull())
        return defaultValue;
    try {
        return value.toString().isEmpty() ? defaultValue : value;
    } catch (const db::RuntimeError&) {
        return value;
    }
}

} // namespace tarvello::agenti
