#include "cli/fieldedit.h"

#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>

namespace {

struct TextField {
    QLatin1String name;
    std::optional<QString> (AudioInfoTag::*value)() const;
    void (AudioInfoTag::*set)(const QString &);
};

constexpr std::array textFields{
    TextField{QLatin1String("title"), &AudioInfoTag::title, &AudioInfoTag::setTitle},
    TextField{QLatin1String("artist"), &AudioInfoTag::artist, &AudioInfoTag::setArtist},
    TextField{QLatin1String("album"), &AudioInfoTag::album, &AudioInfoTag::setAlbum},
    TextField{QLatin1String("year"), &AudioInfoTag::year, &AudioInfoTag::setYear},
    TextField{QLatin1String("track"), &AudioInfoTag::track, &AudioInfoTag::setTrack},
    TextField{QLatin1String("genres"), &AudioInfoTag::genres, &AudioInfoTag::setGenres},
    TextField{QLatin1String("lyrics"), &AudioInfoTag::lyrics, &AudioInfoTag::setLyrics},
    TextField{QLatin1String("bpm"), &AudioInfoTag::bpm, &AudioInfoTag::setBPM},
};

/// More than any cover needs; a larger file is taken for a mistake.
constexpr qint64 maxArtworkBytes = qint64(64) * 1024 * 1024;

/// The picture in a file, with the MIME type that its bytes say.
std::optional<ID3Image> pictureIn(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > maxArtworkBytes)
        return std::nullopt;
    QByteArray bytes = file.readAll();
    const auto mimeType = mimeTypeBySignature(bytes);
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    if (!mimeType || !reader.canRead() || reader.size().isEmpty())
        return std::nullopt;
    return ID3Image::imageWithData(bytes, mimeType);
}

/// Why the assignment cannot be made in any tag.
QString problemOf(const FieldAssignment &assignment)
{
    if (assignment.field == u"compilation" && !assignment.value.isEmpty()
        && assignment.value != u"yes" && assignment.value != u"no")
        return QStringLiteral("compilation: “%1” is neither yes nor no").arg(assignment.value);
    return {};
}

} // namespace

FieldEdit::Checked FieldEdit::check(const QList<FieldAssignment> &assignments)
{
    Checked checked;
    for (const FieldAssignment &assignment : assignments) {
        checked.error = problemOf(assignment);
        if (assignment.field == u"artwork" && !assignment.value.isEmpty()) {
            if (const auto picture = pictureIn(assignment.value))
                checked.edit.mArtwork = *picture;
            else
                checked.error = QFileInfo::exists(assignment.value)
                    ? QStringLiteral("%1: this is no picture").arg(assignment.value)
                    : QStringLiteral("%1: there is no such file").arg(assignment.value);
        }
        if (!checked.error.isEmpty())
            return checked;
        checked.edit.mAssignments.append(assignment);
    }
    return checked;
}

void FieldEdit::applyTo(AudioInfoTag &tag, const QString &path) const
{
    for (const FieldAssignment &assignment : mAssignments)
        apply(assignment, tag, path);
}

void FieldEdit::apply(const FieldAssignment &assignment, AudioInfoTag &tag,
                      const QString &path) const
{
    if (assignment.field == u"artwork")
        return setArtwork(tag);
    if (assignment.field == u"compilation") {
        const bool isCompilation = assignment.value == u"yes";
        if (tag.isPartOfCompilation() != isCompilation)
            tag.setIsPartOfCompilation(isCompilation);
        return;
    }
    for (const TextField &field : textFields) {
        if (field.name != assignment.field)
            continue;
        // A title that equals the file's name may stand in the tag for want of one in the file.
        const bool mayBeFromFileName = field.name == QLatin1String("title")
            && QFileInfo(path).fileName().contains(assignment.value);
        const bool mayBeHidden = assignment.value.isEmpty() && tag.hasHiddenValues();
        if ((tag.*field.value)().value_or(QString()) != assignment.value || mayBeFromFileName
            || mayBeHidden)
            (tag.*field.set)(assignment.value);
    }
}

void FieldEdit::setArtwork(AudioInfoTag &tag) const
{
    const QList<ID3Image> images = tag.images();
    const bool isAsWanted = mArtwork.data.isEmpty()
        ? images.isEmpty()
        : images.size() == 1 && images.first().data == mArtwork.data;
    if (isAsWanted)
        return;
    tag.removeAllImages();
    if (!mArtwork.data.isEmpty())
        tag.addImage(mArtwork);
}
