<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="AboutText">
        <source>&lt;b&gt;Tagwright %1&lt;/b&gt;&lt;br&gt;&lt;br&gt;Fills in what the tags of your songs lack: album, title, genre, year, track, artwork and lyrics.&lt;br&gt;&lt;br&gt;Free software under the GNU General Public License, version 3 or later.</source>
        <translation>&lt;b&gt;Tagwright %1&lt;/b&gt;&lt;br&gt;&lt;br&gt;Fills in what the tags of your songs lack: album, title, genre, year, track, artwork and lyrics.&lt;br&gt;&lt;br&gt;Free software under the GNU General Public License, version 3 or later.</translation>
    </message>
    <message id="AboutTitle">
        <source>About Tagwright</source>
        <translation>About Tagwright</translation>
    </message>
    <message id="AccessibleHasLyrics">
        <source>Has lyrics</source>
        <translation>Has lyrics</translation>
    </message>
    <message id="ActivityIdle">
        <source>Nothing is being fetched</source>
        <translation>Nothing is being fetched</translation>
    </message>
    <message id="ActivityPending">
        <source>Waits to be gathered</source>
        <translation>Waits to be gathered</translation>
    </message>
    <message id="ActivityProcessing">
        <source>Is being gathered</source>
        <translation>Is being gathered</translation>
    </message>
    <message id="ActivityStatus">
        <source>Status</source>
        <translation>Status</translation>
    </message>
    <message id="ActivityTitle">
        <source>Activity</source>
        <translation>Activity</translation>
    </message>
    <message id="ActivityURL">
        <source>Address</source>
        <translation>Address</translation>
    </message>
    <message id="AlbumName">
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message id="All">
        <source>All</source>
        <translation>All</translation>
    </message>
    <message id="Artist">
        <source>Artist</source>
        <translation>Artist</translation>
    </message>
    <message id="Artwork">
        <source>Artwork</source>
        <translation>Artwork</translation>
    </message>
    <message id="ArtworkAdd">
        <source>Add</source>
        <translation>Add</translation>
    </message>
    <message id="ArtworkAddToSongs">
        <source>Add the picture to %1 songs?</source>
        <translation>Add the picture to %1 songs?</translation>
    </message>
    <message id="ArtworkChooseFilter">
        <source>Pictures (*.jpg *.jpeg *.png *.gif *.webp *.bmp *.tif *.tiff);;All files (*)</source>
        <translation>Pictures (*.jpg *.jpeg *.png *.gif *.webp *.bmp *.tif *.tiff);;All files (*)</translation>
    </message>
    <message id="ArtworkChooseTitle">
        <source>Choose a picture</source>
        <translation>Choose a picture</translation>
    </message>
    <message id="ArtworkNoSelection">
        <source>Select songs to see their artwork</source>
        <translation>Select songs to see their artwork</translation>
    </message>
    <message id="ArtworkNone">
        <source>No artwork

Drop or paste a picture here</source>
        <translation>No artwork

Drop or paste a picture here</translation>
    </message>
    <message id="ArtworkOfFirstSongs">
        <source>As in the first %1 of %2 songs</source>
        <translation>As in the first %1 of %2 songs</translation>
    </message>
    <message id="ArtworkPictures">
        <source>Pictures</source>
        <translation>Pictures</translation>
    </message>
    <message id="ArtworkPosition">
        <source>%1 of %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message id="ArtworkRefusedTitle">
        <source>Artwork</source>
        <translation>Artwork</translation>
    </message>
    <message id="ArtworkRemove">
        <source>Remove</source>
        <translation>Remove</translation>
    </message>
    <message id="ArtworkRemoveAllFromSongs">
        <source>Remove all pictures from %1 songs?</source>
        <translation>Remove all pictures from %1 songs?</translation>
    </message>
    <message id="ArtworkRemoveFromSongs">
        <source>Remove the picture from %1 songs?</source>
        <translation>Remove the picture from %1 songs?</translation>
    </message>
    <message id="ArtworkReplace">
        <source>Replace</source>
        <translation>Replace</translation>
    </message>
    <message id="ArtworkReplaceInSongs">
        <source>Replace the artwork of %1 songs?</source>
        <translation>Replace the artwork of %1 songs?</translation>
    </message>
    <message id="ArtworkSaveTitle">
        <source>Save picture</source>
        <translation>Save picture</translation>
    </message>
    <message id="ArtworkSeveral">
        <source>Several pictures

The selected songs have different artwork</source>
        <translation>Several pictures

The selected songs have different artwork</translation>
    </message>
    <message id="ArtworkSize">
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 pixels</translation>
    </message>
    <message id="BPM">
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message id="ChangeByRegenerating">
        <source>Regeneration</source>
        <translation>Regeneration</translation>
    </message>
    <message id="ChangeColumnQuestion">
        <source>Change “%1” to “%2”?</source>
        <translation>Change “%1” to “%2”?</translation>
    </message>
    <message id="ChangeMarkQuestion">
        <source>Change “%1”?</source>
        <translation>Change “%1”?</translation>
    </message>
    <message id="ChangeOfArtwork">
        <source>Change of artwork</source>
        <translation>Change of artwork</translation>
    </message>
    <message id="ChangeOfColumn">
        <source>Change of “%1”</source>
        <translation>Change of “%1”</translation>
    </message>
    <message id="ChangeOfGenres">
        <source>Standardising of genres</source>
        <translation>Standardising of genres</translation>
    </message>
    <message id="ChangeOfLyrics">
        <source>Change of lyrics</source>
        <translation>Change of lyrics</translation>
    </message>
    <message id="ChangeOfPastedTags">
        <source>Pasting of tags</source>
        <translation>Pasting of tags</translation>
    </message>
    <message id="ChangeSheetCount">
        <source>Songs to be changed: %1</source>
        <translation>Songs to be changed: %1</translation>
    </message>
    <message id="ChangeSheetRefused">
        <source>Of these, %1 cannot be written and will stay as they are.</source>
        <translation>Of these, %1 cannot be written and will stay as they are.</translation>
    </message>
    <message id="ChangeSheetSongs">
        <source>Songs that will be changed</source>
        <translation>Songs that will be changed</translation>
    </message>
    <message id="ChangeToNothingQuestion">
        <source>Remove “%1”?</source>
        <translation>Remove “%1”?</translation>
    </message>
    <message id="ChoiceAlbumName">
        <source>“%1”</source>
        <translation>“%1”</translation>
    </message>
    <message id="ChoiceAlbumWithoutName">
        <source>an album without a name</source>
        <translation>an album without a name</translation>
    </message>
    <message id="ChoiceCoverAlone">
        <source>No album to choose: nothing but the cover of %1 was found</source>
        <translation>No album to choose: nothing but the cover of %1 was found</translation>
    </message>
    <message id="ChoiceEarliestYear">
        <source>Chosen: %1, the earliest of %2 albums</source>
        <translation>Chosen: %1, the earliest of %2 albums</translation>
    </message>
    <message id="ChoiceHighestScore">
        <source>Chosen: %1, which has the highest score of %2 albums</source>
        <translation>Chosen: %1, which has the highest score of %2 albums</translation>
    </message>
    <message id="ChoiceLastLeft">
        <source>Chosen: %1, which is what is left of %2 albums</source>
        <translation>Chosen: %1, which is what is left of %2 albums</translation>
    </message>
    <message id="ChoiceMostAgreement">
        <source>Chosen: %1, which was found most often of %2 albums</source>
        <translation>Chosen: %1, which was found most often of %2 albums</translation>
    </message>
    <message id="ChoiceNoAnswer">
        <source>Nothing chosen: no source could be asked</source>
        <translation>Nothing chosen: no source could be asked</translation>
    </message>
    <message id="ChoiceNoMethod">
        <source>Nothing chosen: %1 albums fit, and no method picks one of them</source>
        <translation>Nothing chosen: %1 albums fit, and no method picks one of them</translation>
    </message>
    <message id="ChoiceNoUsableYear">
        <source>Nothing chosen: of the albums that fit (%1), none has a usable year</source>
        <translation>Nothing chosen: of the albums that fit (%1), none has a usable year</translation>
    </message>
    <message id="ChoiceNoneFits">
        <source>Nothing chosen: no album that was found fits the song</source>
        <translation>Nothing chosen: no album that was found fits the song</translation>
    </message>
    <message id="ChoiceNothingFound">
        <source>Nothing chosen: no album was found</source>
        <translation>Nothing chosen: no album was found</translation>
    </message>
    <message id="ChoiceOnlyAlbum">
        <source>Chosen: %1, the only album that was found</source>
        <translation>Chosen: %1, the only album that was found</translation>
    </message>
    <message id="ChoiceSongNotOnAlbum">
        <source>Nothing chosen: the song is not on %1</source>
        <translation>Nothing chosen: the song is not on %1</translation>
    </message>
    <message id="ChoiceTakenByUser">
        <source>Chosen: %1, which you took</source>
        <translation>Chosen: %1, which you took</translation>
    </message>
    <message id="ChoiceTooLittleKnown">
        <source>Nothing looked for: too little is known of the song</source>
        <translation>Nothing looked for: too little is known of the song</translation>
    </message>
    <message id="ChoiceWithoutSources">
        <source>%1 (no answer from %2)</source>
        <translation>%1 (no answer from %2)</translation>
    </message>
    <message id="ColumnActivity">
        <source>Activity</source>
        <translation>Activity</translation>
    </message>
    <message id="ColumnAlbum">
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message id="ColumnArtist">
        <source>Artist</source>
        <translation>Artist</translation>
    </message>
    <message id="ColumnArtwork">
        <source>Artwork</source>
        <translation>Artwork</translation>
    </message>
    <message id="ColumnBPM">
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message id="ColumnCompilation">
        <source>Compilation</source>
        <translation>Compilation</translation>
    </message>
    <message id="ColumnGenre">
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message id="ColumnIndex">
        <source>Index</source>
        <translation>Index</translation>
    </message>
    <message id="ColumnLyrics">
        <source>Lyrics</source>
        <translation>Lyrics</translation>
    </message>
    <message id="ColumnTitle">
        <source>Title</source>
        <translation>Title</translation>
    </message>
    <message id="ColumnTrack">
        <source>Track</source>
        <translation>Track</translation>
    </message>
    <message id="ColumnVersion">
        <source>Tag Version</source>
        <translation>Tag Version</translation>
    </message>
    <message id="ColumnYear">
        <source>Year</source>
        <translation>Year</translation>
    </message>
    <message id="ColumnsRestore">
        <source>Restore Columns</source>
        <translation>Restore Columns</translation>
    </message>
    <message id="Compilation">
        <source>Compilation</source>
        <translation>Compilation</translation>
    </message>
    <message id="CompilationWarningDontWarn">
        <source>Do not warn of this again</source>
        <translation>Do not warn of this again</translation>
    </message>
    <message id="CompilationWarningText">
        <source>“%1” by %2 is part of a compilation, and not everything was found for it. Sources often list such albums under another artist.</source>
        <translation>“%1” by %2 is part of a compilation, and not everything was found for it. Sources often list such albums under another artist.</translation>
    </message>
    <message id="CompilationWarningTitle">
        <source>Songs of compilations</source>
        <translation>Songs of compilations</translation>
    </message>
    <message id="ConfirmChangeProceed">
        <source>Change</source>
        <translation>Change</translation>
    </message>
    <message id="DropWindowCancel">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="DropWindowClose">
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message id="DropWindowDone">
        <source>Done</source>
        <translation>Done</translation>
    </message>
    <message id="DropWindowNoSongs">
        <source>There are no songs at %1</source>
        <translation>There are no songs at %1</translation>
    </message>
    <message id="DropWindowProblems">
        <source>Done, with problems: %1</source>
        <translation>Done, with problems: %1</translation>
    </message>
    <message id="DropWindowProgress">
        <source>Songs looked at</source>
        <translation>Songs looked at</translation>
    </message>
    <message id="DroppedCoverAlone">
        <source>a cover alone, no album to choose</source>
        <translation>a cover alone, no album to choose</translation>
    </message>
    <message id="DroppedMerged">
        <source>counted with another album of the same name</source>
        <translation>counted with another album of the same name</translation>
    </message>
    <message id="DroppedNotPicked">
        <source>another album was picked</source>
        <translation>another album was picked</translation>
    </message>
    <message id="DroppedOtherName">
        <source>another name than the song’s album, which others have</source>
        <translation>another name than the song’s album, which others have</translation>
    </message>
    <message id="DroppedOtherNumberOfTracks">
        <source>another number of tracks than the song’s album, which others have</source>
        <translation>another number of tracks than the song’s album, which others have</translation>
    </message>
    <message id="DroppedSongNotOnAlbum">
        <source>the song is not on it</source>
        <translation>the song is not on it</translation>
    </message>
    <message id="DroppedTitleNotOnAlbum">
        <source>the title is not on it, but on others</source>
        <translation>the title is not on it, but on others</translation>
    </message>
    <message id="DroppedUndecided">
        <source>it fits, but no album was picked</source>
        <translation>it fits, but no album was picked</translation>
    </message>
    <message id="DroppedUnseen">
        <source>not looked up: %1</source>
        <translation>not looked up: %1</translation>
    </message>
    <message id="EditReview">
        <source>Reviewed changes</source>
        <translation>Reviewed changes</translation>
    </message>
    <message id="EditingProgress">
        <source>Writing songs…</source>
        <translation>Writing songs…</translation>
    </message>
    <message id="EmptyNoMatch">
        <source>Nothing matches “%1”</source>
        <translation>Nothing matches “%1”</translation>
    </message>
    <message id="EmptyNoMatchHint">
        <source>Change or clear the text in the search field</source>
        <translation>Change or clear the text in the search field</translation>
    </message>
    <message id="EmptyNothingLoaded">
        <source>Drop a folder here</source>
        <translation>Drop a folder here</translation>
    </message>
    <message id="EmptyNothingLoadedHint">
        <source>Or choose one in the menu “File”</source>
        <translation>Or choose one in the menu “File”</translation>
    </message>
    <message id="EmptySource">
        <source>There are no songs here</source>
        <translation>There are no songs here</translation>
    </message>
    <message id="ErrorAddressNotFetched">
        <source>“%1” is no address that can be fetched: only http and https are</source>
        <translation>“%1” is no address that can be fetched: only http and https are</translation>
    </message>
    <message id="ErrorAlbumNotLookedUp">
        <source>The album could not be looked up</source>
        <translation>The album could not be looked up</translation>
    </message>
    <message id="ErrorCannotMakeID3">
        <source>The ID3 tag cannot be made</source>
        <translation>The ID3 tag cannot be made</translation>
    </message>
    <message id="ErrorCannotModify">
        <source>“%1” by %2 cannot be changed: %3</source>
        <translation>“%1” by %2 cannot be changed: %3</translation>
    </message>
    <message id="ErrorCannotOpenForRead">
        <source>The file cannot be opened for reading</source>
        <translation>The file cannot be opened for reading</translation>
    </message>
    <message id="ErrorCannotOpenForWrite">
        <source>The file cannot be opened for writing</source>
        <translation>The file cannot be opened for writing</translation>
    </message>
    <message id="ErrorCannotReadFile">
        <source>The file cannot be read</source>
        <translation>The file cannot be read</translation>
    </message>
    <message id="ErrorDigestEmptyField">
        <source>Album title or path is empty</source>
        <translation>Album title or path is empty</translation>
    </message>
    <message id="ErrorDigestFields">
        <source>Artist, album and path with tabs between are expected; here are %1 fields</source>
        <translation>Artist, album and path with tabs between are expected; here are %1 fields</translation>
    </message>
    <message id="ErrorDigestNotUTF8">
        <source>This is no text in UTF-8</source>
        <translation>This is no text in UTF-8</translation>
    </message>
    <message id="ErrorDigestTwoPaths">
        <source>Line %1 gives another path for this album</source>
        <translation>Line %1 gives another path for this album</translation>
    </message>
    <message id="ErrorFileChanged">
        <source>The file is not the song that it was</source>
        <translation>The file is not the song that it was</translation>
    </message>
    <message id="ErrorForeignMetadata">
        <source>it keeps metadata of another kind where the list of items belongs</source>
        <translation>it keeps metadata of another kind where the list of items belongs</translation>
    </message>
    <message id="ErrorFrameTooLarge">
        <source>“%1” is larger than this kind of tag can hold (16 MB)</source>
        <translation>“%1” is larger than this kind of tag can hold (16 MB)</translation>
    </message>
    <message id="ErrorHostFailedLately">
        <source>%1 could not be reached within the last five minutes and is left alone for now</source>
        <translation>%1 could not be reached within the last five minutes and is left alone for now</translation>
    </message>
    <message id="ErrorMP4Unreadable">
        <source>This MP4 file cannot be read: %1</source>
        <translation>This MP4 file cannot be read: %1</translation>
    </message>
    <message id="ErrorNoAcoustIDKey">
        <source>needs a key of yours for the AcoustID service: in the setting “acoustIDKey” or in TAGWRIGHT_ACOUSTID_KEY</source>
        <translation>needs a key of yours for the AcoustID service: in the setting “acoustIDKey” or in TAGWRIGHT_ACOUSTID_KEY</translation>
    </message>
    <message id="ErrorNoFileManager">
        <source>No program can show the folder %1</source>
        <translation>No program can show the folder %1</translation>
    </message>
    <message id="ErrorNoLength">
        <source>its length cannot be told</source>
        <translation>its length cannot be told</translation>
    </message>
    <message id="ErrorNoLibrary">
        <source>There is no library file of iTunes that was written within the last 30 days</source>
        <translation>There is no library file of iTunes that was written within the last 30 days</translation>
    </message>
    <message id="ErrorNoMovie">
        <source>it has no “moov” atom, which would hold the tag</source>
        <translation>it has no “moov” atom, which would hold the tag</translation>
    </message>
    <message id="ErrorNoPicture">
        <source>This is no picture.</source>
        <translation>This is no picture.</translation>
    </message>
    <message id="ErrorNoPictureOnClipboard">
        <source>There is no picture on the clipboard.</source>
        <translation>There is no picture on the clipboard.</translation>
    </message>
    <message id="ErrorNoSong">
        <source>This is no song file that can be read</source>
        <translation>This is no song file that can be read</translation>
    </message>
    <message id="ErrorNoSound">
        <source>no sound in it can be decoded</source>
        <translation>no sound in it can be decoded</translation>
    </message>
    <message id="ErrorNoTagsOnClipboard">
        <source>There are no tags on the clipboard.</source>
        <translation>There are no tags on the clipboard.</translation>
    </message>
    <message id="ErrorNoYear">
        <source>No usable year in the albums found for %2 – %3 (%1): %4</source>
        <translation>No usable year in the albums found for %2 – %3 (%1): %4</translation>
    </message>
    <message id="ErrorNotIdentified">
        <source>“%1” is not known by its sound: %2</source>
        <translation>“%1” is not known by its sound: %2</translation>
    </message>
    <message id="ErrorNotOnAlbum">
        <source>“%1” is not on the album “%2” (%3)</source>
        <translation>“%1” is not on the album “%2” (%3)</translation>
    </message>
    <message id="ErrorOtherNumberOfSongs">
        <source>Songs copied: %1, songs selected: %2. Copy a single song, or select as many songs as were copied.</source>
        <translation>Songs copied: %1, songs selected: %2. Copy a single song, or select as many songs as were copied.</translation>
    </message>
    <message id="ErrorPictureTooLarge">
        <source>The picture has more than %1 MB.</source>
        <translation>The picture has more than %1 MB.</translation>
    </message>
    <message id="ErrorPictureUnreadable">
        <source>The picture is damaged or has more than 100 megapixels.</source>
        <translation>The picture is damaged or has more than 100 megapixels.</translation>
    </message>
    <message id="ErrorResponseTooLong">
        <source>The answer is longer than %1 MB</source>
        <translation>The answer is longer than %1 MB</translation>
    </message>
    <message id="ErrorServiceLeftAlone">
        <source>the service gave no answer to the songs before, and is left alone for now</source>
        <translation>the service gave no answer to the songs before, and is left alone for now</translation>
    </message>
    <message id="ErrorServiceNotReached">
        <source>the service cannot be reached</source>
        <translation>the service cannot be reached</translation>
    </message>
    <message id="ErrorSongBeingGathered">
        <source>The song is being gathered</source>
        <translation>The song is being gathered</translation>
    </message>
    <message id="ErrorSongChangedMeanwhile">
        <source>The song was changed by something else in the meantime</source>
        <translation>The song was changed by something else in the meantime</translation>
    </message>
    <message id="ErrorSongHasProblem">
        <source>The tag is damaged; “tagwright regenerate” rewrites it with what is sound</source>
        <translation>The tag is damaged; “tagwright regenerate” rewrites it with what is sound</translation>
    </message>
    <message id="ErrorSongLocked">
        <source>The file is not writable</source>
        <translation>The file is not writable</translation>
    </message>
    <message id="ErrorSongVanished">
        <source>The file is gone</source>
        <translation>The file is gone</translation>
    </message>
    <message id="ErrorSoundUnknown">
        <source>the service knows no such song</source>
        <translation>the service knows no such song</translation>
    </message>
    <message id="ErrorStillDamaged">
        <source>The tag is still damaged.</source>
        <translation>The tag is still damaged.</translation>
    </message>
    <message id="ErrorStrangeAnswer">
        <source>the answer of the service is not understood</source>
        <translation>the answer of the service is not understood</translation>
    </message>
    <message id="ErrorTagTooLarge">
        <source>It would be larger than 256 MB</source>
        <translation>It would be larger than 256 MB</translation>
    </message>
    <message id="ErrorTagUnreadable">
        <source>The ID3 tag is damaged and cannot be read</source>
        <translation>The ID3 tag is damaged and cannot be read</translation>
    </message>
    <message id="ErrorTimedOut">
        <source>The server took too long to answer</source>
        <translation>The server took too long to answer</translation>
    </message>
    <message id="ErrorTooManyRedirects">
        <source>The server redirects without end</source>
        <translation>The server redirects without end</translation>
    </message>
    <message id="ErrorTooMuchToCopy">
        <source>This is too much to copy at once. Copy at most 1,000 songs, with pictures of at most 128 MB.</source>
        <translation>This is too much to copy at once. Copy at most 1,000 songs, with pictures of at most 128 MB.</translation>
    </message>
    <message id="FieldAlbumReplaced">
        <source>Not replaced: the song has a picture, and its album was looked for, too</source>
        <translation>Not replaced: the song has a picture, and its album was looked for, too</translation>
    </message>
    <message id="FieldAlbumUnknown">
        <source>Not looked for: the album is not known</source>
        <translation>Not looked for: the album is not known</translation>
    </message>
    <message id="FieldAndValue">
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message id="FieldInstrumental">
        <source>The song is an instrumental</source>
        <translation>The song is an instrumental</translation>
    </message>
    <message id="FieldKept">
        <source>Not overwritten: the song has it</source>
        <translation>Not overwritten: the song has it</translation>
    </message>
    <message id="FieldLent">
        <source>Lent by another song of the album</source>
        <translation>Lent by another song of the album</translation>
    </message>
    <message id="FieldLentPicture">
        <source>Lent by another song of the album: %1</source>
        <translation>Lent by another song of the album: %1</translation>
    </message>
    <message id="FieldLyrics">
        <source>Found for this artist and title</source>
        <translation>Found for this artist and title</translation>
    </message>
    <message id="FieldNamedByFile">
        <source>The song has no title but the name of its file</source>
        <translation>The song has no title but the name of its file</translation>
    </message>
    <message id="FieldNoAnswer">
        <source>No source could be asked about it</source>
        <translation>No source could be asked about it</translation>
    </message>
    <message id="FieldNotAsked">
        <source>No source in use supplies it</source>
        <translation>No source in use supplies it</translation>
    </message>
    <message id="FieldNotFound">
        <source>Not found in any source</source>
        <translation>Not found in any source</translation>
    </message>
    <message id="FieldNotOnAlbum">
        <source>The chosen album, %1, does not tell it</source>
        <translation>The chosen album, %1, does not tell it</translation>
    </message>
    <message id="FieldPath">
        <source>Read from the names of the file and its folders, and known so to the source</source>
        <translation>Read from the names of the file and its folders, and known so to the source</translation>
    </message>
    <message id="FieldPicture">
        <source>A picture that fits: %1</source>
        <translation>A picture that fits: %1</translation>
    </message>
    <message id="FieldPictureNotFetched">
        <source>The picture could not be fetched</source>
        <translation>The picture could not be fetched</translation>
    </message>
    <message id="FieldPictureNotSquare">
        <source>The picture is not square: %1</source>
        <translation>The picture is not square: %1</translation>
    </message>
    <message id="FieldPictureScaled">
        <source>A picture that fits: %1, scaled down from %2</source>
        <translation>A picture that fits: %1, scaled down from %2</translation>
    </message>
    <message id="FieldPictureSize">
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 pixels</translation>
    </message>
    <message id="FieldPictureTooSmall">
        <source>The picture is too small: %1</source>
        <translation>The picture is too small: %1</translation>
    </message>
    <message id="FieldPictureUnreadable">
        <source>What was fetched is no picture that can be read</source>
        <translation>What was fetched is no picture that can be read</translation>
    </message>
    <message id="FieldSound">
        <source>Known by the sound of the song</source>
        <translation>Known by the sound of the song</translation>
    </message>
    <message id="FieldTooLittleKnown">
        <source>Not looked for: too little is known of the song</source>
        <translation>Not looked for: too little is known of the song</translation>
    </message>
    <message id="FindNext">
        <source>Find next</source>
        <translation>Find next</translation>
    </message>
    <message id="FindPrevious">
        <source>Find previous</source>
        <translation>Find previous</translation>
    </message>
    <message id="GeneralErrorPrefix">
        <source>Network: </source>
        <translation>Network: </translation>
    </message>
    <message id="Genre">
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message id="GenreBecomes">
        <source>Becomes</source>
        <translation>Becomes</translation>
    </message>
    <message id="GenreSongs">
        <source>Songs</source>
        <translation>Songs</translation>
    </message>
    <message id="LoadingPlaylist">
        <source>Loading the playlist “%1”…</source>
        <translation>Loading the playlist “%1”…</translation>
    </message>
    <message id="LoadingProgress">
        <source>Songs read</source>
        <translation>Songs read</translation>
    </message>
    <message id="LogCancelled">
        <source>Gathering was cancelled</source>
        <translation>Gathering was cancelled</translation>
    </message>
    <message id="LogFinished">
        <source>Finished. Songs processed: %1, modified: %2</source>
        <translation>Finished. Songs processed: %1, modified: %2</translation>
    </message>
    <message id="LogFoundInfo">
        <source>Found %1 for “%2”</source>
        <translation>Found %1 for “%2”</translation>
    </message>
    <message id="LogNothingUnanswered">
        <source>There are no songs that sources are to be asked about again</source>
        <translation>There are no songs that sources are to be asked about again</translation>
    </message>
    <message id="LogPausedForReview">
        <source>Gathering waits: %1 songs are to be reviewed first</source>
        <translation>Gathering waits: %1 songs are to be reviewed first</translation>
    </message>
    <message id="LogPlaceholder">
        <source>What is found and written is listed here.</source>
        <translation>What is found and written is listed here.</translation>
    </message>
    <message id="LogSetInfo">
        <source>Set %1 of “%2”</source>
        <translation>Set %1 of “%2”</translation>
    </message>
    <message id="LogTitle">
        <source>Log</source>
        <translation>Log</translation>
    </message>
    <message id="Lyrics">
        <source>Lyrics</source>
        <translation>Lyrics</translation>
    </message>
    <message id="LyricsAreClean">
        <source>There is nothing to clean up.</source>
        <translation>There is nothing to clean up.</translation>
    </message>
    <message id="LyricsCleanUp">
        <source>&amp;Clean Up</source>
        <translation>&amp;Clean Up</translation>
    </message>
    <message id="LyricsFilter">
        <source>Clean up lyrics when they are &amp;saved</source>
        <translation>Clean up lyrics when they are &amp;saved</translation>
    </message>
    <message id="LyricsFind">
        <source>Find in lyrics</source>
        <translation>Find in lyrics</translation>
    </message>
    <message id="LyricsForAll">
        <source>Lyrics for &amp;All…</source>
        <translation>Lyrics for &amp;All…</translation>
    </message>
    <message id="LyricsForAllPrompt">
        <source>Lyrics for all selected songs:</source>
        <translation>Lyrics for all selected songs:</translation>
    </message>
    <message id="LyricsForAllTitle">
        <source>Lyrics for all songs</source>
        <translation>Lyrics for all songs</translation>
    </message>
    <message id="LyricsInspectorTitle">
        <source>Lyrics</source>
        <translation>Lyrics</translation>
    </message>
    <message id="LyricsNoSelection">
        <source>No song selected</source>
        <translation>No song selected</translation>
    </message>
    <message id="LyricsNone">
        <source>No lyrics</source>
        <translation>No lyrics</translation>
    </message>
    <message id="LyricsNotFound">
        <source>Not found.</source>
        <translation>Not found.</translation>
    </message>
    <message id="LyricsNotWritten">
        <source>These lyrics could not be written. The log says why.</source>
        <translation>These lyrics could not be written. The log says why.</translation>
    </message>
    <message id="LyricsRemove">
        <source>Remove</source>
        <translation>Remove</translation>
    </message>
    <message id="LyricsRemoveFromSongs">
        <source>Remove the lyrics from %1 songs?</source>
        <translation>Remove the lyrics from %1 songs?</translation>
    </message>
    <message id="LyricsSet">
        <source>Set Lyrics</source>
        <translation>Set Lyrics</translation>
    </message>
    <message id="LyricsSetInSongs">
        <source>Set these lyrics in %1 songs?</source>
        <translation>Set these lyrics in %1 songs?</translation>
    </message>
    <message id="LyricsSeveralSongs">
        <source>Select one song to read and edit its lyrics.</source>
        <translation>Select one song to read and edit its lyrics.</translation>
    </message>
    <message id="LyricsTooLong">
        <source>This text is too long to be edited here. Only its beginning is shown.</source>
        <translation>This text is too long to be edited here. Only its beginning is shown.</translation>
    </message>
    <message id="LyricsWereCleaned">
        <source>The lyrics were cleaned up.</source>
        <translation>The lyrics were cleaned up.</translation>
    </message>
    <message id="MenuAbout">
        <source>&amp;About Tagwright</source>
        <translation>&amp;About Tagwright</translation>
    </message>
    <message id="MenuActivity">
        <source>&amp;Activity</source>
        <translation>&amp;Activity</translation>
    </message>
    <message id="MenuAdd">
        <source>A&amp;dd</source>
        <translation>A&amp;dd</translation>
    </message>
    <message id="MenuAddArtwork">
        <source>&amp;Add Artwork…</source>
        <translation>&amp;Add Artwork…</translation>
    </message>
    <message id="MenuArtwork">
        <source>&amp;Artwork</source>
        <translation>&amp;Artwork</translation>
    </message>
    <message id="MenuBegin">
        <source>&amp;Begin</source>
        <translation>&amp;Begin</translation>
    </message>
    <message id="MenuClearLog">
        <source>C&amp;lear Log</source>
        <translation>C&amp;lear Log</translation>
    </message>
    <message id="MenuColumns">
        <source>C&amp;olumns</source>
        <translation>C&amp;olumns</translation>
    </message>
    <message id="MenuCopyLog">
        <source>&amp;Copy Log</source>
        <translation>&amp;Copy Log</translation>
    </message>
    <message id="MenuCopyTags">
        <source>&amp;Copy Tags</source>
        <translation>&amp;Copy Tags</translation>
    </message>
    <message id="MenuEdit">
        <source>&amp;Edit</source>
        <translation>&amp;Edit</translation>
    </message>
    <message id="MenuFile">
        <source>&amp;File</source>
        <translation>&amp;File</translation>
    </message>
    <message id="MenuFind">
        <source>&amp;Find</source>
        <translation>&amp;Find</translation>
    </message>
    <message id="MenuGathering">
        <source>&amp;Gathering</source>
        <translation>&amp;Gathering</translation>
    </message>
    <message id="MenuHelp">
        <source>&amp;Help</source>
        <translation>&amp;Help</translation>
    </message>
    <message id="MenuLyricsInspector">
        <source>&amp;Lyrics</source>
        <translation>&amp;Lyrics</translation>
    </message>
    <message id="MenuOpenFolder">
        <source>&amp;Open Folder…</source>
        <translation>&amp;Open Folder…</translation>
    </message>
    <message id="MenuPasteArtwork">
        <source>&amp;Paste Artwork</source>
        <translation>&amp;Paste Artwork</translation>
    </message>
    <message id="MenuPasteTags">
        <source>Paste &amp;Tags</source>
        <translation>Paste &amp;Tags</translation>
    </message>
    <message id="MenuPreferences">
        <source>&amp;Preferences…</source>
        <translation>&amp;Preferences…</translation>
    </message>
    <message id="MenuQuit">
        <source>&amp;Quit</source>
        <translation>&amp;Quit</translation>
    </message>
    <message id="MenuRedo">
        <source>&amp;Redo</source>
        <translation>&amp;Redo</translation>
    </message>
    <message id="MenuRedoNamed">
        <source>&amp;Redo %1</source>
        <translation>&amp;Redo %1</translation>
    </message>
    <message id="MenuRegenerate">
        <source>&amp;Regenerate Tags…</source>
        <translation>&amp;Regenerate Tags…</translation>
    </message>
    <message id="MenuRemoveAllArtwork">
        <source>Remove A&amp;ll Artwork</source>
        <translation>Remove A&amp;ll Artwork</translation>
    </message>
    <message id="MenuRemoveArtwork">
        <source>&amp;Remove Artwork</source>
        <translation>&amp;Remove Artwork</translation>
    </message>
    <message id="MenuRemoveLyrics">
        <source>Re&amp;move Lyrics</source>
        <translation>Re&amp;move Lyrics</translation>
    </message>
    <message id="MenuReplaceArtwork">
        <source>R&amp;eplace Artwork…</source>
        <translation>R&amp;eplace Artwork…</translation>
    </message>
    <message id="MenuRescan">
        <source>&amp;Rescan</source>
        <translation>&amp;Rescan</translation>
    </message>
    <message id="MenuRetryUnanswered">
        <source>&amp;Ask Sources Again</source>
        <translation>&amp;Ask Sources Again</translation>
    </message>
    <message id="MenuRevealFile">
        <source>&amp;Show in File Manager</source>
        <translation>&amp;Show in File Manager</translation>
    </message>
    <message id="MenuReview">
        <source>&amp;Review…</source>
        <translation>&amp;Review…</translation>
    </message>
    <message id="MenuSaveArtwork">
        <source>&amp;Save Artwork As…</source>
        <translation>&amp;Save Artwork As…</translation>
    </message>
    <message id="MenuSelectAll">
        <source>&amp;Select All</source>
        <translation>&amp;Select All</translation>
    </message>
    <message id="MenuShowOptions">
        <source>Gathering &amp;Options</source>
        <translation>Gathering &amp;Options</translation>
    </message>
    <message id="MenuSongs">
        <source>&amp;Songs</source>
        <translation>&amp;Songs</translation>
    </message>
    <message id="MenuSortBy">
        <source>&amp;Sort by</source>
        <translation>&amp;Sort by</translation>
    </message>
    <message id="MenuStandardiseGenre">
        <source>Standardise &amp;Genre…</source>
        <translation>Standardise &amp;Genre…</translation>
    </message>
    <message id="MenuStop">
        <source>&amp;Stop</source>
        <translation>&amp;Stop</translation>
    </message>
    <message id="MenuUndo">
        <source>&amp;Undo</source>
        <translation>&amp;Undo</translation>
    </message>
    <message id="MenuUndoNamed">
        <source>&amp;Undo %1</source>
        <translation>&amp;Undo %1</translation>
    </message>
    <message id="MenuView">
        <source>&amp;View</source>
        <translation>&amp;View</translation>
    </message>
    <message id="MenuWelcome">
        <source>&amp;Welcome</source>
        <translation>&amp;Welcome</translation>
    </message>
    <message id="MenuWindow">
        <source>&amp;Window</source>
        <translation>&amp;Window</translation>
    </message>
    <message id="NoInitializeSong">
        <source>No song can be found at</source>
        <translation>No song can be found at</translation>
    </message>
    <message id="NoInitializeTag">
        <source>No tag can be read from</source>
        <translation>No tag can be read from</translation>
    </message>
    <message id="NoLimit">
        <source>No limit</source>
        <translation>No limit</translation>
    </message>
    <message id="NumberRemaining">
        <source>%1 (%2 remaining)</source>
        <translation>%1 (%2 remaining)</translation>
    </message>
    <message id="OpenFolderTitle">
        <source>Choose a folder of songs</source>
        <translation>Choose a folder of songs</translation>
    </message>
    <message id="OptionsAdvanced">
        <source>Of several albums take</source>
        <translation>Of several albums take</translation>
    </message>
    <message id="OptionsAllowSubstrings">
        <source>Names may match in part</source>
        <translation>Names may match in part</translation>
    </message>
    <message id="OptionsGather">
        <source>Look for</source>
        <translation>Look for</translation>
    </message>
    <message id="OptionsIdentify">
        <source>Know unnamed songs by their sound</source>
        <translation>Know unnamed songs by their sound</translation>
    </message>
    <message id="OptionsOverwrite">
        <source>Replace</source>
        <translation>Replace</translation>
    </message>
    <message id="OptionsOverwriteAsset">
        <source>Replace what is there: %1</source>
        <translation>Replace what is there: %1</translation>
    </message>
    <message id="OptionsParallelSearch">
        <source>Ask all sources at once</source>
        <translation>Ask all sources at once</translation>
    </message>
    <message id="OptionsPickAgreement">
        <source>The one that most sources know</source>
        <translation>The one that most sources know</translation>
    </message>
    <message id="OptionsPickAgreementHint">
        <source>Counts how often each album was found.</source>
        <translation>Counts how often each album was found.</translation>
    </message>
    <message id="OptionsPickBest">
        <source>The best match</source>
        <translation>The best match</translation>
    </message>
    <message id="OptionsPickBestHint">
        <source>Compares length, track, year and names with the song.</source>
        <translation>Compares length, track, year and names with the song.</translation>
    </message>
    <message id="OptionsPickEarliest">
        <source>The earliest</source>
        <translation>The earliest</translation>
    </message>
    <message id="OptionsPickEarliestHint">
        <source>Mostly the original, not a collection.</source>
        <translation>Mostly the original, not a collection.</translation>
    </message>
    <message id="OptionsPickNone">
        <source>None</source>
        <translation>None</translation>
    </message>
    <message id="OptionsPickNoneHint">
        <source>Nothing is filled in where more than one album fits.</source>
        <translation>Nothing is filled in where more than one album fits.</translation>
    </message>
    <message id="OptionsReview">
        <source>Review before writing</source>
        <translation>Review before writing</translation>
    </message>
    <message id="OptionsSearch">
        <source>How to look</source>
        <translation>How to look</translation>
    </message>
    <message id="OptionsTitle">
        <source>Gathering options</source>
        <translation>Gathering options</translation>
    </message>
    <message id="OverwriteThresholdHigherThanMinimum">
        <source>Artwork may be replaced by a smaller one: what is accepted may be narrower than what is replaced.</source>
        <translation>Artwork may be replaced by a smaller one: what is accepted may be narrower than what is replaced.</translation>
    </message>
    <message id="OverwriteTitleCancel">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="OverwriteTitleMessage">
        <source>Titles will be looked for by track number and replace those that the songs have. Songs whose track number is wrong get wrong titles.</source>
        <translation>Titles will be looked for by track number and replace those that the songs have. Songs whose track number is wrong get wrong titles.</translation>
    </message>
    <message id="OverwriteTitleProceed">
        <source>Replace</source>
        <translation>Replace</translation>
    </message>
    <message id="OverwriteTitleTitle">
        <source>Replace titles?</source>
        <translation>Replace titles?</translation>
    </message>
    <message id="PasteTagsInOrder">
        <source>Paste the tags of %1 songs, in order?</source>
        <translation>Paste the tags of %1 songs, in order?</translation>
    </message>
    <message id="PasteTagsProceed">
        <source>Paste</source>
        <translation>Paste</translation>
    </message>
    <message id="PasteTagsQuestion">
        <source>Paste the copied tag?</source>
        <translation>Paste the copied tag?</translation>
    </message>
    <message id="PictureArtist">
        <source>Artist</source>
        <translation>Artist</translation>
    </message>
    <message id="PictureBackCover">
        <source>Back cover</source>
        <translation>Back cover</translation>
    </message>
    <message id="PictureBand">
        <source>Band</source>
        <translation>Band</translation>
    </message>
    <message id="PictureBandLogo">
        <source>Logo of the band</source>
        <translation>Logo of the band</translation>
    </message>
    <message id="PictureComposer">
        <source>Composer</source>
        <translation>Composer</translation>
    </message>
    <message id="PictureConductor">
        <source>Conductor</source>
        <translation>Conductor</translation>
    </message>
    <message id="PictureFileIcon">
        <source>File icon</source>
        <translation>File icon</translation>
    </message>
    <message id="PictureFish">
        <source>A bright coloured fish</source>
        <translation>A bright coloured fish</translation>
    </message>
    <message id="PictureFrontCover">
        <source>Front cover</source>
        <translation>Front cover</translation>
    </message>
    <message id="PictureIllustration">
        <source>Illustration</source>
        <translation>Illustration</translation>
    </message>
    <message id="PictureLeadArtist">
        <source>Lead artist</source>
        <translation>Lead artist</translation>
    </message>
    <message id="PictureLeaflet">
        <source>Leaflet page</source>
        <translation>Leaflet page</translation>
    </message>
    <message id="PictureLocation">
        <source>Recording location</source>
        <translation>Recording location</translation>
    </message>
    <message id="PictureLyricist">
        <source>Lyricist</source>
        <translation>Lyricist</translation>
    </message>
    <message id="PictureMedium">
        <source>Medium</source>
        <translation>Medium</translation>
    </message>
    <message id="PictureOther">
        <source>Other picture</source>
        <translation>Other picture</translation>
    </message>
    <message id="PictureOtherIcon">
        <source>Other file icon</source>
        <translation>Other file icon</translation>
    </message>
    <message id="PicturePerformance">
        <source>During performance</source>
        <translation>During performance</translation>
    </message>
    <message id="PicturePublisherLogo">
        <source>Logo of the publisher</source>
        <translation>Logo of the publisher</translation>
    </message>
    <message id="PictureRecording">
        <source>During recording</source>
        <translation>During recording</translation>
    </message>
    <message id="PictureScreen">
        <source>Screen capture</source>
        <translation>Screen capture</translation>
    </message>
    <message id="PlaylistNotFoundMessage">
        <source>There is no playlist “%1” that can be read.</source>
        <translation>There is no playlist “%1” that can be read.</translation>
    </message>
    <message id="PlaylistNotFoundProceed">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="PlaylistNotFoundTitle">
        <source>The playlist was not found</source>
        <translation>The playlist was not found</translation>
    </message>
    <message id="PreferencesAcoustIDHint">
        <source>With a key of yours for the AcoustID service, songs without names can be known by their sound.</source>
        <translation>With a key of yours for the AcoustID service, songs without names can be known by their sound.</translation>
    </message>
    <message id="PreferencesAcoustIDKey">
        <source>AcoustID &amp;key:</source>
        <translation>AcoustID &amp;key:</translation>
    </message>
    <message id="PreferencesArtwork">
        <source>Artwork</source>
        <translation>Artwork</translation>
    </message>
    <message id="PreferencesCache">
        <source>Page &amp;cache (MB):</source>
        <translation>Page &amp;cache (MB):</translation>
    </message>
    <message id="PreferencesCacheHint">
        <source>Pages are kept for a while, so that the songs of an album are looked up once.</source>
        <translation>Pages are kept for a while, so that the songs of an album are looked up once.</translation>
    </message>
    <message id="PreferencesDialect">
        <source>How ID3 tags are read and written</source>
        <translation>How ID3 tags are read and written</translation>
    </message>
    <message id="PreferencesDialectClassic">
        <source>As earlier versions did</source>
        <translation>As earlier versions did</translation>
    </message>
    <message id="PreferencesDialectHint">
        <source>The standard way keeps everything that a file holds and is read by every player.</source>
        <translation>The standard way keeps everything that a file holds and is read by every player.</translation>
    </message>
    <message id="PreferencesDialectStandard">
        <source>As the standard says</source>
        <translation>As the standard says</translation>
    </message>
    <message id="PreferencesFiles">
        <source>Files</source>
        <translation>Files</translation>
    </message>
    <message id="PreferencesIgnoreNonSquare">
        <source>Ignore artwork that is far from s&amp;quare</source>
        <translation>Ignore artwork that is far from s&amp;quare</translation>
    </message>
    <message id="PreferencesKeepRefreshed">
        <source>&amp;Let the music library read songs again once they were written</source>
        <translation>&amp;Let the music library read songs again once they were written</translation>
    </message>
    <message id="PreferencesMaxSize">
        <source>&amp;Largest size kept:</source>
        <translation>&amp;Largest size kept:</translation>
    </message>
    <message id="PreferencesMinSize">
        <source>&amp;Smallest width accepted:</source>
        <translation>&amp;Smallest width accepted:</translation>
    </message>
    <message id="PreferencesOverwriteSize">
        <source>&amp;Replace artwork narrower than:</source>
        <translation>&amp;Replace artwork narrower than:</translation>
    </message>
    <message id="PreferencesSources">
        <source>Sources</source>
        <translation>Sources</translation>
    </message>
    <message id="PreferencesSyncedLyrics">
        <source>&amp;Prefer lyrics with the times of their lines</source>
        <translation>&amp;Prefer lyrics with the times of their lines</translation>
    </message>
    <message id="PreferencesTitle">
        <source>Preferences</source>
        <translation>Preferences</translation>
    </message>
    <message id="PreferencesUseDeezer">
        <source>Also ask &amp;Deezer</source>
        <translation>Also ask &amp;Deezer</translation>
    </message>
    <message id="PreferencesUseDefaults">
        <source>Use Defaults</source>
        <translation>Use Defaults</translation>
    </message>
    <message id="PreferencesV24Accurate">
        <source>As the standard says (sync-safe)</source>
        <translation>As the standard says (sync-safe)</translation>
    </message>
    <message id="PreferencesV24Plain">
        <source>As older players expect (plain)</source>
        <translation>As older players expect (plain)</translation>
    </message>
    <message id="PreferencesV24Sizes">
        <source>Sizes in ID3v2.4 tags</source>
        <translation>Sizes in ID3v2.4 tags</translation>
    </message>
    <message id="PreparingToGather">
        <source>Preparing to gather…</source>
        <translation>Preparing to gather…</translation>
    </message>
    <message id="ProblemExtendedHeader">
        <source>The extended header is larger than the tag.</source>
        <translation>The extended header is larger than the tag.</translation>
    </message>
    <message id="ProblemFrameDangerous">
        <source>The frame %1 stands in a form that other programs stumble over.</source>
        <translation>The frame %1 stands in a form that other programs stumble over.</translation>
    </message>
    <message id="ProblemFrameOverrun">
        <source>The frame %1 is larger than what is left of the tag.</source>
        <translation>The frame %1 is larger than what is left of the tag.</translation>
    </message>
    <message id="ProblemFramePacked">
        <source>The frame %1 is compressed and cannot be unpacked.</source>
        <translation>The frame %1 is compressed and cannot be unpacked.</translation>
    </message>
    <message id="ProblemFrameSize">
        <source>The frame %1 has a size that cannot be.</source>
        <translation>The frame %1 has a size that cannot be.</translation>
    </message>
    <message id="ProblemPicture">
        <source>A picture cannot be read.</source>
        <translation>A picture cannot be read.</translation>
    </message>
    <message id="ProgressOfRun">
        <source>Progress of the whole run</source>
        <translation>Progress of the whole run</translation>
    </message>
    <message id="ProgressOfSong">
        <source>Progress of this song</source>
        <translation>Progress of this song</translation>
    </message>
    <message id="ReasonFileBusy">
        <source>Another write to the file is under way</source>
        <translation>Another write to the file is under way</translation>
    </message>
    <message id="ReasonFileChanged">
        <source>Another program changed the file meanwhile</source>
        <translation>Another program changed the file meanwhile</translation>
    </message>
    <message id="ReasonFileReplaced">
        <source>Another program moved or replaced the file meanwhile</source>
        <translation>Another program moved or replaced the file meanwhile</translation>
    </message>
    <message id="ReasonFileShortened">
        <source>The file became shorter meanwhile</source>
        <translation>The file became shorter meanwhile</translation>
    </message>
    <message id="ReasonNoJournal">
        <source>The bytes to be overwritten cannot be kept in %1: %2</source>
        <translation>The bytes to be overwritten cannot be kept in %1: %2</translation>
    </message>
    <message id="ReasonNotRegular">
        <source>This is no regular file</source>
        <translation>This is no regular file</translation>
    </message>
    <message id="ReasonNotRolledBack">
        <source>%1; what the file held is kept, and is put back at the next start</source>
        <translation>%1; what the file held is kept, and is put back at the next start</translation>
    </message>
    <message id="RegenerateAll">
        <source>Regenerate &amp;All</source>
        <translation>Regenerate &amp;All</translation>
    </message>
    <message id="RegenerateBegun">
        <source>Waiting</source>
        <translation>Waiting</translation>
    </message>
    <message id="RegenerateDamagedPart">
        <source>What is damaged</source>
        <translation>What is damaged</translation>
    </message>
    <message id="RegenerateDone">
        <source>Regenerated</source>
        <translation>Regenerated</translation>
    </message>
    <message id="RegenerateDoneForGood">
        <source>Regenerated, cannot be undone</source>
        <translation>Regenerated, cannot be undone</translation>
    </message>
    <message id="RegenerateDropped">
        <source>Dropped</source>
        <translation>Dropped</translation>
    </message>
    <message id="RegenerateExplanation">
        <source>Regenerating writes a tag anew with what is sound and recognised in it, and drops the rest. As long as the program runs, it can be undone.</source>
        <translation>Regenerating writes a tag anew with what is sound and recognised in it, and drops the rest. As long as the program runs, it can be undone.</translation>
    </message>
    <message id="RegenerateKept">
        <source>Kept</source>
        <translation>Kept</translation>
    </message>
    <message id="RegenerateNothing">
        <source>Nothing</source>
        <translation>Nothing</translation>
    </message>
    <message id="RegeneratePictures">
        <source>Artwork (%1)</source>
        <translation>Artwork (%1)</translation>
    </message>
    <message id="RegenerateProblem">
        <source>Problem</source>
        <translation>Problem</translation>
    </message>
    <message id="RegenerateReading">
        <source>Reading…</source>
        <translation>Reading…</translation>
    </message>
    <message id="RegenerateResult">
        <source>Result</source>
        <translation>Result</translation>
    </message>
    <message id="RegenerateSelected">
        <source>&amp;Regenerate Selected</source>
        <translation>&amp;Regenerate Selected</translation>
    </message>
    <message id="RegenerateSong">
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message id="RegenerateSound">
        <source>Nothing is damaged.</source>
        <translation>Nothing is damaged.</translation>
    </message>
    <message id="RegenerateStop">
        <source>&amp;Stop</source>
        <translation>&amp;Stop</translation>
    </message>
    <message id="RegenerateTitle">
        <source>Songs with damaged tags</source>
        <translation>Songs with damaged tags</translation>
    </message>
    <message id="ReviewAlbumChosen">
        <source>chosen</source>
        <translation>chosen</translation>
    </message>
    <message id="ReviewAlbumChosenBefore">
        <source>was chosen</source>
        <translation>was chosen</translation>
    </message>
    <message id="ReviewAlbumForArtwork">
        <source>its artwork was taken</source>
        <translation>its artwork was taken</translation>
    </message>
    <message id="ReviewAlbumTaken">
        <source>taken by you</source>
        <translation>taken by you</translation>
    </message>
    <message id="ReviewCandidates">
        <source>Albums that were found</source>
        <translation>Albums that were found</translation>
    </message>
    <message id="ReviewClear">
        <source>&amp;Clear Decided</source>
        <translation>&amp;Clear Decided</translation>
    </message>
    <message id="ReviewColumnChanges">
        <source>Changes</source>
        <translation>Changes</translation>
    </message>
    <message id="ReviewColumnFate">
        <source>Verdict</source>
        <translation>Verdict</translation>
    </message>
    <message id="ReviewColumnField">
        <source>Field</source>
        <translation>Field</translation>
    </message>
    <message id="ReviewColumnNew">
        <source>Found</source>
        <translation>Found</translation>
    </message>
    <message id="ReviewColumnOld">
        <source>Before</source>
        <translation>Before</translation>
    </message>
    <message id="ReviewColumnReason">
        <source>Why</source>
        <translation>Why</translation>
    </message>
    <message id="ReviewColumnSong">
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message id="ReviewColumnSource">
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message id="ReviewColumnState">
        <source>State</source>
        <translation>State</translation>
    </message>
    <message id="ReviewColumnTracks">
        <source>Tracks</source>
        <translation>Tracks</translation>
    </message>
    <message id="ReviewFields">
        <source>Fields of the song</source>
        <translation>Fields of the song</translation>
    </message>
    <message id="ReviewMorePictures">
        <source>%1, and %2 more</source>
        <translation>%1, and %2 more</translation>
    </message>
    <message id="ReviewNoName">
        <source>without a name</source>
        <translation>without a name</translation>
    </message>
    <message id="ReviewNoValue">
        <source>–</source>
        <translation>–</translation>
    </message>
    <message id="ReviewNothingAccepted">
        <source>Nothing of what was found</source>
        <translation>Nothing of what was found</translation>
    </message>
    <message id="ReviewNothingToWrite">
        <source>Nothing is to be written.</source>
        <translation>Nothing is to be written.</translation>
    </message>
    <message id="ReviewPictureSize">
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 pixels</translation>
    </message>
    <message id="ReviewPlaceholder">
        <source>Songs for which something was found are listed here, with their old and new values.</source>
        <translation>Songs for which something was found are listed here, with their old and new values.</translation>
    </message>
    <message id="ReviewSkip">
        <source>S&amp;kip</source>
        <translation>S&amp;kip</translation>
    </message>
    <message id="ReviewSongName">
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message id="ReviewStateApplying">
        <source>Applying the album…</source>
        <translation>Applying the album…</translation>
    </message>
    <message id="ReviewStateSkipped">
        <source>Skipped</source>
        <translation>Skipped</translation>
    </message>
    <message id="ReviewStateToBeWritten">
        <source>To be written</source>
        <translation>To be written</translation>
    </message>
    <message id="ReviewStateWriting">
        <source>Writing…</source>
        <translation>Writing…</translation>
    </message>
    <message id="ReviewStateWritten">
        <source>Written</source>
        <translation>Written</translation>
    </message>
    <message id="ReviewTakeAlbum">
        <source>&amp;Take This Album</source>
        <translation>&amp;Take This Album</translation>
    </message>
    <message id="ReviewTitle">
        <source>Review</source>
        <translation>Review</translation>
    </message>
    <message id="ReviewToWrite">
        <source>Songs to be written: %1</source>
        <translation>Songs to be written: %1</translation>
    </message>
    <message id="ReviewWrite">
        <source>&amp;Write</source>
        <translation>&amp;Write</translation>
    </message>
    <message id="ReviewWriteAll">
        <source>Write &amp;All</source>
        <translation>Write &amp;All</translation>
    </message>
    <message id="Scanning">
        <source>Looking for songs…</source>
        <translation>Looking for songs…</translation>
    </message>
    <message id="ScanningDirectory">
        <source>Looking for songs in the folder…</source>
        <translation>Looking for songs in the folder…</translation>
    </message>
    <message id="ScanningiTunesLibrary">
        <source>Reading the music library…</source>
        <translation>Reading the music library…</translation>
    </message>
    <message id="SearchPlaceholder">
        <source>Search songs</source>
        <translation>Search songs</translation>
    </message>
    <message id="SearchSubset">
        <source>%1 of %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message id="SongAndArtist">
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message id="SongTableName">
        <source>Songs</source>
        <translation>Songs</translation>
    </message>
    <message id="SongTitle">
        <source>Title</source>
        <translation>Title</translation>
    </message>
    <message id="SongsSelected">
        <source>%1 songs selected</source>
        <translation>%1 songs selected</translation>
    </message>
    <message id="SortAscending">
        <source>&amp;Ascending</source>
        <translation>&amp;Ascending</translation>
    </message>
    <message id="SortDescending">
        <source>&amp;Descending</source>
        <translation>&amp;Descending</translation>
    </message>
    <message id="SourceLibrary">
        <source>Other songs of the album</source>
        <translation>Other songs of the album</translation>
    </message>
    <message id="SourceMenuFolder">
        <source>Folder…</source>
        <translation>Folder…</translation>
    </message>
    <message id="SourceMenuTitle">
        <source>Where the songs come from</source>
        <translation>Where the songs come from</translation>
    </message>
    <message id="StandardiseGenreExplanation">
        <source>Genres are given the names of the genre table. Choose which are changed; a click on a new genre chooses another one.</source>
        <translation>Genres are given the names of the genre table. Choose which are changed; a click on a new genre chooses another one.</translation>
    </message>
    <message id="StandardiseGenreNone">
        <source>None of the selected songs has a genre.</source>
        <translation>None of the selected songs has a genre.</translation>
    </message>
    <message id="StandardiseGenreProceed">
        <source>Change Genres</source>
        <translation>Change Genres</translation>
    </message>
    <message id="StandardiseGenreTitle">
        <source>Standardise genres</source>
        <translation>Standardise genres</translation>
    </message>
    <message id="TagsOnClipboardTitle">
        <source>Copied tags</source>
        <translation>Copied tags</translation>
    </message>
    <message id="ToolBarTitle">
        <source>Toolbar</source>
        <translation>Toolbar</translation>
    </message>
    <message id="ToolTipAllowSubstrings">
        <source>Also takes albums and tracks whose name is a part of the song’s, or the other way round.</source>
        <translation>Also takes albums and tracks whose name is a part of the song’s, or the other way round.</translation>
    </message>
    <message id="ToolTipGather">
        <source>Fills this in where a song lacks it.</source>
        <translation>Fills this in where a song lacks it.</translation>
    </message>
    <message id="ToolTipGenreContained">
        <source>This name stands within the longer one; the rest of it is lost.</source>
        <translation>This name stands within the longer one; the rest of it is lost.</translation>
    </message>
    <message id="ToolTipGenreNear">
        <source>This name differs by one letter.</source>
        <translation>This name differs by one letter.</translation>
    </message>
    <message id="ToolTipIdentify">
        <source>For songs without artist or title. Sends a fingerprint of the sound to the AcoustID service, nothing else of the song.</source>
        <translation>For songs without artist or title. Sends a fingerprint of the sound to the AcoustID service, nothing else of the song.</translation>
    </message>
    <message id="ToolTipIdentifyNoKey">
        <source>Needs a key of yours for the AcoustID service, which you can enter in the preferences.</source>
        <translation>Needs a key of yours for the AcoustID service, which you can enter in the preferences.</translation>
    </message>
    <message id="ToolTipLyricsCleanUp">
        <source>Replaces what sources often get wrong, such as odd quotation marks</source>
        <translation>Replaces what sources often get wrong, such as odd quotation marks</translation>
    </message>
    <message id="ToolTipLyricsFilter">
        <source>Typed and pasted lyrics are cleaned up before they are written</source>
        <translation>Typed and pasted lyrics are cleaned up before they are written</translation>
    </message>
    <message id="ToolTipOverwrite">
        <source>Also where a song has a value already.</source>
        <translation>Also where a song has a value already.</translation>
    </message>
    <message id="ToolTipParallelSearch">
        <source>Faster. Otherwise sources are asked one after the other, and only for what is still missing.</source>
        <translation>Faster. Otherwise sources are asked one after the other, and only for what is still missing.</translation>
    </message>
    <message id="ToolTipPasteNothing">
        <source>The copied tags hold nothing here; pasting it empties the field.</source>
        <translation>The copied tags hold nothing here; pasting it empties the field.</translation>
    </message>
    <message id="ToolTipReview">
        <source>Nothing is written before you have seen it. The songs wait in the review.</source>
        <translation>Nothing is written before you have seen it. The songs wait in the review.</translation>
    </message>
    <message id="ToolTipReviewClear">
        <source>Removes the songs from this list about which nothing is to be decided any more.</source>
        <translation>Removes the songs from this list about which nothing is to be decided any more.</translation>
    </message>
    <message id="ToolTipReviewSkip">
        <source>Leaves the selected songs as they are.</source>
        <translation>Leaves the selected songs as they are.</translation>
    </message>
    <message id="ToolTipReviewWrite">
        <source>Writes what is checked into the selected songs. In songs that are written already, what is no longer checked gets its old value back.</source>
        <translation>Writes what is checked into the selected songs. In songs that are written already, what is no longer checked gets its old value back.</translation>
    </message>
    <message id="ToolTipReviewWriteAll">
        <source>Writes what is checked into all songs that wait.</source>
        <translation>Writes what is checked into all songs that wait.</translation>
    </message>
    <message id="ToolTipTakeAlbum">
        <source>Fills the song in from this album instead. Nothing is written yet.</source>
        <translation>Fills the song in from this album instead. Nothing is written yet.</translation>
    </message>
    <message id="Track">
        <source>Track</source>
        <translation>Track</translation>
    </message>
    <message id="UnseenBehindOthers">
        <source>others fit better</source>
        <translation>others fit better</translation>
    </message>
    <message id="UnseenLaterWork">
        <source>another album came out earlier</source>
        <translation>another album came out earlier</translation>
    </message>
    <message id="UnseenLittleAlike">
        <source>the source finds it little alike</source>
        <translation>the source finds it little alike</translation>
    </message>
    <message id="UnseenOtherArtist">
        <source>another artist</source>
        <translation>another artist</translation>
    </message>
    <message id="UnseenOtherEdition">
        <source>another edition of the same album</source>
        <translation>another edition of the same album</translation>
    </message>
    <message id="UnseenOtherKind">
        <source>a less likely kind, such as a single or a collection</source>
        <translation>a less likely kind, such as a single or a collection</translation>
    </message>
    <message id="UnseenOtherLength">
        <source>the song has another length there</source>
        <translation>the song has another length there</translation>
    </message>
    <message id="UnseenOtherName">
        <source>another name than the song’s album</source>
        <translation>another name than the song’s album</translation>
    </message>
    <message id="UnseenOtherTitle">
        <source>another title than the song’s</source>
        <translation>another title than the song’s</translation>
    </message>
    <message id="UnseenUnofficial">
        <source>a bootleg or otherwise not official</source>
        <translation>a bootleg or otherwise not official</translation>
    </message>
    <message id="WelcomeBegin">
        <source>Begin with a folder of songs, or watch a demo on sample songs first.</source>
        <translation>Begin with a folder of songs, or watch a demo on sample songs first.</translation>
    </message>
    <message id="WelcomeDemo">
        <source>Show the Demo</source>
        <translation>Show the Demo</translation>
    </message>
    <message id="WelcomeFolder">
        <source>Choose a Folder…</source>
        <translation>Choose a Folder…</translation>
    </message>
    <message id="WelcomeLater">
        <source>Not Now</source>
        <translation>Not Now</translation>
    </message>
    <message id="WelcomeSafety">
        <source>Your files stay where they are and keep their names. Only what you ask for is written into them, and a song is never left half written.</source>
        <translation>Your files stay where they are and keep their names. Only what you ask for is written into them, and a song is never left half written.</translation>
    </message>
    <message id="WelcomeTitle">
        <source>Welcome to Tagwright</source>
        <translation>Welcome to Tagwright</translation>
    </message>
    <message id="WelcomeWhat">
        <source>Tagwright looks at the tags of your songs, finds on the web what they lack (album, title, genre, year, track number, artwork and lyrics) and writes it into the files.</source>
        <translation>Tagwright looks at the tags of your songs, finds on the web what they lack (album, title, genre, year, track number, artwork and lyrics) and writes it into the files.</translation>
    </message>
    <message id="WindowTitleDirectory">
        <source>%1 – Tagwright</source>
        <translation>%1 – Tagwright</translation>
    </message>
    <message id="WindowTitleLibrary">
        <source>Music library – Tagwright</source>
        <translation>Music library – Tagwright</translation>
    </message>
    <message id="WindowTitlePlaylist">
        <source>%1 – Tagwright</source>
        <translation>%1 – Tagwright</translation>
    </message>
    <message id="XPixels">
        <source>%1 pixels</source>
        <translation>%1 pixels</translation>
    </message>
    <message id="Year">
        <source>Year</source>
        <translation>Year</translation>
    </message>
    <message id="iTunesIsBusy">
        <source>Playlists cannot be asked for now</source>
        <translation>Playlists cannot be asked for now</translation>
    </message>
    <message id="iTunesLibrary">
        <source>Whole library</source>
        <translation>Whole library</translation>
    </message>
    <message id="iTunesNotRunning">
        <source>The music player is not running</source>
        <translation>The music player is not running</translation>
    </message>
    <message id="newVersionCancel">
        <source>Not Now</source>
        <translation>Not Now</translation>
    </message>
    <message id="newVersionDownload">
        <source>Download</source>
        <translation>Download</translation>
    </message>
    <message id="newVersionMessage">
        <source>Tagwright &lt;version&gt; has been released.</source>
        <translation>Tagwright &lt;version&gt; has been released.</translation>
    </message>
    <message id="newVersionTitle">
        <source>A newer version is available</source>
        <translation>A newer version is available</translation>
    </message>
</context>
</TS>
