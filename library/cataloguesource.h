// Which of the catalogues knows a song.
#pragma once

enum class CatalogueSource {
    Only, ///< the built-in one, where the user has none of his own: nothing is said about it
    BuiltIn,
    Own
};
