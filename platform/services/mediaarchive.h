#pragma once

#include "src/host/hypermedia.h"

namespace tarvello::services {

class UserPrompts;

// The host's multimedia archive (CG99_MULTIMEDIA). Opened for an object that has no media
// record yet, it asks the person for the file to attach, records it and raises
// AfterMediaCreate with the new record's id; nothing chosen, nothing is recorded. Opened on
// an existing record, it shows the file recorded there.
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
