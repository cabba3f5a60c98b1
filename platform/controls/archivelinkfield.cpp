#include "platform/controls/archivelinkfield.h"

namespace tarvello::controls {

ArchiveLinkField::ArchiveLinkField(const QString& name, Form* form)
    : Field(name, form, Kind::Code)
{}

void ArchiveLinkField::setArchiveKind(int kind)
{
    if (m_archiveKind == kind)
        return;
    m_archiveKind = kind;
    Q_EMIT archiveKindChanged(kind);
}

} // namespace tarvello::controls
