#pragma once

#include <QWidget>

class Form1;

// The experimentation window.
class Form5 : public QWidget {
    Q_OBJECT
public:
    explicit Form5(Form1 &main, QWidget *parent = nullptr);

private:
    Form1 &main_;
};
