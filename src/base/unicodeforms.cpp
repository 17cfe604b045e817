#include "base/unicodeforms.h"

#include <QFile>

#include <filesystem>

QString existingForm(const QString &path)
{
    for (const QString &form : {path, path.normalized(QString::NormalizationForm_C),
                                path.normalized(QString::NormalizationForm_D)})
        if (std::error_code error;
            std::filesystem::exists(QFile::encodeName(form).constData(), error))
            return form;
    return {};
}
