#include "TestSupport.h"

#include "Form1.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>

using namespace testsupport;

namespace {

// Row 1 is uneven, rows 2 to 6 hold 500 everywhere (quality Average).
const QStringList kSamples{
    QStringLiteral("512,340,300,200,100,110,120,130,140,150,Uneven,20,1,1,3"),
    QStringLiteral("500,500,500,500,500,500,500,500,500,500,Even A,10,1,0,2"),
    QStringLiteral("500,500,500,500,500,500,500,500,500,500,Even B,10,1,0,2"),
    QStringLiteral("500,500,500,500,500,500,500,500,500,500,Even C,10,1,0,2"),
    QStringLiteral("500,500,500,500,500,500,500,500,500,500,Even D,10,1,0,2"),
    QStringLiteral("500,500,500,500,500,500,500,500,500,500,Even E,10,1,0,2"),
};

QTreeWidget *DnaList(Form1 *form) {
    return Find<QTreeWidget>(form, QStringLiteral("ListView1"));
}

QListWidget *Category(Form1 *form, int i) {
    return Find<QListWidget>(form, QStringLiteral("List1_%1").arg(i));
}

QString Text(Form1 *form, const QString &name) {
    return Find<QLabel>(form, name)->text();
}

QString Label14(Form1 *form, int i) {
    return Text(form, QStringLiteral("Label14_%1").arg(i));
}

void Load(Form1 *form, const QString &name, const QStringList &lines) {
    AnswerFileDialog(WriteDnaFile(name, lines));
    ToolbarAction(form, QStringLiteral("Load"))->trigger();
    QCOMPARE(RowCount(DnaList(form)), lines.size());
}

// Right-clicks a row and picks an entry of the "Send to" menu.
void SendTo(Form1 *form, int row, const QString &entry) {
    ClickRow(DnaList(form), row, Qt::RightButton);
    QMenu *menu = form->findChild<QMenu *>(QStringLiteral("m_test"));
    QTRY_VERIFY(menu->isVisible());
    menu->findChild<QAction *>(entry)->trigger();
    menu->close();
}

// The seven experiment buttons are enabled and disabled together.
bool ExperimentButtonsEnabled(Form1 *form) {
    const bool enabled = Find<QPushButton>(form, QStringLiteral("Command7"))->isEnabled();
    for (int i = 0; i < 5; ++i) {
        if (Find<QPushButton>(form, QStringLiteral("Command2_%1").arg(i))->isEnabled() != enabled)
            return !enabled;
    }
    return Find<QPushButton>(form, QStringLiteral("Command6"))->isEnabled() == enabled && enabled;
}

void DoubleClickCategory(QListWidget *list) {
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->viewport()->rect().center());
}

} // namespace

class TestTemplate : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QLocale::setDefault(QLocale::c());
        RemoveSettingsFile();
    }
    void cleanup() {
        CloseAllWindows();
        RemoveSettingsFile();
    }

    void categoryBoxShowsLinesAndContributions() {
        auto form = MakeForm1();
        Load(form.get(), QStringLiteral("uneven.txt"), kSamples);

        SendTo(form.get(), 1, QStringLiteral("m_phys"));
        QListWidget *physique = Category(form.get(), 0);
        QCOMPARE(physique->count(), 6);
        QCOMPARE(physique->item(0)->text(), QStringLiteral("Uneven"));
        QCOMPARE(physique->item(1)->text(), QStringLiteral("Hrd:512  |  Frt:340"));
        QCOMPARE(physique->item(5)->text(), QStringLiteral("Frc:140  |  Pwr:150"));
        QCOMPARE(physique->currentRow(), 1);
        QVERIFY(physique->currentItem()->isSelected());
        // 0.4 x 340 + 0.4 x 512 = 340.8, rounded down; the pair 1 label uses 0.25.
        QCOMPARE(Text(form.get(), QStringLiteral("Label43_0")), QStringLiteral("340"));
        QCOMPARE(Text(form.get(), QStringLiteral("Label43_1")), QStringLiteral("125"));
        QCOMPARE(Find<QLabel>(form.get(), QStringLiteral("Label43_0"))->palette().color(QPalette::WindowText),
                 QColor(Qt::white));
        QCOMPARE(Find<QLabel>(form.get(), QStringLiteral("Label43_1"))->palette().color(QPalette::WindowText),
                 QColor(Qt::black));

        // The same sample dropped on the Prowess box: its Dex line, Label43_9 first with weight 0.25,
        // and Label43_8 (pair 1, the box's own) in white.
        QVERIFY(DropOn(Find<QWidget>(form.get(), QStringLiteral("Picture1_1"))));
        QListWidget *prowess = Category(form.get(), 1);
        QCOMPARE(prowess->currentRow(), 2);
        QVERIFY(prowess->currentItem()->text().startsWith(QStringLiteral("Dex:300")));
        QCOMPARE(Text(form.get(), QStringLiteral("Label43_9")), QStringLiteral("213"));
        QCOMPARE(Text(form.get(), QStringLiteral("Label43_8")), QStringLiteral("210"));
        QCOMPARE(Find<QLabel>(form.get(), QStringLiteral("Label43_8"))->palette().color(QPalette::WindowText),
                 QColor(Qt::white));

        // A drop on a list acts on the selected sample, whatever was dragged.
        ClickRow(DnaList(form.get()), 3);
        QVERIFY(DropOn(Category(form.get(), 3)->viewport()));
        QCOMPARE(Category(form.get(), 3)->item(0)->text(), QStringLiteral("Even B"));
        QCOMPARE(Category(form.get(), 3)->currentRow(), 4);
        QVERIFY(!ExperimentButtonsEnabled(form.get()));
    }

    void fiveSamplesOf500FillTheTemplate() {
        auto form = MakeForm1();
        Load(form.get(), QStringLiteral("even.txt"), kSamples);
        // A double-click on the DNA list fills the first empty category.
        for (int row = 2; row <= 6; ++row) {
            QVERIFY(!ExperimentButtonsEnabled(form.get()));
            DoubleClickRow(DnaList(form.get()), row);
            QCOMPARE(Category(form.get(), row - 2)->item(0)->text(),
                     kSamples[row - 1].section(QLatin1Char(','), 10, 10));
        }
        QVERIFY(ExperimentButtonsEnabled(form.get()));
        // With all five filled the double-click does nothing.
        DoubleClickRow(DnaList(form.get()), 1);
        QCOMPARE(Category(form.get(), 0)->item(0)->text(), QStringLiteral("Even A"));

        for (int a = 0; a < 10; ++a)
            QCOMPARE(Label14(form.get(), a), QStringLiteral("325 [500]"));
        QCOMPARE(Label14(form.get(), 10), QStringLiteral("Average"));
        QCOMPARE(Text(form.get(), QStringLiteral("Label42_3")), QStringLiteral("32/50%"));
        // The pet of the current values: Regen with ten times the unrounded value in brackets.
        QCOMPARE(Text(form.get(), QStringLiteral("Label23_1")), QStringLiteral("28 (278)"));

        // "+" switches Physique to its caps, "-" back.
        auto *toggle = Find<QPushButton>(form.get(), QStringLiteral("Command2_0"));
        QTest::mouseClick(toggle, Qt::LeftButton);
        QCOMPARE(toggle->text(), QStringLiteral("-"));
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("500 [500]"));
        QCOMPARE(Label14(form.get(), 1), QStringLiteral("500 [500]"));
        QCOMPARE(Label14(form.get(), 2), QStringLiteral("325 [500]"));
        QCOMPARE(Text(form.get(), QStringLiteral("Label42_0")), QStringLiteral("50/50%"));
        QTest::mouseClick(toggle, Qt::LeftButton);
        QCOMPARE(toggle->text(), QStringLiteral("+"));
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("325 [500]"));

        // A double-click on Mental's list empties only Mental; all return to "+" and off.
        QTest::mouseClick(Find<QPushButton>(form.get(), QStringLiteral("Command2_4")), Qt::LeftButton);
        DoubleClickCategory(Category(form.get(), 2));
        QCOMPARE(Category(form.get(), 2)->count(), 0);
        for (int i : {0, 1, 3, 4})
            QCOMPARE(Category(form.get(), i)->count(), 6);
        QCOMPARE(Find<QPushButton>(form.get(), QStringLiteral("Command2_4"))->text(), QStringLiteral("+"));
        QVERIFY(!ExperimentButtonsEnabled(form.get()));
        for (int pair = 10; pair < 15; ++pair)
            QCOMPARE(Text(form.get(), QStringLiteral("Label43_%1").arg(pair)), QStringLiteral("0"));
        // Without Mental: Intellect 500 x 0.5 = 250, current 99.9; Hardiness 475, current 296.775.
        QCOMPARE(Label14(form.get(), 4), QStringLiteral("100 [250]"));
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("297 [475]"));

        // The next double-click on the DNA list refills Mental.
        DoubleClickRow(DnaList(form.get()), 2);
        QCOMPARE(Category(form.get(), 2)->count(), 6);
        QVERIFY(ExperimentButtonsEnabled(form.get()));

        // "Clear" empties every category and the captions, without an evaluation.
        ToolbarAction(form.get(), QStringLiteral("Clear"))->trigger();
        for (int i = 0; i < 5; ++i)
            QCOMPARE(Category(form.get(), i)->count(), 0);
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("0 [0]"));
        QCOMPARE(Label14(form.get(), 10), QString());
        QCOMPARE(Text(form.get(), QStringLiteral("Label23_1")), QStringLiteral("0"));
        QCOMPARE(Text(form.get(), QStringLiteral("Label43_0")), QStringLiteral("0"));
        DoubleClickRow(DnaList(form.get()), 1);
        QCOMPARE(Category(form.get(), 0)->item(0)->text(), QStringLiteral("Uneven"));
    }

    void powerMinimumAndQuality_data() {
        QTest::addColumn<QString>("power");
        QTest::addColumn<QStringList>("qualities");
        QTest::addColumn<QString>("powerText");
        QTest::addColumn<QString>("qualityText");
        const QStringList average(5, QStringLiteral("2"));
        QTest::newRow("112 is raised") << QStringLiteral("268") << average << QStringLiteral("113\r\n [Min val]")
                                       << QStringLiteral("Average");
        QTest::newRow("113 stays") << QStringLiteral("269") << average << QStringLiteral("113 [269]")
                                   << QStringLiteral("Average");
        QTest::newRow("one unknown") << QStringLiteral("500")
                                     << QStringList{QStringLiteral("6"), QStringLiteral("0"), QStringLiteral("0"),
                                                    QStringLiteral("0"), QStringLiteral("0")}
                                     << QStringLiteral("325 [500]") << QStringLiteral("Average");
        QTest::newRow("five unknown") << QStringLiteral("500") << QStringList(5, QStringLiteral("6"))
                                      << QStringLiteral("325 [500]")
                                      << QStringLiteral("CL prediction won't be correct");
    }

    void powerMinimumAndQuality() {
        QFETCH(QString, power);
        QFETCH(QStringList, qualities);
        QFETCH(QString, powerText);
        QFETCH(QString, qualityText);
        QStringList lines;
        for (const QString &quality : qualities)
            lines << QStringLiteral("500,500,500,500,500,500,500,500,500,%1,S,1,1,0,%2").arg(power, quality);
        auto form = MakeForm1();
        Load(form.get(), QStringLiteral("power.txt"), lines);
        const std::array<const char *, 5> entries{"m_phys", "m_prow", "m_ment", "m_psych", "m_aggro"};
        for (int i = 0; i < 5; ++i)
            SendTo(form.get(), i + 1, QString::fromLatin1(entries[static_cast<std::size_t>(i)]));
        QCOMPARE(Label14(form.get(), 9), powerText);
        QCOMPARE(Label14(form.get(), 10), qualityText);
    }
};

QTEST_MAIN(TestTemplate)
#include "tst_template.moc"
