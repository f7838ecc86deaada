#include "EditorPanel.h"

#include "AppModel.h"
#include "Captions.h"
#include "EntryBox.h"
#include "Fonts.h"
#include "ModelHub.h"
#include "ReferenceTables.h"
#include "SampleBox.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFocusEvent>
#include <QFrame>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>

#include <array>

using namespace quorvel;

namespace {

constexpr int kRowTop = 150;
constexpr int kRowPitch = 255;
constexpr int kBoxHeight = 240;

int RowTop(int row) {
    return kRowTop + row * kRowPitch;
}

// The list column box 0..11 edits: the ten attributes, the name and the level.
ListColumn BoxColumn(int box) {
    return box < kAttributeCount ? AttributeColumn(box) : box == 10 ? ListColumn::Name : ListColumn::Level;
}

} // namespace

EditorPanel::EditorPanel(AppModel &model, ModelHub &hub, QWidget *central) : QObject(central), model_(model) {
    Picture4 = MakePanel(central, QStringLiteral("Picture4"), kPanelColour);
    Picture4->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(Picture4, 4200, 7920, 8055, 1455);

    Label41 = MakeFoldLabel(Picture4, QStringLiteral("Label41"));

    BuildControls();

    for (int i = 0; i < 12; ++i) {
        SampleBox *box = Text1[static_cast<std::size_t>(i)];
        connect(box, &SampleBox::gotFocus, this, [this, i] { Text1_GotFocus(i); });
        connect(box, &SampleBox::lostFocus, this, [this, i] { Text1_LostFocus(i); });
        connect(box, &QLineEdit::returnPressed, this, [this, i] { Text1_KeyPress(i); });
    }
    Combo1->installEventFilter(this);
    Combo2->installEventFilter(this);
    connect(Command3, &QPushButton::clicked, this, &EditorPanel::Command3_Click);
    connect(Command4, &QPushButton::clicked, this, &EditorPanel::Command4_Click);
    // Also when the start-up sets the switch from the settings.
    connect(Check1, &QCheckBox::toggled, this, &EditorPanel::Check1_Click);
    for (QRadioButton *option : Option1)
        connect(option, &QRadioButton::clicked, this, &EditorPanel::Option1_Click);
    connect(Label41, &ClickLabel::clicked, this, [this] { model_.ToggleFold(FoldPart::Editor); });
    connect(&hub, &ModelHub::foldChanged, this, [this](FoldPart part, bool folded) {
        if (part == FoldPart::Editor)
            SetFolded(folded);
    });
}

void EditorPanel::BuildControls() {
    // Columns 1 and 2 hold the ten attributes, column 3 name, level, planet, quality and
    // origin, column 4 the switch and the buttons. The captions narrow until each fits.
    const std::array<int, 3> titleLefts{150, 1920, 3990};
    const std::array<int, 3> titleWidths{1000, 1290, 570};
    const auto columnOf = [](int i) { return static_cast<std::size_t>(i < 5 ? 0 : i < 10 ? 1 : 2); };
    QList<TextFit> fits;
    for (int i = 0; i < 12; ++i)
        fits.append({SampleBoxCaption(i), TwipsToPx(titleWidths[columnOf(i)])});
    const QFont captionFont = FittingFont(Picture4->font(), fits);
    for (int i = 0; i < 12; ++i) {
        const int row = i < 10 ? i % 5 : i - 10;
        const int titleLeft = titleLefts[columnOf(i)];
        const int titleWidth = titleWidths[columnOf(i)];
        MakeLabel(Picture4, QString(), SampleBoxCaption(i), titleLeft, RowTop(row), titleWidth, kBoxHeight)
            ->setFont(captionFont);
        auto *box = new SampleBox(i == 10 ? QString() : QStringLiteral("0"), Picture4);
        box->setObjectName(QStringLiteral("Text1_%1").arg(i));
        box->setAccessibleName(SampleBoxCaption(i).chopped(1));
        PlaceTwips(box, titleLeft + titleWidth, RowTop(row), i == 10 ? 1650 : 690, kBoxHeight);
        Text1[static_cast<std::size_t>(i)] = box;
    }

    Combo2 = MakeEntryBox(Picture4, QStringLiteral("Combo2"), PlanetEntries(), QStringLiteral("Planet"));
    PlaceTwips(Combo2, 3990, RowTop(2), 1200, kBoxHeight + 30);

    Combo1 = MakeEntryBox(Picture4, QStringLiteral("Combo1"),
                          {QStringLiteral("Poor"), QStringLiteral("BAQ"), QStringLiteral("AQ"), QStringLiteral("AAQ"),
                           QStringLiteral("HQ"), QStringLiteral("VHQ"), QStringLiteral("?")},
                          QStringLiteral("Quality"));
    PlaceTwips(Combo1, 5250, RowTop(2), 960, kBoxHeight + 30);

    Option1[0] = new QRadioButton(QStringLiteral("Wild"), Picture4);
    Option1[0]->setObjectName(QStringLiteral("Option1_0"));
    Option1[0]->setChecked(true);
    PlaceTwips(Option1[0], 3990, RowTop(3) + 30, 900, kBoxHeight);
    Option1[1] = new QRadioButton(QStringLiteral("Mission"), Picture4);
    Option1[1]->setObjectName(QStringLiteral("Option1_1"));
    PlaceTwips(Option1[1], 4900, RowTop(3) + 30, 1100, kBoxHeight);

    Check1 = new QCheckBox(QStringLiteral("LFocus"), Picture4);
    Check1->setObjectName(QStringLiteral("Check1"));
    PlaceTwips(Check1, 6510, RowTop(1), 1200, kBoxHeight);

    Command3 = new QPushButton(QStringLiteral("Edit"), Picture4);
    Command3->setObjectName(QStringLiteral("Command3"));
    PlaceTwips(Command3, 6510, RowTop(2), 1200, kBoxHeight + 30);

    Command4 = new QPushButton(QStringLiteral("New"), Picture4);
    Command4->setObjectName(QStringLiteral("Command4"));
    PlaceTwips(Command4, 6510, RowTop(3) + 45, 1200, kBoxHeight + 30);

    // Keyboard order: Edit, New, the switch, "Mission", the twelve boxes, planet, quality, "Wild".
    QList<QWidget *> order{Command3, Command4, Check1, Option1[1]};
    for (QLineEdit *box : Text1)
        order << box;
    order << Combo2 << Combo1 << Option1[0];
    for (int i = 0; i + 1 < order.size(); ++i)
        QWidget::setTabOrder(order[i], order[i + 1]);
}

void EditorPanel::SetFolded(bool folded) {
    Picture4->resize(Picture4->width(), TwipsToPx(folded ? 135 : 1455));
}

void EditorPanel::ShowChoice(QComboBox *combo, int position) {
    const bool shown = position >= 0 && position < combo->count();
    combo->setCurrentIndex(shown ? position : -1);
    combo->setEditText(shown ? combo->itemText(position) : QString());
}

void EditorPanel::ShowRecordInEditor() {
    const DnaRecord &record = model_.Library().Selected();
    for (int i = 0; i < kAttributeCount; ++i)
        Text1[static_cast<std::size_t>(i)]->setText(QString::number(record.Attributes[static_cast<std::size_t>(i)]));
    Text1[10]->setText(ToQt(record.Name));
    Text1[11]->setText(QString::number(record.Level));
    ShowChoice(Combo2, record.Planet);
    // The quality box has no entry for index 7 (nor for anything beyond the table): it then
    // shows no entry and an empty text.
    ShowChoice(Combo1, QualityIndex(record.Quality));
    Option1[record.Origin != 0 ? 1 : 0]->setChecked(true);
}

void EditorPanel::ApplyEditorToRecord(int box) {
    if (box < 0 || box > 11)
        return;
    model_.StoreSelectedText(BoxColumn(box), FromQt(Text1[static_cast<std::size_t>(box)]->text()));
}

void EditorPanel::StorePlanet() {
    model_.StoreSelectedPlanet(ChosenEntry(Combo2));
}

void EditorPanel::StoreQuality() {
    model_.StoreSelectedQuality(ChosenEntry(Combo1));
}

void EditorPanel::StoreOrigin() {
    model_.StoreSelectedOrigin(Option1[0]->isChecked() ? 0 : 1);
}

void EditorPanel::Command3_Click() {
    for (int box = 0; box < 12; ++box)
        ApplyEditorToRecord(box);
    StorePlanet();
    StoreQuality();
    StoreOrigin();
}

void EditorPanel::Command4_Click() {
    if (!model_.NewDnaRecord()) {
        // A full library refuses the new sample and says why.
        QMessageBox full(QMessageBox::Information, QStringLiteral("New DNA"),
                         QStringLiteral("The library is full: it holds %1 samples.").arg(kMaxSamples), QMessageBox::Ok,
                         Picture4->window());
        full.exec();
        return;
    }
    // The new sample's values are exactly the panel's reset values.
    ShowRecordInEditor();
}

void EditorPanel::Check1_Click() {
    Command3->setEnabled(!Check1->isChecked());
}

void EditorPanel::Combo1_LostFocus() {
    if (Check1->isChecked())
        StoreQuality();
}

void EditorPanel::Combo2_LostFocus() {
    if (Check1->isChecked())
        StorePlanet();
}

void EditorPanel::Option1_Click() {
    if (Check1->isChecked())
        StoreOrigin();
}

void EditorPanel::Text1_GotFocus(int box) {
    Text1[static_cast<std::size_t>(box)]->selectAll();
}

void EditorPanel::Text1_KeyPress(int box) {
    // Enter in the last box (Level) does nothing.
    if (box < 11)
        Text1[static_cast<std::size_t>(box + 1)]->setFocus();
}

void EditorPanel::Text1_LostFocus(int box) {
    if (Check1->isChecked())
        ApplyEditorToRecord(box);
}

bool EditorPanel::eventFilter(QObject *watched, QEvent *event) {
    if (event->type() != QEvent::FocusOut)
        return false;
    // Opening a drop-down list, or switching windows, leaves no box.
    const Qt::FocusReason reason = static_cast<QFocusEvent *>(event)->reason();
    if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason)
        return false;
    if (watched == Combo1)
        Combo1_LostFocus();
    else if (watched == Combo2)
        Combo2_LostFocus();
    return false;
}
