#include "platform/controls/field.h"

#include "platform/controls/connectionsource.h"
#include "platform/controls/displayformat.h"
#include "platform/controls/form.h"
#include "platform/controls/keycodes.h"
#include "platform/controls/lookuppresenter.h"
#include "platform/db/connection.h"
#include "platform/db/runtimeerror.h"

#include <QMetaMethod>

namespace tarvello::controls {

namespace {

const QString managementKeyName = QStringLiteral("Kgestione");
const QString menuItemKeyPrefix = QStringLiteral("Kpers");

QString rightTrimmed(QString text)
{
    while (!text.isEmpty() && text.back().isSpace())
        text.chop(1);
    return text;
}

// Digits, a minus in front and one decimal separator.
QString numberCharacters(const QString& typed)
{
    QString kept;
    bool separator = false;
    for (const QChar c : typed) {
        if (c.isDigit()) {
            kept += c;
        } else if (c == u'-' && kept.isEmpty()) {
            kept += c;
        } else if ((c == u',' || c == u'.') && !separator) {
            separator = true;
            kept += c;
        }
    }
    return kept;
}

QString dateCharacters(const QString& typed)
{
    QString kept;
    for (const QChar c : typed) {
        if (c.isDigit() || c == u'/')
            kept += c;
    }
    return kept;
}

} // namespace

Field::Field(const QString& name, Form* form, Kind kind)
    : DataControl(name, form)
    , m_kind(kind)
    , m_numbersOnly(kind == Kind::Numeric)
{}

QString Field::normalized(const QString& text) const
{
    QString result = m_upperCase ? text.toUpper() : text;
    if (m_maxLength > 0 && result.size() > m_maxLength)
        result.truncate(m_maxLength);
    return result;
}

QString Field::typedCharacters(const QString& typed) const
{
    if (m_kind == Kind::Date)
        return dateCharacters(typed);
    if (m_numbersOnly)
        return numberCharacters(typed);
    return typed;
}

void Field::setText(const QString& text)
{
    const QString accepted = normalized(text);
    if (m_text == accepted)
        return;
    m_text = accepted;
    m_decodePending = true;
    setAccepted(true);
    Q_EMIT textChanged(m_text);
    Q_EMIT valueChanged();
}

void Field::setAccepted(bool accepted)
{
    if (m_accepted == accepted)
        return;
    m_accepted = accepted;
    Q_EMIT acceptedChanged(accepted);
}

bool Field::typeText(const QString& typed)
{
    if (!canReceiveFocus())
        return false;
    setText(typedCharacters(typed));
    return true;
}

QString Field::displayText() const
{
    if (m_displayFormat.isEmpty() || hasFocus())
        return m_text;
    return formatForDisplay(value(), m_displayFormat);
}

db::Value Field::value() const
{
    // Blanks alone hold nothing: a code of blanks is no code, and a required field sees it.
    if (m_text.trimmed().isEmpty())
        return db::Value::null();
    if (m_kind == Kind::Numeric) {
        if (const auto number = db::Decimal::parse(m_text))
            return *number;
    } else if (m_kind == Kind::Date) {
        const QDate date = readDate(m_text);
        if (date.isValid())
            return date;
    }
    return m_text;
}

void Field::setValue(const db::Value& value)
{
    using ValueKind = db::Value::Kind;
    switch (value.kind()) {
    case ValueKind::Empty:
    case ValueKind::Null:
        setText({});
        return;
    case ValueKind::Integer:
    case ValueKind::Decimal:
    case ValueKind::Double:
        setText(value.toDecimal().toString().replace(u'.', u','));
        return;
    case ValueKind::Date:
        setText(formatForDisplay(value));
        return;
    default:
        setText(value.toString());
    }
}

void Field::setMaxLength(int length)
{
    length = qMax(0, length);
    if (m_maxLength == length)
        return;
    m_maxLength = length;
    Q_EMIT maxLengthChanged(length);
    setText(m_text);
}

void Field::setUpperCase(bool upperCase)
{
    if (m_upperCase == upperCase)
        return;
    m_upperCase = upperCase;
    Q_EMIT upperCaseChanged(upperCase);
    setText(m_text);
}

void Field::setNumbersOnly(bool numbersOnly)
{
    if (m_numbersOnly == numbersOnly)
        return;
    m_numbersOnly = numbersOnly;
    Q_EMIT numbersOnlyChanged(numbersOnly);
}

void Field::setDisplayFormat(const QString& format)
{
    if (m_displayFormat == format)
        return;
    m_displayFormat = format;
    Q_EMIT displayFormatChanged(format);
}

void Field::setMultiLine(bool multiLine)
{
    if (m_multiLine == multiLine)
        return;
    m_multiLine = multiLine;
    Q_EMIT multiLineChanged(multiLine);
}

void Field::setLookupId(const QString& id)
{
    if (m_lookupId == id)
        return;
    m_lookupId = id;
    Q_EMIT lookupIdChanged(id);
}

Field::DecodeOutcome Field::decode()
{
    const DecodeOutcome outcome = runDecoding();
    // An empty code is no code rather than a wrong one: whether it may stay empty is for
    // "required" to say.
    if (isBlank())
        setValid(true);
    return outcome;
}

Field::DecodeOutcome Field::runDecoding()
{
    m_lastError.clear();
    DecodeArgs args;
    const Raised raised = raise("StartDecode", [&] { Q_EMIT decodeRequested(args); });
    m_decodePending = false;
    if (raised != Raised::Completed) {
        // Nobody answered how to decode the text: it cannot be taken for a known code.
        setValid(false);
        return DecodeOutcome::Failed;
    }
    if (args.cancel)
        return DecodeOutcome::Cancelled;
    if (args.sql.trimmed().isEmpty()) {
        setValid(true);
        return DecodeOutcome::NotRun;
    }
    try {
        const Form* owner = form();
        ConnectionSource* source = owner ? owner->connectionSource() : nullptr;
        if (!source)
            throw db::RuntimeError(db::RuntimeError::ObjectRequired,
                                   QStringLiteral("No connection to decode on"), name());
        const db::ResultSet result = source->connectionFor(args.connectionString).query(args.sql);
        fillTargets(args.targets, result);
        const bool found = !result.rows.isEmpty();
        setValid(found, tr("nessun dato con questo codice"));
        return found ? DecodeOutcome::Found : DecodeOutcome::NotFound;
    } catch (const db::RuntimeError& error) {
        m_lastError = error.description();
        setValid(false, m_lastError);
        return DecodeOutcome::Failed;
    }
}

void Field::clearDecoded()
{
    for (const QPointer<DataControl>& target : std::as_const(m_decoded)) {
        if (target)
            target->setValue(db::Value::null());
    }
    m_decoded.clear();
}

void Field::fillTargets(const QList<DecodeTarget>& targets, const db::ResultSet& result)
{
    m_decoded.clear();
    for (qsizetype i = 0; i < targets.size(); ++i) {
        const DecodeTarget& target = targets.at(i);
        if (!target.control)
            continue;
        m_decoded.append(target.control);
        if (result.rows.isEmpty()) {
            target.control->setValue(db::Value::null());
            continue;
        }
        const int column = target.column.isEmpty() ? int(i) : result.columnIndex(target.column);
        if (column < 0 || column >= result.columns.size())
            throw db::RuntimeError(
                db::RuntimeError::ItemNotFound,
                QStringLiteral("The decoding gives no column %1")
                    .arg(target.column.isEmpty() ? QString::number(i) : target.column));
        const db::ValueList& row = result.rows.first();
        target.control->setValue(
            column < row.size() ? db::convertToKind(row.at(column), result.columns.at(column).kind)
                                : db::Value::null());
    }
}

bool Field::hasLookup() const
{
    return isSignalConnected(QMetaMethod::fromSignal(&Field::lookupRequested));
}

bool Field::openLookup(const QString& narrowedTo)
{
    if (!canReceiveFocus())
        return false;
    LookupArgs args;
    if (raise("StartLookup", [&] { Q_EMIT lookupRequested(args); }) != Raised::Completed ||
        args.cancel)
        return false;
    args.narrowedTo = narrowedTo;
    m_lastLookup = args;
    const Form* owner = form();
    LookupPresenter* presenter = owner ? owner->lookupPresenter() : nullptr;
    if (args.sql.trimmed().isEmpty() || !presenter)
        return false;
    const std::optional<db::ValueList> row = presenter->chooseFromLookup(*this, args);
    if (!row || row->isEmpty())
        return false;
    acceptLookupChoice(*row);
    return true;
}

void Field::acceptLookupChoice(const db::ValueList& row)
{
    if (row.isEmpty())
        return;
    setText(rightTrimmed(row.first().toString()));
    decode();
}

void Field::setManagementKey(bool enabled)
{
    if (m_managementKey == enabled)
        return;
    m_managementKey = enabled;
    Q_EMIT managementKeyChanged(enabled);
}

void Field::setManagementCaption(const QString& caption)
{
    if (m_managementCaption == caption)
        return;
    m_managementCaption = caption;
    Q_EMIT managementCaptionChanged(caption);
}

void Field::addMenuItem(const QString& key, const QString& caption, bool enabled)
{
    m_menuItems.append({key, caption, enabled});
    Q_EMIT menuItemsChanged();
}

void Field::clearMenuItems()
{
    if (m_menuItems.isEmpty())
        return;
    m_menuItems.clear();
    Q_EMIT menuItemsChanged();
}

bool Field::pressManagementKey()
{
    if (!m_managementKey || !canReceiveFocus())
        return false;
    raise("ManagementKey", [this] { Q_EMIT managementKeyPressed(managementKeyName); });
    return true;
}

bool Field::chooseMenuItem(const QString& key)
{
    if (!canReceiveFocus())
        return false;
    for (const MenuItem& item : std::as_const(m_menuItems)) {
        if (item.key == key && item.enabled) {
            raise("ManagementKey", [&] { Q_EMIT managementKeyPressed(menuItemKeyPrefix + key); });
            return true;
        }
    }
    return false;
}

void Field::aboutToLeave()
{
    // A date typed short ("1/3/25") is shown whole once it is left.
    if (m_kind == Kind::Date) {
        if (const QDate date = readDate(m_text); date.isValid())
            setText(dateText(date));
    }
    if (m_decodePending)
        decode();
}

void Field::defaultKeyAction(int keyCode, int shift)
{
    if (m_multiLine && keyCode == Key::Enter)
        return;
    if (keyCode == Key::LookupList && shift == 0 && hasLookup())
        openLookup();
    else if (keyCode == Key::Management && shift == 0 && hasManagementKey())
        pressManagementKey();
    else
        DataControl::defaultKeyAction(keyCode, shift);
}

} // namespace tarvello::controls
