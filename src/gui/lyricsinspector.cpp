#include "gui/lyricsinspector.h"

#include "app/lyricstext.h"
#include "gui/changesheet.h"
#include "gui/firstsize.h"
#include "songs/cachedinfotag.h"
#include "text/lyricscleanup.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextBlock>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace {

constexpr QSize firstSize(380, 520); // pixels
constexpr int betweenGroups = 12; // pixels
constexpr int insideGroup = 6; // pixels
/// Longer texts are no lyrics, and laying them out would take the window's time.
constexpr qsizetype longestShown = 100'000;

constexpr Setting<bool> lyricsWindow{"lyricsWindow", false};

TagChange changeOfLyrics(const SongList &songs, const QString &lyrics)
{
    TagValues values;
    values.texts.insert(TagText::Lyrics, lyrics);
    return TagChange::sameForAll(qtTrId("ChangeOfLyrics"), songs, values);
}

QString lyricsOf(SongFile &song)
{
    const AudioInfoTag *tag = song.infotag();
    return tag ? tag->lyrics().value_or(QString()) : QString();
}

/// Why the song's lyrics cannot be edited now; empty when they can.
QString reasonNotToEdit(const SongFile &song, const QString &lyrics)
{
    const SongStatus status = song.activityStatus();
    if (status == SongStatus::Pending || status == SongStatus::Processing)
        return qtTrId("ErrorSongBeingGathered");
    if (lyrics.size() > longestShown)
        return qtTrId("LyricsTooLong");
    return song.reasonNotToWrite().value_or(QString());
}

} // namespace

LyricsInspector::LyricsInspector(MainController &controller, QWidget *window)
    : QWidget(window, Qt::Tool)
    , mController(controller)
{
    setObjectName(QStringLiteral("lyricsInspector"));
    setWindowTitle(qtTrId("LyricsInspectorTitle"));
    resize(firstSizeOf(*this, firstSize));
    setUpParts();
    connect(&controller, &MainController::sourceWillChange, this, &LyricsInspector::flushEdits);
    connect(&controller, &MainController::selectionChanged, this,
            &LyricsInspector::selectionChanged);
    connect(&controller, &MainController::songsChanged, this, &LyricsInspector::songsChanged);
    connect(&controller, &MainController::gatheringChanged, this, &LyricsInspector::showAgain);
    selectionChanged();
    setAttribute(Qt::WA_ShowWithoutActivating);
    setVisible(lyricsWindow.value(controller.prefs().settings()));
}

void LyricsInspector::setUpParts()
{
    auto *column = new QVBoxLayout(this);
    column->setSpacing(betweenGroups);
    column->addWidget(headline());
    mEditor = new QPlainTextEdit(this);
    mEditor->setObjectName(QStringLiteral("lyricsEditor"));
    mEditor->setAccessibleName(qtTrId("Lyrics"));
    mEditor->setTabChangesFocus(true);
    column->addWidget(mEditor, 1);
    mNote = new QLabel(this);
    mNote->setWordWrap(true);
    mNote->setAlignment(Qt::AlignTop);
    mNote->setMinimumHeight(2 * mNote->fontMetrics().lineSpacing()); // what comes does not move it
    column->addWidget(mNote);
    column->addWidget(findField());
    column->addWidget(buttons());
}

QWidget *LyricsInspector::headline()
{
    auto *headline = new QWidget(this);
    auto *column = new QVBoxLayout(headline);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    mTitle = new QLabel(headline);
    mArtist = new QLabel(headline);
    QFont bold = mTitle->font();
    bold.setBold(true);
    mTitle->setFont(bold);
    for (QLabel *line : {mTitle, mArtist}) {
        line->setTextFormat(Qt::PlainText);
        line->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        column->addWidget(line);
    }
    return headline;
}

QWidget *LyricsInspector::findField()
{
    auto *field = new QWidget(this);
    auto *row = new QHBoxLayout(field);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(insideGroup);
    mFindField = new QLineEdit(field);
    mFindField->setObjectName(QStringLiteral("lyricsFind"));
    mFindField->setPlaceholderText(qtTrId("LyricsFind"));
    mFindField->setAccessibleName(qtTrId("LyricsFind"));
    mFindField->setClearButtonEnabled(true);
    connect(mFindField, &QLineEdit::returnPressed, this, [this] { find(false); });
    row->addWidget(mFindField, 1);
    for (const bool backwards : {true, false}) {
        auto *button = new QToolButton(field);
        button->setArrowType(backwards ? Qt::UpArrow : Qt::DownArrow);
        button->setAutoRaise(true);
        button->setToolTip(backwards ? qtTrId("FindPrevious") : qtTrId("FindNext"));
        button->setAccessibleName(button->toolTip());
        connect(button, &QToolButton::clicked, this, [this, backwards] { find(backwards); });
        row->addWidget(button);
    }
    return field;
}

QWidget *LyricsInspector::buttons()
{
    auto *buttons = new QWidget(this);
    auto *column = new QVBoxLayout(buttons);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(insideGroup);
    mFilterLyrics = new QCheckBox(qtTrId("LyricsFilter"), buttons);
    mFilterLyrics->setToolTip(qtTrId("ToolTipLyricsFilter"));
    mFilterLyrics->setChecked(preferences::filterLyrics.value(mController.prefs().settings()));
    connect(mFilterLyrics, &QCheckBox::toggled, this, [this](bool filters) {
        preferences::filterLyrics.set(mController.prefs().settings(), filters);
    });
    column->addWidget(mFilterLyrics);
    auto *row = new QHBoxLayout;
    mCleanUp = new QPushButton(qtTrId("LyricsCleanUp"), buttons);
    mCleanUp->setToolTip(qtTrId("ToolTipLyricsCleanUp"));
    connect(mCleanUp, &QPushButton::clicked, this, &LyricsInspector::cleanUp);
    mForAll = new QPushButton(qtTrId("LyricsForAll"), buttons);
    connect(mForAll, &QPushButton::clicked, this, &LyricsInspector::enterForAll);
    row->addWidget(mCleanUp);
    row->addStretch();
    row->addWidget(mForAll);
    column->addLayout(row);
    return buttons;
}

void LyricsInspector::selectionChanged()
{
    flushEdits();
    const SongList &songs = mController.selectedSongs();
    mForAll->setEnabled(songs.size() > 1);
    if (songs.size() == 1)
        return showLyricsOf(songs.front());
    mSong = nullptr;
    showHeadline(songs.empty() ? qtTrId("LyricsNoSelection")
                               : qtTrId("SongsSelected").arg(locale().toString(songs.size())),
                 {});
    showText({}, false, songs.empty() ? QString() : qtTrId("LyricsSeveralSongs"));
}

void LyricsInspector::songsChanged(const SongList &songs)
{
    if (std::find(songs.begin(), songs.end(), mSong) != songs.end())
        showAgain();
}

/// What is being edited stays.
void LyricsInspector::showAgain()
{
    if (mSong && !mEditor->document()->isModified())
        showLyricsOf(mSong);
}

void LyricsInspector::showLyricsOf(const Song &song)
{
    mSong = song;
    mLyrics = lyricsOf(*song);
    const AudioInfoTag *tag = song->infotag();
    showHeadline(tag ? tag->title().value_or(song->filename()) : song->filename(),
                 tag ? tag->artist().value_or(QString()) : QString());
    const QString reason = reasonNotToEdit(*song, mLyrics);
    showText(LyricsText::forEditor(mLyrics.left(longestShown)), reason.isEmpty(), reason);
    if (const auto edits = mNotWritten.extract(song); !edits.empty() && reason.isEmpty()) {
        mEditor->setPlainText(edits.mapped());
        mEditor->document()->setModified(true);
        mNote->setText(qtTrId("LyricsNotWritten"));
    }
}

void LyricsInspector::showHeadline(const QString &title, const QString &artist)
{
    mTitle->setText(title);
    mTitle->setToolTip(title);
    mArtist->setText(artist);
    mArtist->setToolTip(artist);
}

void LyricsInspector::showText(const QString &lyrics, bool isEditable, const QString &note)
{
    if (lyrics != editedLyrics() || mEditor->document()->isModified())
        mEditor->setPlainText(lyrics); // else the cursor stays where it is
    mEditor->document()->setModified(false);
    mEditor->setReadOnly(!isEditable);
    mEditor->setPlaceholderText(isEditable ? qtTrId("LyricsNone") : QString());
    mCleanUp->setEnabled(isEditable);
    mNote->setText(note);
}

/// Not QPlainTextEdit::toPlainText(), which makes plain spaces of those that hold words together.
QString LyricsInspector::editedLyrics() const
{
    QString text;
    for (QTextBlock block = mEditor->document()->begin(); block.isValid(); block = block.next()) {
        if (block.blockNumber() > 0)
            text += u'\n';
        text += block.text();
    }
    return text;
}

void LyricsInspector::flushEdits()
{
    if (!mSong || !mEditor->document()->isModified())
        return;
    mEditor->document()->setModified(false);
    QString edited = editedLyrics();
    if (mFilterLyrics->isChecked())
        edited = LyricsCleanup::cleanUpLyrics(edited);
    const QString lyrics = LyricsText::forSong(edited, mLyrics);
    if (lyrics == mLyrics)
        return;
    mLyrics = lyrics;
    mController.change(changeOfLyrics({mSong}, lyrics),
                       [this, song = mSong, edited](const TagEditResult &result) {
                           written(song, edited, result);
                       });
}

/// What could not be written is kept: it stands nowhere else.
void LyricsInspector::written(const Song &song, const QString &lyrics, const TagEditResult &result)
{
    if (result.refused.empty() && !result.isCancelled)
        return;
    mNotWritten[song] = lyrics;
    if (song == mSong && !mEditor->document()->isModified())
        showLyricsOf(song);
}

void LyricsInspector::cleanUp()
{
    const QString before = editedLyrics();
    const QString after = LyricsCleanup::cleanUpLyrics(before);
    if (after == before)
        return mNote->setText(qtTrId("LyricsAreClean"));
    QTextCursor all(mEditor->document());
    all.select(QTextCursor::Document);
    all.insertText(after); // so that it can be undone in the editor
    mNote->setText(qtTrId("LyricsWereCleaned"));
}

void LyricsInspector::find(bool backwards)
{
    const auto flags = backwards ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    const QString text = mFindField->text();
    if (text.isEmpty() || mEditor->find(text, flags))
        return;
    const QTextCursor before = mEditor->textCursor();
    mEditor->moveCursor(backwards ? QTextCursor::End : QTextCursor::Start);
    if (!mEditor->find(text, flags)) {
        mEditor->setTextCursor(before);
        mNote->setText(qtTrId("LyricsNotFound"));
    }
}

void LyricsInspector::enterForAll()
{
    auto *sheet = new QInputDialog(this, Qt::Sheet);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->setWindowModality(Qt::WindowModal);
    sheet->setWindowTitle(qtTrId("LyricsForAllTitle"));
    sheet->setLabelText(qtTrId("LyricsForAllPrompt"));
    sheet->setOption(QInputDialog::UsePlainTextEditForTextInput);
    connect(sheet, &QInputDialog::textValueSelected, this,
            [this, songs = mController.selectedSongs()](const QString &lyrics) {
                askToChange(
                    qtTrId("LyricsSetInSongs").arg(songs.size()), songs, qtTrId("LyricsSet"), this,
                    [this, songs, lyrics] { mController.change(changeOfLyrics(songs, lyrics)); });
            });
    sheet->open();
}

void LyricsInspector::toggle()
{
    setAttribute(Qt::WA_ShowWithoutActivating, false);
    setVisible(!isVisible());
    remember(isVisible());
}

void LyricsInspector::remember(bool isVisible)
{
    lyricsWindow.set(mController.prefs().settings(), isVisible);
    Q_EMIT visibilityChanged(isVisible);
}

/// The window's own shortcuts come before those of the main window.
bool LyricsInspector::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride) {
        auto *key = static_cast<QKeyEvent *>(event);
        if (key->matches(QKeySequence::Find) || key->matches(QKeySequence::FindNext)
            || key->matches(QKeySequence::FindPrevious) || key->matches(QKeySequence::Close))
            event->accept();
    } else if (event->type() == QEvent::WindowDeactivate) {
        flushEdits();
    }
    return QWidget::event(event);
}

void LyricsInspector::keyPressEvent(QKeyEvent *event)
{
    if (event->matches(QKeySequence::Find)) {
        mFindField->setFocus(Qt::ShortcutFocusReason);
        mFindField->selectAll();
    } else if (event->matches(QKeySequence::FindNext)) {
        find(false);
    } else if (event->matches(QKeySequence::FindPrevious)) {
        find(true);
    } else if (event->matches(QKeySequence::Close) || event->key() == Qt::Key_Escape) {
        flushEdits();
        toggle();
    } else {
        QWidget::keyPressEvent(event);
    }
}

/// The user closes it; at the end of the program it is remembered as it stands.
void LyricsInspector::closeEvent(QCloseEvent *event)
{
    flushEdits();
    if (event->spontaneous())
        remember(false);
    event->accept();
}

void removeLyrics(MainController &controller, QWidget &window)
{
    SongList songs;
    for (const auto &song : controller.selectedSongs())
        if (const AudioInfoTag *tag = song->infotag(); tag && hasLyrics(*tag))
            songs.push_back(song);
    askToChange(qtTrId("LyricsRemoveFromSongs").arg(songs.size()), songs, qtTrId("LyricsRemove"),
                &window,
                [&controller, songs] { controller.change(changeOfLyrics(songs, QString())); });
}
