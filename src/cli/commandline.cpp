#include "cli/commandline.h"

#include <CLI/CLI.hpp>

#include <QFile>

#include <map>
#include <sstream>

namespace {

/// The words of --want and --overwrite.
const std::map<std::string, Asset> assetWords{
    {"title", AssetSongTitle}, {"album", AssetAlbumName}, {"year", AssetYear},
    {"track", AssetTrack},     {"genre", AssetGenre},     {"lyrics", AssetLyrics},
    {"artwork", AssetArtwork},
};

constexpr std::array fieldNames{
    "title",  "artist", "album", "year",        "track",
    "genres", "lyrics", "bpm",   "compilation", "artwork",
};

Assets allAssets()
{
    Assets all;
    for (const auto &[word, asset] : assetWords)
        all |= asset;
    return all;
}

enum class MayBeNone { No, Yes };

Assets assetsOf(const std::string &list, MayBeNone mayBeNone)
{
    if (list == "all")
        return allAssets();
    if (list == "none" && mayBeNone == MayBeNone::Yes)
        return {};
    Assets assets;
    std::istringstream words(list);
    for (std::string word; std::getline(words, word, ',');) {
        const auto found = assetWords.find(word);
        if (found == assetWords.end())
            throw CLI::ValidationError("\"" + word + "\" is no kind of information");
        assets |= found->second;
    }
    if (!assets)
        throw CLI::ValidationError("the list of kinds of information is empty");
    return assets;
}

/// An argument is an assignment when it begins with the name of a field and "=".
std::optional<FieldAssignment> assignmentIn(const std::string &argument)
{
    for (const std::string name : fieldNames)
        if (argument.starts_with(name + '='))
            return FieldAssignment{QString::fromStdString(name),
                                   QString::fromStdString(argument.substr(name.size() + 1))};
    return std::nullopt;
}

/// The parser over one Arguments value that its options write into.
class Parser {
public:
    /// `command`: the first word of the command line.
    explicit Parser(std::string_view command);
    ParsedCommandLine parse(int argc, const char *const *argv);

private:
    CLI::App *addCommand(const char *name, const char *summary, Command command);
    CLI::App *addSongCommand(const char *name, const char *summary, Command command);
    void addShow();
    void addSet();
    void addRegenerate();
    void addGather();
    void addGatherSources(CLI::App &gather);
    void addGatherChoices(CLI::App &gather);
    void addGatherArtwork(CLI::App &gather);
    void addSites();
    void addDemo();
    void addDefinitions(CLI::App &command);
    void addDialect(CLI::App &command);
    void addKeepTime(CLI::App &command);
    void addWriteOptions(CLI::App &command);
    static void addSwitch(CLI::App &command, const char *on, const char *off,
                          const std::function<void(bool)> &set, const char *help);
    void sortPositionals();
    void checkPathsAlone() const;
    void checkGatherSources() const;

    CLI::App mApp{"Finds on the web what the tags of your songs lack, and writes it into them.",
                  "tagwright"};
    Arguments mArguments;
    std::vector<std::string> mPositionals;
};

Parser::Parser(std::string_view command)
{
    mApp.set_version_flag("--version", "tagwright " TAGWRIGHT_VERSION);
    mApp.add_flag("--verbose", mArguments.verbose, "Write diagnostics to standard error");
    mApp.require_subcommand(0, 1);
    mApp.add_option("PATH", mPositionals, "Songs and folders to fill in, in a small window");
    addShow();
    // The most called command is to start at once, and building the others' options takes time.
    if (command == "show")
        return;
    addSet();
    addRegenerate();
    addGather();
    addSites();
    addDemo();
}

CLI::App *Parser::addCommand(const char *name, const char *summary, Command command)
{
    CLI::App *added = mApp.add_subcommand(name, summary);
    added->add_flag("--verbose", mArguments.verbose, "Write diagnostics to standard error");
    added->callback([this, command] { mArguments.command = command; });
    return added;
}

CLI::App *Parser::addSongCommand(const char *name, const char *summary, Command command)
{
    CLI::App *added = addCommand(name, summary, command);
    added->add_option("PATH", mPositionals, "Song files, and folders for every song in them")
        ->required();
    added->add_flag("--json", mArguments.json, "Print JSON Lines");
    return added;
}

void Parser::addDialect(CLI::App &command)
{
    command
        .add_option_function<std::string>(
            "--id3",
            [this](const std::string &name) {
                mArguments.id3 =
                    name == "standard" ? ID3Dialect::standard() : ID3Dialect::classic();
            },
            "How ID3 tags are read and written")
        ->check(CLI::IsMember({"classic", "standard"}));
}

void Parser::addKeepTime(CLI::App &command)
{
    command.add_flag("--keep-time", mArguments.keepTime, "Keep the files' modification times");
}

void Parser::addWriteOptions(CLI::App &command)
{
    addDialect(command);
    addKeepTime(command);
    command
        .add_option_function<std::string>(
            "--id3v24-sizes",
            [this](const std::string &sizes) {
                mArguments.v24Sizes =
                    sizes == "accurate" ? FrameSizes::Accurate : FrameSizes::Plain;
            },
            "Frame sizes in ID3v2.4 tags")
        ->check(CLI::IsMember({"accurate", "plain"}));
    command.add_flag("--dry-run", mArguments.dryRun, "Write no song file");
}

void Parser::addSwitch(CLI::App &command, const char *on, const char *off,
                       const std::function<void(bool)> &set, const char *help)
{
    auto *switchOn = command.add_flag_callback(
        on, [set] { set(true); }, help);
    command.add_flag_callback(off, [set] { set(false); })->excludes(switchOn);
}

void Parser::addShow()
{
    CLI::App *show = addSongCommand("show", "Print the tags of songs", Command::Show);
    show->add_flag("--frames", mArguments.frames, "Every frame of an MP3's tag too");
    addDialect(*show);
}

void Parser::addSet()
{
    CLI::App *set =
        addSongCommand("set", "Change fields of songs: title=TEXT and so on", Command::Set);
    addWriteOptions(*set);
    set->footer("Fields: title artist album year track genres lyrics bpm compilation (yes or no)\n"
                "artwork (an image file). FIELD= removes the field.");
}

void Parser::addRegenerate()
{
    CLI::App *regenerate = addSongCommand(
        "regenerate", "Write damaged tags anew with what is sound in them", Command::Regenerate);
    addKeepTime(*regenerate);
}

void Parser::addGather()
{
    CLI::App *gather =
        addSongCommand("gather", "Find on the web what songs lack, and write it", Command::Gather);
    gather->get_option("PATH")->required(false);
    gather->footer(
        "With --json each song's line says which albums there were (candidates), why one "
        "was\nchosen (reason), and where each field comes from (sources) and why it was "
        "set or not\n(reasons); --verbose tells the same to read.");
    addGatherSources(*gather);
    addWriteOptions(*gather);
    addGatherChoices(*gather);
    addGatherArtwork(*gather);
    addDefinitions(*gather);
}

void Parser::addDefinitions(CLI::App &command)
{
    command.add_option_function<std::string>(
        "--definitions",
        [this](const std::string &file) {
            mArguments.definitions = QFile::decodeName(file.c_str());
        },
        "Use the site definitions in this property list");
}

void Parser::addGatherSources(CLI::App &gather)
{
    gather.add_flag("--library", mArguments.library, "Every song of the music library");
    gather.add_flag("--retry", mArguments.retry,
                    "The songs that some site could not be asked about in earlier runs");
    gather.add_option_function<std::string>(
        "--playlist",
        [this](const std::string &name) { mArguments.playlist = QString::fromStdString(name); },
        "Every song of the playlist of that name");
}

void Parser::addGatherChoices(CLI::App &gather)
{
    gather.add_option_function<std::string>(
        "--want",
        [this](const std::string &list) { mArguments.want = assetsOf(list, MayBeNone::No); },
        "What to gather: title,album,year,track,genre,lyrics,artwork, or all");
    gather.add_option_function<std::string>(
        "--overwrite",
        [this](const std::string &list) { mArguments.overwrite = assetsOf(list, MayBeNone::Yes); },
        "What may be replaced: the same words, all or none");
    static const std::map<std::string, AlbumPick> methods{
        {"none", AlbumPick::None},
        {"earliest", AlbumPick::EarliestYear},
        {"agreement", AlbumPick::MostAgreement},
        {"best", AlbumPick::Best},
    };
    gather
        .add_option_function<std::string>(
            "--pick", [this](const std::string &method) { mArguments.pick = methods.at(method); },
            "How one album is chosen among several")
        ->check(CLI::IsMember({"none", "earliest", "agreement", "best"}));
    addSwitch(
        gather, "--parallel", "--serial", [this](bool on) { mArguments.parallel = on; },
        "All sources at once, or one after another");
    gather.add_flag("--identify", mArguments.identify,
                    "Know songs without artist or title by their sound (needs an AcoustID key)");
    addSwitch(
        gather, "--substrings", "--no-substrings",
        [this](bool on) { mArguments.substrings = on ? Substrings::Allow : Substrings::Refuse; },
        "Names may match as parts of each other");
}

void Parser::addGatherArtwork(CLI::App &gather)
{
    const auto addWidth = [&gather](const char *name, int least, std::optional<double> &into,
                                    const char *help) {
        gather
            .add_option_function<int>(
                name, [&into](int pixels) { into = pixels; }, help)
            ->check(CLI::Range(least, 32767));
    };
    addWidth("--min-art", 0, mArguments.minArt, "Smallest accepted width of artwork, in pixels");
    addWidth("--max-art", 1, mArguments.maxArt, "Largest stored side of artwork, in pixels");
    addWidth("--art-below", 0, mArguments.artBelow, "Replace only artwork narrower than this");
    addSwitch(
        gather, "--square-art", "--no-square-art", [this](bool on) { mArguments.squareArt = on; },
        "Refuse artwork that is far from square");
}

void Parser::addSites()
{
    static const std::map<std::string, SitesAction> actions{
        {"list", SitesAction::List},
        {"check", SitesAction::Check},
        {"update", SitesAction::Update},
    };
    CLI::App *sites = addCommand("sites", "The web sites that are searched", Command::Sites);
    sites
        ->add_option_function<std::string>(
            "ACTION", [this](const std::string &name) { mArguments.sites = actions.at(name); },
            "list them, check whether each still answers, or update their definitions")
        ->required()
        ->check(CLI::IsMember({"list", "check", "update"}));
    addDefinitions(*sites);
    sites->add_flag("--json", mArguments.json, "Print JSON Lines");
}

void Parser::addDemo()
{
    CLI::App *demo =
        addCommand("demo", "Show the main job on sample songs, without a network", Command::Demo);
    demo->add_flag("--headless", mArguments.headless, "Without a window");
}

void Parser::sortPositionals()
{
    const bool isSet = mArguments.command == Command::Set;
    for (const std::string &argument : mPositionals) {
        if (const auto assignment = isSet ? assignmentIn(argument) : std::nullopt)
            mArguments.fields.append(*assignment);
        else
            mArguments.paths.append(QFile::decodeName(argument.c_str()));
    }
    if (isSet && mArguments.fields.isEmpty())
        throw CLI::ValidationError("set: no FIELD=VALUE was given");
    if (isSet && mArguments.paths.isEmpty())
        throw CLI::ValidationError("set: no PATH was given");
    if (mArguments.command == Command::None)
        checkPathsAlone();
    if (mArguments.command == Command::Sites && mArguments.sites == SitesAction::Update
        && mArguments.definitions)
        throw CLI::ValidationError("sites update: the definitions in a file are not updated");
    if (mArguments.command == Command::Gather)
        checkGatherSources();
}

/// A mistyped command is told as such, before a window opens for it.
void Parser::checkPathsAlone() const
{
    for (const QString &path : mArguments.paths)
        if (!QFile::exists(path))
            throw CLI::ValidationError(path.toStdString()
                                       + ": there is no such command, file or folder");
}

void Parser::checkGatherSources() const
{
    const bool hasSource =
        !mArguments.paths.isEmpty() || mArguments.library || mArguments.playlist.has_value();
    if (mArguments.retry && hasSource)
        throw CLI::ValidationError("gather --retry: takes up the songs of its list alone");
    if (!mArguments.retry && !hasSource)
        throw CLI::ValidationError("gather: no PATH, --library, --playlist or --retry was given");
}

ParsedCommandLine Parser::parse(int argc, const char *const *argv)
{
    ParsedCommandLine parsed;
    try {
        mApp.parse(argc, argv);
        sortPositionals();
    } catch (const CLI::ParseError &error) {
        std::ostringstream out;
        std::ostringstream err;
        const bool isFault = mApp.exit(error, out, err) != 0;
        parsed.text = QByteArray::fromStdString(out.str() + err.str());
        parsed.exitStatus = isFault ? ExitStatus::wrongArguments : ExitStatus::done;
    }
    parsed.arguments = mArguments;
    return parsed;
}

} // namespace

ParsedCommandLine parseCommandLine(int argc, const char *const *argv)
{
    return Parser(argc > 1 ? argv[1] : "").parse(argc, argv);
}
