#include "base/texts.h"
#include "demo/sampleground.h"
#include "gui/mainwindow.h"
#include "support/table.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QTest>
#include <QTranslator>

using namespace Qt::StringLiterals;

namespace {

QString nameOf(const QObject &object)
{
    return u"%1 “%2”"_s.arg(QLatin1String(object.metaObject()->className()), object.objectName());
}

template<typename Widget>
QList<Widget *> visible(const QWidget &window)
{
    QList<Widget *> parts;
    for (Widget *part : window.findChildren<Widget *>())
        if (part->isVisible() && part->window() == &window)
            parts << part;
    return parts;
}

/// Those that share a letter after Alt.
QStringList clashesAmong(const QStringList &texts)
{
    QHash<QString, QString> seen;
    QStringList clashes;
    for (const QString &text : texts) {
        const QString key = QKeySequence::mnemonic(text).toString();
        if (!key.isEmpty() && seen.contains(key) && seen[key] != text)
            clashes << seen[key] + u" / "_s + text;
        seen.insert(key, text);
    }
    return clashes;
}

QStringList clashesInMenu(const QMenu &menu)
{
    QStringList texts;
    QStringList clashes;
    for (const QAction *action : menu.actions()) {
        texts << action->text();
        if (action->menu())
            clashes << clashesInMenu(*action->menu());
    }
    return clashes + clashesAmong(texts);
}

QStringList mnemonicClashes(const QWidget &window)
{
    QStringList texts;
    QStringList clashes;
    for (const auto *button : visible<QAbstractButton>(window))
        if (button->isEnabled() && !button->inherits("QToolButton"))
            texts << button->text();
    for (const auto *label : visible<QLabel>(window))
        if (label->buddy())
            texts << label->text();
    for (const auto *group : visible<QGroupBox>(window))
        texts << group->title();
    if (const auto *main = qobject_cast<const QMainWindow *>(&window))
        for (const QAction *action : main->menuBar()->actions()) {
            texts << action->text();
            clashes << clashesInMenu(*action->menu());
        }
    return clashes + clashesAmong(texts);
}

/// What the keyboard reaches and a screen reader cannot name.
QStringList namelessParts(const QWidget &window)
{
    QStringList nameless;
    for (auto *part : visible<QWidget>(window)) {
        const bool isOfQt = part->objectName().startsWith(u"qt_"_s)
            || qobject_cast<QComboBox *>(part->parentWidget()) != nullptr;
        QAccessibleInterface *told = QAccessible::queryAccessibleInterface(part);
        if ((part->focusPolicy() & Qt::TabFocus) != 0 && !isOfQt && told
            && told->text(QAccessible::Name).isEmpty())
            nameless << nameOf(*part);
    }
    return nameless;
}

bool isCutOff(const QLabel &label)
{
    if (label.text().isEmpty() || !label.pixmap().isNull())
        return false;
    return label.wordWrap() ? label.heightForWidth(label.width()) > label.height()
                            : label.sizeHint().width() > label.width();
}

QStringList cutOffParts(const QWidget &window)
{
    QStringList cutOff;
    for (const auto *label : visible<QLabel>(window))
        if (isCutOff(*label))
            cutOff << u"%1 %2"_s.arg(nameOf(*label), label->text());
    for (const auto *button : visible<QAbstractButton>(window))
        if (button->sizeHint().width() > button->width()
            && !button->objectName().startsWith(u"qt_"_s))
            cutOff << u"%1 %2"_s.arg(nameOf(*button), button->text());
    return cutOff;
}

} // namespace

/// Every window, in every language and in large letters.
class TestAccessibility : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { installTexts(); }

    void windowsAreForEveryone_data()
    {
        const Table<QString, double> row("language", "points");
        row("English", u"en"_s, 10);
        row("German, large", u"de"_s, 18);
        row("French, large", u"fr"_s, 18);
    }

    void windowsAreForEveryone()
    {
        QFETCH(QString, language);
        QFETCH(double, points);
        QTranslator texts;
        QVERIFY(texts.load(u":/texts/tagwright_%1.qm"_s.arg(language)));
        QCoreApplication::installTranslator(&texts);
        QFont font = QApplication::font();
        font.setPointSizeF(points);
        QApplication::setFont(font);
        SampleGround ground;
        MainController controller(ground.engine());
        MainWindow window(controller);
        window.setUp();
        window.show();
        controller.setSongLibraryFolder(ground.songs());
        QTRY_VERIFY(!controller.songs().isLoading());
        window.selectAllSongs();
        for (const char *command :
             {"MenuCopyTags", "MenuReview", "MenuLyricsInspector", "MenuRegenerate", "MenuActivity",
              "MenuPreferences", "MenuPasteTags", "MenuStandardiseGenre", "MenuWelcome"}) {
            auto *action = window.findChild<QAction *>(QLatin1String(command));
            QTRY_VERIFY2(action->isEnabled(), command);
            action->trigger();
        }
        QTest::qWait(300);
        QStringList faults;
        int windows = 0;
        for (const QWidget *each : QApplication::topLevelWidgets()) {
            if (!each->isVisible())
                continue;
            ++windows;
            const auto add = [&](const QString &kind, const QStringList &found) {
                for (const QString &fault : found)
                    faults << u"%1 in %2: %3"_s.arg(kind, nameOf(*each), fault);
            };
            add(u"clash"_s, mnemonicClashes(*each));
            add(u"nameless"_s, namelessParts(*each));
            add(u"cut off"_s, cutOffParts(*each));
        }
        QVERIFY2(faults.isEmpty(), qPrintable(faults.join(u'\n')));
        QCOMPARE(windows, 9);
    }
};

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
