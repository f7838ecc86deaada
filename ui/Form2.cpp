#include "Form2.h"

#include "AppModel.h"
#include "Captions.h"
#include "EntryBox.h"
#include "Fonts.h"
#include "ModelHub.h"
#include "SampleBox.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"
#include "WindowUtil.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QFrame>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr int kNarrowWidth = 3450;
constexpr int kWideWidth = 5730;
constexpr int kInnerHeight = 4800;
constexpr int kInputsWidth = 3120; // Picture4
constexpr int kPanelHeight = 4200;
constexpr int kRowTop = 60;
constexpr int kRowPitch = 285;
constexpr int kRowHeight = 255;
constexpr int kTitleLeft = 60;
constexpr int kBoxLeft = 1260;
constexpr int kBoxWidth = 810;
constexpr int kBottomTop = 4320;
constexpr int kBottomHeight = 345;

int RowTop(int row) {
    return kRowTop + row * kRowPitch;
}

} // namespace

Form2::Form2(quorvel::AppModel &model, ModelHub &hub, QWidget *parent)
    : QWidget(parent, Qt::Window), model_(model), hub_(hub) {
    SetUpSecondaryWindow(this, QStringLiteral("Form2"), QStringLiteral("Add DNA"));
    setFixedSize(TwipsToPx(kNarrowWidth), TwipsToPx(kInnerHeight));

    BuildInputs();
    BuildStatsPanel();
    BuildBottomRow();
    SetTabOrder();
    FitButtonCaptions(this);
    Form_Load();
}

void Form2::BuildInputs() {
    Picture4 = new QFrame(this);
    Picture4->setObjectName(QStringLiteral("Picture4"));
    PlaceTwips(Picture4, 0, 0, kInputsWidth, kPanelHeight);

    // The captions narrow until "Dependability:" fits beside its box.
    const QFont captionFont = FittingFont(font(), {{SampleBoxCaption(6), TwipsToPx(kBoxLeft - kTitleLeft)},
                                                   {QStringLiteral("Planet:"), TwipsToPx(kBoxLeft - kTitleLeft)}});
    for (int i = 0; i < 12; ++i) {
        const QString title = SampleBoxCaption(i);
        MakeLabel(Picture4, QString(), title, kTitleLeft, RowTop(i), kBoxLeft - kTitleLeft, kRowHeight)
            ->setFont(captionFont);
        auto *box = new SampleBox(Picture4);
        box->setObjectName(QStringLiteral("Text1_%1").arg(i));
        box->setAccessibleName(title.chopped(1));
        PlaceTwips(box, kBoxLeft, RowTop(i), i == 10 ? 2 * kBoxWidth : kBoxWidth, kRowHeight);
        Text1[static_cast<std::size_t>(i)] = box;
        connect(box, &SampleBox::gotFocus, this, [this, i] { Text1_GotFocus(i); });
        connect(box, &SampleBox::lostFocus, this, [this, i] { Text1_LostFocus(i); });
        connect(box, &QLineEdit::returnPressed, this, [this, i] { Text1_KeyPress(i); });
    }

    Combo1 = MakeEntryBox(Picture4, QStringLiteral("Combo1"),
                          {QStringLiteral("VHQ"), QStringLiteral("HQ"), QStringLiteral("AAQ"), QStringLiteral("AQ"),
                           QStringLiteral("BAQ"), QStringLiteral("LQ"), QStringLiteral("VLQ"), QStringLiteral("?")},
                          QStringLiteral("Quality"));
    PlaceTwips(Combo1, kBoxLeft + kBoxWidth + 60, RowTop(11) - 15, 960, kRowHeight + 30);

    MakeLabel(Picture4, QString(), QStringLiteral("Planet:"), kTitleLeft, RowTop(12), kBoxLeft - kTitleLeft, kRowHeight)
        ->setFont(captionFont);
    Combo2 = MakeEntryBox(Picture4, QStringLiteral("Combo2"), PlanetEntries(), QStringLiteral("Planet"));
    PlaceTwips(Combo2, kBoxLeft, RowTop(12) - 15, 2 * kBoxWidth, kRowHeight + 30);

    Option1[0] = new QRadioButton(QStringLiteral("Wild"), Picture4);
    Option1[0]->setObjectName(QStringLiteral("Option1_0"));
    Option1[0]->setChecked(true);
    PlaceTwips(Option1[0], kBoxLeft, RowTop(13) + 30, 900, kRowHeight);
    Option1[1] = new QRadioButton(QStringLiteral("Mission"), Picture4);
    Option1[1]->setObjectName(QStringLiteral("Option1_1"));
    PlaceTwips(Option1[1], kBoxLeft + 900, RowTop(13) + 30, 1080, kRowHeight);

    Label1 = new ClickLabel(QStringLiteral(">>"), this);
    Label1->setObjectName(QStringLiteral("Label1"));
    Label1->setAlignment(Qt::AlignCenter);
    // Over the end of the inputs' first row, which holds only the Hardiness box.
    PlaceTwips(Label1, kNarrowWidth - 420, 0, 360, kRowHeight);
    connect(Label1, &ClickLabel::clicked, this, &Form2::Label1_Click);
}

void Form2::BuildStatsPanel() {
    Picture1 = new QFrame(this);
    Picture1->setObjectName(QStringLiteral("Picture1"));
    // The panel fills the part of the wide window that the narrow one leaves out.
    PlaceTwips(Picture1, kNarrowWidth, 0, kWideWidth - kNarrowWidth, kPanelHeight);
    // The widest caption and value fit, the value with a margin before the window's edge.
    QList<TextFit> fits{{QStringLiteral("8888 [8888]"), TwipsToPx(1080 - 60)}};
    for (int i = 0; i < 11; ++i)
        fits.append({StatCaption(i), TwipsToPx(1140)});
    Picture1->setFont(FittingFont(font(), fits));
    for (int i = 0; i < 11; ++i) {
        const int height = i == 10 ? 3 * kRowHeight + 90 : kRowHeight;
        // Captions and values share a top edge, so that each value stands on its caption's line.
        MakeLabel(Picture1, QString(), StatCaption(i), 60, RowTop(i), 1140, kRowHeight)
            ->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        QLabel *value = MakeLabel(Picture1, QStringLiteral("Label23_%1").arg(i), QStringLiteral("0"), 1200, RowTop(i),
                                  1080, height);
        value->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        Label23[static_cast<std::size_t>(i)] = value;
    }
}

void Form2::BuildBottomRow() {
    Check1 = new QCheckBox(QStringLiteral("Always on top"), this);
    Check1->setObjectName(QStringLiteral("Check1"));
    PlaceTwips(Check1, 60, kBottomTop, 1560, kBottomHeight);
    connect(Check1, &QCheckBox::toggled, this, &Form2::Check1_Click);

    Command4 = new QPushButton(QStringLiteral("Save"), this);
    Command4->setObjectName(QStringLiteral("Command4"));
    PlaceTwips(Command4, 1680, kBottomTop, 780, kBottomHeight);
    connect(Command4, &QPushButton::clicked, this, &Form2::Command4_Click);

    Command1 = new QPushButton(QStringLiteral("Exit"), this);
    Command1->setObjectName(QStringLiteral("Command1"));
    PlaceTwips(Command1, 2520, kBottomTop, 780, kBottomHeight);
    connect(Command1, &QPushButton::clicked, this, &QWidget::close);
}

void Form2::SetTabOrder() {
    QList<QWidget *> order{Combo2, Combo1, Option1[1], Option1[0], Command4, Check1, Command1};
    for (SampleBox *box : Text1)
        order << box;
    for (int i = 0; i + 1 < order.size(); ++i)
        QWidget::setTabOrder(order[i], order[i + 1]);
}

void Form2::Form_Load() {
    hub_.ApplySecondaryWindowOptions(this, Check1);
}

void Form2::closeEvent(QCloseEvent *event) {
    if (!unloaded_)
        Form_Unload();
    QWidget::closeEvent(event);
}

void Form2::Form_Unload() {
    unloaded_ = true;
    hub_.SecondaryWindowClosed();
}

void Form2::Check1_Click() {
    SetTopMost(this, Check1->isChecked());
}

void Form2::Label1_Click() {
    const bool live = model_.ToggleLiveEvaluation();
    setFixedWidth(TwipsToPx(live ? kWideWidth : kNarrowWidth));
}

void Form2::Text1_GotFocus(int box) {
    Text1[static_cast<std::size_t>(box)]->selectAll();
}

void Form2::Text1_KeyPress(int box) {
    if (unloaded_ || box > 10)
        return;
    if (model_.LiveEvaluation())
        EvaluateTypedSample();
    Text1[static_cast<std::size_t>(box) + 1]->setFocus(Qt::TabFocusReason);
}

void Form2::Text1_LostFocus(int) {
    if (!unloaded_ && model_.LiveEvaluation())
        EvaluateTypedSample();
}
