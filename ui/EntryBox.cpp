#include "EntryBox.h"

#include "ReferenceTables.h"
#include "UiText.h"

#include <QComboBox>

QComboBox *MakeEntryBox(QWidget *parent, const QString &name, const QStringList &entries,
                        const QString &accessibleName) {
    auto *box = new QComboBox(parent);
    box->setObjectName(name);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    box->addItems(entries);
    box->setCurrentIndex(-1);
    box->setEditText(QStringLiteral("Any"));
    box->setAccessibleName(accessibleName);
    return box;
}

QStringList PlanetEntries() {
    QStringList entries{QStringLiteral("Any")};
    for (int planet = 1; planet < quorvel::kPlanetCount; ++planet)
        entries << ToQt(*quorvel::PlanetName(planet));
    return entries;
}

int ChosenEntry(const QComboBox *box) {
    const int current = box->currentIndex();
    if (current >= 0 && box->itemText(current) == box->currentText())
        return current;
    return box->findText(box->currentText(), Qt::MatchFixedString);
}
