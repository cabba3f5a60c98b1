#include "platform/controls/combobox.h"

namespace tarvello::controls {

namespace {

// Codes match by value, and a number matches its text ("5" is the code 5), since the
// module writes list values as texts.
bool sameCode(const db::Value& a, const db::Value& b)
{
    if (a.isBlank() || b.isBlank())
        return a.isBlank() && b.isBlank();
    return a == b || a.toString() == b.toString();
}

db::Value codeFromText(const QString& text)
{
    if (text.isEmpty())
        return {};
    if (const auto number = db::Decimal::parse(text)) {
        if (number->normalized().scale() == 0)
            return db::Value(number->toInt64());
        return *number;
    }
    return text;
}

} // namespace

void ComboBox::addItem(const QString& caption, const db::Value& code)
{
    m_items.append({caption, code});
    Q_EMIT itemsChanged();
}

void ComboBox::clear()
{
    if (m_items.isEmpty())
        return;
    m_items.clear();
    Q_EMIT itemsChanged();
}

int ComboBox::indexOfCode(const db::Value& code) const
{
    for (qsizetype i = 0; i < m_items.size(); ++i) {
        if (sameCode(m_items.at(i).code, code))
            return int(i);
    }
    return -1;
}

void ComboBox::setValue(const db::Value& code)
{
    if (sameCode(m_value, code))
        return;
    const int index = indexOfCode(code);
    m_value = index >= 0 ? m_items.at(index).code : code;
    Q_EMIT valueChanged();
    raise("Click", [this] { Q_EMIT valueSet(m_value); });
}

QString ComboBox::text() const
{
    return m_value.isBlank() ? QString() : m_value.toString();
}

void ComboBox::setText(const QString& text)
{
    const QString code = text.trimmed();
    for (const Item& item : std::as_const(m_items)) {
        if (!item.code.isBlank() && item.code.toString() == code) {
            setValue(item.code);
            return;
        }
    }
    setValue(codeFromText(code));
}

QString ComboBox::currentCaption() const
{
    const int index = currentIndex();
    return index < 0 ? QString() : m_items.at(index).caption;
}

bool ComboBox::choose(int index)
{
    if (!canReceiveFocus() || index < 0 || index >= m_items.size())
        return false;
    setValue(m_items.at(index).code);
    return true;
}

bool ComboBox::chooseCode(const db::Value& code)
{
    return choose(indexOfCode(code));
}

} // namespace tarvello::controls
