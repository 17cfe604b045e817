#pragma once

#include "gathering/albumlist.h"
#include "gathering/asset.h"
#include "tags/tagoptions.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

enum class Command { None, Show, Set, Regenerate, Gather, Sites, Demo };
enum class SitesAction { List, Check, Update };

/// A field of a song as the command line names it, and the text to give it.
struct FieldAssignment {
    QString field; ///< "title", "artwork" and so on
    QString value; ///< empty: the field is removed
};

/// What the user asked for. An option that was not given is absent; the saved preference holds.
struct Arguments {
    Command command = Command::None;
    QStringList paths;
    QList<FieldAssignment> fields;
    bool verbose = false;
    bool json = false;
    bool frames = false;
    bool dryRun = false;
    bool headless = false;
    bool keepTime = false;

    std::optional<ID3Dialect> id3;
    std::optional<FrameSizes> v24Sizes;

    std::optional<Assets> want;
    std::optional<Assets> overwrite;
    std::optional<AlbumPick> pick;
    std::optional<bool> parallel;
    bool identify = false;
    std::optional<Substrings> substrings;
    std::optional<double> minArt; ///< pixels
    std::optional<double> maxArt; ///< pixels
    std::optional<double> artBelow; ///< pixels
    std::optional<bool> squareArt;
    std::optional<QString> definitions;
    SitesAction sites = SitesAction::List;
    bool retry = false;
    bool library = false;
    std::optional<QString> playlist;
};
