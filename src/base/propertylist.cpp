#include "base/propertylist.h"

#include "base/bytes.h"
#include "base/plistshape.h"
#include "base/xmlpropertylist.h"

#include <QDateTime>

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <memory>

#include <plist/plist.h>

namespace {

struct Freed {
    void operator()(void *memory) const { std::free(memory); }
};
struct NodeFreed {
    void operator()(plist_t node) const { plist_free(node); }
};
using Node = std::unique_ptr<void, NodeFreed>;

/// Property lists count seconds from the beginning of 2001.
constexpr qint64 epoch = 978'307'200;

QVariant variantOf(plist_t node);

QVariantList listOf(plist_t node)
{
    plist_array_iter next = nullptr;
    plist_array_new_iter(node, &next);
    const std::unique_ptr<void, Freed> iterator(next);
    QVariantList list;
    plist_t item = nullptr;
    for (plist_array_next_item(node, next, &item); item != nullptr;
         plist_array_next_item(node, next, &item))
        list << variantOf(item);
    return list;
}

QVariantMap mapOf(plist_t node)
{
    plist_dict_iter next = nullptr;
    plist_dict_new_iter(node, &next);
    const std::unique_ptr<void, Freed> iterator(next);
    QVariantMap map;
    for (;;) {
        char *key = nullptr;
        plist_t item = nullptr;
        plist_dict_next_item(node, next, &key, &item);
        const std::unique_ptr<char, Freed> owned(key);
        if (item == nullptr)
            return map;
        map[QString::fromUtf8(key)] = variantOf(item);
    }
}

QDateTime dateOf(plist_t node)
{
    std::int32_t seconds = 0;
    std::int32_t microseconds = 0;
    plist_get_date_val(node, &seconds, &microseconds);
    return QDateTime::fromMSecsSinceEpoch((epoch + seconds) * 1000 + microseconds / 1000, Qt::UTC);
}

QVariant numberOf(plist_t node, plist_type type)
{
    std::uint64_t number = 0;
    if (type == PLIST_UID)
        plist_get_uid_val(node, &number);
    else
        plist_get_uint_val(node, &number);
    return static_cast<qint64>(number); // negative numbers come in two's complement
}

QVariant realOf(plist_t node)
{
    double number = 0;
    plist_get_real_val(node, &number);
    return number;
}

QVariant flagOf(plist_t node)
{
    std::uint8_t flag = 0;
    plist_get_bool_val(node, &flag);
    return flag != 0;
}

QByteArray bytesOf(plist_t node, const char *(*pointer)(plist_t, std::uint64_t *))
{
    std::uint64_t length = 0;
    const char *const bytes = pointer(node, &length);
    return {bytes, static_cast<qsizetype>(length)};
}

QVariant variantOf(plist_t node)
{
    const plist_type type = plist_get_node_type(node);
    switch (type) {
    case PLIST_BOOLEAN:
        return flagOf(node);
    case PLIST_UINT:
    case PLIST_UID:
        return numberOf(node, type);
    case PLIST_REAL:
        return realOf(node);
    case PLIST_STRING:
        return QString::fromUtf8(bytesOf(node, plist_get_string_ptr));
    case PLIST_ARRAY:
        return listOf(node);
    case PLIST_DICT:
        return mapOf(node);
    case PLIST_DATE:
        return dateOf(node);
    case PLIST_DATA:
        return bytesOf(node, plist_get_data_ptr);
    default:
        throw MalformedData(QStringLiteral("a value of no known type"));
    }
}

QVariant readBinary(const QByteArray &data)
{
    checkBinaryPlistShape(data, PropertyList::maxDepth);
    if (data.size() > std::numeric_limits<std::int32_t>::max())
        throw MalformedData(QStringLiteral("larger than 2 GB"));
    plist_t root = nullptr;
    plist_from_bin(data.constData(), static_cast<std::uint32_t>(data.size()), &root);
    if (root == nullptr)
        throw MalformedData(QStringLiteral("not a well-formed binary property list"));
    return variantOf(Node(root).get());
}

bool canStandInXml(QChar c)
{
    return c >= u' ' ? c < u'\uFFFE' : c == u'\t' || c == u'\n' || c == u'\r';
}

/// UTF-8 without the characters that cannot stand in XML, nor in the strings of libplist.
QByteArray textOf(QString text)
{
    text.removeIf([](QChar c) { return !canStandInXml(c); });
    return text.toUtf8();
}

plist_t nodeOf(const QVariant &value);

plist_t nodeOf(const QVariantList &list)
{
    plist_t node = plist_new_array();
    for (const QVariant &item : list)
        plist_array_append_item(node, nodeOf(item));
    return node;
}

plist_t nodeOf(const QVariantMap &map)
{
    plist_t node = plist_new_dict();
    for (auto it = map.begin(); it != map.end(); ++it)
        plist_dict_set_item(node, textOf(it.key()).constData(), nodeOf(it.value()));
    return node;
}

plist_t nodeOf(const QByteArray &bytes)
{
    return plist_new_data(bytes.constData(), static_cast<std::uint64_t>(bytes.size()));
}

plist_t nodeOf(const QDateTime &date)
{
    using Seconds = std::numeric_limits<std::int32_t>; // libplist's, from 1932 to 2069
    const qint64 seconds =
        std::clamp<qint64>(date.toSecsSinceEpoch() - epoch, Seconds::min(), Seconds::max());
    return plist_new_date(static_cast<std::int32_t>(seconds), 0);
}

plist_t nodeOf(const QVariant &value)
{
    switch (value.typeId()) {
    case QMetaType::Bool:
        return plist_new_bool(value.toBool() ? 1 : 0);
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return plist_new_uint(static_cast<std::uint64_t>(value.toLongLong()));
    case QMetaType::Float:
    case QMetaType::Double:
        return plist_new_real(value.toDouble());
    case QMetaType::QVariantList:
    case QMetaType::QStringList:
        return nodeOf(value.toList());
    case QMetaType::QVariantMap:
        return nodeOf(value.toMap());
    case QMetaType::QByteArray:
        return nodeOf(value.toByteArray());
    case QMetaType::QDateTime:
        return nodeOf(value.toDateTime());
    default:
        Q_ASSERT(value.typeId() == QMetaType::QString);
        return plist_new_string(textOf(value.toString()).constData());
    }
}

QByteArray written(const QVariant &value, void (*write)(plist_t, char **, std::uint32_t *))
{
    char *bytes = nullptr;
    std::uint32_t length = 0;
    write(Node(nodeOf(value)).get(), &bytes, &length);
    const std::unique_ptr<char, Freed> owned(bytes);
    return {bytes, static_cast<qsizetype>(length)};
}

} // namespace

PropertyList::Parsed PropertyList::parse(const QByteArray &data)
{
    try {
        if (data.startsWith("bplist"))
            return {readBinary(data), {}};
        return {readXmlPropertyList(data, maxDepth), {}};
    } catch (const MalformedData &damage) {
        return {{}, damage.reason()};
    }
}

QByteArray PropertyList::toXml(const QVariant &value)
{
    return written(value, plist_to_xml);
}

QByteArray PropertyList::toBinary(const QVariant &value)
{
    return written(value, plist_to_bin);
}
