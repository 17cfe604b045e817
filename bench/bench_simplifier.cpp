// How many titles a second become keys for comparing: plain ASCII ones and accented ones, without
// simplifiers, with 100 of them that do not occur, and with 100 of which each title holds some.
#include "text/simplifier.h"

#include <QStringList>

#include <benchmark/benchmark.h>

namespace {

using Simplifiers = QMap<QString, QString>;

constexpr int titleLength = 30;

QStringList titlesFrom(const QStringList &words)
{
    QStringList titles;
    for (int i = 0; i < 256; ++i) {
        QString title;
        for (qsizetype word = i; title.size() < titleLength; word = (word * 7 + 3) % 1009)
            title += words[word % words.size()] + u' ';
        titles << title.left(titleLength);
    }
    return titles;
}

QStringList asciiTitles()
{
    return titlesFrom({QStringLiteral("The"), QStringLiteral("Lanterns"), QStringLiteral("of"),
                       QStringLiteral("Winter"), QStringLiteral("(Live)"), QStringLiteral("Don't"),
                       QStringLiteral("Pt. 2"), QStringLiteral("and"), QStringLiteral("Rivers")});
}

QStringList accentedTitles()
{
    return titlesFrom({QStringLiteral("Été"), QStringLiteral("Lanternes"), QStringLiteral("à"),
                       QStringLiteral("Señor"), QStringLiteral("Straße"), QStringLiteral("“Ø”")});
}

/// Whole words such as a site's definition lists: none, some or many of them in the titles.
Simplifiers hundredSimplifiers(const QStringList &occurring)
{
    Simplifiers simplifiers;
    for (const QString &word : occurring)
        simplifiers[u' ' + word + u' '] = u' ' + word.left(2) + u' ';
    for (int i = 0; simplifiers.size() < 100; ++i)
        simplifiers[QStringLiteral(" %1word%2 ").arg(QChar(u'a' + i % 26)).arg(i)] =
            QStringLiteral(" w ");
    return simplifiers;
}

void simplify(benchmark::State &state, const QStringList &titles, const Simplifiers &simplifiers)
{
    HVUtility::setSimplifiersDictionary(simplifiers);
    qsizetype next = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(HVUtility::simplifyString(titles[next]));
        next = (next + 1) % titles.size();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

BENCHMARK_CAPTURE(simplify, ascii, asciiTitles(), Simplifiers());
BENCHMARK_CAPTURE(simplify, ascii_100, asciiTitles(), hundredSimplifiers({}));
BENCHMARK_CAPTURE(simplify, ascii_100_occurring, asciiTitles(),
                  hundredSimplifiers({QStringLiteral("lanterns"), QStringLiteral("pt.")}));
BENCHMARK_CAPTURE(simplify, accented, accentedTitles(), Simplifiers());
BENCHMARK_CAPTURE(simplify, accented_100, accentedTitles(), hundredSimplifiers({}));

} // namespace
