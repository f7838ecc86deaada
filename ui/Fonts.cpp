#include "Fonts.h"

#include "Twips.h"

#include <QApplication>
#include <QCheckBox>
#include <QFontDatabase>
#include <QFontMetrics>
#include <QMap>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>

#include <algorithm>

namespace {

// Room between a text and whatever stands right of it: 4 pixels at 100 %.
int Room() {
    return TwipsToPx(60);
}

// The width a button takes beside its caption: frame and margins, or the check mark and its
// spacing; -1 for other kinds of buttons.
int ButtonChrome(const QAbstractButton *button) {
    const QStyle *style = button->style();
    if (qobject_cast<const QPushButton *>(button))
        return style->pixelMetric(QStyle::PM_ButtonMargin, nullptr, button) +
               2 * style->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, button);
    if (qobject_cast<const QCheckBox *>(button))
        return style->pixelMetric(QStyle::PM_IndicatorWidth, nullptr, button) +
               style->pixelMetric(QStyle::PM_CheckBoxLabelSpacing, nullptr, button);
    if (qobject_cast<const QRadioButton *>(button))
        return style->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth, nullptr, button) +
               style->pixelMetric(QStyle::PM_RadioButtonLabelSpacing, nullptr, button);
    return -1;
}

} // namespace

QFont ReadableFont() {
    QFont font = QApplication::font();
    // Some platforms name a small font larger than their general one; the smaller wins.
    const double small =
        QFontDatabase::systemFont(QFontDatabase::SmallestReadableFont).pointSizeF() * DisplayScalePercent() / 100.0;
    if (small > 0.0 && small < font.pointSizeF())
        font.setPointSizeF(small);
    return font;
}

QFont FittingFont(QFont font, const QList<TextFit> &fits) {
    const int room = Room();
    for (int stretch : {QFont::Unstretched, QFont::SemiCondensed, QFont::Condensed}) {
        font.setStretch(stretch);
        const QFontMetrics metrics(font);
        if (std::all_of(fits.begin(), fits.end(),
                        [&](const TextFit &fit) { return metrics.horizontalAdvance(fit.text) + room <= fit.width; }))
            break;
    }
    return font;
}

void FitButtonCaptions(QWidget *window) {
    // Controls of one kind side by side in one parent keep one font: the narrowest any of them needs.
    QMap<std::pair<QWidget *, const char *>, QList<QAbstractButton *>> groups;
    for (QAbstractButton *button : window->findChildren<QAbstractButton *>())
        groups[{button->parentWidget(), button->metaObject()->className()}].append(button);
    for (const QList<QAbstractButton *> &group : groups) {
        QList<TextFit> fits;
        for (QAbstractButton *button : group) {
            if (const int chrome = ButtonChrome(button); chrome >= 0)
                fits.append({button->text(), button->width() - chrome});
        }
        const QFont font = FittingFont(group.constFirst()->font(), fits);
        if (font.stretch() != QFont::Unstretched) {
            for (QAbstractButton *button : group)
                button->setFont(font);
        }
    }
}
