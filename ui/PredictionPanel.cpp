#include "PredictionPanel.h"

#include "AppModel.h"
#include "Fonts.h"
#include "ModelHub.h"
#include "Skins.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDateTime>
#include <QFocusEvent>
#include <QFrame>
#include <QInputDialog>
#include <QPushButton>
#include <QScrollBar>

PredictionPanel::PredictionPanel(quorvel::AppModel &model, ModelHub &hub, QWidget *central)
    : QObject(central), model_(model) {
    Picture3 = MakePanel(central, QStringLiteral("Picture3"), kPanelColour);
    Picture3->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(Picture3, 120, 6960, 3975, 2415);

    Label4 = MakeFoldLabel(Picture3, QStringLiteral("Label4"));

    Label3 = MakeLabel(Picture3, QStringLiteral("Label3"),
                       QStringLiteral("Drop your DNA Template here to predict a pet"), 180, 45, 3660, 420);
    Label3->setAlignment(Qt::AlignCenter);
    Label3->setWordWrap(true);
    Label3->setFrameShape(QFrame::Panel);
    Label3->setFrameShadow(QFrame::Sunken);
    // One line where a narrower face allows it: two lines of a readable size overfill the box.
    Label3->setFont(FittingFont(Label3->font(), {{Label3->text(), Label3->contentsRect().width()}}));

    Label23 = BuildStatLabels(Picture3, {540, 225, 150, 1080, 2070, 3090}, QStringLiteral("Critical save:"),
                              QStringLiteral("Label14_11"));
    HealthCaption = Picture3->findChild<QLabel *>(QStringLiteral("Label14_11"));

    Combo3 = new QComboBox(Picture3);
    Combo3->setObjectName(QStringLiteral("Combo3"));
    Combo3->setAccessibleName(QStringLiteral("Creature skin"));
    Combo3->setEditable(true);
    for (int i = 0; i < quorvel::kSkinCount; ++i)
        Combo3->addItem(ToQt(quorvel::SkinItemText(i)));
    // Typed text never becomes an item: the item index is the skin's row.
    Combo3->setInsertPolicy(QComboBox::NoInsert);
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

    connect(new DropFilter(Label3), &DropFilter::dropped, this, [this] { model_.PredictSelectedSample(); });
    connect(Label4, &ClickLabel::clicked, this, [this] { model_.ToggleFold(quorvel::FoldPart::PetPanel); });
    // A click on an item, the box losing the focus and a scroll of its list all apply the skin.
    connect(Combo3, &QComboBox::activated, this, &PredictionPanel::ApplySkinLevel);
    Combo3->installEventFilter(this);
    connect(Combo3->view()->verticalScrollBar(), &QScrollBar::valueChanged, this,
            [this] { ApplySkinLevel(ChosenSkin()); });

    connect(Command1, &QPushButton::clicked, this, &PredictionPanel::StorePet);
    connect(&hub, &ModelHub::petPredicted, this, [this](const quorvel::StatTexts &texts) {
        ShowStatTexts(Label23, texts);
        Command1->setEnabled(model_.ShownPet().has_value());
    });
    connect(&hub, &ModelHub::templateCleared, this, &PredictionPanel::ClearStats);
    connect(&hub, &ModelHub::foldChanged, this, &PredictionPanel::ShowFold);
}

bool PredictionPanel::eventFilter(QObject *watched, QEvent *event) {
    if (watched == Combo3 && event->type() == QEvent::FocusOut &&
        static_cast<QFocusEvent *>(event)->reason() != Qt::PopupFocusReason)
        ApplySkinLevel(ChosenSkin());
    return QObject::eventFilter(watched, event);
}

int PredictionPanel::ChosenSkin() const {
    // The box starts on its first item but reads "Choose Skin"; a text that is not the
    // current item's means no skin was chosen, and then nothing happens.
    const int index = Combo3->currentIndex();
    return index >= 0 && Combo3->currentText() == Combo3->itemText(index) ? index : -1;
}

void PredictionPanel::ApplySkinLevel(int index) {
    if (const auto level = model_.ChooseSkin(index))
        Label23[quorvel::Index(quorvel::PetStat::Level)]->setText(ShownNumber(*level));
}

void PredictionPanel::ClearStats() {
    for (QLabel *label : Label23)
        label->setText(QStringLiteral("0"));
    Command1->setEnabled(false);
}

void PredictionPanel::StorePet() {
    if (!model_.ShownPet())
        return;
    QInputDialog dialog(Picture3->window());
    dialog.setObjectName(QStringLiteral("StorePetDialog"));
    dialog.setWindowTitle(QStringLiteral("Store this pet"));
    dialog.setLabelText(QStringLiteral("Name of the pet:"));
    dialog.setTextValue(ToQt(model_.ShownPet()->Name));
    if (dialog.exec() != QDialog::Accepted)
        return;
    // An emptied name stores the pet under its default name.
    model_.StoreShownPet(FromQt(dialog.textValue().trimmed()),
                         FromQt(QDateTime::currentDateTime().toString(Qt::ISODate)));
}

void PredictionPanel::ShowFold(quorvel::FoldPart part, bool folded) {
    if (part == quorvel::FoldPart::PetPanel)
        Picture3->resize(Picture3->width(), TwipsToPx(folded ? 135 : 2415));
    else if (part == quorvel::FoldPart::ValuesPanel)
        Picture3->move(TwipsToPx(120), TwipsToPx(folded ? 5400 : 6960));
}
