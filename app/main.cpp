#include "Form1.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    Form1 window;
    window.show();
    return app.exec();
}
