// The template finder window: a search and its ranked list, "Use", progress and cancel on a
// large library while the main window stays usable, and results that go stale.
#include "TestSupport.h"

#include "FinderSupport.h"
#include "Form1.h"
#include "ReadNumber.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QSpinBox>

#include <algorithm>
#include <random>
#include <set>

using namespace testsupport;
using namespace Qt::StringLiterals;

namespace {

// Seven samples of uneven values: 2520 templates of distinct samples.
const QStringList kSeven{u"512,340,300,200,100,110,120,130,140,150,Ridge,20,1,1,3"_s,
                         u"900,120,650,480,220,300,410,95,330,700,Canopy,10,1,0,2"_s,
                         u"150,800,220,610,870,540,120,760,410,260,Dusk,12,4,0,1"_s,
                         u"700,650,130,330,410,920,600,280,150,480,Tusker,30,2,1,4"_s,
                         u"330,210,880,150,640,720,380,530,910,820,Salt,25,7,0,0"_s,
                         u"460,470,480,490,500,510,520,530,540,550,Even,5,3,1,5"_s,
                         u"990,100,760,240,130,410,880,120,270,610,Tall,40,9,0,6"_s};

constexpr int kScore = 1;
constexpr int kLevel = 2;
constexpr int kFirstName = 3;
constexpr int kFirstStat = 8;

// The bench's kind of library: 500 samples of values 100 to 999.
QStringList LargeLibrary() {
    std::mt19937 random(12345);
    std::uniform_int_distribution<int> value(100, 999);
    QStringList lines;
    for (int n = 1; n <= 500; ++n) {
        QStringList fields;
        for (int a = 0; a < 10; ++a)
            fields << QString::number(value(random));
        lines << fields.join(u',') + u",Sample %1,%2,1,0,0"_s.arg(n).arg(n % 60 + 1);
    }
    return lines;
}

} // namespace

class TestFinder : public WindowTest {
    Q_OBJECT

    std::unique_ptr<Form1> form_;
    QWidget *finder_ = nullptr;

    template <typename T = QWidget> T *Control(const char *name) { return Find<T>(finder_, QLatin1String(name)); }
    QTreeWidget *Results() { return Control<QTreeWidget>("finderResults"); }
    QString Status() { return TextOf(finder_, u"finderStatus"_s); }
    bool Running() { return Control<QPushButton>("finderCancel")->isEnabled(); }
    QTreeWidget *List() { return Find<QTreeWidget>(form_.get(), u"ListView1"_s); }
    QString CategoryName(int category) {
        return Find<QListWidget>(form_.get(), u"List1_%1"_s.arg(category))->item(0)->text();
    }

    void Open(const QStringList &samples) {
        form_ = MakeForm1();
        LoadSamples(form_.get(), samples);
        QTRY_COMPARE(RowCount(List()), samples.size());
        ToolbarAction(form_.get(), u"Find Template"_s)->trigger();
        QTRY_VERIFY((finder_ = TopLevel(u"FindTemplateWindow"_s)));
    }
    void ClickButton(const char *name) { QTest::mouseClick(Control<QPushButton>(name), Qt::LeftButton); }
    // Starts a search and waits for its end.
    void Search() {
        ClickButton("finderSearch");
        QVERIFY(!Control<QPushButton>("finderSearch")->isEnabled());
        QTRY_VERIFY_WITH_TIMEOUT(!Running(), 60000);
    }
    void ChooseGoal(const QString &goal) {
        auto *box = Control<QComboBox>("finderGoal");
        box->setCurrentIndex(box->findText(goal));
    }
    // Edits a sample through the main window's editor: its row clicked, the name typed, "Edit".
    void Rename(int row, const QString &name) {
        ClickRow(List(), row);
        auto *edit = Find<QLineEdit>(form_.get(), u"Text1_10"_s);
        edit->setFocus();
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Backspace);
        QTest::keyClicks(edit, name);
        ClickWidget(Find<QWidget>(form_.get(), u"Command3"_s));
    }

private slots:
    // The list is the best of all templates, best first, and "Use" puts a template in the main
    // window, whose own evaluation shows the statistics the list shows.
    void searchListsTheBestAndUseFillsTheTemplate() {
        WriteSettingsFile("Old\r\nNew1\r\n");
        Open(kSeven);
        // The equation is the last one the options switch on. Another one ranks the levels; the
        // statistics are still the main window's, whose Armor follows New 1.
        auto *equation = Control<QComboBox>("finderEquation");
        QCOMPARE(equation->currentText(), u"New 1"_s);
        equation->setCurrentText(u"Old"_s);
        QVERIFY(!Control<QPushButton>("finderUse")->isEnabled());
        Search();
        QVERIFY2(Status().startsWith(u"The best 10"_s), qPrintable(Status()));

        // The ten best Health scores of every template, as the model evaluates them.
        std::vector<double> best;
        const quorvel::DnaLibrary &library = form_->Model().Library();
        for (int code = 0; code < 7 * 7 * 7 * 7 * 7; ++code) {
            std::array<int, 5> chosen{};
            for (int k = 0, rest = code; k < 5; ++k, rest /= 7)
                chosen[static_cast<std::size_t>(k)] = 1 + rest % 7;
            if (std::set<int>(chosen.begin(), chosen.end()).size() == 5)
                best.push_back(quorvel::ReadNumber(
                    quorvel::FoundTemplatePet(library, chosen, false, {})[quorvel::Index(quorvel::PetStat::Health)]));
        }
        std::sort(best.rbegin(), best.rend());
        QCOMPARE(RowCount(Results()), 10);
        for (int row = 1; row <= 10; ++row) {
            QCOMPARE(Cell(Results(), row, 0), QString::number(row));
            QCOMPARE(Cell(Results(), row, kScore).toDouble(), best[static_cast<std::size_t>(row - 1)]);
            QCOMPARE(Cell(Results(), row, kScore), Cell(Results(), row, kFirstStat));
        }

        // "Use" leaves the selected sample as it was.
        ClickRow(List(), 2);
        ClickRow(Results(), 3);
        ClickButton("finderUse");
        QCOMPARE(form_->Model().Library().SelectedRecord, 2);
        for (int category = 0; category < 5; ++category)
            QCOMPARE(CategoryName(category), Cell(Results(), 3, kFirstName + category));
        for (int stat = 0; stat < 10; ++stat)
            QCOMPARE(TextOf(form_.get(), u"Label23_%1"_s.arg(stat)), Cell(Results(), 3, kFirstStat + stat));
        QCOMPARE(TextOf(form_.get(), u"Label23_10"_s).section(u" / "_s, 0, 0), Cell(Results(), 3, kLevel));

        // Found experimented, a double-clicked template is put in experimented, as it was ranked.
        ChooseGoal(u"Damage"_s);
        Control<QCheckBox>("finderExperimented")->setChecked(true);
        Search();
        DoubleClickRow(Results(), 2);
        QCOMPARE(TextOf(form_.get(), u"Command2_4"_s), u"-"_s);
        QCOMPARE(CategoryName(4), Cell(Results(), 2, kFirstName + 4));
        QCOMPARE(TextOf(form_.get(), u"Label23_9"_s), Cell(Results(), 2, kFirstStat + 9));

        // Columns sort by value: rank 10 heads the list in descending order, not 9.
        ClickHeader(Results(), 0);
        QCOMPARE(Cell(Results(), 1, 0), u"10"_s);
    }

    // A search on 500 samples runs beside the main window: it stops soon after "Cancel", shows
    // its progress, and stops when the window closes.
    void progressCancelAndClose() {
        Open(LargeLibrary());
        ChooseGoal(u"Damage"_s);
        Control<QCheckBox>("finderMaxLevelEnabled")->setChecked(true);
        Control<QDoubleSpinBox>("finderMaxLevel")->setValue(25);
        Control<QCheckBox>("finderReuse")->setChecked(true);
        Control<QSpinBox>("finderTopK")->setValue(100);

        // "Cancel" right away: the search stops soon with what it had found. The main window
        // takes an edit before the search's end is shown, and the edit makes its results stale.
        ClickButton("finderSearch");
        ClickButton("finderCancel");
        Rename(3, u"Renamed"_s);
        QCOMPARE(Cell(List(), 3, 1), u"Renamed"_s);
        QVERIFY(Running());
        QTRY_VERIFY_WITH_TIMEOUT(!Running(), 30000);
        QVERIFY2(Status().startsWith(u"Cancelled"_s), qPrintable(Status()));
        QVERIFY(Status().contains(u"changed"_s));
        QCOMPARE(TextOf(finder_, u"finderSearch"_s), u"Search again"_s);

        // A whole search shows how far it got on the way.
        auto *progress = Control<QProgressBar>("finderProgress");
        QList<int> shown;
        connect(progress, &QProgressBar::valueChanged, this, [&shown](int value) { shown << value; });
        Search();
        QVERIFY(std::any_of(shown.begin(), shown.end(),
                            [progress](int value) { return value > 0 && value < progress->maximum(); }));
        QCOMPARE(shown.last(), progress->maximum());

        // Closing the window stops a running search.
        ClickButton("finderSearch");
        QVERIFY(Running());
        finder_->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(!TopLevel(u"FindTemplateWindow"_s));
    }

    // Results of a changed library say so; "Use" takes a template while its own samples are
    // unchanged. "Keep the categories already filled" keeps the samples still in the library.
    void staleResultsAndKeptCategories() {
        Open(kSeven);
        SendToCategory(form_.get(), 4, 0);
        Control<QCheckBox>("finderKeepFilled")->setChecked(true);
        Search();
        for (int row = 1; row <= RowCount(Results()); ++row)
            QCOMPARE(Cell(Results(), row, kFirstName), u"Tusker"_s);

        // A sample the first template does not use changes: it can still be used.
        QStringList used;
        for (int category = 0; category < 5; ++category)
            used << Cell(Results(), 1, kFirstName + category);
        const auto unused = std::find_if(kSeven.begin(), kSeven.end(), [&](const QString &line) {
            return !used.contains(line.section(u',', 10, 10));
        });
        Rename(static_cast<int>(unused - kSeven.begin()) + 1, u"Renamed"_s);
        QVERIFY2(Status().contains(u"changed"_s), qPrintable(Status()));
        QCOMPARE(TextOf(finder_, u"finderSearch"_s), u"Search again"_s);
        ClickRow(Results(), 1);
        ClickButton("finderUse");
        QCOMPARE(CategoryName(1), used[1]);

        // Its Physique sample changes: "Use" refuses and the template stays.
        Rename(4, u"Tusker II"_s);
        ClickRow(Results(), 2);
        ClickButton("finderUse");
        QVERIFY2(Status().contains(u"no longer"_s), qPrintable(Status()));
        QCOMPARE(CategoryName(1), used[1]);

        // The template's Physique sample is no longer in the library: the new search chooses it.
        Search();
        QCOMPARE(TextOf(finder_, u"finderSearch"_s), u"Search"_s);
        QVERIFY2(Status().contains(u"Not kept"_s) && Status().contains(u"Physique"_s), qPrintable(Status()));
        QVERIFY(!Status().contains(u"changed"_s));
    }
};

QTEST_MAIN(TestFinder)
#include "tst_finder.moc"
