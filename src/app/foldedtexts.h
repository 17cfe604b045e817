#pragma once

#include <QHash>
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

/// Gives each distinct text a number, from 0 on.
class TextPool {
public:
    [[nodiscard]] quint32 numberOf(const QString &text);
    [[nodiscard]] const FoldedTexts &texts() const { return mTexts; }

private:
    QHash<QString, quint32> mNumbers;
    FoldedTexts mTexts;
    QString mLast; ///< neighbouring songs share texts
    quint32 mLastNumber = 0;
};
