#pragma once

#include <QString>

#include <string>

// Texts from core/ and predict/ are UTF-8 with "." as the decimal separator; windows show
// numbers with the user's separator.
QString ToQt(const std::string &text);
QString ShownNumber(const std::string &text);
std::string FromQt(const QString &text);

// A label or button with a fixed objectName, parented and placed in twips.
class QLabel;
class QWidget;
QLabel *MakeLabel(QWidget *parent, const QString &name, const QString &text, int left, int top, int width, int height);
