#include "TestSupport.h"

#include "Form1.h"

#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTreeWidget>

using namespace testsupport;

namespace {

const QString kUneven = QStringLiteral("512,340,300,200,100,110,120,130,140,150,Uneven,20,1,1,3");
const QString kEven = QStringLiteral("500,500,500,500,500,500,500,500,500,500,Even,10,1,0,2");

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

private slots:
    void menuAndDropsPlaceTheSample() {
        auto form = MakeForm1();
        LoadSamples(form.get(), {kUneven, kEven});
        SendToCategory(form.get(), 1, 0);
        QListWidget *physique = Category(form.get(), 0);
        QCOMPARE(physique->count(), 6);
        QCOMPARE(physique->item(1)->text(), QStringLiteral("Hrd:512  |  Frt:340"));
        QCOMPARE(physique->currentRow(), 1);
        // 0.4 x 340 + 0.4 x 512 = 340.8, rounded down, in white as the box's own pair.
        auto *own = Find<QLabel>(form.get(), QStringLiteral("Label43_0"));
        QCOMPARE(own->text(), QStringLiteral("340"));
        QCOMPARE(own->palette().color(QPalette::WindowText), QColor(Qt::white));

        // A drop on a picture or a list places the selected sample, whatever was dragged.
        QVERIFY(DropOn(Find<QWidget>(form.get(), QStringLiteral("Picture1_1"))));
        QCOMPARE(Category(form.get(), 1)->item(0)->text(), QStringLiteral("Uneven"));
        ClickRow(Find<QTreeWidget>(form.get(), QStringLiteral("ListView1")), 2);
        QVERIFY(DropOn(Category(form.get(), 3)->viewport()));
        QCOMPARE(Category(form.get(), 3)->item(0)->text(), QStringLiteral("Even"));
        QVERIFY(ExperimentButtons(form.get(), false));
    }

    // A category box tells its sample whole; a DNA list row its name when the column cuts it.
    void tooltipsShowTheWholeSample() {
        auto form = MakeForm1();
        const QString longName = QStringLiteral("Old Dathomir Rancor Matriarch");
        LoadSamples(form.get(), {kUneven, QStringLiteral("1,2,3,4,5,6,7,8,9,10,%1,20,1,1,3").arg(longName)});
        auto *list = Find<QTreeWidget>(form.get(), QStringLiteral("ListView1"));
        const auto nameTip = [list](int row) { return list->model()->index(row - 1, 1).data(Qt::ToolTipRole); };
        QVERIFY(!nameTip(1).isValid());
        QCOMPARE(nameTip(2).toString(), longName);
        list->header()->resizeSection(1, 400);
        QVERIFY(!nameTip(2).isValid());

        SendToCategory(form.get(), 2, 3);
        const QString tip = longName + QStringLiteral("\nHardiness: 1, Fortitude: 2\nDexterity: 3, Endurance: 4\n"
                                                      "Intellect: 5, Cleverness: 6\nDependability: 7, Courage: 8\n"
                                                      "Fierceness: 9, Power: 10");
        QListWidget *psychology = Category(form.get(), 3);
        auto *box = Find<QWidget>(form.get(), QStringLiteral("Picture1_3"));
        QCOMPARE(psychology->toolTip(), tip);
        QCOMPARE(psychology->accessibleDescription(), tip);
        QCOMPARE(psychology->item(4)->toolTip(), tip);
        QCOMPARE(box->toolTip(), tip);
        QCOMPARE(box->accessibleDescription(), tip);
        QVERIFY(Category(form.get(), 0)->toolTip().isEmpty());

        QTest::mouseDClick(psychology->viewport(), Qt::LeftButton, Qt::NoModifier,
                           psychology->viewport()->rect().center());
        QVERIFY(psychology->toolTip().isEmpty() && box->accessibleDescription().isEmpty());
    }

    void doubleClicksFillTheTemplate() {
        auto form = MakeForm1();
        LoadSamples(form.get(), {kEven});
        // A double-click on the DNA list fills the first empty category; the buttons wait for all five.
        for (int i = 0; i < 5; ++i) {
            QVERIFY(ExperimentButtons(form.get(), false));
            DoubleClickRow(Find<QTreeWidget>(form.get(), QStringLiteral("ListView1")), 1);
            QCOMPARE(Category(form.get(), i)->count(), 6);
        }
        QVERIFY(ExperimentButtons(form.get(), true));
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("325 [500]"));

        // "+" shows Physique's caps, "-" the current values again.
        auto *toggle = Find<QPushButton>(form.get(), QStringLiteral("Command2_0"));
        QTest::mouseClick(toggle, Qt::LeftButton);
        QCOMPARE(toggle->text(), QStringLiteral("-"));
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("500 [500]"));
        QTest::mouseClick(toggle, Qt::LeftButton);
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("325 [500]"));

        // A double-click on Mental's list empties only Mental and disables the buttons.
        QListWidget *mental = Category(form.get(), 2);
        QTest::mouseDClick(mental->viewport(), Qt::LeftButton, Qt::NoModifier, mental->viewport()->rect().center());
        for (int i = 0; i < 5; ++i)
            QCOMPARE(Category(form.get(), i)->count(), i == 2 ? 0 : 6);
        QVERIFY(ExperimentButtons(form.get(), false));

        ToolbarAction(form.get(), QStringLiteral("Clear"))->trigger();
        for (int i = 0; i < 5; ++i)
            QCOMPARE(Category(form.get(), i)->count(), 0);
        QCOMPARE(Label14(form.get(), 0), QStringLiteral("0 [0]"));
    }
};

QTEST_MAIN(TestTemplate)
#include "tst_template.moc"
