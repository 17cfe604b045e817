#pragma once

#include <QLabel>

class QAbstractButton;

/// A few calm words that explain a control.
class HintLabel : public QLabel {
    Q_OBJECT

public:
    explicit HintLabel(const QString &text, QWidget *parent = nullptr);

    /// Begins where the text of a check box or radio button begins.
    void indentBelow(const QAbstractButton &button);

protected:
    void changeEvent(QEvent *event) override;
};
