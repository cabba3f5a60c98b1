#pragma once

#include <QDialog>
#include <QList>
#include <QStringList>
#include <optional>

class QLineEdit;
class QSortFilterProxyModel;
class QStandardItemModel;
class QTableView;

namespace tarvello::gui {

// The host's lookup list: the rows it is given under their headings, and a search box that
// narrows them as the person types (any column containing the text, ignoring case). Enter
// picks the highlighted row (the first one shown when none is), a double click picks the row
// clicked, Esc closes without a choice. Up and Down in the search box move the highlight.
class LookupDialog final : public QDialog {
    Q_OBJECT
public:
    LookupDialog(const QString& title, const QStringList& headings, const QList<QStringList>& rows,
                 QWidget* parent = nullptr);

    // The index of the row picked among the rows given; none while nothing was picked.
    std::optional<int> chosenRow() const { return m_chosen; }
    QLineEdit& searchBox() const { return *m_search; }
    QTableView& table() const { return *m_table; }
    // Rows shown after the search.
    int shownRowCount() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void narrow(const QString& text);
    void pick(int shownRow);
    int highlightedRow() const;

    QLineEdit* m_search;               // Owned (child widget).
    QTableView* m_table;               // Owned (child widget).
    QStandardItemModel* m_rows;        // Owned (QObject child).
    QSortFilterProxyModel* m_filtered; // Owned (QObject child).
    std::optional<int> m_chosen;
};

} // namespace tarvello::gui
