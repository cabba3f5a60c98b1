#include "platform/controls/tabstrip.h"

namespace tarvello::controls {

void TabStrip::addPage(const QString& caption)
{
    m_captions.append(caption);
    Q_EMIT pagesChanged();
    if (m_current < 0) {
        m_current = 0;
        Q_EMIT currentPageChanged(0, -1);
    }
}

QString TabStrip::pageCaption(int page) const
{
    return m_captions.value(page);
}

void TabStrip::setPageCaption(int page, const QString& caption)
{
    if (page < 0 || page >= m_captions.size() || m_captions.at(page) == caption)
        return;
    m_captions[page] = caption;
    Q_EMIT pagesChanged();
}

QChar TabStrip::accessKey(int page) const
{
    const QString caption = pageCaption(page);
    for (qsizetype i = 0; i + 1 < caption.size(); ++i) {
        if (caption.at(i) != u'&')
            continue;
        if (caption.at(i + 1) != u'&')
            return caption.at(i + 1).toLower();
        ++i; // "&&" is a literal ampersand
    }
    return {};
}

int TabStrip::pageForAccessKey(QChar key) const
{
    for (int page = 0; page < pageCount(); ++page) {
        if (!key.isNull() && accessKey(page) == key.toLower())
            return page;
    }
    return -1;
}

bool TabStrip::selectPage(int page)
{
    if (page < 0 || page >= pageCount())
        return false;
    if (page == m_current)
        return true;
    TabChangeArgs args{m_current, page, false};
    if (raise("BeforeClick", [&] { Q_EMIT beforePageChange(args); }) == Raised::Abandoned ||
        args.cancel)
        return false;
    const int previous = std::exchange(m_current, page);
    raise("Click", [&] { Q_EMIT currentPageChanged(page, previous); });
    return true;
}

} // namespace tarvello::controls
