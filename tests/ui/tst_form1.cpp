#include "TestSupport.h"

#include "Form1.h"

#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>

using namespace testsupport;

namespace {

const QStringList kSamples{
    QStringLiteral("950,120,300,200,100,110,120,130,140,150,Big Hard,20,1,1,5"),
    QStringLiteral("9,500,500,500,500,500,500,500,500,500,Low Hard,12,10,0,2"),
    QStringLiteral("100,87,12.7,301,95,102,340,298,415,1000,Gurrcat,30,4,1,6.5"),
    QStringLiteral("87,60,70,80,90,100,110,120,130,140,Mott,5,11,0,7"),
};

QTreeWidget *List(Form1 *form) {
    return Find<QTreeWidget>(form, QStringLiteral("ListView1"));
}

int Px(int twips) {
    return (twips + 7) / 15;
}

} // namespace

class TestForm1 : public QObject {
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

    void startsWithItsLayout() {
        auto form = MakeForm1();
        QCOMPARE(form->windowTitle(), QStringLiteral("Quorvel v0.55"));
        QCOMPARE(form->size(), QSize(973, 650));
        QTreeWidget *list = List(form.get());
        QCOMPARE(list->columnCount(), 16);
        const QStringList headers{
            QStringLiteral("#"),      QStringLiteral("ID"),     QStringLiteral("Hard"),  QStringLiteral("Fort"),
            QStringLiteral("Dex"),    QStringLiteral("Endu"),   QStringLiteral("Int"),   QStringLiteral("Clev"),
            QStringLiteral("Depend"), QStringLiteral("Cour"),   QStringLiteral("Fierc"), QStringLiteral("Power"),
            QStringLiteral("Level"),  QStringLiteral("Planet"), QStringLiteral("W/M"),   QStringLiteral("Quality")};
        for (int c = 0; c < 16; ++c)
            QCOMPARE(list->headerItem()->text(c), headers[c]);
        QCOMPARE(list->header()->sectionSize(0), 0);
        QCOMPARE(list->header()->sectionSize(1), Px(1400));
        QCOMPARE(list->header()->sectionSize(8), Px(800));
        // The list fills the window: 14595 x 9750 twips inside gives 10295 x 6850.
        QCOMPARE(list->geometry(), QRect(Px(4200), Px(960), Px(10295), Px(6850)));
        QCOMPARE(Find<QWidget>(form.get(), QStringLiteral("Picture4"))->y(), Px(7920));
        // Controls stand in the inner area measured from the toolbar's top edge.
        QWidget *toolbar = Find<QWidget>(form.get(), QStringLiteral("Toolbar1"));
        QWidget *firstList = Find<QWidget>(form.get(), QStringLiteral("List1_0"));
        QCOMPARE(firstList->mapTo(form.get(), QPoint()).y() - toolbar->mapTo(form.get(), QPoint()).y(), 64);
        QVERIFY(!Find<QWidget>(form.get(), QStringLiteral("TreeView1"))->isVisible());
        QCOMPARE(Find<QLabel>(form.get(), QStringLiteral("Label2_5"))->text(), QStringLiteral("DNA View:"));
        QVERIFY(!Find<QPushButton>(form.get(), QStringLiteral("Command7"))->isEnabled());
        QVERIFY(!Find<QPushButton>(form.get(), QStringLiteral("Command6"))->isEnabled());
    }

    void loadShowsTheLoadersCells() {
        auto form = MakeForm1();
        const QString path = WriteDnaFile(QStringLiteral("four.txt"), kSamples);
        AnswerFileDialog(path);
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        QTreeWidget *list = List(form.get());
        QCOMPARE(RowCount(list), 4);
        QCOMPARE(form->windowTitle(), QStringLiteral("Quorvel v0.55 [%1]").arg(path));
        QCOMPARE(Cell(list, 1, 0), QStringLiteral("1"));
        QCOMPARE(Cell(list, 1, 1), QStringLiteral("Big Hard"));
        QCOMPARE(Cell(list, 1, 2), QStringLiteral("  950"));
        QCOMPARE(Cell(list, 3, 4), QStringLiteral(" 12.7"));
        QCOMPARE(Cell(list, 3, 11), QStringLiteral(" 1000"));
        QCOMPARE(Cell(list, 1, 12), QStringLiteral("   20"));
        QCOMPARE(Cell(list, 1, 13), QStringLiteral("Corellia"));
        QCOMPARE(Cell(list, 1, 14), QStringLiteral("Mission"));
        QCOMPARE(Cell(list, 1, 15), QStringLiteral("Very High"));
        QCOMPARE(Cell(list, 3, 15), QStringLiteral("Unknown"));
        QCOMPARE(Cell(list, 4, 15), QString());
        QCOMPARE(form->State().Library.Records[3].Attributes[2], 13);

        // Append continues the slot numbers after the rows already shown.
        AnswerFileDialog(WriteDnaFile(QStringLiteral("two.txt"), kSamples.mid(0, 2)));
        ToolbarAction(form.get(), QStringLiteral("Append DNA"))->trigger();
        QCOMPARE(RowCount(list), 6);
        QCOMPARE(Cell(list, 6, 0), QStringLiteral("6"));
        QCOMPARE(Cell(list, 6, 1), QStringLiteral("Low Hard"));

        // A replacing load starts again at slot 1; a cancelled dialog changes nothing.
        AnswerFileDialog(WriteDnaFile(QStringLiteral("one.txt"), kSamples.mid(3, 1)));
        ToolbarAction(form.get(), QStringLiteral("Load DNA"))->trigger();
        QCOMPARE(RowCount(list), 1);
        QCOMPARE(Cell(list, 1, 1), QStringLiteral("Mott"));
        QCOMPARE(form->State().Library.Count, 1);
        AnswerFileDialog(QString());
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        QCOMPARE(RowCount(list), 1);
        QCOMPARE(form->State().Library.Count, 1);
    }

    void aShortLineStopsTheLoadAndKeepsTheCaption() {
        auto form = MakeForm1();
        QStringList lines = kSamples;
        lines.insert(2, QString());
        AnswerFileDialog(WriteDnaFile(QStringLiteral("gap.txt"), lines));
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        QCOMPARE(RowCount(List(form.get())), 2);
        QCOMPARE(form->windowTitle(), QStringLiteral("Quorvel v0.55"));

        // An attribute of six characters ends the reading at its line.
        AnswerFileDialog(WriteDnaFile(QStringLiteral("wide.txt"),
                                      {kSamples[0], QStringLiteral("-12000,1,1,1,1,1,1,1,1,1,Wide"), kSamples[1]}));
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        QCOMPARE(RowCount(List(form.get())), 1);
        QCOMPARE(form->State().Library.Count, 1);
    }

    void aFileThatCannotBeOpenedChangesNothingButThePath() {
        auto form = MakeForm1();
        AnswerFileDialog(WriteDnaFile(QStringLiteral("kept.txt"), kSamples));
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        const QString title = form->windowTitle();

        // The open dialog takes a name that does not exist; the open then fails quietly.
        const QString missing = TempFolder() + QStringLiteral("/missing.txt");
        AnswerFileDialog(missing);
        bool dialogLingered = false;
        QTimer::singleShot(2000, [&dialogLingered] {
            for (QWidget *w : QApplication::topLevelWidgets()) {
                if (w->isVisible() && w->objectName() != QLatin1String("Form1")) {
                    dialogLingered = true;
                    w->close();
                }
            }
        });
        ToolbarAction(form.get(), QStringLiteral("Load DNA"))->trigger();
        QVERIFY(!dialogLingered);
        QCOMPARE(RowCount(List(form.get())), 4);
        QCOMPARE(form->State().Library.Count, 4);
        QCOMPARE(form->windowTitle(), title);
        QCOMPARE(form->State().LastDnaFile, missing);
    }

    void headerClicksSortAsTextAndNoSortRebuilds() {
        auto form = MakeForm1();
        AnswerFileDialog(WriteDnaFile(QStringLiteral("sort.txt"), kSamples));
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        QTreeWidget *list = List(form.get());

        ClickHeader(list, 2);
        QStringList hard;
        for (int row = 1; row <= 4; ++row)
            hard << Cell(list, row, 2).trimmed();
        QCOMPARE(hard, (QStringList{QStringLiteral("9"), QStringLiteral("87"), QStringLiteral("100"),
                                    QStringLiteral("950")}));
        QVERIFY(form->State().ListSorted);

        ClickHeader(list, 2);
        QCOMPARE(Cell(list, 1, 2), QStringLiteral("  950"));
        // The order flips on every click, whichever column: Power now sorts ascending.
        ClickHeader(list, 11);
        QCOMPARE(Cell(list, 1, 11), QStringLiteral("  140"));
        QCOMPARE(Cell(list, 4, 11), QStringLiteral(" 1000"));

        // Picking a row selects the sample it shows, not the one in its position's slot.
        ClickRow(list, 1);
        QCOMPARE(form->State().Library.SelectedRecord, 4);
        QCOMPARE(form->State().Library.SelectedRow, 1);

        ToolbarAction(form.get(), QStringLiteral("No Sort"))->trigger();
        QVERIFY(!form->State().ListSorted);
        QCOMPARE(form->State().Library.SelectedRow, 4);
        for (int row = 1; row <= 4; ++row)
            QCOMPARE(Cell(list, row, 0), QString::number(row));
        QCOMPARE(Cell(list, 2, 2), QStringLiteral("   9"));
        QCOMPARE(Cell(list, 3, 4), QStringLiteral("  13"));
        QCOMPARE(Cell(list, 1, 12), QStringLiteral("  20"));
    }

    void rightClickShowsTheSendToMenu() {
        auto form = MakeForm1();
        AnswerFileDialog(WriteDnaFile(QStringLiteral("menu.txt"), kSamples));
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        ClickRow(List(form.get()), 2, Qt::RightButton);
        QMenu *menu = form->findChild<QMenu *>(QStringLiteral("m_test"));
        QVERIFY(menu);
        QTRY_VERIFY(menu->isVisible());
        QCOMPARE(menu->defaultAction()->objectName(), QStringLiteral("m_phys"));
        QCOMPARE(menu->defaultAction()->text(), QStringLiteral("Send to Physique"));
        QCOMPARE(form->State().Library.SelectedRecord, 2);
        menu->close();
    }

    void foldingKeepsExactHeightsAndPlaces() {
        auto form = MakeForm1();
        QWidget *firstList = Find<QWidget>(form.get(), QStringLiteral("List1_0"));
        QCOMPARE(firstList->height(), Px(225));
        ClickWidget(Find<QWidget>(form.get(), QStringLiteral("Label2_0")));
        QCOMPARE(firstList->height(), Px(1200));
        ClickWidget(Find<QWidget>(form.get(), QStringLiteral("Label2_0")));
        QCOMPARE(firstList->height(), Px(225));

        auto *foldAll = Find<QPushButton>(form.get(), QStringLiteral("Command5"));
        foldAll->click();
        QCOMPARE(foldAll->text(), QStringLiteral("Fold all"));
        for (int i = 0; i < 5; ++i)
            QCOMPARE(Find<QWidget>(form.get(), QStringLiteral("List1_%1").arg(i))->height(), Px(1200));
        foldAll->click();
        QCOMPARE(foldAll->text(), QStringLiteral("Unfold all"));
        QCOMPARE(Find<QWidget>(form.get(), QStringLiteral("List1_4"))->height(), Px(225));

        QWidget *values = Find<QWidget>(form.get(), QStringLiteral("Picture2"));
        QWidget *pet = Find<QWidget>(form.get(), QStringLiteral("Picture3"));
        ClickWidget(Find<QWidget>(form.get(), QStringLiteral("Label1")));
        QCOMPARE(values->height(), Px(135));
        QCOMPARE(pet->pos(), QPoint(Px(120), Px(5400)));
        ClickWidget(Find<QWidget>(pet, QStringLiteral("Label4")));
        QCOMPARE(pet->height(), Px(135));

        // Folding the editor moves it to H - 520 and makes the list 1310 twips taller.
        QWidget *editor = Find<QWidget>(form.get(), QStringLiteral("Picture4"));
        QTreeWidget *list = List(form.get());
        const int listHeight = list->height();
        ClickWidget(Find<QWidget>(editor, QStringLiteral("Label41")));
        const int h = form->height() * 15;
        QCOMPARE(editor->y(), Px(h - 520));
        QCOMPARE(editor->height(), Px(135));
        QVERIFY(qAbs(list->height() - listHeight - 1310 / 15) <= 1);
        ClickWidget(Find<QWidget>(editor, QStringLiteral("Label41")));
        QCOMPARE(editor->y(), Px(h - 1830));
        QCOMPARE(list->height(), listHeight);
    }

    void resizingPlacesTheListAndEditor() {
        auto form = MakeForm1();
        form->resize(800, 600);
        QTreeWidget *list = List(form.get());
        QTRY_COMPARE(list->width(), Px(800 * 15 - 4300));
        QCOMPARE(list->height(), Px(600 * 15 - 2900));
        QCOMPARE(Find<QWidget>(form.get(), QStringLiteral("Picture4"))->y(), Px(600 * 15 - 1830));
        QCOMPARE(Find<QWidget>(form.get(), QStringLiteral("TreeView1"))->size(), QSize(Px(8895), Px(6855)));
    }

    void viewsSwitchBetweenListAndTree() {
        auto form = MakeForm1();
        ToolbarAction(form.get(), QStringLiteral("Pet View"))->trigger();
        auto *tree = Find<QTreeWidget>(form.get(), QStringLiteral("TreeView1"));
        QVERIFY(tree->isVisible());
        QVERIFY(!List(form.get())->isVisible());
        QCOMPARE(Find<QLabel>(form.get(), QStringLiteral("Label2_5"))->text(), QStringLiteral("Pet View"));
        QCOMPARE(tree->topLevelItemCount(), 1);
        QTreeWidgetItem *root = tree->topLevelItem(0);
        QCOMPARE(root->text(0), QStringLiteral("Receipe:"));
        QCOMPARE(root->childCount(), 9);
        QCOMPARE(root->child(8)->text(0), QStringLiteral("Recept 9"));
        QVERIFY(!ToolbarAction(form.get(), QStringLiteral("DNA View"))->isChecked());

        ToolbarAction(form.get(), QStringLiteral("DNA View"))->trigger();
        QVERIFY(List(form.get())->isVisible());
        QVERIFY(!tree->isVisible());
        QCOMPARE(Find<QLabel>(form.get(), QStringLiteral("Label2_5"))->text(), QStringLiteral("DNA View"));
    }

    void clearAndFiltersLeaveTheLibrary() {
        auto form = MakeForm1();
        AnswerFileDialog(WriteDnaFile(QStringLiteral("clear.txt"), kSamples));
        ToolbarAction(form.get(), QStringLiteral("Load"))->trigger();
        const QString title = form->windowTitle();
        for (const char *caption : {"Clear", "Filter", "Filter On"})
            ToolbarAction(form.get(), QString::fromLatin1(caption))->trigger();
        QCOMPARE(RowCount(List(form.get())), 4);
        QCOMPARE(form->State().Library.Count, 4);
        QCOMPARE(form->windowTitle(), title);
        QCOMPARE(form->State().Template.Slots[0].Name, std::string("-"));
    }

    void aboutOpensOnce() {
        auto form = MakeForm1();
        ToolbarAction(form.get(), QStringLiteral("About"))->trigger();
        ToolbarAction(form.get(), QStringLiteral("About"))->trigger();
        int shown = 0;
        for (QWidget *w : QApplication::topLevelWidgets())
            shown += w->objectName() == QLatin1String("Form4") && w->isVisible();
        QCOMPARE(shown, 1);
        QWidget *about = TopLevel(QStringLiteral("Form4"));
        QCOMPARE(about->windowTitle(), QStringLiteral("About"));
        QCOMPARE(Find<QLabel>(about, QStringLiteral("Label4"))->text(), QStringLiteral("v0.55.1"));
        Find<QPushButton>(about, QStringLiteral("Command4"))->click();
        QTRY_VERIFY(!TopLevel(QStringLiteral("Form4")));
    }
};

QTEST_MAIN(TestForm1)
#include "tst_form1.moc"
