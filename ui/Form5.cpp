#include "Form5.h"

#include "Form1.h"

Form5::Form5(Form1 &main, QWidget *parent) : QWidget(parent, Qt::Window), main_(main)
{
    setObjectName(QStringLiteral("Form5"));
    setWindowTitle(QStringLiteral("ExpSim"));
    setAttribute(Qt::WA_DeleteOnClose);
}
