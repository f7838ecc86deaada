#include "TestSupport.h"

#include "Form1.h"
#include "StoredPet.h"

#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QStatusBar>
#include <QTableWidget>

using namespace testsupport;

namespace {

// Five samples of all-equal values 300, 350, .. 500 named S1 .. S5; `lastPower` changes S5's Power.
QStringList FiveSamples(int lastPower = 500) {
    QStringList lines;
    for (int i = 0; i < 5; ++i) {
        const int value = 300 + 50 * i;
        QStringList fields(10, QString::number(value));
        if (i == 4)
            fields[9] = QString::number(lastPower);
        lines.append(fields.join(QLatin1Char(',')) + QStringLiteral(",S%1,10,1,0,2").arg(i + 1));
    }
    return lines;
}

void FillTemplate(Form1 *form) {
    for (int category = 0; category < 5; ++category)
        SendToCategory(form, category + 1, category);
}

quorvel::StoredPet Pet(const std::string &name, const char *health, const char *level) {
    quorvel::StoredPet pet;
    pet.Name = name;
    pet.Date = "2024-05-01T18:30:00";
    pet.Samples[0] = {"S1", {}};
    pet.Shown = {health, "43 (435)", "3000 [2697]", "107", "106", "50%", "4%", "4%", "12.5%", "88 - 362", level};
    return pet;
}

void WritePets(const std::vector<quorvel::StoredPet> &pets, const QByteArray &more = {}) {
    QFile file(StoredPetsPath());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    const std::string text = quorvel::WriteStoredPets(pets);
    file.write(QByteArray::fromStdString(text) + more);
}

std::vector<quorvel::StoredPet> PetsOnDisk() {
    const QByteArray bytes = ReadFileBytes(StoredPetsPath());
    return quorvel::ReadStoredPets(std::string_view(bytes.constData(), bytes.size())).Pets;
}

QWidget *OpenStoredPets(Form1 *form) {
    ToolbarAction(form, QStringLiteral("Stored Pets"))->trigger();
    return TopLevel(QStringLiteral("StoredPetsWindow"));
}

// Clicks a row of a table (from 1), with Ctrl to add it to the rows chosen.
void ChooseRow(QTableWidget *table, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QModelIndex index = table->model()->index(row - 1, 0);
    table->scrollTo(index);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, modifiers, table->visualRect(index).center());
}

} // namespace

class TestStoredPets : public WindowTest {
    Q_OBJECT

    static constexpr int kHealth = 3; // the table's first statistic column
    static constexpr int kLevel = 14;

private slots:
    void storingFromTheTemplateAndFromADroppedSample() {
        auto form = MakeForm1();
        for (quorvel::Setting equation : {quorvel::Setting::Old, quorvel::Setting::New1, quorvel::Setting::New2})
            form->Model().Settings()[equation] = true;
        auto *store = Find<QPushButton>(form.get(), QStringLiteral("Command1"));
        QVERIFY(!store->isEnabled());
        LoadSamples(form.get(), FiveSamples());
        FillTemplate(form.get());
        QVERIFY(store->isEnabled());

        // The default name: the Physique sample's and the level the table shows (the last figure).
        const QString level = TextOf(form.get(), QStringLiteral("Label23_10")).section(QStringLiteral(" / "), -1);
        QString offered;
        AnswerInputDialog(QStringLiteral("S1 level ") + level, &offered);
        ClickWidget(store);
        QCOMPARE(offered, QStringLiteral("S1 level ") + level);

        QWidget *window = OpenStoredPets(form.get());
        QVERIFY(window);
        auto *table = Find<QTableWidget>(window, QStringLiteral("storedPetsTable"));
        QCOMPARE(RowCount(table), 1);
        QCOMPARE(Cell(table, 1, 1), QStringLiteral("Template"));
        QCOMPARE(Cell(table, 1, kHealth), TextOf(form.get(), QStringLiteral("Label23_0")));
        QCOMPARE(Cell(table, 1, kLevel), level);

        // A dropped sample; the window follows while it is open. Cancel stores nothing.
        ClickRow(Find<QAbstractItemView>(form.get(), QStringLiteral("ListView1")), 2);
        QVERIFY(DropOn(Find<QWidget>(form.get(), QStringLiteral("Label3"))));
        AnswerInputDialog(QStringLiteral("  Big, \"one\"  "), &offered);
        ClickWidget(store);
        QVERIFY(offered.startsWith(QStringLiteral("S2 level ")));
        AnswerInputDialog({}, nullptr, false);
        ClickWidget(store);
        QCOMPARE(RowCount(table), 2);
        QCOMPARE(Cell(table, 2, 0), QStringLiteral("Big, \"one\""));
        QCOMPARE(Cell(table, 2, 1), QStringLiteral("Sample"));
        QCOMPARE(Cell(table, 2, kHealth), TextOf(form.get(), QStringLiteral("Label23_0")));

        // Both are on disk at once; a whole-template clear leaves nothing to store.
        const auto pets = PetsOnDisk();
        QCOMPARE(pets.size(), std::size_t(2));
        QCOMPARE(pets[1].Samples[0].Name, std::string("S2"));
        ToolbarAction(form.get(), QStringLiteral("Clear"))->trigger();
        QVERIFY(!store->isEnabled());
    }

    void twoPetsSideBySideWithTheDifferencesColoured() {
        // A decimal comma: the figures follow the user's separator.
        QLocale::setDefault(QLocale(QLocale::German));
        quorvel::StoredPet strong = Pet("Strong", "10000", "47.13");
        strong.Shown[5] = "50.1%";
        WritePets({Pet("Weak", "900", "47.16"), strong});
        auto form = MakeForm1();
        QWidget *window = OpenStoredPets(form.get());
        QVERIFY(window);
        auto *table = Find<QTableWidget>(window, QStringLiteral("storedPetsTable"));
        QCOMPARE(RowCount(table), 2);

        // Sorted by number, not by text ("900" would follow "10000").
        QHeaderView *header = table->horizontalHeader();
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier,
                          QPoint(header->sectionViewportPosition(kHealth) + 5, header->height() / 2));
        QCOMPARE(Cell(table, 1, kHealth), QStringLiteral("900"));
        QCOMPARE(Cell(table, 2, kHealth), QStringLiteral("10000"));

        ChooseRow(table, 1);
        ChooseRow(table, 2, Qt::ControlModifier);
        auto *comparison = Find<QTableWidget>(window, QStringLiteral("storedPetsComparison"));
        QCOMPARE(comparison->horizontalHeaderItem(0)->text(), QStringLiteral("Weak"));
        QCOMPARE(comparison->horizontalHeaderItem(1)->text(), QStringLiteral("Strong"));
        const auto difference = [&](int row) { return comparison->item(row, 2); };
        QCOMPARE(difference(0)->text(), QStringLiteral("+9100"));
        QCOMPARE(difference(0)->foreground().color(), QColor(0, 128, 0));
        QCOMPARE(difference(5)->text(), QStringLiteral("+0,1")); // State Resist
        QCOMPARE(difference(1)->text(), QStringLiteral("0"));
        QCOMPARE(difference(1)->foreground().style(), Qt::NoBrush);
        // A lower level is the better one.
        QCOMPARE(difference(11)->text(), QStringLiteral("-0,03"));
        QCOMPARE(difference(11)->foreground().color(), QColor(0, 128, 0));

        // The other way round the differences turn worse.
        header->setSortIndicator(kHealth, Qt::DescendingOrder);
        QCOMPARE(comparison->horizontalHeaderItem(0)->text(), QStringLiteral("Strong"));
        QCOMPARE(difference(0)->text(), QStringLiteral("-9100"));
        QCOMPARE(difference(0)->foreground().color(), QColor(192, 0, 0));

        // The export keeps "." and plain numbers whatever the separator on the screen.
        const QString exported = TempFolder() + QStringLiteral("/pets.csv");
        AnswerFileDialog(exported);
        ClickWidget(Find<QPushButton>(window, QStringLiteral("storedPetsExport")));
        QVERIFY(ReadFileBytes(exported).contains("\r\nWeak,Template,2024-05-01T18:30:00,900,43,3000,107,106,50,"));
    }

    void useWithASampleMissingChangesNothing() {
        auto form = MakeForm1();
        LoadSamples(form.get(), FiveSamples());
        FillTemplate(form.get());
        const QString health = TextOf(form.get(), QStringLiteral("Label23_0"));
        AnswerInputDialog(QStringLiteral("Keeper"));
        ClickWidget(Find<QPushButton>(form.get(), QStringLiteral("Command1")));

        // S5 now has another Power: it is not the sample the pet was made of.
        LoadSamples(form.get(), FiveSamples(499));
        QWidget *window = OpenStoredPets(form.get());
        QVERIFY(window);
        auto *table = Find<QTableWidget>(window, QStringLiteral("storedPetsTable"));
        auto *use = Find<QPushButton>(window, QStringLiteral("storedPetsUse"));
        QVERIFY(!use->isEnabled());
        ChooseRow(table, 1);
        QVERIFY(use->isEnabled());
        ClickWidget(use);
        QCOMPARE(TextOf(window, QStringLiteral("storedPetsMessage")),
                 QStringLiteral("Not in the library: Aggressiveness \"S5\". The template is unchanged."));
        QCOMPARE(form->Model().Template().Slots[0].Name, std::string("-"));

        LoadSamples(form.get(), FiveSamples());
        ClickWidget(use);
        std::string names;
        for (const quorvel::TemplateSlot &slot : form->Model().Template().Slots)
            names += slot.Name;
        QCOMPARE(names, std::string("S1S2S3S4S5"));
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label23_0")), health);
    }

    void deleteUndoRenameAndAFreshMainWindowReadsThemBack() {
        WritePets({Pet("One", "100", "1"), Pet("Two", "200", "2"), Pet("Three", "300", "3")}, "not,a,pet\r\n");
        auto form = MakeForm1();
        // The bad line is skipped and reported, and the file as it was is kept aside.
        const QString status = Find<QStatusBar>(form.get(), QStringLiteral("StatusBar1"))->currentMessage();
        QVERIFY2(status.contains(QStringLiteral("line 5 was skipped")), qPrintable(status));
        QVERIFY(ReadFileBytes(StoredPetsPath() + QStringLiteral(".bad")).endsWith("not,a,pet\r\n"));

        QWidget *window = OpenStoredPets(form.get());
        QVERIFY(window);
        auto *table = Find<QTableWidget>(window, QStringLiteral("storedPetsTable"));
        auto *undo = Find<QPushButton>(window, QStringLiteral("storedPetsUndo"));
        QVERIFY(!undo->isEnabled());
        ChooseRow(table, 2);
        ClickWidget(Find<QPushButton>(window, QStringLiteral("storedPetsDelete")));
        QCOMPARE(RowCount(table), 2);
        QCOMPARE(Cell(table, 2, 0), QStringLiteral("Three"));
        QCOMPARE(PetsOnDisk().size(), std::size_t(2));
        QVERIFY(ReadFileBytes(StoredPetsPath() + QStringLiteral(".bad")).endsWith("not,a,pet\r\n"));

        ChooseRow(table, 1);
        AnswerInputDialog(QStringLiteral("First"));
        ClickWidget(Find<QPushButton>(window, QStringLiteral("storedPetsRename")));
        QCOMPARE(Cell(table, 1, 0), QStringLiteral("First"));
        ClickWidget(undo);
        QCOMPARE(Cell(table, 1, 0), QStringLiteral("One"));
        ClickWidget(undo);
        QVERIFY(!undo->isEnabled());
        QCOMPARE(PetsOnDisk().size(), std::size_t(3));

        form.reset();
        form = MakeForm1();
        table = Find<QTableWidget>(OpenStoredPets(form.get()), QStringLiteral("storedPetsTable"));
        QVERIFY(table);
        QCOMPARE(RowCount(table), 3);
        QCOMPARE(Cell(table, 2, 0), QStringLiteral("Two"));
        QCOMPARE(Cell(table, 2, kHealth), QStringLiteral("200"));
    }
};

QTEST_MAIN(TestStoredPets)
#include "tst_storedpets.moc"
