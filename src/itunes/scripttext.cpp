#include "itunes/scripttext.h"

#include "base/resources.h"

#include <algorithm>

namespace {

struct Escape {
    char16_t character;
    char16_t letter; ///< after the backslash
};
constexpr Escape escapes[] = {
    {u'"', u'"'}, {u'\\', u'\\'}, {u'\r', u'r'}, {u'\n', u'n'}, {u'\t', u't'}};

bool isLost(QChar character)
{
    return character.category() == QChar::Other_Control && character != u'\r' && character != u'\n'
        && character != u'\t';
}

bool isOfField(QChar character)
{
    return character.unicode() < 0x80 && (character.isLetterOrNumber() || character == u' ');
}

/// Walks a script beside the text that it may have been made from.
class ArgumentReader {
public:
    ArgumentReader(QStringView script, QStringView from)
        : mRest(script)
        , mFrom(from)
    {
    }

    std::optional<QList<QString>> read()
    {
        qsizetype at = 0;
        while (at < mFrom.size()) {
            const QStringView here = mFrom.sliced(at);
            const bool isPlaceholder = here.startsWith(u"%@") || here.startsWith(u"%d");
            const bool isRead = isPlaceholder ? readArgument(at) : skip(here.front());
            if (!isRead)
                return std::nullopt;
            at += isPlaceholder ? 2 : 1;
        }
        return mRest.isEmpty() ? std::optional(mArguments) : std::nullopt;
    }

private:
    bool skip(QChar expected)
    {
        const bool isThere = !mRest.isEmpty() && mRest.front() == expected;
        if (isThere)
            mRest = mRest.sliced(1);
        return isThere;
    }

    bool readArgument(qsizetype at)
    {
        if (mFrom[at + 1] == u'd')
            return readNumber();
        if (at > 0 && mFrom[at - 1] == u'"')
            return readText(QString());
        return skip(u'"') ? readText(QStringLiteral("\"")) && skip(u'"')
                          : readField(mFrom.sliced(at + 2));
    }

    bool readNumber()
    {
        qsizetype length = mRest.startsWith(u'-') ? 1 : 0;
        while (length < mRest.size() && mRest[length] >= u'0' && mRest[length] <= u'9')
            ++length;
        return take(length);
    }

    /// Up to the quote that ends it, which stays.
    bool readText(QString text)
    {
        while (!mRest.isEmpty() && mRest.front() != u'"') {
            const bool isEscape = skip(u'\\');
            if (mRest.isEmpty())
                return false;
            text += isEscape ? unescaped(mRest.front()) : mRest.front();
            mRest = mRest.sliced(1);
        }
        mArguments << text;
        return true;
    }

    static QChar unescaped(QChar letter)
    {
        const auto *const found =
            std::find_if(std::begin(escapes), std::end(escapes),
                         [letter](const Escape &escape) { return escape.letter == letter; });
        return found == std::end(escapes) ? letter : QChar(found->character);
    }

    /// Up to what follows the placeholder.
    bool readField(QStringView following)
    {
        const QStringView literal =
            following.first(std::max(following.indexOf(u'%'), qsizetype(1)));
        const QStringView name = mRest.first(std::max(mRest.indexOf(literal), qsizetype(0)));
        return std::all_of(name.begin(), name.end(), isOfField) && take(name.size());
    }

    bool take(qsizetype length)
    {
        mArguments << mRest.first(length).toString();
        mRest = mRest.sliced(length);
        return length > 0;
    }

    QStringView mRest;
    QStringView mFrom;
    QList<QString> mArguments;
};

} // namespace

ScriptArgument::ScriptArgument(int number)
    : ScriptArgument(QString::number(number), u'd')
{
}

ScriptArgument::ScriptArgument(const QString &text)
    : ScriptArgument(ScriptText::escaped(text), u'@')
{
}

ScriptArgument::ScriptArgument(QString inScript, char16_t placeholder)
    : mInScript(std::move(inScript))
    , mPlaceholder(placeholder)
{
}

ScriptArgument ScriptArgument::playlist(const std::optional<QString> &name)
{
    const QString specifier = name ? u'"' + ScriptText::escaped(*name) + u'"' : QStringLiteral("1");
    return {specifier, u'@'};
}

std::optional<ScriptArgument> ScriptArgument::field(const QString &name)
{
    if (name.isEmpty() || !std::all_of(name.begin(), name.end(), isOfField))
        return std::nullopt;
    return ScriptArgument(name, u'@');
}

QString ScriptText::escaped(const QString &text)
{
    QString result;
    result.reserve(text.size());
    for (const QChar character : withoutControls(text)) {
        const auto *const found =
            std::find_if(std::begin(escapes), std::end(escapes), [character](const Escape &escape) {
                return escape.character == character;
            });
        if (found == std::end(escapes))
            result += character;
        else
            (result += u'\\') += QChar(found->letter);
    }
    return result;
}

QString ScriptText::withoutControls(const QString &text)
{
    QString result = text;
    return result.removeIf(isLost);
}

std::optional<QString> ScriptText::filled(QStringView script,
                                          const QList<ScriptArgument> &arguments)
{
    QString result;
    auto next = arguments.begin();
    qsizetype at = 0;
    while (at < script.size()) {
        if (script[at] != u'%') {
            result += script[at++];
            continue;
        }
        if (next == arguments.end() || at + 1 == script.size()
            || script[at + 1] != next->placeholder())
            return std::nullopt;
        result += (next++)->inScript();
        at += 2;
    }
    return next == arguments.end() ? std::optional(result) : std::nullopt;
}

std::optional<QList<QString>> ScriptText::argumentsOf(QStringView script, QStringView from)
{
    return ArgumentReader(script, from).read();
}

std::optional<QString> ScriptText::ofResource(const QString &key)
{
    const auto data = resourceData(key + QStringLiteral(".txt"));
    return data ? std::optional(QString::fromUtf8(*data)) : std::nullopt;
}
