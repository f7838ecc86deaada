#include "DisplayScale.h"

#include "Twips.h"

#include <QApplication>
#include <QProxyStyle>
#include <QScreen>
#include <QSettings>
#include <QStyleFactory>

#include <algorithm>
#include <cmath>

namespace {

const QString kScaleKey = QStringLiteral("scale");

int ClampScale(int percent) {
    return std::clamp(percent, kSmallestScale, kLargestScale);
}

QSettings Preferences() {
    return QSettings(QStringLiteral("quorvel"), QStringLiteral("display"));
}

// The platform's style with its lengths (check marks, scroll bars, margins, icons) at the
// display scale, as the style itself would measure them on a screen of that density.
class ScaledStyle : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;

    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override {
        const int length = QProxyStyle::pixelMetric(metric, option, widget);
        return static_cast<int>(std::floor(length * DisplayScalePercent() / 100.0 + 0.5));
    }
};

} // namespace

int ScaleForDpi(double logicalDpi) {
    const double steps = std::floor(logicalDpi / 96.0 * 100.0 / kScaleStep + 0.5);
    return ClampScale(static_cast<int>(steps) * kScaleStep);
}

int ScreenDisplayScale() {
    const QScreen *screen = QGuiApplication::primaryScreen();
    return screen ? ScaleForDpi(screen->logicalDotsPerInch()) : kSmallestScale;
}

int PreferredDisplayScale() {
    bool stored = false;
    const int percent = Preferences().value(kScaleKey).toInt(&stored);
    return stored ? ClampScale(percent) : ScreenDisplayScale();
}

void StoreDisplayScale(int percent) {
    Preferences().setValue(kScaleKey, ClampScale(percent));
}

void ApplyDisplayScale(int percent) {
    // The platform's font and style as the program found them: every scale starts from them.
    static const QFont platformFont = QApplication::font();
    static const QString platformStyle = QApplication::style()->name();
    twips_detail::scalePercent = ClampScale(percent);
    QFont font = platformFont;
    if (platformFont.pointSizeF() > 0)
        font.setPointSizeF(platformFont.pointSizeF() * DisplayScalePercent() / 100.0);
    else
        font.setPixelSize(TwipsToPx(platformFont.pixelSize() * 15));
    QApplication::setFont(font);
    // At 100 % the platform's style stays untouched, or comes back after another scale.
    static bool scaledStyle = false;
    if (DisplayScalePercent() != kSmallestScale)
        QApplication::setStyle(new ScaledStyle(QStyleFactory::create(platformStyle)));
    else if (scaledStyle)
        QApplication::setStyle(platformStyle);
    scaledStyle = DisplayScalePercent() != kSmallestScale;
}
