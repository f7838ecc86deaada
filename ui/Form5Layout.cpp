#include "Form5.h"

#include "Captions.h"
#include "Fonts.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"

#include <QCheckBox>
#include <QFrame>
#include <QPushButton>

namespace {

constexpr std::array<const char *, 5> kRowTitles{
    "Experimental Physique:", "Experimental Prowess:", "Experimental Mental:", "Experimental Psychology:",
    "Experimental Aggressiveness:"};
constexpr std::array<const char *, 5> kBoxNames{"Picture5", "Picture6", "Picture7", "Picture8", "Picture9"};
// Where each category's row stands, counted from the top: Aggressiveness, Mental, Physique,
// Prowess, Psychology.
constexpr std::array<int, 5> kRowPlace{2, 3, 1, 4, 0};

// Points column and category rows, in twips inside their panels.
constexpr int kPointBoxTop = 3675; // box 0, at the bottom
constexpr int kPointPitch = 285;
constexpr int kPointGap = 150; // between boxes 9 and 10
constexpr int kRowPitch = 675;
constexpr int kBoxLeft = 780;
constexpr int kBoxPitch = 540;

QString Indexed(const char *name, int index) {
    return QStringLiteral("%1_%2").arg(QString::fromLatin1(name)).arg(index);
}

void MakeBold(QWidget *widget) {
    QFont bold = widget->font();
    bold.setBold(true);
    widget->setFont(bold);
}

} // namespace

void Form5::BuildValuesPanel() {
    Picture2 = MakePanel(this, QStringLiteral("Picture2"), kPanelColour);
    Picture2->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(Picture2, 120, 120, 4080, 1695);
    // Two columns: Hardiness..Cleverness on the left, Dependability..Power on the right, Power
    // two lines high; the unused Label14(10) stands under it. The font narrows until
    // "Dependability:" and "1150 [1000]" fit side by side.
    const QString widest = QStringLiteral("8888 [8888]");
    Picture2->setFont(FittingFont(
        font(),
        {{SampleBoxCaption(5), TwipsToPx(900)}, {SampleBoxCaption(6), TwipsToPx(1080)}, {widest, TwipsToPx(960)}}));
    for (int a = 0; a < 11; ++a) {
        const bool right = a >= 6;
        const int row = right ? a - 6 + (a == 10 ? 1 : 0) : a;
        const int left = right ? 1980 : 60;
        const int titleWidth = right ? 1080 : 900;
        const int top = 90 + row * 255;
        // Captions and values share a top edge, so that each value stands on its caption's line.
        if (a < 10)
            MakeLabel(Picture2, QString(), SampleBoxCaption(a), left, top, titleWidth, 255)
                ->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        QLabel *value = MakeLabel(Picture2, Indexed("Label14", a), a == 10 ? QString() : QStringLiteral("0 [0]"),
                                  left + titleWidth, top, 960, a == 9 ? 510 : 255);
        value->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        SetTextColour(value, Qt::white);
        Label14[static_cast<std::size_t>(a)] = value;
    }
}

void Form5::BuildStatsPanel() {
    Picture3 = MakePanel(this, QStringLiteral("Picture3"), kPanelColour);
    Picture3->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(Picture3, 4320, 120, 3855, 1695);
    Label23 = BuildStatLabels(Picture3, {90, 225, 60, 1005, 1935, 2925}, QStringLiteral("Crit save:"), QString());
    for (QLabel *label : Label23)
        SetTextColour(label, Qt::white);
}

void Form5::BuildPointsColumn() {
    Picture15 = MakePanel(this, QStringLiteral("Picture15"), kPanelColour);
    Picture15->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(Picture15, 120, 1935, 855, 4260);

    Label4 = MakeLabel(Picture15, QStringLiteral("Label4"), QStringLiteral("Points"), 60, 45, 735, 240);
    Label4->setAlignment(Qt::AlignCenter);

    for (int b = 0; b < 12; ++b) {
        const int top = kPointBoxTop - b * kPointPitch - (b >= 10 ? kPointGap : 0);
        QFrame *box = MakePanel(Picture15, Indexed("Picture4", b), Qt::white);
        PlaceTwips(box, 180, top, 495, 225);
        Picture4[static_cast<std::size_t>(b)] = box;
    }

    Label1 = MakeLabel(Picture15, QStringLiteral("Label1"), QStringLiteral("0"), 60, 3960, 735, 255);
    Label1->setAlignment(Qt::AlignCenter);
    MakeBold(Label1);
    SetTextColour(Label1, Qt::white);
}

void Form5::BuildCategoryRows() {
    Picture1 = MakePanel(this, QStringLiteral("Picture1"), kPanelColour);
    Picture1->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(Picture1, 1095, 1935, 7080, 3450);

    for (int c = 0; c < 5; ++c) {
        const auto i = static_cast<std::size_t>(c);
        const int top = 60 + kRowPlace[i] * kRowPitch;
        Label2[i] = MakeLabel(Picture1, Indexed("Label2", c), QString::fromLatin1(kRowTitles[i]), 120, top, 4000, 240);
        MakeBold(Label2[i]);

        Label42[i] = MakeLabel(Picture1, Indexed("Label42", c), QStringLiteral("10%"), 120, top + 270, 600, 300);
        Label42[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        MakeBold(Label42[i]);
        SetTextColour(Label42[i], Qt::white);

        for (int b = 0; b < 10; ++b) {
            auto *box = new ClickLabel(Picture1);
            box->setObjectName(Indexed(kBoxNames[i], b));
            box->setAutoFillBackground(true);
            PlaceTwips(box, kBoxLeft + b * kBoxPitch, top + 270, b == 9 ? 720 : 480, 300);
            connect(box, &ClickLabel::clicked, this, [this, c, b] { PlaceBox(c, b); });
            Boxes[i][static_cast<std::size_t>(b)] = box;
        }

        Label5[i] = MakeLabel(Picture1, Indexed("Label5", c), QStringLiteral("100%"), 6420, top + 270, 600, 300);
        Label5[i]->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        SetTextColour(Label5[i], Qt::white);
    }
}

void Form5::BuildButtons() {
    const auto makeButton = [this](const QString &name, const QString &caption, int left, int width) {
        auto *button = new QPushButton(caption, this);
        button->setObjectName(name);
        PlaceTwips(button, left, 5505, width, 375);
        return button;
    };
    Command3 = makeButton(QStringLiteral("Command3"), QStringLiteral("Reset"), 1095, 1095);
    Command2 = makeButton(QStringLiteral("Command2"), QStringLiteral("Run Experiment!"), 2310, 1800);
    Command2->setEnabled(false);
    Command1 = makeButton(QStringLiteral("Command1"), QStringLiteral("Done Experimenting"), 4230, 1935);

    Check1 = new QCheckBox(QStringLiteral("Always on top"), this);
    Check1->setObjectName(QStringLiteral("Check1"));
    PlaceTwips(Check1, 6285, 5535, 1890, 315);
}
