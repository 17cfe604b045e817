#include "text/lyricscleanup.h"

#include "base/installedtable.h"

#include <QStringView>

#include <algorithm>
#include <vector>

namespace {

struct Substitution {
    QString text;
    QString replacement;
};

using Substitutions = std::vector<Substitution>;

bool endsWord(QStringView after)
{
    return after.isEmpty() || after.front().isSpace()
        || QStringView(u"!?.,)]:;").contains(after.front());
}

bool standsAlone(QStringView lyrics, qsizetype start, QStringView text)
{
    const bool joinedInFront =
        start > 0 && text.front().isLetterOrNumber() && lyrics[start - 1].isLetterOrNumber();
    return !joinedInFront
        && (!text.back().isLetterOrNumber() || endsWord(lyrics.sliced(start + text.size())));
}

QString substituted(const QString &lyrics, const Substitution &substitution)
{
    const QString &text = substitution.text;
    QString result;
    qsizetype copied = 0;
    for (qsizetype found = lyrics.indexOf(text); found >= 0;) {
        qsizetype next = found + 1;
        if (standsAlone(lyrics, found, text)) {
            result += QStringView(lyrics).sliced(copied, found - copied);
            result += substitution.replacement;
            next = copied = found + text.size();
        }
        found = lyrics.indexOf(text, next);
    }
    return copied == 0 ? lyrics : result += QStringView(lyrics).sliced(copied);
}

} // namespace

void LyricsCleanup::setSubstitutions(const QMap<QString, QString> &substitutions)
{
    Substitutions table;
    for (auto it = substitutions.begin(); it != substitutions.end(); ++it) {
        if (!it.key().isEmpty())
            table.push_back({it.key(), it.value()});
    }
    std::ranges::stable_sort(table, std::ranges::greater{},
                             [](const Substitution &entry) { return entry.text.size(); });
    InstalledTable<Substitutions>::install(std::move(table));
}

QString LyricsCleanup::cleanUpLyrics(const QString &lyrics)
{
    QString cleaned = lyrics;
    for (const Substitution &substitution : InstalledTable<Substitutions>::current())
        cleaned = substituted(cleaned, substitution);
    return cleaned;
}
