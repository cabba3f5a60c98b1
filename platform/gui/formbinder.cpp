#include "platform/gui/formbinder.h"

#include "platform/controls/button.h"
#include "platform/controls/checkbox.h"
#include "platform/controls/combobox.h"
#include "platform/controls/field.h"
#include "platform/controls/form.h"
#include "platform/controls/label.h"
#include "platform/controls/menubutton.h"
#include "platform/controls/navigator.h"
#include "platform/controls/panel.h"
#include "platform/controls/picture.h"
#include "platform/controls/tabstrip.h"
#include "platform/controls/treegrid.h"
#include "platform/gui/buttonview.h"
#include "platform/gui/checkboxview.h"
#include "platform/gui/comboboxview.h"
#include "platform/gui/fieldview.h"
#include "platform/gui/formview.h"
#include "platform/gui/gridview.h"
#include "platform/gui/labelview.h"
#include "platform/gui/menubuttonview.h"
#include "platform/gui/navigatorview.h"
#include "platform/gui/panelview.h"
#include "platform/gui/pictureview.h"
#include "platform/gui/tabstripview.h"
#include "platform/gui/treegridview.h"

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>
#include <QTreeView>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace tarvello::gui {

namespace {

// A view made for a control; none when the control is not of the binder's kind.
using ViewMaker =
    std::function<std::optional<std::unique_ptr<ControlView>>(controls::Control&, QWidget&)>;

QString kindName(const QMetaObject& meta)
{
    const QString name = QString::fromLatin1(meta.className());
    return name.mid(name.lastIndexOf(u':') + 1);
}

template <class Model, class Widget, class View>
ViewMaker viewFor()
{
    return [](controls::Control& control,
              QWidget& widget) -> std::optional<std::unique_ptr<ControlView>> {
        auto* model = qobject_cast<Model*>(&control);
        if (!model)
            return std::nullopt;
        auto* shown = qobject_cast<Widget*>(&widget);
        if (!shown)
            throw BindingError(QStringLiteral("%1 is a %2: it needs a %3, not a %4")
                                   .arg(control.name(), kindName(*control.metaObject()),
                                        QString::fromLatin1(Widget::staticMetaObject.className()),
                                        QString::fromLatin1(widget.metaObject()->className())));
        return std::make_unique<View>(*model, *shown);
    };
}

// In order: a kind before the kinds it derives from.
const std::vector<ViewMaker>& viewMakers()
{
    using namespace controls;
    static const std::vector<ViewMaker> makers = {
        viewFor<TreeGrid, QTreeView, TreeGridView>(),
        viewFor<Grid, QTableView, GridView>(),
        viewFor<Field, QLineEdit, FieldView>(),
        viewFor<ComboBox, QComboBox, ComboBoxView>(),
        viewFor<CheckBox, QCheckBox, CheckBoxView>(),
        viewFor<Label, QLabel, LabelView>(),
        viewFor<Picture, QLabel, PictureView>(),
        viewFor<Button, QAbstractButton, ButtonView>(),
        viewFor<Panel, QGroupBox, PanelView>(),
        viewFor<TabStrip, QTabWidget, TabStripView>(),
        viewFor<MenuButton, QToolButton, MenuButtonView>(),
        viewFor<Navigator, QWidget, NavigatorView>(),
    };
    return makers;
}

std::unique_ptr<ControlView> makeView(controls::Control& control, QWidget& widget)
{
    for (const ViewMaker& make : viewMakers()) {
        if (auto view = make(control, widget))
            return std::move(*view);
    }
    throw BindingError(QStringLiteral("%1 is a %2, which no widget can show")
                           .arg(control.name(), kindName(*control.metaObject())));
}

} // namespace

bool FormBinder::namesControl(const QString& objectName)
{
    static const QRegularExpression capitals(QStringLiteral("^[A-Z][A-Z0-9_]*$"));
    return capitals.match(objectName).hasMatch();
}

FormView* FormBinder::bind(controls::Form& form, QWidget& root)
{
    QList<QWidget*> widgets = root.findChildren<QWidget*>();
    widgets.prepend(&root);
    QList<std::pair<controls::Control*, QWidget*>> pairs;
    for (QWidget* widget : std::as_const(widgets)) {
        if (!namesControl(widget->objectName()))
            continue;
        controls::Control* control = form.control(widget->objectName());
        if (!control)
            throw BindingError(QStringLiteral("The widget %1 has no control of that name on %2")
                                   .arg(widget->objectName(), form.name()));
        pairs.append({control, widget});
    }
    // A tree that does not fit is left with no view bound at all.
    std::vector<std::unique_ptr<ControlView>> views;
    for (const auto& [control, widget] : std::as_const(pairs))
        views.push_back(makeView(*control, *widget));
    auto* formView = new FormView(form, root);
    for (std::unique_ptr<ControlView>& view : views)
        formView->addView(*view.release());
    return formView;
}

} // namespace tarvello::gui
