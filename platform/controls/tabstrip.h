#pragma once

#include "platform/controls/control.h"

#include <QStringList>

namespace tarvello::controls {

// A strip of tab pages with captions carrying access keys ("Dati &generali" -> 'g').
// Selecting a page, by the person or by code, raises beforePageChange (which may cancel)
// and then currentPageChanged.
class TabStrip : public Control {
    Q_OBJECT
public:
    using Control::Control;

    int pageCount() const { return int(m_captions.size()); }
    void addPage(const QString& caption);
    QString pageCaption(int page) const;
    void setPageCaption(int page, const QString& caption);
    // The lower-case access key of a page; a null QChar when its caption has none.
    QChar accessKey(int page) const;
    // -1 when no page has that access key.
    int pageForAccessKey(QChar key) const;

    // -1 while there are no pages.
    int currentPage() const { return m_current; }
    // True when the page is the current one afterwards.
    bool selectPage(int page);

Q_SIGNALS:
    void pagesChanged();
    void beforePageChange(tarvello::controls::TabChangeArgs& args);
    void currentPageChanged(int page, int previous);

private:
    QStringList m_captions;
    int m_current = -1;
};

} // namespace tarvello::controls
