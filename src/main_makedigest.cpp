// tagwright-makedigest: makes the digest of a source of covers from a text table.

#include "base/propertylist.h"
#include "base/resources.h"
#include "base/texts.h"
#include "text/digesttable.h"
#include "text/simplifier.h"

#include <CLI/CLI.hpp>

#include <QCoreApplication>
#include <QFile>
#include <QSaveFile>

#include <cstdio>

namespace {

constexpr int done = 0;
constexpr int failed = 1;
constexpr int wrongArguments = 2; ///< also a table or definitions that do not hold

struct Arguments {
    QString definitions; ///< empty: those of the program
    QString table;
    QString digest;
};

std::optional<int> parseArguments(int argc, char **argv, Arguments &arguments)
{
    CLI::App parser{"Makes the digest of a source of covers from a text table",
                    "tagwright-makedigest"};
    std::string definitions;
    std::string table;
    std::string digest;
    parser.add_option("--definitions", definitions,
                      "site definitions whose simplifiers make the keys");
    parser.add_option("TABLE", table, "artist, album and path on each line, with tabs between")
        ->required();
    parser.add_option("DIGEST", digest, "the file that is made, such as ckdigest.bplist")
        ->required();
    try {
        parser.parse(argc, argv);
    } catch (const CLI::ParseError &error) {
        return parser.exit(error) == 0 ? done : wrongArguments;
    }
    arguments = {QFile::decodeName(definitions.c_str()), QFile::decodeName(table.c_str()),
                 QFile::decodeName(digest.c_str())};
    return std::nullopt;
}

int complain(int status, const QString &what, const QString &reason)
{
    std::fprintf(stderr, "%s: %s\n", qUtf8Printable(what), qUtf8Printable(reason));
    return status;
}

/// The keys of a digest are made with the simplifiers that the program will search with.
bool installSimplifiers(const QByteArray &definitions)
{
    const QVariant set = PropertyList::parse(definitions).value;
    if (set.typeId() != QMetaType::QVariantMap)
        return false;
    QMap<QString, QString> simplifiers;
    const QVariantMap values = set.toMap().value(QStringLiteral("simplifiers")).toMap();
    for (auto entry = values.begin(); entry != values.end(); ++entry)
        simplifiers.insert(entry.key(), entry.value().toString());
    HVUtility::setSimplifiersDictionary(simplifiers);
    return true;
}

std::optional<QByteArray> contentsOf(const QString &path)
{
    QFile file(path);
    if (file.open(QIODevice::ReadOnly))
        return file.readAll();
    complain(wrongArguments, path, file.errorString());
    return std::nullopt;
}

int writeDigest(const QString &path, const QVariantMap &paths)
{
    QSaveFile file(path);
    const QByteArray bytes = PropertyList::toBinary(paths);
    const bool isWritten = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    return isWritten && file.commit() ? done : complain(failed, path, file.errorString());
}

int makeDigest(const Arguments &arguments)
{
    const QString ownSet = QStringLiteral("defaultres.xml");
    const bool usesOwnSet = arguments.definitions.isEmpty();
    const auto definitions = usesOwnSet ? resourceData(ownSet) : contentsOf(arguments.definitions);
    if (!definitions)
        return wrongArguments;
    if (!installSimplifiers(*definitions))
        return complain(wrongArguments, usesOwnSet ? ownSet : arguments.definitions,
                        QStringLiteral("no property list of definitions"));
    const auto table = contentsOf(arguments.table);
    if (!table)
        return wrongArguments;
    const DigestTable digest = digestOfTable(*table);
    for (const DigestTable::Problem &problem : digest.problems)
        complain(wrongArguments, QStringLiteral("%1:%2").arg(arguments.table).arg(problem.line),
                 problem.reason);
    return digest.problems.isEmpty() ? writeDigest(arguments.digest, digest.paths) : wrongArguments;
}

} // namespace

int main(int argc, char **argv)
{
    Arguments arguments;
    if (const auto status = parseArguments(argc, argv, arguments))
        return *status;
    const QCoreApplication app(argc, argv);
    installTexts();
    return makeDigest(arguments);
}
