#include "gui/releasealert.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QPushButton>
#include <QTextDocument>
#include <QUrl>

void showReleaseAlert(const ReleaseAnnouncement &release, QWidget *parent)
{
    auto *alert = new QMessageBox(QMessageBox::Information, qtTrId("newVersionTitle"),
                                  qtTrId("newVersionTitle"), QMessageBox::NoButton, parent);
    alert->setObjectName(QStringLiteral("releaseAlert"));
    // The notes come from the web, and the box takes them for markup if they look like it.
    alert->setInformativeText(Qt::convertFromPlainText(release.message, Qt::WhiteSpaceNormal));
    alert->setAttribute(Qt::WA_DeleteOnClose);
    QPushButton *download = alert->addButton(qtTrId("newVersionDownload"), QMessageBox::AcceptRole);
    alert->addButton(qtTrId("newVersionCancel"), QMessageBox::RejectRole);
    QObject::connect(download, &QPushButton::clicked, alert, [url = release.downloadLocation] {
        QDesktopServices::openUrl(QUrl(url));
        QCoreApplication::quit();
    });
    alert->open();
}
