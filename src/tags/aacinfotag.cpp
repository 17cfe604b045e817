#include "tags/aacinfotag.h"

#include "base/bytes.h"
#include "base/log.h"
#include "tags/aacreader.h"
#include "tags/aacrewrite.h"
#include "tags/atom.h"
#include "tags/atomsource.h"
#include "tags/filetype.h"
#include "tags/songbytes.h"

#include <QCoreApplication>

#include <utility>

AACInfoTag::Read AACInfoTag::tagWithBytes(const SongBytes &song)
try {
    const AtomSource source = AtomSource::ofSong(song, FileType::strayID3v2TagLength(song));
    const auto tree = Atom::atomContainerFromFile(source);
    if (!tree->firstChild(atomName("moov")))
        throw MalformedData(qtTrId("ErrorNoMovie"));
    auto tag = std::make_unique<AACInfoTag>();
    tag->mAttribs = AACReader::getAttributesFromAACFile(*tree);
    return {std::move(tag), {}};
} catch (const MalformedData &malformed) {
    qCWarning(logTags).noquote()
        << QStringLiteral("AAC tag of %1 cannot be read: %2").arg(song.path(), malformed.reason());
    return {nullptr, qtTrId("ErrorMP4Unreadable").arg(malformed.reason())};
}

std::optional<QString> AACInfoTag::text(TagText which) const
{
    constexpr qsizetype yearLength = 4;
    const std::optional<QString> &stored = mAttribs.text(which);
    if (which != TagText::Year || !stored)
        return stored;
    return stored->size() < yearLength ? std::nullopt : std::optional(stored->first(yearLength));
}

bool AACInfoTag::isPartOfCompilation() const
{
    return mAttribs.compilation;
}

bool AACInfoTag::hasTitle() const
{
    return title().has_value() || mAttribs.hasTitleItem;
}

bool AACInfoTag::hasHiddenValues() const
{
    return mAttribs.hasUnreadItem || (mAttribs.text(TagText::Year) && !year());
}

void AACInfoTag::setText(TagText which, const QString &text)
{
    const auto key = static_cast<size_t>(which);
    setTagHasBeenModified(true);
    mAttribs.texts.at(key) = text.isEmpty() ? std::nullopt : std::optional(text);
    mAttribs.textsSet.set(key);
}

void AACInfoTag::setIsPartOfCompilation(bool isPartOfCompilation)
{
    setTagHasBeenModified(true);
    mAttribs.compilation = isPartOfCompilation;
    mAttribs.compilationSet = true;
}

bool AACInfoTag::addImage(const ID3Image &image)
{
    setTagHasBeenModified(true);
    mAttribs.images.append(image);
    mAttribs.imagesSet = true;
    return true;
}

bool AACInfoTag::removeImageAtIndex(int index)
{
    const bool isRemoved = AudioInfoTag::removeImageAtIndex(index);
    if (index < 0 || index >= mAttribs.images.size())
        return isRemoved;
    setTagHasBeenModified(true);
    mAttribs.images.removeAt(index);
    mAttribs.imagesSet = true;
    return true;
}

std::optional<QString> AACInfoTag::readVersion() const
{
    return QStringLiteral("AAC");
}

InPlaceFile::Outcome AACInfoTag::modifySongFileAtPath(const QString &path,
                                                      const WriteOptions &options)
{
    auto outcome = AACRewrite::rewrite(path, mAttribs, options);
    if (outcome.kind != InPlaceFile::Outcome::Kind::Failed)
        setTagHasBeenModified(false);
    return outcome;
}
