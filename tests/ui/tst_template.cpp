// The template panel of the main window and the experiment window it opens, also for one sample.
#include "TestSupport.h"

#include "Form1.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>
#include <QTreeWidget>

using namespace testsupport;
using namespace Qt::StringLiterals;

namespace {

const QString kUneven = u"512,340,300,200,100,110,120,130,140,150,Uneven,20,1,1,3"_s;
// Sent to every category, kSample gives caps equal to its values.
const QString kSample = u"1000,1000,450,460,500,500,600,600,800,100,Even,20,1,0,2"_s;
const QString kEven = u"500,500,500,500,500,500,500,500,500,500,Even,10,1,0,2"_s;

// The seven experiment buttons are enabled and disabled together.
bool ExperimentButtons(Form1 *form, bool enabled) {
    for (const char *name :
         {"Command6", "Command7", "Command2_0", "Command2_1", "Command2_2", "Command2_3", "Command2_4"})
        if (Find<QPushButton>(form, QLatin1String(name))->isEnabled() != enabled)
            return false;
    return true;
}

// Box colours by their centre pixel, Picture<picture>_0 up: W white, Y yellow, G green, - hidden.
QString Colours(QWidget *window, int picture, int boxes = 10) {
    QString letters;
    for (int b = 0; b < boxes; ++b) {
        auto *box = Find<QWidget>(window, u"Picture%1_%2"_s.arg(picture).arg(b));
        const QImage image = box->grab().toImage();
        const QColor c = image.pixelColor(image.rect().center());
        letters += box->isHidden()           ? u'-'
                   : c == QColor(Qt::white)  ? u'W'
                   : c == QColor(Qt::yellow) ? u'Y'
                   : c == QColor(Qt::green)  ? u'G'
                                             : u'?';
    }
    return letters;
}

} // namespace

class TestTemplate : public WindowTest {
    Q_OBJECT

    static QListWidget *Category(Form1 *f, int i) { return Find<QListWidget>(f, u"List1_%1"_s.arg(i)); }
    static QString Label14(Form1 *f, int i) { return TextOf(f, u"Label14_%1"_s.arg(i)); }
    static void DoubleClickList(QListWidget *list) {
        QTest::mouseDClick(list->viewport(), Qt::LeftButton, Qt::NoModifier, list->viewport()->rect().center());
    }
    // The Mental row is Picture7; the points column is Picture4.
    static QString Mental(QWidget *w) { return Colours(w, 7); }
    static QString Points(QWidget *w) { return Colours(w, 4, 12); }
    static QPushButton *Button(QWidget *w, const char *name) { return Find<QPushButton>(w, QLatin1String(name)); }

private slots:
    // The menu, drops on a picture or a list (whatever was dragged) and double-clicks on the DNA
    // list, which fill the first empty category; the buttons wait for all five.
    void menuDropsAndDoubleClicksFillTheTemplate() {
        auto form = MakeForm1();
        auto *list = Find<QTreeWidget>(form.get(), u"ListView1"_s);
        LoadSamples(form.get(), {QString(kEven).replace(u"Even"_s, u"Twin"_s), kEven});
        SendToCategory(form.get(), 2, 0);
        QCOMPARE(Category(form.get(), 0)->currentRow(), 1);
        // The box's own pair shows in white.
        auto *own = Find<QLabel>(form.get(), u"Label43_0"_s);
        QCOMPARE(own->text(), u"400"_s);
        QCOMPARE(own->palette().color(QPalette::WindowText), QColor(Qt::white));
        QVERIFY(DropOn(Find<QWidget>(form.get(), u"Picture1_1"_s)));
        ClickRow(list, 1);
        QVERIFY(DropOn(Category(form.get(), 3)->viewport()));
        DoubleClickRow(list, 1);
        QVERIFY(ExperimentButtons(form.get(), false));
        DoubleClickRow(list, 1);
        QVERIFY(ExperimentButtons(form.get(), true));
        QStringList names;
        for (int i = 0; i < 5; ++i)
            names << Category(form.get(), i)->item(0)->text();
        QCOMPARE(names.join(u'|'), u"Even|Even|Twin|Twin|Twin"_s);
        QCOMPARE(Label14(form.get(), 0), u"325 [500]"_s);
        // "+" shows Physique's caps.
        auto *toggle = Find<QPushButton>(form.get(), u"Command2_0"_s);
        QTest::mouseClick(toggle, Qt::LeftButton);
        QCOMPARE(toggle->text(), u"-"_s);
        QCOMPARE(Label14(form.get(), 0), u"500 [500]"_s);

        // A double-click on Mental's list empties only Mental and disables the buttons.
        DoubleClickList(Category(form.get(), 2));
        for (int i = 0; i < 5; ++i)
            QCOMPARE(Category(form.get(), i)->count(), i == 2 ? 0 : 6);
        QVERIFY(ExperimentButtons(form.get(), false));
        ToolbarAction(form.get(), u"Clear"_s)->trigger();
        for (int i = 0; i < 5; ++i)
            QCOMPARE(Category(form.get(), i)->count(), 0);
        QCOMPARE(Label14(form.get(), 0), u"0 [0]"_s);
    }

    // A category box tells its sample whole; a DNA list row its name when the column cuts it.
    void tooltipsShowTheWholeSample() {
        auto form = MakeForm1();
        const QString longName = u"Old Dathomir Rancor Matriarch"_s;
        LoadSamples(form.get(), {kUneven, u"1,2,3,4,5,6,7,8,9,10,%1,20,1,1,3"_s.arg(longName)});
        auto *list = Find<QTreeWidget>(form.get(), u"ListView1"_s);
        const auto nameTip = [list](int row) { return list->model()->index(row - 1, 1).data(Qt::ToolTipRole); };
        QVERIFY(!nameTip(1).isValid());
        QCOMPARE(nameTip(2).toString(), longName);
        list->header()->resizeSection(1, 400);
        QVERIFY(!nameTip(2).isValid());

        SendToCategory(form.get(), 2, 3);
        const QString tip = longName + u"\nHardiness: 1, Fortitude: 2\nDexterity: 3, Endurance: 4\n"
                                       "Intellect: 5, Cleverness: 6\nDependability: 7, Courage: 8\n"
                                       "Fierceness: 9, Power: 10"_s;
        QListWidget *psychology = Category(form.get(), 3);
        auto *box = Find<QWidget>(form.get(), u"Picture1_3"_s);
        for (QWidget *w : {static_cast<QWidget *>(psychology), box}) {
            QCOMPARE(w->toolTip(), tip);
            QCOMPARE(w->accessibleDescription(), tip);
        }
        QCOMPARE(psychology->item(4)->toolTip(), tip);
        QVERIFY(Category(form.get(), 0)->toolTip().isEmpty());
        DoubleClickList(psychology);
        QVERIFY(psychology->toolTip().isEmpty() && box->accessibleDescription().isEmpty());
    }

    void templateSessionPlacesRunsAndReturns() {
        auto form = MakeForm1();
        LoadSamples(form.get(), {kSample});
        for (int c = 0; c < 5; ++c)
            SendToCategory(form.get(), 1, c);
        form->Model().Settings().ExpPoints = 5;
        form->Model().Settings()[quorvel::Setting::Min] = true;
        ClickWidget(Button(form.get(), "Command7"));
        QWidget *window = TopLevel(u"Form5"_s);
        QVERIFY(window);
        QVERIFY(form->isMinimized());
        QVERIFY(Button(window, "Command3")->isEnabled());
        QVERIFY(!Button(window, "Command2")->isEnabled());
        QCOMPARE(Points(window), u"YYYYYWWWWWWW"_s);
        // Boxes beyond the category's cap are hidden.
        QCOMPARE(Mental(window), u"YYYWWW----"_s);

        // A click on a white box turns the row's first white box green.
        ClickWidget(Find<QWidget>(window, u"Picture7_5"_s));
        QCOMPARE(Mental(window), u"YYYGWW----"_s);
        QCOMPARE(Points(window), u"YYYYWWWWWWWW"_s);
        QVERIFY(Button(window, "Command2")->isEnabled());
        // Run: Intellect and Cleverness (325 each) gain 70; the point stays spent.
        ClickWidget(Button(window, "Command2"));
        QCOMPARE(TextOf(window, u"Label14_4"_s), u"395 [500]"_s);
        QCOMPARE(Mental(window), u"YYYWWW----"_s);
        QCOMPARE(Points(window), u"YYYYWWWWWWWW"_s);

        // Done restores the main window with its list focused and keeps the values in the template.
        QPointer<QWidget> closing(window);
        ClickWidget(Button(window, "Command1"));
        QCOMPARE(QApplication::focusWidget(), Find<QWidget>(form.get(), u"ListView1"_s));
        QTRY_VERIFY(closing.isNull());
        QVERIFY(!form->isMinimized());
        QCOMPARE(form->Model().Template().Current[quorvel::Index(quorvel::Attribute::Intellect)], 395);

        // Clear Experiment returns the template to the evaluated values.
        ClickWidget(Button(form.get(), "Command6"));
        QCOMPARE(form->Model().Template().Current[quorvel::Index(quorvel::Attribute::Intellect)], 325);
    }

    void sampleSessionHasNoResetAndStaysOnTop() {
        auto form = MakeForm1();
        LoadSamples(form.get(), {kSample});
        ClickRow(Find<QAbstractItemView>(form.get(), u"ListView1"_s), 1);
        form->Model().Settings()[quorvel::Setting::OnTop] = true;
        ClickWidget(Button(form.get(), "Command8"));
        QWidget *window = TopLevel(u"Form5"_s);
        QVERIFY(window);
        QVERIFY(!Button(window, "Command3")->isEnabled());
        auto *check = Find<QCheckBox>(window, u"Check1"_s);
        QVERIFY(check->isChecked());
        QVERIFY(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        for (bool onTop : {false, true}) {
            QTest::mouseClick(check, Qt::LeftButton, Qt::NoModifier, QPoint(8, check->height() / 2));
            QCOMPARE(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint), onTop);
            QTRY_VERIFY(window->isVisible());
        }
    }
};

QTEST_MAIN(TestTemplate)
#include "tst_template.moc"
