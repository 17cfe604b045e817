#pragma once

#include <QString>

#include <span>

// What site definitions may hold, as data: every key and the kind of its value. A definition is
// checked against these tables when it loads, and docs/site-definitions.md explains each entry.

enum class DefinitionKind {
    Text, ///< a marker or another literal text
    TextFormat, ///< a text with one "%@"
    TrackFormat, ///< a marker with one "%d", the track number
    Address, ///< http or https with a host; empty: not available
    AddressPrefix, ///< put before a link, so that it begins with http or https; may be empty
    AddressFormat, ///< an address with one "%@" behind its host; empty: not available
    ArtistTitleAddressFormat, ///< the same with two: artist, then song title
    ParseRecipe, ///< a dictionary of the five page markers
    Integer, ///< a number, or a text of one
    Number, ///< the same with a fraction
    Switch, ///< true or false, or an integer of which 0 is false
    Agent, ///< "Program/%@ ( contact )", "%@" being the version, which may be written out
    Charset, ///< the name of a character encoding
    TextList, ///< a list of texts
    TextTable, ///< a dictionary from texts, none of them empty, to texts
};

struct DefinitionKey {
    const char *key;
    DefinitionKind kind;
    bool mayBeMissing = false; ///< a definition without it lacks nothing
};

struct SourceSchema {
    const char *className;
    std::span<const DefinitionKey> keys;
};

/// The keys of a whole set beside the sources' own "res_%@".
[[nodiscard]] std::span<const DefinitionKey> topLevelSchema();
/// The keys that every source's definition may hold.
[[nodiscard]] std::span<const DefinitionKey> commonSchema();
/// The keys of each source class.
[[nodiscard]] std::span<const SourceSchema> sourceSchemas();
/// The keys of one of them; none when no class has that name.
[[nodiscard]] std::span<const DefinitionKey> schemaOfSource(const QString &className);
/// The five markers of a parse recipe.
[[nodiscard]] std::span<const DefinitionKey> parseRecipeSchema();
