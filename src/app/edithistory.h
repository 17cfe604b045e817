#pragma once

#include "app/tagedit.h"

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
    /// Forgets everything, as when the songs are loaded anew.
    void clear();

    /// The name of the change that undo() takes back; empty when there is none.
    [[nodiscard]] QString undoName() const { return nameOfLast(mUndo); }
    [[nodiscard]] QString redoName() const { return nameOfLast(mRedo); }

Q_SIGNALS:
    void changed();

private:
    using Results = std::deque<TagEditResult>;

    [[nodiscard]] QString nameOfLast(const Results &results) const;
    void revertLast(Results &from, Results &to, const WriteOptions &options);
    void keep(Results &results, const TagEditResult &result);

    TagEditing &mEditing;
    Results mUndo; ///< the latest one last
    Results mRedo;
    int mGeneration = 0; ///< rises with clear(): what was begun before it is not kept
};
