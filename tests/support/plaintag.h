#pragma once

#include "tags/audioinfotag.h"

#include <QHash>
#include <QStringList>

/// A tag that holds what it is told to.
class PlainTag : public AudioInfoTag {
public:
    using Fields = QHash<QString, QString>; ///< a value that is null stands for none
    using Text = std::optional<QString>;

    explicit PlainTag(const Fields &fields)
        : mFields(fields)
    {
        if (text(QStringLiteral("index")))
            setPlayList(QStringLiteral("Mix"), fields.value(QStringLiteral("index")).toInt());
    }

    [[nodiscard]] TagType type() const override { return TagType::MP3; }
    [[nodiscard]] Text readVersion() const override { return text(QStringLiteral("version")); }
    [[nodiscard]] bool isPartOfCompilation() const override
    {
        return !!text(QStringLiteral("compilation"));
    }
    [[nodiscard]] int numberOfImages() const override
    {
        return mFields.value(QStringLiteral("art")).toInt();
    }

private:
    [[nodiscard]] Text text(TagText which) const override
    {
        static const QStringList names{QStringLiteral("title"),  QStringLiteral("artist"),
                                       QStringLiteral("album"),  QStringLiteral("year"),
                                       QStringLiteral("track"),  QStringLiteral("genre"),
                                       QStringLiteral("lyrics"), QStringLiteral("bpm")};
        return text(names.at(static_cast<int>(which)));
    }
    [[nodiscard]] Text text(const QString &name) const
    {
        return mFields.value(name).isNull() ? Text() : mFields.value(name);
    }

    Fields mFields;
};
