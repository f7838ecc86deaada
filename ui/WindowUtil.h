#pragma once

class QWidget;

// Shows a window that is not visible; brings a visible one to the front with the focus.
void ShowOrFocusWindow(QWidget *window);

// Keeps a window above all others, or returns it among them, without moving it.
void SetTopMost(QWidget *window, bool on);
