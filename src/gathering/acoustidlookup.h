#pragma once

#include "gathering/acoustidanswer.h"
#include "gathering/webdbinterface.h"

/// Asks the AcoustID service which song has a fingerprint: not a source of albums, but paced,
/// cancelled and described by a definition as those are. Its albums() stay empty.
class AcoustIDLookup : public WebDBInterface {
    Q_OBJECT

public:
    static constexpr QLatin1String name{"AcoustIDLookup"};

    struct Question {
        QString clientKey;
        QByteArray fingerprint;
        KnownOfSong song;
    };

    AcoustIDLookup(SiteDefinition definition, HVHTTPQueue &queue, Question question);

    [[nodiscard]] QString className() const override { return name; }
    /// When the search is complete.
    [[nodiscard]] const AcoustIDAnswer &answer() const { return mAnswer; }

protected:
    void startSearch() override;

private:
    [[nodiscard]] QByteArray form() const;
    void gotAnswer(const FetchResult &result);

    Question mQuestion;
    AcoustIDAnswer mAnswer;
};
