#include "SampleBox.h"

#include <QFocusEvent>

namespace {

bool BetweenControls(const QFocusEvent *event) {
    return event->reason() != Qt::ActiveWindowFocusReason && event->reason() != Qt::PopupFocusReason;
}

} // namespace

void SampleBox::focusInEvent(QFocusEvent *event) {
    QLineEdit::focusInEvent(event);
    if (BetweenControls(event))
        emit gotFocus();
}

void SampleBox::focusOutEvent(QFocusEvent *event) {
    QLineEdit::focusOutEvent(event);
    if (BetweenControls(event))
        emit lostFocus();
}
