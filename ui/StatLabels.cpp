#include "StatLabels.h"

#include "Captions.h"
#include "Fonts.h"
#include "Twips.h"
#include "UiText.h"

#include <QLabel>

StatLabelArray BuildStatLabels(QWidget *panel, const StatLayout &layout, const QString &critSaveCaption,
                               const QString &healthCaptionName) {
    // Label23 index, caption, column (0 left, 1 right, 2 the level row), row.
    struct Entry {
        int index;
        QString caption;
        int column;
        int row;
    };
    const std::array<Entry, 11> entries{{{0, StatCaption(0), 0, 0},
                                         {1, StatCaption(1), 0, 1},
                                         {2, StatCaption(2), 0, 2},
                                         {3, StatCaption(3), 0, 3},
                                         {4, StatCaption(4), 0, 4},
                                         {5, StatCaption(5), 0, 5},
                                         {6, StatCaption(6), 1, 0},
                                         {7, critSaveCaption, 1, 1},
                                         {8, StatCaption(8), 1, 2},
                                         {9, StatCaption(9), 1, 3},
                                         {10, StatCaption(10), 2, 6}}};
    const auto captionLeft = [&](const Entry &e) { return e.column == 1 ? layout.rightCaption : layout.leftCaption; };
    const auto valueLeft = [&](const Entry &e) { return e.column == 1 ? layout.rightValue : layout.leftValue; };
    const auto valueWidth = [&](const Entry &e) {
        return e.column == 0 ? layout.rightCaption - layout.leftValue : 3900 - valueLeft(e);
    };

    // The widest values: Armor with its bracket on the left, Damage on the right.
    QList<TextFit> fits{{QStringLiteral("8888 [8888]"), TwipsToPx(valueWidth(entries[2]))},
                        {QStringLiteral("888 - 888"), TwipsToPx(valueWidth(entries[9]))}};
    for (const Entry &e : entries)
        fits.append({e.caption, TwipsToPx(valueLeft(e) - captionLeft(e))});
    const QFont font = FittingFont(panel->font(), fits);

    // Captions and values share a font and a top edge, so that each value stands on its caption's line.
    const auto place = [&](QLabel *label) {
        label->setFont(font);
        label->setAlignment(Qt::AlignLeft | Qt::AlignTop);
        return label;
    };
    StatLabelArray labels{};
    for (const Entry &e : entries) {
        const int top = layout.top + e.row * layout.rowPitch;
        place(MakeLabel(panel, e.index == 0 ? healthCaptionName : QString(), e.caption, captionLeft(e), top,
                        valueLeft(e) - captionLeft(e), layout.rowPitch));
        QLabel *value = place(MakeLabel(panel, QStringLiteral("Label23_%1").arg(e.index), QStringLiteral("0"),
                                        valueLeft(e), top, valueWidth(e), layout.rowPitch));
        value->setTextInteractionFlags(Qt::TextSelectableByMouse);
        labels[static_cast<std::size_t>(e.index)] = value;
    }
    return labels;
}

void ShowStatTexts(const StatLabelArray &labels, const quorvel::StatTexts &texts) {
    for (std::size_t i = 0; i < labels.size(); ++i)
        labels[i]->setText(ShownNumber(texts[i]));
}
