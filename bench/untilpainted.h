#pragma once

#include <QApplication>
#include <QEvent>
#include <QWidget>

#include <cstdlib>

/// Ends as soon as a widget of the class `Painted` is on the screen, or a part of it.
template<typename Painted>
class UntilPainted : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override
    {
        const QEvent::Type type = event->type();
        const bool isHandled = QApplication::notify(receiver, event);
        if (type == QEvent::Paint)
            mIsPainted = mIsPainted || qobject_cast<Painted *>(receiver)
                || qobject_cast<Painted *>(receiver->parent());
        else if (mIsPainted && (type == QEvent::Expose || type == QEvent::UpdateRequest))
            std::_Exit(0); // what was painted has been handed to the window system by then
        return isHandled;
    }

private:
    bool mIsPainted = false;
};
