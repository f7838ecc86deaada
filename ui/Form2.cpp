#include "Form2.h"

#include "Form1.h"

Form2::Form2(Form1 &main, QWidget *parent) : QWidget(parent, Qt::Window), main_(main)
{
    setObjectName(QStringLiteral("Form2"));
    setWindowTitle(QStringLiteral("Add DNA"));
    setAttribute(Qt::WA_DeleteOnClose);
}
