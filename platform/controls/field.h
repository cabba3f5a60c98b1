#pragma once

#include "platform/controls/datacontrol.h"
#include "platform/db/resultset.h"

#include <QList>
#include <QPointer>
#include <QString>
#include <optional>

namespace tarvello::controls {

// A text-entry field: plain text, a code with lookup and decoding, a number or a date.
//
// Rules on the text: upper case and the maximum length apply to every text set, by the
// person or by code; "numbers only" filters what the person types (digits, one leading
// minus, one decimal separator), as does a date field (digits and '/').
//
// Decoding: when the focus leaves the field after its text changed, and whenever decode()
// is called (a record frame does after showing a row), the field raises decodeRequested.
// The handler answers a statement, the target controls and a connection string; the field
// runs the statement on the connection its form's ConnectionSource gives for that string
// and fills the targets from the columns of the first row. No row marks the field not
// valid and empties the targets; a row, or no statement at all, marks it valid. An empty
// text is always valid: an empty code is no code, not a wrong one.
//
// Lookup: openLookup() raises lookupRequested; unless cancelled, the form's
// LookupPresenter shows the list and the first column of the chosen row becomes the text,
// which is decoded at once.
//
// Management key: pressManagementKey() raises managementKeyPressed("Kgestione"); an extra
// menu item with key K raises it with "Kpers" + K.
//
// Keys a handler leaves alone: F3 (Key::LookupList) opens the lookup of a field that has one, F4
// (Key::Management) presses the management key of a field that has one.
class Field : public DataControl {
    Q_OBJECT
public:
    enum class Kind { Text, Code, Numeric, Date };
    enum class DecodeOutcome { Cancelled, NotRun, Found, NotFound, Failed };

    struct MenuItem {
        QString key;
        QString caption;
        bool enabled = true;
    };

    Field(const QString& name, Form* form, Kind kind = Kind::Text);

    Kind kind() const { return m_kind; }

    QString text() const { return m_text; }
    void setText(const QString& text);
    // Replaces the text as typed keys would; false when the person cannot type here.
    bool typeText(const QString& typed);
    // The text shown when the field does not have the focus (formatted by displayFormat).
    QString displayText() const;

    // Null when the text is empty or only blanks. Text: the text. Numeric: a Decimal. Date: a
    // date. A text that does not read as a number or a date comes back as text.
    db::Value value() const override;
    // Numbers are written with ',' for the decimals, dates as dd/MM/yyyy; Null empties.
    void setValue(const db::Value& value) override;

    int maxLength() const { return m_maxLength; }
    // 0 for no limit; a shorter limit cuts the current text.
    void setMaxLength(int length);
    bool isUpperCase() const { return m_upperCase; }
    void setUpperCase(bool upperCase);
    bool isNumbersOnly() const { return m_numbersOnly; }
    void setNumbersOnly(bool numbersOnly);
    QString displayFormat() const { return m_displayFormat; }
    void setDisplayFormat(const QString& format);
    bool isMultiLine() const { return m_multiLine; }
    void setMultiLine(bool multiLine);
    QString lookupId() const { return m_lookupId; }
    void setLookupId(const QString& id);

    // False once the person was warned that the text is not in its expected form (a tax code
    // the checker rejects). Unlike a value marked not valid it does not stop a save; a new
    // text clears it.
    bool isAccepted() const { return m_accepted; }
    void setAccepted(bool accepted);

    DecodeOutcome decode();
    // Empties the controls the last decoding filled: they describe a code no longer shown.
    void clearDecoded();
    // The text changed since the last decoding.
    bool isDecodePending() const { return m_decodePending; }
    // Why the last decoding failed; empty after one that did not.
    QString lastError() const { return m_lastError; }

    // Whether the field opens a list: its form answers its lookup requests.
    bool hasLookup() const;
    // narrowedTo: only the rows holding this text (in any column, any case) are offered.
    bool openLookup(const QString& narrowedTo = {});
    // The request of the last lookup that got past its handlers.
    std::optional<LookupArgs> lastLookupRequest() const { return m_lastLookup; }
    // Takes a chosen lookup row: its first column becomes the text, then decodes.
    void acceptLookupChoice(const db::ValueList& row);

    bool hasManagementKey() const { return m_managementKey; }
    void setManagementKey(bool enabled);
    QString managementCaption() const { return m_managementCaption; }
    void setManagementCaption(const QString& caption);
    const QList<MenuItem>& menuItems() const { return m_menuItems; }
    void addMenuItem(const QString& key, const QString& caption, bool enabled = true);
    void clearMenuItems();
    bool pressManagementKey();
    bool chooseMenuItem(const QString& key);

Q_SIGNALS:
    void textChanged(const QString& text);
    void maxLengthChanged(int length);
    void upperCaseChanged(bool upperCase);
    void numbersOnlyChanged(bool numbersOnly);
    void displayFormatChanged(const QString& format);
    void multiLineChanged(bool multiLine);
    void lookupIdChanged(const QString& id);
    void acceptedChanged(bool accepted);
    void managementKeyChanged(bool enabled);
    void managementCaptionChanged(const QString& caption);
    void menuItemsChanged();

    void decodeRequested(tarvello::controls::DecodeArgs& args);
    void lookupRequested(tarvello::controls::LookupArgs& args);
    void managementKeyPressed(const QString& key);

protected:
    void aboutToLeave() override;
    void defaultKeyAction(int keyCode, int shift) override;

private:
    QString normalized(const QString& text) const;
    DecodeOutcome runDecoding();
    QString typedCharacters(const QString& typed) const;
    void fillTargets(const QList<DecodeTarget>& targets, const db::ResultSet& result);

    const Kind m_kind;
    QString m_text;
    int m_maxLength = 0;
    bool m_upperCase = false;
    bool m_numbersOnly = false;
    QString m_displayFormat;
    bool m_multiLine = false;
    QString m_lookupId;
    bool m_decodePending = false;
    QList<QPointer<DataControl>> m_decoded; // Not owned.
    bool m_accepted = true;
    QString m_lastError;
    std::optional<LookupArgs> m_lastLookup;
    bool m_managementKey = false;
    QString m_managementCaption;
    QList<MenuItem> m_menuItems;
};

} // namespace tarvello::controls
