#include "gui/icons.h"

#include <QDir>
#include <QPainter>
#include <QTest>

class TestIcons : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyIconIsDrawn()
    {
        const QStringList files = QDir(QStringLiteral(":/icons")).entryList();
        QVERIFY(files.size() > 20);
        for (const QString &file : files)
            for (const int size : {16, 24, 64}) {
                const QImage image = icon(file.chopped(4)).pixmap(size).toImage();
                QVERIFY2(!image.isNull() && image.size() == QSize(size, size), qPrintable(file));
                QVERIFY2(image != QImage(image.size(), image.format()), qPrintable(file));
            }
        QVERIFY(icon(QStringLiteral("no such icon")).isNull());
    }

    void followsThePalette()
    {
        const QIcon begin = icon(QStringLiteral("begin"));
        for (const QColor &text : {QColor(Qt::black), QColor(Qt::white)}) {
            QPalette palette;
            palette.setColor(QPalette::WindowText, text);
            QGuiApplication::setPalette(palette);
            const QColor drawn = begin.pixmap(24).toImage().pixelColor(7, 12); // the left edge
            QCOMPARE(drawn.rgb(), text.rgb());
        }
    }
};

QTEST_MAIN(TestIcons)
#include "tst_icons.moc"
