#include "support/cases.h"

#include "support/tempfiles.h"

namespace {

QByteArray unescaped(const QByteArray &cell)
{
    QByteArray bytes("");
    for (qsizetype i = 0; i < cell.size(); ++i) {
        if (cell[i] != '\\') {
            bytes += cell[i];
        } else if (const char escaped = cell[++i]; escaped == 'x') {
            bytes += QByteArray::fromHex(cell.mid(i + 1, 2));
            i += 2;
        } else {
            bytes += escaped == 'n' ? '\n' : escaped == 'r' ? '\r' : '\t';
        }
    }
    return bytes;
}

} // namespace

QList<QByteArrayList> casesIn(const char *file)
{
    QList<QByteArrayList> rows;
    const QString path = QStringLiteral("%1/cases/%2.tsv")
                             .arg(qEnvironmentVariable("TAGWRIGHT_TEST_DATA"), QLatin1String(file));
    for (const QByteArray &line : fileContents(path).chopped(1).split('\n')) {
        QByteArrayList cells = line.split('\t');
        std::transform(cells.begin(), cells.end(), cells.begin(), unescaped);
        rows << cells;
    }
    return rows;
}
