#pragma once

#include "gui/maincontroller.h"

#include <QWidget>

#include <map>

class QCheckBox;
class QLabel;
class QLineEdit;
class QPlainTextEdit;
class QPushButton;

/// A tool window with the lyrics of the selected song, to be read and edited. What was edited is
/// written when the song is left, the window is, or the program ends.
class LyricsInspector : public QWidget {
    Q_OBJECT

public:
    /// Shown when it was at the end of the last run.
    LyricsInspector(MainController &controller, QWidget *window);

    /// Writes what was edited into the song.
    void flushEdits();
    /// Shows or hides itself and remembers it for the next start.
    void toggle();

Q_SIGNALS:
    void visibilityChanged(bool isVisible);

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    using Song = std::shared_ptr<SongFile>;

    void setUpParts();
    [[nodiscard]] QWidget *headline();
    [[nodiscard]] QWidget *findField();
    [[nodiscard]] QWidget *buttons();
    void selectionChanged();
    void songsChanged(const SongList &songs);
    void showAgain();
    void showLyricsOf(const Song &song);
    void showHeadline(const QString &title, const QString &artist);
    void showText(const QString &lyrics, bool isEditable, const QString &note);
    [[nodiscard]] QString editedLyrics() const;
    void written(const Song &song, const QString &lyrics, const TagEditResult &result);
    void cleanUp();
    void find(bool backwards);
    void enterForAll();
    void remember(bool isVisible);

    MainController &mController;
    QLabel *mTitle = nullptr;
    QLabel *mArtist = nullptr;
    QPlainTextEdit *mEditor = nullptr;
    QLabel *mNote = nullptr;
    QLineEdit *mFindField = nullptr;
    QCheckBox *mFilterLyrics = nullptr;
    QPushButton *mCleanUp = nullptr;
    QPushButton *mForAll = nullptr;
    Song mSong; ///< whose lyrics are shown; null without one, or with several songs
    QString mLyrics; ///< as the song has them
    std::map<Song, QString>
        mNotWritten; ///< edits that could not be written, until their song is shown
};

/// Asks, and takes the lyrics out of the selected songs.
void removeLyrics(MainController &controller, QWidget &window);
