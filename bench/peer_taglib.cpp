// What TagLib does with the same job: "show FOLDER" prints the JSON Lines that "tagwright show
// --json" prints, with the same hashes; "set FOLDER TEXT" writes an album name into every song.
// Songs called .m4a are MP4, all others MP3.
#define OPENSSL_SUPPRESS_DEPRECATED
#include <openssl/sha.h>
#include <taglib/attachedpictureframe.h>
#include <taglib/id3v1tag.h>
#include <taglib/id3v2tag.h>
#include <taglib/mp4file.h>
#include <taglib/mpegfile.h>
#include <taglib/textidentificationframe.h>
#include <taglib/unsynchronizedlyricsframe.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

namespace {

using TagLib::ByteVector;
namespace MP4 = TagLib::MP4;
namespace MPEG = TagLib::MPEG;

std::string quoted(const std::string &text)
{
    std::string json = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            json += '\\';
        if (static_cast<unsigned char>(c) >= 0x20)
            json += c;
        else
            json += c == '\n' ? "\\n" : c == '\r' ? "\\r" : c == '\t' ? "\\t" : "\\u0000";
    }
    return json + '"';
}

std::string textOrNull(const TagLib::String &text)
{
    return text.isEmpty() ? "null" : quoted(text.to8Bit(true));
}

TagLib::String frameText(const TagLib::ID3v2::Tag *tag, const char *id)
{
    const auto &frames = tag->frameListMap()[id];
    return frames.isEmpty() ? TagLib::String() : frames.front()->toString();
}

std::string sha1(const ByteVector &data)
{
    unsigned char digest[SHA_DIGEST_LENGTH];
    SHA_CTX context;
    SHA1_Init(&context);
    SHA1_Update(&context, data.data(), data.size());
    SHA1_Final(digest, &context);
    std::string hex;
    for (const unsigned char byte : digest) {
        char two[3];
        std::snprintf(two, sizeof two, "%02x", byte);
        hex += two;
    }
    return hex;
}

std::string image(const ByteVector &data, const std::string &description, const std::string &mime,
                  const std::string &suffix, int type, int textEncoding)
{
    return "{\"bytes\":" + std::to_string(data.size()) + ",\"description\":" + description
        + ",\"mime\":" + mime + ",\"pictureType\":" + std::to_string(type)
        + ",\"sha1\":" + quoted(sha1(data)) + ",\"suffix\":" + quoted(suffix)
        + ",\"textEncoding\":" + std::to_string(textEncoding) + "}";
}

std::string images(const TagLib::ID3v2::Tag *tag)
{
    std::string json = "[";
    for (const auto *frame : tag->frameListMap()["APIC"]) {
        const auto *picture = dynamic_cast<const TagLib::ID3v2::AttachedPictureFrame *>(frame);
        if (!picture)
            continue;
        json += json.size() > 1 ? "," : "";
        json +=
            image(picture->picture(), textOrNull(picture->description()),
                  textOrNull(picture->mimeType()), "JPG", picture->type(), picture->textEncoding());
    }
    return json + "]";
}

std::string images(const MP4::Tag *tag)
{
    std::string json = "[";
    for (const auto &cover : tag->item("covr").toCoverArtList()) {
        const bool isPNG = cover.format() == MP4::CoverArt::PNG;
        json += json.size() > 1 ? "," : "";
        json += image(cover.data(), "null", isPNG ? "\"image/png\"" : "\"image/jpeg\"",
                      isPNG ? "PNG" : "JPG", 0, 0);
    }
    return json + "]";
}

TagLib::String itemText(const MP4::Tag *tag, const char *name)
{
    return tag->item(name).toStringList().toString(", ");
}

std::string summaryOfMP4(const std::string &path)
{
    MP4::File file(path.c_str(), false);
    const MP4::Tag *tag = file.tag();
    const auto [track, tracks] = tag->item("trkn").toIntPair();
    const int tempo = tag->item("tmpo").toInt();
    return "{\"album\":" + textOrNull(tag->album()) + ",\"artist\":" + textOrNull(tag->artist())
        + ",\"bpm\":" + (tempo > 0 ? quoted(std::to_string(tempo)) : "null")
        + ",\"compilation\":" + (tag->item("cpil").toBool() ? "true" : "false")
        + ",\"genres\":" + textOrNull(tag->genre()) + ",\"images\":" + images(tag)
        + ",\"lyrics\":" + textOrNull(itemText(tag, "\251lyr"))
        + ",\"numberOfTracks\":" + std::to_string(tracks) + ",\"path\":" + quoted(path)
        + ",\"problem\":false,\"readVersion\":\"AAC\",\"title\":" + textOrNull(tag->title())
        + ",\"track\":" + quoted(std::to_string(track) + "/" + std::to_string(tracks))
        + ",\"trackNumber\":" + std::to_string(track) + ",\"type\":\"aac\",\"writeVersion\":\"AAC\""
        + ",\"year\":" + textOrNull(itemText(tag, "\251day").substr(0, 4)) + "}";
}

std::string summaryOfMP3(const std::string &path)
{
    MPEG::File file(path.c_str(), false);
    const TagLib::ID3v2::Tag *v2 = file.ID3v2Tag(true);
    const TagLib::Tag *tag = file.tag();
    const std::string version =
        file.hasID3v2Tag() ? "2." + std::to_string(v2->header()->majorVersion()) + ".0" : "1.1";
    const TagLib::String track = frameText(v2, "TRCK");
    const auto lyrics = frameText(v2, "USLT");
    const size_t slash = track.to8Bit().find('/');
    return "{\"album\":" + textOrNull(tag->album()) + ",\"artist\":" + textOrNull(tag->artist())
        + ",\"bpm\":" + textOrNull(frameText(v2, "TBPM"))
        + ",\"compilation\":" + (frameText(v2, "TCMP") == "1" ? "true" : "false")
        + ",\"genres\":" + textOrNull(tag->genre()) + ",\"images\":" + images(v2)
        + ",\"lyrics\":" + textOrNull(lyrics) + ",\"numberOfTracks\":"
        + (slash == std::string::npos ? "0" : track.to8Bit().substr(slash + 1))
        + ",\"path\":" + quoted(path) + ",\"problem\":false,\"readVersion\":" + quoted(version)
        + ",\"title\":" + textOrNull(tag->title()) + ",\"track\":" + textOrNull(track)
        + ",\"trackNumber\":" + std::to_string(tag->track()) + ",\"type\":\"mp3\""
        + ",\"writeVersion\":" + quoted(version) + ",\"year\":" + textOrNull(frameText(v2, "TDRC"))
        + "}";
}

std::vector<std::string> songsIn(const char *folder)
{
    std::vector<std::string> paths;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(folder))
        if (!entry.is_directory())
            paths.push_back(entry.path().native());
    std::sort(paths.begin(), paths.end());
    return paths;
}

bool isMP4(const std::string &path)
{
    return path.ends_with(".m4a");
}

std::string summary(const std::string &path)
{
    return isMP4(path) ? summaryOfMP4(path) : summaryOfMP3(path);
}

void setAlbum(const std::string &path, const TagLib::String &album)
{
    if (isMP4(path)) {
        MP4::File file(path.c_str(), false);
        file.tag()->setAlbum(album);
        file.save();
    } else {
        MPEG::File file(path.c_str(), false);
        file.ID3v2Tag(true)->setAlbum(album);
        file.save();
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (argc < 3)
        return 2;
    const std::string command = argv[1];
    for (const std::string &path : songsIn(argv[2])) {
        if (command == "show") {
            std::puts(summary(path).c_str());
        } else if (argc > 3) {
            setAlbum(path, TagLib::String(argv[3], TagLib::String::UTF8));
        }
    }
    return 0;
}
