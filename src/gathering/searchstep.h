#pragma once

/// The steps of a search, each of which needs the one before.
enum class SearchStep {
    Page, ///< an answer with a page in it
    List, ///< a list on the page
    Row, ///< a row of it that fits the song
    Field, ///< a field that is read from a page
};
