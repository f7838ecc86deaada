#include "Form3.h"

#include "AppModel.h"
#include "DisplayScale.h"
#include "Fonts.h"
#include "Numeric.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

namespace {

constexpr int kInnerWidth = 4800;
constexpr int kInnerHeight = 4575;
constexpr int kRowHeight = 255;
constexpr int kBoxLeft = 120;
constexpr int kBoxWidth = 4320;

// Places and captions of the check boxes inside the panel, in twips: the six switches one
// below the other, the three equations side by side.
struct BoxPlace {
    const char *caption;
    int left;
    int top;
    int width;
};

constexpr std::array<BoxPlace, 9> kBoxes{
    {{"Minimize when I open the Exp./Add DNA window", kBoxLeft, 90, kBoxWidth},
     {"Use Always on top as default", kBoxLeft, 360, kBoxWidth},
     {"LostFocus edit function on by default", kBoxLeft, 630, kBoxWidth},
     {"Load last used DNA file when I start the Quorvel", kBoxLeft, 990, kBoxWidth},
     {"Remember column width", kBoxLeft, 1260, kBoxWidth},
     {"Remember window size and position", kBoxLeft, 1530, kBoxWidth},
     {"Old", kBoxLeft, 2535, 1320},
     {"New 1", 1560, 2535, 1320},
     {"New 2", 3000, 2535, 1320}}};

// A click anywhere on a box toggles it, not only on its mark and caption: the short "Old"
// caption leaves most of its box empty.
class WholeCheckBox final : public QCheckBox {
public:
    using QCheckBox::QCheckBox;

protected:
    bool hitButton(const QPoint &pos) const override { return rect().contains(pos); }
};

void MakeLine(QWidget *parent, const QString &name, int top) {
    auto *line = new QFrame(parent);
    line->setObjectName(name);
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    PlaceTwips(line, kBoxLeft, top, kBoxWidth, 30);
}

} // namespace

Form3::Form3(quorvel::AppModel &model, QWidget *parent) : QWidget(parent, Qt::Window), model_(model) {
    SetUpSecondaryWindow(this, QStringLiteral("Form3"), QStringLiteral("Options"));
    setFixedSize(TwipsToPx(kInnerWidth), TwipsToPx(kInnerHeight));

    BuildControls();
    BuildDisplayScale();
    FitButtonCaptions(this);
    Form_Load();
}

void Form3::BuildControls() {
    QFrame *picture1 = MakePanel(this, QStringLiteral("Picture1"), kPanelColour);
    PlaceTwips(picture1, 120, 120, 4560, 3360);

    for (std::size_t i = 0; i < kBoxes.size(); ++i) {
        const BoxPlace &place = kBoxes[i];
        Check1[i] = new WholeCheckBox(QString::fromLatin1(place.caption), picture1);
        Check1[i]->setObjectName(QStringLiteral("Check1_%1").arg(i));
        PlaceTwips(Check1[i], place.left, place.top, place.width, kRowHeight);
    }
    MakeLine(picture1, QStringLiteral("Line1"), 915);
    MakeLine(picture1, QStringLiteral("Line2"), 1815);
    MakeLine(picture1, QStringLiteral("Line3"), 2850);

    QLabel *label1 =
        MakeLabel(picture1, QStringLiteral("Label1"),
                  QStringLiteral("Halvik has made 3 different equations for CL prediction. Which one(s) do "
                                 "you want the tool to display?"),
                  kBoxLeft, 1875, kBoxWidth, 630);
    label1->setWordWrap(true);

    MakeLabel(picture1, QStringLiteral("Label2"), QStringLiteral("Exp points:"), kBoxLeft, 2985, 1080, kRowHeight);
    HScroll1 = new QScrollBar(Qt::Horizontal, picture1);
    HScroll1->setObjectName(QStringLiteral("HScroll1"));
    HScroll1->setAccessibleName(QStringLiteral("Exp points"));
    HScroll1->setRange(1, 12);
    // Steps: one point a click on an arrow, three a click beside the thumb.
    HScroll1->setSingleStep(1);
    HScroll1->setPageStep(3);
    PlaceTwips(HScroll1, 1260, 2985, 2520, kRowHeight);
    Label3 = MakeLabel(picture1, QStringLiteral("Label3"), QStringLiteral("1"), 3900, 2985, 480, kRowHeight);
    connect(HScroll1, &QScrollBar::valueChanged, this, &Form3::HScroll1_Change);

    Command4 = new QPushButton(QStringLiteral("Save"), this);
    Command4->setObjectName(QStringLiteral("Command4"));
    PlaceTwips(Command4, 1800, 3840, 1335, 435);
    connect(Command4, &QPushButton::clicked, this, &Form3::Command4_Click);
    Command1 = new QPushButton(QStringLiteral("Cancel"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    PlaceTwips(Command1, 3345, 3840, 1335, 435);
    connect(Command1, &QPushButton::clicked, this, &QWidget::close);
}

// Between the panel and the buttons, where nothing else stands.
void Form3::BuildDisplayScale() {
    QLabel *caption = MakeLabel(this, QStringLiteral("DisplayScaleLabel"),
                                QStringLiteral("Display scale (next start):"), 240, 3525, 3060, 255);
    DisplayScaleBox = new QComboBox(this);
    DisplayScaleBox->setObjectName(QStringLiteral("DisplayScaleBox"));
    DisplayScaleBox->setAccessibleName(QStringLiteral("Display scale"));
    caption->setBuddy(DisplayScaleBox);
    for (int percent = kSmallestScale; percent <= kLargestScale; percent += kScaleStep)
        DisplayScaleBox->addItem(QStringLiteral("%1 %").arg(percent), percent);
    DisplayScaleBox->setCurrentIndex(DisplayScaleBox->findData(PreferredDisplayScale()));
    PlaceTwips(DisplayScaleBox, 3345, 3510, 1335, 285);
}

// The boxes show the options as they are; the points are brought into 1..12 at once, so
// they stay there also when the window is cancelled.
void Form3::Form_Load() {
    for (std::size_t i = 0; i < Check1.size(); ++i)
        Check1[i]->setChecked(model_.Settings().Options[i]);
    HScroll1->setValue(model_.ClampExpPoints());
    HScroll1_Change(HScroll1->value());
}

void Form3::HScroll1_Change(int value) {
    Label3->setText(ShownNumber(quorvel::FormatWhole(value)));
}

void Form3::Command4_Click() {
    std::array<bool, quorvel::kSettingCount> options{};
    for (std::size_t i = 0; i < Check1.size(); ++i)
        options[i] = Check1[i]->isChecked();
    model_.SaveOptions(options, HScroll1->value());
    // Only a scale the user picked is kept: an untouched box goes on following the screen.
    const int scale = DisplayScaleBox->currentData().toInt();
    if (scale != PreferredDisplayScale())
        StoreDisplayScale(scale);
    close();
}
