#include "Form4.h"

#include "Resources.h"
#include "Twips.h"
#include "UiText.h"
#include "Version.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>

Form4::Form4(QWidget *parent) : QWidget(parent, Qt::Window) {
    setObjectName(QStringLiteral("Form4"));
    setWindowTitle(QStringLiteral("About"));
    setAttribute(Qt::WA_DeleteOnClose);
    setFixedSize(TwipsToPx(5400), TwipsToPx(3900));

    auto *picture = new QLabel(this);
    picture->setObjectName(QStringLiteral("Picture1"));
    PlaceTwips(picture, 240, 240, 960, 960);
    picture->setPixmap(ProgramIcon().pixmap(picture->size()));

    QLabel *title = MakeLabel(this, QStringLiteral("Label1"), QStringLiteral("Quorvel"), 1440, 240, 3000, 330);
    QFont titleFont = font();
    titleFont.setBold(true);
    titleFont.setPointSizeF(14.0 * DisplayScalePercent() / 100.0);
    title->setFont(titleFont);
    MakeLabel(this, QStringLiteral("Label4"), QStringLiteral("v%1").arg(QLatin1String(version::kText)), 1440, 600, 2000,
              255);
    MakeLabel(this, QStringLiteral("Label2"), QStringLiteral("DNA library, template and pet predictor"), 1440, 870,
              3900, 255);

    auto *note = new QPlainTextEdit(this);
    note->setObjectName(QStringLiteral("Text1"));
    note->setReadOnly(true);
    note->setPlainText(QStringLiteral("Thank you to every creature engineer who sampled, logged and shared DNA values, "
                                      "and to everyone who tested the level equations against real pets. "
                                      "Your numbers made this tool possible."));
    PlaceTwips(note, 240, 1500, 4920, 1500);

    auto *close = new QPushButton(QStringLiteral("Who cares."), this);
    close->setObjectName(QStringLiteral("Command4"));
    PlaceTwips(close, 3750, 3225, 1410, 420);
    connect(close, &QPushButton::clicked, this, &QWidget::close);
}
