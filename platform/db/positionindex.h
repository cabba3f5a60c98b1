#pragma once

#include <QHash>
#include <QList>

namespace tarvello::db {

// Where each key stands in a list of distinct keys that grows at its end (the rows a view shows).
// A few look-ups scan the list; a run of them earns an index, which takes in the keys appended
// since only when a look-up misses, so appending a row costs nothing. The last key, the row just
// added that code fills next, is found without a look-up. clear() whenever the list changes
// otherwise than by growing.
template <class Key>
class PositionIndex {
public:
    // -1 when the key is not in the list.
    qsizetype find(const QList<Key>& list, const Key& key) const
    {
        if (!list.isEmpty() && list.last() == key)
            return list.size() - 1;
        constexpr int scansBeforeIndexing = 8;
        if (m_indexed == 0 && ++m_scans <= scansBeforeIndexing)
            return list.indexOf(key);
        auto found = m_positions.constFind(key);
        if (found == m_positions.cend() && m_indexed < list.size()) {
            m_positions.reserve(list.size());
            for (; m_indexed < list.size(); ++m_indexed)
                m_positions.insert(list.at(m_indexed), m_indexed);
            found = m_positions.constFind(key);
        }
        return found == m_positions.cend() ? -1 : *found;
    }

    void clear()
    {
        m_positions.clear();
        m_indexed = 0;
        m_scans = 0;
    }

private:
    mutable QHash<Key, qsizetype> m_positions;
    mutable qsizetype m_indexed = 0; // the keys at the start of the list that the index holds
    mutable int m_scans = 0;
};

} // namespace tarvello::db
