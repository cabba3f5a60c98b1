#pragma once

#include "platform/frame/columnvalue.h"
#include "platform/frame/messageboxes.h"

#include <QString>

namespace tarvello::frame {

// What a record frame says to the person, and the questions it asks, all through the host's
// user prompts. The description text of the frame ("la gestione anagrafica agenti") names
// what the frame manages in the questions about its data.
class FrameMessages {
public:
    // Standard answers of a message box.
    static constexpr int Yes = 6;
    static constexpr int No = 7;
    static constexpr int Cancel = 2;

    explicit FrameMessages(MessageBoxes& prompts)
        : m_prompts(prompts)
    {}

    void setDescription(const QString& description) { m_description = description; }
    const QString& description() const { return m_description; }

    // Yes / No, No by default.
    // record: what the person is asked to delete ("A001 RICCI FRANCESCA"); when empty, the
    // data on view.
    bool confirmDelete(const QString& record) const;
    bool confirmDeleteAll() const;
    bool confirmDropChanges() const;
    // Yes / No / Cancel: the standard answer given.
    int askSaveChanges() const;

    void requiredFieldEmpty(const QString& caption) const;
    void fieldNotValid(const QString& caption) const;
    void valueRefused(const QString& caption, const ColumnValue& refused) const;
    void keyNotFound() const;
    void saveFailed(const QString& reason) const;
    // A batch save left the frame's changes unwritten because of the row being entered.
    void changesNotSaved() const;
    // The value of the field is a unique key that another row holds.
    void valueTaken(const QString& caption, const QString& value) const;
    void deleteFailed(const QString& reason) const;
    // Why a delete of data another user changed since it was shown is refused.
    QString changedByOthers() const;
    // A run-time error raised by a handler of the frame's events.
    void handlerFailed(long number, const QString& description) const;

private:
    // " per <description>" when the frame has one.
    QString forWhat() const;
    void warn(const QString& text) const;

    MessageBoxes& m_prompts; // Not owned.
    QString m_description;
};

} // namespace tarvello::frame
