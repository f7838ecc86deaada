#pragma once

#include "PetStats.h"

#include <QString>

#include <array>

class QLabel;
class QWidget;

// The pet statistics block shared by the main window and the experimentation window:
// eleven captions, each with its value label Label23(i) to its right.
struct StatLayout {
    int top;         // twips, first row
    int rowPitch;    // twips between rows
    int leftCaption; // left column: Health .. State Resist
    int leftValue;
    int rightCaption; // right column: Critical hit .. Damage; Level under them all
    int rightValue;
};

using StatLabelArray = std::array<QLabel *, 11>;

// Builds the captions and value labels in the panel's font, narrowed where the widest texts
// need it; the Health caption gets `healthCaptionName`.
StatLabelArray BuildStatLabels(QWidget *panel, const StatLayout &layout, const QString &critSaveCaption,
                               const QString &healthCaptionName);

// Shows prediction texts with the user's decimal separator.
void ShowStatTexts(const StatLabelArray &labels, const quorvel::StatTexts &texts);
