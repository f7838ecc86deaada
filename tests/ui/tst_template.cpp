#include "TestSupport.h"

#include "Form1.h"

#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

using namespace testsupport;

namespace {

// Row 1 is uneven, rows 2 to 6 hold 500 everywhere (quality Average).
QStringList Samples() {
    QStringList lines{QStringLiteral("512,340,300,200,100,110,120,130,140,150,Uneven,20,1,1,3")};
    for (const char *name : {"A", "B", "C", "D", "E"})
        lines << QStringLiteral("500,500,500,500,500,500,500,500,500,500,Even %1,10,1,0,2").arg(QLatin1String(name));
    return lines;
}

// The seven experiment buttons are enabled and disabled together.
bool ExperimentButtons(Form1 *form, bool enabled) {
    for (const char *name :
         {"Command6", "Command7", "Command2_0", "Command2_1", "Command2_2", "Command2_3", "Command2_4"})
        if (Find<QPushButton>(form, QLatin1String(name))->isEnabled() != enabled)
            return false;
    return true;
}

} // namespace

class TestTemplate : public WindowTest {
    Q_OBJECT

    static QListWidget *Category(Form1 *f, int i) { return Find<QListWidget>(f, QStringLiteral("List1_%1").arg(i)); }
    static QString Label14(Form1 *f, int i) { return TextOf(f, QStringLiteral("Label14_%1").arg(i)); }
    static QColor Ink(Form1 *f, int pair) {
        return Find<QLabel>(f, QStringLiteral("Label43_%1").arg(pair))->palette().color(QPalette::WindowText);
    }

private slots:
    void categoryBoxShowsLinesAndContributions() {
        auto form = MakeForm1();
        LoadSamples(form.get(), Samples());
        SendToCategory(form.get(), 1, 0);
        QListWidget *physique = Category(form.get(), 0);
        QCOMPARE(physique->count(), 6);
        QCOMPARE(physique->item(0)->text(), QStringLiteral("Uneven"));
        QCOMPARE(physique->item(1)->text(), QStringLiteral("Hrd:512  |  Frt:340"));
        QCOMPARE(physique->currentRow(), 1);
        QVERIFY(physique->currentItem()->isSelected());
        // 0.4 x 340 + 0.4 x 512 = 340.8, rounded down, in white; the pair 1 label uses 0.25.
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label43_0")), QStringLiteral("340"));
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label43_1")), QStringLiteral("125"));
        QCOMPARE(Ink(form.get(), 0), QColor(Qt::white));
        QCOMPARE(Ink(form.get(), 1), QColor(Qt::black));

        // Dropped on the Prowess box: its Dex line selected, Label43_9 (first pair) weighs 0.25
        // and Label43_8, the box's own pair, is white.
        QVERIFY(DropOn(Find<QWidget>(form.get(), QStringLiteral("Picture1_1"))));
        QListWidget *prowess = Category(form.get(), 1);
        QCOMPARE(prowess->currentRow(), 2);
        QVERIFY(prowess->currentItem()->text().startsWith(QStringLiteral("Dex:300")));
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label43_9")), QStringLiteral("213"));
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label43_8")), QStringLiteral("210"));
        QCOMPARE(Ink(form.get(), 8), QColor(Qt::white));

        // A drop on a list acts on the selected sample, whatever was dragged.
        ClickRow(Find<QTreeWidget>(form.get(), QStringLiteral("ListView1")), 3);
        QVERIFY(DropOn(Category(form.get(), 3)->viewport()));
        QCOMPARE(Category(form.get(), 3)->item(0)->text(), QStringLiteral("Even B"));
        QCOMPARE(Category(form.get(), 3)->currentRow(), 4);
        QVERIFY(ExperimentButtons(form.get(), false));
    }

    void fiveSamplesOf500FillTheTemplate() {
        auto form = MakeForm1();
        LoadSamples(form.get(), Samples());
        auto *list = Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"));
        // A double-click on the DNA list fills the first empty category; the buttons wait for all five.
        for (int row = 2; row <= 6; ++row) {
            QVERIFY(ExperimentButtons(form.get(), false));
            DoubleClickRow(list, row);
            QCOMPARE(Category(form.get(), row - 2)->item(0)->text(),
                     QStringLiteral("Even %1").arg(QChar(u'A' + row - 2)));
        }
        QVERIFY(ExperimentButtons(form.get(), true));
        DoubleClickRow(list, 1);
        QCOMPARE(Category(form.get(), 0)->item(0)->text(), QStringLiteral("Even A"));
        for (int a = 0; a < 10; ++a)
            QCOMPARE(Label14(form.get(), a), QStringLiteral("325 [500]"));
        QCOMPARE(Label14(form.get(), 10), QStringLiteral("Average"));

        // "+" switches Physique to its caps, "-" back.
        auto *toggle = Find<QPushButton>(form.get(), QStringLiteral("Command2_0"));
        QTest::mouseClick(toggle, Qt::LeftButton);
        QCOMPARE(toggle->text(), QStringLiteral("-"));
        QCOMPARE(Label14(form.get(), 1), QStringLiteral("500 [500]"));
        QCOMPARE(TextOf(form.get(), QStringLiteral("Label42_0")), QStringLiteral("50/50%"));
        QTest::mouseClick(toggle, Qt::LeftButton);
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("325 [500]"));

        // A double-click on Mental's list empties only Mental; every toggle returns to "+".
        QTest::mouseClick(Find<QPushButton>(form.get(), QStringLiteral("Command2_4")), Qt::LeftButton);
        QListWidget *mental = Category(form.get(), 2);
        QTest::mouseDClick(mental->viewport(), Qt::LeftButton, Qt::NoModifier, mental->viewport()->rect().center());
        for (int i = 0; i < 5; ++i)
            QCOMPARE(Category(form.get(), i)->count(), i == 2 ? 0 : 6);
        QCOMPARE(TextOf(form.get(), QStringLiteral("Command2_4")), QStringLiteral("+"));
        QVERIFY(ExperimentButtons(form.get(), false));
        // Without Mental: Intellect 500 x 0.5 = 250, current 99.9; Hardiness 475, current 296.775.
        QCOMPARE(Label14(form.get(), 4), QStringLiteral("100 [250]"));
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("297 [475]"));

        // "Clear" empties every category and the captions, without an evaluation.
        ToolbarAction(form.get(), QStringLiteral("Clear"))->trigger();
        for (int i = 0; i < 5; ++i)
            QCOMPARE(Category(form.get(), i)->count(), 0);
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("0 [0]"));
        QCOMPARE(Label14(form.get(), 10), QString());
    }

    void powerMinimumAndQuality_data() {
        QTest::addColumn<QString>("power");
        QTest::addColumn<QString>("qualities");
        QTest::addColumn<QString>("powerText");
        QTest::addColumn<QString>("qualityText");
        const auto S = [](const char *text) { return QString::fromLatin1(text); };
        QTest::newRow("112 is raised") << S("268") << S("22222") << S("113\r\n [Min val]") << S("Average");
        QTest::newRow("113 stays") << S("269") << S("22222") << S("113 [269]") << S("Average");
        QTest::newRow("one unknown") << S("500") << S("60000") << S("325 [500]") << S("Average");
        QTest::newRow("five unknown") << S("500") << S("66666") << S("325 [500]")
                                      << S("CL prediction won't be correct");
    }

    void powerMinimumAndQuality() {
        QFETCH(QString, power);
        QFETCH(QString, qualities);
        QStringList lines;
        for (QChar quality : qualities)
            lines << QStringLiteral("500,500,500,500,500,500,500,500,500,%1,S,1,1,0,%2").arg(power, quality);
        auto form = MakeForm1();
        LoadSamples(form.get(), lines);
        for (int i = 0; i < 5; ++i)
            SendToCategory(form.get(), i + 1, i);
        QTEST(Label14(form.get(), 9), "powerText");
        QTEST(Label14(form.get(), 10), "qualityText");
    }
};

QTEST_MAIN(TestTemplate)
#include "tst_template.moc"
