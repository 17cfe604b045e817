#include "cli/terminaltext.h"

#include <algorithm>

namespace {

bool isControl(QChar character)
{
    return character.category() == QChar::Other_Control;
}

} // namespace

QString terminalText(QString text)
{
    std::replace_if(
        text.begin(), text.end(),
        [](QChar each) { return isControl(each) && each != u'\n' && each != u'\t'; }, u' ');
    return text;
}

QString terminalLine(QString text)
{
    std::replace_if(text.begin(), text.end(), isControl, u' ');
    return text;
}
