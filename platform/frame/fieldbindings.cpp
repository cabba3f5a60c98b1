#include "platform/frame/fieldbindings.h"

#include "platform/controls/field.h"
#include "platform/db/runtimeerror.h"

#include <QScopedValueRollback>

namespace tarvello::frame {

using controls::DataControl;
using db::identical;
using db::Value;

QString captionOf(const DataControl* control)
{
    return control->caption().isEmpty() ? control->name() : control->caption();
}

FieldBindings::FieldBindings(FormatOf formatOf, QObject* parent)
    : QObject(parent)
    , m_formatOf(std::move(formatOf))
{}

FieldBindings::Binding* FieldBindings::find(const DataControl* control)
{
    for (Binding& binding : m_bindings) {
        if (binding.control == control)
            return &binding;
    }
    return nullptr;
}

const FieldBindings::Binding* FieldBindings::find(const DataControl* control) const
{
    return const_cast<FieldBindings*>(this)->find(control);
}

bool FieldBindings::add(DataControl* control)
{
    if (!control || find(control))
        return false;
    m_bindings.append({control, control->dataField(), {}});
    if (auto* field = qobject_cast<controls::Field*>(control);
        field && !field->dataField().isEmpty()) {
        const ColumnFormat format = m_formatOf(field->dataField());
        const int length = format.kind == db::ColumnKind::Text ? format.size.length : 0;
        if (length > 0 && (field->maxLength() == 0 || field->maxLength() > length))
            field->setMaxLength(length);
    }
    connect(control, &DataControl::valueChanged, this, [this, control] {
        if (!m_showing)
            Q_EMIT edited(control);
    });
    connect(control, &controls::Control::leaveRequested, this,
            [this, control](controls::CancelArgs& args) {
                if (!m_showing)
                    Q_EMIT leaving(control, args.cancel);
            });
    return true;
}

void FieldBindings::clear()
{
    for (const Binding& binding : std::as_const(m_bindings)) {
        if (binding.control)
            disconnect(binding.control, nullptr, this, nullptr);
    }
    m_bindings.clear();
}

bool FieldBindings::contains(const DataControl* control) const
{
    return control && find(control);
}

QString FieldBindings::columnOf(const DataControl* control) const
{
    const Binding* binding = find(control);
    return binding ? binding->column : QString();
}

QList<DataControl*> FieldBindings::controls() const
{
    QList<DataControl*> controls;
    for (const Binding& binding : m_bindings) {
        if (binding.control)
            controls << binding.control;
    }
    return controls;
}

void FieldBindings::show(const ColumnReader& read)
{
    const QScopedValueRollback showing(m_showing, true);
    for (Binding& binding : m_bindings) {
        if (!binding.control)
            continue;
        binding.control->setValid(true);
        if (binding.column.isEmpty())
            continue;
        if (const std::optional<Value> value = read(binding.column)) {
            binding.control->setValue(*value);
            binding.shown = *value;
        }
    }
}

void FieldBindings::sync(const ColumnReader& read, const DataControl* except)
{
    const QScopedValueRollback showing(m_showing, true);
    for (Binding& binding : m_bindings) {
        if (!binding.control || binding.control == except || binding.column.isEmpty())
            continue;
        const std::optional<Value> value = read(binding.column);
        if (!value || identical(*value, binding.shown))
            continue;
        binding.control->setValue(*value);
        binding.shown = *value;
    }
}

void FieldBindings::written(const DataControl* control, const Value& value)
{
    if (Binding* binding = find(control))
        binding->shown = value;
}

void FieldBindings::decode(const std::function<void(const db::RuntimeError&)>& onError)
{
    // The descriptions a decoding fills in are part of showing the row, not edits.
    const QScopedValueRollback showing(m_showing, true);
    // By place: a decoding's handler may bind another control meanwhile.
    for (qsizetype i = 0; i < m_bindings.size(); ++i) {
        auto* field = qobject_cast<controls::Field*>(m_bindings.at(i).control);
        if (!field)
            continue;
        // An empty code has nothing to decode; what described the code shown before goes.
        if (field->text().trimmed().isEmpty()) {
            field->clearDecoded();
            continue;
        }
        try {
            field->decode();
        } catch (const db::RuntimeError& error) {
            onError(error);
        }
    }
}

ColumnValue FieldBindings::columnValue(const DataControl* control) const
{
    const Binding* binding = find(control);
    if (!binding || binding->column.isEmpty())
        return toColumnValue(Value::null(), {});
    return toColumnValue(control->value(), m_formatOf(binding->column));
}

std::optional<FieldBindings::Refusal> FieldBindings::firstRefusal() const
{
    using Reason = Refusal::Reason;
    for (const Binding& binding : m_bindings) {
        DataControl* control = binding.control;
        if (!control || !control->canReceiveFocus())
            continue;
        if (control->isRequired() && control->isBlank())
            return Refusal{control, Reason::Required, {}};
        if (!control->isValid())
            return Refusal{control, Reason::NotValid, {}};
        if (const ColumnValue value = columnValue(control); !value.accepted())
            return Refusal{control, Reason::Value, value};
    }
    return std::nullopt;
}

} // namespace tarvello::frame
