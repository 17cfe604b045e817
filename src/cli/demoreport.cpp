#include "cli/demoreport.h"

#include "cli/terminaltext.h"
#include "gathering/artworkcheck.h"

#include <algorithm>
#include <array>
#include <functional>

namespace {

QString linesOf(const QString &lyrics)
{
    const auto lines = lyrics.split(u'\n', Qt::SkipEmptyParts).size();
    return lines == 0 ? QString() : QStringLiteral("%1 lines").arg(lines);
}

QString pictureOf(const AudioInfoTag &tag)
{
    const QList<ID3Image> images = tag.images();
    if (images.isEmpty())
        return {};
    const QSize size = imageSize(images.front().data);
    const QString type = mimeTypeBySignature(images.front().data).value_or(QString());
    return QStringLiteral("%1 × %2 pixels, %3")
        .arg(size.width())
        .arg(size.height())
        .arg(type.section(u'/', 1).toUpper());
}

struct ShownField {
    const char *label;
    Asset asset;
    QString (*text)(const AudioInfoTag &);
};

template<auto Getter>
QString textOf(const AudioInfoTag &tag)
{
    return (tag.*Getter)().value_or(QString());
}

constexpr std::array shownFields{
    ShownField{"Title", AssetSongTitle, textOf<&AudioInfoTag::title>},
    ShownField{"Artist", AssetArtist, textOf<&AudioInfoTag::artist>},
    ShownField{"Album", AssetAlbumName, textOf<&AudioInfoTag::album>},
    ShownField{"Year", AssetYear, textOf<&AudioInfoTag::year>},
    ShownField{"Track", AssetTrack, textOf<&AudioInfoTag::track>},
    ShownField{"Genre", AssetGenre, textOf<&AudioInfoTag::genres>},
    ShownField{"Lyrics", AssetLyrics,
               [](const AudioInfoTag &tag) { return linesOf(tag.lyrics().value_or(QString())); }},
    ShownField{"Artwork", AssetArtwork, pictureOf},
};

/// The text in so many columns. Accents that stand by themselves would take a place of their own.
QString inColumns(const QString &text, qsizetype width)
{
    const QString composed = terminalLine(text).normalized(QString::NormalizationForm_C);
    return composed.size() > width ? composed.first(width - 1) + u'…'
                                   : composed.leftJustified(width);
}

QString withoutTrailingBlanks(QString line)
{
    while (line.endsWith(u' '))
        line.chop(1);
    return line;
}

QString shortName(QString source)
{
    return source.remove(QStringLiteral("Interface"));
}

QString fieldLine(const QString &label, const QString &before, const QString &after,
                  const QString &source)
{
    const QString gap = QStringLiteral("·");
    const QString start = QStringLiteral("  ") + inColumns(label, 9);
    if (before == after)
        return withoutTrailingBlanks(start + inColumns(before.isEmpty() ? gap : before, 69));
    return withoutTrailingBlanks(start + inColumns(before.isEmpty() ? gap : before, 18)
                                 + QStringLiteral("→ ") + inColumns(after, 33) + u' '
                                 + inColumns(source, 15));
}

/// Of the sources in use, those that filled anything.
QStringList sourcesThatFilled(const std::vector<SongOutcome> &outcomes, const QStringList &inUse)
{
    QStringList filled;
    for (const SongOutcome &outcome : outcomes)
        filled += outcome.sources.values();
    QStringList sources;
    for (const QString &source : inUse + QStringList{QStringLiteral("library")})
        if (filled.contains(source))
            sources << source;
    return sources;
}

qsizetype fieldsFilled(const std::vector<SongOutcome> &outcomes, Asset asset, const QString &source)
{
    return std::count_if(outcomes.begin(), outcomes.end(), [&](const SongOutcome &outcome) {
        return outcome.changed.testFlag(asset) && outcome.sources.value(asset) == source;
    });
}

QString tableLine(const QString &name, const std::function<QString(const ShownField &)> &cell)
{
    QString line = QStringLiteral("  ") + inColumns(name, 19);
    for (const ShownField &field : shownFields)
        if (field.asset != AssetArtist) // which no source fills
            line += cell(field).rightJustified(8);
    return line;
}

} // namespace

SongView viewOf(const AudioInfoTag &tag)
{
    const QString version = tag.readVersion().value_or(QString());
    const bool isID3 = !version.isEmpty() && version.front().isDigit();
    SongView view{.version = isID3 ? QStringLiteral("ID3v") + version : version, .fields = {}};
    for (const ShownField &field : shownFields)
        view.fields << field.text(tag);
    return view;
}

QString changesAsText(const SongView &before, const SongView &after, const SongOutcome &outcome)
{
    QString text = outcome.song->filename();
    if (!after.version.isEmpty())
        text += QStringLiteral(" (%1)").arg(after.version);
    for (std::size_t i = 0; i < shownFields.size(); ++i) {
        const auto n = static_cast<qsizetype>(i);
        text += u'\n'
            + fieldLine(QLatin1String(shownFields[i].label), before.fields[n], after.fields[n],
                        shortName(outcome.sources.value(shownFields[i].asset)));
    }
    return text;
}

QString sourcesAsTable(const std::vector<SongOutcome> &outcomes, const QStringList &sources)
{
    QString table =
        tableLine({}, [](const ShownField &field) { return QLatin1String(field.label); });
    for (const QString &source : sourcesThatFilled(outcomes, sources))
        table += u'\n' + tableLine(shortName(source), [&](const ShownField &field) {
                     const auto count = fieldsFilled(outcomes, field.asset, source);
                     return count == 0 ? QStringLiteral("·") : QString::number(count);
                 });
    return table;
}
