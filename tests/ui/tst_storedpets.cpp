#include "TestSupport.h"

#include "Form1.h"
#include "StoredPet.h"

#include <QFile>
#include <QHeaderView>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>

using namespace testsupport;
using namespace Qt::StringLiterals;

namespace {

constexpr int kHealth = 3; // the table's first statistic column
constexpr int kLevel = 14;

// Five samples of all-equal values 300, 350, .. 500 named S1 .. S5; `lastPower` changes S5's Power.
QStringList FiveSamples(int lastPower = 500) {
    QStringList lines;
    for (int i = 1; i <= 5; ++i) {
        const int value = 250 + 50 * i;
        lines.append(QStringList(9, QString::number(value)).join(u',') +
                     u",%1,S%2,10,1,0,2"_s.arg(i == 5 ? lastPower : value).arg(i));
    }
    return lines;
}

// A main window with every level equation on and the five samples in the template, S1 in Physique.
std::unique_ptr<Form1> FormWithTemplate() {
    auto form = MakeForm1();
    for (quorvel::Setting equation : {quorvel::Setting::Old, quorvel::Setting::New1, quorvel::Setting::New2})
        form->Model().Settings()[equation] = true;
    LoadSamples(form.get(), FiveSamples());
    for (int category = 0; category < 5; ++category)
        SendToCategory(form.get(), category + 1, category);
    return form;
}

quorvel::StoredPet Pet(const std::string &name, const char *health) {
    quorvel::StoredPet pet;
    pet.Name = name;
    pet.Date = "2024-05-01T18:30:00";
    pet.Shown = {health, "43 (435)", "3000 [2697]", "107", "106", "50%", "4%", "4%", "12.5%", "88 - 362", "47"};
    return pet;
}

void WritePets(const std::vector<quorvel::StoredPet> &pets, const QByteArray &more = {}) {
    QFile file(StoredPetsPath());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(QByteArray::fromStdString(quorvel::WriteStoredPets(pets)) + more);
}

QTableWidget *OpenStoredPets(Form1 *form) {
    ToolbarAction(form, u"Stored Pets"_s)->trigger();
    return Find<QTableWidget>(TopLevel(u"StoredPetsWindow"_s), u"storedPetsTable"_s);
}

} // namespace

class TestStoredPets : public WindowTest {
    Q_OBJECT

private slots:
    void storingFromTheTemplateAndFromADroppedSample() {
        auto form = FormWithTemplate();
        auto *store = Find<QPushButton>(form.get(), u"Command1"_s);
        // The default name: the Physique sample's and the level the table shows (the last figure).
        const QString level = TextOf(form.get(), u"Label23_10"_s).section(u" / "_s, -1);
        QString offered;
        AnswerInputDialog(u"S1 level "_s + level, &offered);
        ClickWidget(store);
        QCOMPARE(offered, u"S1 level "_s + level);
        QTableWidget *table = OpenStoredPets(form.get());
        QVERIFY(table);
        QCOMPARE(Cell(table, 1, kLevel), level);

        // A dropped sample, the name trimmed; the window follows while it is open. Cancel stores nothing.
        ClickRow(Find<QAbstractItemView>(form.get(), u"ListView1"_s), 2);
        QVERIFY(DropOn(Find<QWidget>(form.get(), u"Label3"_s)));
        AnswerInputDialog(u"  Big, \"one\"  "_s, &offered);
        ClickWidget(store);
        QVERIFY(offered.startsWith(u"S2 level "_s));
        AnswerInputDialog({}, nullptr, false);
        ClickWidget(store);
        QCOMPARE(RowCount(table), 2);
        QCOMPARE(Cell(table, 2, 0), u"Big, \"one\""_s);
        QCOMPARE(Cell(table, 2, 1), u"Sample"_s);
        QCOMPARE(Cell(table, 2, kHealth), TextOf(form.get(), u"Label23_0"_s));
        // A whole-template clear leaves nothing to store.
        ToolbarAction(form.get(), u"Clear"_s)->trigger();
        QVERIFY(!store->isEnabled());
    }

    void twoPetsSideBySideWithTheDifferencesColoured() {
        // A decimal comma: the figures follow the user's separator.
        QLocale::setDefault(QLocale(QLocale::German));
        quorvel::StoredPet strong = Pet("Strong", "10000");
        strong.Shown[5] = "50.1%";
        WritePets({Pet("Weak", "900"), strong});
        auto form = MakeForm1();
        QTableWidget *table = OpenStoredPets(form.get());
        QVERIFY(table);
        table->selectAll();
        auto *comparison = Find<QTableWidget>(table->window(), u"storedPetsComparison"_s);
        const auto difference = [&](int row) { return comparison->item(row, 2); };
        QCOMPARE(comparison->horizontalHeaderItem(0)->text(), u"Weak"_s);
        QCOMPARE(difference(0)->text(), u"+9100"_s);
        QCOMPARE(difference(0)->foreground().color(), QColor(0, 128, 0));
        QCOMPARE(difference(5)->text(), u"+0,1"_s); // State Resist
        QCOMPARE(difference(1)->text(), u"0"_s);
        QCOMPARE(difference(1)->foreground().style(), Qt::NoBrush);
        // Sorted by number ("900" would follow "10000" as text), the pets change places.
        table->horizontalHeader()->setSortIndicator(kHealth, Qt::DescendingOrder);
        QCOMPARE(comparison->horizontalHeaderItem(0)->text(), u"Strong"_s);
        QCOMPARE(difference(0)->text(), u"-9100"_s);
        QCOMPARE(difference(0)->foreground().color(), QColor(192, 0, 0));

        // The export keeps "." and plain numbers whatever the separator on the screen.
        const QString exported = TempFolder() + u"/pets.csv"_s;
        AnswerFileDialog(exported);
        ClickWidget(Find<QPushButton>(table->window(), u"storedPetsExport"_s));
        QVERIFY(ReadFileBytes(exported).contains("\r\nWeak,Template,2024-05-01T18:30:00,900,43,3000,107,106,50,"));
    }

    void useWithASampleMissingChangesNothing() {
        auto form = FormWithTemplate();
        const QString health = TextOf(form.get(), u"Label23_0"_s);
        AnswerInputDialog(u"Keeper"_s);
        ClickWidget(Find<QPushButton>(form.get(), u"Command1"_s));
        // S5 now has another Power: it is not the sample the pet was made of.
        LoadSamples(form.get(), FiveSamples(499));
        QTableWidget *table = OpenStoredPets(form.get());
        QVERIFY(table);
        auto *use = Find<QPushButton>(table->window(), u"storedPetsUse"_s);
        QVERIFY(!use->isEnabled());
        ClickRow(table, 1);
        ClickWidget(use);
        QCOMPARE(TextOf(table->window(), u"storedPetsMessage"_s),
                 u"Not in the library: Aggressiveness \"S5\". The template is unchanged."_s);
        QCOMPARE(form->Model().Template().Slots[0].Name, std::string("-"));

        LoadSamples(form.get(), FiveSamples());
        ClickWidget(use);
        QCOMPARE(form->Model().Template().Slots[4].Name, std::string("S5"));
        QCOMPARE(TextOf(form.get(), u"Label23_0"_s), health);
    }

    void deleteUndoRenameAndAFreshMainWindowReadsThemBack() {
        WritePets({Pet("One", "100"), Pet("Two", "200"), Pet("Three", "300")}, "not,a,pet\r\n");
        auto form = MakeForm1();
        // The bad line is skipped and reported; the file as it was stays aside when the pets are written.
        const QString status = Find<QStatusBar>(form.get(), u"StatusBar1"_s)->currentMessage();
        QVERIFY2(status.contains(u"line 5 was skipped"_s), qPrintable(status));
        QTableWidget *table = OpenStoredPets(form.get());
        QVERIFY(table);
        ClickRow(table, 2);
        ClickWidget(Find<QPushButton>(table->window(), u"storedPetsDelete"_s));
        QCOMPARE(RowCount(table), 2);
        QCOMPARE(Cell(table, 2, 0), u"Three"_s);
        QVERIFY(ReadFileBytes(StoredPetsPath() + u".bad"_s).endsWith("not,a,pet\r\n"));

        ClickRow(table, 1);
        AnswerInputDialog(u"First"_s);
        ClickWidget(Find<QPushButton>(table->window(), u"storedPetsRename"_s));
        QCOMPARE(Cell(table, 1, 0), u"First"_s);
        auto *undo = Find<QPushButton>(table->window(), u"storedPetsUndo"_s);
        ClickWidget(undo);
        QCOMPARE(Cell(table, 1, 0), u"One"_s);
        ClickWidget(undo);
        QVERIFY(!undo->isEnabled());

        // Every change was written: the next run reads the pets back, and no bad line.
        form.reset();
        form = MakeForm1();
        QCOMPARE(Find<QStatusBar>(form.get(), u"StatusBar1"_s)->currentMessage(), QString());
        table = OpenStoredPets(form.get());
        QVERIFY(table);
        QCOMPARE(RowCount(table), 3);
        QCOMPARE(Cell(table, 2, 0), u"Two"_s);
        QCOMPARE(Cell(table, 2, kHealth), u"200"_s);
    }
};

QTEST_MAIN(TestStoredPets)
#include "tst_storedpets.moc"
