#pragma once

#include <QString>
#include <QVariantMap>

#include <optional>

/// Where pictures of albums lie: a dictionary from loose keys to paths among the application's
/// resources. It is read when it is first asked, once.
class CoverDigest {
public:
    /// `resource`: its name, such as "ckdigest.bplist".
    explicit CoverDigest(QString resource)
        : mResource(std::move(resource))
    {
    }

    /// By digestKey(). A digest that is missing or damaged knows nothing; the log says so.
    [[nodiscard]] std::optional<QString> pathOf(const QString &key);

private:
    QString mResource;
    std::optional<QVariantMap> mPaths; ///< nothing: not read yet
};
