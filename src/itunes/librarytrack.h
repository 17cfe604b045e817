#pragma once

#include <QString>
#include <QVariantMap>

#include <array>

/// What the library file of iTunes says of one track. Texts are null and numbers 0 where it says
/// nothing.
struct LibraryTrack {
    int id = 0; ///< the integer value of the track's key, by which playlists name it
    int year = 0;
    int trackNumber = 0;
    int trackCount = 0;
    QString kind; ///< in the user's language, such as "MPEG audio file"
    QString name;
    QString artist;
    QString album;
    QString genre;
    QString location; ///< a URL as it was written, see itunes/tracklocation

    /// The same under the keys of the library file ("Name", "Track Count"), without what it does
    /// not say.
    [[nodiscard]] QVariantMap trackInfo() const;
};

/// A key of the library file and where its value is kept.
template<typename Value>
struct LibraryField {
    QStringView key;
    Value LibraryTrack::*value;
};

inline constexpr std::array libraryTexts{
    LibraryField<QString>{u"Kind", &LibraryTrack::kind},
    LibraryField<QString>{u"Name", &LibraryTrack::name},
    LibraryField<QString>{u"Artist", &LibraryTrack::artist},
    LibraryField<QString>{u"Album", &LibraryTrack::album},
    LibraryField<QString>{u"Genre", &LibraryTrack::genre},
    LibraryField<QString>{u"Location", &LibraryTrack::location},
};

inline constexpr std::array libraryNumbers{
    LibraryField<int>{u"Year", &LibraryTrack::year},
    LibraryField<int>{u"Track Number", &LibraryTrack::trackNumber},
    LibraryField<int>{u"Track Count", &LibraryTrack::trackCount},
};
