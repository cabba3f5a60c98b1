#include "platform/services/parametertext.h"

namespace tarvello::services {

QString appendParameter(const QString& parameters, const QString& name, const QString& value)
{
    QString escaped;
    for (const QChar c : value) {
        if (c == u'\\')
            escaped += QStringLiteral("\\\\");
        else if (c == u'\n')
            escaped += QStringLiteral("\\n");
        else if (c == u'\r')
            escaped += QStringLiteral("\\r");
        else
            escaped += c;
    }
    const QString line = name + u'=' + escaped;
    return parameters.isEmpty() ? line : parameters + u'\n' + line;
}

QList<std::pair<QString, QString>> readParameters(const QString& parameters)
{
    QList<std::pair<QString, QString>> result;
    for (const QString& line : parameters.split(u'\n', Qt::SkipEmptyParts)) {
        const qsizetype equals = line.indexOf(u'=');
        QString value;
        const QString escaped = equals < 0 ? QString() : line.mid(equals + 1);
        for (qsizetype i = 0; i < escaped.size(); ++i) {
            if (escaped.at(i) == u'\\' && i + 1 < escaped.size()) {
                const QChar next = escaped.at(++i);
                value += next == u'n' ? QChar(u'\n') : next == u'r' ? QChar(u'\r') : next;
            } else {
                value += escaped.at(i);
            }
        }
        result.append({equals < 0 ? line : line.left(equals), value});
    }
    return result;
}

} // namespace tarvello::services
