#include "Form4.h"

#include "UiText.h"

#include <QIcon>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

Form4::Form4(QWidget *parent) : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("Form4"));
    setWindowTitle(QStringLiteral("About"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(360, 260);

    auto *picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("Picture1"));
    picture->setPixmap(QIcon(QStringLiteral(":/icons/quorvel.svg")).pixmap(64, 64));
    picture->setGeometry(16, 16, 64, 64);

    MakeLabel(this, QStringLiteral("Label1"), QStringLiteral("Quorvel"), 1440, 240, 3000, 330)
        ->setStyleSheet(QStringLiteral("font-weight: bold; font-size: 14pt;"));
    MakeLabel(this, QStringLiteral("Label4"), QStringLiteral("v0.55.1"), 1440, 600, 2000, 255);
    MakeLabel(this, QStringLiteral("Label2"), QStringLiteral("DNA library, template and pet predictor"), 1440, 870,
              3900, 255);

    auto *note = new QPlainTextEdit(this);
    note->setObjectName(QStringLiteral("Text1"));
    note->setReadOnly(true);
    note->setPlainText(QStringLiteral("Thank you to every creature engineer who sampled, logged and shared DNA values, "
                                      "and to everyone who tested the level equations against real pets. "
                                      "Your numbers made this tool possible."));
    note->setGeometry(16, 100, 328, 100);

    auto *close = new QPushButton(QStringLiteral("Who cares."), this);
    close->setObjectName(QStringLiteral("Command4"));
    close->setGeometry(250, 215, 94, 28);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
}
