#include "PredictionPanel.h"

#include "AppState.h"
#include "Skins.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"

#include <QComboBox>
#include <QFrame>
#include <QPushButton>

PredictionPanel::PredictionPanel(AppState &state, QWidget *central) : QObject(central), state_(state)
{
    Picture3 = MakePanel(central, QStringLiteral("Picture3"), QColor(191, 186, 164));
    Picture3->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(Picture3, 120, 6960, 3975, 2415);

    Label4 = new ClickLabel(QStringLiteral("^"), Picture3);
    Label4->setObjectName(QStringLiteral("Label4"));
    PlaceTwips(Label4, 0, 0, 135, 135);

    Label3 = MakeLabel(Picture3, QStringLiteral("Label3"), QStringLiteral("Drop your DNA Template here to predict a pet"),
                       180, 45, 3660, 420);
    Label3->setAlignment(Qt::AlignCenter);
    Label3->setWordWrap(true);
    Label3->setFrameShape(QFrame::Panel);
    Label3->setFrameShadow(QFrame::Sunken);

    Label23 = BuildStatLabels(Picture3, {540, 225, 150, 1110, 2010, 3010}, QStringLiteral("Critical save:"),
                              QStringLiteral("Label14_11"));
    HealthCaption = Picture3->findChild<QLabel *>(QStringLiteral("Label14_11"));

    Combo3 = new QComboBox(Picture3);
    Combo3->setObjectName(QStringLiteral("Combo3"));
    Combo3->setEditable(true);
    for (int i = 0; i < quorvel::kSkinCount; ++i)
        Combo3->addItem(ToQt(quorvel::SkinItemText(i)));
    Combo3->setCurrentIndex(0);
    Combo3->setEditText(QStringLiteral("Choose Skin"));
    PlaceTwips(Combo3, 150, 2115, 1860, 285);

    Command1 = new QPushButton(QStringLiteral("Store this pet"), Picture3);
    Command1->setObjectName(QStringLiteral("Command1"));
    Command1->setEnabled(false);
    PlaceTwips(Command1, 2070, 2115, 1350, 285);

    Command8 = new QPushButton(QStringLiteral("E"), Picture3);
    Command8->setObjectName(QStringLiteral("Command8"));
    PlaceTwips(Command8, 3480, 2115, 420, 285);
}

void PredictionPanel::ClearStats()
{
    for (QLabel *label : Label23)
        label->setText(QStringLiteral("0"));
}

void PredictionPanel::SetFolded(bool folded)
{
    Picture3->resize(Picture3->width(), TwipsToPx(folded ? 135 : 2415));
}

void PredictionPanel::MoveTo(int leftTwips, int topTwips)
{
    Picture3->move(TwipsToPx(leftTwips), TwipsToPx(topTwips));
}
