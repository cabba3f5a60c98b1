#include "platform/gui/navigatoricons.h"

#include <QStyle>

namespace tarvello::gui {

namespace {

struct KeyIcon {
    const char16_t* key;
    QStyle::StandardPixmap pixmap;
};

constexpr KeyIcon icons[] = {
    {u"Primo", QStyle::SP_MediaSkipBackward},
    {u"Ramo precedente", QStyle::SP_MediaSeekBackward},
    {u"Precedente", QStyle::SP_ArrowLeft},
    {u"Successivo", QStyle::SP_ArrowRight},
    {u"Ramo successivo", QStyle::SP_MediaSeekForward},
    {u"Ultimo", QStyle::SP_MediaSkipForward},
    {u"Nuovo", QStyle::SP_FileIcon},
    {u"Salva", QStyle::SP_DialogSaveButton},
    {u"Conferma", QStyle::SP_DialogApplyButton},
    {u"Annulla", QStyle::SP_DialogCancelButton},
    {u"Elimina", QStyle::SP_TrashIcon},
    {u"Cerca", QStyle::SP_FileDialogContentsView},
    {u"Multimedia", QStyle::SP_DirLinkIcon},
    {u"Esporta", QStyle::SP_DriveFDIcon},
    {u"Stampa", QStyle::SP_FileDialogDetailedView},
    {u"Apri", QStyle::SP_DirOpenIcon},
    {u"Indietro", QStyle::SP_ArrowBack},
    {u"Avanti", QStyle::SP_ArrowForward},
};

} // namespace

QIcon navigatorIcon(const QString& key, const QStyle& style)
{
    for (const KeyIcon& icon : icons) {
        if (key.compare(QStringView(icon.key), Qt::CaseInsensitive) == 0)
            return style.standardIcon(icon.pixmap);
    }
    return {};
}

} // namespace tarvello::gui
