#pragma once

#include <QWidget>

// The About window.
class Form4 final : public QWidget {
    Q_OBJECT
public:
    explicit Form4(QWidget *parent = nullptr);
};
