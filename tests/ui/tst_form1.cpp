#include "TestSupport.h"

#include "Form1.h"

#include <QFile>
#include <QMenu>
#include <QPushButton>

using namespace testsupport;
using namespace Qt::StringLiterals;

static const QStringList kSamples{u"950,120,300,200,100,110,120,130,140,150,Big Hard,20,1,1,5"_s,
                                  u"9,500,500,500,500,500,500,500,500,500,Low Hard,12,10,0,2"_s,
                                  u"100,87,12.7,301,95,102,340,298,415,1000,Gurrcat,30,4,1,6.5"_s,
                                  u"87,60,70,80,90,100,110,120,130,140,Mott,5,11,0,7"_s};

class TestForm1 : public WindowTest {
    Q_OBJECT

    std::unique_ptr<Form1> form_;

    QTreeWidget *List() { return Find<QTreeWidget>(form_.get(), u"ListView1"_s); }
    QWidget *Control(const QString &name, QWidget *in = nullptr) { return Find<QWidget>(in ? in : form_.get(), name); }
    void Trigger(const QString &caption) { ToolbarAction(form_.get(), caption)->trigger(); }
    static int Px(int twips) { return (twips + 7) / 15; }
    QString Column(int column) { return ColumnText(List(), column); }

private slots:
    void layoutFollowsResizingAndViewsSwitch() {
        form_ = MakeForm1();
        QCOMPARE(form_->size(), QSize(973, 650));
        QCOMPARE(List()->geometry(), QRect(Px(4200), Px(960), Px(10295), Px(6850)));
        form_->resize(800, 600);
        QTRY_COMPARE(List()->width(), Px(800 * 15 - 4300));
        QCOMPARE(List()->height(), Px(600 * 15 - 2900));
        QCOMPARE(Control(u"Picture4"_s)->y(), Px(600 * 15 - 1830));
        QWidget *tree = Control(u"TreeView1"_s);
        QCOMPARE(tree->size(), QSize(Px(8895), Px(6855)));

        Trigger(u"Pet View"_s);
        QVERIFY(tree->isVisible() && !List()->isVisible());
        QCOMPARE(TextOf(form_.get(), u"Label2_5"_s), u"Pet View"_s);
        Trigger(u"DNA View"_s);
        QVERIFY(List()->isVisible() && !tree->isVisible());
    }

    void loadAppendCancelAndFailedLoads() {
        form_ = MakeForm1();
        LoadSamples(form_.get(), kSamples, u"four.txt"_s);
        QCOMPARE(form_->windowTitle(), u"Quorvel v0.55 [%1/four.txt]"_s.arg(TempFolder()));
        QTRY_COMPARE(QApplication::focusWidget(), List());
        AnswerFileDialog(WriteDnaFile(u"two.txt"_s, kSamples.mid(0, 2)));
        Trigger(u"Append DNA"_s);
        QCOMPARE(Column(0), u"1|2|3|4|5|6"_s);
        const QString title = form_->windowTitle();
        // A replacing load that stops at a blank line keeps its rows but leaves the caption.
        LoadSamples(form_.get(), {kSamples[3], QString(), kSamples[2]});
        QCOMPARE(Column(1), u"Mott"_s);
        QCOMPARE(form_->windowTitle(), title);
        // A cancelled dialog adds nothing; a name that cannot be opened is remembered without a word.
        AnswerFileDialog(QString());
        Trigger(u"Append DNA"_s);
        AnswerFileDialog(TempFolder() + u"/missing.txt"_s);
        Trigger(u"Load DNA"_s);
        QCOMPARE(Column(1), u"Mott"_s);
        QCOMPARE(form_->windowTitle(), title);
        QCOMPARE(QString::fromStdString(form_->Model().LastDnaFile()), TempFolder() + u"/missing.txt"_s);
    }

    void headerSortsAsTextNoSortRebuildsAndTheMenuDefaultsToPhysique() {
        form_ = MakeForm1();
        LoadSamples(form_.get(), kSamples);
        ClickHeader(List(), 4);
        // As text " 12.7" sorts after "  500".
        QCOMPARE(Column(4), u"   70|  300|  500| 12.7"_s);
        ClickHeader(List(), 4);
        QCOMPARE(Column(4), u" 12.7|  500|  300|   70"_s);
        // The order flips on every click, whichever column.
        ClickHeader(List(), 11);
        QCOMPARE(Column(1), u"Mott|Big Hard|Low Hard|Gurrcat"_s);
        ClickRow(List(), 1);
        QCOMPARE(form_->Model().Library().SelectedRecord, 4);
        // No Sort rebuilds the rows in slot order and padding; the selection follows.
        Trigger(u"No Sort"_s);
        QCOMPARE(form_->Model().Library().SelectedRow, 4);
        QCOMPARE(Column(4), u" 300| 500|  13|  70"_s);
        // A right click opens the "Send to" menu (used by every test that fills the template).
        QCOMPARE(Find<QMenu>(form_.get(), u"m_test"_s)->defaultAction()->text(), u"Send to Physique"_s);
    }

    void foldingKeepsExactHeightsAndPlaces() {
        form_ = MakeForm1();
        ClickWidget(Control(u"Label2_0"_s));
        QCOMPARE(Control(u"List1_0"_s)->height(), Px(1200));
        auto *foldAll = Find<QPushButton>(form_.get(), u"Command5"_s);
        for (auto [caption, twips] : {std::pair{"Fold all", 1200}, {"Unfold all", 225}}) {
            foldAll->click();
            QCOMPARE(foldAll->text(), QLatin1String(caption));
            for (int i = 0; i < 5; ++i)
                QCOMPARE(Control(u"List1_%1"_s.arg(i))->height(), Px(twips));
        }
        QWidget *pet = Control(u"Picture3"_s);
        ClickWidget(Control(u"Label1"_s));
        ClickWidget(Control(u"Label4"_s, pet));
        QCOMPARE(pet->geometry(), QRect(Px(120), Px(5400), pet->width(), Px(135)));
        // Folding the editor moves it to H - 520 and makes the list 1310 twips taller.
        QWidget *editor = Control(u"Picture4"_s);
        const int listHeight = List()->height();
        ClickWidget(Control(u"Label41"_s, editor));
        QCOMPARE(editor->geometry(), QRect(editor->x(), Px(form_->height() * 15 - 520), editor->width(), Px(135)));
        QVERIFY(qAbs(List()->height() - listHeight - 1310 / 15) <= 1);
    }

    // Appended after two samples; the vanished file and the folder are named by the settings
    // file's Load entry and read at start-up, before anything else.
    void badInputKeepsWhatWasRead_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<int>("kept");
        QTest::addColumn<int>("added");
        QTest::addColumn<bool>("complete");
        for (const BadDnaFile &bad : WriteBadDnaFiles()) {
            const int kept = bad.atStart ? 0 : 2;
            QTest::newRow(bad.tag) << bad.path << kept << std::min(bad.samples, 500 - kept) << bad.complete;
        }
    }

    void badInputKeepsWhatWasRead() {
        QFETCH(QString, path);
        QFETCH(int, kept);
        QFETCH(int, added);
        QFETCH(bool, complete);
        if (kept == 0)
            WriteSettingsFile("Load\r\n" + QFile::encodeName(path) + "\r\n");
        form_ = MakeForm1();
        if (kept > 0) {
            LoadSamples(form_.get(), kSamples.mid(0, 2));
            AnswerFileDialog(path);
            Trigger(u"Append DNA"_s);
            QCOMPARE(Cell(List(), 2, 1), u"Low Hard"_s);
        }
        QCOMPARE(RowCount(List()), kept + added);
        QCOMPARE(form_->windowTitle().endsWith(u"[%1]"_s.arg(path)), complete);
        // Reading goes on afterwards with the next row number, while there is room.
        if (kept + added == 500)
            return;
        AnswerFileDialog(WriteDnaFile(u"later.txt"_s, {GoodDnaLine()}));
        Trigger(u"Append DNA"_s);
        QCOMPARE(Cell(List(), kept + added + 1, 0), QString::number(kept + added + 1));
    }
};

QTEST_MAIN(TestForm1)
#include "tst_form1.moc"
