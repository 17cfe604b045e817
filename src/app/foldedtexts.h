#pragma once

#include <QList>
#include <QString>

/// `text` with each character case-folded on its own, as comparing and searching whatever the case
/// do it.
[[nodiscard]] QString foldedText(QStringView text);

/// Numbered texts, case-folded, one after the other in one piece. Copies are cheap, and may be read
/// on another thread.
class FoldedTexts {
public:
    void append(QStringView text);
    [[nodiscard]] qsizetype size() const { return mEnds.size(); }
    /// Of all texts together.
    [[nodiscard]] qsizetype length() const { return mFolded.size(); }
    [[nodiscard]] QStringView at(qsizetype number) const;
    /// For each text whether it contains `needle`, which is folded and not empty.
    [[nodiscard]] std::vector<bool> contain(QStringView needle) const;

private:
    [[nodiscard]] qsizetype begin(qsizetype number) const
    {
        return number == 0 ? 0 : mEnds.at(number - 1);
    }

    QString mFolded;
    QList<qsizetype> mEnds;
};

/// Numbers texts, from 0 on. The same text twice in a row, as neighbouring songs have it, is held
/// once; looking for others of the same text would cost more than it saves.
class TextPool {
public:
    [[nodiscard]] quint32 numberOf(const QString &text);
    [[nodiscard]] const FoldedTexts &texts() const { return mTexts; }

private:
    FoldedTexts mTexts;
    QString mLast;
};
