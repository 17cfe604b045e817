#pragma once

#include "app/tagedit.h"

#include <QHash>

/// The changes that the user made to songs, to be undone and redone one by one.
class EditHistory : public QObject {
    Q_OBJECT

public:
    /// The editing must outlive this.
    explicit EditHistory(TagEditing &editing);

    /// `then` may be empty.
    void change(const TagChange &change, const WriteOptions &options,
                const TagEditing::Then &then = {});
    // Nothing to do does nothing. While songs are being changed there is nothing.
    void undo(const WriteOptions &options);
    void redo(const WriteOptions &options);
    /// Takes what was changed in another way than by change().
    void add(const TagEditResult &result);

    /// The songs are being loaded anew: until that is done there is nothing to undo.
    void songsWillChange();
    /// Goes on with the records of the same files; changes of others are forgotten.
    void songsChanged(const SongList &songs);

    /// The name of the change that undo() takes back; empty when there is none.
    [[nodiscard]] QString undoName() const { return nameOfLast(mUndo); }
    [[nodiscard]] QString redoName() const { return nameOfLast(mRedo); }

Q_SIGNALS:
    void changed();

private:
    using Results = std::deque<TagEditResult>;
    using SongsByPath = QHash<QString, std::shared_ptr<SongFile>>;

    [[nodiscard]] QString nameOfLast(const Results &results) const;
    void revertLast(Results &from, Results &to, const WriteOptions &options);
    void keep(Results &results, const TagEditResult &result);
    static void adoptSongs(Results &results, const SongsByPath &byPath);

    TagEditing &mEditing;
    Results mUndo; ///< the latest one last
    Results mRedo;
    bool mIsStale = false; ///< the songs are being loaded anew
};
