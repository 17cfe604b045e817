#pragma once

#include "sources/lyricsrecord.h"
#include "sources/lyricssource.h"

/// Lyrics from a service that keeps one record for each recording, plain and with times. Asks for
/// the very song first, and searches when it is not there.
class LRCLIBInterface : public LyricsSource {
    Q_OBJECT

public:
    /// The songs that were told to be instrumentals, of all searches of a run, by their simplified
    /// names.
    using Instrumentals = QSet<std::pair<QString, QString>>;

    LRCLIBInterface(SiteDefinition resources, HVHTTPQueue &queue,
                    std::shared_ptr<Instrumentals> instrumentals);

    [[nodiscard]] QString className() const override { return QStringLiteral("LRCLIBInterface"); }

protected:
    void startSearch() override;

private:
    void gotRecord(const FetchResult &result);
    void searchForSong();
    void gotResults(const FetchResult &result);
    [[nodiscard]] QList<LyricsRecord> fitting(const QJsonArray &results) const;
    /// Seconds between the song's length and the record's; nothing when one is not known.
    [[nodiscard]] std::optional<double> distance(const LyricsRecord &record) const;
    [[nodiscard]] bool hasOtherLength(const LyricsRecord &record) const;
    [[nodiscard]] QString textOf(const LyricsRecord &record) const;
    [[nodiscard]] bool canBeSynced(const LyricsRecord &record) const;
    /// False when the record tells nothing of the song's words.
    bool report(const LyricsRecord &record);
    [[nodiscard]] std::pair<QString, QString> names() const;

    std::shared_ptr<Instrumentals> mInstrumentals;
};
