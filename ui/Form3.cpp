#include "Form3.h"

#include "Form1.h"

Form3::Form3(Form1 &main, QWidget *parent) : QWidget(parent, Qt::Window), main_(main)
{
    setObjectName(QStringLiteral("Form3"));
    setWindowTitle(QStringLiteral("Options"));
    setAttribute(Qt::WA_DeleteOnClose);
}
