#pragma once

#include <QString>

#include <unistd.h>

/// The fields of a song to make; an empty text is no field.
struct SampleFields {
    QString title{};
    QString artist{};
    QString album{};
};

/// Makes a song at `path`: a few silent MPEG frames, with an ID3v2.3 tag of these fields. A
/// failure ends the test.
void makeSong(const QString &path, const SampleFields &fields);

/// Runs `call` as a user that file permissions hold for, also in tests that root starts.
template<typename Call>
auto withoutRights(Call call)
{
    constexpr uid_t nobody = 65534;
    const bool isRoot = ::geteuid() == 0;
    if (isRoot && ::seteuid(nobody) != 0)
        qFatal("cannot give up the rights of root");
    const auto result = call();
    if (isRoot && ::seteuid(0) != 0)
        qFatal("cannot be root again");
    return result;
}
