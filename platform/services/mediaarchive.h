#pragma once

#include "src/host/hypermedia.h"

namespace tarvello::services {

class UserPrompts;

// The host's multimedia archive. Opening it is a management the person works in; opened
// for an object that has no media record yet, a file the person adds there creates the
// record (in CG99_MULTIMEDIA) and the archive raises AfterMediaCreate with its id.
class MediaArchive final : public host::HyperMedia {
public:
    explicit MediaArchive(UserPrompts& prompts)
        : m_prompts(prompts)
    {}

    void open(const db::Value& environment1, const db::Value& environment2,
              const QString& connectionString, const db::Value& mediaId, qint32 parentWindow,
              int mode, int option) override;
    host::EventSource<host::HyperMediaEvents>& events() override { return m_events; }

private:
    UserPrompts& m_prompts; // Not owned.
    host::EventSource<host::HyperMediaEvents> m_events;
};

} // namespace tarvello::services
