#include "base/texts.h"

#include <QCoreApplication>
#include <QTranslator>

void installTexts()
{
    auto *texts = new QTranslator(QCoreApplication::instance());
    if (texts->load(QStringLiteral(":/texts/tagwright_en.qm")))
        QCoreApplication::installTranslator(texts);
}
