#pragma once

#include "platform/db/value.h"
#include "platform/frame/columnvalue.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QString>
#include <functional>
#include <optional>

namespace tarvello::controls {
class DataControl;
}

namespace tarvello::db {
class RuntimeError;
}

namespace tarvello::frame {

// How messages name a control: its caption, or its name when it has none.
QString captionOf(const controls::DataControl* control);

// The controls registered with a record frame, each bound to a column (its data field) or to
// none, in the order they were registered. Showing a row sets the controls without taking
// their changes for edits; an edit made afterwards, by the person or by code, is announced.
class FieldBindings : public QObject {
    Q_OBJECT
public:
    // The value of a column for the row shown; nothing leaves the control as it is.
    using ColumnReader = std::function<std::optional<db::Value>(const QString& column)>;
    using FormatOf = std::function<ColumnFormat(const QString& column)>;

    // Why a control stops a save.
    struct Refusal {
        enum class Reason { Required, NotValid, Value };
        controls::DataControl* control = nullptr;
        Reason reason = Reason::Required;
        ColumnValue value;
    };

    explicit FieldBindings(FormatOf formatOf, QObject* parent = nullptr);

    // False when the control was registered already. A field bound to a text column takes
    // no more characters than the column holds.
    bool add(controls::DataControl* control);
    void clear();
    bool contains(const controls::DataControl* control) const;
    // Empty for a control bound to no column.
    QString columnOf(const controls::DataControl* control) const;
    QList<controls::DataControl*> controls() const;

    // Shows a row: every bound control takes its column's value and every control is valid
    // again.
    void show(const ColumnReader& read);
    // Shows the values that changed since they were last shown or written.
    void sync(const ColumnReader& read, const controls::DataControl* except = nullptr);
    // The control's value was written into its column.
    void written(const controls::DataControl* control, const db::Value& value);
    // Asks the fields holding a text to decode it, and empties what the others last decoded
    // into; a failing handler reaches onError.
    void decode(const std::function<void(const db::RuntimeError&)>& onError);
    // The value of the control as its column takes it.
    ColumnValue columnValue(const controls::DataControl* control) const;
    // The first control the person can reach that is required and empty, marked not valid,
    // or holding a value its column cannot take.
    std::optional<Refusal> firstRefusal() const;

Q_SIGNALS:
    // A registered control changed its value outside a show.
    void edited(tarvello::controls::DataControl* control);
    // A registered control is about to lose the focus, before any handler of the module hears
    // of it; set cancel to keep it.
    void leaving(tarvello::controls::DataControl* control, bool& cancel);

private:
    struct Binding {
        QPointer<controls::DataControl> control; // Not owned.
        QString column;
        // The column value the control shows, as last shown or written.
        db::Value shown;
    };

    Binding* find(const controls::DataControl* control);
    const Binding* find(const controls::DataControl* control) const;

    FormatOf m_formatOf;
    QList<Binding> m_bindings;
    bool m_showing = false;
};

} // namespace tarvello::frame
