#pragma once

#include <QWidget>

// Control places and sizes are kept in twips: 15 to a pixel at the display scale of 100 %.
// The scale (100 to 200 %) is set once a run, before the first window is built
// (ApplyDisplayScale); every place, size and font grows with it.
namespace twips_detail {
inline int scalePercent = 100;
} // namespace twips_detail

inline int DisplayScalePercent() {
    return twips_detail::scalePercent;
}

// Rounded to the nearest pixel; at 100 % this is (twips + 7) / 15.
inline int TwipsToPx(int twips) {
    const long long scaled = static_cast<long long>(twips) * DisplayScalePercent();
    return static_cast<int>(scaled >= 0 ? (scaled + 750) / 1500 : -((-scaled + 750) / 1500));
}

inline int PxToTwips(int px) {
    const long long scaled = static_cast<long long>(px) * 1500;
    const int percent = DisplayScalePercent();
    return static_cast<int>(scaled >= 0 ? (scaled + percent / 2) / percent : -((-scaled + percent / 2) / percent));
}

inline void PlaceTwips(QWidget *w, int left, int top, int width, int height) {
    w->setGeometry(TwipsToPx(left), TwipsToPx(top), TwipsToPx(width), TwipsToPx(height));
}
