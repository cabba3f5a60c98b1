#pragma once

#include <QString>
#include <stdexcept>

class QWidget;

namespace tarvello::controls {
class Form;
}

namespace tarvello::gui {

class FormView;

// A widget tree that does not fit its form: a control name with no control, or a widget
// of a kind that cannot show its control.
class BindingError : public std::runtime_error {
public:
    explicit BindingError(const QString& message)
        : std::runtime_error(message.toStdString())
        , m_message(message)
    {}
    const QString& message() const { return m_message; }

private:
    QString m_message;
};

// Binds a widget tree laid out in the designer to a form's control models by object name.
//
// A widget named all in capitals (TXT_AGENTE, GRD_AGENTI, INTERNAV) names a control: the
// form must have a control of that name, and the widget must be of a kind that shows it
// (a field on a QLineEdit, a list on a QComboBox, a check box on a QCheckBox, a label or
// a picture on a QLabel, a button on a QAbstractButton, a panel on a QGroupBox, a tab
// strip on a QTabWidget, a menu button on a QToolButton, a navigator on any QWidget, a grid
// on a QTableView, a tree grid on a QTreeView). Other names (the designer's own, in lower
// case: layouts, captions, spacers) are left alone. Controls without a widget stay
// headless. Anything that does not fit raises BindingError and binds nothing.
class FormBinder {
public:
    // The view is owned by root.
    static FormView* bind(controls::Form& form, QWidget& root);
    // Whether an object name names a control.
    static bool namesControl(const QString& objectName);
};

} // namespace tarvello::gui
