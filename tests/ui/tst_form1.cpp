#include "TestSupport.h"

#include "Form1.h"

#include <QHeaderView>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>

using namespace testsupport;
using namespace Qt::StringLiterals;

namespace {

const QStringList kSamples{
    u"950,120,300,200,100,110,120,130,140,150,Big Hard,20,1,1,5"_s,
    u"9,500,500,500,500,500,500,500,500,500,Low Hard,12,10,0,2"_s,
    u"100,87,12.7,301,95,102,340,298,415,1000,Gurrcat,30,4,1,6.5"_s,
    u"87,60,70,80,90,100,110,120,130,140,Mott,5,11,0,7"_s,
};

struct CellText {
    int row;
    int column;
    const char *text;
};

} // namespace

class TestForm1 : public WindowTest {
    Q_OBJECT

    static QTreeWidget *List(QWidget *form) { return Find<QTreeWidget>(form, u"ListView1"_s); }
    static QWidget *Control(QWidget *window, const QString &name) { return Find<QWidget>(window, name); }
    static int Px(int twips) { return (twips + 7) / 15; }
    static void Trigger(QWidget *form, const QString &caption) { ToolbarAction(form, caption)->trigger(); }
    static void CheckCells(QAbstractItemView *view, std::initializer_list<CellText> cells) {
        for (const CellText &c : cells)
            QVERIFY2(Cell(view, c.row, c.column) == QLatin1String(c.text),
                     qPrintable(u"row %1 column %2: '%3'"_s.arg(c.row).arg(c.column).arg(Cell(view, c.row, c.column))));
    }

private slots:
    void startsWithItsLayoutAndFollowsResizing() {
        auto form = MakeForm1();
        QTreeWidget *list = List(form.get());
        QCOMPARE(form->windowTitle(), u"Quorvel v0.55"_s);
        QCOMPARE(form->size(), QSize(973, 650));
        QStringList headers;
        for (int c = 0; c < list->columnCount(); ++c)
            headers << list->headerItem()->text(c);
        QCOMPARE(headers.join(u','),
                 u"#,ID,Hard,Fort,Dex,Endu,Int,Clev,Depend,Cour,Fierc,Power,Level,Planet,W/M,Quality"_s);
        for (auto [column, twips] : {std::pair{0, 0}, {1, 1400}, {8, 800}})
            QCOMPARE(list->header()->sectionSize(column), Px(twips));
        // The list fills the window: 14595 x 9750 twips inside gives 10295 x 6850.
        QCOMPARE(list->geometry(), QRect(Px(4200), Px(960), Px(10295), Px(6850)));
        QCOMPARE(Control(form.get(), u"Picture4"_s)->y(), Px(7920));
        // Controls stand in the inner area measured from the toolbar's top edge.
        const int toolbarTop = Control(form.get(), u"Toolbar1"_s)->mapTo(form.get(), QPoint()).y();
        QCOMPARE(Control(form.get(), u"List1_0"_s)->mapTo(form.get(), QPoint()).y() - toolbarTop, 64);
        QVERIFY(!Control(form.get(), u"TreeView1"_s)->isVisible());
        QCOMPARE(TextOf(form.get(), u"Label2_5"_s), u"DNA View:"_s);
        QVERIFY(!Control(form.get(), u"Command7"_s)->isEnabled() && !Control(form.get(), u"Command6"_s)->isEnabled());

        form->resize(800, 600);
        QTRY_COMPARE(list->width(), Px(800 * 15 - 4300));
        QCOMPARE(list->height(), Px(600 * 15 - 2900));
        QCOMPARE(Control(form.get(), u"Picture4"_s)->y(), Px(600 * 15 - 1830));
        QCOMPARE(Control(form.get(), u"TreeView1"_s)->size(), QSize(Px(8895), Px(6855)));
    }

    void loadAppendAndCancelShowTheLoadersCells() {
        auto form = MakeForm1();
        QTreeWidget *list = List(form.get());
        LoadSamples(form.get(), kSamples, u"four.txt"_s);
        QCOMPARE(RowCount(list), 4);
        QCOMPARE(form->windowTitle(), u"Quorvel v0.55 [%1/four.txt]"_s.arg(TempFolder()));
        CheckCells(list, {{1, 0, "1"}, {1, 1, "Big Hard"}, {1, 2, "  950"}, {3, 4, " 12.7"}, {3, 11, " 1000"}});
        CheckCells(list, {{1, 12, "   20"}, {1, 13, "Corellia"}, {1, 14, "Mission"}, {1, 15, "Very High"}});
        CheckCells(list, {{3, 15, "Unknown"}, {4, 15, ""}});
        QCOMPARE(form->State().Library.Records[3].Attributes[2], 13);
        // Append continues the slot numbers after the rows already shown.
        AnswerFileDialog(WriteDnaFile(u"two.txt"_s, kSamples.mid(0, 2)));
        Trigger(form.get(), u"Append DNA"_s);
        QCOMPARE(RowCount(list), 6);
        CheckCells(list, {{6, 0, "6"}, {6, 1, "Low Hard"}});
        // A replacing load starts again at slot 1; a cancelled dialog changes nothing.
        AnswerFileDialog(WriteDnaFile(u"one.txt"_s, kSamples.mid(3, 1)));
        Trigger(form.get(), u"Load DNA"_s);
        CheckCells(list, {{1, 0, "1"}, {1, 1, "Mott"}});
        AnswerFileDialog(QString());
        Trigger(form.get(), u"Load"_s);
        QCOMPARE(RowCount(list), 1);
        QCOMPARE(form->State().Library.Count, 1);
    }

    void failedLoadsStopAtAShortLineAndKeepTheCaption() {
        auto form = MakeForm1();
        LoadSamples(form.get(), {kSamples[0], kSamples[1], QString(), kSamples[2]});
        QCOMPARE(RowCount(List(form.get())), 2);
        QCOMPARE(form->windowTitle(), u"Quorvel v0.55"_s);
        // An attribute of six characters ends the reading at its line.
        LoadSamples(form.get(), {kSamples[0], u"-12000,1,1,1,1,1,1,1,1,1,Wide"_s, kSamples[1]});
        QCOMPARE(RowCount(List(form.get())), 1);

        // A file that cannot be opened changes nothing but the remembered path.
        LoadSamples(form.get(), kSamples, u"kept.txt"_s);
        const QString title = form->windowTitle();
        // The open dialog takes a name that does not exist; the open then fails quietly.
        const QString missing = TempFolder() + u"/missing.txt"_s;
        AnswerFileDialog(missing);
        bool boxShown = false;
        QTimer::singleShot(2000, form.get(), [&boxShown] {
            if (QWidget *box = QApplication::activeModalWidget())
                boxShown = box->close();
        });
        Trigger(form.get(), u"Load DNA"_s);
        QVERIFY(!boxShown);
        QCOMPARE(RowCount(List(form.get())), 4);
        QCOMPARE(form->windowTitle(), title);
        QCOMPARE(form->State().LastDnaFile, missing);
    }

    void headerClicksSortAsTextAndNoSortRebuilds() {
        auto form = MakeForm1();
        QTreeWidget *list = List(form.get());
        LoadSamples(form.get(), kSamples);
        ClickHeader(list, 2);
        QVERIFY(form->State().ListSorted);
        CheckCells(list, {{1, 2, "    9"}, {2, 2, "   87"}, {3, 2, "  100"}, {4, 2, "  950"}});
        ClickHeader(list, 2);
        CheckCells(list, {{1, 2, "  950"}});
        // The order flips on every click, whichever column: Power now sorts ascending.
        ClickHeader(list, 11);
        CheckCells(list, {{1, 11, "  140"}, {4, 11, " 1000"}});
        // Picking a row selects the sample it shows, not the one in its position's slot.
        ClickRow(list, 1);
        QCOMPARE(form->State().Library.SelectedRecord, 4);
        QCOMPARE(form->State().Library.SelectedRow, 1);
        Trigger(form.get(), u"No Sort"_s);
        QVERIFY(!form->State().ListSorted);
        QCOMPARE(form->State().Library.SelectedRow, 4);
        CheckCells(list, {{1, 0, "1"}, {2, 0, "2"}, {3, 0, "3"}, {4, 0, "4"}});
        CheckCells(list, {{2, 2, "   9"}, {3, 4, "  13"}, {1, 12, "  20"}});
    }

    void rightClickShowsTheSendToMenu() {
        auto form = MakeForm1();
        LoadSamples(form.get(), kSamples);
        ClickRow(List(form.get()), 2, Qt::RightButton);
        auto *menu = Find<QMenu>(form.get(), u"m_test"_s);
        QTRY_VERIFY(menu->isVisible());
        QCOMPARE(menu->defaultAction()->objectName(), u"m_phys"_s);
        QCOMPARE(menu->defaultAction()->text(), u"Send to Physique"_s);
        QCOMPARE(form->State().Library.SelectedRecord, 2);
        menu->close();
    }

    void foldingKeepsExactHeightsAndPlaces() {
        auto form = MakeForm1();
        QWidget *firstList = Control(form.get(), u"List1_0"_s);
        for (int twips : {225, 1200}) {
            QCOMPARE(firstList->height(), Px(twips));
            ClickWidget(Control(form.get(), u"Label2_0"_s));
        }
        QCOMPARE(firstList->height(), Px(225));
        auto *foldAll = Find<QPushButton>(form.get(), u"Command5"_s);
        for (auto [caption, twips] : {std::pair{"Fold all", 1200}, {"Unfold all", 225}}) {
            foldAll->click();
            QCOMPARE(foldAll->text(), QLatin1String(caption));
            for (int i = 0; i < 5; ++i)
                QCOMPARE(Control(form.get(), u"List1_%1"_s.arg(i))->height(), Px(twips));
        }
        QWidget *pet = Control(form.get(), u"Picture3"_s);
        ClickWidget(Control(form.get(), u"Label1"_s));
        ClickWidget(Control(pet, u"Label4"_s));
        QCOMPARE(Control(form.get(), u"Picture2"_s)->height(), Px(135));
        QCOMPARE(pet->pos(), QPoint(Px(120), Px(5400)));
        QCOMPARE(pet->height(), Px(135));

        // Folding the editor moves it to H - 520 and makes the list 1310 twips taller.
        QWidget *editor = Control(form.get(), u"Picture4"_s);
        QTreeWidget *list = List(form.get());
        const int listHeight = list->height();
        const int h = form->height() * 15;
        ClickWidget(Control(editor, u"Label41"_s));
        QCOMPARE(editor->y(), Px(h - 520));
        QCOMPARE(editor->height(), Px(135));
        QVERIFY(qAbs(list->height() - listHeight - 1310 / 15) <= 1);
        ClickWidget(Control(editor, u"Label41"_s));
        QCOMPARE(editor->y(), Px(h - 1830));
        QCOMPARE(list->height(), listHeight);
    }

    void viewsSwitchBetweenListAndTree() {
        auto form = MakeForm1();
        Trigger(form.get(), u"Pet View"_s);
        auto *tree = Find<QTreeWidget>(form.get(), u"TreeView1"_s);
        QVERIFY(tree->isVisible() && !List(form.get())->isVisible());
        QVERIFY(!ToolbarAction(form.get(), u"DNA View"_s)->isChecked());
        QCOMPARE(TextOf(form.get(), u"Label2_5"_s), u"Pet View"_s);
        QCOMPARE(tree->topLevelItemCount(), 1);
        QCOMPARE(tree->topLevelItem(0)->text(0), u"Receipe:"_s);
        QCOMPARE(tree->topLevelItem(0)->childCount(), 9);
        QCOMPARE(tree->topLevelItem(0)->child(8)->text(0), u"Recept 9"_s);
        Trigger(form.get(), u"DNA View"_s);
        QVERIFY(List(form.get())->isVisible() && !tree->isVisible());
        QCOMPARE(TextOf(form.get(), u"Label2_5"_s), u"DNA View"_s);
    }

    void clearAndFiltersLeaveTheLibrary() {
        auto form = MakeForm1();
        LoadSamples(form.get(), kSamples);
        const QString title = form->windowTitle();
        for (const QString &caption : {u"Clear"_s, u"Filter"_s, u"Filter On"_s})
            Trigger(form.get(), caption);
        QCOMPARE(RowCount(List(form.get())), 4);
        QCOMPARE(form->State().Library.Count, 4);
        QCOMPARE(form->windowTitle(), title);
        QCOMPARE(form->State().Template.Slots[0].Name, std::string("-"));
    }

    void aboutOpensOnce() {
        auto form = MakeForm1();
        Trigger(form.get(), u"About"_s);
        Trigger(form.get(), u"About"_s);
        const QWidgetList windows = QApplication::topLevelWidgets();
        QCOMPARE(std::count_if(windows.begin(), windows.end(),
                               [](QWidget *w) { return w->objectName() == "Form4"_L1 && w->isVisible(); }),
                 1);
        QWidget *about = TopLevel(u"Form4"_s);
        QCOMPARE(about->windowTitle(), u"About"_s);
        QCOMPARE(TextOf(about, u"Label4"_s), u"v0.55.1"_s);
        Find<QPushButton>(about, u"Command4"_s)->click();
        QTRY_VERIFY(!TopLevel(u"Form4"_s));
    }
};

QTEST_MAIN(TestForm1)
#include "tst_form1.moc"
