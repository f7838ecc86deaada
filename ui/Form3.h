#pragma once

#include <QWidget>

class Form1;

// The Options window.
class Form3 : public QWidget {
    Q_OBJECT
public:
    explicit Form3(Form1 &main, QWidget *parent = nullptr);

private:
    Form1 &main_;
};
