#include "TemplatePanel.h"

#include "Captions.h"
#include "Fonts.h"
#include "ModelHub.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"

#include <QFrame>
#include <QListWidget>
#include <QMouseEvent>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr std::array<const char *, 5> kCategoryTitles{
    "Physique:", "Prowess:", "Mental:", "Psychology:", "Aggressiveness:"};
constexpr std::array<std::pair<int, int>, 5> kListPlaces{
    {{120, 960}, {2160, 960}, {120, 2400}, {2160, 2400}, {120, 3840}}};
constexpr int kListWidth = 1935;
constexpr int kFoldedList = 225;
constexpr int kUnfoldedList = 1200;

QString Indexed(const char *name, int index) {
    return QStringLiteral("%1_%2").arg(QString::fromLatin1(name)).arg(index);
}

// Each box shows its five contribution labels left to right for pairs 0..4; box 0 holds
// labels 0..4, box i the labels 5i+4 down to 5i.
int ContributionIndex(int category, int pair) {
    return category == 0 ? pair : 5 * category + 4 - pair;
}

} // namespace

TemplatePanel::TemplatePanel(quorvel::AppModel &model, ModelHub &hub, QWidget *central)
    : QObject(central), model_(model) {
    for (int i = 0; i < 5; ++i)
        BuildCategory(central, i, kListPlaces[static_cast<std::size_t>(i)].first,
                      kListPlaces[static_cast<std::size_t>(i)].second);

    Command7 = new QPushButton(QStringLiteral("Simulate Exp. Session"), central);
    Command7->setObjectName(QStringLiteral("Command7"));
    PlaceTwips(Command7, 2160, 3840, 1935, 375);
    Command7->setEnabled(false);

    Command5 = new QPushButton(QStringLiteral("Unfold All"), central);
    Command5->setObjectName(QStringLiteral("Command5"));
    PlaceTwips(Command5, 2160, 4320, 1935, 255);

    Command6 = new QPushButton(QStringLiteral("Clear Experiment"), central);
    Command6->setObjectName(QStringLiteral("Command6"));
    PlaceTwips(Command6, 2160, 4680, 1935, 255);
    Command6->setEnabled(false);

    BuildValuesPanel(central);

    // An unfolded list lies over the box below it.
    for (QListWidget *list : List1)
        list->raise();

    for (const quorvel::Category category : quorvel::kCategories) {
        const std::size_t at = quorvel::Index(category);
        const auto put = [this, category] { model_.PutDnaInTemplate(category); };
        connect(new DropFilter(Picture1[at]), &DropFilter::dropped, this, put);
        connect(new DropFilter(List1[at]), &DropFilter::dropped, this, put);
        List1[at]->viewport()->installEventFilter(this);
        connect(Command2[at], &QPushButton::clicked, this, [this, category] { model_.ToggleExperiment(category); });
        connect(Label2[at], &ClickLabel::clicked, this,
                [this, category] { model_.ToggleFold(quorvel::ListFold(category)); });
    }
    connect(Label1, &ClickLabel::clicked, this, [this] { model_.ToggleFold(quorvel::FoldPart::ValuesPanel); });
    connect(Command5, &QPushButton::clicked, this, &TemplatePanel::FoldAllLists);

    connect(&hub, &ModelHub::categoryFilled, this, &TemplatePanel::ShowCategory);
    connect(&hub, &ModelHub::categoryCleared, this, &TemplatePanel::ClearCategory);
    connect(&hub, &ModelHub::templateCleared, this, &TemplatePanel::ClearWholeTemplate);
    connect(&hub, &ModelHub::experimentToggled, this, &TemplatePanel::ShowExperimented);
    connect(&hub, &ModelHub::templateEvaluated, this, &TemplatePanel::ShowEvaluation);
    connect(&hub, &ModelHub::foldChanged, this, &TemplatePanel::ShowFold);
}

bool TemplatePanel::eventFilter(QObject *watched, QEvent *event) {
    // A double-click on a category list empties the category.
    if (event->type() == QEvent::MouseButtonDblClick && static_cast<QMouseEvent *>(event)->button() == Qt::LeftButton) {
        for (int i = 0; i < 5; ++i) {
            if (watched == List1[static_cast<std::size_t>(i)]->viewport()) {
                model_.ClearTemplate(quorvel::ClearScope::OneCategory, static_cast<quorvel::Category>(i));
                return true;
            }
        }
    }
    return QObject::eventFilter(watched, event);
}

void TemplatePanel::BuildCategory(QWidget *central, int i, int left, int top) {
    auto *title = new ClickLabel(QString::fromLatin1(kCategoryTitles[static_cast<std::size_t>(i)]), central);
    title->setObjectName(Indexed("Label2", i));
    PlaceTwips(title, left, top - 225, kListWidth, 210);
    Label2[static_cast<std::size_t>(i)] = title;

    auto *box = MakePanel(central, Indexed("Picture1", i), QColor(150, 138, 110));
    box->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(box, left, top + 240, kListWidth, 930);
    const int cell = kListWidth / 5;
    box->setFont(FittingFont(central->font(), {{QStringLiteral("Exp:"), TwipsToPx(400)},
                                               {QStringLiteral("100%/100%"), TwipsToPx(1000)},
                                               {QStringLiteral("888"), TwipsToPx(cell)}}));
    Picture1[static_cast<std::size_t>(i)] = box;

    auto *list = new QListWidget(central);
    list->setObjectName(Indexed("List1", i));
    list->setFrameShape(QFrame::NoFrame);
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    PlaceTwips(list, left, top, kListWidth, kFoldedList);
    List1[static_cast<std::size_t>(i)] = list;

    Label28[static_cast<std::size_t>(i)] =
        MakeLabel(box, Indexed("Label28", i), QStringLiteral("Exp:"), 60, 45, 400, 240);
    Label42[static_cast<std::size_t>(i)] =
        MakeLabel(box, Indexed("Label42", i), QStringLiteral("0%/0%"), 480, 45, 1000, 240);

    auto *toggle = new QPushButton(QStringLiteral("+"), box);
    toggle->setObjectName(Indexed("Command2", i));
    PlaceTwips(toggle, kListWidth - 360, 30, 300, 300);
    toggle->setEnabled(false);
    Command2[static_cast<std::size_t>(i)] = toggle;

    auto *line = new QFrame(box);
    line->setObjectName(Indexed("Line1", i));
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    PlaceTwips(line, 60, 390, kListWidth - 120, 30);
    Line1[static_cast<std::size_t>(i)] = line;

    // The box's own pair is drawn in white.
    for (int pair = 0; pair < 5; ++pair) {
        const int index = ContributionIndex(i, pair);
        QLabel *label = MakeLabel(box, Indexed("Label43", index), QStringLiteral("0"), pair * cell, 480, cell, 300);
        label->setAlignment(Qt::AlignCenter);
        SetTextColour(label, pair == i ? Qt::white : Qt::black);
        Label43[static_cast<std::size_t>(index)] = label;
    }
}

void TemplatePanel::BuildValuesPanel(QWidget *central) {
    Picture2 = MakePanel(central, QStringLiteral("Picture2"), kPanelColour);
    Picture2->setFrameShape(QFrame::StyledPanel);
    Picture2->setFocusPolicy(Qt::StrongFocus);
    PlaceTwips(Picture2, 120, 5160, 3975, 1695);

    Label1 = MakeFoldLabel(Picture2, QStringLiteral("Label1"));

    // Two columns of caption and value: Hardiness..Cleverness on the left, Dependability..Power
    // on the right with Power two lines high, and the quality in a row of its own below, wide
    // enough for "CL prediction won't be correct". The font narrows until "Dependability:" and
    // "1150 [1000]" fit side by side.
    const QString widest = QStringLiteral("8888 [8888]");
    constexpr int pitch = 225;
    constexpr int leftCaption = 150;
    constexpr int leftValue = 1020;
    constexpr int rightCaption = 1950;
    constexpr int rightValue = 3015;
    constexpr int rightEdge = 3930;
    Picture2->setFont(FittingFont(central->font(), {{SampleBoxCaption(6), TwipsToPx(rightValue - rightCaption)},
                                                    {SampleBoxCaption(5), TwipsToPx(leftValue - leftCaption)},
                                                    {widest, TwipsToPx(rightCaption - leftValue)},
                                                    {widest, TwipsToPx(rightEdge - rightValue)}}));
    for (int a = 0; a < 11; ++a) {
        const bool right = a >= 6 && a < 10;
        const int row = right ? a - 6 : a == 10 ? 6 : a;
        const int captionLeft = right ? rightCaption : leftCaption;
        const int valueLeft = right ? rightValue : leftValue;
        const int top = 60 + row * pitch;
        const int width = (right || a == 10 ? rightEdge : rightCaption) - valueLeft;
        QLabel *caption = MakeLabel(Picture2, QString(), (a < 10 ? SampleBoxCaption(a) : QStringLiteral("Quality:")),
                                    captionLeft, top, valueLeft - captionLeft, pitch);
        caption->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        QLabel *value = MakeLabel(Picture2, Indexed("Label14", a), a == 10 ? QString() : QStringLiteral("0 [0]"),
                                  valueLeft, top, width, a == 9 ? 2 * pitch : pitch);
        value->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        Label14[static_cast<std::size_t>(a)] = value;
    }
}

void TemplatePanel::ClearCategory(quorvel::Category category) {
    ResetExperimentButtons();
    for (int pair = 0; pair < 5; ++pair)
        ContributionLabel(static_cast<int>(category), pair)->setText(QStringLiteral("0"));
    List1[quorvel::Index(category)]->clear();
    ShowSampleTip(quorvel::Index(category), QString());
}

void TemplatePanel::ClearWholeTemplate() {
    for (QLabel *label : Label43)
        label->setText(QStringLiteral("0"));
    for (int k = 0; k < 5; ++k) {
        List1[static_cast<std::size_t>(k)]->clear();
        Label42[static_cast<std::size_t>(k)]->setText(QStringLiteral("0%/0%"));
        ShowSampleTip(static_cast<std::size_t>(k), QString());
    }
    for (int a = 0; a < 10; ++a)
        Label14[static_cast<std::size_t>(a)]->setText(QStringLiteral("0 [0]"));
    Label14[10]->setText(QString());
}

void TemplatePanel::ShowFold(quorvel::FoldPart part, bool folded) {
    if (part == quorvel::FoldPart::ValuesPanel) {
        Picture2->resize(Picture2->width(), TwipsToPx(folded ? 135 : 1695));
    } else if (part < quorvel::FoldPart::ValuesPanel) {
        QListWidget *list = List1[static_cast<std::size_t>(part)];
        list->resize(list->width(), TwipsToPx(folded ? kFoldedList : kUnfoldedList));
    }
}

void TemplatePanel::FoldAllLists() {
    model_.FoldAllLists();
    Command5->setText(model_.FoldAllUnfolds() ? QStringLiteral("Unfold all") : QStringLiteral("Fold all"));
    Picture2->setFocus();
}

QLabel *TemplatePanel::ContributionLabel(int category, int pair) const {
    return Label43[static_cast<std::size_t>(ContributionIndex(category, pair))];
}

void TemplatePanel::ResetExperimentButtons() {
    for (QPushButton *toggle : Command2)
        toggle->setText(QStringLiteral("+"));
    SetExperimentButtonsEnabled(false);
}

void TemplatePanel::SetExperimentButtonsEnabled(bool enabled) {
    for (QPushButton *toggle : Command2)
        toggle->setEnabled(enabled);
    Command6->setEnabled(enabled);
    Command7->setEnabled(enabled);
}

bool TemplatePanel::TemplateComplete() const {
    return std::all_of(List1.begin(), List1.end(), [](const QListWidget *list) {
        const QListWidgetItem *line = list->currentItem();
        return line && line->isSelected() && !line->text().isEmpty();
    });
}

void TemplatePanel::ShowCategory(quorvel::Category category, const quorvel::CategoryView &view) {
    QListWidget *list = List1[quorvel::Index(category)];
    list->clear();
    ResetExperimentButtons();
    for (int pair = 0; pair < 5; ++pair)
        ContributionLabel(static_cast<int>(category), pair)
            ->setText(ToQt(view.Contributions[static_cast<std::size_t>(pair)]));
    for (const std::string &line : view.Lines)
        list->addItem(ToQt(line));
    list->setCurrentRow(view.SelectedLine);
    list->scrollToItem(list->currentItem(), QAbstractItemView::PositionAtTop);

    // The list shows one pair at a time; the tooltip shows the whole sample.
    const quorvel::TemplateSlot &slot = model_.Template().Slots[quorvel::Index(category)];
    QStringList tip{ToQt(slot.Name)};
    for (std::size_t a = 0; a < slot.Attributes.size(); a += 2)
        tip << QStringLiteral("%1 %2, %3 %4")
                   .arg(SampleBoxCaption(static_cast<int>(a)))
                   .arg(slot.Attributes[a])
                   .arg(SampleBoxCaption(static_cast<int>(a) + 1))
                   .arg(slot.Attributes[a + 1]);
    ShowSampleTip(quorvel::Index(category), tip.join(QLatin1Char('\n')));
}

void TemplatePanel::ShowSampleTip(std::size_t category, const QString &tip) {
    for (QWidget *box : {static_cast<QWidget *>(List1[category]), static_cast<QWidget *>(Picture1[category])}) {
        box->setToolTip(tip);
        box->setAccessibleDescription(tip);
    }
    for (int line = 0; line < List1[category]->count(); ++line)
        List1[category]->item(line)->setToolTip(tip);
}

void TemplatePanel::ShowExperimented(quorvel::Category category, bool experimented) {
    Command2[quorvel::Index(category)]->setText(experimented ? QStringLiteral("-") : QStringLiteral("+"));
}

void TemplatePanel::ShowEvaluation(const quorvel::TemplateEvaluation &shown) {
    for (std::size_t i = 0; i < Label42.size(); ++i)
        Label42[i]->setText(ShownNumber(shown.Label42[i]));
    for (std::size_t a = 0; a < shown.Label14.size(); ++a)
        Label14[a]->setText(ShownNumber(shown.Label14[a]));
    Label14[10]->setText(ToQt(shown.QualityText));
    SetExperimentButtonsEnabled(TemplateComplete());
}
