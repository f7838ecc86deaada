#pragma once

#include <QLineEdit>

// A box of the sample windows (the editor and Add DNA): it reports the focus coming and
// going between controls. Switching windows or opening the box's own menu neither enters
// nor leaves it; Enter is returnPressed.
class SampleBox final : public QLineEdit {
    Q_OBJECT
public:
    using QLineEdit::QLineEdit;

signals:
    void gotFocus();
    void lostFocus();

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};
