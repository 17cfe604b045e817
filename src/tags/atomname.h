#pragma once

#include <QString>
#include <QtGlobal>

/// The four-character name of an atom as a big-endian integer: 'moov' is 0x6D6F6F76.
using AtomName = quint32;

/// The name spelled by four characters; "\251" stands for the copyright sign.
constexpr AtomName atomName(const char (&text)[5])
{
    AtomName name = 0;
    for (int i = 0; i < 4; ++i)
        name = name << 8 | static_cast<unsigned char>(text[i]);
    return name;
}

/// The four bytes as text, each a character of ISO Latin 1.
[[nodiscard]] QString textOfAtomName(AtomName name);

/// Of the first four characters of the text; shorter texts are filled with zero bytes.
[[nodiscard]] AtomName atomNameOfText(QStringView text);

/// Whether an atom of this name, met inside `parent`, holds further atoms. The names are those
/// of the resource "atomcontainers.dat", four bytes each; without it every atom is a leaf. Names
/// of metadata items count inside 'ilst' alone: in other places atoms of those names hold text.
[[nodiscard]] bool isAtomContainer(AtomName name, AtomName parent);
