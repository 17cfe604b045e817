#pragma once

/// Where our two ways of reading and writing ID3 part. Each member is one difference; code asks
/// the member and never which of the two dialects it belongs to.
///
/// The classic dialect keeps odd behaviours that earlier versions had, for the files and habits
/// that rely on them. The standard dialect does what the ID3 documents ask.
struct ID3Dialect {
    bool undoesUnsynchronisation; ///< of v2.2 and v2.3 tags as a whole, of v2.4 frame by frame
    bool skipsExtendedHeaderByItsVersion; ///< else: frames begin at its size + 14
    bool inflatesRecognisedFrames; ///< compressed frames that we know are read through zlib
    bool readsLastUTF16Unit; ///< else: the last unit before the tag's end is lost
    bool skipsZerosByTextUnit; ///< between descriptor and text; else: byte by byte
    bool picksSizesByFrameChain; ///< v2.4: the reading whose chain reaches the end wins
    bool readsPictureTypeInPlace; ///< else: one byte early when "image/" is missing
    bool readsDescriptionOfPIC; ///< else: its terminator becomes picture data
    bool guessesPicturesBySignature; ///< else: by the two tests of `autodetectMIMEFormat`
    bool keepsPictureDetails; ///< type, description and place in the tag are written as read
    bool writesByteOrderMark; ///< Unicode in v2.2 and v2.3 as encoding 1 with the mark
    bool removesFooter; ///< of v2.4, with its tag; else: it stays in front of the audio
    bool dropsTagWithoutFrames; ///< else: a header of size 0 is written
    bool writesID3v1TrackAlways; ///< else: only when there is a year
    bool leavesOutUnknownContent; ///< else: the ID stands without size or body
    bool endsTextOf22AtZero; ///< UTF-16 of v2.2; else: the terminator becomes part of the text
    bool losesNothing; ///< what could not be understood is kept raw; else: it is dropped

    bool operator==(const ID3Dialect &) const = default;

    static constexpr ID3Dialect classic() { return {}; }
    static constexpr ID3Dialect standard()
    {
        return {true, true, true, true, true, true, true, true, true,
                true, true, true, true, true, true, true, true};
    }
};
