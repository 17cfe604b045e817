<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr" sourcelanguage="en">
<context>
    <name></name>
    <message id="AboutText">
        <source>&lt;b&gt;Tagwright %1&lt;/b&gt;&lt;br&gt;&lt;br&gt;Fills in what the tags of your songs lack: album, title, genre, year, track, artwork and lyrics.&lt;br&gt;&lt;br&gt;Free software under the GNU General Public License, version 3 or later.</source>
        <translation>&lt;b&gt;Tagwright %1&lt;/b&gt;&lt;br&gt;&lt;br&gt;Complète ce qui manque aux étiquettes de vos morceaux : album, titre, genre, année, piste, pochette et paroles.&lt;br&gt;&lt;br&gt;Logiciel libre sous licence publique générale GNU, version 3 ou ultérieure.</translation>
    </message>
    <message id="AboutTitle">
        <source>About Tagwright</source>
        <translation>À propos de Tagwright</translation>
    </message>
    <message id="AccessibleHasLyrics">
        <source>Has lyrics</source>
        <translation>A des paroles</translation>
    </message>
    <message id="ActivityIdle">
        <source>Nothing is being fetched</source>
        <translation>Rien n’est en cours de récupération</translation>
    </message>
    <message id="ActivityPending">
        <source>Waits to be gathered</source>
        <translation>En attente de collecte</translation>
    </message>
    <message id="ActivityProcessing">
        <source>Is being gathered</source>
        <translation>Collecte en cours</translation>
    </message>
    <message id="ActivityStatus">
        <source>Status</source>
        <translation>État</translation>
    </message>
    <message id="ActivityTitle">
        <source>Activity</source>
        <translation>Activité</translation>
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
        <translation>Toutes</translation>
    </message>
    <message id="Artist">
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
    <message id="Artwork">
        <source>Artwork</source>
        <translation>Pochette</translation>
    </message>
    <message id="ArtworkAdd">
        <source>Add</source>
        <translation>Ajouter</translation>
    </message>
    <message id="ArtworkAddToSongs">
        <source>Add the picture to %1 songs?</source>
        <translation>Ajouter l’image à %1 morceaux ?</translation>
    </message>
    <message id="ArtworkChooseFilter">
        <source>Pictures (*.jpg *.jpeg *.png *.gif *.webp *.bmp *.tif *.tiff);;All files (*)</source>
        <translation>Images (*.jpg *.jpeg *.png *.gif *.webp *.bmp *.tif *.tiff);;Tous les fichiers (*)</translation>
    </message>
    <message id="ArtworkChooseTitle">
        <source>Choose a picture</source>
        <translation>Choisir une image</translation>
    </message>
    <message id="ArtworkNoSelection">
        <source>Select songs to see their artwork</source>
        <translation>Sélectionnez des morceaux pour voir leur pochette</translation>
    </message>
    <message id="ArtworkNone">
        <source>No artwork

Drop or paste a picture here</source>
        <translation>Pas de pochette

Déposez ou collez une image ici</translation>
    </message>
    <message id="ArtworkOfFirstSongs">
        <source>As in the first %1 of %2 songs</source>
        <translation>Comme pour les %1 premiers morceaux sur %2</translation>
    </message>
    <message id="ArtworkPictures">
        <source>Pictures</source>
        <translation>Images</translation>
    </message>
    <message id="ArtworkPosition">
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message id="ArtworkRefusedTitle">
        <source>Artwork</source>
        <translation>Pochette</translation>
    </message>
    <message id="ArtworkRemove">
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message id="ArtworkRemoveAllFromSongs">
        <source>Remove all pictures from %1 songs?</source>
        <translation>Supprimer toutes les images de %1 morceaux ?</translation>
    </message>
    <message id="ArtworkRemoveFromSongs">
        <source>Remove the picture from %1 songs?</source>
        <translation>Supprimer l’image de %1 morceaux ?</translation>
    </message>
    <message id="ArtworkReplace">
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message id="ArtworkReplaceInSongs">
        <source>Replace the artwork of %1 songs?</source>
        <translation>Remplacer la pochette de %1 morceaux ?</translation>
    </message>
    <message id="ArtworkSaveTitle">
        <source>Save picture</source>
        <translation>Enregistrer l’image</translation>
    </message>
    <message id="ArtworkSeveral">
        <source>Several pictures

The selected songs have different artwork</source>
        <translation>Plusieurs images

Les morceaux sélectionnés ont des pochettes différentes</translation>
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
        <translation>Régénération</translation>
    </message>
    <message id="ChangeColumnQuestion">
        <source>Change “%1” to “%2”?</source>
        <translation>Remplacer « %1 » par « %2 » ?</translation>
    </message>
    <message id="ChangeMarkQuestion">
        <source>Change “%1”?</source>
        <translation>Modifier « %1 » ?</translation>
    </message>
    <message id="ChangeOfArtwork">
        <source>Change of artwork</source>
        <translation>Modification de la pochette</translation>
    </message>
    <message id="ChangeOfColumn">
        <source>Change of “%1”</source>
        <translation>Modification de « %1 »</translation>
    </message>
    <message id="ChangeOfGenres">
        <source>Standardising of genres</source>
        <translation>Normalisation des genres</translation>
    </message>
    <message id="ChangeOfLyrics">
        <source>Change of lyrics</source>
        <translation>Modification des paroles</translation>
    </message>
    <message id="ChangeOfPastedTags">
        <source>Pasting of tags</source>
        <translation>Collage d’étiquettes</translation>
    </message>
    <message id="ChangeSheetCount">
        <source>Songs to be changed: %1</source>
        <translation>Morceaux à modifier : %1</translation>
    </message>
    <message id="ChangeSheetRefused">
        <source>Of these, %1 cannot be written and will stay as they are.</source>
        <translation>Parmi eux, %1 ne peuvent pas être écrits et resteront tels quels.</translation>
    </message>
    <message id="ChangeSheetSongs">
        <source>Songs that will be changed</source>
        <translation>Morceaux qui seront modifiés</translation>
    </message>
    <message id="ChangeToNothingQuestion">
        <source>Remove “%1”?</source>
        <translation>Supprimer « %1 » ?</translation>
    </message>
    <message id="ChoiceAlbumName">
        <source>“%1”</source>
        <translation>« %1 »</translation>
    </message>
    <message id="ChoiceAlbumWithoutName">
        <source>an album without a name</source>
        <translation>un album sans nom</translation>
    </message>
    <message id="ChoiceCoverAlone">
        <source>No album to choose: nothing but the cover of %1 was found</source>
        <translation>Aucun album à choisir : seule la pochette de %1 a été trouvée</translation>
    </message>
    <message id="ChoiceEarliestYear">
        <source>Chosen: %1, the earliest of %2 albums</source>
        <translation>Choisi : %1, le plus ancien de %2 albums</translation>
    </message>
    <message id="ChoiceHighestScore">
        <source>Chosen: %1, which has the highest score of %2 albums</source>
        <translation>Choisi : %1, le mieux noté de %2 albums</translation>
    </message>
    <message id="ChoiceLastLeft">
        <source>Chosen: %1, which is what is left of %2 albums</source>
        <translation>Choisi : %1, le seul restant de %2 albums</translation>
    </message>
    <message id="ChoiceMostAgreement">
        <source>Chosen: %1, which was found most often of %2 albums</source>
        <translation>Choisi : %1, le plus souvent trouvé parmi %2 albums</translation>
    </message>
    <message id="ChoiceNoAnswer">
        <source>Nothing chosen: no source could be asked</source>
        <translation>Rien de choisi : aucune source n’a pu être interrogée</translation>
    </message>
    <message id="ChoiceNoMethod">
        <source>Nothing chosen: %1 albums fit, and no method picks one of them</source>
        <translation>Rien n’est choisi : %1 albums conviennent et aucune méthode n’en retient un</translation>
    </message>
    <message id="ChoiceNoUsableYear">
        <source>Nothing chosen: of the albums that fit (%1), none has a usable year</source>
        <translation>Rien n’est choisi : parmi les albums qui conviennent (%1), aucun n’a d’année utilisable</translation>
    </message>
    <message id="ChoiceNoneFits">
        <source>Nothing chosen: no album that was found fits the song</source>
        <translation>Rien n’est choisi : aucun album trouvé ne convient au morceau</translation>
    </message>
    <message id="ChoiceNothingFound">
        <source>Nothing chosen: no album was found</source>
        <translation>Rien n’est choisi : aucun album n’a été trouvé</translation>
    </message>
    <message id="ChoiceOnlyAlbum">
        <source>Chosen: %1, the only album that was found</source>
        <translation>Choisi : %1, le seul album trouvé</translation>
    </message>
    <message id="ChoiceSongNotOnAlbum">
        <source>Nothing chosen: the song is not on %1</source>
        <translation>Rien n’est choisi : le morceau n’est pas sur %1</translation>
    </message>
    <message id="ChoiceTakenByUser">
        <source>Chosen: %1, which you took</source>
        <translation>Choisi : %1, que vous avez pris</translation>
    </message>
    <message id="ChoiceTooLittleKnown">
        <source>Nothing looked for: too little is known of the song</source>
        <translation>Rien de cherché : on en sait trop peu sur le morceau</translation>
    </message>
    <message id="ChoiceWithoutSources">
        <source>%1 (no answer from %2)</source>
        <translation>%1 (sans réponse de %2)</translation>
    </message>
    <message id="ColumnActivity">
        <source>Activity</source>
        <translation>Activité</translation>
    </message>
    <message id="ColumnAlbum">
        <source>Album</source>
        <translation>Album</translation>
    </message>
    <message id="ColumnArtist">
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
    <message id="ColumnArtwork">
        <source>Artwork</source>
        <translation>Pochette</translation>
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
        <translation>N°</translation>
    </message>
    <message id="ColumnLyrics">
        <source>Lyrics</source>
        <translation>Paroles</translation>
    </message>
    <message id="ColumnTitle">
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message id="ColumnTrack">
        <source>Track</source>
        <translation>Piste</translation>
    </message>
    <message id="ColumnVersion">
        <source>Tag Version</source>
        <translation>Version d’étiquette</translation>
    </message>
    <message id="ColumnYear">
        <source>Year</source>
        <translation>Année</translation>
    </message>
    <message id="ColumnsRestore">
        <source>Restore Columns</source>
        <translation>Rétablir les colonnes</translation>
    </message>
    <message id="Compilation">
        <source>Compilation</source>
        <translation>Compilation</translation>
    </message>
    <message id="CompilationWarningDontWarn">
        <source>Do not warn of this again</source>
        <translation>Ne plus m’avertir</translation>
    </message>
    <message id="CompilationWarningText">
        <source>“%1” by %2 is part of a compilation, and not everything was found for it. Sources often list such albums under another artist.</source>
        <translation>« %1 » de %2 fait partie d’une compilation et tout n’a pas été trouvé. Les sources classent souvent ces albums sous un autre artiste.</translation>
    </message>
    <message id="CompilationWarningTitle">
        <source>Songs of compilations</source>
        <translation>Morceaux de compilations</translation>
    </message>
    <message id="ConfirmChangeProceed">
        <source>Change</source>
        <translation>Modifier</translation>
    </message>
    <message id="DropWindowCancel">
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message id="DropWindowClose">
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message id="DropWindowDone">
        <source>Done</source>
        <translation>Terminé</translation>
    </message>
    <message id="DropWindowNoSongs">
        <source>There are no songs at %1</source>
        <translation>Aucun morceau à l’emplacement %1</translation>
    </message>
    <message id="DropWindowProblems">
        <source>Done, with problems: %1</source>
        <translation>Terminé, avec des problèmes : %1</translation>
    </message>
    <message id="DropWindowProgress">
        <source>Songs looked at</source>
        <translation>Morceaux examinés</translation>
    </message>
    <message id="DroppedCoverAlone">
        <source>a cover alone, no album to choose</source>
        <translation>une pochette seule, pas un album à choisir</translation>
    </message>
    <message id="DroppedMerged">
        <source>counted with another album of the same name</source>
        <translation>compté avec un autre album du même nom</translation>
    </message>
    <message id="DroppedNotPicked">
        <source>another album was picked</source>
        <translation>un autre album a été retenu</translation>
    </message>
    <message id="DroppedOtherName">
        <source>another name than the song’s album, which others have</source>
        <translation>porte un autre nom que l’album du morceau, que d’autres portent</translation>
    </message>
    <message id="DroppedOtherNumberOfTracks">
        <source>another number of tracks than the song’s album, which others have</source>
        <translation>a un autre nombre de pistes que l’album du morceau, que d’autres ont</translation>
    </message>
    <message id="DroppedSongNotOnAlbum">
        <source>the song is not on it</source>
        <translation>le morceau n’y figure pas</translation>
    </message>
    <message id="DroppedTitleNotOnAlbum">
        <source>the title is not on it, but on others</source>
        <translation>le titre n’y figure pas, mais figure sur d’autres</translation>
    </message>
    <message id="DroppedUndecided">
        <source>it fits, but no album was picked</source>
        <translation>il convient, mais aucun album n’a été retenu</translation>
    </message>
    <message id="DroppedUnseen">
        <source>not looked up: %1</source>
        <translation>non consulté : %1</translation>
    </message>
    <message id="EditReview">
        <source>Reviewed changes</source>
        <translation>Modifications vérifiées</translation>
    </message>
    <message id="EditingProgress">
        <source>Writing songs…</source>
        <translation>Écriture des morceaux…</translation>
    </message>
    <message id="EmptyNoMatch">
        <source>Nothing matches “%1”</source>
        <translation>Rien ne correspond à « %1 »</translation>
    </message>
    <message id="EmptyNoMatchHint">
        <source>Change or clear the text in the search field</source>
        <translation>Modifiez ou effacez le texte du champ de recherche</translation>
    </message>
    <message id="EmptyNothingLoaded">
        <source>Drop a folder here</source>
        <translation>Déposez un dossier ici</translation>
    </message>
    <message id="EmptyNothingLoadedHint">
        <source>Or choose one in the menu “File”</source>
        <translation>Ou choisissez-en un dans le menu « Fichier »</translation>
    </message>
    <message id="EmptySource">
        <source>There are no songs here</source>
        <translation>Il n’y a pas de morceaux ici</translation>
    </message>
    <message id="ErrorAddressNotFetched">
        <source>“%1” is no address that can be fetched: only http and https are</source>
        <translation>« %1 » n’est pas une adresse accessible : seules http et https le sont</translation>
    </message>
    <message id="ErrorAlbumNotLookedUp">
        <source>The album could not be looked up</source>
        <translation>L’album n’a pas pu être consulté</translation>
    </message>
    <message id="ErrorCannotMakeID3">
        <source>The ID3 tag cannot be made</source>
        <translation>L’étiquette ID3 ne peut pas être créée</translation>
    </message>
    <message id="ErrorCannotModify">
        <source>“%1” by %2 cannot be changed: %3</source>
        <translation>« %1 » de %2 ne peut pas être modifié : %3</translation>
    </message>
    <message id="ErrorCannotOpenForRead">
        <source>The file cannot be opened for reading</source>
        <translation>Le fichier ne peut pas être ouvert en lecture</translation>
    </message>
    <message id="ErrorCannotOpenForWrite">
        <source>The file cannot be opened for writing</source>
        <translation>Le fichier ne peut pas être ouvert en écriture</translation>
    </message>
    <message id="ErrorCannotReadFile">
        <source>The file cannot be read</source>
        <translation>Le fichier ne peut pas être lu</translation>
    </message>
    <message id="ErrorDigestEmptyField">
        <source>Album title or path is empty</source>
        <translation>Le titre de l’album ou le chemin est vide</translation>
    </message>
    <message id="ErrorDigestFields">
        <source>Artist, album and path with tabs between are expected; here are %1 fields</source>
        <translation>Artiste, album et chemin séparés par des tabulations sont attendus ; il y a ici %1 champs</translation>
    </message>
    <message id="ErrorDigestNotUTF8">
        <source>This is no text in UTF-8</source>
        <translation>Ce n’est pas un texte en UTF-8</translation>
    </message>
    <message id="ErrorDigestTwoPaths">
        <source>Line %1 gives another path for this album</source>
        <translation>La ligne %1 donne un autre chemin pour cet album</translation>
    </message>
    <message id="ErrorFileChanged">
        <source>The file is not the song that it was</source>
        <translation>Le fichier n’est plus le morceau qu’il était</translation>
    </message>
    <message id="ErrorForeignMetadata">
        <source>it keeps metadata of another kind where the list of items belongs</source>
        <translation>il contient des métadonnées d’un autre type à la place de la liste d’éléments</translation>
    </message>
    <message id="ErrorFrameTooLarge">
        <source>“%1” is larger than this kind of tag can hold (16 MB)</source>
        <translation>« %1 » dépasse ce que ce type d’étiquette peut contenir (16 Mo)</translation>
    </message>
    <message id="ErrorHostFailedLately">
        <source>%1 could not be reached within the last five minutes and is left alone for now</source>
        <translation>%1 n’a pas pu être joint ces cinq dernières minutes et n’est pas sollicité pour l’instant</translation>
    </message>
    <message id="ErrorMP4Unreadable">
        <source>This MP4 file cannot be read: %1</source>
        <translation>Ce fichier MP4 ne peut pas être lu : %1</translation>
    </message>
    <message id="ErrorNoAcoustIDKey">
        <source>needs a key of yours for the AcoustID service: in the setting “acoustIDKey” or in TAGWRIGHT_ACOUSTID_KEY</source>
        <translation>nécessite une clé personnelle pour le service AcoustID : dans le réglage « acoustIDKey » ou dans TAGWRIGHT_ACOUSTID_KEY</translation>
    </message>
    <message id="ErrorNoFileManager">
        <source>No program can show the folder %1</source>
        <translation>Aucun programme ne peut montrer le dossier %1</translation>
    </message>
    <message id="ErrorNoLength">
        <source>its length cannot be told</source>
        <translation>sa durée ne peut pas être déterminée</translation>
    </message>
    <message id="ErrorNoLibrary">
        <source>There is no library file of iTunes that was written within the last 30 days</source>
        <translation>Il n’y a pas de fichier de bibliothèque iTunes écrit au cours des 30 derniers jours</translation>
    </message>
    <message id="ErrorNoMovie">
        <source>it has no “moov” atom, which would hold the tag</source>
        <translation>il n’a pas d’atome « moov », qui contiendrait l’étiquette</translation>
    </message>
    <message id="ErrorNoPicture">
        <source>This is no picture.</source>
        <translation>Ce n’est pas une image.</translation>
    </message>
    <message id="ErrorNoPictureOnClipboard">
        <source>There is no picture on the clipboard.</source>
        <translation>Il n’y a pas d’image dans le presse-papiers.</translation>
    </message>
    <message id="ErrorNoSong">
        <source>This is no song file that can be read</source>
        <translation>Ce n’est pas un fichier musical lisible</translation>
    </message>
    <message id="ErrorNoSound">
        <source>no sound in it can be decoded</source>
        <translation>aucun son ne peut y être décodé</translation>
    </message>
    <message id="ErrorNoTagsOnClipboard">
        <source>There are no tags on the clipboard.</source>
        <translation>Il n’y a pas d’étiquettes dans le presse-papiers.</translation>
    </message>
    <message id="ErrorNoYear">
        <source>No usable year in the albums found for %2 – %3 (%1): %4</source>
        <translation>Aucune année utilisable dans les albums trouvés pour %2 – %3 (%1) : %4</translation>
    </message>
    <message id="ErrorNotIdentified">
        <source>“%1” is not known by its sound: %2</source>
        <translation>« %1 » n’est pas reconnu à l’écoute : %2</translation>
    </message>
    <message id="ErrorNotOnAlbum">
        <source>“%1” is not on the album “%2” (%3)</source>
        <translation>« %1 » n’est pas sur l’album « %2 » (%3)</translation>
    </message>
    <message id="ErrorOtherNumberOfSongs">
        <source>Songs copied: %1, songs selected: %2. Copy a single song, or select as many songs as were copied.</source>
        <translation>Morceaux copiés : %1, morceaux sélectionnés : %2. Copiez un seul morceau, ou sélectionnez autant de morceaux que vous en avez copiés.</translation>
    </message>
    <message id="ErrorPictureTooLarge">
        <source>The picture has more than %1 MB.</source>
        <translation>L’image dépasse %1 Mo.</translation>
    </message>
    <message id="ErrorPictureUnreadable">
        <source>The picture is damaged or has more than 100 megapixels.</source>
        <translation>L’image est endommagée ou dépasse 100 mégapixels.</translation>
    </message>
    <message id="ErrorResponseTooLong">
        <source>The answer is longer than %1 MB</source>
        <translation>La réponse dépasse %1 Mo</translation>
    </message>
    <message id="ErrorServiceLeftAlone">
        <source>the service gave no answer to the songs before, and is left alone for now</source>
        <translation>le service n’a pas répondu pour les morceaux précédents et n’est pas sollicité pour l’instant</translation>
    </message>
    <message id="ErrorServiceNotReached">
        <source>the service cannot be reached</source>
        <translation>le service ne peut pas être joint</translation>
    </message>
    <message id="ErrorSongBeingGathered">
        <source>The song is being gathered</source>
        <translation>Le morceau est en cours de collecte</translation>
    </message>
    <message id="ErrorSongChangedMeanwhile">
        <source>The song was changed by something else in the meantime</source>
        <translation>Le morceau a été modifié autrement entre-temps</translation>
    </message>
    <message id="ErrorSongHasProblem">
        <source>The tag is damaged; “tagwright regenerate” rewrites it with what is sound</source>
        <translation>L’étiquette est endommagée ; « tagwright regenerate » la réécrit avec ce qui est intact</translation>
    </message>
    <message id="ErrorSongLocked">
        <source>The file is not writable</source>
        <translation>Le fichier est protégé en écriture</translation>
    </message>
    <message id="ErrorSongVanished">
        <source>The file is gone</source>
        <translation>Le fichier a disparu</translation>
    </message>
    <message id="ErrorSoundUnknown">
        <source>the service knows no such song</source>
        <translation>le service ne connaît pas ce morceau</translation>
    </message>
    <message id="ErrorStillDamaged">
        <source>The tag is still damaged.</source>
        <translation>L’étiquette est toujours endommagée.</translation>
    </message>
    <message id="ErrorStrangeAnswer">
        <source>the answer of the service is not understood</source>
        <translation>la réponse du service n’est pas comprise</translation>
    </message>
    <message id="ErrorTagTooLarge">
        <source>It would be larger than 256 MB</source>
        <translation>Elle dépasserait 256 Mo</translation>
    </message>
    <message id="ErrorTagUnreadable">
        <source>The ID3 tag is damaged and cannot be read</source>
        <translation>L’étiquette ID3 est endommagée et illisible</translation>
    </message>
    <message id="ErrorTimedOut">
        <source>The server took too long to answer</source>
        <translation>Le serveur a mis trop de temps à répondre</translation>
    </message>
    <message id="ErrorTooManyRedirects">
        <source>The server redirects without end</source>
        <translation>Le serveur redirige sans fin</translation>
    </message>
    <message id="ErrorTooMuchToCopy">
        <source>This is too much to copy at once. Copy at most 1,000 songs, with pictures of at most 128 MB.</source>
        <translation>C’est trop à copier en une fois. Copiez au plus 1 000 morceaux, avec au plus 128 Mo d’images.</translation>
    </message>
    <message id="FieldAlbumReplaced">
        <source>Not replaced: the song has a picture, and its album was looked for, too</source>
        <translation>Non remplacée : le morceau a une image et son album était recherché aussi</translation>
    </message>
    <message id="FieldAlbumUnknown">
        <source>Not looked for: the album is not known</source>
        <translation>Non recherché : l’album est inconnu</translation>
    </message>
    <message id="FieldAndValue">
        <source>%1: %2</source>
        <translation>%1 : %2</translation>
    </message>
    <message id="FieldInstrumental">
        <source>The song is an instrumental</source>
        <translation>Le morceau est instrumental</translation>
    </message>
    <message id="FieldKept">
        <source>Not overwritten: the song has it</source>
        <translation>Non remplacé : le morceau l’a déjà</translation>
    </message>
    <message id="FieldLent">
        <source>Lent by another song of the album</source>
        <translation>Prêté par un autre morceau de l’album</translation>
    </message>
    <message id="FieldLentPicture">
        <source>Lent by another song of the album: %1</source>
        <translation>Prêtée par un autre morceau de l’album : %1</translation>
    </message>
    <message id="FieldLyrics">
        <source>Found for this artist and title</source>
        <translation>Trouvées pour cet artiste et ce titre</translation>
    </message>
    <message id="FieldNamedByFile">
        <source>The song has no title but the name of its file</source>
        <translation>Le morceau n’a pour titre que le nom de son fichier</translation>
    </message>
    <message id="FieldNoAnswer">
        <source>No source could be asked about it</source>
        <translation>Aucune source n’a pu être interrogée à ce sujet</translation>
    </message>
    <message id="FieldNotAsked">
        <source>No source in use supplies it</source>
        <translation>Aucune source utilisée ne le fournit</translation>
    </message>
    <message id="FieldNotFound">
        <source>Not found in any source</source>
        <translation>Dans aucune source</translation>
    </message>
    <message id="FieldNotOnAlbum">
        <source>The chosen album, %1, does not tell it</source>
        <translation>L’album choisi, %1, ne l’indique pas</translation>
    </message>
    <message id="FieldPath">
        <source>Read from the names of the file and its folders, and known so to the source</source>
        <translation>Lu dans les noms du fichier et de ses dossiers, et connu ainsi de la source</translation>
    </message>
    <message id="FieldPicture">
        <source>A picture that fits: %1</source>
        <translation>Une image qui convient : %1</translation>
    </message>
    <message id="FieldPictureNotFetched">
        <source>The picture could not be fetched</source>
        <translation>L’image n’a pas pu être récupérée</translation>
    </message>
    <message id="FieldPictureNotSquare">
        <source>The picture is not square: %1</source>
        <translation>L’image n’est pas carrée : %1</translation>
    </message>
    <message id="FieldPictureScaled">
        <source>A picture that fits: %1, scaled down from %2</source>
        <translation>Une image qui convient : %1, réduite depuis %2</translation>
    </message>
    <message id="FieldPictureSize">
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 pixels</translation>
    </message>
    <message id="FieldPictureTooSmall">
        <source>The picture is too small: %1</source>
        <translation>L’image est trop petite : %1</translation>
    </message>
    <message id="FieldPictureUnreadable">
        <source>What was fetched is no picture that can be read</source>
        <translation>Ce qui a été récupéré n’est pas une image lisible</translation>
    </message>
    <message id="FieldSound">
        <source>Known by the sound of the song</source>
        <translation>Reconnu au son du morceau</translation>
    </message>
    <message id="FieldTooLittleKnown">
        <source>Not looked for: too little is known of the song</source>
        <translation>Pas cherché : on en sait trop peu sur le morceau</translation>
    </message>
    <message id="FindNext">
        <source>Find next</source>
        <translation>Suivant</translation>
    </message>
    <message id="FindPrevious">
        <source>Find previous</source>
        <translation>Précédent</translation>
    </message>
    <message id="GeneralErrorPrefix">
        <source>Network: </source>
        <translation>Réseau : </translation>
    </message>
    <message id="Genre">
        <source>Genre</source>
        <translation>Genre</translation>
    </message>
    <message id="GenreBecomes">
        <source>Becomes</source>
        <translation>Devient</translation>
    </message>
    <message id="GenreSongs">
        <source>Songs</source>
        <translation>Morceaux</translation>
    </message>
    <message id="LoadingPlaylist">
        <source>Loading the playlist “%1”…</source>
        <translation>Chargement de la liste de lecture « %1 »…</translation>
    </message>
    <message id="LoadingProgress">
        <source>Songs read</source>
        <translation>Morceaux lus</translation>
    </message>
    <message id="LogCancelled">
        <source>Gathering was cancelled</source>
        <translation>La collecte a été annulée</translation>
    </message>
    <message id="LogFinished">
        <source>Finished. Songs processed: %1, modified: %2</source>
        <translation>Terminé. Morceaux traités : %1, modifiés : %2</translation>
    </message>
    <message id="LogFoundInfo">
        <source>Found %1 for “%2”</source>
        <translation>Trouvé pour « %2 » : %1</translation>
    </message>
    <message id="LogNothingUnanswered">
        <source>There are no songs that sources are to be asked about again</source>
        <translation>Il n’y a aucun morceau pour lequel réinterroger les sources</translation>
    </message>
    <message id="LogPausedForReview">
        <source>Gathering waits: %1 songs are to be reviewed first</source>
        <translation>La collecte attend : %1 morceaux sont d’abord à vérifier</translation>
    </message>
    <message id="LogPlaceholder">
        <source>What is found and written is listed here.</source>
        <translation>Ce qui est trouvé et écrit est indiqué ici.</translation>
    </message>
    <message id="LogSetInfo">
        <source>Set %1 of “%2”</source>
        <translation>Défini dans « %2 » : %1</translation>
    </message>
    <message id="LogTitle">
        <source>Log</source>
        <translation>Journal</translation>
    </message>
    <message id="Lyrics">
        <source>Lyrics</source>
        <translation>Paroles</translation>
    </message>
    <message id="LyricsAreClean">
        <source>There is nothing to clean up.</source>
        <translation>Il n’y a rien à nettoyer.</translation>
    </message>
    <message id="LyricsCleanUp">
        <source>&amp;Clean Up</source>
        <translation>&amp;Nettoyer</translation>
    </message>
    <message id="LyricsFilter">
        <source>Clean up lyrics when they are &amp;saved</source>
        <translation>Nettoyer les paroles à l’en&amp;registrement</translation>
    </message>
    <message id="LyricsFind">
        <source>Find in lyrics</source>
        <translation>Rechercher dans les paroles</translation>
    </message>
    <message id="LyricsForAll">
        <source>Lyrics for &amp;All…</source>
        <translation>Paroles pour &amp;tous…</translation>
    </message>
    <message id="LyricsForAllPrompt">
        <source>Lyrics for all selected songs:</source>
        <translation>Paroles pour tous les morceaux sélectionnés :</translation>
    </message>
    <message id="LyricsForAllTitle">
        <source>Lyrics for all songs</source>
        <translation>Paroles pour tous les morceaux</translation>
    </message>
    <message id="LyricsInspectorTitle">
        <source>Lyrics</source>
        <translation>Paroles</translation>
    </message>
    <message id="LyricsNoSelection">
        <source>No song selected</source>
        <translation>Aucun morceau sélectionné</translation>
    </message>
    <message id="LyricsNone">
        <source>No lyrics</source>
        <translation>Pas de paroles</translation>
    </message>
    <message id="LyricsNotFound">
        <source>Not found.</source>
        <translation>Introuvable.</translation>
    </message>
    <message id="LyricsNotWritten">
        <source>These lyrics could not be written. The log says why.</source>
        <translation>Ces paroles n’ont pas pu être écrites. Le journal dit pourquoi.</translation>
    </message>
    <message id="LyricsRemove">
        <source>Remove</source>
        <translation>Supprimer</translation>
    </message>
    <message id="LyricsRemoveFromSongs">
        <source>Remove the lyrics from %1 songs?</source>
        <translation>Supprimer les paroles de %1 morceaux ?</translation>
    </message>
    <message id="LyricsSet">
        <source>Set Lyrics</source>
        <translation>Définir les paroles</translation>
    </message>
    <message id="LyricsSetInSongs">
        <source>Set these lyrics in %1 songs?</source>
        <translation>Définir ces paroles dans %1 morceaux ?</translation>
    </message>
    <message id="LyricsSeveralSongs">
        <source>Select one song to read and edit its lyrics.</source>
        <translation>Sélectionnez un seul morceau pour lire et modifier ses paroles.</translation>
    </message>
    <message id="LyricsTooLong">
        <source>This text is too long to be edited here. Only its beginning is shown.</source>
        <translation>Ce texte est trop long pour être modifié ici. Seul son début est affiché.</translation>
    </message>
    <message id="LyricsWereCleaned">
        <source>The lyrics were cleaned up.</source>
        <translation>Les paroles ont été nettoyées.</translation>
    </message>
    <message id="MenuAbout">
        <source>&amp;About Tagwright</source>
        <translation>À &amp;propos de Tagwright</translation>
    </message>
    <message id="MenuActivity">
        <source>&amp;Activity</source>
        <translation>&amp;Activité</translation>
    </message>
    <message id="MenuAdd">
        <source>A&amp;dd</source>
        <translation>A&amp;jouter</translation>
    </message>
    <message id="MenuAddArtwork">
        <source>&amp;Add Artwork…</source>
        <translation>&amp;Ajouter une pochette…</translation>
    </message>
    <message id="MenuArtwork">
        <source>&amp;Artwork</source>
        <translation>&amp;Pochette</translation>
    </message>
    <message id="MenuBegin">
        <source>&amp;Begin</source>
        <translation>&amp;Commencer</translation>
    </message>
    <message id="MenuClearLog">
        <source>C&amp;lear Log</source>
        <translation>&amp;Effacer le journal</translation>
    </message>
    <message id="MenuColumns">
        <source>C&amp;olumns</source>
        <translation>C&amp;olonnes</translation>
    </message>
    <message id="MenuCopyLog">
        <source>&amp;Copy Log</source>
        <translation>&amp;Copier le journal</translation>
    </message>
    <message id="MenuCopyTags">
        <source>&amp;Copy Tags</source>
        <translation>Copier les éti&amp;quettes</translation>
    </message>
    <message id="MenuEdit">
        <source>&amp;Edit</source>
        <translation>É&amp;dition</translation>
    </message>
    <message id="MenuFile">
        <source>&amp;File</source>
        <translation>&amp;Fichier</translation>
    </message>
    <message id="MenuFind">
        <source>&amp;Find</source>
        <translation>Rec&amp;hercher</translation>
    </message>
    <message id="MenuGathering">
        <source>&amp;Gathering</source>
        <translation>&amp;Collecte</translation>
    </message>
    <message id="MenuHelp">
        <source>&amp;Help</source>
        <translation>&amp;Aide</translation>
    </message>
    <message id="MenuLyricsInspector">
        <source>&amp;Lyrics</source>
        <translation>&amp;Paroles</translation>
    </message>
    <message id="MenuOpenFolder">
        <source>&amp;Open Folder…</source>
        <translation>&amp;Ouvrir un dossier…</translation>
    </message>
    <message id="MenuPasteArtwork">
        <source>&amp;Paste Artwork</source>
        <translation>Co&amp;ller la pochette</translation>
    </message>
    <message id="MenuPasteTags">
        <source>Paste &amp;Tags</source>
        <translation>Coller les é&amp;tiquettes</translation>
    </message>
    <message id="MenuPreferences">
        <source>&amp;Preferences…</source>
        <translation>&amp;Préférences…</translation>
    </message>
    <message id="MenuQuit">
        <source>&amp;Quit</source>
        <translation>&amp;Quitter</translation>
    </message>
    <message id="MenuRedo">
        <source>&amp;Redo</source>
        <translation>&amp;Rétablir</translation>
    </message>
    <message id="MenuRedoNamed">
        <source>&amp;Redo %1</source>
        <translation>&amp;Rétablir : %1</translation>
    </message>
    <message id="MenuRegenerate">
        <source>&amp;Regenerate Tags…</source>
        <translation>&amp;Régénérer les étiquettes…</translation>
    </message>
    <message id="MenuRemoveAllArtwork">
        <source>Remove A&amp;ll Artwork</source>
        <translation>Supprimer &amp;toutes les images</translation>
    </message>
    <message id="MenuRemoveArtwork">
        <source>&amp;Remove Artwork</source>
        <translation>&amp;Supprimer la pochette</translation>
    </message>
    <message id="MenuRemoveLyrics">
        <source>Re&amp;move Lyrics</source>
        <translation>S&amp;upprimer les paroles</translation>
    </message>
    <message id="MenuReplaceArtwork">
        <source>R&amp;eplace Artwork…</source>
        <translation>&amp;Remplacer la pochette…</translation>
    </message>
    <message id="MenuRescan">
        <source>&amp;Rescan</source>
        <translation>&amp;Relire</translation>
    </message>
    <message id="MenuRetryUnanswered">
        <source>&amp;Ask Sources Again</source>
        <translation>&amp;Réinterroger les sources</translation>
    </message>
    <message id="MenuRevealFile">
        <source>&amp;Show in File Manager</source>
        <translation>&amp;Montrer dans le gestionnaire de fichiers</translation>
    </message>
    <message id="MenuReview">
        <source>&amp;Review…</source>
        <translation>&amp;Vérifier…</translation>
    </message>
    <message id="MenuSaveArtwork">
        <source>&amp;Save Artwork As…</source>
        <translation>&amp;Enregistrer la pochette sous…</translation>
    </message>
    <message id="MenuSelectAll">
        <source>&amp;Select All</source>
        <translation>Tout &amp;sélectionner</translation>
    </message>
    <message id="MenuShowOptions">
        <source>Gathering &amp;Options</source>
        <translation>&amp;Options de collecte</translation>
    </message>
    <message id="MenuSongs">
        <source>&amp;Songs</source>
        <translation>&amp;Morceaux</translation>
    </message>
    <message id="MenuSortBy">
        <source>&amp;Sort by</source>
        <translation>&amp;Trier par</translation>
    </message>
    <message id="MenuStandardiseGenre">
        <source>Standardise &amp;Genre…</source>
        <translation>&amp;Normaliser le genre…</translation>
    </message>
    <message id="MenuStop">
        <source>&amp;Stop</source>
        <translation>&amp;Arrêter</translation>
    </message>
    <message id="MenuUndo">
        <source>&amp;Undo</source>
        <translation>&amp;Annuler</translation>
    </message>
    <message id="MenuUndoNamed">
        <source>&amp;Undo %1</source>
        <translation>&amp;Annuler : %1</translation>
    </message>
    <message id="MenuView">
        <source>&amp;View</source>
        <translation>Afficha&amp;ge</translation>
    </message>
    <message id="MenuWelcome">
        <source>&amp;Welcome</source>
        <translation>&amp;Bienvenue</translation>
    </message>
    <message id="MenuWindow">
        <source>&amp;Window</source>
        <translation>Fe&amp;nêtre</translation>
    </message>
    <message id="NoInitializeSong">
        <source>No song can be found at</source>
        <translation>Aucun morceau trouvé à l’emplacement</translation>
    </message>
    <message id="NoInitializeTag">
        <source>No tag can be read from</source>
        <translation>Aucune étiquette ne peut être lue dans</translation>
    </message>
    <message id="NoLimit">
        <source>No limit</source>
        <translation>Sans limite</translation>
    </message>
    <message id="NumberRemaining">
        <source>%1 (%2 remaining)</source>
        <translation>%1 (encore %2)</translation>
    </message>
    <message id="OpenFolderTitle">
        <source>Choose a folder of songs</source>
        <translation>Choisir un dossier de morceaux</translation>
    </message>
    <message id="OptionsAdvanced">
        <source>Of several albums take</source>
        <translation>Parmi plusieurs albums, prendre</translation>
    </message>
    <message id="OptionsAllowSubstrings">
        <source>Names may match in part</source>
        <translation>Les noms peuvent correspondre en partie</translation>
    </message>
    <message id="OptionsGather">
        <source>Look for</source>
        <translation>Rechercher</translation>
    </message>
    <message id="OptionsIdentify">
        <source>Know unnamed songs by their sound</source>
        <translation>Reconnaître au son les morceaux sans nom</translation>
    </message>
    <message id="OptionsOverwrite">
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message id="OptionsOverwriteAsset">
        <source>Replace what is there: %1</source>
        <translation>Remplacer l’existant : %1</translation>
    </message>
    <message id="OptionsParallelSearch">
        <source>Ask all sources at once</source>
        <translation>Interroger toutes les sources à la fois</translation>
    </message>
    <message id="OptionsPickAgreement">
        <source>The one that most sources know</source>
        <translation>Celui que le plus de sources connaissent</translation>
    </message>
    <message id="OptionsPickAgreementHint">
        <source>Counts how often each album was found.</source>
        <translation>Compte combien de fois chaque album a été trouvé.</translation>
    </message>
    <message id="OptionsPickBest">
        <source>The best match</source>
        <translation>Le plus proche</translation>
    </message>
    <message id="OptionsPickBestHint">
        <source>Compares length, track, year and names with the song.</source>
        <translation>Compare durée, piste, année et noms avec le morceau.</translation>
    </message>
    <message id="OptionsPickEarliest">
        <source>The earliest</source>
        <translation>Le plus ancien</translation>
    </message>
    <message id="OptionsPickEarliestHint">
        <source>Mostly the original, not a collection.</source>
        <translation>Le plus souvent l’original, pas un recueil.</translation>
    </message>
    <message id="OptionsPickNone">
        <source>None</source>
        <translation>Aucun</translation>
    </message>
    <message id="OptionsPickNoneHint">
        <source>Nothing is filled in where more than one album fits.</source>
        <translation>Rien n’est complété si plusieurs albums conviennent.</translation>
    </message>
    <message id="OptionsReview">
        <source>Review before writing</source>
        <translation>Vérifier avant d’écrire</translation>
    </message>
    <message id="OptionsSearch">
        <source>How to look</source>
        <translation>Mode de recherche</translation>
    </message>
    <message id="OptionsTitle">
        <source>Gathering options</source>
        <translation>Options de collecte</translation>
    </message>
    <message id="OverwriteThresholdHigherThanMinimum">
        <source>Artwork may be replaced by a smaller one: what is accepted may be narrower than what is replaced.</source>
        <translation>Une pochette peut être remplacée par une plus petite : ce qui est accepté peut être moins large que ce qui est remplacé.</translation>
    </message>
    <message id="OverwriteTitleCancel">
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message id="OverwriteTitleMessage">
        <source>Titles will be looked for by track number and replace those that the songs have. Songs whose track number is wrong get wrong titles.</source>
        <translation>Les titres seront recherchés d’après le numéro de piste et remplaceront ceux des morceaux. Les morceaux dont le numéro est faux recevront un faux titre.</translation>
    </message>
    <message id="OverwriteTitleProceed">
        <source>Replace</source>
        <translation>Remplacer</translation>
    </message>
    <message id="OverwriteTitleTitle">
        <source>Replace titles?</source>
        <translation>Remplacer les titres ?</translation>
    </message>
    <message id="PasteTagsInOrder">
        <source>Paste the tags of %1 songs, in order?</source>
        <translation>Coller les étiquettes de %1 morceaux, dans l’ordre ?</translation>
    </message>
    <message id="PasteTagsProceed">
        <source>Paste</source>
        <translation>Coller</translation>
    </message>
    <message id="PasteTagsQuestion">
        <source>Paste the copied tag?</source>
        <translation>Coller l’étiquette copiée ?</translation>
    </message>
    <message id="PictureArtist">
        <source>Artist</source>
        <translation>Artiste</translation>
    </message>
    <message id="PictureBackCover">
        <source>Back cover</source>
        <translation>Verso de la pochette</translation>
    </message>
    <message id="PictureBand">
        <source>Band</source>
        <translation>Groupe</translation>
    </message>
    <message id="PictureBandLogo">
        <source>Logo of the band</source>
        <translation>Logo du groupe</translation>
    </message>
    <message id="PictureComposer">
        <source>Composer</source>
        <translation>Compositeur</translation>
    </message>
    <message id="PictureConductor">
        <source>Conductor</source>
        <translation>Chef d’orchestre</translation>
    </message>
    <message id="PictureFileIcon">
        <source>File icon</source>
        <translation>Icône de fichier</translation>
    </message>
    <message id="PictureFish">
        <source>A bright coloured fish</source>
        <translation>Un poisson aux couleurs vives</translation>
    </message>
    <message id="PictureFrontCover">
        <source>Front cover</source>
        <translation>Recto de la pochette</translation>
    </message>
    <message id="PictureIllustration">
        <source>Illustration</source>
        <translation>Illustration</translation>
    </message>
    <message id="PictureLeadArtist">
        <source>Lead artist</source>
        <translation>Artiste principal</translation>
    </message>
    <message id="PictureLeaflet">
        <source>Leaflet page</source>
        <translation>Page du livret</translation>
    </message>
    <message id="PictureLocation">
        <source>Recording location</source>
        <translation>Lieu d’enregistrement</translation>
    </message>
    <message id="PictureLyricist">
        <source>Lyricist</source>
        <translation>Parolier</translation>
    </message>
    <message id="PictureMedium">
        <source>Medium</source>
        <translation>Support</translation>
    </message>
    <message id="PictureOther">
        <source>Other picture</source>
        <translation>Autre image</translation>
    </message>
    <message id="PictureOtherIcon">
        <source>Other file icon</source>
        <translation>Autre icône de fichier</translation>
    </message>
    <message id="PicturePerformance">
        <source>During performance</source>
        <translation>Pendant la représentation</translation>
    </message>
    <message id="PicturePublisherLogo">
        <source>Logo of the publisher</source>
        <translation>Logo de l’éditeur</translation>
    </message>
    <message id="PictureRecording">
        <source>During recording</source>
        <translation>Pendant l’enregistrement</translation>
    </message>
    <message id="PictureScreen">
        <source>Screen capture</source>
        <translation>Capture d’écran</translation>
    </message>
    <message id="PlaylistNotFoundMessage">
        <source>There is no playlist “%1” that can be read.</source>
        <translation>Il n’y a pas de liste de lecture « %1 » lisible.</translation>
    </message>
    <message id="PlaylistNotFoundProceed">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="PlaylistNotFoundTitle">
        <source>The playlist was not found</source>
        <translation>La liste de lecture est introuvable</translation>
    </message>
    <message id="PreferencesAcoustIDHint">
        <source>With a key of yours for the AcoustID service, songs without names can be known by their sound.</source>
        <translation>Avec une clé personnelle pour le service AcoustID, les morceaux sans nom peuvent être reconnus à leur son.</translation>
    </message>
    <message id="PreferencesAcoustIDKey">
        <source>AcoustID &amp;key:</source>
        <translation>&amp;Clé AcoustID :</translation>
    </message>
    <message id="PreferencesArtwork">
        <source>Artwork</source>
        <translation>Pochettes</translation>
    </message>
    <message id="PreferencesCache">
        <source>Page &amp;cache (MB):</source>
        <translation>Cac&amp;he de pages (Mo) :</translation>
    </message>
    <message id="PreferencesCacheHint">
        <source>Pages are kept for a while, so that the songs of an album are looked up once.</source>
        <translation>Les pages sont conservées un moment, pour que les morceaux d’un album ne soient cherchés qu’une fois.</translation>
    </message>
    <message id="PreferencesDialect">
        <source>How ID3 tags are read and written</source>
        <translation>Lecture et écriture des étiquettes ID3</translation>
    </message>
    <message id="PreferencesDialectClassic">
        <source>As earlier versions did</source>
        <translation>Comme les versions précédentes</translation>
    </message>
    <message id="PreferencesDialectHint">
        <source>The standard way keeps everything that a file holds and is read by every player.</source>
        <translation>Le mode standard conserve tout ce que contient un fichier et est lu par tous les lecteurs.</translation>
    </message>
    <message id="PreferencesDialectStandard">
        <source>As the standard says</source>
        <translation>Selon la norme</translation>
    </message>
    <message id="PreferencesFiles">
        <source>Files</source>
        <translation>Fichiers</translation>
    </message>
    <message id="PreferencesIgnoreNonSquare">
        <source>Ignore artwork that is far from s&amp;quare</source>
        <translation>Ignorer les pochettes loin d’être &amp;carrées</translation>
    </message>
    <message id="PreferencesKeepRefreshed">
        <source>&amp;Let the music library read songs again once they were written</source>
        <translation>&amp;Faire relire à la bibliothèque les morceaux écrits</translation>
    </message>
    <message id="PreferencesMaxSize">
        <source>&amp;Largest size kept:</source>
        <translation>Taille &amp;maximale conservée :</translation>
    </message>
    <message id="PreferencesMinSize">
        <source>&amp;Smallest width accepted:</source>
        <translation>&amp;Largeur minimale acceptée :</translation>
    </message>
    <message id="PreferencesOverwriteSize">
        <source>&amp;Replace artwork narrower than:</source>
        <translation>&amp;Remplacer les pochettes de moins de :</translation>
    </message>
    <message id="PreferencesSources">
        <source>Sources</source>
        <translation>Sources</translation>
    </message>
    <message id="PreferencesSyncedLyrics">
        <source>&amp;Prefer lyrics with the times of their lines</source>
        <translation>Préférer les paroles s&amp;ynchronisées</translation>
    </message>
    <message id="PreferencesTitle">
        <source>Preferences</source>
        <translation>Préférences</translation>
    </message>
    <message id="PreferencesUseDeezer">
        <source>Also ask &amp;Deezer</source>
        <translation>Interroger aussi &amp;Deezer</translation>
    </message>
    <message id="PreferencesUseDefaults">
        <source>Use Defaults</source>
        <translation>Valeurs par défaut</translation>
    </message>
    <message id="PreferencesV24Accurate">
        <source>As the standard says (sync-safe)</source>
        <translation>Selon la norme (sync-safe)</translation>
    </message>
    <message id="PreferencesV24Plain">
        <source>As older players expect (plain)</source>
        <translation>Comme l’attendent d’anciens lecteurs (simple)</translation>
    </message>
    <message id="PreferencesV24Sizes">
        <source>Sizes in ID3v2.4 tags</source>
        <translation>Tailles dans les étiquettes ID3v2.4</translation>
    </message>
    <message id="PreparingToGather">
        <source>Preparing to gather…</source>
        <translation>Préparation de la collecte…</translation>
    </message>
    <message id="ProblemExtendedHeader">
        <source>The extended header is larger than the tag.</source>
        <translation>L’en-tête étendu est plus grand que l’étiquette.</translation>
    </message>
    <message id="ProblemFrameDangerous">
        <source>The frame %1 stands in a form that other programs stumble over.</source>
        <translation>La trame %1 a une forme sur laquelle d’autres programmes butent.</translation>
    </message>
    <message id="ProblemFrameOverrun">
        <source>The frame %1 is larger than what is left of the tag.</source>
        <translation>La trame %1 est plus grande que le reste de l’étiquette.</translation>
    </message>
    <message id="ProblemFramePacked">
        <source>The frame %1 is compressed and cannot be unpacked.</source>
        <translation>La trame %1 est compressée et ne peut pas être décompressée.</translation>
    </message>
    <message id="ProblemFrameSize">
        <source>The frame %1 has a size that cannot be.</source>
        <translation>La trame %1 a une taille impossible.</translation>
    </message>
    <message id="ProblemPicture">
        <source>A picture cannot be read.</source>
        <translation>Une image ne peut pas être lue.</translation>
    </message>
    <message id="ProgressOfRun">
        <source>Progress of the whole run</source>
        <translation>Progression de l’ensemble</translation>
    </message>
    <message id="ProgressOfSong">
        <source>Progress of this song</source>
        <translation>Progression de ce morceau</translation>
    </message>
    <message id="ReasonFileBusy">
        <source>Another write to the file is under way</source>
        <translation>Une autre écriture du fichier est en cours</translation>
    </message>
    <message id="ReasonFileChanged">
        <source>Another program changed the file meanwhile</source>
        <translation>Un autre programme a modifié le fichier entre-temps</translation>
    </message>
    <message id="ReasonFileReplaced">
        <source>Another program moved or replaced the file meanwhile</source>
        <translation>Un autre programme a déplacé ou remplacé le fichier entre-temps</translation>
    </message>
    <message id="ReasonFileShortened">
        <source>The file became shorter meanwhile</source>
        <translation>Le fichier a été raccourci entre-temps</translation>
    </message>
    <message id="ReasonNoJournal">
        <source>The bytes to be overwritten cannot be kept in %1: %2</source>
        <translation>Les octets à remplacer ne peuvent pas être conservés dans %1 : %2</translation>
    </message>
    <message id="ReasonNotRegular">
        <source>This is no regular file</source>
        <translation>Ce n’est pas un fichier ordinaire</translation>
    </message>
    <message id="ReasonNotRolledBack">
        <source>%1; what the file held is kept, and is put back at the next start</source>
        <translation>%1 ; l’ancien contenu du fichier est conservé et sera rétabli au prochain démarrage</translation>
    </message>
    <message id="RegenerateAll">
        <source>Regenerate &amp;All</source>
        <translation>&amp;Tout régénérer</translation>
    </message>
    <message id="RegenerateBegun">
        <source>Waiting</source>
        <translation>En attente</translation>
    </message>
    <message id="RegenerateDamagedPart">
        <source>What is damaged</source>
        <translation>Ce qui est endommagé</translation>
    </message>
    <message id="RegenerateDone">
        <source>Regenerated</source>
        <translation>Régénéré</translation>
    </message>
    <message id="RegenerateDoneForGood">
        <source>Regenerated, cannot be undone</source>
        <translation>Régénéré, ne peut pas être annulé</translation>
    </message>
    <message id="RegenerateDropped">
        <source>Dropped</source>
        <translation>Abandonné</translation>
    </message>
    <message id="RegenerateExplanation">
        <source>Regenerating writes a tag anew with what is sound and recognised in it, and drops the rest. As long as the program runs, it can be undone.</source>
        <translation>Une étiquette est réécrite avec ce qui y est intact et reconnu ; le reste est abandonné. Tant que le programme est ouvert, cela peut être annulé.</translation>
    </message>
    <message id="RegenerateKept">
        <source>Kept</source>
        <translation>Conservé</translation>
    </message>
    <message id="RegenerateNothing">
        <source>Nothing</source>
        <translation>Rien</translation>
    </message>
    <message id="RegeneratePictures">
        <source>Artwork (%1)</source>
        <translation>Pochette (%1)</translation>
    </message>
    <message id="RegenerateProblem">
        <source>Problem</source>
        <translation>Problème</translation>
    </message>
    <message id="RegenerateReading">
        <source>Reading…</source>
        <translation>Lecture…</translation>
    </message>
    <message id="RegenerateResult">
        <source>Result</source>
        <translation>Résultat</translation>
    </message>
    <message id="RegenerateSelected">
        <source>&amp;Regenerate Selected</source>
        <translation>&amp;Régénérer la sélection</translation>
    </message>
    <message id="RegenerateSong">
        <source>Song</source>
        <translation>Morceau</translation>
    </message>
    <message id="RegenerateSound">
        <source>Nothing is damaged.</source>
        <translation>Rien n’est endommagé.</translation>
    </message>
    <message id="RegenerateStop">
        <source>&amp;Stop</source>
        <translation>Arrê&amp;ter</translation>
    </message>
    <message id="RegenerateTitle">
        <source>Songs with damaged tags</source>
        <translation>Morceaux aux étiquettes endommagées</translation>
    </message>
    <message id="ReviewAlbumChosen">
        <source>chosen</source>
        <translation>choisi</translation>
    </message>
    <message id="ReviewAlbumChosenBefore">
        <source>was chosen</source>
        <translation>était choisi</translation>
    </message>
    <message id="ReviewAlbumForArtwork">
        <source>its artwork was taken</source>
        <translation>sa pochette a été prise</translation>
    </message>
    <message id="ReviewAlbumTaken">
        <source>taken by you</source>
        <translation>pris par vous</translation>
    </message>
    <message id="ReviewCandidates">
        <source>Albums that were found</source>
        <translation>Albums trouvés</translation>
    </message>
    <message id="ReviewClear">
        <source>&amp;Clear Decided</source>
        <translation>Ret&amp;irer les traités</translation>
    </message>
    <message id="ReviewColumnChanges">
        <source>Changes</source>
        <translation>Modifications</translation>
    </message>
    <message id="ReviewColumnFate">
        <source>Verdict</source>
        <translation>Verdict</translation>
    </message>
    <message id="ReviewColumnField">
        <source>Field</source>
        <translation>Champ</translation>
    </message>
    <message id="ReviewColumnNew">
        <source>Found</source>
        <translation>Trouvé</translation>
    </message>
    <message id="ReviewColumnOld">
        <source>Before</source>
        <translation>Avant</translation>
    </message>
    <message id="ReviewColumnReason">
        <source>Why</source>
        <translation>Raison</translation>
    </message>
    <message id="ReviewColumnSong">
        <source>Song</source>
        <translation>Morceau</translation>
    </message>
    <message id="ReviewColumnSource">
        <source>Source</source>
        <translation>Source</translation>
    </message>
    <message id="ReviewColumnState">
        <source>State</source>
        <translation>État</translation>
    </message>
    <message id="ReviewColumnTracks">
        <source>Tracks</source>
        <translation>Pistes</translation>
    </message>
    <message id="ReviewFields">
        <source>Fields of the song</source>
        <translation>Champs du morceau</translation>
    </message>
    <message id="ReviewMorePictures">
        <source>%1, and %2 more</source>
        <translation>%1 et %2 autres</translation>
    </message>
    <message id="ReviewNoName">
        <source>without a name</source>
        <translation>sans nom</translation>
    </message>
    <message id="ReviewNoValue">
        <source>–</source>
        <translation>–</translation>
    </message>
    <message id="ReviewNothingAccepted">
        <source>Nothing of what was found</source>
        <translation>Rien de ce qui a été trouvé</translation>
    </message>
    <message id="ReviewNothingToWrite">
        <source>Nothing is to be written.</source>
        <translation>Il n’y a rien à écrire.</translation>
    </message>
    <message id="ReviewPictureSize">
        <source>%1 × %2 pixels</source>
        <translation>%1 × %2 pixels</translation>
    </message>
    <message id="ReviewPlaceholder">
        <source>Songs for which something was found are listed here, with their old and new values.</source>
        <translation>Les morceaux pour lesquels quelque chose a été trouvé figurent ici, avec leurs anciennes et nouvelles valeurs.</translation>
    </message>
    <message id="ReviewSkip">
        <source>S&amp;kip</source>
        <translation>&amp;Passer</translation>
    </message>
    <message id="ReviewSongName">
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message id="ReviewStateApplying">
        <source>Applying the album…</source>
        <translation>Application de l’album…</translation>
    </message>
    <message id="ReviewStateSkipped">
        <source>Skipped</source>
        <translation>Passé</translation>
    </message>
    <message id="ReviewStateToBeWritten">
        <source>To be written</source>
        <translation>À écrire</translation>
    </message>
    <message id="ReviewStateWriting">
        <source>Writing…</source>
        <translation>Écriture…</translation>
    </message>
    <message id="ReviewStateWritten">
        <source>Written</source>
        <translation>Écrit</translation>
    </message>
    <message id="ReviewTakeAlbum">
        <source>&amp;Take This Album</source>
        <translation>P&amp;rendre cet album</translation>
    </message>
    <message id="ReviewTitle">
        <source>Review</source>
        <translation>Vérification</translation>
    </message>
    <message id="ReviewToWrite">
        <source>Songs to be written: %1</source>
        <translation>Morceaux à écrire : %1</translation>
    </message>
    <message id="ReviewWrite">
        <source>&amp;Write</source>
        <translation>É&amp;crire</translation>
    </message>
    <message id="ReviewWriteAll">
        <source>Write &amp;All</source>
        <translation>&amp;Tout écrire</translation>
    </message>
    <message id="Scanning">
        <source>Looking for songs…</source>
        <translation>Recherche de morceaux…</translation>
    </message>
    <message id="ScanningDirectory">
        <source>Looking for songs in the folder…</source>
        <translation>Recherche de morceaux dans le dossier…</translation>
    </message>
    <message id="ScanningiTunesLibrary">
        <source>Reading the music library…</source>
        <translation>Lecture de la bibliothèque musicale…</translation>
    </message>
    <message id="SearchPlaceholder">
        <source>Search songs</source>
        <translation>Rechercher</translation>
    </message>
    <message id="SearchSubset">
        <source>%1 of %2</source>
        <translation>%1 sur %2</translation>
    </message>
    <message id="SongAndArtist">
        <source>%1 – %2</source>
        <translation>%1 – %2</translation>
    </message>
    <message id="SongTableName">
        <source>Songs</source>
        <translation>Morceaux</translation>
    </message>
    <message id="SongTitle">
        <source>Title</source>
        <translation>Titre</translation>
    </message>
    <message id="SongsSelected">
        <source>%1 songs selected</source>
        <translation>%1 morceaux sélectionnés</translation>
    </message>
    <message id="SortAscending">
        <source>&amp;Ascending</source>
        <translation>&amp;Croissant</translation>
    </message>
    <message id="SortDescending">
        <source>&amp;Descending</source>
        <translation>&amp;Décroissant</translation>
    </message>
    <message id="SourceLibrary">
        <source>Other songs of the album</source>
        <translation>Autres morceaux de l’album</translation>
    </message>
    <message id="SourceMenuFolder">
        <source>Folder…</source>
        <translation>Dossier…</translation>
    </message>
    <message id="SourceMenuTitle">
        <source>Where the songs come from</source>
        <translation>D’où viennent les morceaux</translation>
    </message>
    <message id="StandardiseGenreExplanation">
        <source>Genres are given the names of the genre table. Choose which are changed; a click on a new genre chooses another one.</source>
        <translation>Les genres reçoivent les noms de la table des genres. Choisissez lesquels sont modifiés ; cliquez sur un nouveau genre pour en choisir un autre.</translation>
    </message>
    <message id="StandardiseGenreNone">
        <source>None of the selected songs has a genre.</source>
        <translation>Aucun des morceaux sélectionnés n’a de genre.</translation>
    </message>
    <message id="StandardiseGenreProceed">
        <source>Change Genres</source>
        <translation>Modifier les genres</translation>
    </message>
    <message id="StandardiseGenreTitle">
        <source>Standardise genres</source>
        <translation>Normaliser les genres</translation>
    </message>
    <message id="TagsOnClipboardTitle">
        <source>Copied tags</source>
        <translation>Étiquettes copiées</translation>
    </message>
    <message id="ToolBarTitle">
        <source>Toolbar</source>
        <translation>Barre d’outils</translation>
    </message>
    <message id="ToolTipAllowSubstrings">
        <source>Also takes albums and tracks whose name is a part of the song’s, or the other way round.</source>
        <translation>Accepte aussi les albums et les pistes dont le nom est une partie de celui du morceau, ou l’inverse.</translation>
    </message>
    <message id="ToolTipGather">
        <source>Fills this in where a song lacks it.</source>
        <translation>Complète ceci là où un morceau en manque.</translation>
    </message>
    <message id="ToolTipGenreContained">
        <source>This name stands within the longer one; the rest of it is lost.</source>
        <translation>Ce nom figure dans le plus long ; le reste de celui-ci est perdu.</translation>
    </message>
    <message id="ToolTipGenreNear">
        <source>This name differs by one letter.</source>
        <translation>Ce nom diffère d’une lettre.</translation>
    </message>
    <message id="ToolTipIdentify">
        <source>For songs without artist or title. Sends a fingerprint of the sound to the AcoustID service, nothing else of the song.</source>
        <translation>Pour les morceaux sans artiste ou sans titre. Envoie une empreinte sonore au service AcoustID, et rien d’autre du morceau.</translation>
    </message>
    <message id="ToolTipIdentifyNoKey">
        <source>Needs a key of yours for the AcoustID service, which you can enter in the preferences.</source>
        <translation>Nécessite une clé personnelle pour le service AcoustID, à saisir dans les préférences.</translation>
    </message>
    <message id="ToolTipLyricsCleanUp">
        <source>Replaces what sources often get wrong, such as odd quotation marks</source>
        <translation>Remplace ce que les sources écrivent souvent mal, comme des guillemets inhabituels</translation>
    </message>
    <message id="ToolTipLyricsFilter">
        <source>Typed and pasted lyrics are cleaned up before they are written</source>
        <translation>Les paroles saisies et collées sont nettoyées avant d’être écrites</translation>
    </message>
    <message id="ToolTipOverwrite">
        <source>Also where a song has a value already.</source>
        <translation>Même là où un morceau a déjà une valeur.</translation>
    </message>
    <message id="ToolTipParallelSearch">
        <source>Faster. Otherwise sources are asked one after the other, and only for what is still missing.</source>
        <translation>Plus rapide. Sinon, les sources sont interrogées l’une après l’autre, et seulement sur ce qui manque encore.</translation>
    </message>
    <message id="ToolTipPasteNothing">
        <source>The copied tags hold nothing here; pasting it empties the field.</source>
        <translation>Les étiquettes copiées ne contiennent rien ici ; les coller vide le champ.</translation>
    </message>
    <message id="ToolTipReview">
        <source>Nothing is written before you have seen it. The songs wait in the review.</source>
        <translation>Rien n’est écrit avant que vous ne l’ayez vu. Les morceaux attendent dans la vérification.</translation>
    </message>
    <message id="ToolTipReviewClear">
        <source>Removes the songs from this list about which nothing is to be decided any more.</source>
        <translation>Retire de cette liste les morceaux pour lesquels il n’y a plus rien à décider.</translation>
    </message>
    <message id="ToolTipReviewSkip">
        <source>Leaves the selected songs as they are.</source>
        <translation>Laisse les morceaux sélectionnés tels quels.</translation>
    </message>
    <message id="ToolTipReviewWrite">
        <source>Writes what is checked into the selected songs. In songs that are written already, what is no longer checked gets its old value back.</source>
        <translation>Écrit ce qui est coché dans les morceaux sélectionnés. Dans les morceaux déjà écrits, ce qui n’est plus coché retrouve son ancienne valeur.</translation>
    </message>
    <message id="ToolTipReviewWriteAll">
        <source>Writes what is checked into all songs that wait.</source>
        <translation>Écrit ce qui est coché dans tous les morceaux en attente.</translation>
    </message>
    <message id="ToolTipTakeAlbum">
        <source>Fills the song in from this album instead. Nothing is written yet.</source>
        <translation>Complète plutôt le morceau à partir de cet album. Rien n’est encore écrit.</translation>
    </message>
    <message id="Track">
        <source>Track</source>
        <translation>Piste</translation>
    </message>
    <message id="UnseenBehindOthers">
        <source>others fit better</source>
        <translation>d’autres conviennent mieux</translation>
    </message>
    <message id="UnseenLaterWork">
        <source>another album came out earlier</source>
        <translation>un autre album est paru avant</translation>
    </message>
    <message id="UnseenLittleAlike">
        <source>the source finds it little alike</source>
        <translation>la source le juge peu ressemblant</translation>
    </message>
    <message id="UnseenOtherArtist">
        <source>another artist</source>
        <translation>un autre artiste</translation>
    </message>
    <message id="UnseenOtherEdition">
        <source>another edition of the same album</source>
        <translation>une autre édition du même album</translation>
    </message>
    <message id="UnseenOtherKind">
        <source>a less likely kind, such as a single or a collection</source>
        <translation>un genre moins probable, comme un single ou une compilation</translation>
    </message>
    <message id="UnseenOtherLength">
        <source>the song has another length there</source>
        <translation>le morceau y a une autre durée</translation>
    </message>
    <message id="UnseenOtherName">
        <source>another name than the song’s album</source>
        <translation>un autre nom que celui de l’album</translation>
    </message>
    <message id="UnseenOtherTitle">
        <source>another title than the song’s</source>
        <translation>un autre titre que celui du morceau</translation>
    </message>
    <message id="UnseenUnofficial">
        <source>a bootleg or otherwise not official</source>
        <translation>un bootleg ou une édition non officielle</translation>
    </message>
    <message id="WelcomeBegin">
        <source>Begin with a folder of songs, or watch a demo on sample songs first.</source>
        <translation>Commencez par un dossier de morceaux, ou regardez d’abord une démonstration sur des exemples.</translation>
    </message>
    <message id="WelcomeDemo">
        <source>Show the Demo</source>
        <translation>Voir la démonstration</translation>
    </message>
    <message id="WelcomeFolder">
        <source>Choose a Folder…</source>
        <translation>Choisir un dossier…</translation>
    </message>
    <message id="WelcomeLater">
        <source>Not Now</source>
        <translation>Plus tard</translation>
    </message>
    <message id="WelcomeSafety">
        <source>Your files stay where they are and keep their names. Only what you ask for is written into them, and a song is never left half written.</source>
        <translation>Vos fichiers restent où ils sont et gardent leur nom. Seul ce que vous demandez y est écrit, et aucun morceau ne reste à moitié écrit.</translation>
    </message>
    <message id="WelcomeTitle">
        <source>Welcome to Tagwright</source>
        <translation>Bienvenue dans Tagwright</translation>
    </message>
    <message id="WelcomeWhat">
        <source>Tagwright looks at the tags of your songs, finds on the web what they lack (album, title, genre, year, track number, artwork and lyrics) and writes it into the files.</source>
        <translation>Tagwright examine les étiquettes de vos morceaux, trouve sur le web ce qui leur manque (album, titre, genre, année, numéro de piste, pochette et paroles) et l’inscrit dans les fichiers.</translation>
    </message>
    <message id="WindowTitleDirectory">
        <source>%1 – Tagwright</source>
        <translation>%1 – Tagwright</translation>
    </message>
    <message id="WindowTitleLibrary">
        <source>Music library – Tagwright</source>
        <translation>Bibliothèque musicale – Tagwright</translation>
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
        <translation>Année</translation>
    </message>
    <message id="iTunesIsBusy">
        <source>Playlists cannot be asked for now</source>
        <translation>Les listes de lecture ne sont pas accessibles pour l’instant</translation>
    </message>
    <message id="iTunesLibrary">
        <source>Whole library</source>
        <translation>Toute la bibliothèque</translation>
    </message>
    <message id="iTunesNotRunning">
        <source>The music player is not running</source>
        <translation>Le lecteur de musique n’est pas lancé</translation>
    </message>
    <message id="newVersionCancel">
        <source>Not Now</source>
        <translation>Plus tard</translation>
    </message>
    <message id="newVersionDownload">
        <source>Download</source>
        <translation>Télécharger</translation>
    </message>
    <message id="newVersionMessage">
        <source>Tagwright &lt;version&gt; has been released.</source>
        <translation>Tagwright &lt;version&gt; est sorti.</translation>
    </message>
    <message id="newVersionTitle">
        <source>A newer version is available</source>
        <translation>Une version plus récente est disponible</translation>
    </message>
</context>
</TS>
