#pragma once

#include <QTranslator>

namespace tarvello::gui {

// Qt's own texts in Italian (the standard buttons of message boxes, the file dialogs, the
// line edits' context menus), from the Qt translations installed with the system, and
// Italian number, date and month formats for every QLocale made without arguments. The
// texts stay Italian for as long as the object lives.
class ItalianTranslations final {
public:
    ItalianTranslations();
    ~ItalianTranslations();
    ItalianTranslations(const ItalianTranslations&) = delete;
    ItalianTranslations& operator=(const ItalianTranslations&) = delete;

    // False when the system has no Italian Qt translations: Qt's texts stay English.
    bool isLoaded() const { return m_loaded; }

private:
    QTranslator m_qt;
    bool m_loaded = false;
};

} // namespace tarvello::gui
