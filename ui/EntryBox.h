#pragma once

#include <QStringList>

class QComboBox;
class QWidget;

// The editable drop-down boxes of the sample windows: they open showing "Any" with no
// entry chosen, and typed text never becomes a new entry.
QComboBox *MakeEntryBox(QWidget *parent, const QString &name, const QStringList &entries,
                        const QString &accessibleName);

// "Any" followed by the planets; the entry position is the planet number.
QStringList PlanetEntries();

// The entry a box stands for: its current entry while the text is that entry's, otherwise
// the entry whose text was typed (in any letter case); -1 when the text names no entry.
int ChosenEntry(const QComboBox *box);
