#pragma once

#include "app/retrylist.h"
#include "gui/maincontroller.h"

#include <QObject>

/// Remembers the songs that some source could not be asked about, in the list that the command
/// line shares, and asks again.
class UnansweredSongs : public QObject {
    Q_OBJECT

public:
    /// The controller must outlive this.
    UnansweredSongs(MainController &controller, QObject *parent);

    /// Gathers for them once more, also where the table does not show them.
    void askAgain();

private:
    void note(const SongOutcome &outcome);
    void save();
    void tell(const QString &problem);
    [[nodiscard]] SongList listedSongs();

    MainController &mController;
    RetryList mList;
};
