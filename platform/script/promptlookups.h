#pragma once

#include "platform/controls/lookuppresenter.h"

namespace tarvello::services {
class UserPrompts;
}

namespace tarvello::script {

// The host's lookup lists, shown through the user prompts: the statement a field's lookup
// request answered runs on the connection its form has for the request's connection string,
// and the rows, as texts, are offered under the request's headings and title. A list
// narrowed to a text offers only the rows holding it, and says so in its title; when no row
// holds it the person is told so instead.
class PromptLookups final : public controls::LookupPresenter {
public:
    explicit PromptLookups(services::UserPrompts& prompts)
        : m_prompts(prompts)
    {}

    std::optional<db::ValueList> chooseFromLookup(controls::Field& field,
                                                  const controls::LookupArgs& request) override;

private:
    services::UserPrompts& m_prompts; // Not owned.
};

} // namespace tarvello::script
