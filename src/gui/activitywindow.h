#pragma once

#include <QDialog>

class HVHTTPQueue;

/// Shows what is being fetched from the web.
class ActivityWindow : public QDialog {
    Q_OBJECT

public:
    /// The queue must outlive the window.
    ActivityWindow(HVHTTPQueue &queue, QWidget *parent);
};
