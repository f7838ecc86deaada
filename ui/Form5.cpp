#include "Form5.h"

#include "AppModel.h"
#include "Fonts.h"
#include "ModelHub.h"
#include "ReferenceTables.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"
#include "WindowUtil.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QFrame>
#include <QPushButton>

namespace {

// The points column has twelve boxes; the window's inner area is 8295 by 6315 twips.
constexpr int kInnerWidth = 8295;
constexpr int kInnerHeight = 6315;

QColor ColourOf(quorvel::BoxColour colour) {
    switch (colour) {
    case quorvel::BoxColour::Yellow:
        return {255, 255, 0};
    case quorvel::BoxColour::Green:
        return {0, 255, 0};
    case quorvel::BoxColour::White:
        break;
    }
    return {255, 255, 255};
}

// What a colour means: in a category row, or in the points column.
QString ColourMeaning(quorvel::BoxColour colour, bool pointsColumn) {
    switch (colour) {
    case quorvel::BoxColour::Yellow:
        return pointsColumn ? QStringLiteral("yellow, point remaining") : QStringLiteral("yellow, reached");
    case quorvel::BoxColour::Green:
        return pointsColumn ? QStringLiteral("green, not used") : QStringLiteral("green, point placed");
    case quorvel::BoxColour::White:
        break;
    }
    return pointsColumn ? QStringLiteral("white, point used") : QStringLiteral("white, room to grow");
}

// Fills a box with its colour and tells screen readers its place and state ("Physique box 3:
// white, room to grow"); boxes are counted from 1, as a person counts them.
void PaintBox(QWidget *box, quorvel::BoxColour colour, const QString &place, bool pointsColumn) {
    QPalette palette = box->palette();
    palette.setColor(QPalette::Window, ColourOf(colour));
    box->setPalette(palette);
    box->setAccessibleName(place + QStringLiteral(": ") + ColourMeaning(colour, pointsColumn));
}

} // namespace

Form5::Form5(quorvel::AppModel &model, ModelHub &hub, QWidget *parent)
    : QWidget(parent, Qt::Window), model_(model), hub_(hub) {
    SetUpSecondaryWindow(this, QStringLiteral("Form5"), QStringLiteral("ExpSim"));
    setFixedSize(TwipsToPx(kInnerWidth), TwipsToPx(kInnerHeight));

    BuildValuesPanel();
    BuildStatsPanel();
    BuildPointsColumn();
    BuildCategoryRows();
    BuildButtons();
    FitButtonCaptions(this);
    connect(Command1, &QPushButton::clicked, this, &QWidget::close);
    connect(Command2, &QPushButton::clicked, this, &Form5::Command2_Click);
    connect(Command3, &QPushButton::clicked, this, &Form5::Command3_Click);
    connect(Check1, &QCheckBox::clicked, this, &Form5::Check1_Click);

    OpenExperimentWindow();
}

void Form5::OpenExperimentWindow() {
    model_.OpenSession();
    ShowOpenedSession();
}

void Form5::ShowOpenedSession() {
    hub_.ApplySecondaryWindowOptions(this, Check1);
    ShowSession();
    PredictPet();
}

void Form5::PlaceBox(int category, int box) {
    model_.PlacePoint(static_cast<quorvel::Category>(category), box);
    ShowSession();
}

void Form5::Command2_Click() {
    model_.RunExperiment();
    ShowSession();
    PredictPet();
}

void Form5::Command3_Click() {
    model_.ResetSession();
    ShowOpenedSession();
}

void Form5::Check1_Click() {
    SetTopMost(this, Check1->isChecked());
}

void Form5::closeEvent(QCloseEvent *event) {
    CloseExperimentWindow();
    QWidget::closeEvent(event);
}

void Form5::CloseExperimentWindow() {
    hub_.SecondaryWindowClosed();
}

void Form5::ShowSession() {
    const quorvel::ExperimentSession &s = model_.Session();
    Label1->setText(QString::number(s.RemainingPoints));
    for (std::size_t b = 0; b < Picture4.size(); ++b)
        PaintBox(Picture4[b], s.Points[b], QStringLiteral("Point box %1").arg(b + 1), true);
    for (std::size_t c = 0; c < Boxes.size(); ++c) {
        for (std::size_t b = 0; b < Boxes[c].size(); ++b) {
            const QString place = QStringLiteral("%1 box %2").arg(QLatin1String(quorvel::CategoryTable[c])).arg(b + 1);
            PaintBox(Boxes[c][b], s.Rows[c][b], place, false);
            Boxes[c][b]->setHidden(!s.Visible[c][b]);
        }
        Label42[c]->setText(ToQt(s.CurrentPercentText[c]));
        Label5[c]->setText(ToQt(s.CapPercentText[c]));
    }
    for (std::size_t k = 0; k < s.ValueTexts.size(); ++k)
        Label14[k]->setText(ToQt(s.ValueTexts[k]));
    Command2->setEnabled(s.PointPending);
}

void Form5::PredictPet() {
    ShowStatTexts(Label23, model_.PredictTemplatePet());
}
