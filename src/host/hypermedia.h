#pragma once

#include "platform/db/value.h"
#include "src/host/eventsource.h"

#include <QString>

namespace tarvello::host {

class HyperMediaEvents {
public:
    // A media record was created for the object that opened the archive.
    virtual void AfterMediaCreate(const db::Value& CodiceMedia) = 0;

protected:
    ~HyperMediaEvents() = default;
};

// The host's multimedia archive (CHyperMedia).
class HyperMedia {
public:
    virtual ~HyperMedia() = default;
    // Opens the archive on a media record; with no record yet, the archive creates one and
    // raises AfterMediaCreate. The trailing two values are the archive's own settings.
    virtual void open(const db::Value& environment1, const db::Value& environment2,
                      const QString& connectionString, const db::Value& mediaId,
                      qint32 parentWindow, int mode, int option) = 0;
    virtual EventSource<HyperMediaEvents>& events() = 0;
};

} // namespace tarvello::host
