#include "tags/atomname.h"

#include "base/resources.h"

#include <QByteArray>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <iterator>
#include <vector>

namespace {

constexpr std::array items = {
    atomName("\251nam"), atomName("\251ART"), atomName("\251alb"), atomName("\251day"),
    atomName("\251gen"), atomName("\251lyr"), atomName("gnre"),    atomName("trkn"),
    atomName("tmpo"),    atomName("cpil"),    atomName("covr"),
};

/// Ascending.
std::vector<AtomName> readContainers()
{
    const QByteArray bytes =
        resourceData(QStringLiteral("atomcontainers.dat")).value_or(QByteArray());
    std::vector<AtomName> names;
    for (qsizetype at = 0; at + 4 <= bytes.size(); at += 4)
        names.push_back(qFromBigEndian<AtomName>(bytes.constData() + at));
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

QString textOfAtomName(AtomName name)
{
    const AtomName bytes = qToBigEndian(name);
    return QString::fromLatin1(reinterpret_cast<const char *>(&bytes), sizeof bytes);
}

AtomName atomNameOfText(QStringView text)
{
    const QByteArray bytes =
        text.first(qMin<qsizetype>(4, text.size())).toLatin1().leftJustified(4, '\0');
    return qFromBigEndian<AtomName>(bytes.constData());
}

bool isAtomContainer(AtomName name, AtomName parent)
{
    static const std::vector<AtomName> containers = readContainers();
    const bool isItem = std::find(items.begin(), items.end(), name) != items.end();
    return isItem == (parent == atomName("ilst"))
        && std::binary_search(containers.begin(), containers.end(), name);
}
