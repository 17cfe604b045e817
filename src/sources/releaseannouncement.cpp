#include "sources/releaseannouncement.h"

#include "sources/sitedefinitionstore.h"

#include <QtGlobal>

namespace {

/// Notes that begin with "!" stand before the message, others after it.
QString withNotes(const QString &message, const QString &notes)
{
    const QString between = QStringLiteral("\n\n");
    if (notes.isEmpty())
        return message;
    return notes.startsWith(u'!') ? notes.mid(1) + between + message : message + between + notes;
}

} // namespace

std::optional<ReleaseAnnouncement> announcedRelease(const SiteDefinitions &definitions)
{
    const SiteDefinition values(definitions.values());
    const QString version = values.textOrEmpty(QStringLiteral("latestVersion"));
    const QString location = values.textOrEmpty(QStringLiteral("latestDLLocation"));
    const int release = values.integer(QStringLiteral("latestReleaseNumber"));
    if (release <= SiteDefinitionStore::thisReleaseNumber || version.isEmpty()
        || location.isEmpty())
        return std::nullopt;
    QString message = qtTrId("newVersionMessage");
    const QString place = QStringLiteral("<version>");
    if (const qsizetype found = message.indexOf(place); found >= 0)
        message.replace(found, place.size(), version);
    return ReleaseAnnouncement{
        withNotes(message, values.textOrEmpty(QStringLiteral("latestReleaseNotes"))), location};
}
