#pragma once

#include <QLabel>

/// A few calm words that explain a control.
class HintLabel : public QLabel {
    Q_OBJECT

public:
    explicit HintLabel(const QString &text, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    void soften();
};
