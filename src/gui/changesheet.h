#pragma once

#include "songs/songfile.h"

#include <QDialog>

#include <functional>

class QVBoxLayout;

/// Asks before several songs are changed and shows which. Emits accepted() when the user agrees.
class ChangeSheet : public QDialog {
    Q_OBJECT

public:
    /// `proceed` is the text of the button that agrees.
    ChangeSheet(const QString &question, const SongList &songs, const QString &proceed,
                QWidget *parent);

    /// Where choices go, below the question.
    [[nodiscard]] QVBoxLayout &choices() { return *mChoices; }

private:
    QVBoxLayout *mChoices;
};

/// "Title – Artist", or the file's name.
[[nodiscard]] QString nameOf(SongFile &song);

/// Opens a sheet that calls `agreed`; of a single song, which is the one in sight, nothing is
/// asked.
void askToChange(const QString &question, const SongList &songs, const QString &proceed,
                 QWidget *parent, std::function<void()> agreed);
