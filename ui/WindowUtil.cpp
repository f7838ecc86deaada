#include "WindowUtil.h"

#include <QWidget>

void ShowOrFocusWindow(QWidget *window) {
    if (!window->isVisible()) {
        window->show();
        return;
    }
    window->showNormal();
    window->raise();
    window->activateWindow();
    window->setFocus();
}

void SetTopMost(QWidget *window, bool on) {
    if (window->windowFlags().testFlag(Qt::WindowStaysOnTopHint) == on)
        return;
    const QPoint place = window->pos();
    const bool visible = window->isVisible();
    // Changing the flags hides the window; show it again where it stood.
    window->setWindowFlag(Qt::WindowStaysOnTopHint, on);
    window->move(place);
    if (visible)
        window->show();
}
