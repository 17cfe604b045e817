#include "text/plainascii.h"

#include <QList>

#include <algorithm>
#include <array>

namespace {

struct PlainForm {
    char32_t character;
    const char *plain;
};

/// Letters and punctuation that Unicode does not decompose into a plain letter and its accents.
/// Sorted by character.
constexpr std::array plainForms{
    PlainForm{0x00AB, "\""}, PlainForm{0x00AD, ""},   PlainForm{0x00BB, "\""},
    PlainForm{0x00C6, "AE"}, PlainForm{0x00D0, "D"},  PlainForm{0x00D7, "x"},
    PlainForm{0x00D8, "O"},  PlainForm{0x00DE, "Th"}, PlainForm{0x00DF, "ss"},
    PlainForm{0x00E6, "ae"}, PlainForm{0x00F0, "d"},  PlainForm{0x00F8, "o"},
    PlainForm{0x00FE, "th"}, PlainForm{0x0110, "D"},  PlainForm{0x0111, "d"},
    PlainForm{0x0126, "H"},  PlainForm{0x0127, "h"},  PlainForm{0x0131, "i"},
    PlainForm{0x0138, "k"},  PlainForm{0x0141, "L"},  PlainForm{0x0142, "l"},
    PlainForm{0x014A, "N"},  PlainForm{0x014B, "n"},  PlainForm{0x0152, "OE"},
    PlainForm{0x0153, "oe"}, PlainForm{0x0166, "T"},  PlainForm{0x0167, "t"},
    PlainForm{0x0180, "b"},  PlainForm{0x0192, "f"},  PlainForm{0x0197, "I"},
    PlainForm{0x01B5, "Z"},  PlainForm{0x01B6, "z"},  PlainForm{0x0237, "j"},
    PlainForm{0x1E9E, "SS"}, PlainForm{0x2010, "-"},  PlainForm{0x2012, "-"},
    PlainForm{0x2013, "-"},  PlainForm{0x2014, "-"},  PlainForm{0x2015, "-"},
    PlainForm{0x2018, "'"},  PlainForm{0x2019, "'"},  PlainForm{0x201A, "'"},
    PlainForm{0x201B, "'"},  PlainForm{0x201C, "\""}, PlainForm{0x201D, "\""},
    PlainForm{0x201E, "\""}, PlainForm{0x2022, "*"},  PlainForm{0x2032, "'"},
    PlainForm{0x2033, "\""}, PlainForm{0x2039, "'"},  PlainForm{0x203A, "'"},
    PlainForm{0x2044, "/"},  PlainForm{0x2212, "-"},
};
static_assert(std::ranges::is_sorted(plainForms, {}, &PlainForm::character));

bool isASCII(QStringView text)
{
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

/// Character by character, since composing and decomposing whole texts takes quadratic time for
/// long runs of accents. Decompositions nest a few levels only.
void appendPlain(QString &plain, char32_t character)
{
    if (character < 0x80) {
        plain += QChar(static_cast<char16_t>(character));
        return;
    }
    const auto *const form =
        std::ranges::lower_bound(plainForms, character, {}, &PlainForm::character);
    if (form != plainForms.end() && form->character == character) {
        plain += QLatin1String(form->plain);
        return;
    }
    const QList<uint> parts = QChar::decomposition(character).toUcs4();
    for (const uint part : parts)
        appendPlain(plain, part);
}

} // namespace

QString HVStringExtensions::plainASCIIString(const QString &text)
{
    if (isASCII(text))
        return text;
    QString plain;
    plain.reserve(text.size());
    const QList<uint> characters = text.toUcs4();
    for (const uint character : characters)
        appendPlain(plain, character);
    return plain;
}
