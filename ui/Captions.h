#pragma once

#include <QString>

// The caption shown before a value: the ten attributes in their fixed order ("Hardiness:"
// .. "Power:"), then the sample boxes' "Name:" and "Level:" (indices 10 and 11).
QString SampleBoxCaption(int index);
