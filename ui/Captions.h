#pragma once

#include "Values.h"

#include <QString>

// The caption shown before a value: the ten attributes in their fixed order ("Hardiness:"
// .. "Power:"), then the sample boxes' "Name:" and "Level:" (indices 10 and 11).
QString SampleBoxCaption(int index);

// The caption of pet statistic 0..10 in the order of the statistics labels: "Health:",
// "Regen:", "Armor:", "To hit:", "Defense:", "State Resist:", "Critical hit:",
// "Critical save:", "Aggro bonus:", "Damage:", "Level:".
QString StatCaption(int index);

// The name of a template category, Physique first.
QString CategoryName(quorvel::Category category);
