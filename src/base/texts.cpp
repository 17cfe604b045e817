#include "base/texts.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

namespace {

/// The translator asked first is the one installed last.
void install(const QLocale &language, const QString &table, const QString &folder)
{
    auto *texts = new QTranslator(QCoreApplication::instance());
    if (texts->load(language, table, QStringLiteral("_"), folder))
        QCoreApplication::installTranslator(texts);
}

} // namespace

void installTexts(TextLanguage language)
{
    const QString ownFolder = QStringLiteral(":/texts");
    const QString ownTable = QStringLiteral("tagwright");
    install(QLocale(QLocale::English), ownTable, ownFolder);
    if (language == TextLanguage::English)
        return;
    install(QLocale::system(), ownTable, ownFolder);
    // Qt's own texts, on buttons and in file choosers.
    install(QLocale::system(), QStringLiteral("qtbase"),
            QLibraryInfo::path(QLibraryInfo::TranslationsPath));
}
