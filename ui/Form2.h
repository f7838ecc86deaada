#pragma once

#include <QWidget>

class Form1;

// The Add DNA window.
class Form2 : public QWidget {
    Q_OBJECT
public:
    explicit Form2(Form1 &main, QWidget *parent = nullptr);

private:
    Form1 &main_;
};
