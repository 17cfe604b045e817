#pragma once

#include <QObject>

/// How far a piece of work is: what a progress bar shows, without the bar. `maximum` 0 or
/// `isIndeterminate` mean that nobody knows yet.
class Progress : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    [[nodiscard]] bool isIndeterminate() const { return mIsIndeterminate; }
    [[nodiscard]] double value() const { return mValue; }
    [[nodiscard]] double maximum() const { return mMaximum; }

    void setIndeterminate(bool isIndeterminate);
    void setValue(double value);
    void setMaximum(double maximum);
    void advance(double by) { setValue(mValue + by); }

Q_SIGNALS:
    void changed();

private:
    bool mIsIndeterminate = false;
    double mValue = 0;
    double mMaximum = 0;
};
