#pragma once

#include <QString>

// The user's folders of this program, by the XDG base directory rules: absolute paths without a
// slash at the end. None of them is created here.

/// Digests, definitions and other resources of the user: $XDG_DATA_HOME/tagwright.
QString dataFolder();

/// Journals of writes under way and the diagnostics log: $XDG_STATE_HOME/tagwright.
QString stateFolder();

/// What can be made again, such as fetched pages: $XDG_CACHE_HOME/tagwright.
QString cacheFolder();

/// The file that the settings live in: $XDG_CONFIG_HOME/tagwright/tagwright.conf.
QString settingsFile();

/// Summaries of the tags of songs: $XDG_CACHE_HOME/Tagwright Song Info.
QString songInfoFolder();
