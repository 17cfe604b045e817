#include "cli/jsonwriter.h"

#include <QString>

namespace {

bool needsEscape(char byte)
{
    return static_cast<unsigned char>(byte) < 0x20 || byte == '"' || byte == '\\';
}

QByteArray escaped(char byte)
{
    switch (byte) {
    case '"':
        return "\\\"";
    case '\\':
        return "\\\\";
    case '\n':
        return "\\n";
    case '\r':
        return "\\r";
    case '\t':
        return "\\t";
    default:
        return "\\u00" + QByteArray(1, byte).toHex();
    }
}

} // namespace

void JsonWriter::separate()
{
    if (mNeedsComma)
        mJson += ',';
    mNeedsComma = true;
}

void JsonWriter::open(char bracket)
{
    separate();
    mJson += bracket;
    mNeedsComma = false;
}

void JsonWriter::close(char bracket)
{
    mJson += bracket;
    mNeedsComma = true;
}

void JsonWriter::key(QLatin1String name)
{
    separate();
    mJson.append('"').append(name.data(), name.size()).append("\":");
    mNeedsComma = false;
}

void JsonWriter::text(QStringView value)
{
    separate();
    const QByteArray utf8 = value.toUtf8();
    mJson += '"';
    auto start = utf8.cbegin();
    for (auto at = start; at != utf8.cend(); ++at) {
        if (!needsEscape(*at))
            continue;
        mJson.append(start, at - start).append(escaped(*at));
        start = at + 1;
    }
    mJson.append(start, utf8.cend() - start).append('"');
}

void JsonWriter::textOrNull(const std::optional<QString> &value)
{
    if (value && !value->isEmpty())
        text(*value);
    else
        null();
}

void JsonWriter::number(qint64 value)
{
    separate();
    mJson += QByteArray::number(value);
}

void JsonWriter::boolean(bool value)
{
    separate();
    mJson += value ? "true" : "false";
}

void JsonWriter::null()
{
    separate();
    mJson += "null";
}
