#pragma once

#include <QWidget>

// Control places and sizes are kept in twips, 15 to a pixel.
constexpr int TwipsToPx(int twips) {
    return twips >= 0 ? (twips + 7) / 15 : -((-twips + 7) / 15);
}

constexpr int PxToTwips(int px) {
    return px * 15;
}

inline void PlaceTwips(QWidget *w, int left, int top, int width, int height) {
    w->setGeometry(TwipsToPx(left), TwipsToPx(top), TwipsToPx(width), TwipsToPx(height));
}
