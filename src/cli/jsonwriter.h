#pragma once

#include <QByteArray>
#include <QStringView>

#include <optional>

/// Writes JSON from front to back into bytes. `show` prints a line for each of thousands of
/// songs, and building a tree of values first would take longer than reading the songs does.
class JsonWriter {
public:
    void beginObject() { open('{'); }
    void endObject() { close('}'); }
    void beginArray() { open('['); }
    void endArray() { close(']'); }

    /// Names the value that follows; within objects.
    void key(QLatin1String name);

    void text(QStringView value);
    /// Null for what is absent or empty.
    void textOrNull(const std::optional<QString> &value);
    void number(qint64 value);
    void boolean(bool value);
    void null();

    [[nodiscard]] const QByteArray &json() const { return mJson; }

private:
    void open(char bracket);
    void close(char bracket);
    void separate();

    QByteArray mJson;
    bool mNeedsComma = false;
};
