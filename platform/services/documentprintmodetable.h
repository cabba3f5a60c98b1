#pragma once

#include "src/host/documentprintmodes.h"

namespace tarvello::services {

// The host's document print modes: paper, e-mail, both, or the electronic archive only.
class DocumentPrintModeTable final : public host::DocumentPrintModes {
public:
    QList<QStringList> table() const override;
};

} // namespace tarvello::services
