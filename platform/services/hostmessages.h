#pragma once

#include "src/host/messagecatalogue.h"

#include <QHash>

namespace tarvello::services {

// The host's message catalogue. A message's parameters take the places %1, %2, ... in the
// order the caller passes them; a parameter's own text is never read for places.
class HostMessages final : public host::MessageCatalogue {
public:
    HostMessages();

    QString message(int number, const db::ValueList& parameters) const override;
    // The host shows the module's texts as the module writes them.
    QString text(const QString& text) const override { return text; }

private:
    QHash<int, QString> m_messages;
};

} // namespace tarvello::services
