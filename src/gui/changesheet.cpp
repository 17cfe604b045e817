#include "gui/changesheet.h"

#include "gui/icons.h"

#include <QAbstractListModel>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr int betweenGroups = 12; // pixels

class SongNames : public QAbstractListModel {
public:
    SongNames(SongList songs, QObject *parent)
        : QAbstractListModel(parent)
        , mSongs(std::move(songs))
    {
    }

    [[nodiscard]] int rowCount(const QModelIndex &parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(mSongs.size());
    }

    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override
    {
        SongFile &song = *mSongs[static_cast<std::size_t>(index.row())];
        const auto reason = song.reasonNotToWrite();
        switch (role) {
        case Qt::DisplayRole:
            return nameOf(song);
        case Qt::ToolTipRole:
            return reason ? *reason : song.path();
        case Qt::DecorationRole:
            return reason
                ? icon(song.activityStatus() == SongStatus::Locked ? QStringLiteral("locked")
                                                                   : QStringLiteral("problem"))
                : QVariant();
        default:
            return {};
        }
    }

private:
    SongList mSongs;
};

QListView *listOf(const SongList &songs, QWidget *parent)
{
    auto *list = new QListView(parent);
    list->setModel(new SongNames(songs, list));
    list->setUniformItemSizes(true);
    const int line = list->fontMetrics().lineSpacing();
    list->setIconSize({line, line}); // or rows with an icon would not fit into those without
    list->setSelectionMode(QAbstractItemView::NoSelection);
    list->setAccessibleName(qtTrId("ChangeSheetSongs"));
    list->setMinimumSize(list->fontMetrics().averageCharWidth() * 60, line * 9);
    return list;
}

QLabel *lineOf(const QString &text, QWidget *parent)
{
    auto *label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText); // what stands in tags is no markup
    label->setText(text);
    label->setWordWrap(true);
    return label;
}

} // namespace

ChangeSheet::ChangeSheet(const QString &question, const SongList &songs, const QString &proceed,
                         QWidget *parent)
    : QDialog(parent, Qt::Sheet)
    , mChoices(new QVBoxLayout)
{
    setWindowTitle(question);
    setWindowModality(Qt::WindowModal);
    setAttribute(Qt::WA_DeleteOnClose);
    auto *column = new QVBoxLayout(this);
    column->setSpacing(betweenGroups);
    auto *headline = lineOf(question, this);
    QFont bold = headline->font();
    bold.setBold(true);
    headline->setFont(bold);
    column->addWidget(headline);
    column->addLayout(mChoices);
    const auto refused = std::count_if(songs.begin(), songs.end(), [](const auto &song) {
        return !song->canWriteToOriginalPath();
    });
    QString count = qtTrId("ChangeSheetCount").arg(locale().toString(songs.size()));
    if (refused > 0)
        count += u'\n' + qtTrId("ChangeSheetRefused").arg(locale().toString(qlonglong(refused)));
    column->addWidget(lineOf(count, this));
    column->addWidget(listOf(songs, this), 1);
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Cancel, this);
    buttons->addButton(proceed, QDialogButtonBox::AcceptRole)->setDefault(true);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
}

QString nameOf(SongFile &song)
{
    const AudioInfoTag *tag = song.hasInfotagCached() ? song.infotag() : nullptr;
    const QString title = tag ? tag->title().value_or(QString()) : QString();
    const QString artist = tag ? tag->artist().value_or(QString()) : QString();
    if (title.isEmpty())
        return song.filename();
    return artist.isEmpty() ? title : qtTrId("SongAndArtist").arg(title, artist);
}

void askToChange(const QString &question, const SongList &songs, const QString &proceed,
                 QWidget *parent, std::function<void()> agreed)
{
    if (songs.size() < 2)
        return songs.empty() ? void() : agreed();
    auto *sheet = new ChangeSheet(question, songs, proceed, parent);
    QObject::connect(sheet, &QDialog::accepted, sheet, std::move(agreed));
    sheet->open();
}
