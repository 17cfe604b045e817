#pragma once

#include <QHash>
#include <QImage>
#include <QObject>
#include <QUrl>

class HVHTTPQueue;

/// Small views of pictures, made on another thread when they are first asked for. Covers of the web
/// are fetched for it.
class Thumbnails : public QObject {
    Q_OBJECT

public:
    /// `side`: of the square that they fit in, in pixels of the screen. The queue must outlive
    /// this.
    Thumbnails(HVHTTPQueue &queue, int side, QObject *parent = nullptr);
    ~Thumbnails() override;

    struct Thumbnail {
        QImage image; ///< null as long as it is not made, or where there is none
        QSize size; ///< of the picture itself
    };
    [[nodiscard]] Thumbnail of(const QByteArray &picture);
    [[nodiscard]] Thumbnail at(const QUrl &address);

    /// Forgets all, and asks for no address any more.
    void clear();

Q_SIGNALS:
    /// Some that were asked for are there now.
    void changed();

private:
    void make(const QByteArray &picture, const std::function<void(const Thumbnail &)> &then);

    HVHTTPQueue &mQueue;
    int mSide;
    QHash<QByteArray, Thumbnail> mOfPictures;
    QHash<QUrl, Thumbnail> mOfAddresses;
    QList<QUrl> mAsked; ///< addresses without an answer yet
    int mRound = 0; ///< what was asked for before clear() comes too late
};
