#include "gathering/definitioncheck.h"

#include "gathering/definitionformat.h"
#include "gathering/definitionschema.h"
#include "gathering/fetchable.h"
#include "text/missingmarker.h"

#include <QRegularExpression>
#include <QStringDecoder>
#include <QUrl>

#include <algorithm>

namespace {

/// What is wrong with a value, such as "is no text"; nothing when it is of its kind.
using Fault = std::optional<QString>;

Fault faultUnless(bool holds, const char *fault)
{
    return holds ? Fault() : QString::fromUtf8(fault);
}

bool isText(const QVariant &value)
{
    return value.typeId() == QMetaType::QString;
}

bool isNumber(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Int:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
    case QMetaType::Double:
    case QMetaType::Bool:
        return true;
    default:
        break;
    }
    bool isNumeric = false;
    if (isText(value))
        value.toString().toDouble(&isNumeric);
    return isNumeric;
}

bool beginsAsAddress(const QString &text)
{
    return text.startsWith(QLatin1String("http:"), Qt::CaseInsensitive)
        || text.startsWith(QLatin1String("https:"), Qt::CaseInsensitive);
}

Fault faultOfFormat(const QVariant &value, const QStringList &placeholders)
{
    if (!isText(value))
        return QStringLiteral("is no text");
    const QString format = value.toString();
    if (format.isEmpty() || placeholdersOf(format) == placeholders)
        return std::nullopt;
    return QStringLiteral("must hold %1 and no other placeholder (%% is a percent sign)")
        .arg(placeholders.join(QLatin1String(", ")));
}

/// A format whose host depends on what is put in would let a page or a tag choose the host.
Fault faultOfAddressFormat(const QVariant &value, const QStringList &placeholders)
{
    Fault fault = faultOfFormat(value, placeholders);
    const QString format = value.toString();
    if (fault || format.isEmpty())
        return fault;
    const QUrl one(filledFormat(format, {QStringLiteral("1"), QStringLiteral("1")}));
    const QUrl other(filledFormat(format, {QStringLiteral("2"), QStringLiteral("2")}));
    if (!isFetchable(one) || !isFetchable(other))
        return QStringLiteral("is no http or https address");
    return faultUnless(one.authority() == other.authority(), "has a placeholder in its host");
}

Fault faultOfAddress(const QVariant &value)
{
    if (!isText(value))
        return QStringLiteral("is no text");
    const QString address = value.toString();
    return faultUnless(address.isEmpty() || isFetchable(QUrl(address)),
                       "is no http or https address");
}

Fault faultOfPrefix(const QVariant &value)
{
    if (!isText(value))
        return QStringLiteral("is no text");
    const QString prefix = value.toString();
    return faultUnless(prefix.isEmpty() || beginsAsAddress(prefix),
                       "does not begin as an http or https address");
}

Fault faultOfCharset(const QVariant &value)
{
    return faultUnless(isText(value)
                           && QStringDecoder(value.toString().toLatin1().constData()).isValid(),
                       "is no known character encoding");
}

/// A line of a request's head, so it must not hold the end of one.
Fault faultOfAgent(const QVariant &value)
{
    static const QRegularExpression form(
        QStringLiteral("\\A[!-~]+/[!-~]+ \\( ?[!-~]*(@|://)[!-~]+ ?\\)\\z"));
    const QString agent = value.toString();
    if (!isText(value) || !form.match(agent).hasMatch())
        return QStringLiteral("does not name program, version and contact: Name/1.0 ( address )");
    const QStringList placeholders = placeholdersOf(agent);
    return faultUnless(placeholders.isEmpty() || placeholders == QStringList{QStringLiteral("%@")},
                       "must hold at most one %@ and no other placeholder");
}

Fault faultOfTextList(const QVariant &value)
{
    const QVariantList list = value.toList();
    return faultUnless(value.typeId() == QMetaType::QVariantList
                           && std::all_of(list.begin(), list.end(), isText),
                       "is no list of texts");
}

Fault faultOfTextTable(const QVariant &value)
{
    const QVariantMap table = value.toMap();
    return faultUnless(value.typeId() == QMetaType::QVariantMap && !table.contains(QString())
                           && std::all_of(table.begin(), table.end(), isText),
                       "is no table from texts to texts");
}

Fault faultOfDictionary(const QVariant &value, std::span<const DefinitionKey> schema);

Fault faultOfValue(const QVariant &value, DefinitionKind kind)
{
    const QString textPlaceholder = QStringLiteral("%@");
    switch (kind) {
    case DefinitionKind::Text:
        return faultUnless(isText(value), "is no text");
    case DefinitionKind::TextFormat:
        return faultOfFormat(value, {textPlaceholder});
    case DefinitionKind::TrackFormat:
        return faultOfFormat(value, {QStringLiteral("%d")});
    case DefinitionKind::Address:
        return faultOfAddress(value);
    case DefinitionKind::AddressPrefix:
        return faultOfPrefix(value);
    case DefinitionKind::AddressFormat:
        return faultOfAddressFormat(value, {textPlaceholder});
    case DefinitionKind::ArtistTitleAddressFormat:
        return faultOfAddressFormat(value, {textPlaceholder, textPlaceholder});
    case DefinitionKind::ParseRecipe:
        return faultOfDictionary(value, parseRecipeSchema());
    case DefinitionKind::Integer:
    case DefinitionKind::Number:
    case DefinitionKind::Switch:
        return faultUnless(isNumber(value), "is no number");
    case DefinitionKind::Agent:
        return faultOfAgent(value);
    case DefinitionKind::Charset:
        return faultOfCharset(value);
    case DefinitionKind::TextList:
        return faultOfTextList(value);
    case DefinitionKind::TextTable:
        return faultOfTextTable(value);
    }
    return std::nullopt;
}

/// Behind a fault, so that the place is found in the file: ": file:///etc/passwd". Lists and
/// dictionaries are not shown.
QString shown(const QVariant &value)
{
    const QString text = value.toString();
    return text.isEmpty() ? text : QStringLiteral(": ") + pieceOfPage(text, 0);
}

/// "KEY is no text: VALUE", or "KEY/INNER is no text: VALUE" when the fault lies inside the value.
QString faultBelow(const QString &key, const QString &fault, const QVariant &value)
{
    return fault.startsWith(u'/') ? key + fault : key + u' ' + fault + shown(value);
}

/// "KEY FAULT" of the first entry that is not of its kind.
Fault faultOfEntries(const QVariantMap &values, std::span<const DefinitionKey> schema)
{
    for (const DefinitionKey &each : schema) {
        const auto found = values.constFind(QLatin1String(each.key));
        if (found == values.constEnd())
            continue;
        if (const Fault fault = faultOfValue(*found, each.kind))
            return faultBelow(QLatin1String(each.key), *fault, *found);
    }
    return std::nullopt;
}

/// "is no dictionary", or "/KEY FAULT" of an entry of it.
Fault faultOfDictionary(const QVariant &value, std::span<const DefinitionKey> schema)
{
    if (value.typeId() != QMetaType::QVariantMap)
        return QStringLiteral("is no dictionary");
    Fault fault = faultOfEntries(value.toMap(), schema);
    return fault ? u'/' + *fault : fault;
}

} // namespace

std::optional<QString> problemOfDefinitions(const QVariantMap &values)
{
    if (Fault fault = faultOfEntries(values, topLevelSchema()))
        return fault;
    const QString resourcePrefix = QStringLiteral("res_");
    for (auto entry = values.begin(); entry != values.end(); ++entry) {
        if (!entry.key().startsWith(resourcePrefix))
            continue;
        Fault fault = faultOfDictionary(*entry, commonSchema());
        if (!fault)
            fault =
                faultOfDictionary(*entry, schemaOfSource(entry.key().mid(resourcePrefix.size())));
        if (fault)
            return faultBelow(entry.key(), *fault, *entry);
    }
    return std::nullopt;
}
