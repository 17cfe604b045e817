<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name></name>
    <message id="AboutText">
        <source>&lt;b&gt;Tagwright %1&lt;/b&gt;&lt;br&gt;&lt;br&gt;Fills in what the tags of your songs lack: album, title, genre, year, track, artwork and lyrics.&lt;br&gt;&lt;br&gt;Free software under the GNU General Public License, version 3 or later.</source>
        <translation>&lt;b&gt;Tagwright %1&lt;/b&gt;&lt;br&gt;&lt;br&gt;Ergänzt, was den Tags Ihrer Songs fehlt: Album, Titel, Genre, Jahr, Titelnummer, Cover und Songtext.&lt;br&gt;&lt;br&gt;Freie Software unter der GNU General Public License, Version 3 oder neuer.</translation>
    </message>
    <message id="AboutTitle">
        <source>About Tagwright</source>
        <translation>Über Tagwright</translation>
    </message>
    <message id="AccessibleHasLyrics">
        <source>Has lyrics</source>
        <translation>Hat einen Songtext</translation>
    </message>
    <message id="ActivityIdle">
        <source>Nothing is being fetched</source>
        <translation>Es wird nichts abgerufen</translation>
    </message>
    <message id="ActivityPending">
        <source>Waits to be gathered</source>
        <translation>Wartet darauf, ergänzt zu werden</translation>
    </message>
    <message id="ActivityProcessing">
        <source>Is being gathered</source>
        <translation>Wird gerade ergänzt</translation>
    </message>
    <message id="ActivityStatus">
        <source>Status</source>
        <translation>Zustand</translation>
    </message>
    <message id="ActivityTitle">
        <source>Activity</source>
        <translation>Aktivität</translation>
    </message>
    <message id="ActivityURL">
        <source>Address</source>
        <translation>Adresse</translation>
    </message>
    <message id="AlbumName">
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message id="All">
        <source>All</source>
        <translation>Alle</translation>
    </message>
    <message id="Artist">
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message id="Artwork">
        <source>Artwork</source>
        <translation>Cover</translation>
    </message>
    <message id="ArtworkAdd">
        <source>Add</source>
        <translation>Hinzufügen</translation>
    </message>
    <message id="ArtworkAddToSongs">
        <source>Add the picture to %1 songs?</source>
        <translation>Das Bild zu %1 Songs hinzufügen?</translation>
    </message>
    <message id="ArtworkChooseFilter">
        <source>Pictures (*.jpg *.jpeg *.png *.gif *.webp *.bmp *.tif *.tiff);;All files (*)</source>
        <translation>Bilder (*.jpg *.jpeg *.png *.gif *.webp *.bmp *.tif *.tiff);;Alle Dateien (*)</translation>
    </message>
    <message id="ArtworkChooseTitle">
        <source>Choose a picture</source>
        <translation>Ein Bild wählen</translation>
    </message>
    <message id="ArtworkNoSelection">
        <source>Select songs to see their artwork</source>
        <translation>Wählen Sie Songs aus, um ihr Cover zu sehen</translation>
    </message>
    <message id="ArtworkNone">
        <source>No artwork

Drop or paste a picture here</source>
        <translation>Kein Cover

Ziehen Sie ein Bild hierher oder fügen Sie eines ein</translation>
    </message>
    <message id="ArtworkOfFirstSongs">
        <source>As in the first %1 of %2 songs</source>
        <translation>Wie bei den ersten %1 von %2 Songs</translation>
    </message>
    <message id="ArtworkPictures">
        <source>Pictures</source>
        <translation>Bilder</translation>
    </message>
    <message id="ArtworkPosition">
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message id="ArtworkRefusedTitle">
        <source>Artwork</source>
        <translation>Cover</translation>
    </message>
    <message id="ArtworkRemove">
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message id="ArtworkRemoveAllFromSongs">
        <source>Remove all pictures from %1 songs?</source>
        <translation>Alle Bilder aus %1 Songs entfernen?</translation>
    </message>
    <message id="ArtworkRemoveFromSongs">
        <source>Remove the picture from %1 songs?</source>
        <translation>Das Bild aus %1 Songs entfernen?</translation>
    </message>
    <message id="ArtworkReplace">
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message id="ArtworkReplaceInSongs">
        <source>Replace the artwork of %1 songs?</source>
        <translation>Das Cover von %1 Songs ersetzen?</translation>
    </message>
    <message id="ArtworkSaveTitle">
        <source>Save picture</source>
        <translation>Bild speichern</translation>
    </message>
    <message id="ArtworkSeveral">
        <source>Several pictures

The selected songs have different artwork</source>
        <translation>Verschiedene Bilder

Die ausgewählten Songs haben unterschiedliche Cover</translation>
    </message>
    <message id="ArtworkSize">
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 Pixel</translation>
    </message>
    <message id="BPM">
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message id="ChangeByRegenerating">
        <source>Regeneration</source>
        <translation>Neuschreiben</translation>
    </message>
    <message id="ChangeColumnQuestion">
        <source>Change “%1” to “%2”?</source>
        <translation>„%1“ in „%2“ ändern?</translation>
    </message>
    <message id="ChangeMarkQuestion">
        <source>Change “%1”?</source>
        <translation>„%1“ ändern?</translation>
    </message>
    <message id="ChangeOfArtwork">
        <source>Change of artwork</source>
        <translation>Änderung des Covers</translation>
    </message>
    <message id="ChangeOfColumn">
        <source>Change of “%1”</source>
        <translation>Änderung von „%1“</translation>
    </message>
    <message id="ChangeOfGenres">
        <source>Standardising of genres</source>
        <translation>Vereinheitlichen der Genres</translation>
    </message>
    <message id="ChangeOfLyrics">
        <source>Change of lyrics</source>
        <translation>Änderung des Songtexts</translation>
    </message>
    <message id="ChangeOfPastedTags">
        <source>Pasting of tags</source>
        <translation>Einfügen von Tags</translation>
    </message>
    <message id="ChangeSheetCount">
        <source>Songs to be changed: %1</source>
        <translation>Zu ändernde Songs: %1</translation>
    </message>
    <message id="ChangeSheetRefused">
        <source>Of these, %1 cannot be written and will stay as they are.</source>
        <translation>Davon können %1 nicht geschrieben werden und bleiben, wie sie sind.</translation>
    </message>
    <message id="ChangeSheetSongs">
        <source>Songs that will be changed</source>
        <translation>Songs, die geändert werden</translation>
    </message>
    <message id="ChangeToNothingQuestion">
        <source>Remove “%1”?</source>
        <translation>„%1“ entfernen?</translation>
    </message>
    <message id="ChoiceAlbumName">
        <source>“%1”</source>
        <translation>„%1“</translation>
    </message>
    <message id="ChoiceAlbumWithoutName">
        <source>an album without a name</source>
        <translation>ein Album ohne Namen</translation>
    </message>
    <message id="ChoiceCoverAlone">
        <source>No album to choose: nothing but the cover of %1 was found</source>
        <translation>Kein Album zur Wahl: gefunden wurde nur das Cover von %1</translation>
    </message>
    <message id="ChoiceEarliestYear">
        <source>Chosen: %1, the earliest of %2 albums</source>
        <translation>Gewählt: %1, das früheste von %2 Alben</translation>
    </message>
    <message id="ChoiceHighestScore">
        <source>Chosen: %1, which has the highest score of %2 albums</source>
        <translation>Gewählt: %1, das unter %2 Alben die höchste Wertung hat</translation>
    </message>
    <message id="ChoiceLastLeft">
        <source>Chosen: %1, which is what is left of %2 albums</source>
        <translation>Gewählt: %1, das von %2 Alben übrig blieb</translation>
    </message>
    <message id="ChoiceMostAgreement">
        <source>Chosen: %1, which was found most often of %2 albums</source>
        <translation>Gewählt: %1, das unter %2 Alben am häufigsten gefunden wurde</translation>
    </message>
    <message id="ChoiceNoAnswer">
        <source>Nothing chosen: no source could be asked</source>
        <translation>Nichts gewählt: Keine Quelle konnte gefragt werden</translation>
    </message>
    <message id="ChoiceNoMethod">
        <source>Nothing chosen: %1 albums fit, and no method picks one of them</source>
        <translation>Nichts gewählt: %1 Alben passen, und kein Verfahren wählt eines davon aus</translation>
    </message>
    <message id="ChoiceNoUsableYear">
        <source>Nothing chosen: of the albums that fit (%1), none has a usable year</source>
        <translation>Nichts gewählt: Von den passenden Alben (%1) hat keines ein brauchbares Jahr</translation>
    </message>
    <message id="ChoiceNoneFits">
        <source>Nothing chosen: no album that was found fits the song</source>
        <translation>Nichts gewählt: Kein gefundenes Album passt zum Song</translation>
    </message>
    <message id="ChoiceNothingFound">
        <source>Nothing chosen: no album was found</source>
        <translation>Nichts gewählt: Es wurde kein Album gefunden</translation>
    </message>
    <message id="ChoiceOnlyAlbum">
        <source>Chosen: %1, the only album that was found</source>
        <translation>Gewählt: %1, das einzige gefundene Album</translation>
    </message>
    <message id="ChoiceSongNotOnAlbum">
        <source>Nothing chosen: the song is not on %1</source>
        <translation>Nichts gewählt: Der Song ist nicht auf %1</translation>
    </message>
    <message id="ChoiceTakenByUser">
        <source>Chosen: %1, which you took</source>
        <translation>Gewählt: %1, von Ihnen genommen</translation>
    </message>
    <message id="ChoiceTooLittleKnown">
        <source>Nothing looked for: too little is known of the song</source>
        <translation>Nichts gesucht: Über den Song ist zu wenig bekannt</translation>
    </message>
    <message id="ChoiceWithoutSources">
        <source>%1 (no answer from %2)</source>
        <translation>%1 (ohne Antwort von %2)</translation>
    </message>
    <message id="ColumnActivity">
        <source>Activity</source>
        <translation>Aktivität</translation>
    </message>
    <message id="ColumnAlbum">
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message id="ColumnArtist">
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message id="ColumnArtwork">
        <source>Artwork</source>
        <translation>Cover</translation>
    </message>
    <message id="ColumnBPM">
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message id="ColumnCompilation">
        <source>Compilation</source>
        <translation>Kompilation</translation>
    </message>
    <message id="ColumnGenre">
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message id="ColumnIndex">
        <source>Index</source>
        <translation>Nr.</translation>
    </message>
    <message id="ColumnLyrics">
        <source>Lyrics</source>
        <translation>Songtext</translation>
    </message>
    <message id="ColumnTitle">
        <source>Title</source>
        <translation>Titel</translation>
    </message>
    <message id="ColumnTrack">
        <source>Track</source>
        <translation>Titelnr.</translation>
    </message>
    <message id="ColumnVersion">
        <source>Tag Version</source>
        <translation>Tag-Version</translation>
    </message>
    <message id="ColumnYear">
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message id="ColumnsRestore">
        <source>Restore Columns</source>
        <translation>Spalten zurücksetzen</translation>
    </message>
    <message id="Compilation">
        <source>Compilation</source>
        <translation>Kompilation</translation>
    </message>
    <message id="CompilationWarningDontWarn">
        <source>Do not warn of this again</source>
        <translation>Davor nicht mehr warnen</translation>
    </message>
    <message id="CompilationWarningText">
        <source>“%1” by %2 is part of a compilation, and not everything was found for it. Sources often list such albums under another artist.</source>
        <translation>„%1“ von %2 gehört zu einer Kompilation, und nicht alles wurde dafür gefunden. Quellen führen solche Alben oft unter einem anderen Interpreten.</translation>
    </message>
    <message id="CompilationWarningTitle">
        <source>Songs of compilations</source>
        <translation>Songs von Kompilationen</translation>
    </message>
    <message id="ConfirmChangeProceed">
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message id="DropWindowCancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="DropWindowClose">
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message id="DropWindowDone">
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message id="DropWindowNoSongs">
        <source>There are no songs at %1</source>
        <translation>Keine Songs gefunden unter %1</translation>
    </message>
    <message id="DropWindowProblems">
        <source>Done, with problems: %1</source>
        <translation>Fertig, mit Problemen: %1</translation>
    </message>
    <message id="DropWindowProgress">
        <source>Songs looked at</source>
        <translation>Angesehene Songs</translation>
    </message>
    <message id="DroppedCoverAlone">
        <source>a cover alone, no album to choose</source>
        <translation>nur ein Cover, kein Album zur Wahl</translation>
    </message>
    <message id="DroppedMerged">
        <source>counted with another album of the same name</source>
        <translation>mit einem anderen Album gleichen Namens zusammengezählt</translation>
    </message>
    <message id="DroppedNotPicked">
        <source>another album was picked</source>
        <translation>ein anderes Album wurde gewählt</translation>
    </message>
    <message id="DroppedOtherName">
        <source>another name than the song’s album, which others have</source>
        <translation>heißt anders als das Album des Songs, das andere haben</translation>
    </message>
    <message id="DroppedOtherNumberOfTracks">
        <source>another number of tracks than the song’s album, which others have</source>
        <translation>hat eine andere Titelanzahl als das Album des Songs, die andere haben</translation>
    </message>
    <message id="DroppedSongNotOnAlbum">
        <source>the song is not on it</source>
        <translation>der Song ist nicht darauf</translation>
    </message>
    <message id="DroppedTitleNotOnAlbum">
        <source>the title is not on it, but on others</source>
        <translation>der Titel ist nicht darauf, aber auf anderen</translation>
    </message>
    <message id="DroppedUndecided">
        <source>it fits, but no album was picked</source>
        <translation>es passt, aber kein Album wurde gewählt</translation>
    </message>
    <message id="DroppedUnseen">
        <source>not looked up: %1</source>
        <translation>nicht abgerufen: %1</translation>
    </message>
    <message id="EditReview">
        <source>Reviewed changes</source>
        <translation>Durchgesehene Änderungen</translation>
    </message>
    <message id="EditingProgress">
        <source>Writing songs…</source>
        <translation>Songs werden geschrieben …</translation>
    </message>
    <message id="EmptyNoMatch">
        <source>Nothing matches “%1”</source>
        <translation>Nichts passt zu „%1“</translation>
    </message>
    <message id="EmptyNoMatchHint">
        <source>Change or clear the text in the search field</source>
        <translation>Ändern oder leeren Sie den Text im Suchfeld</translation>
    </message>
    <message id="EmptyNothingLoaded">
        <source>Drop a folder here</source>
        <translation>Ziehen Sie einen Ordner hierher</translation>
    </message>
    <message id="EmptyNothingLoadedHint">
        <source>Or choose one in the menu “File”</source>
        <translation>Oder wählen Sie einen im Menü „Datei“</translation>
    </message>
    <message id="EmptySource">
        <source>There are no songs here</source>
        <translation>Hier sind keine Songs</translation>
    </message>
    <message id="ErrorAddressNotFetched">
        <source>“%1” is no address that can be fetched: only http and https are</source>
        <translation>„%1“ ist keine Adresse, die abgerufen werden kann: nur http und https</translation>
    </message>
    <message id="ErrorAlbumNotLookedUp">
        <source>The album could not be looked up</source>
        <translation>Das Album ließ sich nicht abrufen</translation>
    </message>
    <message id="ErrorCannotMakeID3">
        <source>The ID3 tag cannot be made</source>
        <translation>Das ID3-Tag kann nicht erstellt werden</translation>
    </message>
    <message id="ErrorCannotModify">
        <source>“%1” by %2 cannot be changed: %3</source>
        <translation>„%1“ von %2 kann nicht geändert werden: %3</translation>
    </message>
    <message id="ErrorCannotOpenForRead">
        <source>The file cannot be opened for reading</source>
        <translation>Die Datei kann nicht zum Lesen geöffnet werden</translation>
    </message>
    <message id="ErrorCannotOpenForWrite">
        <source>The file cannot be opened for writing</source>
        <translation>Die Datei kann nicht zum Schreiben geöffnet werden</translation>
    </message>
    <message id="ErrorCannotReadFile">
        <source>The file cannot be read</source>
        <translation>Die Datei kann nicht gelesen werden</translation>
    </message>
    <message id="ErrorDigestEmptyField">
        <source>Album title or path is empty</source>
        <translation>Albumtitel oder Pfad ist leer</translation>
    </message>
    <message id="ErrorDigestFields">
        <source>Artist, album and path with tabs between are expected; here are %1 fields</source>
        <translation>Interpret, Album und Pfad mit Tabulatoren dazwischen werden erwartet; hier sind es %1 Felder</translation>
    </message>
    <message id="ErrorDigestNotUTF8">
        <source>This is no text in UTF-8</source>
        <translation>Dies ist kein Text in UTF-8</translation>
    </message>
    <message id="ErrorDigestTwoPaths">
        <source>Line %1 gives another path for this album</source>
        <translation>Zeile %1 gibt einen anderen Pfad für dieses Album an</translation>
    </message>
    <message id="ErrorFileChanged">
        <source>The file is not the song that it was</source>
        <translation>Die Datei ist nicht mehr der Song, der sie war</translation>
    </message>
    <message id="ErrorForeignMetadata">
        <source>it keeps metadata of another kind where the list of items belongs</source>
        <translation>sie hat Metadaten anderer Art an der Stelle der Eintragsliste</translation>
    </message>
    <message id="ErrorFrameTooLarge">
        <source>“%1” is larger than this kind of tag can hold (16 MB)</source>
        <translation>„%1“ ist größer, als ein Tag dieser Art fassen kann (16 MB)</translation>
    </message>
    <message id="ErrorHostFailedLately">
        <source>%1 could not be reached within the last five minutes and is left alone for now</source>
        <translation>%1 war in den letzten fünf Minuten nicht erreichbar und wird vorerst nicht gefragt</translation>
    </message>
    <message id="ErrorMP4Unreadable">
        <source>This MP4 file cannot be read: %1</source>
        <translation>Diese MP4-Datei kann nicht gelesen werden: %1</translation>
    </message>
    <message id="ErrorNoAcoustIDKey">
        <source>needs a key of yours for the AcoustID service: in the setting “acoustIDKey” or in TAGWRIGHT_ACOUSTID_KEY</source>
        <translation>braucht einen eigenen Schlüssel für den Dienst AcoustID: in der Einstellung „acoustIDKey“ oder in TAGWRIGHT_ACOUSTID_KEY</translation>
    </message>
    <message id="ErrorNoFileManager">
        <source>No program can show the folder %1</source>
        <translation>Kein Programm kann den Ordner %1 zeigen</translation>
    </message>
    <message id="ErrorNoLength">
        <source>its length cannot be told</source>
        <translation>seine Länge lässt sich nicht bestimmen</translation>
    </message>
    <message id="ErrorNoLibrary">
        <source>There is no library file of iTunes that was written within the last 30 days</source>
        <translation>Es gibt keine Mediathek-Datei von iTunes, die in den letzten 30 Tagen geschrieben wurde</translation>
    </message>
    <message id="ErrorNoMovie">
        <source>it has no “moov” atom, which would hold the tag</source>
        <translation>sie hat kein „moov“-Atom, in dem das Tag stünde</translation>
    </message>
    <message id="ErrorNoPicture">
        <source>This is no picture.</source>
        <translation>Dies ist kein Bild.</translation>
    </message>
    <message id="ErrorNoPictureOnClipboard">
        <source>There is no picture on the clipboard.</source>
        <translation>In der Zwischenablage ist kein Bild.</translation>
    </message>
    <message id="ErrorNoSong">
        <source>This is no song file that can be read</source>
        <translation>Dies ist keine lesbare Songdatei</translation>
    </message>
    <message id="ErrorNoSound">
        <source>no sound in it can be decoded</source>
        <translation>kein Ton darin lässt sich dekodieren</translation>
    </message>
    <message id="ErrorNoTagsOnClipboard">
        <source>There are no tags on the clipboard.</source>
        <translation>In der Zwischenablage sind keine Tags.</translation>
    </message>
    <message id="ErrorNoYear">
        <source>No usable year in the albums found for %2 – %3 (%1): %4</source>
        <translation>Kein brauchbares Jahr in den gefundenen Alben für %2 – %3 (%1): %4</translation>
    </message>
    <message id="ErrorNotIdentified">
        <source>“%1” is not known by its sound: %2</source>
        <translation>„%1“ wird nicht an seinem Klang erkannt: %2</translation>
    </message>
    <message id="ErrorNotOnAlbum">
        <source>“%1” is not on the album “%2” (%3)</source>
        <translation>„%1“ ist nicht auf dem Album „%2“ (%3)</translation>
    </message>
    <message id="ErrorOtherNumberOfSongs">
        <source>Songs copied: %1, songs selected: %2. Copy a single song, or select as many songs as were copied.</source>
        <translation>Kopierte Songs: %1, ausgewählte Songs: %2. Kopieren Sie einen einzelnen Song, oder wählen Sie so viele Songs aus, wie kopiert wurden.</translation>
    </message>
    <message id="ErrorPictureTooLarge">
        <source>The picture has more than %1 MB.</source>
        <translation>Das Bild hat mehr als %1 MB.</translation>
    </message>
    <message id="ErrorPictureUnreadable">
        <source>The picture is damaged or has more than 100 megapixels.</source>
        <translation>Das Bild ist beschädigt oder hat mehr als 100 Megapixel.</translation>
    </message>
    <message id="ErrorResponseTooLong">
        <source>The answer is longer than %1 MB</source>
        <translation>Die Antwort ist länger als %1 MB</translation>
    </message>
    <message id="ErrorServiceLeftAlone">
        <source>the service gave no answer to the songs before, and is left alone for now</source>
        <translation>der Dienst hat bei den Songs davor nicht geantwortet und wird vorerst nicht gefragt</translation>
    </message>
    <message id="ErrorServiceNotReached">
        <source>the service cannot be reached</source>
        <translation>der Dienst ist nicht erreichbar</translation>
    </message>
    <message id="ErrorSongBeingGathered">
        <source>The song is being gathered</source>
        <translation>Der Song wird gerade ergänzt</translation>
    </message>
    <message id="ErrorSongChangedMeanwhile">
        <source>The song was changed by something else in the meantime</source>
        <translation>Der Song wurde inzwischen anderweitig geändert</translation>
    </message>
    <message id="ErrorSongHasProblem">
        <source>The tag is damaged; “tagwright regenerate” rewrites it with what is sound</source>
        <translation>Das Tag ist beschädigt; „tagwright regenerate“ schreibt es mit dem Unversehrten neu</translation>
    </message>
    <message id="ErrorSongLocked">
        <source>The file is not writable</source>
        <translation>Die Datei ist schreibgeschützt</translation>
    </message>
    <message id="ErrorSongVanished">
        <source>The file is gone</source>
        <translation>Die Datei ist nicht mehr da</translation>
    </message>
    <message id="ErrorSoundUnknown">
        <source>the service knows no such song</source>
        <translation>der Dienst kennt keinen solchen Song</translation>
    </message>
    <message id="ErrorStillDamaged">
        <source>The tag is still damaged.</source>
        <translation>Das Tag ist immer noch beschädigt.</translation>
    </message>
    <message id="ErrorStrangeAnswer">
        <source>the answer of the service is not understood</source>
        <translation>die Antwort des Dienstes ist nicht verständlich</translation>
    </message>
    <message id="ErrorTagTooLarge">
        <source>It would be larger than 256 MB</source>
        <translation>Es wäre größer als 256 MB</translation>
    </message>
    <message id="ErrorTagUnreadable">
        <source>The ID3 tag is damaged and cannot be read</source>
        <translation>Das ID3-Tag ist beschädigt und nicht lesbar</translation>
    </message>
    <message id="ErrorTimedOut">
        <source>The server took too long to answer</source>
        <translation>Der Server hat zu lange nicht geantwortet</translation>
    </message>
    <message id="ErrorTooManyRedirects">
        <source>The server redirects without end</source>
        <translation>Der Server leitet ohne Ende weiter</translation>
    </message>
    <message id="ErrorTooMuchToCopy">
        <source>This is too much to copy at once. Copy at most 1,000 songs, with pictures of at most 128 MB.</source>
        <translation>Das ist zu viel auf einmal. Kopieren Sie höchstens 1000 Songs, mit Bildern von höchstens 128 MB.</translation>
    </message>
    <message id="FieldAlbumReplaced">
        <source>Not replaced: the song has a picture, and its album was looked for, too</source>
        <translation>Nicht ersetzt: Der Song hat ein Bild, und auch sein Album wurde gesucht</translation>
    </message>
    <message id="FieldAlbumUnknown">
        <source>Not looked for: the album is not known</source>
        <translation>Nicht gesucht: Das Album ist unbekannt</translation>
    </message>
    <message id="FieldAndValue">
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message id="FieldInstrumental">
        <source>The song is an instrumental</source>
        <translation>Der Song ist ein Instrumentalstück</translation>
    </message>
    <message id="FieldKept">
        <source>Not overwritten: the song has it</source>
        <translation>Nicht überschrieben: Der Song hat es schon</translation>
    </message>
    <message id="FieldLent">
        <source>Lent by another song of the album</source>
        <translation>Von einem anderen Song des Albums</translation>
    </message>
    <message id="FieldLentPicture">
        <source>Lent by another song of the album: %1</source>
        <translation>Von einem anderen Song des Albums: %1</translation>
    </message>
    <message id="FieldLyrics">
        <source>Found for this artist and title</source>
        <translation>Für diesen Interpreten und Titel gefunden</translation>
    </message>
    <message id="FieldNamedByFile">
        <source>The song has no title but the name of its file</source>
        <translation>Der Song hat keinen Titel außer dem Namen seiner Datei</translation>
    </message>
    <message id="FieldNoAnswer">
        <source>No source could be asked about it</source>
        <translation>Keine Quelle konnte danach gefragt werden</translation>
    </message>
    <message id="FieldNotAsked">
        <source>No source in use supplies it</source>
        <translation>Keine genutzte Quelle liefert es</translation>
    </message>
    <message id="FieldNotFound">
        <source>Not found in any source</source>
        <translation>In keiner Quelle gefunden</translation>
    </message>
    <message id="FieldNotOnAlbum">
        <source>The chosen album, %1, does not tell it</source>
        <translation>Das gewählte Album, %1, gibt es nicht an</translation>
    </message>
    <message id="FieldPath">
        <source>Read from the names of the file and its folders, and known so to the source</source>
        <translation>Aus den Namen der Datei und ihrer Ordner gelesen, und der Quelle so bekannt</translation>
    </message>
    <message id="FieldPicture">
        <source>A picture that fits: %1</source>
        <translation>Ein passendes Bild: %1</translation>
    </message>
    <message id="FieldPictureNotFetched">
        <source>The picture could not be fetched</source>
        <translation>Das Bild konnte nicht abgerufen werden</translation>
    </message>
    <message id="FieldPictureNotSquare">
        <source>The picture is not square: %1</source>
        <translation>Das Bild ist nicht quadratisch: %1</translation>
    </message>
    <message id="FieldPictureScaled">
        <source>A picture that fits: %1, scaled down from %2</source>
        <translation>Ein passendes Bild: %1, verkleinert von %2</translation>
    </message>
    <message id="FieldPictureSize">
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 Pixel</translation>
    </message>
    <message id="FieldPictureTooSmall">
        <source>The picture is too small: %1</source>
        <translation>Das Bild ist zu klein: %1</translation>
    </message>
    <message id="FieldPictureUnreadable">
        <source>What was fetched is no picture that can be read</source>
        <translation>Was abgerufen wurde, ist kein lesbares Bild</translation>
    </message>
    <message id="FieldSound">
        <source>Known by the sound of the song</source>
        <translation>Am Klang des Songs erkannt</translation>
    </message>
    <message id="FieldTooLittleKnown">
        <source>Not looked for: too little is known of the song</source>
        <translation>Nicht gesucht: Über den Song ist zu wenig bekannt</translation>
    </message>
    <message id="FindNext">
        <source>Find next</source>
        <translation>Weitersuchen</translation>
    </message>
    <message id="FindPrevious">
        <source>Find previous</source>
        <translation>Rückwärts suchen</translation>
    </message>
    <message id="GeneralErrorPrefix">
        <source>Network: </source>
        <translation>Netzwerk: </translation>
    </message>
    <message id="Genre">
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message id="GenreBecomes">
        <source>Becomes</source>
        <translation>Wird zu</translation>
    </message>
    <message id="GenreSongs">
        <source>Songs</source>
        <translation>Songs</translation>
    </message>
    <message id="LoadingPlaylist">
        <source>Loading the playlist “%1”…</source>
        <translation>Die Wiedergabeliste „%1“ wird geladen …</translation>
    </message>
    <message id="LoadingProgress">
        <source>Songs read</source>
        <translation>Gelesene Songs</translation>
    </message>
    <message id="LogCancelled">
        <source>Gathering was cancelled</source>
        <translation>Das Ergänzen wurde abgebrochen</translation>
    </message>
    <message id="LogFinished">
        <source>Finished. Songs processed: %1, modified: %2</source>
        <translation>Fertig. Bearbeitete Songs: %1, geändert: %2</translation>
    </message>
    <message id="LogFoundInfo">
        <source>Found %1 for “%2”</source>
        <translation>%1 für „%2“ gefunden</translation>
    </message>
    <message id="LogNothingUnanswered">
        <source>There are no songs that sources are to be asked about again</source>
        <translation>Es gibt keine Songs, nach denen erneut zu fragen wäre</translation>
    </message>
    <message id="LogPausedForReview">
        <source>Gathering waits: %1 songs are to be reviewed first</source>
        <translation>Das Ergänzen wartet: Zuerst sind %1 Songs durchzusehen</translation>
    </message>
    <message id="LogPlaceholder">
        <source>What is found and written is listed here.</source>
        <translation>Was gefunden und geschrieben wird, steht hier.</translation>
    </message>
    <message id="LogSetInfo">
        <source>Set %1 of “%2”</source>
        <translation>%1 von „%2“ gesetzt</translation>
    </message>
    <message id="LogTitle">
        <source>Log</source>
        <translation>Protokoll</translation>
    </message>
    <message id="Lyrics">
        <source>Lyrics</source>
        <translation>Songtext</translation>
    </message>
    <message id="LyricsAreClean">
        <source>There is nothing to clean up.</source>
        <translation>Es gibt nichts zu bereinigen.</translation>
    </message>
    <message id="LyricsCleanUp">
        <source>&amp;Clean Up</source>
        <translation>&amp;Bereinigen</translation>
    </message>
    <message id="LyricsFilter">
        <source>Clean up lyrics when they are &amp;saved</source>
        <translation>Songtexte beim &amp;Speichern bereinigen</translation>
    </message>
    <message id="LyricsFind">
        <source>Find in lyrics</source>
        <translation>Im Songtext suchen</translation>
    </message>
    <message id="LyricsForAll">
        <source>Lyrics for &amp;All…</source>
        <translation>Songtext für &amp;alle …</translation>
    </message>
    <message id="LyricsForAllPrompt">
        <source>Lyrics for all selected songs:</source>
        <translation>Songtext für alle ausgewählten Songs:</translation>
    </message>
    <message id="LyricsForAllTitle">
        <source>Lyrics for all songs</source>
        <translation>Songtext für alle Songs</translation>
    </message>
    <message id="LyricsInspectorTitle">
        <source>Lyrics</source>
        <translation>Songtext</translation>
    </message>
    <message id="LyricsNoSelection">
        <source>No song selected</source>
        <translation>Kein Song ausgewählt</translation>
    </message>
    <message id="LyricsNone">
        <source>No lyrics</source>
        <translation>Kein Songtext</translation>
    </message>
    <message id="LyricsNotFound">
        <source>Not found.</source>
        <translation>Nicht gefunden.</translation>
    </message>
    <message id="LyricsNotWritten">
        <source>These lyrics could not be written. The log says why.</source>
        <translation>Dieser Songtext konnte nicht geschrieben werden. Das Protokoll sagt, warum.</translation>
    </message>
    <message id="LyricsRemove">
        <source>Remove</source>
        <translation>Entfernen</translation>
    </message>
    <message id="LyricsRemoveFromSongs">
        <source>Remove the lyrics from %1 songs?</source>
        <translation>Den Songtext aus %1 Songs entfernen?</translation>
    </message>
    <message id="LyricsSet">
        <source>Set Lyrics</source>
        <translation>Songtext setzen</translation>
    </message>
    <message id="LyricsSetInSongs">
        <source>Set these lyrics in %1 songs?</source>
        <translation>Diesen Songtext in %1 Songs setzen?</translation>
    </message>
    <message id="LyricsSeveralSongs">
        <source>Select one song to read and edit its lyrics.</source>
        <translation>Wählen Sie einen einzelnen Song aus, um seinen Text zu lesen und zu bearbeiten.</translation>
    </message>
    <message id="LyricsTooLong">
        <source>This text is too long to be edited here. Only its beginning is shown.</source>
        <translation>Dieser Text ist zu lang, um hier bearbeitet zu werden. Nur sein Anfang wird gezeigt.</translation>
    </message>
    <message id="LyricsWereCleaned">
        <source>The lyrics were cleaned up.</source>
        <translation>Der Songtext wurde bereinigt.</translation>
    </message>
    <message id="MenuAbout">
        <source>&amp;About Tagwright</source>
        <translation>Ü&amp;ber Tagwright</translation>
    </message>
    <message id="MenuActivity">
        <source>&amp;Activity</source>
        <translation>&amp;Aktivität</translation>
    </message>
    <message id="MenuAdd">
        <source>A&amp;dd</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message id="MenuAddArtwork">
        <source>&amp;Add Artwork…</source>
        <translation>Cover &amp;hinzufügen …</translation>
    </message>
    <message id="MenuArtwork">
        <source>&amp;Artwork</source>
        <translation>&amp;Cover</translation>
    </message>
    <message id="MenuBegin">
        <source>&amp;Begin</source>
        <translation>&amp;Beginnen</translation>
    </message>
    <message id="MenuClearLog">
        <source>C&amp;lear Log</source>
        <translation>Protokoll &amp;leeren</translation>
    </message>
    <message id="MenuColumns">
        <source>C&amp;olumns</source>
        <translation>Spa&amp;lten</translation>
    </message>
    <message id="MenuCopyLog">
        <source>&amp;Copy Log</source>
        <translation>Protokoll &amp;kopieren</translation>
    </message>
    <message id="MenuCopyTags">
        <source>&amp;Copy Tags</source>
        <translation>&amp;Tags kopieren</translation>
    </message>
    <message id="MenuEdit">
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message id="MenuFile">
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message id="MenuFind">
        <source>&amp;Find</source>
        <translation>&amp;Suchen</translation>
    </message>
    <message id="MenuGathering">
        <source>&amp;Gathering</source>
        <translation>&amp;Ergänzen</translation>
    </message>
    <message id="MenuHelp">
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message id="MenuLyricsInspector">
        <source>&amp;Lyrics</source>
        <translation>&amp;Songtext</translation>
    </message>
    <message id="MenuOpenFolder">
        <source>&amp;Open Folder…</source>
        <translation>&amp;Ordner öffnen …</translation>
    </message>
    <message id="MenuPasteArtwork">
        <source>&amp;Paste Artwork</source>
        <translation>Cover &amp;einfügen</translation>
    </message>
    <message id="MenuPasteTags">
        <source>Paste &amp;Tags</source>
        <translation>Tags ei&amp;nfügen</translation>
    </message>
    <message id="MenuPreferences">
        <source>&amp;Preferences…</source>
        <translation>&amp;Einstellungen …</translation>
    </message>
    <message id="MenuQuit">
        <source>&amp;Quit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message id="MenuRedo">
        <source>&amp;Redo</source>
        <translation>&amp;Wiederherstellen</translation>
    </message>
    <message id="MenuRedoNamed">
        <source>&amp;Redo %1</source>
        <translation>&amp;Wiederherstellen: %1</translation>
    </message>
    <message id="MenuRegenerate">
        <source>&amp;Regenerate Tags…</source>
        <translation>&amp;Tags neu schreiben …</translation>
    </message>
    <message id="MenuRemoveAllArtwork">
        <source>Remove A&amp;ll Artwork</source>
        <translation>A&amp;lle Bilder entfernen</translation>
    </message>
    <message id="MenuRemoveArtwork">
        <source>&amp;Remove Artwork</source>
        <translation>Cover ent&amp;fernen</translation>
    </message>
    <message id="MenuRemoveLyrics">
        <source>Re&amp;move Lyrics</source>
        <translation>Songtext entfe&amp;rnen</translation>
    </message>
    <message id="MenuReplaceArtwork">
        <source>R&amp;eplace Artwork…</source>
        <translation>Cover e&amp;rsetzen …</translation>
    </message>
    <message id="MenuRescan">
        <source>&amp;Rescan</source>
        <translation>&amp;Neu einlesen</translation>
    </message>
    <message id="MenuRetryUnanswered">
        <source>&amp;Ask Sources Again</source>
        <translation>Quellen er&amp;neut fragen</translation>
    </message>
    <message id="MenuRevealFile">
        <source>&amp;Show in File Manager</source>
        <translation>Im &amp;Dateimanager zeigen</translation>
    </message>
    <message id="MenuReview">
        <source>&amp;Review…</source>
        <translation>&amp;Durchsehen …</translation>
    </message>
    <message id="MenuSaveArtwork">
        <source>&amp;Save Artwork As…</source>
        <translation>Cover &amp;speichern unter …</translation>
    </message>
    <message id="MenuSelectAll">
        <source>&amp;Select All</source>
        <translation>&amp;Alles auswählen</translation>
    </message>
    <message id="MenuShowOptions">
        <source>Gathering &amp;Options</source>
        <translation>&amp;Optionen zum Ergänzen</translation>
    </message>
    <message id="MenuSongs">
        <source>&amp;Songs</source>
        <translation>&amp;Songs</translation>
    </message>
    <message id="MenuSortBy">
        <source>&amp;Sort by</source>
        <translation>&amp;Sortieren nach</translation>
    </message>
    <message id="MenuStandardiseGenre">
        <source>Standardise &amp;Genre…</source>
        <translation>&amp;Genre vereinheitlichen …</translation>
    </message>
    <message id="MenuStop">
        <source>&amp;Stop</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message id="MenuUndo">
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message id="MenuUndoNamed">
        <source>&amp;Undo %1</source>
        <translation>&amp;Rückgängig: %1</translation>
    </message>
    <message id="MenuView">
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message id="MenuWelcome">
        <source>&amp;Welcome</source>
        <translation>&amp;Willkommen</translation>
    </message>
    <message id="MenuWindow">
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message id="NoInitializeSong">
        <source>No song can be found at</source>
        <translation>Kein Song gefunden unter</translation>
    </message>
    <message id="NoInitializeTag">
        <source>No tag can be read from</source>
        <translation>Kein Tag kann gelesen werden aus</translation>
    </message>
    <message id="NoLimit">
        <source>No limit</source>
        <translation>Unbegrenzt</translation>
    </message>
    <message id="NumberRemaining">
        <source>%1 (%2 remaining)</source>
        <translation>%1 (%2 übrig)</translation>
    </message>
    <message id="OpenFolderTitle">
        <source>Choose a folder of songs</source>
        <translation>Einen Ordner mit Songs wählen</translation>
    </message>
    <message id="OptionsAdvanced">
        <source>Of several albums take</source>
        <translation>Von mehreren Alben nehmen</translation>
    </message>
    <message id="OptionsAllowSubstrings">
        <source>Names may match in part</source>
        <translation>Namen dürfen teilweise übereinstimmen</translation>
    </message>
    <message id="OptionsGather">
        <source>Look for</source>
        <translation>Suchen nach</translation>
    </message>
    <message id="OptionsIdentify">
        <source>Know unnamed songs by their sound</source>
        <translation>Songs ohne Namen am Klang erkennen</translation>
    </message>
    <message id="OptionsOverwrite">
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message id="OptionsOverwriteAsset">
        <source>Replace what is there: %1</source>
        <translation>Vorhandenes ersetzen: %1</translation>
    </message>
    <message id="OptionsParallelSearch">
        <source>Ask all sources at once</source>
        <translation>Alle Quellen zugleich fragen</translation>
    </message>
    <message id="OptionsPickAgreement">
        <source>The one that most sources know</source>
        <translation>Das den meisten Quellen bekannte</translation>
    </message>
    <message id="OptionsPickAgreementHint">
        <source>Counts how often each album was found.</source>
        <translation>Zählt, wie oft jedes Album gefunden wurde.</translation>
    </message>
    <message id="OptionsPickBest">
        <source>The best match</source>
        <translation>Das am besten passende</translation>
    </message>
    <message id="OptionsPickBestHint">
        <source>Compares length, track, year and names with the song.</source>
        <translation>Vergleicht Länge, Titelnummer, Jahr und Namen mit dem Song.</translation>
    </message>
    <message id="OptionsPickEarliest">
        <source>The earliest</source>
        <translation>Das früheste</translation>
    </message>
    <message id="OptionsPickEarliestHint">
        <source>Mostly the original, not a collection.</source>
        <translation>Meist das Original, keine Sammlung.</translation>
    </message>
    <message id="OptionsPickNone">
        <source>None</source>
        <translation>Keines</translation>
    </message>
    <message id="OptionsPickNoneHint">
        <source>Nothing is filled in where more than one album fits.</source>
        <translation>Passt mehr als ein Album, wird nichts ergänzt.</translation>
    </message>
    <message id="OptionsReview">
        <source>Review before writing</source>
        <translation>Vor dem Schreiben durchsehen</translation>
    </message>
    <message id="OptionsSearch">
        <source>How to look</source>
        <translation>Art der Suche</translation>
    </message>
    <message id="OptionsTitle">
        <source>Gathering options</source>
        <translation>Optionen zum Ergänzen</translation>
    </message>
    <message id="OverwriteThresholdHigherThanMinimum">
        <source>Artwork may be replaced by a smaller one: what is accepted may be narrower than what is replaced.</source>
        <translation>Ein Cover kann durch ein kleineres ersetzt werden: Was angenommen wird, darf schmaler sein als das, was ersetzt wird.</translation>
    </message>
    <message id="OverwriteTitleCancel">
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message id="OverwriteTitleMessage">
        <source>Titles will be looked for by track number and replace those that the songs have. Songs whose track number is wrong get wrong titles.</source>
        <translation>Titel werden anhand der Titelnummer gesucht und ersetzen die vorhandenen. Songs mit falscher Titelnummer erhalten falsche Titel.</translation>
    </message>
    <message id="OverwriteTitleProceed">
        <source>Replace</source>
        <translation>Ersetzen</translation>
    </message>
    <message id="OverwriteTitleTitle">
        <source>Replace titles?</source>
        <translation>Titel ersetzen?</translation>
    </message>
    <message id="PasteTagsInOrder">
        <source>Paste the tags of %1 songs, in order?</source>
        <translation>Die Tags von %1 Songs der Reihe nach einfügen?</translation>
    </message>
    <message id="PasteTagsProceed">
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message id="PasteTagsQuestion">
        <source>Paste the copied tag?</source>
        <translation>Das kopierte Tag einfügen?</translation>
    </message>
    <message id="PictureArtist">
        <source>Artist</source>
        <translation>Interpret</translation>
    </message>
    <message id="PictureBackCover">
        <source>Back cover</source>
        <translation>Rückseite</translation>
    </message>
    <message id="PictureBand">
        <source>Band</source>
        <translation>Band</translation>
    </message>
    <message id="PictureBandLogo">
        <source>Logo of the band</source>
        <translation>Logo der Band</translation>
    </message>
    <message id="PictureComposer">
        <source>Composer</source>
        <translation>Komponist</translation>
    </message>
    <message id="PictureConductor">
        <source>Conductor</source>
        <translation>Dirigent</translation>
    </message>
    <message id="PictureFileIcon">
        <source>File icon</source>
        <translation>Dateisymbol</translation>
    </message>
    <message id="PictureFish">
        <source>A bright coloured fish</source>
        <translation>Ein bunter Fisch</translation>
    </message>
    <message id="PictureFrontCover">
        <source>Front cover</source>
        <translation>Vorderseite</translation>
    </message>
    <message id="PictureIllustration">
        <source>Illustration</source>
        <translation>Illustration</translation>
    </message>
    <message id="PictureLeadArtist">
        <source>Lead artist</source>
        <translation>Hauptinterpret</translation>
    </message>
    <message id="PictureLeaflet">
        <source>Leaflet page</source>
        <translation>Seite des Booklets</translation>
    </message>
    <message id="PictureLocation">
        <source>Recording location</source>
        <translation>Ort der Aufnahme</translation>
    </message>
    <message id="PictureLyricist">
        <source>Lyricist</source>
        <translation>Textdichter</translation>
    </message>
    <message id="PictureMedium">
        <source>Medium</source>
        <translation>Medium</translation>
    </message>
    <message id="PictureOther">
        <source>Other picture</source>
        <translation>Anderes Bild</translation>
    </message>
    <message id="PictureOtherIcon">
        <source>Other file icon</source>
        <translation>Anderes Dateisymbol</translation>
    </message>
    <message id="PicturePerformance">
        <source>During performance</source>
        <translation>Während des Auftritts</translation>
    </message>
    <message id="PicturePublisherLogo">
        <source>Logo of the publisher</source>
        <translation>Logo des Verlags</translation>
    </message>
    <message id="PictureRecording">
        <source>During recording</source>
        <translation>Während der Aufnahme</translation>
    </message>
    <message id="PictureScreen">
        <source>Screen capture</source>
        <translation>Bildschirmfoto</translation>
    </message>
    <message id="PlaylistNotFoundMessage">
        <source>There is no playlist “%1” that can be read.</source>
        <translation>Es gibt keine lesbare Wiedergabeliste „%1“.</translation>
    </message>
    <message id="PlaylistNotFoundProceed">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="PlaylistNotFoundTitle">
        <source>The playlist was not found</source>
        <translation>Die Wiedergabeliste wurde nicht gefunden</translation>
    </message>
    <message id="PreferencesAcoustIDHint">
        <source>With a key of yours for the AcoustID service, songs without names can be known by their sound.</source>
        <translation>Mit einem eigenen Schlüssel für den Dienst AcoustID können Songs ohne Namen am Klang erkannt werden.</translation>
    </message>
    <message id="PreferencesAcoustIDKey">
        <source>AcoustID &amp;key:</source>
        <translation>AcoustID-&amp;Schlüssel:</translation>
    </message>
    <message id="PreferencesArtwork">
        <source>Artwork</source>
        <translation>Cover</translation>
    </message>
    <message id="PreferencesCache">
        <source>Page &amp;cache (MB):</source>
        <translation>Seiten-&amp;Cache (MB):</translation>
    </message>
    <message id="PreferencesCacheHint">
        <source>Pages are kept for a while, so that the songs of an album are looked up once.</source>
        <translation>Seiten werden eine Weile aufbewahrt, damit die Songs eines Albums nur einmal nachgeschlagen werden.</translation>
    </message>
    <message id="PreferencesDialect">
        <source>How ID3 tags are read and written</source>
        <translation>Wie ID3-Tags gelesen und geschrieben werden</translation>
    </message>
    <message id="PreferencesDialectClassic">
        <source>As earlier versions did</source>
        <translation>Wie in früheren Versionen</translation>
    </message>
    <message id="PreferencesDialectHint">
        <source>The standard way keeps everything that a file holds and is read by every player.</source>
        <translation>Der Standard bewahrt alles, was eine Datei enthält, und wird von jedem Player gelesen.</translation>
    </message>
    <message id="PreferencesDialectStandard">
        <source>As the standard says</source>
        <translation>Wie es der Standard vorsieht</translation>
    </message>
    <message id="PreferencesFiles">
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message id="PreferencesIgnoreNonSquare">
        <source>Ignore artwork that is far from s&amp;quare</source>
        <translation>Nicht &amp;quadratische Cover übergehen</translation>
    </message>
    <message id="PreferencesKeepRefreshed">
        <source>&amp;Let the music library read songs again once they were written</source>
        <translation>Geschriebene Songs von der &amp;Mediathek neu einlesen lassen</translation>
    </message>
    <message id="PreferencesMaxSize">
        <source>&amp;Largest size kept:</source>
        <translation>&amp;Höchstgröße:</translation>
    </message>
    <message id="PreferencesMinSize">
        <source>&amp;Smallest width accepted:</source>
        <translation>&amp;Mindestbreite:</translation>
    </message>
    <message id="PreferencesOverwriteSize">
        <source>&amp;Replace artwork narrower than:</source>
        <translation>Cover &amp;ersetzen, wenn schmaler als:</translation>
    </message>
    <message id="PreferencesSources">
        <source>Sources</source>
        <translation>Quellen</translation>
    </message>
    <message id="PreferencesSyncedLyrics">
        <source>&amp;Prefer lyrics with the times of their lines</source>
        <translation>Songtexte mit &amp;Zeitangaben bevorzugen</translation>
    </message>
    <message id="PreferencesTitle">
        <source>Preferences</source>
        <translation>Einstellungen</translation>
    </message>
    <message id="PreferencesUseDeezer">
        <source>Also ask &amp;Deezer</source>
        <translation>Auch &amp;Deezer fragen</translation>
    </message>
    <message id="PreferencesUseDefaults">
        <source>Use Defaults</source>
        <translation>Standardwerte</translation>
    </message>
    <message id="PreferencesV24Accurate">
        <source>As the standard says (sync-safe)</source>
        <translation>Wie es der Standard vorsieht (sync-safe)</translation>
    </message>
    <message id="PreferencesV24Plain">
        <source>As older players expect (plain)</source>
        <translation>Wie ältere Player es erwarten (einfach)</translation>
    </message>
    <message id="PreferencesV24Sizes">
        <source>Sizes in ID3v2.4 tags</source>
        <translation>Größen in ID3v2.4-Tags</translation>
    </message>
    <message id="PreparingToGather">
        <source>Preparing to gather…</source>
        <translation>Das Ergänzen wird vorbereitet …</translation>
    </message>
    <message id="ProblemExtendedHeader">
        <source>The extended header is larger than the tag.</source>
        <translation>Der erweiterte Kopf ist größer als das Tag.</translation>
    </message>
    <message id="ProblemFrameDangerous">
        <source>The frame %1 stands in a form that other programs stumble over.</source>
        <translation>Der Frame %1 hat eine Form, an der andere Programme scheitern.</translation>
    </message>
    <message id="ProblemFrameOverrun">
        <source>The frame %1 is larger than what is left of the tag.</source>
        <translation>Der Frame %1 ist größer als der Rest des Tags.</translation>
    </message>
    <message id="ProblemFramePacked">
        <source>The frame %1 is compressed and cannot be unpacked.</source>
        <translation>Der Frame %1 ist komprimiert und lässt sich nicht entpacken.</translation>
    </message>
    <message id="ProblemFrameSize">
        <source>The frame %1 has a size that cannot be.</source>
        <translation>Der Frame %1 hat eine unmögliche Größe.</translation>
    </message>
    <message id="ProblemPicture">
        <source>A picture cannot be read.</source>
        <translation>Ein Bild ist nicht lesbar.</translation>
    </message>
    <message id="ProgressOfRun">
        <source>Progress of the whole run</source>
        <translation>Fortschritt des ganzen Laufs</translation>
    </message>
    <message id="ProgressOfSong">
        <source>Progress of this song</source>
        <translation>Fortschritt dieses Songs</translation>
    </message>
    <message id="ReasonFileBusy">
        <source>Another write to the file is under way</source>
        <translation>Die Datei wird gerade schon geschrieben</translation>
    </message>
    <message id="ReasonFileChanged">
        <source>Another program changed the file meanwhile</source>
        <translation>Ein anderes Programm hat die Datei inzwischen geändert</translation>
    </message>
    <message id="ReasonFileReplaced">
        <source>Another program moved or replaced the file meanwhile</source>
        <translation>Ein anderes Programm hat die Datei inzwischen verschoben oder ersetzt</translation>
    </message>
    <message id="ReasonFileShortened">
        <source>The file became shorter meanwhile</source>
        <translation>Die Datei wurde inzwischen kürzer</translation>
    </message>
    <message id="ReasonNoJournal">
        <source>The bytes to be overwritten cannot be kept in %1: %2</source>
        <translation>Die zu überschreibenden Bytes können nicht in %1 aufbewahrt werden: %2</translation>
    </message>
    <message id="ReasonNotRegular">
        <source>This is no regular file</source>
        <translation>Dies ist keine gewöhnliche Datei</translation>
    </message>
    <message id="ReasonNotRolledBack">
        <source>%1; what the file held is kept, and is put back at the next start</source>
        <translation>%1; der bisherige Inhalt der Datei ist aufbewahrt und wird beim nächsten Start zurückgelegt</translation>
    </message>
    <message id="RegenerateAll">
        <source>Regenerate &amp;All</source>
        <translation>&amp;Alle neu schreiben</translation>
    </message>
    <message id="RegenerateBegun">
        <source>Waiting</source>
        <translation>Wartet</translation>
    </message>
    <message id="RegenerateDamagedPart">
        <source>What is damaged</source>
        <translation>Was beschädigt ist</translation>
    </message>
    <message id="RegenerateDone">
        <source>Regenerated</source>
        <translation>Neu geschrieben</translation>
    </message>
    <message id="RegenerateDoneForGood">
        <source>Regenerated, cannot be undone</source>
        <translation>Neu geschrieben, nicht rückgängig zu machen</translation>
    </message>
    <message id="RegenerateDropped">
        <source>Dropped</source>
        <translation>Verworfen</translation>
    </message>
    <message id="RegenerateExplanation">
        <source>Regenerating writes a tag anew with what is sound and recognised in it, and drops the rest. As long as the program runs, it can be undone.</source>
        <translation>Ein Tag wird mit dem neu geschrieben, was darin unversehrt und bekannt ist; der Rest wird verworfen. Solange das Programm läuft, lässt sich das rückgängig machen.</translation>
    </message>
    <message id="RegenerateKept">
        <source>Kept</source>
        <translation>Behalten</translation>
    </message>
    <message id="RegenerateNothing">
        <source>Nothing</source>
        <translation>Nichts</translation>
    </message>
    <message id="RegeneratePictures">
        <source>Artwork (%1)</source>
        <translation>Cover (%1)</translation>
    </message>
    <message id="RegenerateProblem">
        <source>Problem</source>
        <translation>Problem</translation>
    </message>
    <message id="RegenerateReading">
        <source>Reading…</source>
        <translation>Wird gelesen …</translation>
    </message>
    <message id="RegenerateResult">
        <source>Result</source>
        <translation>Ergebnis</translation>
    </message>
    <message id="RegenerateSelected">
        <source>&amp;Regenerate Selected</source>
        <translation>Aus&amp;gewählte neu schreiben</translation>
    </message>
    <message id="RegenerateSong">
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message id="RegenerateSound">
        <source>Nothing is damaged.</source>
        <translation>Nichts ist beschädigt.</translation>
    </message>
    <message id="RegenerateStop">
        <source>&amp;Stop</source>
        <translation>An&amp;halten</translation>
    </message>
    <message id="RegenerateTitle">
        <source>Songs with damaged tags</source>
        <translation>Songs mit beschädigten Tags</translation>
    </message>
    <message id="ReviewAlbumChosen">
        <source>chosen</source>
        <translation>gewählt</translation>
    </message>
    <message id="ReviewAlbumChosenBefore">
        <source>was chosen</source>
        <translation>war gewählt</translation>
    </message>
    <message id="ReviewAlbumForArtwork">
        <source>its artwork was taken</source>
        <translation>sein Cover wurde genommen</translation>
    </message>
    <message id="ReviewAlbumTaken">
        <source>taken by you</source>
        <translation>von Ihnen genommen</translation>
    </message>
    <message id="ReviewCandidates">
        <source>Albums that were found</source>
        <translation>Gefundene Alben</translation>
    </message>
    <message id="ReviewClear">
        <source>&amp;Clear Decided</source>
        <translation>Er&amp;ledigte entfernen</translation>
    </message>
    <message id="ReviewColumnChanges">
        <source>Changes</source>
        <translation>Änderungen</translation>
    </message>
    <message id="ReviewColumnFate">
        <source>Verdict</source>
        <translation>Urteil</translation>
    </message>
    <message id="ReviewColumnField">
        <source>Field</source>
        <translation>Feld</translation>
    </message>
    <message id="ReviewColumnNew">
        <source>Found</source>
        <translation>Gefunden</translation>
    </message>
    <message id="ReviewColumnOld">
        <source>Before</source>
        <translation>Vorher</translation>
    </message>
    <message id="ReviewColumnReason">
        <source>Why</source>
        <translation>Grund</translation>
    </message>
    <message id="ReviewColumnSong">
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message id="ReviewColumnSource">
        <source>Source</source>
        <translation>Quelle</translation>
    </message>
    <message id="ReviewColumnState">
        <source>State</source>
        <translation>Zustand</translation>
    </message>
    <message id="ReviewColumnTracks">
        <source>Tracks</source>
        <translation>Titelanzahl</translation>
    </message>
    <message id="ReviewFields">
        <source>Fields of the song</source>
        <translation>Felder des Songs</translation>
    </message>
    <message id="ReviewMorePictures">
        <source>%1, and %2 more</source>
        <translation>%1 und %2 weitere</translation>
    </message>
    <message id="ReviewNoName">
        <source>without a name</source>
        <translation>ohne Namen</translation>
    </message>
    <message id="ReviewNoValue">
        <source>–</source>
        <translation>–</translation>
    </message>
    <message id="ReviewNothingAccepted">
        <source>Nothing of what was found</source>
        <translation>Nichts davon</translation>
    </message>
    <message id="ReviewNothingToWrite">
        <source>Nothing is to be written.</source>
        <translation>Es ist nichts zu schreiben.</translation>
    </message>
    <message id="ReviewPictureSize">
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 Pixel</translation>
    </message>
    <message id="ReviewPlaceholder">
        <source>Songs for which something was found are listed here, with their old and new values.</source>
        <translation>Songs, für die etwas gefunden wurde, stehen hier mit ihren alten und neuen Werten.</translation>
    </message>
    <message id="ReviewSkip">
        <source>S&amp;kip</source>
        <translation>Über&amp;springen</translation>
    </message>
    <message id="ReviewSongName">
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message id="ReviewStateApplying">
        <source>Applying the album…</source>
        <translation>Album wird übernommen …</translation>
    </message>
    <message id="ReviewStateSkipped">
        <source>Skipped</source>
        <translation>Übersprungen</translation>
    </message>
    <message id="ReviewStateToBeWritten">
        <source>To be written</source>
        <translation>Zu schreiben</translation>
    </message>
    <message id="ReviewStateWriting">
        <source>Writing…</source>
        <translation>Wird geschrieben …</translation>
    </message>
    <message id="ReviewStateWritten">
        <source>Written</source>
        <translation>Geschrieben</translation>
    </message>
    <message id="ReviewTakeAlbum">
        <source>&amp;Take This Album</source>
        <translation>&amp;Dieses Album nehmen</translation>
    </message>
    <message id="ReviewTitle">
        <source>Review</source>
        <translation>Durchsicht</translation>
    </message>
    <message id="ReviewToWrite">
        <source>Songs to be written: %1</source>
        <translation>Zu schreibende Songs: %1</translation>
    </message>
    <message id="ReviewWrite">
        <source>&amp;Write</source>
        <translation>S&amp;chreiben</translation>
    </message>
    <message id="ReviewWriteAll">
        <source>Write &amp;All</source>
        <translation>&amp;Alle schreiben</translation>
    </message>
    <message id="Scanning">
        <source>Looking for songs…</source>
        <translation>Songs werden gesucht …</translation>
    </message>
    <message id="ScanningDirectory">
        <source>Looking for songs in the folder…</source>
        <translation>Songs werden im Ordner gesucht …</translation>
    </message>
    <message id="ScanningiTunesLibrary">
        <source>Reading the music library…</source>
        <translation>Die Mediathek wird gelesen …</translation>
    </message>
    <message id="SearchPlaceholder">
        <source>Search songs</source>
        <translation>Songs suchen</translation>
    </message>
    <message id="SearchSubset">
        <source>%1 of %2</source>
        <translation>%1 von %2</translation>
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
        <translation>Titel</translation>
    </message>
    <message id="SongsSelected">
        <source>%1 songs selected</source>
        <translation>%1 Songs ausgewählt</translation>
    </message>
    <message id="SortAscending">
        <source>&amp;Ascending</source>
        <translation>&amp;Aufsteigend</translation>
    </message>
    <message id="SortDescending">
        <source>&amp;Descending</source>
        <translation>A&amp;bsteigend</translation>
    </message>
    <message id="SourceLibrary">
        <source>Other songs of the album</source>
        <translation>Andere Songs des Albums</translation>
    </message>
    <message id="SourceMenuFolder">
        <source>Folder…</source>
        <translation>Ordner …</translation>
    </message>
    <message id="SourceMenuTitle">
        <source>Where the songs come from</source>
        <translation>Woher die Songs kommen</translation>
    </message>
    <message id="StandardiseGenreExplanation">
        <source>Genres are given the names of the genre table. Choose which are changed; a click on a new genre chooses another one.</source>
        <translation>Genres erhalten die Namen der Genretabelle. Wählen Sie, welche geändert werden; klicken Sie auf ein neues Genre, um ein anderes zu wählen.</translation>
    </message>
    <message id="StandardiseGenreNone">
        <source>None of the selected songs has a genre.</source>
        <translation>Keiner der ausgewählten Songs hat ein Genre.</translation>
    </message>
    <message id="StandardiseGenreProceed">
        <source>Change Genres</source>
        <translation>Genres ändern</translation>
    </message>
    <message id="StandardiseGenreTitle">
        <source>Standardise genres</source>
        <translation>Genres vereinheitlichen</translation>
    </message>
    <message id="TagsOnClipboardTitle">
        <source>Copied tags</source>
        <translation>Kopierte Tags</translation>
    </message>
    <message id="ToolBarTitle">
        <source>Toolbar</source>
        <translation>Werkzeugleiste</translation>
    </message>
    <message id="ToolTipAllowSubstrings">
        <source>Also takes albums and tracks whose name is a part of the song’s, or the other way round.</source>
        <translation>Nimmt auch Alben und Titel, deren Name nur ein Teil dessen ist, was der Song angibt, oder umgekehrt.</translation>
    </message>
    <message id="ToolTipGather">
        <source>Fills this in where a song lacks it.</source>
        <translation>Ergänzt dies, wo es einem Song fehlt.</translation>
    </message>
    <message id="ToolTipGenreContained">
        <source>This name stands within the longer one; the rest of it is lost.</source>
        <translation>Dieser Name steht in dem längeren; dessen Rest geht verloren.</translation>
    </message>
    <message id="ToolTipGenreNear">
        <source>This name differs by one letter.</source>
        <translation>Dieser Name unterscheidet sich in einem Buchstaben.</translation>
    </message>
    <message id="ToolTipIdentify">
        <source>For songs without artist or title. Sends a fingerprint of the sound to the AcoustID service, nothing else of the song.</source>
        <translation>Für Songs ohne Interpret oder Titel. Sendet einen Fingerabdruck des Klangs an den Dienst AcoustID, sonst nichts vom Song.</translation>
    </message>
    <message id="ToolTipIdentifyNoKey">
        <source>Needs a key of yours for the AcoustID service, which you can enter in the preferences.</source>
        <translation>Braucht einen eigenen Schlüssel für den Dienst AcoustID, den Sie in den Einstellungen eingeben können.</translation>
    </message>
    <message id="ToolTipLyricsCleanUp">
        <source>Replaces what sources often get wrong, such as odd quotation marks</source>
        <translation>Ersetzt, was Quellen oft falsch haben, etwa ungewöhnliche Anführungszeichen</translation>
    </message>
    <message id="ToolTipLyricsFilter">
        <source>Typed and pasted lyrics are cleaned up before they are written</source>
        <translation>Getippte und eingefügte Songtexte werden bereinigt, bevor sie geschrieben werden</translation>
    </message>
    <message id="ToolTipOverwrite">
        <source>Also where a song has a value already.</source>
        <translation>Auch dort, wo ein Song schon einen Wert hat.</translation>
    </message>
    <message id="ToolTipParallelSearch">
        <source>Faster. Otherwise sources are asked one after the other, and only for what is still missing.</source>
        <translation>Schneller. Sonst werden die Quellen nacheinander gefragt, und nur nach dem, was noch fehlt.</translation>
    </message>
    <message id="ToolTipPasteNothing">
        <source>The copied tags hold nothing here; pasting it empties the field.</source>
        <translation>Die kopierten Tags enthalten hier nichts; das Einfügen leert das Feld.</translation>
    </message>
    <message id="ToolTipReview">
        <source>Nothing is written before you have seen it. The songs wait in the review.</source>
        <translation>Nichts wird geschrieben, bevor Sie es gesehen haben. Die Songs warten in der Durchsicht.</translation>
    </message>
    <message id="ToolTipReviewClear">
        <source>Removes the songs from this list about which nothing is to be decided any more.</source>
        <translation>Nimmt die Songs aus dieser Liste, über die nichts mehr zu entscheiden ist.</translation>
    </message>
    <message id="ToolTipReviewSkip">
        <source>Leaves the selected songs as they are.</source>
        <translation>Lässt die ausgewählten Songs, wie sie sind.</translation>
    </message>
    <message id="ToolTipReviewWrite">
        <source>Writes what is checked into the selected songs. In songs that are written already, what is no longer checked gets its old value back.</source>
        <translation>Schreibt das Angekreuzte in die ausgewählten Songs. Bei schon geschriebenen Songs erhält, was nicht mehr angekreuzt ist, seinen alten Wert zurück.</translation>
    </message>
    <message id="ToolTipReviewWriteAll">
        <source>Writes what is checked into all songs that wait.</source>
        <translation>Schreibt das Angekreuzte in alle wartenden Songs.</translation>
    </message>
    <message id="ToolTipTakeAlbum">
        <source>Fills the song in from this album instead. Nothing is written yet.</source>
        <translation>Ergänzt den Song stattdessen aus diesem Album. Noch wird nichts geschrieben.</translation>
    </message>
    <message id="Track">
        <source>Track</source>
        <translation>Titelnummer</translation>
    </message>
    <message id="UnseenBehindOthers">
        <source>others fit better</source>
        <translation>andere passen besser</translation>
    </message>
    <message id="UnseenLaterWork">
        <source>another album came out earlier</source>
        <translation>ein anderes Album erschien früher</translation>
    </message>
    <message id="UnseenLittleAlike">
        <source>the source finds it little alike</source>
        <translation>die Quelle hält es für wenig ähnlich</translation>
    </message>
    <message id="UnseenOtherArtist">
        <source>another artist</source>
        <translation>ein anderer Interpret</translation>
    </message>
    <message id="UnseenOtherEdition">
        <source>another edition of the same album</source>
        <translation>eine andere Ausgabe desselben Albums</translation>
    </message>
    <message id="UnseenOtherKind">
        <source>a less likely kind, such as a single or a collection</source>
        <translation>eine weniger wahrscheinliche Art, etwa eine Single oder Sammlung</translation>
    </message>
    <message id="UnseenOtherLength">
        <source>the song has another length there</source>
        <translation>der Song hat dort eine andere Länge</translation>
    </message>
    <message id="UnseenOtherName">
        <source>another name than the song’s album</source>
        <translation>ein anderer Name als der des Albums</translation>
    </message>
    <message id="UnseenOtherTitle">
        <source>another title than the song’s</source>
        <translation>ein anderer Titel als der des Songs</translation>
    </message>
    <message id="UnseenUnofficial">
        <source>a bootleg or otherwise not official</source>
        <translation>ein Bootleg oder sonst nicht offiziell</translation>
    </message>
    <message id="WelcomeBegin">
        <source>Begin with a folder of songs, or watch a demo on sample songs first.</source>
        <translation>Beginnen Sie mit einem Ordner voller Songs, oder sehen Sie sich zuerst eine Demo mit Beispielsongs an.</translation>
    </message>
    <message id="WelcomeDemo">
        <source>Show the Demo</source>
        <translation>Demo zeigen</translation>
    </message>
    <message id="WelcomeFolder">
        <source>Choose a Folder…</source>
        <translation>Ordner wählen …</translation>
    </message>
    <message id="WelcomeLater">
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message id="WelcomeSafety">
        <source>Your files stay where they are and keep their names. Only what you ask for is written into them, and a song is never left half written.</source>
        <translation>Ihre Dateien bleiben, wo sie sind, und behalten ihre Namen. Nur was Sie verlangen, wird hineingeschrieben, und kein Song bleibt halb geschrieben zurück.</translation>
    </message>
    <message id="WelcomeTitle">
        <source>Welcome to Tagwright</source>
        <translation>Willkommen bei Tagwright</translation>
    </message>
    <message id="WelcomeWhat">
        <source>Tagwright looks at the tags of your songs, finds on the web what they lack (album, title, genre, year, track number, artwork and lyrics) and writes it into the files.</source>
        <translation>Tagwright sieht sich die Tags Ihrer Songs an, findet im Netz, was ihnen fehlt (Album, Titel, Genre, Jahr, Titelnummer, Cover und Songtext), und schreibt es in die Dateien.</translation>
    </message>
    <message id="WindowTitleDirectory">
        <source>%1 – Tagwright</source>
        <translation>%1 – Tagwright</translation>
    </message>
    <message id="WindowTitleLibrary">
        <source>Music library – Tagwright</source>
        <translation>Mediathek – Tagwright</translation>
    </message>
    <message id="WindowTitlePlaylist">
        <source>%1 – Tagwright</source>
        <translation>%1 – Tagwright</translation>
    </message>
    <message id="XPixels">
        <source>%1 pixels</source>
        <translation>%1 Pixel</translation>
    </message>
    <message id="Year">
        <source>Year</source>
        <translation>Jahr</translation>
    </message>
    <message id="iTunesIsBusy">
        <source>Playlists cannot be asked for now</source>
        <translation>Wiedergabelisten sind gerade nicht abrufbar</translation>
    </message>
    <message id="iTunesLibrary">
        <source>Whole library</source>
        <translation>Ganze Mediathek</translation>
    </message>
    <message id="iTunesNotRunning">
        <source>The music player is not running</source>
        <translation>Der Musikplayer läuft nicht</translation>
    </message>
    <message id="newVersionCancel">
        <source>Not Now</source>
        <translation>Nicht jetzt</translation>
    </message>
    <message id="newVersionDownload">
        <source>Download</source>
        <translation>Herunterladen</translation>
    </message>
    <message id="newVersionMessage">
        <source>Tagwright &lt;version&gt; has been released.</source>
        <translation>Tagwright &lt;version&gt; ist erschienen.</translation>
    </message>
    <message id="newVersionTitle">
        <source>A newer version is available</source>
        <translation>Eine neuere Version ist verfügbar</translation>
    </message>
</context>
</TS>
