#include "gui/tagpasting.h"

#include "base/background.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGridLayout>
#include <QGuiApplication>
#include <QMessageBox>
#include <QMimeData>
#include <QVBoxLayout>

#include <algorithm>

namespace {

using TagClipboard::Field;
using TagClipboard::Tags;

constexpr int columnsOfFields = 2;
constexpr int insideGroup = 6; // pixels

void tell(const QString &reason, QWidget &window)
{
    auto *alert = new QMessageBox(QMessageBox::Warning, qtTrId("TagsOnClipboardTitle"), reason,
                                  QMessageBox::Ok, &window);
    alert->setTextFormat(Qt::PlainText);
    alert->setAttribute(Qt::WA_DeleteOnClose);
    alert->open();
}

bool isInAny(const Field &field, const Tags &tags)
{
    return std::any_of(tags.begin(), tags.end(),
                       [&field](const TagValues &tag) { return field.isIn(tag); });
}

/// What an album's songs have in common, unless the songs are pasted one into the other.
bool isChosenAtFirst(const Field &field, const Tags &tags, const SongList &songs)
{
    const bool oneIntoSeveral = tags.size() == 1 && songs.size() > 1;
    return isInAny(field, tags) && !(oneIntoSeveral && field.isOfOneSong());
}

QMimeData *mimeDataOf(const Tags &tags)
{
    auto *data = new QMimeData;
    data->setData(TagClipboard::mimeType, TagClipboard::encoded(tags));
    data->setText(TagClipboard::plainText(tags));
    return data;
}

/// The value of a text of one song, where there is room for it.
QString nameWithValue(const Field &field, const Tags &tags)
{
    constexpr qsizetype longestValue = 30;
    QString name = qtTrId(field.textID);
    const QString value = tags.size() == 1 && field.text && field.text != TagText::Lyrics
        ? tags.first().texts.value(*field.text).simplified()
        : QString();
    if (value.isEmpty())
        return name;
    const QString shown = value.size() > longestValue ? value.left(longestValue - 1) + u'…' : value;
    return qtTrId("FieldAndValue").arg(name, QString(shown).replace(u'&', QStringLiteral("&&")));
}

} // namespace

PasteTagsSheet::PasteTagsSheet(const Tags &tags, const SongList &songs, QWidget *parent)
    : ChangeSheet(tags.size() == 1 ? qtTrId("PasteTagsQuestion")
                                   : qtTrId("PasteTagsInOrder").arg(tags.size()),
                  songs, qtTrId("PasteTagsProceed"), parent)
{
    auto *grid = new QGridLayout;
    grid->setVerticalSpacing(insideGroup);
    for (const Field &field : TagClipboard::fields()) {
        auto *box = new QCheckBox(nameWithValue(field, tags), this);
        box->setChecked(isChosenAtFirst(field, tags, songs));
        if (!isInAny(field, tags))
            box->setToolTip(qtTrId("ToolTipPasteNothing"));
        const int place = static_cast<int>(mBoxes.size());
        grid->addWidget(box, place / columnsOfFields, place % columnsOfFields);
        mBoxes.push_back(box);
    }
    choices().addLayout(grid);
}

QList<Field> PasteTagsSheet::chosenFields() const
{
    QList<Field> chosen;
    for (std::size_t i = 0; i < mBoxes.size(); ++i)
        if (mBoxes[i]->isChecked())
            chosen << TagClipboard::fields()[i];
    return chosen;
}

void copyTags(MainController &controller, QWidget &window)
{
    const SongList &songs = controller.selectedSongs();
    if (songs.size() > TagClipboard::mostSongs)
        return tell(qtTrId("ErrorTooMuchToCopy"), window);
    QStringList paths;
    for (const auto &song : songs)
        paths << song->path();
    const ReadOptions options = controller.prefs().readOptions();
    runInBackground([paths, options] { return TagClipboard::copiedFrom(paths, options); }, &window,
                    [&window](const TagClipboard::Copied &copied) {
                        if (!copied.reason.isEmpty())
                            return tell(copied.reason, window);
                        QGuiApplication::clipboard()->setMimeData(mimeDataOf(copied.tags));
                    });
}

void pasteTags(MainController &controller, QWidget &window)
{
    const SongList songs = controller.selectedSongs();
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    const auto tags =
        data ? TagClipboard::decoded(data->data(TagClipboard::mimeType)) : std::nullopt;
    if (!tags)
        return tell(qtTrId("ErrorNoTagsOnClipboard"), window);
    if (!TagClipboard::canPaste(*tags, songs))
        return tell(qtTrId("ErrorOtherNumberOfSongs").arg(tags->size()).arg(songs.size()), window);
    auto *sheet = new PasteTagsSheet(*tags, songs, &window);
    QObject::connect(sheet, &QDialog::accepted, sheet, [sheet, &controller, tags, songs] {
        controller.change(TagClipboard::pasting(*tags, songs, sheet->chosenFields()));
    });
    sheet->open();
}

bool canPasteTags()
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasFormat(TagClipboard::mimeType);
}
