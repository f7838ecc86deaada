#pragma once

#include <QFont>
#include <QList>
#include <QString>

// The font of the windows' fixed layouts: the platform's small font at the display scale,
// never larger than the application's own font.
QFont ReadableFont();

// A text and the width in pixels that it must fit.
struct TextFit {
    QString text;
    int width;
};

// `font` as wide as it can stay while every text fits its width with a little room to spare:
// normal, semi-condensed or, at the narrowest, condensed. The size never shrinks.
QFont FittingFont(QFont font, const QList<TextFit> &fits);

// Narrows the font of each button, check box and option button of `window` whose caption does
// not fit its width; run once the controls are placed.
class QWidget;
void FitButtonCaptions(QWidget *window);
