#include "platform/gui/fieldview.h"

#include "platform/controls/displayformat.h"
#include "platform/controls/field.h"
#include "platform/controls/keycodes.h"
#include "platform/gui/keytranslation.h"

#include <QAction>
#include <QCalendarWidget>
#include <QLineEdit>
#include <QMenu>
#include <QStyle>

namespace tarvello::gui {

namespace {

// QLineEdit's own limit, standing for "no limit".
constexpr int unlimited = 32767;

QKeySequence lookupKey()
{
    return functionKey(controls::Key::LookupList);
}

QKeySequence managementKey()
{
    return functionKey(controls::Key::Management);
}

QString managementName(const controls::Field& field)
{
    const QString caption = field.managementCaption();
    return caption.isEmpty() ? FieldView::tr("Gestione") : caption;
}

} // namespace

FieldView::FieldView(controls::Field& field, QLineEdit& edit)
    : ControlView(field, edit)
    , m_edit(edit)
{
    using controls::Field;
    showText();
    showMaxLength();
    connect(&field, &Field::textChanged, this, &FieldView::showText);
    connect(&field, &Field::displayFormatChanged, this, &FieldView::showText);
    connect(&field, &Field::maxLengthChanged, this, &FieldView::showMaxLength);
    connect(&field, &Field::validChanged, this, &FieldView::showToolTip);
    connect(&field, &Field::acceptedChanged, this, &FieldView::showDataState);
    connect(&field, &Field::managementKeyChanged, this, &FieldView::showToolTip);
    connect(&field, &Field::managementCaptionChanged, this, &FieldView::showToolTip);
    connect(&edit, &QLineEdit::textEdited, this, &FieldView::takeTyping);
    if (field.kind() == Field::Kind::Numeric)
        edit.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    if (field.hasLookup()) {
        QAction* search =
            edit.addAction(edit.style()->standardIcon(QStyle::SP_FileDialogContentsView),
                           QLineEdit::TrailingPosition);
        search->setToolTip(tr("Elenco (%1)").arg(lookupKey().toString(QKeySequence::NativeText)));
        connect(search, &QAction::triggered, this, &FieldView::openLookup);
    }
    if (field.kind() == Field::Kind::Date) {
        QAction* calendar = edit.addAction(
            QIcon::fromTheme(QStringLiteral("x-office-calendar"),
                             edit.style()->standardIcon(QStyle::SP_FileDialogDetailedView)),
            QLineEdit::TrailingPosition);
        calendar->setToolTip(
            tr("Calendario (%1)").arg(lookupKey().toString(QKeySequence::NativeText)));
        connect(calendar, &QAction::triggered, this, &FieldView::openCalendar);
        // Room for a whole date beside the button.
        constexpr int buttonAndFrame = 30;
        const int date = edit.fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000"));
        edit.setMinimumWidth(qMax(edit.minimumWidth(), date + buttonAndFrame));
    }
    edit.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&edit, &QWidget::customContextMenuRequested, this, &FieldView::showContextMenu);
    showDataState();
}

void FieldView::focusMoved(bool hasFocus)
{
    Q_UNUSED(hasFocus);
    showText();
}

void FieldView::selectContents()
{
    m_edit.selectAll();
}

bool FieldView::keyIsModels(int keyCode, int shift) const
{
    const auto* field = model<controls::Field>();
    if (keyCode == controls::Key::Enter && field && field->isMultiLine())
        return false;
    return ControlView::keyIsModels(keyCode, shift);
}

bool FieldView::isDate() const
{
    const auto* field = model<controls::Field>();
    return field && field->kind() == controls::Field::Kind::Date && !field->hasLookup();
}

bool FieldView::actOnKey(int keyCode, int shift)
{
    if (keyCode != controls::Key::LookupList || shift != 0 || !isDate())
        return false;
    openCalendar();
    return true;
}

void FieldView::openCalendar()
{
    auto* field = model<controls::Field>();
    if (!field || !(field->hasFocus() || field->setFocus()))
        return;
    auto* calendar = new QCalendarWidget(&m_edit);
    calendar->setWindowFlags(Qt::Popup);
    calendar->setAttribute(Qt::WA_DeleteOnClose);
    calendar->setObjectName(QStringLiteral("calendario"));
    if (const QDate shown = controls::readDate(field->text()); shown.isValid())
        calendar->setSelectedDate(shown);
    connect(calendar, &QCalendarWidget::activated, this, [this, calendar](QDate date) {
        takeTyping(controls::dateText(date));
        calendar->close();
    });
    connect(calendar, &QCalendarWidget::clicked, calendar, &QCalendarWidget::activated);
    calendar->move(m_edit.mapToGlobal(QPoint(0, m_edit.height())));
    calendar->show();
    calendar->setFocus(Qt::PopupFocusReason);
}

bool FieldView::holdsWrongValue() const
{
    const auto* field = model<controls::Field>();
    return ControlView::holdsWrongValue() || (field && !field->isAccepted());
}

QString FieldView::toolTipText() const
{
    const auto* field = model<controls::Field>();
    if (!field)
        return {};
    const QString text = field->isValid() && !field->isAccepted()
                             ? tr("Il valore non è nella forma attesa")
                             : ControlView::toolTipText();
    QStringList keys;
    if (field->hasLookup())
        keys << keyHint(controls::Key::LookupList, tr("elenco"));
    if (field->hasManagementKey())
        keys << keyHint(controls::Key::Management, managementName(*field).toLower());
    if (isDate())
        keys << keyHint(controls::Key::LookupList, tr("calendario"));
    return withKeyHints(text, keys);
}

void FieldView::showText()
{
    const auto* field = model<controls::Field>();
    if (!field)
        return;
    const QString shown = field->hasFocus() ? field->text() : field->displayText();
    if (m_edit.text() == shown)
        return;
    const int cursor = m_edit.cursorPosition();
    m_edit.setText(shown);
    if (m_edit.hasFocus())
        m_edit.setCursorPosition(qMin(cursor, int(shown.size())));
    else
        showFromStart();
}

void FieldView::showFromStart()
{
    // Setting a text or a length puts the cursor at the end, which a text longer than the
    // field would then be read from.
    if (!m_edit.hasFocus())
        m_edit.setCursorPosition(0);
}

void FieldView::showMaxLength()
{
    if (const auto* field = model<controls::Field>())
        m_edit.setMaxLength(field->maxLength() > 0 ? field->maxLength() : unlimited);
    showFromStart();
}

void FieldView::takeTyping(const QString& typed)
{
    const int cursor = m_edit.cursorPosition();
    if (auto* field = model<controls::Field>())
        field->typeText(typed);
    // The model may have refused or changed what was typed; the typing goes on where it was.
    showText();
    m_edit.setCursorPosition(qMin(cursor, int(m_edit.text().size())));
}

void FieldView::openLookup()
{
    auto* field = model<controls::Field>();
    if (field && (field->hasFocus() || field->setFocus()))
        field->openLookup();
}

void FieldView::showContextMenu(const QPoint& position)
{
    auto* field = model<controls::Field>();
    if (!field)
        return;
    std::unique_ptr<QMenu> menu(m_edit.createStandardContextMenu());
    if (field->hasLookup() || field->hasManagementKey() || !field->menuItems().isEmpty())
        menu->addSeparator();
    if (field->hasLookup()) {
        QAction* list = menu->addAction(tr("Elenco"), this, &FieldView::openLookup);
        list->setShortcut(lookupKey());
    }
    if (field->hasManagementKey()) {
        QAction* management = menu->addAction(managementName(*field), this, [this] {
            if (auto* f = model<controls::Field>())
                f->pressManagementKey();
        });
        management->setShortcut(managementKey());
    }
    for (const controls::Field::MenuItem& item : field->menuItems()) {
        QAction* action = menu->addAction(item.caption, this, [this, key = item.key] {
            if (auto* f = model<controls::Field>())
                f->chooseMenuItem(key);
        });
        action->setEnabled(item.enabled);
    }
    menu->exec(m_edit.mapToGlobal(position));
}

} // namespace tarvello::gui
