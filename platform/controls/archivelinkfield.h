#pragma once

#include "platform/controls/field.h"

namespace tarvello::controls {

// The field that links a record to the host's document archive: a code field with the
// kind of archive entry it links to.
class ArchiveLinkField : public Field {
    Q_OBJECT
public:
    ArchiveLinkField(const QString& name, Form* form);

    int archiveKind() const { return m_archiveKind; }
    void setArchiveKind(int kind);

Q_SIGNALS:
    void archiveKindChanged(int kind);

private:
    int m_archiveKind = 0;
};

} // namespace tarvello::controls
