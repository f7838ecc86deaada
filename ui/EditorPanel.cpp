#include "EditorPanel.h"

#include "AppState.h"
#include "DnaListPanel.h"
#include "Twips.h"
#include "UiText.h"
#include "Widgets.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace {

constexpr std::array<const char *, 12> kBoxTitles{"Hardiness:", "Fortitude:",     "Dexterity:", "Endurance:",
                                                  "Intellect:", "Cleverness:",    "Dependability:", "Courage:",
                                                  "Fierceness:", "Power:",        "Name:",      "Level:"};
constexpr int kRowTop = 150;
constexpr int kRowPitch = 255;
constexpr int kBoxHeight = 240;

int RowTop(int row)
{
    return kRowTop + row * kRowPitch;
}

} // namespace

EditorPanel::EditorPanel(AppState &state, DnaListPanel &list, QWidget *central)
    : QObject(central), state_(state), list_(list)
{
    Picture4 = MakePanel(central, QStringLiteral("Picture4"), QColor(191, 186, 164));
    Picture4->setFrameShape(QFrame::StyledPanel);
    PlaceTwips(Picture4, 4200, 7920, 8055, 1455);

    Label41 = new ClickLabel(QStringLiteral("^"), Picture4);
    Label41->setObjectName(QStringLiteral("Label41"));
    PlaceTwips(Label41, 0, 0, 135, 135);

    BuildControls();
}

void EditorPanel::BuildControls()
{
    // Columns 1 and 2 hold the ten attributes, column 3 name, level, planet, quality and
    // origin, column 4 the switch and the buttons.
    for (int i = 0; i < 12; ++i) {
        const int column = i < 5 ? 0 : i < 10 ? 1 : 2;
        const int row = i < 10 ? i % 5 : i - 10;
        const int titleLeft = column == 0 ? 180 : column == 1 ? 1980 : 3780;
        const int titleWidth = column == 2 ? 600 : 1080;
        MakeLabel(Picture4, QString(), QString::fromLatin1(kBoxTitles[static_cast<std::size_t>(i)]), titleLeft,
                  RowTop(row), titleWidth, kBoxHeight);
        auto *box = new QLineEdit(i == 10 ? QString() : QStringLiteral("0"), Picture4);
        box->setObjectName(QStringLiteral("Text1_%1").arg(i));
        box->setAccessibleName(QString::fromLatin1(kBoxTitles[static_cast<std::size_t>(i)]).chopped(1));
        PlaceTwips(box, titleLeft + titleWidth, RowTop(row), i == 10 ? 1740 : 690, kBoxHeight);
        Text1[static_cast<std::size_t>(i)] = box;
    }

    Combo2 = new QComboBox(Picture4);
    Combo2->setObjectName(QStringLiteral("Combo2"));
    Combo2->setEditable(true);
    Combo2->addItems({QStringLiteral("Any"), QStringLiteral("Corellia"), QStringLiteral("Dantooine"),
                      QStringLiteral("Dathomir"), QStringLiteral("Endor"), QStringLiteral("Kashyyyk"),
                      QStringLiteral("Lok"), QStringLiteral("Naboo"), QStringLiteral("Rori"), QStringLiteral("Talus"),
                      QStringLiteral("Tatooine"), QStringLiteral("Yavin 4")});
    Combo2->setCurrentIndex(-1);
    Combo2->setEditText(QStringLiteral("Any"));
    Combo2->setAccessibleName(QStringLiteral("Planet"));
    PlaceTwips(Combo2, 3780, RowTop(2), 1260, kBoxHeight + 30);

    Combo1 = new QComboBox(Picture4);
    Combo1->setObjectName(QStringLiteral("Combo1"));
    Combo1->setEditable(true);
    Combo1->addItems({QStringLiteral("Poor"), QStringLiteral("BAQ"), QStringLiteral("AQ"), QStringLiteral("AAQ"),
                      QStringLiteral("HQ"), QStringLiteral("VHQ"), QStringLiteral("?")});
    Combo1->setCurrentIndex(-1);
    Combo1->setEditText(QStringLiteral("Any"));
    Combo1->setAccessibleName(QStringLiteral("Quality"));
    PlaceTwips(Combo1, 5100, RowTop(2), 1020, kBoxHeight + 30);

    Option1[0] = new QRadioButton(QStringLiteral("Wild"), Picture4);
    Option1[0]->setObjectName(QStringLiteral("Option1_0"));
    Option1[0]->setChecked(true);
    PlaceTwips(Option1[0], 3780, RowTop(3) + 30, 900, kBoxHeight);
    Option1[1] = new QRadioButton(QStringLiteral("Mission"), Picture4);
    Option1[1]->setObjectName(QStringLiteral("Option1_1"));
    PlaceTwips(Option1[1], 4740, RowTop(3) + 30, 1100, kBoxHeight);

    Check1 = new QCheckBox(QStringLiteral("LFocus"), Picture4);
    Check1->setObjectName(QStringLiteral("Check1"));
    PlaceTwips(Check1, 6600, RowTop(1), 1200, kBoxHeight);

    Command3 = new QPushButton(QStringLiteral("Edit"), Picture4);
    Command3->setObjectName(QStringLiteral("Command3"));
    PlaceTwips(Command3, 6600, RowTop(2), 1200, kBoxHeight + 30);

    Command4 = new QPushButton(QStringLiteral("New"), Picture4);
    Command4->setObjectName(QStringLiteral("Command4"));
    PlaceTwips(Command4, 6600, RowTop(3) + 45, 1200, kBoxHeight + 30);

    // Keyboard order: Edit, New, the switch, "Mission", the twelve boxes, planet, quality, "Wild".
    QList<QWidget *> order{Command3, Command4, Check1, Option1[1]};
    for (QLineEdit *box : Text1)
        order << box;
    order << Combo2 << Combo1 << Option1[0];
    for (int i = 0; i + 1 < order.size(); ++i)
        QWidget::setTabOrder(order[i], order[i + 1]);
}

void EditorPanel::SetFolded(bool folded)
{
    Picture4->resize(Picture4->width(), TwipsToPx(folded ? 135 : 1455));
}

void EditorPanel::ShowRecordInEditor() {}
