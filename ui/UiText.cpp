#include "UiText.h"

#include "Twips.h"

#include <QLabel>
#include <QLocale>

QString ToQt(const std::string &text) {
    return QString::fromStdString(text);
}

QString ShownNumber(const std::string &text) {
    QString shown = QString::fromStdString(text);
    const QString point = QLocale().decimalPoint();
    if (point != QStringLiteral("."))
        shown.replace(QLatin1Char('.'), point);
    return shown;
}

std::string FromQt(const QString &text) {
    return text.toStdString();
}

QLabel *MakeLabel(QWidget *parent, const QString &name, const QString &text, int left, int top, int width, int height) {
    auto *label = new QLabel(text, parent);
    if (!name.isEmpty())
        label->setObjectName(name);
    PlaceTwips(label, left, top, width, height);
    return label;
}
